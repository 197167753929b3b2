#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/describe.h"
#include "platform/quartzcore/ca_gradient_layer.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_label.h"
#include "platform/uikit/ui_window.h"

namespace host {
namespace {

constexpr CGFloat largestByte = 255;

std::string hexColor(CGColor color) {
  const auto byte = [](CGFloat component) {
    return component > 0 ? int(std::lround(std::min(component, 1.0f) * largestByte)) : 0;
  };
  return fmt::format("#{:02x}{:02x}{:02x}{:02x}", byte(color.red), byte(color.green), byte(color.blue),
                     byte(color.alpha));
}

CALayerGeometry geometryOf(const CALayer& layer, Values values) {
  return values == Values::Model ? layer.model() : layer.presentationAt(RunLoop::main().now());
}

Json describeTransform(CGAffineTransform transform) {
  Json numbers = Json::array();
  for (CGFloat number : {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty}) {
    numbers.push_back(jsonNumber(number));
  }
  return numbers;
}

Json describeImage(const UIImage* image) {
  if (!image) return nullptr;
  return {{"width", CGImageGetWidth(image->cgImage())},
          {"height", CGImageGetHeight(image->cgImage())},
          {"scale", jsonNumber(image->scale())}};
}

Json describeBackground(const std::optional<UIColor>& color) {
  if (!color) return nullptr;
  return color->patternImage() ? "pattern" : hexColor(color->cgColor());
}

Json describeFilters(const CAFilterArray& filters) {
  Json names = Json::array();
  for (auto& filter : filters) names.push_back(filter->type());
  return names;
}

Json describeLayer(const CALayer& layer, Values values) {
  Json colors = Json::array(), locations = Json::array();
  if (auto* gradient = dynamic_cast<const CAGradientLayer*>(&layer)) {
    for (CGColor color : gradient->colors()) colors.push_back(hexColor(color));
    for (CGFloat location : gradient->locations()) locations.push_back(jsonNumber(location));
  }
  return {{"class", layer.isa().name()},
          {"frame", jsonRect(CALayer::frameOf(geometryOf(layer, values)))},
          {"colors", colors},
          {"locations", locations}};
}

/// The sublayers that no view stands behind.
Json describePlainLayers(const CALayer& layer, Values values) {
  Json layers = Json::array();
  for (auto& sublayer : layer.sublayers()) {
    if (!sublayer->delegate()) layers.push_back(describeLayer(*sublayer, values));
  }
  return layers;
}

}  // namespace

Json describeView(const UIView& view, Values values) {
  const CALayer& layer = view.layer();
  const CALayerGeometry geometry = geometryOf(layer, values);
  Json json = {{"class", view.isa().name()},
               {"frame", jsonRect(CALayer::frameOf(geometry))},
               {"bounds", jsonRect(geometry.bounds)},
               {"alpha", jsonNumber(geometry.opacity)},
               {"hidden", view.hidden()},
               {"userInteraction", view.userInteractionEnabled()},
               {"transform", describeTransform(CATransform3DGetAffineTransform(geometry.transform))}};
  if (auto* window = dynamic_cast<const UIWindow*>(&view)) json["level"] = jsonNumber(window->windowLevel());
  if (auto* imageView = dynamic_cast<const UIImageView*>(&view))
    json["image"] = describeImage(imageView->image().get());
  if (auto* label = dynamic_cast<const UILabel*>(&view)) json["text"] = label->text();
  json["background"] = describeBackground(view.backgroundColor());
  if (layer.shadowOpacity() > 0) {
    const CGSize offset = layer.shadowOffset();
    json["shadow"] = {{"opacity", jsonNumber(layer.shadowOpacity())},
                      {"offset", Json::array({jsonNumber(offset.width), jsonNumber(offset.height)})}};
  }
  if (!layer.filters().empty()) json["filters"] = describeFilters(layer.filters());
  if (Json layers = describePlainLayers(layer, values); !layers.empty()) json["layers"] = std::move(layers);
  Json subviews = Json::array();
  for (auto& subview : view.subviews()) subviews.push_back(describeView(*subview, values));
  json["subviews"] = std::move(subviews);
  return json;
}

}  // namespace host
