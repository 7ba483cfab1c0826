#include "wallclock.h"

#include "civiltime.h"

#include <QtCore/QByteArray>

#include <cmath>
#include <ctime>
#include <limits>

namespace {

constexpr double kGreatestTime = 8.64e15;

} // namespace

void WallClock::enterZone()
{
    // POSIX counts west of Greenwich: minus one is one hour ahead of UTC.
    qputenv("TZ", QByteArrayLiteral("WALL-1"));
#ifdef Q_OS_WIN
    _tzset();
#else
    tzset();
#endif
}

double WallClock::year(double milliseconds)
{
    const double shown = toShownTime(milliseconds);
    if (!(std::abs(shown) <= kGreatestTime))
        return std::numeric_limits<double>::quiet_NaN();
    const auto day = static_cast<qint64>(std::floor(shown / double(CivilTime::kMillisecondsPerDay)));
    const qint64 year = CivilTime::yearOfDay(day);
    const auto begin = double(CivilTime::daysFromDate(year, 1, 1) * CivilTime::kMillisecondsPerDay);
    const auto end = double(CivilTime::daysFromDate(year + 1, 1, 1) * CivilTime::kMillisecondsPerDay);
    return double(year) + (shown - begin) / (end - begin);
}
