#include "script/object.h"

#include "script/value_operations.h"
#include "tarvik/properties.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(ScriptObjects, WorkWithARealScriptEngine) {
    const auto object = MakeCom<CObject>();
    const auto array = MakeCom<CArray>();
    for (const wchar_t* text : {L"x", L"y", L"z"})
        CallMember(array.Get(), L"push", text);
    SetScriptProperty(object.Get(), L"list", Variant::Object(array.Get()));
    ScriptHost bench(object.Get());
    bench.Run(
        L"external.a = 1; external.b = 'two';"
        L"var seen = [external.a === 1, typeof external.A];"
        L"for (var name in external) seen.push(name);"
        L"for (var i in external.list) seen.push(i + external.list[i]);");
    EXPECT_EQ(ValueText(bench.Evaluate(L"seen.join()")), "BSTR true,undefined,b,a,list,2z,1y,0x")
        << "names are case-sensitive and enumerated newest first, elements from the highest index down";
    EXPECT_EQ(GetText(object.Get(), L"b"), "BSTR two");
}

DISPID Ensure(IDispatchEx* object, const wchar_t* name, DISPID untouched) {
    const Bstr text(name);
    DISPID id = untouched;
    object->GetDispID(text.Get(), fdexNameEnsure, &id);
    return id;
}

TEST(ScriptObject, AssignsDescendingIdsPerProcess) {
    const auto first = MakeCom<CObject>();
    const auto second = MakeCom<CObject>();
    const DISPID a = Ensure(first.Get(), L"a", 0);
    EXPECT_LE(a, -6001);
    EXPECT_EQ(Ensure(second.Get(), L"a", 0), a - 1);
    EXPECT_EQ(Ensure(first.Get(), L"b", 0), a - 2);
    // A name that exists returns no id and uses none up.
    EXPECT_EQ(Ensure(first.Get(), L"a", 77), 77);
    EXPECT_EQ(Ensure(first.Get(), L"c", 0), a - 3);
    Bstr name;
    EXPECT_THAT(first->GetMemberName(a, name.Receive()), HasStatus(S_OK));
    EXPECT_EQ(name.View(), L"a");
    EXPECT_THAT(first->GetMemberName(a - 1, name.Receive()), HasStatus(DISP_E_UNKNOWNNAME));
}

TEST(ScriptArray, CountsEveryPropertyAndDropsAnElementWhoseNameExists) {
    const auto array = MakeCom<CArray>();
    CallMember(array.Get(), L"push", L"zero");
    CallMember(array.Get(), L"push");
    EXPECT_EQ(GetText(array.Get(), L"1"), "EMPTY");
    SetScriptProperty(array.Get(), L"4", Variant::Text(L"taken"));
    SetScriptProperty(array.Get(), L"length", Variant::I4(99));
    EXPECT_EQ(GetText(array.Get(), L"length"), "UI8 4");
    EXPECT_THAT(CallMember(array.Get(), L"push", L"lost", 1, 2).status, HasStatus(S_OK));
    EXPECT_EQ(GetText(array.Get(), L"4"), "BSTR taken");
    EXPECT_THAT(PutMember(array.Get(), L"length", 1).status, HasStatus(E_INVALIDARG));
}

TEST(ScriptValues, MoveOutAndConvertFromNarrowText) {
    const ObjectCheck oldValueIsCleared;
    Variant source = Variant::Text(L"moved");
    Variant destination = Variant::Object(MakeCom<CObject>().Get());
    EXPECT_THAT(MoveValueOut(&source, nullptr), HasStatus(E_POINTER));
    EXPECT_THAT(MoveValueOut(&source, &destination), HasStatus(S_OK));
    EXPECT_EQ(ValueText(source), "EMPTY");
    EXPECT_EQ(ValueText(destination), "BSTR moved");
    Bstr text;
    text.Attach(NarrowToBstr("narrow"));
    EXPECT_EQ(text.View(), L"narrow");
    EXPECT_EQ(NarrowToBstr(nullptr), nullptr);
}

// Creates so many elements that their ids pass those of `length` and `push`.
TEST(ScriptArray, SkipsTheIdsOfItsMembers) {
    constexpr int kElements = 4000;
    const auto array = MakeCom<CArray>();
    for (int i = 0; i < kElements; ++i) {
        const Variant value = Variant::I4(i);
        array->Push(&value);
        ASSERT_EQ(GetText(array.Get(), L"length"), "UI8 " + std::to_string(i + 1));
    }
    for (int i = 0; i < kElements; ++i)
        ASSERT_EQ(GetText(array.Get(), std::to_wstring(i).c_str()), "I4 " + std::to_string(i));
}

// Some engines pass variables by reference, which is valid only during the call.
TEST(ScriptObject, CopiesByReferenceValues) {
    const auto object = MakeCom<CObject>();
    const auto array = MakeCom<CArray>();
    {
        Variant variable = Variant::Text(L"kept");
        VARIANT reference = {};
        reference.vt = VT_VARIANT | VT_BYREF;
        reference.pvarVal = &variable;
        EXPECT_THAT(SetScriptProperty(object.Get(), L"a", reference), HasStatus(S_OK));
        array->Push(&reference);
    }
    EXPECT_EQ(ValueText(ReadScriptProperty(object.Get(), L"a")), "BSTR kept");
    EXPECT_EQ(ValueText(ReadScriptProperty(array.Get(), L"0")), "BSTR kept");
}

// The same operations on objects of a script engine.
TEST(ScriptValues, WorkWithObjectsOfARealEngine) {
    ScriptHost bench(MakeCom<CObject>().Get());
    bench.Run(L"var bag = {text: 'x', add: function (a, b) { return a + '/' + b; }};");
    const Variant bag = bench.Evaluate(L"bag");
    ASSERT_EQ(ValueText(bag), "DISPATCH");
    Variant absent;
    EXPECT_THAT(GetScriptProperty(bag.pdispVal, L"none", &absent), HasStatus(DISP_E_UNKNOWNNAME));
    EXPECT_EQ(ValueText(absent), "EMPTY");
    const auto object = MakeCom<CObject>();
    EXPECT_THAT(SetScriptProperty(bag.pdispVal, L"made", Variant::Object(object.Get())), HasStatus(S_OK));
    EXPECT_EQ(ValueText(bench.Evaluate(L"typeof bag.made")), "BSTR object");
    const Variant add = ReadScriptProperty(bag.pdispVal, L"add");
    Variant joined;
    EXPECT_THAT(CallWithContext(add.pdispVal, Variant::I4(1), Variant::Text(L"c"), &joined), HasStatus(S_OK));
    EXPECT_EQ(ValueText(joined), "BSTR 1/c");
    EXPECT_THAT(GetScriptProperty(nullptr, L"a", &absent), HasStatus(E_INVALIDARG));
    EXPECT_THAT(GetScriptProperty(bag.pdispVal, L"a", nullptr), HasStatus(E_POINTER));
}

}  // namespace
}  // namespace tarvik
