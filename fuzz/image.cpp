// Picture files, by every way that one comes in: as bytes, as the library's own pictures, and as an
// application's icon and launch picture. What is read is drawn, and written again.

#include <endian.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/promise.h"
#include "host/application_bundle.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/coregraphics/image_decoders.h"
#include "tests/support/test_device.h"

namespace {

constexpr int mostPixels = 1 << 16;  // Larger ones are decoded once, and that is all: they take their time.
constexpr const char* bundle = "/Applications/one.app";
constexpr const char* model = "iphone-3gs";
constexpr CGRect canvas{{0, 0}, {40, 30}};
constexpr CGFloat iconPoints = 57;

/// Where the one file lies that is every picture of an application.
const std::filesystem::path& pictureFile() {
  static vistrel::test::TestDevice device({.model = model, .loadsLibrary = false});
  static const std::filesystem::path file = [] {
    const auto folder = device.root() / std::filesystem::path(bundle).relative_path();
    std::ofstream(folder / "Icon.png");
    create_hard_link(folder / "Icon.png", folder / "Default.png");
    return folder / "Icon.png";
  }();
  return file;
}

/// A PNG with its checksums put right; without that next to nothing of what is made up would be read.
NSData withChecksums(NSData png) {
  constexpr std::size_t signature = 8, typeAt = 4, typeSize = 4, checksumSize = 4;
  for (std::size_t chunk = signature; png.size() >= chunk + typeAt + typeSize + checksumSize;) {
    std::uint32_t length;
    std::memcpy(&length, &png[chunk], sizeof(length));
    length = be32toh(length);
    if (length > png.size() - chunk - typeAt - typeSize - checksumSize) break;
    const std::size_t end = chunk + typeAt + typeSize + length;
    const auto checksum = htobe32(std::uint32_t(crc32(0, &png[chunk + typeAt], length + typeSize)));
    std::memcpy(&png[end], &checksum, checksumSize);
    chunk = end + checksumSize;
  }
  return png;
}

void draw(const std::shared_ptr<UIImage>& image) {
  CGContext context(canvas.size, 1);
  context.drawImage(image->uprightCGImage(), canvas);
  context.drawTiled(image->cgImage(), image->size(), canvas);
}

void checkPictures(const NSData& data, const CGImage& expected) {
  std::ofstream(pictureFile(), std::ios::binary)
      .write(reinterpret_cast<const char*>(data.data()), std::ssize(data));
  const auto ofLibrary = UIImage::imageWithContentsOfFile(std::string(bundle) + "/Icon.png");
  const host::ApplicationBundle application(bundle, *host::findDeviceModel(model));
  std::vector images{ofLibrary, application.loadLaunchPicture(UIInterfaceOrientation::Portrait)};
  const auto largestSide = static_cast<std::uint32_t>(std::max(expected.width(), expected.height()));
  if (largestSide <= host::ApplicationBundle::largestIcon) images.push_back(application.loadIcon(iconPoints));
  for (const auto& image : images) {
    fuzz::require(image && CGImage::samePixels(*image->cgImage(), expected),
                  "a picture is the same by every way");
    draw(image);
  }
  const CGImageRef upright = ofLibrary->uprightCGImage();
  const CGImageRef again = decodeImage(UIImageJPEGRepresentation(ofLibrary, 0.5f));
  fuzz::require(again && again->width() == upright->width() && again->height() == upright->height(),
                "a picture becomes a JPEG of its size");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  NSData data = fuzz::dataOf(bytes, size);
  if (isPng(data)) data = withChecksums(std::move(data));
  int orientation = 0;
  const CGImageRef image = decodeImage(data, &orientation);
  fuzz::require(orientation >= 1 && orientation <= 8, "an orientation is one of eight");
  if (!image || image->width() > mostPixels / image->height()) return 0;
  const CGImageRef again = decodeImage(encodePng(image));
  fuzz::require(again && CGImage::samePixels(*image, *again), "a picture survives as a PNG");
  checkPictures(data, *image);
  return 0;
}
