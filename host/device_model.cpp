#include "host/device_model.h"

#include <algorithm>

namespace host {

const std::vector<DeviceModel>& deviceModels() {
  static const std::vector<DeviceModel> models{
      {"iphone-3gs", {320, 480}, 1},
      {"iphone-4", {320, 480}, 2},
      {"iphone-5", {320, 568}, 2},
      {"ipad", {768, 1024}, 1},
  };
  return models;
}

const DeviceModel* findDeviceModel(const std::string& name) {
  const auto& models = deviceModels();
  auto found = std::ranges::find(models, name, &DeviceModel::name);
  return found == models.end() ? nullptr : &*found;
}

}  // namespace host
