#include "atl/window.h"

#include <commctrl.h>

#include "atl/module.h"

namespace tarvik {

namespace {

// Pass the object and the window procedure of its base class from CreateWindowEx to the first message. Main
// thread only.
CWindowImpl* objectInCreation = nullptr;
WNDPROC baseProcedure = nullptr;

}  // namespace

CWindowImpl::~CWindowImpl() {
    if (window_) RemoveWindowSubclass(window_, SubclassProc, reinterpret_cast<UINT_PTR>(this));
}

HWND CWindowImpl::Create(const wchar_t* className, const wchar_t* baseClass, HWND parent,
                         const wchar_t* title, DWORD style, void* parameter) {
    WNDCLASSEXW description = {sizeof description};
    if (!GetClassInfoExW(appModule.Instance(), baseClass, &description)) return nullptr;
    const WNDPROC base = description.lpfnWndProc;
    description.lpfnWndProc = StartWindowProc;
    description.lpszClassName = className;
    description.hInstance = appModule.Instance();
    RegisterClassExW(&description);  // fails if the class is already registered
    objectInCreation = this;
    baseProcedure = base;
    const HWND window =
        CreateWindowExW(0, className, title, style, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, parent, nullptr, appModule.Instance(), parameter);
    objectInCreation = nullptr;  // there may have been no message
    return window;
}

LRESULT CALLBACK CWindowImpl::StartWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWindowImpl* const object = objectInCreation;
    objectInCreation = nullptr;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(baseProcedure));
    if (!object || !object->SubclassWindow(window)) return ::DefWindowProcW(window, message, wParam, lParam);
    return SubclassProc(window, message, wParam, lParam, 0, reinterpret_cast<DWORD_PTR>(object));
}

bool CWindowImpl::SubclassWindow(HWND window, IUnknown* owner) {
    const auto self = reinterpret_cast<UINT_PTR>(this);
    if (window_ || !SetWindowSubclass(window, SubclassProc, self, self)) return false;
    window_ = window;
    owner_ = owner;
    isDestroyed_ = false;  // an earlier window may still be handling messages
    return true;
}

LRESULT CWindowImpl::CallNext(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT CALLBACK CWindowImpl::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                           DWORD_PTR reference) {
    auto* const object = reinterpret_cast<CWindowImpl*>(reference);
    ++object->depth_;
    LRESULT result = 0;
    if (!object->ProcessWindowMessage(message, wParam, lParam, result)) {
        result = CallNext(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, SubclassProc, reinterpret_cast<UINT_PTR>(object));
        object->window_ = nullptr;
        object->isDestroyed_ = true;
    }
    if (--object->depth_ == 0 && object->isDestroyed_) {
        object->isDestroyed_ = false;
        ComPtr<IUnknown> owner;
        owner.Swap(object->owner_);
        object->OnFinalMessage(window);
    }
    return result;
}

}  // namespace tarvik
