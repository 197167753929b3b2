// The stack blur of pictures of any size and layout, with any radius: its definition to the bit.

#include "effects/stack_blur.h"

#include "fuzz/input.h"
#include "fuzz/promise.h"
#include "tests/support/stack_blur_definition.h"

namespace {

constexpr int mostPixels = 128;                                    // The definition takes its time.
constexpr int leastEighths = 4, mostEighths = 32, inOnePixel = 8;  // Of the scale.
constexpr CGPixelFormat formats[] = {{8, 32, CGColorSpace::DeviceRGB, kCGImageAlphaPremultipliedLast},
                                     {8, 32, CGColorSpace::DeviceRGB, kCGImageAlphaNoneSkipLast},
                                     {8, 32, CGColorSpace::DeviceRGB, kCGImageAlphaPremultipliedFirstLittle},
                                     {8, 32, CGColorSpace::DeviceRGB, kCGImageAlphaNoneSkipFirstLittle},
                                     {8, 8, CGColorSpace::DeviceGray, kCGImageAlphaNone}};

/// What the blur reads of a picture; a grey one is redrawn first. Null where that cannot be.
CGImageRef readBy(const std::shared_ptr<UIImage>& image) {
  if (image->cgImage()->format().colorSpace == CGColorSpace::DeviceRGB) return image->cgImage();
  const auto redrawn = vistrel::normalize(*image);
  return redrawn ? redrawn->cgImage() : nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const int width = input.takeFrom(1, mostPixels), height = input.takeFrom(1, mostPixels / width);
  const auto radius = input.take<std::uint32_t>();
  const CGPixelFormat& format = formats[input.takeFrom(0, std::size(formats) - 1)];
  const CGFloat scale = CGFloat(input.takeFrom(leastEighths, mostEighths)) / inOnePixel;
  const std::size_t rowBytes = std::size_t(width) * format.bytesPerPixel();
  auto pixels = std::make_shared<blur_definition::Bytes>(input.rest().begin(), input.rest().end());
  pixels->resize(rowBytes * std::size_t(height));

  const auto image = UIImage::imageWithCGImage(CGImage::create(width, height, format, rowBytes, pixels),
                                               scale, UIImageOrientation::Up);
  const CGImageRef source = readBy(image);
  const auto result = vistrel::stackBlur(image, radius);
  if (!source || radius == 0) {
    fuzz::require(result == image, "what cannot be blurred stays");
    return 0;
  }
  const auto expected =
      blur_definition::blurred(CGDataProviderCopyData(source), source->width(), source->height(), radius);
  fuzz::require(CGDataProviderCopyData(result->cgImage()) == expected, "a picture is blurred as defined");
  return 0;
}
