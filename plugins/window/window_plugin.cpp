#include "plugins/window/window_plugin.h"

#include <algorithm>

#include "app/log/log.h"
#include "atl/server_window.h"
#include "base/module_function.h"
#include "host/plugin_registry/window_numbers.h"
#include "plugins/window/message_box.h"
#include "plugins/window/select_file.h"
#include "plugins/window/select_folder.h"
#include "plugins/window/taskbar_progress.h"

namespace tarvik {

namespace {

constexpr Member<CWindowPlugin> kMembers[] = {
    Method<&CWindowPlugin::Show>(L"show", -10000),
    Method<&CWindowPlugin::Close>(L"close", -9999),
    Method<&CWindowPlugin::Quit>(L"quit", -9998),
    Method<&CWindowPlugin::Minimize>(L"minimize", -9997),
    Method<&CWindowPlugin::CenterWindow>(L"centerWindow", -9996),
    Method<&CWindowPlugin::SetTaskbarProgress>(L"setTaskbarProgress", -9995),
    Method<&CWindowPlugin::SetTaskbarProgressState>(L"setTaskbarProgressState", -9994),
    Method<&CWindowPlugin::IsSupportTaskbarProgress>(L"isSupportTaskbarProgress", -9993),
    RawMethod<&CWindowPlugin::SelectFile, 0, 1>(L"selectFile", -9992),
    RawMethod<&CWindowPlugin::SelectFolder, 0, 1>(L"selectFolder", -9991),
    Method<&CWindowPlugin::IsUniqueWindow>(L"isUniqueWindow", -9990),
    Method<&CWindowPlugin::ShowExistedWindow>(L"showExistedWindow", -9989),
    Method<&CWindowPlugin::MessageBox>(L"messageBox", -9988),
    Method<&CWindowPlugin::IsVisible>(L"isVisible", -9987),
    Method<&CWindowPlugin::IsForeWindow>(L"isForeWindow", -9986),
    Method<&CWindowPlugin::SetPosition>(L"setWindowPos", -9985),

    Property<&CWindowPlugin::GetWidth, &CWindowPlugin::SetWidth>(L"width", -9984),
    Property<&CWindowPlugin::GetHeight, &CWindowPlugin::SetHeight>(L"height", -9983),
    Property<&CWindowPlugin::GetLeft, &CWindowPlugin::SetLeft>(L"left", -9982),
    Property<&CWindowPlugin::GetTop, &CWindowPlugin::SetTop>(L"top", -9981),
    ReadOnly<&CWindowPlugin::GetWorkAreaWidth>(L"workAreaWidth", -9980),
    ReadOnly<&CWindowPlugin::GetWorkAreaHeight>(L"workAreaHeight", -9979),
    Property<&CWindowPlugin::GetTitle, &CWindowPlugin::SetTitle>(L"title", -9978),
    WriteOnly<&CWindowPlugin::SetStyle<WS_MINIMIZEBOX>>(L"minimizeBox", -9977),
    WriteOnly<&CWindowPlugin::SetStyle<WS_MAXIMIZEBOX>>(L"maximizeBox", -9976),
    WriteOnly<&CWindowPlugin::SetStyle<WS_SYSMENU>>(L"sysMenu", -9975),
    WriteOnly<&CWindowPlugin::SetCaption>(L"caption", -9974),
    WriteOnly<&CWindowPlugin::SetTopMost>(L"topMost", -9973),
    WriteOnly<&CWindowPlugin::SetLimit<&TrackLimits::minWidth>>(L"minWidth", -9972),
    WriteOnly<&CWindowPlugin::SetLimit<&TrackLimits::minHeight>>(L"minHeight", -9971),
    WriteOnly<&CWindowPlugin::SetLimit<&TrackLimits::maxWidth>>(L"maxWidth", -9970),
    WriteOnly<&CWindowPlugin::SetLimit<&TrackLimits::maxHeight>>(L"maxHeight", -9969),
    WriteOnly<&CWindowPlugin::SetResizable>(L"resize", -9968),
    WriteOnly<&CWindowPlugin::ShapeImage>(L"shapeImage", -9967),
    Property<&CWindowPlugin::GetMenu, &CWindowPlugin::SetMenu>(L"menu", -9966),
    ReadOnly<&CWindowPlugin::GetMsg>(L"msg", -9965),

    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kClosed>>(L"onClosed", -9964),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kClose>>(L"onClose", -9963),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kMinimize>>(L"onMinimize", -9962),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kMaximize>>(L"onMaximize", -9961),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kRestore>>(L"onRestore", -9960),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kActivate>>(L"onActivate", -9959),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kInactivate>>(L"onInactivate", -9958),
    WriteOnly<&CWindowPlugin::SetCallback<WindowEvent::kShutdown>>(L"onShutdown", -9957),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CWindowPlugin>(L"window", TVK::kRetainedPlugin);

constexpr int kTitleLength = 1000;  // with the terminator; longer titles are truncated

// Lets processes of lower integrity send these messages. Older versions of Windows do not filter messages.
void AllowMessagesOfOtherProcesses() {
    using ChangeFilter = BOOL WINAPI(UINT, DWORD);
    auto* const change = FindFunction<ChangeFilter>(L"user32.dll", "ChangeWindowMessageFilter");
    for (const UINT message : {kShowMessage, kBusMessage}) {
        if (change) change(message, MSGFLT_ADD);
    }
}

RECT WorkArea() {
    RECT area = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

// Opens no dialog if the caller takes no result. The result is null while the dialog is open, and if it
// fails.
template <class ShowDialog>
HRESULT ReturnDialogResult(const Call& call, const char* label, ShowDialog&& showDialog) {
    IDispatch* options = nullptr;
    if (call.Count() > 0 && !FromVariant(call.At(0), options)) return E_INVALIDARG;
    if (!call.Result()) {
        TARVIK_ERROR(label, L"pResult is NULL.");
        return S_OK;
    }
    SetResult(call.Result(), Variant::Null());
    return SetResult(call.Result(), showDialog(options));
}

}  // namespace

std::span<const Member<CWindowPlugin>> CWindowPlugin::Members() {
    return kMembers;
}

// Scripts may keep the message object alive longer than the window.
CWindowPlugin::~CWindowPlugin() {
    if (msg_) msg_->Detach();
}

STDMETHODIMP CWindowPlugin::Initialize(TVK::ICore* core, IUnknown* browser) {
    if (!core || !browser) return E_INVALIDARG;
    if (core_) return S_OK;
    core_ = core;
    window_ = core->GetWindowHandle();
    frame_.SetWindow(window_);
    taskbar_ = CreateTaskbarList();
    browser_ = Query<IWebBrowser2>(browser);
    if (!browser_) {
        LogNoBrowser(kClassName);
        return E_INVALIDARG;
    }
    main_.SubclassWindow(window_, AsUnknown());
    AllowMessagesOfOtherProcesses();
    return S_OK;
}

STDMETHODIMP CWindowPlugin::OnDocumentComplete(void*) {
    return Guard([&]() -> HRESULT {
        if (!server_.Window()) {
            if (const HWND server = GetIEServerWnd(window_)) server_.Attach(server, window_, AsUnknown());
        }
        if (!browser_) return E_UNEXPECTED;
        ComPtr<IDispatch> dispatch;
        if (const HRESULT read = browser_->get_Document(dispatch.GetAddressOf()); FAILED(read)) return read;
        const auto document = Query<IHTMLDocument2>(dispatch.Get());
        if (!document) return E_NOINTERFACE;
        ComPtr<IHTMLElement> body;
        if (const HRESULT read = document->get_body(body.GetAddressOf()); FAILED(read)) return read;
        if (!dragSink_) dragSink_ = MakeCom<CDragSink>(window_, document);
        return bodyEvents_.ConnectEventToElement(body.Get(), dragSink_.Get());
    });
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

HRESULT CWindowPlugin::Quit(std::optional<AnyInt32> code) {
    PostQuitMessage(code ? code->value : 0);
    return S_OK;
}

bool CWindowPlugin::Minimize() {
    ShowWindow(window_, SW_MINIMIZE);
    return true;
}

// Centers in the desktop window, but stays within the work area of its monitor.
bool CWindowPlugin::CenterWindow() {
    RECT desktop = {};
    GetWindowRect(GetDesktopWindow(), &desktop);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(GetDesktopWindow(), MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& bound = monitor.rcWork;
    const RECT own = Rectangle();
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const LONG left = (desktop.left + desktop.right) / 2 - width / 2;
    const LONG top = (desktop.top + desktop.bottom) / 2 - height / 2;
    Move(std::max(std::min(left, bound.right - width), bound.left),
         std::max(std::min(top, bound.bottom - height), bound.top));
    return true;
}

bool CWindowPlugin::SetTaskbarProgress(CoercedInt completed, CoercedInt total) {
    if (total.value == 0) throw StatusError(E_INVALIDARG);
    if (taskbar_) {
        taskbar_->SetProgressValue(window_, static_cast<ULONGLONG>(completed.value),
                                   static_cast<ULONGLONG>(total.value));
    }
    return true;
}

bool CWindowPlugin::SetTaskbarProgressState(BSTR state) {
    const auto flag = ProgressFlag(state ? state : L"");
    if (!flag || !taskbar_) return false;
    taskbar_->SetProgressState(window_, *flag);
    return true;
}

bool CWindowPlugin::IsSupportTaskbarProgress() {
    return taskbar_ != nullptr;
}

HRESULT CWindowPlugin::SelectFile(const Call& call) {
    return ReturnDialogResult(call, "CWindowPlugin::SelectFile", [this](const ScriptObject& options) {
        return ShowFileDialog(window_, core_.Get(), browser_.Get(), options);
    });
}

HRESULT CWindowPlugin::SelectFolder(const Call& call) {
    return ReturnDialogResult(call, "CWindowPlugin::SelectFolder", [this](const ScriptObject& options) {
        return ShowFolderDialog(window_, core_.Get(), options);
    });
}

bool CWindowPlugin::MessageBox(IDispatch* options) {
    return options && ShowMessageBox(window_, options);
}

bool CWindowPlugin::IsUniqueWindow(BSTR name) {
    if (Bstr::View(name).empty()) {
        TARVIK_ERROR("CWindowPlugin::IsUnique", L"Args or pResult is NULL.");
        return false;
    }
    return claim_.Claim(window_, name);
}

bool CWindowPlugin::ShowExistedWindow() {
    return claim_.ShowOwner();
}

bool CWindowPlugin::IsVisible() {
    return IsWindowVisible(window_) != FALSE;
}

bool CWindowPlugin::IsForeWindow() {
    return GetForegroundWindow() == window_;
}

bool CWindowPlugin::SetPosition(CoercedInt x, CoercedInt y, CoercedInt width, CoercedInt height) {
    if (width.value == 0 || height.value == 0) throw StatusError(E_INVALIDARG);
    return SetWindowPos(window_, nullptr, x.value, y.value, width.value, height.value, SWP_NOZORDER) != FALSE;
}

RECT CWindowPlugin::Rectangle() const {
    RECT rect = {};
    GetWindowRect(window_, &rect);
    return rect;
}

bool CWindowPlugin::Resize(LONG width, LONG height) {
    if (frame_.IsShaped()) return false;
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    return true;
}

bool CWindowPlugin::Move(LONG left, LONG top) {
    return SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER) != FALSE;
}

int CWindowPlugin::GetWidth() {
    const RECT rect = Rectangle();
    return rect.right - rect.left;
}

bool CWindowPlugin::SetWidth(CoercedInt width) {
    if (width.value == 0) throw StatusError(E_INVALIDARG);
    return Resize(width.value, GetHeight());
}

int CWindowPlugin::GetHeight() {
    const RECT rect = Rectangle();
    return rect.bottom - rect.top;
}

bool CWindowPlugin::SetHeight(CoercedInt height) {
    if (height.value == 0) throw StatusError(E_INVALIDARG);
    return Resize(GetWidth(), height.value);
}

int CWindowPlugin::GetLeft() {
    return Rectangle().left;
}

bool CWindowPlugin::SetLeft(CoercedInt left) {
    return Move(left.value, GetTop());
}

int CWindowPlugin::GetTop() {
    return Rectangle().top;
}

bool CWindowPlugin::SetTop(CoercedInt top) {
    return Move(GetLeft(), top.value);
}

int CWindowPlugin::GetWorkAreaWidth() {
    const RECT area = WorkArea();
    return area.right - area.left;
}

int CWindowPlugin::GetWorkAreaHeight() {
    const RECT area = WorkArea();
    return area.bottom - area.top;
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

ComPtr<IDispatch> CWindowPlugin::GetMenu() {
    return ComPtr<IDispatch>(main_.Menu());
}

// By design, ignores an object that is not a menu.
HRESULT CWindowPlugin::SetMenu(const ComPtr<IDispatch>& object) {
    if (auto menu = Query<TVK::IMenu>(object.Get())) main_.SetMenu(std::move(menu));
    return S_OK;
}

ComPtr<IDispatch> CWindowPlugin::GetMsg() {
    if (!msg_) msg_ = MakeCom<CMsgDispatch>(main_);
    return ComPtr<IDispatch>(msg_.Get());
}

bool CWindowPlugin::SetCaption(bool visible) {
    return SUCCEEDED(frame_.SetCaption(visible));
}

bool CWindowPlugin::SetTopMost(bool topMost) {
    SetWindowPos(window_, topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    return true;
}

// By design this and ShapeImage do not report failures.
HRESULT CWindowPlugin::SetResizable(bool resizable) {
    frame_.SetResizable(resizable);
    return S_OK;
}

HRESULT CWindowPlugin::ShapeImage(BSTR path) {
    const std::wstring full = ResolvePath(core_.Get(), std::wstring(Bstr::View(path)));
    (void)Guard([&] { return frame_.ShapeImage(full.c_str()); });
    return S_OK;
}

}  // namespace tarvik
