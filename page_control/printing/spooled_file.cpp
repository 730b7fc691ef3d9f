#include "page_control/printing/spooled_file.h"

#include <winspool.h>

#include "tarvik/status.h"

namespace tarvik {

namespace {

struct PrinterTraits : PointerTraits<HANDLE> {
    static void Close(HANDLE printer) noexcept { ClosePrinter(printer); }
};
using UniquePrinter = Owner<PrinterTraits>;

void WriteAll(HANDLE printer, std::span<const BYTE> file) {
    while (!file.empty()) {
        DWORD written = 0;
        if (!WritePrinter(printer, const_cast<BYTE*>(file.data()), static_cast<DWORD>(file.size()), &written))
            ThrowLastError();
        if (written == 0) throw StatusError(HRESULT_FROM_WIN32(ERROR_PRINT_CANCELLED));
        file = file.subspan(written);
    }
}

}  // namespace

void SpoolFile(std::span<const BYTE> file, const std::wstring& title, const PrintSettings& settings,
               PrintProgress& progress) {
    UniquePrinter printer;
    std::wstring name = settings.printer;
    std::wstring document = title;
    wchar_t raw[] = L"RAW";
    DOC_INFO_1W info = {document.data(), nullptr, raw};
    if (!OpenPrinterW(name.data(), printer.Receive(), nullptr)) ThrowLastError();
    progress.total = settings.copies;
    for (int copy = 0; copy < settings.copies && !progress.cancelled; ++copy) {
        if (!StartDocPrinterW(printer.Get(), 1, reinterpret_cast<BYTE*>(&info))) ThrowLastError();
        WriteAll(printer.Get(), file);
        if (!EndDocPrinter(printer.Get())) ThrowLastError();
        ++progress.done;
    }
}

}  // namespace tarvik
