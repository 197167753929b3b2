#pragma once

#include <string>

#include "monkey/random.h"

namespace monkey {

/// A key of the preferences file.
std::string randomSettingKey(Random& random);

/// A value for it as a fragment of an XML property list on one line: mostly one that it may have, otherwise
/// anything that a property list can hold.
std::string randomSettingValue(const std::string& key, Random& random);

}  // namespace monkey
