#include "host/plugin_registry/plugin_library.h"

#include <vector>

#include "base/library_search.h"
#include "base/path.h"
#include "host/plugin_registry/plugin_registry.h"
#include "tarvik/bstr.h"
#include "tarvik/com_ptr.h"
#include "tarvik/owners.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

auto& Libraries() {
    static std::vector<UniqueModule> libraries;
    return libraries;
}

template <class Part>
bool ReadPart(HANDLE file, LONG offset, Part& part) {
    DWORD read = 0;
    return SetFilePointer(file, offset, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER &&
           ReadFile(file, &part, sizeof part, &read, nullptr) && read == sizeof part;
}

// Reads the machine type from the header of an image, because a 32-bit library must be rejected before the
// system tries to load it. 0 if the file is not an image.
WORD ImageMachine(const std::wstring& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return 0;
    struct {
        DWORD signature;
        IMAGE_FILE_HEADER header;
    } image = {};
    IMAGE_DOS_HEADER dos = {};
    if (!ReadPart(file.Get(), 0, dos) || dos.e_magic != IMAGE_DOS_SIGNATURE) return 0;
    if (!ReadPart(file.Get(), dos.e_lfanew, image) || image.signature != IMAGE_NT_SIGNATURE) return 0;
    return image.header.Machine;
}

TVK::PluginFactory FindExport(HMODULE library) {
    const FARPROC found = library ? GetProcAddress(library, "CreateInterface") : nullptr;
    if (!found) throw StatusError(E_FAIL);
    return reinterpret_cast<TVK::PluginFactory>(reinterpret_cast<void*>(found));
}

void RequireOk(HRESULT status) {
    if (status != S_OK) throw StatusError(FAILED(status) ? status : E_FAIL);
}

void Register(TVK::PluginFactory factory) {
    ComPtr<TVK::IPluginDescriptor> descriptor;
    int kind = 0;
    int flags = 0;
    Bstr name;
    RequireOk(factory(__uuidof(TVK::IPluginDescriptor), reinterpret_cast<void**>(descriptor.GetAddressOf())));
    if (!descriptor) throw StatusError(E_FAIL);
    RequireOk(descriptor->GetKind(&kind, 0));
    descriptor->GetFlags(&flags);
    if (kind != TVK::kPluginKind) throw StatusError(E_FAIL);
    descriptor->GetName(name.Receive());
    RequireOk(RegisterPlugin(name.View(), factory, flags));
}

}  // namespace

HRESULT LoadPluginLibrary(const std::wstring& given) {
    // The loader searches other folders for a relative path, and could load a file whose header was not
    // checked.
    std::wstring path;
    if (FAILED(Guard([&] { path = FullPath(given); }))) return E_FAIL;
    const WORD machine = ImageMachine(path);
    if (machine == 0 || machine == IMAGE_FILE_MACHINE_I386) return E_FAIL;
    // Outlives the guard, because an exception that the library throws has its code and data in the library.
    UniqueModule library = LoadLibraryByPath(path);
    // A failure from here on is not reported, as the header states.
    (void)Guard([&] {
        Register(FindExport(library.Get()));
        Libraries().push_back(std::move(library));
    });
    return S_OK;
}

bool HasPluginLibraries() {
    return !Libraries().empty();
}

void FreePluginLibraries() {
    for (UniqueModule& library : Libraries())
        library.Reset();
    Libraries().clear();
}

}  // namespace tarvik
