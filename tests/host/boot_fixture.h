#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
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

namespace host::test {

/// A device root in a private folder, and SpringBoard booted on it.
class BootTest : public ::testing::Test {
 protected:
  BootTest() {
    std::string pattern = std::filesystem::temp_directory_path() / "springboard-test-XXXXXX";
    root = mkdtemp(pattern.data());
    std::filesystem::create_directories(root / "Applications");
  }
  ~BootTest() override {
    springBoard.reset();
    std::filesystem::remove_all(root);
  }

  void write(const std::string& path, const NSData& data) const {
    std::filesystem::create_directories((root / path).parent_path());
    std::ofstream(root / path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data.data()), std::ssize(data));
  }
  void writeList(const std::string& path, const PropertyListDictionary& list) const {
    write(path, dataWithPropertyList(list, PropertyListFormat::Xml));
  }
  PropertyListDictionary readList(const std::string& path) const {
    std::ifstream stream(root / path, std::ios::binary);
    const auto list = propertyListWithData(NSData(std::istreambuf_iterator<char>(stream), {}));
    return list && list->as<PropertyListDictionary>() ? *list->as<PropertyListDictionary>()
                                                      : PropertyListDictionary();
  }
  /// Bundles com.example.NAME, each called NAME.
  void install(const std::vector<std::string>& names, const PropertyListDictionary& more = {}) const {
    for (const std::string& name : names) {
      PropertyListDictionary info = more;
      info.emplace("CFBundleIdentifier", "com.example." + name);
      info.emplace("CFBundleDisplayName", name);
      writeList("Applications/" + name + ".app/Info.plist", info);
    }
  }
  /// A PNG of one colour.
  void paint(const std::string& path, CGSize pixels, CGColor color = {1, 0, 0, 1}) const {
    CGContext context(pixels, 1);
    context.fill({{0, 0}, pixels}, color);
    write(path, encodePng(context.createImage()));
  }

  SpringBoard& boot(const std::string& model = "iphone-4", bool locked = false,
                    std::function<void()> alsoLoad = {}) {
    springBoard.reset();
    springBoard = std::make_unique<SpringBoard>(
        BootOptions{root, *findDeviceModel(model), false, locked, std::move(alsoLoad)});
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
    constexpr int kMoves = 10;
    auto& touches = TouchDispatcher::shared();
    touches.down(0, from, RunLoop::main().now());
    for (int i = 1; i <= kMoves; ++i) {
      const CGFloat part = CGFloat(i) / kMoves;
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

  std::filesystem::path root;
  std::unique_ptr<SpringBoard> springBoard;
};

}  // namespace host::test
