#include "host/status_bar.h"

#include "host/device_clock.h"
#include "host/interface_orientation.h"

namespace host {
namespace {

constexpr CGFloat barHeight = UIStatusBar::height;

}  // namespace

void StatusBar::build(UIInterfaceOrientation orientation) {
  remove();
  const CGSize interface = interfaceSize(model_.size, orientation);
  bar_ = std::make_shared<UIStatusBar>();
  if (!bar_->initWithFrame(CGRectMake(0, 0, interface.width, barHeight))) {
    bar_ = nullptr;
    return;
  }
  // From the middle of the screen to the middle of the interface's upper edge.
  const CGAffineTransform upright = uprightTransform(orientation);
  const CGPoint toUpperEdge = CGPointApplyAffineTransform({0, (barHeight - interface.height) / 2}, upright);
  bar_->setTransform(upright);
  bar_->setCenter({model_.size.width / 2 + toUpperEdge.x, model_.size.height / 2 + toUpperEdge.y});
  updateTime();
  if (UIWindow* window = bar_->statusBarWindow()) {
    window->addSubview(bar_);
    window->setHidden(false);
  }
}

void StatusBar::remove() {
  if (bar_) bar_->removeFromSuperview();
  bar_ = nullptr;
}

void StatusBar::updateTime() {
  if (bar_) bar_->setTimeText(clockText(RunLoop::main().now()));
}

}  // namespace host
