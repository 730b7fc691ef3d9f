#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

#include "tarvik/status.h"

namespace tarvik {

// Owner of a BSTR, a string of the system's allocator with its length. A null BSTR reads as an empty string.
class Bstr {
  public:
    Bstr() noexcept = default;  // null
    // A copy of the text, never null. Throws std::bad_alloc when out of memory.
    explicit Bstr(std::wstring_view text)
        : value_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (!value_) throw std::bad_alloc();
    }
    Bstr(Bstr&& other) noexcept : value_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        if (this != &other) Attach(other.Detach());
        return *this;
    }
    ~Bstr() { SysFreeString(value_); }

    BSTR Get() const noexcept { return value_; }
    bool IsNull() const noexcept { return value_ == nullptr; }
    // Valid until the string is freed. The static form takes any BSTR, also null.
    std::wstring_view View() const noexcept { return View(value_); }
    static std::wstring_view View(BSTR text) noexcept {
        return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
    }

    // The caller has to free the string.
    BSTR Detach() noexcept { return std::exchange(value_, nullptr); }
    // Takes the string over and frees the old one.
    void Attach(BSTR value) noexcept {
        const BSTR old = std::exchange(value_, value);
        SysFreeString(old);
    }
    // For calls that fill an out parameter; frees the old string.
    BSTR* Receive() noexcept {
        Attach(nullptr);
        return &value_;
    }

  private:
    BSTR value_ = nullptr;
};

}  // namespace tarvik
