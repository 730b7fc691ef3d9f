#include "page_control/printing/printer_dialog.h"

#include <cderr.h>
#include <commdlg.h>
#include <winspool.h>

#include <algorithm>

#include "tarvik/status.h"

namespace tarvik {

namespace {

struct GlobalTraits : PointerTraits<HGLOBAL> {
    static void Close(HGLOBAL memory) noexcept { GlobalFree(memory); }
};
using UniqueGlobal = Owner<GlobalTraits>;

bool HasPrinter() {
    constexpr DWORD kAll = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    DWORD size = 0;
    DWORD count = 0;
    EnumPrintersW(kAll, nullptr, 4, nullptr, 0, &size, &count);
    return size > 0;
}

std::vector<BYTE> BytesOf(HGLOBAL memory) {
    const auto* const bytes = static_cast<const BYTE*>(memory ? GlobalLock(memory) : nullptr);
    if (!bytes) return {};
    std::vector<BYTE> copy(bytes, bytes + GlobalSize(memory));
    GlobalUnlock(memory);
    return copy;
}

std::wstring NameOf(HGLOBAL memory) {
    const std::vector<BYTE> bytes = BytesOf(memory);
    if (bytes.size() < sizeof(DEVNAMES)) throw StatusError(E_FAIL);
    const auto* const names = reinterpret_cast<const DEVNAMES*>(bytes.data());
    return reinterpret_cast<const wchar_t*>(bytes.data()) + names->wDeviceOffset;
}

}  // namespace

// The older of the system's two dialogs, because Wine has no other.
PrinterChoice ChoosePrinter(HWND owner, PrintSettings& settings) {
    if (!HasPrinter()) return PrinterChoice::kNoPrinter;
    PRINTDLGW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PD_ALLPAGES | PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_NOWARNING;
    dialog.nFromPage = dialog.nToPage = dialog.nMinPage = 1;
    dialog.nMaxPage = 0xFFFF;
    dialog.nCopies = 1;
    const bool chosen = PrintDlgW(&dialog);
    const UniqueGlobal devMode(dialog.hDevMode);
    const UniqueGlobal devNames(dialog.hDevNames);
    if (!chosen) {
        const DWORD error = CommDlgExtendedError();
        if (error == 0) return PrinterChoice::kCancelled;
        if (error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES) return PrinterChoice::kNoPrinter;
        throw StatusError(E_FAIL);
    }
    settings.printer = NameOf(devNames.Get());
    settings.devMode = BytesOf(devMode.Get());
    // The program makes the copies, as it has asked the dialog, and so the driver makes none.
    settings.copies = std::max<int>(dialog.nCopies, 1);
    settings.collate = dialog.Flags & PD_COLLATE;
    if (!settings.devMode.empty()) reinterpret_cast<DEVMODEW*>(settings.devMode.data())->dmCopies = 1;
    if (dialog.Flags & PD_PAGENUMS) settings.range = std::minmax<int>(dialog.nFromPage, dialog.nToPage);
    return PrinterChoice::kChosen;
}

}  // namespace tarvik
