#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// A PostScript printer of Wine, the default one, which writes to a file over what it holds. It has a name
// that no other had, because Wine's driver remembers the files of printers by their names.
class TestPrinter {
  public:
    explicit TestPrinter(const std::wstring& file);
    ~TestPrinter();
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    const std::wstring& Name() const { return name_; }

  private:
    std::wstring name_;
    HANDLE printer_ = nullptr;
};

}  // namespace tarvik
