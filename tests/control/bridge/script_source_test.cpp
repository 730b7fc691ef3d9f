#include "control/bridge/script_source.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

std::string Source(const Variant& value) {
    return ScriptValue(
        value, [](void*, IUnknown*) { return std::string("object"); }, nullptr);
}

// Those that script has itself come back from native code in the tests of the bridge.
TEST(ScriptSource, ValuesOfAutomation) {
    EXPECT_EQ(Source(Variant::UI8(1ull << 40)), "1099511627776");
    EXPECT_EQ(Source(Variant::Object(nullptr)), "null");
    Variant currency;
    currency.vt = VT_CY;
    currency.cyVal.int64 = 12500;
    EXPECT_EQ(Source(currency), "1.25");
    // Noon and 250 milliseconds, of the day after the epoch and of the day before it.
    Variant date;
    date.vt = VT_DATE;
    std::string days[2];
    for (double day : {1.0, -1.0}) {
        date.date = day + (day < 0 ? -1 : 1) * (0.5 + 250 / 86400000.0);
        days[day > 0] = Source(date);
    }
    const auto milliseconds = [](const std::string& text) { return std::stoll(text.substr(5)); };
    EXPECT_EQ(milliseconds(days[1]) - milliseconds(days[0]), 2 * 86400000ll);
    EXPECT_EQ(milliseconds(days[1]) % 1000, -750);
    date.date = 1e300;
    EXPECT_EQ(Source(date), R"(["d",0/0])");
}

TEST(ScriptSource, ArraysOfOneDimension) {
    Variant bytes;
    bytes.vt = VT_ARRAY | VT_UI1;
    bytes.parray = SafeArrayCreateVector(VT_UI1, 5, 2);
    LONG index = 5;
    BYTE byte = 200;
    SafeArrayPutElement(bytes.parray, &index, &byte);
    EXPECT_EQ(Source(bytes), R"(["a",[200,0]])");
    // Wider than the others.
    Variant decimals;
    decimals.vt = VT_ARRAY | VT_DECIMAL;
    decimals.parray = SafeArrayCreateVector(VT_DECIMAL, 0, 1);
    DECIMAL half = {};
    half.Lo64 = 5;
    half.scale = 1;
    index = 0;
    SafeArrayPutElement(decimals.parray, &index, &half);
    EXPECT_EQ(Source(decimals), R"(["a",[0.5]])");
    Variant table;
    SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
    table.vt = VT_ARRAY | VT_VARIANT;
    table.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    EXPECT_EQ(Source(table), "void 0");
}

}  // namespace
}  // namespace tarvik
