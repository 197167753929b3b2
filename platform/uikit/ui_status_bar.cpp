#include "platform/uikit/ui_status_bar.h"

#include "platform/uikit/ui_drawing.h"
#include "platform/uikit/ui_kit.h"
#include "platform/uikit/ui_screen.h"

namespace {

constexpr std::string_view carrier = "Vistrel";

// All in points.
constexpr CGFloat margin = 6;
constexpr CGFloat baseline = 15;  // What the bars stand on.
constexpr CGFloat fontSize = 13;
constexpr int signalBars = 5;
constexpr CGFloat signalBarWidth = 3;
constexpr CGFloat signalBarPitch = 4;
constexpr CGFloat lowestSignalBar = 3;
constexpr CGFloat signalBarStep = 1.75f;
constexpr CGFloat carrierStart = margin + signalBars * signalBarPitch + 4;
constexpr CGSize batteryCase{20, 10};
constexpr CGSize batteryNub{1.5f, 4};
constexpr CGFloat batteryLine = 1;
constexpr CGFloat batteryCorner = 2;
constexpr CGFloat batteryCharge = 0.85f;
constexpr CGColor ink{0.80f, 0.82f, 0.85f, 1};

void drawSignal(CGContext& context) {
  CGFloat height = lowestSignalBar;
  for (int bar = 0; bar < signalBars; ++bar) {
    context.fill({{margin + CGFloat(bar) * signalBarPitch, baseline - height}, {signalBarWidth, height}},
                 ink);
    height += signalBarStep;
  }
}

void drawBattery(CGContext& context, CGFloat right) {
  const CGFloat middle = UIStatusBar::height / 2, caseRight = right - batteryNub.width;
  const CGRect body{{caseRight - batteryCase.width, middle - batteryCase.height / 2}, batteryCase};
  context.fill({{caseRight, middle - batteryNub.height / 2}, batteryNub}, ink);
  strokeRoundedRectangle(context, body, batteryCorner, batteryLine, ink);
  CGRect charge = CGRectInset(body, 2 * batteryLine, 2 * batteryLine);
  charge.size.width *= batteryCharge;
  context.fill(charge, ink);
}

}  // namespace

UIStatusBar::UIStatusBar() {
  registerUIKitClasses();
  setUserInteractionEnabled(false);
}

UIWindow& UIStatusBar::sharedStatusBarWindow() {
  // Never destroyed, so that it outlives whoever put a bar into it.
  static auto& window = *new std::shared_ptr<UIWindow>();
  if (!window) {
    window = std::make_shared<UIWindow>(CGRect{{0, 0}, {UIScreen::mainScreen().bounds().size.width, height}});
    window->setWindowLevel(UIWindowLevelStatusBar);
    window->setUserInteractionEnabled(false);
    window->setHidden(false);
  }
  return *window;
}

void UIStatusBar::setTimeText(std::string text) {
  if (text == timeText_) return;
  timeText_ = std::move(text);
  setNeedsDisplay();
}

void UIStatusBar::drawLayer(CGContext& context) const {
  const CGRect bar = bounds();
  const CGTextStyle style{
      .fontSize = fontSize, .bold = true, .color = ink, .alignment = CGTextAlignment::Center};
  context.fill(bar, opaqueBlack);
  drawSignal(context);
  context.drawText(carrier, {{carrierStart, 0}, {bar.size.width / 2 - carrierStart, height}},
                   {.fontSize = fontSize, .bold = true, .color = ink});
  context.drawText(timeText_, {{0, 0}, {bar.size.width, height}}, style);
  drawBattery(context, bar.size.width - margin);
}
