#pragma once

#include <memory>

#include "platform/coregraphics/cg_image.h"
#include "platform/quartzcore/compositor.h"

/// The screen of the host: what the frameworks need to know of the glass that they draw for.
///
/// A host installs one before anything else of UIKit is used.
class Display {
 public:
  virtual ~Display() = default;
  virtual CGSize size() const = 0;    ///< Portrait, in points.
  virtual CGFloat scale() const = 0;  ///< Pixels a point.
  /// A picture of all that is on the screen now, `size` times `scale` pixels large. The same as the last time
  /// where nothing has changed since; whoever lets go of it before the next one saves a copy of its pixels.
  virtual CGImageRef picture() const = 0;
};

void setDisplay(std::shared_ptr<Display> display);
Display& currentDisplay();

/// A display that shows this process's own windows, drawn at the run loop's time.
class WindowDisplay : public Display {
 public:
  WindowDisplay(CGSize size, CGFloat scale) : size_(size), scale_(scale) {}
  CGSize size() const override { return size_; }
  CGFloat scale() const override { return scale_; }
  CGImageRef picture() const override;

 private:
  CGSize size_;
  CGFloat scale_;
  mutable Compositor compositor_;  // Only keeps what it need not draw again.
};

/// An image of the whole current screen, in device pixels. (`UIGetScreenImage`.)
CGImageRef UIGetScreenImage();
