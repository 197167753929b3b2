#include "host/spring_board.h"

#include "host/app_catalogue.h"
#include "host/app_switcher_model.h"
#include "host/away_controller.h"
#include "host/failure.h"
#include "host/home_screen.h"
#include "host/status_bar.h"
#include "host/ui_controller.h"
#include "platform/foundation/file_manager.h"
#include "platform/substrate/library_loader.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_keyboard.h"
#include "platform/uikit/ui_kit.h"

namespace host {
namespace {

constexpr const char* bundleIdentifier = "com.apple.springboard";

void openRoot(const std::filesystem::path& root) {
  std::error_code error;
  if (!std::filesystem::is_directory(root, error)) throw Failure(root.string() + ": no such folder");
  if (!std::filesystem::is_directory(root / "Applications", error))
    throw Failure(root.string() + ": no device root: it has no Applications folder");
  NSFileManager::defaultManager().setRoot(root);
}

void registerClasses() {
  registerUIKitClasses();
  Application::registerMethods();
  AppCatalogue::registerMethods();
  AppSwitcherModel::registerMethods();
  Transition::registerMethods();
  UIController::registerMethods();
  LockScreenView::registerMethods();
  AwayController::registerMethods();
}

}  // namespace

class SpringBoard::State {
 public:
  explicit State(const BootOptions& options);

  Application& installed(const std::string& bundle) const;
  void settle();
  void warn(std::string warning);

  DeviceModel model;
  std::vector<std::string> warnings;
  std::function<void(const std::string&)> tellWarning = [](const std::string&) {};
  std::shared_ptr<AppCatalogue> catalogue;
  std::shared_ptr<AppSwitcherModel> recents;
  std::unique_ptr<StatusBar> statusBar;
  std::unique_ptr<HomeScreen> homeScreen;
  std::shared_ptr<UIController> uiController;
  std::shared_ptr<AwayController> awayController;
};

void SpringBoard::State::warn(std::string warning) {
  warnings.push_back(std::move(warning));
  tellWarning(warnings.back());
}

SpringBoard::State::State(const BootOptions& options) : model(options.model) {
  openRoot(options.root);
  setDisplay(std::make_shared<WindowDisplay>(model.size, model.scale));
  registerClasses();
  catalogue = std::make_shared<AppCatalogue>(model, warnings);
  recents = std::make_shared<AppSwitcherModel>(
      [this](const std::string& identifier) { return catalogue->find(identifier) != nullptr; },
      [this](std::string warning) { warn(std::move(warning)); });

  // From here on SpringBoard's methods are sent for, and libraries may have replaced them.
  if (options.loadTweaks) {
    for (const LoadedLibrary& library : loadLibrariesForBundle(bundleIdentifier))
      if (!library.error.empty()) warn(library.error);
  }
  if (options.alsoLoad) options.alsoLoad();

  statusBar = std::make_unique<StatusBar>(model);
  statusBar->build(UIInterfaceOrientation::Portrait);
  homeScreen = std::make_unique<HomeScreen>(model, *catalogue);
  uiController = std::make_shared<UIController>(model, *catalogue, *recents, *homeScreen, *statusBar);
  awayController = std::make_shared<AwayController>(model, *uiController, *statusBar);
  awayController->buildView();
  if (options.startLocked) awayController->startLocked();
  uiController->finishLaunching();
  awayController->undimScreen();
}

Application& SpringBoard::State::installed(const std::string& bundle) const {
  Application* application = catalogue->find(bundle);
  if (!application) throw Failure(bundle + ": no such application");
  return *application;
}

void SpringBoard::State::settle() {
  uiController->settle();
  awayController->settle();
}

SpringBoard::SpringBoard(const BootOptions& options) : state_(std::make_unique<State>(options)) {}
SpringBoard::~SpringBoard() = default;

// Requests.

void SpringBoard::launch(const std::string& bundle) {
  Application& application = state_->installed(bundle);
  if (locked()) throw Failure(bundle + ": the device is locked");
  state_->settle();
  state_->uiController->launchThroughIcon(application);
}

void SpringBoard::terminate(const std::string& bundle) {
  Application& application = state_->installed(bundle);
  state_->settle();  // A launch that is still on its way counts.
  if (!application.running()) throw Failure(bundle + ": not running");
  state_->uiController->terminate(application);
}

void SpringBoard::pressHome() {
  state_->settle();
  if (locked()) {
    state_->awayController->pressHome();
  } else if (frontmost()) {
    state_->uiController->goHome();
  } else {
    state_->uiController->showFirstPage();
  }
}

void SpringBoard::pressLock() {
  if (locked()) {
    state_->awayController->undimScreen();
  } else {
    state_->awayController->lock("button");
  }
}

void SpringBoard::unlock() { state_->awayController->unlock(); }

void SpringBoard::rotate(UIDeviceOrientation orientation) {
  state_->settle();
  UIDevice::currentDevice().setOrientation(orientation);
  state_->uiController->updateInterface();
}

void SpringBoard::showKeyboard() {
  if (locked()) throw Failure("keyboard: the device is locked");
  state_->settle();
  if (!frontmost()) throw Failure("keyboard: no application is in front");
  state_->uiController->showKeyboard();
}

void SpringBoard::hideKeyboard() { UIPeripheralHost::sharedInstance().hideKeyboard(); }

// What is to be seen.

const std::vector<std::string>& SpringBoard::warnings() const { return state_->warnings; }

void SpringBoard::tellWarnings(std::function<void(const std::string&)> tell) {
  state_->tellWarning = std::move(tell);
  for (const std::string& warning : state_->warnings) state_->tellWarning(warning);
}

bool SpringBoard::busy() const { return state_->uiController->busy() || state_->awayController->busy(); }

const DeviceModel& SpringBoard::model() const { return state_->model; }

bool SpringBoard::locked() const { return state_->awayController->locked(); }

std::optional<std::string> SpringBoard::frontmost() const {
  const Application* front = state_->uiController->frontApplication();
  return front ? std::optional(front->identifier()) : std::nullopt;
}

const NSStringArray& SpringBoard::recents() const { return state_->recents->identifiers(); }

std::vector<AppListing> SpringBoard::applications() const {
  std::vector<AppListing> result;
  for (const Application* application : state_->catalogue->applications())
    result.push_back({application->identifier(), application->bundle().name(), application->running()});
  return result;
}

std::shared_ptr<UIImage> SpringBoard::icon(const std::string& bundle) const {
  Application* application = state_->catalogue->find(bundle);
  return application ? application->icon() : nullptr;
}

void SpringBoard::updateClocks() { state_->awayController->updateTime(); }

}  // namespace host
