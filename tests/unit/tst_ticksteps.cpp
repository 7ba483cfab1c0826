#include "shared/quiettest.h"

#include "internal/ticksteps_p.h"

#include <cmath>
#include <limits>

using namespace ZrTicks;

Q_DECLARE_METATYPE(ZrTicks::UnitRow)
Q_DECLARE_METATYPE(ZrTicks::TickParameters)

namespace {

using Numbers = QVector<double>;
using Divisions = QVector<int>;

const double infinity = std::numeric_limits<double>::infinity();

TickParameters limited(int maxTicks, int subTickLimit, int precision)
{
    TickParameters parameters;
    parameters.maxTicks = maxTicks;
    parameters.subTickLimit = subTickLimit;
    parameters.precision = precision;
    return parameters;
}

TickParameters spaced(int maxTicks, double length, double tickDistance)
{
    TickParameters parameters = limited(maxTicks, 4, 1);
    parameters.length = length;
    parameters.tickDistance = tickDistance;
    return parameters;
}

TickParameters logarithmic(int maxTicks, int subTickLimit)
{
    TickParameters parameters = limited(maxTicks, subTickLimit, 1);
    parameters.logarithmic = true;
    return parameters;
}

TickStep decimalStep(int candidate, int tickCount)
{
    TickStep step;
    step.choice = {DecimalRow, candidate};
    step.tickCount = tickCount;
    return step;
}

} // namespace

class TestTickSteps : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void candidates_data();
    void candidates();
    void divisions_data();
    void divisions();
    void everyCandidateHasDivisions();
    void decimalCandidate_data();
    void decimalCandidate();
    void equalSpacedStep();
    void logarithmicCandidate_data();
    void logarithmicCandidate();
    void timeCandidate_data();
    void timeCandidate();
    void boundPrecisionOfTimeRows_data();
    void boundPrecisionOfTimeRows();
    void subTicks_data();
    void subTicks();
    void noSubTicksBetweenBoundsOnly();
    void subTicksOfEqualSpaced();
    void subTicksOfLogarithmic_data();
    void subTicksOfLogarithmic();
    void bestCandidateWins();
    void moreSubTicksWinAmongEqualTicks();
    void earlierCandidateWinsATie();
    void nothingFits();
    void previousChoiceIsKept();
    void previousChoiceOfAnotherRowIsNotKept();
};

void TestTickSteps::candidates_data()
{
    QTest::addColumn<UnitRow>("row");
    QTest::addColumn<Numbers>("expected");

    QTest::newRow("years") << YearsRow << Numbers{31536000000.0,    315360000000.0,    3153600000000.0,
                                                  31536000000000.0, 315360000000000.0, 3153600000000000.0};
    QTest::newRow("decimal") << DecimalRow << Numbers{0.1, 0.2, 0.5};
    QTest::newRow("hours") << HoursRow << Numbers{3600000, 10800000, 21600000, 43200000};
    QTest::newRow("hours, short") << ShortHoursRow << Numbers{3600000, 10800000, 21600000};
    QTest::newRow("minutes") << MinutesRow
                             << Numbers{60000, 120000, 300000, 600000, 900000, 1200000, 1800000};
    QTest::newRow("seconds") << SecondsRow << Numbers{1000, 2000, 5000, 10000, 15000, 20000, 30000};
    QTest::newRow("milliseconds") << MillisecondsRow << Numbers{1, 2, 5, 10, 20, 50, 100, 200, 500};
    QTest::newRow("fine") << FineRow << Numbers{0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5,
                                                1,     2,     5,     10,   20,   50,   100, 200, 500};
    QTest::newRow("days") << DaysRow << Numbers{86400000, 172800000, 604800000};
    QTest::newRow("months") << MonthsRow << Numbers{2592000000.0, 7776000000.0, 15552000000.0};
    QTest::newRow("days, long") << LongDaysRow
                                << Numbers{86400000,     172800000,    432000000,    864000000,
                                           1728000000.0, 4320000000.0, 8640000000.0, 17280000000.0};
    QTest::newRow("weeks") << WeeksRow << Numbers{604800000,    1209600000.0,  3024000000.0,
                                                  6048000000.0, 12096000000.0, 30240000000.0};
}

void TestTickSteps::candidates()
{
    QFETCH(UnitRow, row);
    QFETCH(Numbers, expected);
    Numbers found;
    for (const double candidate : stepRows()[row].candidates) {
        if (candidate < 0.0)
            break;
        found.append(candidate);
    }
    QVERIFY(found == expected);
    QCOMPARE(stepRows()[row].candidates[size_t(expected.size())], -1.0);
}

void TestTickSteps::divisions_data()
{
    QTest::addColumn<UnitRow>("row");
    QTest::addColumn<double>("unit");
    QTest::addColumn<Numbers>("sizes");
    QTest::addColumn<Divisions>("expected");

    const double year = 3.1536e10;
    QTest::newRow("1 year") << YearsRow << year << Numbers{1} << Divisions{12, 6, 4, 2, 1};
    QTest::newRow("2 years") << YearsRow << year << Numbers{2} << Divisions{2, 1};
    QTest::newRow("5 years") << YearsRow << year << Numbers{5} << Divisions{5, 1};
    QTest::newRow("other years") << YearsRow << year << Numbers{3, 10, 100, 1000, 10000, 100000}
                                 << Divisions{10, 5, 2, 1};
    QTest::newRow("mantissa 1") << DecimalRow << 0.1 << Numbers{1} << Divisions{10, 5, 2, 1};
    QTest::newRow("mantissa 2") << DecimalRow << 0.1 << Numbers{2} << Divisions{4, 2, 1};
    QTest::newRow("mantissa 5") << DecimalRow << 0.1 << Numbers{5} << Divisions{5, 1};
    QTest::newRow("1 hour") << HoursRow << 3.6e6 << Numbers{1} << Divisions{12, 6, 4, 3, 2, 1};
    QTest::newRow("3 and 6 hours") << HoursRow << 3.6e6 << Numbers{3, 6} << Divisions{6, 3, 1};
    QTest::newRow("12 hours") << HoursRow << 3.6e6 << Numbers{12} << Divisions{12, 6, 3, 1};
    QTest::newRow("1 hour, short") << ShortHoursRow << 3.6e6 << Numbers{1} << Divisions{12, 6, 4, 3, 2, 1};
    QTest::newRow("3 and 6 hours, short") << ShortHoursRow << 3.6e6 << Numbers{3, 6} << Divisions{6, 3, 1};
    QTest::newRow("1 minute") << MinutesRow << 6e4 << Numbers{1} << Divisions{6, 5, 4, 2, 1};
    QTest::newRow("2 minutes") << MinutesRow << 6e4 << Numbers{2} << Divisions{4, 2, 1};
    QTest::newRow("5 minutes") << MinutesRow << 6e4 << Numbers{5} << Divisions{5, 1};
    QTest::newRow("10 minutes") << MinutesRow << 6e4 << Numbers{10} << Divisions{10, 5, 2, 1};
    QTest::newRow("15 minutes") << MinutesRow << 6e4 << Numbers{15} << Divisions{15, 3, 1};
    QTest::newRow("20 minutes") << MinutesRow << 6e4 << Numbers{20} << Divisions{20, 10, 4, 2, 1};
    QTest::newRow("30 minutes") << MinutesRow << 6e4 << Numbers{30} << Divisions{30, 15, 10, 6, 3, 2, 1};
    QTest::newRow("1 and 10 seconds") << SecondsRow << 1e3 << Numbers{1, 10} << Divisions{10, 5, 2, 1};
    QTest::newRow("2 seconds") << SecondsRow << 1e3 << Numbers{2} << Divisions{4, 2, 1};
    QTest::newRow("5 seconds") << SecondsRow << 1e3 << Numbers{5} << Divisions{5, 1};
    QTest::newRow("15 seconds") << SecondsRow << 1e3 << Numbers{15} << Divisions{15, 5, 3, 1};
    QTest::newRow("20 seconds") << SecondsRow << 1e3 << Numbers{20} << Divisions{20, 10, 4, 2, 1};
    QTest::newRow("30 seconds") << SecondsRow << 1e3 << Numbers{30} << Divisions{30, 15, 10, 6, 3, 2, 1};

    const struct
    {
        const char *name;
        UnitRow row;
        double unit;
    } fractions[] = {{"milliseconds", MillisecondsRow, 1.0}, {"thousandths of a ms", FineRow, 0.001}};
    for (const auto &[name, row, unit] : fractions) {
        QTest::addRow("1 %s", name) << row << unit << Numbers{1} << Divisions{100, 50, 25, 10, 5, 2, 1};
        QTest::addRow("2 %s", name) << row << unit << Numbers{2} << Divisions{4, 2, 1};
        QTest::addRow("5 %s", name) << row << unit << Numbers{5} << Divisions{5, 1};
        QTest::addRow("10 %s", name) << row << unit << Numbers{10} << Divisions{10, 5, 2, 1};
        QTest::addRow("20 %s", name) << row << unit << Numbers{20} << Divisions{20, 10, 4, 2, 1};
        QTest::addRow("50 %s", name) << row << unit << Numbers{50} << Divisions{50, 25, 10, 5, 2, 1};
        QTest::addRow("100 and 500 %s", name)
            << row << unit << Numbers{100, 500} << Divisions{100, 50, 25, 20, 10, 5, 4, 2, 1};
        QTest::addRow("200 %s", name)
            << row << unit << Numbers{200} << Divisions{100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1};
    }
    QTest::newRow("1 to 500 ms, fine")
        << FineRow << 0.001 << Numbers{1e3, 2e3, 5e3, 1e4, 2e4, 5e4, 1e5, 2e5, 5e5}
        << Divisions{100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1};

    const double day = 8.64e7;
    QTest::newRow("1 day") << DaysRow << day << Numbers{1} << Divisions{24, 12, 8, 4, 2, 1};
    QTest::newRow("2 days") << DaysRow << day << Numbers{2} << Divisions{2, 1};
    QTest::newRow("7 days") << DaysRow << day << Numbers{7} << Divisions{7, 1};
    QTest::newRow("1 month") << MonthsRow << 2.592e9 << Numbers{1} << Divisions{1};
    QTest::newRow("3 months") << MonthsRow << 2.592e9 << Numbers{3} << Divisions{3, 1};
    QTest::newRow("6 months") << MonthsRow << 2.592e9 << Numbers{6} << Divisions{6, 3, 1};
    QTest::newRow("1 day, long") << LongDaysRow << day << Numbers{1} << Divisions{24, 12, 8, 4, 2, 1};
    QTest::newRow("2 days, long") << LongDaysRow << day << Numbers{2} << Divisions{4, 2, 1};
    QTest::newRow("5 days, long") << LongDaysRow << day << Numbers{5} << Divisions{5, 1};
    QTest::newRow("10 days, long") << LongDaysRow << day << Numbers{10} << Divisions{10, 5, 2, 1};
    QTest::newRow("20 days, long") << LongDaysRow << day << Numbers{20} << Divisions{20, 10, 4, 2, 1};
    QTest::newRow("50 days, long") << LongDaysRow << day << Numbers{50} << Divisions{50, 25, 10, 5, 2, 1};
    QTest::newRow("100 days, long") << LongDaysRow << day << Numbers{100}
                                    << Divisions{100, 50, 25, 20, 10, 5, 4, 2, 1};
    QTest::newRow("200 days, long") << LongDaysRow << day << Numbers{200}
                                    << Divisions{100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1};
    const double week = 6.048e8;
    QTest::newRow("1 week") << WeeksRow << week << Numbers{1} << Divisions{7, 1};
    QTest::newRow("2 weeks") << WeeksRow << week << Numbers{2} << Divisions{2, 1};
    QTest::newRow("5 weeks") << WeeksRow << week << Numbers{5} << Divisions{5, 1};
    QTest::newRow("10 weeks") << WeeksRow << week << Numbers{10} << Divisions{10, 5, 2, 1};
    QTest::newRow("20 weeks") << WeeksRow << week << Numbers{20} << Divisions{20, 10, 4, 2, 1};
    QTest::newRow("50 weeks") << WeeksRow << week << Numbers{50} << Divisions{50, 25, 10, 5, 2, 1};
    QTest::newRow("a size that is not named") << WeeksRow << week << Numbers{3} << Divisions{1};
}

void TestTickSteps::divisions()
{
    QFETCH(UnitRow, row);
    QFETCH(double, unit);
    QFETCH(Numbers, sizes);
    QFETCH(Divisions, expected);
    for (const double size : qAsConst(sizes)) {
        Divisions found;
        for (const int division : allowedDivisions(row, size * unit)) {
            if (division == 0)
                break;
            found.append(division);
        }
        QCOMPARE(found, expected);
    }
}

// A candidate whose size were misspelt in the table of divisions would have none.
void TestTickSteps::everyCandidateHasDivisions()
{
    for (int row = 0; row < UnitRowCount; ++row) {
        for (const double candidate : stepRows()[size_t(row)].candidates) {
            if (candidate < 0.0)
                break;
            const bool isMonth = row == MonthsRow && candidate == 2592000000.0;
            QVERIFY2(isMonth || allowedDivisions(UnitRow(row), candidate)[0] > 1,
                     qPrintable(QStringLiteral("row %1, %2").arg(row).arg(candidate)));
        }
    }
}

void TestTickSteps::decimalCandidate_data()
{
    QTest::addColumn<TickParameters>("parameters");
    QTest::addColumn<int>("candidate");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<int>("tickCount");
    QTest::addColumn<double>("firstTick");
    QTest::addColumn<double>("step");

    const TickParameters ten = spaced(10, 400.0, 60.0);
    QTest::newRow("0.1 makes 11 ticks, so 1 makes 2") << ten << 0 << 0.0 << 1.0 << 2 << 1.0 << 1.0;
    QTest::newRow("0.2 makes 6") << ten << 1 << 0.0 << 1.0 << 6 << 0.2 << 0.2;
    QTest::newRow("0.5 makes 3") << ten << 2 << 0.0 << 1.0 << 3 << 0.5 << 0.5;
    QTest::newRow("exactly as many as allowed") << limited(11, 4, 1) << 0 << 0.0 << 1.0 << 11 << 0.1 << 0.1;
    QTest::newRow("a range between multiples") << limited(11, 4, 1) << 0 << 0.05 << 0.95 << 11 << 0.1 << 0.1;
    QTest::newRow("exactly as far apart as asked")
        << spaced(10, 300.0, 60.0) << 1 << 0.0 << 1.0 << 6 << 0.2 << 0.2;
    QTest::newRow("too close together") << spaced(10, 299.0, 60.0) << 1 << 0.0 << 1.0 << 2 << 2.0 << 2.0;
    QTest::newRow("no length, no distance") << spaced(10, 0.0, 60.0) << 1 << 0.0 << 1.0 << 6 << 0.2 << 0.2;
    QTest::newRow("precision 0") << limited(11, 4, 0) << 0 << 0.0 << 1.0 << 2 << 1.0 << 1.0;
    QTest::newRow("precision -1 steps by tens")
        << limited(11, 4, -1) << 0 << 0.0 << 100.0 << 11 << 10.0 << 10.0;
    QTest::newRow("precision 3") << limited(11, 4, 3) << 1 << 0.0 << 0.01 << 6 << 0.002 << 0.002;
    QTest::newRow("below zero") << limited(11, 4, 0) << 0 << -5.0 << -1.0 << 5 << -4.0 << 1.0;
    QTest::newRow("across zero") << limited(11, 4, 0) << 0 << -2.5 << 2.5 << 7 << -2.0 << 1.0;
    QTest::newRow("huge") << limited(11, 4, 1) << 1 << 0.0 << 1e300 << 6 << 2e299 << 2e299;
    QTest::newRow("two ticks") << limited(2, 4, 1) << 0 << 0.5 << 1.5 << 2 << 10.0 << 10.0;
    QTest::newRow("two ticks across zero") << limited(2, 4, 1) << 0 << -1.0 << 3.0 << 2 << -1.0 << 4.0;
    QTest::newRow("less than two ticks") << limited(1, 4, 1) << 0 << -1.0 << 3.0 << 2 << -1.0 << 4.0;
    QTest::newRow("so narrow that both ends are one multiple")
        << limited(11, 4, -1) << 0 << 0.0 << 5e-324 << 2 << 10.0 << 10.0;
}

void TestTickSteps::decimalCandidate()
{
    QFETCH(TickParameters, parameters);
    QFETCH(int, candidate);
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(int, tickCount);
    QFETCH(double, firstTick);
    QFETCH(double, step);
    const TickStep found = evaluateCandidate(parameters, {lo, hi}, {DecimalRow, candidate});
    QCOMPARE(found.tickCount, tickCount);
    QCOMPARE(found.firstTick, firstTick);
    QCOMPARE(found.step, step);
    QCOMPARE(found.precision, parameters.precision);
    QCOMPARE(found.boundPrecision, parameters.precision);
}

void TestTickSteps::equalSpacedStep()
{
    TickParameters parameters = limited(10, 4, 1);
    parameters.equalSpaced = true;
    const TickStep found = evaluateCandidate(parameters, {0.0, 0.95}, {DecimalRow, 1});
    QCOMPARE(found.tickCount, 6);
    QCOMPARE(found.step, 0.19);
    QCOMPARE(found.firstTick, 0.19);
}

void TestTickSteps::logarithmicCandidate_data()
{
    QTest::addColumn<int>("maxTicks");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<int>("tickCount");
    QTest::addColumn<double>("firstTick");
    QTest::addColumn<double>("step");

    QTest::newRow("a tick in each decade") << 10 << 0.0 << 3.0 << 4 << 1.0 << 1.0;
    QTest::newRow("a tick in every second decade") << 5 << -3.0 << 4.0 << 5 << -2.0 << 2.0;
    QTest::newRow("a tick in every third decade") << 4 << -3.0 << 4.0 << 4 << 0.0 << 3.0;
    QTest::newRow("less than three ticks") << 2 << 0.0 << 3.0 << 2 << 0.0 << 3.0;
    QTest::newRow("all decades of doubles") << 3 << -323.0 << 308.0 << 3 << 0.0 << 323.0;
}

void TestTickSteps::logarithmicCandidate()
{
    QFETCH(int, maxTicks);
    QFETCH(double, lo);
    QFETCH(double, hi);
    const TickStep found = evaluateCandidate(logarithmic(maxTicks, 8), {lo, hi}, {DecimalRow, 0});
    QTEST(found.tickCount, "tickCount");
    QTEST(found.firstTick, "firstTick");
    QTEST(found.step, "step");
}

void TestTickSteps::timeCandidate_data()
{
    QTest::addColumn<TickParameters>("parameters");
    QTest::addColumn<UnitRow>("row");
    QTest::addColumn<int>("candidate");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<int>("tickCount");
    QTest::addColumn<double>("firstTick");
    QTest::addColumn<int>("precision");

    const double day = 86400000.0;
    const double hour = 3600000.0;
    QTest::newRow("days begin one hour before those of UTC")
        << limited(10, 4, 1) << DaysRow << 0 << 0.0 << 3 * day << 5 << day - hour << -5;
    QTest::newRow("a whole number of steps at the beginning")
        << limited(10, 4, 1) << DaysRow << 0 << day - hour << 3 * day - hour << 3 << 2 * day - hour << -5;
    QTest::newRow("hours") << limited(10, 4, 1) << HoursRow << 1 << 0.0 << 12 * hour << 6 << 2 * hour << -5;
    QTest::newRow("too many") << limited(4, 4, 1) << DaysRow << 0 << 0.0 << 3 * day << 0 << 0.0 << 0;
    QTest::newRow("too close") << spaced(10, 100.0, 30.0) << DaysRow << 0 << 0.0 << 3 * day << 0 << 0.0 << 0;
    QTest::newRow("close enough") << spaced(10, 120.0, 30.0) << DaysRow << 0 << 0.0 << 3 * day << 5
                                  << day - hour << -5;
    QTest::newRow("months") << limited(10, 4, 1) << MonthsRow << 0 << 0.0 << 90 * day << 5 << 30 * day - hour
                            << -6;
    QTest::newRow("years") << limited(10, 4, 1) << YearsRow << 0 << 0.0 << 1095 * day << 5 << 365 * day - hour
                           << -6;
    QTest::newRow("50 long days") << limited(10, 4, 1) << LongDaysRow << 5 << 0.0 << 150 * day << 5
                                  << 50 * day - hour << -7;
    QTest::newRow("microseconds") << limited(10, 4, 1) << FineRow << 0 << 0.0 << 0.004 << 5 << 0.001 << 3;
    QTest::newRow("before the epoch")
        << limited(10, 4, 1) << DaysRow << 0 << -3 * day << -1.0 << 5 << -2 * day - hour << -5;
    QTest::newRow("beyond all time") << limited(10, 4, 1) << DaysRow << 0 << -1e300 << 1e300 << 0 << 0.0 << 0;
}

void TestTickSteps::timeCandidate()
{
    QFETCH(TickParameters, parameters);
    QFETCH(UnitRow, row);
    QFETCH(int, candidate);
    QFETCH(double, lo);
    QFETCH(double, hi);
    const TickStep found = evaluateCandidate(parameters, {lo, hi}, {row, candidate});
    QTEST(found.tickCount, "tickCount");
    QFETCH(double, firstTick);
    QVERIFY(std::fabs(found.firstTick - firstTick) <= 1e-9);
    QTEST(found.precision, "precision");
}

void TestTickSteps::boundPrecisionOfTimeRows_data()
{
    QTest::addColumn<UnitRow>("row");
    QTest::addColumn<int>("expected");

    QTest::newRow("years") << YearsRow << -6;
    QTest::newRow("hours") << HoursRow << -5;
    QTest::newRow("hours, short") << ShortHoursRow << -5;
    QTest::newRow("minutes") << MinutesRow << -4;
    QTest::newRow("seconds") << SecondsRow << -3;
    QTest::newRow("milliseconds") << MillisecondsRow << 0;
    QTest::newRow("fine") << FineRow << 3;
    QTest::newRow("days") << DaysRow << -5;
    QTest::newRow("months") << MonthsRow << -6;
    QTest::newRow("days, long") << LongDaysRow << -5;
    QTest::newRow("weeks") << WeeksRow << -5;
}

void TestTickSteps::boundPrecisionOfTimeRows()
{
    QFETCH(UnitRow, row);
    const double second = stepRows()[row].candidates[1];
    const TickStep found = evaluateCandidate(limited(10, 4, 7), {0.0, 3 * second}, {row, 1});
    QVERIFY(found.tickCount > 0);
    QTEST(found.boundPrecision, "expected");
}

void TestTickSteps::subTicks_data()
{
    QTest::addColumn<int>("candidate");
    QTest::addColumn<int>("limit");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("subTickDistance");
    QTest::addColumn<int>("expected");

    QTest::newRow("mantissa 2, limit 3: four parts") << 1 << 3 << 0.0 << 0.0 << 3;
    QTest::newRow("mantissa 2, limit 2: two parts") << 1 << 2 << 0.0 << 0.0 << 1;
    QTest::newRow("mantissa 2, limit 0") << 1 << 0 << 0.0 << 0.0 << 0;
    QTest::newRow("mantissa 1, limit 9") << 0 << 9 << 0.0 << 0.0 << 9;
    QTest::newRow("mantissa 1, limit 8") << 0 << 8 << 0.0 << 0.0 << 4;
    QTest::newRow("mantissa 5, limit 100") << 2 << 100 << 0.0 << 0.0 << 4;
    QTest::newRow("mantissa 5, limit 3") << 2 << 3 << 0.0 << 0.0 << 0;
    QTest::newRow("room for 9 in each of 6 intervals") << 0 << 9 << 540.0 << 10.0 << 9;
    QTest::newRow("a little less room") << 0 << 9 << 539.0 << 10.0 << 4;
    QTest::newRow("room for one") << 0 << 9 << 60.0 << 10.0 << 1;
    QTest::newRow("room for none") << 0 << 9 << 59.0 << 10.0 << 0;
    QTest::newRow("no length, no distance") << 0 << 9 << 0.0 << 10.0 << 9;
}

void TestTickSteps::subTicks()
{
    QFETCH(int, candidate);
    QFETCH(int, limit);
    QFETCH(double, length);
    QFETCH(double, subTickDistance);
    TickParameters parameters = limited(10, limit, 1);
    parameters.length = length;
    parameters.subTickDistance = subTickDistance;
    QTEST(subTickCount(parameters, decimalStep(candidate, 6)), "expected");
}

// Without a step there is nothing round between the bounds.
void TestTickSteps::noSubTicksBetweenBoundsOnly()
{
    const auto across = chooseStep(limited(2, 9, 1), {-1.0, 3.0}, {DecimalRow}, {});
    QVERIFY(across && across->boundsOnly);
    QCOMPARE(across->subTicksPerInterval, 0);
    const auto beside = chooseStep(limited(2, 9, 1), {1.0, 3.0}, {DecimalRow}, {});
    QVERIFY(beside && !beside->boundsOnly);
    QCOMPARE(beside->subTicksPerInterval, 9);
}

void TestTickSteps::subTicksOfEqualSpaced()
{
    TickParameters parameters = limited(10, 7, 1);
    parameters.equalSpaced = true;
    QCOMPARE(subTickCount(parameters, decimalStep(0, 6)), 4);
    parameters.length = 100.0;
    QCOMPARE(subTickCount(parameters, decimalStep(0, 6)), 4);
    parameters.subTickDistance = 50.0;
    QCOMPARE(subTickCount(parameters, decimalStep(0, 6)), 7);
}

void TestTickSteps::subTicksOfLogarithmic_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("expected");

    QTest::newRow("8 allowed") << 8 << 1.0 << 8;
    QTest::newRow("2 allowed") << 2 << 1.0 << 0;
    QTest::newRow("1 allowed") << 1 << 1.0 << 0;
    QTest::newRow("more than a decade") << 8 << 2.0 << 0;
}

void TestTickSteps::subTicksOfLogarithmic()
{
    QFETCH(int, limit);
    QFETCH(double, step);
    TickStep decades = decimalStep(0, 4);
    decades.step = step;
    QTEST(subTickCount(logarithmic(10, limit), decades), "expected");
}

void TestTickSteps::bestCandidateWins()
{
    const auto step = chooseStep(spaced(10, 400.0, 60.0), {0.0, 1.0}, {DecimalRow}, {});
    QVERIFY(step);
    QCOMPARE(step->choice.candidate, 1);
    QCOMPARE(step->tickCount, 6);
    QCOMPARE(step->subTicksPerInterval, 3);
}

// All three candidates make two ticks; mantissa 1 and 5 allow four sub-ticks, mantissa 2 three.
void TestTickSteps::moreSubTicksWinAmongEqualTicks()
{
    const auto one = chooseStep(limited(2, 3, 1), {0.5, 1.5}, {DecimalRow}, {});
    QVERIFY(one);
    QCOMPARE(one->choice.candidate, 1);
    const auto two = chooseStep(limited(2, 9, 1), {0.5, 1.5}, {DecimalRow}, {});
    QVERIFY(two);
    QCOMPARE(two->choice.candidate, 0);
}

void TestTickSteps::earlierCandidateWinsATie()
{
    const auto first = chooseStep(limited(2, 4, 1), {0.5, 1.5}, {DecimalRow}, {});
    QVERIFY(first);
    QCOMPARE(first->choice.candidate, 0);

    const double day = 86400000.0;
    const auto days = chooseStep(limited(10, 6, 1), {0.0, 40 * day}, {DaysRow, WeeksRow}, {});
    QVERIFY(days);
    QCOMPARE(days->choice.row, int(DaysRow));
    const auto weeks = chooseStep(limited(10, 6, 1), {0.0, 40 * day}, {WeeksRow, DaysRow}, {});
    QVERIFY(weeks);
    QCOMPARE(weeks->choice.row, int(WeeksRow));
}

void TestTickSteps::nothingFits()
{
    QVERIFY(!chooseStep(limited(10, 4, 1), {0.0, 1e18}, {HoursRow, MinutesRow}, {}));
    QVERIFY(!chooseStep(limited(10, 4, 1), {0.0, 1e6}, {}, {}));
    QVERIFY(!chooseStep(limited(10, 4, 1), {0.0, infinity}, {DecimalRow}, {}));
}

void TestTickSteps::previousChoiceIsKept()
{
    TickParameters parameters = limited(10, 9, 1);
    const WorkingRange range{0.0, 1.0};
    // The best step is 0.2 with three sub-ticks; the previous mantissa 1 now makes 9, with two ticks.
    QCOMPARE(chooseStep(parameters, range, {DecimalRow}, {DecimalRow, 0})->choice.candidate, 1);
    parameters.keepChoice = true;
    const auto kept = chooseStep(parameters, range, {DecimalRow}, {DecimalRow, 0});
    QVERIFY(kept);
    QCOMPARE(kept->choice.candidate, 0);
    QCOMPARE(kept->tickCount, 2);
    QCOMPARE(kept->subTicksPerInterval, 9);
    // With fewer sub-ticks than the best one, the previous choice is given up.
    parameters.subTickLimit = 3;
    QCOMPARE(chooseStep(parameters, range, {DecimalRow}, {DecimalRow, 2})->choice.candidate, 1);
}

void TestTickSteps::previousChoiceOfAnotherRowIsNotKept()
{
    TickParameters parameters = limited(10, 9, 1);
    parameters.keepChoice = true;
    const auto step = chooseStep(parameters, {0.0, 1.0}, {DecimalRow}, {SecondsRow, 0});
    QVERIFY(step);
    QCOMPARE(step->choice.candidate, 1);
}

QTEST_APPLESS_MAIN(TestTickSteps)
#include "tst_ticksteps.moc"
