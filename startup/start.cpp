#include "startup/start.h"

#include "prefs/settings.h"
#include "startup/hook_table.h"

namespace vistrel {

void start() {
  settings.topColor = UIColor::grayColor();
  settings.bottomColor = UIColor::darkGrayColor();
  installHooks();
}

}  // namespace vistrel
