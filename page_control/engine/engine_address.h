#pragma once

#include <string>
#include <string_view>

namespace tarvik {

// Conversions between the host's addresses and the engine's. They differ for files: the host may use a path,
// and under Wine the engine uses Unix paths.

// `address` is a URL or a path, optionally with a `#fragment`; a relative path starts at the current folder.
std::string EngineAddress(const std::wstring& address);

// The origin of an engine's address: "http://host:port"; all files have "file://".
std::string OriginOf(std::string_view url);

// File URLs have the form file:///C:/folder/page.html.
std::wstring HostAddress(const std::string& url);

}  // namespace tarvik
