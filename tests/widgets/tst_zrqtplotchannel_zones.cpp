#include "shared/channelmouse.h"
#include "shared/quiettest.h"

#include <cmath>
#include <functional>

namespace {

/// What a drag by (dx, dy) of a zone does to the content; `keep` is keepCenterAtResize.
using Effect = std::function<void(Content &, double dx, double dy, bool keep)>;

enum ZoneNeed {
    NeedsItem = 0,          ///< the editable flag of the type
    NeedsAllItems = 1,      ///< the movable flag of the type
    NeedsResizing = 2,      ///< resizableFeatures
    NeedsMovingCenter = 4,  ///< keepCenterAtResize off
    CursorOfDirections = 8, ///< no cursor of its own
    DragsOutlineWhenResizable = 16
};

struct ZoneRow
{
    const char *name;
    ZrQtPlotChannel::ContentType type;
    QPointF place;
    int needs;
    int cursor;
    Effect effect;
};

Effect moveRectEdges(bool circle, int x, int y)
{
    return [circle, x, y](Content &c, double dx, double dy, bool keep) {
        QRectF &rect = (circle ? c.circles : c.rectangles)[0];
        double left = rect.left();
        double right = rect.right();
        double top = rect.top();
        double bottom = rect.bottom();
        const auto shift = [keep](double &edge, double &opposite, double by) {
            edge += by;
            if (keep)
                opposite -= by;
        };
        if (x < 0)
            shift(left, right, dx);
        if (x > 0)
            shift(right, left, dx);
        if (y < 0)
            shift(top, bottom, dy);
        if (y > 0)
            shift(bottom, top, dy);
        rect = QRectF(QPointF(left, top), QPointF(right, bottom));
    };
}

QVector<ZoneRow> zoneRows()
{
    using Channel = ZrQtPlotChannel;
    const double diagonal = 10 * std::sqrt(0.5);
    const QPointF ring(20 + 10 * std::cos(0.5), 20 + 10 * std::sin(0.5));
    const Effect moveAllPoints = [](Content &c, double dx, double dy, bool) {
        for (QPointF &p : c.points)
            p += QPointF(dx, dy);
    };
    const Effect moveAllLines = [](Content &c, double dx, double dy, bool) {
        for (QLineF &l : c.lines)
            l.translate(dx, dy);
    };
    const Effect moveAllSegments = [](Content &c, double dx, double dy, bool) {
        for (QLineF &l : c.segments)
            l.translate(dx, dy);
    };
    const Effect moveAllRects = [](Content &c, double dx, double dy, bool) {
        for (QRectF &r : c.rectangles)
            r.translate(dx, dy);
    };
    const Effect moveAllCircles = [](Content &c, double dx, double dy, bool) {
        for (QRectF &r : c.circles)
            r.translate(dx, dy);
    };
    const Effect moveSegment
        = [](Content &c, double dx, double dy, bool) { c.segments[0].translate(dx, dy); };
    const Effect moveCircle = [](Content &c, double dx, double dy, bool) { c.circles[0].translate(dx, dy); };
    const int item = NeedsItem | CursorOfDirections;
    const int all = NeedsAllItems | CursorOfDirections;
    const int resize = NeedsItem | NeedsResizing;
    return {
        {"points: one",
         Channel::Points,
         {30, 40},
         item,
         0,
         [](Content &c, double dx, double dy, bool) { c.points[1] += QPointF(dx, dy); }},
        {"points: all", Channel::Points, {35, 45}, all, 0, moveAllPoints},
        {"segments: all", Channel::LineSegments, {45, 45}, all, 0, moveAllSegments},
        {"segments: first end",
         Channel::LineSegments,
         {10, 10},
         resize | CursorOfDirections,
         0,
         [](Content &c, double dx, double dy, bool) {
             c.segments[0].setP1(c.segments[0].p1() + QPointF(dx, dy));
         }},
        {"segments: second end",
         Channel::LineSegments,
         {30, 40},
         resize | CursorOfDirections,
         0,
         [](Content &c, double dx, double dy, bool) {
             c.segments[0].setP2(c.segments[0].p2() + QPointF(dx, dy));
         }},
        {"segments: middle", Channel::LineSegments, {20, 25}, item, 0, moveSegment},
        {"segments: elsewhere", Channel::LineSegments, {15, 17.5}, item, 0, moveSegment},
        {"lines: one",
         Channel::Lines,
         {40, 20.5},
         item,
         0,
         [](Content &c, double dx, double dy, bool) { c.lines[0].translate(dx, dy); }},
        {"lines: all", Channel::Lines, {50, 50}, all, 0, moveAllLines},
        {"rectangles: all", Channel::Rectangles, {45, 45}, all, 0, moveAllRects},
        {"rectangles: left top",
         Channel::Rectangles,
         {10, 10},
         resize,
         Qt::SizeBDiagCursor,
         moveRectEdges(false, -1, -1)},
        {"rectangles: right top",
         Channel::Rectangles,
         {30, 10},
         resize,
         Qt::SizeFDiagCursor,
         moveRectEdges(false, 1, -1)},
        {"rectangles: left bottom",
         Channel::Rectangles,
         {10, 40},
         resize,
         Qt::SizeFDiagCursor,
         moveRectEdges(false, -1, 1)},
        {"rectangles: right bottom",
         Channel::Rectangles,
         {30, 40},
         resize,
         Qt::SizeBDiagCursor,
         moveRectEdges(false, 1, 1)},
        {"rectangles: top",
         Channel::Rectangles,
         {15, 10.5},
         resize,
         Qt::SizeVerCursor,
         moveRectEdges(false, 0, -1)},
        {"rectangles: bottom",
         Channel::Rectangles,
         {15, 39.5},
         resize,
         Qt::SizeVerCursor,
         moveRectEdges(false, 0, 1)},
        {"rectangles: left",
         Channel::Rectangles,
         {10.5, 20},
         resize,
         Qt::SizeHorCursor,
         moveRectEdges(false, -1, 0)},
        {"rectangles: right",
         Channel::Rectangles,
         {29.5, 20},
         resize,
         Qt::SizeHorCursor,
         moveRectEdges(false, 1, 0)},
        {"rectangles: centre",
         Channel::Rectangles,
         {20, 25},
         NeedsItem,
         Qt::SizeAllCursor,
         [](Content &c, double dx, double dy, bool) { c.rectangles[0].translate(dx, dy); }},
        {"rectangles: inside", Channel::Rectangles, {15, 20}, -1, 0, {}},
        {"circles: all", Channel::Circles, {45, 45}, all, 0, moveAllCircles},
        {"circles: diagonal",
         Channel::Circles,
         {20 + diagonal, 20 - diagonal},
         resize | NeedsMovingCenter,
         Qt::SizeFDiagCursor,
         moveRectEdges(true, 1, -1)},
        {"circles: right", Channel::Circles, {30, 20}, resize, Qt::SizeHorCursor, moveRectEdges(true, 1, 0)},
        {"circles: left", Channel::Circles, {10, 20}, resize, Qt::SizeHorCursor, moveRectEdges(true, -1, 0)},
        {"circles: top", Channel::Circles, {20, 10}, resize, Qt::SizeVerCursor, moveRectEdges(true, 0, -1)},
        {"circles: bottom", Channel::Circles, {20, 30}, resize, Qt::SizeVerCursor, moveRectEdges(true, 0, 1)},
        {"circles: ring", Channel::Circles, ring, NeedsItem | DragsOutlineWhenResizable, Qt::SizeBDiagCursor,
         moveCircle},
        {"circles: inside", Channel::Circles, {16, 24}, -1, 0, {}},
    };
}

struct Flags
{
    bool editable;
    bool itemsEditable;
    bool itemsMovable;
    bool resizable;
    bool keepCenter;
};

void setFlags(ZrQtPlotChannel &channel, ZrQtPlotChannel::ContentType type, const Flags &flags)
{
    const char *const names[] = {"points", "lines", "lineSegments", "rectangles", "circles"};
    const int tested = type == ZrQtPlotChannel::Points         ? 0
                       : type == ZrQtPlotChannel::Lines        ? 1
                       : type == ZrQtPlotChannel::LineSegments ? 2
                       : type == ZrQtPlotChannel::Rectangles   ? 3
                                                               : 4;
    for (int i = 0; i < 5; ++i) {
        channel.setProperty(QByteArray(names[i]) + "Editable", i == tested && flags.itemsEditable);
        channel.setProperty(QByteArray(names[i]) + "Movable", i == tested && flags.itemsMovable);
    }
    channel.setEditable(flags.editable);
    channel.setResizableFeatures(flags.resizable);
    channel.setKeepCenterAtResize(flags.keepCenter);
}

/// What the user can do at a zone with these flags: nothing, what the row says, or move the circle at its
/// handle, which without resizing is but a place on the ring.
enum class Outcome { Miss, Moves, MovesCircle, Outline };

Outcome outcomeOf(const ZoneRow &row, const Flags &flags)
{
    if (!flags.editable || row.needs < 0)
        return Outcome::Miss;
    if (row.needs & NeedsAllItems)
        return flags.itemsMovable ? Outcome::Moves : Outcome::Miss;
    if (!flags.itemsEditable)
        return Outcome::Miss;
    if (row.needs & DragsOutlineWhenResizable)
        return flags.resizable ? Outcome::Outline : Outcome::Moves;
    const bool circleHandle = row.type == ZrQtPlotChannel::Circles && (row.needs & NeedsResizing);
    const bool segmentEnd = row.type == ZrQtPlotChannel::LineSegments && (row.needs & NeedsResizing);
    if ((row.needs & NeedsResizing) && !flags.resizable)
        return circleHandle ? Outcome::MovesCircle : segmentEnd ? Outcome::Moves : Outcome::Miss;
    if ((row.needs & NeedsMovingCenter) && flags.keepCenter)
        return Outcome::Outline;
    return Outcome::Moves;
}

} // namespace

class TestPlotChannelZones : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void zones_data();
    void zones();
    void outlineResizesAboutTheCenter_data();
    void outlineResizesAboutTheCenter();
    void extentOfTheTypeFollowsTheDrag();
};

void TestPlotChannelZones::zones_data()
{
    QTest::addColumn<int>("row");
    const QVector<ZoneRow> rows = zoneRows();
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(rows.at(i).name) << i;
}

void TestPlotChannelZones::zones()
{
    QFETCH(int, row);
    const ZoneRow zone = zoneRows().at(row);
    const Content start = contentWith(zone.type);
    for (int bits = 0; bits < 32 * 4 * 4; ++bits) {
        const Flags flags{bool(bits & 1), bool(bits & 2), bool(bits & 4), bool(bits & 8), bool(bits & 16)};
        const auto directions = Qt::Orientations(bits >> 5 & 3);
        TestChannel channel;
        channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, bits >> 7 & 1);
        channel.onAxisInverted(ZrQtPlot::Axis_Y, ZrQtPlot::COSY_0, bits >> 8 & 1);
        setContent(channel, start);
        setFlags(channel, zone.type, flags);
        channel.setMovementDirections(directions);
        const Outcome outcome = outcomeOf(zone, flags);
        const QByteArray what = QByteArray::number(bits, 2);

        channel.setCursor(Qt::WaitCursor);
        Mouse mouse(&channel);
        QVERIFY2(mouse.moveTo(zone.place) == (outcome != Outcome::Miss), what);
        const Qt::CursorShape cursor = channel.cursor().shape();
        if (outcome == Outcome::Miss) {
            QCOMPARE(cursor, Qt::WaitCursor);
        } else {
            const Qt::CursorShape usual = directions == Qt::Vertical     ? Qt::SizeVerCursor
                                          : directions == Qt::Horizontal ? Qt::SizeHorCursor
                                                                         : Qt::SizeAllCursor;
            const bool itsOwn = directions && !(zone.needs & CursorOfDirections)
                                && outcome != Outcome::MovesCircle
                                && !(zone.needs & DragsOutlineWhenResizable && outcome == Outcome::Moves);
            QVERIFY2(cursor == (itsOwn ? zone.cursor : usual), what);
        }

        QVERIFY2(mouse.press() == (outcome != Outcome::Miss), what);
        QCOMPARE(channel.isDraggingFeature(), outcome != Outcome::Miss);
        if (outcome == Outcome::Outline) {
            QVERIFY2(channel.state().dragged->part == DragPart::Outline, what);
            mouse.release(); // the drag has a test of its own
            continue;
        }
        mouse.moveTo(zone.place + QPointF(2, 3));
        Content expected = start;
        const double dx = directions & Qt::Horizontal ? 2 : 0;
        const double dy = directions & Qt::Vertical ? 3 : 0;
        if (outcome == Outcome::MovesCircle)
            expected.circles[0].translate(dx, dy);
        else if (outcome == Outcome::Moves && (zone.needs & NeedsResizing) && !flags.resizable)
            expected.segments[0].translate(dx, dy); // its end is but a place on it
        else if (outcome == Outcome::Moves)
            zone.effect(expected, dx, dy, flags.keepCenter);
        QVERIFY2(contentOf(channel) == expected, what);
        QCOMPARE(mouse.release(), outcome != Outcome::Miss);
        QVERIFY2(contentOf(channel) == expected, what);
        QVERIFY(!channel.isDraggingFeature());
    }
}

void TestPlotChannelZones::outlineResizesAboutTheCenter_data()
{
    QTest::addColumn<int>("directions");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<QRectF>("result");
    // An ellipse around (50, 50), grabbed at its ring (20 units away), and dragged to three times as far out.
    const int both = Qt::Horizontal | Qt::Vertical;
    const double scale = std::hypot(36.0 / 20, 48.0 / 10);
    const QRectF scaled(50 - 20 * scale, 50 - 10 * scale, 40 * scale, 20 * scale);
    QTest::newRow("both") << both << false << scaled;
    QTest::newRow("inverted") << both << true << scaled;
    QTest::newRow("horizontal") << int(Qt::Horizontal) << false << QRectF(30 - 24, 40, 40 + 48, 20);
    QTest::newRow("vertical") << int(Qt::Vertical) << false << QRectF(30, 40 - 32, 40, 20 + 64);
    QTest::newRow("none") << 0 << false << QRectF(30, 40, 40, 20);
}

void TestPlotChannelZones::outlineResizesAboutTheCenter()
{
    QFETCH(int, directions);
    QFETCH(bool, inverted);
    TestChannel channel;
    channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, inverted);
    channel.setEditable(true);
    channel.setMovementDirections(Qt::Orientations(directions));
    channel.setCircle({30, 40, 40, 20});
    channel.setCirclesMovable(false);
    Mouse mouse(&channel);
    mouse.drag({50 + 12, 50 + 16}, {50 + 36, 50 + 48}, 3);
    QFETCH(QRectF, result);
    const QRectF circle = channel.circles().at(0);
    for (const double difference : {circle.left() - result.left(), circle.top() - result.top(),
                                    circle.width() - result.width(), circle.height() - result.height()}) {
        QVERIFY(qAbs(difference) < 1e-9);
    }
}

void TestPlotChannelZones::extentOfTheTypeFollowsTheDrag()
{
    for (const ZoneRow &zone : zoneRows()) {
        TestChannel channel;
        setContent(channel, contentWith(zone.type));
        channel.setEditable(true);
        const QRectF whole = channel.boundingRect();
        Mouse mouse(&channel);
        mouse.dragWithoutRelease(zone.place, zone.place + QPointF(-30, -30), 3);
        const auto isComputed = [&channel, &zone] {
            TestChannel fresh;
            setContent(fresh, contentOf(channel));
            return channel.state().typeRectangles.value(zone.type)
                   == fresh.state().typeRectangles.value(zone.type);
        };
        QVERIFY2(isComputed(), zone.name);
        QCOMPARE(channel.boundingRect(), whole);
        mouse.release();
        QVERIFY2(isComputed(), zone.name);
    }
}

QTEST_MAIN(TestPlotChannelZones)
#include "tst_zrqtplotchannel_zones.moc"
