#include "platform/springboard/sb_linen_view.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "platform/uikit/ui_screen.h"

namespace {

/// The side of the repeating piece of cloth, in pixels: a thread is a pixel thick on every screen.
constexpr int tileSide = 256;
/// How long a thread keeps its shade before the next fibre, in pixels; divides the side, so that the tile
/// closes.
constexpr int fibreLength = 16;

constexpr float clothShade = 50;   // Of 255.
constexpr float threadSpread = 6;  // How far whole threads differ.
constexpr float fibreSpread = 12;  // How far fibres of a thread differ.
constexpr float grain = 4;         // How far pixels differ.

constexpr CGFloat shadowDepth = 12;  // Points.
constexpr CGFloat shadowAlpha = 0.6f;

/// Evenly spread over -1 to 1, the same for the same arguments always.
float noise(std::uint32_t direction, int a, int b) {
  std::uint32_t bits =
      direction * 0x9E3779B9u + std::uint32_t(a) * 0x85EBCA6Bu + std::uint32_t(b) * 0xC2B2AE35u;
  bits = (bits ^ (bits >> 16)) * 0x7FEB352Du;
  bits = (bits ^ (bits >> 15)) * 0x846CA68Bu;
  bits ^= bits >> 16;
  return float(bits >> 8) / float(1 << 23) - 1;
}

enum Direction : std::uint32_t { Warp = 1, Weft, WarpStart, WeftStart, Grain };

/// How much lighter than the cloth a thread is, `along` pixels from the tile's edge.
float threadShade(Direction direction, Direction start, int thread, int along) {
  const int offset = int((noise(start, thread, 0) + 1) * fibreLength);
  const int fibre = (along + offset) % tileSide / fibreLength;
  return threadSpread * noise(direction, thread, -1) + fibreSpread * noise(direction, thread, fibre);
}

CGImageRef weave() {
  const CGPixelFormat format{.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle};
  const std::size_t pixelBytes = format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(std::size_t(tileSide) * tileSide * pixelBytes);
  auto out = pixels->begin();
  for (int y = 0; y < tileSide; ++y) {
    for (int x = 0; x < tileSide; ++x) {
      const float shade = clothShade + threadShade(Warp, WarpStart, x, y) +
                          threadShade(Weft, WeftStart, y, x) + grain * noise(Grain, x, y);
      out = std::fill_n(out, pixelBytes, std::uint8_t(std::clamp(shade, 0.0f, 255.0f)));
    }
  }
  return CGImage::create(tileSide, tileSide, format, tileSide * pixelBytes, std::move(pixels));
}

}  // namespace

void SBLinenView::contentMayChange() {
  static const CGImageRef cloth = weave();
  constexpr CGColor dark{0, 0, 0, shadowAlpha}, clear{0, 0, 0, 0};
  const CGSize size = bounds().size;
  if (!(size.width > 0 && size.height > 0)) return;

  const CGFloat scale = UIScreen::mainScreen().scale(), tile = tileSide / scale;
  const CGSize shadow{size.width, std::min(shadowDepth, size.height / 2)};
  CGContext context(size, scale);
  context.drawTiled(cloth, {tile, tile}, {{0, 0}, size});
  context.fillGradient({{0, 0}, shadow}, dark, clear);
  context.fillGradient({{0, size.height - shadow.height}, shadow}, clear, dark);
  layer().setContents(context.createImage());
}
