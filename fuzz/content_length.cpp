#include "plugins/http/content_length.h"

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const std::wstring text = TextOf({data, size});
    const auto length = ParseContentLength(text.c_str());
    Require(!length || *length != 0);
    Require(!length || text.find_first_of(L"123456789") != text.npos);
    return 0;
}
