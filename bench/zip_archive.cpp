// zip_archive pack|unpack minizip|miniz FROM TO: packs a folder to an archive, or unpacks an archive to a
// folder, by a member of the plug-in `minizip`, or directly with the library miniz. Prints the CPU seconds in
// user and kernel mode, and the peak of memory in MB.

#include <windows.h>
#include <ole2.h>
#include <psapi.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include <miniz.h>

#include "plugins/zip/zip_plugin.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/waiting.h"

namespace {

namespace fs = std::filesystem;

bool RunMember(const wchar_t* member, const wchar_t* from, const wchar_t* to) {
    using namespace tarvik;
    const auto plugin = MakeCom<CZipPlugin>();
    const auto success = MakeCom<Recorder>();
    const auto fail = MakeCom<Recorder>();
    OptionObject options;
    options.Set(L"src", from).Set(L"dest", to).Set(L"success", success).Set(L"fail", fail);
    CallMember(plugin.Get(), member, static_cast<IDispatch*>(options));
    PumpUntil([&] { return success->calls.size() + fail->calls.size() > 0; }, std::chrono::minutes(30));
    if (success->calls.empty())
        std::printf("%s\n", fail->calls.empty() ? "timeout" : fail->Texts()[0].c_str());
    return !success->calls.empty();
}

size_t ReadAt(void* file, mz_uint64 offset, void* buffer, size_t count) {
    auto* const source = static_cast<std::FILE*>(file);
    _fseeki64(source, static_cast<long long>(offset), SEEK_SET);
    return std::fread(buffer, 1, count, source);
}

size_t WriteAt(void* file, mz_uint64 offset, const void* data, size_t count) {
    auto* const target = static_cast<std::FILE*>(file);
    _fseeki64(target, static_cast<long long>(offset), SEEK_SET);
    return std::fwrite(data, 1, count, target);
}

bool PackDirectly(const wchar_t* folder, const wchar_t* archive) {
    mz_zip_archive zip = {};
    std::FILE* const target = _wfopen(archive, L"wb");
    zip.m_pWrite = WriteAt;
    zip.m_pIO_opaque = target;
    bool succeeded = mz_zip_writer_init_v2(&zip, 0, 0);
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        std::FILE* const source = _wfopen(entry.path().c_str(), L"rb");
        const std::string name = entry.path().lexically_relative(folder).generic_string();
        succeeded = succeeded &&
                    mz_zip_writer_add_read_buf_callback(&zip, name.c_str(), ReadAt, source, entry.file_size(),
                                                        nullptr, nullptr, 0, 6, nullptr, 0, nullptr, 0);
        std::fclose(source);
    }
    succeeded = succeeded && mz_zip_writer_finalize_archive(&zip);
    mz_zip_writer_end(&zip);
    return std::fclose(target) == 0 && succeeded;
}

bool UnpackDirectly(const wchar_t* archive, const wchar_t* folder) {
    mz_zip_archive zip = {};
    std::FILE* const source = _wfopen(archive, L"rb");
    zip.m_pRead = ReadAt;
    zip.m_pIO_opaque = source;
    bool succeeded =
        mz_zip_reader_init(&zip, fs::file_size(archive), MZ_ZIP_FLAG_DO_NOT_SORT_CENTRAL_DIRECTORY);
    for (mz_uint i = 0; succeeded && i < mz_zip_reader_get_num_files(&zip); ++i) {
        mz_zip_archive_file_stat member;
        succeeded = mz_zip_reader_file_stat(&zip, i, &member);
        if (member.m_is_directory) continue;
        const fs::path path = fs::path(folder) / member.m_filename;
        fs::create_directories(path.parent_path());
        std::FILE* const target = _wfopen(path.c_str(), L"wb");
        succeeded = succeeded && mz_zip_reader_extract_to_callback(&zip, i, WriteAt, target, 0);
        std::fclose(target);
    }
    mz_zip_reader_end(&zip);
    std::fclose(source);
    return succeeded;
}

void PrintCosts() {
    FILETIME created, ended, system, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &system, &user);
    const auto seconds = [](const FILETIME& time) {
        return static_cast<double>(ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart) / 1e7;
    };
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    std::printf("%.2f %.2f %.1f\n", seconds(user), seconds(system),
                static_cast<double>(memory.PeakWorkingSetSize) / 1e6);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 5) return 2;
    const bool packs = std::wstring_view(argv[1]) == L"pack";
    const bool byMember = std::wstring_view(argv[2]) == L"minizip";
    OleInitialize(nullptr);
    const bool succeeded = byMember ? RunMember(packs ? L"zip" : L"unzip", argv[3], argv[4])
                           : packs  ? PackDirectly(argv[3], argv[4])
                                    : UnpackDirectly(argv[3], argv[4]);
    PrintCosts();
    OleUninitialize();
    return succeeded ? 0 : 1;
}
