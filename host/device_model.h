#pragma once

#include <string>
#include <vector>

#include "platform/coregraphics/cg_geometry.h"

namespace host {

/// A device that the host can be: its screen, portrait, in points, and its pixels a point.
struct DeviceModel {
  std::string name;  ///< As the --device option spells it.
  CGSize size;
  CGFloat scale;
};

/// Every model, in the order in which help lists them.
const std::vector<DeviceModel>& deviceModels();
/// The model of that name, or null.
const DeviceModel* findDeviceModel(const std::string& name);

inline constexpr const char* defaultDeviceModel = "iphone-4";

}  // namespace host
