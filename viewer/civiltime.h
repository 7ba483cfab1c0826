#ifndef VIEWER_CIVILTIME_H
#define VIEWER_CIVILTIME_H

#include <QtCore/QtGlobal>

/// Days and years of the Gregorian calendar, also before its introduction.
///
/// Source of the day count: Howard Hinnant, "chrono-Compatible Low-Level Date Algorithms". It counts years
/// from the 1st of March, so that the leap day is the last day of a year.
namespace CivilTime {

constexpr qint64 kMillisecondsPerDay = 86400000;

/// Days from 1970-01-01 to the date; \a month 1 to 12, \a day 1 to 31.
constexpr qint64 daysFromDate(qint64 year, int month, int day)
{
    const qint64 marchYear = month > 2 ? year : year - 1;
    const qint64 era = (marchYear >= 0 ? marchYear : marchYear - 399) / 400;
    const qint64 yearOfEra = marchYear - era * 400;
    const qint64 dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const qint64 dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

/// The year in which the day lies that is \a days after 1970-01-01.
constexpr qint64 yearOfDay(qint64 days)
{
    // The mean length of a year finds it, except close to its ends.
    qint64 year = 1970 + (days * 400 - (days < 0 ? 146096 : 0)) / 146097;
    while (daysFromDate(year, 1, 1) > days)
        --year;
    while (daysFromDate(year + 1, 1, 1) <= days)
        ++year;
    return year;
}

constexpr bool isLeapYear(qint64 year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

constexpr bool isDate(qint64 year, int month, int day)
{
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12 || day < 1)
        return false;
    return day <= kDays[month - 1] + (month == 2 && isLeapYear(year) ? 1 : 0);
}

} // namespace CivilTime

#endif // VIEWER_CIVILTIME_H
