#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "host/machine_file.h"
#include "platform/foundation/trace.h"

namespace host {

/// The log: what the frameworks and the host trace, as one JSON object a line, written at once. While it
/// exists it is the process's watcher of traces.
class EventLog {
 public:
  /// Kept, a file that is there goes on at its end. Throws Failure when it cannot be made.
  explicit EventLog(std::filesystem::path path,
                    MachineFile::Existing existing = MachineFile::Existing::Emptied);
  EventLog(const EventLog&) = delete;
  EventLog& operator=(const EventLog&) = delete;
  ~EventLog();

  /// Throws Failure when a line could not be written: a watcher of traces cannot throw into what it watches.
  void checkWritten() const;

 private:
  void write(std::string_view event, const TraceFields& fields);

  MachineFile file_;
  std::optional<std::string> failure_;
};

}  // namespace host
