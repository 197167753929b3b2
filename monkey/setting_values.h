#pragma once

#include <string>

#include "monkey/dice.h"

namespace monkey {

/// A key of the preferences file.
std::string randomSettingKey(Dice& dice);

/// A value for it as a fragment of an XML property list on one line: mostly one that it may have, otherwise
/// anything that a property list can hold.
std::string randomSettingValue(const std::string& key, Dice& dice);

}  // namespace monkey
