#include "platform/runtime/class.h"

#include <algorithm>
#include <functional>
#include <map>

namespace {

using ClassRegistry = std::map<std::string, Class, std::less<>>;

/// Never destroyed: objects may ask for their class until the very end of the process.
ClassRegistry& registry() {
  static auto& classes = *new ClassRegistry();
  return classes;
}

}  // namespace

void Class::add(MethodTable& table, Method method) {
  if (Method* own = find(table, method.selector())) {
    *own = std::move(method);
  } else {
    table.push_back(std::make_unique<Method>(std::move(method)));
  }
}

Method* Class::find(const MethodTable& table, std::string_view selector) {
  auto entry = std::find_if(table.begin(), table.end(),
                            [selector](const auto& method) { return method->selector() == selector; });
  return entry == table.end() ? nullptr : entry->get();
}

Method* Class::instanceMethod(std::string_view selector) {
  for (Class* cls = this; cls; cls = cls->superclass_) {
    if (Method* method = find(cls->methods_, selector)) return method;
  }
  return nullptr;
}

Method* Class::classMethod(std::string_view selector) {
  for (Class* cls = this; cls; cls = cls->superclass_) {
    if (Method* method = find(cls->classMethods_, selector)) return method;
  }
  return nullptr;
}

void Class::addInstanceVariable(InstanceVariable variable) {
  for (InstanceVariable& own : variables_) {
    if (own.name != variable.name) continue;
    own = std::move(variable);
    return;
  }
  variables_.push_back(std::move(variable));
}

const InstanceVariable* Class::instanceVariable(std::string_view name) const {
  for (const Class* cls = this; cls; cls = cls->superclass_) {
    for (const InstanceVariable& variable : cls->variables_) {
      if (variable.name == name) return &variable;
    }
  }
  return nullptr;
}

Class& objc_registerClass(std::string_view name, Class* superclass) {
  return registry().try_emplace(std::string(name), std::string(name), superclass).first->second;
}

Class* objc_getClass(std::string_view name) {
  auto entry = registry().find(name);
  return entry == registry().end() ? nullptr : &entry->second;
}

const InstanceVariable* class_getInstanceVariable(const Class* cls, std::string_view name) {
  return cls ? cls->instanceVariable(name) : nullptr;
}

std::ptrdiff_t ivar_getOffset(const InstanceVariable& variable) { return variable.offset; }
