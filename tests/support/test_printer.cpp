#include "tests/support/test_printer.h"

#include <winspool.h>

#include <gtest/gtest.h>

#include "base/write_file.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

// Wine's description of a printer without features, which it only writes for printers that it finds itself.
void WriteDescription(const std::wstring& path) {
    const UniqueModule spooler(LoadLibraryW(L"winspool.drv"));
    const HRSRC found = FindResourceW(spooler.Get(), MAKEINTRESOURCEW(1), L"PPDFILE");
    ASSERT_TRUE(found);
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    WriteAll(file.Get(), LockResource(LoadResource(spooler.Get(), found)),
             SizeofResource(spooler.Get(), found));
}

}  // namespace

TestPrinter::TestPrinter(const std::wstring& file) {
    static int count = 0;
    name_ = L"Tarvik test " + std::to_wstring(++count);
    wchar_t driver[] = L"Tarvik test driver", library[] = L"wineps.drv", description[] = L"generic.ppd";
    wchar_t raw[] = L"RAW", processor[] = L"WinPrint";
    DRIVER_INFO_3W type = {};
    type.cVersion = 3;
    type.pName = driver;
    type.pDriverPath = type.pConfigFile = library;
    type.pDataFile = description;
    type.pDefaultDataType = raw;
    AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&type),
                        APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY);
    wchar_t folder[MAX_PATH] = {};
    DWORD size = 0;
    EXPECT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &size));
    WriteDescription(std::wstring(folder) + L"\\3\\" + description);
    std::wstring port = file;
    PRINTER_INFO_2W info = {};
    info.pPrinterName = name_.data();
    info.pPortName = port.data();
    info.pDriverName = driver;
    info.pPrintProcessor = processor;
    info.pDatatype = raw;
    EXPECT_TRUE(AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info)));
    EXPECT_TRUE(SetDefaultPrinterW(name_.c_str()));
    EXPECT_TRUE(OpenPrinterW(name_.data(), &printer_, nullptr));
}

TestPrinter::~TestPrinter() {
    EXPECT_TRUE(DeletePrinter(printer_));
    ClosePrinter(printer_);
}

}  // namespace tarvik
