#include "host/placeholder.h"

#include "platform/coregraphics/cg_context.h"

namespace host {

namespace {

constexpr CGColor kPale{0.86f, 0.88f, 0.91f, 1};
constexpr CGColor kSteel{0.50f, 0.55f, 0.63f, 1};
constexpr CGColor kInk{0.25f, 0.29f, 0.35f, 1};
constexpr CGColor kWhite{1, 1, 1, 1};
constexpr CGColor kDusk{0.18f, 0.27f, 0.42f, 1};
constexpr CGColor kNight{0.05f, 0.07f, 0.13f, 1};

constexpr CGFloat kCornerShare = 0.175f;  // Of an icon's width.
constexpr CGFloat kLetterShare = 0.56f;
constexpr CGFloat kTitleFontSize = 24;  // Points.

std::shared_ptr<UIImage> finish(const CGContext& context, CGFloat scale) {
  return UIImage::imageWithCGImage(context.createImage(), scale, UIImageOrientation::Up);
}

/// The first character of a UTF-8 text, whole.
std::string firstLetter(const std::string& text) {
  constexpr unsigned char kContinuationMask = 0xC0, kContinuation = 0x80;
  std::size_t end = text.empty() ? 0 : 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & kContinuationMask) == kContinuation)
    ++end;
  return text.substr(0, end);
}

}  // namespace

std::shared_ptr<UIImage> placeholderIcon(const std::string& name, CGFloat points, CGFloat scale) {
  CGContext context({points, points}, scale);
  const CGRect tile{{0, 0}, {points, points}};
  context.fillGradient(tile, kPale, kSteel, points * kCornerShare);
  context.drawText(firstLetter(name), tile, {points * kLetterShare, true, kWhite, CGTextAlignment::Center});
  return finish(context, scale);
}

std::shared_ptr<UIImage> placeholderScreen(const std::string& name, CGSize size, CGFloat scale) {
  CGContext context(size, scale);
  const CGRect screen{{0, 0}, size};
  context.fillGradient(screen, kWhite, kPale);
  context.drawText(name, screen, {kTitleFontSize, true, kInk, CGTextAlignment::Center});
  return finish(context, scale);
}

std::shared_ptr<UIImage> placeholderWallpaper(CGSize size, CGFloat scale) {
  CGContext context(size, scale);
  context.fillGradient({{0, 0}, size}, kDusk, kNight);
  return finish(context, scale);
}

}  // namespace host
