#include "page_control/dialogs/field_value.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

const SYSTEMTIME kNow = {2026, 11, 4, 26, 10, 57, 0, 0};

std::string ThroughDialog(std::string_view type, const std::string& text) {
    const auto time = ParseFieldValue(*FieldTypeOf(type), text, kNow);
    return time ? FieldValueOf(*FieldTypeOf(type), *time) : "no value";
}

TEST(FieldValue, SurvivesTheDialog) {
    for (const auto& [type, text] :
         {std::pair("date", "2024-02-29"), std::pair("time", "09:05"), std::pair("time", "23:59:58"),
          std::pair("datetime-local", "0099-12-31T00:00"), std::pair("month", "2024-02"),
          std::pair("week", "2024-W09"),
          // A week belongs to the year of its Thursday.
          std::pair("week", "2020-W53"), std::pair("week", "2021-W01"), std::pair("week", "2026-W53"),
          std::pair("week", "2025-W01")})
        EXPECT_EQ(ThroughDialog(type, text), text);
}

TEST(FieldValue, IsThatOfTheCalendarsDay) {
    EXPECT_EQ(ThroughDialog("date", ""), "no value");
    const SYSTEMTIME newYear = {2021, 1, 0, 3, 0, 0, 0, 0};
    EXPECT_EQ(FieldValueOf(FieldType::kWeek, newYear), "2020-W53");
    EXPECT_EQ(FieldValueOf(FieldType::kMonth, kNow), "2026-11");
    EXPECT_FALSE(FieldTypeOf("color"));
}

TEST(FieldValue, IsTheNearestThatTheFieldAccepts) {
    const auto nearest = [](std::string_view name, const std::string& text, const FieldLimits& limits) {
        const FieldType type = *FieldTypeOf(name);
        return FieldValueOf(type, NearestFieldValue(type, *ParseFieldValue(type, text, kNow), limits));
    };
    EXPECT_EQ(nearest("date", "2024-02-29", {}), "2024-02-29");
    EXPECT_EQ(nearest("date", "2024-02-29", {"2024-03-04", "", "", ""}), "2024-03-04");
    EXPECT_EQ(nearest("date", "2024-03-08", {"", "", "7", "2024-03-04"}), "2024-03-11");
    EXPECT_EQ(nearest("date", "2024-02-28", {"2024-03-04", "2024-03-08", "7", "2024-03-05"}), "2024-03-05");
    EXPECT_EQ(nearest("time", "23:59", {"09:00", "17:10", "900", "09:00"}), "17:00");
    EXPECT_EQ(nearest("time", "10:07:29", {}), "10:07");
    EXPECT_EQ(nearest("time", "10:07:29", {"", "", "any", ""}), "10:07:29");
    EXPECT_EQ(nearest("datetime-local", "2024-12-31T23:59", {"", "", "3600", ""}), "2025-01-01T00:00");
    EXPECT_EQ(nearest("month", "2024-11", {"2023-01", "", "3", "2023-01"}), "2024-10");
    EXPECT_EQ(nearest("week", "2024-W09", {"", "2024-W03", "2", "2024-W01"}), "2024-W03");
    // Reversed limits are those of a time across midnight.
    EXPECT_EQ(nearest("time", "12:00", {"22:00", "02:00", "", ""}), "12:00");
}

}  // namespace
}  // namespace tarvik
