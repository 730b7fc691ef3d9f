#pragma once

#include <windows.h>
#include <oaidl.h>

#include <utility>
#include <vector>

#include "base/com_ptr.h"
#include "base/variant.h"

// Using objects by name through IDispatch, as script does.
namespace tarvik {

inline Variant ToVariant(bool value) {
    return Variant::Bool(value);
}
inline Variant ToVariant(int value) {
    return Variant::I4(value);
}
inline Variant ToVariant(double value) {
    return Variant::R8(value);
}
inline Variant ToVariant(const wchar_t* value) {
    return Variant::Text(value);
}
inline Variant ToVariant(IDispatch* value) {
    return Variant::Object(value);
}
template <class Object>
Variant ToVariant(const ComPtr<Object>& value) {
    return Variant::Object(value.Get());
}
inline Variant ToVariant(std::nullptr_t) {
    return Variant::Null();
}
inline Variant ToVariant(Variant&& value) {
    return std::move(value);
}

struct Outgoing {
    HRESULT status;
    Variant value;
};

HRESULT IdOf(IDispatch* object, const wchar_t* name, DISPID* id);

// Arguments in script order. The call is made with a result slot.
Outgoing InvokeMember(IDispatch* object, const wchar_t* name, WORD flags, std::vector<Variant> arguments);

template <class... Args>
Outgoing CallMember(IDispatch* object, const wchar_t* name, Args&&... args) {
    std::vector<Variant> arguments;
    (arguments.push_back(ToVariant(std::forward<Args>(args))), ...);
    return InvokeMember(object, name, DISPATCH_METHOD, std::move(arguments));
}

Outgoing GetMember(IDispatch* object, const wchar_t* name);

template <class T>
Outgoing PutMember(IDispatch* object, const wchar_t* name, T&& value) {
    std::vector<Variant> arguments;
    arguments.push_back(ToVariant(std::forward<T>(value)));
    return InvokeMember(object, name, DISPATCH_PROPERTYPUT, std::move(arguments));
}

// A new CObject with these options. A copy is the same object.
class OptionObject {
  public:
    OptionObject();
    template <class T>
    const OptionObject& Set(const wchar_t* name, T&& value) const {
        Put(name, ToVariant(std::forward<T>(value)));
        return *this;
    }
    operator IDispatch*() const { return object_.Get(); }

  private:
    void Put(const wchar_t* name, const Variant& value) const;
    ComPtr<IDispatch> object_;
};

}  // namespace tarvik
