#include "prefs/settings.h"

namespace vistrel {

Settings settings;
NSStringArrayRef favouriteApps;
NSStringArray disabledApps;

}  // namespace vistrel
