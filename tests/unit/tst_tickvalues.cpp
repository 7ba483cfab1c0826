#include "shared/quiettest.h"

#include "internal/tickvalues_p.h"

#include <cmath>
#include <limits>

using namespace ZrTicks;

namespace {

using Numbers = QVector<double>;

TickParameters withTickDistance()
{
    TickParameters parameters;
    parameters.maxTicks = 100;
    parameters.length = 400.0;
    parameters.tickDistance = 10.0;
    return parameters;
}

TickStep stepOf(int tickCount, double firstTick, double step, int precision)
{
    TickStep result;
    result.tickCount = tickCount;
    result.firstTick = firstTick;
    result.step = step;
    result.precision = precision;
    result.boundPrecision = precision;
    return result;
}

QVector<Tick> ticksAt(const Numbers &positions)
{
    QVector<Tick> ticks;
    for (const double position : positions)
        ticks.append({position, position, 1});
    return ticks;
}

Numbers shownValues(const QVector<Tick> &ticks)
{
    Numbers values;
    for (const Tick &tick : ticks)
        values.append(tick.shown);
    return values;
}

bool areClose(const Numbers &found, const Numbers &expected)
{
    if (found.size() != expected.size())
        return false;
    for (int i = 0; i < found.size(); ++i) {
        if (!(std::fabs(found.at(i) - expected.at(i)) <= 1e-9))
            return false;
    }
    return true;
}

QByteArray written(const Numbers &numbers)
{
    QByteArray text;
    for (const double number : numbers)
        text += QByteArray::number(number, 'g', 12) + ' ';
    return text;
}

} // namespace

#define COMPARE_NUMBERS(found, expected)                                                                     \
    QVERIFY2(areClose(found, expected), (written(found) + "instead of " + written(expected)).constData())

class TestTickValues : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void positions_data();
    void positions();
    void bounds_data();
    void bounds();
    void innerTicks_data();
    void innerTicks();
    void logarithmicDecimals_data();
    void logarithmicDecimals();
    void logarithmicTicksAreNeverZero();
    void commonExponent();
    void failures();
    void ticksOfARange();
    void ticksOfDecades();
    void boundEqualToItsNeighbour();
    void bothNeighboursOfTheBoundsRemoved();
    void equalSpacedTicksDiffer();
    void equalSpacedTicksMayBeEqualWithoutDistance();
    void precisionIsExhausted();
    void subTicks_data();
    void subTicks();
    void subTicksOfADecade_data();
    void subTicksOfADecade();
    void noSubTicksBelowOneDecade();
    void subTicksReachBoundsThatWereMoved();
    void subTicksOfEqualSpaced();
    void subTicksAreCapped();
    void subTicksOutsideAreWorkToo();
    void coveredSubTicks();
    void crowdedTicks_data();
    void crowdedTicks();
};

void TestTickValues::positions_data()
{
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");

    QTest::newRow("lower end") << 2.0 << 4.0 << false << 2.0 << 0.0;
    QTest::newRow("upper end") << 2.0 << 4.0 << false << 4.0 << 1.0;
    QTest::newRow("quarter") << 2.0 << 4.0 << false << 2.5 << 0.25;
    QTest::newRow("outside") << 2.0 << 4.0 << false << 1.0 << -0.5;
    QTest::newRow("across zero") << -1.0 << 1.0 << false << 0.0 << 0.5;
    QTest::newRow("logarithmic middle") << 1.0 << 10000.0 << true << 100.0 << 0.5;
    QTest::newRow("logarithmic below one") << 0.001 << 10.0 << true << 0.01 << 0.25;
}

void TestTickValues::positions()
{
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(bool, logarithmic);
    QFETCH(double, value);
    QFETCH(double, expected);
    QCOMPARE(TickScale(lo, hi, logarithmic).position(value) + 1.0, expected + 1.0);
}

// The range is one unit wide, so that deviations are differences.
void TestTickValues::bounds_data()
{
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<int>("precision");
    QTest::addColumn<bool>("lower");
    QTest::addColumn<double>("shown");
    QTest::addColumn<int>("decimals");

    QTest::newRow("lower bound moved by nothing") << 0.1 << 1.1 << 1 << true << 0.1 << 1;
    QTest::newRow("lower bound 2.5 % inwards") << 0.075 << 1.075 << 1 << true << 0.1 << 1;
    QTest::newRow("lower bound exactly 3 % inwards") << 97.0 << 197.0 << -1 << true << 100.0 << -1;
    QTest::newRow("lower bound 4 % inwards is too far") << 0.06 << 1.06 << 1 << true << 0.06 << 2;
    QTest::newRow("lower bound 0.5 % outwards") << 0.105 << 1.105 << 1 << true << 0.1 << 1;
    QTest::newRow("lower bound exactly 1 % outwards") << 101.0 << 201.0 << -1 << true << 100.0 << -1;
    QTest::newRow("lower bound 2 % outwards is too far") << 0.12 << 1.12 << 1 << true << 0.12 << 2;
    QTest::newRow("upper bound moved by nothing") << 0.1 << 1.1 << 1 << false << 1.1 << 1;
    QTest::newRow("upper bound 2.5 % inwards") << 0.125 << 1.125 << 1 << false << 1.1 << 1;
    QTest::newRow("upper bound 4 % inwards is too far") << 0.14 << 1.14 << 1 << false << 1.14 << 2;
    QTest::newRow("upper bound 0.5 % outwards") << 0.095 << 1.095 << 1 << false << 1.1 << 1;
    QTest::newRow("upper bound 2 % outwards is too far") << 0.08 << 1.08 << 1 << false << 1.08 << 2;
    QTest::newRow("as many decimals as it takes")
        << 1e9 - 1e-3 << 1e9 + 1e-3 << 1 << true << 999999999.999 << 3;
}

void TestTickValues::bounds()
{
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(int, precision);
    QFETCH(bool, lower);
    // Bounds are placed exactly, with and without a tick distance.
    for (const TickParameters &parameters : {TickParameters(), withTickDistance()}) {
        const auto tick = placeTick(parameters, TickScale(lo, hi, false), stepOf(3, 0.0, 0.1, precision),
                                    lower ? lo : hi);
        QVERIFY(tick);
        QTEST(tick->shown, "shown");
        QTEST(tick->decimals, "decimals");
        QCOMPARE(tick->position + 1.0, (tick->shown - lo) / (hi - lo) + 1.0);
    }
}

void TestTickValues::innerTicks_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("distance");
    QTest::addColumn<bool>("equalSpaced");
    QTest::addColumn<double>("shown");
    QTest::addColumn<int>("decimals");

    QTest::newRow("2 % to the right") << 0.48 << true << false << 0.5 << 1;
    QTest::newRow("2 % to the left") << 0.52 << true << false << 0.5 << 1;
    QTest::newRow("4 % to the right is too far") << 0.46 << true << false << 0.46 << 2;
    QTest::newRow("4 % to the left is too far") << 0.54 << true << false << 0.54 << 2;
    QTest::newRow("any distance when equally spaced") << 0.54 << true << true << 0.5 << 1;
    QTest::newRow("any distance without a tick distance") << 0.54 << false << false << 0.5 << 1;
}

void TestTickValues::innerTicks()
{
    QFETCH(double, value);
    QFETCH(bool, distance);
    QFETCH(bool, equalSpaced);
    TickParameters parameters = distance ? withTickDistance() : TickParameters();
    parameters.equalSpaced = equalSpaced;
    const auto tick = placeTick(parameters, TickScale(0.0, 1.0, false), stepOf(3, 0.0, 0.1, 1), value);
    QVERIFY(tick);
    QTEST(tick->shown, "shown");
    QTEST(tick->decimals, "decimals");
    QCOMPARE(tick->position, tick->shown);
}

void TestTickValues::logarithmicDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<int>("decimals");

    QTest::newRow("1000") << 1000.0 << 1 << 1;
    QTest::newRow("1000 in tens") << 1000.0 << -1 << -1;
    QTest::newRow("1 in tens") << 1.0 << -1 << 0;
    QTest::newRow("0.1") << 0.1 << 0 << 1;
    QTest::newRow("0.001") << 0.001 << 1 << 3;
    QTest::newRow("1e-9") << 1e-9 << 1 << 9;
    QTest::newRow("precision is more") << 0.01 << 5 << 5;
}

void TestTickValues::logarithmicDecimals()
{
    QFETCH(double, value);
    QFETCH(int, precision);
    const auto tick
        = placeTick(withTickDistance(), TickScale(1e-10, 1e10, true), stepOf(3, 0.0, 1.0, precision), value);
    QVERIFY(tick);
    QCOMPARE(tick->shown, value);
    QTEST(tick->decimals, "decimals");
}

void TestTickValues::logarithmicTicksAreNeverZero()
{
    // Without a tick distance the first rounding counts.
    const auto tick = placeTick(TickParameters(), TickScale(1e-10, 1.0, true), stepOf(3, 0.0, 1.0, 0), 0.02);
    QVERIFY(tick);
    QCOMPARE(tick->shown, 0.02);
}

void TestTickValues::commonExponent()
{
    TickScale scale(0.0, 150000.0, false);
    scale.commonExponent = 5;
    const auto tick = placeTick(withTickDistance(), scale, stepOf(9, 20000.0, 20000.0, 1), 120000.0);
    QVERIFY(tick);
    QCOMPARE(tick->shown, 1.2);
    QCOMPARE(tick->decimals, 1);
    QCOMPARE(tick->position, 0.8);
}

void TestTickValues::failures()
{
    const TickStep step = stepOf(3, 0.0, 0.1, 1);
    // 17 decimals are not enough to tell the bound from 0.
    QVERIFY(!placeTick(TickParameters(), TickScale(0.0, 1e-20, false), step, 1e-20));
    QVERIFY(!placeTick(TickParameters(), TickScale(1e-18, 1.0, true), step, 1e-18));
    QVERIFY(placeTick(TickParameters(), TickScale(1e-17, 1.0, true), step, 1e-17));
    QVERIFY(!placeTick(TickParameters(), TickScale(0.0, 1.0, false), step,
                       std::numeric_limits<double>::infinity()));
    QVERIFY(!placeTick(TickParameters(), TickScale(-1e308, 1.7e308, false), step, 1.7e308));
    QVERIFY(!makeTicks(TickParameters(), TickScale(0.0, 1e-20, false), stepOf(2, 0.1, 0.1, 1)));
}

void TestTickValues::ticksOfARange()
{
    const auto ticks = makeTicks(withTickDistance(), TickScale(0.0, 1.0, false), stepOf(6, 0.2, 0.2, 1));
    QVERIFY(ticks);
    // Exactly these doubles: 3 * 0.2 is not 0.6.
    QCOMPARE(shownValues(*ticks), Numbers({0.0, 0.2, 0.4, 0.6, 0.8, 1.0}));
}

void TestTickValues::ticksOfDecades()
{
    const auto ticks = makeTicks(withTickDistance(), TickScale(0.02, 500.0, true), stepOf(6, -1.0, 1.0, 1));
    QVERIFY(ticks);
    QCOMPARE(shownValues(*ticks), Numbers({0.02, 0.1, 1.0, 10.0, 100.0, 500.0}));
}

void TestTickValues::boundEqualToItsNeighbour()
{
    // 0.098 is 0.1 with one decimal and with two, as its neighbour is, which goes.
    const auto removed = makeTicks(withTickDistance(), TickScale(0.098, 1.04, false), stepOf(7, 0.1, 0.2, 1));
    QVERIFY(removed);
    QCOMPARE(shownValues(*removed), Numbers({0.1, 0.3, 0.5, 0.7, 0.9, 1.04}));
    // In a range this wide 0.08 may be 0.1, but one more decimal tells it from its neighbour.
    const auto separated
        = makeTicks(withTickDistance(), TickScale(0.08, 2.085, false), stepOf(5, 0.1, 0.6, 1));
    QVERIFY(separated);
    QCOMPARE(shownValues(*separated), Numbers({0.08, 0.1, 0.7, 1.3, 2.1}));
    QCOMPARE(separated->first().decimals, 2);
}

void TestTickValues::bothNeighboursOfTheBoundsRemoved()
{
    const auto ticks
        = makeTicks(withTickDistance(), TickScale(0.0999, 0.9001, false), stepOf(5, 0.1, 0.4, 1));
    QVERIFY(ticks);
    QCOMPARE(shownValues(*ticks), Numbers({0.1, 0.5, 0.9}));
    // The bounds stay, with the decimal that was to tell them from their neighbours.
    QCOMPARE(ticks->first().decimals, 2);
    QCOMPARE(ticks->last().decimals, 2);
    const auto three = makeTicks(withTickDistance(), TickScale(0.0999, 0.9, false), stepOf(3, 0.1, 0.4, 1));
    QVERIFY(three);
    QCOMPARE(shownValues(*three), Numbers({0.1, 0.9}));
}

// 0.4 to 2.01 in three equal parts: 0.9367 and 1.4733 are both 1 without decimals.
void TestTickValues::equalSpacedTicksDiffer()
{
    TickParameters parameters = withTickDistance();
    parameters.equalSpaced = true;
    const double part = 1.61 / 3.0;
    const auto ticks = makeTicks(parameters, TickScale(0.4, 2.01, false), stepOf(4, 0.4 + part, part, 0));
    QVERIFY(ticks);
    QCOMPARE(shownValues(*ticks), Numbers({0.4, 0.9, 1.5, 2.0}));
    QCOMPARE(ticks->at(1).decimals, 1);
    // Only the ticks between the bounds got more decimals.
    QCOMPARE(ticks->at(3).decimals, 0);
}

void TestTickValues::equalSpacedTicksMayBeEqualWithoutDistance()
{
    TickParameters parameters;
    parameters.equalSpaced = true;
    const double part = 1.61 / 3.0;
    const auto ticks = makeTicks(parameters, TickScale(0.4, 2.01, false), stepOf(4, 0.4 + part, part, 0));
    QVERIFY(ticks);
    QCOMPARE(shownValues(*ticks), Numbers({0.4, 1.0, 1.0, 2.0}));
}

// Beyond 17 decimals equal ticks stay equal: there are none.
void TestTickValues::precisionIsExhausted()
{
    TickParameters parameters = withTickDistance();
    parameters.equalSpaced = true;
    QVERIFY(!makeTicks(parameters, TickScale(1.0, 2.0, false), stepOf(5, 1.5, 1e-17, 1)));
}

void TestTickValues::subTicks_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("firstTick");
    QTest::addColumn<Numbers>("ticks");
    QTest::addColumn<Numbers>("expected");

    const Numbers ticks = {0.0, 0.5, 1.0};
    QTest::newRow("none: only where ticks stand") << 0 << 0.5 << ticks << Numbers{0.0, 0.5};
    QTest::newRow("one") << 1 << 0.5 << ticks << Numbers{0.0, 0.25, 0.5, 0.75};
    QTest::newRow("four") << 4 << 0.5 << ticks << Numbers{0.0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
    QTest::newRow("first interval begins below the range")
        << 4 << 0.3 << Numbers{0.0, 0.3, 0.8, 1.0}
        << Numbers{0.0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.84, 0.88, 0.92, 0.96};
}

void TestTickValues::subTicks()
{
    QFETCH(int, count);
    QFETCH(double, firstTick);
    QFETCH(Numbers, ticks);
    QFETCH(Numbers, expected);
    TickStep step = stepOf(3, firstTick, 0.5, 1);
    step.subTicksPerInterval = count;
    const Numbers found = makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticksAt(ticks));
    COMPARE_NUMBERS(found, expected);
}

void TestTickValues::subTicksOfADecade_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("step");
    QTest::addColumn<Numbers>("values");

    QTest::newRow("one at 3") << 1 << 1.0 << Numbers{1, 3, 10, 30};
    QTest::newRow("two at 2 and 5") << 2 << 1.0 << Numbers{1, 2, 5, 10, 20, 50};
    QTest::newRow("eight at 2 to 9") << 8 << 1.0 << Numbers{1,  2,  3,  4,  5,  6,  7,  8,  9,
                                                            10, 20, 30, 40, 50, 60, 70, 80, 90};
    QTest::newRow("any other number stands on the ticks") << 3 << 1.0 << Numbers{1, 1, 1, 1, 10, 10, 10, 10};
}

void TestTickValues::subTicksOfADecade()
{
    QFETCH(int, count);
    QFETCH(double, step);
    QFETCH(Numbers, values);
    TickParameters parameters;
    parameters.logarithmic = true;
    const TickScale scale(1.0, 100.0, true);
    TickStep decades = stepOf(3, 1.0, step, 1);
    decades.subTicksPerInterval = count;
    Numbers expected;
    for (const double value : qAsConst(values))
        expected.append(std::log10(value) / 2.0);
    COMPARE_NUMBERS(makeSubTicks(parameters, scale, decades, ticksAt({0.0, 0.5, 1.0})), expected);
}

void TestTickValues::noSubTicksBelowOneDecade()
{
    TickParameters parameters;
    parameters.logarithmic = true;
    TickStep decades = stepOf(2, 1.0, 1.0, 1);
    decades.subTicksPerInterval = 8;
    QVERIFY(makeSubTicks(parameters, TickScale(1.0, 9.0, true), decades, ticksAt({0.0, 1.0})).isEmpty());
    QVERIFY(!makeSubTicks(parameters, TickScale(1.0, 10.0, true), decades, ticksAt({0.0, 1.0})).isEmpty());
}

void TestTickValues::subTicksReachBoundsThatWereMoved()
{
    TickStep step = stepOf(4, 0.2421875, 0.25, 1);
    step.subTicksPerInterval = 4;
    const Numbers ticks = {-0.0078125, 0.2421875, 0.76, 1.01};
    const Numbers found = makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticksAt(ticks));
    QCOMPARE(found.first(), -0.0078125);
    QVERIFY(found.last() > 0.95 && found.last() < 1.01);
    step.firstTick = 0.24;
    const Numbers clipped = makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticksAt(ticks));
    QVERIFY(clipped.first() > 0.03);
}

void TestTickValues::subTicksOfEqualSpaced()
{
    TickParameters parameters;
    parameters.equalSpaced = true;
    TickStep step = stepOf(3, 0.5, 0.5, 1);
    step.subTicksPerInterval = 1;
    // The first interval begins at the first tick, wherever rounding has put it.
    COMPARE_NUMBERS(makeSubTicks(parameters, TickScale(0.0, 1.0, false), step, ticksAt({0.02, 0.5, 1.0})),
                    Numbers({0.02, 0.26, 0.5, 0.75}));
}

void TestTickValues::subTicksAreCapped()
{
    TickStep step = stepOf(3, 0.5, 0.5, 1);
    step.subTicksPerInterval = std::numeric_limits<int>::max();
    const QVector<Tick> ticks = ticksAt({0.0, 0.5, 1.0});
    QCOMPARE(makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticks).size(), 100000);
    step.subTicksPerInterval = 60000;
    QCOMPARE(makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticks).size(), 100000);
    step.subTicksPerInterval = 40000;
    QCOMPARE(makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticks).size(), 80002);
}

void TestTickValues::subTicksOutsideAreWorkToo()
{
    TickStep step;
    step.step = 1.0;
    step.subTicksPerInterval = 100000;
    const Numbers found
        = makeSubTicks(TickParameters(), TickScale(0.0, 1.0, false), step, ticksAt({-1.0, 4.0, 0.0, 1.0}));
    QVERIFY2(found.size() < 50000, qPrintable(QString::number(found.size())));
}

void TestTickValues::coveredSubTicks()
{
    Numbers subTicks = {0.0, 0.1, 0.5 - 0.9e-15, 0.5 - 1.2e-15, 0.5 + 0.9e-15, 0.5 + 1.2e-15, 1.0};
    removeCoveredSubTicks(subTicks, ticksAt({0.0, 0.5, 1.0}));
    QCOMPARE(subTicks.size(), 3);
    QCOMPARE(subTicks.first(), 0.1);
    // Rounding may have swapped two ticks.
    Numbers swapped = {0.1, 0.2, 0.3, 0.4};
    removeCoveredSubTicks(swapped, ticksAt({0.3, 0.2, 0.4}));
    QCOMPARE(swapped, Numbers({0.1}));
    Numbers none = {0.1};
    removeCoveredSubTicks(none, {});
    QCOMPARE(none, Numbers({0.1}));
}

void TestTickValues::crowdedTicks_data()
{
    QTest::addColumn<Numbers>("ticks");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("tickDistance");
    QTest::addColumn<bool>("fixedLength");
    QTest::addColumn<bool>("equalSpaced");
    QTest::addColumn<QVector<int>>("hidden");

    const Numbers ticks = {0.0, 0.05, 0.5, 0.95, 1.0};
    QTest::newRow("both ends") << ticks << 100.0 << 10.0 << false << false << QVector<int>{1, 3};
    QTest::newRow("lower end") << Numbers{0.0, 0.05, 0.5, 1.0} << 100.0 << 10.0 << false << false
                               << QVector<int>{1};
    QTest::newRow("upper end") << Numbers{0.0, 0.5, 0.95, 1.0} << 100.0 << 10.0 << false << false
                               << QVector<int>{2};
    QTest::newRow("far enough") << ticks << 100.0 << 4.9 << false << false << QVector<int>{};
    QTest::newRow("exactly the distance, but for rounding")
        << Numbers{0.0, 0.2, 0.8, 1.0} << 100.0 << 20.0 << false << false << QVector<int>{};
    QTest::newRow("fixed length") << ticks << 100.0 << 10.0 << true << false << QVector<int>{};
    QTest::newRow("equally spaced") << ticks << 100.0 << 10.0 << false << true << QVector<int>{};
    QTest::newRow("no length") << ticks << 0.0 << 10.0 << false << false << QVector<int>{};
    QTest::newRow("no distance") << ticks << 100.0 << 0.0 << false << false << QVector<int>{};
    QTest::newRow("two ticks") << Numbers{0.0, 0.05} << 100.0 << 10.0 << false << false << QVector<int>{};
    QTest::newRow("the one between three")
        << Numbers{0.0, 0.5, 1.0} << 100.0 << 60.0 << false << false << QVector<int>{1};
}

void TestTickValues::crowdedTicks()
{
    QFETCH(Numbers, ticks);
    QFETCH(QVector<int>, hidden);
    QFETCH(double, length);
    QFETCH(double, tickDistance);
    QFETCH(bool, fixedLength);
    QFETCH(bool, equalSpaced);
    TickParameters parameters;
    parameters.length = length;
    parameters.tickDistance = tickDistance;
    parameters.fixedLength = fixedLength;
    parameters.equalSpaced = equalSpaced;
    QVector<Tick> found = ticksAt(ticks);
    hideCrowdedTicks(parameters, found);
    QCOMPARE(found.size(), ticks.size());
    for (int i = 0; i < found.size(); ++i) {
        QCOMPARE(found.at(i).position, ticks.at(i));
        QCOMPARE(std::isinf(found.at(i).shown), hidden.contains(i));
    }
}

QTEST_APPLESS_MAIN(TestTickValues)
#include "tst_tickvalues.moc"
