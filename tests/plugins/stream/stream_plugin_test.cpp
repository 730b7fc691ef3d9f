#include "plugins/stream/stream_plugin.h"

#include "script/object.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using namespace std::string_literals;

const std::string kInvalid = StatusText(E_INVALIDARG);

class Stream : public testing::Test {
  protected:
    template <class... Args>
    std::string Call(const wchar_t* name, Args&&... args) {
        return CallText(stream_.Get(), name, std::forward<Args>(args)...);
    }
    std::string Content() {
        const auto* const bytes = reinterpret_cast<const char*>(stream_->GetBuffer());
        return bytes ? std::string(bytes, stream_->GetSize()) : std::string();
    }
    uint64_t Position() {
        uint64_t position = 0;
        stream_->Seek(0, TVK::kFromCurrent, &position);
        return position;
    }
    void Fill(std::string_view bytes) {
        stream_->SetSize(0);
        stream_->Seek(0, TVK::kFromBegin, nullptr);
        stream_->Write(bytes.data(), static_cast<uint32_t>(bytes.size()), nullptr);
        stream_->Seek(0, TVK::kFromBegin, nullptr);
    }

    const ObjectCheck objectCheck_;
    const ComPtr<CStreamPlugin> stream_ = MakeCom<CStreamPlugin>();
};

TEST_F(Stream, WritesAndReadsNumbers) {
    EXPECT_EQ(Call(L"writeUInt8", 0x1FF), "BOOL true");
    EXPECT_EQ(Call(L"writeUInt16", L"258"), "BOOL true");
    EXPECT_EQ(Call(L"writeUInt32", 4278255360.0), "BOOL true");
    EXPECT_EQ(Call(L"writeUInt32", -2), "BOOL true");
    EXPECT_EQ(Call(L"writeUInt64", 1.0), "BOOL true");
    EXPECT_EQ(Content(), "\xFF\x02\x01\x00\xFF\x00\xFF\xFE\xFF\xFF\xFF\x00\x00\x00\x00\x00\x00\xF0\x3F"s);

    Call(L"seek", 1, 0);
    EXPECT_EQ(Call(L"readUInt16"), "UI2 258");
    EXPECT_EQ(Call(L"readUInt32"), "UI4 4278255360");
    Call(L"seek", 4, 1);
    EXPECT_EQ(Call(L"readUInt64"), "R8 " + std::to_string(4607182418800017408.0)) << "the bits of the double";

    // The stream ends within these numbers.
    Call(L"seek", 18, 0);
    for (const wchar_t* wider : {L"readUInt16", L"readUInt32", L"readUInt64"})
        EXPECT_EQ(Call(wider), "NULL");
    EXPECT_EQ(Call(L"readUInt8"), "UI1 63");
}

TEST_F(Stream, WritesAndReadsTextInThreeEncodings) {
    const struct {
        const wchar_t* encoding;
        const wchar_t* text;
        std::string bytes;
    } cases[] = {
        {L"UTF8", L"\u6F22\u5B57 \xD83D\xDE00", "\xE6\xBC\xA2\xE5\xAD\x97 \xF0\x9F\x98\x80"},
        {L"unicode", L"ab", "a\0b\0\0\0"s},
        {L"unicode", L"", "\0\0"s},
        {L"ansi", L"ab", "ab\0"s},
    };
    for (const auto& c : cases) {
        Fill("");
        EXPECT_EQ(Call(L"writeString", c.text, c.encoding), "UI4 " + std::to_string(c.bytes.size()));
        EXPECT_EQ(Content(), c.bytes);
        Call(L"seek", 0, 0);
        EXPECT_EQ(Call(L"readString", c.encoding), "BSTR " + Narrow(c.text));
    }
    EXPECT_EQ(Call(L"writeString", L"", L"utf8"), "I4 0");
    EXPECT_EQ(Call(L"writeString", L"default"), "UI4 7");
}

TEST_F(Stream, ReadsTextWithoutTrailingNuls) {
    const struct {
        std::string bytes;
        const wchar_t* encoding;
        int length;
        std::string text;
        uint64_t position;
    } cases[] = {
        {"ab\0"s, L"ansi", -1, "BSTR ab", 2},
        {"a\0b\0\0"s, L"utf8", -1, "BSTR a\0b"s, 3},
        {"abcdef", L"utf8", 3, "BSTR abc", 3},
        {"abc", L"utf8", -2, "BSTR ", 0},
        {"\0\0\0"s, L"utf8", -1, "BSTR ", 0},
        {"a\0b\0\0\0"s, L"unicode", -1, "BSTR ab", 4},
        {"a\0b\0c"s, L"unicode", -1, "BSTR ab", 5},
        {"a", L"unicode", -1, "BSTR ", 1},
        {"", L"utf8", -1, "NULL", 0},
    };
    for (const auto& c : cases) {
        Fill(c.bytes);
        EXPECT_EQ(Call(L"readString", c.encoding, c.length), c.text) << testing::PrintToString(c.bytes);
        EXPECT_EQ(Position(), c.position) << testing::PrintToString(c.bytes);
    }
    Fill("x\x22\x6F"s);
    Call(L"seek", 1, 0);
    EXPECT_EQ(Call(L"readString", L"unicode"), "BSTR \xE6\xBC\xA2") << "at an odd address";
}

TEST_F(Stream, FillsGapsWithZerosEvenOverOldContent) {
    Fill("0123456789");
    EXPECT_EQ(Call(L"setSize", 4), "BOOL true");
    EXPECT_EQ(Call(L"setSize", 6), "BOOL true");
    EXPECT_EQ(Content(), "0123\0\0"s);
    EXPECT_EQ(Call(L"seek", 2, 2), "R8 8.000000");
    for (const wchar_t* read : {L"readUInt8", L"readString"})
        EXPECT_EQ(Call(read), "NULL") << "beyond the end";
    EXPECT_EQ(Call(L"fill", 1), "I4 0");
    EXPECT_EQ(Call(L"writeUInt8", 'x'), "BOOL true");
    EXPECT_EQ(Content(), "0123\0\0\0\0x"s);
    Call(L"seek", 30'000'000, 0);
    EXPECT_EQ(Call(L"writeUInt8", 'y'), "BOOL true");
    EXPECT_EQ(Content().substr(0, 10), "0123\0\0\0\0x\0"s) << "even if the block has moved";
}

TEST_F(Stream, FillDoesNotGrowIt) {
    Fill("abcd");
    EXPECT_EQ(Call(L"fill", 255, 2), "I4 2");
    EXPECT_EQ(Call(L"fill", -1, 9), "I4 2") << "a negative value stores its low byte";
    EXPECT_EQ(Content(), "\xFF\xFF\xFF\xFF");
    Call(L"seek", 1, 0);
    EXPECT_EQ(Call(L"fill", 7), "I4 3");
    EXPECT_EQ(Content(), "\xFF\a\a\a");
    EXPECT_EQ(Position(), 4u);
}

TEST_F(Stream, CopyToKeepsItsPosition) {
    const auto target = MakeCom<CStreamPlugin>();
    Fill("abcdef");
    Call(L"seek", 2, 0);
    EXPECT_EQ(Call(L"copyTo", target, 1), "UI4 1");
    EXPECT_EQ(Call(L"copyTo", target, 1000), "UI4 4");
    EXPECT_EQ(Call(L"copyTo", target), "UI4 4");
    EXPECT_EQ(Position(), 2u);
    target->Seek(0, TVK::kFromBegin, nullptr);
    EXPECT_EQ(CallText(target.Get(), L"readString"), "BSTR ccdefcdef");

    EXPECT_EQ(Call(L"copyTo", stream_), "UI4 4") << "onto itself";
    EXPECT_EQ(Content(), "abcdef");
    EXPECT_EQ(Position(), 6u);
    Call(L"seek", 1'000'000'000'000.0, 0);
    EXPECT_EQ(Call(L"copyTo", target), "UI4 0");

    EXPECT_EQ(Call(L"copyTo", MakeCom<CObject>()), StatusText(E_NOINTERFACE));
    EXPECT_EQ(Call(L"copyTo", Variant::Object(nullptr)), kInvalid);
}

TEST_F(Stream, IsUnchangedByInvalidArguments) {
    Fill("abc");
    Call(L"seek", 1, 0);
    EXPECT_EQ(Call(L"copyTo", stream_, 0), kInvalid);
    EXPECT_EQ(Call(L"seek", 0, 3), kInvalid);
    EXPECT_EQ(Call(L"seek", -1, 0), kInvalid);
    EXPECT_EQ(Call(L"setSize", -1), kInvalid);
    EXPECT_EQ(Call(L"readString", L"utf-8"), kInvalid);
    EXPECT_EQ(Call(L"writeString", L"text", L"latin"), kInvalid);
    EXPECT_EQ(Call(L"fill", 256), kInvalid);
    EXPECT_EQ(Position(), 1u);
    EXPECT_EQ(Content(), "abc");
}

TEST_F(Stream, IsUnchangedIfMemoryIsShort) {
    Fill("abc");
    EXPECT_EQ(Call(L"setSize", 1e15), "BOOL false");
    for (const double distance : {1e15, 9.2e18, 1.8e19}) {
        Call(L"seek", distance, 0);
        EXPECT_EQ(Call(L"writeUInt8", 1), "BOOL false");
        EXPECT_EQ(Call(L"writeString", L"x"), StatusText(E_OUTOFMEMORY));
    }
    stream_->Seek(UINT64_MAX, TVK::kFromBegin, nullptr);
    EXPECT_EQ(Call(L"writeUInt32", 1), "BOOL false") << "past 64 bits";
    EXPECT_EQ(Position(), UINT64_MAX);
    EXPECT_EQ(Content(), "abc");
}

}  // namespace
}  // namespace tarvik
