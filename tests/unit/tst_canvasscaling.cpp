#include "internal/canvasscaling_p.h"

#include "shared/quiettest.h"

#include <cmath>
#include <limits>
#include <random>

using namespace CanvasScaling;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool close(double value, double expected, double scale)
{
    return std::abs(value - expected) <= 1e-12 * scale;
}

} // namespace

Q_DECLARE_METATYPE(CanvasScaling::Direction)
Q_DECLARE_METATYPE(CanvasScaling::AspectAnchor)

class TestCanvasScaling : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void extentIsReadAndWritten();
    void writingAnExtentRecoversFromNotANumber();
    void fittedLeavesMargins_data();
    void fittedLeavesMargins();
    void fittedDataFillsTheRest();
    void centredMovesOnly_data();
    void centredMovesOnly();
    void atHeadFollowsTheEnd_data();
    void atHeadFollowsTheEnd();
    void edgesAreNear_data();
    void edgesAreNear();
    void aspectRatioIsAdjusted_data();
    void aspectRatioIsAdjusted();
    void aspectRatioIsThatOfThePlotArea();
    void everyAnchorInBothDirections();
    void degenerateInputPasses();
};

void TestCanvasScaling::extentIsReadAndWritten()
{
    const QRectF rect(1, 20, 3, 40);
    QCOMPARE(extentOf(rect, Direction::X).low, 1.0);
    QCOMPARE(extentOf(rect, Direction::X).high, 4.0);
    QCOMPARE(extentOf(rect, Direction::Y).low, 20.0);
    QCOMPARE(extentOf(rect, Direction::Y).high, 60.0);
    QCOMPARE(sizeOf(rect, Direction::X), 3.0);
    QCOMPARE(sizeOf(rect, Direction::Y), 40.0);
    QCOMPARE(withExtent(rect, Direction::X, {-5, 5}), QRectF(-5, 20, 10, 40));
    QCOMPARE(withExtent(rect, Direction::Y, {-5, 5}), QRectF(1, -5, 3, 10));
    QCOMPARE(movedTo(rect, Direction::X, 7), QRectF(7, 20, 3, 40));
    QCOMPARE(movedTo(rect, Direction::Y, 7), QRectF(1, 7, 3, 40));
}

void TestCanvasScaling::writingAnExtentRecoversFromNotANumber()
{
    const QRectF broken(notANumber, notANumber, notANumber, notANumber);
    const QRectF half = withExtent(broken, Direction::X, {0, 10});
    QCOMPARE(half.left(), 0.0);
    QCOMPARE(half.right(), 10.0);
    const QRectF whole = withExtent(half, Direction::Y, {2, 3});
    QCOMPARE(whole, QRectF(0, 2, 10, 1));
}

void TestCanvasScaling::fittedLeavesMargins_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("marginLow");
    QTest::addColumn<double>("marginHigh");
    QTest::addColumn<double>("canvasLow");
    QTest::addColumn<double>("canvasHigh");

    QTest::newRow("two percent on both sides of 0 to 100")
        << 0.0 << 100.0 << 0.02 << 0.02 << -100.0 / 48.0 << 100.0 + 100.0 / 48.0;
    QTest::newRow("no margins give the data") << -3.0 << 9.0 << 0.0 << 0.0 << -3.0 << 9.0;
    QTest::newRow("space is shared in the ratio of the margins")
        << 0.0 << 60.0 << 0.1 << 0.3 << -10.0 << 90.0;
    QTest::newRow("a low margin alone") << 10.0 << 90.0 << 0.2 << 0.0 << -10.0 << 90.0;
    QTest::newRow("a high margin alone") << 10.0 << 90.0 << 0.0 << 0.2 << 10.0 << 110.0;
    QTest::newRow("margins that fill the whole canvas leave the data")
        << 0.0 << 100.0 << 0.5 << 0.5 << 0.0 << 100.0;
    QTest::newRow("margins that cancel each other leave the data")
        << 0.0 << 100.0 << 0.25 << -0.25 << 0.0 << 100.0;
    QTest::newRow("margins above the whole canvas turn it round")
        << 0.0 << 100.0 << 0.75 << 0.75 << 150.0 << -50.0;
    QTest::newRow("negative margins cut") << 0.0 << 120.0 << -0.1 << -0.1 << 10.0 << 110.0;
    QTest::newRow("a single value stays a single value") << 5.0 << 5.0 << 0.02 << 0.02 << 5.0 << 5.0;
    QTest::newRow("data far from zero") << 1e9 << 1e9 + 96 << 0.02 << 0.02 << 1e9 - 2 << 1e9 + 98;
}

void TestCanvasScaling::fittedLeavesMargins()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, marginLow);
    QFETCH(double, marginHigh);
    const Extent canvas = fitted({low, high}, marginLow, marginHigh);
    QTEST(canvas.low, "canvasLow");
    QTEST(canvas.high, "canvasHigh");
}

void TestCanvasScaling::fittedDataFillsTheRest()
{
    std::mt19937 random(20240611);
    std::uniform_real_distribution<double> position(-1e6, 1e6);
    std::uniform_real_distribution<double> size(1e-3, 1e6);
    std::uniform_real_distribution<double> margin(0.0, 0.45);
    for (int i = 0; i < 2000; ++i) {
        const double low = position(random);
        const Extent data{low, low + size(random)};
        const double marginLow = margin(random);
        const double marginHigh = margin(random);
        const Extent canvas = fitted(data, marginLow, marginHigh);
        const double scale = 10.0 * (std::abs(data.low) + std::abs(data.high));
        QVERIFY(close(data.low - canvas.low, marginLow * canvas.size(), scale));
        QVERIFY(close(canvas.high - data.high, marginHigh * canvas.size(), scale));
    }
}

void TestCanvasScaling::centredMovesOnly_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<QRectF>("data");
    QTest::addColumn<QRectF>("result");
    QTest::newRow("x, wider data") << Direction::X << QRectF(0, 0, 100, 1) << QRectF(45, 5, 10, 20);
    QTest::newRow("x, narrower data") << Direction::X << QRectF(2, 0, 1, 1) << QRectF(-2.5, 5, 10, 20);
    QTest::newRow("y") << Direction::Y << QRectF(0, 40, 1, 2) << QRectF(1, 31, 10, 20);
    QTest::newRow("data without size") << Direction::Y << QRectF(0, 40, 0, 0) << QRectF(1, 30, 10, 20);
}

void TestCanvasScaling::centredMovesOnly()
{
    QFETCH(Direction, direction);
    QFETCH(QRectF, data);
    QTEST(centred(QRectF(1, 5, 10, 20), direction, data), "result");
}

void TestCanvasScaling::atHeadFollowsTheEnd_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<QRectF>("data");
    QTest::addColumn<QRectF>("result");
    QTest::newRow("x, more data than the canvas shows: its end")
        << Direction::X << QRectF(0, 0, 100, 1) << QRectF(90, 5, 10, 20);
    QTest::newRow("x, less data than the canvas shows: its start")
        << Direction::X << QRectF(3, 0, 4, 1) << QRectF(3, 5, 10, 20);
    QTest::newRow("x, as much data as the canvas shows")
        << Direction::X << QRectF(3, 0, 10, 1) << QRectF(3, 5, 10, 20);
    QTest::newRow("y, more data") << Direction::Y << QRectF(0, 0, 1, 50) << QRectF(1, 30, 10, 20);
    QTest::newRow("y, less data") << Direction::Y << QRectF(0, -7, 1, 5) << QRectF(1, -7, 10, 20);
}

void TestCanvasScaling::atHeadFollowsTheEnd()
{
    QFETCH(Direction, direction);
    QFETCH(QRectF, data);
    QTEST(atHead(QRectF(1, 5, 10, 20), direction, data), "result");
}

void TestCanvasScaling::edgesAreNear_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("canvasLow");
    QTest::addColumn<double>("canvasHigh");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<bool>("areNear");
    // 200 pixels for 100 units: 10 pixels are 5 units.
    QTest::newRow("the same edges") << 0.0 << 100.0 << 0.0 << 100.0 << 200 << true;
    QTest::newRow("both just at 10 pixels, outwards") << -5.0 << 105.0 << 0.0 << 100.0 << 200 << true;
    QTest::newRow("both just at 10 pixels, inwards") << 5.0 << 95.0 << 0.0 << 100.0 << 200 << true;
    QTest::newRow("the low edge beyond 10 pixels") << -5.1 << 100.0 << 0.0 << 100.0 << 200 << false;
    QTest::newRow("the low edge beyond 10 pixels, inwards") << 5.1 << 100.0 << 0.0 << 100.0 << 200 << false;
    QTest::newRow("the high edge beyond 10 pixels") << 0.0 << 105.1 << 0.0 << 100.0 << 200 << false;
    QTest::newRow("twice as many pixels") << -5.0 << 100.0 << 0.0 << 100.0 << 400 << false;
    QTest::newRow("no plot area: always near") << -500.0 << 7.0 << 0.0 << 100.0 << 0 << true;
    QTest::newRow("a canvas of size 0 is never near") << 0.0 << 0.0 << 0.0 << 0.0 << 200 << false;
    QTest::newRow("not a number") << notANumber << 100.0 << 0.0 << 100.0 << 200 << false;
    QTest::newRow("canvas not a number") << 0.0 << 100.0 << 0.0 << notANumber << 200 << false;
    QTest::newRow("infinite data") << 0.0 << infinity << 0.0 << 100.0 << 200 << false;
}

void TestCanvasScaling::edgesAreNear()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, canvasLow);
    QFETCH(double, canvasHigh);
    QFETCH(int, pixels);
    QTEST(edgesNear({low, high}, {canvasLow, canvasHigh}, pixels), "areNear");
}

void TestCanvasScaling::aspectRatioIsAdjusted_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<QSizeF>("plotSize");
    QTest::addColumn<AspectAnchor>("anchorX");
    QTest::addColumn<AspectAnchor>("anchorY");
    QTest::addColumn<QRectF>("adjusted");

    const QRectF square(0, 0, 10, 10);
    const QSizeF wide(400, 200);
    const QSizeF tall(200, 400);
    QTest::newRow("wide plot area, centred")
        << square << wide << AspectAnchor::Centre << AspectAnchor::Centre << QRectF(-5, 0, 20, 10);
    QTest::newRow("tall plot area, centred")
        << square << tall << AspectAnchor::Centre << AspectAnchor::Centre << QRectF(0, -5, 10, 20);
    QTest::newRow("wide plot area, low edge stays")
        << square << wide << AspectAnchor::Start << AspectAnchor::Start << QRectF(0, 0, 20, 10);
    QTest::newRow("tall plot area, low edge stays")
        << square << tall << AspectAnchor::Start << AspectAnchor::Start << QRectF(0, 0, 10, 20);
    QTest::newRow("wide plot area, x keeps both edges")
        << square << wide << AspectAnchor::End << AspectAnchor::Centre << QRectF(0, 0, 10, 10);
    QTest::newRow("tall plot area, y keeps both edges")
        << square << tall << AspectAnchor::Centre << AspectAnchor::End << QRectF(0, 0, 10, 10);
    QTest::newRow("the anchor of the other direction does not matter")
        << square << wide << AspectAnchor::Centre << AspectAnchor::End << QRectF(-5, 0, 20, 10);
    QTest::newRow("the same ratio stays") << QRectF(1, 2, 20, 10) << wide << AspectAnchor::Centre
                                          << AspectAnchor::Centre << QRectF(1, 2, 20, 10);
    QTest::newRow("the same ratio to 12 digits stays")
        << QRectF(1, 2, 20.000000000001, 10) << wide << AspectAnchor::Centre << AspectAnchor::Centre
        << QRectF(1, 2, 20.000000000001, 10);
    QTest::newRow("a plot area without height counts as square")
        << QRectF(0, 0, 10, 30) << QSizeF(400, 0) << AspectAnchor::Start << AspectAnchor::Start
        << QRectF(0, 0, 30, 30);
    QTest::newRow("a plot area without width counts as square")
        << QRectF(0, 0, 30, 10) << QSizeF(0, 400) << AspectAnchor::Start << AspectAnchor::Start
        << QRectF(0, 0, 30, 30);
    QTest::newRow("a plot area that is not a number counts as square")
        << QRectF(0, 0, 30, 10) << QSizeF(notANumber, 400) << AspectAnchor::Start << AspectAnchor::Start
        << QRectF(0, 0, 30, 30);
    QTest::newRow("a canvas without width stays")
        << QRectF(1, 2, 0, 10) << wide << AspectAnchor::Centre << AspectAnchor::Centre << QRectF(1, 2, 0, 10);
    QTest::newRow("a canvas without height stays")
        << QRectF(1, 2, 10, 0) << wide << AspectAnchor::Centre << AspectAnchor::Centre << QRectF(1, 2, 10, 0);
    QTest::newRow("a canvas of negative width stays") << QRectF(1, 2, -5, 10) << wide << AspectAnchor::Centre
                                                      << AspectAnchor::Centre << QRectF(1, 2, -5, 10);
}

void TestCanvasScaling::aspectRatioIsAdjusted()
{
    QFETCH(QRectF, canvas);
    QFETCH(QSizeF, plotSize);
    QFETCH(AspectAnchor, anchorX);
    QFETCH(AspectAnchor, anchorY);
    QFETCH(QRectF, adjusted);
    const QRectF result = withAspectRatio(canvas, plotSize, anchorX, anchorY);
    // Exactly: the comparison of QRectF is fuzzy.
    QVERIFY(result.x() == adjusted.x());
    QVERIFY(result.y() == adjusted.y());
    QVERIFY(result.width() == adjusted.width());
    QVERIFY(result.height() == adjusted.height());
}

void TestCanvasScaling::aspectRatioIsThatOfThePlotArea()
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> position(-1e3, 1e3);
    std::uniform_real_distribution<double> size(1e-3, 1e3);
    for (int i = 0; i < 2000; ++i) {
        const QRectF canvas(position(random), position(random), size(random), size(random));
        const QSizeF plotSize(size(random), size(random));
        const QRectF adjusted = withAspectRatio(canvas, plotSize, AspectAnchor::Centre, AspectAnchor::Centre);
        QVERIFY(close(adjusted.width() * plotSize.height(), adjusted.height() * plotSize.width(),
                      adjusted.width() * plotSize.height()));
        // It only grows, in one direction, around the centre.
        QVERIFY(adjusted.width() == canvas.width() || adjusted.height() == canvas.height());
        QVERIFY(adjusted.width() >= canvas.width() && adjusted.height() >= canvas.height());
        const double scale = 2e3 + adjusted.width() + adjusted.height();
        QVERIFY(close(adjusted.center().x(), canvas.center().x(), scale));
        QVERIFY(close(adjusted.center().y(), canvas.center().y(), scale));
    }
}

void TestCanvasScaling::everyAnchorInBothDirections()
{
    for (AspectAnchor anchorX : {AspectAnchor::Start, AspectAnchor::Centre, AspectAnchor::End}) {
        for (AspectAnchor anchorY : {AspectAnchor::Start, AspectAnchor::Centre, AspectAnchor::End}) {
            const QRectF wider = withAspectRatio(QRectF(10, 20, 6, 6), QSizeF(300, 100), anchorX, anchorY);
            QCOMPARE(wider.y(), 20.0);
            QCOMPARE(wider.height(), 6.0);
            QCOMPARE(wider.x(), anchorX == AspectAnchor::Centre ? 4.0 : 10.0);
            QCOMPARE(wider.width(), anchorX == AspectAnchor::End ? 6.0 : 18.0);
            const QRectF taller = withAspectRatio(QRectF(10, 20, 6, 6), QSizeF(100, 300), anchorX, anchorY);
            QCOMPARE(taller.x(), 10.0);
            QCOMPARE(taller.width(), 6.0);
            QCOMPARE(taller.y(), anchorY == AspectAnchor::Centre ? 14.0 : 20.0);
            QCOMPARE(taller.height(), anchorY == AspectAnchor::End ? 6.0 : 18.0);
        }
    }
}

void TestCanvasScaling::degenerateInputPasses()
{
    const double values[] = {0.0, -1.0, 1e300, -1e300, infinity, -infinity, notANumber, 5e-324};
    for (double a : values) {
        for (double b : values) {
            const Extent extent = fitted({a, b}, 0.02, 0.02);
            if (std::isnan(a) || std::isnan(b))
                QVERIFY(std::isnan(extent.low) && std::isnan(extent.high));
            const QRectF rect(a, b, b, a);
            for (Direction direction : {Direction::X, Direction::Y}) {
                // Neither moves nor resizes the other direction.
                const QRectF canvas(1, 2, 3, 4);
                for (const QRectF &moved :
                     {centred(canvas, direction, rect), atHead(canvas, direction, rect)}) {
                    QVERIFY(moved.size() == canvas.size());
                    if (direction == Direction::X)
                        QCOMPARE(moved.y(), 2.0);
                    else
                        QCOMPARE(moved.x(), 1.0);
                }
            }
            const QRectF adjusted
                = withAspectRatio(rect, QSizeF(100, 100), AspectAnchor::Centre, AspectAnchor::Centre);
            if (!rect.isValid())
                QVERIFY(adjusted.width() == rect.width() || std::isnan(rect.width()));
        }
    }
}

QTEST_APPLESS_MAIN(TestCanvasScaling)
#include "tst_canvasscaling.moc"
