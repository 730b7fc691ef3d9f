#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tarvik {

// Read what the engine has written. What is missing, or of another type, is null, empty or 0. The library's
// own functions would take several times the code.
const nlohmann::json& Field(const nlohmann::json& object, const char* name);
const std::vector<nlohmann::json>& ItemsOf(const nlohmann::json& array);
const nlohmann::json& Item(const nlohmann::json& array, std::int64_t index);
std::int64_t IntegerOf(const nlohmann::json& value);
double NumberOf(const nlohmann::json& value);
const std::string& TextOf(const nlohmann::json& value);

// The engine writes the ids of accessibility nodes as texts.
std::int64_t IdOf(const nlohmann::json& value);

}  // namespace tarvik
