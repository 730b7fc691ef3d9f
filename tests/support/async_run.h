#pragma once

#include <string>
#include <vector>

#include "tests/support/members.h"
#include "tests/support/recorder.h"

namespace tarvik {

inline constexpr char kSuccess[] = "success: EMPTY";

// How most members tell a failure.
inline std::string FailText(HRESULT status, const std::string& context = "EMPTY") {
    return "fail: I4 " + std::to_string(status) + ", " + context;
}

// How a run of an asynchronous member ended: "success: " or "fail: " with the arguments as text, or nothing
// after a cancel; and the arguments of every call of `progress`.
struct Ending {
    std::string result;  // of the call itself
    std::string text;
    std::vector<std::string> progress;
};

// One run of an asynchronous member, with these options and functions of its own, which it is called with at
// once; `callback` and `completed` of some members are its `progress` and `success`. The options are borrowed
// for the call. `answer` is that of `progress`.
class AsyncRun {
  public:
    AsyncRun(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
             Recorder::Answer answer = {});

    // The functions have been let go of. It takes messages to come to that.
    bool IsOver() const;
    Ending End() const;

  private:
    const ComPtr<Recorder> progress_;
    const ComPtr<Recorder> success_ = MakeCom<Recorder>();
    const ComPtr<Recorder> fail_ = MakeCom<Recorder>();
    std::string result_;
};

// Calls the member with these options and functions of its own, and pumps messages until the run has let go
// of them. `answer` is that of `progress`.
Ending RunToEnd(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                Recorder::Answer answer = {});

}  // namespace tarvik
