#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/runtime/ns_object.h"

/// A picture filter that a layer's content and sublayers pass through on their way to the screen. The
/// renderer knows "gaussianBlur", whose "inputRadius" is the standard deviation in points; other types draw
/// the layer unchanged.
class CAFilter : public NSObject {
  OBJC_CLASS(CAFilter, NSObject)
 public:
  explicit CAFilter(std::string type) : type_(std::move(type)) {}
  static std::shared_ptr<CAFilter> filterWithType(const std::string& type) {
    return std::make_shared<CAFilter>(type);
  }

  const std::string& type() const { return type_; }
  void setValue(float value, const std::string& key) { values_[key] = value; }
  /// The value of `key`, 0 where it was not set.
  float value(const std::string& key) const;

 private:
  std::string type_;
  std::map<std::string, float> values_;
};

using CAFilterArray = std::vector<std::shared_ptr<CAFilter>>;
