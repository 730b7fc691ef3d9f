#pragma once

#include "plugins/registry_keys/registry_key.h"
#include "tests/support/test.h"

namespace tarvik {

// Names a new key below Software for one test, and deletes it with its contents at the end.
class TestKey {
  public:
    explicit TestKey(HKEY root = HKEY_CURRENT_USER) : root_(root) {}
    ~TestKey() { RegDeleteTreeW(root_, Path().c_str()); }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    const std::wstring& Name() const { return name_; }
    std::wstring Path() const { return L"Software\\" + name_; }
    bool Has(const std::wstring& below) const {
        return static_cast<bool>(TryOpenKey(root_, Path() + L"\\" + below, kReadKey));
    }

    // Creates the key if it is missing.
    void Write(const wchar_t* value, DWORD type, const std::string& bytes) const {
        // Wine takes a NUL behind the bytes of a text for its terminator.
        const std::string followed = bytes + "more";
        EXPECT_EQ(RegSetKeyValueW(root_, Path().c_str(), value, type, followed.data(),
                                  static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
    }
    std::pair<DWORD, std::string> Read(const wchar_t* value) const {
        char bytes[64];
        DWORD type = 0, size = sizeof bytes;
        EXPECT_EQ(RegGetValueW(root_, Path().c_str(), value, RRF_RT_ANY | RRF_NOEXPAND, &type, bytes, &size),
                  ERROR_SUCCESS);
        return {type, std::string(bytes, size)};
    }

  private:
    const HKEY root_;
    const std::wstring name_ = L"TarvikTest \u00e9\u6f22 " + std::to_wstring(GetCurrentProcessId()) + L" " +
                               std::to_wstring(GetTickCount64());
};

}  // namespace tarvik
