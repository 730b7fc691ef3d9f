#pragma once

#include <string>

#include "cli/arguments.h"

namespace tarvik {

// What each command does with its one operand; a Failure or a UsageError tells why it did not.
void NewApplication(const std::wstring& folder, const Arguments& arguments);
void BuildProgram(const std::wstring& folder, const Arguments& arguments);
void ListProgram(const std::wstring& program, const Arguments& arguments);
void ExtractProgram(const std::wstring& program, const Arguments& arguments);

}  // namespace tarvik
