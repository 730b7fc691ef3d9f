#pragma once

#include <windows.h>

#include <exception>
#include <string>

#include "tarvik/status.h"

namespace tarvik {

// A failure of the program, described for its user.
class Failure : public std::exception {
  public:
    explicit Failure(std::wstring text) : text_(std::move(text)) {}
    const std::wstring& Text() const noexcept { return text_; }

  private:
    std::wstring text_;
};

// The command line is wrong.
class UsageError : public Failure {
    using Failure::Failure;
};

// The system's message for a status, or its number if there is none.
std::wstring Reason(HRESULT status);

// Throws a Failure: what failed, and why. The second takes the status from the last error.
[[noreturn]] void FailAs(const std::wstring& what, HRESULT status);
[[noreturn]] void FailWithLastError(const std::wstring& what);

// Runs `work` and converts a StatusError that it throws to a Failure that says what was attempted.
template <class Work>
auto WithContext(const std::wstring& what, Work&& work) {
    try {
        return work();
    } catch (const StatusError& error) {
        FailAs(what, error.Status());
    }
}

}  // namespace tarvik
