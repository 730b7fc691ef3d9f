#pragma once

#include <windows.h>
#include <oaidl.h>

#include <utility>
#include <vector>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

// Accesses members by name through IDispatch, as script does.
namespace tarvik {

// A value as script passes it.
struct Argument : Variant {
    Argument(bool value) : Variant(Variant::Bool(value)) {}
    Argument(int value) : Variant(Variant::I4(value)) {}
    Argument(double value) : Variant(Variant::R8(value)) {}
    Argument(const wchar_t* value) : Variant(Variant::Text(value)) {}
    Argument(IDispatch* value) : Variant(Variant::Object(value)) {}
    template <class Object>
    Argument(const ComPtr<Object>& value) : Variant(Variant::Object(value.Get())) {}
    Argument(std::nullptr_t) : Variant(Variant::Null()) {}
    Argument(Variant&& value) : Variant(std::move(value)) {}
};

struct InvokeResult {
    HRESULT status;
    Variant value;
};

HRESULT IdOf(IDispatch* object, const wchar_t* name, DISPID* id);

// Invokes a member with arguments in the order of script, and with a result slot.
InvokeResult InvokeMember(IDispatch* object, const wchar_t* name, WORD flags, std::vector<Variant> arguments);

template <class... Args>
InvokeResult CallMember(IDispatch* object, const wchar_t* name, Args&&... args) {
    std::vector<Variant> arguments;
    (arguments.push_back(Argument(std::forward<Args>(args))), ...);
    return InvokeMember(object, name, DISPATCH_METHOD, std::move(arguments));
}

InvokeResult GetMember(IDispatch* object, const wchar_t* name);

InvokeResult PutMember(IDispatch* object, const wchar_t* name, Argument value);

// A new CObject for options. Copies refer to the same object.
class OptionObject {
  public:
    OptionObject();
    template <class T>
    const OptionObject& Set(const wchar_t* name, T&& value) const {
        return Put(name, Argument(std::forward<T>(value)));
    }
    operator IDispatch*() const { return object_.Get(); }

  private:
    const OptionObject& Put(const wchar_t* name, const Variant& value) const;
    ComPtr<IDispatch> object_;
};

}  // namespace tarvik
