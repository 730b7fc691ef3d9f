#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvik {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static int count = 0;
    path_ = fs::temp_directory_path() /
            (L"tarvik-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count));
    fs::remove_all(path_);
    fs::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::wstring TempFolder::Write(std::wstring_view name, std::string_view bytes) const {
    const fs::path path = *this / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.wstring();
}

bool FileExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string ReadFileBytes(const std::wstring& path) {
    std::ifstream file(fs::path(path), std::ios::binary);
    if (!file) ADD_FAILURE() << "cannot read a file that should be there";
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tarvik
