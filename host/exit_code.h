#pragma once

namespace host {

/// What the process answers its caller with.
inline constexpr int exitSuccess = 0;
inline constexpr int exitFailed = 1;    ///< Something asked for could not be done.
inline constexpr int exitBadInput = 2;  ///< Options or a script line that cannot be understood.

}  // namespace host
