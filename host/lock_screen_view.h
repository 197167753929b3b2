#pragma once

#include <memory>

#include "host/device_model.h"
#include "host/unlock_slider.h"
#include "platform/springboard/sb_away_view.h"

namespace host {

/// The lock screen: wallpaper, the time of day, the slider.
class LockScreenView : public SBAwayView {
 public:
  explicit LockScreenView(const DeviceModel& model) : model_(model) {}

  /// Gives SBAwayView its behaviour.
  static void registerMethods();

  void updateTime();  ///< Shows what time it is now.

 private:
  void build(CGRect frame);

  DeviceModel model_;
  std::shared_ptr<UILabel> clock_, date_;  // Null before initWithFrame.
};

}  // namespace host
