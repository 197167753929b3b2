#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// What the frameworks tell whoever watches them: a hook installed, an alert shown, a window level changed.
/// A host turns these into its log. Without a watcher they go nowhere.

using TraceValue = std::variant<bool, std::int64_t, double, std::string>;
using TraceFields = std::vector<std::pair<std::string, TraceValue>>;
using TraceSink = std::function<void(std::string_view event, const TraceFields& fields)>;

/// Sets the one watcher; an empty function removes it.
void setTraceSink(TraceSink sink);

void trace(std::string_view event, const TraceFields& fields);
