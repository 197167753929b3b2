#pragma once

#include <memory>

#include "host/device_model.h"
#include "platform/uikit/ui_orientation.h"
#include "platform/uikit/ui_status_bar.h"

namespace host {

/// Keeps one status bar on the screen, along the upper edge of whatever interface is in front.
class StatusBar {
 public:
  explicit StatusBar(const DeviceModel& model) : model_(model) {}
  StatusBar(const StatusBar&) = delete;
  StatusBar& operator=(const StatusBar&) = delete;
  ~StatusBar() { remove(); }

  /// Builds a fresh bar for that orientation and puts it in the place of the one before.
  void build(UIInterfaceOrientation orientation);
  /// Shows what time it is now.
  void updateTime();

 private:
  void remove();  // The window that carries it outlives this.

  DeviceModel model_;
  std::shared_ptr<UIStatusBar> bar_;  // Null where it could not be made.
};

}  // namespace host
