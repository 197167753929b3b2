// The methods that libraries may replace, and the order in which SpringBoard sends them.

#include "platform/foundation/trace.h"
#include "platform/springboard/gs_event.h"
#include "platform/springboard/sb_app_switcher_model.h"
#include "platform/springboard/sb_application_controller.h"
#include "platform/springboard/sb_application_icon.h"
#include "platform/springboard/sb_away_controller.h"
#include "platform/springboard/sb_away_view.h"
#include "platform/springboard/sb_ui_animation_controller.h"
#include "platform/springboard/sb_ui_controller.h"
#include "platform/substrate/substrate.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_status_bar.h"
#include "tests/host/boot_fixture.h"

namespace host::test {
namespace {

using Lines = std::vector<std::string>;
Lines lines;  // What has happened since it was last looked at.

std::string shortName(const std::string& identifier) { return identifier.substr(identifier.rfind('.') + 1); }
std::string text(SBApplication* application) {
  return application ? " " + shortName(application->displayIdentifier()) : " -";
}
std::string text(const std::string& identifier) { return " " + shortName(identifier); }
std::string text(const CGRect&) { return ""; }
std::string text(NSObject* object) { return object ? " object" : " -"; }
std::string receiver(NSObject&) { return ""; }
std::string receiver(SBApplication& self) { return text(&self); }
std::string receiver(SBApplicationIcon& self) { return text(self.application()); }

/// Stands in the place of one method, writes down each sending and passes it on.
template <int Number, class R, class Self, class... Args>
struct Recorder {
  static inline std::string selector;
  static inline R (*previous)(Self&, Args...) = nullptr;
  static R record(Self& self, Args... args) {
    std::string line = Self::objcClass().name() + " " + selector + receiver(self);
    ((line += text(args)), ...);
    lines.push_back(line);
    return previous(self, args...);
  }
};

int installed = 0;

template <int Number, class R, class Self, class... Args>
void record(const std::string& selector) {
  using Entry = Recorder<Number, R, Self, Args...>;
  Entry::selector = selector;
  MSHookMessageEx(objc_getClass(Self::objcClass().name()), selector, &Entry::record, &Entry::previous);
  if (Entry::previous) ++installed;
}

void recordAll() {
  record<1, void, SBAppSwitcherModel, std::string>("remove:");
  record<2, void, SBUIController, SBApplication*>("removeAppFromSwitchAppList:");
  record<3, void, SBUIController>("finishLaunching");
  record<4, void, SBUIController, SBApplication*>("activateApplicationFromSwitcher:");
  record<5, SBUIAnimationController*, SBUIAnimationController, SBApplication*, SBApplication*>(
      "initWithActivatingApp:deactivatingApp:");
  record<6, void, SBApplication>("didActivate");
  record<7, void, SBApplication>("activate");
  record<8, std::string, SBApplication>("_activationStateToString");
  record<9, void, SBApplication>("_setHasBeenLaunched");
  record<10, void, SBApplication>("didAnimateActivation");
  record<11, void, SBApplication, NSObject*>("didLaunch:");
  record<12, void, SBAwayController>("undimScreen");
  record<13, void, UIApplication>("_reportAppLaunchFinished");
  record<14, UIWindow*, UIStatusBar>("statusBarWindow");
  record<15, UIStatusBar*, UIStatusBar, CGRect>("initWithFrame:");
  record<16, void, SBAwayView>("handleMenuButtonTap");
  record<17, void, SBAwayView>("didMoveToWindow");
  record<18, SBAwayView*, SBAwayView, CGRect>("initWithFrame:");
  record<19, void, SBApplicationIcon>("launch");
}

/// Log events join the same list, so that their place among the calls shows too.
void recordTrace(std::string_view event, const TraceFields& fields) {
  if (event == "hook" || event == "window-level") return;
  std::string line = "* " + std::string(event);
  for (const auto& [name, value] : fields)
    if (const auto* word = std::get_if<std::string>(&value)) line += " " + shortName(*word);
  lines.push_back(line);
}

SBApplication* application(const std::string& name) {
  auto* controller =
      sendToClass<SBApplicationController*>(objc_getClass("SBApplicationController"), "sharedInstance");
  return controller->applicationWithDisplayIdentifier("com.example." + name);
}

void switchTo(SBApplication* to) {
  sendToClass<SBUIController*>(objc_getClass("SBUIController"), "sharedInstance")
      ->activateApplicationFromSwitcher(to);
}

Lines operator+(Lines left, const Lines& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

enum class Process { Runs, Starts };
/// The calls from an application's activation to the end of the animation; "-" stands for the home screen.
Lines activating(const std::string& to, const std::string& from, const std::string& by, Process process) {
  const bool starts = process == Process::Starts;
  return Lines{"SBApplication activate " + to, "SBApplication _activationStateToString " + to} +
         (from != "-" ? Lines{"* app-deactivated " + from} : Lines()) +
         Lines{"* app-activated " + to + " " + by,
               "SBUIAnimationController initWithActivatingApp:deactivatingApp: " + to + " " + from} +
         (starts
              ? Lines{"SBApplication didLaunch: " + to + " object", "SBApplication _setHasBeenLaunched " + to}
              : Lines()) +
         Lines{"SBApplication didAnimateActivation " + to, "SBApplication didActivate " + to} +
         (starts ? Lines{"UIApplication _reportAppLaunchFinished"} : Lines());
}
/// Of an application that did not run before, from the home screen.
Lines launching(const std::string& name) {
  return Lines{"SBApplicationIcon launch " + name} + activating(name, "-", "icon", Process::Starts);
}
Lines switching(const std::string& to, const std::string& from, Process process = Process::Runs) {
  return Lines{"SBUIController activateApplicationFromSwitcher: " + to} +
         activating(to, from, "switcher", process);
}
Lines leaving(const std::string& name) {
  return {"* app-deactivated " + name,
          "SBUIAnimationController initWithActivatingApp:deactivatingApp: - " + name};
}

/// `before`: what becomes of the view that is still there.
Lines locking(const std::string& by, const Lines& before = {}) {
  return Lines{"* device-locked " + by} + before +
         Lines{"SBAwayView initWithFrame:", "SBAwayView didMoveToWindow"};
}

using EntryPoints = BootTest;

TEST_F(EntryPoints, AreSentInTheFlowsOfADay) {
  install({"one", "two", "three"});
  setTraceSink(recordTrace);
  SpringBoard& board = boot("iphone-4", false, recordAll);
  const Lines barBuilding{"UIStatusBar initWithFrame:", "UIStatusBar statusBarWindow"};
  const Lines removal{"SBUIController removeAppFromSwitchAppList: two", "SBAppSwitcherModel remove: two"};

  struct Flow {
    const char* name;
    std::function<void()> request;
    Lines expected;
  };
  const Flow flows[] = {
      {"boot", [] {},
       barBuilding + Lines{"SBAwayView initWithFrame:", "SBAwayView didMoveToWindow",
                           "SBUIController finishLaunching", "SBAwayController undimScreen"}},
      {"launch", [&] { board.launch("com.example.one"); }, launching("one")},
      {"launch from another application", [&] { board.launch("com.example.two"); },
       leaving("one") + launching("two")},
      {"switch to one that runs", [] { switchTo(application("one")); }, switching("one", "two")},
      {"switch to the one in front",
       [] { switchTo(application("one")); },
       {"SBUIController activateApplicationFromSwitcher: one", "SBApplication activate one",
        "SBApplication _activationStateToString one", "* app-activated one switcher",
        "SBApplication didActivate one"}},
      {"switch to nothing", [] { switchTo(nullptr); }, {"SBUIController activateApplicationFromSwitcher: -"}},
      {"home", [&] { board.pressHome(); }, leaving("one")},
      {"switch from the home screen", [] { switchTo(application("two")); }, switching("two", "-")},
      {"quit", [] { UIApplication::sharedApplication().quitTopApplication(nullptr); },
       Lines{"* front-app-quit two"} + leaving("two")},
      {"quit with nothing in front",
       [] { UIApplication::sharedApplication().quitTopApplication(nullptr); },
       {}},
      {"terminate in the background", [&] { board.terminate("com.example.two"); }, removal},
      {"terminate in front",
       [&] {
         board.launch("com.example.two");
         board.terminate("com.example.two");
       },
       launching("two") + leaving("two") + removal},
      {"a request while a launch is still on its way home",
       [&] {
         switchTo(application("one"));
         board.launch("com.example.two");
         board.pressHome();
       },
       switching("one", "-") + leaving("one") + launching("two") + leaving("two")},
      {"lock",
       [&] {
         switchTo(application("one"));
         board.pressLock();
       },
       switching("one", "-") + locking("button", {"SBAwayView didMoveToWindow"})},
      {"home on the lock screen",
       [&] { board.pressHome(); },
       {"SBAwayView handleMenuButtonTap", "SBAwayController undimScreen"}},
      {"switch on the lock screen", [] { switchTo(application("three")); },
       switching("three", "one", Process::Starts)},
      {"unlock", [&] { board.unlock(); },
       Lines{"* device-unlocked", "SBAwayController undimScreen"} + barBuilding +
           Lines{"SBAwayView didMoveToWindow"}},
      {"unlock when unlocked", [&] { board.unlock(); }, {}},
      {"lock by a library, twice",
       [] {
         GSEventLockDevice();
         GSEventLockDevice();
       },
       locking("library")},
      {"lock button on the lock screen", [&] { board.pressLock(); }, {"SBAwayController undimScreen"}},
  };
  EXPECT_EQ(installed, 19);
  for (const Flow& flow : flows) {
    flow.request();
    rest();
    EXPECT_EQ(std::exchange(lines, {}), flow.expected) << flow.name;
  }
  setTraceSink({});
  EXPECT_EQ(board.recents(), (NSStringArray{"com.example.three", "com.example.one", "com.example.two"}));
}

}  // namespace
}  // namespace host::test
