#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/coregraphics/cg_context.h"

/// What UIKit's own looks (alerts, keyboard, bars) draw with beyond CGContext. Internal.

inline constexpr CGColor opaqueWhite{1, 1, 1, 1};
inline constexpr CGColor opaqueBlack{0, 0, 0, 1};

/// The same colour at another opacity.
constexpr CGColor withAlpha(CGColor color, CGFloat alpha) {
  color.alpha = alpha;
  return color;
}

/// `rect` smaller by `dx` on the left and right, and by `dy` above and below.
constexpr CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy) {
  return {{rect.origin.x + dx, rect.origin.y + dy}, {rect.size.width - 2 * dx, rect.size.height - 2 * dy}};
}

/// A line of `width` just inside the rectangle's edge.
void strokeRoundedRectangle(CGContext& context, CGRect rect, CGFloat radius, CGFloat width, CGColor color);

void fillPolygon(CGContext& context, const std::vector<CGPoint>& corners, CGColor color);

/// `text` in lines of at most `width` points: broken at spaces, within a word that is too long by itself, and
/// where it has line breaks. Widths are estimated on the generous side, so that a line fits when it is drawn.
std::vector<std::string> wrapText(std::string_view text, CGFloat fontSize, CGFloat width);
