#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "shared/plotprobe.h"
#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <QtCore/QHash>
#include <QtTest/QSignalSpy>

#include <functional>
#include <memory>
#include <vector>

namespace {

/// Counts the events of one type, by receiver.
class EventCount : public QObject
{
public:
    explicit EventCount(QEvent::Type type)
        : m_type(type)
    {
        qApp->installEventFilter(this);
    }

    int of(const QObject *receiver) const { return m_counts.value(receiver); }
    void reset() { m_counts.clear(); }

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (event->type() == m_type)
            ++m_counts[receiver];
        return false;
    }

private:
    QEvent::Type m_type;
    QHash<const QObject *, int> m_counts;
};

enum class Place { OwnWindow, Embedded };

/// A shown plot with four axes and some channels, in a window of its own or inside of one.
class Scene
{
public:
    explicit Scene(Place place, int channelCount = 2)
    {
        QWidget *window = plot;
        if (place == Place::Embedded) {
            plot->setParent(&m_window);
            window = &m_window;
            plot->move(20, 20);
        }
        window->resize(700, 500);
        plot->resize(600, 400);
        for (const Qt::Edge edge : {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge}) {
            axes.append(new ZrQtAxis(plot));
            axes.last()->setPosition(edge);
        }
        for (int i = 0; i < channelCount; ++i) {
            channels.append(new ZrQtBufferedChannel(plot));
            channels.last()->setData(SeriesShapes::sine(100));
        }
        plot->show();
        window->show();
        exposed = QTest::qWaitForWindowExposed(window);
        settle(plot);
    }

    ~Scene()
    {
        if (!plot->parent())
            delete plot;
    }

    ZrQtPlot *plot = new ZrQtPlot;
    QVector<ZrQtAxis *> axes;
    QVector<ZrQtBufferedChannel *> channels;
    bool exposed = false;

private:
    QWidget m_window;
};

using Change = std::function<void(Scene &)>;

} // namespace

Q_DECLARE_METATYPE(Place)
Q_DECLARE_METATYPE(Change)

/// How often things are painted, laid out and computed for one change.
class TestPaintCount : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void changePaintsOnce_data();
    void changePaintsOnce();
    void panMovesNothing();
    void repaintWithoutNewsPaintsNoChannel();
};

void TestPaintCount::changePaintsOnce_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("viaPlot");
    QTest::addColumn<bool>("reduced");
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("paintsAll"); // otherwise the plot and the first channel

    const Change sameExtent = [](Scene &scene) {
        SeriesShapes::Points points = SeriesShapes::sine(100);
        points[50].ry() *= 0.5;
        scene.channels.first()->setData(points);
    };
    const Change newExtent = [](Scene &scene) {
        scene.channels.first()->setData(SeriesShapes::Points{{0, 0}, {3, 4}, {9, 9}});
    };
    const Change withRectangle = [](Scene &scene) {
        scene.channels.first()->setData({0.0, 0.5, 1.0}, {0.0, 0.5, 0.9}, QRectF(0, 0, 1.0, 0.9));
    };
    const Change canvas
        = [](Scene &scene) { scene.plot->setCanvas(QRectF(0.2, -0.3, 0.4, 0.5), ZrQtPlot::COSY_0); };
    const Change otherReduction = [](Scene &scene) {
        ZrQtBufferedChannel *channel = scene.channels.first();
        channel->setDataReduction(!channel->dataReduction());
    };
    const Change size = [](Scene &scene) { scene.plot->resize(640, 430); };
    for (const Place place : {Place::Embedded, Place::OwnWindow}) {
        for (const bool viaPlot : {false, true}) {
            for (const bool reduced : {false, true}) {
                const auto addRow = [=](const char *name, const Change &change, bool paintsAll) {
                    QTest::addRow("%s%s%s%s", name, place == Place::Embedded ? ", embedded" : "",
                                  viaPlot ? ", via the plot" : "", reduced ? ", reduced" : "")
                        << place << viaPlot << reduced << change << paintsAll;
                };
                addRow("data within the same extent", sameExtent, false);
                addRow("data with a new extent", newExtent, true);
                addRow("data with a rectangle", withRectangle, false);
                addRow("canvas", canvas, true);
                addRow("size", size, true);
                addRow("data reduction", otherReduction, false);
            }
        }
    }
}

void TestPaintCount::changePaintsOnce()
{
    QFETCH(Place, place);
    QFETCH(bool, viaPlot);
    QFETCH(bool, reduced);
    QFETCH(Change, change);
    QFETCH(bool, paintsAll);
    Scene scene(place);
    QVERIFY(scene.exposed);
    scene.plot->setControlChannelUpdatesViaPlot(viaPlot);
    for (ZrQtBufferedChannel *channel : std::as_const(scene.channels))
        channel->setDataReduction(reduced);
    QApplication::processEvents();

    EventCount paints(QEvent::Paint);
    change(scene);
    QApplication::processEvents();
    QApplication::processEvents();
    QCOMPARE(paints.of(scene.plot), 1);
    QCOMPARE(paints.of(scene.channels.first()), 1);
    for (const ZrQtBufferedChannel *channel : std::as_const(scene.channels))
        QVERIFY(paints.of(channel) <= 1);
    for (const ZrQtAxis *axis : std::as_const(scene.axes))
        QVERIFY(paints.of(axis) == 1 || (!paintsAll && paints.of(axis) == 0));
}

void TestPaintCount::panMovesNothing()
{
    Scene scene(Place::Embedded, 16);
    QVERIFY(scene.exposed);
    scene.plot->setCanvas(QRectF(0, 0, 1, 1), ZrQtPlot::COSY_0);
    settle(scene.plot);
    // An axis computes its ticks when the canvas is announced, and again when the plot is laid out.
    QSignalSpy announced(scene.plot, &ZrQtPlot::canvasChanged);
    std::vector<std::unique_ptr<QSignalSpy>> layoutWishes;
    for (ZrQtAxis *axis : std::as_const(scene.axes))
        layoutWishes.push_back(std::make_unique<QSignalSpy>(axis, &ZrQtAxis::requestUpdate));
    EventCount layouts(QEvent::LayoutRequest);
    EventCount resizes(QEvent::Resize);
    EventCount moves(QEvent::Move);
    EventCount paints(QEvent::Paint);
    for (int step = 1; step < 5; ++step) {
        paints.reset();
        announced.clear();
        scene.plot->setCanvas(QRectF(step * 0.2, step * 0.2, 1, 1), ZrQtPlot::COSY_0);
        QApplication::processEvents();
        QCOMPARE(announced.size(), 1);
        for (ZrQtAxis *axis : std::as_const(scene.axes))
            QCOMPARE(paints.of(axis), 1);
    }
    for (const auto &wishes : layoutWishes)
        QVERIFY(wishes->isEmpty());
    QVector<QWidget *> widgets{scene.plot};
    for (ZrQtAxis *axis : std::as_const(scene.axes))
        widgets.append(axis);
    for (ZrQtBufferedChannel *channel : std::as_const(scene.channels))
        widgets.append(channel);
    for (const QWidget *widget : std::as_const(widgets))
        QCOMPARE(layouts.of(widget) + resizes.of(widget) + moves.of(widget), 0);
}

void TestPaintCount::repaintWithoutNewsPaintsNoChannel()
{
    ZrQtPlot plot;
    plot.resize(300, 200);
    plot.setControlChannelUpdatesViaPlot(true);
    plot.setPlotUpdateRestrictions(ZrQtPlot::RedrawOnDataChange);
    ProbeChannel channel(&plot, QRectF(0, 0, 1, 1));
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    QApplication::processEvents();
    const int before = channel.paintCount;
    plot.repaint();
    QCOMPARE(channel.paintCount, before);
    channel.announceData();
    plot.repaint();
    QCOMPARE(channel.paintCount, before + 1);
}

QTEST_MAIN(TestPaintCount)
#include "tst_zrqtplot_paintcount.moc"
