#include "host/placeholder.h"

#include "platform/coregraphics/cg_context.h"

namespace host {
namespace {

constexpr CGColor pale{0.86f, 0.88f, 0.91f, 1};
constexpr CGColor steel{0.50f, 0.55f, 0.63f, 1};
constexpr CGColor ink{0.25f, 0.29f, 0.35f, 1};
constexpr CGColor pureWhite{1, 1, 1, 1};
constexpr CGColor dusk{0.18f, 0.27f, 0.42f, 1};
constexpr CGColor night{0.05f, 0.07f, 0.13f, 1};

constexpr CGFloat cornerShare = 0.175f;  // Of an icon's width.
constexpr CGFloat letterShare = 0.56f;
constexpr CGFloat titleFontSize = 24;  // Points.

std::shared_ptr<UIImage> finish(const CGContext& context, CGFloat scale) {
  return UIImage::imageWithCGImage(context.createImage(), scale, UIImageOrientation::Up);
}

/// The first character of a UTF-8 text, whole.
std::string firstLetter(const std::string& text) {
  constexpr unsigned char continuationMask = 0xC0, continuation = 0x80;
  std::size_t end = text.empty() ? 0 : 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & continuationMask) == continuation)
    ++end;
  return text.substr(0, end);
}

}  // namespace

std::shared_ptr<UIImage> placeholderIcon(const std::string& name, CGFloat points, CGFloat scale) {
  CGContext context({points, points}, scale);
  const CGRect tile{{0, 0}, {points, points}};
  context.fillGradient(tile, pale, steel, points * cornerShare);
  context.drawText(firstLetter(name), tile, {points * letterShare, true, pureWhite, CGTextAlignment::Center});
  return finish(context, scale);
}

std::shared_ptr<UIImage> placeholderScreen(const std::string& name, CGSize size, CGFloat scale) {
  CGContext context(size, scale);
  const CGRect screen{{0, 0}, size};
  context.fillGradient(screen, pureWhite, pale);
  context.drawText(name, screen, {titleFontSize, true, ink, CGTextAlignment::Center});
  return finish(context, scale);
}

std::shared_ptr<UIImage> placeholderWallpaper(CGSize size, CGFloat scale) {
  CGContext context(size, scale);
  context.fillGradient({{0, 0}, size}, dusk, night);
  return finish(context, scale);
}

}  // namespace host
