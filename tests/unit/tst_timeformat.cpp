#include "shared/quiettest.h"
#include "shared/timezone.h"

#include "internal/timeformat_p.h"
#include "internal/timenames_p.h"
#include "internal/timeplaceholders_p.h"

#include <cmath>
#include <limits>

using namespace ZrTicks;

namespace {

constexpr double second = 1000.0;
constexpr double minute = 60.0 * second;
constexpr double hour = 60.0 * minute;
constexpr double day = 24.0 * hour;

// Wednesday, 31 January 2024, 12:00 UTC
constexpr double endOfJanuary = 1706702400000.0;

const char *const fullGermanMonths[] = {"Januar", "Februar", "M\xE4rz",   "April",   "Mai",      "Juni",
                                        "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
const char *const fullEnglishMonths[]
    = {"January", "February", "March",     "April",   "May",      "June",
       "July",    "August",   "September", "October", "November", "December"};
const char *const fullFrenchMonths[]
    = {"Janvier", "F\xE9vrier", "Mars",      "Avril",   "Mai",      "Juin",
       "Juillet", "Ao\xFBt",    "Septembre", "Octobre", "Novembre", "D\xE9\x63\x65mbre"};
const char *const shortGermanMonths[]
    = {"Jan", "Feb", "M\xE4r", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
const char *const shortEnglishMonths[]
    = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const char *const shortFrenchMonths[]
    = {"Jan", "F\xE9v", "Mar", "Avr", "Mai", "Jun", "Jui", "Ao\xFB", "Sep", "Oct", "Nov", "D\xE9\x63"};
const char *const fullGermanDays[]
    = {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"};
const char *const fullEnglishDays[]
    = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
const char *const fullFrenchDays[]
    = {"Dimanche", "Lundi", "Mardi", "Mercredi", "Jeudi", "Vendredi", "Samedi"};
const char *const shortGermanDays[] = {"Son", "Mon", "Die", "Mit", "Don", "Fre", "Sam"};
const char *const shortEnglishDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
const char *const shortFrenchDays[] = {"Dim", "Lun", "Mar", "Mer", "Jeu", "Ven", "Sam"};

QByteArray text(const char *format, double time, double reference = 0.0)
{
    return TimeFormat(format).text(time, reference);
}

QByteArray textIn(const char *zone, const char *format, double time)
{
    const TimeZone inZone(zone);
    return text(format, time);
}

} // namespace

class TestTimeFormat : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void placeholders_data();
    void placeholders();
    void everyPlaceholderIsTested();
    void dates_data();
    void dates();
    void monthNames_data();
    void monthNames();
    void weekdayNames_data();
    void weekdayNames();
    void fractions_data();
    void fractions();
    void elapsed_data();
    void elapsed();
    void literals_data();
    void literals();
    void textsOfAnyLength();
    void textWithoutZeroByte();
    void zones_data();
    void zones();
    void zoneIsReadAtOnce();
    void yearsOfUnusualSize_data();
    void yearsOfUnusualSize();
    void timesBeyondAllDates_data();
    void timesBeyondAllDates();
    void reference();
    void referenceKeepsTheClockAtMidnight();
    void resolution_data();
    void resolution();
    void resolutionWithReference();
    void resolutionIsExact();
    void resolutionOfElapsedUnits();
    void wholeMicrosecondLosesNothing();
    void levels_data();
    void levels();
    void levelTexts();
    void levelsForSpans();
};

// Every placeholder, its row of steps, and its text on Thursday, 7 March 2024, 21:05:09.008009 UTC.
void TestTimeFormat::placeholders_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("expected");

    const int none = -1;
    const struct
    {
        const char *name;
        int row;
        const char *expected;
    } rows[] = {
        {"%MonDe", 9, "M\xE4rz"},
        {"%MonEn", 9, "March"},
        {"%MonFr", 9, "Mars"},
        {"%dayDe", 8, "Donnerstag"},
        {"%dayEn", 8, "Thursday"},
        {"%dayFr", 8, "Jeudi"},
        {"%yyyy", 0, "2024"},
        {"%MDe", 9, "M\xE4r"},
        {"%MEn", 9, "Mar"},
        {"%MFr", 9, "Mar"},
        {"%dDe", 8, "Don"},
        {"%dEn", 8, "Thu"},
        {"%dFr", 8, "Jeu"},
        {"%DoW", 8, "4"},
        {"%DoY", 10, "66"},
        {"%WoY", 11, "09"},
        {"%HH", 3, "09"},
        {"%hh", 2, "21"},
        {"%mm", 4, "05"},
        {"%ss", 5, "09"},
        {"%Ms", 6, "008"},
        {"%aMs", 1, "1709845509008"},
        {"%Us", 7, "008009"},
        {"%aUs", 1, "1709845509008009"},
        {"%dd", 8, "07"},
        {"%MM", 9, "03"},
        {"%yy", 0, "24"},
        {"%PP", none, "PM"},
        {"%H", 3, "9"},
        {"%h", 2, "21"},
        {"%ah", 1, "474957"},
        {"%m", 4, "5"},
        {"%am", 1, "28497425"},
        {"%s", 5, "9"},
        {"%as", 1, "1709845509"},
        {"%d", 8, "7"},
        {"%ad", 1, "19789"},
        {"%M", 9, "3"},
        {"%isoWoY", 11, "10"},
        {"%%", none, "%"},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << QByteArray(row.name) << row.row << QByteArray(row.expected);
}

void TestTimeFormat::placeholders()
{
    const TimeZone utc("UTC");
    QFETCH(QByteArray, name);
    QFETCH(int, row);
    QFETCH(QByteArray, expected);
    const TimeFormat format(name);
    const double time = 1709845509008.009;
    QCOMPARE(format.text(time), expected);
    QCOMPARE(format.unitRows(), row < 0 ? QVector<UnitRow>() : QVector<UnitRow>{UnitRow(row)});
    // Neither text before it nor after it is taken for a part of it, whatever the placeholder.
    QCOMPARE(TimeFormat("x" + name + "-" + name + name + ".").text(time),
             "x" + expected + "-" + expected + expected + ".");
}

void TestTimeFormat::everyPlaceholderIsTested()
{
    QCOMPARE(int(timePlaceholders().size()), 40);
    for (const TimePlaceholder &placeholder : timePlaceholders())
        QVERIFY(!placeholder.name.empty() && placeholder.write);
}

void TestTimeFormat::dates_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("the epoch") << 0.0
                               << QByteArray(
                                      "1970|70|01|1|01|1|4|0|00|01|00|0|12|12|AM|00|0|00|0|000|000000");
    QTest::newRow("29 February of a leap year")
        << 1709197507008.009 << QByteArray("2024|24|02|2|29|29|4|59|08|09|09|9|09|9|AM|05|5|07|7|008|008009");
    QTest::newRow("the day after it")
        << 1709251200000.0 << QByteArray("2024|24|03|3|01|1|5|60|08|09|00|0|12|12|AM|00|0|00|0|000|000000");
    QTest::newRow("last day of a leap year")
        << 1735689599999.0
        << QByteArray("2024|24|12|12|31|31|2|365|52|01|23|23|11|11|PM|59|59|59|59|999|999000");
    QTest::newRow("before the epoch")
        << -2000.0 << QByteArray("1969|69|12|12|31|31|3|364|52|01|23|23|11|11|PM|59|59|58|58|000|000000");
    QTest::newRow("long before the epoch")
        << -2189419200000.0
        << QByteArray("1900|00|08|8|15|15|3|226|32|33|12|12|12|12|PM|00|0|00|0|000|000000");
    QTest::newRow("beyond 2038") << 4107591000250.0
                                 << QByteArray(
                                        "2100|00|03|3|01|1|1|59|09|09|13|13|01|1|PM|30|30|00|0|250|250000");
    QTest::newRow("far beyond 2038")
        << 32501757784000.0
        << QByteArray("2999|99|12|12|09|9|1|342|49|50|18|18|06|6|PM|03|3|04|4|000|000000");
    QTest::newRow("ISO week 53 of the year before")
        << 1609675140000.0 << QByteArray("2021|21|01|1|03|3|0|2|01|53|11|11|11|11|AM|59|59|00|0|000|000000");
    QTest::newRow("ISO week 1 of the year after")
        << 1546257659000.0
        << QByteArray("2018|18|12|12|31|31|1|364|52|01|12|12|12|12|PM|00|0|59|59|000|000000");
    QTest::newRow("ISO week 53") << 1609376523000.004
                                 << QByteArray(
                                        "2020|20|12|12|31|31|4|365|52|53|01|1|01|1|AM|02|2|03|3|000|000004");
    QTest::newRow("year that begins on a Sunday")
        << 1672533000000.5 << QByteArray("2023|23|01|1|01|1|0|0|01|52|00|0|12|12|AM|30|30|00|0|001|000500");
}

void TestTimeFormat::dates()
{
    const TimeZone utc("UTC");
    QFETCH(double, time);
    const char *format
        = "%yyyy|%yy|%MM|%M|%dd|%d|%DoW|%DoY|%WoY|%isoWoY|%hh|%h|%HH|%H|%PP|%mm|%m|%ss|%s|%Ms|%Us";
    QTEST(text(format, time), "expected");
}

void TestTimeFormat::monthNames_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    // The middle of each month, before the epoch, now, and beyond 2038
    for (const int year : {1904, 2024, 2100}) {
        for (int month = 0; month < 12; ++month) {
            const QDateTime date(QDate(year, month + 1, 15), QTime(12, 0), Qt::UTC);
            const QByteArray expected = QByteArray(fullGermanMonths[month]) + '|' + fullEnglishMonths[month]
                                        + '|' + fullFrenchMonths[month] + '|' + shortGermanMonths[month] + '|'
                                        + shortEnglishMonths[month] + '|' + shortFrenchMonths[month];
            QTest::addRow("%d-%02d", year, month + 1) << double(date.toMSecsSinceEpoch()) << expected;
        }
    }
}

void TestTimeFormat::monthNames()
{
    const TimeZone utc("UTC");
    QFETCH(double, time);
    const QByteArray found = text("%MonDe|%MonEn|%MonFr|%MDe|%MEn|%MFr", time);
    QTEST(found, "expected");
    const QList<QByteArray> names = found.split('|');
    for (int i = 3; i < 6; ++i)
        QCOMPARE(names.at(i).size(), 3);
}

void TestTimeFormat::weekdayNames_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    // 28 December 1969, 31 December 2023 and 26 December 2100 are Sundays.
    for (const QDate &sunday : {QDate(1969, 12, 28), QDate(2023, 12, 31), QDate(2100, 12, 26)}) {
        for (int i = 0; i < 7; ++i) {
            const QDateTime date(sunday.addDays(i), QTime(12, 0), Qt::UTC);
            const QByteArray expected = QByteArray(fullGermanDays[i]) + '|' + fullEnglishDays[i] + '|'
                                        + fullFrenchDays[i] + '|' + shortGermanDays[i] + '|'
                                        + shortEnglishDays[i] + '|' + shortFrenchDays[i] + '|'
                                        + QByteArray::number(i);
            QTest::addRow("%d, %s", sunday.year(), fullEnglishDays[i])
                << double(date.toMSecsSinceEpoch()) << expected;
        }
    }
}

void TestTimeFormat::weekdayNames()
{
    const TimeZone utc("UTC");
    QFETCH(double, time);
    QTEST(text("%dayDe|%dayEn|%dayFr|%dDe|%dEn|%dFr|%DoW", time), "expected");
}

void TestTimeFormat::fractions_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("none") << 1000.0 << QByteArray("01 000 000000");
    QTest::newRow("milliseconds") << 1234.0 << QByteArray("01 234 234000");
    QTest::newRow("half a millisecond rounds up") << 1000.5 << QByteArray("01 001 000500");
    QTest::newRow("microseconds") << 1000.001 << QByteArray("01 000 000001");
    QTest::newRow("never 1000 ms") << 1999.75 << QByteArray("01 999 999750");
    QTest::newRow("never 1000000 us") << 1999.9999 << QByteArray("01 999 999999");
    QTest::newRow("just before the epoch") << -500.0 << QByteArray("00 000 000000");
    QTest::newRow("more than a second before the epoch") << -1500.0 << QByteArray("59 000 000000");
}

void TestTimeFormat::fractions()
{
    const TimeZone utc("UTC");
    QFETCH(double, time);
    QTEST(text("%ss %Ms %Us", time), "expected");
}

void TestTimeFormat::elapsed_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("nothing") << 0.0 << QByteArray("0|0|0|0|0|0");
    QTest::newRow("just below a day") << day - 1.0 << QByteArray("0|23|1439|86399|86399999|86399999000");
    QTest::newRow("a day") << day << QByteArray("1|24|1440|86400|86400000|86400000000");
    QTest::newRow("a fraction") << 1500.25 << QByteArray("0|0|0|1|1500|1500250");
    QTest::newRow("below zero") << -1.0 << QByteArray("-1|-1|-1|-1|-1|-1000");
    QTest::newRow("a little below zero") << -0.25 << QByteArray("-1|-1|-1|-1|0|-250");
}

void TestTimeFormat::elapsed()
{
    QFETCH(double, time);
    QTEST(text("%ad|%ah|%am|%as|%aMs|%aUs", time), "expected");
}

void TestTimeFormat::literals_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("text") << QByteArray("o'clock") << QByteArray("o'clock");
    QTest::newRow("Latin-1") << QByteArray("\xB5s %s") << QByteArray("\xB5s 7");
    QTest::newRow("unknown placeholder") << QByteArray("%x %Q %") << QByteArray("%x %Q %");
    QTest::newRow("beginning of a placeholder") << QByteArray("%Mon %day %a") << QByteArray("2on 29ay %a");
    QTest::newRow("percent signs") << QByteArray("%%%%hh %%%hh") << QByteArray("%%hh %09");
    QTest::newRow("the longest placeholder wins") << QByteArray("%MMs%Ms%MM%M") << QByteArray("02s008022");
    QTest::newRow("single line feed") << QByteArray("%hh\n%mm") << QByteArray("09\n05");
}

void TestTimeFormat::literals()
{
    const TimeZone utc("UTC");
    QFETCH(QByteArray, format);
    QTEST(TimeFormat(format).text(1709197507008.009), "expected");
}

void TestTimeFormat::textsOfAnyLength()
{
    const TimeZone utc("UTC");
    for (const int length : {1, 252, 253, 254, 255, 256, 508, 509, 510, 511, 1019, 1020, 1021, 100000}) {
        const QByteArray literal(length, 'x');
        QCOMPARE(TimeFormat(literal).text(0.0), literal);
        QCOMPARE(TimeFormat(literal + "%yyyy").text(0.0), literal + "1970");
        QByteArray format;
        for (int i = 0; i < length; i += 4)
            format += "%yyyy";
        QCOMPARE(TimeFormat(format).text(0.0), QByteArray("1970").repeated((length + 3) / 4));
    }
}

// What follows in memory is none of the format's business.
void TestTimeFormat::textWithoutZeroByte()
{
    const TimeZone utc("UTC");
    static const char memory[] = "%hh:%mm";
    QCOMPARE(TimeFormat(QByteArray::fromRawData(memory, 7)).text(0.0), QByteArray("00:00"));
    for (const int length : {5, 6}) {
        const QByteArray format = QByteArray::fromRawData(memory, length);
        const QByteArray expected = length == 5 ? QByteArray("00:%") : QByteArray("00:0");
        QCOMPARE(TimeFormat(format).text(0.0), expected);
        QCOMPARE(parseTimeLevels(format).at(0).format.text(0.0), expected);
    }
}

void TestTimeFormat::zones_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    const double spring = 1711846800000.0; // 31 March 2024, 1:00 UTC
    const double autumn = 1729990800000.0; // 27 October 2024, 1:00 UTC
    QTest::newRow("Berlin before summer time")
        << QByteArray("Europe/Berlin") << spring - 1.0 << QByteArray("31 01:59:59");
    QTest::newRow("Berlin in summer time")
        << QByteArray("Europe/Berlin") << spring << QByteArray("31 03:00:00");
    QTest::newRow("Berlin, the first 2:59")
        << QByteArray("Europe/Berlin") << autumn - 1.0 << QByteArray("27 02:59:59");
    QTest::newRow("Berlin, the second 2:00")
        << QByteArray("Europe/Berlin") << autumn << QByteArray("27 02:00:00");
    QTest::newRow("UTC") << QByteArray("UTC") << spring << QByteArray("31 01:00:00");
    QTest::newRow("New York") << QByteArray("America/New_York") << spring << QByteArray("30 21:00:00");
    QTest::newRow("New York before summer time")
        << QByteArray("America/New_York") << 1710053999000.0 << QByteArray("10 01:59:59");
    QTest::newRow("New York in summer time")
        << QByteArray("America/New_York") << 1710054000000.0 << QByteArray("10 03:00:00");
    QTest::newRow("half an hour") << QByteArray("Asia/Kolkata") << spring << QByteArray("31 06:30:00");
    QTest::newRow("summer time beyond 2038")
        << QByteArray("Europe/Berlin") << 4118083200000.0 << QByteArray("01 02:00:00");
    QTest::newRow("before the epoch") << QByteArray("Europe/Berlin") << -2000.0 << QByteArray("01 00:59:58");
}

void TestTimeFormat::zones()
{
    QFETCH(QByteArray, zone);
    QFETCH(double, time);
    QTEST(textIn(zone.constData(), "%dd %hh:%mm:%ss", time), "expected");
}

void TestTimeFormat::zoneIsReadAtOnce()
{
    const TimeFormat format("%hh");
    const TimeZone berlin("Europe/Berlin");
    QCOMPARE(format.text(0.0), QByteArray("01"));
    {
        const TimeZone newYork("America/New_York");
        QCOMPARE(format.text(0.0), QByteArray("19"));
    }
    QCOMPARE(format.text(0.0), QByteArray("01"));
}

void TestTimeFormat::yearsOfUnusualSize_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("year 999") << -30610224000000.0 - day << QByteArray("0999 99");
    QTest::newRow("year 0") << -62167219200000.0 << QByteArray("0000 00");
    QTest::newRow("one year before") << -62167219200000.0 - day << QByteArray("-0001 99");
    QTest::newRow("year 10000") << 253402300800000.0 << QByteArray("10000 00");
    QTest::newRow("the last year of a date") << 67768036191676.0 * 1e6 << QByteArray("2147485547 47");
}

void TestTimeFormat::yearsOfUnusualSize()
{
    const TimeZone utc("UTC");
    QFETCH(double, time);
    QTEST(text("%yyyy %yy", time), "expected");
}

void TestTimeFormat::timesBeyondAllDates_data()
{
    QTest::addColumn<double>("time");

    QTest::newRow("year beyond int") << 1e20;
    QTest::newRow("year below int") << -1e20;
    QTest::newRow("beyond the clock's 64 bits") << 1e23;
    QTest::newRow("1e300") << 1e300;
    QTest::newRow("-1e300") << -1e300;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
}

void TestTimeFormat::timesBeyondAllDates()
{
    QFETCH(double, time);
    QCOMPARE(text("at %hh:%mm", time), QByteArray());
    QCOMPARE(text("at noon", time), QByteArray("at noon"));
    if (std::isfinite(time))
        QCOMPARE(TimeFormat("%dd").toResolution(time), time);
}

void TestTimeFormat::reference()
{
    const TimeZone berlin("Europe/Berlin");
    const double start = endOfJanuary + 34 * minute;
    const char *format = "%hh:%mm:%ss.%Ms %ad %ah %am %as %aMs %aUs";
    QCOMPARE(text(format, start, start), QByteArray("00:00:00.000 0 0 0 0 0 0"));
    QCOMPARE(text(format, start + 2 * hour + 3 * minute + 4 * second + 5.0, start),
             QByteArray("02:03:04.005 0 2 123 7384 7384005 7384005000"));
    // The date is that of the reference, and goes on at midnight.
    QCOMPARE(text("%dd.%MM. %hh:%mm", start + 23 * hour, start), QByteArray("31.01. 23:00"));
    QCOMPARE(text("%dd.%MM. %hh:%mm", start + 25 * hour, start), QByteArray("01.02. 01:00"));
}

void TestTimeFormat::referenceKeepsTheClockAtMidnight()
{
    // The reference is in summer time, its midnight on the day of the change is not.
    const TimeZone berlin("Europe/Berlin");
    const double spring = 1711846800000.0;
    QCOMPARE(text("%hh:%mm", spring + hour, spring), QByteArray("01:00"));
    QCOMPARE(text("%hh:%mm", spring + hour, endOfJanuary).size(), 5);
}

void TestTimeFormat::resolution_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("expected");

    // 31 January 2024, 12:34:56.789012 UTC
    const double time = endOfJanuary + 34 * minute + 56 * second + 789.012;
    const QByteArray utc("UTC");
    QTest::newRow("microsecond") << utc << QByteArray("%ss.%Us") << time + 0.0004 << time;
    QTest::newRow("millisecond") << utc << QByteArray("%Ms") << time << endOfJanuary + 34 * minute + 56789.0;
    QTest::newRow("second") << utc << QByteArray("%ss") << time << endOfJanuary + 34 * minute + 56000.0;
    QTest::newRow("minute") << utc << QByteArray("%mm") << time << endOfJanuary + 34 * minute;
    QTest::newRow("hour") << utc << QByteArray("%hh") << time << endOfJanuary;
    QTest::newRow("twelve-hour clock") << utc << QByteArray("%H %PP") << time << endOfJanuary;
    QTest::newRow("day") << utc << QByteArray("%dd") << time << endOfJanuary - 12 * hour;
    QTest::newRow("day of the year") << utc << QByteArray("%DoY") << time << endOfJanuary - 12 * hour;
    QTest::newRow("week from Sunday")
        << utc << QByteArray("%WoY") << time << endOfJanuary - 12 * hour - 3 * day;
    QTest::newRow("week from Monday")
        << utc << QByteArray("%isoWoY") << time << endOfJanuary - 12 * hour - 2 * day;
    QTest::newRow("month") << utc << QByteArray("%MonEn") << time << endOfJanuary - 12 * hour - 30 * day;
    QTest::newRow("year") << utc << QByteArray("%yyyy") << time + 29 * day
                          << endOfJanuary - 12 * hour - 30 * day;
    QTest::newRow("the finest of several")
        << utc << QByteArray("%dd.%MM. %hh:%mm (%yyyy)") << time << endOfJanuary + 34 * minute;
    QTest::newRow("half a day is no unit") << utc << QByteArray("%PP") << time << time;
    QTest::newRow("text") << utc << QByteArray("now") << time << time;
    QTest::newRow("whole already") << utc << QByteArray("%mm") << endOfJanuary << endOfJanuary;
    QTest::newRow("before the epoch") << utc << QByteArray("%ss") << -500.0 << -1000.0;
    QTest::newRow("day before the epoch") << utc << QByteArray("%dd") << -500.0 << -day;
    const QByteArray berlin("Europe/Berlin");
    QTest::newRow("local day") << berlin << QByteArray("%dd") << time << endOfJanuary - 13 * hour;
    QTest::newRow("day of 23 hours") << berlin << QByteArray("%dd") << 1711846800000.0 + 5 * hour
                                     << 1711846800000.0 - 2 * hour;
    QTest::newRow("day of 25 hours") << berlin << QByteArray("%dd") << 1729990800000.0 + 5 * hour
                                     << 1729990800000.0 - 3 * hour;
    QTest::newRow("the second 2:30 of that day")
        << berlin << QByteArray("%hh") << 1729990800000.0 + 30 * minute << 1729990800000.0;
    QTest::newRow("half-hour zone") << QByteArray("Asia/Kolkata") << QByteArray("%hh") << time
                                    << endOfJanuary + 30 * minute;
}

void TestTimeFormat::resolution()
{
    QFETCH(QByteArray, zone);
    QFETCH(QByteArray, format);
    QFETCH(double, time);
    QFETCH(double, expected);
    const TimeZone inZone(zone.constData());
    const double found = TimeFormat(format).toResolution(time);
    QVERIFY2(std::fabs(found - expected) < 1e-3, qPrintable(QString::number(found - expected, 'f', 4)));
}

void TestTimeFormat::resolutionWithReference()
{
    const TimeZone utc("UTC");
    const double start = endOfJanuary + 34 * minute;
    // The clock starts at midnight, so its hours begin 34 minutes past those of the day.
    QCOMPARE(TimeFormat("%hh").toResolution(start + 2.5 * hour, start), start + 2 * hour);
}

void TestTimeFormat::resolutionIsExact()
{
    const TimeZone berlin("Europe/Berlin");
    const double dayStart = TimeFormat("%dd").toResolution(2261634.5098039214);
    QVERIFY2(dayStart == -hour, qPrintable(QString::number(dayStart + hour)));
}

void TestTimeFormat::resolutionOfElapsedUnits()
{
    const TimeZone berlin("Europe/Berlin");
    QCOMPARE(TimeFormat("%ad").toResolution(endOfJanuary), endOfJanuary - 12 * hour);
    QCOMPARE(TimeFormat("%ah").toResolution(1.5 * hour), hour);
    QCOMPARE(TimeFormat("%am").toResolution(1.5 * hour + 1.0), 1.5 * hour);
    QCOMPARE(TimeFormat("%as").toResolution(1999.0), 1000.0);
    QCOMPARE(TimeFormat("%aMs").toResolution(1999.5), 1999.0);
    QCOMPARE(TimeFormat("%aUs").toResolution(1999.5), 1999.5);
    QCOMPARE(TimeFormat("%ah").toResolution(2.75 * hour, 0.5 * hour), 2.5 * hour);
}

void TestTimeFormat::wholeMicrosecondLosesNothing()
{
    for (const char *format : {"%Us", "%aUs"}) {
        const TimeFormat microseconds(format);
        for (int i = 0; i < 5000; ++i) {
            const double whole = i / 1000.0;
            QCOMPARE(microseconds.toResolution(whole), whole);
            const double before = std::nextafter(whole, -1.0);
            QVERIFY2(microseconds.toResolution(before) <= before, format);
        }
    }
}

void TestTimeFormat::levels_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QVector<double>>("thresholds");

    const double all = std::numeric_limits<double>::max();
    QTest::newRow("no line") << QByteArray() << QVector<double>{};
    QTest::newRow("empty lines") << QByteArray("\r\n\r\n") << QVector<double>{};
    QTest::newRow("one format") << QByteArray("%ss") << QVector<double>{all};
    QTest::newRow("two levels") << QByteArray("60000\t%ss\r\n%hh:%mm") << QVector<double>{60000.0, all};
    QTest::newRow("sorted") << QByteArray("%d\r\n3e6\t%h\r\n60000\t%s\r\n500.5\t%Ms")
                            << QVector<double>{500.5, 60000.0, 3e6, all};
    QTest::newRow("an empty line between")
        << QByteArray("60000\t%ss\r\n\r\n%hh\r\n") << QVector<double>{60000.0, all};
    QTest::newRow("no number") << QByteArray("soon\t%ss") << QVector<double>{0.0};
    QTest::newRow("not a number") << QByteArray("nan\t%ss\r\n5\t%s") << QVector<double>{0.0, 5.0};
    QTest::newRow("negative") << QByteArray("-5\t%ss\r\n5\t%s") << QVector<double>{-5.0, 5.0};
    QTest::newRow("blanks around the number") << QByteArray(" 5 \t%ss") << QVector<double>{5.0};
    QTest::newRow("line feeds alone separate nothing") << QByteArray("5\t%ss\n6\t%s") << QVector<double>{0.0};
}

void TestTimeFormat::levels()
{
    QFETCH(QByteArray, lines);
    QVector<double> found;
    for (const TimeLevel &level : parseTimeLevels(lines))
        found.append(level.threshold);
    QTEST(found, "thresholds");
}

void TestTimeFormat::levelTexts()
{
    const TimeZone utc("UTC");
    const auto levels = parseTimeLevels("60000\ts %ss\r\n%hh:%mm\r\n60000\tsecond %s");
    QCOMPARE(levels.size(), 3);
    // Of two equal thresholds, the later line comes first.
    QCOMPARE(levels.at(0).format.text(5000.0), QByteArray("second 5"));
    QCOMPARE(levels.at(1).format.text(5000.0), QByteArray("s 05"));
    QCOMPARE(levels.at(2).format.text(5000.0), QByteArray("00:00"));
    QCOMPARE(levels.at(2).format.unitRows(), QVector<UnitRow>({HoursRow, MinutesRow}));
    // The last tab of a line ends the number, which then is none.
    QCOMPARE(parseTimeLevels("5\t6\t%s").at(0).format.text(5000.0), QByteArray("5"));
    QCOMPARE(parseTimeLevels("5\t").at(0).format.text(5000.0), QByteArray());
}

void TestTimeFormat::levelsForSpans()
{
    const auto levels = parseTimeLevels("1000\t%Ms\r\n60000\t%ss");
    QCOMPARE(levelForSpan(levels, 999.0), &levels.at(0));
    QCOMPARE(levelForSpan(levels, 1000.0), &levels.at(1));
    QCOMPARE(levelForSpan(levels, 59999.9), &levels.at(1));
    QVERIFY(!levelForSpan(levels, 60000.0));
    QVERIFY(!levelForSpan({}, 1.0));
    const auto always = parseTimeLevels("%ss");
    QCOMPARE(levelForSpan(always, 1e300), &always.at(0));
    QVERIFY(!levelForSpan(always, std::numeric_limits<double>::max()));
}

QTEST_APPLESS_MAIN(TestTimeFormat)
#include "tst_timeformat.moc"
