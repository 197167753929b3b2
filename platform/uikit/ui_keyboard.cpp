#include "platform/uikit/ui_keyboard.h"

#include <string_view>

#include "platform/uikit/ui_drawing.h"
#include "platform/uikit/ui_screen.h"

namespace {

// Points, and parts of a key's column: ten columns make a keyboard.
constexpr CGFloat phoneHeight = 216, phoneLandscapeHeight = 162;
constexpr CGFloat padHeight = 264, padLandscapeHeight = 352;
constexpr CGFloat leastPadWidth = 768;
constexpr int columns = 10;
constexpr int rows = 4;
constexpr CGFloat sideGap = 3;      // Around a key, left and right.
constexpr CGFloat verticalGap = 8;  // Above a key, and below.
constexpr CGFloat keyRadius = 5;
constexpr CGFloat letterFontSize = 22;
constexpr CGFloat wordFontSize = 16;
constexpr CGFloat letterWidth = 1;
constexpr CGFloat modifierWidth = 1.5f;
constexpr CGFloat spaceWidth = 5;
constexpr CGFloat wideWidth = 2.5f;

constexpr CGColor backTop{0.60f, 0.64f, 0.70f, 1}, backBottom{0.36f, 0.40f, 0.47f, 1};
constexpr CGColor keyTop{0.98f, 0.98f, 0.98f, 1}, keyBottom{0.85f, 0.86f, 0.88f, 1};
constexpr CGColor darkKeyTop{0.58f, 0.61f, 0.66f, 1}, darkKeyBottom{0.39f, 0.43f, 0.50f, 1};
constexpr CGColor keyShadow{0.15f, 0.17f, 0.21f, 0.8f};

enum class Look { Letter, Modifier };

/// Draws keys one after the other along a row.
class KeyRow {
 public:
  KeyRow(CGContext& context, CGSize board, int row, CGFloat startColumn)
      : context_(context),
        column_(board.width / columns),
        rowHeight_(board.height / rows),
        y_(CGFloat(row) * rowHeight_),
        x_(startColumn * column_) {}

  void letters(std::string_view keys) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
      key(letterWidth, Look::Letter, keys.substr(i, 1), letterFontSize);
    }
  }

  CGRect key(CGFloat width, Look look, std::string_view label, CGFloat fontSize = wordFontSize) {
    const bool dark = look == Look::Modifier;
    const CGRect cell{{x_, y_}, {width * column_, rowHeight_}};
    const CGRect key = CGRectInset(cell, sideGap, verticalGap);
    CGRect below = key;
    below.origin.y += 1;
    context_.fill(below, keyShadow, keyRadius);
    context_.fillGradient(key, dark ? darkKeyTop : keyTop, dark ? darkKeyBottom : keyBottom, keyRadius);
    context_.drawText(label, key,
                      {.fontSize = fontSize,
                       .bold = true,
                       .color = dark ? opaqueWhite : opaqueBlack,
                       .alignment = CGTextAlignment::Center});
    x_ += cell.size.width;
    return key;
  }

 private:
  CGContext& context_;
  CGFloat column_, rowHeight_, y_, x_;
};

/// An arrow upward.
void drawShift(CGContext& context, CGRect key) {
  constexpr CGFloat head = 9, stem = 4, height = 8;
  const CGFloat x = CGRectGetMidX(key), y = CGRectGetMidY(key);
  fillPolygon(context,
              {{x, y - height},
               {x + head, y + 1},
               {x + stem, y + 1},
               {x + stem, y + height},
               {x - stem, y + height},
               {x - stem, y + 1},
               {x - head, y + 1}},
              opaqueWhite);
}

/// A tag that points to the left, crossed out.
void drawDelete(CGContext& context, CGRect key) {
  constexpr CGFloat halfWidth = 11, point = 7, halfHeight = 7;
  const CGFloat x = CGRectGetMidX(key), y = CGRectGetMidY(key);
  fillPolygon(context,
              {{x - halfWidth, y},
               {x - halfWidth + point, y - halfHeight},
               {x + halfWidth, y - halfHeight},
               {x + halfWidth, y + halfHeight},
               {x - halfWidth + point, y + halfHeight}},
              opaqueWhite);
  const CGFloat left = x - halfWidth + point;
  context.drawText(
      "\u00D7", {{left, y - halfHeight}, {x + halfWidth - left, 2 * halfHeight}},
      {.fontSize = wordFontSize, .bold = true, .color = darkKeyBottom, .alignment = CGTextAlignment::Center});
}

}  // namespace

bool UIKeyboard::isOnScreen() { return UIPeripheralHost::sharedInstance().automaticKeyboard() != nullptr; }

CGFloat UIKeyboard::heightOn(CGSize screen, UIInterfaceOrientation orientation) {
  const bool isPad = screen.width >= leastPadWidth;
  if (UIInterfaceOrientationIsLandscape(orientation))
    return isPad ? padLandscapeHeight : phoneLandscapeHeight;
  return isPad ? padHeight : phoneHeight;
}

void UIKeyboard::drawLayer(CGContext& context) const {
  const CGSize board = bounds().size;
  context.fillGradient(bounds(), backTop, backBottom);
  KeyRow(context, board, 0, 0).letters("QWERTYUIOP");
  KeyRow(context, board, 1, letterWidth / 2).letters("ASDFGHJKL");
  KeyRow third(context, board, 2, 0);
  drawShift(context, third.key(modifierWidth, Look::Modifier, ""));
  third.letters("ZXCVBNM");
  drawDelete(context, third.key(modifierWidth, Look::Modifier, ""));
  KeyRow last(context, board, 3, 0);
  last.key(wideWidth, Look::Modifier, ".?123");
  last.key(spaceWidth, Look::Letter, "space");
  last.key(wideWidth, Look::Modifier, "return");
}

UIPeripheralHost& UIPeripheralHost::sharedInstance() {
  // Never destroyed: its windows may be up as the process ends.
  static auto& host = *new std::shared_ptr<UIPeripheralHost>(std::make_shared<UIPeripheralHost>());
  return *host;
}

void UIPeripheralHost::showKeyboard() {
  if (keyboard_) return;
  const CGSize screen = UIScreen::mainScreen().bounds().size;
  const CGFloat height = UIKeyboard::heightOn(screen, UIInterfaceOrientation::Portrait);
  window_ = std::make_shared<UIWindow>(CGRect{{0, screen.height - height}, {screen.width, height}});
  window_->setWindowLevel(UIKeyboardWindowLevel);
  keyboard_ = std::make_shared<UIKeyboard>(window_->bounds());
  window_->addSubview(keyboard_);
  window_->setHidden(false);
}

void UIPeripheralHost::hideKeyboard() {
  if (!keyboard_) return;
  keyboard_->removeFromSuperview();
  keyboard_.reset();
  window_.reset();
}
