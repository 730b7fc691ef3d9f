#pragma once

// Included by nearly every test: the test framework, access to objects as script has it, and checks of the
// results.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/path.h"
#include "base/text.h"
#include "tarvik/owners.h"
#include "tests/support/async_operation.h"
#include "tests/support/debug_channel.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/resource_counts.h"
#include "tests/support/script_host.h"
#include "tests/support/status_text.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

// The result with its type, or the status of a failed call.
inline std::string ResultText(const InvokeResult& out) {
    return out.status == S_OK ? ValueText(out.value) : StatusText(out.status);
}
template <class... Args>
std::string CallText(IDispatch* object, const wchar_t* name, Args&&... args) {
    return ResultText(CallMember(object, name, std::forward<Args>(args)...));
}
inline std::string GetText(IDispatch* object, const wchar_t* name) {
    return ResultText(GetMember(object, name));
}
inline std::string PutText(IDispatch* object, const wchar_t* name, Argument value) {
    return ResultText(PutMember(object, name, std::move(value)));
}

}  // namespace tarvik
