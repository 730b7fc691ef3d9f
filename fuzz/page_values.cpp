#include "fuzz/input.h"
#include "page_control/bridge/page_value.h"

// A value as the script of a page posts it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const auto value = nlohmann::json::parse(data, data + size, nullptr, false);
    if (value.is_discarded()) return 0;
    try {
        const PageValue parsed = ParsePageValue(value);
        if (const auto* const text = std::get_if<std::string_view>(&parsed)) Require(value == *text);
        if (const auto* const number = std::get_if<std::int32_t>(&parsed)) Require(value == *number);
        if (const auto* const units = std::get_if<std::wstring>(&parsed))
            Require(units->size() == value.at(1).size());
    } catch (const nlohmann::json::exception&) {
    }
    return 0;
}
