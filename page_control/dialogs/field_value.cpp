#include "page_control/dialogs/field_value.h"

#include <chrono>
#include <cstdio>

namespace tarvik {

namespace {

using namespace std::chrono;

constexpr std::string_view kNames[] = {"date", "time", "datetime-local", "month", "week"};

year_month_day DateOf(const SYSTEMTIME& time) {
    return year(time.wYear) / month(time.wMonth) / day(time.wDay);
}

void SetDate(SYSTEMTIME& time, sys_days days) {
    const year_month_day date(days);
    time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
}

// The first week of a year is that of its 4th of January; weeks start on Monday.
sys_days FirstMonday(int ofYear) {
    const sys_days fourth = year(ofYear) / January / 4;
    return fourth - (weekday(fourth) - Monday);
}

struct Week {
    int year;
    int number;
};

Week WeekOf(sys_days date) {
    const sys_days thursday = date - (weekday(date) - Monday) + days(3);
    const int year = static_cast<int>(year_month_day(thursday).year());
    return {year, static_cast<int>((thursday - FirstMonday(year)).count()) / 7 + 1};
}

template <class... Values>
bool Scan(const std::string& text, const char* format, int count, Values*... values) {
    return sscanf(text.c_str(), format, values...) >= count;
}

}  // namespace

std::optional<FieldType> FieldTypeOf(std::string_view name) {
    for (size_t i = 0; i < std::size(kNames); ++i) {
        if (kNames[i] == name) return static_cast<FieldType>(i);
    }
    return std::nullopt;
}

bool HasDate(FieldType type) {
    return type != FieldType::kTime;
}

bool HasTime(FieldType type) {
    return type == FieldType::kTime || type == FieldType::kDateTime;
}

std::optional<SYSTEMTIME> ParseFieldValue(FieldType type, const std::string& text, const SYSTEMTIME& other) {
    SYSTEMTIME time = other;
    int year = 0;
    unsigned month = 1, day = 1, week = 1, hour = 0, minute = 0, second = 0;
    bool parsed = false;
    switch (type) {
        case FieldType::kDate:
            parsed = Scan(text, "%d-%u-%u", 3, &year, &month, &day);
            break;
        case FieldType::kTime:
            parsed = Scan(text, "%u:%u:%u", 2, &hour, &minute, &second);
            break;
        case FieldType::kDateTime:
            parsed = Scan(text, "%d-%u-%uT%u:%u:%u", 5, &year, &month, &day, &hour, &minute, &second);
            break;
        case FieldType::kMonth:
            parsed = Scan(text, "%d-%u", 2, &year, &month);
            break;
        case FieldType::kWeek:
            parsed = Scan(text, "%d-W%u", 2, &year, &week);
            break;
    }
    if (!parsed) return std::nullopt;
    if (type == FieldType::kWeek) {
        SetDate(time, FirstMonday(year) + days(7 * (static_cast<int>(week) - 1)));
    } else if (HasDate(type)) {
        SetDate(time, sys_days(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day)));
    }
    if (HasTime(type)) {
        time.wHour = static_cast<WORD>(hour);
        time.wMinute = static_cast<WORD>(minute);
        time.wSecond = static_cast<WORD>(second);
    }
    return time;
}

std::string FieldValueOf(FieldType type, const SYSTEMTIME& time) {
    char date[32], clock[32];
    snprintf(date, sizeof date, "%04d-%02d-%02d", time.wYear, time.wMonth, time.wDay);
    const char* const format = time.wSecond ? "%02d:%02d:%02d" : "%02d:%02d";
    snprintf(clock, sizeof clock, format, time.wHour, time.wMinute, time.wSecond);
    switch (type) {
        case FieldType::kDate:
            return date;
        case FieldType::kTime:
            return clock;
        case FieldType::kDateTime:
            return std::string(date) + "T" + clock;
        case FieldType::kMonth:
            return std::string(date).substr(0, 7);
        case FieldType::kWeek: {
            const Week week = WeekOf(sys_days(DateOf(time)));
            snprintf(date, sizeof date, "%04d-W%02d", week.year, week.number);
            return date;
        }
    }
    return {};
}

}  // namespace tarvik
