#pragma once

#include <memory>
#include <string>

#include "platform/uikit/ui_image.h"

/// Plain pictures in the place of those that are missing.
namespace host {

/// A rounded tile with the first letter of `name`, `points` wide and high.
std::shared_ptr<UIImage> placeholderIcon(const std::string& name, CGFloat points, CGFloat scale);
/// A screen that says what it is the screen of.
std::shared_ptr<UIImage> placeholderScreen(const std::string& name, CGSize size, CGFloat scale);
std::shared_ptr<UIImage> placeholderWallpaper(CGSize size, CGFloat scale);

}  // namespace host
