#include "script/object.h"

#include <gtest/gtest.h>

#include "script/properties.h"
#include "tests/support/leak_check.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/script_bench.h"
#include "tests/support/status_text.h"

namespace tarvik {
namespace {

TEST(ScriptObject, IsReadWrittenAndEnumeratedByRealScript) {
    const auto object = MakeCom<CObject>();
    ScriptBench bench(object.Get());
    bench.Run(
        L"external.a = 1; external.b = 'two';"
        L"ok(external.a === 1, 'a new property is made by assignment');"
        L"ok(external.A === undefined, 'names are exact');"
        L"var seen = []; for (var name in external) seen.push(name);"
        L"ok(seen.join() === 'b,a', 'newest first: ' + seen.join());");
    EXPECT_EQ(ValueText(GetMember(object.Get(), L"b").value), "BSTR two");
}

TEST(ScriptArray, WalksFromTheHighestIndexDown) {
    const auto array = MakeCom<CArray>();
    for (const wchar_t* text : {L"x", L"y", L"z"})
        CallMember(array.Get(), L"push", text);
    ScriptBench bench(array.Get());
    bench.Run(
        L"var seen = []; for (var i in external) seen.push(i + external[i]);"
        L"ok(seen.join() === '2z,1y,0x', seen.join());");
    EXPECT_EQ(ValueText(GetMember(array.Get(), L"length").value), "UI8 3");
}

}  // namespace
}  // namespace tarvik
