#pragma once

#include <string>

namespace tarvik {

// The page of a window, as a URL or a path: what its creator asked for; else the key `f` of the command line;
// else resource\index.html in the current folder, or beside the executable if there is no folder `resource`
// there; then this makes the executable's folder the current one.
std::wstring ChoosePage(const wchar_t* asked);

// What a window opens for a page: a URL, or a path that exists, with a `#fragment` perhaps. Empty if there is
// no such page. A file's name may itself hold a `#`: the longest path that exists is the file.
std::wstring PageAddress(const std::wstring& page);

// The same for the first window, as ChoosePage chooses: whether there is a page. Never throws.
bool ChooseFirstPage();

// Makes what script passes absolute against a page's location. URLs and full paths stay as they are. A
// relative address gives a path beside a file page, and nothing on a web page; both are by design.
std::wstring ResolveAgainst(const std::wstring& url, const std::wstring& location);

}  // namespace tarvik
