#include "page_control/dialogs/accepted_types.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

#include "tarvik/text.h"

namespace tarvik {

namespace {

struct Type {
    std::string_view mime;
    std::wstring_view pattern;
};

// What pages ask for most, in case that no program has registered it. A type of the whole family is first.
constexpr Type kTypes[] = {
    {"image/*",
     L"*.png;*.jpg;*.jpeg;*.gif;*.webp;*.svg;*.bmp;*.ico;*.avif;*.tif;*.tiff;*.apng;*.jfif;*.heic"},
    {"audio/*", L"*.mp3;*.wav;*.ogg;*.oga;*.opus;*.m4a;*.aac;*.flac;*.weba;*.mid;*.wma"},
    {"video/*", L"*.mp4;*.m4v;*.webm;*.mov;*.avi;*.mkv;*.ogv;*.mpg;*.mpeg;*.wmv"},
    {"text/*", L"*.txt;*.csv;*.htm;*.html;*.css;*.js;*.mjs;*.md;*.xml;*.ics;*.vcf;*.log"},
    {"image/png", L"*.png"},
    {"image/jpeg", L"*.jpg;*.jpeg;*.jfif"},
    {"image/gif", L"*.gif"},
    {"image/webp", L"*.webp"},
    {"image/svg+xml", L"*.svg"},
    {"audio/mpeg", L"*.mp3"},
    {"audio/wav", L"*.wav"},
    {"video/mp4", L"*.mp4;*.m4v"},
    {"video/webm", L"*.webm"},
    {"text/plain", L"*.txt;*.text;*.log"},
    {"text/html", L"*.htm;*.html"},
    {"text/css", L"*.css"},
    {"text/csv", L"*.csv"},
    {"text/markdown", L"*.md"},
    {"text/javascript", L"*.js;*.mjs"},
    {"text/calendar", L"*.ics"},
    {"application/json", L"*.json"},
    {"application/pdf", L"*.pdf"},
    {"application/xml", L"*.xml"},
    {"text/xml", L"*.xml"},
    {"application/zip", L"*.zip"},
};

// Of a type that a program has registered.
std::wstring RegisteredPattern(const std::string& mime) {
    const std::wstring key = L"MIME\\Database\\Content Type\\" + Widen(mime);
    wchar_t extension[64] = {};
    DWORD size = sizeof extension;
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), L"Extension", RRF_RT_REG_SZ, nullptr, extension,
                     &size) != ERROR_SUCCESS ||
        extension[0] != L'.')
        return {};
    return L"*" + std::wstring(extension);
}

std::wstring PatternOf(const std::string& part) {
    if (part.front() == '.') return L"*" + Widen(part);
    const auto* const known = std::ranges::find(kTypes, part, &Type::mime);
    return known == std::end(kTypes) ? RegisteredPattern(part) : std::wstring(known->pattern);
}

std::string Trimmed(std::string_view text) {
    std::string trimmed;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (!std::isspace(byte)) trimmed += static_cast<char>(std::tolower(byte));
    }
    return trimmed;
}

}  // namespace

std::wstring PatternOfAccept(const std::string& accept) {
    std::wstring patterns;
    for (size_t start = 0; start < accept.size();) {
        const size_t end = std::min(accept.find(',', start), accept.size());
        const std::string part = Trimmed(std::string_view(accept).substr(start, end - start));
        start = end + 1;
        if (part.empty()) continue;
        const std::wstring pattern = PatternOf(part);
        if (pattern.empty()) return {};
        if (!patterns.empty()) patterns += L';';
        patterns += pattern;
    }
    return patterns;
}

}  // namespace tarvik
