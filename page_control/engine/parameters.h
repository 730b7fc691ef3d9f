#pragma once

#include <initializer_list>
#include <utility>

#include <nlohmann/json.hpp>

namespace tarvik {

using Json = nlohmann::json;

// The parameters of a DevTools command, written {{"name", value}, ...}. A JSON object can be written in the
// same way, but takes three times the code at each of some hundred places.
class Parameters {
  public:
    struct Entry {
        const char* name;
        mutable Json value;  // moved out of the list
    };

    Parameters() = default;
    Parameters(std::initializer_list<Entry> entries);
    Parameters(Json object) : object_(std::move(object)) {}

    Json Take() && { return std::move(object_); }

  private:
    Json object_ = Json::object();
};

}  // namespace tarvik
