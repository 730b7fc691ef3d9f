#pragma once

#include <windows.h>

#include <string>

#include "tests/support/test.h"

namespace tarvik {

// A key of the test's own below Software, made at the start and removed with all that is in it at the end.
class TestKey {
  public:
    explicit TestKey(HKEY root = HKEY_CURRENT_USER) : root_(root) {
        HKEY made = nullptr;
        isThere_ = RegCreateKeyW(root_, Path().c_str(), &made) == ERROR_SUCCESS;
        if (isThere_) RegCloseKey(made);
    }
    ~TestKey() { RegDeleteTreeW(root_, Path().c_str()); }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    // False where the user may not make it.
    bool IsThere() const { return isThere_; }
    const std::wstring& Name() const { return name_; }
    std::wstring Path(const std::wstring& below = L"") const {
        return L"Software\\" + name_ + (below.empty() ? L"" : L"\\" + below);
    }

    bool Has(const std::wstring& below) const {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root_, Path(below).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
        RegCloseKey(key);
        return true;
    }
    void Write(const std::wstring& name, DWORD type, const std::string& bytes) const {
        // A zero behind the bytes of a text would be taken for its terminator.
        const std::string followed = bytes + "more";
        EXPECT_EQ(RegSetKeyValueW(root_, Path().c_str(), name.c_str(), type, followed.data(),
                                  static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
    }
    void WriteText(const std::wstring& name, const std::wstring& text) const {
        Write(name, REG_SZ, {reinterpret_cast<const char*>(text.c_str()), 2 * (text.size() + 1)});
    }
    // The type and the bytes in hexadecimal digits.
    std::string Raw(const std::wstring& name) const {
        BYTE bytes[64];
        DWORD type = 0, size = sizeof bytes;
        if (RegGetValueW(root_, Path().c_str(), name.c_str(), RRF_RT_ANY | RRF_NOEXPAND, &type, bytes,
                         &size) != ERROR_SUCCESS)
            return "none";
        std::string text = std::to_string(type) + ":";
        for (DWORD i = 0; i < size; ++i) {
            text += "0123456789abcdef"[bytes[i] / 16];
            text += "0123456789abcdef"[bytes[i] % 16];
        }
        return text;
    }

  private:
    const HKEY root_;
    const std::wstring name_ = L"TarvikTest \u00e9\u6f22 " + std::to_wstring(GetCurrentProcessId());
    bool isThere_ = false;
};

}  // namespace tarvik
