#include "page_control/dialogs/field_value.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
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

// Days, weeks, months or seconds, in which the steps of the type are counted, since 1970; of a time, since
// midnight.
long long UnitsOf(FieldType type, const SYSTEMTIME& time) {
    const year_month_day date = DateOf(time);
    const long long day = sys_days(date).time_since_epoch().count();
    const long long clock = (time.wHour * 60LL + time.wMinute) * 60 + time.wSecond;
    switch (type) {
        case FieldType::kDate:
            return day;
        case FieldType::kTime:
            return clock;
        case FieldType::kDateTime:
            return day * 86400 + clock;
        case FieldType::kMonth:
            return (static_cast<int>(date.year()) - 1970) * 12LL + static_cast<unsigned>(date.month()) - 1;
        case FieldType::kWeek:
            return (sys_days(date) - FirstMonday(1970)).count() / 7;
    }
    return 0;
}

// The time that is as many units later.
SYSTEMTIME Later(FieldType type, const SYSTEMTIME& time, long long units) {
    SYSTEMTIME later = time;
    const year_month_day date = DateOf(time);
    if (type == FieldType::kMonth) {
        SetDate(later, sys_days((date.year() / date.month() + months(units)) / 1));
    } else if (HasTime(type)) {
        const long long seconds = UnitsOf(FieldType::kDateTime, time) + units, clock = seconds % 86400;
        SetDate(later, sys_days(days(seconds / 86400)));
        later.wHour = static_cast<WORD>(clock / 3600);
        later.wMinute = static_cast<WORD>(clock / 60 % 60);
        later.wSecond = static_cast<WORD>(clock % 60);
    } else {
        SetDate(later, sys_days(date) + days(units * (type == FieldType::kWeek ? 7 : 1)));
    }
    return later;
}

// 0 for any value.
long long StepOf(FieldType type, const std::string& text) {
    if (text == "any") return 0;
    const long long step = std::strtol(text.c_str(), nullptr, 10);
    return step > 0 ? step : HasTime(type) ? 60 : 1;
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

SYSTEMTIME NearestFieldValue(FieldType type, const SYSTEMTIME& time, const FieldLimits& limits) {
    const auto units = [&](const std::string& text, long long otherwise) {
        const auto value = ParseFieldValue(type, text, time);
        return value ? UnitsOf(type, *value) : otherwise;
    };
    constexpr long long kFar = 1LL << 50;
    const long long least = units(limits.least, -kFar), most = units(limits.most, kFar);
    if (least > most) return time;
    const long long now = UnitsOf(type, time);
    const long long step = StepOf(type, limits.step), base = units(limits.base, 0);
    long long nearest = std::clamp(now, least, most);
    if (step > 0) {
        const long long after = ((nearest - base) % step + step) % step;
        if (after) nearest += after * 2 < step ? -after : step - after;
        if (nearest < least) nearest += step;
        if (nearest > most) nearest -= step;
        if (nearest < least) return time;
    }
    return Later(type, time, nearest - now);
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
