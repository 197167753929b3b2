#include "host/lock_screen_view.h"

#include "host/away_controller.h"
#include "host/device_clock.h"
#include "host/device_pictures.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_status_bar.h"

namespace host {
namespace {

constexpr CGFloat panelHeight = 96;  // Points, as all of these.
constexpr CGFloat clockTop = 6, clockHeight = 58, clockFontSize = 54;
constexpr CGFloat dateHeight = 22, dateFontSize = 17;
constexpr CGFloat sliderWidth = 280, sliderHeight = 52;

constexpr CGColor panelTop{0.15f, 0.15f, 0.16f, 0.70f};
constexpr CGColor panelBottom{0, 0, 0, 0.62f};
constexpr CGColor panelEdge{1, 1, 1, 0.22f};

/// The dark glass behind the clock and behind the slider.
class Panel : public UIView {
  OBJC_CLASS(SBLockBarView, UIView)
 public:
  explicit Panel(CGRect frame) : UIView(frame) {}
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override {
    const CGSize size = bounds().size;
    context.fillGradient({{0, 0}, size}, panelTop, panelBottom);
    context.fill(CGRectMake(0, 0, size.width, 1), panelEdge);
    context.fill(CGRectMake(0, size.height - 1, size.width, 1), panelEdge);
  }
};

std::shared_ptr<UILabel> addLine(UIView& panel, CGFloat top, CGFloat height, CGFloat fontSize) {
  auto label = std::make_shared<UILabel>(CGRectMake(0, top, panel.bounds().size.width, height));
  label->setTextColor(UIColor::whiteColor());
  label->setTextAlignment(UITextAlignment::Center);
  label->setFontSize(fontSize);
  panel.addSubview(label);
  return label;
}

}  // namespace

void LockScreenView::registerMethods() {
  Class& cls = SBAwayView::objcClass();
  cls.addMethod(
      "initWithFrame:", +[](SBAwayView& self, CGRect frame) -> SBAwayView* {
        self.setFrame(frame);
        if (auto* view = dynamic_cast<LockScreenView*>(&self)) view->build(frame);
        return &self;
      });
  cls.addMethod(
      "handleMenuButtonTap", +[](SBAwayView&) {
        if (auto* controller = AwayController::shared()) controller->undimScreen();
      });
  cls.addMethod(
      "didMoveToWindow", +[](SBAwayView& self) {
        auto* view = dynamic_cast<LockScreenView*>(&self);
        if (view && view->window()) view->updateTime();
      });
}

void LockScreenView::build(CGRect frame) {
  const CGSize size = frame.size;
  auto picture = std::make_shared<UIImageView>(CGRect{{0, 0}, size});
  picture->setImage(wallpaper("Lock", model_));
  addSubview(picture);

  auto upper = std::make_shared<Panel>(CGRectMake(0, UIStatusBar::height, size.width, panelHeight));
  clock_ = addLine(*upper, clockTop, clockHeight, clockFontSize);
  date_ = addLine(*upper, clockTop + clockHeight, dateHeight, dateFontSize);
  addSubview(upper);

  auto lower = std::make_shared<Panel>(CGRectMake(0, size.height - panelHeight, size.width, panelHeight));
  const CGRect track =
      CGRectMake((size.width - sliderWidth) / 2, (panelHeight - sliderHeight) / 2, sliderWidth, sliderHeight);
  auto slider = std::make_shared<UnlockSlider>(track, [] {
    if (auto* controller = AwayController::shared()) controller->unlock();
  });
  slider->build();
  lower->addSubview(slider);
  addSubview(lower);
}

void LockScreenView::updateTime() {
  if (!clock_) return;
  const CFTimeInterval now = RunLoop::main().now();
  clock_->setText(clockText(now));
  date_->setText(dateText(now));
}

}  // namespace host
