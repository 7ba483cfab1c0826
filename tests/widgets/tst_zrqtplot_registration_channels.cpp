#include "shared/quiettest.h"
#include "shared/registrationscene.h"

#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"

/// What a plot wires for a channel, and what ends when it lets the channel go.
class tst_ZrQtPlotRegistrationChannels : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void channelGetsItsCanvasesAtOnce();
    void channelFollowsTheCanvas();
    void channelExtentIsTakenAtOnce();
    void channelsWithoutDataAskNoOther_data();
    void channelsWithoutDataAskNoOther();
    void channelTwice();
    void channelRepaints_data();
    void channelRepaints();
    void channelHiddenRepaintsAndRefits();
    void channelKeepsItsSelection_data();
    void channelKeepsItsSelection();
    void channelRemoved();
    void channelRemovedRefits();
    void channelRemovedTwice();
    void cosy0ReturnsToAutoFit_data();
    void cosy0ReturnsToAutoFit();
    void cosy0ReturnsWhateverTheModeBefore();
    void bufferedChannelBuiltAsChild();
};

namespace {

const Cosy C3 = ZrQtPlot::COSY_3;

/// Counts how often it is asked for its extent.
class AskedChannel : public ProbeChannel
{
public:
    using ProbeChannel::ProbeChannel;

    QRectF boundingRect() override
    {
        ++timesAsked;
        return ProbeChannel::boundingRect();
    }

    int timesAsked = 0;
};

} // namespace

void tst_ZrQtPlotRegistrationChannels::channelGetsItsCanvasesAtOnce()
{
    Scene scene;
    scene.plot->setScaling(ZrQtPlot::Custom, C0);
    scene.plot->setScaling(ZrQtPlot::Custom, C1);
    scene.plot->setMinX(-5, C0);
    scene.plot->setMaxY(25, C1);
    ProbeChannel channel;
    channel.setCosyY(C1);
    QCOMPARE(channel.canvas(), QRectF());
    PlotLog log(scene.plot);
    scene.plot->addChannel(&channel);
    QCOMPARE(channel.canvas(), QRectF(-5, 0, 15, 25));
    QCOMPARE(channel.parentWidget(), scene.plot);
    QCOMPARE(log.take(), QStringList());
    scene.plot->removeChannel(&channel);
}

void tst_ZrQtPlotRegistrationChannels::channelFollowsTheCanvas()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF(), C0, C1);
    QSignalSpy told(channel, &ZrQtBaseChannel::canvasChanged);
    scene.plot->setCanvas(QRectF(3, 3, 2, 2), C0);
    scene.plot->setCanvas(QRectF(7, 7, 1, 1), C1);
    QCOMPARE(channel->canvas(), QRectF(3, 7, 2, 1));
    QCOMPARE(told.size(), 2);
}

void tst_ZrQtPlotRegistrationChannels::channelExtentIsTakenAtOnce()
{
    Scene scene;
    QWidget hiddenParent;
    auto *channel = new ProbeChannel(&hiddenParent);
    channel->setCosyY(C1);
    channel->setRectSilently(QRectF(0, 0, 50, 60));
    PlotLog log(scene.plot);
    scene.plot->addChannel(channel);
    // x of the one system before y of the other.
    const QStringList expected = {PlotLog::canvas(0, 50, 0, 10, C0), PlotLog::canvas(0, 10, 0, 60, C1)};
    QCOMPARE(log.take(), expected);
}

void tst_ZrQtPlotRegistrationChannels::channelsWithoutDataAskNoOther_data()
{
    QTest::addColumn<QRectF>("extent");
    QTest::newRow("no data at all") << QRectF();
    QTest::newRow("data") << QRectF(1, 2, 3, 4);
}

/// Or else a thousand channels would be a million questions.
void tst_ZrQtPlotRegistrationChannels::channelsWithoutDataAskNoOther()
{
    QFETCH(const QRectF, extent);
    Scene scene;
    AskedChannel first(scene.plot);
    first.setRect(extent);
    new ZrQtBufferedChannel(scene.plot);
    first.timesAsked = 0;
    for (int i = 0; i < 100; ++i)
        new ZrQtBufferedChannel(scene.plot);
    QCOMPARE(first.timesAsked, 0);

    // What is reported afterwards is seen.
    first.setRect({10, 20, 30, 40});
    auto *last = new ZrQtBufferedChannel(scene.plot);
    last->setData(QVector<QPointF>{{50, 60}, {70, 80}});
    scene.plot->setScaling(ZrQtPlot::Custom, C0);
    scene.plot->setScaling(ZrQtPlot::AutoFit, C0);
    const QRectF canvas = scene.plot->canvas(C0);
    QVERIFY(canvas.contains(QRectF(10, 20, 60, 60)));
    QVERIFY(canvas.width() < 70 && canvas.height() < 70);
}

void tst_ZrQtPlotRegistrationChannels::channelTwice()
{
    // An extent of one point is fitted anew each time it is reported, so the signals count the connections.
    Scene scene;
    scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(true);
    auto *channel = new ProbeChannel(scene.plot, QRectF(5, 7, 0, 0));
    scene.plot->addChannel(channel);
    scene.plot->addChannel(channel);
    PlotLog log(scene.plot);
    channel->setRect(QRectF(5, 7, 0, 0));
    QCOMPARE(log.take().size(), 2);

    // Once removed it is gone.
    scene.plot->removeChannel(channel);
    QCOMPARE(channel->parentWidget(), nullptr);
    log.take();
    channel->setRect(QRectF(100, 100, 5, 5));
    QCOMPARE(log.take(), QStringList());
    delete channel;
}

void tst_ZrQtPlotRegistrationChannels::channelRepaints_data()
{
    QTest::addColumn<int>("which");

    QTest::newRow("dataChanged") << 0;
    QTest::newRow("showInLegendChanged") << 1;
    QTest::newRow("visibilityChanged, visible") << 2;
    QTest::newRow("visibilityChanged, invisible") << 3;
}

void tst_ZrQtPlotRegistrationChannels::channelRepaints()
{
    QFETCH(const int, which);

    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF());
    scene.repaints();
    QVERIFY(!scene.repaints());
    const auto emitSignal = [channel, which] {
        if (which == 0)
            channel->announceData();
        else if (which == 1)
            Q_EMIT channel->showInLegendChanged(true);
        else
            Q_EMIT channel->visibilityChanged(which == 2);
    };
    emitSignal();
    QVERIFY(scene.repaints());

    scene.plot->removeChannel(channel);
    scene.repaints();
    QVERIFY(!scene.repaints());
    emitSignal();
    QVERIFY(!scene.repaints());
    delete channel;
}

void tst_ZrQtPlotRegistrationChannels::channelHiddenRepaintsAndRefits()
{
    Scene scene;
    auto *outer = new ProbeChannel(scene.plot, QRectF(0, 0, 100, 100));
    new ProbeChannel(scene.plot, QRectF(20, 20, 10, 10));
    PlotLog log(scene.plot);

    // The forced fit leaves the channel out because it is no longer selected; a mere signal does not.
    Q_EMIT outer->visibilityChanged(true);
    QCOMPARE(log.take(), QStringList());
    Q_EMIT outer->visibilityChanged(false);
    QCOMPARE(log.take(), QStringList());
    outer->setVisible(false);
    const QStringList expected = {PlotLog::canvas(20, 30, 0, 100, C0), PlotLog::canvas(20, 30, 20, 30, C0)};
    QCOMPARE(log.take(), expected);
}

void tst_ZrQtPlotRegistrationChannels::channelKeepsItsSelection_data()
{
    QTest::addColumn<bool>("shownBefore");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("byParent");

    for (const bool byParent : {false, true}) {
        const char *way = byParent ? "setParent" : "addChannel";
        // A visible widget is hidden by QWidget::setParent before the plot can hear of it.
        if (!byParent)
            QTest::addRow("%s, shown window, selected", way) << true << true << byParent;
        QTest::addRow("%s, shown and hidden again", way) << true << false << byParent;
        QTest::addRow("%s, never shown, selected", way) << false << true << byParent;
        QTest::addRow("%s, never shown, not selected", way) << false << false << byParent;
    }
}

void tst_ZrQtPlotRegistrationChannels::channelKeepsItsSelection()
{
    QFETCH(const bool, shownBefore);
    QFETCH(const bool, selected);
    QFETCH(const bool, byParent);

    for (const bool shownPlot : {true, false}) {
        Scene scene;
        ZrQtPlot hidden;
        ZrQtPlot *plot = shownPlot ? scene.plot : &hidden;
        QWidget home;
        if (shownBefore)
            home.show();
        auto *channel = new ProbeChannel(&home);
        QCOMPARE(channel->isVisible(), shownBefore);
        channel->setVisible(selected);
        channel->setRectSilently(QRectF(0, 0, 50, 60));
        if (byParent)
            channel->setParent(plot);
        else
            plot->addChannel(channel);
        QCOMPARE(channel->isSelectedForDisplay(), selected);
        // What counts as selected takes part in the scaling.
        plot->setCanvasMarginLeft(0.25);
        QCOMPARE(plot->canvas(C0).right() > 40, selected);
    }
}

void tst_ZrQtPlotRegistrationChannels::channelRemoved()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF(0, 0, 50, 60));
    const QRectF canvas = channel->canvas();
    scene.plot->removeChannel(channel);
    QCOMPARE(channel->parentWidget(), nullptr);
    scene.plot->setMinX(-7, C0);
    QCOMPARE(channel->canvas(), canvas);
    PlotLog log(scene.plot);
    QWidget home;
    channel->setParent(&home);
    channel->setRect(QRectF(0, 0, 500, 600));
    channel->setVisible(false);
    channel->setVisible(true);
    channel->setCosyX(C1);
    QCOMPARE(log.take(), QStringList());

    // And back again.
    scene.plot->addChannel(channel);
    channel->setRect(QRectF(0, 0, 500, 601));
    QCOMPARE(scene.plot->canvas(C1).right(), 500.0);
}

void tst_ZrQtPlotRegistrationChannels::channelRemovedRefits()
{
    Scene scene;
    new ProbeChannel(scene.plot, QRectF(20, 20, 10, 10), C0, C1);
    auto *outer = new ProbeChannel(scene.plot, QRectF(0, 0, 100, 100), C0, C1);
    PlotLog log(scene.plot);
    scene.plot->removeChannel(outer);
    const QStringList expected = {PlotLog::canvas(20, 30, 0, 10, C0), PlotLog::canvas(0, 10, 20, 30, C1)};
    QCOMPARE(log.take(), expected);
    delete outer;
}

void tst_ZrQtPlotRegistrationChannels::channelRemovedTwice()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF(0, 0, 50, 60));
    scene.plot->removeChannel(channel);
    scene.plot->setDefaultScalingX(ZrQtPlot::Custom);
    scene.plot->setDefaultScalingY(ZrQtPlot::Custom);
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Custom);
    PlotLog log(scene.plot);
    scene.plot->removeChannel(channel);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Custom);
    delete channel;
}

void tst_ZrQtPlotRegistrationChannels::cosy0ReturnsToAutoFit_data()
{
    QTest::addColumn<ZrQtPlot::ScalingMode>("x");
    QTest::addColumn<ZrQtPlot::ScalingMode>("y");
    QTest::addColumn<bool>("returns");

    QTest::newRow("neither is AutoFit") << ZrQtPlot::Custom << ZrQtPlot::KeepAtHead << true;
    QTest::newRow("both Manual") << ZrQtPlot::Manual << ZrQtPlot::Manual << true;
    QTest::newRow("x is AutoFit already") << ZrQtPlot::AutoFit << ZrQtPlot::Custom << false;
    QTest::newRow("y is AutoFit already") << ZrQtPlot::Custom << ZrQtPlot::AutoFit << false;
    QTest::newRow("both are AutoFit") << ZrQtPlot::AutoFit << ZrQtPlot::AutoFit << false;
}

void tst_ZrQtPlotRegistrationChannels::cosy0ReturnsToAutoFit()
{
    QFETCH(const ZrQtPlot::ScalingMode, x);
    QFETCH(const ZrQtPlot::ScalingMode, y);
    QFETCH(const bool, returns);

    for (const QString &way :
         {QStringLiteral("remove"), QStringLiteral("setParent"), QStringLiteral("delete")}) {
        Scene scene;
        // A channel that has nothing to do with COSY_0, and one that gives COSY_0 an extent.
        auto *other = new ProbeChannel(scene.plot, QRectF(0, 0, 1, 1), C3, C3);
        new ProbeChannel(scene.plot, QRectF(0, 0, 100, 50));
        scene.plot->setCanvas(QRectF(40, 40, 5, 5), C0);
        scene.plot->setScalingX(x, C0, false);
        scene.plot->setScalingY(y, C0, false);
        PlotLog log(scene.plot);
        if (way == QLatin1String("remove"))
            scene.plot->removeChannel(other);
        else if (way == QLatin1String("setParent"))
            other->setParent(nullptr);
        QScopedPointer<ProbeChannel> owner(other);
        owner.reset();

        QStringList expected;
        if (returns) {
            expected << PlotLog::canvas(0, 100, 40, 45, C0)
                     << PlotLog::mode(ZrQtPlot::AutoFit, ZrQtPlot::Axis_X, C0)
                     << PlotLog::canvas(0, 100, 0, 50, C0)
                     << PlotLog::mode(ZrQtPlot::AutoFit, ZrQtPlot::Axis_Y, C0);
        }
        QCOMPARE(log.take(), expected);
        QCOMPARE(scene.plot->scalingX(C0), returns ? ZrQtPlot::AutoFit : x);
        QCOMPARE(scene.plot->scalingY(C0), returns ? ZrQtPlot::AutoFit : y);
    }
}

void tst_ZrQtPlotRegistrationChannels::cosy0ReturnsWhateverTheModeBefore()
{
    // The canvas shows the head of the data, which otherwise brings KeepAtHead back.
    Scene scene;
    auto *other = new ProbeChannel(scene.plot, QRectF(0, 0, 1, 1), C3, C3);
    new ProbeChannel(scene.plot, QRectF(0, 0, 100, 50));
    scene.plot->setDefaultScalingX(ZrQtPlot::KeepAtHead);
    scene.plot->setDefaultScalingY(ZrQtPlot::KeepAtHead);
    scene.plot->setInitialCanvas(QRectF(90, 40, 10, 10));
    delete other;
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->scalingY(C0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 100, 50));
}

void tst_ZrQtPlotRegistrationChannels::bufferedChannelBuiltAsChild()
{
    Scene scene;
    auto *channel = new ZrQtBufferedChannel(scene.plot);
    channel->setData(QVector<double>{1, 4, 9, 16});
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 1, 3, 15));
    QCOMPARE(channel->canvas(), QRectF(0, 1, 3, 15));
}

QTEST_MAIN(tst_ZrQtPlotRegistrationChannels)

#include "tst_zrqtplot_registration_channels.moc"
