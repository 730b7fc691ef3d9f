#include <algorithm>
#include <ctime>
#include <cwchar>

#include "archive/decoded_name.h"
#include "base/path.h"
#include "cli/console.h"
#include "cli/interrupt.h"
#include "pack/attached_archive.h"
#include "pack/commands.h"
#include "pack/numbers.h"

namespace tarvik {

namespace {

constexpr size_t kTimeWidth = 19;

std::wstring LocalTime(std::time_t time) {
    std::tm local = {};
    localtime_s(&local, &time);
    wchar_t text[32] = {};
    wcsftime(text, std::size(text), L"%Y-%m-%d %H:%M:%S", &local);
    return text;
}

std::wstring Column(const std::wstring& number) {
    constexpr size_t kWidth = 13;
    return std::wstring(kWidth - std::min(kWidth, number.size()), L' ') + number;
}

void Print(ArchiveReader& reader) {
    ULONGLONG total = 0;
    for (mz_uint index = 0; index < reader.Count(); ++index) {
        Interrupt::ThrowIfRequested();
        const ArchiveEntry entry = reader.Lookup(index);
        const auto& stat = entry.Stat();
        total += stat.m_uncomp_size;
        Console::Out().Write(LocalTime(stat.m_time) + Column(WithCommas(stat.m_uncomp_size)) + L"  " +
                             DecodedName(entry) + L"\n");
    }
    Console::Out().Write(std::wstring(kTimeWidth, L' ') + Column(WithCommas(total)) + L"  in " +
                         WithCommas(reader.Count()) + L" files and folders\n");
}

}  // namespace

void ListProgram(const std::wstring& program) {
    const std::wstring path = FullPath(program);
    AttachedArchive attached(path);
    try {
        Print(attached.Reader());
    } catch (const ArchiveError&) {
        FailAsDamaged(path);
    }
}

}  // namespace tarvik
