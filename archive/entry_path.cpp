#include "archive/entry_path.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace tarvik {

namespace {

constexpr std::wstring_view kSeparators = L"/\\";
constexpr std::wstring_view kForbidden(L":\0", 2);
constexpr std::wstring_view kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
constexpr std::wstring_view kNumberedDevices[] = {L"COM", L"LPT"};
constexpr std::wstring_view kDeviceNumbers = L"123456789\u00B9\u00B2\u00B3";

wchar_t Upper(wchar_t character) {
    return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A') : character;
}

// The system compares the part before the first dot, without trailing spaces, ignoring case.
bool IsDevice(std::wstring_view component) {
    std::wstring_view stem = component.substr(0, component.find(L'.'));
    stem = stem.substr(0, stem.find_last_not_of(L' ') + 1);
    std::wstring name;
    std::ranges::transform(stem, std::back_inserter(name), Upper);
    if (std::ranges::find(kDevices, name) != std::end(kDevices)) return true;
    return name.size() == 4 && kDeviceNumbers.find(name[3]) != std::wstring_view::npos &&
           std::ranges::find(kNumberedDevices, std::wstring_view(name).substr(0, 3)) !=
               std::end(kNumberedDevices);
}

// The system strips trailing dots and spaces from a component, so ".. " and "..." may mean the parent too.
bool IsParentReference(std::wstring_view component) {
    return component != L"." && component.find_first_not_of(L". ") == std::wstring_view::npos;
}

}  // namespace

bool IsSafeEntryPath(std::wstring_view path) {
    if (path.empty() || path.find_first_of(kForbidden) != std::wstring_view::npos) return false;
    if (kSeparators.find(path.front()) != std::wstring_view::npos) return false;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(kSeparators), path.size());
        const std::wstring_view component = path.substr(0, end);
        if (!component.empty() && (IsParentReference(component) || IsDevice(component))) return false;
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return true;
}

}  // namespace tarvik
