#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>

#include <cstdlib>
#include <limits>

using Points = SeriesShapes::Points;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
const QRectF wholeSeries(-0.02, -1.05, 1.04, 2.1);

enum class Painting { Plain, Reduced };

void prepare(ZrQtBufferedChannel &channel, const QSize &size, const QRectF &canvas)
{
    channel.resize(size);
    channel.setCanvas(canvas);
    channel.setLineColor(Qt::blue);
}

QImage picture(ZrQtBufferedChannel &channel, Painting painting, const QTransform &transform = QTransform(),
               double pixelRatio = 1.0)
{
    channel.setDataReduction(painting == Painting::Reduced);
    QImage image(channel.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setWorldTransform(transform);
    channel.paint(painter);
    return image;
}

int differentPixels(const QImage &one, const QImage &other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    }
    return count;
}

/// The mean difference of the grey values, 0 to 255.
double greyDifference(const QImage &one, const QImage &other)
{
    double sum = 0.0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
    }
    return sum / one.width() / one.height();
}

int inkIn(const QImage &image, const QRect &part)
{
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            count += image.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
    }
    return count;
}

} // namespace

class TestDataReduction : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isAProperty();
    void hairlineLooksPlain_data();
    void hairlineLooksPlain();
    void hairlineOfJumpsLooksPlain_data();
    void hairlineOfJumpsLooksPlain();
    void hairlineLooksPlainInASmallPlot_data();
    void hairlineLooksPlainInASmallPlot();
    void otherPensLookAlike_data();
    void otherPensLookAlike();
    void translucentAndDashedLinesAreSeen_data();
    void translucentAndDashedLinesAreSeen();
    void spikeNeverDisappears_data();
    void spikeNeverDisappears();
    void scrollingDoesNotShimmer();
    void gapsInterrupt_data();
    void gapsInterrupt();
    void farCoordinatesAreSeen_data();
    void farCoordinatesAreSeen();
    void unsortedSeriesAreDrawnWhole_data();
    void unsortedSeriesAreDrawnWhole();
    void widePensDoNotFreeze_data();
    void widePensDoNotFreeze();
    void markersLookPlain_data();
    void markersLookPlain();
    void painterMayBeTransformed_data();
    void painterMayBeTransformed();
    void newDataIsSeen();
    void callersKeepTheirPoints();
    void pointsAreShared();
    void painterMayBeInactive();
    void oddSeriesDoNoHarm_data();
    void oddSeriesDoNoHarm();

private:
    QWidget m_window;
};

void TestDataReduction::initTestCase()
{
    m_window.show();
}

void TestDataReduction::isAProperty()
{
    ZrQtBufferedChannel channel(&m_window);
    QSignalSpy spy(&channel, &ZrQtBufferedChannel::dataReductionChanged);
    QVERIFY(!channel.dataReduction());
    QVERIFY(channel.setProperty("dataReduction", true));
    QVERIFY(channel.dataReduction());
    channel.setDataReduction(true);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
}

void TestDataReduction::hairlineLooksPlain_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QSize>("size");
    struct Shape
    {
        const char *name;
        Points (*make)(int);
    };
    for (const Shape &shape :
         {Shape{"noise", SeriesShapes::noise}, Shape{"random walk", SeriesShapes::randomWalk},
          Shape{"sine", SeriesShapes::sine}, Shape{"steps", SeriesShapes::steps},
          Shape{"spikes", SeriesShapes::spikes}, Shape{"gaps", SeriesShapes::gaps},
          Shape{"constant", SeriesShapes::constant}}) {
        for (const int count : {1000, 10000, 100000}) {
            const Points points = shape.make(count);
            for (const QSize size : {QSize(1200, 600), QSize(701, 650)})
                QTest::addRow("%s of %d in %d columns", shape.name, count, size.width()) << points << size;
        }
    }
}

void TestDataReduction::hairlineLooksPlain()
{
    QFETCH(Points, points);
    QFETCH(QSize, size);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, size, wholeSeries);
    channel.setData(points);
    const int most = size.width() * size.height() / 1000;
    const QRectF zoomed(0.4321, -1.05, 0.104, 2.1);
    const QRectF farZoomed(0.50123, -0.5, 0.0104, 0.9);
    for (const QRectF &canvas : {wholeSeries, zoomed, farZoomed}) {
        for (const bool inverted : {false, true}) {
            // The line of an inverted x axis starts at the left edge: it is seen in a canvas that is
            // mirrored, too.
            channel.onAxisInverted(ZrQtPlot::Axis_Y, ZrQtPlot::COSY_0, inverted);
            channel.setCanvas(
                inverted ? QRectF(canvas.right(), canvas.top(), -canvas.width(), canvas.height()) : canvas);
            const int different
                = differentPixels(picture(channel, Painting::Plain), picture(channel, Painting::Reduced));
            QVERIFY2(different <= most, qPrintable(QStringLiteral("%1 of %2").arg(different).arg(most)));
        }
    }
}

void TestDataReduction::hairlineOfJumpsLooksPlain_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRectF>("canvas");
    const auto spikes = [](int count) {
        std::mt19937 random(4);
        return SeriesShapes::sampled(count, [&](int) {
            return random() % 1000 < 3 ? double(random()) * 2.0 / std::mt19937::max() - 1.0 : 0.0;
        });
    };
    const auto square = [](int count) {
        return SeriesShapes::sampled(count, [count](int i) { return i * 400LL / count % 2 ? 0.5 : -0.5; });
    };
    // The levels between the jumps lie in the view, or beyond it.
    const QRectF high(0, -0.1, 1, 0.2);
    for (const QSize size : {QSize(400, 300), QSize(1200, 600), QSize(701, 650)}) {
        for (const int count : {3000, 5000, 30000}) {
            for (const QRectF &canvas : {wholeSeries, high}) {
                const auto addRow = [&](const char *name, const Points &points) {
                    QTest::addRow("%s of %d in %d columns%s", name, count, size.width(),
                                  canvas == high ? ", high" : "")
                        << points << size << canvas;
                };
                addRow("random spikes", spikes(count));
                addRow("square", square(count));
                addRow("steps", SeriesShapes::steps(count));
            }
        }
    }
}

void TestDataReduction::hairlineOfJumpsLooksPlain()
{
    QFETCH(Points, points);
    QFETCH(QSize, size);
    QFETCH(QRectF, canvas);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, size, canvas);
    channel.setData(points);
    const QImage reduced = picture(channel, Painting::Reduced);
    const int different = differentPixels(picture(channel, Painting::Plain), reduced);
    const int most = size.width() * size.height() / 1000;
    QVERIFY2(different <= most, qPrintable(QStringLiteral("%1 of %2").arg(different).arg(most)));
    channel.setDataReduction(true);
    QCOMPARE(picture(channel, Painting::Reduced), reduced); // the same with what is known of the series
}

void TestDataReduction::hairlineLooksPlainInASmallPlot_data()
{
    QTest::addColumn<Points>("points");
    for (const int count : {6000, 10000, 30000}) {
        QTest::addRow("random walk of %d", count) << SeriesShapes::randomWalk(count);
        std::mt19937 random(5);
        const auto noise = [&random] { return double(random()) * 2.0 / std::mt19937::max() - 1.0; };
        QTest::addRow("level with noise of a fraction of a pixel, %d", count)
            << SeriesShapes::sampled(count, [&](int) { return 0.0005 * noise(); });
        QTest::addRow("sine with little noise, %d", count) << SeriesShapes::sampled(
            count, [&](int i) { return 0.8 * std::sin(12.0 * i / count) + 0.003 * noise(); });
    }
}

/// The smaller the plot, the more each pixel counts.
void TestDataReduction::hairlineLooksPlainInASmallPlot()
{
    QFETCH(Points, points);
    ZrQtBufferedChannel channel(&m_window);
    channel.setData(points);
    for (const QRectF &canvas : {wholeSeries, QRectF(-0.02, -20, 1.04, 40)}) {
        prepare(channel, QSize(400, 300), canvas);
        const int different
            = differentPixels(picture(channel, Painting::Plain), picture(channel, Painting::Reduced));
        QVERIFY2(different <= 120, qPrintable(QString::number(different)));
    }
}

void TestDataReduction::otherPensLookAlike_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("antialiasing");
    for (const bool antialiasing : {false, true}) {
        for (const int width : {1, 2, 5}) {
            const auto addRow = [&](const char *name, const Points &points) {
                QTest::addRow("%s, %d wide, antialiasing %d", name, width, antialiasing)
                    << points << width << antialiasing;
            };
            addRow("noise", SeriesShapes::noise(4000));
            addRow("random walk", SeriesShapes::randomWalk(4000));
            addRow("sine", SeriesShapes::sine(4000));
            addRow("few points", SeriesShapes::noise(30));
        }
    }
}

void TestDataReduction::otherPensLookAlike()
{
    QFETCH(Points, points);
    QFETCH(int, width);
    QFETCH(bool, antialiasing);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 150), wholeSeries);
    channel.setLineWidth(width);
    channel.setAntialiasing(antialiasing);
    channel.setData(points);
    const double difference
        = greyDifference(picture(channel, Painting::Plain), picture(channel, Painting::Reduced));
    QVERIFY2(difference < 8.0, qPrintable(QString::number(difference)));
}

void TestDataReduction::translucentAndDashedLinesAreSeen_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("style");
    QTest::newRow("translucent") << QColor(0, 0, 255, 128) << int(Qt::SolidLine);
    QTest::newRow("dashed") << QColor(Qt::blue) << int(Qt::DashLine);
    QTest::newRow("dotted") << QColor(Qt::blue) << int(Qt::DotLine);
}

void TestDataReduction::translucentAndDashedLinesAreSeen()
{
    QFETCH(QColor, color);
    QFETCH(int, style);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(600, 300), wholeSeries);
    channel.setLineColor(color);
    channel.setLineStyle(static_cast<Qt::PenStyle>(style));
    for (const int width : {1, 3}) {
        channel.setLineWidth(width);
        // With so few points nothing is left out.
        channel.setData(SeriesShapes::noise(40));
        QCOMPARE(differentPixels(picture(channel, Painting::Plain), picture(channel, Painting::Reduced)), 0);
        channel.setData(SeriesShapes::sine(20000));
        const int plain = inkIn(picture(channel, Painting::Plain), channel.rect());
        const int reduced = inkIn(picture(channel, Painting::Reduced), channel.rect());
        QVERIFY2(std::abs(plain - reduced) < plain / 10,
                 qPrintable(QStringLiteral("%1 instead of %2").arg(reduced).arg(plain)));
    }
}

void TestDataReduction::spikeNeverDisappears_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("antialiasing");
    QTest::newRow("hairline") << 1 << false;
    QTest::newRow("antialiased") << 1 << true;
    QTest::newRow("wide") << 3 << false;
}

void TestDataReduction::spikeNeverDisappears()
{
    QFETCH(int, width);
    QFETCH(bool, antialiasing);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 100), wholeSeries);
    channel.setLineWidth(width);
    channel.setAntialiasing(antialiasing);
    const Points flat = SeriesShapes::constant(50000);
    for (int i = 0; i < 60; ++i) {
        Points points = flat;
        points[i * 811 + i % 7].setY(0.95);
        channel.setData(points);
        for (int pictures = 0; pictures < 2; ++pictures) // the second one has the index
            QVERIFY(inkIn(picture(channel, Painting::Reduced), QRect(0, 10, 300, 10)) >= 8);
    }
}

void TestDataReduction::scrollingDoesNotShimmer()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(400, 300), QRectF(0.1, -1.05, 0.4, 2.1)); // 0.001 a pixel
    channel.setData(SeriesShapes::randomWalk(50000));
    const QImage before = picture(channel, Painting::Reduced);
    for (const double pixels : {0.3, 3.0, 7.9, 50.0}) {
        channel.setCanvas(QRectF(0.1 + pixels * 0.001, -1.05, 0.4, 2.1));
        const QImage after = picture(channel, Painting::Reduced);
        // The plain line jumps from pixel to pixel as well; rounding decides when.
        int least = before.width() * before.height();
        for (const int shift : {int(pixels), int(pixels) + 1}) {
            const QRect common(2, 0, 396 - shift, 300);
            least = std::min(least,
                             differentPixels(before.copy(common.translated(shift, 0)), after.copy(common)));
        }
        QCOMPARE(least, 0);
    }
}

void TestDataReduction::gapsInterrupt_data()
{
    QTest::addColumn<double>("gap");
    QTest::addColumn<bool>("inX");
    QTest::addColumn<int>("width");
    for (const int width : {1, 3}) {
        QTest::addRow("NaN in y, %d wide", width) << notANumber << false << width;
        QTest::addRow("NaN in x, %d wide", width) << notANumber << true << width;
        QTest::addRow("infinite y, %d wide", width) << infinity << false << width;
        QTest::addRow("minus infinite y, %d wide", width) << -infinity << false << width;
        QTest::addRow("infinite x, %d wide", width) << infinity << true << width;
    }
}

void TestDataReduction::gapsInterrupt()
{
    QFETCH(double, gap);
    QFETCH(bool, inX);
    QFETCH(int, width);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 200), wholeSeries);
    channel.setLineWidth(width);
    for (const int count : {20, 20000}) {
        // From one level to the other with nothing between.
        Points points = SeriesShapes::sampled(count, [count](int i) { return i < count / 2 ? -0.5 : 0.5; });
        if (inX)
            points[count / 2].setX(gap);
        else
            points[count / 2].setY(gap);
        channel.setData(points, QRectF(0, -1, 1, 2));
        const QImage image = picture(channel, Painting::Reduced);
        QCOMPARE(inkIn(image, QRect(0, 60, 300, 80)), 0);
        QVERIFY(inkIn(image, QRect(0, 140, 300, 60)) > 100);
        QVERIFY(inkIn(image, QRect(0, 0, 300, 60)) > 100);
    }
}

void TestDataReduction::farCoordinatesAreSeen_data()
{
    QTest::addColumn<Points>("points");
    QTest::newRow("neighbours far to the sides") << Points{{-1e12, -1e12}, {1e12, 1e12}};
    QTest::newRow("up and down") << Points{{0.2, 0}, {0.4, 1e200}, {0.6, -1e250}, {0.8, 0}};
    QTest::newRow("every coordinate far away") << Points{{-1e299, -1e299}, {1e299, 1e299}};
    QTest::newRow("to the left only") << Points{{-1e100, 0.3}, {0.5, 0.3}};
}

void TestDataReduction::farCoordinatesAreSeen()
{
    QFETCH(Points, points);
    for (const int width : {1, 3}) {
        for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine}) {
            ZrQtBufferedChannel channel(&m_window);
            prepare(channel, QSize(300, 300), QRectF(0, -0.5, 1, 1));
            channel.setLineWidth(width);
            channel.setLineStyle(style);
            channel.setData(points);
            QVERIFY(inkIn(picture(channel, Painting::Reduced), channel.rect()) > 100);
        }
    }
}

void TestDataReduction::unsortedSeriesAreDrawnWhole_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<double>("tolerance");
    QTest::newRow("hairline") << 1 << false << 0.0;
    QTest::newRow("wide") << 4 << false << 0.1;
    QTest::newRow("wide and antialiased") << 4 << true << 1.0;
}

void TestDataReduction::unsortedSeriesAreDrawnWhole()
{
    QFETCH(int, width);
    QFETCH(bool, antialiasing);
    QFETCH(double, tolerance);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 300), QRectF(-1.1, -1.1, 2.2, 2.2));
    channel.setLineWidth(width);
    channel.setAntialiasing(antialiasing);
    Points spiral(600);
    for (int i = 0; i < spiral.size(); ++i)
        spiral[i] = QPointF(std::cos(i * 0.1), std::sin(i * 0.1)) * (i / 600.0);
    channel.setData(spiral);
    QVERIFY(greyDifference(picture(channel, Painting::Plain), picture(channel, Painting::Reduced))
            <= tolerance);
}

void TestDataReduction::widePensDoNotFreeze_data()
{
    QTest::addColumn<Points>("points");
    const Points noise = SeriesShapes::noise(100000);
    Points scattered = SeriesShapes::noise(20000);
    for (int i = 0; i < scattered.size(); ++i)
        scattered[i].setX(noise.at(i + 20000).y() * 0.5 + 0.5);
    QTest::newRow("ascending") << noise;
    QTest::newRow("scattered") << scattered;
}

void TestDataReduction::widePensDoNotFreeze()
{
    QFETCH(Points, points);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(600, 300), wholeSeries);
    channel.setLineWidth(2);
    channel.setData(points);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(inkIn(picture(channel, Painting::Reduced), channel.rect()) > 600 * 150);
    QVERIFY(timer.elapsed() < 10000); // the plain line takes minutes
}

void TestDataReduction::markersLookPlain_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<QColor>("color");
    for (const int style : {1, 2, 3, 4}) {
        for (const int size : {1, 4, 9, 100}) {
            QTest::addRow("style %d of %d", style, size) << style << size << false << QColor(Qt::red);
            QTest::addRow("style %d of %d, antialiased", style, size)
                << style << size << true << QColor(Qt::red);
        }
    }
    QTest::newRow("translucent") << 2 << 7 << true << QColor(255, 0, 0, 90);
}

void TestDataReduction::markersLookPlain()
{
    QFETCH(int, style);
    QFETCH(int, size);
    QFETCH(bool, antialiasing);
    QFETCH(QColor, color);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 200), QRectF(0.1, -0.8, 0.7, 1.6));
    channel.setLineWidth(0);
    channel.setAntialiasing(antialiasing);
    channel.setPointStyle(static_cast<ZrQtBaseChannel::PointStyle>(style));
    channel.setPointSize(size);
    channel.setPointColor(color);
    channel.setData(SeriesShapes::noise(200));
    // Where translucent edges meet, the roundings of the last digit differ.
    QVERIFY(greyDifference(picture(channel, Painting::Plain), picture(channel, Painting::Reduced)) < 0.02);
    if (!antialiasing)
        QCOMPARE(picture(channel, Painting::Reduced), picture(channel, Painting::Plain));
}

void TestDataReduction::painterMayBeTransformed_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<double>("pixelRatio");
    QTest::newRow("shifted") << QTransform::fromTranslate(20, 10) << 1.0;
    QTest::newRow("scaled") << QTransform::fromScale(0.7, 0.5) << 1.0;
    QTest::newRow("turned") << QTransform().rotate(30) << 1.0;
    QTest::newRow("two pixels for one") << QTransform() << 2.0;
    QTest::newRow("three pixels for two") << QTransform() << 1.5;
}

void TestDataReduction::painterMayBeTransformed()
{
    QFETCH(QTransform, transform);
    QFETCH(double, pixelRatio);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(600, 600), wholeSeries);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Rectangle);
    channel.setData(SeriesShapes::noise(20000));
    const QImage plain = picture(channel, Painting::Plain, transform, pixelRatio);
    const QImage reduced = picture(channel, Painting::Reduced, transform, pixelRatio);
    QVERIFY(differentPixels(plain, reduced) <= plain.width() * plain.height() / 1000);
}

void TestDataReduction::newDataIsSeen()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 100), wholeSeries);
    channel.setData(SeriesShapes::constant(5000));
    for (int pictures = 0; pictures < 3; ++pictures)
        picture(channel, Painting::Reduced);
    Points points = SeriesShapes::constant(5000);
    for (QPointF &point : points)
        point.setY(-0.9);
    channel.setData(points);
    QVERIFY(inkIn(picture(channel, Painting::Reduced), QRect(0, 80, 200, 20)) > 150);
    channel.setData(QVector<double>(5000, 0.9), 0.0, 1.0 / 5000);
    QVERIFY(inkIn(picture(channel, Painting::Reduced), QRect(0, 0, 200, 20)) > 150);
    channel.clear();
    QCOMPARE(inkIn(picture(channel, Painting::Reduced), channel.rect()), 0);
}

void TestDataReduction::callersKeepTheirPoints()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 100), wholeSeries);
    const Points points = SeriesShapes::sine(100);
    channel.setData(points);
    picture(channel, Painting::Reduced);
    channel.setData(QVector<double>(100, 1.0), QVector<double>(100, 1.0));
    QCOMPARE(points, SeriesShapes::sine(100));
}

void TestDataReduction::painterMayBeInactive()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(100, 100), wholeSeries);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
    channel.setPointSize(3);
    channel.setData(SeriesShapes::noise(100));
    QPainter painter;
    for (const bool reduced : {false, true}) {
        channel.setDataReduction(reduced);
        channel.paint(painter);
    }
    QVERIFY(!painter.isActive());
}

/// The channel, and all that painting needs to know of the points, use the caller's memory, and let go of it.
void TestDataReduction::pointsAreShared()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 100), wholeSeries);
    const Points points = SeriesShapes::noise(1000);
    channel.setData(points);
    for (int round = 0; round < 2; ++round) {
        picture(channel, Painting::Reduced);
        QVERIFY(!points.isDetached());
    }
    channel.setData(QVector<double>{1.0, 2.0});
    QVERIFY(points.isDetached());
}

void TestDataReduction::oddSeriesDoNoHarm_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QRectF>("canvas");
    const QRectF plain(0, 0, 10, 10);
    const Points ordinary = SeriesShapes::noise(1000);
    QTest::newRow("nothing") << Points() << plain;
    QTest::newRow("one point") << Points{{5, 5}} << plain;
    QTest::newRow("only gaps") << Points(50, QPointF(notANumber, notANumber)) << plain;
    QTest::newRow("one x for all") << Points(50, QPointF(5, 5)) << plain;
    QTest::newRow("to the left of the view") << Points{{-9, 1}, {-8, 2}} << plain;
    QTest::newRow("to the right of the view") << Points{{18, 1}, {19, 2}} << plain;
    QTest::newRow("all around the view") << Points{{-9, 1}, {19, 2}} << plain;
    QTest::newRow("no canvas") << ordinary << QRectF();
    QTest::newRow("canvas without width") << ordinary << QRectF(0, 0, 0, 1);
    QTest::newRow("tiny canvas") << ordinary << QRectF(0.5, 0, 1e-300, 1e-300);
    QTest::newRow("huge canvas") << ordinary << QRectF(-1e300, -1e300, 2e300, 2e300);
    QTest::newRow("NaN canvas") << ordinary << QRectF(notANumber, 0, 1, 1);
}

void TestDataReduction::oddSeriesDoNoHarm()
{
    QFETCH(Points, points);
    QFETCH(QRectF, canvas);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(100, 100), canvas);
    channel.setData(points);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
    for (const int width : {1, 2}) {
        channel.setLineWidth(width);
        channel.setAntialiasing(width == 2);
        for (const QSize &size : {QSize(100, 100), QSize(1, 1)}) {
            channel.resize(size);
            picture(channel, Painting::Reduced);
            picture(channel, Painting::Reduced);
        }
    }
}

QTEST_MAIN(TestDataReduction)
#include "tst_zrqtbufferedchannel_reduction.moc"
