#pragma once

#include <string>

namespace tarvik {

// The page of a window, as a URL or a path: `requested`, which may be null; otherwise the value of -f on the
// command line; otherwise resource\index.html in the current folder. If that has no folder `resource`, the
// folder of the executable becomes the current folder, and the page is resource\index.html there.
std::wstring ChoosePage(const wchar_t* requested);

// The address that a window opens for a page: a URL, or an existing path, perhaps with a `#fragment`. Empty
// if the page does not exist. File names may contain a `#`: the longest existing path is the file.
std::wstring PageAddress(const std::wstring& page);

// Calls ChoosePage for the first window, and returns whether its page exists. Never throws.
bool ChooseFirstPage();

// Resolves a URL or a path against the location of a page. URLs and full paths stay unchanged. By design, a
// relative address gives a full path on a page from a file, and an empty string on a web page.
std::wstring ResolveAgainst(const std::wstring& url, const std::wstring& location);

}  // namespace tarvik
