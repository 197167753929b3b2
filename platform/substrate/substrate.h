#pragma once

#include <string_view>

#include "platform/foundation/trace.h"
#include "platform/runtime/class.h"

/// Replaces the implementation of an instance method and stores the previous one in `*previous`.
///
/// A class or method that does not exist, or one of another type, is left alone and `*previous` unchanged.
/// Every installation is traced as "hook" {class, selector}.
template <class R, class... Args>
void MSHookMessageEx(Class* cls, std::string_view selector, R (*replacement)(Args...),
                     R (**previous)(Args...)) {
  Method* method = cls ? cls->instanceMethod(selector) : nullptr;
  auto implementation = method ? method->as<R (*)(Args...)>() : nullptr;
  if (!implementation) return;
  *previous = implementation;
  cls->addMethod(selector,
                 replacement);  // Into the class itself: what it only inherits stays as it is up there.
  trace("hook", {{"class", cls->name()}, {"selector", std::string(selector)}});
}
