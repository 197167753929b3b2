// Frames of the switcher at 2x: every style, open and opening, with five icons and their names.

#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "bench/figure.h"
#include "bench/phone.h"
#include "platform/quartzcore/plain_painter.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_window.h"
#include "prefs/settings.h"
#include "switcher/shared_state.h"

namespace bench {
namespace {

using namespace vistrel;

struct Style {
  const char* name;
  std::string_view animation, flat;
};
constexpr Style styles[] = {{"Push", word::push, word::side},
                            {"Flat/Side", word::flat, word::side},
                            {"Flat/Split", word::flat, word::split},
                            {"Flat/Up", word::flat, word::up},
                            {"Flat/Down", word::flat, word::down}};

std::vector<const CALayer*> visibleLayers() {
  std::vector<const CALayer*> layers;
  for (const UIWindow* window : UIWindow::allWindows())
    if (!window->hidden()) layers.push_back(&window->layer());
  return layers;
}

PropertyListDictionary preferencesOf(const Style& style) {
  return {{"animationStyle", std::string(style.animation)},
          {"flatAnimationStyle", std::string(style.flat)},
          {"background", std::string(word::color)},
          {"dim", true}};
}

/// Lets the opening go on by a frame; opens anew when it is over.
void stepOpening(Phone& phone) {
  if (!switcherOpen || finishedOpenAnimation) {
    phone.close();
    phone.open();
  }
  phone.device().pump(Phone::frame);
}

double secondsOfPlainFrame() {
  const Display& display = currentDisplay();
  return secondsOf(
      [&] { paintPlainly(visibleLayers(), display.size(), display.scale(), RunLoop::main().now()); });
}

/// One copy of what a frame has of pixels.
std::function<double()> frameBufferCopy() {
  const CGImageRef picture = UIGetScreenImage();
  const std::size_t bytes = picture->bytesPerRow() * std::size_t(picture->height());
  auto from = std::make_shared<std::vector<char>>(bytes, 1),
       to = std::make_shared<std::vector<char>>(bytes, 2);
  return timed([=] { std::memcpy(to->data(), from->data(), bytes); });
}

std::function<double()> openFrame(const Style& style) {
  auto phone = std::make_shared<Phone>(preferencesOf(style));
  phone->open();
  phone->device().settle();
  return [=] {
    phone->nudgeBands();
    return secondsOfFrame();
  };
}

std::function<double()> openingFrame(const Style& style) {
  return [phone = std::make_shared<Phone>(preferencesOf(style))] {
    stepOpening(*phone);
    return secondsOfFrame();
  };
}

/// All frames of an opening together.
double secondsOfOpening(Phone& phone, bool blur) {
  phone.device().changePreferences({{"blur", blur}});
  phone.open();
  double seconds = 0;
  while (!finishedOpenAnimation) {
    stepOpening(phone);
    seconds += secondsOfFrame();
  }
  phone.close();
  return seconds;
}

void addStyle(const Style& style) {
  const std::string name = std::string("frame/") + style.name;
  addFigure(name + "/open", "memcpy of the frame buffer", atMost(3.5), [=] {
    return Works{openFrame(style), frameBufferCopy()};
  });
  addFigure(name + "/opening", "memcpy of the frame buffer", atMost(3.5), [=] {
    return Works{openingFrame(style), frameBufferCopy()};
  });
  addFigure(name + "/open/plain", "the plain painter", atLeast(4), [=] {
    return Works{openFrame(style), secondsOfPlainFrame};
  });
  addFigure(name + "/opening/plain", "the plain painter, at the same moment", atLeast(4), [=] {
    return Works{openingFrame(style), secondsOfPlainFrame};
  });
  addFigure(name + "/opening/blur", "all frames of an opening without blur", atMost(2.5), [=] {
    auto phone = std::make_shared<Phone>(preferencesOf(style));
    return Works{[=] { return secondsOfOpening(*phone, true); },
                 [=] { return secondsOfOpening(*phone, false); }};
  });
}

}  // namespace

void addFrameFigures() {
  for (const Style& style : styles) addStyle(style);
}

}  // namespace bench
