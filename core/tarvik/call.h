#pragma once

#include <windows.h>
#include <oaidl.h>

#include <span>

namespace tarvik {

// One invocation of a member. The arguments are in script order and borrowed for the call.
class Call {
  public:
    Call(const DISPPARAMS* parameters, VARIANT* result)
        : reversed_(parameters ? parameters->rgvarg : nullptr, parameters ? parameters->cArgs : 0),
          result_(result) {}

    size_t Count() const { return reversed_.size(); }
    const VARIANT& At(size_t index) const {
        const VARIANT& value = reversed_[reversed_.size() - 1 - index];
        return value.vt == (VT_VARIANT | VT_BYREF) ? *value.pvarVal : value;
    }
    // Null if script wants no value.
    VARIANT* Result() const { return result_; }

  private:
    std::span<const VARIANT> reversed_;
    VARIANT* result_;
};

}  // namespace tarvik
