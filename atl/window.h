#pragma once

#include <windows.h>
#include <unknwn.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// An object that takes part in the messages of a window: one it creates itself, as a superclass of a
// registered class, or one that exists, as a subclass. Objects on one window are asked from the last attached
// to the first.
class CWindowImpl {
  public:
    CWindowImpl() = default;
    CWindowImpl(const CWindowImpl&) = delete;
    CWindowImpl& operator=(const CWindowImpl&) = delete;

    HWND Window() const { return window_; }

    // Registers `className` over the procedure of `baseClass`, and creates a window of it that this object
    // handles from its first message on. Null if the window was destroyed while it was made.
    HWND Create(const wchar_t* className, const wchar_t* baseClass, HWND parent, const wchar_t* title,
                DWORD style, void* parameter);

    // Keeps the owner, if there is one, alive until the window's last message has been handled.
    bool SubclassWindow(HWND window, IUnknown* owner = nullptr);

  protected:
    // Leaves the window, if there still is one.
    virtual ~CWindowImpl();

    // True if the message was dealt with and `result` is its answer; else it goes on to the next object, and
    // to the window's own procedure in the end.
    virtual bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;

    // The window's last message has been handled, and with it every message in whose handling the window was
    // destroyed. The object may end itself here; it must not end inside any other message.
    virtual void OnFinalMessage(HWND) {}

    // What comes after this object.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
        return CallNext(window_, message, wParam, lParam);
    }

  private:
    static LRESULT CallNext(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK Start(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR object);

    HWND window_ = nullptr;
    int depth_ = 0;        // messages being handled, one inside the other
    bool isOver_ = false;  // the window has gone, and OnFinalMessage is to come
    ComPtr<IUnknown> owner_;
};

}  // namespace tarvik
