#include "tests/support/resource_counts.h"

#include <windows.h>
#include <tlhelp32.h>
#include <winternl.h>

#include <algorithm>

#include "base/module_function.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

long CountThreads() {
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry = {sizeof entry};
    long count = 0;
    for (BOOL more = Thread32First(snapshot.Get(), &entry); more;
         more = Thread32Next(snapshot.Get(), &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    return count;
}

bool IsOwn(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

BOOL CALLBACK CountOwn(HWND window, LPARAM count) {
    if (IsOwn(window)) ++*reinterpret_cast<long*>(count);
    return TRUE;
}

long CountWindows() {
    long count = 0;
    EnumWindows(
        [](HWND window, LPARAM total) {
            CountOwn(window, total);
            EnumChildWindows(window, CountOwn, total);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr)
        count += IsOwn(window);
    return count;
}

// Counts the entries of the GDI handle table in this process, whose layout debuggers document.
long CountGdiEntries() {
    struct Entry {
        ULONGLONG object;
        ULONG owner;
        WORD unique;
        BYTE type;  // 0: free
        BYTE flags;
        ULONGLONG data;
    };
    constexpr size_t kEntries = 0x4000;
    constexpr size_t kTable = 0xF8;  // in the process environment block
    PROCESS_BASIC_INFORMATION process = {};
    using Query = NTSTATUS NTAPI(HANDLE, PROCESSINFOCLASS, void*, ULONG, ULONG*);
    auto* const query = FindFunction<Query>(L"ntdll.dll", "NtQueryInformationProcess");
    query(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process, nullptr);
    const auto* const block = reinterpret_cast<const BYTE*>(process.PebBaseAddress);
    const auto* const table = *reinterpret_cast<const Entry* const*>(block + kTable);
    return table ? std::count_if(table, table + kEntries, [](const Entry& entry) { return entry.type != 0; })
                 : 0;
}

bool IsIcon(HICON icon) {
    ICONINFO info = {};
    if (!GetIconInfo(icon, &info)) return false;
    const UniqueGdi mask(info.hbmMask), colours(info.hbmColor);
    return true;
}

// The low word of a handle is enough to find its object.
long CountMenusAndIcons() {
    long count = 0;
    for (ULONG_PTR value = 0x20; value < 0xFFF0; value += 2)
        count += IsMenu(reinterpret_cast<HMENU>(value)) || IsIcon(reinterpret_cast<HICON>(value));
    return count;
}

// Wine's GetGuiResources returns 0.
long CountGdiHandles() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return count ? static_cast<long>(count) : CountGdiEntries();
}
long CountUserHandles() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    return count ? static_cast<long>(count) : CountWindows() + CountMenusAndIcons();
}

}  // namespace

ResourceCounts ResourceCounts::Now() {
    ResourceCounts now;
    now.Add("COM objects", detail::liveComObjects);
    now.Add("threads", CountThreads());
    now.Add("windows", CountWindows());
    now.Add("GDI handles", CountGdiHandles());
    now.Add("USER handles", CountUserHandles());
    return now;
}

long ResourceCounts::Take(std::string_view what) {
    const auto isIt = [&](const Count& count) { return count.what == what; };
    const auto found = std::find_if(counts_.begin(), counts_.end(), isIt);
    const long count = found->count;
    counts_.erase(found);
    return count;
}

std::string ResourceCounts::GrownSince(const ResourceCounts& before) const {
    std::string grown;
    for (size_t i = 0; i < counts_.size(); ++i) {
        const long was = before.counts_.at(i).count;
        const auto& [what, count] = counts_[i];
        if (count > was)
            grown += std::string(what) + ": " + std::to_string(was) + " -> " + std::to_string(count) + "; ";
    }
    return grown;
}

long CountHandles() {
    constexpr ULONG_PTR kBeyond = 0x4000;
    long count = 0;
    for (ULONG_PTR value = 4; value < kBeyond; value += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++count;
    }
    return count;
}

}  // namespace tarvik
