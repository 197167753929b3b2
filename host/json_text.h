#pragma once

#include <nlohmann/json.hpp>

#include "platform/coregraphics/cg_geometry.h"
#include "platform/foundation/run_loop.h"

namespace host {

using Json = nlohmann::ordered_json;

/// A number as people write it: whole ones without a fraction, null for what JSON has no number for.
Json jsonNumber(double value);
/// A 32-bit float by its shortest decimal: 0.7f is 0.7, not 0.699999988079071.
Json jsonNumber(float value);
Json jsonPoint(CGPoint point);  ///< [x, y]
Json jsonRect(CGRect rect);     ///< [x, y, width, height]
/// A point in time, free of the noise that adding up decimal fractions leaves.
Json jsonTime(CFTimeInterval time);

/// One line of text. What is no UTF-8 is replaced, not refused.
std::string jsonLine(const Json& json);
/// The same over several lines, for reading.
std::string jsonPage(const Json& json);

}  // namespace host
