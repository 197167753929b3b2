#include "host/away_controller.h"

#include "host/device_pictures.h"
#include "platform/foundation/trace.h"
#include "platform/springboard/gs_event.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_keyboard.h"

namespace host {
namespace {

constexpr CFTimeInterval slideSeconds = 0.3;

}  // namespace

AwayController::AwayController(const DeviceModel& model, UIController& uiController, StatusBar& statusBar)
    : model_(model),
      uiController_(uiController),
      statusBar_(statusBar),
      window_(std::make_shared<AwayWindow>(screenRect(model))) {
  window_->setWindowLevel(AwayWindow::level);
}

void AwayController::registerMethods() {
  Class& cls = SBAwayController::objcClass();
  cls.addClassMethod(
      "sharedAwayController", +[]() -> SBAwayController* { return shared(); });
  cls.addMethod(
      "isLocked", +[](SBAwayController& self) { return static_cast<AwayController&>(self).locked(); });
  // There is no backlight to turn on; what a person finds on the lit screen is the present time.
  cls.addMethod(
      "undimScreen", +[](SBAwayController& self) { static_cast<AwayController&>(self).updateTime(); });
  setLockDeviceHandler([] {
    if (auto* controller = shared()) controller->lock("library");
  });
}

void AwayController::buildView() {
  if (view_) view_->removeFromSuperview();
  view_ = std::make_shared<LockScreenView>(model_);
  if (view_->initWithFrame(screenRect(model_))) {
    window_->addSubview(view_);
  } else {
    view_ = nullptr;
  }
}

void AwayController::startLocked() {
  locked_ = true;
  showView();
}

void AwayController::lock(const std::string& by) {
  if (locked_) return;
  uiController_.settle();
  settle();
  UIPeripheralHost::sharedInstance().hideKeyboard();
  locked_ = true;
  trace("device-locked", {{"by", by}});
  buildView();
  showView();
  uiController_.updateInterface();
  updateTime();
}

void AwayController::unlock() {
  if (!locked_) return;
  uiController_.settle();
  locked_ = false;
  trace("device-unlocked", {});
  undimScreen();
  uiController_.updateInterface();
  statusBar_.build(UIApplication::sharedApplication().statusBarOrientation());
  window_->setUserInteractionEnabled(false);
  isSliding_ = true;
  if (!view_) return settle();
  const std::weak_ptr<NSObject> self = weak_from_this();
  const std::weak_ptr<LockScreenView> sliding = view_;
  auto slideAway = [this] {
    CGRect frame = view_->frame();
    frame.origin.y = -frame.size.height;
    view_->setFrame(frame);
  };
  UIView::animateWithDuration(slideSeconds, slideAway, [this, self, sliding] {
    const auto alive = self.lock();
    if (alive && isSliding_ && view_ == sliding.lock()) settle();
  });
}

void AwayController::pressHome() {
  if (view_) {
    view_->handleMenuButtonTap();
  } else {
    undimScreen();
  }
}

void AwayController::settle() {
  if (!isSliding_) return;
  isSliding_ = false;
  if (view_) view_->removeFromSuperview();
  view_ = nullptr;
  window_->setHidden(true);
}

void AwayController::showView() {
  window_->setUserInteractionEnabled(true);
  window_->setHidden(false);
}

void AwayController::updateTime() {
  statusBar_.updateTime();
  if (view_) view_->updateTime();
}

}  // namespace host
