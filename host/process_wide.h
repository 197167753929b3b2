#pragma once

namespace host {

/// A base of classes with one object in the process, found through `shared`: it enters itself when it is made
/// and is gone again with its end.
template <class Object>
class ProcessWide {
 public:
  /// The process's object; null while there is none.
  static Object* shared() { return static_cast<Object*>(current_); }

 protected:
  ProcessWide() { current_ = this; }
  ~ProcessWide() {
    if (current_ == this) current_ = nullptr;  // A later one may have taken its place.
  }

 private:
  static inline ProcessWide* current_ = nullptr;
};

}  // namespace host
