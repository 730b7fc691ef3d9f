#include "script/object.h"
#include "tarvik/properties.h"
#include "tests/page_control/bridge/bridge_fixture.h"

namespace tarvik {
namespace {

class Bridge : public testing::Test {
  protected:
    // One engine for all tests.
    static void SetUpTestSuite() { connection_ = engine_->Acquire(); }
    static void TearDownTestSuite() { connection_.reset(); }

    // Expressions and their values.
    void Check(std::initializer_list<std::pair<const char*, const char*>> cases) {
        for (const auto& [expression, value] : cases)
            EXPECT_EQ(page_.Evaluate(expression), value) << expression;
    }

  private:
    static inline const auto engine_ = std::make_shared<SharedEngine>();
    static inline std::shared_ptr<DevTools> connection_;

  protected:
    BridgedPage page_{*engine_};
};

TEST_F(Bridge, PassesValuesOfEveryTypeInBothDirections) {
    page_.Open("");
    EXPECT_EQ(
        page_.Evaluate(R"([1, -5, 2.5, 3000000000, -0, NaN, Infinity, -Infinity, true, false, null, undefined,
        'text', '\u0000\u00e9\u6f22\ud83d\ude00\u2028\n"\\', '\ud800', '\udc00x', 'a\ud800\ud800']
        .filter(v => !Object.is(external.echo(v), v)))"),
        "[]");
    page_.Evaluate("[0, 1.5, 3000000000, '', undefined, null, true, {}].forEach(v => external.note(v))");
    EXPECT_THAT(page_.desk->notes, ElementsAre("I4 0", HasSubstr("R8 1.5"), HasSubstr("R8 3"), "BSTR ",
                                               "EMPTY", "NULL", "BOOL true", HasSubstr("DISPATCH")));
}

TEST_F(Bridge, PassesBigIntsInUnsignedTypes) {
    page_.Open(R"(<script>function refused(f) {
        try { f(); return 'no error'; } catch (e) { return [e instanceof RangeError, e.number]; }
    } var big = { a: 1, b: 2n ** 64n, c: 3n };</script>)");
    page_.Evaluate(
        "[0n, 4294967295n, 4294967296n, 2n ** 64n - 1n, -1n, -(2n ** 63n)].forEach(v => external.note(v))");
    EXPECT_THAT(page_.desk->notes,
                ElementsAre("UI4 0", "UI4 4294967295", "UI8 4294967296", "UI8 18446744073709551615", "I8 -1",
                            "I8 -9223372036854775808"));
    Check({
        // Native code's results are plain numbers, whatever their type.
        {"[5n, 2n ** 53n, -7n].map(v => external.echo(v))", "[5,9007199254740992,-7]"},
        {"refused(() => external.echo({}, 2n ** 64n))", "[true,-2147352566]"},
        {"refused(() => { external.text = -(2n ** 63n) - 1n; })", "[true,-2147352566]"},
        {"external.options(big, 'a b c z')", "\"I4 1, EMPTY, UI4 3, none\""},
    });
}

TEST_F(Bridge, ReadsAndWritesPropertiesAndThrowsFailures) {
    page_.Open(R"(<script>function fails(f) {
        try { f(); return 'no error'; } catch (e) { return [e instanceof Error, e.number, !!e.message]; }
    }</script>)");
    Check({
        {"(external.size = 8, external.size)", "8"},
        {"(external['\\ud800'], '\\ud800' in external)", "false"},
        {"fails(() => external.fail(0x80004004 | 0))", "[true,-2147467260,true]"},
        {"fails(() => { external.size = 0; })", "[true,-2147024809,true]"},
        // A member that could not be read, or was empty, may be a property later.
        {"(external.size = 4, typeof external.size)", "\"function\""},
        {"(external.size = 5, external.size)", "5"},
        {"(external.text, external.text = 't', external.text)", "\"t\""},
    });
}

// The page replaces the language's built-ins.
TEST_F(Bridge, WorksWithReplacedBuiltIns) {
    page_.Open(R"(<base href='http://example.test/'><form name='baseURI'></form><script>
        const { ownKeys } = Reflect, { defineProperty } = Object;
        function each(list, use) { for (let i = 0; i < list.length; ++i) use(list[i]); }
        function test(names) {
            const boom = () => { throw new TypeError('replaced'); };
            const note = external.note;
            const spoil = (object) => each(ownKeys(object), (key) => {
                try { defineProperty(object, key, { value: boom }); } catch {}
            });
            each([Function, String, Map, WeakMap, WeakRef, Array, Object, Event, URL], (type) => {
                const prototype = type.prototype;
                spoil(type);
                spoil(prototype);
            });
            each([JSON, Reflect], spoil);
            each(['get', 'value', 'enumerable'], (name) =>
                defineProperty(Object.prototype, name, { __proto__: null, value: boom }));
            each(names, (name) => { window[name] = undefined; });
            note(1);
            external.size = 6;
            let seen = '' + external.size + external.echo('text') + external.run(function (a) { return a + 1; }, 4);
            const object = { a: 1, b: 't' };
            seen += external.echo(object) === object;
            for (const name in external.kept) seen += name;
            seen += '|' + external.options(object, 'a b c toString');
            try { external.fail(-2147467259); } catch (e) { seen += '|' + e.number; }
            open('there');
            return seen + '|' + external.echo(external);
        }
    </script>)");
    const auto array = MakeCom<CArray>();
    array->Push(nullptr);
    array->Push(nullptr);
    page_.desk->kept = Variant::Object(array.Get());
    const Json reply = page_.target.Call(
        "Runtime.evaluate",
        {{"expression",
          "test(['Symbol', 'Proxy', 'Number', 'Error', 'Date', 'URL', 'FinalizationRegistry', 'eval', "
          "'reportError', 'setTimeout'])"}},
        30'000);
    EXPECT_EQ(reply["result"].value("value", std::string()),
              "6text5true10|I4 1, BSTR t, none, object|-2147467259|[object]")
        << reply;
    EXPECT_THAT(page_.desk->notes, ElementsAre("I4 1"));
    EXPECT_THAT(page_.opened, ElementsAre(L"http://example.test/there"));
}

TEST_F(Bridge, ReadsWritesAndEnumeratesNativeData) {
    const auto array = MakeCom<CArray>();
    for (const wchar_t* text : {L"a", L"b", L"c"}) {
        const Variant value = Variant::Text(text);
        array->Push(&value);
    }
    page_.desk->kept = Variant::Object(array.Get());
    page_.Open("");
    Check({
        {"typeof external.kept", "\"object\""},
        {"external.kept.length", "3"},
        {"external.kept[1]", "\"b\""},
        {"(() => { let k = ''; for (const n in external.kept) k += n; return k; })()", "\"210\""},
        {"(external.kept.push('d'), external.kept[3] + external.kept.length)", "\"d4\""},
        {"(external.kept.note = undefined, typeof external.kept.note)", "\"undefined\""},
        {"(external.kept.more = { a: 5 }, external.kept.more.a)", "5"},
    });
}

TEST_F(Bridge, ContinuesAtDebuggerStatementsOfThePage) {
    page_.Open("<script>debugger; external.note('on');</script>");
    EXPECT_EQ(page_.Evaluate("external.run(() => { debugger; return 1; })"), "1");
    EXPECT_THAT(page_.desk->notes, ElementsAre("BSTR on"));
}

TEST_F(Bridge, InvalidatesCachedMembersAfterScriptRuns) {
    page_.Open(
        "<script>var o = { a: 1, get b() { return 'read'; }, long: 'x'.repeat(5000) };"
        "Object.prototype.late = 5; var polluted = {}; </script>");
    EXPECT_EQ(page_.Evaluate("[external.options(o, 'a b z'), (o.a = 2, delete o.b, o.z = 3, "
                             "external.options(o, 'a b z'))]"),
              R"(["I4 1, BSTR read, none","I4 2, none, I4 3"])");
    EXPECT_EQ(page_.Evaluate("external.options(o, 'long').length"), "5005");
    EXPECT_EQ(page_.Evaluate("external.options(polluted, 'late')"), "\"I4 5\"");
    page_.desk->kept = page_.Get(L"o");
    const auto read = [this] { return ValueText(ReadScriptProperty(page_.desk->kept.pdispVal, L"a")); };
    EXPECT_EQ(read(), "I4 2");
    page_.Evaluate("(() => { o.a = 9; external.note(external.options(o, 'a')); })()");
    EXPECT_THAT(page_.desk->notes, ElementsAre("BSTR I4 9"));
    EXPECT_EQ(read(), "I4 9");
}

// An element's id is no frame name.
TEST_F(Bridge, OpensNamedFramesAndForwardsOtherTargets) {
    page_.Open("<iframe name='main'></iframe><iframe name='list'></iframe><p id='text'></p>");
    // In one expression: the second call navigates the page.
    page_.Evaluate(
        "[frames.list.open('about:blank#1', 'main'), open('about:blank#2', '_SELF'), "
        "open('about:blank#3', 'text')].length");
    EXPECT_THAT(page_.opened, ElementsAre(L"about:blank#3"));
}

}  // namespace
}  // namespace tarvik
