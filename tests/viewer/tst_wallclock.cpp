#include "civiltime.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <cmath>
#include <ctime>

class TestWallClock : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void daysOfDates();
    void theLocalTimeIsTheTimeShown();
    void ticksOfDaysFallOnMidnight();
    void years_data();
    void years();
    void yearsOfAbsurdTimes();
};

void TestWallClock::daysOfDates()
{
    QCOMPARE(CivilTime::daysFromDate(1970, 1, 1), qint64(0));
    for (qint64 day = -1000000; day < 1000000; day += 997) {
        const QDate date = QDate(1970, 1, 1).addDays(day);
        // Qt knows no year 0; the calendar of the day count does.
        if (date.year() < 1)
            continue;
        QCOMPARE(CivilTime::daysFromDate(date.year(), date.month(), date.day()), day);
        QCOMPARE(CivilTime::yearOfDay(day), qint64(date.year()));
    }
    for (qint64 year = -5000; year < 5000; year += 7) {
        QCOMPARE(CivilTime::yearOfDay(CivilTime::daysFromDate(year, 1, 1)), year);
        QCOMPARE(CivilTime::yearOfDay(CivilTime::daysFromDate(year, 12, 31)), year);
    }
}

void TestWallClock::theLocalTimeIsTheTimeShown()
{
    WallClock::enterZone();
    // In the middle of summer and in winter, before 1970 and after 2038.
    for (const int year : {1950, 1999, 2026, 2060}) {
        for (const int month : {1, 7}) {
            const qint64 shown = QDateTime(QDate(year, month, 15), QTime(14, 3), Qt::UTC).toMSecsSinceEpoch();
            const auto seconds = static_cast<std::time_t>(WallClock::fromShownTime(double(shown)) / 1000.0);
            std::tm local{};
            localtime_r(&seconds, &local);
            QCOMPARE(local.tm_year + 1900, year);
            QCOMPARE(local.tm_mon + 1, month);
            QCOMPARE(local.tm_mday, 15);
            QCOMPARE(local.tm_hour, 14);
            QCOMPARE(local.tm_min, 3);
        }
    }
}

void TestWallClock::ticksOfDaysFallOnMidnight()
{
    // An axis puts ticks where the time plus one hour is a multiple of the step.
    const double midnight
        = WallClock::fromShownTime(double(CivilTime::daysFromDate(2026, 11, 21)) * 86400000.0);
    QCOMPARE(std::fmod(midnight + 3600000.0, 86400000.0), 0.0);
}

void TestWallClock::years_data()
{
    QTest::addColumn<QDateTime>("shown");
    QTest::addColumn<double>("year");

    const auto utc = [](int year, int month, int day, int hour) {
        return QDateTime(QDate(year, month, day), QTime(hour, 0), Qt::UTC);
    };
    QTest::newRow("begin") << utc(2000, 1, 1, 0) << 2000.0;
    QTest::newRow("middle of a leap year") << utc(2000, 7, 2, 0) << 2000.5;
    QTest::newRow("middle of a year") << utc(2001, 7, 2, 12) << 2001.5;
    QTest::newRow("before 1970") << utc(1958, 1, 1, 0) << 1958.0;
    QTest::newRow("long ago") << utc(1, 1, 1, 0) << 1.0;
}

void TestWallClock::years()
{
    QFETCH(QDateTime, shown);
    QTEST(WallClock::year(WallClock::fromShownTime(double(shown.toMSecsSinceEpoch()))), "year");
}

void TestWallClock::yearsOfAbsurdTimes()
{
    QVERIFY(std::isnan(WallClock::year(std::numeric_limits<double>::quiet_NaN())));
    QVERIFY(std::isnan(WallClock::year(std::numeric_limits<double>::infinity())));
    QVERIFY(std::isnan(WallClock::year(-1e300)));
    QVERIFY(std::isfinite(WallClock::year(8.6e15)));
    QVERIFY(std::isfinite(WallClock::year(-8.6e15)));
}

QTEST_APPLESS_MAIN(TestWallClock)
#include "tst_wallclock.moc"
