#pragma once

#include <string>

#include "tools/draw_resources/app_table.h"

namespace draw_resources {

/// The app's Info.plist as an XML property list.
std::string infoPlist(const App& app);

}  // namespace draw_resources
