#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

namespace {

QPoint at(int x, int y)
{
    return GestureScene::inArea(x, y);
}

constexpr ZrQtPlot::Interaction allModes[]
    = {ZrQtPlot::NoInteraction, ZrQtPlot::PanAndScan, ZrQtPlot::RectangleZoom, ZrQtPlot::SelectRoi,
       ZrQtPlot::SelectLine};

/// Moves the mouse out at the bottom of the plot area and back.
void crossTheBottom(ZrQtPlot *plot)
{
    moveTo(plot, at(200, 201), Qt::NoButton);
    moveTo(plot, at(200, 199), Qt::NoButton);
}

} // namespace

/// The cursors of the plot and of its axes.
class TestPlotCursors : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyModeHasItsCursor_data();
    void everyModeHasItsCursor();
    void axesFollowTheModeAtOnce();
    void laterAxesFollowToo();
    void plotFollowsAtTheBottomEdge();
    void bottomEdgeItselfBelongsToTheArea();
    void enteringCountsToo();
    void otherEdgesDoNotMatter();
    void customCursorShowsAtOnce();
    void customCursorOfPanningShowsOnAxes();
    void resetLeavesThePlotsOwnCursor();
    void everyPlotHasItsOwnCursors();
    void sameModeChangesNothing();
};

void TestPlotCursors::everyModeHasItsCursor_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("mode");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("no interaction") << ZrQtPlot::NoInteraction << Qt::ArrowCursor;
    QTest::newRow("pan") << ZrQtPlot::PanAndScan << Qt::OpenHandCursor;
    QTest::newRow("rectangle zoom") << ZrQtPlot::RectangleZoom << Qt::CrossCursor;
    QTest::newRow("region") << ZrQtPlot::SelectRoi << Qt::CrossCursor;
    QTest::newRow("line") << ZrQtPlot::SelectLine << Qt::CrossCursor;
}

void TestPlotCursors::everyModeHasItsCursor()
{
    QFETCH(ZrQtPlot::Interaction, mode);
    QFETCH(Qt::CursorShape, shape);
    GestureScene scene;
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(mode);
    QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
    crossTheBottom(scene.plot);
    QVERIFY(scene.plot->testAttribute(Qt::WA_SetCursor));
    QCOMPARE(scene.plot->cursor().shape(), shape);
}

void TestPlotCursors::axesFollowTheModeAtOnce()
{
    GestureScene scene;
    for (ZrQtPlot::Interaction mode : allModes) {
        scene.plot->setInteraction(mode);
        const Qt::CursorShape shape = mode == ZrQtPlot::PanAndScan ? Qt::OpenHandCursor : Qt::ArrowCursor;
        QCOMPARE(scene.xAxis->cursor().shape(), shape);
        QCOMPARE(scene.yAxis->cursor().shape(), shape);
        // The plot area keeps what it had.
        QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
    }
}

void TestPlotCursors::laterAxesFollowToo()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    auto *axis = new ZrQtAxis(scene.plot);
    QCOMPARE(axis->cursor().shape(), Qt::OpenHandCursor);
}

void TestPlotCursors::plotFollowsAtTheBottomEdge()
{
    GestureScene scene;
    crossTheBottom(scene.plot);
    QCOMPARE(scene.plot->cursor().shape(), Qt::ArrowCursor);
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    moveTo(scene.plot, at(200, 150), Qt::NoButton);
    moveTo(scene.plot, at(100, 50), Qt::NoButton);
    QCOMPARE(scene.plot->cursor().shape(), Qt::ArrowCursor);

    moveTo(scene.plot, at(200, 230), Qt::NoButton);
    QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
    // What happens below it shows above it.
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    moveTo(scene.plot, at(250, 240), Qt::NoButton);
    QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
    moveTo(scene.plot, at(200, 199), Qt::NoButton);
    QCOMPARE(scene.plot->cursor().shape(), Qt::OpenHandCursor);
}

void TestPlotCursors::bottomEdgeItselfBelongsToTheArea()
{
    GestureScene scene;
    crossTheBottom(scene.plot);
    moveTo(scene.plot, at(200, 200), Qt::NoButton);
    QVERIFY(scene.plot->testAttribute(Qt::WA_SetCursor));
    moveTo(scene.plot, at(200, 201), Qt::NoButton);
    QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
    moveTo(scene.plot, at(200, 200), Qt::NoButton);
    QVERIFY(scene.plot->testAttribute(Qt::WA_SetCursor));
}

void TestPlotCursors::enteringCountsToo()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    crossTheBottom(scene.plot);
    enter(scene.plot, at(200, 250));
    QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
    enter(scene.plot, at(200, 100));
    QCOMPARE(scene.plot->cursor().shape(), Qt::CrossCursor);
}

void TestPlotCursors::otherEdgesDoNotMatter()
{
    GestureScene scene;
    crossTheBottom(scene.plot);
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    for (const QPoint &outside : {at(-50, 100), at(430, 100), at(200, -30)}) {
        moveTo(scene.plot, outside, Qt::NoButton);
        moveTo(scene.plot, at(200, 100), Qt::NoButton);
        QCOMPARE(scene.plot->cursor().shape(), Qt::ArrowCursor);
    }
    // Far out to the side and below is below.
    moveTo(scene.plot, at(-50, 250), Qt::NoButton);
    QVERIFY(!scene.plot->testAttribute(Qt::WA_SetCursor));
}

void TestPlotCursors::customCursorShowsAtOnce()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    scene.plot->setCustomCursor(Qt::WhatsThisCursor, ZrQtPlot::SelectLine);
    QCOMPARE(scene.plot->cursor().shape(), Qt::WhatsThisCursor);
    QCOMPARE(scene.xAxis->cursor().shape(), Qt::ArrowCursor);
    // That of another mode shows that of the present one.
    scene.plot->setCursor(Qt::WaitCursor);
    scene.plot->setCustomCursor(Qt::BusyCursor, ZrQtPlot::RectangleZoom);
    QCOMPARE(scene.plot->cursor().shape(), Qt::WhatsThisCursor);
    scene.plot->setInteraction(ZrQtPlot::RectangleZoom);
    crossTheBottom(scene.plot);
    QCOMPARE(scene.plot->cursor().shape(), Qt::BusyCursor);
}

void TestPlotCursors::customCursorOfPanningShowsOnAxes()
{
    GestureScene scene;
    scene.plot->setCustomCursor(Qt::SizeAllCursor, ZrQtPlot::PanAndScan);
    QCOMPARE(scene.xAxis->cursor().shape(), Qt::ArrowCursor);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    QCOMPARE(scene.xAxis->cursor().shape(), Qt::SizeAllCursor);
    scene.plot->setCustomCursor(Qt::ClosedHandCursor, ZrQtPlot::PanAndScan);
    QCOMPARE(scene.xAxis->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(scene.yAxis->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(scene.plot->cursor().shape(), Qt::ClosedHandCursor);
}

void TestPlotCursors::resetLeavesThePlotsOwnCursor()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    scene.plot->setCustomCursor(Qt::SizeAllCursor, ZrQtPlot::PanAndScan);
    scene.plot->setCustomCursor(Qt::BusyCursor, ZrQtPlot::SelectRoi);
    scene.plot->resetCustomCursors();
    QCOMPARE(scene.xAxis->cursor().shape(), Qt::OpenHandCursor);
    QCOMPARE(scene.plot->cursor().shape(), Qt::SizeAllCursor);
    crossTheBottom(scene.plot);
    QCOMPARE(scene.plot->cursor().shape(), Qt::OpenHandCursor);
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    crossTheBottom(scene.plot);
    QCOMPARE(scene.plot->cursor().shape(), Qt::CrossCursor);
}

void TestPlotCursors::everyPlotHasItsOwnCursors()
{
    GestureScene scene;
    scene.plot->setCustomCursor(Qt::SizeAllCursor, ZrQtPlot::PanAndScan);
    ZrQtPlot other;
    other.setInteraction(ZrQtPlot::PanAndScan);
    auto *axis = new ZrQtAxis(&other);
    QCOMPARE(axis->cursor().shape(), Qt::OpenHandCursor);
}

void TestPlotCursors::sameModeChangesNothing()
{
    GestureScene scene;
    scene.xAxis->setCursor(Qt::WaitCursor);
    scene.plot->setInteraction(ZrQtPlot::NoInteraction);
    QCOMPARE(scene.xAxis->cursor().shape(), Qt::WaitCursor);
}

QTEST_MAIN(TestPlotCursors)
#include "tst_zrqtplot_cursors.moc"
