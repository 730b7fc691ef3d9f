#pragma once

#include <windows.h>
#include <oaidl.h>

#include <optional>
#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// Named options of a script object. A missing option and one of the wrong kind are the same: absent.
class Options {
  public:
    explicit Options(IDispatch* object) : object_(object) {}

    Variant Value(const wchar_t* name) const;  // empty if absent
    std::optional<std::wstring> Text(const wchar_t* name) const;
    bool Flag(const wchar_t* name, bool absent = false) const;
    std::optional<LONG> Integer(const wchar_t* name) const;
    ComPtr<IDispatch> Object(const wchar_t* name) const;  // null if absent
    // Stricter than Object: what script engines hand over as VT_UNKNOWN is none. Null if absent.
    ComPtr<IDispatch> Function(const wchar_t* name) const;

    IDispatch* Given() const { return object_.Get(); }

  private:
    ComPtr<IDispatch> object_;
};

}  // namespace tarvik
