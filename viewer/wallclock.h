#ifndef VIEWER_WALLCLOCK_H
#define VIEWER_WALLCLOCK_H

#include <QtCore/QtGlobal>

/// Time stamps are drawn as they stand in the file, whatever the time zone of the machine: "14:00" in the
/// file is 14:00 on the axis, on every day of the year. Stamps with a zone are shown in UTC.
///
/// A date axis labels milliseconds since the epoch in the local time of the process, and places its ticks on
/// whole days one hour ahead of UTC. So the process runs in a zone of its own that is one hour ahead of UTC
/// and knows no summer time: there, ticks of days fall on midnight, and of hours on the full hour.
namespace WallClock {

constexpr qint64 kZoneOffset = 3600000;

/// Puts the process into that zone. To be called before anything asks for the local time.
void enterZone();

/// The time in the process's zone at which the clock shows \a milliseconds since 1970-01-01T00:00.
constexpr double fromShownTime(double milliseconds)
{
    return milliseconds - double(kZoneOffset);
}

/// The inverse of fromShownTime().
constexpr double toShownTime(double milliseconds)
{
    return milliseconds + double(kZoneOffset);
}

/// The year that the clock shows at \a milliseconds, with the part of the year that has passed as its
/// fraction: 2000.5 is noon of the 2nd of July 2000. NaN for times that are not finite or beyond 280 000
/// years.
double year(double milliseconds);

} // namespace WallClock

#endif // VIEWER_WALLCLOCK_H
