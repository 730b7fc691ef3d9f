#include "page_control/clipboard/system_clipboard.h"

#include <cstring>

#include "page_control/encoding/picture_codec.h"
#include "tests/support/clipboard.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

std::string Bytes(const auto& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

// A CF_DIB with a header of 40 bytes, and what follows it.
std::string Bitmap(int width, int height, WORD depth, DWORD compression, const std::string& rest) {
    BITMAPINFOHEADER header = {40};
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = depth;
    header.biCompression = compression;
    return Bytes(header) + rest;
}

class SystemClipboard : public testing::Test {
  protected:
    void SetUp() override { ThrowIfFailed(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    void TearDown() override { CoUninitialize(); }

    // The pixels of the picture, which is put there as CF_DIB.
    static std::vector<std::uint32_t> ReadBitmap(const std::string& bitmap) {
        PutOnClipboard({{CF_DIB, bitmap}});
        const auto state = ReadSystemClipboard(nullptr);
        Pixels pixels;
        if (state && !state->content.png.empty())
            PictureCodec().Decode(state->content.png, GUID_WICPixelFormat32bppBGRA, pixels);
        return pixels.colors;
    }
};

TEST_F(SystemClipboard, HoldsWhatWasWritten) {
    const Pixels pixels = {2, 2, {0xFF102030, 0x00FFFFFF, 0x80FF0000, 0xFF00FF00}};
    const ClipboardContent content = {"\xC3\xBC\r\n", "<b>\xC3\xBC</b>", PictureCodec().EncodePng(pixels)};
    ASSERT_TRUE(WriteSystemClipboard(nullptr, {"a\nb\r\nc\n", "", {}}));
    EXPECT_EQ(ClipboardText(), L"a\r\nb\r\nc\r\n");
    ASSERT_TRUE(WriteSystemClipboard(nullptr, content));
    const auto state = ReadSystemClipboard(nullptr);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->content.text, content.text);
    EXPECT_EQ(state->content.html, "<html>\r\n<body>" + content.html);
    EXPECT_EQ(state->content.png, content.png);
    EXPECT_EQ(state->sequence, GetClipboardSequenceNumber());
    // Other programs see it on white, the bottom row first.
    const std::string bitmap = ClipboardBytes(CF_DIB);
    ASSERT_EQ(bitmap.size(), 56u);
    std::uint32_t colors[4] = {};
    std::memcpy(colors, bitmap.data() + 40, sizeof colors);
    EXPECT_THAT(colors, ElementsAre(0xFFFF7F7F, 0xFF00FF00, 0xFF102030, 0xFFFFFFFF));
    ASSERT_TRUE(WriteSystemClipboard(nullptr, {}));
    EXPECT_FALSE(SystemClipboardHasContent());
}

TEST_F(SystemClipboard, ReadsBitmapsOfEveryDepth) {
    const std::uint32_t kRed = 0xFFFF0000, kBlue = 0xFF0000FF;
    EXPECT_THAT(ReadBitmap(Bitmap(1, 2, 24, BI_RGB, {"\xFF\0\0\0\0\0\xFF\0", 8})), ElementsAre(kRed, kBlue));
    EXPECT_THAT(ReadBitmap(Bitmap(2, 1, 32, BI_RGB, {"\0\0\xFF\0\xFF\0\0\0", 8})), ElementsAre(kRed, kBlue));
    EXPECT_THAT(ReadBitmap(Bitmap(2, 1, 1, BI_RGB, {"\0\0\xFF\0\xFF\0\0\0\x40\0\0\0", 12})),
                ElementsAre(kRed, kBlue));
    const std::string masks("\0\xF8\0\0\xE0\x07\0\0\x1F\0\0\0", 12);
    EXPECT_THAT(ReadBitmap(Bitmap(2, 1, 16, BI_BITFIELDS, masks + std::string("\0\xF8\x1F\0", 4))),
                ElementsAre(kRed, kBlue));
    EXPECT_THAT(ReadBitmap(Bitmap(2, 1, 8, BI_RGB, "")), IsEmpty());
    EXPECT_THAT(ReadBitmap(Bitmap(30000, 30000, 24, BI_RGB, "")), IsEmpty());
}

}  // namespace
}  // namespace tarvik
