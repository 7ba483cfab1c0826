#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel_p.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"
#include "shared/quiettest.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;
using Lines = QVector<QLineF>;
using Rects = QVector<QRectF>;

const QColor white(Qt::white);
const QColor red(Qt::red);
const QColor green(Qt::green);

/// 128 x 128 pixels, eight to the unit: (x, y) is at pixel (8 x, 128 - 8 y). Handles are one unit wide, and
/// no coordinate is rounded.
class TestChannel : public ZrQtPlotChannel
{
    Q_OBJECT

public:
    TestChannel()
    {
        resize(128, 128);
        setCanvas(QRectF(0, 0, 16, 16));
        setLineColor(Qt::red);
    }

    ZrQtPlotChannelPrivate &state() { return static_cast<ZrQtPlotChannelPrivate &>(*m_d); }
};

QImage picture(ZrQtPlotChannel &channel)
{
    QImage image(channel.size().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    channel.paint(painter);
    painter.end();
    return image;
}

QPoint pixelOf(const QPointF &data)
{
    return QPoint(qRound(data.x() * 8), qRound(128 - data.y() * 8));
}

QColor colorAt(const QImage &image, double x, double y)
{
    return image.pixelColor(pixelOf(QPointF(x, y)));
}

bool isEmpty(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != white)
                return false;
        }
    }
    return true;
}

/// Whether the outline of a handle square, 9 pixels from edge to edge, is there in full.
bool hasHandle(const QImage &image, const QPoint &center)
{
    for (int i = -4; i <= 4; ++i) {
        for (const QPoint &offset : {QPoint(i, -4), QPoint(i, 4), QPoint(-4, i), QPoint(4, i)}) {
            if (image.pixelColor(center + offset) != red)
                return false;
        }
    }
    return true;
}

bool hasHandle(const QImage &image, const QPointF &data)
{
    return hasHandle(image, pixelOf(data));
}

/// The same for a place between pixels.
bool hasHandleAround(const QImage &image, const QPointF &data)
{
    for (const QPoint &offset : {QPoint(0, 0), QPoint(-1, 0), QPoint(0, -1), QPoint(-1, -1)}) {
        if (hasHandle(image, pixelOf(data) + offset))
            return true;
    }
    return false;
}

/// Whether a cross as wide as a handle is there, and ends there.
bool hasCross(const QImage &image, const QPointF &data)
{
    const QPoint center = pixelOf(data);
    for (int i = -4; i <= 4; ++i) {
        if (image.pixelColor(center + QPoint(i, 0)) != red || image.pixelColor(center + QPoint(0, i)) != red)
            return false;
    }
    for (const QPoint &beyond : {QPoint(6, 0), QPoint(-6, 0), QPoint(0, 6), QPoint(0, -6)}) {
        if (image.pixelColor(center + beyond) == red)
            return false;
    }
    return true;
}

class SquareFeature : public ZrQtPlotFeature
{
public:
    void paint(QPainter &painter, QSizeF) override { painter.fillRect(QRectF(4, 4, 2, 2), Qt::blue); }
    void translate(QPointF) override { }
    QRectF boundingRectangle() override { return QRectF(4, 4, 2, 2); }
};

using Set = std::function<void(ZrQtPlotChannel &)>;

} // namespace

Q_DECLARE_METATYPE(Set)

class TestPlotChannelPainting : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void hiddenChannelDrawsNothing();
    void painterIsLeftAsItWas();
    void penAndBrush();
    void penKeepsTheCapOfThePainter();
    void transparentFillKeepsTheBrushOfThePainter();
    void lineStyleAndAntialiasing();
    void pointsAreClosed_data();
    void pointsAreClosed();
    void polygonIsFilledOddEven();
    void markersAreDrawn();
    void rectanglesAndCirclesAreDrawn();
    void linesReachTheBorder();
    void paintingRecomputesTheExtentOfLines();
    void orderOfContent();
    void handles_data();
    void handles();
    void moveCrossOfItems_data();
    void moveCrossOfItems();
    void diagonalHandles_data();
    void diagonalHandles();
    void handlesAreSolidAndUnfilled();
    void crossesFollowThePenStyle();
    void crossesOfTypesFollowTheFirstPaint_data();
    void crossesOfTypesFollowTheFirstPaint();
    void crossNeedsAValidExtent();
    void featureHasNoCrossOfItsOwn();
    void crossOfTheWholeContent_data();
    void crossOfTheWholeContent();
    void nothingIsDrawnWithoutCanvas_data();
    void nothingIsDrawnWithoutCanvas();
    void contentThatIsNotFiniteIsNotDrawn();
    void oddContentDrawsWithoutTrouble_data();
    void oddContentDrawsWithoutTrouble();
    void manyItemsArePainted();
};

void TestPlotChannelPainting::initTestCase()
{
    // The first paint in this process decides which types ever show a cross: not points and circles.
    TestChannel channel;
    channel.setPointsMovable(false);
    channel.setCirclesMovable(false);
    picture(channel);
}

void TestPlotChannelPainting::hiddenChannelDrawsNothing()
{
    TestChannel channel;
    channel.setRectangle({2, 2, 5, 5});
    QVERIFY(!isEmpty(picture(channel)));
    channel.hide();
    QVERIFY(isEmpty(picture(channel)));
}

void TestPlotChannelPainting::painterIsLeftAsItWas()
{
    TestChannel channel;
    SquareFeature feature;
    channel.setCustomFeature(&feature);
    channel.setEditable(true);
    channel.setMovable(true);
    channel.setFillColor(Qt::green);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
    channel.setPoints({{1, 1}, {2, 2}});
    channel.setRectangle({2, 2, 5, 5});
    channel.setCircle({2, 2, 5, 5});
    channel.setLine({1, 1, 2, 2});
    channel.setLineSegment({1, 1, 2, 2});
    QImage image(128, 128, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QPen pen(Qt::blue, 5, Qt::DashDotLine);
    const QBrush brush(Qt::cyan, Qt::Dense4Pattern);
    const QTransform transform = QTransform::fromTranslate(3, 4);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.setWorldTransform(transform);
    painter.setRenderHint(QPainter::Antialiasing);
    channel.paint(painter);
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.brush(), brush);
    QCOMPARE(painter.worldTransform(), transform);
    QVERIFY(painter.testRenderHint(QPainter::Antialiasing));
    painter.end();
    // The transform of the painter was combined with that of the channel: moved by (3, 4) pixels.
    QCOMPARE(image.pixelColor(pixelOf({5, 5}) + QPoint(3, 4)), QColor(Qt::blue));
}

void TestPlotChannelPainting::penAndBrush()
{
    TestChannel channel;
    channel.setLineWidth(3);
    channel.setFillColor(Qt::green);
    channel.setFillStyle(Qt::Dense6Pattern); // not used
    channel.setRectangle({2, 2, 5, 5});
    const QImage image = picture(channel);
    for (int y = 75; y < 110; ++y)
        QCOMPARE(image.pixelColor(40, y), green);
    // Three pixels wide, also in a stretched canvas.
    QCOMPARE(image.pixelColor(14, 90), white);
    for (int x = 15; x <= 17; ++x)
        QCOMPARE(image.pixelColor(x, 90), red);
    QCOMPARE(image.pixelColor(18, 90), green);
    channel.setCanvas(QRectF(0, 0, 16000, 16));
    channel.setRectangle({2000, 2, 5000, 5});
    const QImage stretched = picture(channel);
    QCOMPARE(stretched.pixelColor(14, 90), white);
    for (int x = 15; x <= 17; ++x)
        QCOMPARE(stretched.pixelColor(x, 90), red);
}

void TestPlotChannelPainting::penKeepsTheCapOfThePainter()
{
    TestChannel channel;
    channel.setLineWidth(9);
    channel.setLineSegment({5, 8, 11, 8});
    const auto colorBeyondTheEnd = [&channel](Qt::PenCapStyle cap) {
        QImage image(128, 128, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        QPen pen;
        pen.setCapStyle(cap);
        painter.setPen(pen);
        channel.paint(painter);
        painter.end();
        return image.pixelColor(91, 64); // 3 pixels behind x = 11
    };
    QCOMPARE(colorBeyondTheEnd(Qt::SquareCap), red);
    QCOMPARE(colorBeyondTheEnd(Qt::FlatCap), white);
}

void TestPlotChannelPainting::transparentFillKeepsTheBrushOfThePainter()
{
    TestChannel channel;
    channel.setRectangle({2, 2, 5, 5});
    QCOMPARE(colorAt(picture(channel), 4, 4), white);
    QImage image(128, 128, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setBrush(Qt::cyan);
    channel.paint(painter);
    painter.end();
    QCOMPARE(colorAt(image, 4, 4), QColor(Qt::cyan));
}

void TestPlotChannelPainting::lineStyleAndAntialiasing()
{
    TestChannel channel;
    channel.setLineStyle(Qt::DotLine);
    channel.setLineSegment({0, 5, 10, 5});
    int gaps = 0;
    const QImage dotted = picture(channel);
    for (int x = 0; x < 80; ++x)
        gaps += dotted.pixelColor(x, 88) == white ? 1 : 0;
    QVERIFY(gaps > 20);
    channel.setLineStyle(Qt::SolidLine);
    channel.setLineSegment({0, 2, 10, 5});
    const auto shades = [&channel] {
        int count = 0;
        const QImage image = picture(channel);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) != white && image.pixelColor(x, y) != red ? 1 : 0;
        }
        return count;
    };
    QCOMPARE(shades(), 0);
    channel.setAntialiasing(true);
    QVERIFY(shades() > 50);
}

void TestPlotChannelPainting::pointsAreClosed_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<bool>("closed");
    const Points open{{2, 2}, {8, 2}, {8, 8}};
    QTest::newRow("open") << open << false << false;
    QTest::newRow("connected") << open << true << true;
    QTest::newRow("last equals first") << Points{{2, 2}, {8, 2}, {8, 8}, {2, 2}} << false << true;
    QTest::newRow("last equals first fuzzily")
        << Points{{2, 2}, {8, 2}, {8, 8}, {2 + 1e-13, 2}} << false << true;
}

void TestPlotChannelPainting::pointsAreClosed()
{
    QFETCH(Points, points);
    QFETCH(bool, connected);
    QFETCH(bool, closed);
    TestChannel channel;
    channel.setFillColor(Qt::green);
    channel.setPoints(points);
    channel.setConnectFirstAndLastPoint(connected);
    const QImage image = picture(channel);
    QCOMPARE(colorAt(image, 5, 2), red);
    QCOMPARE(colorAt(image, 8, 5), red);
    QCOMPARE(colorAt(image, 7, 4), closed ? green : white);
    QCOMPARE(colorAt(image, 4, 7), white);
}

void TestPlotChannelPainting::polygonIsFilledOddEven()
{
    TestChannel channel;
    channel.setFillColor(Qt::green);
    channel.setConnectFirstAndLastPoint(true);
    // Twice around: a square inside of a square.
    channel.setPoints({{1, 1}, {9, 1}, {9, 9}, {1, 9}, {1, 1}, {3, 3}, {7, 3}, {7, 7}, {3, 7}, {3, 3}});
    const QImage image = picture(channel);
    QCOMPARE(colorAt(image, 2, 8), green);
    QCOMPARE(colorAt(image, 5, 5), white);
}

void TestPlotChannelPainting::markersAreDrawn()
{
    TestChannel channel;
    channel.setPoints({{2, 2}, {8, 8}});
    channel.setPointColor(Qt::blue);
    channel.setPointSize(7);
    QCOMPARE(colorAt(picture(channel), 2.2, 2), white);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Rectangle);
    const QImage image = picture(channel);
    QCOMPARE(colorAt(image, 2.2, 2), QColor(Qt::blue));
    QCOMPARE(colorAt(image, 8, 8.2), QColor(Qt::blue));
}

void TestPlotChannelPainting::rectanglesAndCirclesAreDrawn()
{
    TestChannel channel;
    channel.setRectangles({{1, 1, 3, 2}, {6, 6, 2, 3}});
    QImage image = picture(channel);
    QCOMPARE(colorAt(image, 1, 2), red);
    QCOMPARE(colorAt(image, 2, 3), red);
    QCOMPARE(colorAt(image, 7, 9), red);
    QCOMPARE(colorAt(image, 2, 2), white);
    channel.setRectangles({});
    channel.setCircles({{1, 1, 8, 4}});
    image = picture(channel);
    QCOMPARE(colorAt(image, 1, 3), red);
    QCOMPARE(colorAt(image, 5, 5), red);
    QCOMPARE(colorAt(image, 1, 1), white);
    QCOMPARE(colorAt(image, 5, 3), white);
}

void TestPlotChannelPainting::linesReachTheBorder()
{
    TestChannel channel;
    channel.setLine({4, 5, 5, 5});
    QImage image = picture(channel);
    for (int x = 0; x < 128; ++x)
        QCOMPARE(image.pixelColor(x, 88), red);
    channel.setLine({4, 1, 4, 2});
    image = picture(channel);
    for (int y = 0; y < 128; ++y)
        QCOMPARE(image.pixelColor(32, y), red);
    // A segment ends where it ends.
    channel.setLines({});
    channel.setLineSegment({4, 5, 5, 5});
    image = picture(channel);
    QCOMPARE(colorAt(image, 4.5, 5), red);
    QCOMPARE(colorAt(image, 3.8, 5), white);
    QCOMPARE(colorAt(image, 5.2, 5), white);
}

void TestPlotChannelPainting::paintingRecomputesTheExtentOfLines()
{
    TestChannel channel;
    channel.setLine({4, 5, 5, 5});
    const auto extent = [&] { return channel.state().typeRectangles.value(ZrQtPlotChannel::Lines); };
    QCOMPARE(extent(), QRectF(0, 5, 16, 0));
    channel.setCanvas(QRectF(-10, 0, 40, 16));
    QCOMPARE(extent(), QRectF(0, 5, 16, 0));
    picture(channel);
    QCOMPARE(extent(), QRectF(-10, 5, 40, 0));
    // Without lines there is nothing to recompute.
    channel.clear();
    picture(channel);
    QCOMPARE(extent(), QRectF(-10, 5, 40, 0));
}

void TestPlotChannelPainting::orderOfContent()
{
    TestChannel channel;
    SquareFeature feature;
    channel.setFillColor(Qt::green);
    channel.setPoints({{0, 3}, {10, 3}});
    channel.setRectangle({2, 2, 6, 6});
    QCOMPARE(colorAt(picture(channel), 5, 3), green); // the rectangle covers the points
    channel.setCircle({1, 4, 3, 3});
    QCOMPARE(colorAt(picture(channel), 2, 5.5), green); // the circle covers the rectangle's edge
    channel.setLineSegment({1, 5.5, 3, 5.5});
    QCOMPARE(colorAt(picture(channel), 3, 5.5), red); // the segment lies above
    channel.setLine({5, 0, 5, 1});
    QCOMPARE(colorAt(picture(channel), 5, 5), red); // and the line
    channel.setCustomFeature(&feature);
    QCOMPARE(colorAt(picture(channel), 5, 5), QColor(Qt::blue)); // the feature above all
}

void TestPlotChannelPainting::handles_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<QByteArray>("flag");
    QTest::addColumn<Points>("places");
    const auto add = [](const char *name, const Set &set, const char *flag, const Points &places) {
        QTest::newRow(name) << set << QByteArray(flag) << places;
    };
    add("points",
        [](auto &c) {
            c.setPoints({{2, 2}, {5, 7}, {8, 3}});
        },
        "pointsEditable", {{2, 2}, {5, 7}, {8, 3}});
    add("rectangles",
        [](auto &c) {
            c.setRectangle({2, 2, 6, 4});
        },
        "rectanglesEditable", {{2, 2}, {8, 2}, {2, 6}, {8, 6}, {2, 4}, {8, 4}, {5, 2}, {5, 6}});
    add("circles",
        [](auto &c) {
            c.setCircle({2, 2, 6, 6});
        },
        "circlesEditable", {{8, 5}, {2, 5}, {5, 2}, {5, 8}});
    add("lines",
        [](auto &c) {
            c.setLines({{1, 2, 2, 2}, {3, 8, 4, 8}});
        },
        "linesEditable", {{8, 2}, {8, 8}});
    add("line segments",
        [](auto &c) {
            c.setLineSegment({2, 3, 8, 3});
        },
        "lineSegmentsEditable", {{2, 3}, {8, 3}, {5, 3}});
}

void TestPlotChannelPainting::handles()
{
    QFETCH(Set, set);
    QFETCH(QByteArray, flag);
    QFETCH(Points, places);
    TestChannel channel;
    set(channel);
    const auto handleCount = [&] {
        const QImage image = picture(channel);
        return std::count_if(places.cbegin(), places.cend(),
                             [&image](const QPointF &place) { return hasHandle(image, place); });
    };
    QCOMPARE(handleCount(), 0);
    channel.setEditable(true);
    QCOMPARE(int(handleCount()), places.size());
    QVERIFY(channel.setProperty(flag, false));
    QCOMPARE(handleCount(), 0);
    QVERIFY(channel.setProperty(flag, true));
    channel.setResizableFeatures(false); // does not matter for painting
    QCOMPARE(int(handleCount()), places.size());
    channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, true);
    const QImage image = picture(channel);
    QVERIFY(hasHandle(image, QPointF(16 - places.first().x(), places.first().y())));
}

void TestPlotChannelPainting::moveCrossOfItems_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<QByteArray>("flag");
    QTest::addColumn<bool>("crosses");
    const auto add = [](const char *name, const Set &set, const char *flag, bool crosses) {
        QTest::newRow(name) << set << QByteArray(flag) << crosses;
    };
    // Always with a second item, so that the centre of (3, 3) is not that of the type.
    add(
        "rectangles",
        [](auto &c) {
            c.setRectangles({{2, 2, 2, 2}, {7, 7, 2, 2}});
        },
        "rectanglesEditable", true);
    add(
        "circles",
        [](auto &c) {
            c.setCircles({{2, 2, 2, 2}, {7, 7, 2, 2}});
        },
        "circlesEditable", true);
    add(
        "points have none",
        [](auto &c) {
            c.setPoints({{2, 2}, {4, 4}, {9, 9}});
        },
        "pointsEditable", false);
}

void TestPlotChannelPainting::moveCrossOfItems()
{
    QFETCH(Set, set);
    QFETCH(QByteArray, flag);
    QFETCH(bool, crosses);
    TestChannel channel;
    set(channel);
    const QPointF center(3, 3);
    QVERIFY(!hasCross(picture(channel), center));
    channel.setEditable(true);
    QCOMPARE(hasCross(picture(channel), center), crosses);
    QVERIFY(channel.setProperty(flag, false));
    QVERIFY(!hasCross(picture(channel), center));
}

void TestPlotChannelPainting::diagonalHandles_data()
{
    QTest::addColumn<QRectF>("circle");
    // Half the width from the centre (8, 8), towards the smaller y.
    QTest::newRow("circle") << QRectF(4, 4, 8, 8);
    QTest::newRow("flat ellipse") << QRectF(4, 7, 8, 2);
}

void TestPlotChannelPainting::diagonalHandles()
{
    QFETCH(QRectF, circle);
    TestChannel channel;
    channel.setCircle(circle);
    const double diagonal = 4 * std::sqrt(0.5);
    const QPointF place(8 + diagonal, 8 - diagonal);
    QVERIFY(!hasHandleAround(picture(channel), place));
    channel.setEditable(true);
    QVERIFY(hasHandleAround(picture(channel), place));
    channel.setCirclesEditable(false);
    QVERIFY(!hasHandleAround(picture(channel), place));
}

void TestPlotChannelPainting::handlesAreSolidAndUnfilled()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setFillColor(Qt::green);
    channel.setLineStyle(Qt::DotLine);
    channel.setLineSegment({2, 3, 8, 3});
    const QImage image = picture(channel);
    QVERIFY(hasHandle(image, QPointF(2, 3)));
    QCOMPARE(colorAt(image, 1.8, 2.8), white);
    channel.setLineStyle(Qt::NoPen);
    QVERIFY(hasHandle(picture(channel), QPointF(2, 3)));
}

void TestPlotChannelPainting::crossesFollowThePenStyle()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setRectangles({{2, 2, 2, 2}, {7, 7, 2, 2}});
    QVERIFY(hasCross(picture(channel), QPointF(3, 3)));
    channel.setLineStyle(Qt::NoPen);
    QCOMPARE(colorAt(picture(channel), 3, 3), white);
}

void TestPlotChannelPainting::crossesOfTypesFollowTheFirstPaint_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<QByteArray>("flag");
    QTest::addColumn<bool>("crosses");
    QTest::addColumn<QPointF>("center");
    const auto add
        = [](const char *name, const Set &set, const char *flag, bool crosses, const QPointF &center) {
              QTest::newRow(name) << set << QByteArray(flag) << crosses << center;
          };
    // With the centre of the extent where no item has a handle.
    add("points", [](auto &c) { c.setPoints({{2, 2}, {8, 8}, {8, 2}}); }, "pointsMovable", false, {5, 5});
    add("circles",
        [](auto &c) {
            c.setCircles({{2, 2, 2, 2}, {6, 6, 2, 2}});
        },
        "circlesMovable", false, {5, 5});
    add("rectangles",
        [](auto &c) {
            c.setRectangles({{2, 2, 2, 2}, {6, 6, 2, 2}});
        },
        "rectanglesMovable", true, {5, 5});
    add("line segments",
        [](auto &c) {
            c.setLineSegments({{2, 2, 2, 8}, {8, 2, 8, 8}});
        },
        "lineSegmentsMovable", true, {5, 5});
    add("lines", [](auto &c) { c.setLines({{4, 2, 4, 8}, {1, 12, 8, 12}}); }, "linesMovable", true, {8, 8});
}

void TestPlotChannelPainting::crossesOfTypesFollowTheFirstPaint()
{
    QFETCH(Set, set);
    QFETCH(QByteArray, flag);
    QFETCH(bool, crosses);
    QFETCH(QPointF, center);
    TestChannel channel;
    set(channel);
    QVERIFY(!hasCross(picture(channel), center));
    channel.setEditable(true);
    for (const bool movable : {true, false}) {
        // The flag of this channel does not count.
        QVERIFY(channel.setProperty(flag, movable));
        QCOMPARE(hasCross(picture(channel), center), crosses);
    }
}

void TestPlotChannelPainting::crossNeedsAValidExtent()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setMovable(true);
    channel.setLineSegmentsEditable(false);
    // Side by side: the extent has no height.
    channel.setLineSegments({{1, 5, 3, 5}, {7, 5, 9, 5}});
    QCOMPARE(colorAt(picture(channel), 5, 5), white);
    channel.setLineSegments({{1, 4, 3, 4}, {7, 6, 9, 6}});
    QVERIFY(hasCross(picture(channel), QPointF(5, 5)));
}

void TestPlotChannelPainting::featureHasNoCrossOfItsOwn()
{
    TestChannel channel;
    channel.setEditable(true);
    SquareFeature feature;
    channel.setCustomFeature(&feature);
    QCOMPARE(colorAt(picture(channel), 5, 5), QColor(Qt::blue));
}

void TestPlotChannelPainting::crossOfTheWholeContent_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("movable");
    QTest::newRow("editable and movable") << true << true;
    QTest::newRow("movable only") << false << true;
    QTest::newRow("editable only") << true << false;
}

void TestPlotChannelPainting::crossOfTheWholeContent()
{
    QFETCH(bool, editable);
    QFETCH(bool, movable);
    TestChannel channel;
    channel.setPoints({{2, 2}, {8, 2}, {8, 8}}); // points show no cross of their own in this process
    channel.setPointsEditable(false);
    channel.setEditable(editable);
    channel.setMovable(movable);
    QCOMPARE(hasCross(picture(channel), QPointF(5, 5)), editable && movable);
}

void TestPlotChannelPainting::nothingIsDrawnWithoutCanvas_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::newRow("null") << QRectF();
    QTest::newRow("no width") << QRectF(0, 0, 0, 10);
    QTest::newRow("no height") << QRectF(0, 0, 10, 0);
    QTest::newRow("NaN") << QRectF(notANumber, 0, 10, 10);
    QTest::newRow("infinite") << QRectF(-infinity, 0, infinity, 10);
}

void TestPlotChannelPainting::nothingIsDrawnWithoutCanvas()
{
    QFETCH(QRectF, canvas);
    TestChannel channel;
    channel.setEditable(true);
    channel.setMovable(true);
    channel.setPoints({{1, 1}, {2, 2}});
    channel.setLine({1, 1, 2, 3});
    channel.setLineSegment({1, 1, 2, 3});
    channel.setRectangle({1, 1, 2, 3});
    channel.setCircle({1, 1, 2, 3});
    channel.setCanvas(canvas);
    QVERIFY(isEmpty(picture(channel)));
}

void TestPlotChannelPainting::contentThatIsNotFiniteIsNotDrawn()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setMovable(true);
    channel.setPoints({{notANumber, 1}});
    channel.setLine({notANumber, 1, 2, 3});
    channel.setLineSegment({1, notANumber, 2, 3});
    channel.setRectangle({notANumber, 1, 2, 3});
    channel.setCircle({1, 1, notANumber, 3});
    QVERIFY(isEmpty(picture(channel)));
}

void TestPlotChannelPainting::oddContentDrawsWithoutTrouble_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<double>("scale");
    QTest::newRow("huge") << QRectF(0, 0, 10, 10) << 1e300;
    QTest::newRow("NaN") << QRectF(0, 0, 10, 10) << notANumber;
    QTest::newRow("infinite") << QRectF(0, 0, 10, 10) << infinity;
    QTest::newRow("zero") << QRectF(0, 0, 10, 10) << 0.0;
    QTest::newRow("negative") << QRectF(0, 0, 10, 10) << -1.0;
    QTest::newRow("tiny canvas") << QRectF(5, 5, 1e-20, 1e-20) << 1.0;
    QTest::newRow("tinier canvas") << QRectF(5, 5, 1e-300, 1e-300) << 1.0;
    QTest::newRow("huge canvas") << QRectF(-1e300, -1e300, 2e300, 2e300) << 1.0;
    QTest::newRow("all huge") << QRectF(-1e300, -1e300, 2e300, 2e300) << 1e299;
}

void TestPlotChannelPainting::oddContentDrawsWithoutTrouble()
{
    QFETCH(QRectF, canvas);
    QFETCH(double, scale);
    TestChannel channel;
    channel.setCanvas(canvas);
    channel.setEditable(true);
    channel.setMovable(true);
    channel.setFillColor(Qt::green);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Cross);
    const double s = scale;
    channel.setPoints({{s, s}, {2 * s, -s}, {1, 1}, {-s, 5}, {s, s}});
    channel.setLines({{s, s, 3 * s, 2 * s}, {1, s, 2, s}, {0, 0, s, 0}});
    channel.setLineSegments({{s, s, 3 * s, 2 * s}, {5, -s, 5, s}});
    channel.setRectangles({{s, s, 3 * s, 2 * s}, {-s, -s, 2 * s, 2 * s}, {1, 1, s, 1}});
    channel.setCircles({{s, s, 3 * s, 2 * s}, {-s, -s, 2 * s, 2 * s}, {1, 1, s, 1}});
    QElapsedTimer timer;
    timer.start();
    for (const bool closed : {false, true}) {
        channel.setConnectFirstAndLastPoint(closed);
        for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotDotLine}) {
            channel.setLineStyle(style);
            for (const int width : {-1, 0, 1, 3, 100000}) {
                channel.setLineWidth(width);
                picture(channel);
            }
        }
    }
    QVERIFY(timer.elapsed() < 10000);
}

void TestPlotChannelPainting::manyItemsArePainted()
{
    TestChannel channel;
    channel.setEditable(true);
    Points points;
    Lines lines;
    Rects rects;
    for (int i = 0; i < 2000; ++i) {
        const double x = i % 100 * 0.1;
        const double y = i / 100 * 0.05;
        points.append(QPointF(x, y));
        lines.append(QLineF(x, y, x + 1, y + 1));
        rects.append(QRectF(x, y, 1, 1));
    }
    QElapsedTimer timer;
    timer.start();
    channel.setPoints(points);
    channel.setLines(lines);
    channel.setLineSegments(lines);
    channel.setRectangles(rects);
    channel.setCircles(rects);
    picture(channel);
    // Far below any quadratic effort, and generous for debug builds and sanitizers.
    QVERIFY(timer.elapsed() < 20000);
}

QTEST_MAIN(TestPlotChannelPainting)
#include "tst_zrqtplotchannel_painting.moc"
