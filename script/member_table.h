#pragma once

#include <windows.h>
#include <oaidl.h>

#include <algorithm>
#include <span>
#include <string_view>
#include <tuple>

#include "script/readers.h"

// The script face of a plug-in is one table whose rows read like its documentation:
//
//     constexpr Member<CTrayPlugin> kMembers[] = {
//         Method<&CTrayPlugin::AddTray>(-10000, L"addTray"),      // bool AddTray(BSTR, std::optional<BSTR>)
//         WriteOnly<&CTrayPlugin::SetOnClick>(-9999, L"onClick"),  // HRESULT SetOnClick(IDispatch*)
//     };
//     static_assert(IsInOrder(kMembers));
//
// The row states the access, the handler's signature states count and kinds of the arguments and the kind of
// the result, and the compiler makes the checking code. A handler gets its arguments checked and converted,
// borrowed for the call; it reports a refused value by throwing StatusError(E_INVALIDARG).
namespace tarvik {

template <class Self>
struct Member {
    using Entry = HRESULT (*)(Self&, const Call&);
    DISPID id;
    std::wstring_view name;  // its length is known when it is looked up
    Entry method;
    Entry get;
    Entry put;
};

namespace detail {

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <class Handler>
struct Signature;

template <class S, class R, class... Args>
struct Signature<R (S::*)(Args...)> {
    using Self = S;
    using Result = R;
    using Values = std::tuple<Args...>;
    static constexpr size_t kMost = sizeof...(Args);
    static constexpr size_t kLeast = kMost - (size_t{0} + ... + (IsOptional<Args>::value ? 1 : 0));
};
template <class S, class R, class... Args>
struct Signature<R (S::*)(Args...) const> : Signature<R (S::*)(Args...)> {};

template <auto Handler>
using SelfOf = typename Signature<decltype(Handler)>::Self;

// Count, then kinds in script order, then the handler, then the result: this order is part of the contract.
template <auto Handler>
HRESULT Enter(SelfOf<Handler>& self, const Call& call) {
    using S = Signature<decltype(Handler)>;
    if (call.Count() < S::kLeast || call.Count() > S::kMost) return E_NOTIMPL;
    typename S::Values values{};
    size_t next = 0;
    const auto read = [&](auto& value) { return next >= call.Count() || Read(call.At(next++), value); };
    if (!std::apply([&](auto&... value) { return (read(value) && ...); }, values)) return E_INVALIDARG;
    return std::apply(
        [&](auto&... value) {
            if constexpr (std::is_void_v<typename S::Result>) {
                (self.*Handler)(value...);
                return S_OK;
            } else {
                return Give(call.Result(), (self.*Handler)(value...));
            }
        },
        values);
}

template <class Self, LONG kValue>
HRESULT EnterConstant(Self&, const Call& call) {
    return call.Count() == 0 ? Give(call.Result(), Integer{kValue}) : E_NOTIMPL;
}

// For rules that no reader can express: the handler sees the whole call, and only the count is checked.
template <auto Handler, size_t kLeast, size_t kMost>
HRESULT EnterRaw(SelfOf<Handler>& self, const Call& call) {
    if (call.Count() < kLeast || call.Count() > kMost) return E_NOTIMPL;
    return (self.*Handler)(call);
}

// For members that are called for their result alone: without a place for it they are refused.
template <auto Handler>
HRESULT EnterForResult(SelfOf<Handler>& self, const Call& call) {
    return call.Result() ? Enter<Handler>(self, call) : E_INVALIDARG;
}

// Two forms of one member: which is meant shows in the number of arguments.
template <auto Short, auto Long>
HRESULT EnterForm(SelfOf<Short>& self, const Call& call) {
    using S = Signature<decltype(Short)>;
    static_assert(S::kMost < Signature<decltype(Long)>::kLeast);
    return call.Count() <= S::kMost ? Enter<Short>(self, call) : Enter<Long>(self, call);
}

template <auto Short, auto Long>
HRESULT EnterFormForResult(SelfOf<Short>& self, const Call& call) {
    return call.Result() ? EnterForm<Short, Long>(self, call) : E_INVALIDARG;
}

}  // namespace detail

template <auto Handler>
constexpr auto Method(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::Enter<Handler>, nullptr, nullptr};
}

template <auto Short, auto Long>
constexpr auto Method(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Short>>{id, name, detail::EnterForm<Short, Long>, nullptr, nullptr};
}

template <auto Handler, size_t kLeast, size_t kMost>
constexpr auto RawMethod(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::EnterRaw<Handler, kLeast, kMost>, nullptr,
                                           nullptr};
}

template <auto Handler>
constexpr auto ResultMethod(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::EnterForResult<Handler>, nullptr, nullptr};
}

template <auto Short, auto Long>
constexpr auto ResultMethod(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Short>>{id, name, detail::EnterFormForResult<Short, Long>, nullptr, nullptr};
}

template <auto Get>
constexpr auto ReadOnly(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Get>>{id, name, nullptr, detail::Enter<Get>, nullptr};
}

template <auto Put>
constexpr auto WriteOnly(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Put>>{id, name, nullptr, nullptr, detail::Enter<Put>};
}

template <auto Get, auto Put>
constexpr auto Property(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Get>>{id, name, nullptr, detail::Enter<Get>, detail::Enter<Put>};
}

// A number that script reads by its name.
template <class Self, LONG kValue>
constexpr auto Constant(DISPID id, const wchar_t* name) {
    return Member<Self>{id, name, nullptr, detail::EnterConstant<Self, kValue>, nullptr};
}

// Ids rise and names differ. Ids are written out, although the order implies them: they are a published
// number space that people search for.
template <class Self, size_t N>
constexpr bool IsInOrder(const Member<Self> (&rows)[N]) {
    for (size_t i = 0; i < N; ++i) {
        if (i > 0 && rows[i - 1].id >= rows[i].id) return false;
        for (size_t k = 0; k < i; ++k) {
            if (rows[i].name == rows[k].name) return false;
        }
    }
    return true;
}

template <class Self>
const Member<Self>* FindByName(std::span<const Member<Self>> rows, std::wstring_view name) {
    const auto found = std::ranges::find_if(rows, [&](const auto& row) { return name == row.name; });
    return found == rows.end() ? nullptr : &*found;
}

template <class Self>
const Member<Self>* FindById(std::span<const Member<Self>> rows, DISPID id) {
    const auto found = std::ranges::lower_bound(rows, id, {}, &Member<Self>::id);
    return found == rows.end() || found->id != id ? nullptr : &*found;
}

// Access is tested in the order method, read, write: a call with the flags of a method and a read is a
// method.
template <class Self>
HRESULT InvokeRow(const Member<Self>& row, Self& self, WORD flags, const Call& call) {
    if (flags & DISPATCH_METHOD) return row.method ? row.method(self, call) : E_NOTIMPL;
    if (flags & DISPATCH_PROPERTYGET) {
        if (!row.get) return E_NOTIMPL;
        return call.Result() ? row.get(self, call) : E_INVALIDARG;
    }
    return (flags & DISPATCH_PROPERTYPUT) && row.put ? row.put(self, call) : E_NOTIMPL;
}

}  // namespace tarvik
