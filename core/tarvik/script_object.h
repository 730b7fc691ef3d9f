#pragma once

#include <windows.h>
#include <oaidl.h>

#include <array>
#include <optional>
#include <utility>

#include "tarvik/arguments.h"
#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"

namespace tarvik {

// A reference to a script object or function, or to a plug-in; may be empty. Use it on the thread that
// received it; a MarshaledObject takes it to another thread. Every access may run script. Failures throw
// StatusError.
class ScriptObject {
  public:
    ScriptObject() = default;                             // empty
    ScriptObject(IDispatch* object) : object_(object) {}  // takes a further reference; may be null
    explicit operator bool() const { return object_ != nullptr; }
    // Null if empty; without a further reference.
    IDispatch* Get() const { return object_.Get(); }

    // Another interface of the object, such as TVK::IStream; null if it does not have it.
    template <class Interface>
    ComPtr<Interface> As() const {
        return Query<Interface>(object_.Get());
    }

    // Reads a property; nothing if its value is not a T. A property that does not exist reads as VT_EMPTY.
    template <class T>
    std::optional<T> Get(const wchar_t* name) const {
        T value{};
        if (!FromVariant(ReadScriptProperty(object_.Get(), name), value)) return std::nullopt;
        return value;
    }
    // Writes a property, and creates it if there is none.
    template <class T>
    void Set(const wchar_t* name, T&& value) const {
        ThrowIfFailed(AssignScriptProperty(object_.Get(), name, ToVariant(std::forward<T>(value))));
    }

    // Calls a method with any types that ToVariant accepts.
    template <class... Arguments>
    Variant Call(const wchar_t* name, Arguments&&... arguments) const {
        Variant result;
        const Variant values[] = {ToVariant(std::forward<Arguments>(arguments))..., Variant()};
        ThrowIfFailed(CallScriptMember(object_.Get(), name, Pointers<sizeof...(Arguments)>(values), &result));
        return result;
    }

    // Calls the object as a function. Fails if the function throws, or if its page has been destroyed.
    template <class... Arguments>
    Variant operator()(Arguments&&... arguments) const {
        Variant result;
        const Variant values[] = {ToVariant(std::forward<Arguments>(arguments))..., Variant()};
        ThrowIfFailed(CallScriptFunction(object_.Get(), Pointers<sizeof...(Arguments)>(values), &result));
        return result;
    }

  private:
    template <size_t N>
    static std::array<const VARIANT*, N> Pointers(const Variant* values) {
        std::array<const VARIANT*, N> pointers;
        for (const VARIANT*& pointer : pointers)
            pointer = values++;
        return pointers;
    }

    ComPtr<IDispatch> object_;
};

// Script's null is an empty object.
inline bool FromVariant(const VARIANT& value, ScriptObject& out) {
    const ComPtr<IDispatch> object = ObjectIn(value);
    out = ScriptObject(object.Get());
    return object || value.vt == VT_DISPATCH || value.vt == VT_NULL;
}
inline Variant ToVariant(const ScriptObject& value) {
    return value ? Variant::Object(value.Get()) : Variant::Null();
}

}  // namespace tarvik
