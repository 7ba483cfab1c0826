#include "localtime_p.h"

#include <QtCore/qglobal.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ZrTicks {

namespace {

static_assert(sizeof(std::time_t) >= sizeof(std::int64_t), "times beyond 2038 need 64 bits");

// Well inside 64 bits, well beyond the last year that a std::tm can hold.
constexpr double mostSeconds = 9e18;

bool convert(std::time_t time, std::tm &result)
{
#ifdef Q_OS_WIN
    return localtime_s(&result, &time) == 0;
#else
    return localtime_r(&time, &result) != nullptr;
#endif
}

// Moves `date` to the midnight that begins its day, week, month or year. The C library normalizes days
// below 1.
void moveToStart(std::tm &date, TimeUnit unit)
{
    date.tm_sec = 0;
    date.tm_min = 0;
    date.tm_hour = 0;
    date.tm_isdst = -1;
    if (unit == TimeUnit::Week)
        date.tm_mday -= date.tm_wday;
    else if (unit == TimeUnit::IsoWeek)
        date.tm_mday -= (date.tm_wday + 6) % 7;
    else if (unit >= TimeUnit::Month)
        date.tm_mday = 1;
    if (unit == TimeUnit::Year)
        date.tm_mon = 0;
}

} // namespace

std::optional<std::tm> localCalendar(double seconds)
{
    if (!(std::fabs(seconds) <= mostSeconds))
        return std::nullopt;
    std::tm result{};
    if (!convert(std::time_t(seconds), result))
        return std::nullopt;
    return result;
}

double startOfLocalUnit(double milliseconds, TimeUnit unit)
{
    if (unit <= TimeUnit::Second)
        return wholeElapsedUnits(milliseconds, unit);
    const double seconds = std::floor(milliseconds / 1000.0);
    std::optional<std::tm> date = localCalendar(seconds);
    if (!date)
        return milliseconds;
    // Subtracting, not mktime(): the second 2:30 of the night when clocks are set back keeps its own hour.
    if (unit == TimeUnit::Minute)
        return (seconds - date->tm_sec) * 1000.0;
    if (unit == TimeUnit::Hour)
        return (seconds - date->tm_sec - 60.0 * date->tm_min) * 1000.0;

    moveToStart(*date, unit);
    // -1 is a valid time; only the weekday tells whether the conversion worked.
    date->tm_wday = -1;
    const std::time_t start = std::mktime(&*date);
    return date->tm_wday < 0 ? milliseconds : double(start) * 1000.0;
}

double wholeElapsedUnits(double milliseconds, TimeUnit unit)
{
    // Counted in microseconds, in which every unit is a whole number.
    constexpr double lengths[] = {1.0, 1e3, 1e6, 6e7, 3.6e9, 8.64e10};
    const double length = lengths[int(std::min(unit, TimeUnit::Day))];
    const double units = std::floor(milliseconds * 1000.0 / length);
    const auto start = [length](double count) { return count * length / 1000.0; };
    // The quotient is rounded: 1.001 ms are a hair less than 1001 us. What decides is where a unit starts.
    const double whole = start(units + 1.0) <= milliseconds ? start(units + 1.0)
                         : start(units) <= milliseconds     ? start(units)
                                                            : start(units - 1.0);
    return std::isfinite(whole) ? whole : milliseconds;
}

} // namespace ZrTicks
