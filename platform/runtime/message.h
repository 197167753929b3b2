#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/runtime/ns_object.h"

/// Sending messages through the method tables, so that a replaced method is replaced for every caller.

/// Thrown when a class that exists has no method of that selector and type.
class UnrecognizedSelector : public std::logic_error {
 public:
  UnrecognizedSelector(const Class& cls, std::string_view selector)
      : std::logic_error(cls.name() + " " + std::string(selector) + ": unrecognized selector") {}
};

/// Sends `selector` to `self`. `Self` is the class that publishes the method; the argument types must be
/// those of the published signature. Throws UnrecognizedSelector where nothing implements it.
template <class R, class... Args, class Self>
R send(Self& self, std::string_view selector, Args... args) {
  Method* method = self.isa().instanceMethod(selector);
  auto implementation = method ? method->as<R (*)(Self&, Args...)>() : nullptr;
  if (!implementation) throw UnrecognizedSelector(self.isa(), selector);
  return implementation(self, args...);
}

/// Sends a class message. A null class answers nothing, as a null receiver does: the result is R().
template <class R, class... Args>
R sendToClass(Class* cls, std::string_view selector, Args... args) {
  if (!cls) return R();
  Method* method = cls->classMethod(selector);
  auto implementation = method ? method->as<R (*)(Args...)>() : nullptr;
  if (!implementation) throw UnrecognizedSelector(*cls, selector);
  return implementation(args...);
}

/// What target-action and delayed performs call: an instance method that takes one object, which may be
/// null ("enlargeNameAtIndex:"), or none ("hide"). Classes register such methods with these types.
using ActionWithObject = void (*)(NSObject& self, const id& object);
using ActionWithoutObject = void (*)(NSObject& self);

/// Sends the action `selector` to `target`, with `object` when the selector takes one. A target that does
/// not implement it throws UnrecognizedSelector.
void performAction(NSObject& target, std::string_view selector, const id& object);

/// The variable of an object found by class_getInstanceVariable, as a T; null when `object` or `variable`
/// is, or when the variable is no T.
template <class T>
T* object_getInstanceVariable(NSObject* object, const InstanceVariable* variable) {
  if (!object || !variable || variable->type != typeid(T)) return nullptr;
  return reinterpret_cast<T*>(reinterpret_cast<std::byte*>(object) + ivar_getOffset(*variable));
}

/// Declares `variable`, a member of `object`, under `name`, so that it can be found as above.
template <class T>
void declareInstanceVariable(NSObject& object, std::string_view name, T& variable) {
  auto offset = reinterpret_cast<std::byte*>(&variable) - reinterpret_cast<std::byte*>(&object);
  object.isa().addInstanceVariable({std::string(name), offset, typeid(T)});
}
