#include "page_control/engine/unix_path.h"

#include <windows.h>

#include "base/module_function.h"
#include "base/wine.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

template <class Function>
Function* WineFunction(const char* name) {
    return IsWine() ? FindFunction<Function>(L"kernel32.dll", name) : nullptr;
}

// Takes ownership of a string from Wine.
template <class Text>
auto TakeText(Text* text) {
    std::basic_string<Text> taken;
    if (text) taken = text;
    if (text) HeapFree(GetProcessHeap(), 0, text);
    return taken;
}

}  // namespace

std::string UnixPath(const std::wstring& path) {
    static auto* const translate = WineFunction<char* __cdecl(const wchar_t*)>("wine_get_unix_file_name");
    return translate ? TakeText(translate(path.c_str())) : std::string();
}

std::string EnginePath(const std::wstring& path) {
    const std::string unixPath = UnixPath(path);
    return unixPath.empty() ? Narrow(path) : unixPath;
}

std::wstring DosPath(const std::string& path) {
    static auto* const translate = WineFunction<wchar_t* __cdecl(const char*)>("wine_get_dos_file_name");
    return translate ? TakeText(translate(path.c_str())) : std::wstring();
}

}  // namespace tarvik
