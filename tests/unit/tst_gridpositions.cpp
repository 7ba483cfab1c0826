#include "internal/gridpositions_p.h"

#include "shared/quiettest.h"

#include <limits>
#include <random>

using namespace GridPositions;

using Positions = QVector<double>;

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
} // namespace

class TestGridPositions : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void stepsStayClearOfTheEnds_data();
    void stepsStayClearOfTheEnds();
    void stepsAreBounded_data();
    void stepsAreBounded();
    void percentStepsAreFractions_data();
    void percentStepsAreFractions();
    void pixelStepsAreAtLeastOne_data();
    void pixelStepsAreAtLeastOne();
    void positionsAscendInsideTheRange();
};

void TestGridPositions::stepsStayClearOfTheEnds_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::addColumn<double>("step");
    QTest::addColumn<Positions>("positions");

    QTest::newRow("100 pixels in steps of 10")
        << 40.0 << 140.0 << 10.0 << Positions{50, 60, 70, 80, 90, 100, 110, 120, 130};
    QTest::newRow("exactly 2 pixels from the end is too close") << 0.0 << 12.0 << 10.0 << Positions{};
    QTest::newRow("more than 2 pixels from the end is drawn") << 0.0 << 12.5 << 10.0 << Positions{10};
    QTest::newRow("a step as long as the range") << 0.0 << 10.0 << 10.0 << Positions{};
    QTest::newRow("a step longer than the range") << 0.0 << 10.0 << 11.0 << Positions{};
    QTest::newRow("a step of 0 counts as 1") << 0.0 << 6.0 << 0.0 << Positions{1, 2, 3};
    QTest::newRow("a negative step counts as 1") << 0.0 << 6.0 << -4.0 << Positions{1, 2, 3};
    QTest::newRow("a step that is not a number counts as 1")
        << 0.0 << 6.0 << notANumber << Positions{1, 2, 3};
    QTest::newRow("an infinite step") << 0.0 << 6.0 << infinity << Positions{};
    QTest::newRow("a range of 2 pixels") << 5.0 << 7.0 << 1.0 << Positions{};
    QTest::newRow("an empty range") << 5.0 << 5.0 << 1.0 << Positions{};
    QTest::newRow("a reversed range") << 5.0 << -5.0 << 1.0 << Positions{};
    QTest::newRow("an infinite range") << 0.0 << infinity << 1.0 << Positions{};
    QTest::newRow("a range that is not a number") << notANumber << 100.0 << 1.0 << Positions{};
}

void TestGridPositions::stepsStayClearOfTheEnds()
{
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(double, step);
    QTEST(steps({first, last}, step), "positions");
}

void TestGridPositions::stepsAreBounded_data()
{
    QTest::addColumn<double>("step");
    QTest::newRow("a thousandth of a pixel") << 1e-3;
    QTest::newRow("the smallest number") << 5e-324;
    QTest::newRow("0.4999 pixels") << 0.4999;
}

void TestGridPositions::stepsAreBounded()
{
    QFETCH(double, step);
    const Positions positions = steps({0, 1000}, step);
    QVERIFY(!positions.isEmpty());
    QVERIFY(positions.size() <= 2000);
}

void TestGridPositions::percentStepsAreFractions_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<double>("subFraction");
    QTest::addColumn<Positions>("main");
    QTest::addColumn<Positions>("sub");

    // The range is 100 to 300.
    QTest::newRow("quarters") << 0.25 << 0.0 << Positions{150, 200, 250} << Positions{};
    QTest::newRow("quarters with halves between")
        << 0.25 << 0.5 << Positions{150, 200, 250} << Positions{125, 175, 225, 275};
    QTest::newRow("the default of 10 draws no line, sub lines neither")
        << 10.0 << 25.0 << Positions{} << Positions{};
    QTest::newRow("a whole with quarters between") << 1.0 << 0.25 << Positions{} << Positions{150, 200, 250};
    QTest::newRow("a negative sub fraction gives none") << 0.5 << -1.0 << Positions{200} << Positions{};
    QTest::newRow("not a number gives none") << 0.5 << notANumber << Positions{200} << Positions{};
    QTest::newRow("an infinite fraction is a whole") << infinity << 0.5 << Positions{} << Positions{200};
    // 0.3 of 200 pixels: intervals at 100, 160, 220 and 280; the last one reaches to 340.
    QTest::newRow("no sub line beyond the plot area")
        << 0.3 << 0.5 << Positions{160, 220, 280} << Positions{130, 190, 250};
}

void TestGridPositions::percentStepsAreFractions()
{
    QFETCH(double, fraction);
    QFETCH(double, subFraction);
    const Lines lines = percentSteps({100, 300}, fraction, subFraction);
    QTEST(lines.main, "main");
    QTEST(lines.sub, "sub");
}

void TestGridPositions::pixelStepsAreAtLeastOne_data()
{
    QTest::addColumn<double>("spacing");
    QTest::addColumn<double>("subSpacing");
    QTest::addColumn<Positions>("main");
    QTest::addColumn<Positions>("sub");

    // The range is 10 to 18.
    QTest::newRow("steps of 2 and 4") << 4.0 << 2.0 << Positions{14} << Positions{12, 14};
    QTest::newRow("sub lines run over the whole range") << 2.0 << 5.0 << Positions{12, 14} << Positions{15};
    QTest::newRow("less than a pixel counts as 1")
        << 0.2 << 1.0 << Positions{11, 12, 13, 14, 15} << Positions{11, 12, 13, 14, 15};
    QTest::newRow("0 and negative count as 1")
        << 0.0 << -7.0 << Positions{11, 12, 13, 14, 15} << Positions{11, 12, 13, 14, 15};
    QTest::newRow("not a number counts as 1")
        << notANumber << notANumber << Positions{11, 12, 13, 14, 15} << Positions{11, 12, 13, 14, 15};
    QTest::newRow("a fraction above 1 is kept") << 2.5 << 25.0 << Positions{12.5, 15} << Positions{};
}

void TestGridPositions::pixelStepsAreAtLeastOne()
{
    QFETCH(double, spacing);
    QFETCH(double, subSpacing);
    const Lines lines = pixelSteps({10, 18}, spacing, subSpacing);
    QTEST(lines.main, "main");
    QTEST(lines.sub, "sub");
}

void TestGridPositions::positionsAscendInsideTheRange()
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> pixel(-200.0, 2000.0);
    std::uniform_real_distribution<double> fraction(-0.5, 1.5);
    for (int i = 0; i < 2000; ++i) {
        const Range range{pixel(random), pixel(random)};
        const Lines lines = percentSteps(range, fraction(random), fraction(random));
        for (const Positions &positions : {lines.main, lines.sub}) {
            double before = range.first;
            for (double position : positions) {
                QVERIFY(position > before);
                QVERIFY(position < range.last);
                before = position;
            }
        }
        for (double position : lines.main)
            QVERIFY(range.last - position > 2.0);
    }
}

QTEST_APPLESS_MAIN(TestGridPositions)
#include "tst_gridpositions.moc"
