#include "internal/geometryhit_p.h"

#include "internal/plotgeometry_p.h"
#include "shared/quiettest.h"

#include <QtCore/QElapsedTimer>

#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int noCursor = -1;
constexpr int miss = -1;

using Points = QVector<QPointF>;
using Lines = QVector<QLineF>;
using Rects = QVector<QRectF>;

QRectF around(double x, double y)
{
    return QRectF(x - 1, y - 1, 2, 2);
}

/// The mouse at (x, y) with a square of 2 x 2, everything allowed, no extent of the type.
HitRules at(double x, double y)
{
    HitRules rules;
    rules.selection = around(x, y);
    rules.editable = true;
    rules.movable = true;
    rules.resizable = true;
    rules.extent = QRectF(1000, 1000, 2, 2);
    return rules;
}

/// Part, index and cursor as numbers, so that rows of tables can hold them.
QVector<int> asRow(const std::optional<GeometryHit> &hit)
{
    if (!hit)
        return {miss, miss, miss};
    return {static_cast<int>(hit->part), hit->index, hit->cursor ? static_cast<int>(*hit->cursor) : noCursor};
}

QVector<int> row(DragPart part, int index, int cursor = noCursor)
{
    return {static_cast<int>(part), index, cursor};
}

QVector<int> missRow()
{
    return {miss, miss, miss};
}

} // namespace

Q_DECLARE_METATYPE(DragPart)

class TestGeometryHit : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void holdsIsClosedAndSafe_data();
    void holdsIsClosedAndSafe();
    void points_data();
    void points();
    void segments_data();
    void segments();
    void lines_data();
    void lines();
    void rectangles_data();
    void rectangles();
    void rectanglesWithoutResizing_data();
    void rectanglesWithoutResizing();
    void circles_data();
    void circles();
    void circleOutline_data();
    void circleOutline();
    void circlesWithoutResizing_data();
    void circlesWithoutResizing();
    void handlesOfAllCirclesComeBeforeOutlines();
    void noZoneHasACursorWithoutDirections();
    void allItemsByTheCenterOfTheirExtent_data();
    void allItemsByTheCenterOfTheirExtent();
    void nothingIsHitWithoutItems();
    void nothingIsHitWithoutPermission();
    void stretchedSelectionStillHitsTheRing();
    void stretchedSelectionHitsTheMidpoint();
    void ringOfACircleTurnedInsideOut();
    void oddGeometryIsNotHit();
    void dragsPoints_data();
    void dragsPoints();
    void dragsLines_data();
    void dragsLines();
    void dragsRectangles_data();
    void dragsRectangles();
    void dragsOutline_data();
    void dragsOutline();
    void dragOfAVanishedItemDoesNothing();
    void draggedCoordinatesAreClipped();
    void hoverOverManyItemsIsFast();
};

void TestGeometryHit::holdsIsClosedAndSafe_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("result");
    const QRectF unit(0, 0, 1, 1);
    QTest::newRow("inside") << unit << QPointF(0.5, 0.5) << true;
    QTest::newRow("corner") << unit << QPointF(1, 1) << true;
    QTest::newRow("outside") << unit << QPointF(1.001, 1) << false;
    QTest::newRow("inside out") << QRectF(1, 1, -1, -1) << QPointF(0.5, 0.5) << true;
    QTest::newRow("no width") << QRectF(0, 0, 0, 1) << QPointF(0, 0.5) << false;
    QTest::newRow("null") << QRectF() << QPointF() << false;
    QTest::newRow("NaN point") << unit << QPointF(notANumber, 0.5) << false;
    QTest::newRow("NaN rectangle") << QRectF(0, notANumber, 1, 1) << QPointF(0.5, 0.5) << false;
    QTest::newRow("infinite rectangle") << QRectF(0, 0, infinity, 1) << QPointF(0.5, 0.5) << false;
}

void TestGeometryHit::holdsIsClosedAndSafe()
{
    QFETCH(QRectF, rect);
    QFETCH(QPointF, point);
    QTEST(holds(rect, point), "result");
}

void TestGeometryHit::points_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    QTest::newRow("first") << QPointF(0, 0) << row(DragPart::Item, 0);
    QTest::newRow("border of the selection") << QPointF(-1, 1) << row(DragPart::Item, 0);
    QTest::newRow("second") << QPointF(10.5, 10) << row(DragPart::Item, 1);
    QTest::newRow("first of two that both match") << QPointF(10.9, 10) << row(DragPart::Item, 1);
    QTest::newRow("beside") << QPointF(5, 5) << missRow();
    QTest::newRow("a line between points is no point") << QPointF(0, 5) << missRow();
}

void TestGeometryHit::points()
{
    QFETCH(QPointF, mouse);
    const Points points{{0, 0}, {10, 10}, {11, 10}};
    QTEST(asRow(hitPoints(points, at(mouse.x(), mouse.y()))), "hit");
}

void TestGeometryHit::segments_data()
{
    QTest::addColumn<bool>("resizable");
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    QTest::newRow("first end") << true << QPointF(0.5, 0) << row(DragPart::FirstEnd, 0);
    QTest::newRow("second end") << true << QPointF(19.5, 0) << row(DragPart::SecondEnd, 0);
    QTest::newRow("midpoint") << true << QPointF(10, 0.5) << row(DragPart::Item, 0);
    QTest::newRow("elsewhere on it") << true << QPointF(5, 0.5) << row(DragPart::Item, 0);
    QTest::newRow("second segment") << true << QPointF(0, 35) << row(DragPart::Item, 1);
    QTest::newRow("beyond its end") << true << QPointF(22, 0) << missRow();
    QTest::newRow("beside") << true << QPointF(5, 1.5) << missRow();
    QTest::newRow("end, not resizable") << false << QPointF(0.5, 0) << row(DragPart::Item, 0);
    QTest::newRow("midpoint, not resizable") << false << QPointF(10, 0.5) << row(DragPart::Item, 0);
    QTest::newRow("beside, not resizable") << false << QPointF(5, 1.5) << missRow();
}

void TestGeometryHit::segments()
{
    QFETCH(bool, resizable);
    QFETCH(QPointF, mouse);
    HitRules rules = at(mouse.x(), mouse.y());
    rules.resizable = resizable;
    QTEST(asRow(hitSegments(Lines{{0, 0, 20, 0}, {0, 30, 0, 50}}, rules)), "hit");
}

void TestGeometryHit::lines_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    QTest::newRow("between its points") << QPointF(5, 0.5) << row(DragPart::Item, 0);
    QTest::newRow("far beyond its points") << QPointF(-500, 0.5) << row(DragPart::Item, 0);
    QTest::newRow("second line") << QPointF(3, 70) << row(DragPart::Item, 1);
    QTest::newRow("both: the first") << QPointF(3, 0) << row(DragPart::Item, 0);
    QTest::newRow("beside") << QPointF(6, 2) << missRow();
}

void TestGeometryHit::lines()
{
    QFETCH(QPointF, mouse);
    for (const bool resizable : {false, true}) {
        HitRules rules = at(mouse.x(), mouse.y());
        rules.resizable = resizable;
        QTEST(asRow(hitLines(Lines{{0, 0, 10, 0}, {3, 5, 3, 6}}, rules)), "hit");
    }
}

void TestGeometryHit::rectangles_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    // Rectangle 0 spans (0, 0) to (20, 10), rectangle 1 (15, 0) to (35, 10): they overlap.
    QTest::newRow("left top") << QPointF(0.9, -0.9) << row(DragPart::LeftTop, 0, Qt::SizeBDiagCursor);
    QTest::newRow("right top") << QPointF(20, 0) << row(DragPart::RightTop, 0, Qt::SizeFDiagCursor);
    QTest::newRow("left bottom") << QPointF(0, 10) << row(DragPart::LeftBottom, 0, Qt::SizeFDiagCursor);
    QTest::newRow("right bottom") << QPointF(20, 10) << row(DragPart::RightBottom, 0, Qt::SizeBDiagCursor);
    QTest::newRow("top") << QPointF(4, -0.9) << row(DragPart::Top, 0, Qt::SizeVerCursor);
    QTest::newRow("top, inner side") << QPointF(4, 0.9) << row(DragPart::Top, 0, Qt::SizeVerCursor);
    QTest::newRow("beyond the top band") << QPointF(4, -1.1) << missRow();
    QTest::newRow("bottom") << QPointF(4, 10.9) << row(DragPart::Bottom, 0, Qt::SizeVerCursor);
    QTest::newRow("left") << QPointF(-0.9, 4) << row(DragPart::Left, 0, Qt::SizeHorCursor);
    QTest::newRow("right") << QPointF(20.9, 4) << row(DragPart::Right, 0, Qt::SizeHorCursor);
    QTest::newRow("beyond the right band, but in the other one") << QPointF(21.1, 4) << missRow();
    QTest::newRow("centre") << QPointF(10.5, 5.5) << row(DragPart::Item, 0, Qt::SizeAllCursor);
    QTest::newRow("inside, no zone") << QPointF(4, 4) << missRow();
    QTest::newRow("second: centre") << QPointF(25, 5) << row(DragPart::Item, 1, Qt::SizeAllCursor);
    QTest::newRow("zone of the first, before a corner of the second")
        << QPointF(15, 0) << row(DragPart::Top, 0, Qt::SizeVerCursor);
    QTest::newRow("second: right top") << QPointF(35, 0) << row(DragPart::RightTop, 1, Qt::SizeFDiagCursor);
}

void TestGeometryHit::rectangles()
{
    QFETCH(QPointF, mouse);
    QTEST(asRow(hitRectangles(Rects{{0, 0, 20, 10}, {15, 0, 20, 10}}, at(mouse.x(), mouse.y()))), "hit");
}

void TestGeometryHit::rectanglesWithoutResizing_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    QTest::newRow("corner") << QPointF(0, 0) << missRow();
    QTest::newRow("edge") << QPointF(4, 0) << missRow();
    QTest::newRow("centre") << QPointF(10, 5) << row(DragPart::Item, 0, Qt::SizeAllCursor);
}

void TestGeometryHit::rectanglesWithoutResizing()
{
    QFETCH(QPointF, mouse);
    HitRules rules = at(mouse.x(), mouse.y());
    rules.resizable = false;
    QTEST(asRow(hitRectangles(Rects{{0, 0, 20, 10}}, rules)), "hit");
}

void TestGeometryHit::circles_data()
{
    QTest::addColumn<bool>("keepsCenter");
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    const double diagonal = 10 * std::sqrt(0.5);
    // A circle of radius 10 around the origin.
    QTest::newRow("centre") << false << QPointF(0.5, 0.5) << row(DragPart::Item, 0, Qt::SizeAllCursor);
    QTest::newRow("right") << false << QPointF(10, 0.5) << row(DragPart::Right, 0, Qt::SizeHorCursor);
    QTest::newRow("left") << false << QPointF(-10, 0) << row(DragPart::Left, 0, Qt::SizeHorCursor);
    QTest::newRow("top") << false << QPointF(0, -10) << row(DragPart::Top, 0, Qt::SizeVerCursor);
    QTest::newRow("bottom") << false << QPointF(0, 10) << row(DragPart::Bottom, 0, Qt::SizeVerCursor);
    QTest::newRow("diagonal") << false << QPointF(diagonal, -diagonal)
                              << row(DragPart::RightTop, 0, Qt::SizeFDiagCursor);
    QTest::newRow("diagonal with kept centre is outline")
        << true << QPointF(diagonal, -diagonal) << row(DragPart::Outline, 0, Qt::SizeFDiagCursor);
    QTest::newRow("centre with kept centre")
        << true << QPointF(0, 0) << row(DragPart::Item, 0, Qt::SizeAllCursor);
    QTest::newRow("right with kept centre")
        << true << QPointF(10, 0) << row(DragPart::Right, 0, Qt::SizeHorCursor);
    QTest::newRow("inside") << false << QPointF(4, 4) << missRow();
    QTest::newRow("outside") << false << QPointF(9, 9) << missRow();
}

void TestGeometryHit::circles()
{
    QFETCH(bool, keepsCenter);
    QFETCH(QPointF, mouse);
    HitRules rules = at(mouse.x(), mouse.y());
    rules.keepsCenter = keepsCenter;
    QTEST(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, rules)), "hit");
}

void TestGeometryHit::circleOutline_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    const double diagonal = 10 * std::sqrt(0.5);
    const auto outline = [](int cursor) { return row(DragPart::Outline, 0, cursor); };
    QTest::newRow("right above (larger y)") << QPointF(diagonal, diagonal) << outline(Qt::SizeBDiagCursor);
    QTest::newRow("left below") << QPointF(-diagonal, -diagonal) << outline(Qt::SizeBDiagCursor);
    QTest::newRow("left above") << QPointF(-diagonal, diagonal) << outline(Qt::SizeFDiagCursor);
    QTest::newRow("outer side") << QPointF(-diagonal - 0.6, diagonal + 0.6) << outline(Qt::SizeFDiagCursor);
    QTest::newRow("inner side") << QPointF(-diagonal + 0.6, diagonal - 0.6) << outline(Qt::SizeFDiagCursor);
    QTest::newRow("too far out") << QPointF(-diagonal - 0.8, diagonal + 0.8) << missRow();
    QTest::newRow("too far in") << QPointF(-diagonal + 0.8, diagonal - 0.8) << missRow();
}

void TestGeometryHit::circleOutline()
{
    QFETCH(QPointF, mouse);
    QTEST(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, at(mouse.x(), mouse.y()))), "hit");
    // Half widths alone count, also of an ellipse: its ring is round.
    if (std::abs(mouse.y()) > 4)
        QTEST(asRow(hitCircles(Rects{{-10, -1, 20, 2}}, at(mouse.x(), mouse.y()))), "hit");
}

void TestGeometryHit::circlesWithoutResizing_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QVector<int>>("hit");
    const double diagonal = 10 * std::sqrt(0.5);
    QTest::newRow("centre") << QPointF(0.5, 0.5) << row(DragPart::Item, 0);
    QTest::newRow("ring") << QPointF(diagonal, diagonal) << row(DragPart::Item, 0);
    QTest::newRow("handles are but ring") << QPointF(10, 0) << row(DragPart::Item, 0);
    QTest::newRow("inside") << QPointF(4, 4) << missRow();
}

void TestGeometryHit::circlesWithoutResizing()
{
    QFETCH(QPointF, mouse);
    HitRules rules = at(mouse.x(), mouse.y());
    rules.resizable = false;
    QTEST(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, rules)), "hit");
}

void TestGeometryHit::handlesOfAllCirclesComeBeforeOutlines()
{
    // The second circle's centre lies on the ring of the first.
    const Rects circles{{-10, -10, 20, 20}, {4, -10, 4, 4}};
    const QPointF center = circles.at(1).center();
    QCOMPARE(asRow(hitCircles(circles, at(center.x(), center.y()))),
             row(DragPart::Item, 1, Qt::SizeAllCursor));
}

void TestGeometryHit::noZoneHasACursorWithoutDirections()
{
    HitRules rules = at(0, 0);
    rules.directions = Qt::Orientations();
    QCOMPARE(asRow(hitRectangles(Rects{{0, 0, 20, 10}}, rules)), row(DragPart::LeftTop, 0));
    QCOMPARE(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, rules)), row(DragPart::Item, 0));
    const double diagonal = 10 * std::sqrt(0.5);
    rules.selection = around(-diagonal, diagonal);
    QCOMPARE(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, rules)), row(DragPart::Outline, 0));
    // One direction is enough for the cursors, whichever it is.
    rules.directions = Qt::Vertical;
    rules.selection = around(20, 5);
    QCOMPARE(asRow(hitRectangles(Rects{{0, 0, 20, 10}}, rules)), row(DragPart::Right, 0, Qt::SizeHorCursor));
}

void TestGeometryHit::allItemsByTheCenterOfTheirExtent_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("movable");
    QTest::addColumn<bool>("itemFirst");
    QTest::addColumn<int>("type");
    const char *const names[] = {"points", "segments", "lines", "rectangles", "circles"};
    for (int type = 0; type < 5; ++type) {
        const bool itemFirst = type == 0 || type == 2;
        QTest::newRow(names[type]) << true << true << itemFirst << type;
        QTest::addRow("%s, not editable", names[type]) << false << true << false << type;
        QTest::addRow("%s, not movable", names[type]) << true << false << true << type;
    }
}

void TestGeometryHit::allItemsByTheCenterOfTheirExtent()
{
    QFETCH(bool, editable);
    QFETCH(bool, movable);
    QFETCH(bool, itemFirst);
    QFETCH(int, type);
    // The mouse is at an item and at the centre of the extent.
    HitRules rules = at(5, 5);
    rules.extent = QRectF(0, 0, 10, 10);
    rules.editable = editable;
    rules.movable = movable;
    std::optional<GeometryHit> hit;
    switch (type) {
    case 0:
        hit = hitPoints(Points{{5, 5}}, rules);
        break;
    case 1:
        hit = hitSegments(Lines{{0, 0, 10, 10}}, rules);
        break;
    case 2:
        hit = hitLines(Lines{{0, 0, 10, 10}}, rules);
        break;
    case 3:
        hit = hitRectangles(Rects{{0, 0, 10, 10}}, rules);
        break;
    default:
        hit = hitCircles(Rects{{0, 0, 10, 10}}, rules);
        break;
    }
    QVERIFY(hit.has_value());
    QCOMPARE(hit->part == DragPart::Item, itemFirst);
    QCOMPARE(hit->part == DragPart::AllItems, !itemFirst);
    if (!itemFirst)
        QVERIFY(!hit->cursor);
}

void TestGeometryHit::nothingIsHitWithoutItems()
{
    HitRules rules = at(0, 0);
    for (const QRectF &stale : {QRectF(), QRectF(-5, -5, 10, 10)}) {
        rules.extent = stale;
        QVERIFY(!hitPoints({}, rules));
        QVERIFY(!hitSegments({}, rules));
        QVERIFY(!hitLines({}, rules));
        QVERIFY(!hitRectangles({}, rules));
        QVERIFY(!hitCircles({}, rules));
    }
}

void TestGeometryHit::nothingIsHitWithoutPermission()
{
    HitRules rules = at(5, 5);
    rules.extent = QRectF(0, 0, 10, 10);
    rules.editable = false;
    rules.movable = false;
    QVERIFY(!hitPoints(Points{{5, 5}}, rules));
    QVERIFY(!hitSegments(Lines{{0, 0, 10, 10}}, rules));
    QVERIFY(!hitLines(Lines{{0, 0, 10, 10}}, rules));
    QVERIFY(!hitRectangles(Rects{{0, 0, 10, 10}}, rules));
    QVERIFY(!hitCircles(Rects{{0, 0, 10, 10}}, rules));
}

void TestGeometryHit::stretchedSelectionStillHitsTheRing()
{
    // Half the width of the selection is the tolerance in every direction, however flat it is.
    HitRules rules = at(0, 0);
    rules.selection = QRectF(-4, 13.9, 8, 0.2);
    QCOMPARE(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, rules)), missRow());
    rules.selection = QRectF(-4, 13.7, 8, 0.2);
    QCOMPARE(asRow(hitCircles(Rects{{-10, -10, 20, 20}}, rules)), row(DragPart::Outline, 0));
    QCOMPARE(asRow(hitCircles(Rects{{-10, -0.1, 20, 0.2}}, rules)), row(DragPart::Outline, 0));
}

void TestGeometryHit::stretchedSelectionHitsTheMidpoint()
{
    // The nearest point of a segment that rises by 45 degrees is far above and below so flat a selection.
    HitRules rules = at(0, 0);
    rules.selection = QRectF(6, 9.9, 10, 0.2);
    for (const bool resizable : {false, true}) {
        rules.resizable = resizable;
        QCOMPARE(asRow(hitSegments(Lines{{0, 0, 20, 20}}, rules)), row(DragPart::Item, 0));
        QCOMPARE(asRow(hitSegments(Lines{{0, 0, 19, 19}}, rules)), missRow());
    }
}

void TestGeometryHit::ringOfACircleTurnedInsideOut()
{
    const double diagonal = 10 * std::sqrt(0.5);
    const HitRules rules = at(diagonal, diagonal);
    QCOMPARE(asRow(hitCircles(Rects{{10, -10, -20, 20}}, rules)),
             row(DragPart::Outline, 0, Qt::SizeBDiagCursor));
}

void TestGeometryHit::oddGeometryIsNotHit()
{
    HitRules rules = at(0, 0);
    QVERIFY(!hitPoints(Points{{notANumber, 0}, {1e300, 0}}, rules));
    QVERIFY(!hitSegments(Lines{{notANumber, 0, 1, 1}, {1e300, 1e300, 1e300, 1e300}}, rules));
    QVERIFY(!hitLines(Lines{{0, 0, 0, 0}, {notANumber, 0, 0, 0}}, rules));
    QVERIFY(!hitRectangles(Rects{{notANumber, 0, 1, 1}, {1e300, 0, 0, 0}}, rules));
    QVERIFY(!hitCircles(Rects{{notANumber, 0, 1, 1}, {1e300, 1e300, 0, 0}}, rules));
    // A mouse that is nowhere hits nothing.
    for (const QRectF &nowhere : {QRectF(), QRectF(notANumber, notANumber, notANumber, notANumber)}) {
        rules.selection = nowhere;
        rules.extent = QRectF(-1, -1, 2, 2);
        QVERIFY(!hitPoints(Points{{0, 0}}, rules));
        QVERIFY(!hitSegments(Lines{{0, 0, 1, 1}}, rules));
        QVERIFY(!hitLines(Lines{{0, 0, 1, 1}}, rules));
        QVERIFY(!hitRectangles(Rects{{0, 0, 1, 1}}, rules));
        QVERIFY(!hitCircles(Rects{{-1, -1, 2, 2}}, rules));
    }
}

void TestGeometryHit::dragsPoints_data()
{
    QTest::addColumn<DragPart>("part");
    QTest::addColumn<Points>("result");
    QTest::newRow("one") << DragPart::Item << Points{{0, 0}, {12, 13}};
    QTest::newRow("all") << DragPart::AllItems << Points{{2, 3}, {12, 13}};
}

void TestGeometryHit::dragsPoints()
{
    QFETCH(DragPart, part);
    Points points{{0, 0}, {10, 10}};
    drag(points, {part, 1, std::nullopt}, {QPointF(2, 3), QPointF(), false, Qt::Horizontal | Qt::Vertical});
    QTEST(points, "result");
}

void TestGeometryHit::dragsLines_data()
{
    QTest::addColumn<DragPart>("part");
    QTest::addColumn<Lines>("result");
    const QLineF untouched(0, 0, 10, 10);
    QTest::newRow("one") << DragPart::Item << Lines{untouched, {3, 5, 7, 9}};
    QTest::newRow("all") << DragPart::AllItems << Lines{{2, 3, 12, 13}, {3, 5, 7, 9}};
    QTest::newRow("first end") << DragPart::FirstEnd << Lines{untouched, {3, 5, 5, 6}};
    QTest::newRow("second end") << DragPart::SecondEnd << Lines{untouched, {1, 2, 7, 9}};
}

void TestGeometryHit::dragsLines()
{
    QFETCH(DragPart, part);
    Lines lines{{0, 0, 10, 10}, {1, 2, 5, 6}};
    drag(lines, {part, 1, std::nullopt}, {QPointF(2, 3), QPointF(), false, Qt::Horizontal | Qt::Vertical});
    QTEST(lines, "result");
}

void TestGeometryHit::dragsRectangles_data()
{
    QTest::addColumn<DragPart>("part");
    QTest::addColumn<QRectF>("plain");
    QTest::addColumn<QRectF>("keepsCenter");
    // From (10, 20) to (30, 60), dragged by (2, 3); given as left, top, width, height.
    QTest::newRow("item") << DragPart::Item << QRectF(12, 23, 20, 40) << QRectF(12, 23, 20, 40);
    QTest::newRow("all") << DragPart::AllItems << QRectF(12, 23, 20, 40) << QRectF(12, 23, 20, 40);
    QTest::newRow("left") << DragPart::Left << QRectF(12, 20, 18, 40) << QRectF(12, 20, 16, 40);
    QTest::newRow("right") << DragPart::Right << QRectF(10, 20, 22, 40) << QRectF(8, 20, 24, 40);
    QTest::newRow("top") << DragPart::Top << QRectF(10, 23, 20, 37) << QRectF(10, 23, 20, 34);
    QTest::newRow("bottom") << DragPart::Bottom << QRectF(10, 20, 20, 43) << QRectF(10, 17, 20, 46);
    QTest::newRow("left top") << DragPart::LeftTop << QRectF(12, 23, 18, 37) << QRectF(12, 23, 16, 34);
    QTest::newRow("right top") << DragPart::RightTop << QRectF(10, 23, 22, 37) << QRectF(8, 23, 24, 34);
    QTest::newRow("left bottom") << DragPart::LeftBottom << QRectF(12, 20, 18, 43) << QRectF(12, 17, 16, 46);
    QTest::newRow("right bottom") << DragPart::RightBottom << QRectF(10, 20, 22, 43) << QRectF(8, 17, 24, 46);
}

void TestGeometryHit::dragsRectangles()
{
    QFETCH(DragPart, part);
    const QRectF rect(10, 20, 20, 40);
    for (const bool keepsCenter : {false, true}) {
        Rects rects{rect, rect};
        const DragStep step{QPointF(2, 3), QPointF(), keepsCenter, Qt::Horizontal | Qt::Vertical};
        drag(rects, {part, 1, std::nullopt}, step);
        if (keepsCenter)
            QTEST(rects.at(1), "keepsCenter");
        else
            QTEST(rects.at(1), "plain");
        QCOMPARE(rects.at(0), part == DragPart::AllItems ? rects.at(1) : rect);
        if (keepsCenter && part != DragPart::Item && part != DragPart::AllItems)
            QCOMPARE(rects.at(1).center(), rect.center());
    }
}

void TestGeometryHit::dragsOutline_data()
{
    QTest::addColumn<int>("directions");
    QTest::addColumn<QPointF>("side");
    QTest::addColumn<QRectF>("result");
    const int both = Qt::Horizontal | Qt::Vertical;
    // The mouse goes to twice the distance from the centre; (4, 3) is the way of the last step.
    QTest::newRow("both") << both << QPointF(1, 1) << QRectF(-20, -10, 40, 20);
    QTest::newRow("right") << int(Qt::Horizontal) << QPointF(1, 1) << QRectF(-14, -5, 28, 10);
    QTest::newRow("left") << int(Qt::Horizontal) << QPointF(-1, 1) << QRectF(-6, -5, 12, 10);
    QTest::newRow("bottom") << int(Qt::Vertical) << QPointF(1, 1) << QRectF(-10, -8, 20, 16);
    QTest::newRow("top") << int(Qt::Vertical) << QPointF(1, -1) << QRectF(-10, -2, 20, 4);
    QTest::newRow("none") << 0 << QPointF(1, 1) << QRectF(-10, -5, 20, 10);
}

void TestGeometryHit::dragsOutline()
{
    QFETCH(int, directions);
    QFETCH(QPointF, side);
    Rects circles{{-10, -5, 20, 10}};
    const QPointF position(20 * std::sqrt(0.5) * side.x(), 10 * std::sqrt(0.5) * side.y());
    drag(circles, {DragPart::Outline, 0, std::nullopt},
         {QPointF(4, 3), position, false, Qt::Orientations(directions)});
    QTEST(circles.at(0), "result");
}

void TestGeometryHit::dragOfAVanishedItemDoesNothing()
{
    const DragStep step{QPointF(2, 3), QPointF(4, 5), false, Qt::Horizontal | Qt::Vertical};
    for (const int index : {-1, 1, 1000}) {
        const GeometryHit hit{DragPart::Item, index, std::nullopt};
        Points points{{1, 1}};
        drag(points, hit, step);
        QCOMPARE(points, (Points{{1, 1}}));
        Lines none;
        drag(none, hit, step);
        QVERIFY(none.isEmpty());
        Rects rects{{1, 1, 1, 1}};
        drag(rects, hit, step);
        QCOMPARE(rects, (Rects{{1, 1, 1, 1}}));
    }
}

void TestGeometryHit::draggedCoordinatesAreClipped()
{
    const GeometryHit all;
    DragStep step;
    step.offset = QPointF(1e300, -1e300);
    Points points{{1e300, -1e300}};
    drag(points, all, step);
    QCOMPARE(points, (Points{{1e300, -1e300}}));
    Lines lines{{1e300, -1e300, 0, 0}};
    drag(lines, all, step);
    QCOMPARE(lines, (Lines{{1e300, -1e300, 1e300, -1e300}}));
    Rects rects{{1e300, 0, 0, 1}};
    drag(rects, all, step);
    QCOMPARE(rects.at(0).left(), 1e300);
}

void TestGeometryHit::hoverOverManyItemsIsFast()
{
    Points points;
    Lines lines;
    Rects rects;
    for (int i = 0; i < 100000; ++i) {
        points.append(QPointF(i, i));
        lines.append(QLineF(i, i, i + 1, i));
        rects.append(QRectF(i, i, 1, 1));
    }
    // All of them are tried, none is hit. The bound is generous for debug builds and sanitizers.
    const HitRules rules = at(-50, -100);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!hitPoints(points, rules));
    QVERIFY(!hitSegments(lines, rules));
    QVERIFY(!hitRectangles(rects, rules));
    QVERIFY(!hitCircles(rects, rules));
    QVERIFY(timer.elapsed() < 2000);
}

QTEST_APPLESS_MAIN(TestGeometryHit)
#include "tst_geometryhit.moc"
