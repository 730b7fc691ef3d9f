#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include <nlohmann/json.hpp>

// Values as the bridge's script writes them, read without the platform's headers.
namespace tarvik {

struct UndefinedValue {};
struct UnreadValue {};  // the member exists; its value must be read
struct NativeReference {
    int id;
};
struct ScriptReference {
    int number;
    bool isCallable;
};

using PageValue =
    std::variant<UndefinedValue, UnreadValue, std::nullptr_t, bool,
                 std::int32_t,  // a whole number that fits, as the system's script engine passes it
                 double,        // any other number
                 std::int64_t, std::uint64_t,  // a BigInt, negative or not
                 std::string_view,             // UTF-8, in the JSON
                 std::wstring,                 // UTF-16 that is not well-formed
                 NativeReference, ScriptReference>;

// Throws a JSON exception if the script cannot have written it.
PageValue ParsePageValue(const nlohmann::json& value);

}  // namespace tarvik
