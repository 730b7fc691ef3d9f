#pragma once

#include <windows.h>

#include <utility>

namespace tarvik {

// Sole owner of a system resource; see the aliases below. Traits states the type of the resource, its empty
// value, which values are valid, and the function that closes it:
//
//     struct KeyTraits : tarvik::PointerTraits<HKEY> {
//         static void Close(HKEY key) noexcept { RegCloseKey(key); }
//     };
//     using UniqueKey = tarvik::Owner<KeyTraits>;
template <class Traits>
class Owner {
  public:
    using Type = typename Traits::Type;

    Owner() noexcept = default;
    explicit Owner(Type value) noexcept : value_(value) {}
    Owner(Owner&& other) noexcept : value_(other.Detach()) {}
    Owner& operator=(Owner&& other) noexcept {
        if (this != &other) Reset(other.Detach());
        return *this;
    }
    ~Owner() { Reset(); }

    Type Get() const noexcept { return value_; }
    explicit operator bool() const noexcept { return Traits::IsValid(value_); }
    // The caller has to close the resource.
    Type Detach() noexcept { return std::exchange(value_, Traits::Empty()); }
    // Takes `value` over and closes the old resource.
    void Reset(Type value = Traits::Empty()) noexcept {
        const Type old = std::exchange(value_, value);
        if (Traits::IsValid(old)) Traits::Close(old);
    }
    // For calls that fill an out parameter; closes the old resource.
    Type* Receive() noexcept {
        Reset();
        return &value_;
    }

  private:
    Type value_ = Traits::Empty();
};

// The base of traits for a resource whose empty value is null.
template <class T>
struct PointerTraits {
    using Type = T;
    static Type Empty() noexcept { return nullptr; }
    static bool IsValid(Type value) noexcept { return value != nullptr; }
};

namespace detail {

struct HandleTraits : PointerTraits<HANDLE> {
    // CreateFile returns INVALID_HANDLE_VALUE on failure, other functions return null.
    static bool IsValid(HANDLE value) noexcept { return value && value != INVALID_HANDLE_VALUE; }
    static void Close(HANDLE value) noexcept { CloseHandle(value); }
};
struct ModuleTraits : PointerTraits<HMODULE> {
    static void Close(HMODULE value) noexcept { FreeLibrary(value); }
};
struct GdiTraits : PointerTraits<HGDIOBJ> {
    static void Close(HGDIOBJ value) noexcept { DeleteObject(value); }
};
struct IconTraits : PointerTraits<HICON> {
    static void Close(HICON value) noexcept { DestroyIcon(value); }
};
struct MenuTraits : PointerTraits<HMENU> {
    static void Close(HMENU value) noexcept { DestroyMenu(value); }
};
struct WindowTraits : PointerTraits<HWND> {
    static void Close(HWND value) noexcept { DestroyWindow(value); }
};

}  // namespace detail

using UniqueHandle = Owner<detail::HandleTraits>;  // CloseHandle: files, events, threads, mappings ...
using UniqueModule = Owner<detail::ModuleTraits>;  // LoadLibrary
using UniqueGdi = Owner<detail::GdiTraits>;        // DeleteObject: bitmaps, brushes, fonts, pens, regions
using UniqueIcon = Owner<detail::IconTraits>;
using UniqueMenu = Owner<detail::MenuTraits>;
using UniqueWindow = Owner<detail::WindowTraits>;  // on the thread that created the window

}  // namespace tarvik
