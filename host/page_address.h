#pragma once

#include <string>

namespace tarvik {

// The page of a window, as a URL or a path: what its creator asked for; else the key `f` of the command line;
// else resource\index.html in the current folder, or beside the executable if there is no folder `resource`
// there, which then makes the executable's folder the current one.
std::wstring ChoosePage(const wchar_t* asked);

// Whether a window may open it: a URL, or a path that exists. What follows a `#` does not count.
bool PageExists(const std::wstring& page);

// Makes what script passes absolute against a page's location. URLs and full paths stay as they are. A
// relative address gives a path beside a file page, and nothing on a web page; both are intended.
std::wstring ResolveAgainst(const std::wstring& url, const std::wstring& location);

}  // namespace tarvik
