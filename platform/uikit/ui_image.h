#pragma once

#include <memory>
#include <string>

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/ns_data.h"
#include "platform/runtime/ns_object.h"

enum class UIImageOrientation {
  Up = 0,
  Down,
  Left,
  Right,
  UpMirrored,
  DownMirrored,
  LeftMirrored,
  RightMirrored
};

/// A picture with a scale (pixels a point) and an orientation. Immutable.
class UIImage : public NSObject {
  OBJC_CLASS(UIImage, NSObject)
 public:
  UIImage(CGImageRef image, CGFloat scale, UIImageOrientation orientation)
      : image_(std::move(image)), scale_(scale), orientation_(orientation) {}

  /// Scale 1, orientation up. Null for a null picture.
  static std::shared_ptr<UIImage> imageWithCGImage(CGImageRef image);
  static std::shared_ptr<UIImage> imageWithCGImage(CGImageRef image, CGFloat scale,
                                                   UIImageOrientation orientation);

  /// Reads PNG or JPEG, by content, from a device path. On a screen of scale 2, NAME@2x.EXT is taken instead
  /// of NAME.EXT where it exists; a picture from an @2x file has scale 2. Null when nothing can be read.
  static std::shared_ptr<UIImage> imageWithContentsOfFile(const std::string& devicePath);

  const CGImageRef& cgImage() const { return image_; }
  CGFloat scale() const { return scale_; }
  UIImageOrientation orientation() const { return orientation_; }
  CGSize size() const;  ///< In points, as the picture is seen.
  /// The picture turned as it is seen: `cgImage` itself when the orientation is up.
  CGImageRef uprightCGImage() const;

 private:
  CGImageRef image_;  // May be null: an image without pixels, of size zero.
  CGFloat scale_;
  UIImageOrientation orientation_;
};

/// JPEG data of the picture, upright; `quality` 0 to 1. Empty for a null picture.
NSData UIImageJPEGRepresentation(const std::shared_ptr<UIImage>& image, CGFloat quality);
