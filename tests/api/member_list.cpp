// Prints the members of the host, one line for each use of a member: the plug-in or object, the member, and
// "call", "read" or "write". declarations_test.mjs compares this with the declarations.

#include <cstdio>

#include "host/plugin_registry/plugin_registry.h"
#include "plugins/analytics/analytics_plugin.h"
#include "plugins/config/config_plugin.h"
#include "plugins/console/console_plugin.h"
#include "plugins/dragfile/drag_file_plugin.h"
#include "plugins/file/file_plugin.h"
#include "plugins/fileio/file_io_plugin.h"
#include "plugins/hash/hash.h"
#include "plugins/hash/hash_plugin.h"
#include "plugins/hotkey/hotkey_plugin.h"
#include "plugins/http/client.h"
#include "plugins/http/http_plugin.h"
#include "plugins/menu/menu_object.h"
#include "plugins/menu/menu_plugin.h"
#include "plugins/mouse/mouse_plugin.h"
#include "plugins/registry/registry_plugin.h"
#include "plugins/stream/stream_plugin.h"
#include "plugins/system/command_args.h"
#include "plugins/system/system_plugin.h"
#include "plugins/tray/tray_plugin.h"
#include "plugins/window/msg_dispatch.h"
#include "plugins/window/window_plugin.h"
#include "plugins/zip/zip_plugin.h"

namespace tarvik {
namespace {

void PrintUse(const char* object, std::wstring_view member, const char* use) {
    std::printf("%s %.*ls %s\n", object, static_cast<int>(member.size()), member.data(), use);
}

// A readable method is declared as a method.
template <class Self>
void PrintRow(const char* object, const Member<Self>& row) {
    if (row.method) PrintUse(object, row.name, "call");
    if (row.get && !row.method) PrintUse(object, row.name, "read");
    if (row.put) PrintUse(object, row.name, "write");
}

template <class Object>
void Print(const char* name) {
    for (const auto& row : Object::Members())
        PrintRow(name, row);
}

void PrintAll() {
    Print<CConfigPlugin>("config");
    Print<CConsolePlugin>("console");
    Print<CDragFilePlugin>("dragfile");
    Print<CFilePlugin>("file");
    Print<CFileIOPlugin>("fileIO");
    Print<CGoogleAnalyticsPlugin>("ga");
    Print<CHashPlugin>("hash");
    Print<CHashBase>("Digest");
    Print<CHotkeyPlugin>("hotkey");
    Print<CHttpPlugin>("http");
    Print<CClientDispatch>("HttpClient");
    Print<CMenuManagePlugin>("menu");
    Print<CMenuDispatch>("Menu");
    Print<CMousePlugin>("mouse");
    Print<CRegistryPlugin>("registry");
    Print<CStreamPlugin>("stream");
    Print<CSystemPlugin>("system");
    Print<CCmdArgs>("CommandLine");
    Print<CTrayPlugin>("tray");
    Print<CWindowPlugin>("window");
    Print<CMsgDispatch>("Messages");
    Print<CZipPlugin>("minizip");
}

}  // namespace
}  // namespace tarvik

int wmain() {
    tarvik::PrintAll();
    return 0;
}
