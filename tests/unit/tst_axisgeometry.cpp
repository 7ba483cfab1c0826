#include "internal/axisgeometry_p.h"
#include "shared/quiettest.h"

#include <limits>

using namespace AxisGeometry;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();

} // namespace

class TestAxisGeometry : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void truncates_data();
    void truncates();
    void namesEdges_data();
    void namesEdges();
    void untickedPart_data();
    void untickedPart();
    void unlinedPart_data();
    void unlinedPart();
    void mapsTicks_data();
    void mapsTicks();
    void laysOutAcross_data();
    void laysOutAcross();
    void laysOutBottomAxisOfEqualFonts();
    void absurdSizesStayWithinInt_data();
    void absurdSizesStayWithinInt();
    void minimumMargin_data();
    void minimumMargin();
    void editMargin_data();
    void editMargin();
    void placesEditFields_data();
    void placesEditFields();
};

void TestAxisGeometry::truncates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("towards zero from above") << 1.99 << 1;
    QTest::newRow("towards zero from below") << -1.99 << -1;
    QTest::newRow("NaN is 0") << notANumber << 0;
    QTest::newRow("infinity is limited") << infinity << LargestPixel;
    QTest::newRow("minus infinity is limited") << -infinity << -LargestPixel;
    QTest::newRow("beyond int is limited") << 1e308 << LargestPixel;
}

void TestAxisGeometry::truncates()
{
    QFETCH(double, value);
    QTEST(truncated(value), "expected");
}

void TestAxisGeometry::namesEdges_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("outer");
    QTest::newRow("top") << Qt::TopEdge << false << true << true;
    QTest::newRow("left") << Qt::LeftEdge << true << false << true;
    QTest::newRow("right") << Qt::RightEdge << true << false << false;
    QTest::newRow("bottom") << Qt::BottomEdge << false << true << false;
    QTest::newRow("a combination is no edge")
        << Qt::Edge(int(Qt::TopEdge) | int(Qt::LeftEdge)) << false << false << false;
}

void TestAxisGeometry::namesEdges()
{
    QFETCH(Qt::Edge, edge);
    QTEST(isVertical(edge), "vertical");
    QTEST(isHorizontal(edge), "horizontal");
    QTEST(isOuter(edge), "outer");
}

void TestAxisGeometry::untickedPart_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("drawMin");
    QTest::addColumn<double>("drawMax");
    QTest::addColumn<double>("below");
    QTest::addColumn<double>("above");
    QTest::newRow("the whole range is ticked") << 0.0 << 10.0 << 0.0 << 10.0 << 0.0 << 0.0;
    QTest::newRow("a quarter is left out below, a half above") << 0.0 << 8.0 << 2.0 << 4.0 << 0.25 << 0.5;
    QTest::newRow("fractions are not limited") << 0.0 << 10.0 << 20.0 << -10.0 << 2.0 << 2.0;
    QTest::newRow("an empty range has no parts") << 5.0 << 5.0 << 6.0 << 4.0 << 0.0 << 0.0;
    QTest::newRow("a range of 1e-12 counts as empty") << 0.0 << 1e-12 << 5e-13 << 1e-12 << 0.0 << 0.0;
    QTest::newRow("a range of 2e-12 does not") << 0.0 << 2e-12 << 1e-12 << 2e-12 << 0.5 << 0.0;
    QTest::newRow("a reversed range has parts") << 10.0 << 0.0 << 5.0 << 0.0 << 0.5 << 0.0;
    QTest::newRow("NaN has no parts") << notANumber << 1.0 << 0.0 << 1.0 << 0.0 << 0.0;
}

void TestAxisGeometry::untickedPart()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, drawMin);
    QFETCH(double, drawMax);
    const UntickedPart part = AxisGeometry::untickedPart(min, max, drawMin, drawMax);
    QTEST(part.below, "below");
    QTEST(part.above, "above");
}

void TestAxisGeometry::unlinedPart_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("drawMin");
    QTest::addColumn<double>("drawMax");
    QTest::addColumn<double>("below");
    QTest::addColumn<double>("above");
    QTest::newRow("the whole range has a line") << 0.0 << 10.0 << 0.0 << 10.0 << 0.0 << 0.0;
    QTest::newRow("a quarter is left out below, a half above") << 0.0 << 8.0 << 2.0 << 4.0 << 0.25 << 0.5;
    QTest::newRow("fractions are limited to 1") << 0.0 << 10.0 << 20.0 << -10.0 << 1.0 << 1.0;
    QTest::newRow("fractions are limited to 0") << 0.0 << 10.0 << -20.0 << 30.0 << 0.0 << 0.0;
    QTest::newRow("an empty range has the whole line") << 5.0 << 5.0 << 5.0 << 5.0 << 0.0 << 0.0;
    QTest::newRow("a tiny range is divided") << 0.0 << 1e-12 << 5e-13 << 1e-12 << 0.5 << 0.0;
    QTest::newRow("NaN has the whole line") << notANumber << notANumber << 0.0 << 1.0 << 0.0 << 0.0;
    QTest::newRow("a range beyond double") << -largest << largest << -largest << largest << 0.0 << 0.0;
}

void TestAxisGeometry::unlinedPart()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, drawMin);
    QFETCH(double, drawMax);
    const UntickedPart part = AxisGeometry::unlinedPart(min, max, drawMin, drawMax);
    QTEST(part.below, "below");
    QTEST(part.above, "above");
}

void TestAxisGeometry::mapsTicks_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<double>("below");
    QTest::addColumn<double>("above");
    QTest::addColumn<double>("pixelOfLowEnd");
    QTest::addColumn<double>("pixelOfHighEnd");
    // 211 pixels with margins of 3 (low) and 7 (high) leave a length of 200.
    QTest::newRow("horizontal, from margin to margin") << false << false << 0.0 << 0.0 << 3.0 << 204.0;
    QTest::newRow("horizontal, inverted") << false << true << 0.0 << 0.0 << 204.0 << 3.0;
    QTest::newRow("vertical, from the bottom up") << true << false << 0.0 << 0.0 << 208.0 << 7.0;
    QTest::newRow("vertical, inverted") << true << true << 0.0 << 0.0 << 7.0 << 208.0;
    QTest::newRow("horizontal, part of the range") << false << false << 0.25 << 0.5 << 53.0 << 104.0;
    QTest::newRow("vertical, part of the range") << true << false << 0.25 << 0.5 << 158.0 << 107.0;
    QTest::newRow("inverted, the part stays where it is") << false << true << 0.25 << 0.5 << 104.0 << 53.0;
    QTest::newRow("ends are truncated") << false << false << 0.001 << 0.001 << 3.0 << 203.0;
}

void TestAxisGeometry::mapsTicks()
{
    QFETCH(bool, vertical);
    QFETCH(bool, inverted);
    QFETCH(double, below);
    QFETCH(double, above);
    QFETCH(double, pixelOfLowEnd);
    QFETCH(double, pixelOfHighEnd);
    const Along along{vertical, 211, 3, 7};
    QCOMPARE(along.length(), 200.0);
    const TickMapping mapping = tickMapping(ends(along, {below, above}), inverted);
    QCOMPARE(mapping.pixel(0.0), pixelOfLowEnd);
    QCOMPARE(mapping.pixel(1.0), pixelOfHighEnd);
    QCOMPARE(mapping.pixel(0.5), (pixelOfLowEnd + pixelOfHighEnd) / 2.0);
}

void TestAxisGeometry::laysOutAcross_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<int>("tickSize");
    QTest::addColumn<int>("subTickSize");
    QTest::addColumn<int>("editMargin");
    QTest::addColumn<int>("axisLabelPos");
    QTest::addColumn<int>("tickTextPos");
    QTest::addColumn<int>("axisLinePos");
    QTest::addColumn<int>("extent");
    QTest::newRow("top") << Qt::TopEdge << 10 << 5 << 0 << 2 << 34 << 62 << 63;
    QTest::newRow("left") << Qt::LeftEdge << 10 << 5 << 0 << 2 << 34 << 62 << 63;
    QTest::newRow("right") << Qt::RightEdge << 10 << 5 << 0 << 31 << 13 << 0 << 63;
    QTest::newRow("bottom") << Qt::BottomEdge << 10 << 5 << 0 << 31 << 13 << 0 << 63;
    QTest::newRow("top, long sub-ticks do not count") << Qt::TopEdge << 4 << 9 << 0 << 2 << 34 << 56 << 57;
    QTest::newRow("left, long sub-ticks do not count") << Qt::LeftEdge << 4 << 9 << 0 << 2 << 34 << 56 << 57;
    QTest::newRow("right, long sub-ticks count") << Qt::RightEdge << 4 << 9 << 0 << 30 << 12 << 0 << 62;
    QTest::newRow("bottom, long sub-ticks count") << Qt::BottomEdge << 4 << 9 << 0 << 30 << 12 << 0 << 62;
    QTest::newRow("top, with edit fields") << Qt::TopEdge << 10 << 5 << 3 << 2 << 40 << 68 << 69;
    QTest::newRow("left, with edit fields") << Qt::LeftEdge << 10 << 5 << 3 << 2 << 40 << 68 << 69;
    QTest::newRow("right, with edit fields") << Qt::RightEdge << 10 << 5 << 3 << 37 << 13 << 0 << 69;
    QTest::newRow("bottom, with edit fields") << Qt::BottomEdge << 10 << 5 << 3 << 37 << 13 << 0 << 69;
}

void TestAxisGeometry::laysOutAcross()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(int, tickSize);
    QFETCH(int, subTickSize);
    QFETCH(int, editMargin);
    const AcrossLayout layout = acrossLayout(edge, {16, 30, tickSize, subTickSize, editMargin});
    QTEST(layout.axisLabelPos, "axisLabelPos");
    QTEST(layout.tickTextPos, "tickTextPos");
    QTEST(layout.axisLinePos, "axisLinePos");
    QTEST(layout.extent, "extent");
}

void TestAxisGeometry::laysOutBottomAxisOfEqualFonts()
{
    const AcrossLayout layout = acrossLayout(Qt::BottomEdge, {16, 16, 10, 5, 0});
    QCOMPARE(layout.tickTextPos, 13);
    QCOMPARE(layout.axisLabelPos, 31);
    QCOMPARE(layout.extent, 49);
}

void TestAxisGeometry::absurdSizesStayWithinInt_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("extent");
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::newRow("top, largest") << Qt::TopEdge << most << LargestPixel;
    QTest::newRow("top, smallest") << Qt::TopEdge << least << 0;
    QTest::newRow("bottom, largest") << Qt::BottomEdge << most << LargestPixel;
    QTest::newRow("bottom, smallest") << Qt::BottomEdge << least << 0;
}

void TestAxisGeometry::absurdSizesStayWithinInt()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(int, size);
    QTEST(acrossLayout(edge, {LargestPixel, LargestPixel, size, size, size}).extent, "extent");
    const Along along{false, LargestPixel, size, size};
    const Ends line = ends(along, {1.0, 1.0});
    QVERIFY(qAbs(line.low) <= LargestPixel && qAbs(line.high) <= LargestPixel);
}

void TestAxisGeometry::minimumMargin_data()
{
    QTest::addColumn<int>("labelExtent");
    QTest::addColumn<int>("widgetExtent");
    QTest::addColumn<int>("expected");
    QTest::newRow("nothing") << 0 << 0 << 1;
    QTest::newRow("half of the label, rounded down") << 17 << 0 << 9;
    QTest::newRow("one hundredth of the widget, rounded down") << 0 << 299 << 3;
    QTest::newRow("both") << 16 << 300 << 12;
}

void TestAxisGeometry::minimumMargin()
{
    QFETCH(int, labelExtent);
    QFETCH(int, widgetExtent);
    QTEST(AxisGeometry::minimumMargin(labelExtent, widgetExtent), "expected");
}

void TestAxisGeometry::editMargin_data()
{
    QTest::addColumn<double>("textHeight");
    QTest::addColumn<int>("expected");
    QTest::newRow("at least 3") << 16.0 << 3;
    QTest::newRow("a tenth of the text, rounded down") << 49.0 << 4;
    QTest::newRow("no text") << 0.0 << 3;
}

void TestAxisGeometry::editMargin()
{
    QFETCH(double, textHeight);
    QTEST(AxisGeometry::editMargin(textHeight), "expected");
    QCOMPARE(editFieldSize(QSizeF(30.9, 16.9), 3), QSize(36, 22));
}

void TestAxisGeometry::placesEditFields_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("turned");
    QTest::addColumn<QPoint>("expected");
    // Text 31 x 17 at 40 pixels, frame of 3 pixels, tick at 100.9.
    QTest::newRow("top") << Qt::TopEdge << false << QPoint(82, 37);
    QTest::newRow("bottom") << Qt::BottomEdge << false << QPoint(82, 40);
    QTest::newRow("top, turned") << Qt::TopEdge << true << QPoint(89, 34);
    QTest::newRow("bottom, turned") << Qt::BottomEdge << true << QPoint(89, 40);
    QTest::newRow("left") << Qt::LeftEdge << false << QPoint(37, 89);
    QTest::newRow("right") << Qt::RightEdge << false << QPoint(40, 89);
}

void TestAxisGeometry::placesEditFields()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(bool, turned);
    QTEST(editFieldTopLeft({edge, turned, 40, QSize(31, 17), 3}, 100.9), "expected");
}

QTEST_APPLESS_MAIN(TestAxisGeometry)

#include "tst_axisgeometry.moc"
