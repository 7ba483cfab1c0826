#include "readout.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(NumberFormat)
Q_DECLARE_METATYPE(Readout::AxisText)

using Readout::AxisText;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kHour = 3600000.0;
constexpr double kDay = 24.0 * kHour;

/// The time at which the axis shows \a text.
double at(const char *text)
{
    QDateTime time = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
    time.setTimeSpec(Qt::UTC);
    return WallClock::fromShownTime(double(time.toMSecsSinceEpoch()));
}

AxisText dates(double span, const QString &format = {})
{
    const double low = at("2026-11-21T00:00:00");
    return {AxisScale::Dates, NumberFormat::Compact, format, low, low + span};
}

AxisText numbers(double low, double high)
{
    return {AxisScale::Numbers, NumberFormat::Compact, {}, low, high};
}

} // namespace

class TestReadout : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { WallClock::enterZone(); }

    void nearest_data();
    void nearest();
    void nearestAgreesWithASearchOfAll();
    void numberTexts_data();
    void numberTexts();
    void numberDifferences();
    void timeTexts_data();
    void timeTexts();
    void positions_data();
    void positions();
    void differences_data();
    void differences();
};

void TestReadout::nearest_data()
{
    using Values = QVector<double>;
    QTest::addColumn<Values>("xs");
    QTest::addColumn<Values>("ys");
    QTest::addColumn<double>("x");
    QTest::addColumn<bool>("sorted");
    QTest::addColumn<bool>("positiveOnly");
    QTest::addColumn<int>("expected");
    QTest::newRow("nothing") << Values() << Values() << 1.0 << true << false << -1;
    QTest::newRow("x is no number") << Values{1, 2} << Values{1, 2} << kNaN << true << false << -1;
    QTest::newRow("the closer one") << Values{1, 2, 4} << Values{1, 2, 3} << 2.9 << true << false << 1;
    QTest::newRow("the closer one above") << Values{1, 2, 4} << Values{1, 2, 3} << 3.1 << true << false << 2;
    QTest::newRow("the first of two") << Values{1, 2, 4} << Values{1, 2, 3} << 3.0 << true << false << 1;
    QTest::newRow("before all") << Values{1, 2} << Values{1, 2} << -9.0 << true << false << 0;
    QTest::newRow("after all") << Values{1, 2} << Values{1, 2} << 9.0 << true << false << 1;
    QTest::newRow("the first of equal ones")
        << Values{1, 2, 2, 3} << Values{1, 2, 3, 4} << 2.2 << true << false << 1;
    QTest::newRow("a gap is skipped") << Values{1, 2, 3} << Values{1, kNaN, 3} << 2.1 << true << false << 2;
    QTest::newRow("only gaps") << Values{1, 2} << Values{kNaN, kNaN} << 1.0 << true << false << -1;
    QTest::newRow("not above 0 is no gap") << Values{1, 2} << Values{1, 0} << 2.0 << true << false << 1;
    QTest::newRow("not above 0 is a gap of a logarithm")
        << Values{1, 2} << Values{1, 0} << 2.0 << true << true << 0;
    QTest::newRow("unsorted") << Values{5, 1, 3} << Values{1, 2, 3} << 1.4 << false << false << 1;
    QTest::newRow("unsorted with gaps")
        << Values{5, kNaN, 1, 3} << Values{1, 2, kNaN, 3} << 1.4 << false << false << 3;
}

void TestReadout::nearest()
{
    QFETCH(QVector<double>, xs);
    QFETCH(QVector<double>, ys);
    QFETCH(double, x);
    QFETCH(bool, sorted);
    QFETCH(bool, positiveOnly);
    QTEST(Readout::nearestSample(xs, ys, x, sorted, positiveOnly), "expected");
}

void TestReadout::nearestAgreesWithASearchOfAll()
{
    QRandomGenerator random(4711);
    for (int round = 0; round < 500; ++round) {
        QVector<double> xs;
        QVector<double> ys;
        for (int i = random.bounded(12); i > 0; --i) {
            xs.append(random.bounded(10));
            ys.append(random.bounded(3) == 0 ? kNaN : random.bounded(10) - 3.0);
        }
        std::sort(xs.begin(), xs.end());
        const double x = random.bounded(24) / 2.0 - 1.0;
        const bool positiveOnly = random.bounded(2) == 0;
        QCOMPARE(Readout::nearestSample(xs, ys, x, true, positiveOnly),
                 Readout::nearestSample(xs, ys, x, false, positiveOnly));
    }
}

void TestReadout::numberTexts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<NumberFormat>("format");
    QTest::addColumn<QString>("expected");
    QTest::newRow("as it stands in the file") << 5.25 << NumberFormat::Compact << QStringLiteral("5.25");
    QTest::newRow("without noise") << 0.1 + 0.2 << NumberFormat::Compact << QStringLiteral("0.3");
    QTest::newRow("large") << 2.5e15 << NumberFormat::Compact << QStringLiteral("2.5e+15");
    QTest::newRow("large, plain") << 2.5e15 << NumberFormat::FloatingPoint
                                  << QStringLiteral("2500000000000000");
    QTest::newRow("small, plain") << 2.5e-7 << NumberFormat::FloatingPoint << QStringLiteral("0.00000025");
    QTest::newRow("exponential") << 1500.0 << NumberFormat::Exponential << QStringLiteral("1.5e+03");
    QTest::newRow("exponential without noise")
        << 0.1 + 0.2 << NumberFormat::Exponential << QStringLiteral("3e-01");
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << NumberFormat::FloatingPoint
                              << QStringLiteral("inf");
}

void TestReadout::numberTexts()
{
    QFETCH(double, value);
    QFETCH(NumberFormat, format);
    QTEST(Readout::numberText(value, format), "expected");
}

void TestReadout::numberDifferences()
{
    const auto text = [](double from, double to) {
        return Readout::numberDifferenceText(from, to, NumberFormat::Compact);
    };
    QCOMPARE(text(1000000.1, 1000000.3), QStringLiteral("0.2"));
    QCOMPARE(text(0.3, 0.1), QStringLiteral("-0.2"));
    QCOMPARE(text(0.0, 1e-9), QStringLiteral("1e-09"));
    QCOMPARE(text(-1.5e300, 1.5e300), QStringLiteral("3e+300"));
    QCOMPARE(text(0.0, 0.0), QStringLiteral("0"));
}

void TestReadout::timeTexts_data()
{
    QTest::addColumn<AxisText>("axis");
    QTest::addColumn<double>("time");
    QTest::addColumn<QString>("expected");
    const AxisText timesOfDay{AxisScale::TimesOfDay, NumberFormat::Compact, {}, 0.0, kDay};
    QTest::newRow("minutes") << dates(kDay) << at("2026-11-21T14:03:00")
                             << QStringLiteral("21 Nov 2026 14:03");
    QTest::newRow("seconds") << dates(kDay) << at("2026-11-21T14:03:07")
                             << QStringLiteral("21 Nov 2026 14:03:07");
    QTest::newRow("milliseconds") << dates(kDay) << at("2026-11-21T14:03:00.250")
                                  << QStringLiteral("21 Nov 2026 14:03:00.250");
    QTest::newRow("midnight of hours")
        << dates(kDay) << at("2026-11-21T00:00:00") << QStringLiteral("21 Nov 2026 00:00");
    QTest::newRow("midnight of days")
        << dates(9 * kDay) << at("2026-11-21T00:00:00") << QStringLiteral("21 Nov 2026");
    QTest::newRow("in summer") << dates(kDay) << at("2026-07-01T14:03:00")
                               << QStringLiteral("1 Jul 2026 14:03");
    QTest::newRow("a day of months") << dates(90 * kDay) << at("2026-11-21T00:00:00")
                                     << QStringLiteral("2026-11-21");
    QTest::newRow("an hour of months")
        << dates(90 * kDay) << at("2026-11-21T06:30:00") << QStringLiteral("2026-11-21 06:30");
    QTest::newRow("before 1970") << dates(9000 * kDay) << at("1912-06-23T00:00:00")
                                 << QStringLiteral("1912-06-23");
    QTest::newRow("time of day") << timesOfDay << at("1970-01-02T09:05:00") << QStringLiteral("09:05");
    QTest::newRow("the user's format") << dates(kDay, QStringLiteral("%dEn %d.%M. %hh h"))
                                       << at("2026-11-21T14:59:00") << QStringLiteral("Sat 21.11. 14 h");
    QTest::newRow("the user's line for the range")
        << dates(kDay, QStringLiteral("1000\t%ss\r\n100000000\t%hh:%mm\r\n%yyyy"))
        << at("2026-11-21T14:59:30") << QStringLiteral("14:59");
    QTest::newRow("the user's line for all ranges")
        << dates(9 * kDay, QStringLiteral("1000\t%ss\r\n100000000\t%hh:%mm\r\n%yyyy"))
        << at("2026-11-21T14:59:30") << QStringLiteral("2026");
    QTest::newRow("the user's format fails before 1970")
        << dates(kDay, QStringLiteral("%yyyy")) << at("1912-06-23T10:00:00")
        << QStringLiteral("23 Jun 1912 10:00");
    QTest::newRow("beyond all dates") << dates(kDay) << 1e17 << QStringLiteral("1e+17");
}

void TestReadout::timeTexts()
{
    QFETCH(AxisText, axis);
    QFETCH(double, time);
    QTEST(Readout::sampleText(axis, time), "expected");
}

void TestReadout::positions_data()
{
    QTest::addColumn<AxisText>("axis");
    QTest::addColumn<double>("position");
    QTest::addColumn<QString>("expected");
    const AxisText logarithms{AxisScale::Logarithms, NumberFormat::Compact, {}, 0.0, 5.0};
    QTest::newRow("a thousandth of the range") << numbers(0, 10) << 1.23456789 << QStringLiteral("1.23");
    QTest::newRow("of a narrow range far away")
        << numbers(1000000, 1000000.01) << 1000000.00123456 << QStringLiteral("1000000.00123");
    QTest::newRow("of a wide range") << numbers(0, 2e7) << 1234567.0 << QStringLiteral("1230000");
    QTest::newRow("no minus zero") << numbers(-5, 5) << -0.0001 << QStringLiteral("0");
    QTest::newRow("an empty range") << numbers(1, 1) << 1.25 << QStringLiteral("1.25");
    QTest::newRow("a range that is no number") << numbers(kNaN, 1) << 1.25 << QStringLiteral("1.25");
    QTest::newRow("a logarithm") << logarithms << 2.0 << QStringLiteral("100");
    QTest::newRow("four digits of a logarithm")
        << logarithms << std::log10(1234.56) << QStringLiteral("1235");
    QTest::newRow("minutes of a day")
        << dates(kDay) << at("2026-11-21T14:03:29.9") << QStringLiteral("21 Nov 2026 14:03");
    QTest::newRow("seconds of an hour")
        << dates(kHour) << at("2026-11-21T14:03:29.9") << QStringLiteral("21 Nov 2026 14:03:30");
    QTest::newRow("days of a year") << dates(365 * kDay) << at("2026-11-21T13:00:00")
                                    << QStringLiteral("2026-11-22");
}

void TestReadout::positions()
{
    QFETCH(AxisText, axis);
    QFETCH(double, position);
    QTEST(Readout::positionText(axis, position), "expected");
}

void TestReadout::differences_data()
{
    QTest::addColumn<AxisText>("axis");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<QString>("expected");
    const AxisText logarithms{AxisScale::Logarithms, NumberFormat::Compact, {}, 0.0, 5.0};
    const double noon = at("2026-11-21T12:00:00");
    QTest::newRow("of what is written") << numbers(0, 10) << 1.004 << 2.006 << QStringLiteral("1.01");
    QTest::newRow("downwards") << numbers(0, 10) << 2.0 << 1.5 << QStringLiteral("-0.5");
    QTest::newRow("a factor") << logarithms << 1.0 << 3.0 << QStringLiteral("\u00D7100");
    QTest::newRow("hours") << dates(kDay) << noon << noon + 2.5 * kHour << QStringLiteral("02:30:00");
    QTest::newRow("days back") << dates(9 * kDay) << noon + 2 * kDay + kHour << noon
                               << QStringLiteral("-2 d 01:00:00");
    QTest::newRow("milliseconds") << dates(100.0) << noon << noon + 12.0 << QStringLiteral("00:00:00.012");
    QTest::newRow("beyond all times") << dates(1e300) << 0.0 << 1e17 << QStringLiteral("1e+17");
}

void TestReadout::differences()
{
    QFETCH(AxisText, axis);
    QFETCH(double, from);
    QFETCH(double, to);
    QTEST(Readout::differenceText(axis, from, to), "expected");
}

QTEST_APPLESS_MAIN(TestReadout)
#include "tst_readout.moc"
