#include "platform/runtime/message.h"

void performAction(NSObject& target, std::string_view selector, const id& object) {
  Method* method = target.isa().instanceMethod(selector);
  const bool takesObject = selector.ends_with(':');
  if (auto action = method && takesObject ? method->as<ActionWithObject>() : nullptr) {
    action(target, object);
  } else if (auto plainAction = method && !takesObject ? method->as<ActionWithoutObject>() : nullptr) {
    plainAction(target);
  } else {
    throw UnrecognizedSelector(target.isa(), selector);
  }
}
