#pragma once

#include <windows.h>
#include <unknwn.h>

#include <functional>

#include "base/com_ptr.h"

namespace tarvik {

// While it lives, web browser controls of this process come from the test.
class ControlClass {
  public:
    using Make = std::function<ComPtr<IUnknown>()>;  // null: no control can be made

    explicit ControlClass(Make make);
    ~ControlClass();
    ControlClass(const ControlClass&) = delete;
    ControlClass& operator=(const ControlClass&) = delete;

    // The control that the system would have made.
    ComPtr<IUnknown> SystemControl() const;

  private:
    ComPtr<IClassFactory> system_;
    DWORD cookie_ = 0;
};

}  // namespace tarvik
