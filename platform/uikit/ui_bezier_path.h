#pragma once

#include "platform/coregraphics/cg_path.h"

/// Paths as UIKit makes them.
class UIBezierPath {
 public:
  static UIBezierPath bezierPathWithRect(CGRect rect) { return UIBezierPath(CGPath{rect}); }
  CGPath cgPath() const { return path_; }

 private:
  explicit UIBezierPath(CGPath path) : path_(path) {}
  CGPath path_;
};
