#pragma once

#include <windows.h>

#include <functional>
#include <memory>

namespace tarvik {

// Reports when the top-level window around a child window is moved, resized, shown or hidden: the child gets
// no message then.
class RootWatch {
  public:
    RootWatch(HWND child, std::function<void()> onChange);
    ~RootWatch();
    RootWatch(const RootWatch&) = delete;
    RootWatch& operator=(const RootWatch&) = delete;

  private:
    static LRESULT CALLBACK Procedure(HWND root, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR object);

    HWND root_;
    const std::function<void()> onChange_;
    const std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
