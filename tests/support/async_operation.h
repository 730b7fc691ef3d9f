#pragma once

#include <string>
#include <vector>

#include "tests/support/members.h"
#include "tests/support/recorder.h"

namespace tarvik {

inline constexpr char kSuccess[] = "success: EMPTY";

// The Completion::text of a failed operation, for most members.
inline std::string FailText(HRESULT status, const std::string& context = "EMPTY") {
    return "fail: I4 " + std::to_string(status) + ", " + context;
}

// How an operation of an asynchronous member ended.
struct Completion {
    std::string result;  // of the call itself
    std::string text;    // "success: " or "fail: " with the arguments; empty after a cancellation
    std::vector<std::string> progress;  // the arguments of each call of `progress`
};

// An operation of an asynchronous member. The constructor calls the member with the options and with
// functions of its own; some members take `callback` and `completed` instead of `progress` and `success`.
// `handler` computes what `progress` returns.
class AsyncOperation {
  public:
    AsyncOperation(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                   Recorder::Handler handler = {});

    // Whether the operation has released the functions. That needs the messages of this thread to be pumped.
    bool IsComplete() const;
    Completion Result() const;

  private:
    const ComPtr<Recorder> progress_;
    const ComPtr<Recorder> success_ = MakeCom<Recorder>();
    const ComPtr<Recorder> fail_ = MakeCom<Recorder>();
    std::string result_;
};

// The same, and pumps messages until the operation has ended.
Completion RunToCompletion(IDispatch* plugin, const wchar_t* member, const OptionObject& options,
                           Recorder::Handler handler = {});

}  // namespace tarvik
