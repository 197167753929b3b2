#pragma once

#include <memory>
#include <string_view>

#include "platform/runtime/class.h"

/// The root of all platform objects: shared ownership, and a class that is known at run time.
///
/// Objects that take part in the frameworks are made with std::make_shared.
class NSObject : public std::enable_shared_from_this<NSObject> {
 public:
  NSObject() = default;
  NSObject(const NSObject&) = delete;
  NSObject& operator=(const NSObject&) = delete;
  virtual ~NSObject() = default;

  static Class& objcClass();
  virtual Class& isa() const { return objcClass(); }

  bool respondsToSelector(std::string_view selector) const {
    return isa().instanceMethod(selector) != nullptr;
  }

  /// Equality of value where a class defines one; identity otherwise.
  virtual bool isEqual(const NSObject& other) const { return this == &other; }
};

/// A reference to any object, or null.
using id = std::shared_ptr<NSObject>;

/// Declares `Name` as a class of the runtime under its own name. First line of the class body.
#define OBJC_CLASS(Name, Superclass)                                                \
 public:                                                                            \
  static Class& objcClass() {                                                       \
    static Class& registered = objc_registerClass(#Name, &Superclass::objcClass()); \
    return registered;                                                              \
  }                                                                                 \
  Class& isa() const override { return objcClass(); }
