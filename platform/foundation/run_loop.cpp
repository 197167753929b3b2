#include "platform/foundation/run_loop.h"

#include <algorithm>

RunLoop& RunLoop::main() {
  // Never destroyed: pending work may hold objects whose destructors reach other parts of the process.
  static auto& loop = *new RunLoop();
  return loop;
}

RunLoop::Token RunLoop::schedule(CFTimeInterval time, std::function<void()> work) {
  const CFTimeInterval due = std::max(now_, time);
  const Token token = ++lastToken_;
  pending_.emplace(Key(due, token), std::move(work));
  due_.emplace(token, due);
  return token;
}

void RunLoop::cancel(Token token) {
  auto entry = due_.find(token);
  if (entry == due_.end()) return;
  // Held until both tables are consistent again: destroying the work may destroy objects that call back.
  auto work = pending_.extract(Key(entry->second, token));
  due_.erase(entry);
}

void RunLoop::advanceTo(CFTimeInterval time) {
  while (!idle() && nextDue() <= time) {
    auto work = pending_.extract(pending_.begin());
    const auto [due, token] = work.key();
    due_.erase(token);
    now_ = std::max(now_, due);  // A nested run may have gone further already.
    work.mapped()();
  }
  now_ = std::max(now_, time);
}
