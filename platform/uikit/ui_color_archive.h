#pragma once

#include <optional>

#include "platform/foundation/property_list.h"
#include "platform/uikit/ui_color.h"

/// Keyed archives of one colour, as files hold them. Both operations know of no other class.

/// `NSKeyedArchiver archivedDataWithRootObject:`, in binary form: greys as white and alpha, other colours as
/// red, green, blue and alpha. A pattern is archived as the colour beneath it.
NSData archivedDataWithRootObject(const UIColor& color);

/// `NSKeyedUnarchiver unarchiveObjectWithData:`, from binary or XML form. Nothing when the archive is
/// damaged, its root is no UIColor, or a component is missing or not between 0 and 1.
std::optional<UIColor> unarchiveColorWithData(const NSData& data);
