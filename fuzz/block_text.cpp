#include "plugins/window/block_text.h"

#include <memory>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    // A copy of the exact size, so that a read behind its end is found.
    const std::wstring text = TextOf({data, size});
    const auto block = std::make_unique<wchar_t[]>(text.size());
    text.copy(block.get(), text.size());
    if (const auto parsed = ParseBlock({block.get(), text.size()})) {
        const std::wstring name(parsed->name);
        Require(!name.empty() && name.find(L'\0') == name.npos);
        if (parsed->payload) {
            const std::wstring payload(*parsed->payload);
            Require(!payload.empty() && name.size() + payload.size() + kBlockNuls == text.size());
        }
    }
    return 0;
}
