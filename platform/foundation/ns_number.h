#pragma once

#include <memory>

#include "platform/runtime/ns_object.h"

/// A number as an object, for selectors that take one.
class NSNumber : public NSObject {
  OBJC_CLASS(NSNumber, NSObject)
 public:
  explicit NSNumber(int value) : value_(value) {}
  static std::shared_ptr<NSNumber> numberWithInt(int value) { return std::make_shared<NSNumber>(value); }

  int intValue() const { return value_; }
  bool isEqual(const NSObject& other) const override {
    auto* number = dynamic_cast<const NSNumber*>(&other);
    return number && number->value_ == value_;
  }

 private:
  int value_;
};
