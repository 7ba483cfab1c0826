#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>

#include <functional>

namespace {

QPoint at(int x, int y)
{
    return GestureScene::inArea(x, y);
}

/// A channel that writes down which mouse events it is offered, and takes those it is told to take.
class MouseChannel : public ProbeChannel
{
public:
    MouseChannel(ZrQtPlot *plot, const QString &title, QStringList *log)
        : ProbeChannel(static_cast<QWidget *>(plot))
        , m_title(title)
        , m_log(log)
    {
    }

    bool takes = false;
    std::function<void()> onPress;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        note("press", event);
        if (onPress)
            onPress();
    }
    void mouseMoveEvent(QMouseEvent *event) override { note("move", event); }
    void mouseReleaseEvent(QMouseEvent *event) override { note("release", event); }
    void mouseDoubleClickEvent(QMouseEvent *event) override { note("double click", event); }

private:
    void note(const char *what, QMouseEvent *event)
    {
        m_log->append(QStringLiteral("%1 %2 %3 %4")
                          .arg(m_title, QString::fromLatin1(what))
                          .arg(event->pos().x())
                          .arg(event->pos().y()));
        event->setAccepted(takes);
    }

    QString m_title;
    QStringList *m_log;
};

/// A scene whose overlay is open, with two test channels above the others.
class OverlayScene : public GestureScene
{
public:
    explicit OverlayScene(const Variant &variant = {})
        : GestureScene(variant)
        , editable(new ZrQtPlotChannel(plot))
        , lower(new MouseChannel(plot, QStringLiteral("lower"), &offered))
        , upper(new MouseChannel(plot, QStringLiteral("upper"), &offered))
        , overlay(overlayOf(plot))
    {
        settle(plot);
        putCursor(plot, inArea(200, 100));
        offered.clear();
    }

    QStringList takeOffered()
    {
        const QStringList result = offered;
        offered.clear();
        return result;
    }

    QStringList offered;
    ZrQtPlotChannel *editable;
    QPointer<MouseChannel> lower;
    QPointer<MouseChannel> upper;
    QWidget *overlay;
};

} // namespace

/// Mouse events that the overlay offers to the channels.
class TestPlotOverlay : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void opensForPlotChannelsOnly();
    void coversThePlotArea();

    void pressIsAnnouncedAndOffered_data();
    void pressIsAnnouncedAndOffered();
    void clickIsWhereTheCursorIs();
    void clickIsInValuesOfTheSelectionSystems_data() { addVariants(); }
    void clickIsInValuesOfTheSelectionSystems();
    void eventsAreOfferedUntilOneIsTaken_data();
    void eventsAreOfferedUntilOneIsTaken();
    void raisedChannelComesFirst();
    void takenPressKeepsThePlotOut();
    void otherPressesReachThePlot();
    void cursorOfTheTakerShows();
    void doubleClickIsNotOffered();
    void trackingChangeIsNotOffered();
    void wheelReachesThePlot();
    void removedChannelIsNotOffered();

    void channelMayDieInItsPress();
    void channelsMayDieInASlot();
    void plotMayDieInASlot();

    void plotChannelIsEdited();
    void besideThePlotChannelThePlotIsPanned();
};

void TestPlotOverlay::opensForPlotChannelsOnly()
{
    ShownPlot shown;
    QWidget *overlay = overlayOf(shown.plot);
    new ProbeChannel(shown.plot);
    new ZrQtBufferedChannel(shown.plot);
    QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    new ZrQtPlotChannel(shown.plot);
    QVERIFY(!overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    QVERIFY(overlay->hasMouseTracking());
    QVERIFY(overlay->isVisible());
}

void TestPlotOverlay::coversThePlotArea()
{
    OverlayScene scene;
    QVERIFY(scene.isReady());
    // It is what the mouse meets there.
    QCOMPARE(scene.plot->childAt(at(0, 0)), scene.overlay);
    QCOMPARE(scene.plot->childAt(at(399, 199)), scene.overlay);
    QVERIFY(scene.plot->childAt(at(400, 199)) != scene.overlay);
    new ProbeChannel(scene.plot);
    QCOMPARE(scene.plot->childAt(at(200, 100)), scene.overlay);
}

void TestPlotOverlay::pressIsAnnouncedAndOffered_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void TestPlotOverlay::pressIsAnnouncedAndOffered()
{
    QFETCH(int, button);
    const auto pressed = static_cast<Qt::MouseButton>(button);
    OverlayScene scene;
    GestureLog log(scene.plot);
    // The signals come before the channels.
    QStringList seenByChannel;
    scene.upper->onPress = [&] { seenByChannel = log.take(); };
    press(scene.overlay, {200, 100}, pressed);
    QCOMPARE(seenByChannel,
             QStringList({GestureLog::pressed({200, 100}, pressed), GestureLog::clicked({20, 5}, pressed)}));
    QCOMPARE(scene.takeOffered(),
             QStringList({QStringLiteral("upper press 200 100"), QStringLiteral("lower press 200 100")}));
    QCOMPARE(log.take(), QStringList());
}

void TestPlotOverlay::clickIsWhereTheCursorIs()
{
    OverlayScene scene;
    GestureLog log(scene.plot);
    QCursor::setPos(scene.plot->mapToGlobal(at(100, 50)));
    press(scene.overlay, {7, 8});
    QCOMPARE(log.take(), QStringList({GestureLog::pressed({7, 8}, Qt::LeftButton),
                                      GestureLog::clicked({10, 7.5}, Qt::LeftButton)}));
    // Outside the plot area there is nothing to report.
    QCursor::setPos(scene.plot->mapToGlobal(at(-1, 50)));
    press(scene.overlay, {7, 8});
    QCOMPARE(log.take(), QStringList(GestureLog::pressed({7, 8}, Qt::LeftButton)));
}

void TestPlotOverlay::clickIsInValuesOfTheSelectionSystems()
{
    QFETCH(Variant, variant);
    OverlayScene scene(variant);
    QVERIFY(scene.isReady());
    GestureLog log(scene.plot);
    QCursor::setPos(scene.plot->mapToGlobal(at(100, 40)));
    press(scene.overlay, {100, 40});
    // Inverted axes do not count, on purpose.
    QCOMPARE(log.take().last(),
             GestureLog::clicked({10.0, variant.keepAspectRatio ? 11.0 : 8.0}, Qt::LeftButton));
    if (variant.systems == 3) {
        scene.plot->setSelectionCosyX(ZrQtPlot::COSY_1);
        scene.plot->setSelectionCosyY(ZrQtPlot::COSY_2);
        press(scene.overlay, {100, 40});
        QCOMPARE(log.take().last(),
                 GestureLog::clicked({variant.keepAspectRatio ? 100.0 : 101.0, -0.2}, Qt::LeftButton));
    }
}

void TestPlotOverlay::eventsAreOfferedUntilOneIsTaken_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("press") << int(QEvent::MouseButtonPress) << QStringLiteral("press");
    QTest::newRow("move") << int(QEvent::MouseMove) << QStringLiteral("move");
    QTest::newRow("release") << int(QEvent::MouseButtonRelease) << QStringLiteral("release");
}

void TestPlotOverlay::eventsAreOfferedUntilOneIsTaken()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    OverlayScene scene;
    const auto send = [&] {
        return sendMouse(scene.overlay, static_cast<QEvent::Type>(type), {30, 40}, Qt::LeftButton,
                         Qt::LeftButton);
    };
    const QString upper = QStringLiteral("upper %1 30 40").arg(name);
    const QString lower = QStringLiteral("lower %1 30 40").arg(name);
    send();
    QCOMPARE(scene.takeOffered(), QStringList({upper, lower}));
    scene.lower->takes = true;
    QVERIFY(send());
    QCOMPARE(scene.takeOffered(), QStringList({upper, lower}));
    scene.upper->takes = true;
    QVERIFY(send());
    QCOMPARE(scene.takeOffered(), QStringList(upper));
}

void TestPlotOverlay::raisedChannelComesFirst()
{
    OverlayScene scene;
    scene.lower->raise();
    // The plot hears of the new order with the next event of its children or of its layout.
    settle(scene.plot);
    press(scene.overlay, {1, 1});
    QCOMPARE(scene.takeOffered(),
             QStringList({QStringLiteral("lower press 1 1"), QStringLiteral("upper press 1 1")}));
    QCOMPARE(scene.plot->childAt(at(200, 100)), scene.overlay);
}

void TestPlotOverlay::takenPressKeepsThePlotOut()
{
    OverlayScene scene;
    scene.upper->takes = true;
    for (auto mode :
         {ZrQtPlot::PanAndScan, ZrQtPlot::RectangleZoom, ZrQtPlot::SelectRoi, ZrQtPlot::SelectLine}) {
        scene.plot->setInteraction(mode);
        GestureLog log(scene.plot);
        press(scene.overlay, {200, 100});
        moveTo(scene.overlay, {100, 50});
        release(scene.overlay, {100, 50});
        QCOMPARE(log.take(), QStringList({GestureLog::pressed({200, 100}, Qt::LeftButton),
                                          GestureLog::clicked({20, 5}, Qt::LeftButton)}));
    }
}

void TestPlotOverlay::otherPressesReachThePlot()
{
    OverlayScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    GestureLog log(scene.plot);
    QVERIFY(press(scene.overlay, {100, 50}));
    QCOMPARE(log.take(), QStringList({GestureLog::pressed({100, 50}, Qt::LeftButton),
                                      GestureLog::clicked({20, 5}, Qt::LeftButton)}));
    moveTo(scene.overlay, {300, 150});
    QCOMPARE(log.take(), QStringList());
    release(scene.overlay, {300, 150});
    QCOMPARE(log.take(), QStringList({PlotLog::canvas(QRectF(0, 0, 40, 10), ZrQtPlot::COSY_0),
                                      GestureLog::roi(QRectF(10, 2.5, 20, 5))}));
}

void TestPlotOverlay::cursorOfTheTakerShows()
{
    OverlayScene scene;
    scene.lower->setCursor(Qt::SizeHorCursor);
    scene.upper->setCursor(Qt::SizeVerCursor);
    moveTo(scene.overlay, {10, 10}, Qt::NoButton);
    QVERIFY(!scene.overlay->testAttribute(Qt::WA_SetCursor));
    scene.lower->takes = true;
    moveTo(scene.overlay, {10, 10}, Qt::NoButton);
    QCOMPARE(scene.overlay->cursor().shape(), Qt::SizeHorCursor);
    scene.upper->takes = true;
    moveTo(scene.overlay, {10, 10}, Qt::NoButton);
    QCOMPARE(scene.overlay->cursor().shape(), Qt::SizeVerCursor);
    // Presses do not change it.
    scene.upper->setCursor(Qt::BusyCursor);
    press(scene.overlay, {10, 10});
    release(scene.overlay, {10, 10});
    QCOMPARE(scene.overlay->cursor().shape(), Qt::SizeVerCursor);
    scene.lower->takes = false;
    scene.upper->takes = false;
    moveTo(scene.overlay, {10, 10}, Qt::NoButton);
    QVERIFY(!scene.overlay->testAttribute(Qt::WA_SetCursor));
}

void TestPlotOverlay::doubleClickIsNotOffered()
{
    OverlayScene scene;
    scene.upper->takes = true;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    sendMouse(scene.overlay, QEvent::MouseButtonDblClick, {200, 100}, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(scene.takeOffered(), QStringList());
    QCOMPARE(log.take(), QStringList());
    // It reaches the plot, for which it is a press as any other.
    scene.upper->takes = false;
    moveTo(scene.overlay, {240, 100});
    QCOMPARE(log.take(), QStringList(PlotLog::canvas(QRectF(-4, 0, 40, 10), ZrQtPlot::COSY_0)));
}

void TestPlotOverlay::trackingChangeIsNotOffered()
{
    OverlayScene scene;
    GestureLog log(scene.plot);
    scene.overlay->setMouseTracking(false);
    scene.overlay->setMouseTracking(true);
    QCOMPARE(scene.takeOffered(), QStringList());
    QCOMPARE(log.take(), QStringList());
}

void TestPlotOverlay::wheelReachesThePlot()
{
    OverlayScene scene;
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);
    QVERIFY(turnWheel(scene.overlay, {0, 200}, awayFromUser));
    QCOMPARE(log.take(), QStringList(PlotLog::canvas(QRectF(0, 0, 34, 8.5), ZrQtPlot::COSY_0)));
}

void TestPlotOverlay::removedChannelIsNotOffered()
{
    OverlayScene scene;
    scene.plot->removeChannel(scene.upper);
    press(scene.overlay, {1, 1});
    QCOMPARE(scene.takeOffered(), QStringList(QStringLiteral("lower press 1 1")));
    delete scene.upper;
    delete scene.lower;
    press(scene.overlay, {1, 1});
    QCOMPARE(scene.takeOffered(), QStringList());
}

void TestPlotOverlay::channelMayDieInItsPress()
{
    for (bool takes : {false, true}) {
        OverlayScene scene;
        scene.upper->takes = takes;
        scene.upper->onPress = [&scene] { delete scene.upper; };
        press(scene.overlay, {1, 1});
        QVERIFY(!scene.upper);
        QCOMPARE(scene.takeOffered().size(), takes ? 1 : 2);
        moveTo(scene.overlay, {1, 1});
        QCOMPARE(scene.takeOffered(), QStringList(QStringLiteral("lower move 1 1")));
    }
}

void TestPlotOverlay::channelsMayDieInASlot()
{
    OverlayScene scene;
    connect(scene.plot, &ZrQtPlot::mouseClicked, this, [&scene] {
        delete scene.upper;
        delete scene.lower;
    });
    press(scene.overlay, {1, 1});
    QCOMPARE(scene.takeOffered(), QStringList());
    // One of them, while the other is asked.
    OverlayScene other;
    other.upper->onPress = [&other] { delete other.lower; };
    press(other.overlay, {1, 1});
    QCOMPARE(other.takeOffered(), QStringList(QStringLiteral("upper press 1 1")));
}

void TestPlotOverlay::plotMayDieInASlot()
{
    for (bool clicked : {false, true}) {
        OverlayScene scene;
        QPointer<ZrQtPlot> plot(scene.plot);
        const auto end = [plot] { delete plot; };
        if (clicked)
            connect(scene.plot, &ZrQtPlot::mouseClicked, this, end);
        else
            connect(scene.plot, &ZrQtPlot::pointPressed, this, end);
        press(scene.overlay, {1, 1});
        QVERIFY(!plot);
        QCOMPARE(scene.takeOffered(), QStringList());
    }
    OverlayScene scene;
    scene.upper->onPress = [&scene] { delete scene.plot; };
    press(scene.overlay, {1, 1});
    QCOMPARE(scene.takeOffered().size(), 1);
}

void TestPlotOverlay::plotChannelIsEdited()
{
    OverlayScene scene;
    scene.editable->setRectangle(QRectF(10, 2, 20, 6));
    scene.editable->setEditable(true);
    scene.editable->setRectanglesEditable(true);
    scene.editable->setRectanglesMovable(false);
    scene.editable->setResizableFeatures(false);
    // The new extent may not move the canvas away.
    scene.plot->setCanvas(QRectF(0, 0, 40, 10), ZrQtPlot::COSY_0);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    QSignalSpy canvases(scene.plot, &ZrQtPlot::canvasChanged);
    // At its centre.
    moveTo(scene.overlay, {200, 100}, Qt::NoButton);
    QCOMPARE(scene.overlay->cursor().shape(), Qt::SizeAllCursor);
    press(scene.overlay, {200, 100});
    QVERIFY(scene.editable->editingActive());
    moveTo(scene.overlay, {240, 120});
    QCOMPARE(canvases.size(), 0);
    release(scene.overlay, {240, 120});
    QVERIFY(!scene.editable->editingActive());
    QCOMPARE(scene.editable->rectangles(), QVector<QRectF>{QRectF(14, 1, 20, 6)});
}

void TestPlotOverlay::besideThePlotChannelThePlotIsPanned()
{
    OverlayScene scene;
    scene.editable->setRectangle(QRectF(10, 2, 20, 6));
    scene.editable->setEditable(true);
    scene.plot->setCanvas(QRectF(0, 0, 40, 10), ZrQtPlot::COSY_0);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    moveTo(scene.overlay, {20, 20}, Qt::NoButton);
    QVERIFY(!scene.overlay->testAttribute(Qt::WA_SetCursor));
    press(scene.overlay, {20, 20});
    moveTo(scene.overlay, {60, 20});
    release(scene.overlay, {60, 20});
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(-4, 0, 40, 10));
    QCOMPARE(scene.editable->rectangles(), QVector<QRectF>{QRectF(10, 2, 20, 6)});
}

QTEST_MAIN(TestPlotOverlay)
#include "tst_zrqtplot_overlay.moc"
