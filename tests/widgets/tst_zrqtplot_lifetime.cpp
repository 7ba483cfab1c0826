#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <memory>
#include <utility>

/// Registered widgets and plots that die, in every order and by every way.
class tst_ZrQtPlotLifetime : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void childDies_data();
    void childDies();
    void plotDiesFirst_data();
    void plotDiesFirst();
    void everyOrder_data();
    void everyOrder();
    void edgeChannelDies_data();
    void edgeChannelDies();
    void deadChannelDelayedRefit();
    void plotDiesWithTheDelayRunning();
    void channelDiesInASlot_data();
    void channelDiesInASlot();
    void plotDiesAfterItsOwnSignal();
    void removedInASlot();
    void emittingWhileThePlotDies();
    void removedChildOutlivesThePlot();
};

namespace {

const Cosy C0 = ZrQtPlot::COSY_0;
const Cosy C1 = ZrQtPlot::COSY_1;

enum Kind { Axis, Probe, Buffered, Editable, Slider, Custom };
const Kind allKinds[] = {Axis, Probe, Buffered, Editable, Slider, Custom};
enum Way { Delete, DeleteLater, RemoveAndDelete };

QWidget *makeChild(Kind kind, ZrQtPlot *plot)
{
    switch (kind) {
    case Axis: {
        auto *axis = new ZrQtAxis(plot);
        axis->setUseForGrid(true);
        axis->show();
        return axis;
    }
    case Probe:
        return new ProbeChannel(plot, QRectF(0, 0, 100, 50));
    case Buffered: {
        auto *channel = new ZrQtBufferedChannel(plot);
        channel->setData(QVector<double>{1, 4, 9});
        return channel;
    }
    case Editable:
        return new ZrQtPlotChannel(plot);
    case Slider:
        return new ZrQtPlotSlider(plot);
    case Custom:
        break;
    }
    return new QWidget(plot);
}

void kill(QWidget *child, Way way, ZrQtPlot *plot)
{
    const QPointer<QWidget> guard(child);
    if (way == RemoveAndDelete) {
        plot->removeAxis(qobject_cast<ZrQtAxis *>(child));
        plot->removeChannel(qobject_cast<ZrQtBaseChannel *>(child));
        plot->removeSlider(qobject_cast<ZrQtPlotSlider *>(child));
        plot->removeCustomWidget(child);
    }
    if (way == DeleteLater) {
        child->deleteLater();
        QCoreApplication::sendPostedEvents(child, QEvent::DeferredDelete);
    } else {
        delete child;
    }
    QVERIFY(!guard);
}

/// Everything that walks the lists of the plot.
void exercise(ZrQtPlot *plot)
{
    plot->setGridModeX(ZrQtPlot::TickGrid);
    plot->setGridModeY(ZrQtPlot::SubTickGrid);
    plot->setGenerateLegend(true);
    plot->setControlChannelUpdatesViaPlot(true);
    QVERIFY(!plot->grab().isNull());
    plot->setControlChannelUpdatesViaPlot(false);
    plot->resize(plot->width() + 1, plot->height());
    plot->setCanvas(QRectF(1, 2, 3, 4), C0);
    plot->setMinX(0.5, C1);
    plot->setKeepAspectRatio(!plot->keepAspectRatio());
    plot->setCanvasMarginLeft(plot->canvasMarginLeft() + 0.01);
    plot->setCanvasMarginTop(plot->canvasMarginTop() + 0.01);
    plot->setUseEmptyBoundingRectsForAutoFitScaling(!plot->useEmptyBoundingRectsForAutoFitScaling());
    plot->setScaling(ZrQtPlot::AutoFit, C0);
    settle(plot);
    QVERIFY(!plot->grab().isNull());
}

void addKinds()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("axis") << int(Axis);
    QTest::newRow("channel") << int(Probe);
    QTest::newRow("buffered channel") << int(Buffered);
    QTest::newRow("plot channel") << int(Editable);
    QTest::newRow("slider") << int(Slider);
    QTest::newRow("custom widget") << int(Custom);
}

} // namespace

void tst_ZrQtPlotLifetime::childDies_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("way");

    const char *kinds[] = {"axis", "channel", "buffered channel", "plot channel", "slider", "custom widget"};
    const char *ways[] = {"delete", "deleteLater", "remove and delete"};
    for (int kind = 0; kind < 6; ++kind) {
        for (int way = 0; way < 3; ++way)
            QTest::addRow("%s: %s", kinds[kind], ways[way]) << kind << way;
    }
}

void tst_ZrQtPlotLifetime::childDies()
{
    QFETCH(const int, kind);
    QFETCH(const int, way);

    ShownPlot shown;
    QVector<QWidget *> children;
    for (const Kind each : allKinds)
        children.append(makeChild(each, shown.plot));
    settle(shown.plot);
    QVERIFY(plotArea(shown.plot) != shown.plot->rect());

    kill(children[kind], Way(way), shown.plot);
    exercise(shown.plot);
    if (kind == Axis) {
        // The space of the axis is free again at once; only the legend keeps its own.
        QCOMPARE(plotArea(shown.plot).left(), 0);
        QCOMPARE(plotArea(shown.plot).right(), shown.plot->rect().right());
    }
    // An object at the same address is a new one.
    makeChild(Kind(kind), shown.plot);
    exercise(shown.plot);
}

void tst_ZrQtPlotLifetime::plotDiesFirst_data()
{
    addKinds();
}

void tst_ZrQtPlotLifetime::plotDiesFirst()
{
    QFETCH(const int, kind);

    for (int variant = 0; variant < 4; ++variant) {
        const bool byWindow = variant % 2 == 0;
        const bool shown = variant < 2;
        // A plot has one slider.
        for (int count = 1; count < (kind == Slider ? 2 : 4); ++count) {
            auto *window = new QWidget;
            auto *plot = new ZrQtPlot(window);
            QVector<QPointer<QWidget>> children;
            for (int i = 0; i < count; ++i)
                children.append(makeChild(Kind(kind), plot));
            if (shown) {
                window->show();
                QApplication::processEvents();
            }
            if (byWindow)
                delete window;
            else
                delete plot;
            for (const auto &child : qAsConst(children))
                QVERIFY(!child);
            if (!byWindow)
                delete window;
        }
    }
}

void tst_ZrQtPlotLifetime::everyOrder_data()
{
    QTest::addColumn<QVector<int>>("order"); // -1: the plot

    // Every order of an axis, a channel, the slider and a custom widget, with the plot at each place.
    QVector<int> order = {0, 1, 2, 3};
    do {
        for (int place = 0; place <= order.size(); ++place) {
            QVector<int> row = order;
            row.insert(place, -1);
            QByteArray name;
            for (const int each : row)
                name += each < 0 ? 'P' : "ACSW"[each];
            QTest::newRow(name) << row;
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_ZrQtPlotLifetime::everyOrder()
{
    QFETCH(const QVector<int>, order);

    QWidget window;
    QPointer<ZrQtPlot> plot = new ZrQtPlot(&window);
    QVector<QPointer<QWidget>> children;
    for (const Kind kind : {Axis, Probe, Slider, Custom})
        children.append(makeChild(kind, plot));
    for (const int index : order) {
        if (index < 0)
            delete plot;
        else
            delete children[index];
        if (plot) {
            plot->setScaling(ZrQtPlot::AutoFit, C0);
            QVERIFY(!plot->grab().isNull());
        }
    }
}

void tst_ZrQtPlotLifetime::edgeChannelDies_data()
{
    QTest::addColumn<int>("way");

    QTest::newRow("delete") << int(Delete);
    QTest::newRow("deleteLater") << int(DeleteLater);
    QTest::newRow("remove and delete") << int(RemoveAndDelete);
}

void tst_ZrQtPlotLifetime::edgeChannelDies()
{
    QFETCH(const int, way);

    ShownPlot shown;
    shown.plot->setCanvasMarginLeft(0);
    shown.plot->setCanvasMarginRight(0);
    shown.plot->setCanvasMarginTop(0);
    shown.plot->setCanvasMarginBottom(0);
    new ProbeChannel(shown.plot, QRectF(20, 20, 10, 10), C0, C1);
    auto *outer = new ProbeChannel(shown.plot, QRectF(0, 0, 100, 100), C0, C1);
    PlotLog log(shown.plot);
    kill(outer, Way(way), shown.plot);
    const QStringList expected = {PlotLog::canvas(20, 30, 0, 10, C0), PlotLog::canvas(0, 10, 20, 30, C1)};
    QCOMPARE(log.take(), expected);
}

void tst_ZrQtPlotLifetime::deadChannelDelayedRefit()
{
    ShownPlot shown;
    auto *stays = new ProbeChannel(shown.plot, QRectF(0, 0, 100, 100));
    auto *dies = new ProbeChannel(shown.plot, QRectF(0, 0, 200, 200));
    shown.plot->setBoundingRectReduceUpdateInterval(30);
    dies->setRect(QRectF(10, 10, 100, 100));
    delete dies;
    stays->setRect(QRectF(10, 10, 50, 50));
    delete stays;
    waitFor(100);
    exercise(shown.plot);
}

void tst_ZrQtPlotLifetime::plotDiesWithTheDelayRunning()
{
    auto *plot = new ZrQtPlot;
    auto *channel = new ProbeChannel(plot, QRectF(0, 0, 100, 100));
    plot->setBoundingRectReduceUpdateInterval(20);
    channel->setRect(QRectF(10, 10, 50, 50));
    delete plot;
    waitFor(60);
}

void tst_ZrQtPlotLifetime::channelDiesInASlot_data()
{
    QTest::addColumn<int>("victim");
    QTest::addColumn<bool>("later");

    QTest::newRow("the sender, later") << 0 << true;
    QTest::newRow("another channel, later") << 1 << true;
    QTest::newRow("an axis, later") << 2 << true;
    QTest::newRow("another channel, at once") << 1 << false;
    QTest::newRow("an axis, at once") << 2 << false;
}

void tst_ZrQtPlotLifetime::channelDiesInASlot()
{
    QFETCH(const int, victim);
    QFETCH(const bool, later);

    ShownPlot shown;
    auto *sender = new ProbeChannel(shown.plot, QRectF(0, 0, 100, 100));
    auto *other = new ProbeChannel(shown.plot, QRectF(-50, -50, 100, 100), C0, C1);
    auto *axis = new ZrQtAxis(shown.plot);
    axis->show();
    QWidget *const victims[] = {sender, other, axis};
    const QPointer<QWidget> doomed(victims[victim]);
    QWidget *alive = doomed;
    connect(shown.plot, &ZrQtPlot::canvasChanged, shown.plot, [&alive, later] {
        // Its death sends the signal again.
        QWidget *dying = std::exchange(alive, nullptr);
        if (dying && later)
            dying->deleteLater();
        else
            delete dying;
    });
    sender->setRect(QRectF(0, 0, 500, 500));
    shown.plot->setCanvas(QRectF(0, 0, 5, 5), C0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!doomed);
    exercise(shown.plot);
}

void tst_ZrQtPlotLifetime::plotDiesAfterItsOwnSignal()
{
    QWidget window;
    QPointer<ZrQtPlot> plot = new ZrQtPlot(&window);
    auto *channel = new ProbeChannel(plot, QRectF(0, 0, 100, 100));
    new ZrQtAxis(plot);
    connect(plot, &ZrQtPlot::canvasChanged, plot, &QObject::deleteLater);
    channel->setRect(QRectF(0, 0, 500, 500));
    QVERIFY(plot);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!plot);
}

void tst_ZrQtPlotLifetime::removedInASlot()
{
    // Lists and records change under the hands of whoever walks them.
    ShownPlot shown;
    QVector<ProbeChannel *> channels;
    for (int i = 0; i < 8; ++i)
        channels.append(new ProbeChannel(shown.plot, QRectF(i, i, 10, 10), Cosy(1 << i), C0));
    int calls = 0;
    connect(shown.plot, &ZrQtPlot::canvasChanged, shown.plot, [&] {
        if (++calls % 2 && !channels.isEmpty()) {
            ProbeChannel *last = channels.takeLast();
            shown.plot->removeChannel(last);
            last->deleteLater();
        }
    });
    shown.plot->setKeepAspectRatio(true);
    shown.plot->setCanvas(QRectF(100, 100, 5, 5), C0);
    shown.plot->setCanvasMarginBottom(0.3);
    shown.plot->resize(300, 200);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(calls > 8);
    exercise(shown.plot);
}

void tst_ZrQtPlotLifetime::emittingWhileThePlotDies()
{
    /// Emits what a channel emits while it dies, when the plot is no plot any more.
    class LastWords : public ProbeChannel
    {
    public:
        using ProbeChannel::ProbeChannel;
        ~LastWords() override
        {
            setVisible(false);
            setRect(QRectF(-1e9, -1e9, 2e9, 2e9));
            announceData();
            setCosyX(ZrQtPlot::COSY_7);
            Q_EMIT showInLegendChanged(false);
        }
    };

    QWidget window;
    auto *plot = new ZrQtPlot(&window);
    new LastWords(plot, QRectF(0, 0, 1, 1));
    auto *axis = new ZrQtAxis(plot);
    connect(axis, &QObject::destroyed, &window, [&window] { window.update(); });
    window.show();
    new LastWords(plot, QRectF(0, 0, 2, 2));
    delete plot;

    // The same words while the plot lives are heard.
    ShownPlot shown;
    delete new LastWords(shown.plot, QRectF(0, 0, 1, 1));
    exercise(shown.plot);
}

void tst_ZrQtPlotLifetime::removedChildOutlivesThePlot()
{
    for (const Kind kind : allKinds) {
        auto *plot = new ZrQtPlot;
        std::unique_ptr<QWidget> child(makeChild(kind, plot));
        QPointer<QWidget> guard(child.get());
        plot->removeAxis(qobject_cast<ZrQtAxis *>(child.get()));
        plot->removeChannel(qobject_cast<ZrQtBaseChannel *>(child.get()));
        if (kind == Slider)
            plot->removeSlider(static_cast<ZrQtPlotSlider *>(child.get()));
        plot->removeCustomWidget(child.get());
        delete plot;
        QVERIFY(guard);
        QWidget home;
        child->setParent(&home);
        home.show();
        child->setVisible(true);
        child->resize(50, 60);
        QVERIFY(child->isVisible());
        child->setParent(nullptr);
    }
}

QTEST_MAIN(tst_ZrQtPlotLifetime)

#include "tst_zrqtplot_lifetime.moc"
