#ifndef TIMEPLACEHOLDERS_P_H
#define TIMEPLACEHOLDERS_P_H

#include "localtime_p.h"
#include "ticksteps_p.h"

#include <QtCore/QByteArray>

#include <array>
#include <optional>
#include <string_view>

namespace ZrTicks {

/// One time, taken apart for the placeholders.
struct TimeFields
{
    std::tm date{};        ///< local date and time of the whole seconds
    double fraction = 0.0; ///< the rest, in seconds: 0 to less than 1
    double elapsed = 0.0;  ///< milliseconds since the time reference
};

/// What a placeholder takes its text from.
enum class TimeSource { Nothing, Calendar, Elapsed };

/// A placeholder of the time-format language.
struct TimePlaceholder
{
    std::string_view name;
    TimeSource source;
    std::optional<UnitRow> row;                                ///< the step candidates that suit it
    std::optional<TimeUnit> unit;                              ///< the smallest difference that it shows
    void (*write)(QByteArray &text, const TimeFields &fields); ///< appends its text
};

constexpr int timePlaceholderCount = 40;

/// All placeholders, in the order in which a text is matched against them.
[[nodiscard]] const std::array<TimePlaceholder, timePlaceholderCount> &timePlaceholders();

} // namespace ZrTicks

#endif // TIMEPLACEHOLDERS_P_H
