#include <QtTest/QtTest>

#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"

#include <functional>

/// What a move of the mouse costs over very many items that the user may edit. It is to stay well below the
/// 16 ms of a frame.
class BenchmarkPlotChannel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hover_data();
    void hover();
};

namespace {

using Fill = std::function<void(ZrQtPlotChannel &)>;

constexpr int itemCount = 100000;
constexpr int columns = 400;

/// The place of an item, which is 1 x 1 in size, in a grid of 400 x 250. Nothing is to its right, so that a
/// mouse there is compared with every item in vain.
QPointF cell(int i)
{
    return QPointF(2 * (i % columns), 2 * (i / columns));
}

template <typename Item> QVector<Item> items(const std::function<Item(int)> &make)
{
    QVector<Item> all(itemCount);
    for (int i = 0; i < itemCount; ++i)
        all[i] = make(i);
    return all;
}

QVector<QRectF> smallRects()
{
    return items<QRectF>([](int i) { return QRectF(cell(i), QSizeF(1.0, 1.0)); });
}

/// One in the other, all of them around the mouse, which is near none of their edges.
QVector<QRectF> nestedRects()
{
    return items<QRectF>([](int i) {
        const double size = 1000.0 + 0.001 * i;
        return QRectF(850.0 - size, 250.0 - size, 1.8 * size, 2.0 * size);
    });
}

} // namespace

Q_DECLARE_METATYPE(Fill)

void BenchmarkPlotChannel::hover_data()
{
    QTest::addColumn<Fill>("fill");
    QTest::newRow("points") << Fill(
        [](ZrQtPlotChannel &channel) { channel.setPoints(items<QPointF>(cell)); });
    QTest::newRow("lines") << Fill([](ZrQtPlotChannel &channel) {
        channel.setLines(items<QLineF>([](int i) { return QLineF(0.001 * i, 0.0, 0.001 * i, 1.0); }));
    });
    QTest::newRow("segments") << Fill([](ZrQtPlotChannel &channel) {
        channel.setLineSegments(
            items<QLineF>([](int i) { return QLineF(cell(i), cell(i) + QPointF(1.0, 1.0)); }));
    });
    QTest::newRow("rectangles") << Fill(
        [](ZrQtPlotChannel &channel) { channel.setRectangles(smallRects()); });
    QTest::newRow("circles") << Fill([](ZrQtPlotChannel &channel) { channel.setCircles(smallRects()); });
    QTest::newRow("rectangles around the mouse")
        << Fill([](ZrQtPlotChannel &channel) { channel.setRectangles(nestedRects()); });
    QTest::newRow("circles around the mouse")
        << Fill([](ZrQtPlotChannel &channel) { channel.setCircles(nestedRects()); });
}

void BenchmarkPlotChannel::hover()
{
    QFETCH(Fill, fill);
    ZrQtPlot plot;
    plot.resize(800, 400);
    plot.setInitialCanvas(QRectF(0.0, 0.0, 900.0, 500.0));
    plot.setDefaultScalingX(ZrQtPlot::Manual);
    plot.setDefaultScalingY(ZrQtPlot::Manual);
    auto *channel = new ZrQtPlotChannel(&plot);
    channel->setEditable(true);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    // Painting so much takes its time, and is not what is measured.
    plot.setUpdatesEnabled(false);
    fill(*channel);

    int step = 0;
    QBENCHMARK
    {
        QTest::mouseMove(plot.windowHandle(), QPoint(750 + step % 20, 200));
        ++step;
    }
}

QTEST_MAIN(BenchmarkPlotChannel)
#include "bm_plotchannel.moc"
