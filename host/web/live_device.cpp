#include "host/web/live_device.h"

#include <algorithm>

#include "host/describe.h"
#include "host/device_clock.h"
#include "host/device_commands.h"
#include "host/inspection.h"
#include "host/readable_line.h"
#include "host/settings/bad_setting.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/darwin_notification_center.h"

namespace host {
namespace {

std::string message(const char* name, const Json& value) { return jsonLine(Json::object({{name, value}})); }

std::string problemText(const std::exception& cause) {
  return message("problem", asReadableLine(cause.what()));
}

std::string settingsText(const PreferencePanes& panes) { return message("settings", panes.describe()); }

}  // namespace

/// Carries out one message of one client.
class LiveDevice::Performer {
 public:
  Performer(LiveDevice& device, LiveClient& client, WallTime now)
      : device_(device), client_(client), now_(now) {}

  void operator()(const TouchMessage& touch) {
    client_.touch(touch, device_.pace_.deviceTime(client_.timeOf(touch, now_)));
    device_.screen_.hurry();
  }
  void operator()(const ShownMessage& shown) { client_.arrived(shown.picture); }
  void operator()(const PaceMessage& pace) { device_.pace_.setFactor(pace.factor, now_); }
  void operator()(const StepMessage&) {
    if (device_.pace_.stands()) device_.pace_.skip(LiveScreen::secondsPerFrame);
  }
  void operator()(const InspectMessage& question) { answer("inspection", inspect(question.point)); }
  void operator()(const DescribeAllCommand& question) {
    const Values values = question.presentation ? Values::Presentation : Values::Model;
    answer("description", describe(device_.springBoard_, values));
  }
  void operator()(const SetMessage& set) { device_.panes_.set(set.domain, set.key, set.value); }
  void operator()(const RespringMessage&) { device_.respringWanted_ = true; }
  /// Everything else is asked of the device itself.
  template <class Command>
  void operator()(const Command& command) {
    perform(device_.springBoard_, command);
  }

 private:
  void answer(const char* name, const Json& value) { client_.connection().sendText(message(name, value)); }

  LiveDevice& device_;
  LiveClient& client_;
  WallTime now_;
};

LiveDevice::LiveDevice(SpringBoard& springBoard, PreferencePanes& panes, WallTime now)
    : springBoard_(springBoard),
      panes_(panes),
      pace_(now, RunLoop::main().now()),
      nextClockChange_(nextClockChange(RunLoop::main().now())) {
  // Whoever changes a settings file says so; the panes then show what it holds.
  for (const std::string& name : panes_.notifications()) {
    CFNotificationCenterAddObserver(
        CFNotificationCenterGetDarwinNotifyCenter(), this,
        [](void* self, const std::string&) { static_cast<LiveDevice*>(self)->settingsChanged_ = true; }, name,
        CFNotificationSuspensionBehavior::DeliverImmediately);
  }
}

LiveDevice::~LiveDevice() {
  CFNotificationCenterRemoveEveryObserver(CFNotificationCenterGetDarwinNotifyCenter(), this);
}

// Clients.

void LiveDevice::joined(WebClient& connection) {
  clients_.emplace_back(connection, freePlace());
  connection.sendText(stateText());
  connection.sendText(settingsText(panes_));
}

void LiveDevice::received(WebClient& connection, std::string_view text, WallTime now) {
  LiveClient& client = clientOf(connection);
  try {
    catchUp(now);
    std::visit(Performer(*this, client, now), parseClientMessage(text));
  } catch (const BadMessage& cause) {
    connection.close(CloseCode::PolicyViolation, cause.what());
  } catch (const BadSetting& cause) {
    connection.close(CloseCode::PolicyViolation, cause.what());
  } catch (const std::exception& cause) {
    // Failures and impossible touches are meant to come; an add-on library's fault is reported no less.
    connection.sendText(problemText(cause));
  }
}

void LiveDevice::left(WebClient& connection, WallTime now) {
  attempt([&] {
    catchUp(now);
    clientOf(connection).leave(RunLoop::main().now());
  });
  clients_.remove_if([&](const LiveClient& client) { return &client.connection() == &connection; });
}

void LiveDevice::attempt(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& fault) {
    const std::string text = problemText(fault);
    for (LiveClient& client : clients_) client.connection().sendText(text);
  }
}

LiveClient& LiveDevice::clientOf(const WebClient& connection) {
  return *std::ranges::find_if(clients_,
                               [&](const LiveClient& client) { return &client.connection() == &connection; });
}

int LiveDevice::freePlace() const {
  int place = 0;
  while (std::ranges::any_of(clients_, [&](const LiveClient& client) { return client.place() == place; }))
    ++place;
  return place;
}

bool LiveDevice::anyoneReady() const { return std::ranges::any_of(clients_, &LiveClient::ready); }

std::optional<WebResource> LiveDevice::icon(const std::string& bundle) {
  if (auto known = icons_.find(bundle); known != icons_.end()) return known->second;
  const auto icon = springBoard_.icon(bundle);
  if (!icon) return std::nullopt;
  return icons_[bundle] = WebResource{"image/png", encodePng(icon->cgImage())};
}

// Time.

void LiveDevice::turn(WallTime now) {
  attempt([&] { catchUp(now); });
  tellChanges();
  sendPictures(now);
}

void LiveDevice::catchUp(WallTime now) {
  RunLoop& loop = RunLoop::main();
  loop.advanceTo(pace_.deviceTime(now));
  if (loop.now() < nextClockChange_) return;
  nextClockChange_ = nextClockChange(loop.now());
  springBoard_.updateClocks();
}

std::optional<WallTime> LiveDevice::nextTurn() const {
  const RunLoop& loop = RunLoop::main();
  const CFTimeInterval due = loop.idle() ? nextClockChange_ : std::min(loop.nextDue(), nextClockChange_);
  std::optional<WallTime> next = pace_.wallTime(due);
  const auto drawing = anyoneReady() ? screen_.nextDrawing(!pace_.stands()) : std::nullopt;
  return next && drawing ? std::min(next, drawing) : next ? next : drawing;
}

// What clients are told.

void LiveDevice::sendPictures(WallTime now) {
  if (anyoneReady() && screen_.shouldDraw(now)) {
    for (LiveClient& client : clients_) client.noteDrawing();
    screen_.draw(now);
  }
  for (LiveClient& client : clients_) client.sendPictureOf(screen_);
}

void LiveDevice::tellChanges() {
  if (std::string state = stateText(); state != toldState_) {
    toldState_ = std::move(state);
    for (LiveClient& client : clients_) client.connection().sendText(toldState_);
  }
  if (std::exchange(settingsChanged_, false)) {
    const std::string settings = settingsText(panes_);
    for (LiveClient& client : clients_) client.connection().sendText(settings);
  }
}

std::string LiveDevice::stateText() const {
  Json state = describeDevice(springBoard_);
  state["pace"] = jsonNumber(pace_.factor());
  Json apps = Json::array();
  for (const AppListing& app : springBoard_.applications())
    apps.push_back({{"bundle", app.bundle}, {"name", app.name}, {"running", app.running}});
  state["apps"] = std::move(apps);
  return message("state", state);
}

}  // namespace host
