#include "host/lock_screen_view.h"

#include "host/away_controller.h"
#include "host/device_clock.h"
#include "host/device_pictures.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/uikit/ui_image_view.h"

namespace host {

namespace {

constexpr CGFloat kStatusBarHeight = 20;  // Points, as all of these.
constexpr CGFloat kPanelHeight = 96;
constexpr CGFloat kClockTop = 6, kClockHeight = 58, kClockFontSize = 54;
constexpr CGFloat kDateHeight = 22, kDateFontSize = 17;
constexpr CGFloat kSliderWidth = 280, kSliderHeight = 52;

constexpr CGColor kPanelTop{0.15f, 0.15f, 0.16f, 0.70f};
constexpr CGColor kPanelBottom{0, 0, 0, 0.62f};
constexpr CGColor kPanelEdge{1, 1, 1, 0.22f};

/// The dark glass behind the clock and behind the slider.
class Panel : public UIView {
  OBJC_CLASS(SBLockBarView, UIView)
 public:
  explicit Panel(CGRect frame) : UIView(frame) {}
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override {
    const CGSize size = bounds().size;
    context.fillGradient({{0, 0}, size}, kPanelTop, kPanelBottom);
    context.fill(CGRectMake(0, 0, size.width, 1), kPanelEdge);
    context.fill(CGRectMake(0, size.height - 1, size.width, 1), kPanelEdge);
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

  auto upper = std::make_shared<Panel>(CGRectMake(0, kStatusBarHeight, size.width, kPanelHeight));
  clock_ = addLine(*upper, kClockTop, kClockHeight, kClockFontSize);
  date_ = addLine(*upper, kClockTop + kClockHeight, kDateHeight, kDateFontSize);
  addSubview(upper);

  auto lower = std::make_shared<Panel>(CGRectMake(0, size.height - kPanelHeight, size.width, kPanelHeight));
  const CGRect track = CGRectMake((size.width - kSliderWidth) / 2, (kPanelHeight - kSliderHeight) / 2,
                                  kSliderWidth, kSliderHeight);
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
