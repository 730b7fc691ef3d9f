#include "page_control/dialogs/field_value.h"

#include <chrono>
#include <vector>

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

// The numbers in a text; what stands between them follows from the type. scanf would add 30 kB to the
// program.
std::vector<int> NumbersIn(const std::string& text) {
    std::vector<int> numbers;
    bool inNumber = false;
    for (const char character : text) {
        const bool isDigit = character >= '0' && character <= '9';
        if (isDigit && !inNumber) numbers.push_back(0);
        if (isDigit) numbers.back() = numbers.back() * 10 + (character - '0');
        inNumber = isDigit;
    }
    return numbers;
}

template <class... Values>
std::string Format(const char* format, Values... values) {
    char text[64];
    wsprintfA(text, format, values...);
    return text;
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
    constexpr size_t kCounts[] = {3, 2, 5, 2, 2};
    std::vector<int> numbers = NumbersIn(text);
    if (numbers.size() < kCounts[static_cast<size_t>(type)]) return std::nullopt;
    numbers.resize(6);
    SYSTEMTIME time = other;
    if (type == FieldType::kWeek) {
        SetDate(time, FirstMonday(numbers[0]) + days(7 * (numbers[1] - 1)));
    } else if (HasDate(type)) {
        const int dayOfMonth = type == FieldType::kMonth ? 1 : numbers[2];
        SetDate(time, sys_days(year(numbers[0]) / numbers[1] / dayOfMonth));
    }
    if (HasTime(type)) {
        const size_t hour = type == FieldType::kTime ? 0 : 3;
        time.wHour = static_cast<WORD>(numbers[hour]);
        time.wMinute = static_cast<WORD>(numbers[hour + 1]);
        time.wSecond = static_cast<WORD>(numbers[hour + 2]);
    }
    return time;
}

std::string FieldValueOf(FieldType type, const SYSTEMTIME& time) {
    const std::string date = Format("%04d-%02d-%02d", time.wYear, time.wMonth, time.wDay);
    const std::string clock = Format("%02d:%02d", time.wHour, time.wMinute) +
                              (time.wSecond ? Format(":%02d", time.wSecond) : std::string());
    switch (type) {
        case FieldType::kDate:
            return date;
        case FieldType::kTime:
            return clock;
        case FieldType::kDateTime:
            return date + "T" + clock;
        case FieldType::kMonth:
            return date.substr(0, 7);
        case FieldType::kWeek: {
            const Week week = WeekOf(sys_days(DateOf(time)));
            return Format("%04d-W%02d", week.year, week.number);
        }
    }
    return {};
}

}  // namespace tarvik
