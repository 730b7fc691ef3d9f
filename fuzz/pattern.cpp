#include "base/pattern.h"

#include "fuzz/input.h"

namespace tarvik {

namespace {

void RequireRange(const Pattern::Range& range, std::wstring_view text) {
    Require(range.from <= range.to && range.to <= text.size());
}

}  // namespace

}  // namespace tarvik

// A line with a pattern, and the text to search.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const std::wstring input = TextOf({data, size});
    const auto [expression, text] = SplitLine(input);
    const auto pattern = Pattern::Compile(expression);
    if (!pattern) return 0;
    // The full number of steps would take a tenth of a second, and most mutations of a nested pattern need
    // it.
    constexpr int kSteps = Pattern::kMaxSteps / 100;
    if (const auto match = pattern->Search(text, kSteps)) {
        RequireRange(match->whole, text);
        for (const auto& capture : match->captures) {
            if (capture) RequireRange(*capture, text);
        }
    }
    return 0;
}
