#pragma once

namespace host {

/// A member of the one object of a class in the process: it makes the object known while it is there.
/// Declared last, it is the last to be made and the first to go, so that nobody finds an object that is half
/// gone.
template <class Object>
class SharedInstance {
 public:
  explicit SharedInstance(Object& object) : object_(object) { current_ = &object; }
  ~SharedInstance() {
    if (current_ == &object_) current_ = nullptr;  // Another may have taken its place.
  }
  SharedInstance(const SharedInstance&) = delete;
  SharedInstance& operator=(const SharedInstance&) = delete;

  /// The process's object; null while there is none.
  static Object* current() { return current_; }

 private:
  static inline Object* current_ = nullptr;
  Object& object_;
};

}  // namespace host
