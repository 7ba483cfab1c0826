#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "shared/channelpictures.h"
#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <QtCore/QElapsedTimer>

#include <limits>

using namespace ChannelPictures;
using Points = SeriesShapes::Points;

namespace {

const char *const styleNames[] = {"none", "rectangle", "circle", "cross", "diagonal cross"};
const int allStyles[] = {ZrQtBaseChannel::PointStyle_Rectangle, ZrQtBaseChannel::PointStyle_Circle,
                         ZrQtBaseChannel::PointStyle_Cross, ZrQtBaseChannel::PointStyle_X};
const QColor translucent(200, 0, 0, 60);

/// Few enough places that many samples share one.
Points duplicates()
{
    Points points = SeriesShapes::noise(3000);
    for (QPointF &point : points)
        point.setY(std::floor(point.y() * 4.0) / 4.1);
    return points;
}

Points descending()
{
    Points points = SeriesShapes::noise(1500);
    std::reverse(points.begin(), points.end());
    return points;
}

Points withGapAtEvery(int step)
{
    Points points = SeriesShapes::noise(4000);
    for (int i = 0; i < points.size(); i += step)
        points[i].setY(std::numeric_limits<double>::quiet_NaN());
    return points;
}

} // namespace

class TestReducedMarkers : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void lookPlain_data();
    void lookPlain();
    void lookPlainOnFinePixels_data();
    void lookPlainOnFinePixels();
    void respectOpacityAndComposition_data();
    void respectOpacityAndComposition();
    void hugePicturesLookPlain_data();
    void hugePicturesLookPlain();
    void millionsAreDrawnInTime_data();
    void millionsAreDrawnInTime();

private:
    void prepare(ZrQtBufferedChannel &channel, const QSize &size, int style) const;

    QWidget m_window;
};

void TestReducedMarkers::initTestCase()
{
    m_window.show();
}

void TestReducedMarkers::prepare(ZrQtBufferedChannel &channel, const QSize &size, int style) const
{
    channel.resize(size);
    channel.setCanvas(QRectF(0.1, -0.8, 0.7, 1.6)); // some samples are beyond
    channel.setLineColor(Qt::transparent);
    channel.setLineWidth(1);
    channel.setPointStyle(static_cast<ZrQtBaseChannel::PointStyle>(style));
    channel.setPointSize(5);
    channel.setPointColor(Qt::red);
}

void TestReducedMarkers::lookPlain_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<Points>("points");
    for (const int style : allStyles) {
        for (const bool antialiasing : {false, true}) {
            for (const QColor &color : {QColor(Qt::red), translucent}) {
                const auto addRow = [&](const char *name, int size, const Points &points) {
                    QTest::addRow("%s of %d, %s, antialiasing %d, alpha %d", styleNames[style], size, name,
                                  antialiasing, color.alpha())
                        << style << size << antialiasing << color << points;
                };
                addRow("noise", 2, SeriesShapes::noise(800));
                addRow("noise", 5, SeriesShapes::noise(800));
                addRow("noise", 20, SeriesShapes::noise(400));
                addRow("duplicates", 4, duplicates());
                addRow("descending", 4, descending());
                addRow("gaps", 4, withGapAtEvery(7));
                addRow("crowded gaps", 4, withGapAtEvery(3));
                addRow("samples between gaps", 4, withGapAtEvery(2));
            }
        }
    }
}

void TestReducedMarkers::lookPlain()
{
    QFETCH(int, style);
    QFETCH(int, size);
    QFETCH(bool, antialiasing);
    QFETCH(QColor, color);
    QFETCH(Points, points);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 120), style);
    channel.setPointSize(size);
    channel.setPointColor(color);
    channel.setAntialiasing(antialiasing);
    channel.setData(points);
    const QImage plain = picture(channel, Painting::Plain);
    const QImage reduced = picture(channel, Painting::Reduced);
    QVERIFY(inkedPixels(plain) > 200);
    const bool isExact = style != ZrQtBaseChannel::PointStyle_X && !antialiasing && color.alpha() == 255;
    if (isExact) {
        QCOMPARE(reduced, plain);
    } else {
        const double stray = strayInk(fromAfar(plain), fromAfar(reduced));
        QVERIFY2(stray < 0.08, qPrintable(QString::number(stray)));
    }
}

void TestReducedMarkers::lookPlainOnFinePixels_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<bool>("antialiasing");
    for (const int style : allStyles) {
        for (const double ratio : {1.25, 1.5, 2.0, 3.0}) {
            for (const bool antialiasing : {false, true})
                QTest::addRow("%s, %g pixels for one, antialiasing %d", styleNames[style], ratio,
                              antialiasing)
                    << style << ratio << antialiasing;
        }
    }
}

void TestReducedMarkers::lookPlainOnFinePixels()
{
    QFETCH(int, style);
    QFETCH(double, ratio);
    QFETCH(bool, antialiasing);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 120), style);
    channel.setAntialiasing(antialiasing);
    channel.setData(SeriesShapes::noise(1000));
    Setup setup;
    setup.pixelRatio = ratio;
    const QImage plain = picture(channel, Painting::Plain, setup);
    const double stray = strayInk(fromAfar(plain), fromAfar(picture(channel, Painting::Reduced, setup)));
    QVERIFY(inkedPixels(plain) > 200);
    QVERIFY2(stray < 0.1, qPrintable(QString::number(stray)));
}

void TestReducedMarkers::respectOpacityAndComposition_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("opacity");
    QTest::addColumn<int>("mode");
    for (const int style : allStyles) {
        QTest::addRow("%s, half the opacity", styleNames[style])
            << style << 0.5 << int(QPainter::CompositionMode_SourceOver);
        QTest::addRow("%s, multiply", styleNames[style])
            << style << 1.0 << int(QPainter::CompositionMode_Multiply);
        QTest::addRow("%s, source", styleNames[style])
            << style << 1.0 << int(QPainter::CompositionMode_Source);
    }
}

void TestReducedMarkers::respectOpacityAndComposition()
{
    QFETCH(int, style);
    QFETCH(double, opacity);
    QFETCH(int, mode);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 120), style);
    channel.setLineWidth(0);
    channel.setPointColor(QColor(200, 100, 50, 200));
    channel.setData(SeriesShapes::noise(800));
    Setup setup;
    setup.opacity = opacity;
    setup.mode = static_cast<QPainter::CompositionMode>(mode);
    const QImage plain = picture(channel, Painting::Plain, setup);
    const double stray = strayInk(fromAfar(plain), fromAfar(picture(channel, Painting::Reduced, setup)));
    QVERIFY(inkedPixels(plain) > 200);
    QVERIFY2(stray < 0.08, qPrintable(QString::number(stray)));
}

void TestReducedMarkers::hugePicturesLookPlain_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QSize>("size");
    QTest::newRow("rectangle") << int(ZrQtBaseChannel::PointStyle_Rectangle) << QSize(4200, 4200);
    QTest::newRow("cross") << int(ZrQtBaseChannel::PointStyle_Cross) << QSize(3000, 3000);
}

/// They are drawn a part at a time.
void TestReducedMarkers::hugePicturesLookPlain()
{
    QFETCH(int, style);
    QFETCH(QSize, size);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, size, style);
    channel.setPointSize(9);
    channel.setData(SeriesShapes::noise(20000));
    QCOMPARE(picture(channel, Painting::Reduced), picture(channel, Painting::Plain));
}

void TestReducedMarkers::millionsAreDrawnInTime_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QColor>("color");
    for (const int style : allStyles) {
        QTest::addRow("%s", styleNames[style]) << style << false << 1.0 << QColor(Qt::red);
        QTest::addRow("%s, antialiased", styleNames[style]) << style << true << 1.0 << QColor(Qt::red);
        QTest::addRow("%s on fine pixels", styleNames[style]) << style << false << 2.0 << QColor(Qt::red);
        QTest::addRow("%s, translucent", styleNames[style]) << style << false << 1.0 << translucent;
    }
}

void TestReducedMarkers::millionsAreDrawnInTime()
{
    QFETCH(int, style);
    QFETCH(bool, antialiasing);
    QFETCH(double, ratio);
    QFETCH(QColor, color);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(600, 300), style);
    channel.setPointColor(color);
    channel.setAntialiasing(antialiasing);
    channel.setData(SeriesShapes::noise(1000000));
    Setup setup;
    setup.pixelRatio = ratio;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(inkedPixels(picture(channel, Painting::Reduced, setup)) > 600 * 250);
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_MAIN(TestReducedMarkers)
#include "tst_zrqtbufferedchannel_reducedmarkers.moc"
