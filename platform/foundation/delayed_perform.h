#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/foundation/run_loop.h"
#include "platform/runtime/ns_object.h"

/// `performSelector:withObject:afterDelay:`: sends `selector` to `target` after `delay` seconds on the main
/// run loop, with `object` when the selector takes one. Target and object are kept alive until then.
void performSelector(const id& target, std::string_view selector, const id& object, CFTimeInterval delay);

/// `cancelPreviousPerformRequestsWithTarget:selector:object:`: forgets the pending performs of that selector
/// on that target whose object is equal to `object`; null is equal to null alone.
void cancelPreviousPerformRequests(const NSObject& target, std::string_view selector, const id& object);

/// The targets of all performs that are pending, in order of scheduling.
std::vector<id> pendingPerformTargets();
