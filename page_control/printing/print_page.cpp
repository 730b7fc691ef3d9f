#include "page_control/printing/print_page.h"

#include <algorithm>
#include <vector>

#include "base/write_file.h"
#include "page_control/dialogs/file_dialog.h"
#include "page_control/dialogs/save_file.h"
#include "page_control/encoding/base64.h"
#include "page_control/printing/print_task.h"
#include "page_control/printing/printer_dialog.h"
#include "page_control/printing/progress_dialog.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr size_t kMaxName = 100;
constexpr const wchar_t* kCaption = L"Print";

std::wstring PdfNameOf(const std::wstring& title) {
    std::wstring name = title.substr(0, kMaxName);
    std::ranges::replace_if(
        name, [](wchar_t unit) { return unit < L' ' || wcschr(L"\\/:*?\"<>|", unit); }, L'_');
    return (name.empty() ? L"page" : name) + L".pdf";
}

struct Sheet {  // in inches
    double width = 8.5;
    double height = 11;
};

// The sheet as it lies in the printer, upright or not.
Sheet SheetOf(const PrintSettings& settings) {
    const UniqueMemoryDc printer(
        CreateICW(L"WINSPOOL", settings.printer.c_str(), nullptr, settings.DevMode()));
    const auto inches = [&](int size, int resolution) {
        return static_cast<double>(GetDeviceCaps(printer.Get(), size)) /
               std::max(GetDeviceCaps(printer.Get(), resolution), 1);
    };
    const Sheet sheet = {inches(PHYSICALWIDTH, LOGPIXELSX), inches(PHYSICALHEIGHT, LOGPIXELSY)};
    return sheet.width > 0 && sheet.height > 0 ? sheet : Sheet();
}

// The tags that describe a file's structure are of no use on paper, and take half of the time.
Parameters ParametersFor(const PrintSettings& settings) {
    const bool isPaper = !settings.printer.empty();
    const Sheet sheet = isPaper ? SheetOf(settings) : Sheet();
    std::string range;
    if (settings.range)
        range = std::to_string(settings.range->first) + "-" + std::to_string(settings.range->second);
    return {{"preferCSSPageSize", true},
            {"generateTaggedPDF", !isPaper},
            {"pageRanges", range},
            {"paperWidth", sheet.width},
            {"paperHeight", sheet.height}};
}

// A target that may be destroyed meanwhile.
struct EnginePage {
    std::shared_ptr<DevTools> engine;
    std::string session;
};

// The engine's reply, which may arrive after the user has cancelled.
struct Reply {
    bool arrived = false;
    bool failed = false;
    std::string base64;
};

// Empty if the user cancels.
std::vector<BYTE> MakePdf(HWND owner, const EnginePage& page, const PrintSettings& settings) {
    const auto reply = std::make_shared<Reply>();
    const auto onReply = [reply](const Json* result) {
        reply->arrived = true;
        reply->failed = !result;
        if (result) reply->base64 = result->at("data").get<std::string>();
    };
    page.engine->Post(page.session, "Page.printToPDF", ParametersFor(settings), onReply);
    const bool done = ShowProgress(owner, kCaption, [&]() -> std::optional<std::wstring> {
        if (reply->arrived) return std::nullopt;
        return L"Preparing the page ...";
    });
    std::vector<BYTE> pdf;
    if (!done) return pdf;
    if (reply->failed || !DecodeBase64(reply->base64, pdf) || pdf.empty()) throw StatusError(E_FAIL);
    return pdf;
}

void SavePdf(HWND owner, const std::vector<BYTE>& pdf, const std::wstring& title) {
    const auto places = ChooseFiles(owner, {FileDialog::Purpose::kSaveFile, PdfNameOf(title), L"*.pdf"});
    if (places.empty()) return;
    SaveFile(places.front(), [&](const std::wstring& part) {
        const UniqueHandle file(CreateFileW(part.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) ThrowLastError();
        WriteAll(file.Get(), pdf.data(), pdf.size());
    });
}

void SendToPrinter(HWND owner, std::vector<BYTE> pdf, const std::wstring& title,
                   const PrintSettings& settings) {
    const PrintTask task(std::move(pdf), title, settings);
    const bool done = ShowProgress(owner, kCaption, [&]() -> std::optional<std::wstring> {
        if (task.IsOver()) return std::nullopt;
        const PrintProgress& progress = task.Progress();
        wchar_t text[64] = {};
        wsprintfW(text, L"Printing %d of %d ...", progress.done + 1, std::max<int>(progress.total, 1));
        return text;
    });
    if (done) ThrowIfFailed(task.Status());
}

// `failure` says what has failed if this throws.
void Print(HWND owner, const EnginePage& page, const std::wstring& title, const wchar_t*& failure) {
    PrintSettings settings;
    failure = L"The print dialog could not be opened.";
    const PrinterChoice choice = ChoosePrinter(owner, settings);
    if (choice == PrinterChoice::kCancelled) return;
    failure = settings.range ? L"The page could not be printed. It may have fewer pages than you have chosen."
                             : L"The page could not be printed.";
    std::vector<BYTE> pdf = MakePdf(owner, page, settings);
    if (pdf.empty()) return;
    failure = L"The page could not be saved.";
    if (choice == PrinterChoice::kNoPrinter) return SavePdf(owner, pdf, title);
    failure = L"The printer has not taken the page.";
    SendToPrinter(owner, std::move(pdf), title, settings);
}

}  // namespace

void PrintPage(HWND owner, const PageTarget& target, const std::wstring& title) {
    const EnginePage page = {target.EnginePointer(), target.Session()};
    const wchar_t* failure = nullptr;
    const HRESULT status = Guard([&] { Print(owner, page, title, failure); });
    if (FAILED(status) && IsWindow(owner)) MessageBoxW(owner, failure, kCaption, MB_OK | MB_ICONWARNING);
}

}  // namespace tarvik
