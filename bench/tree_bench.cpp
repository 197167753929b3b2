// One view that moves among few or many that do not.

#include <memory>

#include "bench/figure.h"
#include "platform/quartzcore/compositor.h"
#include "platform/uikit/ui_image_view.h"
#include "tests/support/pictures.h"

namespace bench {
namespace {

constexpr CGSize screen{320, 480};  // Points.
constexpr CGFloat scale = 2;
constexpr CGFloat iconSide = 57, dotSide = 6, dotSpacing = 8;  // Points.
constexpr int few = 10, many = 1000;

/// Dots in a grid, and an icon below it: with few and with many it moves over the same, the background.
struct Views {
  explicit Views(int count) : root(std::make_shared<UIView>(CGRect{{0, 0}, screen})) {
    root->setBackgroundColor(UIColor::blackColor());
    const int columns = int(screen.width / dotSpacing);
    for (int i = 0; i < count - 1; ++i) {
      const CGPoint place{CGFloat(i % columns) * dotSpacing, CGFloat(i / columns) * dotSpacing};
      auto dot = std::make_shared<UIView>(CGRect{place, {dotSide, dotSide}});
      dot->setBackgroundColor(UIColor::whiteColor());
      root->addSubview(dot);
    }
    icon = std::make_shared<UIImageView>(CGRect{{100, 300}, {iconSide, iconSide}});
    icon->setImage(UIImage::imageWithCGImage(noise(int(iconSide * scale), int(iconSide * scale))));
    root->addSubview(icon);
  }

  double secondsOfFrame() {
    const CGFloat step = icon->center().x > screen.width / 2 ? -3.5f : 3.5f;
    icon->setCenter({icon->center().x + step, icon->center().y});
    return secondsOf([&] { compositor.frame({&root->layer()}, screen, scale, 0); });
  }

  std::shared_ptr<UIView> root;
  std::shared_ptr<UIImageView> icon;
  Compositor compositor;
};

}  // namespace

void addTreeFigures() {
  addFigure("tree/1000-views", "10 views, one moving", atMost(1.5), [] {
    auto fewViews = std::make_shared<Views>(few), manyViews = std::make_shared<Views>(many);
    return Works{[=] { return manyViews->secondsOfFrame(); }, [=] { return fewViews->secondsOfFrame(); }};
  });
}

}  // namespace bench
