#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <utility>
#include <vector>

/// The object runtime: classes found by name, each with tables of methods keyed by whole selector.
///
/// A method's implementation is a plain function whose first parameter is the receiver
/// (`void activate(SBApplication& self)`). The table remembers the function's exact type, and whoever
/// looks it up, calls it or replaces it has to name the same type: a wrong guess finds nothing.

/// An implementation with its type erased; only Method gives the type back.
using Imp = void (*)();

/// One entry of a method table.
class Method {
 public:
  template <class R, class... Args>
  Method(std::string selector, R (*implementation)(Args...))
      : selector_(std::move(selector)),
        signature_(typeid(R(*)(Args...))),
        implementation_(reinterpret_cast<Imp>(implementation)) {}

  const std::string& selector() const { return selector_; }

  /// The implementation as `Function` (a function pointer type), or null when that is not its type.
  template <class Function>
  Function as() const {
    return signature_ == typeid(Function) ? reinterpret_cast<Function>(implementation_) : nullptr;
  }

 private:
  std::string selector_;
  std::type_index signature_;
  Imp implementation_;
};

/// An instance variable that can be reached by name: where in the object it lies and what it is.
struct InstanceVariable {
  std::string name;
  std::ptrdiff_t offset;  ///< Bytes from the start of the object.
  std::type_index type;
};

/// A class: name, superclass, methods. Registered once, never destroyed.
class Class {
 public:
  Class(std::string name, Class* superclass) : name_(std::move(name)), superclass_(superclass) {}

  const std::string& name() const { return name_; }

  /// Adds the implementation of an instance method, or puts it in the place of this class's own one.
  template <class R, class... Args>
  void addMethod(std::string_view selector, R (*implementation)(Args...)) {
    add(methods_, Method(std::string(selector), implementation));
  }
  /// The same for a class method, whose implementation takes no receiver.
  template <class R, class... Args>
  void addClassMethod(std::string_view selector, R (*implementation)(Args...)) {
    add(classMethods_, Method(std::string(selector), implementation));
  }
  /// Declares a variable, or puts it in the place of this class's own one of that name.
  void addInstanceVariable(InstanceVariable variable);

  /// Each searches this class, then its superclasses; null when there is none.
  Method* instanceMethod(std::string_view selector);
  Method* classMethod(std::string_view selector);
  const InstanceVariable* instanceVariable(std::string_view name) const;

 private:
  using MethodTable = std::vector<std::unique_ptr<Method>>;
  static void add(MethodTable& table, Method method);
  static Method* find(const MethodTable& table, std::string_view selector);

  std::string name_;
  Class* superclass_;  // Classes live for ever.
  MethodTable methods_;
  MethodTable classMethods_;
  std::deque<InstanceVariable> variables_;  // A deque: whoever looked one up keeps its address.
};

/// The class of that name, made on first request. `superclass` counts only for the call that makes it.
Class& objc_registerClass(std::string_view name, Class* superclass);

/// The class of that name, or null when no such class has been registered.
Class* objc_getClass(std::string_view name);

/// The instance variable of that name of `cls` or its superclasses; null without class or variable.
const InstanceVariable* class_getInstanceVariable(const Class* cls, std::string_view name);

/// Where the variable lies in its object, in bytes.
std::ptrdiff_t ivar_getOffset(const InstanceVariable& variable);
