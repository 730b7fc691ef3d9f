#pragma once

#include <string>

namespace tarvik {

// Addresses as the host writes them and as the engine does. They differ for files: the host may give a path,
// and under Wine the engine knows files by the names of the system underneath.

// A URL, or a path with a `#fragment` perhaps; relative ones are of the current folder.
std::string EngineAddress(const std::wstring& address);

// File URLs come back as file:///C:/folder/page.html.
std::wstring HostAddress(const std::string& url);

}  // namespace tarvik
