#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <QtCore/QPointer>

namespace {

QPoint at(int x, int y)
{
    return GestureScene::inArea(x, y);
}

/// The announcements of all systems in use, each moved by fractions of its size; inverted directions of
/// `COSY_0` the other way.
QStringList movedCanvases(const GestureScene &scene, const Variant &variant, double x, double y)
{
    QStringList lines;
    for (Cosy cosy : scene.used) {
        const bool first = cosy == ZrQtPlot::COSY_0;
        lines.append(
            PlotLog::canvas(movedBy(GestureScene::start(cosy, variant.keepAspectRatio),
                                    first && variant.invertX ? -x : x, first && variant.invertY ? -y : y),
                            cosy));
    }
    return lines;
}

QString mode(ZrQtPlot::ScalingMode scaling, ZrQtPlot::PlotAxis axis)
{
    return PlotLog::mode(scaling, axis, ZrQtPlot::COSY_0);
}

QString canvas(const QRectF &rect)
{
    return PlotLog::canvas(rect, ZrQtPlot::COSY_0);
}

/// Fits `COSY_0` to its data, which the canvas then shows exactly.
void fitToData(ZrQtPlot *plot)
{
    plot->setCanvasMarginLeft(0.0);
    plot->setCanvasMarginRight(0.0);
    plot->setCanvasMarginTop(0.0);
    plot->setCanvasMarginBottom(0.0);
    plot->setScaling(ZrQtPlot::AutoFit, ZrQtPlot::COSY_0);
}

} // namespace

/// Panning, rectangle zoom, and what all gestures have in common.
class TestPlotMouse : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsIdle();

    void panMovesEverySystem_data() { addVariants(); }
    void panMovesEverySystem();
    void panTurnsFittedDirectionsManual();
    void panAlongOneDirectionLeavesTheOther();
    void panThatEndsNearTheDataIsFittedAgain();
    void panDoesNotReturnWhileItLasts();
    void panGoesOnWithoutAHeldButton();

    void rectangleZoomShowsTheBand_data() { addVariants(); }
    void rectangleZoomShowsTheBand();
    void rectangleZoomNeedsFivePixels_data();
    void rectangleZoomNeedsFivePixels();
    void rectangleZoomFromAFittedCanvas();
    void rectangleZoomIgnoresEscape();

    void leftReleaseAnnouncesCanvases_data();
    void leftReleaseAnnouncesCanvases();
    void releaseWithoutPressAnnouncesToo();
    void otherButtonsStartNothing_data();
    void otherButtonsStartNothing();
    void heldButtonsDecideAPress();
    void anyReleaseEndsTheDrag();
    void doubleClickIsAPress();
    void legendStripTakesNoPress();

    void modeAtReleaseDecides();
    void panEndsInEveryMode();
    void panMayBeginInTheMiddleOfADrag();
    void plotWithoutChannelsPansNothing();
    void plotMayDieInASlot_data();
    void plotMayDieInASlot();
};

void TestPlotMouse::startsIdle()
{
    ZrQtPlot plot;
    QCOMPARE(plot.interaction(), ZrQtPlot::NoInteraction);
    QCOMPARE(plot.selectionCosyX(), ZrQtPlot::COSY_0);
    QCOMPARE(plot.selectionCosyY(), ZrQtPlot::COSY_0);
    QCOMPARE(plot.focusPolicy(), Qt::ClickFocus);
    QVERIFY(plot.hasMouseTracking());
    QVERIFY(overlayOf(&plot)->testAttribute(Qt::WA_TransparentForMouseEvents));
}

void TestPlotMouse::panMovesEverySystem()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);

    QVERIFY(press(scene.plot, at(200, 100)));
    QCOMPARE(log.take(), QStringList());
    // A tenth of the plot area to the right and downwards: smaller x and larger y come into view.
    moveTo(scene.plot, at(240, 120));
    QCOMPARE(log.take(), movedCanvases(scene, variant, -0.1, 0.1));
    moveTo(scene.plot, at(240, 100));
    QCOMPARE(log.take(), movedCanvases(scene, variant, -0.1, 0.0));
    moveTo(scene.plot, at(160, 60));
    QCOMPARE(log.take(), movedCanvases(scene, variant, 0.1, -0.2));
    release(scene.plot, at(160, 60));
    const QStringList ended = movedCanvases(scene, variant, 0.1, -0.2);
    QCOMPARE(log.take(), ended);

    // What the plot stores is what it announced, also where the aspect ratio is kept.
    QStringList stored;
    for (Cosy cosy : scene.used)
        stored.append(PlotLog::canvas(scene.plot->canvas(cosy), cosy));
    QCOMPARE(stored, ended);
    moveTo(scene.plot, at(0, 0), Qt::NoButton);
    QCOMPARE(log.take(), QStringList());
}

void TestPlotMouse::panTurnsFittedDirectionsManual()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    press(scene.plot, at(200, 100));
    moveTo(scene.plot, at(240, 120));
    const QString moved = canvas(QRectF(-4, 1, 40, 10));
    QCOMPARE(log.take(), QStringList({moved, mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X), moved,
                                      mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y), moved}));
    moveTo(scene.plot, at(280, 140));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-8, 2, 40, 10))));
    release(scene.plot, at(280, 140));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-8, 2, 40, 10))));
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
    QCOMPARE(scene.plot->scalingY(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
}

void TestPlotMouse::panAlongOneDirectionLeavesTheOther()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    press(scene.plot, at(200, 100));
    moveTo(scene.plot, at(200, 140));
    const QString moved = canvas(QRectF(0, 2, 40, 10));
    QCOMPARE(log.take(), QStringList({moved, mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y), moved}));
    moveTo(scene.plot, at(200, 140));
    QCOMPARE(log.take(), QStringList(moved));
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->scalingY(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
}

void TestPlotMouse::panThatEndsNearTheDataIsFittedAgain()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    press(scene.plot, at(200, 100));
    moveTo(scene.plot, at(300, 100));
    GestureLog log(scene.plot);
    moveTo(scene.plot, at(210, 100));
    const QString atTenPixels = canvas(QRectF(-1, 0, 40, 10));
    QCOMPARE(log.take(), QStringList(atTenPixels));
    // The canvas is announced before it is fitted, and not once more.
    release(scene.plot, at(210, 100));
    QCOMPARE(log.take(), QStringList({atTenPixels, mode(ZrQtPlot::AutoFit, ZrQtPlot::Axis_X)}));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(0, 0, 40, 10));
}

void TestPlotMouse::panDoesNotReturnWhileItLasts()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    press(scene.plot, at(200, 100));
    for (int x = 201; x < 209; ++x) {
        moveTo(scene.plot, at(x, 100));
        QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
        QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0).left(), (200 - x) / 10.0);
    }
}

void TestPlotMouse::panGoesOnWithoutAHeldButton()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    press(scene.plot, at(200, 100));
    GestureLog log(scene.plot);
    moveTo(scene.plot, at(240, 100), Qt::NoButton);
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-4, 0, 40, 10))));
}

void TestPlotMouse::rectangleZoomShowsTheBand()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    GestureLog log(scene.plot);
    // Half of the width from a tenth, a quarter of the height from 65 percent above the bottom; drawn from
    // the lower right to the upper left.
    QVERIFY(press(scene.plot, at(240, 70)));
    moveTo(scene.plot, at(300, 90));
    moveTo(scene.plot, at(40, 20));
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, at(40, 20));

    QStringList expected = movedCanvases(scene, variant, 0.0, 0.0);
    QStringList stored;
    QStringList shown;
    for (Cosy cosy : scene.used) {
        stored.append(PlotLog::canvas(scene.plot->canvas(cosy), cosy));
        const QRectF before = GestureScene::start(cosy, variant.keepAspectRatio);
        QRectF after(before.left() + 0.1 * before.width(), before.top() + 0.65 * before.height(),
                     0.5 * before.width(), 0.25 * before.height());
        // The band is twice as wide as the plot area: it is heightened around its centre.
        if (variant.keepAspectRatio)
            after = QRectF(after.left(), after.center().y() - after.height(), after.width(),
                           2.0 * after.height());
        expected += {PlotLog::canvas(before, cosy), PlotLog::mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X, cosy),
                     PlotLog::canvas(before, cosy), PlotLog::mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y, cosy),
                     PlotLog::canvas(after, cosy)};
        shown.append(expected.last());
    }
    QCOMPARE(log.take(), expected);
    // What is shown is stored, also where the aspect ratio is kept.
    QCOMPARE(stored, shown);
}

void TestPlotMouse::rectangleZoomNeedsFivePixels_data()
{
    QTest::addColumn<QPoint>("size");
    QTest::addColumn<bool>("zooms");
    QTest::newRow("4 x 100 does not zoom") << QPoint(4, 100) << false;
    QTest::newRow("100 x 4 does not zoom") << QPoint(100, 4) << false;
    QTest::newRow("5 x 5 zooms") << QPoint(5, 5) << true;
    QTest::newRow("-5 x -5 zooms") << QPoint(-5, -5) << true;
    QTest::newRow("-4 x -100 does not zoom") << QPoint(-4, -100) << false;
    QTest::newRow("a click does not zoom") << QPoint(0, 0) << false;
    QTest::newRow("no width does not zoom") << QPoint(0, 50) << false;
    QTest::newRow("what lies outside does not count: 4 pixels of a long drag") << QPoint(-300, 50) << false;
    QTest::newRow("the whole plot area") << QPoint(900, 900) << true;
}

void TestPlotMouse::rectangleZoomNeedsFivePixels()
{
    QFETCH(QPoint, size);
    QFETCH(bool, zooms);
    GestureScene scene({false, false, false, 3});
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    const QPoint from = size.x() == -300 ? at(4, 100) : size.x() == 900 ? at(0, 0) : at(150, 100);
    press(scene.plot, from);
    moveTo(scene.plot, from + size);
    GestureLog log(scene.plot);
    release(scene.plot, from + size);
    const int announced = scene.used.size();
    QCOMPARE(log.take().size(), zooms ? announced + 5 * announced : announced);
    for (Cosy cosy : scene.used) {
        const bool whole = size.x() == 900;
        QCOMPARE(scene.plot->canvas(cosy) == GestureScene::start(cosy, false), !zooms || whole);
    }
}

void TestPlotMouse::rectangleZoomFromAFittedCanvas()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    press(scene.plot, at(0, 0));
    moveTo(scene.plot, at(200, 100));
    GestureLog log(scene.plot);
    release(scene.plot, at(200, 100));
    const QString fitted = canvas(QRectF(0, 0, 40, 10));
    using Plot = ZrQtPlot;
    QCOMPARE(log.take(),
             QStringList({fitted,
                          // Manual, but back at once, because the canvas still shows the data as fitted.
                          mode(Plot::AutoFit, Plot::Axis_X), fitted, mode(Plot::Manual, Plot::Axis_X),
                          mode(Plot::AutoFit, Plot::Axis_Y), fitted, mode(Plot::Manual, Plot::Axis_Y),
                          // The zoom itself.
                          mode(Plot::Manual, Plot::Axis_X), mode(Plot::Manual, Plot::Axis_Y),
                          canvas(QRectF(0, 5, 20, 5))}));
    QCOMPARE(scene.plot->scalingX(Plot::COSY_0), Plot::Manual);
    QCOMPARE(scene.plot->scalingY(Plot::COSY_0), Plot::Manual);
}

void TestPlotMouse::rectangleZoomIgnoresEscape()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    press(scene.plot, at(0, 0));
    moveTo(scene.plot, at(200, 100));
    QTest::keyClick(scene.plot, Qt::Key_Escape);
    release(scene.plot, at(200, 100));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(0, 5, 20, 5));
}

void TestPlotMouse::leftReleaseAnnouncesCanvases_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("interaction");
    QTest::newRow("no interaction") << ZrQtPlot::NoInteraction;
    QTest::newRow("pan") << ZrQtPlot::PanAndScan;
    QTest::newRow("rectangle zoom") << ZrQtPlot::RectangleZoom;
    QTest::newRow("region") << ZrQtPlot::SelectRoi;
    QTest::newRow("line") << ZrQtPlot::SelectLine;
}

void TestPlotMouse::leftReleaseAnnouncesCanvases()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    GestureScene scene({false, false, false, 3});
    scene.plot->setInteraction(interaction);
    GestureLog log(scene.plot);
    QVERIFY(press(scene.plot, at(200, 100)));
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, at(200, 100));
    QCOMPARE(log.take().mid(0, 3), movedCanvases(scene, {}, 0.0, 0.0));
    press(scene.plot, at(200, 100), Qt::RightButton);
    release(scene.plot, at(200, 100), Qt::RightButton);
    QCOMPARE(log.take(), QStringList());
}

void TestPlotMouse::releaseWithoutPressAnnouncesToo()
{
    GestureScene scene;
    GestureLog log(scene.plot);
    release(scene.plot, at(200, 100));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(0, 0, 40, 10))));
}

void TestPlotMouse::otherButtonsStartNothing_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("extra") << int(Qt::BackButton);
}

void TestPlotMouse::otherButtonsStartNothing()
{
    QFETCH(int, button);
    const auto other = static_cast<Qt::MouseButton>(button);
    GestureScene scene;
    GestureLog log(scene.plot);
    for (auto interaction :
         {ZrQtPlot::PanAndScan, ZrQtPlot::RectangleZoom, ZrQtPlot::SelectRoi, ZrQtPlot::SelectLine}) {
        scene.plot->setInteraction(interaction);
        QVERIFY(!press(scene.plot, at(200, 100), other));
        moveTo(scene.plot, at(250, 150), other);
        release(scene.plot, at(250, 150), other);
        QCOMPARE(log.take(), QStringList());
    }
}

void TestPlotMouse::heldButtonsDecideAPress()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    // The right button goes down while the left one is held: a press all the same.
    QVERIFY(sendMouse(scene.plot, QEvent::MouseButtonPress, at(200, 100), Qt::RightButton,
                      Qt::LeftButton | Qt::RightButton));
    moveTo(scene.plot, at(240, 100));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-4, 0, 40, 10))));
    release(scene.plot, at(240, 100));
    log.take();
    // And the other way round.
    QVERIFY(!sendMouse(scene.plot, QEvent::MouseButtonPress, at(200, 100), Qt::LeftButton, Qt::NoButton));
    moveTo(scene.plot, at(240, 100));
    QCOMPARE(log.take(), QStringList());
}

void TestPlotMouse::anyReleaseEndsTheDrag()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    press(scene.plot, at(200, 100));
    moveTo(scene.plot, at(240, 100));
    GestureLog log(scene.plot);
    release(scene.plot, at(240, 100), Qt::RightButton, Qt::LeftButton);
    QCOMPARE(log.take(), QStringList());
    moveTo(scene.plot, at(300, 100));
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, at(300, 100));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-4, 0, 40, 10))));
}

void TestPlotMouse::doubleClickIsAPress()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    QVERIFY(sendMouse(scene.plot, QEvent::MouseButtonDblClick, at(200, 100), Qt::LeftButton, Qt::LeftButton));
    moveTo(scene.plot, at(240, 100));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-4, 0, 40, 10))));
}

void TestPlotMouse::legendStripTakesNoPress()
{
    GestureScene scene({false, false, false, 3});
    const auto channels = scene.plot->findChildren<ZrQtBaseChannel *>();
    QCOMPARE(channels.size(), 2);
    for (ZrQtBaseChannel *channel : channels)
        channel->setName(QStringLiteral("name"));
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    scene.plot->setGenerateLegend(true);
    settle(scene.plot);
    const int fontHeight = scene.plot->fontMetrics().height();
    const int strip = fontHeight + int(fontHeight * 0.5 + 0.5);
    QVERIFY(scene.isReady());

    GestureLog log(scene.plot);
    const QPointF below(200, scene.plot->height() - strip + 1);
    QVERIFY(!press(scene.plot, below));
    moveTo(scene.plot, below + QPointF(40, 0));
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, below);
    log.take();

    const QPointF above(200, scene.plot->height() - strip);
    QVERIFY(press(scene.plot, above));
    moveTo(scene.plot, above + QPointF(40, 0));
    QCOMPARE(log.take(), movedCanvases(scene, {}, -0.1, 0.0));
    release(scene.plot, above);
    log.take();

    scene.plot->setGenerateLegend(false);
    QVERIFY(press(scene.plot, below));
}

void TestPlotMouse::modeAtReleaseDecides()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    press(scene.plot, at(0, 0));
    moveTo(scene.plot, at(200, 100));
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    GestureLog log(scene.plot);
    release(scene.plot, at(200, 100));
    QCOMPARE(log.take().last(), canvas(QRectF(0, 5, 20, 5)));
}

void TestPlotMouse::panEndsInEveryMode()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    press(scene.plot, at(200, 100));
    moveTo(scene.plot, at(205, 100));
    scene.plot->setInteraction(ZrQtPlot::NoInteraction);
    release(scene.plot, at(205, 100));
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
    // New data may return to AutoFit only when no drag is in progress.
    auto *channel = static_cast<ProbeChannel *>(scene.plot->findChild<ZrQtBaseChannel *>());
    channel->setRect(QRectF(0, 0, 40.25, 10));
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(0, 0, 40.25, 10));
}

void TestPlotMouse::panMayBeginInTheMiddleOfADrag()
{
    GestureScene scene;
    press(scene.plot, at(200, 100));
    moveTo(scene.plot, at(230, 100));
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    GestureLog log(scene.plot);
    // Only what the mouse moves from now on.
    moveTo(scene.plot, at(240, 100));
    QCOMPARE(log.take(), QStringList(canvas(QRectF(-1, 0, 40, 10))));
}

void TestPlotMouse::plotWithoutChannelsPansNothing()
{
    ShownPlot shown;
    shown.plot->setInteraction(ZrQtPlot::PanAndScan);
    putCursor(shown.plot, {100, 100});
    GestureLog log(shown.plot);
    QVERIFY(press(shown.plot, {100, 100}));
    moveTo(shown.plot, {150, 150});
    release(shown.plot, {150, 150});
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(shown.plot->canvas(ZrQtPlot::COSY_0), QRectF(0, 0, 10, 10));
}

void TestPlotMouse::plotMayDieInASlot_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("interaction");
    QTest::addColumn<QByteArray>("signal");
    const struct
    {
        const char *name;
        ZrQtPlot::Interaction mode;
    } gestures[] = {{"pan", ZrQtPlot::PanAndScan},
                    {"rectangle zoom", ZrQtPlot::RectangleZoom},
                    {"region", ZrQtPlot::SelectRoi},
                    {"line", ZrQtPlot::SelectLine}};
    for (const auto &gesture : gestures) {
        for (const char *signal :
             {"canvasChanged", "scalingModeChanged", "selectionChanged", "tooltipHidden"})
            QTest::addRow("%s, %s", gesture.name, signal) << gesture.mode << QByteArray(signal);
    }
}

void TestPlotMouse::plotMayDieInASlot()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    QFETCH(QByteArray, signal);
    GestureScene scene({false, false, false, 3});
    fitToData(scene.plot);
    scene.plot->setMouseWheelZoom(true);
    scene.plot->setInteraction(interaction);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    QPointer<ZrQtPlot> plot(scene.plot);
    const auto end = [&plot] { delete plot; };
    if (signal == "canvasChanged")
        connect(plot, &ZrQtPlot::canvasChanged, this, end);
    else if (signal == "scalingModeChanged")
        connect(plot, &ZrQtPlot::scalingModeChanged, this, end);
    else if (signal == "tooltipHidden")
        connect(plot, &ZrQtPlot::tooltipHidden, this, end);
    connect(plot, qOverload<QRectF>(&ZrQtPlot::selectionChanged), this, end);
    connect(plot, qOverload<QLineF>(&ZrQtPlot::selectionChanged), this, end);

    const auto gone = [&plot] { return plot.isNull(); };
    press(plot, at(0, 0));
    if (!gone())
        moveTo(plot, at(200, 100));
    if (!gone())
        release(plot, at(200, 100));
    if (!gone())
        turnWheel(plot, at(200, 100), awayFromUser);
    // Where no gesture sends the signal the plot goes in peace.
    QCOMPARE(gone(), signal != "selectionChanged" || interaction == ZrQtPlot::SelectRoi
                         || interaction == ZrQtPlot::SelectLine);
}

QTEST_MAIN(TestPlotMouse)
#include "tst_zrqtplot_mouse.moc"
