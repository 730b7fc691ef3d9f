#include "tests/support/temp_folder.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include <gtest/gtest.h>

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

UniqueHandle HoldFile(const std::wstring& path, DWORD share) {
    return UniqueHandle(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

bool FileExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string ReadFileBytes(const std::wstring& path) {
    std::ifstream file(fs::path(path), std::ios::binary);
    if (!file) ADD_FAILURE() << "cannot read a file";
    return {std::istreambuf_iterator<char>(file), {}};
}

namespace {

// Long contents by their hash, because a failed comparison prints both sides.
std::string Shortened(std::string content) {
    if (content.size() < 100) return content;
    return std::to_string(content.size()) + " bytes, hash " +
           std::to_string(std::hash<std::string>{}(content));
}

}  // namespace

std::vector<std::pair<std::u8string, std::string>> ReadTree(const std::wstring& folder) {
    std::vector<std::pair<std::u8string, std::string>> tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const bool isFolder = entry.is_directory();
        tree.emplace_back(
            entry.path().lexically_relative(folder).generic_u8string() + (isFolder ? u8"/" : u8""),
            isFolder ? std::string() : Shortened(ReadFileBytes(entry.path().wstring())));
    }
    std::ranges::sort(tree);
    return tree;
}

}  // namespace tarvik
