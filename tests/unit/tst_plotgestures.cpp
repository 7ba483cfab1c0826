#include "internal/plotgestures_p.h"

#include "shared/quiettest.h"

#include <cmath>
#include <limits>
#include <random>

using namespace PlotGestures;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double epsilon = std::numeric_limits<double>::epsilon();

// 200 x 100 pixels.
const QRectF plotArea(40, 30, 200, 100);

/// Exactly: the comparison of QRectF is fuzzy.
bool same(const QRectF &a, const QRectF &b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

bool same(const QPointF &a, const QPointF &b)
{
    return a.x() == b.x() && a.y() == b.y();
}

QPointF valueAt(const QPointF &pixel, const QRectF &canvas)
{
    return pixelToValue(plotArea.size(), canvas, canvas).map(pixel - plotArea.topLeft());
}

/// The size of the numbers that a value on \a canvas is made of, and by which rounding is measured.
QSizeF magnitude(const QRectF &canvas)
{
    return {std::abs(canvas.left()) + std::abs(canvas.width()),
            std::abs(canvas.top()) + std::abs(canvas.height())};
}

} // namespace

Q_DECLARE_METATYPE(PlotGestures::Inversion)
Q_DECLARE_METATYPE(PlotGestures::ZoomFactors)

class TestPlotGestures : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void pixelsMapToValues_data();
    void pixelsMapToValues();
    void xAndYComeFromTheirOwnCanvas();
    void pixelRectanglesMapToNormalizedRectangles();
    void valuesFollowTheAxes_data();
    void valuesFollowTheAxes();
    void panMovesAlongWithTheMouse_data();
    void panMovesAlongWithTheMouse();
    void panKeepsTheValueUnderTheMouse();
    void zoomScales_data();
    void zoomScales();
    void wheelStep_data();
    void wheelStep();
    void wheelKeepsTheValueUnderTheMouse();
    void thousandStepsKeepTheValueUnderTheMouse_data();
    void thousandStepsKeepTheValueUnderTheMouse();
    void bandZoomShowsTheBand_data();
    void bandZoomShowsTheBand();
    void rubberBandIsCut_data();
    void rubberBandIsCut();
    void lineEndsAtTheBorder_data();
    void lineEndsAtTheBorder();
    void lineEndLiesOnTheBorder();
    void plotAreaWithoutSizeIsHarmless();
    void degenerateInputPasses();
};

void TestPlotGestures::pixelsMapToValues_data()
{
    QTest::addColumn<QPointF>("pixel");
    QTest::addColumn<QPointF>("value");
    // The canvas spans x 10 to 50 and y -1 to 4.
    QTest::newRow("top left") << QPointF(40, 30) << QPointF(10, 4);
    QTest::newRow("bottom right") << QPointF(240, 130) << QPointF(50, -1);
    QTest::newRow("centre") << QPointF(140, 80) << QPointF(30, 1.5);
    QTest::newRow("left of the plot area") << QPointF(0, 80) << QPointF(2, 1.5);
    QTest::newRow("below the plot area") << QPointF(140, 150) << QPointF(30, -2);
    QTest::newRow("between pixels") << QPointF(40.5, 30.5) << QPointF(10.1, 3.975);
}

void TestPlotGestures::pixelsMapToValues()
{
    QFETCH(QPointF, pixel);
    QTEST(valueAt(pixel, QRectF(10, -1, 40, 5)), "value");
}

void TestPlotGestures::xAndYComeFromTheirOwnCanvas()
{
    const QRectF canvasX(0, 100, 10, 100);
    const QRectF canvasY(1000, 0, 1000, 1);
    QCOMPARE(pixelToValue(plotArea.size(), canvasX, canvasY).map(QPointF(100, 50)), QPointF(5, 0.5));
    QCOMPARE(valueOnAxes(QPointF(140, 80), plotArea, canvasX, canvasY, {}), QPointF(5, 0.5));
}

void TestPlotGestures::pixelRectanglesMapToNormalizedRectangles()
{
    const QTransform transform = pixelToValue(plotArea.size(), QRectF(0, 0, 20, 10), QRectF(0, 0, 20, 10));
    // The lower edge on the screen is the smaller y.
    QCOMPARE(transform.mapRect(QRectF(20, 10, 100, 40)), QRectF(2, 5, 10, 4));
    const QRectF point = transform.mapRect(QRectF(20, 10, 0, 0));
    QVERIFY(same(point, QRectF(2, 9, 0, 0)));
}

void TestPlotGestures::valuesFollowTheAxes_data()
{
    QTest::addColumn<Inversion>("inversion");
    QTest::addColumn<QPointF>("pixel");
    QTest::addColumn<QPointF>("value");
    // The canvas spans x 0 to 10 and y 0 to 1.
    QTest::newRow("plain, centre") << Inversion{false, false} << QPointF(140, 80) << QPointF(5, 0.5);
    QTest::newRow("plain") << Inversion{false, false} << QPointF(60, 55) << QPointF(1, 0.75);
    QTest::newRow("x inverted") << Inversion{true, false} << QPointF(60, 55) << QPointF(9, 0.75);
    QTest::newRow("y inverted") << Inversion{false, true} << QPointF(60, 55) << QPointF(1, 0.25);
    QTest::newRow("both inverted") << Inversion{true, true} << QPointF(60, 55) << QPointF(9, 0.25);
    QTest::newRow("both inverted, corner") << Inversion{true, true} << QPointF(40, 30) << QPointF(10, 0);
    QTest::newRow("both inverted, other corner")
        << Inversion{true, true} << QPointF(240, 130) << QPointF(0, 1);
}

void TestPlotGestures::valuesFollowTheAxes()
{
    QFETCH(Inversion, inversion);
    QFETCH(QPointF, pixel);
    QTEST(valueOnAxes(pixel, plotArea, QRectF(0, 0, 10, 1), QRectF(0, 0, 10, 1), inversion), "value");
}

void TestPlotGestures::panMovesAlongWithTheMouse_data()
{
    QTest::addColumn<QPointF>("delta");
    QTest::addColumn<Inversion>("inversion");
    QTest::addColumn<QRectF>("moved");
    // 20 units on 200 pixels, 5 units on 100 pixels; the delta is the previous minus the present position.
    QTest::newRow("mouse to the right shows smaller x")
        << QPointF(-50, 0) << Inversion{false, false} << QRectF(-5, 2, 20, 5);
    QTest::newRow("mouse to the left shows larger x")
        << QPointF(50, 0) << Inversion{false, false} << QRectF(5, 2, 20, 5);
    QTest::newRow("mouse downwards shows larger y")
        << QPointF(0, -20) << Inversion{false, false} << QRectF(0, 3, 20, 5);
    QTest::newRow("mouse upwards shows smaller y")
        << QPointF(0, 20) << Inversion{false, false} << QRectF(0, 1, 20, 5);
    QTest::newRow("x inverted") << QPointF(50, 20) << Inversion{true, false} << QRectF(-5, 1, 20, 5);
    QTest::newRow("y inverted") << QPointF(50, 20) << Inversion{false, true} << QRectF(5, 3, 20, 5);
    QTest::newRow("both inverted") << QPointF(50, 20) << Inversion{true, true} << QRectF(-5, 3, 20, 5);
    QTest::newRow("no movement") << QPointF(0, 0) << Inversion{true, true} << QRectF(0, 2, 20, 5);
}

void TestPlotGestures::panMovesAlongWithTheMouse()
{
    QFETCH(QPointF, delta);
    QFETCH(Inversion, inversion);
    QFETCH(QRectF, moved);
    QVERIFY(same(panned(QRectF(0, 2, 20, 5), delta, plotArea.size(), inversion), moved));
}

void TestPlotGestures::panKeepsTheValueUnderTheMouse()
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> position(-1e4, 1e4);
    std::uniform_real_distribution<double> size(1e-3, 1e4);
    std::uniform_real_distribution<double> pixelX(40, 240);
    std::uniform_real_distribution<double> pixelY(30, 130);
    for (int i = 0; i < 4000; ++i) {
        const Inversion inversion{(i & 1) != 0, (i & 2) != 0};
        const QRectF before(position(random), position(random), size(random), size(random));
        const QPointF from(pixelX(random), pixelY(random));
        const QPointF to(pixelX(random), pixelY(random));
        const QRectF after = panned(before, from - to, plotArea.size(), inversion);
        QVERIFY(after.size() == before.size());
        const QPointF held = valueOnAxes(from, plotArea, before, before, inversion);
        const QPointF now = valueOnAxes(to, plotArea, after, after, inversion);
        QVERIFY(std::abs(held.x() - now.x()) <= 8 * epsilon * magnitude(before).width());
        QVERIFY(std::abs(held.y() - now.y()) <= 8 * epsilon * magnitude(before).height());
    }
}

void TestPlotGestures::zoomScales_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<QPointF>("origin");
    QTest::addColumn<ZoomFactors>("factors");
    QTest::addColumn<QSizeF>("data");
    QTest::addColumn<QRectF>("zoomed");

    const QSizeF data(50, 3);
    QTest::newRow("to a half, from the low corner")
        << QRectF(2, 4, 8, 16) << QPointF(0, 0) << ZoomFactors{0.5, 0.5} << data << QRectF(2, 4, 4, 8);
    QTest::newRow("to a half, from a quarter")
        << QRectF(2, 4, 8, 16) << QPointF(0.25, 0.5) << ZoomFactors{0.5, 0.5} << data << QRectF(4, 12, 4, 8);
    QTest::newRow("twice as large") << QRectF(2, 4, 8, 16) << QPointF(-0.5, -0.25) << ZoomFactors{2, 2}
                                    << data << QRectF(-2, 0, 16, 32);
    QTest::newRow("a factor of 1 leaves its direction")
        << QRectF(2, 4, 8, 16) << QPointF(0, 0.5) << ZoomFactors{1, 0.5} << data << QRectF(2, 12, 8, 8);
    QTest::newRow("no width: opens to a tenth of the data, around the edge")
        << QRectF(2, 4, 0, 16) << QPointF(0.3, 0) << ZoomFactors{1.15, 1} << data << QRectF(-0.5, 4, 5, 16);
    QTest::newRow("no height: a tenth of the data")
        << QRectF(2, 4, 8, 0) << QPointF(0, 0.3) << ZoomFactors{1, 1.15} << data
        << QRectF(2, 4 - (3 * 0.1) * 0.5, 8, 3 * 0.1);
    QTest::newRow("no width and narrow data: opens to 0.1")
        << QRectF(2, 4, 0, 16) << QPointF(0, 0) << ZoomFactors{1.15, 1} << QSizeF(0.5, 3)
        << QRectF(1.95, 4, 0.1, 16);
    QTest::newRow("no width and no data: opens to 0.1")
        << QRectF(2, 4, 0, 16) << QPointF(0, 0) << ZoomFactors{1.15, 1} << QSizeF()
        << QRectF(1.95, 4, 0.1, 16);
    QTest::newRow("zooming in leaves a collapsed canvas")
        << QRectF(2, 4, 0, 0) << QPointF(0.1, 0.1) << ZoomFactors{0.85, 0.85} << data << QRectF(2, 4, 0, 0);
    QTest::newRow("negative width is scaled like any other")
        << QRectF(10, 0, -8, 4) << QPointF(0.5, 0) << ZoomFactors{0.5, 1} << data << QRectF(6, 0, -4, 4);
}

void TestPlotGestures::zoomScales()
{
    QFETCH(QRectF, canvas);
    QFETCH(QPointF, origin);
    QFETCH(ZoomFactors, factors);
    QFETCH(QSizeF, data);
    QFETCH(QRectF, zoomed);
    QVERIFY(same(PlotGestures::zoomed(canvas, origin, factors, data), zoomed));
}

void TestPlotGestures::wheelStep_data()
{
    QTest::addColumn<QPointF>("pixel");
    QTest::addColumn<ZoomFactors>("factors");
    QTest::addColumn<QRectF>("zoomed");
    // The canvas spans x 0 to 100 and y 0 to 10.
    QTest::newRow("in, centre") << QPointF(140, 80) << ZoomFactors{0.85, 0.85} << QRectF(7.5, 0.75, 85, 8.5);
    QTest::newRow("out, centre") << QPointF(140, 80) << ZoomFactors{1.15, 1.15}
                                 << QRectF(-7.5, -0.75, 115, 11.5);
    QTest::newRow("in, bottom left") << QPointF(40, 130) << ZoomFactors{0.85, 0.85} << QRectF(0, 0, 85, 8.5);
    QTest::newRow("in, top right") << QPointF(240, 30) << ZoomFactors{0.85, 0.85} << QRectF(15, 1.5, 85, 8.5);
    QTest::newRow("out, top right") << QPointF(240, 30) << ZoomFactors{1.15, 1.15}
                                    << QRectF(-15, -1.5, 115, 11.5);
    QTest::newRow("x alone") << QPointF(140, 80) << ZoomFactors{1.15, 1} << QRectF(-7.5, 0, 115, 10);
    QTest::newRow("y alone") << QPointF(140, 80) << ZoomFactors{1, 1.15} << QRectF(0, -0.75, 100, 11.5);
    QTest::newRow("neither") << QPointF(140, 80) << ZoomFactors{1, 1} << QRectF(0, 0, 100, 10);
}

void TestPlotGestures::wheelStep()
{
    QFETCH(QPointF, pixel);
    QFETCH(ZoomFactors, factors);
    const QPointF origin = fixedPointOrigin(pixel, plotArea, factors);
    QTEST(zoomed(QRectF(0, 0, 100, 10), origin, factors, {}), "zoomed");
}

void TestPlotGestures::wheelKeepsTheValueUnderTheMouse()
{
    std::mt19937 random(17);
    std::uniform_real_distribution<double> exponent(-12, 12);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_real_distribution<double> fraction(0, 1);
    const auto number = [&] { return mantissa(random) * std::pow(10.0, exponent(random)); };
    for (int i = 0; i < 20000; ++i) {
        const QRectF before(number(), number(), std::abs(number()), std::abs(number()));
        if (before.width() == 0.0 || before.height() == 0.0)
            continue;
        // Every tenth at an edge or corner.
        const double fractionX = i % 10 == 0 ? (i / 10) % 2 : fraction(random);
        const double fractionY = i % 10 == 0 ? (i / 20) % 2 : fraction(random);
        const QPointF pixel(plotArea.left() + fractionX * plotArea.width(),
                            plotArea.top() + fractionY * plotArea.height());
        const double factor = i % 2 == 0 ? 0.85 : 1.15;
        const ZoomFactors factors{factor, factor};
        const QRectF after = zoomed(before, fixedPointOrigin(pixel, plotArea, factors), factors, {});
        const QPointF held = valueAt(pixel, before);
        const QPointF now = valueAt(pixel, after);
        QVERIFY(std::abs(held.x() - now.x()) <= 8 * epsilon * magnitude(before).width());
        QVERIFY(std::abs(held.y() - now.y()) <= 8 * epsilon * magnitude(before).height());
        QVERIFY(std::abs(after.width() - factor * before.width()) <= epsilon * before.width());
        QVERIFY(std::abs(after.height() - factor * before.height()) <= epsilon * before.height());
    }
}

void TestPlotGestures::thousandStepsKeepTheValueUnderTheMouse_data()
{
    QTest::addColumn<QPointF>("pixel");
    QTest::addColumn<double>("firstFactor");
    QTest::addColumn<double>("secondFactor");
    const struct
    {
        const char *name;
        QPointF pixel;
    } places[] = {{"in the middle", {140, 80}},
                  {"at an odd place", {77, 101}},
                  {"at the top left corner", {40, 30}},
                  {"at the bottom right corner", {240, 130}}};
    for (const auto &place : places) {
        QTest::addRow("in, %s", place.name) << place.pixel << 0.85 << 0.85;
        QTest::addRow("out, %s", place.name) << place.pixel << 1.15 << 1.15;
        QTest::addRow("in and out by turns, %s", place.name) << place.pixel << 0.85 << 1.15;
    }
}

void TestPlotGestures::thousandStepsKeepTheValueUnderTheMouse()
{
    QFETCH(QPointF, pixel);
    QFETCH(double, firstFactor);
    QFETCH(double, secondFactor);
    const QRectF start(-3.7, 1200.25, 11.3, 1e5);
    QRectF canvas = start;
    // Each step may add the rounding of the numbers that it works on.
    QSizeF allowed(0.0, 0.0);
    for (int i = 0; i < 1000; ++i) {
        const double factor = i % 2 == 0 ? firstFactor : secondFactor;
        const ZoomFactors factors{factor, factor};
        allowed += 8 * epsilon * magnitude(canvas);
        canvas = zoomed(canvas, fixedPointOrigin(pixel, plotArea, factors), factors, {});
        const QPointF drift = valueAt(pixel, canvas) - valueAt(pixel, start);
        QVERIFY(std::abs(drift.x()) <= allowed.width() + 8 * epsilon * magnitude(canvas).width());
        QVERIFY(std::abs(drift.y()) <= allowed.height() + 8 * epsilon * magnitude(canvas).height());
    }
    QVERIFY(canvas.width() > 0.0);
    QVERIFY(canvas.height() > 0.0);
}

void TestPlotGestures::bandZoomShowsTheBand_data()
{
    QTest::addColumn<QRectF>("band");
    QTest::addColumn<QRectF>("canvas");
    // The canvas spans x 0 to 20 and y 0 to 10: a tenth of a unit for each pixel.
    QTest::newRow("left half") << QRectF(40, 30, 100, 100) << QRectF(0, 0, 10, 10);
    QTest::newRow("lower half") << QRectF(40, 80, 200, 50) << QRectF(0, 0, 20, 5);
    QTest::newRow("in the middle") << QRectF(90, 55, 100, 25) << QRectF(5, 5, 10, 2.5);
    QTest::newRow("the smallest") << QRectF(140, 80, 5, 5) << QRectF(10, 4.5, 0.5, 0.5);
}

void TestPlotGestures::bandZoomShowsTheBand()
{
    QFETCH(QRectF, band);
    QFETCH(QRectF, canvas);
    const QRectF before(0, 0, 20, 10);
    const QRectF after = zoomed(before, bandOrigin(band, plotArea), bandFactors(band, plotArea), {});
    QVERIFY(std::abs(after.left() - canvas.left()) < 1e-13);
    QVERIFY(std::abs(after.top() - canvas.top()) < 1e-13);
    QVERIFY(std::abs(after.width() - canvas.width()) < 1e-13);
    QVERIFY(std::abs(after.height() - canvas.height()) < 1e-13);
    // What the band enclosed fills the plot area.
    QCOMPARE(valueAt(plotArea.topLeft(), after), valueAt(band.topLeft(), before));
    QCOMPARE(valueAt(plotArea.bottomRight(), after), valueAt(band.bottomRight(), before));
}

void TestPlotGestures::rubberBandIsCut_data()
{
    QTest::addColumn<QPointF>("start");
    QTest::addColumn<QPointF>("end");
    QTest::addColumn<QRectF>("band");
    QTest::newRow("to the lower right") << QPointF(50, 40) << QPointF(150, 90) << QRectF(50, 40, 100, 50);
    QTest::newRow("to the upper left") << QPointF(150, 90) << QPointF(50, 40) << QRectF(50, 40, 100, 50);
    QTest::newRow("to the upper right") << QPointF(50, 90) << QPointF(150, 40) << QRectF(50, 40, 100, 50);
    QTest::newRow("out at the right") << QPointF(200, 40) << QPointF(999, 90) << QRectF(200, 40, 40, 50);
    QTest::newRow("out at the top left") << QPointF(100, 60) << QPointF(-9, -9) << QRectF(40, 30, 60, 30);
    QTest::newRow("from the left margin") << QPointF(10, 40) << QPointF(90, 90) << QRectF(40, 40, 50, 50);
    // On purpose, a band without width lies a pixel left of the mouse, except at the left border.
    QTest::newRow("no width") << QPointF(100, 40) << QPointF(100, 90) << QRectF(99, 40, 0, 50);
    QTest::newRow("no width, left border") << QPointF(40, 40) << QPointF(40, 90) << QRectF(40, 40, 0, 50);
    QTest::newRow("no height") << QPointF(50, 60) << QPointF(150, 60) << QRectF(50, 59, 100, 0);
    QTest::newRow("no height, top border") << QPointF(50, 30) << QPointF(150, 30) << QRectF(50, 30, 100, 0);
    QTest::newRow("neither") << QPointF(50, 60) << QPointF(50, 60) << QRectF(49, 59, 0, 0);
    QTest::newRow("all in the left margin") << QPointF(5, 40) << QPointF(20, 90) << QRectF();
    QTest::newRow("no width, right border") << QPointF(240, 40) << QPointF(240, 90) << QRectF(239, 40, 0, 50);
}

void TestPlotGestures::rubberBandIsCut()
{
    QFETCH(QPointF, start);
    QFETCH(QPointF, end);
    QFETCH(QRectF, band);
    QVERIFY(same(rubberBand(start, end, plotArea), band));
}

void TestPlotGestures::lineEndsAtTheBorder_data()
{
    QTest::addColumn<QPointF>("start");
    QTest::addColumn<QPoint>("mouse");
    QTest::addColumn<QPoint>("end");
    QTest::newRow("inside") << QPointF(100, 80) << QPoint(200, 100) << QPoint(200, 100);
    QTest::newRow("on the border") << QPointF(100, 80) << QPoint(240, 130) << QPoint(240, 130);
    QTest::newRow("out at the right") << QPointF(140, 80) << QPoint(340, 80) << QPoint(240, 80);
    QTest::newRow("out at the right, falling") << QPointF(140, 80) << QPoint(340, 120) << QPoint(240, 100);
    QTest::newRow("out at the left") << QPointF(140, 80) << QPoint(0, 80) << QPoint(40, 80);
    QTest::newRow("out at the top") << QPointF(140, 80) << QPoint(140, 0) << QPoint(140, 30);
    QTest::newRow("out at the bottom") << QPointF(140, 80) << QPoint(140, 500) << QPoint(140, 130);
    QTest::newRow("rounded to whole pixels") << QPointF(140, 80) << QPoint(440, 81) << QPoint(240, 80);
    QTest::newRow("rounded up") << QPointF(140, 80) << QPoint(290, 81) << QPoint(240, 81);
    QTest::newRow("through a corner") << QPointF(140, 80) << QPoint(340, 180) << QPoint(240, 130);
    QTest::newRow("from the left margin out at the right: the border near the mouse")
        << QPointF(20, 80) << QPoint(260, 80) << QPoint(240, 80);
    QTest::newRow("misses the plot area") << QPointF(20, 10) << QPoint(300, 20) << QPoint(300, 20);
    QTest::newRow("outside without length") << QPointF(20, 10) << QPoint(20, 10) << QPoint(20, 10);
}

void TestPlotGestures::lineEndsAtTheBorder()
{
    QFETCH(QPointF, start);
    QFETCH(QPoint, mouse);
    QTEST(lineEnd(start, mouse, plotArea), "end");
}

void TestPlotGestures::lineEndLiesOnTheBorder()
{
    std::mt19937 random(23);
    std::uniform_int_distribution<int> insideX(41, 239);
    std::uniform_int_distribution<int> insideY(31, 129);
    std::uniform_int_distribution<int> anywhere(-300, 500);
    int outside = 0;
    for (int i = 0; i < 5000; ++i) {
        const QPoint start(insideX(random), insideY(random));
        const QPoint mouse(anywhere(random), anywhere(random));
        const QPoint end = lineEnd(start, mouse, plotArea);
        QVERIFY(plotArea.contains(end));
        if (plotArea.contains(mouse)) {
            QCOMPARE(end, mouse);
            continue;
        }
        ++outside;
        QVERIFY(end.x() == 40 || end.x() == 240 || end.y() == 30 || end.y() == 130);
        // It lies on the way to the mouse, but for the rounding.
        const QLineF way(start, mouse);
        const QPointF foot = way.pointAt(QLineF(start, end).length() / way.length());
        QVERIFY(QLineF(foot, end).length() <= 1.0);
    }
    QVERIFY(outside > 1000);
}

void TestPlotGestures::plotAreaWithoutSizeIsHarmless()
{
    const QRectF canvas(1, 2, 3, 4);
    for (const QSizeF &size : {QSizeF(0, 0), QSizeF(-5, -5), QSizeF(notANumber, notANumber)}) {
        const QRectF area(QPointF(40, 30), size);
        QVERIFY(same(panned(canvas, {5, 5}, size, {}), canvas));
        QVERIFY(same(pixelToValue(size, canvas, canvas).map(QPointF(7, 7)), QPointF(1, 6)));
        QVERIFY(same(valueOnAxes({50, 50}, area, canvas, canvas, {}), QPointF(1, 6)));
        const ZoomFactors factors{0.5, 0.5};
        QVERIFY(same(zoomed(canvas, fixedPointOrigin({50, 50}, area, factors), factors, {}),
                     QRectF(1, 4, 1.5, 2)));
        const ZoomFactors band = bandFactors(QRectF(40, 30, 10, 10), area);
        QVERIFY(band.x == 0.0 && band.y == 0.0);
        QVERIFY(same(rubberBand({50, 50}, {60, 60}, area), QRectF()) || std::isnan(size.width()));
    }
    QCOMPARE(lineEnd({0, 0}, {9, 9}, QRectF()), QPoint(9, 9));
}

void TestPlotGestures::degenerateInputPasses()
{
    const double values[] = {0.0, 1.0, -1.0, 1e300, -1e300, infinity, -infinity, notANumber, 5e-324};
    for (double low : values) {
        for (double size : values) {
            const QRectF canvas(low, low, size, size);
            for (double pixel : {0.0, 40.0, 140.0, 1e9}) {
                // Panning never changes the size, zooming never the sign of it.
                const QRectF moved = panned(canvas, {pixel, -pixel}, plotArea.size(), {true, false});
                QVERIFY(std::isnan(size) || moved.width() == size);
                for (double factor : {0.85, 1.15}) {
                    const ZoomFactors factors{factor, factor};
                    const QRectF scaled
                        = zoomed(canvas, fixedPointOrigin({pixel, pixel}, plotArea, factors), factors, {});
                    if (size > 0.0)
                        QVERIFY(scaled.width() > 0.0 && scaled.height() > 0.0);
                    if (size < 0.0)
                        QVERIFY(scaled.width() < 0.0 && scaled.height() < 0.0);
                    if (size == 0.0)
                        QCOMPARE(scaled.width(), factor > 1.0 ? 0.1 : 0.0);
                }
            }
        }
    }
}

QTEST_APPLESS_MAIN(TestPlotGestures)
#include "tst_plotgestures.moc"
