#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "tarvik/bstr.h"
#include "tarvik/owners.h"

namespace tarvik {

// Named shared memory that carries one message to one window during one SendMessageW. In UTF-16:
//
//     the message's name, NUL, the payload, NUL
//
// The block's name contains the sender's process id and the window.
class SharedBlock {
  public:
    // Empty if the texts are too long, the system fails, or a block of that name exists, which is not ours.
    // The message's name ends at its first NUL; the payload may contain NULs.
    static SharedBlock Make(HWND target, const wchar_t* name, std::wstring_view payload);

    SharedBlock() = default;
    explicit operator bool() const { return static_cast<bool>(mapping_); }
    DWORD Size() const { return size_; }  // in bytes

  private:
    SharedBlock(UniqueHandle mapping, DWORD size) : mapping_(std::move(mapping)), size_(size) {}

    UniqueHandle mapping_;
    DWORD size_ = 0;
};

struct BusMessage {
    std::wstring name;  // not empty
    Bstr payload;       // null if absent
};

// Reads a sender's block for the window. Block and `size`, in bytes, are untrusted.
std::optional<BusMessage> ReadSharedBlock(DWORD sender, HWND target, size_t size);

}  // namespace tarvik
