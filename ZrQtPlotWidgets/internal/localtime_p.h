#ifndef LOCALTIME_P_H
#define LOCALTIME_P_H

#include <ctime>
#include <optional>

namespace ZrTicks {

/// Units of time, from fine to coarse. Weeks begin on Sunday, ISO weeks on Monday.
enum class TimeUnit { Microsecond, Millisecond, Second, Minute, Hour, Day, Week, IsoWeek, Month, Year };

/// The local date and time of `seconds` (whole) since the epoch, in the time zone of the process. None where
/// the year is beyond what the C library can express.
[[nodiscard]] std::optional<std::tm> localCalendar(double seconds);

/// The beginning of the unit of local time that `milliseconds` since the epoch lie in. A time without a local
/// date is returned as it is.
[[nodiscard]] double startOfLocalUnit(double milliseconds, TimeUnit unit);

/// `milliseconds` of elapsed time lowered to whole units; at most days, since coarser units differ in length.
[[nodiscard]] double wholeElapsedUnits(double milliseconds, TimeUnit unit);

} // namespace ZrTicks

#endif // LOCALTIME_P_H
