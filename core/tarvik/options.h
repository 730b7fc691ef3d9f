#pragma once

#include <windows.h>
#include <oaidl.h>

#include <optional>
#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// Reads the properties of an option object, { src: ..., success: ... }. An option of the wrong type counts as
// absent, like a missing one, and so does every option if the object is null. Reading may run script. Use it
// on the thread of the object.
class Options {
  public:
    // Holds a reference to the object, which may be null.
    explicit Options(IDispatch* object) : object_(object) {}

    // Of any type; VT_EMPTY if absent.
    Variant Value(const wchar_t* name) const;
    // VT_BSTR; a null BSTR gives an empty text.
    std::optional<std::wstring> Text(const wchar_t* name) const;
    // VT_BOOL; `absent` is the value of an absent option.
    bool Flag(const wchar_t* name, bool absent = false) const;
    // VT_I4, VT_INT, VT_UI4 or VT_UINT; unsigned values keep their bits.
    std::optional<LONG> Integer(const wchar_t* name) const;
    // VT_DISPATCH, or VT_UNKNOWN with IDispatch, as which engines pass plug-ins; null if absent.
    ComPtr<IDispatch> Object(const wchar_t* name) const;
    // VT_DISPATCH only; null if absent.
    ComPtr<IDispatch> Function(const wchar_t* name) const;

    // The option object itself.
    IDispatch* Given() const { return object_.Get(); }

  private:
    ComPtr<IDispatch> object_;
};

}  // namespace tarvik
