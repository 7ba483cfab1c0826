#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"

#include <cmath>
#include <limits>

/// Numbers that no careful program hands over, and plots without any size: nothing crashes, hangs or stays
/// broken.
class tst_ZrQtPlotBadInput : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void canvases_data();
    void canvases();
    void canvasSideIsIgnoredAlone_data();
    void canvasSideIsIgnoredAlone();
    void edges_data();
    void edges();
    void extents_data();
    void extents();
    void extentOfNothingIsIgnored();
    void oneBadChannelDoesNotHideTheOthers();
    void margins_data();
    void margins();
    void tolerances_data();
    void tolerances();
    void spacings_data();
    void spacings();
    void bufferedData_data();
    void bufferedData();
    void sizes_data();
    void sizes();
    void marginsLargerThanThePlot();
    void marginsLargerThanAWidgetMayBe();
    void strangeEnumerators();
    void hiddenPlot();
    void manyChannels();
};

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();
const double huge = 1e308;
const double tiny = 1e-300;
const double denormal = 5e-324;
const Cosy C0 = ZrQtPlot::COSY_0;

/// A plot with everything on it.
struct Scene : ShownPlot
{
    explicit Scene(const QSize &size = QSize(300, 200))
        : ShownPlot(size)
    {
        for (const Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
            auto *axis = new ZrQtAxis(plot);
            axis->setPosition(edge);
            axis->setUseForGrid(true);
            axis->show();
        }
        buffered = new ZrQtBufferedChannel(plot);
        buffered->setName(QStringLiteral("alpha"));
        buffered->setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
        channel = new ProbeChannel(plot, QRectF());
        channel->setName(QStringLiteral("beta"));
        plot->setGenerateLegend(true);
        settle(plot);
    }

    /// Paints in every grid mode, direct and cached, at both aspect ratios.
    void paintEverything()
    {
        for (const bool keep : {false, true}) {
            plot->setKeepAspectRatio(keep);
            for (int mode = ZrQtPlot::NoGrid; mode <= ZrQtPlot::SubTickPolarGrid; ++mode) {
                plot->setGridModeX(ZrQtPlot::GridMode(mode));
                plot->setGridModeY(ZrQtPlot::GridMode(mode));
                plot->setControlChannelUpdatesViaPlot(mode % 2 == 0);
                plot->grab();
            }
        }
        plot->setKeepAspectRatio(false);
        plot->setControlChannelUpdatesViaPlot(false);
        settle(plot);
    }

    /// Good input brings the plot back, whatever came before.
    void verifyUsable()
    {
        plot->setScaling(ZrQtPlot::Custom, C0);
        plot->setScaling(ZrQtPlot::Custom, C0);
        plot->setCanvas(QRectF(1, 2, 3, 4), C0);
        plot->setScaling(ZrQtPlot::Custom, C0);
        plot->setCanvas(QRectF(10, 20, 30, 40), C0);
        QCOMPARE(plot->canvas(C0), QRectF(10, 20, 30, 40));
        QCOMPARE(channel->canvas(), QRectF(10, 20, 30, 40));
        channel->setRect(QRectF(0, 0, 100, 50));
        plot->setScaling(ZrQtPlot::AutoFit, C0);
        plot->setScaling(ZrQtPlot::AutoFit, C0);
        const QRectF canvas = plot->canvas(C0);
        QVERIFY(canvas.width() > 99 && canvas.height() > 49);
        QVERIFY(canvas.left() <= 0 && canvas.right() >= 100);
        QVERIFY(canvas.top() <= 0 && canvas.bottom() >= 50);
        QVERIFY(!plot->grab().isNull());
    }

    ZrQtBufferedChannel *buffered;
    ProbeChannel *channel;
};

/// A bound on the time that a test function may take.
class Watch
{
public:
    Watch() { m_clock.start(); }
    ~Watch() { QVERIFY2(m_clock.elapsed() < 20000, qPrintable(QString::number(m_clock.elapsed()))); }

private:
    QElapsedTimer m_clock;
};

void addRectangles()
{
    QTest::addColumn<QRectF>("rect");

    QTest::newRow("null") << QRectF();
    QTest::newRow("no width") << QRectF(1, 2, 0, 4);
    QTest::newRow("no height") << QRectF(1, 2, 3, 0);
    QTest::newRow("inverted x") << QRectF(1, 2, -3, 4);
    QTest::newRow("inverted y") << QRectF(1, 2, 3, -4);
    QTest::newRow("inverted") << QRectF(1, 2, -3, -4);
    QTest::newRow("NaN everywhere") << QRectF(notANumber, notANumber, notANumber, notANumber);
    QTest::newRow("NaN left") << QRectF(notANumber, 0, 10, 10);
    QTest::newRow("NaN top") << QRectF(0, notANumber, 10, 10);
    QTest::newRow("NaN width") << QRectF(0, 0, notANumber, 10);
    QTest::newRow("NaN height") << QRectF(0, 0, 10, notANumber);
    QTest::newRow("infinite") << QRectF(-infinity, -infinity, infinity, infinity);
    QTest::newRow("infinite size") << QRectF(0, 0, infinity, infinity);
    QTest::newRow("infinite position") << QRectF(infinity, infinity, 10, 10);
    QTest::newRow("negative infinite size") << QRectF(0, 0, -infinity, -infinity);
    QTest::newRow("huge") << QRectF(-huge, -huge, huge, huge);
    QTest::newRow("huge on both sides of zero") << QRectF(QPointF(-huge, -huge), QPointF(huge, huge));
    QTest::newRow("largest finite") << QRectF(0, 0, std::numeric_limits<double>::max(),
                                              std::numeric_limits<double>::max());
    QTest::newRow("tiny") << QRectF(0, 0, tiny, tiny);
    QTest::newRow("denormal") << QRectF(0, 0, denormal, denormal);
    QTest::newRow("tiny beside huge") << QRectF(0, 0, tiny, huge);
    QTest::newRow("less than the resolution") << QRectF(1e300, 1e300, 1, 1);
    QTest::newRow("a microsecond in an epoch") << QRectF(1.7e12, 0, 1e-3, 1e-3);
}

void addNumbers()
{
    QTest::addColumn<double>("number");

    QTest::newRow("NaN") << notANumber;
    QTest::newRow("infinity") << infinity;
    QTest::newRow("negative infinity") << -infinity;
    QTest::newRow("huge") << huge;
    QTest::newRow("negative huge") << -huge;
    QTest::newRow("tiny") << tiny;
    QTest::newRow("denormal") << denormal;
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative zero") << -0.0;
    QTest::newRow("negative") << -5.0;
    QTest::newRow("beyond int") << 1e12;
}

} // namespace

void tst_ZrQtPlotBadInput::canvases_data()
{
    addRectangles();
}

void tst_ZrQtPlotBadInput::canvases()
{
    QFETCH(const QRectF, rect);

    const Watch watch;
    Scene scene;
    scene.plot->setCanvas(rect, C0);
    scene.paintEverything();
    scene.verifyUsable();

    scene.plot->setInitialCanvas(rect);
    scene.paintEverything();
    for (const auto mode :
         {ZrQtPlot::Manual, ZrQtPlot::AutoFit, ZrQtPlot::Centered, ZrQtPlot::KeepAtHead, ZrQtPlot::Custom}) {
        scene.plot->setInitialCanvas(QRectF(0, 0, 1, 1));
        scene.plot->setInitialCanvas(rect);
        scene.plot->setScaling(mode, C0);
        scene.plot->setCanvasToInitialWidth(C0);
        scene.plot->grab();
    }
    scene.plot->setInitialCanvas(QRectF(0, 0, 1, 1));
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::canvasSideIsIgnoredAlone_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<QRectF>("expected");

    QTest::newRow("NaN width changes only y") << QRectF(1, 2, notANumber, 4) << QRectF(0, 2, 10, 4);
    QTest::newRow("NaN height changes only x") << QRectF(1, 2, 3, notANumber) << QRectF(1, 0, 3, 10);
    QTest::newRow("no size changes nothing") << QRectF(1, 2, notANumber, notANumber) << QRectF(0, 0, 10, 10);
}

void tst_ZrQtPlotBadInput::canvasSideIsIgnoredAlone()
{
    QFETCH(const QRectF, rect);
    QFETCH(const QRectF, expected);

    ZrQtPlot plot;
    plot.setDefaultScalingX(ZrQtPlot::Custom);
    plot.setDefaultScalingY(ZrQtPlot::Custom);
    plot.setCanvas(rect, C0);
    QCOMPARE(plot.canvas(C0), expected);
}

void tst_ZrQtPlotBadInput::edges_data()
{
    addNumbers();
}

void tst_ZrQtPlotBadInput::edges()
{
    QFETCH(const double, number);

    const Watch watch;
    Scene scene;
    using Setter = void (ZrQtPlot::*)(double, Cosy);
    for (const Setter setter :
         {&ZrQtPlot::setMinX, &ZrQtPlot::setMaxX, &ZrQtPlot::setMinY, &ZrQtPlot::setMaxY}) {
        (scene.plot->*setter)(number, C0);
        scene.paintEverything();
    }
    scene.plot->setInitialCanvasWidth(number);
    scene.plot->setCanvasToInitialWidth(C0);
    scene.paintEverything();
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::extents_data()
{
    addRectangles();
}

void tst_ZrQtPlotBadInput::extents()
{
    QFETCH(const QRectF, rect);

    const Watch watch;
    for (const bool useEmpty : {false, true}) {
        Scene scene;
        scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(useEmpty);
        auto *other = new ProbeChannel(scene.plot, QRectF(0, 0, 10, 10));
        for (const auto mode : {ZrQtPlot::AutoFit, ZrQtPlot::Centered, ZrQtPlot::KeepAtHead}) {
            scene.plot->setScaling(mode, C0);
            scene.channel->setRect(rect);
            scene.plot->grab();
            scene.channel->setVisible(false);
            scene.channel->setVisible(true);
            other->setRect(QRectF(-1, -1, 20, 20));
            other->setRect(QRectF(0, 0, 10, 10));
            scene.plot->grab();
        }
        scene.paintEverything();
        delete other;
        scene.channel->setRect(QRectF(0, 0, 100, 50));
        scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(false);
        scene.verifyUsable();
    }
}

void tst_ZrQtPlotBadInput::extentOfNothingIsIgnored()
{
    for (const QRectF &rect : {QRectF(), QRectF(notANumber, notANumber, notANumber, notANumber),
                               QRectF(5, 5, 0, 0), QRectF(5, 5, -1, -1)}) {
        ShownPlot shown;
        auto *channel = new ProbeChannel(shown.plot, QRectF(0, 0, 10, 10));
        auto *bad = new ProbeChannel(shown.plot, QRectF());
        PlotLog log(shown.plot);
        bad->setRect(rect);
        bad->setVisible(false);
        bad->setVisible(true);
        QCOMPARE(log.take(), QStringList());
        channel->setRect(QRectF(0, 0, 20, 10));
        QCOMPARE(log.take().size(), 1);
        QVERIFY(shown.plot->canvas(C0).right() > 20);
    }
}

void tst_ZrQtPlotBadInput::oneBadChannelDoesNotHideTheOthers()
{
    // A fit from all channels passes a channel by whose extent is no extent.
    const QRectF noExtents[]
        = {QRectF(notANumber, notANumber, notANumber, notANumber), QRectF(0, 0, infinity, infinity),
           QRectF(-infinity, -infinity, infinity, infinity)};
    for (const QRectF &rect : noExtents) {
        ShownPlot shown;
        auto *channel = new ProbeChannel(shown.plot, QRectF(0, 0, 10, 10));
        auto *bad = new ProbeChannel(shown.plot, QRectF());
        bad->setRectSilently(rect);
        channel->setRect(QRectF(0, 0, 5, 5));
        QVERIFY(shown.plot->canvas(C0).right() < 6);
        channel->setRect(QRectF(0, 0, 50, 50));
        QVERIFY(shown.plot->canvas(C0).right() > 50);
        QVERIFY(std::isfinite(shown.plot->canvas(C0).left()));
    }
}

void tst_ZrQtPlotBadInput::margins_data()
{
    addNumbers();
    QTest::newRow("one half on each side") << 0.5;
    QTest::newRow("almost one half") << 0.5 - 1e-16;
    QTest::newRow("the whole") << 1.0;
}

void tst_ZrQtPlotBadInput::margins()
{
    QFETCH(const double, number);

    const Watch watch;
    Scene scene;
    scene.channel->setRect(QRectF(0, 0, 10, 10));
    for (const char *margin :
         {"canvasMarginLeft", "canvasMarginRight", "canvasMarginTop", "canvasMarginBottom"}) {
        scene.plot->setProperty(margin, number);
        scene.channel->setRect(QRectF(0, 0, 20, 20));
        scene.plot->setScaling(ZrQtPlot::AutoFit, C0);
        scene.channel->setRect(QRectF(0, 0, 10, 10));
        scene.paintEverything();
    }
    for (const char *margin :
         {"canvasMarginLeft", "canvasMarginRight", "canvasMarginTop", "canvasMarginBottom"})
        scene.plot->setProperty(margin, 0.02);
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::tolerances_data()
{
    addNumbers();
}

void tst_ZrQtPlotBadInput::tolerances()
{
    QFETCH(const double, number);

    const Watch watch;
    Scene scene;
    scene.plot->setKeepOldBoundingRectWidthTolerance(number);
    scene.plot->setKeepOldBoundingRectHeightTolerance(number);
    for (const int interval : {std::numeric_limits<int>::min(), -1, 0, 1, std::numeric_limits<int>::max()}) {
        scene.plot->setBoundingRectReduceUpdateInterval(interval);
        scene.channel->setRect(QRectF(0, 0, 10, 10));
        scene.channel->setRect(QRectF(1, 1, 5, 5));
        scene.channel->setRect(QRectF(notANumber, 1, 5, infinity));
        waitFor(3);
    }
    scene.plot->setBoundingRectReduceUpdateInterval(-1);
    scene.plot->setKeepOldBoundingRectWidthTolerance(0);
    scene.plot->setKeepOldBoundingRectHeightTolerance(0);
    scene.channel->setRect(QRectF(0, 0, 7, 7));
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::spacings_data()
{
    addNumbers();
}

void tst_ZrQtPlotBadInput::spacings()
{
    QFETCH(const double, number);

    // Small, since a circle a pixel takes its time.
    const Watch watch;
    Scene scene(QSize(150, 120));
    for (const double main : {number, 0.5}) {
        for (const double sub : {number, 0.5}) {
            scene.plot->setGridSpacing(QSizeF(main, main));
            scene.plot->setGridSubSpacing(QSizeF(sub, sub));
            scene.plot->setDrawBorderGridLines(main != sub);
            scene.paintEverything();
        }
    }
    // Spacings of nothing are those of a pixel, or no lines, but never lines without end.
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::bufferedData_data()
{
    QTest::addColumn<QVector<double>>("y");

    using V = QVector<double>;
    QTest::newRow("empty") << V{};
    QTest::newRow("one point") << V{5};
    QTest::newRow("one NaN") << V{notANumber};
    QTest::newRow("all NaN") << V{notANumber, notANumber, notANumber};
    QTest::newRow("NaN in the middle") << V{1, notANumber, 3};
    QTest::newRow("infinities") << V{-infinity, 0, infinity};
    QTest::newRow("huge") << V{-huge, 0, huge};
    QTest::newRow("denormal") << V{0, denormal, 2 * denormal};
    QTest::newRow("constant") << V{7, 7, 7, 7};
    QTest::newRow("close to each other") << V{1, 1 + 1e-15, 1};
}

void tst_ZrQtPlotBadInput::bufferedData()
{
    QFETCH(const QVector<double>, y);

    const Watch watch;
    for (const bool useEmpty : {false, true}) {
        Scene scene;
        scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(useEmpty);
        scene.buffered->setData(y);
        scene.paintEverything();
        scene.buffered->setData(y, y);
        scene.paintEverything();
        scene.buffered->clear();
        scene.plot->setUseEmptyBoundingRectsForAutoFitScaling(false);
        scene.verifyUsable();
    }
}

void tst_ZrQtPlotBadInput::sizes_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("no height") << QSize(200, 0);
    QTest::newRow("no width") << QSize(0, 200);
    QTest::newRow("less than the axes need") << QSize(30, 20);
    QTest::newRow("high and narrow") << QSize(3, 800);
}

void tst_ZrQtPlotBadInput::sizes()
{
    QFETCH(const QSize, size);

    const Watch watch;
    Scene scene;
    scene.buffered->setData(QVector<double>{1, 4, 9});
    // The layout asks for a minimum, but a fixed geometry of the parent may overrule it.
    scene.plot->setMinimumSize(0, 0);
    scene.plot->setMaximumSize(size);
    scene.plot->setFixedSize(size);
    scene.plot->resize(size);
    scene.paintEverything();
    scene.channel->setRect(QRectF(0, 0, 10, 10));
    scene.plot->setCanvas(QRectF(0, 0, 9, 9), C0);
    scene.plot->setMinX(-1, C0);
    scene.plot->setScaling(ZrQtPlot::AutoFit, C0);
    scene.plot->grab();
    scene.plot->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    scene.plot->resize(300, 200);
    settle(scene.plot);
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::marginsLargerThanThePlot()
{
    const Watch watch;
    for (const int margin : {-1000, 200, 900}) {
        Scene scene;
        for (const char *name : {"minMarginLeft", "minMarginRight", "minMarginTop", "minMarginBottom"}) {
            scene.plot->setProperty(name, margin);
            scene.paintEverything();
        }
        for (const char *name : {"minMarginLeft", "minMarginRight", "minMarginTop", "minMarginBottom"})
            scene.plot->setProperty(name, 0);
        scene.plot->resize(300, 200);
        settle(scene.plot);
        scene.verifyUsable();
    }
}

void tst_ZrQtPlotBadInput::marginsLargerThanAWidgetMayBe()
{
    ZrQtPlot plot;
    plot.setMinMarginLeft(std::numeric_limits<int>::max());
    plot.setMinMarginTop(std::numeric_limits<int>::max());
    QVERIFY(plot.minimumWidth() > 1000000);
    plot.setMinMarginRight(std::numeric_limits<int>::max());
    plot.setMinMarginBottom(std::numeric_limits<int>::max());
    QVERIFY(plot.minimumWidth() <= QWIDGETSIZE_MAX);
    QVERIFY(plot.minimumHeight() <= QWIDGETSIZE_MAX);
}

void tst_ZrQtPlotBadInput::strangeEnumerators()
{
    const Watch watch;
    Scene scene;
    scene.channel->setRect(QRectF(0, 0, 10, 10));
    for (const int strange : {0, 3, 7, 31}) {
        scene.plot->setScaling(ZrQtPlot::ScalingMode(strange), C0);
        scene.plot->setGridModeX(ZrQtPlot::GridMode(7));
        scene.plot->setGridModeY(ZrQtPlot::GridMode(7));
        scene.plot->grab();
        const auto cosy = Cosy(strange);
        scene.plot->setScaling(ZrQtPlot::AutoFit, cosy);
        scene.plot->setMinX(1, cosy);
        scene.plot->setCanvasToInitialWidth(cosy);
        scene.channel->setCosyX(cosy);
        scene.channel->setCosyY(cosy);
        scene.plot->grab();
        scene.plot->setLegendAlignment(Qt::Alignment(strange));
        scene.plot->grab();
    }
    scene.plot->setBorderWidth(-5);
    scene.plot->setBorderColor(Qt::red);
    scene.plot->setBackgroundColor(QColor());
    scene.plot->grab();
    scene.channel->setCosyX(C0);
    scene.channel->setCosyY(C0);
    scene.verifyUsable();
}

void tst_ZrQtPlotBadInput::hiddenPlot()
{
    ZrQtPlot plot;
    new ZrQtAxis(&plot);
    auto *channel = new ProbeChannel(&plot, QRectF(0, 0, 10, 10));
    plot.setGenerateLegend(true);
    plot.setGridModeX(ZrQtPlot::SubTickPolarGrid);
    plot.setKeepAspectRatio(true);
    plot.setControlChannelUpdatesViaPlot(true);
    QVERIFY(plot.canvas(C0).right() > 10);
    plot.setControlChannelUpdatesViaPlot(false);
    plot.setCanvas(QRectF(3, 3, 4, 4), C0);
    QVERIFY(!plot.grab().isNull());
    QVERIFY(channel->canvas().isValid());
}

void tst_ZrQtPlotBadInput::manyChannels()
{
    // A forgotten loop in a loop would take minutes.
    const Watch watch;
    ShownPlot shown;
    QVector<ProbeChannel *> channels;
    for (int i = 0; i < 300; ++i) {
        channels.append(
            new ProbeChannel(shown.plot, QRectF(i, i, 1, 1), Cosy(1 << (i % 16)), Cosy(1 << (i % 7))));
        channels.last()->setName(QString::number(i));
    }
    shown.plot->setGenerateLegend(true);
    settle(shown.plot);
    shown.plot->grab();
    qDeleteAll(channels);
    settle(shown.plot);
    QVERIFY(!shown.plot->grab().isNull());
}

QTEST_MAIN(tst_ZrQtPlotBadInput)

#include "tst_zrqtplot_badinput.moc"
