#include "internal/plotgeometry_p.h"

#include "shared/quiettest.h"

#include <cmath>
#include <limits>

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
using Lines = QVector<QLineF>;
using Rects = QVector<QRectF>;
} // namespace

class TestPlotGeometry : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void lineIsExtended_data();
    void lineIsExtended();
    void boundingRectangleOfLines_data();
    void boundingRectangleOfLines();
    void boundingRectangleOfRects_data();
    void boundingRectangleOfRects();
    void nearestPoint_data();
    void nearestPoint();
    void nearestPointOfNoLineIsNotFinite();
    void middlesAndDiagonal();
    void diagonalHandleFollowsTheWidth();
    void ellipsePassesThroughThePoint_data();
    void ellipsePassesThroughThePoint();
};

void TestPlotGeometry::lineIsExtended_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<QLineF>("line");
    QTest::addColumn<QLineF>("extended");
    const QRectF square(0, 0, 10, 10);
    QTest::newRow("horizontal") << square << QLineF(3, 5, 4, 5) << QLineF(0, 5, 10, 5);
    QTest::newRow("horizontal, other way round") << square << QLineF(4, 5, 3, 5) << QLineF(0, 5, 10, 5);
    QTest::newRow("horizontal, nearer to the right") << square << QLineF(40, 7, 43, 7) << QLineF(0, 7, 10, 7);
    QTest::newRow("vertical") << square << QLineF(2, 1, 2, 3) << QLineF(2, 0, 2, 10);
    QTest::newRow("the nearest two of four")
        << square << QLineF(5, 5, 6, 6.5) << QLineF(5 - 10.0 / 3, 0, 5 + 10.0 / 3, 10);
    QTest::newRow("the nearer one first") << square << QLineF(0, 2, 10, 7) << QLineF(10, 7, 0, 2);
    QTest::newRow("outside of the canvas it stays outside")
        << square << QLineF(3, 20, 4, 20) << QLineF(0, 20, 10, 20);
    QTest::newRow("along the border") << square << QLineF(3, 0, 4, 0) << QLineF(0, 0, 10, 0);
    QTest::newRow("a point crosses nothing") << square << QLineF(3, 3, 3, 3) << QLineF();
    QTest::newRow("no canvas") << QRectF() << QLineF(3, 5, 4, 5) << QLineF();
    QTest::newRow("NaN") << square << QLineF(notANumber, 5, 4, 5) << QLineF();
    QTest::newRow("NaN canvas") << QRectF(notANumber, 0, 1, 1) << QLineF(3, 5, 4, 6) << QLineF();
    QTest::newRow("overflow") << QRectF(0, 0, 1e10, 1e10) << QLineF(-1e300, -2e299, 1e300, 1e300) << QLineF();
}

void TestPlotGeometry::lineIsExtended()
{
    QFETCH(QRectF, canvas);
    QFETCH(QLineF, line);
    QTEST(extendedToBorder(line, canvas), "extended");
    QFETCH(QLineF, extended);
    const Lines expected = isFinite(line) ? Lines{extended, extended} : Lines();
    QCOMPARE(extendedToBorder(Lines{line, line}, canvas), expected);
}

void TestPlotGeometry::boundingRectangleOfLines_data()
{
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<QRectF>("rect");
    QTest::newRow("none") << Lines() << QRectF();
    QTest::newRow("one, falling") << Lines{{4, 1, 2, 7}} << QRectF(2, 1, 2, 6);
    QTest::newRow("two") << Lines{{4, 1, 2, 7}, {-1, 0, 0, 0}} << QRectF(-1, 0, 5, 7);
    QTest::newRow("not around the origin") << Lines{{4, 5, 6, 7}} << QRectF(4, 5, 2, 2);
    QTest::newRow("NaN is left out") << Lines{{notANumber, 1, 2, 7}, {4, 5, 6, 7}} << QRectF(4, 5, 2, 2);
    QTest::newRow("only NaN") << Lines{{notANumber, 1, 2, 7}} << QRectF();
}

void TestPlotGeometry::boundingRectangleOfLines()
{
    QFETCH(Lines, lines);
    QTEST(boundingRectangle(lines), "rect");
}

void TestPlotGeometry::boundingRectangleOfRects_data()
{
    QTest::addColumn<Rects>("rects");
    QTest::addColumn<QRectF>("rect");
    QTest::newRow("none") << Rects() << QRectF();
    QTest::newRow("one") << Rects{{4, 5, 2, 3}} << QRectF(4, 5, 2, 3);
    QTest::newRow("two") << Rects{{4, 5, 2, 3}, {0, 0, 1, 1}} << QRectF(0, 0, 6, 8);
    QTest::newRow("inside out") << Rects{{4, 5, -2, -3}, {4, 5, 1, 1}} << QRectF(2, 2, 3, 4);
    QTest::newRow("an empty one adds nothing") << Rects{{4, 5, 2, 3}, {100, 100, 0, 0}} << QRectF(4, 5, 2, 3);
    QTest::newRow("NaN is left out") << Rects{{notANumber, 5, 2, 3}, {0, 0, 1, 1}} << QRectF(0, 0, 1, 1);
    QTest::newRow("infinity is left out") << Rects{{0, 0, infinity, 1}, {0, 0, 1, 1}} << QRectF(0, 0, 1, 1);
}

void TestPlotGeometry::boundingRectangleOfRects()
{
    QFETCH(Rects, rects);
    QTEST(boundingRectangle(rects), "rect");
}

void TestPlotGeometry::nearestPoint_data()
{
    QTest::addColumn<QLineF>("line");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QPointF>("onLine");
    QTest::addColumn<QPointF>("onSegment");
    QTest::newRow("beside") << QLineF(0, 0, 10, 0) << QPointF(3, 4) << QPointF(3, 0) << QPointF(3, 0);
    QTest::newRow("before") << QLineF(0, 0, 10, 0) << QPointF(-3, 4) << QPointF(-3, 0) << QPointF(0, 0);
    QTest::newRow("behind") << QLineF(0, 0, 10, 0) << QPointF(13, 4) << QPointF(13, 0) << QPointF(10, 0);
    QTest::newRow("diagonal") << QLineF(0, 0, 10, 10) << QPointF(4, 0) << QPointF(2, 2) << QPointF(2, 2);
    QTest::newRow("on it") << QLineF(0, 0, 10, 10) << QPointF(7, 7) << QPointF(7, 7) << QPointF(7, 7);
    QTest::newRow("very long") << QLineF(5, -1e300, 5, 1e300) << QPointF(4, 7) << QPointF(5, 7)
                               << QPointF(5, 7);
}

void TestPlotGeometry::nearestPoint()
{
    QFETCH(QLineF, line);
    QFETCH(QPointF, point);
    QTEST(nearestOnLine(line, point), "onLine");
    QTEST(nearestOnSegment(line, point), "onSegment");
}

void TestPlotGeometry::nearestPointOfNoLineIsNotFinite()
{
    QVERIFY(!isFinite(nearestOnLine(QLineF(3, 3, 3, 3), QPointF(3, 3))));
    QVERIFY(!isFinite(nearestOnLine(QLineF(notANumber, 3, 5, 3), QPointF(3, 3))));
    QCOMPARE(nearestOnSegment(QLineF(3, 3, 3, 3), QPointF(9, 9)), QPointF(3, 3));
}

void TestPlotGeometry::middlesAndDiagonal()
{
    const QRectF rect(2, 3, 4, 8);
    QCOMPARE(leftMiddle(rect), QPointF(2, 7));
    QCOMPARE(rightMiddle(rect), QPointF(6, 7));
    QCOMPARE(topMiddle(rect), QPointF(4, 3));
    QCOMPARE(bottomMiddle(rect), QPointF(4, 11));
}

void TestPlotGeometry::diagonalHandleFollowsTheWidth()
{
    const double half = std::sqrt(0.5);
    // Towards the smaller y, and at half the width also where the height differs.
    QCOMPARE(diagonalHandle(QRectF(-1, -1, 2, 2)), QPointF(half, -half));
    QCOMPARE(diagonalHandle(QRectF(-2, -5, 4, 10)), QPointF(2 * half, -2 * half));
}

void TestPlotGeometry::ellipsePassesThroughThePoint_data()
{
    QTest::addColumn<QRectF>("ellipse");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QRectF>("result");
    QTest::newRow("larger") << QRectF(-1, -1, 2, 2) << QPointF(3, 4) << QRectF(-5, -5, 10, 10);
    QTest::newRow("smaller") << QRectF(-10, -10, 20, 20) << QPointF(0, -1) << QRectF(-1, -1, 2, 2);
    QTest::newRow("proportions are kept")
        << QRectF(0, 0, 20, 10) << QPointF(10, 15) << QRectF(-10, -5, 40, 20);
    QTest::newRow("centre") << QRectF(0, 0, 20, 10) << QPointF(10, 5) << QRectF(0, 0, 20, 10);
    QTest::newRow("no width") << QRectF(0, 0, 0, 10) << QPointF(4, 5) << QRectF(0, 0, 0, 10);
    QTest::newRow("NaN") << QRectF(0, 0, 20, 10) << QPointF(notANumber, 5) << QRectF(0, 0, 20, 10);
}

void TestPlotGeometry::ellipsePassesThroughThePoint()
{
    QFETCH(QRectF, ellipse);
    QFETCH(QPointF, point);
    QTEST(ellipseThrough(point, ellipse), "result");
}

QTEST_APPLESS_MAIN(TestPlotGeometry)
#include "tst_plotgeometry.moc"
