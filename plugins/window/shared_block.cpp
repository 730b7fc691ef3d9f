#include "plugins/window/shared_block.h"

#include <cstdint>
#include <cwchar>

#include "base/owners.h"
#include "plugins/window/block_text.h"

namespace tarvik {

namespace {

std::wstring BlockName(DWORD sender, HWND target) {
    wchar_t name[64] = {};
    _snwprintf(name, std::size(name), L"Tarvik_MsgMap_%08X_%08X", static_cast<unsigned>(sender),
               static_cast<unsigned>(reinterpret_cast<uintptr_t>(target)));
    return name;
}

// A sender may claim more bytes than the block has, or reserve memory without committing it.
bool HoldsBytes(const void* view, size_t size) {
    MEMORY_BASIC_INFORMATION region = {};
    return VirtualQuery(view, &region, sizeof region) != 0 && region.State == MEM_COMMIT &&
           region.RegionSize >= size;
}

}  // namespace

SharedBlock SharedBlock::Make(HWND target, const wchar_t* name, std::wstring_view payload) {
    const std::wstring_view head(name);
    const ULONGLONG size = (ULONGLONG{head.size()} + payload.size() + kBlockNuls) * sizeof(wchar_t);
    if (size > MAXDWORD) return {};
    const std::wstring blockName = BlockName(GetCurrentProcessId(), target);
    UniqueHandle mapping(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                            static_cast<DWORD>(size), blockName.c_str()));
    if (!mapping || GetLastError() == ERROR_ALREADY_EXISTS) return {};
    const UniqueView view(MapViewOfFile(mapping.Get(), FILE_MAP_WRITE, 0, 0, size));
    if (!view) return {};
    auto* const text = static_cast<wchar_t*>(view.Get());  // zero-filled
    head.copy(text, head.size());
    payload.copy(text + head.size() + 1, payload.size());
    return {std::move(mapping), static_cast<DWORD>(size)};
}

std::optional<BusMessage> ReadSharedBlock(DWORD sender, HWND target, size_t size) {
    if (size == 0) return std::nullopt;  // the system would map the entire block
    const UniqueHandle mapping(OpenFileMappingW(FILE_MAP_READ, FALSE, BlockName(sender, target).c_str()));
    if (!mapping) return std::nullopt;
    const UniqueView view(MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, size));
    if (!view || !HoldsBytes(view.Get(), size)) return std::nullopt;
    const auto text = ParseBlock({static_cast<const wchar_t*>(view.Get()), size / sizeof(wchar_t)});
    if (!text) return std::nullopt;
    return BusMessage{std::wstring(text->name), text->payload ? Bstr(*text->payload) : Bstr()};
}

}  // namespace tarvik
