#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QtTest>

#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

#include <cmath>

/// What it costs to hand a series to a channel in a plot, and to paint it.
class BenchmarkBufferedChannel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setData_data() { addSizes(); }
    void setData();
    void paint_data() { addSizes(); }
    void paint();

private:
    static void addSizes();
    static QVector<double> wave(int size, double phase);
};

void BenchmarkBufferedChannel::addSizes()
{
    QTest::addColumn<int>("size");
    for (int size : {1000, 10000, 100000})
        QTest::addRow("%d points", size) << size;
}

QVector<double> BenchmarkBufferedChannel::wave(int size, double phase)
{
    QVector<double> values(size);
    for (int i = 0; i < size; ++i)
        values[i] = std::sin(phase + i * 0.01);
    return values;
}

void BenchmarkBufferedChannel::setData()
{
    QFETCH(int, size);
    ZrQtPlot plot;
    auto *channel = new ZrQtBufferedChannel(&plot);
    // Two series in turn: setting the same one again would cost nothing.
    const QVector<double> series[] = {wave(size, 0.0), wave(size, 1.0)};
    int turn = 0;
    QBENCHMARK
    {
        channel->setData(series[turn]);
        turn = 1 - turn;
    }
}

void BenchmarkBufferedChannel::paint()
{
    QFETCH(int, size);
    ZrQtPlot plot;
    plot.resize(800, 400);
    auto *channel = new ZrQtBufferedChannel(&plot);
    channel->setData(wave(size, 0.0));
    plot.show();

    QImage image(plot.size(), QImage::Format_ARGB32_Premultiplied);
    QBENCHMARK
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        channel->paint(painter);
    }
}

QTEST_MAIN(BenchmarkBufferedChannel)
#include "bm_bufferedchannel.moc"
