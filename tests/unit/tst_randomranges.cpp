#include "shared/quiettest.h"
#include "shared/tickwishes.h"
#include "shared/timezone.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

using Numbers = QVector<double>;

QByteArray written(const Numbers &numbers)
{
    QByteArray text;
    for (const double number : numbers)
        text += QByteArray::number(number, 'g', 17) + ' ';
    return text;
}

// Milliseconds since the epoch of a text such as "2024-01-31 12:34:56.789".
double timeOf(const QByteArray &text)
{
    QDateTime date
        = QDateTime::fromString(QString::fromLatin1(text), QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    date.setTimeSpec(Qt::UTC);
    return double(date.toMSecsSinceEpoch());
}

double randomReal(QRandomGenerator &random, double lo, double hi)
{
    return lo + (hi - lo) * random.generateDouble();
}

// A range of any size at any distance from 0.
void randomRange(QRandomGenerator &random, double &lo, double &hi)
{
    const double span = std::pow(10.0, randomReal(random, -3.0, 9.0));
    lo = span * randomReal(random, -1.0, 1.0) * std::pow(10.0, random.bounded(4));
    // Round numbers, as people type them
    if (random.bounded(3) == 0)
        lo = std::round(lo * 10.0) / 10.0;
    hi = lo + (random.bounded(3) == 0 ? std::ceil(span) : span);
}

TickWishes randomWishes(QRandomGenerator &random)
{
    TickWishes wishes;
    wishes.length = random.bounded(5) == 0 ? 0.0 : randomReal(random, 20.0, 2000.0);
    wishes.tickDistance = random.bounded(5) == 0 ? 0.0 : randomReal(random, 1.0, 150.0);
    wishes.subTickDistance = random.bounded(3) == 0 ? 0.0 : randomReal(random, 1.0, 50.0);
    wishes.fixedLength = random.bounded(10) == 0;
    wishes.maxTicks = random.bounded(-1, 40);
    wishes.maxSubTicks = random.bounded(-1, 25);
    wishes.precision = random.bounded(-2, 7);
    wishes.showBoundLabels = random.bounded(4) != 0;
    return wishes;
}

double randomBits(QRandomGenerator &random)
{
    const quint64 bits = random.generate64();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

} // namespace

/// What holds for the ticks of any range: they are counted, ordered, inside, and where their labels say.
class TestRandomRanges : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void linearRanges();
    void equalSpacedRanges();
    void logarithmicRanges();
    void timeRanges();
    void hostileRanges();
    void hostileParameters_data();
    void hostileParameters();

private:
    void checkTicks(const ZrMakeAxis &engine, const TickWishes &wishes);
    void checkSubTicks(const ZrMakeAxis &engine, const TickWishes &wishes);
    void checkNumberLabels(const ZrMakeAxis &engine, const TickWishes &wishes, double lo, double hi);
};

// The QVERIFYs of a check return from the check only; the caller ends with this.
#define STOP_AFTER_FAILURE()                                                                                 \
    if (QTest::currentTestFailed())                                                                          \
    return

void TestRandomRanges::checkTicks(const ZrMakeAxis &engine, const TickWishes &wishes)
{
    const Numbers ticks = engine.tickPositions();
    QVERIFY2(ticks.size() <= std::max(wishes.maxTicks, 2), written(ticks).constData());
    for (int i = 0; i < ticks.size(); ++i) {
        QVERIFY2(ticks.at(i) >= -0.01 && ticks.at(i) <= 1.01, written(ticks).constData());
        if (i > 0)
            QVERIFY2(ticks.at(i) > ticks.at(i - 1), written(ticks).constData());
        if (engine.label(i).isEmpty())
            QVERIFY(i == 1 || i == ticks.size() - 2);
    }
    if (!wishes.showBoundLabels || ticks.isEmpty())
        return;
    QVERIFY2(ticks.first() <= 0.03, written(ticks).constData());
    QVERIFY2(ticks.last() >= 0.97, written(ticks).constData());
}

void TestRandomRanges::checkSubTicks(const ZrMakeAxis &engine, const TickWishes &wishes)
{
    const Numbers ticks = engine.tickPositions();
    const Numbers subTicks = engine.subTickPositions();
    for (int i = 0; i < subTicks.size(); ++i) {
        QVERIFY(subTicks.at(i) >= -0.01 && subTicks.at(i) <= 1.01);
        if (i > 0)
            QVERIFY(subTicks.at(i) > subTicks.at(i - 1));
        const double subTick = subTicks.at(i);
        const auto covers = [subTick](double tick) { return std::fabs(subTick - tick) <= 1e-15; };
        QVERIFY(std::none_of(ticks.cbegin(), ticks.cend(), covers));
    }
    for (int i = 1; i < ticks.size(); ++i) {
        const auto between
            = [&ticks, i](double s) { return s > ticks.at(i - 1) + 1e-9 && s < ticks.at(i) - 1e-9; };
        const auto count = std::count_if(subTicks.cbegin(), subTicks.cend(), between);
        QVERIFY2(count <= std::max(wishes.maxSubTicks, 0), written(subTicks).constData());
    }
}

// A plain label says exactly where its tick stands.
void TestRandomRanges::checkNumberLabels(const ZrMakeAxis &engine, const TickWishes &wishes, double lo,
                                         double hi)
{
    const Numbers ticks = engine.tickPositions();
    const double rounding = 1e-15 * std::max(std::fabs(lo), std::fabs(hi)) / (hi - lo) + 1e-12;
    double labelled = -std::numeric_limits<double>::infinity();
    for (int i = 0; i < ticks.size(); ++i) {
        const QByteArray label = engine.label(i);
        if (label.isEmpty())
            continue;
        bool isNumber = false;
        const double value = label.toDouble(&isNumber);
        QVERIFY2(isNumber, label.constData());
        QVERIFY(!label.startsWith("-0") || value != 0.0);
        const double position = wishes.logarithmic
                                    ? (std::log10(value) - std::log10(lo)) / (std::log10(hi) - std::log10(lo))
                                    : (value - lo) / (hi - lo);
        QVERIFY2(std::fabs(position - ticks.at(i)) <= rounding, label.constData());
        if (wishes.spacesTicks() && !wishes.fixedLength && !wishes.equalSpaced) {
            const double least = std::min(wishes.tickDistance, wishes.length / 2.0) / wishes.length;
            QVERIFY2(ticks.at(i) - labelled >= least - 1e-9, written(ticks).constData());
        }
        labelled = ticks.at(i);
    }
}

void TestRandomRanges::linearRanges()
{
    QRandomGenerator random(1);
    ZrMakeAxis engine;
    int made = 0;
    for (int i = 0; i < 8000; ++i) {
        double lo;
        double hi;
        randomRange(random, lo, hi);
        const TickWishes wishes = randomWishes(random);
        wishes.applyTo(engine);
        made += engine.setRange(lo, hi) ? 1 : 0;
        checkTicks(engine, wishes);
        checkSubTicks(engine, wishes);
        checkNumberLabels(engine, wishes, lo, hi);
        // Round steps are equal steps.
        const Numbers ticks = engine.tickPositions();
        for (int k = 3; k < ticks.size() - 1; ++k)
            QVERIFY(std::fabs(ticks.at(k) - 2.0 * ticks.at(k - 1) + ticks.at(k - 2)) < 1e-9);
        STOP_AFTER_FAILURE();
    }
    QVERIFY2(made > 6800, qPrintable(QString::number(made)));
}

void TestRandomRanges::equalSpacedRanges()
{
    QRandomGenerator random(2);
    ZrMakeAxis engine;
    int made = 0;
    for (int i = 0; i < 5000; ++i) {
        double lo;
        double hi;
        randomRange(random, lo, hi);
        TickWishes wishes = randomWishes(random);
        wishes.equalSpaced = true;
        wishes.length = std::max(wishes.length, 1.0);
        wishes.tickDistance = std::max(wishes.tickDistance, 1.0);
        wishes.applyTo(engine);
        made += engine.setRange(lo, hi) ? 1 : 0;
        checkTicks(engine, wishes);
        checkNumberLabels(engine, wishes, lo, hi);
        STOP_AFTER_FAILURE();
    }
    QVERIFY2(made > 4000, qPrintable(QString::number(made)));
}

void TestRandomRanges::logarithmicRanges()
{
    QRandomGenerator random(3);
    ZrMakeAxis engine;
    int made = 0;
    for (int i = 0; i < 5000; ++i) {
        const double lo = std::pow(10.0, randomReal(random, -12.0, 12.0));
        const double hi = lo * std::pow(10.0, randomReal(random, 0.1, 20.0));
        TickWishes wishes = randomWishes(random);
        wishes.logarithmic = true;
        wishes.applyTo(engine);
        made += engine.setRange(lo, hi) ? 1 : 0;
        checkTicks(engine, wishes);
        checkSubTicks(engine, wishes);
        checkNumberLabels(engine, wishes, lo, hi);
        STOP_AFTER_FAILURE();
    }
    QVERIFY2(made > 3500, qPrintable(QString::number(made)));
}

// Labels with all digits read back to the times of their ticks; a bound to a time just before it.
void TestRandomRanges::timeRanges()
{
    const TimeZone utc("UTC");
    QRandomGenerator random(4);
    ZrMakeAxis engine;
    engine.setTimeFormat("%yyyy-%MM-%dd %hh:%mm:%ss.%Ms");
    int made = 0;
    for (int i = 0; i < 5000; ++i) {
        const double span = std::pow(10.0, randomReal(random, 2.0, 13.0));
        const double lo = std::floor(randomReal(random, 0.0, 2e13));
        const double hi = lo + std::floor(span);
        TickWishes wishes = randomWishes(random);
        wishes.format = 3;
        wishes.applyTo(engine);
        made += engine.setRange(lo, hi) ? 1 : 0;
        checkTicks(engine, wishes);
        const Numbers ticks = engine.tickPositions();
        for (int k = 0; k < ticks.size(); ++k) {
            const QByteArray label = engine.label(k);
            if (label.isEmpty())
                continue;
            const double position = (timeOf(label) - lo) / (hi - lo);
            const bool isBound = wishes.showBoundLabels && (k == 0 || k == ticks.size() - 1);
            QVERIFY2(std::fabs(position - ticks.at(k)) <= (isBound ? 0.03 : 1e-9), label.constData());
        }
        STOP_AFTER_FAILURE();
    }
    QVERIFY2(made > 2500, qPrintable(QString::number(made)));
}

// Any bits at all: what is made is finite, counted, and made at once.
void TestRandomRanges::hostileRanges()
{
    const TimeZone utc("UTC");
    QRandomGenerator random(5);
    ZrMakeAxis engine;
    engine.setTimeFormat("1e6\t%ss.%Us %aUs %aMs\r\n1e9\t%hh:%mm\r\n%dd.%MM.%yyyy %DoY %WoY %isoWoY");
    for (int i = 0; i < 2000; ++i) {
        TickWishes wishes;
        wishes.length = randomBits(random);
        wishes.tickDistance = randomBits(random);
        wishes.subTickDistance = randomBits(random);
        wishes.fixedLength = random.bounded(2) == 0;
        wishes.logarithmic = random.bounded(2) == 0;
        wishes.maxTicks = random.bounded(2) == 0 ? random.bounded(50) : int(random.generate() % 2000);
        wishes.maxSubTicks = int(random.generate());
        wishes.precision = random.bounded(2) == 0 ? random.bounded(20) : int(random.generate());
        wishes.equalSpaced = random.bounded(2) == 0;
        wishes.format = random.bounded(-1, 5);
        wishes.scientificExponent = random.bounded(2) == 0;
        wishes.equalExponent = random.bounded(2) == 0;
        wishes.showBoundLabels = random.bounded(2) == 0;
        wishes.keepChoice = random.bounded(2) == 0;
        wishes.applyTo(engine);
        for (int k = 0; k < 3; ++k) {
            const double lo = randomBits(random);
            const double hi
                = k == 0 ? randomBits(random) : lo + std::fabs(lo) * std::pow(10.0, -random.bounded(17));
            const bool made = engine.setRange(lo, hi);
            const Numbers ticks = engine.tickPositions();
            QCOMPARE(made, !ticks.isEmpty());
            QVERIFY(ticks.size() <= std::max(wishes.maxTicks, 2));
            QVERIFY(engine.subTickPositions().size() <= 100000);
            for (int j = 0; j < std::min(ticks.size(), 20); ++j) {
                QVERIFY(std::isfinite(ticks.at(j)));
                QVERIFY(engine.label(j).size() < 1000);
            }
        }
    }
}

void TestRandomRanges::hostileParameters_data()
{
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("distance");
    QTest::addColumn<int>("maxSubTicks");
    QTest::addColumn<bool>("equalSpaced");
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");

    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const int all = std::numeric_limits<int>::max();
    QTest::newRow("a million ticks") << 0.0 << 0.0 << 4 << false << false << 0.0 << 70000.0;
    QTest::newRow("a million ticks on 1e9 pixels") << 1e9 << 1.0 << all << false << false << 0.0 << 70000.0;
    QTest::newRow("equally spaced") << 1e9 << 1e-3 << all << true << false << 0.0 << 99999.9;
    QTest::newRow("equally spaced, nearly equal")
        << 1e9 << 1e-3 << all << true << false << 1e9 - 1e-3 << 1e9 + 1e-3;
    QTest::newRow("1e9 and a thousandth around it")
        << 1e9 << 1e-3 << all << false << false << 1e9 - 1e-3 << 1e9 + 1e-3;
    QTest::newRow("denormal range") << 400.0 << 60.0 << all << false << false << 0.0 << 5e-324;
    QTest::newRow("denormal length") << 5e-324 << 5e-324 << all << false << false << 0.0 << 1.0;
    QTest::newRow("length of three denormals")
        << 1.5e-323 << 1.5e-323 << all << false << false << -1.0 << 1.0;
    QTest::newRow("1e-300") << 400.0 << 60.0 << all << false << false << 1e-300 << 2e-300;
    QTest::newRow("1e300") << 400.0 << 1e-9 << all << false << false << -1e300 << 1e300;
    QTest::newRow("the largest doubles") << 400.0 << 60.0 << all << true << false << -1.7e308 << 1.7e308;
    QTest::newRow("neighbouring doubles")
        << 400.0 << 60.0 << all << false << false << 1e300 << std::nextafter(1e300, infinity);
    QTest::newRow("neighbouring doubles, logarithmic")
        << 400.0 << 60.0 << all << false << true << 1e300 << std::nextafter(1e300, infinity);
    QTest::newRow("all decades") << 400.0 << 0.0 << all << false << true << 5e-324 << 1.7e308;
    QTest::newRow("infinite length") << infinity << infinity << all << false << false << 0.0 << 1.0;
    QTest::newRow("no number as length") << nan << nan << all << false << false << 0.0 << 1.0;
    QTest::newRow("negative lengths") << -1.0 << -1.0 << all << false << false << 0.0 << 1.0;
}

void TestRandomRanges::hostileParameters()
{
    QFETCH(double, length);
    QFETCH(double, distance);
    QFETCH(int, maxSubTicks);
    QFETCH(bool, equalSpaced);
    QFETCH(bool, logarithmic);
    QFETCH(double, lo);
    QFETCH(double, hi);
    for (const int precision : {-1, 1, 15}) {
        ZrMakeAxis engine;
        engine.setLength(length, distance, distance);
        engine.setParameters(logarithmic, 1000000, maxSubTicks, precision, equalSpaced, 1, true, true, true);
        QElapsedTimer timer;
        timer.start();
        const bool made = engine.setRange(lo, hi);
        // Milliseconds; the rest is for a sanitizer on a busy machine.
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(made, !engine.tickPositions().isEmpty());
        QVERIFY(engine.tickPositions().size() <= 100000);
        QVERIFY(engine.subTickPositions().size() <= 100000);
    }
}

QTEST_APPLESS_MAIN(TestRandomRanges)
#include "tst_randomranges.moc"
