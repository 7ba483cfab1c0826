#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"

#include <QtCore/QSet>

#include <cmath>

/// Which pixels the grid darkens.
class tst_ZrQtPlotGrid : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void stepGrid_data();
    void stepGrid();
    void directionsAreIndependent();
    void linesSpanThePlotArea();
    void linesStayInsideThePlotArea();
    void mainLinesLieAboveSubLines();
    void style_data();
    void style();
    void tickGrid_data();
    void tickGrid();
    void tickGridOfSeveralAxes();
    void tickNearTheEdge_data();
    void tickNearTheEdge();
    void polarCircles_data();
    void polarCircles();
    void xModeDecidesAboutCircles();
    void polarStepsUseTheFirstSystem();
    void polarStaysInsideThePlotArea();
    void polarWithoutCanvas();
    void painterIsLeftAsItWas();
};

namespace {

const QRgb mainColor = QColor(Qt::darkGray).rgb();
const QRgb subColor = QColor(Qt::lightGray).rgb();
const QMargins margins(21, 15, 17, 13);

using Positions = QVector<int>;

Positions range(int from, int to, int step = 1)
{
    Positions result;
    for (int i = from; i <= to; i += step)
        result.append(i);
    return result;
}

Positions without(const Positions &all, const Positions &some)
{
    Positions result;
    for (const int each : all) {
        if (!some.contains(each))
            result.append(each);
    }
    return result;
}

/// The plot area surrounded by margins of different size.
struct Scene : ShownPlot
{
    explicit Scene(const QSize &area = QSize(100, 100))
        : ShownPlot(QSize(area.width() + margins.left() + margins.right(),
                          area.height() + margins.top() + margins.bottom()))
    {
        plot->setMinMarginLeft(margins.left());
        plot->setMinMarginRight(margins.right());
        plot->setMinMarginTop(margins.top());
        plot->setMinMarginBottom(margins.bottom());
    }
};

/// Positions along a line through the middle of the plot area at which it is crossed by \a color, relative to
/// the plot area; the right and bottom edges of the area are a pixel beyond its last one.
Positions crossings(ZrQtPlot *plot, Qt::Orientation along, QRgb color, int across = -1)
{
    const QImage image = paintedAlone(plot);
    const QRect area = plotArea(plot);
    Positions result;
    if (along == Qt::Horizontal) {
        const int y = across < 0 ? area.center().y() : across;
        for (int x = area.left(); x <= area.right() + 1; ++x) {
            if (image.valid(x, y) && image.pixel(x, y) == color)
                result.append(x - area.left());
        }
    } else {
        const int x = across < 0 ? area.center().x() : across;
        for (int y = area.top(); y <= area.bottom() + 1; ++y) {
            if (image.valid(x, y) && image.pixel(x, y) == color)
                result.append(y - area.top());
        }
    }
    return result;
}

ZrQtAxis *addAxis(ZrQtPlot *plot, Qt::Edge edge, bool forGrid = true, Cosy cosy = ZrQtPlot::COSY_0)
{
    auto *axis = new ZrQtAxis(plot);
    axis->setPosition(edge);
    axis->setUseForGrid(forGrid);
    axis->setCosy(cosy);
    axis->show();
    return axis;
}

/// The pixels of \a ticks that are drawn, relative to the plot area.
Positions pixels(const ZrQtPlot *plot, const QVector<double> &ticks, Qt::Orientation along, bool borders)
{
    const QRect area = plotArea(plot);
    const int begin = along == Qt::Horizontal ? area.left() : area.top();
    const int size = along == Qt::Horizontal ? area.width() : area.height();
    QSet<int> result;
    for (const double tick : ticks) {
        const double position = tick - begin;
        if (borders || (position >= 3 && size - position >= 3))
            result.insert(qRound(position));
    }
    Positions sorted(result.cbegin(), result.cend());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

/// Whether the lists agree up to one pixel: ticks lie between pixels.
bool agree(const Positions &got, const Positions &wanted)
{
    if (got.size() != wanted.size())
        return false;
    for (int i = 0; i < got.size(); ++i) {
        if (qAbs(got[i] - wanted[i]) > 1)
            return false;
    }
    return true;
}

/// Whether a pixel of \a color lies at most one pixel beside \a point.
bool isNear(const QImage &image, const QPointF &point, QRgb color)
{
    const QPoint centre = point.toPoint();
    for (int y = centre.y() - 1; y <= centre.y() + 1; ++y) {
        for (int x = centre.x() - 1; x <= centre.x() + 1; ++x) {
            if (image.rect().contains(x, y) && image.pixel(x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace

void tst_ZrQtPlotGrid::stepGrid_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("size");
    QTest::addColumn<double>("spacing");
    QTest::addColumn<double>("subSpacing");
    QTest::addColumn<bool>("borders");
    QTest::addColumn<Positions>("main");
    QTest::addColumn<Positions>("sub"); // where no main line covers them

    const int pixel = ZrQtPlot::PixelStepGrid;
    const int percent = ZrQtPlot::PercentStepGrid;
    const Positions none;
    QTest::newRow("no grid") << int(ZrQtPlot::NoGrid) << 100 << 10. << 25. << true << none << none;
    QTest::newRow("unknown mode") << 7 << 100 << 10. << 25. << true << none << none;
    QTest::newRow("ticks without axes")
        << int(ZrQtPlot::TickGrid) << 100 << 10. << 25. << true << none << none;

    QTest::newRow("every 10 pixels, nothing at the end")
        << pixel << 100 << 10. << 25. << false << range(10, 90, 10) << Positions{25, 75};
    QTest::newRow("a line within 2 pixels of the end is not made")
        << pixel << 102 << 50. << 500. << true << Positions{50} << none;
    QTest::newRow("a line within 3 pixels of the end is not drawn")
        << pixel << 103 << 50.2 << 500. << false << Positions{50} << none;
    QTest::newRow("a line within 3 pixels of the end is drawn as border line")
        << pixel << 103 << 50.2 << 500. << true << Positions{50, 100} << none;
    QTest::newRow("a line 3 pixels from the end is drawn")
        << pixel << 103 << 50. << 500. << false << Positions{50, 100} << none;
    QTest::newRow("a line within 3 pixels of the start is not drawn")
        << pixel << 100 << 2. << 500. << false << range(4, 96, 2) << none;
    QTest::newRow("a line within 3 pixels of the start is drawn as border line")
        << pixel << 100 << 2. << 500. << true << range(2, 96, 2) << none;
    QTest::newRow("a line 3 pixels from the start is drawn")
        << pixel << 100 << 3. << 500. << false << range(3, 96, 3) << none;
    QTest::newRow("less than a pixel is a pixel")
        << pixel << 100 << 0.25 << 500. << true << range(1, 97) << none;
    QTest::newRow("no step is a pixel") << pixel << 100 << 0. << 500. << false << range(3, 97) << none;
    QTest::newRow("a negative step is a pixel")
        << pixel << 100 << -7. << 500. << false << range(3, 97) << none;
    QTest::newRow("sub lines every pixel, below the main lines")
        << pixel << 100 << 10. << 0.5 << false << range(10, 90, 10)
        << without(range(3, 97), range(10, 90, 10));
    QTest::newRow("sub lines of the whole range")
        << pixel << 100 << 1000. << 30. << false << none << Positions{30, 60, 90};

    QTest::newRow("a quarter") << percent << 100 << 0.25 << 25. << false << Positions{25, 50, 75} << none;
    QTest::newRow("default spacing is the whole, no line")
        << percent << 100 << 10. << 25. << true << none << none;
    QTest::newRow("sub lines in each interval")
        << percent << 200 << 0.25 << 0.5 << false << Positions{50, 100, 150} << Positions{25, 75, 125, 175};
    QTest::newRow("sub lines of the whole without main lines")
        << percent << 100 << 10. << 0.25 << false << none << Positions{25, 50, 75};
    QTest::newRow("no sub lines") << percent << 100 << 0.25 << 0. << false << Positions{25, 50, 75} << none;
    QTest::newRow("negative sub spacing is none")
        << percent << 100 << 0.25 << -1. << false << Positions{25, 50, 75} << none;
    QTest::newRow("sub lines of the last interval stay inside")
        << percent << 200 << 0.375 << 0.25 << false << Positions{75, 150}
        << Positions{19, 38, 56, 94, 113, 131, 169, 188};
    QTest::newRow("no fraction is a pixel") << percent << 100 << 0. << 25. << false << range(3, 97) << none;
}

void tst_ZrQtPlotGrid::stepGrid()
{
    QFETCH(const int, mode);
    QFETCH(const int, size);
    QFETCH(const double, spacing);
    QFETCH(const double, subSpacing);
    QFETCH(const bool, borders);
    QFETCH(const Positions, main);
    QFETCH(const Positions, sub);

    for (const Qt::Orientation along : {Qt::Horizontal, Qt::Vertical}) {
        const bool horizontal = along == Qt::Horizontal;
        Scene scene(horizontal ? QSize(size, 60) : QSize(60, size));
        QCOMPARE(horizontal ? plotArea(scene.plot).width() : plotArea(scene.plot).height(), size);
        if (horizontal)
            scene.plot->setGridModeX(ZrQtPlot::GridMode(mode));
        else
            scene.plot->setGridModeY(ZrQtPlot::GridMode(mode));
        scene.plot->setGridSpacing(horizontal ? QSizeF(spacing, 0.7) : QSizeF(0.7, spacing));
        scene.plot->setGridSubSpacing(horizontal ? QSizeF(subSpacing, 0.7) : QSizeF(0.7, subSpacing));
        scene.plot->setDrawBorderGridLines(borders);
        QCOMPARE(crossings(scene.plot, along, mainColor), main);
        const Positions gotSub = crossings(scene.plot, along, subColor);
        if (std::all_of(sub.cbegin(), sub.cend(), [](int each) { return each % 25 == 0 || each % 10 == 0; }))
            QCOMPARE(gotSub, sub);
        else
            QVERIFY2(agree(gotSub, sub), qPrintable(QString::number(gotSub.size())));
    }
}

void tst_ZrQtPlotGrid::directionsAreIndependent()
{
    Scene scene(QSize(100, 80));
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridModeY(ZrQtPlot::PercentStepGrid);
    scene.plot->setGridSpacing(QSizeF(30, 0.25));
    scene.plot->setGridSubSpacing(QSizeF(500, 0));
    const QRect area = plotArea(scene.plot);
    const Positions x = {30, 60, 90};
    const Positions y = {20, 40, 60};
    QCOMPARE(crossings(scene.plot, Qt::Horizontal, mainColor, area.top() + 30), x);
    QCOMPARE(crossings(scene.plot, Qt::Vertical, mainColor, area.left() + 45), y);
}

void tst_ZrQtPlotGrid::linesSpanThePlotArea()
{
    Scene scene;
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridModeY(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridSpacing(QSizeF(40, 60));
    scene.plot->setGridSubSpacing(QSizeF(500, 500));
    const QImage image = paintedAlone(scene.plot);
    const QRect area = plotArea(scene.plot);
    for (int y = area.top(); y <= area.bottom(); ++y)
        QCOMPARE(image.pixel(area.left() + 40, y), mainColor);
    for (int x = area.left(); x <= area.right(); ++x)
        QCOMPARE(image.pixel(x, area.top() + 60), mainColor);
    const QRgb ground = QColor(Qt::green).rgb();
    QCOMPARE(image.pixel(area.left() + 40, area.top() - 1), ground);
    QCOMPARE(image.pixel(area.left() + 40, area.bottom() + 2), ground);
    QCOMPARE(image.pixel(area.left() - 1, area.top() + 60), ground);
    QCOMPARE(image.pixel(area.right() + 2, area.top() + 60), ground);
}

void tst_ZrQtPlotGrid::linesStayInsideThePlotArea()
{
    // The last interval of each direction reaches 25 pixels beyond the area, and three sub lines fit in it.
    Scene scene(QSize(200, 200));
    scene.plot->setGridModeX(ZrQtPlot::PercentStepGrid);
    scene.plot->setGridModeY(ZrQtPlot::PercentStepGrid);
    scene.plot->setGridSpacing(QSizeF(0.375, 0.375));
    scene.plot->setGridSubSpacing(QSizeF(0.07, 0.07));
    scene.plot->setDrawBorderGridLines(true);
    const QImage image = paintedAlone(scene.plot);
    const QRect area = plotArea(scene.plot).adjusted(0, 0, 1, 1);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!area.contains(x, y))
                QCOMPARE(image.pixel(x, y), QColor(Qt::green).rgb());
        }
    }
}

void tst_ZrQtPlotGrid::mainLinesLieAboveSubLines()
{
    Scene scene;
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridSpacing(QSizeF(50, 50));
    scene.plot->setGridSubSpacing(QSizeF(25, 25));
    QCOMPARE(crossings(scene.plot, Qt::Horizontal, mainColor), Positions{50});
    const Positions sub = {25, 75};
    QCOMPARE(crossings(scene.plot, Qt::Horizontal, subColor), sub);
}

void tst_ZrQtPlotGrid::style_data()
{
    QTest::addColumn<Qt::PenStyle>("style");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");

    QTest::newRow("solid") << Qt::SolidLine << 100 << 101;
    QTest::newRow("dashed") << Qt::DashLine << 40 << 90;
    QTest::newRow("dotted") << Qt::DotLine << 20 << 60;
    QTest::newRow("none") << Qt::NoPen << 0 << 0;
}

void tst_ZrQtPlotGrid::style()
{
    QFETCH(const Qt::PenStyle, style);
    QFETCH(const int, least);
    QFETCH(const int, most);

    Scene scene;
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridSpacing(QSizeF(40, 40));
    scene.plot->setGridSubSpacing(QSizeF(70, 70));
    scene.plot->setGridStyle(style);
    const QRect area = plotArea(scene.plot);
    for (const auto &[offset, color] : {qMakePair(40, mainColor), qMakePair(70, subColor)}) {
        const int count = crossings(scene.plot, Qt::Vertical, color, area.left() + offset).size();
        QVERIFY2(count >= least && count <= most, qPrintable(QString::number(count)));
    }
}

void tst_ZrQtPlotGrid::tickGrid_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("borders");

    const QPair<const char *, Qt::Edge> edges[] = {
        {"left", Qt::LeftEdge}, {"right", Qt::RightEdge}, {"top", Qt::TopEdge}, {"bottom", Qt::BottomEdge}};
    for (const auto &[name, edge] : edges) {
        QTest::addRow("%s, ticks", name) << edge << int(ZrQtPlot::TickGrid) << false;
        QTest::addRow("%s, ticks with borders", name) << edge << int(ZrQtPlot::TickGrid) << true;
        QTest::addRow("%s, ticks and sub-ticks", name) << edge << int(ZrQtPlot::SubTickGrid) << false;
    }
}

void tst_ZrQtPlotGrid::tickGrid()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const int, mode);
    QFETCH(const bool, borders);

    const bool vertical = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    const Qt::Orientation along = vertical ? Qt::Vertical : Qt::Horizontal;
    const Qt::Orientation other = vertical ? Qt::Horizontal : Qt::Vertical;
    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, edge);
    axis->setMinMax(0, 10);
    shown.plot->setDrawBorderGridLines(borders);
    settle(shown.plot);
    const Positions ticks = pixels(shown.plot, axis->tickPositions(), along, borders);
    QVERIFY(ticks.size() > 2);
    const Positions subTicks = without(pixels(shown.plot, axis->subTickPositions(), along, borders), ticks);
    QVERIFY(!subTicks.isEmpty());

    const auto setMode = [&shown](bool y, int to) {
        if (y)
            shown.plot->setGridModeY(ZrQtPlot::GridMode(to));
        else
            shown.plot->setGridModeX(ZrQtPlot::GridMode(to));
    };
    // The mode of the other direction has nothing to do with this axis.
    setMode(!vertical, mode);
    QCOMPARE(crossings(shown.plot, along, mainColor), Positions());
    QCOMPARE(crossings(shown.plot, other, mainColor), Positions());
    setMode(!vertical, ZrQtPlot::NoGrid);

    setMode(vertical, mode);
    const Positions got = crossings(shown.plot, along, mainColor);
    QVERIFY2(agree(got, ticks), qPrintable(QStringLiteral("%1 of %2").arg(got.size()).arg(ticks.size())));
    const Positions gotSub = crossings(shown.plot, along, subColor);
    const Positions wantedSub = mode == ZrQtPlot::SubTickGrid ? subTicks : Positions();
    QVERIFY2(agree(gotSub, wantedSub),
             qPrintable(QStringLiteral("%1 of %2").arg(gotSub.size()).arg(wantedSub.size())));

    axis->setUseForGrid(false);
    QCOMPARE(crossings(shown.plot, along, mainColor), Positions());
    QCOMPARE(crossings(shown.plot, along, subColor), Positions());
}

void tst_ZrQtPlotGrid::tickGridOfSeveralAxes()
{
    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *first = addAxis(shown.plot, Qt::BottomEdge);
    ZrQtAxis *last = addAxis(shown.plot, Qt::TopEdge, true, ZrQtPlot::COSY_1);
    addAxis(shown.plot, Qt::BottomEdge, false, ZrQtPlot::COSY_2)->setMinMax(0, 3);
    first->setMinMax(0, 10);
    last->setMinMax(0.5, 7.7);
    settle(shown.plot);
    shown.plot->setGridModeX(ZrQtPlot::SubTickGrid);

    const QVector<double> all = first->tickPositions() + last->tickPositions();
    const Positions main = pixels(shown.plot, all, Qt::Horizontal, false);
    const Positions gotMain = crossings(shown.plot, Qt::Horizontal, mainColor);
    for (const int each : main) {
        QVERIFY2(gotMain.contains(each) || gotMain.contains(each - 1) || gotMain.contains(each + 1),
                 qPrintable(QString::number(each)));
    }
    QVERIFY(gotMain.size() <= main.size());

    // The sub-ticks of the last axis only.
    const Positions ofLast = pixels(shown.plot, last->subTickPositions(), Qt::Horizontal, false);
    const Positions gotSub = crossings(shown.plot, Qt::Horizontal, subColor);
    QVERIFY(!gotSub.isEmpty());
    for (const int each : gotSub) {
        QVERIFY2(ofLast.contains(each) || ofLast.contains(each - 1) || ofLast.contains(each + 1),
                 qPrintable(QString::number(each)));
    }
    // An axis without sub-ticks in between replaces them too, so that none are left.
    last->setMaxSubTicks(0);
    settle(shown.plot);
    QVERIFY(!first->subTickPositions().isEmpty());
    if (last->subTickPositions().isEmpty())
        QCOMPARE(crossings(shown.plot, Qt::Horizontal, subColor), Positions());
}

void tst_ZrQtPlotGrid::tickNearTheEdge_data()
{
    QTest::addColumn<double>("distance"); // of the tick at 0 from the left end, in pixels
    QTest::addColumn<bool>("borders");
    QTest::addColumn<bool>("drawn");

    QTest::newRow("2 pixels inside") << 2.0 << false << false;
    QTest::newRow("2 pixels inside, border lines") << 2.0 << true << true;
    QTest::newRow("4 pixels inside") << 4.0 << false << true;
}

void tst_ZrQtPlotGrid::tickNearTheEdge()
{
    QFETCH(const double, distance);
    QFETCH(const bool, borders);
    QFETCH(const bool, drawn);

    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, Qt::BottomEdge);
    axis->setShowBoundLabels(false);
    axis->setMinMax(0, 10);
    settle(shown.plot);
    axis->setMinMax(-10 * distance / plotArea(shown.plot).width(), 10);
    settle(shown.plot);
    const QRect area = plotArea(shown.plot);
    bool found = false;
    for (const double tick : axis->tickPositions())
        found = found || std::abs(tick - area.left() - distance) < 0.6;
    QVERIFY(found);

    shown.plot->setGridModeX(ZrQtPlot::TickGrid);
    shown.plot->setDrawBorderGridLines(borders);
    const Positions got = crossings(shown.plot, Qt::Horizontal, mainColor);
    bool there = false;
    for (const int each : got)
        there = there || std::abs(each - distance) <= 1;
    QCOMPARE(there, drawn);
}

void tst_ZrQtPlotGrid::polarCircles_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<int>("mode");

    const QRectF centred(-10, -10, 20, 20);
    const QRectF shifted(-3, -14, 20, 17);
    QTest::newRow("x") << Qt::BottomEdge << centred << int(ZrQtPlot::TickPolarGrid);
    QTest::newRow("x, origin off the centre") << Qt::BottomEdge << shifted << int(ZrQtPlot::TickPolarGrid);
    QTest::newRow("x with sub-ticks") << Qt::BottomEdge << centred << int(ZrQtPlot::SubTickPolarGrid);
    QTest::newRow("y") << Qt::LeftEdge << centred << int(ZrQtPlot::TickPolarGrid);
    QTest::newRow("y, origin off the centre") << Qt::LeftEdge << shifted << int(ZrQtPlot::TickPolarGrid);
    QTest::newRow("y with sub-ticks") << Qt::LeftEdge << centred << int(ZrQtPlot::SubTickPolarGrid);
}

void tst_ZrQtPlotGrid::polarCircles()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const QRectF, canvas);
    QFETCH(const int, mode);

    const bool horizontal = edge == Qt::BottomEdge;
    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, edge, true, ZrQtPlot::COSY_3);
    axis->setSubTickDistance(5); // so that there are some on either axis
    shown.plot->setInitialCanvas(canvas);
    settle(shown.plot);
    shown.plot->setGridModeX(ZrQtPlot::GridMode(mode));
    if (!horizontal)
        shown.plot->setGridModeY(ZrQtPlot::GridMode(mode));

    const QImage image = paintedAlone(shown.plot);
    const QRectF area = plotArea(shown.plot);
    const double perUnitX = area.width() / canvas.width();
    const double perUnitY = area.height() / canvas.height();
    const QPointF origin(area.left() - canvas.left() * perUnitX, area.bottom() + canvas.top() * perUnitY);
    const auto verifyCircles = [&](const QVector<double> &ticks, const QVector<QRgb> &colors) {
        int points = 0;
        for (const double tick : ticks) {
            const double radius = horizontal ? std::abs(tick - origin.x()) / perUnitX
                                             : std::abs(tick - origin.y()) / perUnitY;
            if (radius * perUnitX < 2 || radius * perUnitY < 2)
                continue;
            for (int degrees = 0; degrees < 360; degrees += 15) {
                const double angle = qDegreesToRadians(double(degrees));
                const QPointF point
                    = origin
                      + QPointF(radius * perUnitX * std::cos(angle), radius * perUnitY * std::sin(angle));
                if (!area.adjusted(3, 3, -3, -3).contains(point))
                    continue;
                ++points;
                bool found = false;
                for (const QRgb color : colors)
                    found = found || isNear(image, point, color);
                QVERIFY2(found, qPrintable(QStringLiteral("tick %1 at %2").arg(tick).arg(degrees)));
            }
        }
        QVERIFY2(points > 30, qPrintable(QStringLiteral("%1 of %2 ticks").arg(points).arg(ticks.size())));
    };
    verifyCircles(axis->tickPositions(), {mainColor});
    if (mode == ZrQtPlot::SubTickPolarGrid)
        verifyCircles(axis->subTickPositions(), {subColor, mainColor});

    // Circles, not lines: away from the axes of the circle nothing is dark along the tick.
    const int along = horizontal ? int(area.height()) : int(area.width());
    for (const double tick : axis->tickPositions()) {
        int dark = 0;
        for (int i = 0; i < along; ++i) {
            const QPoint point = horizontal ? QPoint(qRound(tick), int(area.top()) + i)
                                            : QPoint(int(area.left()) + i, qRound(tick));
            if (image.rect().contains(point) && image.pixel(point) == mainColor)
                ++dark;
        }
        QVERIFY(dark < along / 2);
    }
}

void tst_ZrQtPlotGrid::xModeDecidesAboutCircles()
{
    ShownPlot shown(QSize(500, 400));
    addAxis(shown.plot, Qt::BottomEdge, false);
    ZrQtAxis *left = addAxis(shown.plot, Qt::LeftEdge);
    shown.plot->setInitialCanvas(QRectF(-10, -10, 20, 20));
    settle(shown.plot);
    const QRect area = plotArea(shown.plot);
    const int nearSide = area.left() + 20; // where circles through the ticks of y are elsewhere or not at all
    const Positions ticks = pixels(shown.plot, left->tickPositions(), Qt::Vertical, false);

    struct Row
    {
        ZrQtPlot::GridMode x;
        ZrQtPlot::GridMode y;
        bool circles;
    };
    const Row rows[] = {{ZrQtPlot::TickPolarGrid, ZrQtPlot::TickGrid, true},
                        {ZrQtPlot::SubTickPolarGrid, ZrQtPlot::TickGrid, true},
                        {ZrQtPlot::TickGrid, ZrQtPlot::TickPolarGrid, false},
                        {ZrQtPlot::NoGrid, ZrQtPlot::TickPolarGrid, false},
                        {ZrQtPlot::NoGrid, ZrQtPlot::TickGrid, false}};
    for (const Row &row : rows) {
        shown.plot->setGridModeX(row.x);
        shown.plot->setGridModeY(row.y);
        const bool lines = agree(crossings(shown.plot, Qt::Vertical, mainColor, nearSide), ticks);
        QCOMPARE(lines, !row.circles);
        QVERIFY(!crossings(shown.plot, Qt::Vertical, mainColor).isEmpty());
    }
}

void tst_ZrQtPlotGrid::polarStepsUseTheFirstSystem()
{
    Scene scene(QSize(200, 200));
    scene.plot->setInitialCanvas(QRectF(0, 0, 1, 1)); // the origin in a corner, for all the others
    scene.plot->setScaling(ZrQtPlot::Custom, ZrQtPlot::COSY_0);
    scene.plot->setMinX(-10, ZrQtPlot::COSY_0);
    scene.plot->setMaxX(10, ZrQtPlot::COSY_0);
    scene.plot->setMinY(-10, ZrQtPlot::COSY_0);
    scene.plot->setMaxY(10, ZrQtPlot::COSY_0);
    scene.plot->setGridModeX(ZrQtPlot::TickPolarGrid);
    scene.plot->setGridModeY(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridSpacing(QSizeF(10, 160));
    scene.plot->setGridSubSpacing(QSizeF(10, 500));
    // One circle around the middle, 60 pixels in radius.
    const QImage image = paintedAlone(scene.plot);
    const QPointF centre = QRectF(plotArea(scene.plot)).center();
    for (const QPointF &direction : {QPointF(60, 0), QPointF(-60, 0), QPointF(0, 60), QPointF(0, -60),
                                     QPointF(42.4, 42.4), QPointF(-42.4, 42.4)})
        QVERIFY(isNear(image, centre + direction, mainColor));
    QVERIFY(!isNear(image, centre + QPointF(90, 60), mainColor));
}

void tst_ZrQtPlotGrid::polarStaysInsideThePlotArea()
{
    ShownPlot shown(QSize(500, 400));
    addAxis(shown.plot, Qt::BottomEdge);
    addAxis(shown.plot, Qt::LeftEdge);
    shown.plot->setMinMarginTop(50);
    shown.plot->setMinMarginRight(50);
    shown.plot->setInitialCanvas(QRectF(3, 3, 20, 20)); // the origin outside
    settle(shown.plot);
    shown.plot->setGridModeX(ZrQtPlot::SubTickPolarGrid);
    shown.plot->setGridModeY(ZrQtPlot::SubTickPolarGrid);
    const QImage image = paintedAlone(shown.plot);
    const QRect area = plotArea(shown.plot);
    int inside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (pixel != mainColor && pixel != subColor)
                continue;
            ++inside;
            QVERIFY(area.contains(x, y));
        }
    }
    QVERIFY(inside > 100);
}

void tst_ZrQtPlotGrid::polarWithoutCanvas()
{
    ShownPlot shown(QSize(300, 200));
    ZrQtAxis *bottom = addAxis(shown.plot, Qt::BottomEdge, true, ZrQtPlot::COSY_2);
    shown.plot->setInitialCanvas(QRectF(0, 0, 10, 0)); // no height
    bottom->setMinMax(0, 1);
    settle(shown.plot);
    shown.plot->setGridModeX(ZrQtPlot::TickPolarGrid);
    const QImage image = paintedAlone(shown.plot);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QVERIFY(image.pixel(x, y) != mainColor);
    }
}

void tst_ZrQtPlotGrid::painterIsLeftAsItWas()
{
    ShownPlot shown(QSize(300, 200));
    addAxis(shown.plot, Qt::BottomEdge);
    shown.plot->setBorderColor(Qt::red);
    settle(shown.plot);
    for (const auto mode : {ZrQtPlot::SubTickGrid, ZrQtPlot::SubTickPolarGrid, ZrQtPlot::PixelStepGrid}) {
        for (const bool cached : {false, true}) {
            shown.plot->setGridModeX(mode);
            shown.plot->setControlChannelUpdatesViaPlot(cached);
            QImage image(300, 200, QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&image);
            const QPen pen(Qt::blue, 3, Qt::DotLine);
            const QBrush brush(Qt::yellow);
            painter.setPen(pen);
            painter.setBrush(brush);
            painter.setClipRect(QRect(10, 10, 100, 100));
            shown.plot->paint(&painter);
            QCOMPARE(painter.pen(), pen);
            QCOMPARE(painter.brush(), brush);
            QCOMPARE(painter.transform(), QTransform());
            QVERIFY(painter.hasClipping());
            QCOMPARE(painter.clipBoundingRect(), QRectF(10, 10, 100, 100));
            painter.setClipping(false);
            shown.plot->paint(&painter);
            QVERIFY(!painter.hasClipping());
        }
    }
}

QTEST_MAIN(tst_ZrQtPlotGrid)

#include "tst_zrqtplot_grid.moc"
