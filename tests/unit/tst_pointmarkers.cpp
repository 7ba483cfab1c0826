#include "internal/pointmarkers_p.h"

#include "shared/quiettest.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <climits>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The smallest rectangle around all pixels that are not white.
QRect ink(const QImage &image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

/// One pixel to the unit, y downwards, canvas (0, 0, 60 x 40).
MarkerStyle markers(MarkerShape shape, int size)
{
    return {shape, size, Qt::red, QTransform(), QRectF(0, 0, 60, 40)};
}

QImage picture(const QVector<QPointF> &points, const MarkerStyle &style, int penWidth = 1)
{
    QImage image(80, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    QPen pen(Qt::blue, penWidth, Qt::DashLine);
    pen.setCosmetic(true);
    painter.setPen(pen);
    drawPointMarkers(painter, points, style);
    return image;
}

} // namespace

Q_DECLARE_METATYPE(MarkerShape)

class TestPointMarkers : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void extentOfTheShape_data();
    void extentOfTheShape();
    void filledShapesAreFilledWithoutOutline();
    void circleIsInscribedInItsSquare();
    void crossesAreSolidAndHaveTheWidthOfThePen_data();
    void crossesAreSolidAndHaveTheWidthOfThePen();
    void onlyFilledMarkersStayOnTheCanvas_data();
    void onlyFilledMarkersStayOnTheCanvas();
    void centerIsTruncated();
    void sizeDoesNotFollowThePainter();
    void painterIsLeftAsItWas();
    void oddInputDrawsNothing_data();
    void oddInputDrawsNothing();
};

void TestPointMarkers::extentOfTheShape_data()
{
    QTest::addColumn<MarkerShape>("shape");
    QTest::addColumn<QRect>("box");
    QTest::newRow("none draws nothing") << MarkerShape::None << QRect();
    QTest::newRow("a rectangle is its size across") << MarkerShape::Rectangle << QRect(18, 13, 5, 5);
    QTest::newRow("a cross reaches its size to each side") << MarkerShape::Cross << QRect(15, 10, 11, 11);
    QTest::newRow("an X reaches its size to each side")
        << MarkerShape::DiagonalCross << QRect(15, 10, 11, 11);
    QTest::newRow("an unknown shape draws nothing") << static_cast<MarkerShape>(7) << QRect();
}

void TestPointMarkers::extentOfTheShape()
{
    QFETCH(MarkerShape, shape);
    QTEST(ink(picture({{20, 15}}, markers(shape, 5))), "box");
}

void TestPointMarkers::filledShapesAreFilledWithoutOutline()
{
    const QImage image = picture({{20, 15}}, markers(MarkerShape::Rectangle, 5), 3);
    for (int y = 13; y < 18; ++y) {
        for (int x = 18; x < 23; ++x)
            QCOMPARE(image.pixelColor(x, y), QColor(Qt::red));
    }
}

void TestPointMarkers::circleIsInscribedInItsSquare()
{
    const QImage image = picture({{20, 15}}, markers(MarkerShape::Circle, 11));
    const QRect square(15, 10, 11, 11);
    const QRect box = ink(image);
    // Where exactly an outline without smoothing ends is up to the rasterizer.
    QVERIFY(square.contains(box) && box.width() >= 10 && box.height() >= 10);
    QCOMPARE(image.pixelColor(20, 15), QColor(Qt::red));
    QCOMPARE(image.pixelColor(15, 10), QColor(Qt::white));
    QCOMPARE(image.pixelColor(25, 20), QColor(Qt::white));
}

void TestPointMarkers::crossesAreSolidAndHaveTheWidthOfThePen_data()
{
    QTest::addColumn<int>("penWidth");
    QTest::newRow("thin") << 1;
    QTest::newRow("wide") << 3;
}

void TestPointMarkers::crossesAreSolidAndHaveTheWidthOfThePen()
{
    QFETCH(int, penWidth);
    const QImage image = picture({{30, 20}}, markers(MarkerShape::Cross, 15), penWidth);
    int thickness = 0;
    for (int y = 0; y < image.height(); ++y)
        thickness += image.pixelColor(38, y) == QColor(Qt::red) ? 1 : 0;
    QCOMPARE(thickness, penWidth);
    for (int x = 16; x < 44; ++x)
        QCOMPARE(image.pixelColor(x, 20), QColor(Qt::red));
}

void TestPointMarkers::onlyFilledMarkersStayOnTheCanvas_data()
{
    QTest::addColumn<MarkerShape>("shape");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("rectangle") << MarkerShape::Rectangle << false;
    QTest::newRow("circle") << MarkerShape::Circle << false;
    QTest::newRow("cross") << MarkerShape::Cross << true;
    QTest::newRow("X") << MarkerShape::DiagonalCross << true;
}

void TestPointMarkers::onlyFilledMarkersStayOnTheCanvas()
{
    QFETCH(MarkerShape, shape);
    QFETCH(bool, drawn);
    QCOMPARE(!ink(picture({{61, 15}}, markers(shape, 5))).isNull(), drawn);
    QVERIFY(!ink(picture({{60, 15}}, markers(shape, 5))).isNull());
}

void TestPointMarkers::centerIsTruncated()
{
    const QImage whole = picture({{20, 15}}, markers(MarkerShape::Rectangle, 5));
    QCOMPARE(picture({{20.9, 15.9}}, markers(MarkerShape::Rectangle, 5)), whole);
}

void TestPointMarkers::sizeDoesNotFollowThePainter()
{
    QImage image(80, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setWorldTransform(QTransform(10, 0, 0, 0, -10, 0, 7, 8, 1));
    MarkerStyle style = markers(MarkerShape::Rectangle, 5);
    style.toPixel = QTransform::fromScale(2, 3);
    drawPointMarkers(painter, {{10, 5}}, style);
    painter.end();
    QCOMPARE(ink(image), QRect(18, 13, 5, 5));
}

void TestPointMarkers::painterIsLeftAsItWas()
{
    for (int shape = 0; shape <= 4; ++shape) {
        QImage image(80, 60, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        const QPen pen(Qt::blue, 3, Qt::DotLine);
        const QBrush brush(Qt::green, Qt::Dense4Pattern);
        const QTransform transform(2, 0, 0, 0, 3, 0, 4, 5, 1);
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.setWorldTransform(transform);
        drawPointMarkers(painter, {{10, 5}}, markers(static_cast<MarkerShape>(shape), 5));
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
        QCOMPARE(painter.worldTransform(), transform);
    }
}

void TestPointMarkers::oddInputDrawsNothing_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QTransform>("toPixel");
    QTest::addColumn<int>("size");
    QTest::newRow("NaN") << QPointF(notANumber, notANumber) << QTransform() << 5;
    QTest::newRow("NaN in y") << QPointF(20, notANumber) << QTransform() << 5;
    QTest::newRow("far away") << QPointF(1e300, -1e300) << QTransform() << 5;
    QTest::newRow("infinite transform")
        << QPointF(20, 15) << QTransform(infinity, 0, 0, infinity, notANumber, notANumber) << 5;
    QTest::newRow("far mapped") << QPointF(20, 15) << QTransform::fromScale(1e300, 1e300) << 5;
    QTest::newRow("far mapped and as large as can be")
        << QPointF(20, 15) << QTransform::fromScale(1e300, 1e300) << INT_MAX;
}

void TestPointMarkers::oddInputDrawsNothing()
{
    QFETCH(QPointF, point);
    QFETCH(QTransform, toPixel);
    QFETCH(int, size);
    for (int shape = 1; shape <= 4; ++shape) {
        MarkerStyle style = markers(static_cast<MarkerShape>(shape), size);
        style.toPixel = toPixel;
        for (const int penWidth : {1, 5})
            QCOMPARE(ink(picture({point}, style, penWidth)), QRect());
    }
}

QTEST_MAIN(TestPointMarkers)
#include "tst_pointmarkers.moc"
