#include "platform/uikit/ui_alert_view.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/trace.h"
#include "platform/uikit/ui_button.h"
#include "platform/uikit/ui_drawing.h"
#include "platform/uikit/ui_kit.h"
#include "platform/uikit/ui_screen.h"

namespace {

// All in points.
constexpr CGFloat boxWidth = 284;
constexpr CGFloat cornerRadius = 10;
constexpr CGFloat borderWidth = 2;
constexpr CGFloat textInset = 16;    // From the box's sides and its top.
constexpr CGFloat paragraphGap = 8;  // Between title, message and buttons.
constexpr CGFloat titleFontSize = 18;
constexpr CGFloat titleLineHeight = 23;
constexpr CGFloat messageFontSize = 16;
constexpr CGFloat messageLineHeight = 20;
constexpr CGFloat buttonInset = 11;  // From the box's sides and bottom, and between buttons.
constexpr CGFloat buttonHeight = 43;
constexpr std::size_t buttonsInOneRow = 2;

constexpr CGFloat dimming = 0.45f;
constexpr CGColor boxTop{0.14f, 0.22f, 0.42f, 0.90f};
constexpr CGColor boxBottom{0.04f, 0.10f, 0.27f, 0.90f};
constexpr CGColor borderColor{0.84f, 0.87f, 0.93f, 0.85f};
constexpr CGFloat textShadowAlpha = 0.5f;

constexpr CGFloat glossDepth = 34;    // How far the shine reaches down in the middle.
constexpr CGFloat glossRadius = 400;  // Of the circle that ends it.

using Alerts = std::vector<std::shared_ptr<UIAlertView>>;

/// Never destroyed: an alert may be up as the process ends.
Alerts& alertsOnScreen() {
  static auto& alerts = *new Alerts();
  return alerts;
}

/// White with a dark edge above, as if cut into what it stands on.
void drawEngraved(CGContext& context, std::string_view text, CGRect rect, CGTextStyle style) {
  style.color = withAlpha(opaqueBlack, textShadowAlpha);
  CGRect above = rect;
  above.origin.y -= 1;
  context.drawText(text, above, style);
  style.color = opaqueWhite;
  context.drawText(text, rect, style);
}

/// A rounded-rect button as alerts wear it: glass instead of white.
class GlassButton : public UIButton {
 public:
  GlassButton() : UIButton(UIButtonType::RoundedRect) {}

  void drawLayer(CGContext& context) const override {
    constexpr CGFloat radius = 6, edge = 1, edgeAlpha = 0.35f;
    constexpr CGColor top{0.62f, 0.67f, 0.78f, 0.75f}, middle{0.31f, 0.38f, 0.54f, 0.75f};
    constexpr CGColor lower{0.20f, 0.28f, 0.46f, 0.75f}, bottom{0.28f, 0.37f, 0.56f, 0.75f};
    const CGRect all = bounds();
    const CGSize half{all.size.width, all.size.height / 2};
    context.save();
    context.clipTo(all, radius);
    context.fillGradient({all.origin, half}, top, middle);
    context.fillGradient({{all.origin.x, all.origin.y + half.height}, half}, lower, bottom);
    context.restore();
    strokeRoundedRectangle(context, all, radius, edge, withAlpha(opaqueBlack, edgeAlpha));
    drawEngraved(
        context, title(), all,
        {.fontSize = titleFontSize, .bold = true, .color = {}, .alignment = CGTextAlignment::Center});
  }
};

}  // namespace

UIAlertView::UIAlertView(std::string title, std::string message, NSObject* delegate,
                         std::string cancelButtonTitle, std::vector<std::string> otherButtonTitles)
    : title_(std::move(title)),
      message_(std::move(message)),
      buttonTitles_(std::move(otherButtonTitles)),
      delegate_(delegate) {
  registerUIKitClasses();
  if (!cancelButtonTitle.empty()) buttonTitles_.insert(buttonTitles_.begin(), std::move(cancelButtonTitle));
}

void UIAlertView::show() {
  if (isVisible()) return;
  if (bounds().size == CGSizeZero) build();
  const CGRect screen = UIScreen::mainScreen().bounds();
  const CGSize size = bounds().size;
  // Centred on whole points, so that text stays sharp.
  setFrame({{std::floor(CGRectGetMidX(screen) - size.width / 2),
             std::floor(CGRectGetMidY(screen) - size.height / 2)},
            size});

  auto dimmer = std::make_shared<UIView>(screen);
  dimmer->setBackgroundColor(UIColor::colorWithWhite(0, dimming));
  alertWindow_ = std::make_shared<UIWindow>(screen);
  alertWindow_->setWindowLevel(UIWindowLevelAlert);
  alertWindow_->addSubview(dimmer);
  auto self = std::static_pointer_cast<UIAlertView>(shared_from_this());
  alertWindow_->addSubview(self);
  alertWindow_->makeKeyAndVisible();
  alertsOnScreen().push_back(self);
  trace("alert", {{"title", title_}, {"message", message_}});
}

void UIAlertView::dismiss() {
  if (!isVisible()) return;
  const auto self = shared_from_this();  // The list may hold the last reference.
  std::erase_if(alertsOnScreen(), [this](const auto& alert) { return alert.get() == this; });
  alertWindow_.reset();
}

const Alerts& UIAlertView::visibleAlerts() { return alertsOnScreen(); }

void UIAlertView::build() {
  const CGFloat textWidth = boxWidth - 2 * textInset;
  CGFloat y = textInset;
  auto addParagraph = [&](const std::string& text, CGFloat fontSize, bool bold, CGFloat lineHeight) {
    for (std::string& line : wrapText(text, fontSize, textWidth)) {
      lines_.push_back({std::move(line), {{textInset, y}, {textWidth, lineHeight}}, fontSize, bold});
      y += lineHeight;
    }
    if (!text.empty()) y += paragraphGap;
  };
  addParagraph(title_, titleFontSize, true, titleLineHeight);
  addParagraph(message_, messageFontSize, false, messageLineHeight);
  y = addButtons(y);
  setBounds({{0, 0}, {boxWidth, y}});
}

CGFloat UIAlertView::addButtons(CGFloat y) {
  const std::size_t count = buttonTitles_.size();
  const bool inOneRow = count == buttonsInOneRow;
  const CGFloat width = (boxWidth - buttonInset) / (inOneRow ? buttonsInOneRow : 1) - buttonInset;
  CGFloat x = buttonInset;
  // In a column, the cancel button, first in the list, comes last.
  std::vector<std::string> titles = buttonTitles_;
  if (!inOneRow && count > 1) std::rotate(titles.begin(), titles.begin() + 1, titles.end());
  for (const std::string& title : titles) {
    auto button = std::make_shared<GlassButton>();
    button->setFrame({{x, y}, {width, buttonHeight}});
    button->setTitle(title, UIControlStateNormal);
    button->addTarget(*this, "dismiss", UIControlEventTouchUpInside);
    addSubview(button);
    if (inOneRow) {
      x += width + buttonInset;
    } else {
      y += buttonHeight + buttonInset;
    }
  }
  return inOneRow ? y + buttonHeight + buttonInset : y;
}

void UIAlertView::drawLayer(CGContext& context) const {
  constexpr CGFloat glossTop = 0.42f, glossBottom = 0.10f;
  const CGRect box = bounds();
  context.save();
  context.clipTo(box, cornerRadius);
  context.fillGradient(box, boxTop, boxBottom);
  context.clipTo(
      {{CGRectGetMidX(box) - glossRadius, glossDepth - 2 * glossRadius}, {2 * glossRadius, 2 * glossRadius}},
      glossRadius);
  context.fillGradient({box.origin, {box.size.width, glossDepth}}, withAlpha(opaqueWhite, glossTop),
                       withAlpha(opaqueWhite, glossBottom));
  context.restore();
  strokeRoundedRectangle(context, box, cornerRadius, borderWidth, borderColor);
  for (const Line& line : lines_) {
    drawEngraved(
        context, line.text, line.rect,
        {.fontSize = line.fontSize, .bold = line.bold, .color = {}, .alignment = CGTextAlignment::Center});
  }
}
