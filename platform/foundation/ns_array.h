#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// An array of strings, shared by reference as the frameworks share theirs; a null reference is no array.
using NSStringArray = std::vector<std::string>;
using NSStringArrayRef = std::shared_ptr<const NSStringArray>;

/// The index of what a list does not hold.
inline constexpr std::int32_t NSNotFound = INT32_MAX;
