#include "internal/boundingtracker_p.h"

#include "shared/quiettest.h"

#include <limits>
#include <random>

using BoundingTracker::compare;
using BoundingTracker::Comparison;
using CanvasScaling::Direction;

class TestBoundingTracker : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void reportedExtentIsCompared_data();
    void reportedExtentIsCompared();
    void bothKeptAndInsideExcludeEachOther();
};

void TestBoundingTracker::reportedExtentIsCompared_data()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<bool>("lowKept");
    QTest::addColumn<bool>("highKept");
    QTest::addColumn<bool>("inside");
    QTest::addColumn<bool>("changed");

    // The known extent is 100 to 200.
    QTest::newRow("the same") << 100.0 << 200.0 << 0.0 << true << true << false << false;
    QTest::newRow("the same, with tolerance") << 100.0 << 200.0 << 0.2 << true << true << false << false;
    QTest::newRow("grown, no tolerance") << 99.0 << 201.0 << 0.0 << false << false << false << true;
    QTest::newRow("shrunk, no tolerance") << 101.0 << 199.0 << 0.0 << false << false << true << true;
    QTest::newRow("high edge shrunk, no tolerance") << 100.0 << 199.0 << 0.0 << true << false << true << true;
    QTest::newRow("low edge shrunk, no tolerance") << 101.0 << 200.0 << 0.0 << false << true << true << true;
    // A tolerance of 0.2 reaches 10 units to each side.
    QTest::newRow("shrunk just within the bands") << 110.0 << 190.0 << 0.2 << true << true << false << true;
    QTest::newRow("grown just within the bands") << 90.0 << 210.0 << 0.2 << true << true << false << true;
    QTest::newRow("shrunk beyond the bands") << 111.0 << 189.0 << 0.2 << false << false << true << true;
    QTest::newRow("one edge shrunk beyond its band, the other grown within")
        << 111.0 << 209.0 << 0.2 << false << true << true << true;
    QTest::newRow("grown beyond the wide band") << 89.0 << 190.0 << 0.2 << false << true << false << true;
    QTest::newRow("high edge grown beyond the wide band")
        << 100.0 << 211.0 << 0.2 << true << false << false << true;
    QTest::newRow("moved to the other side") << 300.0 << 400.0 << 0.2 << false << false << false << true;
    QTest::newRow("collapsed onto the low edge") << 100.0 << 100.0 << 0.0 << true << false << true << true;
    QTest::newRow("not a number is nowhere") << notANumber << 200.0 << 0.2 << false << true << false << true;
    QTest::newRow("infinite") << -infinity << infinity << 0.2 << false << false << false << true;
}

void TestBoundingTracker::reportedExtentIsCompared()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, tolerance);
    for (Direction direction : {Direction::X, Direction::Y}) {
        // The other direction differs, and must not count.
        const QRectF known = direction == Direction::X ? QRectF(100, -3, 100, 7) : QRectF(-3, 100, 7, 100);
        const QRectF reported
            = direction == Direction::X ? QRectF(low, 55, high - low, 1) : QRectF(55, low, 1, high - low);
        const Comparison comparison = compare(known, reported, direction, tolerance);
        if (low == low)
            QTEST(comparison.highKept, "highKept");
        QTEST(comparison.lowKept, "lowKept");
        QTEST(comparison.inside, "inside");
        QTEST(comparison.changed, "changed");
        QCOMPARE(comparison.bothKept(), comparison.lowKept && comparison.highKept);
    }
}

void TestBoundingTracker::bothKeptAndInsideExcludeEachOther()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> position(-10.0, 10.0);
    std::uniform_real_distribution<double> size(0.0, 10.0);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    int kept = 0;
    int inside = 0;
    for (int i = 0; i < 5000; ++i) {
        const QRectF known(position(random), 0, size(random), 1);
        const QRectF reported(position(random), 0, size(random), 1);
        const double tolerance = share(random);
        const Comparison result = compare(known, reported, Direction::X, tolerance);
        QVERIFY(!(result.bothKept() && result.inside));
        kept += result.bothKept();
        inside += result.inside;
        // What is neither kept nor inside reaches beyond the known extent.
        if (!result.bothKept() && !result.inside) {
            const double reach = tolerance * known.width() / 2.0;
            QVERIFY(reported.left() < known.left() - reach || reported.left() > known.right() + reach
                    || reported.right() > known.right() + reach || reported.right() < known.left() - reach);
        }
    }
    QVERIFY(kept > 50 && inside > 50);
}

QTEST_APPLESS_MAIN(TestBoundingTracker)
#include "tst_boundingtracker.moc"
