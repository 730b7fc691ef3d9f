#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

namespace tarvik {

// What a failed call tells about itself. Owner of the strings.
class ExceptionInfo : public EXCEPINFO {
  public:
    ExceptionInfo() : EXCEPINFO{} {}
    ~ExceptionInfo();
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;

    // The status and the text that script sees when a call ended with `status`.
    HRESULT Status(HRESULT status);
    std::wstring Text(HRESULT status) const;
};

// Whether the other side of a call has gone or cannot take it now, as opposed to having refused it.
bool IsUnreachable(HRESULT status);

// Whether a status is how objects answer the read of a member that can only be called.
bool IsRefusal(HRESULT status);

}  // namespace tarvik
