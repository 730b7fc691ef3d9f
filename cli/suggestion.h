#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarvik {

// The candidate that a mistyped or abbreviated word was probably meant to be; empty if none is near.
std::string ClosestWord(std::string_view word, std::span<const std::string> candidates);

}  // namespace tarvik
