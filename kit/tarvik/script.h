#pragma once

#include <windows.h>
#include <dispex.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <climits>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tarvik/failure.h"

// Values and objects of script. Objects are used on the main thread, or on the one thread that took them
// there by a Ticket (tarvik/worker.h).
namespace TVK {

template <class Interface>
using Ptr = Microsoft::WRL::ComPtr<Interface>;

class Object;

// Owner of a script value: what is given to script, or came from it.
class Value : public VARIANT {
  public:
    Value() noexcept : VARIANT{} {}                               // undefined
    Value(std::nullptr_t) noexcept : VARIANT{} { vt = VT_NULL; }  // null
    // A boolean; a whole number in 32 bits; or any other number.
    template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
    Value(Number number) noexcept : VARIANT{} {
        if constexpr (std::is_same_v<Number, bool>) {
            vt = VT_BOOL;
            boolVal = number ? VARIANT_TRUE : VARIANT_FALSE;
        } else {
            vt = VT_R8;
            dblVal = static_cast<double>(number);
            const bool isLong = dblVal >= INT_MIN && dblVal <= INT_MAX;
            if (isLong && std::is_integral_v<Number>) {
                vt = VT_I4;
                lVal = static_cast<LONG>(number);
            }
        }
    }
    Value(std::wstring_view text) : VARIANT{} {
        bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        if (!bstrVal) throw std::bad_alloc();
        vt = VT_BSTR;
    }
    Value(const std::wstring& text) : Value(std::wstring_view(text)) {}
    Value(const wchar_t* text) : Value(std::wstring_view(text)) {}
    Value(const Object& object) noexcept;  // an empty one is null
    // What there is, or null.
    template <class T>
    Value(const std::optional<T>& value) : Value(value ? Value(*value) : Value(nullptr)) {}

    Value(const Value& other) : VARIANT{} { Check(VariantCopy(this, const_cast<Value*>(&other))); }
    Value(Value&& other) noexcept : VARIANT(std::exchange(static_cast<VARIANT&>(other), VARIANT{})) {}
    Value& operator=(Value other) noexcept {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    ~Value() { VariantClear(this); }

    // The value as a T, if it is one.
    template <class T>
    std::optional<T> As() const;
};

// A script object, a script function, or the face of a plug-in: one reference to it. Empty for none.
class Object {
  public:
    Object() = default;
    Object(IDispatch* object) : face_(object) {}  // takes a reference of its own
    explicit operator bool() const { return face_ != nullptr; }
    IDispatch* Get() const { return face_.Get(); }

    // What the object answers for an interface, say TVK::IStream; null if it has none such.
    template <class Interface>
    Ptr<Interface> As() const {
        Ptr<Interface> found;
        if (face_) face_->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(found.GetAddressOf()));
        return found;
    }

    // A property, such as one of an option object: nothing if it is missing or no T.
    template <class T>
    std::optional<T> Get(const wchar_t* name) const {
        DISPID id = DISPID_UNKNOWN;
        Value value;
        DISPPARAMS none = {};
        if (FAILED(Find(name, id)) || FAILED(Invoke(id, DISPATCH_PROPERTYGET, none, &value))) return {};
        return value.As<T>();
    }

    void Set(const wchar_t* name, Value value) const {
        DISPID id = DISPID_UNKNOWN;
        if (FAILED(Find(name, id))) Check(Add(name, id));
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {&value, &named, 1, 1};
        Check(Invoke(id, DISPATCH_PROPERTYPUT, parameters, nullptr));
    }

    // A method. Its failure is thrown.
    template <class... Arguments>
    Value Call(const wchar_t* name, Arguments&&... arguments) const {
        DISPID id = DISPID_UNKNOWN;
        Check(Find(name, id));
        return CallMember(id, std::forward<Arguments>(arguments)...);
    }

    // The object itself, a function. It fails when the function throws, and when its page has gone.
    template <class... Arguments>
    Value operator()(Arguments&&... arguments) const {
        return CallMember(DISPID_VALUE, std::forward<Arguments>(arguments)...);
    }

  private:
    HRESULT Find(const wchar_t* name, DISPID& id) const {
        LPOLESTR first = const_cast<LPOLESTR>(name);
        return face_ ? face_->GetIDsOfNames(IID_NULL, &first, 1, LOCALE_USER_DEFAULT, &id) : E_POINTER;
    }
    HRESULT Add(const wchar_t* name, DISPID& id) const {
        const Ptr<IDispatchEx> extensible = As<IDispatchEx>();
        return extensible ? extensible->GetDispID(Value(name).bstrVal, fdexNameEnsure, &id) : E_NOINTERFACE;
    }
    HRESULT Invoke(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result) const {
        return face_ ? face_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, nullptr,
                                     nullptr)
                     : E_POINTER;
    }
    template <class... Arguments>
    Value CallMember(DISPID id, Arguments&&... arguments) const {
        constexpr size_t kCount = sizeof...(Arguments);
        Value reversed[kCount + 1];
        [[maybe_unused]] size_t next = kCount;
        ((reversed[--next] = Value(std::forward<Arguments>(arguments))), ...);
        DISPPARAMS parameters = {reversed, nullptr, kCount, 0};
        Value result;
        Check(Invoke(id, DISPATCH_METHOD, parameters, &result));
        return result;
    }

    Ptr<IDispatch> face_;
};

inline Value::Value(const Object& object) noexcept : VARIANT{} {
    vt = object ? VT_DISPATCH : VT_NULL;
    pdispVal = object.Get();
    if (pdispVal) pdispVal->AddRef();
}

// Each answers whether the value has the kind. Further kinds of arguments are further overloads.
inline bool Read(const VARIANT& value, bool& out) {
    out = value.boolVal != VARIANT_FALSE;
    return value.vt == VT_BOOL;
}

// Script's own numbers are VT_I4 and VT_R8; native objects may answer others.
inline bool Read(const VARIANT& value, double& out) {
    constexpr VARTYPE kNumbers[] = {VT_I4,  VT_R8,  VT_I1,  VT_I2,  VT_I8,   VT_INT,
                                    VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_UINT, VT_R4};
    Value number;
    for (const VARTYPE kind : kNumbers) {
        if (value.vt == kind) VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_R8);
    }
    out = number.dblVal;
    return number.vt == VT_R8;
}

// A whole number in 32 bits.
inline bool Read(const VARIANT& value, int& out) {
    double number = 0;
    if (!Read(value, number) || !(number >= INT_MIN && number <= INT_MAX)) return false;
    out = static_cast<int>(number);
    return std::trunc(number) == number;
}

inline bool Read(const VARIANT& value, std::wstring& out) {
    if (value.vt != VT_BSTR) return false;
    out.assign(value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal));
    return true;
}

// null is read as an empty Object.
inline bool Read(const VARIANT& value, Object& out) {
    if (value.vt == VT_DISPATCH) out = Object(value.pdispVal);
    if (value.vt == VT_UNKNOWN && value.punkVal) {  // plug-ins that script hands on
        Ptr<IDispatch> face;
        if (FAILED(
                value.punkVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(face.GetAddressOf()))))
            return false;
        out = Object(face.Get());
    }
    return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN || value.vt == VT_NULL;
}

inline bool Read(const VARIANT& value, Value& out) {
    return SUCCEEDED(VariantCopyInd(&out, const_cast<VARIANT*>(&value)));
}

template <class T>
bool Read(const VARIANT& value, std::optional<T>& out) {
    return Read(value, out.emplace());
}

template <class T>
std::optional<T> Value::As() const {
    T value{};
    if (!Read(*this, value)) return {};
    return value;
}

}  // namespace TVK
