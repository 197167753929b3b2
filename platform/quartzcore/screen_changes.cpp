#include "platform/quartzcore/screen_changes.h"

namespace {

std::uint64_t changeCount = 0;
int animationCount = 0;

}  // namespace

void noteScreenChange() { ++changeCount; }

std::uint64_t screenChangeCount() { return changeCount; }

void noteAnimations(int change) { animationCount += change; }

bool anyAnimationRuns() { return animationCount > 0; }
