#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/device_model.h"
#include "host/spring_board.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/run_loop.h"
#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_window.h"
#include "tests/support/temporary_root.h"

namespace host::test {

/// SpringBoard booted on a device root of the test's own.
class BootTest : public TemporaryRoot {
 protected:
  BootTest() { std::filesystem::create_directory(root() / "Applications"); }

  static void write(const std::string& path, const NSData& data) {
    files().write(path, data, NSFileManager::Writing::Plain);
  }
  /// Bundles com.example.NAME, each called NAME.
  static void install(const std::vector<std::string>& names, const PropertyListDictionary& more = {}) {
    for (const std::string& name : names) {
      PropertyListDictionary info = more;
      info.emplace("CFBundleIdentifier", "com.example." + name);
      info.emplace("CFBundleDisplayName", name);
      writeDictionaryToFile(info, "/Applications/" + name + ".app/Info.plist");
    }
  }
  /// A PNG of one colour.
  static void paint(const std::string& path, CGSize pixels) {
    write(path, encodePng(CGContext(pixels, 1).createImage()));
  }

  SpringBoard& boot(const std::string& model = "iphone-4", bool locked = false,
                    std::function<void()> alsoLoad = {}) {
    springBoard.reset();
    springBoard = std::make_unique<SpringBoard>(
        BootOptions{root(), *findDeviceModel(model), false, locked, std::move(alsoLoad)});
    return *springBoard;
  }
  static void pump(double seconds) { RunLoop::main().advanceBy(seconds); }
  void rest() const {
    while (springBoard->busy()) pump(1.0 / 60);
  }
  void launch(const std::string& name) const {
    springBoard->launch("com.example." + name);
    rest();
  }

  static void tap(CGPoint at) {
    TouchDispatcher::shared().down(0, at, RunLoop::main().now());
    TouchDispatcher::shared().up(0, at, RunLoop::main().now());
  }
  static void drag(CGPoint from, CGPoint to) {
    constexpr int moves = 10;
    auto& touches = TouchDispatcher::shared();
    touches.down(0, from, RunLoop::main().now());
    for (int i = 1; i <= moves; ++i) {
      const CGFloat part = CGFloat(i) / moves;
      pump(0.1);  // Slow enough to be no flick.
      touches.move(0, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part},
                   RunLoop::main().now());
    }
    touches.up(0, to, RunLoop::main().now());
  }

  static UIWindow* window(const std::string& className) {
    for (UIWindow* candidate : UIWindow::allWindows())
      if (candidate->isa().name() == className) return candidate;
    return nullptr;
  }
  /// All views of that class below `view`, back to front.
  static std::vector<UIView*> views(const UIView& view, const std::string& className) {
    std::vector<UIView*> result;
    for (const auto& subview : view.subviews()) {
      if (subview->isa().name() == className) result.push_back(subview.get());
      for (UIView* deeper : views(*subview, className)) result.push_back(deeper);
    }
    return result;
  }

  std::unique_ptr<SpringBoard> springBoard;
};

}  // namespace host::test
