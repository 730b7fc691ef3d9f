#pragma once

#include <functional>
#include <string_view>

namespace tarvik {

// Exit codes of console programs.
inline constexpr int kSuccess = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

// Runs a console program and returns its exit code. Errors go to standard error, after the program's name.
int RunProgram(std::wstring_view name, const std::function<void()>& work);

}  // namespace tarvik
