#include "page_control/bridge/script_source.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

std::string Source(const Variant& value) {
    return ScriptValue(
        value, [](void*, IUnknown*) { return std::string("object"); }, nullptr);
}

// The tests of the bridge cover the types that script has too.
TEST(ScriptSource, WritesValuesOfAutomationTypes) {
    EXPECT_EQ(Source(Variant::UI8(1ull << 40)), "1099511627776");
    EXPECT_EQ(Source(Variant::Object(nullptr)), "null");
    Variant currency;
    currency.vt = VT_CY;
    currency.cyVal.int64 = 12500;
    EXPECT_EQ(Source(currency), "1.25");
    Variant date;
    date.vt = VT_DATE;
    date.date = 1e300;
    EXPECT_EQ(Source(date), R"(["d",0/0])");
}

TEST(ScriptSource, WritesArraysOfOneDimension) {
    Variant bytes;
    bytes.vt = VT_ARRAY | VT_UI1;
    bytes.parray = SafeArrayCreateVector(VT_UI1, 5, 2);
    LONG index = 5;
    BYTE byte = 200;
    SafeArrayPutElement(bytes.parray, &index, &byte);
    EXPECT_EQ(Source(bytes), R"(["a",[200,0]])");
    Variant table;
    SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
    table.vt = VT_ARRAY | VT_VARIANT;
    table.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    EXPECT_EQ(Source(table), "void 0");
}

}  // namespace
}  // namespace tarvik
