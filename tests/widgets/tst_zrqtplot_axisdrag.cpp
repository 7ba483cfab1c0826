#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <QtWidgets/QGraphicsView>

namespace {

QString canvas(const QRectF &rect, Cosy cosy = ZrQtPlot::COSY_0)
{
    return PlotLog::canvas(rect, cosy);
}

QString mode(ZrQtPlot::ScalingMode scaling, ZrQtPlot::PlotAxis axis)
{
    return PlotLog::mode(scaling, axis, ZrQtPlot::COSY_0);
}

/// A scene whose `COSY_0` shows its data exactly, 0 to 40 by 0 to 10, in `AutoFit`.
class FittedScene : public GestureScene
{
public:
    FittedScene()
    {
        plot->setCanvasMarginLeft(0.0);
        plot->setCanvasMarginRight(0.0);
        plot->setCanvasMarginTop(0.0);
        plot->setCanvasMarginBottom(0.0);
        plot->setScaling(ZrQtPlot::AutoFit, ZrQtPlot::COSY_0);
        plot->setInteraction(ZrQtPlot::PanAndScan);
        channel = static_cast<ProbeChannel *>(plot->findChild<ZrQtBaseChannel *>());
    }

    /// Drags the x axis 5 pixels to the right and holds it there.
    void beginDrag()
    {
        press(xAxis, {300, 10});
        moveTo(xAxis, {305, 10});
    }

    /// Whether the canvas follows new data again, now that it shows nearly the old one.
    bool followsData()
    {
        channel->setRect(QRectF(0, 0, 40.25, 10));
        return plot->scalingX(ZrQtPlot::COSY_0) == ZrQtPlot::AutoFit;
    }

    ProbeChannel *channel;
};

} // namespace

/// Dragging on an axis.
class TestPlotAxisDrag : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tolerateMessages(platformExcuses()); }

    void dragMovesTheOwnSystem_data() { addVariants(); }
    void dragMovesTheOwnSystem();
    void everyEdge_data();
    void everyEdge();
    void systemOfTheAxisCounts();
    void dragTurnsItsDirectionManual();
    void releaseFitsWithoutAnnouncing();
    void directionIsHeldDuringTheDrag();
    void otherModesMoveNothing_data();
    void otherModesMoveNothing();
    void otherButtonsMoveNothing();
    void moveWithoutButtonMovesNothing();
    void modeMayChangeDuringTheDrag();
    void everyPressGrabsTheMouse_data();
    void everyPressGrabsTheMouse();

    void doubleClickIsAPress();
    void dragOfThePlotEndsOverAnAxisToo();

    void grabEndsWithTheAxis_data();
    void grabEndsWithTheAxis();
    void channelMayGoDuringTheDrag();
    void holdEndsWhenTheAxisChangesSystem();
    void axisRemovedInASlotOfTheRelease();

    void axisUnderTheMouseIsRaisedForItsEditField();
};

void TestPlotAxisDrag::dragMovesTheOwnSystem()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    const QRectF start = GestureScene::start(ZrQtPlot::COSY_0, variant.keepAspectRatio);

    // The axis spans the whole plot; where on it the drag begins does not matter, nor does movement across.
    press(scene.xAxis, {300, 10});
    QCOMPARE(log.take(), QStringList());
    moveTo(scene.xAxis, {340, 25});
    QRectF shown = movedBy(start, variant.invertX ? 0.1 : -0.1, 0.0);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), shown);
    moveTo(scene.xAxis, {220, 25});
    shown = movedBy(start, variant.invertX ? -0.2 : 0.2, 0.0);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    release(scene.xAxis, {220, 25});
    QCOMPARE(log.take(), QStringList());

    press(scene.yAxis, {50, 200});
    moveTo(scene.yAxis, {0, 220});
    shown = movedBy(shown, 0.0, variant.invertY ? -0.1 : 0.1);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    release(scene.yAxis, {0, 220});
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), shown);
    moveTo(scene.yAxis, {0, 240}, Qt::NoButton);
    QCOMPARE(log.take(), QStringList());
}

void TestPlotAxisDrag::everyEdge_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

void TestPlotAxisDrag::everyEdge()
{
    QFETCH(Qt::Edge, edge);
    GestureScene scene;
    scene.yAxis->setPosition(edge);
    scene.plot->setMinMarginRight(100);
    scene.plot->resize(600, 360);
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot), QRect(100, 60, 400, 200));
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    press(scene.yAxis, {20, 20});
    moveTo(scene.yAxis, {60, 40});
    const bool vertical = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    QCOMPARE(log.take(), QStringList(canvas(vertical ? QRectF(0, 1, 40, 10) : QRectF(-4, 0, 40, 10))));
    release(scene.yAxis, {60, 40});
}

void TestPlotAxisDrag::systemOfTheAxisCounts()
{
    GestureScene scene({false, false, false, 3});
    scene.xAxis->setCosy(ZrQtPlot::COSY_1);
    scene.yAxis->setCosy(ZrQtPlot::COSY_2);
    settle(scene.plot);
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    press(scene.xAxis, {300, 10});
    moveTo(scene.xAxis, {340, 10});
    release(scene.xAxis, {340, 10});
    press(scene.yAxis, {10, 100});
    moveTo(scene.yAxis, {10, 120});
    release(scene.yAxis, {10, 120});
    QCOMPARE(log.take(), QStringList({canvas(QRectF(99.6, 0, 4, 4), ZrQtPlot::COSY_1),
                                      canvas(QRectF(0, -0.9, 2, 1), ZrQtPlot::COSY_2)}));
}

void TestPlotAxisDrag::dragTurnsItsDirectionManual()
{
    FittedScene scene;
    GestureLog log(scene.plot);
    press(scene.xAxis, {300, 10});
    moveTo(scene.xAxis, {340, 10});
    const QString movedX = canvas(QRectF(-4, 0, 40, 10));
    QCOMPARE(log.take(), QStringList({movedX, mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X), movedX}));
    release(scene.xAxis, {340, 10});
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->scalingY(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);

    press(scene.yAxis, {10, 100});
    moveTo(scene.yAxis, {10, 120});
    const QString movedBoth = canvas(QRectF(-4, 1, 40, 10));
    QCOMPARE(log.take(), QStringList({movedBoth, mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y), movedBoth}));
    release(scene.yAxis, {10, 120});
}

void TestPlotAxisDrag::releaseFitsWithoutAnnouncing()
{
    FittedScene scene;
    scene.beginDrag();
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(-0.5, 0, 40, 10));
    GestureLog log(scene.plot);
    release(scene.xAxis, {305, 10});
    QCOMPARE(log.take(), QStringList(mode(ZrQtPlot::AutoFit, ZrQtPlot::Axis_X)));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(0, 0, 40, 10));
}

void TestPlotAxisDrag::directionIsHeldDuringTheDrag()
{
    FittedScene scene;
    scene.beginDrag();
    QVERIFY(!scene.followsData());
    // A step of the drag does not end it either.
    moveTo(scene.xAxis, {304, 10});
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
    // Any button's release does.
    release(scene.xAxis, {304, 10}, Qt::RightButton, Qt::LeftButton);
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
}

void TestPlotAxisDrag::otherModesMoveNothing_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("interaction");
    QTest::newRow("no interaction") << ZrQtPlot::NoInteraction;
    QTest::newRow("rectangle zoom") << ZrQtPlot::RectangleZoom;
    QTest::newRow("region") << ZrQtPlot::SelectRoi;
    QTest::newRow("line") << ZrQtPlot::SelectLine;
}

void TestPlotAxisDrag::otherModesMoveNothing()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    GestureScene scene;
    scene.plot->setInteraction(interaction);
    GestureLog log(scene.plot);
    press(scene.xAxis, {300, 10});
    moveTo(scene.xAxis, {340, 10});
    release(scene.xAxis, {340, 10});
    // Nothing of it reaches the plot: no selection is reported, no canvas announced.
    QCOMPARE(log.take(), QStringList());
}

void TestPlotAxisDrag::otherButtonsMoveNothing()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    for (Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        press(scene.xAxis, {300, 10}, button);
        moveTo(scene.xAxis, {340, 10}, button);
        release(scene.xAxis, {340, 10}, button);
    }
    QCOMPARE(log.take(), QStringList());
}

void TestPlotAxisDrag::moveWithoutButtonMovesNothing()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    press(scene.xAxis, {300, 10});
    moveTo(scene.xAxis, {340, 10}, Qt::NoButton);
    QCOMPARE(log.take(), QStringList());
    // The next step counts from the last one that moved something.
    moveTo(scene.xAxis, {340, 10});
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-4, 0, 40, 10))));
    release(scene.xAxis, {340, 10});
}

void TestPlotAxisDrag::modeMayChangeDuringTheDrag()
{
    FittedScene scene;
    scene.beginDrag();
    scene.plot->setInteraction(ZrQtPlot::NoInteraction);
    GestureLog log(scene.plot);
    moveTo(scene.xAxis, {340, 10});
    QCOMPARE(log.take(), QStringList());
    release(scene.xAxis, {340, 10});
    QVERIFY(scene.followsData());
}

void TestPlotAxisDrag::everyPressGrabsTheMouse_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void TestPlotAxisDrag::everyPressGrabsTheMouse()
{
    QFETCH(int, button);
    GestureScene scene;
    press(scene.xAxis, {300, 10}, static_cast<Qt::MouseButton>(button));
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(scene.xAxis));
    release(scene.xAxis, {300, 10}, static_cast<Qt::MouseButton>(button));
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(nullptr));
}

void TestPlotAxisDrag::doubleClickIsAPress()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    sendMouse(scene.xAxis, QEvent::MouseButtonDblClick, {300, 10}, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(scene.xAxis));
    moveTo(scene.xAxis, {340, 10});
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-4, 0, 40, 10))));
    release(scene.xAxis, {340, 10});
    // The plot did not take it for a press of its own.
    moveTo(scene.plot, GestureScene::inArea(100, 100), Qt::NoButton);
    QCOMPARE(log.take(), QStringList());
}

void TestPlotAxisDrag::dragOfThePlotEndsOverAnAxisToo()
{
    FittedScene scene;
    press(scene.plot, GestureScene::inArea(200, 100));
    moveTo(scene.plot, GestureScene::inArea(205, 100));
    release(scene.xAxis, {305, 10});
    GestureLog log(scene.plot);
    moveTo(scene.plot, GestureScene::inArea(300, 150), Qt::NoButton);
    QCOMPARE(log.take(), QStringList());
    QVERIFY(scene.followsData());
}

void TestPlotAxisDrag::grabEndsWithTheAxis_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("the axis is hidden") << QStringLiteral("hide");
    QTest::newRow("the plot is hidden") << QStringLiteral("hide plot");
    QTest::newRow("the axis is removed") << QStringLiteral("remove");
    QTest::newRow("the axis gets another parent") << QStringLiteral("reparent");
    QTest::newRow("the axis is deleted") << QStringLiteral("delete");
    QTest::newRow("the axis is deleted later") << QStringLiteral("delete later");
}

void TestPlotAxisDrag::grabEndsWithTheAxis()
{
    QFETCH(QString, end);
    FittedScene scene;
    QWidget elsewhere;
    scene.beginDrag();
    QVERIFY(QWidget::mouseGrabber());
    if (end == QLatin1String("hide"))
        scene.xAxis->hide();
    else if (end == QLatin1String("hide plot"))
        scene.plot->hide();
    else if (end == QLatin1String("remove"))
        scene.plot->removeAxis(scene.xAxis);
    else if (end == QLatin1String("reparent"))
        scene.xAxis->setParent(&elsewhere);
    else if (end == QLatin1String("delete"))
        delete scene.xAxis;
    else
        scene.xAxis->deleteLater();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!QWidget::mouseGrabber());
    QVERIFY2(scene.followsData(), "the direction is still held");
    if (end == QLatin1String("remove"))
        delete scene.xAxis;
}

void TestPlotAxisDrag::channelMayGoDuringTheDrag()
{
    FittedScene scene;
    auto *other = new ProbeChannel(scene.plot, QRectF(0, 0, 10, 10));
    scene.beginDrag();
    delete other;
    QVERIFY(!scene.followsData());
    QVERIFY(QWidget::mouseGrabber());
    release(scene.xAxis, {305, 10});
}

void TestPlotAxisDrag::holdEndsWhenTheAxisChangesSystem()
{
    FittedScene scene;
    scene.beginDrag();
    scene.xAxis->setCosy(ZrQtPlot::COSY_5);
    release(scene.xAxis, {305, 10});
    QVERIFY(scene.followsData());
}

void TestPlotAxisDrag::axisRemovedInASlotOfTheRelease()
{
    FittedScene scene;
    scene.beginDrag();
    connect(scene.plot, &ZrQtPlot::scalingModeChanged, scene.plot, [&scene] {
        delete scene.xAxis;
        scene.xAxis = nullptr;
    });
    release(scene.xAxis, {305, 10});
    QVERIFY(!scene.xAxis);
    QVERIFY(!QWidget::mouseGrabber());
}

void TestPlotAxisDrag::axisUnderTheMouseIsRaisedForItsEditField()
{
    GestureScene scene;
    scene.xAxis->setLabelFormat(ZrQtAxis::FloatingPoint);
    scene.xAxis->setMinMaxEditable(true);
    settle(scene.plot);
    QGraphicsView *field = nullptr;
    for (QGraphicsView *view : scene.xAxis->findChildren<QGraphicsView *>()) {
        if (view->isVisible() && (!field || view->x() < field->x()))
            field = view;
    }
    QVERIFY(field);
    const auto isAbove = [&scene](QWidget *upper, QWidget *lower) {
        return scene.plot->children().indexOf(upper) > scene.plot->children().indexOf(lower);
    };
    const QPoint onField = field->mapToGlobal(field->rect().center());
    const QPoint beside = onField - QPoint(0, 100);

    scene.yAxis->raise();
    moveTo(scene.yAxis, scene.yAxis->mapFromGlobal(beside), Qt::NoButton);
    QVERIFY(isAbove(scene.yAxis, scene.xAxis));
    moveTo(scene.yAxis, scene.yAxis->mapFromGlobal(onField), Qt::NoButton);
    QVERIFY(isAbove(scene.xAxis, scene.yAxis));

    scene.yAxis->raise();
    press(scene.yAxis, scene.yAxis->mapFromGlobal(onField));
    QVERIFY(isAbove(scene.xAxis, scene.yAxis));
    release(scene.yAxis, scene.yAxis->mapFromGlobal(onField));
}

QTEST_MAIN(TestPlotAxisDrag)
#include "tst_zrqtplot_axisdrag.moc"
