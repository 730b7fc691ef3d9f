// report_arguments FILE CODE [ARGUMENT ...]: writes its current folder and its arguments to the file, one per
// line, and exits with the code.
#include <windows.h>

#include "app/command_line/command_line.h"
#include "base/path.h"
#include "tarvik/owners.h"
#include "tarvik/text.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    using namespace tarvik;
    const CCommandLine line;
    if (line.argc < 3) return 1;
    const std::wstring folder = ReadPath([](wchar_t* buffer) { GetCurrentDirectoryW(kPathLength, buffer); });
    std::string text = Narrow(folder) + "\n";
    for (int i = 3; i < line.argc; ++i)
        text += Narrow(line.argv[i]) + "\n";
    const UniqueHandle file(CreateFileW(line.argv[1], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return _wtoi(line.argv[2]);
}
