#include "host/ui_controller.h"

#include <utility>

#include "host/away_controller.h"
#include "host/device_pictures.h"
#include "host/interface_orientation.h"
#include "host/keyboard.h"
#include "platform/foundation/trace.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_keyboard.h"

namespace host {
namespace {

UIController& ours(SBUIController& controller) { return static_cast<UIController&>(controller); }

bool isLocked() {
  const auto* away = AwayController::shared();
  return away && away->locked();
}

}  // namespace

struct UIController::RunningTransition {
  std::shared_ptr<Transition> controller;
  std::shared_ptr<AppScreen> outgoing;  // Null when it comes from the home screen.
  Application* activating;              // Null when it goes to the home screen. Owned by the catalogue.
  bool startedProcess;
};

UIController::UIController(const DeviceModel& model, AppCatalogue& catalogue, AppSwitcherModel& recents,
                           HomeScreen& homeScreen, StatusBar& statusBar)
    : catalogue_(catalogue),
      recents_(recents),
      homeScreen_(homeScreen),
      statusBar_(statusBar),
      screenSize_(model.size),
      window_(std::make_shared<AppWindow>(screenRect(model))) {
  window_->setWindowLevel(AppWindow::level);
}

UIController::~UIController() = default;

void UIController::registerMethods() {
  Class& cls = SBUIController::objcClass();
  cls.addClassMethod(
      "sharedInstance", +[]() -> SBUIController* { return shared(); });
  cls.addMethod(
      "finishLaunching", +[](SBUIController& self) { ours(self).homeScreen_.show(); });
  cls.addMethod(
      "activateApplicationFromSwitcher:", +[](SBUIController& self, SBApplication* application) {
        if (Application* known = ours(self).catalogue_.find(application)) known->activate();
      });
  cls.addMethod(
      "removeAppFromSwitchAppList:", +[](SBUIController& self, SBApplication* application) {
        if (Application* known = ours(self).catalogue_.find(application))
          ours(self).recents_.remove(known->identifier());
      });
  SBApplicationIcon::objcClass().addMethod(
      "launch", +[](SBApplicationIcon& self) {
        UIController* controller = shared();
        Application* application = controller ? controller->catalogue_.find(self.application()) : nullptr;
        if (application) controller->launchFromIcon(*application);
      });
  UIApplication::objcClass().addMethod(
      "quitTopApplication:", +[](UIApplication&, NSObject*) {
        UIController* controller = shared();
        Application* front = controller ? controller->frontApplication() : nullptr;
        if (!front) return;
        trace("front-app-quit", {{"bundle", front->identifier()}});
        controller->goHome();
      });
}

// Requests.

void UIController::activate(Application& application) {
  settle();
  application.setState(ActivationState::Activating);
  recents_.moveToFront(application.identifier());
  application.activationStateToString();  // For whoever wants to know what is about to happen.
  if (frontApplication() == &application) {
    traceActivation(application);
    application.didActivate();
  } else {
    auto outgoing = screen_;
    setFront(std::make_shared<AppScreen>(application, screenSize_, firstOrientation(application)));
    begin(std::move(outgoing));
  }
}

void UIController::launchFromIcon(Application& application) {
  origin_ = Origin::Icon;
  application.activate();
  origin_ = Origin::Switcher;
}

void UIController::launchThroughIcon(Application& application) {
  goHome();
  auto tapIcon = [this, &application] { homeScreen_.iconOf(application).launch(); };
  auto findIcon = [this, &application, tapIcon] { homeScreen_.revealIcon(application, tapIcon); };
  if (transition_) {
    whenHome_ = findIcon;
  } else {
    findIcon();
  }
}

void UIController::goHome() {
  settle();
  if (!screen_) return;
  auto outgoing = screen_;
  setFront(nullptr);
  begin(std::move(outgoing));
}

void UIController::showKeyboard() {
  UIPeripheralHost::sharedInstance().showKeyboard();
  layOutKeyboard(screenSize_, UIApplication::sharedApplication().statusBarOrientation());
}

void UIController::showFirstPage() {
  settle();
  homeScreen_.showFirstPage();
}

void UIController::terminate(Application& application) {
  settle();
  if (frontApplication() == &application) {
    goHome();
    settle();
  }
  application.processEnded();
  removeAppFromSwitchAppList(&application);
}

// Who is in front.

void UIController::traceActivation(const Application& application) const {
  const std::string by = origin_ == Origin::Icon ? "icon" : "switcher";
  trace("app-activated", {{"bundle", application.identifier()}, {"by", by}});
}

void UIController::setFront(std::shared_ptr<AppScreen> screen) {
  UIPeripheralHost::sharedInstance().hideKeyboard();
  statusBar_.updateTime();
  Application* before = frontApplication();
  screen_ = std::move(screen);
  if (before) {
    before->setState(ActivationState::Inactive);
    trace("app-deactivated", {{"bundle", before->identifier()}});
  }
  // On the way home the icons can be touched already.
  window_->setUserInteractionEnabled(screen_ != nullptr);
  if (screen_) {
    window_->addSubview(screen_);
    window_->setHidden(false);
    traceActivation(screen_->application());
  }
  showInterface();
}

// Transitions.

void UIController::begin(std::shared_ptr<AppScreen> outgoing) {
  Application* activating = frontApplication();
  Application* deactivating = outgoing ? &outgoing->application() : nullptr;
  auto controller = std::make_shared<Transition>();
  const bool isUsable = controller->initWithActivatingApp(activating, deactivating) != nullptr;
  const bool startsProcess = activating && !activating->running();
  if (startsProcess) {
    activating->didLaunch(std::make_shared<ApplicationProcess>().get());
    activating->setHasBeenLaunched();
  }
  transition_ =
      std::make_unique<RunningTransition>(RunningTransition{controller, outgoing, activating, startsProcess});
  if (!isUsable) return endTransition();

  Application& iconOwner = activating ? *activating : *deactivating;
  const std::weak_ptr<NSObject> self = weak_from_this();
  const std::weak_ptr<Transition> running = controller;
  controller->run(screen_.get(), outgoing.get(), homeScreen_.iconCenter(iconOwner), [this, self, running] {
    const auto alive = self.lock();
    if (alive && transition_ && transition_->controller == running.lock()) endTransition();
  });
}

void UIController::endTransition() {
  // Everything stands before anyone is told: whoever is may start the next one.
  const auto ended = std::exchange(transition_, nullptr);
  const auto next = std::exchange(whenHome_, nullptr);
  if (ended->outgoing) ended->outgoing->removeFromSuperview();
  if (!screen_) window_->setHidden(true);

  if (Application* application = ended->activating) {
    application->didAnimateActivation();
    application->didActivate();
    if (ended->startedProcess) UIApplication::sharedApplication().reportAppLaunchFinished();
    updateInterface();
  }
  if (next) next();
}

void UIController::settle() {
  while (busy()) {
    if (transition_) {
      endTransition();
    } else {
      homeScreen_.settle();
    }
  }
}

// Orientation.

UIInterfaceOrientation UIController::firstOrientation(const Application& application) const {
  const auto shown = UIApplication::sharedApplication().statusBarOrientation();
  return application.supports(shown) ? shown : UIInterfaceOrientation::Portrait;
}

void UIController::updateInterface() {
  const auto wanted = interfaceForDevice(UIDevice::currentDevice().orientation());
  if (screen_ && wanted && *wanted != screen_->orientation() && screen_->application().supports(*wanted))
    screen_->turnTo(*wanted);
  showInterface();
}

void UIController::showInterface() {
  const bool isUpright = !screen_ || isLocked();  // The home screen and the lock screen always are.
  const auto shown = isUpright ? UIInterfaceOrientation::Portrait : screen_->orientation();
  if (shown == UIApplication::sharedApplication().statusBarOrientation()) return;
  statusBar_.build(shown);
  layOutKeyboard(screenSize_, shown);
  UIApplication::sharedApplication().setStatusBarOrientation(shown);
}

}  // namespace host
