#pragma once

#include <windows.h>
#include <combaseapi.h>
#include <shtypes.h>

#include "tarvik/owners.h"

// Owners of further system resources, beside those of the core.
namespace tarvik {

namespace detail {

struct FindTraits : HandleTraits {
    static void Close(HANDLE value) noexcept { FindClose(value); }
};
struct ViewTraits : PointerTraits<void*> {
    static void Close(void* value) noexcept { UnmapViewOfFile(value); }
};
struct PagesTraits : PointerTraits<void*> {
    static void Close(void* value) noexcept { VirtualFree(value, 0, MEM_RELEASE); }
};
struct LocalTraits : PointerTraits<void*> {
    static void Close(void* value) noexcept { LocalFree(value); }
};
struct ItemListTraits : PointerTraits<ITEMIDLIST*> {
    static void Close(ITEMIDLIST* value) noexcept { CoTaskMemFree(value); }
};
struct DeviceContextTraits : PointerTraits<HDC> {
    static void Close(HDC value) noexcept { DeleteDC(value); }
};

}  // namespace detail

using UniqueFind = Owner<detail::FindTraits>;          // FindFirstFile
using UniqueView = Owner<detail::ViewTraits>;          // MapViewOfFile
using UniquePages = Owner<detail::PagesTraits>;        // VirtualAlloc
using UniqueLocal = Owner<detail::LocalTraits>;        // LocalAlloc, and functions that return such memory
using UniqueItemList = Owner<detail::ItemListTraits>;  // ITEMIDLIST from the shell
using UniqueMemoryDc = Owner<detail::DeviceContextTraits>;  // CreateCompatibleDC

}  // namespace tarvik
