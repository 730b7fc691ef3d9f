#pragma once

#include <functional>
#include <string_view>

namespace tarvik {

// Exit codes of console programs.
inline constexpr int kGood = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

// Does the work of a console program and answers its exit code. What goes wrong is told on the channel for
// errors, behind the program's name.
int RunProgram(std::wstring_view name, const std::function<void()>& work);

}  // namespace tarvik
