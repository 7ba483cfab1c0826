#ifndef TIMENAMES_P_H
#define TIMENAMES_P_H

#include <array>

namespace ZrTicks {

enum class Language { German, English, French };

/// The names of months (January first) and weekdays (Sunday first) of one language, in Latin-1. A short name
/// has exactly three characters.
struct TimeNames
{
    std::array<const char *, 12> months;
    std::array<const char *, 12> shortMonths;
    std::array<const char *, 7> weekdays;
    std::array<const char *, 7> shortWeekdays;
};

[[nodiscard]] const TimeNames &timeNames(Language language);

} // namespace ZrTicks

#endif // TIMENAMES_P_H
