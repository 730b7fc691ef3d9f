#pragma once

#include <windows.h>

#include <exception>
#include <string>

#include "tarvik/status.h"

namespace tarvik {

// Why a program does not do what it was asked for, in words for its user.
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

// The system's words for a status, or its number if there are none.
std::wstring Reason(HRESULT status);

// What could not be done, and the system's reason; without a status, the last error.
[[noreturn]] void FailAs(const std::wstring& what, HRESULT status);
[[noreturn]] void FailWithLastError(const std::wstring& what);

// Does work that throws statuses, and puts what it was for in front of them.
template <class Work>
auto Explained(const std::wstring& what, Work&& work) {
    try {
        return work();
    } catch (const StatusError& error) {
        FailAs(what, error.Status());
    }
}

}  // namespace tarvik
