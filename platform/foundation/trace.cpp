#include "platform/foundation/trace.h"

namespace {

TraceSink& currentSink() {
  static TraceSink sink;
  return sink;
}

}  // namespace

void setTraceSink(TraceSink sink) { currentSink() = std::move(sink); }

void trace(std::string_view event, const TraceFields& fields) {
  // A copy: the watcher may set another one while it is being told.
  if (TraceSink sink = currentSink()) sink(event, fields);
}
