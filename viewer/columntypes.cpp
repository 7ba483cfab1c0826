#include "columntypes.h"

#include "civiltime.h"
#include "wallclock.h"

#include <charconv>
#include <cmath>

namespace {

// A longer cell is no number; the copy that replaces the decimal comma lies in a buffer of this size.
constexpr size_t kLongestNumber = 64;

// A channel draws no number beyond this as what it is.
constexpr double kLargestNumber = 1e300;

constexpr double kMillisecondsPerMinute = 60000.0;
constexpr double kMillisecondsPerHour = 3600000.0;

constexpr std::array<std::string_view, 12> kMonths
    = {"january", "february", "march",     "april",   "may",      "june",
       "july",    "august",   "september", "october", "november", "december"};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char toLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase)
{
    if (text.size() != lowerCase.size())
        return false;
    for (size_t i = 0; i < text.size(); ++i) {
        if (toLower(text[i]) != lowerCase[i])
            return false;
    }
    return true;
}

/// 1 to 12; 0 if \a word is neither the name of a month nor its first three or four letters ("Sept").
int monthOf(std::string_view word)
{
    for (size_t i = 0; i < kMonths.size(); ++i) {
        if (equalsIgnoringCase(word, kMonths[i])
            || ((word.size() == 3 || word.size() == 4)
                && equalsIgnoringCase(word, kMonths[i].substr(0, word.size()))))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

/// Walks through a cell from left to right. A step that does not fit leaves the place where it is.
class Scanner
{
public:
    explicit Scanner(std::string_view text)
        : m_rest(text)
    {
    }

    bool atEnd() const { return m_rest.empty(); }
    bool atLetter() const { return !m_rest.empty() && isLetter(m_rest.front()); }

    bool skip(char c)
    {
        if (m_rest.empty() || m_rest.front() != c)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    bool skipBlanks()
    {
        bool any = false;
        while (skip(' '))
            any = true;
        return any;
    }

    /// The next character if it is one of \a characters, else 0.
    char skipOneOf(std::string_view characters)
    {
        if (m_rest.empty() || characters.find(m_rest.front()) == std::string_view::npos)
            return '\0';
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    std::string_view word()
    {
        size_t length = 0;
        while (length < m_rest.size() && isLetter(m_rest[length]))
            ++length;
        return take(length);
    }

    /// Between \a least and \a most digits; -1 if there are fewer or more.
    int number(size_t least, size_t most, size_t *digits = nullptr)
    {
        size_t length = 0;
        while (length < m_rest.size() && isDigit(m_rest[length]))
            ++length;
        if (length < least || length > most)
            return -1;
        int value = 0;
        for (const char c : take(length))
            value = value * 10 + (c - '0');
        if (digits)
            *digits = length;
        return value;
    }

    /// The digits after a decimal mark, as a number between 0 and 1; -1 if there are none. Digits beyond the
    /// 15th are below the resolution of any time stamp and count for nothing.
    double fraction()
    {
        constexpr size_t kMostDigits = 15;
        double digits = 0.0;
        double unit = 1.0;
        size_t length = 0;
        for (; length < m_rest.size() && isDigit(m_rest[length]); ++length) {
            if (length < kMostDigits) {
                digits = digits * 10.0 + (m_rest[length] - '0');
                unit *= 10.0;
            }
        }
        take(length);
        return length > 0 ? digits / unit : -1.0;
    }

private:
    std::string_view take(size_t length)
    {
        const std::string_view taken = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return taken;
    }

    std::string_view m_rest;
};

struct Date
{
    int year = 0;
    int month = 0;
    int day = 1;
};

/// After the month's name that begins a date: "21 2026", "21, 2026" or "2026".
std::optional<Date> readMonthFirst(Scanner &scanner)
{
    Date date;
    date.month = monthOf(scanner.word());
    scanner.skip('.');
    if (!scanner.skipBlanks() && !scanner.skip('-'))
        return std::nullopt;
    size_t digits = 0;
    const int first = scanner.number(1, 4, &digits);
    if (digits == 4) {
        date.year = first;
        return date;
    }
    date.day = first;
    const bool comma = scanner.skip(',');
    if (!scanner.skipBlanks() && !comma && !scanner.skip('-'))
        return std::nullopt;
    date.year = scanner.number(4, 4);
    return date;
}

/// "2026-11-21", "2026-Nov-21" or "2026-11", after the year.
std::optional<Date> readYearFirst(Scanner &scanner, int year, char separator)
{
    if (separator != '-' && separator != '/')
        return std::nullopt;
    Date date;
    date.year = year;
    date.month = scanner.atLetter() ? monthOf(scanner.word()) : scanner.number(1, 2);
    if (scanner.skip(separator))
        date.day = scanner.number(1, 2);
    return date;
}

/// "21.11.2026", "21 Nov 2026" or, with slashes, in the order of the column; after the first number.
std::optional<Date> readYearLast(Scanner &scanner, int first, char separator, SlashDate slashDate)
{
    Date date;
    const bool named = scanner.atLetter();
    const int second = named ? monthOf(scanner.word()) : scanner.number(1, 2);
    if ((!named && separator == ' ') || !scanner.skip(separator))
        return std::nullopt;
    date.year = scanner.number(4, 4);
    const bool monthFirst = !named && separator == '/' && slashDate == SlashDate::MonthFirst;
    date.month = monthFirst ? first : second;
    date.day = monthFirst ? second : first;
    return date;
}

/// Days since 1970-01-01.
std::optional<qint64> readDate(Scanner &scanner, SlashDate slashDate)
{
    std::optional<Date> date;
    if (scanner.atLetter()) {
        date = readMonthFirst(scanner);
    } else {
        size_t digits = 0;
        const int first = scanner.number(1, 4, &digits);
        const char separator = scanner.skipOneOf("-/. ");
        if (first < 0 || separator == '\0')
            return std::nullopt;
        date = digits == 4 ? readYearFirst(scanner, first, separator)
                           : readYearLast(scanner, first, separator, slashDate);
    }
    if (!date || date->year < 0 || !CivilTime::isDate(date->year, date->month, date->day))
        return std::nullopt;
    return CivilTime::daysFromDate(date->year, date->month, date->day);
}

/// Milliseconds since midnight.
std::optional<double> readClock(Scanner &scanner)
{
    int hour = scanner.number(1, 2);
    if (hour < 0 || !scanner.skip(':'))
        return std::nullopt;
    const int minute = scanner.number(2, 2);
    double second = 0.0;
    if (scanner.skip(':')) {
        second = scanner.number(2, 2);
        // 60 is a leap second.
        if (!(second >= 0.0 && second <= 60.0))
            return std::nullopt;
        if (scanner.skipOneOf(".,") != '\0') {
            const double fraction = scanner.fraction();
            if (fraction < 0.0)
                return std::nullopt;
            second += fraction;
        }
    }
    Scanner ahead = scanner;
    ahead.skipBlanks();
    const std::string_view half = ahead.word();
    const bool pm = equalsIgnoringCase(half, "pm");
    if (pm || equalsIgnoringCase(half, "am")) {
        if (hour < 1 || hour > 12)
            return std::nullopt;
        hour = hour % 12 + (pm ? 12 : 0);
        scanner = ahead;
    }
    if (hour > 23 || minute < 0 || minute > 59)
        return std::nullopt;
    return hour * kMillisecondsPerHour + minute * kMillisecondsPerMinute + second * 1000.0;
}

/// What to add to come from the zone to UTC, in milliseconds; 0 if no zone is named.
std::optional<double> readZone(Scanner &scanner)
{
    scanner.skipBlanks();
    if (scanner.atEnd())
        return 0.0;
    if (scanner.atLetter()) {
        const std::string_view zone = scanner.word();
        if (equalsIgnoringCase(zone, "z") || equalsIgnoringCase(zone, "utc")
            || equalsIgnoringCase(zone, "gmt"))
            return 0.0;
        return std::nullopt;
    }
    const char sign = scanner.skipOneOf("+-");
    size_t digits = 0;
    int hours = scanner.number(2, 4, &digits);
    int minutes = 0;
    if (sign == '\0' || hours < 0 || digits == 3)
        return std::nullopt;
    if (digits == 4) {
        minutes = hours % 100;
        hours /= 100;
    } else if (scanner.skip(':')) {
        minutes = scanner.number(2, 2);
    }
    if (hours > 23 || minutes < 0 || minutes > 59)
        return std::nullopt;
    const double offset = hours * kMillisecondsPerHour + minutes * kMillisecondsPerMinute;
    return sign == '+' ? -offset : offset;
}

std::string_view trimmed(std::string_view cell)
{
    while (!cell.empty() && cell.front() == ' ')
        cell.remove_prefix(1);
    while (!cell.empty() && cell.back() == ' ')
        cell.remove_suffix(1);
    return cell;
}

} // namespace

std::optional<double> readNumber(std::string_view cell, DecimalMark mark)
{
    cell = trimmed(cell);
    if (cell.size() > 1 && cell.front() == '+' && cell[1] != '-')
        cell.remove_prefix(1);
    char copy[kLongestNumber];
    if (mark == DecimalMark::Comma) {
        if (cell.size() > kLongestNumber || cell.find('.') != std::string_view::npos)
            return std::nullopt;
        for (size_t i = 0; i < cell.size(); ++i)
            copy[i] = cell[i] == ',' ? '.' : cell[i];
        cell = std::string_view(copy, cell.size());
    }
    double value = 0.0;
    const char *end = cell.data() + cell.size();
    const std::from_chars_result result = std::from_chars(cell.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || !(std::abs(value) <= kLargestNumber))
        return std::nullopt;
    return value;
}

std::optional<double> readDateTime(std::string_view cell, SlashDate slashDate)
{
    Scanner scanner(trimmed(cell));
    const std::optional<qint64> day = readDate(scanner, slashDate);
    if (!day)
        return std::nullopt;
    const double midnight = double(*day) * double(CivilTime::kMillisecondsPerDay);
    if (scanner.atEnd())
        return WallClock::fromShownTime(midnight);
    scanner.skip(',');
    if (!scanner.skipBlanks() && scanner.skipOneOf("Tt") == '\0')
        return std::nullopt;
    const std::optional<double> clock = readClock(scanner);
    const std::optional<double> zone = clock ? readZone(scanner) : std::nullopt;
    if (!zone || !scanner.atEnd())
        return std::nullopt;
    return WallClock::fromShownTime(midnight + *clock + *zone);
}

std::optional<double> readTimeOfDay(std::string_view cell)
{
    Scanner scanner(trimmed(cell));
    const std::optional<double> clock = readClock(scanner);
    if (!clock || !scanner.atEnd())
        return std::nullopt;
    // Far enough from 1970 for a date axis, which labels no time before it.
    constexpr qint64 kDay = CivilTime::daysFromDate(2000, 1, 1) * CivilTime::kMillisecondsPerDay;
    return WallClock::fromShownTime(double(kDay) + *clock);
}

std::optional<double> readCell(std::string_view cell, const CellFormat &format)
{
    switch (format.kind) {
    case ColumnKind::Number:
        return readNumber(cell, format.decimalMark);
    case ColumnKind::DateTime:
        return readDateTime(cell, format.slashDate);
    case ColumnKind::TimeOfDay:
        return readTimeOfDay(cell);
    case ColumnKind::Empty:
    case ColumnKind::Text:
        break;
    }
    return std::nullopt;
}

// Among formats that read equally many cells, the first one wins.
const std::array<CellFormat, ColumnSampler::kFormatCount> ColumnSampler::kFormats = {{
    {ColumnKind::Number, DecimalMark::Point, SlashDate::MonthFirst},
    {ColumnKind::Number, DecimalMark::Comma, SlashDate::MonthFirst},
    {ColumnKind::DateTime, DecimalMark::Point, SlashDate::MonthFirst},
    {ColumnKind::DateTime, DecimalMark::Point, SlashDate::DayFirst},
    {ColumnKind::TimeOfDay, DecimalMark::Point, SlashDate::MonthFirst},
}};

ColumnSampler::ColumnSampler(bool commaAllowed)
    : m_commaAllowed(commaAllowed)
{
}

void ColumnSampler::add(std::string_view cell)
{
    if (trimmed(cell).empty())
        return;
    ++m_filled;
    for (size_t i = 0; i < kFormats.size(); ++i) {
        const bool allowed = m_commaAllowed || kFormats[i].decimalMark == DecimalMark::Point;
        if (allowed && readCell(cell, kFormats[i]))
            ++m_readable[i];
    }
}

CellFormat ColumnSampler::decide() const
{
    if (m_filled == 0)
        return {};
    size_t best = 0;
    for (size_t i = 1; i < m_readable.size(); ++i) {
        if (m_readable[i] > m_readable[best])
            best = i;
    }
    if (m_readable[best] * 2 < m_filled)
        return {ColumnKind::Text, DecimalMark::Point, SlashDate::MonthFirst};
    return kFormats[best];
}
