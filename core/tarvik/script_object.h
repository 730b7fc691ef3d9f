#pragma once

#include <windows.h>
#include <oaidl.h>

#include <optional>
#include <utility>

#include "tarvik/arguments.h"
#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"

namespace tarvik {

// One reference to an object or a function of script, or to a plug-in. It is used on the thread that it came
// to; MarshaledObject takes it to another one. Failures are thrown.
class ScriptObject {
  public:
    ScriptObject() = default;  // none
    ScriptObject(IDispatch* object) : object_(object) {}
    explicit operator bool() const { return object_ != nullptr; }
    IDispatch* Get() const { return object_.Get(); }

    // Another interface of the object, such as TVK::IStream; null if it has none.
    template <class Interface>
    ComPtr<Interface> As() const {
        return Query<Interface>(object_.Get());
    }

    // A property; nothing if it is missing or no T.
    template <class T>
    std::optional<T> Get(const wchar_t* name) const {
        T value{};
        if (!FromVariant(ReadScriptProperty(object_.Get(), name), value)) return std::nullopt;
        return value;
    }
    // Creates the property if there is none.
    template <class T>
    void Set(const wchar_t* name, T&& value) const {
        ThrowIfFailed(AssignScriptProperty(object_.Get(), name, ToVariant(std::forward<T>(value))));
    }

    // Calls a method.
    template <class... Arguments>
    Variant Call(const wchar_t* name, Arguments&&... arguments) const {
        Variant result;
        const Variant values[] = {ToVariant(std::forward<Arguments>(arguments))..., Variant()};
        ThrowIfFailed(CallScriptMember(object_.Get(), name, Pointers<sizeof...(Arguments)>(values), &result));
        return result;
    }

    // Calls the object itself, a function. It fails when the function throws, and when its page has gone.
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

// null is an empty object.
inline bool FromVariant(const VARIANT& value, ScriptObject& out) {
    const ComPtr<IDispatch> object = ObjectIn(value);
    out = ScriptObject(object.Get());
    return object || value.vt == VT_DISPATCH || value.vt == VT_NULL;
}
inline Variant ToVariant(const ScriptObject& value) {
    return value ? Variant::Object(value.Get()) : Variant::Null();
}

}  // namespace tarvik
