#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

namespace tarvik {

// The EXCEPINFO of a failed call, with ownership of its strings.
class ExceptionInfo : public EXCEPINFO {
  public:
    ExceptionInfo() : EXCEPINFO{} {}
    ~ExceptionInfo();
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;

    // The status and the text that script gets for a call that returned `status`.
    HRESULT Status(HRESULT status);
    std::wstring Text(HRESULT status) const;
};

// Whether the object could not be reached, as opposed to having refused the call.
bool IsUnreachable(HRESULT status);

// Whether objects return this status when a method is read as a property.
bool IsRefusal(HRESULT status);

}  // namespace tarvik
