#include "host/event_log.h"

#include "host/failure.h"
#include "host/json_text.h"
#include "platform/foundation/run_loop.h"

namespace host {
namespace {

Json jsonValue(const TraceValue& value) {
  return std::visit(
      [](const auto& held) -> Json {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, double>) return jsonNumber(held);
        return held;
      },
      value);
}

}  // namespace

EventLog::EventLog(std::filesystem::path path, MachineFile::Existing existing)
    : file_(std::move(path), existing) {
  setTraceSink([this](std::string_view event, const TraceFields& fields) { write(event, fields); });
}

EventLog::~EventLog() { setTraceSink({}); }

void EventLog::checkWritten() const {
  if (failure_) throw Failure(*failure_);
}

void EventLog::write(std::string_view event, const TraceFields& fields) {
  if (failure_) return;  // The first cause is the one that counts.
  Json line = {{"time", jsonTime(RunLoop::main().now())}, {"event", event}};
  for (auto& [name, value] : fields) line[name] = jsonValue(value);
  try {
    file_.write(jsonLine(line));
  } catch (const Failure& failure) {
    failure_ = failure.what();
  }
}

}  // namespace host
