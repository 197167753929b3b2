// Frames of the switcher at 2x: every style, open and opening, with five icons and their names.

#include <cstring>
#include <memory>

#include "bench/figure.h"
#include "platform/quartzcore/plain_painter.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_window.h"
#include "prefs/settings.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/test_device.h"

namespace bench {
namespace {

using namespace vistrel;
using namespace vistrel::test;

constexpr double frame = 1.0 / 60;  // Seconds.
constexpr CGFloat pixel = 0.5f;     // Points.

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

/// A device with five applications in the switcher.
class Scene {
 public:
  explicit Scene(const Style& style)
      : device_({.preferences = preferencesOf(style), .recents = testBundles}) {
    for (const std::string& bundle : testBundles) {
      device_.launch(bundle);
      device_.home();
    }
    device_.settle();
  }

  void open() {
    device_.receive();
    if (!switcherOpen) throw std::logic_error("the switcher does not open");
  }
  void close() {
    device_.abort();
    while (switcherOpen) device_.pump(frame);
  }
  void settle() { device_.settle(); }
  void setBlur(bool blur) { device_.changePreferences({{"blur", blur}}); }

  /// Moves the bands by a pixel, there and back, as a finger would: all of the screen is drawn.
  void nudgeBands() {
    nudged_ = !nudged_;
    for (const auto& view : switcherWindow->subviews()) {
      if (!dynamic_cast<UIImageView*>(view.get())) continue;
      view->setCenter({view->center().x, view->center().y + (nudged_ ? pixel : -pixel)});
    }
  }

  /// Lets the opening go on by a frame; opens anew when it is over.
  void stepOpening() {
    if (!switcherOpen || finishedOpenAnimation) {
      if (switcherOpen) close();
      open();
    }
    device_.pump(frame);
  }

 private:
  static PropertyListDictionary preferencesOf(const Style& style) {
    return {{"animationStyle", std::string(style.animation)},
            {"flatAnimationStyle", std::string(style.flat)},
            {"background", std::string(word::color)},
            {"appNames", true},
            {"iconAnimation", std::string(word::grow)},
            {"nameAnimation", std::string(word::grow)},
            {"dim", true}};
  }

  TestDevice device_;
  bool nudged_ = false;
};

double secondsOfFrame() {
  return secondsOf([] { UIGetScreenImage(); });
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

std::function<double()> openFrame(const std::shared_ptr<Scene>& scene) {
  return [=] {
    scene->nudgeBands();
    return secondsOfFrame();
  };
}

std::function<double()> openingFrame(const std::shared_ptr<Scene>& scene) {
  return [=] {
    scene->stepOpening();
    return secondsOfFrame();
  };
}

std::shared_ptr<Scene> openScene(const Style& style) {
  auto scene = std::make_shared<Scene>(style);
  scene->open();
  scene->settle();
  return scene;
}

/// All frames of an opening together.
double secondsOfOpening(Scene& scene, bool blur) {
  scene.setBlur(blur);
  scene.open();
  double seconds = 0;
  while (!finishedOpenAnimation) {
    scene.stepOpening();
    seconds += secondsOfFrame();
  }
  scene.close();
  return seconds;
}

void addStyle(const Style& style) {
  const std::string name = std::string("frame/") + style.name;
  addFigure(name + "/open", "memcpy of the frame buffer", atMost(3.5), [=] {
    return Works{openFrame(openScene(style)), frameBufferCopy()};
  });
  addFigure(name + "/opening", "memcpy of the frame buffer", atMost(3.5), [=] {
    return Works{openingFrame(std::make_shared<Scene>(style)), frameBufferCopy()};
  });
  addFigure(name + "/open/plain", "the plain painter", atLeast(4), [=] {
    return Works{openFrame(openScene(style)), secondsOfPlainFrame};
  });
  addFigure(name + "/opening/plain", "the plain painter, at the same moment", atLeast(4), [=] {
    return Works{openingFrame(std::make_shared<Scene>(style)), secondsOfPlainFrame};
  });
  addFigure(name + "/opening/blur", "all frames of an opening without blur", atMost(2.5), [=] {
    auto scene = std::make_shared<Scene>(style);
    return Works{[=] { return secondsOfOpening(*scene, true); },
                 [=] { return secondsOfOpening(*scene, false); }};
  });
}

}  // namespace

void addFrameFigures() {
  for (const Style& style : styles) addStyle(style);
}

}  // namespace bench
