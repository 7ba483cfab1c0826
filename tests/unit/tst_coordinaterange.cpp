#include "internal/coordinaterange_p.h"

#include "shared/quiettest.h"

#include <cmath>
#include <limits>

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
} // namespace

class TestCoordinateRange : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void valueIsLimited_data();
    void valueIsLimited();
    void edgesOfARectangleAreLimited_data();
    void edgesOfARectangleAreLimited();
    void extentIsUsable_data();
    void extentIsUsable();
};

void TestCoordinateRange::valueIsLimited_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("limited");
    QTest::newRow("below") << -1e308 << -1e300;
    QTest::newRow("lower end") << -1e300 << -1e300;
    QTest::newRow("minus infinity") << -infinity << -1e300;
    QTest::newRow("inside") << 12.5 << 12.5;
    QTest::newRow("upper end") << 1e300 << 1e300;
    QTest::newRow("above") << 1.1e300 << 1e300;
    QTest::newRow("infinity") << infinity << 1e300;
}

void TestCoordinateRange::valueIsLimited()
{
    QFETCH(double, value);
    QFETCH(double, limited);
    QVERIFY(clippedCoordinate(value) == limited);
    QVERIFY(std::isnan(clippedCoordinate(notANumber)));
}

void TestCoordinateRange::edgesOfARectangleAreLimited_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("right");
    QTest::addColumn<double>("bottom");
    QTest::newRow("ordinary") << QRectF(1, 2, 3, 4) << 1.0 << 2.0 << 4.0 << 6.0;
    QTest::newRow("negative size stays") << QRectF(4, 6, -3, -4) << 4.0 << 6.0 << 1.0 << 2.0;
    QTest::newRow("infinite width") << QRectF(0, 0, infinity, 1) << 0.0 << 0.0 << 1e300 << 1.0;
    QTest::newRow("far beyond") << QRectF(-1e308, -1e308, 1.5e308, 1e308) << -1e300 << -1e300 << 1e300 << 0.0;
    QTest::newRow("at minus infinity") << QRectF(-infinity, 0, 10, 10) << -1e300 << 0.0 << -1e300 << 10.0;
}

void TestCoordinateRange::edgesOfARectangleAreLimited()
{
    QFETCH(QRectF, rect);
    const QRectF clipped = clippedRect(rect);
    QTEST(clipped.left(), "left");
    QTEST(clipped.top(), "top");
    QTEST(clipped.right(), "right");
    QTEST(clipped.bottom(), "bottom");
}

void TestCoordinateRange::extentIsUsable_data()
{
    using Points = QVector<QPointF>;
    QTest::addColumn<Points>("points");
    QTest::addColumn<QRectF>("extent");
    QTest::newRow("no points") << Points() << QRectF();
    QTest::newRow("one point") << Points{{3, 4}} << QRectF(3, 4, 0, 0);
    QTest::newRow("ordinary") << Points{{3, 4}, {-1, 9}, {0, 0}} << QRectF(-1, 0, 4, 9);
    QTest::newRow("beyond the supported range is left to clipping")
        << Points{{0, 1e305}, {1, 0}} << QRectF(0, 0, 1, 1e305);
    QTest::newRow("NaN first") << Points{{notANumber, notANumber}, {1, 2}, {3, 5}} << QRectF(1, 2, 2, 3);
    QTest::newRow("x NaN first, its y counts")
        << Points{{notANumber, -7}, {1, 2}, {3, 5}} << QRectF(1, -7, 2, 12);
    QTest::newRow("NaN later") << Points{{1, 2}, {notANumber, notANumber}, {3, 5}} << QRectF(1, 2, 2, 3);
    QTest::newRow("minus infinity") << Points{{-infinity, 2}, {3, 5}} << QRectF(-1e300, 2, 1e300, 3);
    QTest::newRow("both infinities") << Points{{1, -infinity}, {3, infinity}} << QRectF(1, -1e300, 2, 2e300);
    QTest::newRow("only infinity") << Points{{1, infinity}, {3, infinity}} << QRectF(1, 1e300, 2, 0);
    QTest::newRow("only NaN") << Points{{notANumber, notANumber}} << QRectF();
    QTest::newRow("no number in x") << Points{{notANumber, 1}, {notANumber, 2}} << QRectF();
}

void TestCoordinateRange::extentIsUsable()
{
    QFETCH(QVector<QPointF>, points);
    QTEST(boundingRectOfPoints(points), "extent");
}

QTEST_APPLESS_MAIN(TestCoordinateRange)
#include "tst_coordinaterange.moc"
