#include "page_control/clipboard/system_clipboard.h"

#include <cstring>

#include "page_control/clipboard/bitmap_file.h"
#include "page_control/clipboard/html_format.h"
#include "page_control/encoding/picture_codec.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

UINT HtmlFormat() {
    static const UINT format = RegisterClipboardFormatW(L"HTML Format");
    return format;
}

UINT PngFormat() {
    static const UINT format = RegisterClipboardFormatW(L"PNG");
    return format;
}

// Empty if the open clipboard lacks the format. The memory may be larger than what was put there.
std::vector<BYTE> Data(UINT format) {
    const HANDLE memory = GetClipboardData(format);
    const void* const bytes = memory ? GlobalLock(memory) : nullptr;
    if (!bytes) return {};
    const auto* const first = static_cast<const BYTE*>(bytes);
    std::vector<BYTE> data(first, first + GlobalSize(memory));
    GlobalUnlock(memory);
    return data;
}

bool SetData(UINT format, const void* bytes, size_t size) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (!memory) return false;
    std::memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
    // On success the clipboard owns the memory.
    const bool set = SetClipboardData(format, memory) != nullptr;
    if (!set) GlobalFree(memory);
    return set;
}

std::string Text() {
    const std::vector<BYTE> data = Data(CF_UNICODETEXT);
    std::wstring text(data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
    // The terminator may be missing.
    return Narrow(text.c_str());
}

std::string Html() {
    const std::vector<BYTE> data = Data(HtmlFormat());
    return FromHtmlFormat({reinterpret_cast<const char*>(data.data()), data.size()});
}

std::wstring WithSystemLineEnds(std::string_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) result += '\r';
        result += text[i];
    }
    return Widen(result);
}

std::vector<BYTE> PngOfBitmap(const std::vector<BYTE>& bitmap) {
    std::vector<BYTE> png;
    const std::vector<BYTE> file = BitmapFileOf(bitmap);
    (void)Guard([&] {
        if (file.empty()) return;
        const PictureCodec codec;
        Pixels pixels;
        codec.Decode(file, GUID_WICPixelFormat32bppBGRA, pixels);
        png = codec.EncodePng(pixels);
    });
    return png;
}

// On white, because most programs ignore the alpha channel of a CF_DIB. Bottom row first.
std::vector<BYTE> BitmapOfPng(const std::vector<BYTE>& png) {
    Pixels pixels;
    PictureCodec().Decode(png, GUID_WICPixelFormat32bppPBGRA, pixels);
    BITMAPINFOHEADER header = {sizeof header};
    header.biWidth = pixels.width;
    header.biHeight = pixels.height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    std::vector<BYTE> bitmap(sizeof header + pixels.colors.size() * 4);
    std::memcpy(bitmap.data(), &header, sizeof header);
    auto* row = bitmap.data() + bitmap.size();
    const auto width = static_cast<size_t>(pixels.width);
    for (size_t i = 0; i < pixels.colors.size(); ++i) {
        if (i % width == 0) row -= width * 4;
        // Premultiplied channels are at most alpha, so that none overflows.
        const std::uint32_t rest = 255 - (pixels.colors[i] >> 24);
        const std::uint32_t color = pixels.colors[i] + rest * 0x01010101u;
        std::memcpy(row + i % width * 4, &color, 4);
    }
    return bitmap;
}

}  // namespace

std::optional<SystemClipboardState> ReadSystemClipboard(HWND owner) {
    const OpenedClipboard clipboard(owner);
    if (!clipboard) return std::nullopt;
    SystemClipboardState state;
    state.content = {Text(), Html(), Data(PngFormat())};
    if (state.content.png.empty()) state.content.png = PngOfBitmap(Data(CF_DIB));
    // After the data, whose owner may have provided it only now.
    state.sequence = GetClipboardSequenceNumber();
    return state;
}

bool WriteSystemClipboard(HWND owner, const ClipboardContent& content) {
    const OpenedClipboard clipboard(owner);
    if (!clipboard || !EmptyClipboard()) return false;
    bool set = true;
    if (!content.text.empty()) {
        const std::wstring text = WithSystemLineEnds(content.text);
        set &= SetData(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    if (!content.html.empty()) {
        const std::string html = ToHtmlFormat(content.html);
        set &= SetData(HtmlFormat(), html.c_str(), html.size() + 1);
    }
    if (!content.png.empty()) {
        set &= SetData(PngFormat(), content.png.data(), content.png.size());
        std::vector<BYTE> bitmap;
        (void)Guard([&] { bitmap = BitmapOfPng(content.png); });
        if (!bitmap.empty()) set &= SetData(CF_DIB, bitmap.data(), bitmap.size());
    }
    return set;
}

bool SystemClipboardHasContent() {
    for (const UINT format : {UINT{CF_UNICODETEXT}, HtmlFormat(), PngFormat(), UINT{CF_DIB}}) {
        if (IsClipboardFormatAvailable(format)) return true;
    }
    return false;
}

}  // namespace tarvik
