#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QtTest>

#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "tests/shared/seriesshapes.h"

#include <initializer_list>

/// What the picture of a long series costs, plain and reduced, in 1200 x 600 pixels.
class BenchmarkReduction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void redraw_data();
    void redraw();
    void pan_data();
    void pan();
    void stream_data();
    void stream();
    void wide();
    void antialiased();
    void markers();

private:
    static void addRows(std::initializer_list<int> plainSizes, std::initializer_list<int> reducedSizes);
    static SeriesShapes::Points shape(const QString &name, int size);
    void prepare(ZrQtBufferedChannel &channel, bool reduced);
    void paint(ZrQtBufferedChannel &channel);

    QWidget m_window;
    QImage m_image{1200, 600, QImage::Format_RGB32};
};

void BenchmarkReduction::initTestCase()
{
    m_window.resize(m_image.size());
    m_window.show();
}

void BenchmarkReduction::addRows(std::initializer_list<int> plainSizes,
                                 std::initializer_list<int> reducedSizes)
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("reduced");
    for (const char *name : {"noise", "random walk", "sine"}) {
        for (const int size : plainSizes)
            QTest::addRow("%s of %d points, plain", name, size) << QString::fromLatin1(name) << size << false;
        for (const int size : reducedSizes)
            QTest::addRow("%s of %d points, reduced", name, size)
                << QString::fromLatin1(name) << size << true;
    }
}

SeriesShapes::Points BenchmarkReduction::shape(const QString &name, int size)
{
    if (name == QLatin1String("noise"))
        return SeriesShapes::noise(size);
    return name == QLatin1String("sine") ? SeriesShapes::sine(size) : SeriesShapes::randomWalk(size);
}

void BenchmarkReduction::prepare(ZrQtBufferedChannel &channel, bool reduced)
{
    channel.resize(m_image.size());
    channel.setDataReduction(reduced);
    channel.setCanvas(QRectF(-0.02, -1.05, 1.04, 2.1));
}

void BenchmarkReduction::paint(ZrQtBufferedChannel &channel)
{
    m_image.fill(Qt::white);
    QPainter painter(&m_image);
    channel.paint(painter);
}

void BenchmarkReduction::redraw_data()
{
    addRows({1000, 10000, 100000}, {1000, 10000, 100000, 1000000, 10000000});
}

void BenchmarkReduction::redraw()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(bool, reduced);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, reduced);
    channel.setData(shape(name, size));
    paint(channel);
    paint(channel); // makes the index
    QBENCHMARK
    {
        paint(channel);
    }
}

void BenchmarkReduction::pan_data()
{
    addRows({100000}, {100000, 1000000, 10000000});
}

/// A tenth of the series is visible.
void BenchmarkReduction::pan()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(bool, reduced);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, reduced);
    channel.setData(shape(name, size));
    paint(channel);
    paint(channel); // makes the index
    int step = 0;
    QBENCHMARK
    {
        step = (step + 1) % 800;
        channel.setCanvas(QRectF(step * 0.001, -1.05, 0.1, 2.1));
        paint(channel);
    }
}

void BenchmarkReduction::stream_data()
{
    addRows({10000}, {10000, 100000, 1000000});
}

/// New data for each picture.
void BenchmarkReduction::stream()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(bool, reduced);
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, reduced);
    const SeriesShapes::Points points = shape(name, size);
    QVector<double> x;
    QVector<double> y[2];
    for (const QPointF &point : points) {
        x.append(point.x());
        y[0].append(point.y());
        y[1].append(-point.y());
    }
    int turn = 0;
    QBENCHMARK
    {
        turn = 1 - turn;
        channel.setData(x, y[turn]);
        paint(channel);
    }
}

void BenchmarkReduction::wide()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, true);
    channel.setLineWidth(2);
    channel.setData(SeriesShapes::noise(100000));
    paint(channel);
    paint(channel); // makes the index
    QBENCHMARK
    {
        paint(channel);
    }
}

void BenchmarkReduction::antialiased()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, true);
    channel.setAntialiasing(true);
    channel.setData(SeriesShapes::noise(1000000));
    paint(channel);
    paint(channel); // makes the index
    QBENCHMARK
    {
        paint(channel);
    }
}

void BenchmarkReduction::markers()
{
    ZrQtBufferedChannel channel(&m_window);
    prepare(channel, true);
    channel.setLineWidth(0);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
    channel.setPointSize(5);
    channel.setData(SeriesShapes::noise(100000));
    paint(channel);
    paint(channel); // makes the index
    QBENCHMARK
    {
        paint(channel);
    }
}

QTEST_MAIN(BenchmarkReduction)
#include "bm_reduction.moc"
