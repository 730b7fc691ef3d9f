// unzip_archive ARCHIVE FOLDER: one run of `minizip.unzip`, as a page makes it, from the call to its
// `success`.

#include <windows.h>
#include <ole2.h>

#include <chrono>
#include <cstdio>

#include "plugins/zip/zip_plugin.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

int Unzip(const wchar_t* archive, const wchar_t* folder) {
    const auto plugin = MakeCom<CZipPlugin>();
    const auto success = MakeCom<Recorder>();
    const auto fail = MakeCom<Recorder>();
    OptionObject options;
    options.Set(L"src", archive).Set(L"dest", folder);
    options.Set(L"success", success.Get()).Set(L"fail", fail.Get());
    CallMember(plugin.Get(), L"unzip", static_cast<IDispatch*>(options));
    PumpUntil([&] { return success->calls.size() + fail->calls.size() > 0; }, std::chrono::minutes(10));
    if (!success->calls.empty()) return 0;
    std::printf("unzip failed: %s\n", fail->calls.empty() ? "no end" : fail->Texts()[0].c_str());
    return 1;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) return 2;
    OleInitialize(nullptr);
    const int result = tarvik::Unzip(argv[1], argv[2]);
    OleUninitialize();
    return result;
}
