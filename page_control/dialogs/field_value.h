#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

// The values of fields for a date or a time, as HTML writes them. Independent of dialogs.
namespace tarvik {

enum class FieldType { kDate, kTime, kDateTime, kMonth, kWeek };

// "date", "time", "datetime-local", "month" or "week".
std::optional<FieldType> FieldTypeOf(std::string_view name);

bool HasDate(FieldType type);
bool HasTime(FieldType type);

// Empty if the text is no value of this type. A week becomes its Monday; parts that the type does not have
// are those of `other`.
std::optional<SYSTEMTIME> ParseFieldValue(FieldType type, const std::string& text, const SYSTEMTIME& other);

std::string FieldValueOf(FieldType type, const SYSTEMTIME& time);

// What a field accepts, as its attributes say. An empty text is no limit, or the default step.
struct FieldLimits {
    std::string least;
    std::string most;
    std::string step;
    std::string base;  // a value from which steps are counted
};

// The accepted value that is nearest to a time; the time itself if the limits exclude every value.
SYSTEMTIME NearestFieldValue(FieldType type, const SYSTEMTIME& time, const FieldLimits& limits);

}  // namespace tarvik
