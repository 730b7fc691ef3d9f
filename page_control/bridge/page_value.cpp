#include "page_control/bridge/page_value.h"

#include <iterator>
#include <limits>
#include <string_view>

#include "page_control/injected/protocol.h"

namespace tarvik {

namespace {

using nlohmann::json;

// Throws for a fraction, whose conversion to an integer could be undefined.
std::int64_t Integer(const json& number) {
    return number.get_ref<const json::number_integer_t&>();
}

PageValue ParseNumber(const json& number) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double value = number.get<double>();
    const bool fits = number.is_number_integer() && value >= Limits::min() && value <= Limits::max();
    return fits ? PageValue(number.get<std::int32_t>()) : PageValue(value);
}

PageValue ParseUndefined(const json&) {
    return UndefinedValue();
}

PageValue ParseUnread(const json&) {
    return UnreadValue();
}

PageValue ParseSpecialNumber(const json& value) {
    const std::string& name = value.at(1).get_ref<const std::string&>();
    if (name == "-0") return -0.0;
    if (name == "NaN") return std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    return name == "Infinity" ? infinity : -infinity;
}

PageValue ParseBigInt(const json& value) {
    const json& number = value.at(1);
    if (number.is_number_unsigned()) return number.get<std::uint64_t>();
    return Integer(number);
}

PageValue ParseUnits(const json& value) {
    std::wstring units;
    for (const json& unit : value.at(1))
        units += static_cast<wchar_t>(Integer(unit));
    return units;
}

PageValue ParseNativeObject(const json& value) {
    return NativeReference{static_cast<int>(Integer(value.at(1)))};
}

PageValue ParseScriptObject(const json& value) {
    return ScriptReference{static_cast<int>(Integer(value.at(1))), value.at(2)};
}

PageValue ParseTagged(const json& value) {
    static constexpr struct {
        protocol::Name<protocol::Kind::kPageValue> tag;
        PageValue (*parse)(const json& value);
    } kTags[] = {
        {"u", ParseUndefined},    {"n", ParseSpecialNumber}, {"i", ParseBigInt}, {"s", ParseUnits},
        {"o", ParseNativeObject}, {"f", ParseScriptObject},  {"?", ParseUnread},
    };
    static_assert(std::size(kTags) == protocol::Count(protocol::Kind::kPageValue));
    const std::string_view tag = value.at(0).get_ref<const std::string&>();
    for (const auto& [known, parse] : kTags) {
        if (known == tag) return parse(value);
    }
    return UndefinedValue();
}

}  // namespace

PageValue ParsePageValue(const json& value) {
    if (value.is_null()) return nullptr;
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_string()) return std::string_view(value.get_ref<const std::string&>());
    if (value.is_number()) return ParseNumber(value);
    return ParseTagged(value);
}

}  // namespace tarvik
