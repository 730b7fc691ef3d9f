#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "tarvik/bstr.h"
#include "tarvik/owners.h"

namespace tarvik {

// The named memory that carries one message to one window, and lives for one SendMessageW:
//
//     the message's name, a zero, the payload, a zero
//
// in UTF-16. Without a payload only the two zeros follow the name. The block's name says who sends to whom.
class SharedBlock {
  public:
    // Empty if the texts are too long or the system refuses; also if a block of that name is there, which is
    // none of ours. The name of the message ends at its first zero, the payload may hold some.
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
    Bstr payload;       // null if there is none
};

// What the block of that sender says to the window. Neither the block nor its size, in bytes, is believed.
std::optional<BusMessage> ReadSharedBlock(DWORD sender, HWND target, size_t size);

}  // namespace tarvik
