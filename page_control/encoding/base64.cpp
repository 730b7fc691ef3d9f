#include "page_control/encoding/base64.h"

#include <wincrypt.h>

namespace tarvik {

bool DecodeBase64(std::string_view text, std::vector<BYTE>& bytes) {
    bytes.resize(text.size() / 4 * 3 + 3);
    auto size = static_cast<DWORD>(bytes.size());
    // The function takes the length 0 for that of a terminated string.
    const bool decoded =
        text.empty() || CryptStringToBinaryA(text.data(), static_cast<DWORD>(text.size()),
                                             CRYPT_STRING_BASE64, bytes.data(), &size, nullptr, nullptr);
    bytes.resize(decoded && !text.empty() ? size : 0);
    return decoded;
}

std::string EncodeBase64(std::span<const BYTE> bytes) {
    constexpr DWORD kFlags = CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF;
    const auto size = static_cast<DWORD>(bytes.size());
    std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');  // with the terminator
    auto length = static_cast<DWORD>(text.size());
    const bool encoded = size > 0 && CryptBinaryToStringA(bytes.data(), size, kFlags, text.data(), &length);
    text.resize(encoded ? length : 0);
    return text;
}

}  // namespace tarvik
