#include "page_control/dialogs/pdf_print.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/write_file.h"
#include "page_control/dialogs/file_dialog.h"
#include "page_control/dialogs/save_file.h"
#include "page_control/encoding/base64.h"
#include "tarvik/owners.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr size_t kMaxName = 100;

std::wstring PdfNameOf(const std::wstring& title) {
    std::wstring name = title.substr(0, kMaxName);
    std::ranges::replace_if(
        name, [](wchar_t unit) { return unit < L' ' || wcschr(L"\\/:*?\"<>|", unit); }, L'_');
    return (name.empty() ? L"page" : name) + L".pdf";
}

void Write(const std::wstring& path, const std::vector<BYTE>& bytes) {
    const UniqueHandle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) ThrowLastError();
    WriteAll(file.Get(), bytes.data(), bytes.size());
}

}  // namespace

void PdfPrint::Start(const std::wstring& title) {
    if (std::exchange(busy_, true)) return;
    target_.Post("Page.printToPDF", {{"preferCSSPageSize", true}},
                 [this, alive = std::weak_ptr(alive_), title](const Json* result) {
                     if (alive.expired()) return;
                     busy_ = result != nullptr;
                     if (!result) return;
                     queue_.Add([this, alive, title, pdf = result->at("data")] {
                         if (!alive.expired()) Save(title, pdf);
                     });
                 });
}

// The page, and this with it, may be closed while a dialog is open.
void PdfPrint::Save(const std::wstring& title, const std::string& base64) {
    const std::weak_ptr<bool> alive = alive_;
    const HWND owner = GetAncestor(window_, GA_ROOT);
    const HRESULT status = Guard([&] {
        const auto places = ChooseFiles(owner, {FileDialog::Purpose::kSaveFile, PdfNameOf(title), L"*.pdf"});
        std::vector<BYTE> pdf;
        if (places.empty()) return;
        if (!DecodeBase64(base64, pdf)) throw StatusError(E_FAIL);
        SaveFile(places.front(), [&](const std::wstring& part) { Write(part, pdf); });
    });
    if (FAILED(status) && IsWindow(owner))
        MessageBoxW(owner, L"The page could not be printed.", L"Print", MB_OK | MB_ICONWARNING);
    if (!alive.expired()) busy_ = false;
}

}  // namespace tarvik
