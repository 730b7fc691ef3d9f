#pragma once

#include <windows.h>
#include <oaidl.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "tarvik/arguments.h"
#include "tarvik/call.h"

// A member table lists the members of a script object, one row per member:
//
//     constexpr auto kMembers = NumberedMembers({
//         // bool Play(const std::wstring& path, std::optional<int> from)
//         Method<&Player::Play>(L"play"),
//         // double Volume(); void SetVolume(double)
//         Property<&Player::Volume, &Player::SetVolume>(L"volume"),
//     });
//
// The row states how script may access the member. The handler is a member function; its signature states the
// number and types of the arguments and the type of the result (tarvik/arguments.h). A handler runs only if
// the arguments match; it receives them converted and borrowed for the call. Trailing parameters of type
// std::optional may be omitted by script. For other rules a handler can be HRESULT F(const Call&), which
// receives the arguments as they are.
//
// Statuses: E_NOTIMPL for an access that the row does not allow, and for a wrong number of arguments;
// E_INVALIDARG for an argument of the wrong type, and for a read without a result slot. A handler fails by
// throwing StatusError; E_INVALIDARG is the usual status for a value that it rejects.
//
// Script calls members by their id (DISPID). NumberedMembers assigns the ids; a table whose ids are published
// has them in its rows instead, Method<&Player::Play>(L"play", -10000), and the check
// static_assert(IsInOrder(kMembers)).
namespace tarvik {

template <class Self>
struct Member {
    using Entry = HRESULT (*)(Self&, const Call&);
    DISPID id;
    std::wstring_view name;  // not const wchar_t*: a look-up compares lengths first
    Entry method;            // null: script cannot call the member
    Entry get;               // null: script cannot read it
    Entry put;               // null: script cannot write it
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

template <class S>
struct Signature<HRESULT (S::*)(const Call&)> {
    using Self = S;
};
template <auto Handler>
concept TakesCall = requires(SelfOf<Handler>& self, const Call& call) {
    (self.*Handler)(call);
};

// Checks the count, then the types in the order of script, then calls the handler and stores its result: the
// contract fixes this order. With several handlers, the number of arguments selects one; the handlers are
// sorted by it.
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

// A method. Further handlers, which must take more arguments, are overloads.
template <auto Handler, auto... Longer>
constexpr auto Method(const wchar_t* name, DISPID id = 0) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::Enter<Handler, Longer...>, nullptr, nullptr};
}

// A method whose handler is HRESULT F(const Call&), with at least kLeast and at most kMost arguments.
template <auto Handler, size_t kLeast, size_t kMost>
constexpr auto RawMethod(const wchar_t* name, DISPID id = 0) {
    using Self = detail::SelfOf<Handler>;
    constexpr auto kEnter = [](Self& self, const Call& call) {
        return call.Count() < kLeast || call.Count() > kMost ? E_NOTIMPL : (self.*Handler)(call);
    };
    return Member<Self>{id, name, kEnter, nullptr, nullptr};
}

// A method that is useless without its result: E_INVALIDARG if the call has no result slot.
template <auto Handler, auto... Longer>
constexpr auto ResultMethod(const wchar_t* name, DISPID id = 0) {
    using Self = detail::SelfOf<Handler>;
    constexpr auto kEnter = [](Self& self, const Call& call) {
        return call.Result() ? detail::Enter<Handler, Longer...>(self, call) : E_INVALIDARG;
    };
    return Member<Self>{id, name, kEnter, nullptr, nullptr};
}

// A method that script may also read as a property.
template <auto Handler, auto Get>
constexpr auto ReadableMethod(const wchar_t* name, DISPID id = 0) {
    return Member<detail::SelfOf<Handler>>{id, name, detail::Enter<Handler>, detail::Enter<Get>, nullptr};
}

// A property that script can read.
template <auto Get>
constexpr auto ReadOnly(const wchar_t* name, DISPID id = 0) {
    return Member<detail::SelfOf<Get>>{id, name, nullptr, detail::Enter<Get>, nullptr};
}

// A property that script can write.
template <auto Put>
constexpr auto WriteOnly(const wchar_t* name, DISPID id = 0) {
    return Member<detail::SelfOf<Put>>{id, name, nullptr, nullptr, detail::Enter<Put>};
}

// A property that script can read and write.
template <auto Get, auto Put>
constexpr auto Property(const wchar_t* name, DISPID id = 0) {
    return Member<detail::SelfOf<Get>>{id, name, nullptr, detail::Enter<Get>, detail::Enter<Put>};
}

// A read-only property with a fixed value.
template <class Self, int kValue>
constexpr auto Constant(const wchar_t* name, DISPID id = 0) {
    constexpr auto kEnter = [](Self&, const Call& call) {
        return call.Count() == 0 ? SetResult(call.Result(), kValue) : E_NOTIMPL;
    };
    return Member<Self>{id, name, nullptr, kEnter, nullptr};
}

// Whether the ids of a table rise and its names differ, as every table requires.
template <class Rows>
constexpr bool IsInOrder(const Rows& rows) {
    for (size_t i = 0; i < std::size(rows); ++i) {
        if (i > 0 && rows[i - 1].id >= rows[i].id) return false;
        for (size_t k = 0; k < i; ++k) {
            if (rows[i].name == rows[k].name) return false;
        }
    }
    return true;
}

// A table whose rows have no ids: numbers them from 1. Does not compile if two rows have the same name.
template <class Self, size_t N>
consteval std::array<Member<Self>, N> NumberedMembers(const Member<Self> (&rows)[N]) {
    std::array<Member<Self>, N> numbered = std::to_array(rows);
    for (size_t i = 0; i < N; ++i)
        numbered[i].id = static_cast<DISPID>(i + 1);
    if (!IsInOrder(numbered)) throw "two members have the same name";
    return numbered;
}

// Null for an unknown id. The rows are in the order of their ids.
template <class Self>
const Member<Self>* FindById(std::span<const Member<Self>> rows, DISPID id) {
    const auto found = std::ranges::lower_bound(rows, id, {}, &Member<Self>::id);
    return found == rows.end() || found->id != id ? nullptr : &*found;
}

// Performs the access that the flags of IDispatch::Invoke request. They are tested in the order method, read,
// write, so a call with the flags of a method and a read calls the method. May throw what the handler throws.
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
