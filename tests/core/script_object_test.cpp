#include "tarvik/script_object.h"

#include "script/object.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// The objects of a script engine and those of the host differ in the type of `length` and in the order of
// names.
TEST(ScriptObject, AccessesMembersAndElements) {
    ScriptHost host(MakeCom<CObject>().Get());
    host.Run(L"var object = {b: 1, a: null, f: function () {}};");
    const ScriptObject object(host.Evaluate(L"object").pdispVal);
    EXPECT_THAT(object.Names(), ElementsAre(L"b", L"a", L"f"));
    EXPECT_TRUE(object.Has(L"a"));
    EXPECT_FALSE(object.Has(L"c"));
    EXPECT_TRUE(object.Function(L"f"));
    EXPECT_FALSE(object.Function(L"b"));
    EXPECT_EQ(object.Get<int>(L"b"), 1);
    EXPECT_EQ(object.Get<bool>(L"b"), std::nullopt);
    EXPECT_EQ(object.Get(L"b", 2), 1);
    EXPECT_EQ(object.Get<std::wstring>(L"b", L"absent"), L"absent");
    EXPECT_EQ(ValueText(object.Get(L"a")), "NULL");

    const ScriptObject ofScript(host.Evaluate(L"[]").pdispVal), ofHost(MakeCom<CArray>().Get());
    for (const ScriptObject& array : {ofScript, ofHost}) {
        EXPECT_EQ(array.Length(), 0u);
        array.Push(L"first");
        array.Push(2);
        EXPECT_EQ(array.Length(), 2u);
        EXPECT_EQ(array.At<std::wstring>(0), L"first");
        EXPECT_EQ(array.At<std::wstring>(1), std::nullopt);
        EXPECT_EQ(ValueText(array.At(2)), "EMPTY");
    }
    EXPECT_THAT(ofScript.Names(), ElementsAre(L"0", L"1"));
    EXPECT_THAT(ofHost.Names(), ElementsAre(L"1", L"0"));
}

TEST(ScriptObject, ThrowsForWhatAnObjectCannotDo) {
    const ScriptObject empty, object(MakeCom<CObject>().Get()), function(MakeCom<Recorder>().Get());
    EXPECT_EQ(ValueText(empty.Get(L"a")), "EMPTY");
    EXPECT_FALSE(empty.Has(L"a"));
    EXPECT_THAT(Guard([&] { empty.Set(L"a", 1); }), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Guard([&] { empty.Call(L"a"); }), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Guard([&] { static_cast<void>(empty.Names()); }), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Guard([&] { static_cast<void>(function.Names()); }), HasStatus(E_NOINTERFACE));
    EXPECT_THAT(Guard([&] { static_cast<void>(object.Length()); }), HasStatus(E_INVALIDARG));
}

}  // namespace
}  // namespace tarvik
