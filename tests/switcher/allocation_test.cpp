#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "strips/card_dragger.h"
#include "switcher/shared_state.h"
#include "tests/support/test_device.h"

namespace {

long allocations = 0;

}  // namespace

// In place of the library's, for this whole process; the other forms end here, but those of arrays.
void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace vistrel::test {
namespace {

TEST(TouchMoves, AllocateNothingWhileTheyChangeNothing) {
  TestDevice device(
      {.preferences = {{"appNames", true}, {"iconAnimation", "Grow"}, {"nameAnimation", "Grow"}},
       .recents = testBundles});
  for (const std::string& bundle : testBundles) device.launch(bundle);
  device.home();
  const float middle = 240, besideIcons = middle + 50;
  device.swipeIn(middle, 100);
  device.pump(1);
  ASSERT_TRUE(finishedOpenAnimation);

  const auto allocationsOfMoves = [&](float x, float y) {
    device.move(x, y);
    device.settle();
    const long before = allocations;
    for (int i = 0; i < 20; ++i) device.move(i % 2 == 0 ? x + 0.25f : x, y);
    return allocations - before;
  };
  for (const auto& icon : iconStrip->icons()) {
    const CGPoint center = iconStrip->convertPointToScreen(icon->center());
    EXPECT_EQ(allocationsOfMoves(center.x, center.y), 0);
  }
  EXPECT_EQ(allocationsOfMoves(160, besideIcons), 0);

  const CGPoint center = iconStrip->convertPointToScreen(iconStrip->icons().front()->center());
  const long before = allocations;
  device.move(center.x, center.y);
  const long after = allocations;
  EXPECT_GT(after, before) << "another icon is singled out";
}

}  // namespace
}  // namespace vistrel::test
