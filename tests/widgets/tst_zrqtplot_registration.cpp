#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

/// Which widgets a plot takes in and lets go, by call and by child event, and what it wires.
class tst_ZrQtPlotRegistration : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void construction();

    void axisFollowsTheCanvas_data();
    void axisFollowsTheCanvas();
    void axisGetsNoCanvasAtFirst();
    void axisTwice();
    void axisRemoved();
    void inversionReachesTheChannels_data();
    void inversionReachesTheChannels();
    void inversionEndsWithRemoval();

    void channelGetsItsCanvasesAtOnce();
    void channelFollowsTheCanvas();
    void channelExtentIsTakenAtOnce();
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

    void customWidget();
    void childWithoutWidgetIsIgnored();

    void childrenRegisterThemselves_data();
    void childrenRegisterThemselves();
    void movedToAnotherPlot();
    void movedElsewhereKeepsItsParent_data();
    void movedElsewhereKeepsItsParent();
    void nullAndStrangers();

    void overlayIsOnTop_data();
    void overlayIsOnTop();
    void eventsRaiseTheOverlay_data();
    void eventsRaiseTheOverlay();
    void repeatedRemovalNoticeIsIgnored();
    void eventResultIsThatOfAWidget();
    void overlayLetsTheMouseThrough();
    void overlayTakesTheMouseForEditableChannels();
    void sliderIsAboveTheOverlay();
    void sliderLeavesForAnotherPlot();
};

namespace {

const QSize plotSize(400, 200);
const Cosy C0 = ZrQtPlot::COSY_0;
const Cosy C1 = ZrQtPlot::COSY_1;
const Cosy C3 = ZrQtPlot::COSY_3;

/// Counts its paintings.
class CountingPlot : public ZrQtPlot
{
public:
    void paint(QPainter *painter) override
    {
        ++paintCount;
        ZrQtPlot::paint(painter);
    }

    int paintCount = 0;
};

struct Scene : ShownPlot
{
    Scene()
        : ShownPlot(plotSize, new CountingPlot)
    {
        plot->setCanvasMarginLeft(0);
        plot->setCanvasMarginRight(0);
        plot->setCanvasMarginTop(0);
        plot->setCanvasMarginBottom(0);
    }

    /// Whether a painting follows by itself.
    bool repaints()
    {
        auto *counting = static_cast<CountingPlot *>(plot);
        const int before = counting->paintCount;
        QApplication::processEvents();
        return counting->paintCount > before;
    }
};

QWidget *lastChild(const QWidget *parent)
{
    return qobject_cast<QWidget *>(parent->children().constLast());
}

} // namespace

void tst_ZrQtPlotRegistration::construction()
{
    QWidget parent;
    ZrQtPlot plot(&parent);
    QCOMPARE(plot.parentWidget(), &parent);
    QCOMPARE(plot.sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(plot.sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(plot.minimumSize(), QSize(20, 20));
    QVERIFY(plot.hasMouseTracking());
    QCOMPARE(plot.focusPolicy(), Qt::ClickFocus);
    QVERIFY(overlayOf(&plot));
    QCOMPARE(overlayOf(&plot)->parentWidget(), &plot);
    for (const Cosy cosy : allSystems())
        QCOMPARE(plot.canvas(cosy), QRectF(0, 0, 10, 10));
    plot.setParent(nullptr);
}

void tst_ZrQtPlotRegistration::axisFollowsTheCanvas_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");

    QTest::newRow("left: y") << Qt::LeftEdge << 3.0 << 7.0;
    QTest::newRow("right: y") << Qt::RightEdge << 3.0 << 7.0;
    QTest::newRow("top: x") << Qt::TopEdge << 1.0 << 2.0;
    QTest::newRow("bottom: x") << Qt::BottomEdge << 1.0 << 2.0;
}

void tst_ZrQtPlotRegistration::axisFollowsTheCanvas()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const double, min);
    QFETCH(const double, max);

    Scene scene;
    new ProbeChannel(scene.plot, QRectF(), C1, C1);
    auto *axis = new ZrQtAxis;
    axis->setPosition(edge);
    axis->setCosy(C1);
    scene.plot->addAxis(axis);
    QCOMPARE(axis->parentWidget(), scene.plot);
    // Updated before the call returns.
    scene.plot->setCanvas(QRectF(1, 3, 1, 4), C1);
    QCOMPARE(axis->min(), min);
    QCOMPARE(axis->max(), max);
    scene.plot->setMinX(-50, C0);
    scene.plot->setMinY(-50, C0);
    QCOMPARE(axis->min(), min);
}

void tst_ZrQtPlotRegistration::axisGetsNoCanvasAtFirst()
{
    Scene scene;
    auto *axis = new ZrQtAxis;
    axis->setMinMax(-3, -1);
    PlotLog log(scene.plot);
    scene.plot->addAxis(axis);
    axis->show();
    settle(scene.plot);
    QCOMPARE(axis->min(), -3.0);
    QCOMPARE(axis->max(), -1.0);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 10, 10));
}

void tst_ZrQtPlotRegistration::axisTwice()
{
    // Registered twice, the axis would take its width twice.
    Scene scene;
    auto *axis = new ZrQtAxis(scene.plot);
    scene.plot->addAxis(axis);
    axis->show();
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot).left(), axis->width());
    scene.plot->removeAxis(axis);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    delete axis;
}

void tst_ZrQtPlotRegistration::axisRemoved()
{
    Scene scene;
    auto *axis = new ZrQtAxis(scene.plot);
    axis->show();
    settle(scene.plot);
    QVERIFY(plotArea(scene.plot) != scene.plot->rect());
    scene.plot->setMinY(2, C0);
    QCOMPARE(axis->min(), 2.0);

    scene.plot->removeAxis(axis);
    QCOMPARE(axis->parentWidget(), nullptr);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    scene.plot->setMinY(4, C0);
    QCOMPARE(axis->min(), 2.0);
    // Its wishes no longer reach the plot.
    scene.repaints();
    Q_EMIT axis->requestUpdate();
    QVERIFY(!scene.repaints());

    // It can come back.
    scene.plot->addAxis(axis);
    scene.plot->setMinY(3, C0);
    QCOMPARE(axis->min(), 3.0);
    scene.repaints();
    Q_EMIT axis->requestUpdate();
    QVERIFY(scene.repaints());
}

void tst_ZrQtPlotRegistration::inversionReachesTheChannels_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<Cosy>("cosy");
    QTest::addColumn<QPoint>("pixel"); // of the point (1, 1) of the canvas (0, 0, 10 x 10)

    // The plot area has 400 x 200 pixels, the channel shows x in COSY_0 and y in COSY_1.
    QTest::newRow("bottom, system of x") << Qt::BottomEdge << C0 << QPoint(360, 180);
    QTest::newRow("top, system of x") << Qt::TopEdge << C0 << QPoint(360, 180);
    QTest::newRow("left, system of y") << Qt::LeftEdge << C1 << QPoint(40, 20);
    QTest::newRow("right, system of y") << Qt::RightEdge << C1 << QPoint(40, 20);
    QTest::newRow("bottom, other system") << Qt::BottomEdge << C1 << QPoint(40, 180);
    QTest::newRow("left, other system") << Qt::LeftEdge << C0 << QPoint(40, 180);
}

void tst_ZrQtPlotRegistration::inversionReachesTheChannels()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const Cosy, cosy);
    QFETCH(const QPoint, pixel);

    for (const bool axisFirst : {true, false}) {
        Scene scene;
        auto *axis = new ZrQtAxis; // hidden, so that it takes no space
        axis->setPosition(edge);
        axis->setCosy(cosy);
        axis->setInverted(true);
        axis->hide();
        if (axisFirst)
            scene.plot->addAxis(axis);
        auto *channel = new ProbeChannel(scene.plot, QRectF(), C0, C1);
        if (!axisFirst) {
            QCOMPARE(channel->mapToPixel(QPointF(1, 1)), QPoint(40, 180));
            scene.plot->addAxis(axis);
        }
        QCOMPARE(plotArea(scene.plot), scene.plot->rect());
        QCOMPARE(channel->mapToPixel(QPointF(1, 1)), pixel);

        // And it is followed.
        axis->setInverted(false);
        QCOMPARE(channel->mapToPixel(QPointF(1, 1)), QPoint(40, 180));
        scene.repaints();
        axis->setInverted(true);
        QCOMPARE(channel->mapToPixel(QPointF(1, 1)), pixel);
        QVERIFY(scene.repaints());
    }
}

void tst_ZrQtPlotRegistration::inversionEndsWithRemoval()
{
    Scene scene;
    auto *axis = new ZrQtAxis(scene.plot);
    axis->setPosition(Qt::BottomEdge);
    axis->hide();
    auto *first = new ProbeChannel(scene.plot, QRectF());
    auto *second = new ProbeChannel(scene.plot, QRectF());
    first->setGeometry(0, 0, 400, 200);
    second->setGeometry(0, 0, 400, 200);

    scene.plot->removeChannel(first);
    axis->setInverted(true);
    QCOMPARE(first->mapToPixel(QPointF(1, 1)).x(), 40);
    QCOMPARE(second->mapToPixel(QPointF(1, 1)).x(), 360);
    scene.plot->removeAxis(axis);
    axis->setInverted(false);
    QCOMPARE(second->mapToPixel(QPointF(1, 1)).x(), 360);
    delete first;
    delete axis;
}

void tst_ZrQtPlotRegistration::channelGetsItsCanvasesAtOnce()
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

void tst_ZrQtPlotRegistration::channelFollowsTheCanvas()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF(), C0, C1);
    QSignalSpy told(channel, &ZrQtBaseChannel::canvasChanged);
    scene.plot->setCanvas(QRectF(3, 3, 2, 2), C0);
    scene.plot->setCanvas(QRectF(7, 7, 1, 1), C1);
    QCOMPARE(channel->canvas(), QRectF(3, 7, 2, 1));
    QCOMPARE(told.size(), 2);
}

void tst_ZrQtPlotRegistration::channelExtentIsTakenAtOnce()
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

void tst_ZrQtPlotRegistration::channelTwice()
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

void tst_ZrQtPlotRegistration::channelRepaints_data()
{
    QTest::addColumn<int>("which");

    QTest::newRow("dataChanged") << 0;
    QTest::newRow("showInLegendChanged") << 1;
    QTest::newRow("visibilityChanged, visible") << 2;
    QTest::newRow("visibilityChanged, invisible") << 3;
}

void tst_ZrQtPlotRegistration::channelRepaints()
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

void tst_ZrQtPlotRegistration::channelHiddenRepaintsAndRefits()
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

void tst_ZrQtPlotRegistration::channelKeepsItsSelection_data()
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

void tst_ZrQtPlotRegistration::channelKeepsItsSelection()
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

void tst_ZrQtPlotRegistration::channelRemoved()
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

void tst_ZrQtPlotRegistration::channelRemovedRefits()
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

void tst_ZrQtPlotRegistration::channelRemovedTwice()
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

void tst_ZrQtPlotRegistration::cosy0ReturnsToAutoFit_data()
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

void tst_ZrQtPlotRegistration::cosy0ReturnsToAutoFit()
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

void tst_ZrQtPlotRegistration::cosy0ReturnsWhateverTheModeBefore()
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

void tst_ZrQtPlotRegistration::bufferedChannelBuiltAsChild()
{
    Scene scene;
    auto *channel = new ZrQtBufferedChannel(scene.plot);
    channel->setData(QVector<double>{1, 4, 9, 16});
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 1, 3, 15));
    QCOMPARE(channel->canvas(), QRectF(0, 1, 3, 15));
}

void tst_ZrQtPlotRegistration::customWidget()
{
    Scene scene;
    QWidget custom;
    scene.plot->addCustomWidget(&custom);
    scene.plot->addCustomWidget(&custom);
    QCOMPARE(custom.parentWidget(), scene.plot);
    settle(scene.plot);
    QCOMPARE(custom.geometry(), plotArea(scene.plot));

    scene.plot->removeCustomWidget(&custom);
    QCOMPARE(custom.parentWidget(), nullptr);
    custom.setGeometry(1, 2, 30, 40);
    settle(scene.plot);
    QCOMPARE(custom.geometry(), QRect(1, 2, 30, 40));
    scene.plot->removeCustomWidget(&custom);
    QCOMPARE(custom.parentWidget(), nullptr);
}

void tst_ZrQtPlotRegistration::childWithoutWidgetIsIgnored()
{
    Scene scene;
    auto *timer = new QTimer(scene.plot);
    settle(scene.plot);
    delete timer;
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
}

void tst_ZrQtPlotRegistration::childrenRegisterThemselves_data()
{
    QTest::addColumn<bool>("built");

    QTest::newRow("built as children") << true;
    QTest::newRow("made children") << false;
}

void tst_ZrQtPlotRegistration::childrenRegisterThemselves()
{
    QFETCH(const bool, built);

    Scene scene;
    auto *axis = new ZrQtAxis(built ? scene.plot : nullptr);
    auto *channel = new ProbeChannel(built ? scene.plot : nullptr);
    auto *custom = new QWidget(built ? scene.plot : nullptr);
    if (!built) {
        axis->setParent(scene.plot);
        channel->setParent(scene.plot);
        custom->setParent(scene.plot);
    }
    axis->show();
    channel->show();
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot).left(), axis->width());
    QCOMPARE(channel->geometry(), plotArea(scene.plot));
    QCOMPARE(custom->geometry(), plotArea(scene.plot));
    channel->setRect(QRectF(0, 0, 3, 4));
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 3, 4));
    QCOMPARE(axis->max(), 4.0);

    // They leave as they came.
    axis->setParent(nullptr);
    channel->setParent(nullptr);
    custom->setParent(nullptr);
    custom->setGeometry(1, 2, 30, 40);
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    QCOMPARE(custom->geometry(), QRect(1, 2, 30, 40));
    channel->setRect(QRectF(0, 0, 30, 40));
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 3, 4));
    scene.plot->setMaxY(100, C0);
    QCOMPARE(axis->max(), 4.0);
    delete axis;
    delete channel;
    delete custom;
}

void tst_ZrQtPlotRegistration::movedToAnotherPlot()
{
    Scene one;
    Scene two;
    auto *channel = new ProbeChannel(one.plot, QRectF(0, 0, 3, 4));
    auto *axis = new ZrQtAxis(one.plot);
    two.plot->addChannel(channel);
    two.plot->addAxis(axis);
    channel->show();
    axis->show();
    settle(one.plot);
    settle(two.plot);
    QCOMPARE(channel->parentWidget(), two.plot);
    QCOMPARE(axis->parentWidget(), two.plot);
    QCOMPARE(plotArea(one.plot), one.plot->rect());
    QCOMPARE(plotArea(two.plot).left(), axis->width());
    QCOMPARE(two.plot->canvas(C0), QRectF(0, 0, 3, 4));

    channel->setRect(QRectF(0, 0, 30, 40));
    QCOMPARE(one.plot->canvas(C0), QRectF(0, 0, 3, 4));
    QCOMPARE(two.plot->canvas(C0), QRectF(0, 0, 30, 40));
    QCOMPARE(axis->max(), 40.0);
    one.plot->setMaxY(1, C0);
    QCOMPARE(axis->max(), 40.0);
    QCOMPARE(channel->canvas(), QRectF(0, 0, 30, 40));

    // The former plot has no say any more.
    one.plot->removeChannel(channel);
    one.plot->removeAxis(axis);
    QCOMPARE(channel->parentWidget(), two.plot);
    QCOMPARE(axis->parentWidget(), two.plot);
}

void tst_ZrQtPlotRegistration::movedElsewhereKeepsItsParent_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("axis") << 0;
    QTest::newRow("channel") << 1;
    QTest::newRow("custom widget") << 2;
    QTest::newRow("slider") << 3;
}

void tst_ZrQtPlotRegistration::movedElsewhereKeepsItsParent()
{
    QFETCH(const int, kind);

    Scene scene;
    QWidget elsewhere;
    QWidget *child = nullptr;
    if (kind == 0)
        child = new ZrQtAxis(scene.plot);
    else if (kind == 1)
        child = new ProbeChannel(scene.plot, QRectF(0, 0, 3, 4));
    else if (kind == 2)
        child = new QWidget(scene.plot);
    else
        child = new ZrQtPlotSlider(scene.plot);
    child->show();
    QObjectList others = scene.plot->children();
    others.removeAll(child);
    child->setParent(&elsewhere);
    QCOMPARE(child->parentWidget(), &elsewhere);
    QCOMPARE(scene.plot->children(), others);
    QVERIFY(elsewhere.children().contains(child));
    QVERIFY(!scene.plot->children().contains(child));
    QVERIFY(!child->isWindow());

    scene.plot->removeAxis(qobject_cast<ZrQtAxis *>(child));
    scene.plot->removeChannel(qobject_cast<ZrQtBaseChannel *>(child));
    scene.plot->removeCustomWidget(child);
    QCOMPARE(child->parentWidget(), &elsewhere);
}

void tst_ZrQtPlotRegistration::nullAndStrangers()
{
    Scene scene;
    PlotLog log(scene.plot);
    scene.plot->setScaling(ZrQtPlot::Custom, C0);
    log.take();
    scene.plot->addAxis(nullptr);
    scene.plot->addChannel(nullptr);
    scene.plot->addCustomWidget(nullptr);
    scene.plot->removeAxis(nullptr);
    scene.plot->removeChannel(nullptr);
    scene.plot->removeCustomWidget(nullptr);
    QWidget home;
    auto *axis = new ZrQtAxis(&home);
    auto *channel = new ProbeChannel(&home);
    auto *custom = new QWidget(&home);
    scene.plot->removeAxis(axis);
    scene.plot->removeChannel(channel);
    scene.plot->removeCustomWidget(custom);
    QCOMPARE(axis->parentWidget(), &home);
    QCOMPARE(channel->parentWidget(), &home);
    QCOMPARE(custom->parentWidget(), &home);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Custom);
    settle(scene.plot);
    QVERIFY(!scene.plot->grab().isNull());
}

void tst_ZrQtPlotRegistration::overlayIsOnTop_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("built");

    QTest::newRow("addAxis") << 0 << false;
    QTest::newRow("addChannel") << 1 << false;
    QTest::newRow("addCustomWidget") << 2 << false;
    QTest::newRow("axis as child") << 0 << true;
    QTest::newRow("channel as child") << 1 << true;
    QTest::newRow("custom widget as child") << 2 << true;
}

void tst_ZrQtPlotRegistration::overlayIsOnTop()
{
    QFETCH(const int, kind);
    QFETCH(const bool, built);

    Scene scene;
    QWidget *parent = built ? scene.plot : nullptr;
    for (int i = 0; i < 2; ++i) {
        if (kind == 0) {
            auto *axis = new ZrQtAxis(parent);
            scene.plot->addAxis(axis);
        } else if (kind == 1) {
            auto *channel = new ProbeChannel(parent);
            scene.plot->addChannel(channel);
        } else {
            auto *custom = new QWidget(parent);
            scene.plot->addCustomWidget(custom);
        }
        QCOMPARE(lastChild(scene.plot), overlayOf(scene.plot));
    }
}

void tst_ZrQtPlotRegistration::eventsRaiseTheOverlay_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<bool>("raises");

    QTest::newRow("ChildAdded") << QEvent::ChildAdded << true;
    QTest::newRow("ChildRemoved") << QEvent::ChildRemoved << true;
    QTest::newRow("Resize") << QEvent::Resize << true;
    QTest::newRow("GraphicsSceneResize") << QEvent::GraphicsSceneResize << true;
    QTest::newRow("LayoutRequest") << QEvent::LayoutRequest << true;
    QTest::newRow("ZOrderChange") << QEvent::ZOrderChange << true;
    QTest::newRow("not FontChange") << QEvent::FontChange << false;
    QTest::newRow("not ToolTipChange") << QEvent::ToolTipChange << false;
}

void tst_ZrQtPlotRegistration::eventsRaiseTheOverlay()
{
    QFETCH(const QEvent::Type, type);
    QFETCH(const bool, raises);

    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF());
    QObject visitor;
    QObject guest;
    if (type == QEvent::ChildRemoved)
        guest.setParent(scene.plot);
    channel->raise();
    QCOMPARE(lastChild(scene.plot), channel);

    const bool relaysOut
        = type == QEvent::Resize || type == QEvent::GraphicsSceneResize || type == QEvent::LayoutRequest;
    if (relaysOut)
        channel->setGeometry(1, 2, 3, 4);
    if (type == QEvent::ChildAdded) {
        QChildEvent event(type, &visitor);
        QApplication::sendEvent(scene.plot, &event);
    } else if (type == QEvent::ChildRemoved) {
        guest.setParent(nullptr);
    } else if (type == QEvent::Resize) {
        QResizeEvent event(scene.plot->size(), scene.plot->size());
        QApplication::sendEvent(scene.plot, &event);
    } else {
        QEvent event(type);
        QApplication::sendEvent(scene.plot, &event);
    }
    QCOMPARE(lastChild(scene.plot) == overlayOf(scene.plot), raises);
    if (relaysOut)
        QCOMPARE(channel->geometry(), plotArea(scene.plot));
}

void tst_ZrQtPlotRegistration::repeatedRemovalNoticeIsIgnored()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF());
    QWidget guest;
    scene.plot->addCustomWidget(&guest);
    scene.plot->removeCustomWidget(&guest);

    channel->raise();
    QChildEvent again(QEvent::ChildRemoved, &guest);
    QApplication::sendEvent(scene.plot, &again);
    QCOMPARE(lastChild(scene.plot), channel);

    // Another child in between, and the notice counts again.
    QObject visitor;
    QChildEvent added(QEvent::ChildAdded, &visitor);
    QApplication::sendEvent(scene.plot, &added);
    channel->raise();
    QApplication::sendEvent(scene.plot, &again);
    QCOMPARE(lastChild(scene.plot), overlayOf(scene.plot));
}

void tst_ZrQtPlotRegistration::eventResultIsThatOfAWidget()
{
    Scene scene;
    QWidget widget;
    QObject visitor;
    for (const auto type : {QEvent::GraphicsSceneResize, QEvent::LayoutRequest, QEvent::ZOrderChange,
                            QEvent::User, QEvent::LanguageChange}) {
        QEvent forPlot(type);
        QEvent forWidget(type);
        QCOMPARE(QApplication::sendEvent(scene.plot, &forPlot), QApplication::sendEvent(&widget, &forWidget));
    }
    for (const auto type : {QEvent::ChildAdded, QEvent::ChildRemoved}) {
        QChildEvent forPlot(type, &visitor);
        QChildEvent forWidget(type, &visitor);
        QCOMPARE(QApplication::sendEvent(scene.plot, &forPlot), QApplication::sendEvent(&widget, &forWidget));
    }
}

void tst_ZrQtPlotRegistration::overlayLetsTheMouseThrough()
{
    Scene scene;
    QWidget *overlay = overlayOf(scene.plot);
    QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    new ProbeChannel(scene.plot, QRectF());
    new ZrQtBufferedChannel(scene.plot);
    new ZrQtAxis(scene.plot);
    QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
}

void tst_ZrQtPlotRegistration::overlayTakesTheMouseForEditableChannels()
{
    for (const bool built : {true, false}) {
        Scene scene;
        QWidget *overlay = overlayOf(scene.plot);
        auto *channel = new ZrQtPlotChannel(built ? scene.plot : nullptr);
        if (!built) {
            QWidget home;
            channel->setParent(&home);
            scene.plot->addChannel(channel);
        }
        QVERIFY(!overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
        QVERIFY(overlay->hasMouseTracking());
        QVERIFY(overlay->isVisible());
        QCOMPARE(lastChild(scene.plot), overlay);
    }
}

void tst_ZrQtPlotRegistration::sliderIsAboveTheOverlay()
{
    Scene scene;
    auto *slider = new ZrQtPlotSlider(scene.plot);
    QCOMPARE(lastChild(scene.plot), slider);
    new ProbeChannel(scene.plot, QRectF());
    QCOMPARE(lastChild(scene.plot), slider);
    new QWidget(scene.plot);
    QCOMPARE(lastChild(scene.plot), slider);
    settle(scene.plot);
    QCOMPARE(slider->geometry(), plotArea(scene.plot));

    // The current one again is nothing new; none takes it away.
    PlotLog log(scene.plot);
    scene.plot->addSlider(slider);
    QCOMPARE(log.take(), QStringList());
    scene.plot->addSlider(nullptr);
    QCOMPARE(slider->parentWidget(), nullptr);
    QCOMPARE(log.take(), QStringList{PlotLog::canvas(0, 10, 0, 10, C0)});
    QCOMPARE(lastChild(scene.plot), overlayOf(scene.plot));
    delete slider;
}

void tst_ZrQtPlotRegistration::sliderLeavesForAnotherPlot()
{
    ZrQtPlot first;
    ZrQtPlot second;
    auto *slider = new ZrQtPlotSlider(&first);
    new ZrQtBufferedChannel(&first);
    QObjectList others = first.children();
    others.removeOne(slider);
    second.addSlider(slider);
    QCOMPARE(slider->parentWidget(), &second);
    QCOMPARE(first.children(), others);
}

QTEST_MAIN(tst_ZrQtPlotRegistration)

#include "tst_zrqtplot_registration.moc"
