#pragma once

#include <windows.h>
#include <combaseapi.h>
#include <shtypes.h>

#include <utility>

namespace tarvik {

// Sole owner of a system resource. Traits states its type, its empty value, which values are valid, and the
// function that closes it.
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

namespace detail {

template <class T>
struct PointerTraits {
    using Type = T;
    static Type Empty() noexcept { return nullptr; }
    static bool IsValid(Type value) noexcept { return value != nullptr; }
};

struct HandleTraits : PointerTraits<HANDLE> {
    // CreateFile returns INVALID_HANDLE_VALUE on failure, other functions return null.
    static bool IsValid(HANDLE value) noexcept { return value && value != INVALID_HANDLE_VALUE; }
    static void Close(HANDLE value) noexcept { CloseHandle(value); }
};
struct FindTraits : HandleTraits {
    static void Close(HANDLE value) noexcept { FindClose(value); }
};
struct ViewTraits : PointerTraits<void*> {
    static void Close(void* value) noexcept { UnmapViewOfFile(value); }
};
struct PagesTraits : PointerTraits<void*> {
    static void Close(void* value) noexcept { VirtualFree(value, 0, MEM_RELEASE); }
};
struct ModuleTraits : PointerTraits<HMODULE> {
    static void Close(HMODULE value) noexcept { FreeLibrary(value); }
};
struct LocalTraits : PointerTraits<void*> {
    static void Close(void* value) noexcept { LocalFree(value); }
};
struct ItemListTraits : PointerTraits<ITEMIDLIST*> {
    static void Close(ITEMIDLIST* value) noexcept { CoTaskMemFree(value); }
};
struct GdiTraits : PointerTraits<HGDIOBJ> {
    static void Close(HGDIOBJ value) noexcept { DeleteObject(value); }
};
struct DeviceContextTraits : PointerTraits<HDC> {
    static void Close(HDC value) noexcept { DeleteDC(value); }
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

using UniqueHandle = Owner<detail::HandleTraits>;      // CloseHandle: files, events, threads, mappings ...
using UniqueFind = Owner<detail::FindTraits>;          // FindFirstFile
using UniqueView = Owner<detail::ViewTraits>;          // MapViewOfFile
using UniquePages = Owner<detail::PagesTraits>;        // VirtualAlloc
using UniqueModule = Owner<detail::ModuleTraits>;      // LoadLibrary
using UniqueLocal = Owner<detail::LocalTraits>;        // LocalAlloc, and functions that return such memory
using UniqueItemList = Owner<detail::ItemListTraits>;  // ITEMIDLIST from the shell
using UniqueGdi = Owner<detail::GdiTraits>;            // DeleteObject: bitmaps, brushes, fonts, pens, regions
using UniqueMemoryDc = Owner<detail::DeviceContextTraits>;  // CreateCompatibleDC
using UniqueIcon = Owner<detail::IconTraits>;
using UniqueMenu = Owner<detail::MenuTraits>;
using UniqueWindow = Owner<detail::WindowTraits>;  // on the thread that created the window

}  // namespace tarvik
