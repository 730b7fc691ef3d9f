#include "plugins/hotkey/key_text.h"

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const std::wstring text = TextOf({data, size});
    if (const auto parts = SplitKeyText(text)) {
        Require((parts->modifiers & ~0xFu) == 0);
        Require(text.ends_with(parts->key) && parts->key.find(L'+') == parts->key.npos);
        Require((parts->modifiers == 0) == (text.find(L'+') == text.npos));
    }
    return 0;
}
