#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include <limits>

/// What moves a canvas on request: canvases, edges, modes, defaults, margins, aspect ratio. Each test
/// compares the whole list of signals.
class tst_ZrQtPlotScaling : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void autoFit_data();
    void autoFit();
    void marginChangeShowsWithTheNextExtent_data();
    void marginChangeShowsWithTheNextExtent();
    void setCanvas_data();
    void setCanvas();
    void setCanvasAnnouncesEverySystemInUse();
    void setCanvasOfUnusedSystem();
    void setCanvasWhileAlreadyManual();
    void edgeSetterFarFromTheData_data();
    void edgeSetterFarFromTheData();
    void edgeSetterNearTheData_data();
    void edgeSetterNearTheData();
    void setScaling_data();
    void setScaling();
    void setScalingWithoutApplying();
    void setScalingBothDirections();
    void autoFitWithoutDataCollapsesTheCanvas();
    void returnToAutoFit_data();
    void returnToAutoFit();
    void returnMeasuresBothDirectionsInPlotWidths();
    void returnIsNotLimitedToManual_data();
    void returnIsNotLimitedToManual();
    void returnToKeepAtHead_data();
    void returnToKeepAtHead();
    void returnToKeepAtHeadSeesThePreviousExtent();
    void noReturnAfterDefault();
    void noReturnToOtherModes();
    void defaultScaling_data();
    void defaultScaling();
    void initialCanvas();
    void initialCanvasForgetsTheEdgeChannels();
    void initialCanvasWidth();
    void keepAspectRatio_data();
    void keepAspectRatio();
    void keepAspectRatioOnResize();
    void resizeAnnouncesEverySystemInUse();
    void slotMayUseOtherSystems();
};

namespace {

const QSize plotSize(400, 200);
const Cosy C0 = ZrQtPlot::COSY_0;
const Cosy C1 = ZrQtPlot::COSY_1;
const Cosy C5 = ZrQtPlot::COSY_5;

void setMargins(ZrQtPlot *plot, double margin)
{
    plot->setCanvasMarginLeft(margin);
    plot->setCanvasMarginRight(margin);
    plot->setCanvasMarginTop(margin);
    plot->setCanvasMarginBottom(margin);
}

QString modeX(ZrQtPlot::ScalingMode mode, Cosy cosy = C0)
{
    return PlotLog::mode(mode, ZrQtPlot::Axis_X, cosy);
}

QString modeY(ZrQtPlot::ScalingMode mode, Cosy cosy = C0)
{
    return PlotLog::mode(mode, ZrQtPlot::Axis_Y, cosy);
}

QString canvas0(double left, double right, double top, double bottom)
{
    return PlotLog::canvas(left, right, top, bottom, C0);
}

/// A shown plot of 400 x 200 pixels without margins, with one channel that reaches from 0 to 100 in x and y.
struct Scene : ShownPlot
{
    explicit Scene(double margin = 0.0)
        : ShownPlot(plotSize)
    {
        setMargins(plot, margin);
        channel = new ProbeChannel(plot, QRectF(0, 0, 100, 100));
        log.reset(new PlotLog(plot));
    }

    ProbeChannel *channel;
    QScopedPointer<PlotLog> log;
};

using EdgeSetter = void (ZrQtPlot::*)(double, Cosy);
const EdgeSetter edgeSetters[]
    = {&ZrQtPlot::setMinX, &ZrQtPlot::setMaxX, &ZrQtPlot::setMinY, &ZrQtPlot::setMaxY};

} // namespace

void tst_ZrQtPlotScaling::autoFit_data()
{
    QTest::addColumn<QVector<double>>("margins"); // left, right, bottom, top
    QTest::addColumn<QRectF>("data");
    QTest::addColumn<QVector<double>>("edges"); // left, right, top, bottom

    using V = QVector<double>;
    const QRectF data(0, 0, 100, 50);
    const double e = 50.0 / 24.0; // half of 100 / 0.96 - 100
    QTest::newRow("0.02 on each side")
        << V{0.02, 0.02, 0.02, 0.02} << data << V{-e, 100 + e, -e / 2, 50 + e / 2};
    QTest::newRow("no margins") << V{0, 0, 0, 0} << data << V{0, 100, 0, 50};
    QTest::newRow("left only, below the smallest x") << V{0.2, 0, 0, 0} << data << V{-25, 100, 0, 50};
    QTest::newRow("right only, above the largest x") << V{0, 0.2, 0, 0} << data << V{0, 125, 0, 50};
    QTest::newRow("bottom only, below the smallest y") << V{0, 0, 0.2, 0} << data << V{0, 100, -12.5, 50};
    QTest::newRow("top only, above the largest y") << V{0, 0, 0, 0.2} << data << V{0, 100, 0, 62.5};
    QTest::newRow("unequal margins share the free space")
        << V{0.125, 0.375, 0.375, 0.125} << data << V{-25, 175, -37.5, 62.5};
    QTest::newRow("margins that leave nothing for the data count as none")
        << V{0.5, 0.5, 0.25, 0.75} << data << V{0, 100, 0, 50};
    QTest::newRow("margins that cancel each other leave the data as it is")
        << V{0.25, -0.25, 0, 0} << data << V{0, 100, 0, 50};
    QTest::newRow("data away from zero")
        << V{0.25, 0.25, 0, 0} << QRectF(1000, -7, 8, 1) << V{996, 1012, -7, -6};
}

void tst_ZrQtPlotScaling::autoFit()
{
    QFETCH(const QVector<double>, margins);
    QFETCH(const QRectF, data);
    QFETCH(const QVector<double>, edges);

    ShownPlot shown(plotSize);
    shown.plot->setCanvasMarginLeft(margins[0]);
    shown.plot->setCanvasMarginRight(margins[1]);
    shown.plot->setCanvasMarginBottom(margins[2]);
    shown.plot->setCanvasMarginTop(margins[3]);
    PlotLog log(shown.plot);
    new ProbeChannel(shown.plot, data);

    // x is followed and announced before y.
    const QStringList expected
        = {canvas0(edges[0], edges[1], 0, 10), canvas0(edges[0], edges[1], edges[2], edges[3])};
    QCOMPARE(log.take(), expected);
    QCOMPARE(PlotLog::canvas(shown.plot->canvas(C0), C0), expected.last());
}

void tst_ZrQtPlotScaling::marginChangeShowsWithTheNextExtent_data()
{
    QTest::addColumn<QRectF>("grown");
    QTest::addColumn<QString>("expected");

    QTest::newRow("canvasMarginLeft") << QRectF(0, 0, 200, 100) << canvas0(-200, 200, 0, 100);
    QTest::newRow("canvasMarginRight") << QRectF(0, 0, 200, 100) << canvas0(0, 400, 0, 100);
    QTest::newRow("canvasMarginBottom") << QRectF(0, 0, 100, 200) << canvas0(0, 100, -200, 200);
    QTest::newRow("canvasMarginTop") << QRectF(0, 0, 100, 200) << canvas0(0, 100, 0, 400);
}

void tst_ZrQtPlotScaling::marginChangeShowsWithTheNextExtent()
{
    QFETCH(const QRectF, grown);
    QFETCH(const QString, expected);

    Scene scene;
    QVERIFY(scene.plot->setProperty(QTest::currentDataTag(), 0.5));
    QCOMPARE(scene.plot->property(QTest::currentDataTag()).toDouble(), 0.5);
    // On purpose: the fit is only renewed when the extent of the data has changed.
    QCOMPARE(scene.log->take(), QStringList());
    scene.channel->setRect(grown);
    QCOMPARE(scene.log->take(), QStringList{expected});

    // An extent that changed unnoticed is found, in the direction of the margin only.
    scene.channel->setRectSilently(QRectF(0, 0, 40, 40));
    QVERIFY(scene.plot->setProperty(QTest::currentDataTag(), 0.0));
    const bool horizontal = grown.width() > grown.height();
    const QStringList refitted = {horizontal ? canvas0(0, 40, 0, 100) : canvas0(0, 100, 0, 40)};
    QCOMPARE(scene.log->take(), refitted);
}

void tst_ZrQtPlotScaling::setCanvas_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("both directions") << QRectF(20, 30, 10, 5)
                                     << QStringList{modeX(ZrQtPlot::Manual), modeY(ZrQtPlot::Manual),
                                                    canvas0(20, 30, 30, 35)};
    QTest::newRow("the same canvas") << QRectF(0, 0, 100, 100) << QStringList();
    QTest::newRow("height 0 changes only x")
        << QRectF(20, 30, 10, 0) << QStringList{modeX(ZrQtPlot::Manual), canvas0(20, 30, 0, 100)};
    QTest::newRow("width 0 changes only y")
        << QRectF(20, 30, 0, 10) << QStringList{modeY(ZrQtPlot::Manual), canvas0(0, 100, 30, 40)};
    QTest::newRow("negative width changes only y")
        << QRectF(20, 30, -10, 10) << QStringList{modeY(ZrQtPlot::Manual), canvas0(0, 100, 30, 40)};
    QTest::newRow("negative height changes only x")
        << QRectF(20, 30, 10, -5) << QStringList{modeX(ZrQtPlot::Manual), canvas0(20, 30, 0, 100)};
    QTest::newRow("null rectangle") << QRectF() << QStringList();
    QTest::newRow("only the position differs")
        << QRectF(50, 0, 100, 100) << QStringList{modeX(ZrQtPlot::Manual), canvas0(50, 150, 0, 100)};
    QTest::newRow("only the size differs")
        << QRectF(0, 0, 100, 200) << QStringList{modeY(ZrQtPlot::Manual), canvas0(0, 100, 0, 200)};
    QTest::newRow("within 10 pixels of the data it fits again")
        << QRectF(1, 0, 99, 100)
        << QStringList{modeX(ZrQtPlot::Manual), modeX(ZrQtPlot::AutoFit), canvas0(0, 100, 0, 100)};
}

void tst_ZrQtPlotScaling::setCanvas()
{
    QFETCH(const QRectF, canvas);
    QFETCH(const QStringList, expected);

    Scene scene;
    scene.plot->setCanvas(canvas, C0);
    QCOMPARE(scene.log->take(), expected);

    scene.plot->setCanvas(scene.plot->canvas(C0), C0);
    QCOMPARE(scene.log->take(), QStringList());
}

void tst_ZrQtPlotScaling::setCanvasAnnouncesEverySystemInUse()
{
    Scene scene;
    new ProbeChannel(scene.plot, QRectF(0, 0, 100, 100), C5, C1);
    scene.log->take();

    scene.plot->setCanvas(QRectF(20, 0, 10, 0), C5);
    const QStringList expected = {modeX(ZrQtPlot::Manual, C5), canvas0(0, 100, 0, 100),
                                  PlotLog::canvas(20, 30, 0, 10, C5), PlotLog::canvas(0, 10, 0, 100, C1)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotScaling::setCanvasOfUnusedSystem()
{
    Scene scene;
    scene.plot->setCanvas(QRectF(20, 30, 10, 5), C5);
    QCOMPARE(scene.plot->canvas(C5), QRectF(20, 30, 10, 5));
    const QStringList expected
        = {modeX(ZrQtPlot::Manual, C5), modeY(ZrQtPlot::Manual, C5), canvas0(0, 100, 0, 100)};
    QCOMPARE(scene.log->take(), expected);

    // Without channels, no system at all is in use.
    ZrQtPlot lonely;
    lonely.setDefaultScalingX(ZrQtPlot::Custom);
    lonely.setDefaultScalingY(ZrQtPlot::Custom);
    int canvases = 0;
    connect(&lonely, &ZrQtPlot::canvasChanged, this, [&canvases] { ++canvases; });
    lonely.setCanvas(QRectF(20, 30, 10, 5), C0);
    QCOMPARE(lonely.canvas(C0), QRectF(20, 30, 10, 5));
    QCOMPARE(canvases, 0);
}

void tst_ZrQtPlotScaling::setCanvasWhileAlreadyManual()
{
    Scene scene;
    scene.plot->setCanvas(QRectF(20, 30, 10, 5), C0);
    scene.log->take();
    scene.plot->setCanvas(QRectF(30, 40, 10, 5), C0);
    QCOMPARE(scene.log->take(), QStringList{canvas0(30, 40, 40, 45)});

    // The mode before Manual is still the one to return to.
    scene.plot->setCanvas(QRectF(0, 0, 100, 100), C0);
    const QStringList back = {modeX(ZrQtPlot::AutoFit), modeY(ZrQtPlot::AutoFit), canvas0(0, 100, 0, 100)};
    QCOMPARE(scene.log->take(), back);
}

void tst_ZrQtPlotScaling::edgeSetterFarFromTheData_data()
{
    QTest::addColumn<int>("setter");
    QTest::addColumn<QString>("modeSignal");
    QTest::addColumn<QString>("moved");

    QTest::newRow("setMinX") << 0 << modeX(ZrQtPlot::Manual) << canvas0(3, 150, -50, 150);
    QTest::newRow("setMaxX") << 1 << modeX(ZrQtPlot::Manual) << canvas0(-50, 3, -50, 150);
    QTest::newRow("setMinY") << 2 << modeY(ZrQtPlot::Manual) << canvas0(-50, 150, 3, 150);
    QTest::newRow("setMaxY") << 3 << modeY(ZrQtPlot::Manual) << canvas0(-50, 150, -50, 3);
}

void tst_ZrQtPlotScaling::edgeSetterFarFromTheData()
{
    QFETCH(const int, setter);
    QFETCH(const QString, modeSignal);
    QFETCH(const QString, moved);

    Scene scene(0.25); // 100 pixels of free space on each side
    (scene.plot->*edgeSetters[setter])(3.0, C0);
    const QStringList expected = {canvas0(-50, 150, -50, 150), modeSignal, moved};
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(PlotLog::canvas(scene.plot->canvas(C0), C0), moved);
    QCOMPARE(scene.plot->scalingX(C0), setter < 2 ? ZrQtPlot::Manual : ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->scalingY(C0), setter < 2 ? ZrQtPlot::AutoFit : ZrQtPlot::Manual);
}

void tst_ZrQtPlotScaling::edgeSetterNearTheData_data()
{
    QTest::addColumn<int>("setter");
    QTest::addColumn<QString>("returned");
    QTest::addColumn<QString>("modeSignal");
    QTest::addColumn<QString>("moved");

    QTest::newRow("setMinX") << 0 << modeX(ZrQtPlot::AutoFit) << modeX(ZrQtPlot::Manual)
                             << canvas0(3, 100, 0, 100);
    QTest::newRow("setMaxX") << 1 << modeX(ZrQtPlot::AutoFit) << modeX(ZrQtPlot::Manual)
                             << canvas0(0, 3, 0, 100);
    QTest::newRow("setMinY") << 2 << modeY(ZrQtPlot::AutoFit) << modeY(ZrQtPlot::Manual)
                             << canvas0(0, 100, 3, 100);
    QTest::newRow("setMaxY") << 3 << modeY(ZrQtPlot::AutoFit) << modeY(ZrQtPlot::Manual)
                             << canvas0(0, 100, 0, 3);
}

void tst_ZrQtPlotScaling::edgeSetterNearTheData()
{
    QFETCH(const int, setter);
    QFETCH(const QString, returned);
    QFETCH(const QString, modeSignal);
    QFETCH(const QString, moved);

    Scene scene;
    (scene.plot->*edgeSetters[setter])(3.0, C0);
    const QStringList expected = {returned, canvas0(0, 100, 0, 100), modeSignal, moved};
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->scalingY(C0), ZrQtPlot::AutoFit);
}

void tst_ZrQtPlotScaling::setScaling_data()
{
    QTest::addColumn<ZrQtPlot::ScalingMode>("mode");
    QTest::addColumn<QRectF>("before");
    QTest::addColumn<QVector<double>>("after"); // low, high; in either direction

    // The data reaches from 1000 to 1020.
    using V = QVector<double>;
    QTest::newRow("AutoFit") << ZrQtPlot::AutoFit << QRectF(0, 0, 10, 10) << V{1000, 1020};
    QTest::newRow("Centered keeps the size") << ZrQtPlot::Centered << QRectF(0, 0, 10, 10) << V{1005, 1015};
    QTest::newRow("Centered, canvas larger than the data")
        << ZrQtPlot::Centered << QRectF(0, 0, 100, 100) << V{960, 1060};
    QTest::newRow("KeepAtHead, canvas smaller than the data ends where it ends")
        << ZrQtPlot::KeepAtHead << QRectF(0, 0, 10, 10) << V{1010, 1020};
    QTest::newRow("KeepAtHead, canvas larger than the data begins where it begins")
        << ZrQtPlot::KeepAtHead << QRectF(0, 0, 100, 100) << V{1000, 1100};
    QTest::newRow("KeepAtHead, canvas beyond the head comes back")
        << ZrQtPlot::KeepAtHead << QRectF(5000, 5000, 10, 10) << V{1010, 1020};
    QTest::newRow("Custom stays") << ZrQtPlot::Custom << QRectF(0, 0, 10, 10) << V{0, 10};
    QTest::newRow("Manual stays") << ZrQtPlot::Manual << QRectF(0, 0, 10, 10) << V{0, 10};
    QTest::newRow("an unknown mode stays") << ZrQtPlot::ScalingMode(3) << QRectF(0, 0, 10, 10) << V{0, 10};
}

void tst_ZrQtPlotScaling::setScaling()
{
    QFETCH(const ZrQtPlot::ScalingMode, mode);
    QFETCH(const QRectF, before);
    QFETCH(const QVector<double>, after);

    for (const bool horizontal : {true, false}) {
        ShownPlot shown(plotSize);
        shown.plot->setCanvasMarginLeft(0);
        shown.plot->setCanvasMarginRight(0);
        shown.plot->setCanvasMarginTop(0);
        shown.plot->setCanvasMarginBottom(0);
        shown.plot->setDefaultScalingX(ZrQtPlot::Custom);
        shown.plot->setDefaultScalingY(ZrQtPlot::Custom);
        new ProbeChannel(shown.plot, QRectF(1000, 1000, 20, 20));
        shown.plot->setInitialCanvas(QRectF(-1, -1, 1, 1));
        shown.plot->setInitialCanvas(before);
        PlotLog log(shown.plot);

        // Setting it twice reports it twice.
        for (int i = 0; i < 2; ++i) {
            if (horizontal) {
                shown.plot->setScalingX(mode, C0);
                const QStringList expected
                    = {canvas0(after[0], after[1], before.top(), before.bottom()), modeX(mode)};
                QCOMPARE(log.take(), expected);
                QCOMPARE(shown.plot->scalingX(C0), mode);
                QCOMPARE(shown.plot->scalingY(C0), ZrQtPlot::Custom);
            } else {
                shown.plot->setScalingY(mode, C0);
                const QStringList expected
                    = {canvas0(before.left(), before.right(), after[0], after[1]), modeY(mode)};
                QCOMPARE(log.take(), expected);
                QCOMPARE(shown.plot->scalingY(C0), mode);
                QCOMPARE(shown.plot->scalingX(C0), ZrQtPlot::Custom);
            }
        }
    }
}

void tst_ZrQtPlotScaling::setScalingWithoutApplying()
{
    Scene scene;
    scene.plot->setCanvas(QRectF(20, 20, 10, 10), C0);
    scene.log->take();

    scene.plot->setScalingX(ZrQtPlot::AutoFit, C0, false);
    QCOMPARE(scene.log->take(), QStringList{modeX(ZrQtPlot::AutoFit)});
    scene.plot->setScalingY(ZrQtPlot::Centered, C0, false);
    QCOMPARE(scene.log->take(), QStringList{modeY(ZrQtPlot::Centered)});
    QCOMPARE(scene.plot->canvas(C0), QRectF(20, 20, 10, 10));
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot->scalingY(C0), ZrQtPlot::Centered);
}

void tst_ZrQtPlotScaling::setScalingBothDirections()
{
    Scene scene;
    scene.plot->setCanvas(QRectF(20, 20, 10, 10), C0);
    scene.log->take();

    scene.plot->setScaling(ZrQtPlot::AutoFit, C0);
    const QStringList expected = {canvas0(0, 100, 20, 30), modeX(ZrQtPlot::AutoFit), canvas0(0, 100, 0, 100),
                                  modeY(ZrQtPlot::AutoFit)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotScaling::autoFitWithoutDataCollapsesTheCanvas()
{
    Scene scene;
    scene.plot->setScalingX(ZrQtPlot::AutoFit, C5);
    const QStringList expected = {PlotLog::canvas(0, 0, 0, 10, C5), modeX(ZrQtPlot::AutoFit, C5)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotScaling::returnToAutoFit_data()
{
    QTest::addColumn<QRectF>("canvas"); // 400 pixels wide
    QTest::addColumn<bool>("returns");

    QTest::newRow("both edges 10 pixels off") << QRectF(2.5, 0, 100, 100) << true;
    QTest::newRow("both edges 10.1 pixels off") << QRectF(2.525, 0, 100, 100) << false;
    QTest::newRow("only the low edge too far") << QRectF(-10, 0, 110, 100) << false;
    QTest::newRow("only the high edge too far") << QRectF(0, 0, 110, 100) << false;
    QTest::newRow("larger than the data, 9 pixels each") << QRectF(-2.25, 0, 104.5, 100) << true;
}

void tst_ZrQtPlotScaling::returnToAutoFit()
{
    QFETCH(const QRectF, canvas);
    QFETCH(const bool, returns);

    Scene scene;
    scene.plot->setCanvas(canvas, C0);
    QStringList expected = {modeX(ZrQtPlot::Manual)};
    if (returns)
        expected << modeX(ZrQtPlot::AutoFit) << canvas0(0, 100, 0, 100);
    else
        expected << canvas0(canvas.left(), canvas.right(), 0, 100);
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(scene.plot->scalingX(C0), returns ? ZrQtPlot::AutoFit : ZrQtPlot::Manual);
}

void tst_ZrQtPlotScaling::returnMeasuresBothDirectionsInPlotWidths()
{
    // 4 units of 100 are 16 pixels of the width but 8 of the height: on purpose, the width decides.
    Scene scene;
    scene.plot->setCanvas(QRectF(0, 4, 100, 100), C0);
    QCOMPARE(scene.plot->scalingY(C0), ZrQtPlot::Manual);
    scene.plot->setCanvas(QRectF(0, 2.5, 100, 100), C0);
    QCOMPARE(scene.plot->scalingY(C0), ZrQtPlot::AutoFit);
}

void tst_ZrQtPlotScaling::returnIsNotLimitedToManual_data()
{
    QTest::addColumn<ZrQtPlot::ScalingMode>("mode");

    QTest::newRow("Manual") << ZrQtPlot::Manual;
    QTest::newRow("Centered") << ZrQtPlot::Centered;
    QTest::newRow("KeepAtHead") << ZrQtPlot::KeepAtHead;
    QTest::newRow("Custom") << ZrQtPlot::Custom;
}

void tst_ZrQtPlotScaling::returnIsNotLimitedToManual()
{
    QFETCH(const ZrQtPlot::ScalingMode, mode);

    Scene scene(0.02); // 8 pixels of free space on each side
    const QString fitted = PlotLog::canvas(scene.plot->canvas(C0), C0);
    scene.plot->setScalingX(mode, C0);
    const QStringList expected = {modeX(ZrQtPlot::AutoFit), fitted, modeX(mode)};
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::AutoFit);

    // The mode that is now the previous one is no mode to return to.
    scene.plot->setScalingX(ZrQtPlot::Custom, C0, false);
    scene.plot->setScalingX(mode, C0);
    QCOMPARE(scene.plot->scalingX(C0), mode);
}

void tst_ZrQtPlotScaling::returnToKeepAtHead_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<bool>("returns");

    // The data ends at 100.
    QTest::newRow("before the head") << QRectF(89, 0, 10, 100) << false;
    QTest::newRow("at the head") << QRectF(90, 0, 10, 100) << true;
    QTest::newRow("beyond the head") << QRectF(91, 0, 10, 100) << false;
}

void tst_ZrQtPlotScaling::returnToKeepAtHead()
{
    QFETCH(const QRectF, canvas);
    QFETCH(const bool, returns);

    Scene scene;
    scene.plot->setDefaultScalingX(ZrQtPlot::KeepAtHead);
    scene.plot->setCanvas(QRectF(20, 0, 5, 100), C0);
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Manual);
    scene.log->take();

    scene.plot->setCanvas(canvas, C0);
    QStringList expected;
    if (returns)
        expected << modeX(ZrQtPlot::KeepAtHead);
    expected << canvas0(canvas.left(), canvas.right(), 0, 100);
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(scene.plot->scalingX(C0), returns ? ZrQtPlot::KeepAtHead : ZrQtPlot::Manual);
}

void tst_ZrQtPlotScaling::returnToKeepAtHeadSeesThePreviousExtent()
{
    Scene scene;
    scene.plot->setDefaultScalingX(ZrQtPlot::KeepAtHead);
    scene.plot->setCanvas(QRectF(95, 0, 10, 100), C0); // ends at 105, the data at 100
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Manual);
    scene.log->take();

    // The canvas shows the head as of before, and the new head lies beyond it: following resumes.
    scene.channel->setRect(QRectF(0, 0, 120, 100));
    const QStringList expected = {modeX(ZrQtPlot::KeepAtHead), canvas0(110, 120, 0, 100)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotScaling::noReturnAfterDefault()
{
    Scene scene;
    scene.plot->setDefaultScalingX(ZrQtPlot::Manual);
    scene.log->take();
    scene.plot->setCanvas(QRectF(1, 0, 99, 100), C0);
    QCOMPARE(scene.log->take(), QStringList{canvas0(1, 100, 0, 100)});
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Manual);
}

void tst_ZrQtPlotScaling::noReturnToOtherModes()
{
    for (const auto previous : {ZrQtPlot::Centered, ZrQtPlot::Custom, ZrQtPlot::ScalingMode(0)}) {
        Scene scene;
        scene.plot->setScalingX(previous, C0, false);
        scene.plot->setScalingX(ZrQtPlot::Manual, C0, false);
        scene.log->take();
        scene.plot->setCanvas(QRectF(1, 0, 99, 100), C0);
        QCOMPARE(scene.log->take(), QStringList{canvas0(1, 100, 0, 100)});
    }
}

void tst_ZrQtPlotScaling::defaultScaling_data()
{
    QTest::addColumn<ZrQtPlot::PlotAxis>("axis");

    QTest::newRow("defaultScalingX") << ZrQtPlot::Axis_X;
    QTest::newRow("defaultScalingY") << ZrQtPlot::Axis_Y;
}

void tst_ZrQtPlotScaling::defaultScaling()
{
    QFETCH(const ZrQtPlot::PlotAxis, axis);

    Scene scene;
    scene.plot->setCanvas(QRectF(20, 20, 10, 10), C0);
    scene.plot->setScaling(ZrQtPlot::Manual, C0);
    scene.log->take();
    QCOMPARE(scene.plot->property(QTest::currentDataTag()).toInt(), int(ZrQtPlot::AutoFit));

    // The same value: nothing, although COSY_0 is Manual.
    QVERIFY(scene.plot->setProperty(QTest::currentDataTag(), int(ZrQtPlot::AutoFit)));
    QCOMPARE(scene.log->take(), QStringList());

    QVERIFY(scene.plot->setProperty(QTest::currentDataTag(), int(ZrQtPlot::KeepAtHead)));
    QStringList expected;
    for (const Cosy cosy : allSystems())
        expected << PlotLog::mode(ZrQtPlot::KeepAtHead, axis, cosy);
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(scene.plot->canvas(C0), QRectF(20, 20, 10, 10));
    for (const Cosy cosy : allSystems()) {
        const bool horizontal = axis == ZrQtPlot::Axis_X;
        QCOMPARE(horizontal ? scene.plot->scalingX(cosy) : scene.plot->scalingY(cosy), ZrQtPlot::KeepAtHead);
        QVERIFY((horizontal ? scene.plot->scalingY(cosy) : scene.plot->scalingX(cosy))
                != ZrQtPlot::KeepAtHead);
    }
}

void tst_ZrQtPlotScaling::initialCanvas()
{
    Scene scene;
    scene.plot->setKeepAspectRatio(true);
    scene.log->take();
    QCOMPARE(scene.plot->initialCanvas(), QRectF(0, 0, 10, 10));

    scene.plot->setInitialCanvas(QRectF(0, 0, 10, 10));
    QCOMPARE(scene.log->take(), QStringList());

    // The plain rectangle goes out, whatever the aspect ratio.
    scene.plot->setInitialCanvas(QRectF(1, 2, 3, 4));
    QStringList expected;
    for (const Cosy cosy : allSystems()) {
        expected << PlotLog::canvas(1, 4, 2, 6, cosy);
        QCOMPARE(scene.plot->canvas(cosy), QRectF(1, 2, 3, 4));
    }
    QCOMPARE(scene.log->take(), expected);
    QCOMPARE(scene.plot->initialCanvas(), QRectF(1, 2, 3, 4));
    QCOMPARE(scene.channel->canvas(), QRectF(1, 2, 3, 4));

    // A channel that comes later starts with it too.
    ProbeChannel late;
    late.setCosyX(C5);
    late.setCosyY(C1);
    scene.plot->addChannel(&late);
    QCOMPARE(late.canvas(), QRectF(1, 2, 3, 4));
    scene.plot->removeChannel(&late);
}

void tst_ZrQtPlotScaling::initialCanvasForgetsTheEdgeChannels()
{
    Scene scene;
    auto *small = new ProbeChannel(scene.plot, QRectF(20, 20, 10, 10));
    scene.plot->setInitialCanvas(QRectF(1, 2, 3, 4));
    scene.log->take();

    // Nobody holds an edge any more, so the next extent that is reported is taken as it is.
    small->setRect(QRectF(20, 20, 11, 10));
    const QStringList expected = {canvas0(20, 31, 2, 6), canvas0(20, 31, 20, 30)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotScaling::initialCanvasWidth()
{
    Scene scene;
    scene.plot->setCanvasToInitialWidth(C0);
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 100, 100));

    scene.plot->setInitialCanvasWidth(-3);
    scene.plot->setInitialCanvasWidth(5);
    scene.plot->setInitialCanvasWidth(8);
    scene.plot->setCanvas(QRectF(40, 0, 30, 100), C0);
    scene.log->take();
    scene.plot->setCanvasToInitialWidth(C0);
    QCOMPARE(scene.plot->canvas(C0), QRectF(40, 0, 5, 100));
    QCOMPARE(scene.log->take(), QStringList());
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Manual);
    QCOMPARE(scene.channel->canvas(), QRectF(40, 0, 30, 100));

    // A width of 0 is stored, but sets nothing.
    ZrQtPlot other;
    other.setInitialCanvasWidth(0);
    other.setInitialCanvasWidth(8);
    other.setCanvasToInitialWidth(C0);
    QCOMPARE(other.canvas(C0), QRectF(0, 0, 10, 10));
}

void tst_ZrQtPlotScaling::keepAspectRatio_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<ZrQtPlot::ScalingMode>("x");
    QTest::addColumn<ZrQtPlot::ScalingMode>("y");
    QTest::addColumn<QVector<double>>("edges"); // left, right, top, bottom

    // The plot is twice as wide as high.
    using V = QVector<double>;
    const QRectF square(0, 0, 100, 100);
    const QRectF flat(0, 0, 100, 10);
    const auto autoFit = ZrQtPlot::AutoFit;
    QTest::newRow("too narrow, AutoFit: widened around the centre")
        << square << autoFit << autoFit << V{-50, 150, 0, 100};
    QTest::newRow("too narrow, Manual") << square << ZrQtPlot::Manual << autoFit << V{-50, 150, 0, 100};
    QTest::newRow("too narrow, Centered") << square << ZrQtPlot::Centered << autoFit << V{-50, 150, 0, 100};
    QTest::newRow("too narrow, Custom: the left edge stays")
        << square << ZrQtPlot::Custom << autoFit << V{0, 200, 0, 100};
    QTest::newRow("too narrow, KeepAtHead: the right edge is set back")
        << square << ZrQtPlot::KeepAtHead << autoFit << V{0, 100, 0, 100};
    QTest::newRow("too flat, AutoFit: heightened around the centre")
        << flat << autoFit << autoFit << V{0, 100, -20, 30};
    QTest::newRow("too flat, Manual") << flat << autoFit << ZrQtPlot::Manual << V{0, 100, -20, 30};
    QTest::newRow("too flat, Centered") << flat << autoFit << ZrQtPlot::Centered << V{0, 100, -20, 30};
    QTest::newRow("too flat, Custom: the top edge stays")
        << flat << autoFit << ZrQtPlot::Custom << V{0, 100, 0, 50};
    QTest::newRow("too flat, KeepAtHead: the bottom edge is set back")
        << flat << autoFit << ZrQtPlot::KeepAtHead << V{0, 100, 0, 10};
    QTest::newRow("x moves without y") << flat << ZrQtPlot::Manual << ZrQtPlot::Custom << V{0, 100, 0, 50};
    QTest::newRow("fits already") << QRectF(0, 0, 100, 50) << autoFit << autoFit << V{0, 100, 0, 50};
    QTest::newRow("without height") << QRectF(0, 0, 100, 0) << autoFit << autoFit << V{0, 100, 0, 0};
    QTest::newRow("inverted") << QRectF(0, 0, -100, 10) << autoFit << autoFit << V{0, -100, 0, 10};
}

void tst_ZrQtPlotScaling::keepAspectRatio()
{
    QFETCH(const QRectF, canvas);
    QFETCH(const ZrQtPlot::ScalingMode, x);
    QFETCH(const ZrQtPlot::ScalingMode, y);
    QFETCH(const QVector<double>, edges);

    ShownPlot shown(plotSize);
    auto *channel = new ProbeChannel(shown.plot);
    shown.plot->setDefaultScalingX(x);
    shown.plot->setDefaultScalingY(y);
    shown.plot->setInitialCanvas(canvas);
    PlotLog log(shown.plot);

    const QString adjusted = canvas0(edges[0], edges[1], edges[2], edges[3]);
    shown.plot->setKeepAspectRatio(true);
    QCOMPARE(log.take(), QStringList{adjusted});
    QCOMPARE(shown.plot->canvas(C0), canvas);
    QCOMPARE(PlotLog::canvas(channel->canvas(), C0), adjusted);

    shown.plot->setKeepAspectRatio(true);
    QCOMPARE(log.take(), QStringList());
    shown.plot->setKeepAspectRatio(false);
    QCOMPARE(log.take(), QStringList{PlotLog::canvas(canvas, C0)});
}

void tst_ZrQtPlotScaling::keepAspectRatioOnResize()
{
    ShownPlot shown(plotSize);
    shown.plot->setDefaultScalingX(ZrQtPlot::Custom);
    shown.plot->setDefaultScalingY(ZrQtPlot::Custom);
    new ProbeChannel(shown.plot, QRectF(), C0, C0);
    new ProbeChannel(shown.plot, QRectF(), C1, C0);
    new ProbeChannel(shown.plot, QRectF(), C0, C0);
    shown.plot->setKeepAspectRatio(true);
    PlotLog log(shown.plot);

    // Once for each system in use, and then once more for each channel and each of its systems.
    shown.plot->resize(300, 100);
    const QString c0 = PlotLog::canvas(0, 30, 0, 10, C0);
    const QString c1 = PlotLog::canvas(0, 30, 0, 10, C1);
    const QStringList expected = {c0, c1, c0, c1, c0, c0};
    QCOMPARE(log.take(), expected);
}

void tst_ZrQtPlotScaling::resizeAnnouncesEverySystemInUse()
{
    Scene scene;
    new ProbeChannel(scene.plot, QRectF(0, 0, 10, 10), C5, C1);
    scene.log->take();
    scene.plot->resize(300, 100);
    const QStringList expected
        = {canvas0(0, 100, 0, 100), PlotLog::canvas(0, 10, 0, 10, C5), PlotLog::canvas(0, 10, 0, 10, C1)};
    QCOMPARE(scene.log->take(), expected);
}

void tst_ZrQtPlotScaling::slotMayUseOtherSystems()
{
    // Thousands of new records, of combinations, inside a slot move all the others in memory.
    Scene scene;
    new ProbeChannel(scene.plot, QRectF(0, 0, 10, 10), C5, C1);
    int next = 3;
    connect(scene.plot, &ZrQtPlot::canvasChanged, this, [&] {
        for (int i = 0; i < 300; ++i)
            scene.plot->scalingX(Cosy(next++));
    });
    connect(scene.plot, &ZrQtPlot::scalingModeChanged, this, [&] {
        for (int i = 0; i < 300; ++i)
            scene.plot->scalingY(Cosy(next++));
    });
    scene.log->take();

    scene.plot->setCanvas(QRectF(20, 30, 10, 5), C0);
    QCOMPARE(scene.plot->canvas(C0), QRectF(20, 30, 10, 5));
    scene.plot->setMinX(22, C0);
    scene.plot->setMaxY(36, C0);
    QCOMPARE(scene.plot->canvas(C0), QRectF(22, 30, 8, 6));
    scene.plot->setScaling(ZrQtPlot::AutoFit, C0);
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 100, 100));
    scene.channel->setRect(QRectF(-50, -50, 100, 100));
    QCOMPARE(scene.plot->canvas(C0), QRectF(-50, -50, 100, 100));
    scene.plot->setInitialCanvas(QRectF(0, 0, 1, 1));
    scene.plot->setDefaultScalingX(ZrQtPlot::Custom);
    scene.plot->setKeepAspectRatio(true);
    for (const Cosy cosy : allSystems()) {
        QCOMPARE(scene.plot->canvas(cosy), QRectF(0, 0, 1, 1));
        QCOMPARE(scene.plot->scalingX(cosy), ZrQtPlot::Custom);
    }
    scene.plot->removeChannel(scene.channel);
    QCOMPARE(scene.plot->scalingX(C5), ZrQtPlot::Custom);
    delete scene.channel;
}

QTEST_MAIN(tst_ZrQtPlotScaling)

#include "tst_zrqtplot_scaling.moc"
