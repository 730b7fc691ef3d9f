#pragma once

#include <windows.h>
#include <oaidl.h>

#include <span>

namespace tarvik {

// The arguments and the result slot of one IDispatch::Invoke, for handlers that take no converted arguments
// (tarvik/member_table.h). Everything is borrowed for the call. FromVariant and SetResult convert
// (tarvik/arguments.h).
class Call {
  public:
    // Either argument may be null.
    Call(const DISPPARAMS* parameters, VARIANT* result)
        : reversed_(parameters ? parameters->rgvarg : nullptr, parameters ? parameters->cArgs : 0),
          result_(result) {}

    // The number of arguments.
    size_t Count() const { return reversed_.size(); }
    // An argument, counted from 0 in the order of script, without a VT_VARIANT reference around it. `index`
    // must be less than Count().
    const VARIANT& At(size_t index) const {
        const VARIANT& value = reversed_[reversed_.size() - 1 - index];
        return value.vt == (VT_VARIANT | VT_BYREF) ? *value.pvarVal : value;
    }
    // Null if script ignores the result.
    VARIANT* Result() const { return result_; }

  private:
    std::span<const VARIANT> reversed_;
    VARIANT* result_;
};

}  // namespace tarvik
