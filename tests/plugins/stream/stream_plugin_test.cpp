#include "plugins/stream/stream_plugin.h"

#include <gtest/gtest.h>

#include "tests/support/leak_check.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/script_bench.h"
#include "tests/support/status_text.h"

namespace tarvik {
namespace {

class Stream : public testing::Test {
  protected:
    template <class... Args>
    Outgoing Do(const wchar_t* name, Args&&... args) {
        return CallMember(stream_.Get(), name, std::forward<Args>(args)...);
    }
    template <class... Args>
    std::string Value(const wchar_t* name, Args&&... args) {
        const Outgoing out = Do(name, std::forward<Args>(args)...);
        return out.status == S_OK ? ValueText(out.value) : StatusText(out.status);
    }

    const ObjectCheck noneIsLeft_;
    ComPtr<CStreamPlugin> stream_ = MakeCom<CStreamPlugin>();
};

TEST_F(Stream, WritesAndReadsNumbers) {
    EXPECT_EQ(Value(L"writeUInt8", 0x101), "BOOL true");
    EXPECT_EQ(Value(L"writeUInt16", -1), "BOOL true");
    EXPECT_EQ(Value(L"writeUInt32", 4294967295.0), "BOOL true");
    EXPECT_EQ(Value(L"getSize"), "UI8 7");
    EXPECT_EQ(Value(L"seek", 0, 0), "R8 0.000000");
    EXPECT_EQ(Value(L"readUInt8"), "UI1 1");
    EXPECT_EQ(Value(L"readUInt16"), "UI2 65535");
    EXPECT_EQ(Value(L"readUInt32"), "UI4 4294967295");
    EXPECT_EQ(Value(L"readUInt8"), "NULL");
}

}  // namespace
}  // namespace tarvik
