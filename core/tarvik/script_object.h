#pragma once

#include <windows.h>
#include <oaidl.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tarvik/arguments.h"
#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

// A reference to a script object, array or function, or to a plug-in; may be empty. Use it on the thread that
// received it; a MarshaledObject takes it to another thread. Values have any types for which there are
// converters (tarvik/arguments.h). Every access may run script.
//
// Failures throw StatusError, with the status that the object returned. An empty object has no members: to
// write or call one throws E_INVALIDARG.
class ScriptObject {
  public:
    ScriptObject() = default;                             // empty
    ScriptObject(IDispatch* object) : object_(object) {}  // takes a further reference; may be null
    explicit operator bool() const { return object_ != nullptr; }

    // The interface, without a further reference; null if empty.
    IDispatch* AsDispatch() const { return object_.Get(); }
    // Another interface of the object, such as TVK::IStream; null if the object does not have it.
    template <class Interface>
    ComPtr<Interface> As() const {
        return Query<Interface>(object_.Get());
    }

    // Reads a property. VT_EMPTY, script's undefined, if there is none or if reading fails.
    Variant Get(const wchar_t* name) const { return ReadScriptProperty(object_.Get(), name); }
    // Reads a property; nothing if its value is not a T.
    template <class T>
    std::optional<T> Get(const wchar_t* name) const {
        static_assert(!std::is_pointer_v<T>, "it would outlive the value that owns it");
        T value{};
        if (!FromVariant(Get(name), value)) return std::nullopt;
        return value;
    }
    // Reads an option, Get<bool>(L"all", true): `absent` if the value of the property is not a T.
    template <class T>
    T Get(const wchar_t* name, T absent) const {
        static_assert(!std::is_pointer_v<T>, "it would outlive the value that owns it");
        T value{};
        return FromVariant(Get(name), value) ? std::move(value) : std::move(absent);
    }
    // Reads a property that holds a function or another object of script; empty for any other value, and for
    // a plug-in, which cannot be called.
    ScriptObject Function(const wchar_t* name) const;

    // Writes a property, and creates it if there is none. A marshaled object cannot get new properties:
    // E_NOINTERFACE.
    template <class T>
    void Set(const wchar_t* name, T&& value) const {
        Put(name, ToVariant(std::forward<T>(value)));
    }

    // Whether the object has a member, its own or an inherited one.
    bool Has(const wchar_t* name) const;
    // The names that a `for ... in` loop gives, in the order of the object; of an array, its indexes.
    // E_NOINTERFACE for plug-ins and marshaled objects, which cannot be enumerated.
    std::vector<std::wstring> Names() const;

    // For arrays: the number of elements, an element as by Get, and a further element. Length throws
    // E_INVALIDARG for an object that is no array.
    size_t Length() const;
    Variant At(size_t index) const { return Get(DecimalText(index).c_str()); }
    template <class T>
    std::optional<T> At(size_t index) const {
        return Get<T>(DecimalText(index).c_str());
    }
    template <class T>
    void Push(T&& value) const {
        Call(L"push", std::forward<T>(value));
    }

    // Calls a method, and returns its result.
    template <class... Arguments>
    Variant Call(const wchar_t* name, Arguments&&... arguments) const {
        const Variant values[] = {ToVariant(std::forward<Arguments>(arguments))..., Variant()};
        return CallMember(name, Pointers<sizeof...(Arguments)>(values));
    }

    // Calls the object as a function, and returns its result. Fails if the function throws, after its page
    // has been destroyed, and with E_POINTER if this is empty.
    template <class... Arguments>
    Variant operator()(Arguments&&... arguments) const {
        const Variant values[] = {ToVariant(std::forward<Arguments>(arguments))..., Variant()};
        return CallFunction(Pointers<sizeof...(Arguments)>(values));
    }

  private:
    void Put(const wchar_t* name, const VARIANT& value) const;
    Variant CallMember(const wchar_t* name, std::span<const VARIANT* const> arguments) const;
    Variant CallFunction(std::span<const VARIANT* const> arguments) const;

    template <size_t N>
    static std::array<const VARIANT*, N> Pointers(const Variant* values) {
        std::array<const VARIANT*, N> pointers;
        for (const VARIANT*& pointer : pointers)
            pointer = values++;
        return pointers;
    }

    ComPtr<IDispatch> object_;
};

// Compiled once, in the core: the usual types of options.
extern template bool ScriptObject::Get(const wchar_t* name, bool absent) const;
extern template std::wstring ScriptObject::Get(const wchar_t* name, std::wstring absent) const;
extern template std::optional<std::wstring> ScriptObject::Get<std::wstring>(const wchar_t* name) const;

// VT_DISPATCH or VT_UNKNOWN with IDispatch; script's null is an empty object.
inline bool FromVariant(const VARIANT& value, ScriptObject& out) {
    const ComPtr<IDispatch> object = ObjectIn(value);
    out = ScriptObject(object.Get());
    return object || value.vt == VT_DISPATCH || value.vt == VT_NULL;
}
inline Variant ToVariant(const ScriptObject& value) {  // VT_NULL if empty
    return value ? Variant::Object(value.AsDispatch()) : Variant::Null();
}

}  // namespace tarvik
