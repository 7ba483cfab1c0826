#include "shared/quiettest.h"
#include "shared/timezone.h"

#include "ZrQtPlotWidgets/zrqtmakeaxis.h"

#include <QtCore/QRandomGenerator>

#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The formats of setParameters()
enum Format { FloatingPoint = 0, Exponential = 1, Compact = 2, DateTime = 3 };

QByteArray labels(const ZrQtMakeAxis &engine)
{
    QList<QByteArray> all;
    for (int i = 0; i < engine.tickPositions().size(); ++i)
        all.append(engine.label(i));
    return all.join('|');
}

void setFormat(ZrQtMakeAxis &engine, int format, int precision = 1)
{
    engine.setLength(400.0, 60.0, 20.0);
    engine.setParameters(false, 10, 4, precision, false, format, false, false, true);
}

} // namespace

class TestZrQtMakeAxis : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void isAQObject();
    void ticksFrom0To1();
    void oneTick();
    void withoutBoundLabels();
    void rejectedRanges_data();
    void rejectedRanges();
    void subTickLimits_data();
    void subTickLimits();
    void numberFormats_data();
    void numberFormats();
    void timeLevels();
    void timesBeginAtTheEpoch_data();
    void timesBeginAtTheEpoch();
    void numbersMayBeNegative();
    void timeModeEndsWithTheFormat();
    void labelsAreLatin1();
    void labelOutsideTheTicks();
    void fixedLengthKeepsLabels();
    void choiceIsKept();
    void positionsAreCopies();
    void labelsReadBack();
};

void TestZrQtMakeAxis::isAQObject()
{
    QObject parent;
    const auto *engine = new ZrQtMakeAxis(&parent);
    QCOMPARE(engine->parent(), &parent);
    QCOMPARE(QByteArray(engine->metaObject()->className()), QByteArray("ZrQtMakeAxis"));
    QVERIFY(engine->tickPositions().isEmpty());
    QVERIFY(engine->subTickPositions().isEmpty());
}

// 0.1 would make 11 ticks, more than 10; 1 makes 2, 0.2 makes 6, 0.5 makes 3.
void TestZrQtMakeAxis::ticksFrom0To1()
{
    ZrQtMakeAxis engine;
    setFormat(engine, FloatingPoint);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.tickPositions(), QVector<double>({0.0, 0.2, 0.4, 0.6, 0.8, 1.0}));
    QCOMPARE(labels(engine), QByteArray("0.0|0.2|0.4|0.6|0.8|1.0"));
    const QVector<double> subTicks = engine.subTickPositions();
    QCOMPARE(subTicks.size(), 15);
    for (int i = 0; i < 15; ++i)
        QVERIFY(std::fabs(subTicks.at(i) - 0.2 * (i / 3) - 0.05 * (i % 3 + 1)) < 1e-12);
}

void TestZrQtMakeAxis::oneTick()
{
    ZrQtMakeAxis engine;
    engine.setLength(400.0, 60.0, 20.0);
    for (const int maxTicks : {-5, 1, 2}) {
        engine.setParameters(false, maxTicks, 4, 1, false, FloatingPoint, false, false, true);
        QVERIFY(engine.setRange(0.0, 1.0));
        QCOMPARE(labels(engine), QByteArray("0.0|1.0"));
        QVERIFY(engine.setRange(-3.0, 4.0));
        QCOMPARE(labels(engine), QByteArray("-3.0|4.0"));
    }
}

void TestZrQtMakeAxis::withoutBoundLabels()
{
    ZrQtMakeAxis engine;
    engine.setLength(400.0, 60.0, 20.0);
    engine.setParameters(false, 10, 4, 1, false, FloatingPoint, false, false, false);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.tickPositions(), QVector<double>({0.2, 0.4, 0.6, 0.8}));
    QCOMPARE(labels(engine), QByteArray("0.2|0.4|0.6|0.8"));
}

void TestZrQtMakeAxis::rejectedRanges_data()
{
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");

    QTest::newRow("logarithmic from 0") << true << 0.0 << 100.0;
    QTest::newRow("minimum equal to maximum") << false << 3.0 << 3.0;
    QTest::newRow("inverted") << false << 3.0 << 2.0;
    QTest::newRow("infinite") << false << 0.0 << infinity;
    QTest::newRow("not a number") << false << notANumber << 1.0;
}

void TestZrQtMakeAxis::rejectedRanges()
{
    QFETCH(bool, logarithmic);
    QFETCH(double, lo);
    QFETCH(double, hi);
    ZrQtMakeAxis engine;
    engine.setLength(400.0, 60.0, 20.0);
    engine.setParameters(logarithmic, 10, 9, 1, false, FloatingPoint, false, false, true);
    QVERIFY(engine.setRange(1.0, 100.0));
    QVERIFY(!engine.setRange(lo, hi));
    QVERIFY(engine.tickPositions().isEmpty());
    QVERIFY(engine.subTickPositions().isEmpty());
    QVERIFY(engine.label(0).isEmpty());
}

void TestZrQtMakeAxis::subTickLimits_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("perInterval");

    QTest::newRow("3 makes four parts") << 3 << 3;
    QTest::newRow("2 makes two parts") << 2 << 1;
    QTest::newRow("1 makes two parts") << 1 << 1;
    QTest::newRow("0 makes none") << 0 << 0;
    QTest::newRow("less makes none") << -7 << 0;
}

// Five intervals of step 0.2
void TestZrQtMakeAxis::subTickLimits()
{
    QFETCH(int, limit);
    QFETCH(int, perInterval);
    ZrQtMakeAxis engine;
    engine.setLength(400.0, 60.0, 0.0);
    engine.setParameters(false, 10, limit, 1, false, FloatingPoint, false, false, true);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.subTickPositions().size(), 5 * perInterval);
}

void TestZrQtMakeAxis::numberFormats_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("scientificExponent");
    QTest::addColumn<bool>("equalExponent");
    QTest::addColumn<int>("maxTicks");
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("hi");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray plain("0|5000|10000|15000");
    QTest::newRow("plain") << int(FloatingPoint) << false << false << 5 << 0 << 15000.0 << plain;
    QTest::newRow("plain ignores exponents")
        << int(FloatingPoint) << true << true << 5 << 0 << 15000.0 << plain;
    QTest::newRow("compact to 500000") << int(Compact) << false << false << 6 << 0 << 500000.0
                                       << QByteArray("0|100000|200000|300000|400000|500000");
    QTest::newRow("compact to 2000000")
        << int(Compact) << false << false << 3 << 0 << 2e6 << QByteArray("0|1e+06|2e+06");
    QTest::newRow("exponential by threes") << int(Exponential) << true << false << 5 << 1 << 15000.0
                                           << QByteArray("0.0e+00|5.0e+03|10.0e+03|15.0e+03");
    QTest::newRow("exponential by threes to 1500") << int(Exponential) << true << false << 5 << 1 << 1500.0
                                                   << QByteArray("0.0e+00|500.0e+00|1.0e+03|1.5e+03");
    QTest::newRow("exponential") << int(Exponential) << false << false << 5 << 1 << 15000.0
                                 << QByteArray("0.0e+00|5.0e+03|1.0e+04|1.5e+04");
    QTest::newRow("common exponent") << int(Exponential) << false << true << 5 << 1 << 15000.0
                                     << QByteArray("0.0|0.5|1.0|1.5");
}

void TestZrQtMakeAxis::numberFormats()
{
    QFETCH(int, format);
    QFETCH(bool, scientificExponent);
    QFETCH(bool, equalExponent);
    QFETCH(int, maxTicks);
    QFETCH(int, precision);
    QFETCH(double, hi);
    ZrQtMakeAxis engine;
    engine.setLength(400.0, 60.0, 20.0);
    engine.setParameters(false, maxTicks, 4, precision, false, format, scientificExponent, equalExponent,
                         true);
    QVERIFY(engine.setRange(0.0, hi));
    QTEST(labels(engine), "expected");
}

void TestZrQtMakeAxis::timeLevels()
{
    const TimeZone utc("UTC");
    ZrQtMakeAxis engine;
    setFormat(engine, DateTime);
    engine.setTimeFormat("60000\t%ss\r\n%hh:%mm");
    QVERIFY(engine.setRange(1.7e12, 1.7e12 + 40000.0));
    QCOMPARE(labels(engine), QByteArray("20|30|40|50|00"));
    QVERIFY(engine.setRange(1.7e12, 1.7e12 + 4 * 3600000.0));
    QCOMPARE(labels(engine), QByteArray("22:13|23:00|00:00|01:00||02:13"));
}

void TestZrQtMakeAxis::timesBeginAtTheEpoch_data()
{
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<bool>("hasTicks");

    QTest::newRow("negative") << -5000.0 << 10000.0 << true;
    QTest::newRow("infinitely negative") << -infinity << 10000.0 << true;
    QTest::newRow("not a number") << notANumber << 10000.0 << true;
    QTest::newRow("both") << -5000.0 << -1.0 << false;
    QTest::newRow("upper end not a number") << 0.0 << notANumber << false;
}

void TestZrQtMakeAxis::timesBeginAtTheEpoch()
{
    const TimeZone utc("UTC");
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(bool, hasTicks);
    ZrQtMakeAxis engine;
    setFormat(engine, DateTime);
    engine.setTimeFormat("%ss");
    QCOMPARE(engine.setRange(lo, hi), hasTicks);
    QCOMPARE(labels(engine), hasTicks ? QByteArray("00|02|04|06|08|10") : QByteArray());
}

void TestZrQtMakeAxis::numbersMayBeNegative()
{
    ZrQtMakeAxis engine;
    setFormat(engine, FloatingPoint, 0);
    QVERIFY(engine.setRange(-5.0, -1.0));
    QCOMPARE(labels(engine), QByteArray("-5|-4|-3|-2|-1"));
}

void TestZrQtMakeAxis::timeModeEndsWithTheFormat()
{
    ZrQtMakeAxis engine;
    setFormat(engine, DateTime);
    engine.setTimeFormat("%ss");
    setFormat(engine, FloatingPoint, 0);
    QVERIFY(engine.setRange(-5.0, -1.0));
    QCOMPARE(engine.label(0), QByteArray("-5"));
}

void TestZrQtMakeAxis::labelsAreLatin1()
{
    const TimeZone utc("UTC");
    ZrQtMakeAxis engine;
    setFormat(engine, DateTime);
    engine.setTimeFormat("%d. %MonDe, \xB5");
    QVERIFY(engine.setRange(1709251200000.0, 1709251200000.0 + 3 * 86400000.0));
    QCOMPARE(engine.label(0), QByteArray("1. M\xE4rz, \xB5"));
    QCOMPARE(QString::fromLatin1(engine.label(0)), QStringLiteral("1. März, µ"));
}

void TestZrQtMakeAxis::labelOutsideTheTicks()
{
    ZrQtMakeAxis engine;
    setFormat(engine, FloatingPoint);
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.label(5), QByteArray("1.0"));
    for (const int index : {-1, 6, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QCOMPARE(engine.label(index), QByteArray());
}

void TestZrQtMakeAxis::fixedLengthKeepsLabels()
{
    ZrQtMakeAxis engine;
    setFormat(engine, FloatingPoint);
    QVERIFY(engine.setRange(0.0, 1.1));
    QCOMPARE(labels(engine), QByteArray("0.0|0.2|0.4|0.6|0.8||1.1"));
    engine.setLength(400.0, 60.0, 20.0, true);
    QVERIFY(engine.setRange(0.0, 1.1));
    QCOMPARE(labels(engine), QByteArray("0.0|0.2|0.4|0.6|0.8|1.0|1.1"));
}

void TestZrQtMakeAxis::choiceIsKept()
{
    ZrQtMakeAxis engine;
    engine.setParameters(false, 10, 9, 1, false, FloatingPoint, false, false, true, true);
    QVERIFY(engine.setRange(0.0, 0.9));
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.tickPositions().size(), 2);
    engine.setParameters(false, 10, 9, 1, false, FloatingPoint, false, false, true);
    QVERIFY(engine.setRange(0.0, 0.9));
    QVERIFY(engine.setRange(0.0, 1.0));
    QCOMPARE(engine.tickPositions().size(), 6);
}

void TestZrQtMakeAxis::positionsAreCopies()
{
    ZrQtMakeAxis engine;
    setFormat(engine, FloatingPoint);
    QVERIFY(engine.setRange(0.0, 1.0));
    QVector<double> ticks = engine.tickPositions();
    QVector<double> subTicks = engine.subTickPositions();
    ticks[0] = 7.0;
    subTicks[0] = 7.0;
    QCOMPARE(engine.tickPositions().at(0), 0.0);
    QCOMPARE(engine.subTickPositions().at(0), 0.05);
}

void TestZrQtMakeAxis::labelsReadBack()
{
    QRandomGenerator random(6);
    ZrQtMakeAxis engine;
    setFormat(engine, FloatingPoint);
    for (int i = 0; i < 5000; ++i) {
        const double lo = (random.generateDouble() - 0.5) * 1000.0;
        const double hi = lo + std::pow(10.0, random.generateDouble() * 8.0 - 2.0);
        QVERIFY(engine.setRange(lo, hi));
        const QVector<double> ticks = engine.tickPositions();
        QVERIFY(ticks.size() <= 10);
        for (int k = 0; k < ticks.size(); ++k) {
            const QByteArray label = engine.label(k);
            QVERIFY(ticks.at(k) >= -0.01 && ticks.at(k) <= 1.01);
            QVERIFY(label.isEmpty() || std::fabs((label.toDouble() - lo) / (hi - lo) - ticks.at(k)) < 1e-9);
        }
    }
}

QTEST_APPLESS_MAIN(TestZrQtMakeAxis)
#include "tst_zrqtmakeaxis.moc"
