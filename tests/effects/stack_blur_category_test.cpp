#include <gtest/gtest.h>

#include "effects/stack_blur.h"
#include "platform/runtime/message.h"

namespace vistrel {
namespace {

TEST(StackBlurCategory, IsThereForTheWholeProcess) {
  ASSERT_FALSE(
      std::make_shared<UIImage>(nullptr, 1.0f, UIImageOrientation::Up)->respondsToSelector("stackBlur:"));
  registerStackBlur();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(20, 0);
  (*pixels)[8] = 255;
  auto image = UIImage::imageWithCGImage(CGImage::create(5, 1, {}, 20, pixels));
  auto blurred = send<std::shared_ptr<UIImage>>(*image, "stackBlur:", std::uint32_t{1});
  EXPECT_EQ(blurred->cgImage()->row(0)[4], 63);
  EXPECT_EQ(blurred->cgImage()->row(0)[8], 127);
  EXPECT_EQ(send<std::shared_ptr<UIImage>>(*image, "stackBlur:", std::uint32_t{0}), image);
  EXPECT_EQ(send<std::shared_ptr<UIImage>>(*image, "normalize")->size(), CGSizeMake(5, 1));
  sendToClass<void>(&UIImage::objcClass(), "applyStackBlurToBuffer:width:height:withRadius:", pixels->data(),
                    std::int32_t{5}, std::int32_t{1}, std::uint32_t{1});
  EXPECT_EQ((*pixels)[4], 63);
}

}  // namespace
}  // namespace vistrel
