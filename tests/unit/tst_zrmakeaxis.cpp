#include "shared/quiettest.h"
#include "shared/tickwishes.h"
#include "shared/timezone.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Numbers = QVector<double>;

constexpr double minute = 60000.0;
constexpr double hour = 60.0 * minute;
constexpr double day = 24.0 * hour;

QByteArray labels(const ZrMakeAxis &engine)
{
    QList<QByteArray> all;
    for (int i = 0; i < engine.tickPositions().size(); ++i)
        all.append(engine.label(i));
    return all.join('|');
}

QByteArray labels(const TickWishes &wishes, double lo, double hi)
{
    ZrMakeAxis engine;
    wishes.applyTo(engine);
    engine.setRange(lo, hi);
    return labels(engine);
}

QByteArray written(const Numbers &numbers)
{
    QByteArray text;
    for (const double number : numbers)
        text += QByteArray::number(number, 'g', 17) + ' ';
    return text;
}

} // namespace

class TestZrMakeAxis : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void name();
    void defaults();
    void exactTicks_data();
    void exactTicks();
    void roundingStaysWithinTheLargestNumber();
    void rejectedRanges_data();
    void rejectedRanges();
    void sameRangeIsNotComputedAgain();
    void everyChangeTakesEffect();
    void labelsStayUntilTheNextRange();
    void clampedParameters_data();
    void clampedParameters();
    void logarithmicIgnores();
    void logarithmicSubTicks();
    void exponents_data();
    void exponents();
    void crowdedTicks();
    void boundTicksLeftOut();
    void keptChoice();
    void timeLevels();
    void timeWithoutStep_data();
    void timeWithoutStep();
    void timeTicks();
    void longStepsAreRoundedToTheirPrecision_data();
    void longStepsAreRoundedToTheirPrecision();
    void timePrecisionIsRestored();
    void timeBounds_data();
    void timeBounds();
    void timeReference();
};

void TestZrMakeAxis::name()
{
    QCOMPARE(ZrMakeAxis().name(), QByteArray("ZrMakeAxis"));
    QCOMPARE(ZrMakeAxis("pressure").name(), QByteArray("pressure"));
}

// 11 ticks, one decimal, nine sub-ticks, no length.
void TestZrMakeAxis::defaults()
{
    ZrMakeAxis engine;
    QVERIFY(engine.tickPositions().isEmpty());
    QVERIFY(engine.subTickPositions().isEmpty());
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(labels(engine), QByteArray("0.0|0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.0"));
    QCOMPARE(engine.subTickPositions().size(), 90);
    QCOMPARE(engine.label(-1), QByteArray());
    QCOMPARE(engine.label(11), QByteArray());
}

void TestZrMakeAxis::exactTicks_data()
{
    QTest::addColumn<int>("maxTicks");
    QTest::addColumn<int>("precision");
    QTest::addColumn<bool>("equalSpaced");
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<Numbers>("positions");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("0 to 1") << 10 << 1 << false << false << 0.0 << 1.0 << Numbers{0, 0.2, 0.4, 0.6, 0.8, 1}
                            << QByteArray("0.0|0.2|0.4|0.6|0.8|1.0");
    QTest::newRow("-10 to 10") << 10 << 0 << false << false << -10.0 << 10.0 << Numbers{0, 0.25, 0.5, 0.75, 1}
                               << QByteArray("-10|-5|0|5|10");
    QTest::newRow("bounds between ticks")
        << 10 << 1 << false << false << 0.7 << 10.9
        << Numbers{0, 1.3 / 10.2, 3.3 / 10.2, 5.3 / 10.2, 7.3 / 10.2, 9.3 / 10.2, 1}
        << QByteArray("0.7||4.0|6.0|8.0||10.9");
    QTest::newRow("a bound that needs more decimals")
        << 10 << 1 << false << false << 0.25 << 2.25 << Numbers{0, 0.125, 0.375, 0.625, 0.875, 1}
        << QByteArray("0.3||1.0|1.5||2.25");
    QTest::newRow("two ticks at most")
        << 2 << 1 << false << false << 0.0 << 1.0 << Numbers{0, 1} << QByteArray("0.0|1.0");
    QTest::newRow("two ticks across zero")
        << 2 << 1 << false << false << -1.0 << 1.0 << Numbers{0, 1} << QByteArray("-1.0|1.0");
    QTest::newRow("one tick at most")
        << 1 << 1 << false << false << -1.0 << 1.0 << Numbers{0, 1} << QByteArray("-1.0|1.0");
    QTest::newRow("finer than the precision")
        << 10 << 1 << false << false << 0.0 << 0.05 << Numbers{0, 1} << QByteArray("0.0|0.05");
    QTest::newRow("finer ticks with more precision")
        << 10 << 2 << false << false << 0.0 << 0.05 << Numbers{0, 0.2, 0.4, 0.6, 0.8, 1}
        << QByteArray("0.00|0.01|0.02|0.03|0.04|0.05");
    QTest::newRow("1e9 and a thousandth around it")
        << 10 << 1 << false << false << 1e9 - 1e-3 << 1e9 + 1e-3 << Numbers{0, 0.5, 1}
        << QByteArray("999999999.999|1000000000.0|1000000000.001");
    QTest::newRow("equally spaced") << 10 << 1 << true << false << 0.0 << 0.95
                                    << Numbers{0, 0.2 / 0.95, 0.4 / 0.95, 0.6 / 0.95, 0.8 / 0.95, 1}
                                    << QByteArray("0.0|0.2|0.4|0.6|0.8|0.95");
    QTest::newRow("decades") << 10 << 1 << false << true << 0.01 << 100.0 << Numbers{0, 0.25, 0.5, 0.75, 1}
                             << QByteArray("0.01|0.1|1.0|10.0|100.0");
    QTest::newRow("part of a decade")
        << 10 << 1 << false << true << 2.0 << 8.0 << Numbers{0, 1} << QByteArray("2.0|8.0");
}

void TestZrMakeAxis::exactTicks()
{
    QFETCH(int, maxTicks);
    QFETCH(int, precision);
    QFETCH(bool, equalSpaced);
    QFETCH(bool, logarithmic);
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(Numbers, positions);
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.maxTicks = maxTicks;
    wishes.precision = precision;
    wishes.equalSpaced = equalSpaced;
    wishes.logarithmic = logarithmic;
    wishes.applyTo(engine);
    QVERIFY(engine.setRange(lo, hi));
    QTEST(labels(engine), "expected");
    const Numbers found = engine.tickPositions();
    QCOMPARE(found.size(), positions.size());
    for (int i = 0; i < found.size(); ++i) {
        const bool isBound = i == 0 || i == found.size() - 1;
        const double allowed = isBound ? 0.03 : 1e-9;
        QVERIFY2(std::fabs(found.at(i) - positions.at(i)) <= allowed, written(found).constData());
    }
}

void TestZrMakeAxis::roundingStaysWithinTheLargestNumber()
{
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.tickDistance = 0.0;
    wishes.maxTicks = 65536;
    wishes.precision = 0;
    wishes.equalSpaced = true;
    wishes.format = 1;
    wishes.scientificExponent = true;
    wishes.equalExponent = true;
    wishes.applyTo(engine);
    QVERIFY(engine.setRange(-1.7976931348623157e+308, -1.1838540125562775e+164));
    const QVector<double> positions = engine.tickPositions();
    QVERIFY(std::all_of(positions.cbegin(), positions.cend(),
                        [](double position) { return std::isfinite(position); }));
}

void TestZrMakeAxis::rejectedRanges_data()
{
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");

    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("minimum equal to maximum") << false << 1.0 << 1.0;
    QTest::newRow("inverted") << false << 2.0 << 1.0;
    QTest::newRow("lower end infinite") << false << -infinity << 1.0;
    QTest::newRow("upper end infinite") << false << 0.0 << infinity;
    QTest::newRow("lower end not a number") << false << nan << 1.0;
    QTest::newRow("upper end not a number") << false << 0.0 << nan;
    QTest::newRow("logarithmic from 0") << true << 0.0 << 1.0;
    QTest::newRow("logarithmic from below 0") << true << -1.0 << 1.0;
    QTest::newRow("a bound that 17 decimals cannot write") << false << 0.0 << 1e-300;
    QTest::newRow("logarithmic from 1e-18") << true << 1e-18 << 1.0;
    QTest::newRow("a span beyond all doubles") << false << -1.7e308 << 1.7e308;
}

void TestZrMakeAxis::rejectedRanges()
{
    QFETCH(bool, logarithmic);
    QFETCH(double, lo);
    QFETCH(double, hi);
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.logarithmic = logarithmic;
    wishes.maxSubTicks = 9;
    wishes.applyTo(engine);
    QVERIFY(engine.setRange(1.0, 1000.0));
    QVERIFY(!engine.subTickPositions().isEmpty());
    for (int i = 0; i < 2; ++i) {
        QVERIFY(!engine.setRange(lo, hi));
        QVERIFY(engine.tickPositions().isEmpty());
        QVERIFY(engine.subTickPositions().isEmpty());
        QCOMPARE(engine.label(0), QByteArray());
    }
    QVERIFY(engine.setRange(1.0, 1000.0));
}

// The sub-ticks share their memory with those that were handed out before.
void TestZrMakeAxis::sameRangeIsNotComputedAgain()
{
    ZrMakeAxis engine;
    TickWishes().applyTo(engine);
    QVERIFY(engine.setRange(0.0, 1.0));
    const Numbers first = engine.subTickPositions();
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.subTickPositions().constData(), first.constData());
    QVERIFY(engine.setRange(0.0, 2.0));
    QVERIFY(engine.subTickPositions().constData() != first.constData());
}

void TestZrMakeAxis::everyChangeTakesEffect()
{
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.applyTo(engine);
    engine.setRange(0.0, 1.0);
    QCOMPARE(engine.tickPositions().size(), 6);
    engine.setLength(50.0, 60.0, 20.0);
    QCOMPARE(engine.tickPositions().size(), 6);
    engine.setRange(0.0, 1.0);
    QCOMPARE(engine.tickPositions().size(), 3);
    wishes.maxTicks = 11;
    wishes.length = 0.0;
    wishes.applyTo(engine);
    engine.setRange(0.0, 1.0);
    QCOMPARE(engine.tickPositions().size(), 11);

    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat("%as s");
    QVERIFY(engine.setRange(0.0, 1e4));
    QCOMPARE(engine.label(1), QByteArray("1 s"));
    engine.setTimeFormat("%aMs ms");
    QVERIFY(engine.setRange(0.0, 1e4));
    QCOMPARE(engine.label(1), QByteArray("1000 ms"));
    engine.setTimeReference(1000.0);
    QVERIFY(engine.setRange(0.0, 1e4));
    QCOMPARE(engine.label(1), QByteArray("0 ms"));
}

void TestZrMakeAxis::labelsStayUntilTheNextRange()
{
    const TimeZone utc("UTC");
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat("%hh:%mm");
    QVERIFY(engine.setRange(1.7e12, 1.7e12 + hour));
    const QByteArray before = labels(engine);
    QVERIFY(before.contains(":30"));
    engine.setTimeFormat("%ss");
    engine.setTimeReference(12345.0);
    TickWishes().applyTo(engine);
    QCOMPARE(labels(engine), before);
}

void TestZrMakeAxis::clampedParameters_data()
{
    QTest::addColumn<int>("maxTicks");
    QTest::addColumn<int>("maxSubTicks");
    QTest::addColumn<int>("precision");
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<int>("subTicks");

    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("no ticks at all") << least << 0 << 0 << 0 << QByteArray("0|100") << 0;
    QTest::newRow("no sub-ticks at all") << 3 << least << 0 << 0 << QByteArray("0|50|100") << 0;
    QTest::newRow("any number of sub-ticks") << 3 << most << 0 << 0 << QByteArray("0|50|100") << 8;
    QTest::newRow("least precision") << 11 << 0 << least << 0
                                     << QByteArray("0|10|20|30|40|50|60|70|80|90|100") << 0;
    QTest::newRow("most precision") << 3 << 0 << most << 0
                                    << QByteArray("0.000000000000000|50.000000000000000|100.000000000000000")
                                    << 0;
    QTest::newRow("unknown format") << 3 << 0 << 0 << 4 << QByteArray("0|50|100") << 0;
    QTest::newRow("negative format") << 3 << 0 << 0 << -1 << QByteArray("0|50|100") << 0;
}

void TestZrMakeAxis::clampedParameters()
{
    QFETCH(int, maxTicks);
    QFETCH(int, maxSubTicks);
    QFETCH(int, precision);
    QFETCH(int, format);
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.maxTicks = maxTicks;
    wishes.maxSubTicks = maxSubTicks;
    wishes.precision = precision;
    wishes.format = format;
    wishes.length = 0.0;
    wishes.applyTo(engine);
    QVERIFY(engine.setRange(0.0, 100.0));
    QTEST(labels(engine), "expected");
    QTEST(engine.subTickPositions().size(), "subTicks");
}

// Equal spacing, exponents and times are for linear scales.
void TestZrMakeAxis::logarithmicIgnores()
{
    TickWishes wishes;
    wishes.logarithmic = true;
    const QByteArray plain = labels(wishes, 2.0, 5000.0);
    QCOMPARE(plain, QByteArray("2.0|10.0|100.0|1000.0|5000.0"));
    wishes.equalSpaced = true;
    QCOMPARE(labels(wishes, 2.0, 5000.0), plain);
    wishes.format = 3;
    QCOMPARE(labels(wishes, 2.0, 5000.0), plain);
    wishes.format = 1;
    wishes.scientificExponent = true;
    wishes.equalExponent = true;
    QCOMPARE(labels(wishes, 2.0, 5000.0), QByteArray("2.0e+00|1.0e+01|1.0e+02|1.0e+03|5.0e+03"));
}

void TestZrMakeAxis::logarithmicSubTicks()
{
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.logarithmic = true;
    for (const int maxSubTicks : {-1, 0, 1, 2, 7, 8, 9, 100}) {
        wishes.maxSubTicks = maxSubTicks;
        wishes.applyTo(engine);
        QVERIFY(engine.setRange(1.0, 1000.0));
        QCOMPARE(engine.subTickPositions().size(), maxSubTicks < 8 ? 0 : 24);
    }
    QVERIFY(std::fabs(engine.subTickPositions().at(0) - std::log10(2.0) / 3.0) < 1e-12);
    QVERIFY(std::fabs(engine.subTickPositions().at(8) - std::log10(20.0) / 3.0) < 1e-12);
    QVERIFY(engine.setRange(1.0, 9.9));
    QVERIFY(engine.subTickPositions().isEmpty());
}

void TestZrMakeAxis::exponents_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("scientificExponent");
    QTest::addColumn<bool>("equalExponent");
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("hi");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("plain ignores both")
        << 0 << true << true << 0 << 40000.0 << QByteArray("0|10000|20000|30000|40000");
    QTest::newRow("exponential") << 1 << false << false << 1 << 40000.0
                                 << QByteArray("0.0e+00|1.0e+04|2.0e+04|3.0e+04|4.0e+04");
    QTest::newRow("exponential by threes")
        << 1 << true << false << 1 << 40000.0 << QByteArray("0.0e+00|10.0e+03|20.0e+03|30.0e+03|40.0e+03");
    QTest::newRow("common exponent") << 1 << false << true << 1 << 40000.0
                                     << QByteArray("0.0|1.0|2.0|3.0|4.0");
    QTest::newRow("common exponent by threes")
        << 1 << true << true << 1 << 40000.0 << QByteArray("0.0|10.0|20.0|30.0|40.0");
    QTest::newRow("a common exponent needs format 1")
        << 2 << true << true << 0 << 40000.0 << QByteArray("0|10000|20000|30000|40000");
    QTest::newRow("compact") << 2 << false << false << 0 << 4e6 << QByteArray("0|1e+06|2e+06|3e+06|4e+06");
    QTest::newRow("compact below a million")
        << 2 << false << false << 0 << 400000.0 << QByteArray("0|100000|200000|300000|400000");
}

void TestZrMakeAxis::exponents()
{
    QFETCH(int, format);
    QFETCH(bool, scientificExponent);
    QFETCH(bool, equalExponent);
    QFETCH(int, precision);
    QFETCH(double, hi);
    TickWishes wishes;
    wishes.maxTicks = 6;
    wishes.format = format;
    wishes.scientificExponent = scientificExponent;
    wishes.equalExponent = equalExponent;
    wishes.precision = precision;
    QTEST(labels(wishes, 0.0, hi), "expected");
}

void TestZrMakeAxis::crowdedTicks()
{
    TickWishes wishes;
    wishes.length = 600.0;
    // 0.5 and 3.0 are nearer to the ends than a tenth of the range.
    QCOMPARE(labels(wishes, 0.24, 3.05), QByteArray("0.24||1.0|1.5|2.0|2.5||3.05"));
    wishes.fixedLength = true;
    QCOMPARE(labels(wishes, 0.24, 3.05), QByteArray("0.24|0.5|1.0|1.5|2.0|2.5|3.0|3.05"));
    // Exactly the tick distance is not crowded, although 1 - 0.8 is less than 0.2.
    wishes.fixedLength = false;
    wishes.tickDistance = 120.0;
    QCOMPARE(labels(wishes, 0.0, 1.0), QByteArray("0.0|0.2|0.4|0.6|0.8|1.0"));
}

void TestZrMakeAxis::boundTicksLeftOut()
{
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.showBoundLabels = false;
    wishes.applyTo(engine);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(labels(engine), QByteArray("0.2|0.4|0.6|0.8"));
    QCOMPARE(engine.tickPositions().first(), 0.2);
    QCOMPARE(engine.tickPositions().last(), 0.8);
    wishes.maxTicks = 2;
    wishes.applyTo(engine);
    QVERIFY(!engine.setRange(0.0, 1.0));
    QVERIFY(engine.tickPositions().isEmpty());
}

void TestZrMakeAxis::keptChoice()
{
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.length = 0.0;
    wishes.maxSubTicks = 9;
    wishes.keepChoice = true;
    wishes.applyTo(engine);
    // Mantissa 1 with nine sub-ticks stays, where mantissa 2 with three would make more ticks.
    QVERIFY(engine.setRange(0.0, 0.9));
    QCOMPARE(engine.tickPositions().size(), 10);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(labels(engine), QByteArray("0.0|1.0"));
    QCOMPARE(engine.subTickPositions().size(), 9);
    // New parameters forget the choice.
    wishes.applyTo(engine);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.tickPositions().size(), 6);
}

void TestZrMakeAxis::timeLevels()
{
    const TimeZone utc("UTC");
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat("60000\t%ss\r\n%hh:%mm");
    QVERIFY(engine.setRange(0.0, 50000.0));
    QCOMPARE(labels(engine), QByteArray("00|10|20|30|40|50"));
    QVERIFY(engine.setRange(0.0, 59999.0));
    QCOMPARE(engine.label(1), QByteArray("10"));
    QVERIFY(engine.setRange(0.0, 60000.0));
    QCOMPARE(labels(engine), QByteArray("00:00|00:01"));
    QVERIFY(engine.setRange(0.0, 10 * minute));
    QCOMPARE(labels(engine), QByteArray("00:00|00:02|00:04|00:06|00:08|00:10"));
    QVERIFY(engine.setRange(0.0, 5 * hour));
    QCOMPARE(labels(engine), QByteArray("00:00|01:00|02:00|03:00|04:00|05:00"));
}

void TestZrMakeAxis::timeWithoutStep_data()
{
    QTest::addColumn<QByteArray>("format");

    QTest::newRow("no format") << QByteArray();
    QTest::newRow("no placeholder") << QByteArray("o'clock");
    QTest::newRow("no step for AM and PM") << QByteArray("%PP");
    QTest::newRow("no level for so long a range") << QByteArray("60000\t%ss");
    QTest::newRow("too many hours") << QByteArray("%hh:%mm:%ss");
}

void TestZrMakeAxis::timeWithoutStep()
{
    QFETCH(QByteArray, format);
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat(format);
    QVERIFY(!engine.setRange(1.7e12, 1.7e12 + 365 * day));
    QVERIFY(engine.tickPositions().isEmpty());
}

// Ticks of days stand at 23:00 UTC: midnight in winter in the middle of Europe.
void TestZrMakeAxis::timeTicks()
{
    TickWishes wishes;
    wishes.format = 3;
    wishes.maxTicks = 5;
    ZrMakeAxis engine;
    wishes.applyTo(engine);
    const double newYear = 1704063600000.0; // 31 December 2023, 23:00 UTC
    engine.setTimeFormat("%dd.%MM. %hh:%mm");
    const TimeZone berlin("Europe/Berlin");
    QVERIFY(engine.setRange(newYear, newYear + 14 * day));
    QCOMPARE(labels(engine), QByteArray("01.01. 00:00|04.01. 00:00|11.01. 00:00|15.01. 00:00"));
    const double month = 14 * day;
    const Numbers expected = {0.0, 3 * day / month, 10 * day / month, 1.0};
    for (int i = 0; i < 4; ++i)
        QVERIFY(std::fabs(engine.tickPositions().at(i) - expected.at(i)) < 1e-12);
}

void TestZrMakeAxis::longStepsAreRoundedToTheirPrecision_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<double>("days");
    QTest::addColumn<double>("firstShown");

    // One hour before the step's multiple, to whole thousands, ten thousands ... of seconds.
    QTest::newRow("months") << QByteArray("%MM") << 100.0 << 2588e6;
    QTest::newRow("years") << QByteArray("%yyyy") << 1000.0 << 31532e6;
    QTest::newRow("weeks") << QByteArray("%WoY") << 30.0 << 1206e6;
    QTest::newRow("long days") << QByteArray("%DoY") << 60.0 << 1724e6;
}

void TestZrMakeAxis::longStepsAreRoundedToTheirPrecision()
{
    QFETCH(QByteArray, format);
    QFETCH(double, days);
    QFETCH(double, firstShown);
    TickWishes wishes;
    wishes.format = 3;
    wishes.maxTicks = 6;
    wishes.showBoundLabels = false;
    ZrMakeAxis engine;
    wishes.applyTo(engine);
    engine.setTimeFormat(format);
    const double lo = 9 * day;
    QVERIFY(engine.setRange(lo, lo + days * day));
    QVERIFY(!engine.tickPositions().isEmpty());
    QCOMPARE(lo + engine.tickPositions().first() * days * day, firstShown);
}

void TestZrMakeAxis::timePrecisionIsRestored()
{
    const TimeZone utc("UTC");
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat("1000000\t%aMs\r\n%hh:%mm");
    QVERIFY(engine.setRange(0.0, 5 * hour));
    // With the precision of hours, steps of a tenth of a millisecond would be lost.
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.tickPositions().size(), 6);
}

void TestZrMakeAxis::timeBounds_data()
{
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<QByteArray>("expected");

    const double noon = 1706702400000.0;
    const double second = 1000.0;
    QTest::newRow("whole minutes") << noon << noon + 100 * minute
                                   << QByteArray("12:00|12:20|12:40|13:00|13:20|13:40");
    QTest::newRow("0.9 % below the lower bound") << noon + 54 * second << noon + 54 * second + 100 * minute
                                                 << QByteArray("12:00|12:20|12:40|13:00|13:20||13:40");
    QTest::newRow("0.5 % below both bounds") << noon + 30 * second << noon + 30 * second + 100 * minute
                                             << QByteArray("12:00|12:20|12:40|13:00|13:20||13:40");
    QTest::newRow("1.25 % below the lower bound is too far")
        << noon + 50 * second << noon + 40 * second + 67 * minute << QByteArray("12:15|12:30|12:45||13:07");
    QTest::newRow("2.5 % below the upper bound")
        << noon << noon + 30 * second + 20 * minute << QByteArray("12:00|12:05|12:10|12:15||12:20");
    QTest::newRow("more than 3 % below the upper bound is too far")
        << noon << noon + 50 * second + 20 * minute << QByteArray("12:00|12:05|12:10|12:15|12:20");
}

void TestZrMakeAxis::timeBounds()
{
    const TimeZone utc("UTC");
    QFETCH(double, lo);
    QFETCH(double, hi);
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat("%hh:%mm");
    QVERIFY(engine.setRange(lo, hi));
    QTEST(labels(engine), "expected");
}

void TestZrMakeAxis::timeReference()
{
    const TimeZone berlin("Europe/Berlin");
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.format = 3;
    wishes.applyTo(engine);
    engine.setTimeFormat("%hh:%mm:%ss");
    const double start = 1706702400000.0;
    engine.setTimeReference(start);
    QVERIFY(engine.setRange(start, start + 50 * minute));
    QCOMPARE(labels(engine), QByteArray("00:00:00|00:10:00|00:20:00|00:30:00|00:40:00|00:50:00"));
    engine.setTimeReference(std::numeric_limits<double>::quiet_NaN());
    QVERIFY(engine.setRange(start, start + 50 * minute));
    QCOMPARE(engine.label(0), QByteArray("13:00:00"));
}

QTEST_APPLESS_MAIN(TestZrMakeAxis)
#include "tst_zrmakeaxis.moc"
