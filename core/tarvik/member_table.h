#pragma once

#include <windows.h>
#include <oaidl.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "tarvik/arguments.h"
#include "tarvik/call.h"

// The members that script finds in an object are one table whose rows read like its documentation:
//
//     constexpr Member<CTrayPlugin> kMembers[] = {
//         Method<&CTrayPlugin::AddTray>(-10000, L"addTray"),      // bool AddTray(BSTR, std::optional<BSTR>)
//         WriteOnly<&CTrayPlugin::SetOnClick>(-9999, L"onClick"),  // HRESULT SetOnClick(IDispatch*)
//     };
//     static_assert(IsInOrder(kMembers));
//
// The row states the access; the handler's signature states the number and types of the arguments and the
// type of the result (tarvik/arguments.h). A handler gets its arguments checked and converted, borrowed for
// the call. It fails by throwing, and refuses a value by StatusError(E_INVALIDARG). Arguments of type
// std::optional at the end may be left out.
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
    using Values = std::tuple<std::decay_t<Args>...>;
    static constexpr size_t kMost = sizeof...(Args);
    static constexpr size_t kLeast =
        kMost - (size_t{0} + ... + (IsOptional<std::decay_t<Args>>::value ? 1 : 0));
};
template <class S, class R, class... Args>
struct Signature<R (S::*)(Args...) const> : Signature<R (S::*)(Args...)> {};

template <auto Handler>
using SelfOf = typename Signature<decltype(Handler)>::Self;

// A handler that takes the Call itself.
template <class S>
struct Signature<HRESULT (S::*)(const Call&)> {
    using Self = S;
};
template <auto Handler>
concept TakesCall = std::is_invocable_r_v < HRESULT,
        decltype(Handler), SelfOf<Handler>
&, const Call& > ;

// Count, then types in script order, then the handler, then the result: this order is part of the contract.
// Of several handlers, the number of arguments selects one; that with the fewest comes first.
template <auto Handler, auto... Longer>
HRESULT Enter(SelfOf<Handler>& self, const Call& call) {
    if constexpr (TakesCall<Handler>) {
        return (self.*Handler)(call);
    } else {
        using S = Signature<decltype(Handler)>;
        if constexpr (sizeof...(Longer) > 0) {
            static_assert(((S::kMost < Signature<decltype(Longer)>::kLeast) && ...));
            if (call.Count() > S::kMost) return Enter<Longer...>(self, call);
        }
        if (call.Count() < S::kLeast || call.Count() > S::kMost) return E_NOTIMPL;
        typename S::Values values{};
        [[maybe_unused]] size_t next = 0;
        [[maybe_unused]] const auto read = [&](auto& value) {
            return next >= call.Count() || FromVariant(call.At(next++), value);
        };
        if (!std::apply([&](auto&... value) { return (read(value) && ...); }, values)) return E_INVALIDARG;
        return std::apply(
            [&](auto&... value) {
                if constexpr (std::is_void_v<typename S::Result>) {
                    (self.*Handler)(value...);
                    return S_OK;
                } else {
                    return SetResult(call.Result(), (self.*Handler)(value...));
                }
            },
            values);
    }
}

}  // namespace detail

template <auto Handler, auto... Longer>
constexpr auto Method(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::Enter<Handler, Longer...>, nullptr, nullptr};
}

// For rules that no signature can state: HRESULT F(const Call&), and only the number of arguments is checked.
template <auto Handler, size_t kLeast, size_t kMost>
constexpr auto RawMethod(DISPID id, const wchar_t* name) {
    using Self = detail::SelfOf<Handler>;
    constexpr auto kEnter = [](Self& self, const Call& call) {
        return call.Count() < kLeast || call.Count() > kMost ? E_NOTIMPL : (self.*Handler)(call);
    };
    return Member<Self>{id, name, kEnter, nullptr, nullptr};
}

// For members that are called for their result alone: without a place for it they are refused.
template <auto Handler, auto... Longer>
constexpr auto ResultMethod(DISPID id, const wchar_t* name) {
    using Self = detail::SelfOf<Handler>;
    constexpr auto kEnter = [](Self& self, const Call& call) {
        return call.Result() ? detail::Enter<Handler, Longer...>(self, call) : E_INVALIDARG;
    };
    return Member<Self>{id, name, kEnter, nullptr, nullptr};
}

// A method whose name script may also read.
template <auto Handler, auto Get>
constexpr auto ReadableMethod(DISPID id, const wchar_t* name) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::Enter<Handler>, detail::Enter<Get>, nullptr};
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
    constexpr auto kEnter = [](Self&, const Call& call) {
        return call.Count() == 0 ? SetResult(call.Result(), Integer{kValue}) : E_NOTIMPL;
    };
    return Member<Self>{id, name, nullptr, kEnter, nullptr};
}

// The same rows without an id, for a table that NumberedMembers makes.
template <auto Handler, auto... Longer>
constexpr auto Method(const wchar_t* name) {
    return Method<Handler, Longer...>(0, name);
}
template <auto Get>
constexpr auto ReadOnly(const wchar_t* name) {
    return ReadOnly<Get>(0, name);
}
template <auto Put>
constexpr auto WriteOnly(const wchar_t* name) {
    return WriteOnly<Put>(0, name);
}
template <auto Get, auto Put>
constexpr auto Property(const wchar_t* name) {
    return Property<Get, Put>(0, name);
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

// A table whose ids are the places of its rows, from 1. A name that stands twice does not compile.
template <class Self, size_t N>
consteval std::array<Member<Self>, N> NumberedMembers(const Member<Self> (&rows)[N]) {
    std::array<Member<Self>, N> numbered = std::to_array(rows);
    for (size_t i = 0; i < N; ++i) {
        numbered[i].id = static_cast<DISPID>(i + 1);
        for (size_t k = 0; k < i; ++k) {
            if (rows[i].name == rows[k].name) throw "two members have one name";
        }
    }
    return numbered;
}

template <class Self>
const Member<Self>* FindById(std::span<const Member<Self>> rows, DISPID id) {
    const auto found = std::ranges::lower_bound(rows, id, {}, &Member<Self>::id);
    return found == rows.end() || found->id != id ? nullptr : &*found;
}

// Access is tested in the order method, read, write: a call with the flags of a method and a read is a
// method.
template <class Self>
HRESULT InvokeMember(const Member<Self>& row, Self& self, WORD flags, const Call& call) {
    if (flags & DISPATCH_METHOD) return row.method ? row.method(self, call) : E_NOTIMPL;
    if (flags & DISPATCH_PROPERTYGET) {
        if (!row.get) return E_NOTIMPL;
        return call.Result() ? row.get(self, call) : E_INVALIDARG;
    }
    return (flags & DISPATCH_PROPERTYPUT) && row.put ? row.put(self, call) : E_NOTIMPL;
}

}  // namespace tarvik
