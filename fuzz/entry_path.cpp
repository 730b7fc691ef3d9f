#include "archive/entry_path.h"

#include "fuzz/input.h"

namespace tarvik {

namespace {

// A second opinion, in other words: the depth below the folder after each component.
void RequireInside(std::wstring_view name) {
    Require(name.find(L':') == name.npos && name.find(L'\0') == name.npos);
    Require(!name.starts_with(L'/') && !name.starts_with(L'\\'));
    int depth = 0;
    std::wstring component;
    for (const wchar_t character : std::wstring(name) + L'/') {
        if (character != L'/' && character != L'\\') {
            component += character;
            continue;
        }
        std::wstring trimmed = component;
        while (trimmed.ends_with(L'.') || trimmed.ends_with(L' '))
            trimmed.pop_back();
        if (!trimmed.empty()) {
            ++depth;
        } else if (component != L"." && !component.empty()) {
            --depth;  // "..", and what the system may shorten to it
        }
        Require(depth >= 0);
        Require(trimmed != L"NUL" && trimmed != L"con" && trimmed != L"COM1");
        component.clear();
    }
}

}  // namespace

}  // namespace tarvik

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const std::wstring name = TextOf({data, size});
    if (IsSafeEntryPath(name)) RequireInside(name);
    return 0;
}
