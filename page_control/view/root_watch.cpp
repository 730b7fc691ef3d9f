#include "page_control/view/root_watch.h"

#include <commctrl.h>

#include <utility>

namespace tarvik {

RootWatch::RootWatch(HWND child, std::function<void()> onChange)
    : root_(GetAncestor(child, GA_ROOT)), onChange_(std::move(onChange)) {
    const auto self = reinterpret_cast<UINT_PTR>(this);
    SetWindowSubclass(root_, Procedure, self, self);
}

RootWatch::~RootWatch() {
    *alive_ = false;
    RemoveWindowSubclass(root_, Procedure, reinterpret_cast<UINT_PTR>(this));
}

LRESULT CALLBACK RootWatch::Procedure(HWND root, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR object) {
    const auto* const watch = reinterpret_cast<const RootWatch*>(object);
    const auto alive = watch->alive_;
    const LRESULT result = DefSubclassProc(root, message, wParam, lParam);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(root, Procedure, id);
    if (message == WM_WINDOWPOSCHANGED && *alive) watch->onChange_();
    return result;
}

}  // namespace tarvik
