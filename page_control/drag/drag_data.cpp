#include "page_control/drag/drag_data.h"

#include <shlobj.h>
#include <shlwapi.h>

#include <cstring>
#include <cwchar>

#include "page_control/clipboard/html_format.h"
#include "page_control/drag/data_object.h"
#include "page_control/engine/engine_address.h"
#include "page_control/engine/unix_path.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

UINT Registered(const wchar_t* name) {
    return RegisterClipboardFormatW(name);
}

UINT PageFormat() {
    return Registered(L"Tarvik Drag Data");
}

UINT HtmlFormat() {
    return Registered(L"HTML Format");
}

UINT AddressFormat() {
    return Registered(L"UniformResourceLocatorW");
}

struct Effect {
    DWORD effect;
    int operation;  // DevTools
    const char* name;
};

constexpr Effect kEffects[] = {
    {DROPEFFECT_COPY, 1, "copy"},
    {DROPEFFECT_MOVE, 16, "move"},
    {DROPEFFECT_LINK, 2, "link"},
};

std::wstring TextIn(IDataObject* object, UINT format) {
    const std::vector<BYTE> data = DataOf(object, format);
    std::wstring text(data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
    return text.c_str();  // the terminator may be missing
}

void AddText(DataObject& object, UINT format, const std::wstring& text) {
    object.Add(format, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

// The path in "type:name:address", if the address is that of a file.
std::wstring DownloadPath(std::string_view download) {
    const size_t address = download.find("file:");
    if (address == download.npos) return {};
    const std::wstring url = HostAddress(std::string(download.substr(address)));
    std::wstring path(MAX_PATH * 2, L'\0');
    DWORD length = static_cast<DWORD>(path.size());
    if (FAILED(PathCreateFromUrlW(url.c_str(), path.data(), &length, 0))) return {};
    path.resize(length);
    return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES ? std::wstring() : path;
}

void AddFile(DataObject& object, const std::wstring& path) {
    DROPFILES header = {};
    header.pFiles = sizeof header;
    header.fWide = TRUE;
    std::vector<BYTE> files(sizeof header + (path.size() + 2) * sizeof(wchar_t));
    std::memcpy(files.data(), &header, sizeof header);
    std::memcpy(files.data() + sizeof header, path.c_str(), path.size() * sizeof(wchar_t));
    object.Add(CF_HDROP, files.data(), files.size());
}

const std::string& TextOf(const Json& item, const char* name) {
    return item.at(name).get_ref<const std::string&>();
}

void AddItem(DataObject& object, const std::string& type, const std::string& data) {
    if (type == "text/plain") {
        AddText(object, CF_UNICODETEXT, Widen(data));
    } else if (type == "text/html") {
        const std::string html = ToHtmlFormat(data);
        object.Add(HtmlFormat(), html.c_str(), html.size() + 1);
    } else if (type == "text/uri-list") {
        AddText(object, AddressFormat(), Widen(data.substr(0, data.find_first_of("\r\n"))));
    } else if (type == "downloadurl") {
        if (const std::wstring path = DownloadPath(data); !path.empty()) AddFile(object, path);
    }
}

// The paths of a DROPFILES structure, each of which ends with a null.
std::wstring PathsIn(const std::vector<BYTE>& data) {
    DROPFILES header = {};
    if (data.size() < sizeof header) return {};
    std::memcpy(&header, data.data(), sizeof header);
    if (header.pFiles > data.size()) return {};
    const auto* const first = reinterpret_cast<const char*>(data.data()) + header.pFiles;
    const size_t size = data.size() - header.pFiles;
    std::wstring paths(header.fWide ? size / sizeof(wchar_t) : size, L'\0');
    if (header.fWide) {
        std::memcpy(paths.data(), first, paths.size() * sizeof(wchar_t));
    } else {
        MultiByteToWideChar(CP_ACP, 0, first, static_cast<int>(size), paths.data(), static_cast<int>(size));
    }
    return paths;
}

// As the engine names them.
Json FilesIn(IDataObject* object) {
    Json files = Json::array();
    const std::wstring paths = PathsIn(DataOf(object, CF_HDROP));
    for (const wchar_t* path = paths.c_str(); *path; path += std::wcslen(path) + 1)
        files.push_back(EnginePath(path));
    return files;
}

Json ItemsIn(IDataObject* object) {
    Json items = Json::array();
    const auto add = [&](const char* type, const std::string& data) {
        if (!data.empty()) items.push_back(Parameters{{"mimeType", type}, {"data", data}}.Take());
    };
    const std::vector<BYTE> html = DataOf(object, HtmlFormat());
    add("text/plain", Narrow(TextIn(object, CF_UNICODETEXT)));
    add("text/html", FromHtmlFormat({reinterpret_cast<const char*>(html.data()), html.size()}));
    add("text/uri-list", Narrow(TextIn(object, AddressFormat())));
    return items;
}

}  // namespace

ComPtr<IDataObject> ToDataObject(const Json& dragData) {
    const auto object = MakeCom<DataObject>();
    const std::string all = dragData.at("items").dump();
    object->Add(PageFormat(), all.c_str(), all.size() + 1);
    for (const Json& item : dragData.at("items"))
        AddItem(*object.Get(), TextOf(item, "mimeType"), TextOf(item, "data"));
    return object;
}

Json FromDataObject(IDataObject* object, DWORD effects) {
    const std::vector<BYTE> page = DataOf(object, PageFormat());
    const std::string_view text(reinterpret_cast<const char*>(page.data()), page.size());
    Json items = Json::parse(text.substr(0, text.find('\0')), nullptr, false);
    const bool isPages = items.is_array();
    if (!isPages) items = ItemsIn(object);
    int operations = 0;
    for (const Effect& entry : kEffects)
        operations |= effects & entry.effect ? entry.operation : 0;
    return Parameters{{"items", std::move(items)},
                      {"files", isPages ? Json::array() : FilesIn(object)},
                      {"dragOperationsMask", operations}}
        .Take();
}

bool IsPageData(IDataObject* object) {
    return HasData(object, PageFormat()) && !HasData(object, CF_HDROP);
}

DWORD AllowedEffects(const Json& dragData) {
    const int operations = dragData.at("dragOperationsMask");
    DWORD effects = 0;
    for (const Effect& entry : kEffects)
        effects |= operations & entry.operation ? entry.effect : 0;
    return effects;
}

DWORD EffectNamed(std::string_view name) {
    for (const Effect& entry : kEffects) {
        if (entry.name == name) return entry.effect;
    }
    return DROPEFFECT_NONE;
}

const char* EffectName(DWORD effect) {
    for (const Effect& entry : kEffects) {
        if (effect & entry.effect) return entry.name;
    }
    return "none";
}

}  // namespace tarvik
