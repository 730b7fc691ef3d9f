#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

// Fills `bytes`, whose memory is reused. False if the text is not base64.
bool DecodeBase64(std::string_view text, std::vector<BYTE>& bytes);

// On one line.
std::string EncodeBase64(std::span<const BYTE> bytes);

}  // namespace tarvik
