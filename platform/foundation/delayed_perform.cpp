#include "platform/foundation/delayed_perform.h"

#include <list>
#include <string>

#include "platform/runtime/message.h"

namespace {

struct PendingPerform {
  id target;
  std::string selector;
  id object;  // May be null.
  RunLoop::Token token;
};

/// A list, so that the scheduled work can hold on to its own entry while others come and go.
using PendingPerforms = std::list<PendingPerform>;

PendingPerforms& pendingPerforms() {
  static auto& performs = *new PendingPerforms();  // Not destroyed before the run loop, which never is.
  return performs;
}

bool areEqual(const id& one, const id& other) { return one && other ? one->isEqual(*other) : one == other; }

}  // namespace

void performSelector(const id& target, std::string_view selector, const id& object, CFTimeInterval delay) {
  if (!target) return;
  PendingPerforms& pending = pendingPerforms();
  auto entry = pending.insert(pending.end(), {target, std::string(selector), object, RunLoop::Token()});
  entry->token = RunLoop::main().scheduleAfter(delay, [&pending, entry] {
    PendingPerforms due;  // No longer pending once it runs: it may schedule or cancel its own like.
    due.splice(due.end(), pending, entry);
    performAction(*entry->target, entry->selector, entry->object);
  });
}

void cancelPreviousPerformRequests(const NSObject& target, std::string_view selector, const id& object) {
  PendingPerforms& pending = pendingPerforms();
  PendingPerforms cancelled;  // Let go of at the end: a destructor may come back here.
  for (auto entry = pending.begin(); entry != pending.end();) {
    auto current = entry++;
    if (current->target.get() != &target || current->selector != selector) continue;
    if (!areEqual(current->object, object)) continue;
    RunLoop::main().cancel(current->token);
    cancelled.splice(cancelled.end(), pending, current);
  }
}

std::vector<id> pendingPerformTargets() {
  std::vector<id> targets;
  for (const PendingPerform& perform : pendingPerforms()) targets.push_back(perform.target);
  return targets;
}
