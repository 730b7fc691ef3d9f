#pragma once

#include <filesystem>

#include "tests/support/console_program.h"
#include "tests/support/test.h"

namespace tarvik {

// Runs tarvik-pack in a folder of the test.
class PackTest : public testing::Test {
  protected:
    static std::filesystem::path Host() {
        return std::filesystem::path(ExecutablePath()).parent_path() / L"tarvik.exe";
    }

    // Returns the output, or the error output if a failure is expected.
    std::string Run(const std::vector<std::wstring>& arguments, DWORD code = 0) const {
        const ConsoleProgram program(L"tarvik-pack", arguments, folder_.Path());
        EXPECT_EQ(program.Wait(), code) << program.Error();
        EXPECT_EQ(program.Error().empty(), code == 0);
        return code == 0 ? program.Out() : program.Error();
    }

    const TempFolder folder_;
};

// The header in the content of a program.
inline IMAGE_NT_HEADERS64& HeaderOf(std::string& image) {
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image.data());
    return *reinterpret_cast<IMAGE_NT_HEADERS64*>(image.data() + dos->e_lfanew);
}

// An icon file with one picture.
inline std::string IconFileOf(const std::string& picture) {
    std::string file("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0", 14);
    const DWORD sizeAndOffset[] = {static_cast<DWORD>(picture.size()), 22};
    return file.append(reinterpret_cast<const char*>(sizeAndOffset), sizeof sizeAndOffset) + picture;
}

// A picture of 16 by 16 pixels.
inline std::string Picture() {
    const BITMAPINFOHEADER header = {sizeof header, 16, 32, 1, 32};
    return std::string(reinterpret_cast<const char*>(&header), sizeof header) +
           std::string(16 * 16 * 4, '\x7F') + std::string(16 * 4, '\0');
}

}  // namespace tarvik
