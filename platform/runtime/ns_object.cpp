#include "platform/runtime/ns_object.h"

Class& NSObject::objcClass() {
  static Class& registered = objc_registerClass("NSObject", nullptr);
  return registered;
}
