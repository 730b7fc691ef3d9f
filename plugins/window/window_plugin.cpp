#include "plugins/window/window_plugin.h"

#include "app/log/log.h"
#include "plugins/window/message_box.h"
#include "plugins/window/select_file.h"
#include "plugins/window/select_folder.h"

namespace tarvik {

namespace {

constexpr Member<CWindowPlugin> kMembers[] = {
    Method<&CWindowPlugin::Show>(-10000, L"show"),
    Method<&CWindowPlugin::Close>(-9999, L"close"),
    Method<&CWindowPlugin::Quit>(-9998, L"quit"),
    RawMethod<&CWindowPlugin::SelectFile, 0, 1>(-9992, L"selectFile"),
    RawMethod<&CWindowPlugin::SelectFolder, 0, 1>(-9991, L"selectFolder"),
    Method<&CWindowPlugin::MessageBox>(-9988, L"messageBox"),
    Method<&CWindowPlugin::IsVisible>(-9987, L"isVisible"),
    Property<&CWindowPlugin::GetWidth, &CWindowPlugin::SetWidth>(-9984, L"width"),
    Property<&CWindowPlugin::GetHeight, &CWindowPlugin::SetHeight>(-9983, L"height"),
    Property<&CWindowPlugin::GetTitle, &CWindowPlugin::SetTitle>(-9978, L"title"),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CWindowPlugin>(L"window", TVK::kRetainedPlugin);

constexpr int kTitleLength = 1000;  // with the terminator; a longer title is cut

// Nobody is asked where there is no place for the answer. While a dialog is open, and if it fails, the answer
// is null.
template <class Ask>
HRESULT AnswerByDialog(const Call& call, const char* label, Ask&& ask) {
    IDispatch* options = nullptr;
    if (call.Count() > 0 && !Read(call.At(0), options)) return E_INVALIDARG;
    if (!call.Result()) {
        TARVIK_ERROR(label, L"pResult is NULL.");
        return S_OK;
    }
    Give(call.Result(), Variant::Null());
    return Give(call.Result(), ask(Options(options)));
}

}  // namespace

std::span<const Member<CWindowPlugin>> CWindowPlugin::Members() {
    return kMembers;
}

STDMETHODIMP CWindowPlugin::Initialize(TVK::ICore* core, IUnknown* browser) {
    const HRESULT status = WindowPlugin::Initialize(core, browser);
    if (status == S_OK) window_ = Core()->GetWindowHandle();
    return status;
}

bool CWindowPlugin::Show(bool visible) {
    ShowWindow(window_, visible ? SW_SHOWNORMAL : SW_HIDE);
    if (visible) SetForegroundWindow(window_);
    return true;
}

bool CWindowPlugin::Close() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    return true;
}

HRESULT CWindowPlugin::Quit(std::optional<ExactInt> code) {
    PostQuitMessage(code ? code->value : 0);
    return S_OK;
}

HRESULT CWindowPlugin::SelectFile(const Call& call) {
    return AnswerByDialog(call, "CWindowPlugin::SelectFile", [this](const Options& options) {
        return AskForFile(window_, Core(), Browser(), options);
    });
}

HRESULT CWindowPlugin::SelectFolder(const Call& call) {
    return AnswerByDialog(call, "CWindowPlugin::SelectFolder",
                          [this](const Options& options) { return AskForFolder(window_, Core(), options); });
}

bool CWindowPlugin::MessageBox(IDispatch* options) {
    return options && ShowMessageBox(window_, Options(options));
}

bool CWindowPlugin::IsVisible() {
    return IsWindowVisible(window_) != FALSE;
}

RECT CWindowPlugin::Rectangle() const {
    RECT rect = {};
    GetWindowRect(window_, &rect);
    return rect;
}

bool CWindowPlugin::Resize(LONG width, LONG height) {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    return true;
}

Integer CWindowPlugin::GetWidth() {
    const RECT rect = Rectangle();
    return {rect.right - rect.left};
}

bool CWindowPlugin::SetWidth(LooseInt width) {
    if (width.value == 0) throw StatusError(E_INVALIDARG);
    return Resize(width.value, GetHeight().value);
}

Integer CWindowPlugin::GetHeight() {
    const RECT rect = Rectangle();
    return {rect.bottom - rect.top};
}

bool CWindowPlugin::SetHeight(LooseInt height) {
    if (height.value == 0) throw StatusError(E_INVALIDARG);
    return Resize(GetWidth().value, height.value);
}

Bstr CWindowPlugin::GetTitle() {
    wchar_t title[kTitleLength] = {};
    GetWindowTextW(window_, title, kTitleLength);
    return Bstr(title);
}

HRESULT CWindowPlugin::SetTitle(BSTR title) {
    SetWindowTextW(window_, title);
    return S_OK;
}

}  // namespace tarvik
