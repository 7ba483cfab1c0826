#include "shared/plotprobe.h"
#include "shared/quiettest.h"

/// How the canvases follow the extents that channels report: tolerances, delay, empty extents, visibility,
/// changed systems.
class tst_ZrQtPlotTracking : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void reportedExtent_data();
    void reportedExtent();
    void firstExtentIsTakenAsItIs();
    void directionsAreFollowedApart();
    void unionOfSeveralChannels();
    void emptyExtentOfAnEdgeChannel();
    void emptyExtentOfAnotherChannel();
    void lastChannelGone();
    void hiddenChannelIsNotFollowed();
    void hidingRefits();
    void hidingDoesNotDependOnTheTolerance();
    void showingFollowsAgain();
    void channelNotForScaling();
    void emptyExtents_data();
    void emptyExtents();
    void emptyExtentsSwitchedOn();
    void emptyExtentReportedAgain();
    void delayedRefit_data();
    void delayedRefit();
    void delayOffFollowsAtOnce();
    void growthStopsTheDelay();
    void delayIsNotProlonged();
    void delayFiresOnce();
    void delaySwitchedOff();
    void edgesKeptStartNoDelay();
    void emptyXStopsTheDelay();
    void changedSystem();
    void changedSystemOfAHiddenChannel();
    void lastOfEqualEdgesHoldsTheEdge();
};

namespace {

const QSize plotSize(400, 200);
const Cosy C0 = ZrQtPlot::COSY_0;
const Cosy C1 = ZrQtPlot::COSY_1;

QString canvas0(double left, double right, double top, double bottom)
{
    return PlotLog::canvas(left, right, top, bottom, C0);
}

/// A plot without canvas margins, so that the canvas of an AutoFit system is the extent of its data.
struct Scene : ShownPlot
{
    explicit Scene(const QRectF &rect = QRectF(0, 0, 100, 100))
        : ShownPlot(plotSize)
    {
        plot->setCanvasMarginLeft(0);
        plot->setCanvasMarginRight(0);
        plot->setCanvasMarginTop(0);
        plot->setCanvasMarginBottom(0);
        channel = new ProbeChannel(plot, rect);
        log.reset(new PlotLog(plot));
    }

    void setTolerance(double tolerance)
    {
        plot->setKeepOldBoundingRectWidthTolerance(tolerance);
        plot->setKeepOldBoundingRectHeightTolerance(tolerance);
    }

    QRectF canvas() const { return plot->canvas(C0); }

    ProbeChannel *channel;
    QScopedPointer<PlotLog> log;
};

const int delay = 120; // milliseconds

} // namespace

void tst_ZrQtPlotTracking::reportedExtent_data()
{
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<QVector<double>>("edges"); // of the canvas afterwards; none: no signal

    // The extent was 0 to 100; with a tolerance of 0.2 the bands reach 10 to each side of an edge.
    using V = QVector<double>;
    QTest::newRow("both edges in their bands") << 0.2 << 5.0 << 95.0 << V();
    QTest::newRow("bands are closed, outer ends") << 0.2 << -10.0 << 110.0 << V();
    QTest::newRow("bands are closed, inner ends") << 0.2 << 10.0 << 90.0 << V();
    QTest::newRow("low edge just below its band") << 0.2 << -11.0 << 100.0 << V{-11, 100};
    QTest::newRow("high edge just above its band") << 0.2 << 0.0 << 111.0 << V{0, 111};
    QTest::newRow("grown below, high edge stays within its band") << 0.2 << -20.0 << 105.0 << V{-20, 100};
    QTest::newRow("grown above, low edge stays within its band") << 0.2 << -5.0 << 120.0 << V{0, 120};
    QTest::newRow("grown on both sides") << 0.2 << -20.0 << 120.0 << V{-20, 120};
    QTest::newRow("low edge moved in, high edge in its band") << 0.2 << 20.0 << 105.0 << V{20, 105};
    QTest::newRow("high edge moved in, low edge in its band") << 0.2 << -5.0 << 80.0 << V{-5, 80};
    QTest::newRow("both edges moved in") << 0.2 << 20.0 << 80.0 << V{20, 80};
    QTest::newRow("moved away altogether") << 0.2 << 500.0 << 600.0 << V{500, 600};
    QTest::newRow("no tolerance, the same") << 0.0 << 0.0 << 100.0 << V();
    QTest::newRow("no tolerance, slightly grown") << 0.0 << 0.0 << 100.5 << V{0, 100.5};
    QTest::newRow("no tolerance, slightly shrunk") << 0.0 << 0.5 << 100.0 << V{0.5, 100};
    QTest::newRow("no tolerance, shrunk inside") << 0.0 << 40.0 << 60.0 << V{40, 60};
    QTest::newRow("no tolerance, shifted") << 0.0 << 50.0 << 150.0 << V{50, 150};
    QTest::newRow("tolerance as wide as the data") << 1.0 << 49.0 << 51.0 << V();
}

void tst_ZrQtPlotTracking::reportedExtent()
{
    QFETCH(const double, tolerance);
    QFETCH(const double, low);
    QFETCH(const double, high);
    QFETCH(const QVector<double>, edges);

    for (const bool horizontal : {true, false}) {
        Scene scene;
        if (horizontal)
            scene.plot->setKeepOldBoundingRectWidthTolerance(tolerance);
        else
            scene.plot->setKeepOldBoundingRectHeightTolerance(tolerance);
        QStringList expected;
        if (!edges.isEmpty())
            expected << (horizontal ? canvas0(edges[0], edges[1], 0, 100)
                                    : canvas0(0, 100, edges[0], edges[1]));
        scene.channel->setRect(horizontal ? QRectF(low, 0, high - low, 100)
                                          : QRectF(0, low, 100, high - low));
        QCOMPARE(scene.log->take(), expected);
    }
}

void tst_ZrQtPlotTracking::firstExtentIsTakenAsItIs()
{
    // A low edge of 0 lies in the band around the edge of an extent that is still null.
    Scene scene{QRectF()};
    scene.setTolerance(0.5);
    QCOMPARE(scene.canvas(), QRectF(0, 0, 10, 10));
    scene.channel->setRect(QRectF(0, -20, 50, 20));
    const QStringList expected = {canvas0(0, 50, 0, 10), canvas0(0, 50, -20, 0)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotTracking::directionsAreFollowedApart()
{
    Scene scene;
    scene.plot->setDefaultScalingY(ZrQtPlot::Custom);
    scene.log->take();
    scene.channel->setRect(QRectF(0, 0, 200, 300));
    // y keeps its canvas, but its extent was followed all the same.
    const QStringList expected = {canvas0(0, 200, 0, 100), canvas0(0, 200, 0, 100)};
    QCOMPARE(scene.log->take(), expected);
    scene.plot->setScalingY(ZrQtPlot::AutoFit, C0);
    QCOMPARE(scene.canvas(), QRectF(0, 0, 200, 300));
}

void tst_ZrQtPlotTracking::unionOfSeveralChannels()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, -20, 100, 50));
    QCOMPARE(scene.canvas(), QRectF(0, -20, 150, 120));
    auto *inner = new ProbeChannel(scene.plot, QRectF(10, 10, 10, 10));
    QCOMPARE(scene.canvas(), QRectF(0, -20, 150, 120));
    scene.log->take();

    // A channel that holds no edge may shrink unnoticed.
    inner->setRect(QRectF(12, 12, 5, 5));
    QCOMPARE(scene.log->take(), QStringList());
    // One that holds an edge may not.
    second->setRect(QRectF(50, 20, 20, 5));
    const QStringList expected = {canvas0(0, 100, -20, 100), canvas0(0, 100, 0, 100)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotTracking::emptyExtentOfAnEdgeChannel()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, 50, 100, 100));
    scene.log->take();

    // Without width it no longer counts for x; its height still does for y.
    second->setRect(QRectF(50, 50, 0, 200));
    const QStringList expected = {canvas0(0, 100, 0, 150), canvas0(0, 100, 0, 250)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotTracking::emptyExtentOfAnotherChannel()
{
    Scene scene;
    auto *inner = new ProbeChannel(scene.plot, QRectF(10, 10, 10, 10));
    scene.channel->setRectSilently(QRectF(0, 0, 80, 80));
    scene.log->take();
    inner->setRect(QRectF(10, 10, 0, -5));
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotTracking::lastChannelGone()
{
    Scene scene;
    scene.channel->clear();
    QCOMPARE(scene.log->take(), QStringList());
    QCOMPARE(scene.canvas(), QRectF(0, 0, 100, 100));
    // Nobody holds an edge: the next extent replaces the old one, also where it is smaller.
    scene.channel->setRect(QRectF(40, 40, 10, 10));
    QCOMPARE(scene.canvas(), QRectF(40, 40, 10, 10));
}

void tst_ZrQtPlotTracking::hiddenChannelIsNotFollowed()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot);
    second->setVisible(false);
    scene.log->take();
    second->setRect(QRectF(-500, -500, 1000, 1000));
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotTracking::hidingRefits()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, 50, 100, 200));
    scene.log->take();
    second->setVisible(false);
    const QStringList expected = {canvas0(0, 100, 0, 250), canvas0(0, 100, 0, 100)};
    QCOMPARE(scene.log->take(), expected);

    // With no channel left, the canvas stays.
    scene.channel->setVisible(false);
    QCOMPARE(scene.log->take(), QStringList());
    QCOMPARE(scene.canvas(), QRectF(0, 0, 100, 100));
}

void tst_ZrQtPlotTracking::hidingDoesNotDependOnTheTolerance()
{
    Scene scene;
    scene.setTolerance(1.0);
    auto *second = new ProbeChannel(scene.plot);
    scene.setTolerance(0.0);
    second->setRect(QRectF(-1, -1, 102, 102));
    scene.setTolerance(1.0);
    scene.plot->setBoundingRectReduceUpdateInterval(60000);
    QCOMPARE(scene.canvas(), QRectF(-1, -1, 102, 102));
    second->setVisible(false);
    QCOMPARE(scene.canvas(), QRectF(0, 0, 100, 100));
}

void tst_ZrQtPlotTracking::showingFollowsAgain()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, 50, 100, 200));
    second->setVisible(false);
    scene.log->take();
    second->setVisible(true);
    const QStringList expected = {canvas0(0, 150, 0, 100), canvas0(0, 150, 0, 250)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotTracking::channelNotForScaling()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, 50, 100, 200));
    scene.log->take();

    // On purpose: what a channel says that is not used for scaling is not heard, its leaving included.
    second->setUseForScaling(false);
    QCOMPARE(scene.log->take(), QStringList());
    second->setRect(QRectF(-500, -500, 1000, 1000));
    QCOMPARE(scene.log->take(), QStringList());
    second->setVisible(false);
    QCOMPARE(scene.log->take(), QStringList());
    // The next fit from all channels leaves it out.
    scene.channel->setRectSilently(QRectF(0, 0, 80, 80));
    scene.plot->setCanvasMarginLeft(1e-9);
    scene.plot->setCanvasMarginTop(1e-9);
    QVERIFY(qAbs(scene.canvas().right() - 80) < 1e-3);
    QVERIFY(qAbs(scene.canvas().bottom() - 80) < 1e-3);
    scene.log->take();

    second->setVisible(true);
    second->setUseForScaling(true);
    QVERIFY(qAbs(scene.canvas().right() - 500) < 1e-3);
    QVERIFY(qAbs(scene.canvas().left() + 500) < 1e-3);
}

void tst_ZrQtPlotTracking::emptyExtents_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<QStringList>("whenOff");
    QTest::addColumn<QStringList>("whenOn");

    QTest::newRow("one point") << QRectF(5, 7, 0, 0) << QStringList()
                               << QStringList{canvas0(4.5, 5.5, 0, 10), canvas0(4.5, 5.5, 6.5, 7.5)};
    QTest::newRow("horizontal line") << QRectF(5, 7, 20, 0) << QStringList{canvas0(5, 25, 0, 10)}
                                     << QStringList{canvas0(5, 25, 0, 10), canvas0(5, 25, 6.5, 7.5)};
    QTest::newRow("vertical line") << QRectF(5, 7, 0, 20) << QStringList{canvas0(0, 10, 7, 27)}
                                   << QStringList{canvas0(4.5, 5.5, 0, 10), canvas0(4.5, 5.5, 7, 27)};
    // Its edges are those of the extent that is known at the start, so nothing has changed.
    QTest::newRow("the origin") << QRectF(0, 0, 0, 0) << QStringList() << QStringList();
}

void tst_ZrQtPlotTracking::emptyExtents()
{
    QFETCH(const QRectF, rect);
    QFETCH(const QStringList, whenOff);
    QFETCH(const QStringList, whenOn);

    Scene off{QRectF()};
    off.channel->setRect(rect);
    QCOMPARE(off.log->take(), whenOff);

    // The channel without content must not have been counted before.
    Scene on{QRectF()};
    on.channel->setUseForScaling(false);
    on.plot->setUseEmptyBoundingRectsForAutoFitScaling(true);
    on.channel->setRectSilently(rect);
    on.log->take();
    on.channel->setUseForScaling(true);
    QCOMPARE(on.log->take(), whenOn);
}

void tst_ZrQtPlotTracking::emptyExtentsSwitchedOn()
{
    Scene scene{QRectF(5, 7, 0, 0)};
    QCOMPARE(scene.canvas(), QRectF(0, 0, 10, 10));
    scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(true);
    QVERIFY(scene.plot->useEmptyBoundingRectsForAutoFitScaling());
    QCOMPARE(scene.canvas(), QRectF(4.5, 6.5, 1, 1));
    const QStringList signalled = scene.log->take();
    QVERIFY(!signalled.isEmpty());
    QCOMPARE(signalled.last(), canvas0(4.5, 5.5, 6.5, 7.5));

    scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(true);
    QCOMPARE(scene.log->take(), QStringList());

    // Off again, nobody qualifies, and the canvas stays.
    scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(false);
    QCOMPARE(scene.log->take(), QStringList());
    QCOMPARE(scene.canvas(), QRectF(4.5, 6.5, 1, 1));
}

void tst_ZrQtPlotTracking::emptyExtentReportedAgain()
{
    // The widened extent differs from the point, so the same point is fitted anew each time it is reported.
    Scene scene{QRectF(5, 7, 0, 0)};
    scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(true);
    scene.log->take();
    scene.channel->setRect(QRectF(5, 7, 0, 0));
    const QString fitted = canvas0(4.5, 5.5, 6.5, 7.5);
    const QStringList expected = {fitted, fitted};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotTracking::delayedRefit_data()
{
    QTest::addColumn<QRectF>("shrunk");
    QTest::addColumn<bool>("both"); // whether two signals come, one a direction

    QTest::newRow("x shrinks inside") << QRectF(20, 0, 80, 100) << false;
    QTest::newRow("y shrinks inside") << QRectF(0, 20, 100, 80) << false;
    QTest::newRow("x and y shrink inside") << QRectF(20, 20, 60, 60) << true;
}

void tst_ZrQtPlotTracking::delayedRefit()
{
    QFETCH(const QRectF, shrunk);
    QFETCH(const bool, both);

    Scene scene;
    scene.setTolerance(0.2);
    scene.plot->setBoundingRectReduceUpdateInterval(delay);
    QElapsedTimer clock;
    clock.start();
    scene.channel->setRect(shrunk);
    QCOMPARE(scene.log->take(), QStringList());
    QTRY_COMPARE(scene.canvas(), shrunk);
    QVERIFY(clock.elapsed() >= delay * 9 / 10);
    const QStringList signalled = scene.log->take();
    QCOMPARE(signalled.size(), both ? 2 : 1);
    QCOMPARE(signalled.last(), PlotLog::canvas(shrunk, C0));
}

void tst_ZrQtPlotTracking::delayOffFollowsAtOnce()
{
    for (const int interval : {-1, 0}) {
        Scene scene;
        scene.setTolerance(0.2);
        scene.plot->setBoundingRectReduceUpdateInterval(interval);
        scene.channel->setRect(QRectF(20, 0, 80, 100));
        QCOMPARE(scene.log->take(), QStringList{canvas0(20, 100, 0, 100)});
    }
}

void tst_ZrQtPlotTracking::growthStopsTheDelay()
{
    Scene scene;
    scene.plot->setBoundingRectReduceUpdateInterval(delay);
    scene.channel->setRect(QRectF(20, 20, 60, 60));
    QCOMPARE(scene.log->take(), QStringList());

    const QStringList expected = {canvas0(0, 200, 0, 100), canvas0(0, 200, 0, 200)};
    scene.channel->setRect(QRectF(0, 0, 200, 200));
    QCOMPARE(scene.log->take(), expected);
    // A pending fit would find this:
    scene.channel->setRectSilently(QRectF(40, 40, 1, 1));
    waitFor(delay * 2);
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotTracking::delayIsNotProlonged()
{
    Scene scene;
    scene.plot->setBoundingRectReduceUpdateInterval(4 * delay);
    scene.channel->setRect(QRectF(20, 20, 60, 60));
    waitFor(2 * delay);
    scene.channel->setRect(QRectF(30, 30, 40, 40));

    // A timer started now must not be the first to fire.
    QTimer rival;
    rival.setTimerType(Qt::PreciseTimer);
    rival.setSingleShot(true);
    QStringList order;
    connect(&rival, &QTimer::timeout, this, [&order] { order.append(QStringLiteral("rival")); });
    connect(scene.plot, &ZrQtPlot::canvasChanged, this, [&order] { order.append(QStringLiteral("plot")); });
    rival.start(3 * delay);
    QTRY_COMPARE(order.size(), 3);
    const QStringList expected = {"plot", "plot", "rival"};
    QCOMPARE(order, expected);
    QCOMPARE(scene.canvas(), QRectF(30, 30, 40, 40));
}

void tst_ZrQtPlotTracking::delayFiresOnce()
{
    Scene scene;
    scene.plot->setBoundingRectReduceUpdateInterval(delay / 2);
    scene.channel->setRect(QRectF(20, 20, 60, 60));
    QTRY_COMPARE(scene.canvas(), QRectF(20, 20, 60, 60));
    QCOMPARE(scene.log->take().size(), 2);
    scene.channel->setRectSilently(QRectF(40, 40, 1, 1));
    waitFor(delay * 2);
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotTracking::delaySwitchedOff()
{
    Scene scene;
    scene.plot->setBoundingRectReduceUpdateInterval(delay);
    scene.channel->setRect(QRectF(20, 20, 60, 60));
    scene.plot->setBoundingRectReduceUpdateInterval(0);
    waitFor(delay * 2);
    QCOMPARE(scene.log->take(), QStringList());
    QCOMPARE(scene.canvas(), QRectF(0, 0, 100, 100));
}

void tst_ZrQtPlotTracking::edgesKeptStartNoDelay()
{
    Scene scene;
    scene.setTolerance(0.2);
    scene.plot->setBoundingRectReduceUpdateInterval(delay / 2);
    scene.channel->setRect(QRectF(5, 5, 90, 90));
    waitFor(delay * 2);
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotTracking::emptyXStopsTheDelay()
{
    // The x direction of an extent without width is not inside, whatever y says later.
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(10, 10, 10, 10));
    scene.plot->setBoundingRectReduceUpdateInterval(delay);
    scene.log->take();
    scene.channel->setRect(QRectF(20, 0, 80, 100)); // x inside: starts
    second->setRect(QRectF(10, 10, 0, 0));          // neither: stops
    waitFor(delay * 2);
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotTracking::changedSystem()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, 50, 100, 20));
    scene.log->take();

    second->setCosyX(C1);
    const QStringList expected = {canvas0(0, 100, 0, 100), PlotLog::canvas(50, 150, 0, 10, C1)};
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(second->canvas(), QRectF(50, 0, 100, 100));

    second->setRect(QRectF(50, -100, 100, 20));
    QCOMPARE(scene.log->take(), QStringList{canvas0(0, 100, -100, 100)});
    second->setCosyY(C1);
    const QStringList expectedY = {canvas0(0, 100, 0, 100), PlotLog::canvas(50, 150, -100, -80, C1)};
    QCOMPARE(scene.log->take(), expectedY);
    QCOMPARE(second->canvas(), QRectF(50, -100, 100, 20));
}

void tst_ZrQtPlotTracking::changedSystemOfAHiddenChannel()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(50, 50, 100, 20));
    scene.plot->setScaling(ZrQtPlot::Custom, C1);
    scene.plot->setMaxX(77, C1);
    second->setVisible(false);
    scene.log->take();

    // It moves no canvas, but it is told the canvas of its new system.
    second->setCosyX(C1);
    QCOMPARE(scene.log->take(), QStringList());
    QCOMPARE(second->canvas(), QRectF(0, 0, 77, 100));
}

void tst_ZrQtPlotTracking::lastOfEqualEdgesHoldsTheEdge()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(0, 0, 100, 100));
    delete new ProbeChannel(scene.plot, QRectF(-1, 0, 102, 100)); // a fit from all channels
    scene.log->take();

    // Of two channels with the same edges the last one holds them. The first may shrink, and nobody looks at
    // all channels again, which would find that the second has shrunk as well.
    second->setRectSilently(QRectF(20, 0, 60, 100));
    scene.channel->setRect(QRectF(10, 0, 80, 100));
    QCOMPARE(scene.log->take(), QStringList());
    second->setRect(QRectF(20, 0, 60, 100));
    QCOMPARE(scene.log->take(), QStringList{canvas0(10, 90, 0, 100)});
}

QTEST_MAIN(tst_ZrQtPlotTracking)

#include "tst_zrqtplot_tracking.moc"
