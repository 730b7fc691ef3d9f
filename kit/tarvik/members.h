#pragma once

#include <cstring>
#include <cwchar>
#include <tuple>

#include "tarvik/script.h"

// The face of a plug-in to script is a table:
//
//     static TVK::Members<Clipboard> Members() {
//         static constexpr TVK::Member<Clipboard> members[] = {
//             TVK::Method<&Clipboard::Formats>(L"formats"),                         // Object Formats()
//             TVK::Property<&Clipboard::Text, &Clipboard::SetText>(L"text"),
//         };
//         return members;
//     }
//
// A handler gets its arguments checked and converted (the overloads of Read in tarvik/script.h say to what;
// std::optional at the end may be left out) and answers anything that a Value is made of, or nothing. Script
// sees E_NOTIMPL for a wrong count or access, E_INVALIDARG for a wrong kind, and what the handler throws.
namespace TVK {

template <class Self>
struct Member {
    using Entry = void (*)(Self&, const DISPPARAMS&, Value& result);
    const wchar_t* name;
    Entry method;
    Entry get;
    Entry put;
};

// The rows of a table, borrowed.
template <class Self>
class Members {
  public:
    template <size_t N>
    constexpr Members(const Member<Self> (&rows)[N]) : rows_(rows), count_(N) {}

    // Member ids are the places in the table, from 1.
    HRESULT Find(const wchar_t* name, DISPID& id) const {
        for (size_t i = 0; i < count_; ++i) {
            if (std::wcscmp(rows_[i].name, name) != 0) continue;
            id = static_cast<DISPID>(i + 1);
            return S_OK;
        }
        return DISP_E_UNKNOWNNAME;
    }

    // A call that might also be a read is a call.
    void Invoke(Self& self, DISPID id, WORD flags, const DISPPARAMS& parameters, Value& result) const {
        if (id < 1 || static_cast<size_t>(id) > count_) throw Failure(DISP_E_MEMBERNOTFOUND);
        const Member<Self>& row = rows_[id - 1];
        const auto entry = flags & DISPATCH_METHOD        ? row.method
                           : flags & DISPATCH_PROPERTYGET ? row.get
                                                          : row.put;
        if (!entry) throw Failure(E_NOTIMPL);
        entry(self, parameters, result);
    }

  private:
    const Member<Self>* rows_;
    size_t count_;
};

namespace detail {

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <class Handler>
struct Signature;

template <class S, class R, class... Arguments>
struct Signature<R (S::*)(Arguments...)> {
    using Self = S;
    using Result = R;
    using Values = std::tuple<std::decay_t<Arguments>...>;
    static constexpr size_t kMost = sizeof...(Arguments);
    static constexpr size_t kLeast =
        kMost - (size_t{0} + ... + (IsOptional<std::decay_t<Arguments>>::value ? 1 : 0));
};
template <class S, class R, class... Arguments>
struct Signature<R (S::*)(Arguments...) const> : Signature<R (S::*)(Arguments...)> {};

template <auto Handler>
using SelfOf = typename Signature<decltype(Handler)>::Self;

// Arguments come in reverse order; one by reference is followed.
inline const VARIANT& ArgumentAt(const DISPPARAMS& parameters, size_t index) {
    const VARIANT& value = parameters.rgvarg[parameters.cArgs - 1 - index];
    return value.vt == (VT_VARIANT | VT_BYREF) ? *value.pvarVal : value;
}

template <auto Handler>
void Enter(SelfOf<Handler>& self, const DISPPARAMS& parameters, Value& result) {
    using S = Signature<decltype(Handler)>;
    if (parameters.cArgs < S::kLeast || parameters.cArgs > S::kMost) throw Failure(E_NOTIMPL);
    typename S::Values values{};
    [[maybe_unused]] size_t next = 0;
    [[maybe_unused]] const auto read = [&](auto& value) {
        return next >= parameters.cArgs || Read(ArgumentAt(parameters, next++), value);
    };
    if (!std::apply([&](auto&... value) { return (read(value) && ...); }, values))
        throw Failure(E_INVALIDARG);
    std::apply(
        [&](auto&... value) {
            if constexpr (std::is_void_v<typename S::Result>) {
                (self.*Handler)(value...);
            } else {
                result = Value((self.*Handler)(value...));
            }
        },
        values);
}

}  // namespace detail

template <auto Handler>
constexpr auto Method(const wchar_t* name) {
    return Member<detail::SelfOf<Handler>>{name, detail::Enter<Handler>, nullptr, nullptr};
}

template <auto Get>
constexpr auto ReadOnly(const wchar_t* name) {
    return Member<detail::SelfOf<Get>>{name, nullptr, detail::Enter<Get>, nullptr};
}

template <auto Get, auto Put>
constexpr auto Property(const wchar_t* name) {
    return Member<detail::SelfOf<Get>>{name, nullptr, detail::Enter<Get>, detail::Enter<Put>};
}

}  // namespace TVK
