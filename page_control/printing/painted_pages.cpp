#include "page_control/printing/painted_pages.h"

#include <algorithm>
#include <cmath>

#include "tarvik/status.h"

namespace tarvik {

namespace {

// Fine enough for text; four times as many pixels make a page of 140 MB at the printer's usual 600.
constexpr int kMaxResolution = 300;

// A document on its way to a printer, which is dropped unless it is ended.
class PrinterDocument {
  public:
    PrinterDocument(HDC printer, const std::wstring& title) : printer_(printer) {
        DOCINFOW info = {};
        info.cbSize = sizeof info;
        info.lpszDocName = title.c_str();
        if (StartDocW(printer_, &info) <= 0) ThrowLastError();
    }
    ~PrinterDocument() {
        if (open_) AbortDoc(printer_);
    }
    PrinterDocument(const PrinterDocument&) = delete;
    PrinterDocument& operator=(const PrinterDocument&) = delete;

    void End() {
        open_ = false;
        if (EndDoc(printer_) <= 0) ThrowLastError();
    }

  private:
    HDC printer_;
    bool open_ = true;
};

struct Paper {
    explicit Paper(HDC printer)
        : resolution{GetDeviceCaps(printer, LOGPIXELSX), GetDeviceCaps(printer, LOGPIXELSY)},
          size{GetDeviceCaps(printer, PHYSICALWIDTH), GetDeviceCaps(printer, PHYSICALHEIGHT)},
          origin{GetDeviceCaps(printer, PHYSICALOFFSETX), GetDeviceCaps(printer, PHYSICALOFFSETY)} {
        if (resolution.cx <= 0 || resolution.cy <= 0) throw StatusError(E_FAIL);
    }

    // Where a page stands, from the origin of the area that can be printed.
    RECT Place(PagePictures::Size page) const {
        const double width = page.width * resolution.cx;
        const double height = page.height * resolution.cy;
        const double scale = std::min({1.0, size.cx / width, size.cy / height});
        const double left = (size.cx - width * scale) / 2 - origin.x;
        const double top = (size.cy - height * scale) / 2 - origin.y;
        return {std::lround(left), std::lround(top), std::lround(left + width * scale),
                std::lround(top + height * scale)};
    }

    SIZE resolution;  // pixels per inch
    SIZE size;        // of a sheet
    POINT origin;     // of the area that can be printed
};

void PaintPage(HDC printer, const Pixels& picture, const RECT& place) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.width;
    info.bmiHeader.biHeight = -picture.height;  // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    if (StartPage(printer) <= 0) ThrowLastError();
    SetStretchBltMode(printer, HALFTONE);
    const int rows = StretchDIBits(printer, place.left, place.top, place.right - place.left,
                                   place.bottom - place.top, 0, 0, picture.width, picture.height,
                                   picture.colors.data(), &info, DIB_RGB_COLORS, SRCCOPY);
    if (rows == 0 || rows == static_cast<int>(GDI_ERROR)) throw StatusError(E_FAIL);
    if (EndPage(printer) <= 0) ThrowLastError();
}

}  // namespace

void PaintPages(const PagePictures& pages, const std::wstring& title, const PrintSettings& settings,
                PrintProgress& progress) {
    const UniqueMemoryDc printer(
        CreateDCW(L"WINSPOOL", settings.printer.c_str(), nullptr, settings.DevMode()));
    if (!printer) ThrowLastError();
    const Paper paper(printer.Get());
    const double zoom = std::min(1.0, double{kMaxResolution} / paper.resolution.cx);
    const int rounds = settings.collate ? settings.copies : 1;
    const int repeats = settings.collate ? 1 : settings.copies;
    progress.total = pages.Count() * settings.copies;
    PrinterDocument document(printer.Get(), title);
    Pixels picture;
    for (int index = 0; index < rounds * pages.Count(); ++index) {
        const int page = index % pages.Count();
        const RECT place = paper.Place(pages.SizeOf(page));
        pages.Render(page, std::max<int>(std::lround((place.right - place.left) * zoom), 1),
                     std::max<int>(std::lround((place.bottom - place.top) * zoom), 1), picture);
        for (int repeat = 0; repeat < repeats; ++repeat) {
            if (progress.cancelled) return;
            PaintPage(printer.Get(), picture, place);
            ++progress.done;
        }
    }
    document.End();
}

}  // namespace tarvik
