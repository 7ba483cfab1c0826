#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

#include <cmath>

/// What a screen of any pixel ratio shows: ctest runs this with QT_SCALE_FACTOR 1, 1.5 and 2.
class TestPixelRatio : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void areaIsInPlace_data();
    void areaIsInPlace();
    void lineIsSharp_data();
    void lineIsSharp();
    void axisReachesItsEdge();
    void sliderIsInPlace();

private:
    /// The device pixel of a logical position.
    int device(double logical) const { return int(std::lround(logical * m_ratio)); }

    double m_ratio = 1.0;
};

void TestPixelRatio::initTestCase()
{
    const QByteArray wanted = qgetenv("QT_SCALE_FACTOR");
    m_ratio = wanted.isEmpty() ? 1.0 : wanted.toDouble();
    QCOMPARE(ShownPlot().plot->devicePixelRatioF(), m_ratio);
}

static void addPaths()
{
    QTest::addColumn<bool>("viaPlot");
    QTest::newRow("painted by the channels") << false;
    QTest::newRow("cached by the plot") << true;
}

void TestPixelRatio::areaIsInPlace_data()
{
    addPaths();
}

void TestPixelRatio::areaIsInPlace()
{
    QFETCH(const bool, viaPlot);
    ShownPlot shown(QSize(300, 200));
    shown.plot->setMinMarginLeft(40);
    shown.plot->setMinMarginTop(20);
    shown.plot->setBackgroundColor(Qt::red);
    shown.plot->setControlChannelUpdatesViaPlot(viaPlot);
    const QImage image = shown.plot->grab().toImage();
    QCOMPARE(image.size(), QSize(device(300), device(200)));
    QCOMPARE(image.pixelColor(device(40), device(20)), QColor(Qt::red));
    QCOMPARE(image.pixelColor(device(300) - 1, device(200) - 1), QColor(Qt::red));
    QVERIFY(image.pixelColor(device(40) - 1, device(100)) != QColor(Qt::red));
    QVERIFY(image.pixelColor(device(100), device(20) - 1) != QColor(Qt::red));
}

void TestPixelRatio::lineIsSharp_data()
{
    addPaths();
}

/// A level line is one row of device pixels of its own colour, or its width of them, and no mixture.
void TestPixelRatio::lineIsSharp()
{
    QFETCH(const bool, viaPlot);
    ShownPlot shown(QSize(300, 200));
    shown.plot->setControlChannelUpdatesViaPlot(viaPlot);
    auto *channel = new ZrQtBufferedChannel(shown.plot);
    channel->setLineColor(Qt::blue);
    channel->setData(QVector<QPointF>{{-5, 5}, {15, 5}});
    shown.plot->setCanvas(QRectF(0, 0, 10, 10), ZrQtPlot::COSY_0);
    const QImage image = shown.plot->grab().toImage();
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QColor color = image.pixelColor(device(150), y);
        if (color == QColor(Qt::white))
            continue;
        QCOMPARE(color, QColor(Qt::blue));
        QVERIFY2(std::abs(y - device(100)) <= 1, qPrintable(QString::number(y)));
        ++rows;
    }
    QVERIFY(rows >= 1);
    QVERIFY(rows <= std::ceil(m_ratio));
}

void TestPixelRatio::axisReachesItsEdge()
{
    ShownPlot shown(QSize(300, 200));
    auto *axis = new ZrQtAxis(shown.plot);
    axis->setPosition(Qt::BottomEdge);
    axis->show();
    settle(shown.plot);
    const QImage image = shown.plot->grab().toImage();
    // The line of the axis, over its whole length and no farther.
    const QRect area = plotArea(shown.plot);
    const int y = device(area.bottom() + 2);
    const QColor ground = image.pixelColor(0, y);
    int first = image.width();
    int last = 0;
    for (int x = 0; x < image.width(); ++x) {
        bool ink = false;
        for (int row = device(area.bottom() + 1); row <= y; ++row)
            ink = ink || image.pixelColor(x, row) == QColor(Qt::black);
        if (ink) {
            first = std::min(first, x);
            last = std::max(last, x);
        }
    }
    QVERIFY(ground != QColor(Qt::black));
    QVERIFY2(std::abs(first - device(area.left())) <= std::ceil(m_ratio), qPrintable(QString::number(first)));
    QVERIFY2(std::abs(last - device(area.right())) <= std::ceil(m_ratio), qPrintable(QString::number(last)));
}

void TestPixelRatio::sliderIsInPlace()
{
    ShownPlot shown(QSize(300, 200));
    auto *slider = new ZrQtPlotSlider(shown.plot);
    slider->setSlaveHandleColor(Qt::green);
    slider->show();
    slider->onMasterCanvasChanged(QRectF(0, 0, 100, 1), ZrQtPlot::COSY_0);
    slider->onSlaveCanvasChanged(QRectF(25, 0, 50, 1), ZrQtPlot::COSY_0);
    const QImage image = shown.plot->grab().toImage();
    QVector<int> greens;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, device(100)) == QColor(Qt::green))
            greens.append(x);
    }
    QVERIFY(!greens.isEmpty());
    // Handles begin and end at a quarter and three quarters of the width.
    QVERIFY2(std::abs(greens.constFirst() - device(75)) <= 2 * m_ratio,
             qPrintable(QString::number(greens.constFirst())));
    QVERIFY2(std::abs(greens.constLast() - device(225)) <= 2 * m_ratio,
             qPrintable(QString::number(greens.constLast())));
}

QTEST_MAIN(TestPixelRatio)
#include "tst_pixelratio.moc"
