#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "shared/channelpictures.h"
#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QPicture>

#include <limits>

using namespace ChannelPictures;
using Points = SeriesShapes::Points;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
const QRectF wholeSeries(-0.02, -1.05, 1.04, 2.1);

struct Pen
{
    const char *name;
    int width;
    QColor color;
    Qt::PenStyle style;
};

const Pen pens[] = {
    {"hairline", 1, Qt::blue, Qt::SolidLine},
    {"wide", 3, Qt::blue, Qt::SolidLine},
    {"wide translucent", 2, QColor(0, 0, 255, 128), Qt::SolidLine},
    {"wide dashed", 2, Qt::blue, Qt::DashLine},
    {"wide dots and dashes", 4, Qt::blue, Qt::DashDotDotLine},
    {"wide dotted translucent", 3, QColor(0, 0, 255, 128), Qt::DotLine},
};

int leastAlpha(const QImage &image)
{
    int least = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            least = std::min(least, qAlpha(image.pixel(x, y)));
    }
    return least;
}

} // namespace

/// Lines with other pens than opaque hairlines, and in other places than a small picture.
class TestReducedPens : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fewSamplesLookPlain_data();
    void fewSamplesLookPlain();
    void manySamplesLookPlain_data();
    void manySamplesLookPlain();
    void noPenFreezes_data();
    void noPenFreezes();
    void compositionIsRespected_data();
    void compositionIsRespected();
    void dataBeyondTheViewLeaveItBlank_data();
    void dataBeyondTheViewLeaveItBlank();
    void wideLineReachesInFromBeyondTheBorder_data();
    void wideLineReachesInFromBeyondTheBorder();
    void repeatedPointsHaveCapsAndJoints_data();
    void repeatedPointsHaveCapsAndJoints();
    void picturesMayBeHuge_data();
    void picturesMayBeHuge();
    void hugeTranslucentLinesAreWhole();
    void gapsInterruptOnOtherDevices_data();
    void gapsInterruptOnOtherDevices();
    void wideLinesDoNotFreezeUnderTurnedPainters();

private:
    void prepare(ZrQtBufferedChannel &channel, const QSize &size, const Pen &pen) const;

    QWidget m_window;
};

void TestReducedPens::initTestCase()
{
    m_window.show();
}

void TestReducedPens::prepare(ZrQtBufferedChannel &channel, const QSize &size, const Pen &pen) const
{
    channel.resize(size);
    channel.setCanvas(wholeSeries);
    channel.setLineColor(pen.color);
    channel.setLineWidth(pen.width);
    channel.setLineStyle(pen.style);
}

void TestReducedPens::fewSamplesLookPlain_data()
{
    QTest::addColumn<int>("pen");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<Points>("points");
    for (int i = 0; i < int(std::size(pens)); ++i) {
        for (const bool antialiasing : {false, true}) {
            QTest::addRow("%s, noise, antialiasing %d", pens[i].name, antialiasing)
                << i << antialiasing << SeriesShapes::noise(30);
            QTest::addRow("%s, longer noise, antialiasing %d", pens[i].name, antialiasing)
                << i << antialiasing << SeriesShapes::noise(100);
            QTest::addRow("%s, sine, antialiasing %d", pens[i].name, antialiasing)
                << i << antialiasing << SeriesShapes::sine(400);
        }
    }
}

/// Nothing is left out of them.
void TestReducedPens::fewSamplesLookPlain()
{
    QFETCH(int, pen);
    QFETCH(bool, antialiasing);
    QFETCH(Points, points);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 150), pens[pen]);
    channel.setAntialiasing(antialiasing);
    channel.setData(points);
    const double stray = strayInk(picture(channel, Painting::Plain), picture(channel, Painting::Reduced));
    QVERIFY2(stray < 0.02, qPrintable(QString::number(stray)));
}

void TestReducedPens::manySamplesLookPlain_data()
{
    QTest::addColumn<int>("pen");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<Points>("points");
    QTest::addColumn<double>("tolerance");
    for (int i = 0; i < int(std::size(pens)); ++i) {
        for (const bool antialiasing : {false, true}) {
            const auto addRow = [&](const char *name, const Points &points, double tolerance) {
                QTest::addRow("%s, %s, antialiasing %d", pens[i].name, name, antialiasing)
                    << i << antialiasing << points << tolerance;
            };
            addRow("noise", SeriesShapes::noise(3000), 0.05);
            addRow("walk", SeriesShapes::randomWalk(3000), 0.2); // little ink, much of it at edges
        }
    }
}

void TestReducedPens::manySamplesLookPlain()
{
    QFETCH(int, pen);
    QFETCH(bool, antialiasing);
    QFETCH(Points, points);
    QFETCH(double, tolerance);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 150), pens[pen]);
    channel.setAntialiasing(antialiasing);
    channel.setData(points);
    const QImage plain = picture(channel, Painting::Plain);
    const QImage reduced = picture(channel, Painting::Reduced);
    QVERIFY(inkedPixels(plain) > 600);
    // The dashes are others.
    const double stray = strayInk(fromAfar(plain), fromAfar(reduced));
    QVERIFY2(stray < tolerance, qPrintable(QString::number(stray)));
}

void TestReducedPens::noPenFreezes_data()
{
    QTest::addColumn<int>("pen");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<int>("samples");
    for (int i = 0; i < int(std::size(pens)); ++i) {
        for (const bool antialiasing : {false, true}) {
            for (const int samples : {4000, 100000})
                QTest::addRow("%s, %d samples, antialiasing %d", pens[i].name, samples, antialiasing)
                    << i << antialiasing << samples;
        }
    }
}

void TestReducedPens::noPenFreezes()
{
    QFETCH(int, pen);
    QFETCH(bool, antialiasing);
    QFETCH(int, samples);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(1200, 600), pens[pen]);
    channel.setAntialiasing(antialiasing);
    channel.setData(SeriesShapes::noise(samples));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(inkedPixels(picture(channel, Painting::Reduced)) > 1200 * 300);
    QVERIFY2(timer.elapsed() < 4000, qPrintable(QString::number(timer.elapsed())));
}

void TestReducedPens::compositionIsRespected_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("opacity");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<bool>("antialiasing");
    const auto addRow
        = [](const char *name, QPainter::CompositionMode mode, double opacity, const QColor &color) {
              for (const bool antialiasing : {false, true})
                  QTest::addRow("%s, antialiasing %d", name, antialiasing)
                      << int(mode) << opacity << color << antialiasing;
          };
    addRow("half the opacity", QPainter::CompositionMode_SourceOver, 0.5, Qt::blue);
    addRow("half the opacity of a translucent colour", QPainter::CompositionMode_SourceOver, 0.5,
           QColor(0, 0, 255, 128));
    addRow("multiply", QPainter::CompositionMode_Multiply, 1.0, QColor(90, 160, 255));
    addRow("exclusion", QPainter::CompositionMode_Exclusion, 1.0, QColor(90, 160, 255));
    addRow("difference, translucent", QPainter::CompositionMode_Difference, 1.0, QColor(90, 160, 255, 128));
    addRow("source", QPainter::CompositionMode_Source, 1.0, Qt::blue);
    addRow("source, translucent", QPainter::CompositionMode_Source, 1.0, QColor(0, 0, 255, 128));
    addRow("clear", QPainter::CompositionMode_Clear, 1.0, Qt::blue);
}

void TestReducedPens::compositionIsRespected()
{
    QFETCH(int, mode);
    QFETCH(double, opacity);
    QFETCH(QColor, color);
    QFETCH(bool, antialiasing);
    Setup setup;
    setup.mode = static_cast<QPainter::CompositionMode>(mode);
    setup.opacity = opacity;
    for (const int samples : {60, 100, 2000}) {
        ZrQtBufferedChannel channel(&m_window);
        prepare(channel, QSize(200, 100), {"", 3, color, Qt::SolidLine});
        channel.setAntialiasing(antialiasing);
        channel.setData(SeriesShapes::noise(samples));
        const QImage plain = picture(channel, Painting::Plain, setup);
        const QImage reduced = picture(channel, Painting::Reduced, setup);
        QCOMPARE(leastAlpha(reduced), leastAlpha(plain));
        const double stray = strayInk(plain, reduced);
        QVERIFY(inkedPixels(plain) > 2000);
        QVERIFY2(stray < 0.03, qPrintable(QStringLiteral("%1 of %2").arg(stray).arg(samples)));
    }
}

void TestReducedPens::dataBeyondTheViewLeaveItBlank_data()
{
    QTest::addColumn<double>("bottom");
    QTest::addColumn<int>("width");
    for (const int width : {1, 3}) {
        for (const double distance : {10.0, 1e2, 3e3, 1e5}) {
            QTest::addRow("%g below, %d wide", distance, width) << distance << width;
            QTest::addRow("%g above, %d wide", distance, width) << -distance << width;
        }
    }
}

void TestReducedPens::dataBeyondTheViewLeaveItBlank()
{
    QFETCH(double, bottom);
    QFETCH(int, width);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 200), {"", width, Qt::black, Qt::SolidLine});
    channel.setAntialiasing(true);
    channel.setCanvas(QRectF(0, bottom, 1, 1e-5));
    channel.setData(SeriesShapes::noise(3000));
    QCOMPARE(inkedPixels(picture(channel, Painting::Reduced)), 0);
}

void TestReducedPens::wideLineReachesInFromBeyondTheBorder_data()
{
    QTest::addColumn<double>("column");
    QTest::newRow("left") << -2.0;
    QTest::newRow("right") << 201.0;
}

void TestReducedPens::wideLineReachesInFromBeyondTheBorder()
{
    QFETCH(double, column);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(200, 200), {"", 20, Qt::blue, Qt::SolidLine});
    channel.setCanvas(QRectF(0, -1, 200, 2));
    Points points(50);
    for (int i = 0; i < points.size(); ++i)
        points[i] = QPointF(column + i * 0.01, i % 2 == 0 ? -0.7 : 0.7);
    points.first().setY(0.0);
    points.last().setY(0.0);
    channel.setData(points);
    const QImage plain = picture(channel, Painting::Plain);
    const int expected = inkedPixels(plain);
    QVERIFY(expected > 500);
    const int actual = inkedPixels(picture(channel, Painting::Reduced));
    QVERIFY2(std::abs(actual - expected) < expected / 20,
             qPrintable(QStringLiteral("%1 instead of %2").arg(actual).arg(expected)));
}

void TestReducedPens::repeatedPointsHaveCapsAndJoints_data()
{
    QTest::addColumn<Points>("points");
    Points repeatedEnds;
    Points allRepeated;
    for (int i = 0; i < 40; ++i) {
        const QPointF point(0.1 + i * 0.02, i % 2 == 0 ? -0.5 : 0.5);
        repeatedEnds << point;
        if (i == 0 || i == 39)
            repeatedEnds << point;
        allRepeated << point << point << point;
    }
    QTest::newRow("first and last") << repeatedEnds;
    QTest::newRow("all") << allRepeated;
    QTest::newRow("one point") << Points(40, QPointF(0.5, 0.5));
}

void TestReducedPens::repeatedPointsHaveCapsAndJoints()
{
    QFETCH(Points, points);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 200), {"", 15, Qt::blue, Qt::SolidLine});
    channel.setData(points);
    const QImage plain = picture(channel, Painting::Plain);
    const double stray = strayInk(plain, picture(channel, Painting::Reduced));
    QVERIFY2(stray < 0.001, qPrintable(QString::number(stray)));
}

void TestReducedPens::picturesMayBeHuge_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("antialiasing");
    QTest::newRow("hairline") << 1 << false;
    QTest::newRow("antialiased") << 1 << true;
    QTest::newRow("wide") << 3 << false;
}

/// They are mixed with the picture some rows at a time.
void TestReducedPens::hugeTranslucentLinesAreWhole()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(4200, 4200), {"", 9, QColor(0, 0, 255, 128), Qt::SolidLine});
    channel.setData(SeriesShapes::sine(100));
    const QImage plain = picture(channel, Painting::Plain);
    QVERIFY(inkedPixels(plain) > 4200 * 9);
    QVERIFY(strayInk(plain, picture(channel, Painting::Reduced)) < 0.001);
}

void TestReducedPens::picturesMayBeHuge()
{
    QFETCH(int, width);
    QFETCH(bool, antialiasing);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(20000, 60), {"", width, Qt::blue, Qt::SolidLine});
    channel.setAntialiasing(antialiasing);
    channel.setData(SeriesShapes::sine(20000));
    const QRect end(16100, 0, 3000, 60);
    const QImage reduced = picture(channel, Painting::Reduced);
    QVERIFY(inkedPixels(reduced, end) >= 3000);
    QVERIFY(strayInk(picture(channel, Painting::Plain), reduced) < 0.01);
}

void TestReducedPens::gapsInterruptOnOtherDevices_data()
{
    QTest::addColumn<double>("gap");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("recorded");
    for (const bool recorded : {false, true}) {
        for (const int width : {1, 3}) {
            const char *device = recorded ? "recorded" : "turned";
            QTest::addRow("NaN, %d wide, %s", width, device) << notANumber << width << recorded;
            QTest::addRow("infinity, %d wide, %s", width, device) << infinity << width << recorded;
        }
    }
}

void TestReducedPens::gapsInterruptOnOtherDevices()
{
    QFETCH(double, gap);
    QFETCH(int, width);
    QFETCH(bool, recorded);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(300, 300), {"", width, Qt::blue, Qt::SolidLine});
    channel.setDataReduction(true);
    // From one level to the other with nothing between.
    Points points = SeriesShapes::sampled(20, [](int i) { return i < 10 ? -0.8 : 0.8; });
    points[10].setY(gap);
    channel.setData(points, QRectF(0, -1, 1, 2));
    QImage image(channel.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    if (recorded) {
        QPicture record;
        QPainter recorder(&record);
        channel.paint(recorder);
        recorder.end();
        QPainter(&image).drawPicture(0, 0, record);
    } else {
        QPainter painter(&image);
        painter.translate(150, 150);
        painter.rotate(45);
        painter.translate(-150, -150);
        channel.paint(painter);
    }
    // Around the middle, where the line from level to level would pass.
    QCOMPARE(inkedPixels(image, QRect(110, 110, 80, 80)), 0);
    QVERIFY(inkedPixels(image) > 100);
}

void TestReducedPens::wideLinesDoNotFreezeUnderTurnedPainters()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, QSize(600, 600), {"", 2, Qt::blue, Qt::SolidLine});
    channel.setData(SeriesShapes::noise(20000));
    Setup setup;
    setup.transform.rotate(5);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(inkedPixels(picture(channel, Painting::Reduced, setup)) > 600 * 300);
    QVERIFY2(timer.elapsed() < 4000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_MAIN(TestReducedPens)
#include "tst_zrqtbufferedchannel_reducedpens.moc"
