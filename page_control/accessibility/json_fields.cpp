#include "page_control/accessibility/json_fields.h"

#include <cstdlib>

namespace tarvik {

namespace {

using nlohmann::json;

const json kNull;

}  // namespace

const json& Field(const json& object, const char* name) {
    const auto* const fields = object.get_ptr<const json::object_t*>();
    if (!fields) return kNull;
    const auto found = fields->find(name);
    return found == fields->end() ? kNull : found->second;
}

const std::vector<json>& ItemsOf(const json& array) {
    static const std::vector<json> kNone;
    const auto* const items = array.get_ptr<const json::array_t*>();
    return items ? *items : kNone;
}

const json& Item(const json& array, std::int64_t index) {
    const std::vector<json>& items = ItemsOf(array);
    return index >= 0 && static_cast<std::size_t>(index) < items.size()
               ? items[static_cast<std::size_t>(index)]
               : kNull;
}

std::int64_t IntegerOf(const json& value) {
    return value.is_number_integer() ? *value.get_ptr<const json::number_integer_t*>() : 0;
}

double NumberOf(const json& value) {
    return value.is_number_float() ? *value.get_ptr<const json::number_float_t*>()
                                   : static_cast<double>(IntegerOf(value));
}

const std::string& TextOf(const json& value) {
    static const std::string kEmpty;
    const auto* const text = value.get_ptr<const json::string_t*>();
    return text ? *text : kEmpty;
}

std::int64_t IdOf(const json& value) {
    return std::strtoll(TextOf(value).c_str(), nullptr, 10);
}

}  // namespace tarvik
