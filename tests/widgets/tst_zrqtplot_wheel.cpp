#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

QPoint at(int x, int y)
{
    return GestureScene::inArea(x, y);
}

QString mode(ZrQtPlot::ScalingMode scaling, ZrQtPlot::PlotAxis axis)
{
    return PlotLog::mode(scaling, axis, ZrQtPlot::COSY_0);
}

QString canvas(const QRectF &rect, Cosy cosy = ZrQtPlot::COSY_0)
{
    return PlotLog::canvas(rect, cosy);
}

/// \a rect scaled by \a factor in each direction, so that the fractions \a x from the left and \a y from the
/// bottom of the plot area stay.
QRectF scaled(const QRectF &rect, double factorX, double factorY, double x, double y)
{
    const double width = rect.width() * factorX;
    const double height = rect.height() * factorY;
    return {rect.left() + x * (rect.width() - width), rect.top() + y * (rect.height() - height), width,
            height};
}

/// A plot in `AutoFit` that shows its data exactly, 0 to 40 by 0 to 10.
void fitToData(ZrQtPlot *plot)
{
    plot->setCanvasMarginLeft(0.0);
    plot->setCanvasMarginRight(0.0);
    plot->setCanvasMarginTop(0.0);
    plot->setCanvasMarginBottom(0.0);
    plot->setScaling(ZrQtPlot::AutoFit, ZrQtPlot::COSY_0);
}

/// Long labels would move the plot area; hidden axes invert all the same.
void hideAxes(const GestureScene &scene)
{
    scene.xAxis->hide();
    scene.yAxis->hide();
    settle(scene.plot);
}

/// Counts the turns of the wheel that the plot leaves to its window.
class WheelCounter : public QObject
{
public:
    explicit WheelCounter(QWidget *window) { window->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Wheel;
        return false;
    }
};

} // namespace

/// Zooming with the wheel, over the plot area and over an axis.
class TestPlotWheel : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void isOffAtFirst();
    void everySystemIsZoomed_data() { addVariants(); }
    void everySystemIsZoomed();
    void valueUnderTheMouseStays_data() { addVariants(); }
    void valueUnderTheMouseStays();
    void valueUnderTheMouseStaysForAThousandSteps_data();
    void valueUnderTheMouseStaysForAThousandSteps();

    void directionOfTheTurn_data();
    void directionOfTheTurn();
    void fittedDirectionsBecomeManual();
    void zoomAxesDecideTheDirections_data();
    void zoomAxesDecideTheDirections();
    void oneDirectionAloneCannotBreakTheAspectRatio();
    void zoomBackToTheDataIsFittedAgain();
    void collapsedCanvasOpens_data();
    void collapsedCanvasOpens();

    void acceptedOnlyWhereItZooms_data();
    void acceptedOnlyWhereItZooms();

    void axisZoomsItsOwnSystem_data() { addVariants(); }
    void axisZoomsItsOwnSystem();
    void systemOfTheAxisCounts();
    void axisTurnsItsDirectionManual();
    void axisSwallowsTheWheel();
};

void TestPlotWheel::isOffAtFirst()
{
    ZrQtPlot plot;
    QVERIFY(!plot.mouseWheelZoom());
    QCOMPARE(plot.zoomAxes(), ZrQtPlot::Axis_X | ZrQtPlot::Axis_Y);
    plot.setMouseWheelZoom(true);
    QVERIFY(plot.mouseWheelZoom());
    plot.setZoomAxes(ZrQtPlot::Axis_Y);
    QCOMPARE(plot.zoomAxes(), ZrQtPlot::PlotAxes(ZrQtPlot::Axis_Y));
}

void TestPlotWheel::everySystemIsZoomed()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);

    // A quarter from the left, four fifths from the bottom. Inverted axes do not count, on purpose.
    QStringList in;
    QStringList out;
    QVector<QRectF> shown;
    for (Cosy cosy : scene.used) {
        const QRectF start = GestureScene::start(cosy, variant.keepAspectRatio);
        shown.append(scaled(start, 0.85, 0.85, 0.25, 0.8));
        in.append(canvas(shown.last(), cosy));
        out.append(canvas(scaled(shown.last(), 1.15, 1.15, 0.25, 0.8), cosy));
    }
    turnWheel(scene.plot, at(100, 40), awayFromUser);
    QCOMPARE(log.take(), in);
    for (int i = 0; i < shown.size(); ++i)
        QCOMPARE(scene.plot->canvas(scene.used.at(i)), shown.at(i));
    turnWheel(scene.plot, at(100, 40), towardsUser);
    QCOMPARE(log.take(), out);
}

void TestPlotWheel::valueUnderTheMouseStays()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    hideAxes(scene);
    QVERIFY(scene.isReady());
    scene.plot->setMouseWheelZoom(true);
    std::mt19937 random(99);
    std::uniform_real_distribution<double> exponent(-6, 6);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> pixelX(0, 400);
    std::uniform_int_distribution<int> pixelY(0, 200);
    const auto number = [&] { return mantissa(random) * std::pow(10.0, exponent(random)); };

    for (int i = 0; i < 100; ++i) {
        for (Cosy cosy : scene.used)
            scene.plot->setCanvas({number(), number(), std::abs(number()), std::abs(number())}, cosy);
        // Every fourth at a corner.
        const QPoint pixel = i % 4 == 0 ? QPoint(400 * (i / 4 % 2), 200 * (i / 8 % 2))
                                        : QPoint(pixelX(random), pixelY(random));
        const auto valueAt = [&pixel](const QRectF &shown) {
            return QPointF(shown.left() + shown.width() * pixel.x() / 400.0,
                           shown.bottom() - shown.height() * pixel.y() / 200.0);
        };
        QHash<Cosy, QRectF> announced;
        const auto connection
            = connect(scene.plot, &ZrQtPlot::canvasChanged, this,
                      [&announced](const QRectF &shown, Cosy cosy) { announced.insert(cosy, shown); });
        // Every release announces what is shown, with a fixed aspect ratio too.
        release(scene.plot, at(200, 100));
        const QHash<Cosy, QRectF> before = announced;
        turnWheel(scene.plot, at(pixel.x(), pixel.y()), i % 2 ? awayFromUser : towardsUser);
        disconnect(connection);
        for (Cosy cosy : scene.used) {
            const QRectF from = before.value(cosy);
            const QPointF drift = valueAt(announced.value(cosy)) - valueAt(from);
            const double epsilon = 16 * std::numeric_limits<double>::epsilon();
            QVERIFY(announced.value(cosy) != from);
            QVERIFY(std::abs(drift.x()) <= epsilon * (std::abs(from.left()) + from.width()));
            QVERIFY(std::abs(drift.y()) <= epsilon * (std::abs(from.top()) + from.height()));
        }
    }
}

void TestPlotWheel::valueUnderTheMouseStaysForAThousandSteps_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::newRow("in the middle") << at(200, 100);
    QTest::newRow("at an odd place") << at(77, 191);
    QTest::newRow("at a corner") << at(400, 0);
}

void TestPlotWheel::valueUnderTheMouseStaysForAThousandSteps()
{
    QFETCH(QPoint, pixel);
    GestureScene scene;
    hideAxes(scene);
    scene.plot->setMouseWheelZoom(true);
    const auto value = [&] {
        const QRectF shown = scene.plot->canvas(ZrQtPlot::COSY_0);
        return QPointF(shown.left() + shown.width() * (pixel.x() - 100) / 400.0,
                       shown.bottom() - shown.height() * (pixel.y() - 60) / 200.0);
    };
    const QPointF start = value();
    for (int i = 0; i < 1000; ++i) {
        turnWheel(scene.plot, pixel, i < 500 ? awayFromUser : towardsUser);
        const QPointF drift = value() - start;
        const QRectF shown = scene.plot->canvas(ZrQtPlot::COSY_0);
        const double allowed = 1e-12 * (40.0 + shown.width() + shown.height());
        QVERIFY(std::abs(drift.x()) <= allowed && std::abs(drift.y()) <= allowed);
        QVERIFY(shown.width() > 0.0 && shown.height() > 0.0);
    }
}

void TestPlotWheel::directionOfTheTurn_data()
{
    QTest::addColumn<QPoint>("delta");
    QTest::addColumn<double>("factor");
    QTest::newRow("away from the user zooms in") << QPoint(0, 120) << 0.85;
    QTest::newRow("towards the user zooms out") << QPoint(0, -120) << 1.15;
    QTest::newRow("the size does not matter: little") << QPoint(0, -1) << 1.15;
    QTest::newRow("the size does not matter: much") << QPoint(0, 1200) << 0.85;
    QTest::newRow("sideways to the left zooms in") << QPoint(-120, 0) << 0.85;
    QTest::newRow("sideways to the right zooms in") << QPoint(120, 0) << 0.85;
    QTest::newRow("askew counts as up or down") << QPoint(120, -15) << 1.15;
}

void TestPlotWheel::directionOfTheTurn()
{
    QFETCH(QPoint, delta);
    QFETCH(double, factor);
    GestureScene scene;
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);
    turnWheel(scene.plot, at(200, 100), delta);
    QCOMPARE(log.take(), QStringList(canvas(scaled({0, 0, 40, 10}, factor, factor, 0.5, 0.5))));
    turnWheel(scene.xAxis, {300, 10}, delta);
    QCOMPARE(log.take().size(), 1);
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), scaled({0, 0, 40, 10}, factor * factor, factor, 0.5, 0.5));
}

void TestPlotWheel::fittedDirectionsBecomeManual()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);
    turnWheel(scene.plot, at(200, 100), awayFromUser);
    // The modes are written directly: the canvas is announced but once.
    QCOMPARE(log.take(), QStringList({mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X),
                                      mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y), canvas({3, 0.75, 34, 8.5})}));
    turnWheel(scene.plot, at(200, 100), awayFromUser);
    QCOMPARE(log.take(), QStringList(canvas({5.55, 1.3875, 28.9, 7.225})));
}

void TestPlotWheel::zoomAxesDecideTheDirections_data()
{
    QTest::addColumn<ZrQtPlot::PlotAxes>("axes");
    QTest::addColumn<QStringList>("first");
    QTest::newRow("x alone") << ZrQtPlot::PlotAxes(
        ZrQtPlot::Axis_X) << QStringList({mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X), canvas({3, 0, 34, 10})});
    QTest::newRow("y alone") << ZrQtPlot::PlotAxes(ZrQtPlot::Axis_Y)
                             << QStringList(
                                    {mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y), canvas({0, 0.75, 40, 8.5})});
    QTest::newRow("none: announced, but the same")
        << ZrQtPlot::PlotAxes() << QStringList(canvas({0, 0, 40, 10}));
}

void TestPlotWheel::zoomAxesDecideTheDirections()
{
    QFETCH(ZrQtPlot::PlotAxes, axes);
    QFETCH(QStringList, first);
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setMouseWheelZoom(true);
    scene.plot->setZoomAxes(axes);
    GestureLog log(scene.plot);
    turnWheel(scene.plot, at(200, 100), awayFromUser);
    QCOMPARE(log.take(), first);
    turnWheel(scene.plot, at(200, 100), awayFromUser);
    QCOMPARE(log.take().size(), 1);
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0) == ZrQtPlot::Manual, axes.testFlag(ZrQtPlot::Axis_X));
    QCOMPARE(scene.plot->scalingY(ZrQtPlot::COSY_0) == ZrQtPlot::Manual, axes.testFlag(ZrQtPlot::Axis_Y));

    // Axes do not ask for it.
    turnWheel(scene.xAxis, {300, 10}, awayFromUser);
    turnWheel(scene.yAxis, {10, 160}, awayFromUser);
    QCOMPARE(scene.plot->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
    QCOMPARE(scene.plot->scalingY(ZrQtPlot::COSY_0), ZrQtPlot::Manual);
}

void TestPlotWheel::oneDirectionAloneCannotBreakTheAspectRatio()
{
    GestureScene scene({false, false, true, 1});
    scene.plot->setMouseWheelZoom(true);
    scene.plot->setZoomAxes(ZrQtPlot::Axis_X);
    GestureLog log(scene.plot);
    // 0 to 40 by -5 to 15; narrowed to 34 around a quarter, it is widened again around its new centre.
    turnWheel(scene.plot, at(100, 100), awayFromUser);
    QCOMPARE(log.take(), QStringList(canvas({-1.5, -5, 40, 20})));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), QRectF(-1.5, -5, 40, 20));
}

void TestPlotWheel::zoomBackToTheDataIsFittedAgain()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setMouseWheelZoom(true);
    turnWheel(scene.plot, at(200, 100), towardsUser);
    GestureLog log(scene.plot);
    turnWheel(scene.plot, at(200, 100), awayFromUser);
    // y is looked at before x.
    QCOMPARE(log.take(), QStringList({mode(ZrQtPlot::AutoFit, ZrQtPlot::Axis_Y),
                                      mode(ZrQtPlot::AutoFit, ZrQtPlot::Axis_X), canvas({0, 0, 40, 10})}));
}

void TestPlotWheel::collapsedCanvasOpens_data()
{
    QTest::addColumn<double>("dataWidth");
    QTest::addColumn<QPoint>("delta");
    QTest::addColumn<QRectF>("shown");
    QTest::newRow("out: a tenth of the data, around the edge")
        << 4.0 << towardsUser << QRectF(99.8, 0, 0.4, 4);
    QTest::newRow("out: at least 0.1") << 0.5 << towardsUser << QRectF(99.95, 0, 0.1, 4);
    QTest::newRow("in: stays collapsed") << 4.0 << awayFromUser << QRectF(100, 0, 0, 4);
}

void TestPlotWheel::collapsedCanvasOpens()
{
    QFETCH(double, dataWidth);
    QFETCH(QPoint, delta);
    QFETCH(QRectF, shown);
    GestureScene scene({false, false, false, 3});
    for (ZrQtBaseChannel *channel : scene.plot->findChildren<ZrQtBaseChannel *>()) {
        if (channel->cosyX() == ZrQtPlot::COSY_1)
            static_cast<ProbeChannel *>(channel)->setRect(QRectF(100, -1, dataWidth, 1));
    }
    scene.plot->setMinX(100, ZrQtPlot::COSY_1);
    scene.plot->setMaxX(100, ZrQtPlot::COSY_1);
    scene.plot->setMouseWheelZoom(true);
    scene.plot->setZoomAxes(ZrQtPlot::Axis_X);
    GestureLog log(scene.plot);
    turnWheel(scene.plot, at(300, 100), delta);
    QCOMPARE(log.take().at(1), canvas(shown, ZrQtPlot::COSY_1));
}

void TestPlotWheel::acceptedOnlyWhereItZooms_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<ZrQtPlot::PlotAxes>("axes");
    QTest::addColumn<bool>("zooms");
    const ZrQtPlot::PlotAxes both = ZrQtPlot::Axis_X | ZrQtPlot::Axis_Y;
    QTest::newRow("inside") << at(200, 100) << true << both << true;
    QTest::newRow("top left corner") << at(0, 0) << true << both << true;
    QTest::newRow("bottom right corner") << at(400, 200) << true << both << true;
    QTest::newRow("left of the plot area") << at(-1, 100) << true << both << false;
    QTest::newRow("right of it") << at(401, 100) << true << both << false;
    QTest::newRow("above it") << at(200, -1) << true << both << false;
    QTest::newRow("below it") << at(200, 201) << true << both << false;
    QTest::newRow("zoom is off") << at(200, 100) << false << both << false;
    QTest::newRow("no direction") << at(200, 100) << true << ZrQtPlot::PlotAxes() << false;
}

void TestPlotWheel::acceptedOnlyWhereItZooms()
{
    QFETCH(QPoint, position);
    QFETCH(bool, enabled);
    QFETCH(ZrQtPlot::PlotAxes, axes);
    QFETCH(bool, zooms);
    GestureScene scene;
    scene.plot->setMouseWheelZoom(enabled);
    scene.plot->setZoomAxes(axes);
    WheelCounter window(&scene.shown.window);
    GestureLog log(scene.plot);
    turnWheel(scene.plot, position, awayFromUser);
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0) == GestureScene::start(ZrQtPlot::COSY_0, false), !zooms);
    QCOMPARE(log.take().isEmpty(), !zooms && axes);
    QCOMPARE(window.count, zooms ? 0 : 1);

    // Without a channel there is nothing to zoom.
    delete scene.plot->findChild<ZrQtBaseChannel *>();
    log.take();
    turnWheel(scene.plot, position, awayFromUser);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(window.count, zooms ? 1 : 2);
}

void TestPlotWheel::axisZoomsItsOwnSystem()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);
    const bool keep = variant.keepAspectRatio;

    // The axes span the whole plot: positions count from the plot area. With a fixed aspect ratio the other
    // direction is scaled from its low edge.
    QRectF shown = GestureScene::start(ZrQtPlot::COSY_0, keep);
    turnWheel(scene.xAxis, {200, 10}, awayFromUser);
    shown = scaled(shown, 0.85, keep ? 0.85 : 1.0, 0.25, 0.0);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    turnWheel(scene.xAxis, {500, 10}, towardsUser);
    shown = scaled(shown, 1.15, keep ? 1.15 : 1.0, 1.0, 0.0);
    QCOMPARE(log.take(), QStringList(canvas(shown)));

    turnWheel(scene.yAxis, {10, 100}, awayFromUser);
    shown = scaled(shown, keep ? 0.85 : 1.0, 0.85, 0.0, 0.8);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    turnWheel(scene.yAxis, {10, 260}, towardsUser);
    shown = scaled(shown, keep ? 1.15 : 1.0, 1.15, 0.0, 0.0);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    // Beside the plot area, too.
    turnWheel(scene.xAxis, {60, 10}, awayFromUser);
    shown = scaled(shown, 0.85, keep ? 0.85 : 1.0, -0.1, 0.0);
    QCOMPARE(log.take(), QStringList(canvas(shown)));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0), shown);
}

void TestPlotWheel::systemOfTheAxisCounts()
{
    GestureScene scene({false, false, false, 3});
    scene.xAxis->setCosy(ZrQtPlot::COSY_1);
    scene.yAxis->setCosy(ZrQtPlot::COSY_2);
    // Also one that no channel uses.
    auto *top = new ZrQtAxis(scene.plot);
    top->setPosition(Qt::TopEdge);
    top->setCosy(ZrQtPlot::COSY_9);
    top->show();
    settle(scene.plot);
    QVERIFY(scene.isReady());
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);
    turnWheel(scene.xAxis, {300, 10}, awayFromUser);
    turnWheel(scene.yAxis, {10, 160}, awayFromUser);
    turnWheel(top, {300, 10}, awayFromUser);
    QCOMPARE(log.take(), QStringList({canvas(QRectF(100.3, 0, 3.4, 4), ZrQtPlot::COSY_1),
                                      canvas(QRectF(0, -0.925, 2, 0.85), ZrQtPlot::COSY_2),
                                      canvas(QRectF(0.75, 0, 8.5, 10), ZrQtPlot::COSY_9)}));
}

void TestPlotWheel::axisTurnsItsDirectionManual()
{
    GestureScene scene;
    fitToData(scene.plot);
    scene.plot->setMouseWheelZoom(true);
    GestureLog log(scene.plot);
    turnWheel(scene.xAxis, {300, 10}, awayFromUser);
    QCOMPARE(log.take(),
             QStringList({mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X), canvas(QRectF(3, 0, 34, 10))}));
    turnWheel(scene.yAxis, {10, 160}, awayFromUser);
    QCOMPARE(log.take(),
             QStringList({mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y), canvas(QRectF(3, 0.75, 34, 8.5))}));
}

void TestPlotWheel::axisSwallowsTheWheel()
{
    GestureScene scene;
    WheelCounter window(&scene.shown.window);
    GestureLog log(scene.plot);
    turnWheel(scene.xAxis, {300, 10}, awayFromUser);
    turnWheel(scene.yAxis, {10, 160}, towardsUser);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(window.count, 0);
    scene.plot->setMouseWheelZoom(true);
    turnWheel(scene.xAxis, {300, 10}, awayFromUser);
    QCOMPARE(log.take().size(), 1);
    QCOMPARE(window.count, 0);
}

QTEST_MAIN(TestPlotWheel)
#include "tst_zrqtplot_wheel.moc"
