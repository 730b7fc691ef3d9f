#pragma once

#include <windows.h>
#include <unknwn.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// Handles the messages of a window: either one that it creates as a superclass of a registered class, or an
// existing one that it subclasses. If several objects subclass a window, the last one receives messages
// first.
class CWindowImpl {
  public:
    CWindowImpl() = default;
    CWindowImpl(const CWindowImpl&) = delete;
    CWindowImpl& operator=(const CWindowImpl&) = delete;

    HWND Window() const { return window_; }

    // Registers `className` as a superclass of `baseClass` and creates a window of it. This object handles
    // all its messages, from the first one on. Null on failure, and if the window was destroyed during its
    // creation.
    HWND Create(const wchar_t* className, const wchar_t* baseClass, HWND parent, const wchar_t* title,
                DWORD style, void* parameter);

    // Subclasses a window, and holds a reference to `owner`, which may be null, until the window's last
    // message has been handled. False on failure, and if this object has a window.
    bool SubclassWindow(HWND window, IUnknown* owner = nullptr);

  protected:
    // Stops subclassing the window, if it still exists.
    virtual ~CWindowImpl();

    // True if the message was handled, with `result`. Otherwise the next object gets it, and finally the
    // window procedure of the class.
    virtual bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;

    // The window has been destroyed, and none of its messages is being handled any more. The object may
    // destroy itself here; it must not be destroyed in any other message.
    virtual void OnFinalMessage(HWND) {}

    // Passes a message on to the next object or to the window procedure of the class.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
        return CallNext(window_, message, wParam, lParam);
    }

  private:
    static LRESULT CallNext(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK StartWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR object);

    HWND window_ = nullptr;
    int depth_ = 0;             // of nested messages
    bool isDestroyed_ = false;  // the window has been destroyed; OnFinalMessage is due
    ComPtr<IUnknown> owner_;
};

}  // namespace tarvik
