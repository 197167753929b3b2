#pragma once

#include <string>

#include "platform/foundation/run_loop.h"

/// The time of day on the device, which follows the run loop: it started on a Tuesday morning at 9:41.
namespace host {

std::string clockText(CFTimeInterval now);  ///< "9:41"
std::string dateText(CFTimeInterval now);   ///< "Tuesday, January 9"
/// When both change next. Nothing on the run loop waits for it, or no device would ever come to rest.
CFTimeInterval nextClockChange(CFTimeInterval now);

}  // namespace host
