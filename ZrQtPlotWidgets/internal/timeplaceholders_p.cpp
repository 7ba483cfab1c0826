#include "timeplaceholders_p.h"

#include "ticklabels_p.h"
#include "timenames_p.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace ZrTicks {

namespace {

// At least `digits` digits, filled with zeros; a minus sign comes on top.
void writeNumber(QByteArray &text, long long number, int digits = 1)
{
    if (number < 0)
        text += '-';
    char written[std::numeric_limits<long long>::digits10 + 1];
    const char *const end = std::to_chars(std::begin(written), std::end(written), std::abs(number)).ptr;
    const int count = int(end - written);
    text.append(std::max(digits - count, 0), '0');
    text.append(written, count);
}

// The whole part of `fraction` times `scale` plus one half; never `scale` itself, which would not fit.
void writeFraction(QByteArray &text, double fraction, int scale, int digits)
{
    writeNumber(text, std::min(int(fraction * scale + 0.5), scale - 1), digits);
}

template <Language language> void writeMonth(QByteArray &text, const TimeFields &fields)
{
    text += timeNames(language).months[size_t(fields.date.tm_mon)];
}

template <Language language> void writeShortMonth(QByteArray &text, const TimeFields &fields)
{
    text += timeNames(language).shortMonths[size_t(fields.date.tm_mon)];
}

template <Language language> void writeWeekday(QByteArray &text, const TimeFields &fields)
{
    text += timeNames(language).weekdays[size_t(fields.date.tm_wday)];
}

template <Language language> void writeShortWeekday(QByteArray &text, const TimeFields &fields)
{
    text += timeNames(language).shortWeekdays[size_t(fields.date.tm_wday)];
}

template <int digits> void writeYear(QByteArray &text, const TimeFields &fields)
{
    const long long year = 1900LL + fields.date.tm_year;
    writeNumber(text, digits == 2 ? (year % 100 + 100) % 100 : year, digits);
}

// One of the whole numbers of a std::tm, with `offset` added.
template <int std::tm::*field, int digits, int offset = 0>
void writeField(QByteArray &text, const TimeFields &fields)
{
    writeNumber(text, fields.date.*field + offset, digits);
}

template <int digits> void writeHalfDayHour(QByteArray &text, const TimeFields &fields)
{
    writeNumber(text, (fields.date.tm_hour + 11) % 12 + 1, digits);
}

// On purpose the designators of the "C" locale: a label depends on nothing but the time and its zone.
void writeHalfDay(QByteArray &text, const TimeFields &fields)
{
    text += fields.date.tm_hour < 12 ? "AM" : "PM";
}

void writeWeek(QByteArray &text, const TimeFields &fields, const char *conversion)
{
    char week[8] = "";
    std::strftime(week, sizeof week, conversion, &fields.date);
    text += week;
}

// Successive divisions, each lowered to a whole number.
void writeElapsed(QByteArray &text, double milliseconds, std::initializer_list<double> divisors)
{
    double units = milliseconds;
    for (const double divisor : divisors)
        units = std::floor(units / divisor);
    text += fixedNumber(units, 0);
}

constexpr auto calendar = TimeSource::Calendar;
constexpr auto elapsed = TimeSource::Elapsed;

// clang-format off
constexpr std::array<TimePlaceholder, timePlaceholderCount> table = {{
    {"%%", TimeSource::Nothing, {}, {}, [](QByteArray &text, const TimeFields &) { text += '%'; }},
    {"%MonDe", calendar, MonthsRow, TimeUnit::Month, writeMonth<Language::German>},
    {"%MonEn", calendar, MonthsRow, TimeUnit::Month, writeMonth<Language::English>},
    {"%MonFr", calendar, MonthsRow, TimeUnit::Month, writeMonth<Language::French>},
    {"%dayDe", calendar, DaysRow, TimeUnit::Day, writeWeekday<Language::German>},
    {"%dayEn", calendar, DaysRow, TimeUnit::Day, writeWeekday<Language::English>},
    {"%dayFr", calendar, DaysRow, TimeUnit::Day, writeWeekday<Language::French>},
    {"%yyyy", calendar, YearsRow, TimeUnit::Year, writeYear<4>},
    {"%MDe", calendar, MonthsRow, TimeUnit::Month, writeShortMonth<Language::German>},
    {"%MEn", calendar, MonthsRow, TimeUnit::Month, writeShortMonth<Language::English>},
    {"%MFr", calendar, MonthsRow, TimeUnit::Month, writeShortMonth<Language::French>},
    {"%dDe", calendar, DaysRow, TimeUnit::Day, writeShortWeekday<Language::German>},
    {"%dEn", calendar, DaysRow, TimeUnit::Day, writeShortWeekday<Language::English>},
    {"%dFr", calendar, DaysRow, TimeUnit::Day, writeShortWeekday<Language::French>},
    {"%DoW", calendar, DaysRow, TimeUnit::Day, writeField<&std::tm::tm_wday, 1>},
    {"%DoY", calendar, LongDaysRow, TimeUnit::Day, writeField<&std::tm::tm_yday, 1>},
    {"%WoY", calendar, WeeksRow, TimeUnit::Week,
     [](QByteArray &text, const TimeFields &fields) { writeWeek(text, fields, "%U"); }},
    {"%HH", calendar, ShortHoursRow, TimeUnit::Hour, writeHalfDayHour<2>},
    {"%hh", calendar, HoursRow, TimeUnit::Hour, writeField<&std::tm::tm_hour, 2>},
    {"%mm", calendar, MinutesRow, TimeUnit::Minute, writeField<&std::tm::tm_min, 2>},
    {"%ss", calendar, SecondsRow, TimeUnit::Second, writeField<&std::tm::tm_sec, 2>},
    {"%Ms", calendar, MillisecondsRow, TimeUnit::Millisecond,
     [](QByteArray &text, const TimeFields &fields) { writeFraction(text, fields.fraction, 1000, 3); }},
    {"%aMs", elapsed, DecimalRow, TimeUnit::Millisecond,
     [](QByteArray &text, const TimeFields &fields) { writeElapsed(text, fields.elapsed, {}); }},
    {"%Us", calendar, FineRow, TimeUnit::Microsecond,
     [](QByteArray &text, const TimeFields &fields) { writeFraction(text, fields.fraction, 1000000, 6); }},
    {"%aUs", elapsed, DecimalRow, TimeUnit::Microsecond,
     [](QByteArray &text, const TimeFields &fields) { writeElapsed(text, fields.elapsed * 1000.0, {}); }},
    {"%dd", calendar, DaysRow, TimeUnit::Day, writeField<&std::tm::tm_mday, 2>},
    {"%MM", calendar, MonthsRow, TimeUnit::Month, writeField<&std::tm::tm_mon, 2, 1>},
    {"%yy", calendar, YearsRow, TimeUnit::Year, writeYear<2>},
    {"%PP", calendar, {}, {}, writeHalfDay},
    {"%H", calendar, ShortHoursRow, TimeUnit::Hour, writeHalfDayHour<1>},
    {"%h", calendar, HoursRow, TimeUnit::Hour, writeField<&std::tm::tm_hour, 1>},
    {"%ah", elapsed, DecimalRow, TimeUnit::Hour,
     [](QByteArray &text, const TimeFields &fields) { writeElapsed(text, fields.elapsed, {1000, 60, 60}); }},
    {"%m", calendar, MinutesRow, TimeUnit::Minute, writeField<&std::tm::tm_min, 1>},
    {"%am", elapsed, DecimalRow, TimeUnit::Minute,
     [](QByteArray &text, const TimeFields &fields) { writeElapsed(text, fields.elapsed, {1000, 60}); }},
    {"%s", calendar, SecondsRow, TimeUnit::Second, writeField<&std::tm::tm_sec, 1>},
    {"%as", elapsed, DecimalRow, TimeUnit::Second,
     [](QByteArray &text, const TimeFields &fields) { writeElapsed(text, fields.elapsed, {1000}); }},
    {"%d", calendar, DaysRow, TimeUnit::Day, writeField<&std::tm::tm_mday, 1>},
    {"%ad", elapsed, DecimalRow, TimeUnit::Day,
     [](QByteArray &text, const TimeFields &fields) { writeElapsed(text, fields.elapsed, {1000, 60, 60, 24}); }},
    {"%M", calendar, MonthsRow, TimeUnit::Month, writeField<&std::tm::tm_mon, 1, 1>},
    {"%isoWoY", calendar, WeeksRow, TimeUnit::IsoWeek,
     [](QByteArray &text, const TimeFields &fields) { writeWeek(text, fields, "%V"); }},
}};
// clang-format on

} // namespace

const std::array<TimePlaceholder, timePlaceholderCount> &timePlaceholders()
{
    return table;
}

} // namespace ZrTicks
