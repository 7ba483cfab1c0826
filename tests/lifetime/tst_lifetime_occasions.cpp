#include "mortalscene.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtplot_p.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <memory>
#include <vector>

/// Ends while something is going on: painting, a drag, a timer.
class TestLifetimeOccasions : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tolerateMessages(platformExcuses()); }

    void inAPaint_data() { addEnds(); }
    void inAPaint();
    void duringADrag_data() { addEnds(); }
    void duringADrag();
    void withEveryTimerRunning();

private:
    static void addEnds();
};

void TestLifetimeOccasions::addEnds()
{
    QTest::addColumn<Mortal>("mortal");
    QTest::addColumn<Way>("way");
    for (const Mortal mortal : allMortals) {
        for (const Way way : allWays)
            QTest::addRow("%s %s", nameOf(mortal), nameOf(way)) << mortal << way;
    }
}

/// A picture that the application asks for. Whoever paints at the moment, and what it is part of, can only be
/// deleted later.
void TestLifetimeOccasions::inAPaint()
{
    QFETCH(const Mortal, mortal);
    QFETCH(const Way, way);
    const bool paints = mortal == Mortal::Plot || mortal == Mortal::Editable || mortal == Mortal::Feature;
    for (const bool viaPlot : {true, false}) {
        MortalScene scene;
        scene.plot->setControlChannelUpdatesViaPlot(viaPlot);
        new ZrQtBufferedChannel(scene.plot);
        bool ended = false;
        scene.feature->onPaint = [&] {
            if (!std::exchange(ended, true))
                scene.end(mortal, paints || way == Way::ByParent || !viaPlot ? Way::DeleteLater : way);
        };
        QImage image(scene.plot->size(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        if (viaPlot)
            scene.plot->paint(&painter);
        else
            scene.editable->paint(painter);
        painter.end();
        QVERIFY(ended);
        scene.exercise();
    }
}

namespace {

/// A drag of each kind: where it begins and in which mode.
struct Drag
{
    ZrQtPlot::Interaction mode;
    QPoint start;
};

const QPoint inPlot(150, 100);

bool isIdle(const ZrQtPlot *plot)
{
    class Open : public ZrQtPlot
    {
    public:
        static const ZrQtPlotPrivate &stateOf(const ZrQtPlot *plot) { return *(plot->*(&Open::m_d)); }
    };
    const ZrQtPlotPrivate &state = Open::stateOf(plot);
    const bool holds = std::any_of(state.m_cosys.cbegin(), state.m_cosys.cend(),
                                   [](const CosyState &record) { return record.x.hold || record.y.hold; });
    return !state.pressed && !state.m_mouseDragging && !state.selectionVisible && !holds;
}

} // namespace

void TestLifetimeOccasions::duringADrag()
{
    QFETCH(const Mortal, mortal);
    QFETCH(const Way, way);
    const QPoint onAxis(150, 295);
    const Drag drags[] = {{ZrQtPlot::PanAndScan, inPlot},
                          {ZrQtPlot::RectangleZoom, inPlot},
                          {ZrQtPlot::SelectRoi, inPlot},
                          {ZrQtPlot::SelectLine, inPlot},
                          {ZrQtPlot::PanAndScan, onAxis}};
    for (const Drag &drag : drags) {
        for (const bool onContent : {false, true}) {
            MortalScene scene;
            scene.plot->setInteraction(drag.mode);
            if (onContent)
                scene.editable->setRectangle(QRectF(-1000, -1000, 2000, 2000));
            scene.slider->setVisible(drag.mode == ZrQtPlot::RectangleZoom && onContent);
            scene.moveMouseTo(drag.start);
            scene.pressAt(drag.start);
            scene.moveMouseTo(drag.start + QPoint(20, 0));
            scene.end(mortal, way);
            scene.moveMouseTo(drag.start + QPoint(30, 10));
            scene.releaseAt(drag.start + QPoint(30, 10));
            if (scene.plot)
                QVERIFY(isIdle(scene.plot));
            QVERIFY(!QWidget::mouseGrabber());
            scene.exercise();
        }
    }
}

/// The tooltip's, which hides it after three seconds, and refreshes it, and that of the delayed re-fit.
void TestLifetimeOccasions::withEveryTimerRunning()
{
    std::vector<std::unique_ptr<MortalScene>> scenes;
    for (const Mortal mortal : allMortals) {
        for (const Way way : allWays) {
            scenes.push_back(std::make_unique<MortalScene>());
            MortalScene &scene = *scenes.back();
            scene.plot->setBoundingRectReduceUpdateInterval(20);
            scene.plot->setKeepOldBoundingRectWidthTolerance(1.0);
            scene.plot->setKeepOldBoundingRectHeightTolerance(1.0);
            scene.plot->setTooltipMode(ZrQtPlot::SHOW_ON_CLICK);
            putCursor(scene.plot, inPlot);
            scene.pressAt(inPlot);
            scene.releaseAt(inPlot);
            scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
            scene.buffered->setData({1, 50, 99}, {1, 99, 50});
            scene.end(mortal, way);
        }
    }
    waitFor(3200);
    for (const std::unique_ptr<MortalScene> &scene : scenes)
        scene->exercise();
}

QTEST_MAIN(TestLifetimeOccasions)
#include "tst_lifetime_occasions.moc"
