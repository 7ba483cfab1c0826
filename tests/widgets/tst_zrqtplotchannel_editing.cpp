#include "shared/channelmouse.h"
#include "shared/quiettest.h"

#include <QtTest/QSignalSpy>

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestPlotChannelEditing : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void defaultsLeaveEveryEventToThePlot();
    void eventsAreIgnoredWithNothingToEdit();
    void hoverAcceptsOnlyHits();
    void cursorStaysOnAMiss();
    void moveWithAnotherButtonIsIgnored();
    void pressUsesTheLastMove();
    void pressWithAnyButton();
    void secondButtonContinuesTheDrag();
    void releaseWithoutDragIsIgnored();
    void selectionFollowsFractionsOfPixels();
    void orderOfHitTests();
    void wholeContentIsMoved_data();
    void wholeContentIsMoved();
    void wholeContentNeedsContent();
    void featureIsNotHitItself();
    void cursorOfTheWholeContent_data();
    void cursorOfTheWholeContent();
    void insideOutIsNormalizedAtTheRelease_data();
    void insideOutIsNormalizedAtTheRelease();
    void allItemsAreNormalized();
    void wholeContentIsNotNormalized();
    void stepsRepaint();
    void notifications_data();
    void notifications();
    void notificationOfTheWholeContent();
    void editedSignalsCarryTheContent();
    void releaseReportsTheExtentFirst();
    void setterThatKeepsTheHit();
    void setterThatEndsTheEditing();
    void setterThatDropsAHoveredItemIsSilent();
    void setterOfAnotherTypeLeavesTheDrag();
    void featureThatMovesTheCentreEndsTheEditing();
    void clearDuringADrag();
    void slotMaySnapThePoint();
    void channelMayBeDeletedInASlot_data();
    void channelMayBeDeletedInASlot();
    void featureMayBeDeletedDuringADrag();
    void channelMayBeDeletedByItsFeature();
    void canvasMayVanishDuringADrag();
    void flagsMayChangeDuringADrag();
};

void TestPlotChannelEditing::defaultsLeaveEveryEventToThePlot()
{
    TestChannel channel;
    setContent(channel, contentWith(ZrQtPlotChannel::Points));
    SignalLog log(&channel);
    Mouse mouse(&channel);
    QVERIFY(!mouse.moveTo({10, 10}));
    QVERIFY(!channel.state().lastSelection.isNull()); // processed, but no test can succeed
    QVERIFY(!mouse.press());
    QVERIFY(!mouse.moveTo({20, 20}));
    QVERIFY(!mouse.release());
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannelEditing::eventsAreIgnoredWithNothingToEdit()
{
    TestChannel channel;
    channel.setPoints({{10, 10}});
    for (const char *flag :
         {"pointsMovable", "linesMovable", "lineSegmentsMovable", "rectanglesMovable", "circlesMovable"}) {
        channel.setProperty(flag, false);
    }
    Mouse mouse(&channel);
    QVERIFY(!mouse.moveTo({10, 10}));
    QVERIFY(channel.state().lastSelection.isNull()); // not even looked at
    // Any one of the flags is enough to look.
    for (const char *flag : {"editable", "movable", "pointsMovable", "linesMovable", "lineSegmentsMovable",
                             "rectanglesMovable", "circlesMovable"}) {
        channel.state().lastSelection = QRectF();
        channel.setProperty(flag, true);
        mouse.moveTo({50, 50});
        QVERIFY2(!channel.state().lastSelection.isNull(), flag);
        channel.setProperty(flag, false);
    }
}

void TestPlotChannelEditing::hoverAcceptsOnlyHits()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    SignalLog log(&channel);
    Mouse mouse(&channel);
    QVERIFY(mouse.moveTo({10, 10}));
    QVERIFY(!mouse.moveTo({30, 10}));
    QVERIFY(!channel.isDraggingFeature());
    QVERIFY(!channel.editingActive());
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannelEditing::cursorStaysOnAMiss()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setRectangle({10, 10, 20, 30});
    Mouse mouse(&channel);
    mouse.moveTo({10, 20});
    QCOMPARE(channel.cursor().shape(), Qt::SizeHorCursor);
    QVERIFY(!mouse.moveTo({80, 80}));
    QCOMPARE(channel.cursor().shape(), Qt::SizeHorCursor);
}

void TestPlotChannelEditing::moveWithAnotherButtonIsIgnored()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    mouse.moveTo({50, 10});
    QVERIFY(!mouse.press()); // the plot's own business
    QVERIFY(!mouse.moveTo({10, 10}));
    QCOMPARE(channel.points(), (Points{{10, 10}, {80, 80}}));
    QVERIFY(!mouse.release());
    QVERIFY(mouse.moveTo({10, 10}));
}

void TestPlotChannelEditing::pressUsesTheLastMove()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    // Without any move there is nothing to test.
    Mouse first(&channel);
    QVERIFY(!first.press());
    first.release();
    first.moveTo({10, 10});
    // A press that arrives elsewhere still takes the point of the last move, and the drag starts there.
    Mouse second(&channel);
    QVERIFY(second.press());
    second.moveTo({12, 13});
    QCOMPARE(channel.points().at(0), QPointF(12, 13));
    second.release();
    // In data units: after the canvas changed, the press is still at (12, 13).
    channel.setCanvas(QRectF(50, 50, 10, 10));
    QVERIFY(second.press());
    QVERIFY(second.release());
}

void TestPlotChannelEditing::pressWithAnyButton()
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        TestChannel channel;
        channel.setEditable(true);
        channel.setPoints({{10, 10}, {80, 80}});
        Mouse mouse(&channel);
        mouse.moveTo({10, 10});
        QVERIFY(mouse.press(button));
        QVERIFY(mouse.moveTo({20, 20}));
        QVERIFY(mouse.release(button));
        QCOMPARE(channel.points().at(0), QPointF(20, 20));
    }
}

void TestPlotChannelEditing::secondButtonContinuesTheDrag()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {20, 20}});
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.moveTo({10, 10});
    mouse.press();
    mouse.moveTo({20, 20}); // right above the other point
    QVERIFY(mouse.press(Qt::RightButton));
    mouse.moveTo({30, 30});
    QCOMPARE(channel.points(), (Points{{30, 30}, {20, 20}}));
    QCOMPARE(log.take(), QStringList("active"));
    // The first release ends it, the second one is left to the plot.
    QVERIFY(mouse.release(Qt::RightButton));
    QVERIFY(!mouse.release());
    QCOMPARE(log.take(), (QStringList{"boundingRect", "points", "inactive"}));
}

void TestPlotChannelEditing::releaseWithoutDragIsIgnored()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}});
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.moveTo({10, 10});
    QVERIFY(!mouse.release());
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannelEditing::selectionFollowsFractionsOfPixels()
{
    TestChannel channel;
    Mouse mouse(&channel);
    mouse.moveToPixel({100, 100});
    QCOMPARE(channel.state().lastSelection, QRectF(25 - 1.25, 75 - 1.25, 2.5, 2.5));
    mouse.moveToPixel({100.5, 100});
    QCOMPARE(channel.state().lastSelection.center(), QPointF(25.125, 75));
}

void TestPlotChannelEditing::orderOfHitTests()
{
    // One item of each type at (50, 50), and the centre of everything as well.
    TestChannel channel;
    channel.setPoints({{50, 50}});
    channel.setLineSegment({40, 40, 60, 60});
    channel.setLine({50, 1, 50, 2});
    channel.setRectangle({40, 40, 20, 20});
    channel.setCircle({40, 40, 20, 20});
    channel.setEditable(true);
    channel.setMovable(true);
    Mouse mouse(&channel);
    const auto hitType = [&] {
        mouse.moveTo({10, 90});
        return mouse.moveTo({50, 50}) ? channel.state().selectedContentType : -1;
    };
    QCOMPARE(hitType(), int(ZrQtPlotChannel::Points));
    channel.setPoints({});
    QCOMPARE(hitType(), int(ZrQtPlotChannel::LineSegments));
    channel.setLineSegments({});
    QCOMPARE(hitType(), int(ZrQtPlotChannel::Lines));
    channel.setLines({});
    QCOMPARE(hitType(), int(ZrQtPlotChannel::Rectangles));
    channel.setRectangles({});
    QCOMPARE(hitType(), int(ZrQtPlotChannel::Circles));
    // Handles are out of reach of the centre; what is left is the whole content.
    channel.setCirclesEditable(false);
    channel.setCirclesMovable(false);
    QCOMPARE(hitType(), 63);
    channel.setEditable(false);
    QCOMPARE(hitType(), 63);
    channel.setMovable(false);
    QCOMPARE(hitType(), -1);
}

void TestPlotChannelEditing::wholeContentIsMoved_data()
{
    QTest::addColumn<int>("directions");
    QTest::addColumn<QPointF>("offset");
    QTest::newRow("both") << int(Qt::Horizontal | Qt::Vertical) << QPointF(4, 6);
    QTest::newRow("horizontal") << int(Qt::Horizontal) << QPointF(4, 0);
    QTest::newRow("vertical") << int(Qt::Vertical) << QPointF(0, 6);
    QTest::newRow("none") << 0 << QPointF(0, 0);
}

void TestPlotChannelEditing::wholeContentIsMoved()
{
    QFETCH(int, directions);
    QFETCH(QPointF, offset);
    TestChannel channel;
    channel.setMovable(true); // without editable
    channel.setMovementDirections(Qt::Orientations(directions));
    Feature feature;
    feature.m_extent = QRectF(80, 80, 10, 10);
    channel.setCustomFeature(&feature);
    channel.setPoints({{10, 10}});
    channel.setLineSegment({20, 20, 30, 40});
    channel.setRectangle({20, 20, 5, 6});
    channel.setCircle({30, 20, 5, 6});
    channel.setLine({50, 40, 60, 40});
    const QPointF center = channel.boundingRect().center();
    const auto typeRectangles = channel.state().typeRectangles;
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.dragWithoutRelease(center, center + QPointF(4, 6), 2);
    QCOMPARE(channel.points(), (Points{QPointF(10, 10) + offset}));
    QCOMPARE(channel.lineSegments(), (Lines{QLineF(20, 20, 30, 40).translated(offset)}));
    QCOMPARE(channel.lines(), (Lines{QLineF(50, 40, 60, 40).translated(offset)}));
    QCOMPARE(channel.rectangles(), (Rects{QRectF(20, 20, 5, 6).translated(offset)}));
    QCOMPARE(channel.circles(), (Rects{QRectF(30, 20, 5, 6).translated(offset)}));
    QCOMPARE(feature.m_offset, offset);
    // The rectangles of all types move along as they are.
    for (auto it = typeRectangles.cbegin(); it != typeRectangles.cend(); ++it)
        QCOMPARE(channel.state().typeRectangles.value(it.key()), it.value().translated(offset));
    QCOMPARE(channel.boundingRect().center(), center);
    QCOMPARE(log.take(), QStringList("active"));
    mouse.release();
    QCOMPARE(channel.boundingRect().center(), center + offset);
}

void TestPlotChannelEditing::wholeContentNeedsContent()
{
    TestChannel channel;
    channel.setMovable(true);
    Mouse mouse(&channel);
    QVERIFY(!mouse.moveTo({0, 0}));
    channel.setRectangle({40, 40, 20, 20});
    QVERIFY(mouse.moveTo({50, 50}));
    channel.clear(); // keeps its extent
    QVERIFY(!mouse.moveTo({50, 50}));
    Feature feature;
    channel.setCustomFeature(&feature);
    QVERIFY(mouse.moveTo({50, 50}));
}

void TestPlotChannelEditing::featureIsNotHitItself()
{
    TestChannel channel;
    channel.setEditable(true);
    Feature feature;
    feature.m_extent = QRectF(40, 40, 20, 20);
    channel.setCustomFeature(&feature);
    Mouse mouse(&channel);
    QVERIFY(!mouse.moveTo({50, 50}));
    channel.setMovable(true);
    QVERIFY(mouse.moveTo({50, 50}));
}

void TestPlotChannelEditing::cursorOfTheWholeContent_data()
{
    QTest::addColumn<Qt::Orientations>("directions");
    QTest::addColumn<Qt::CursorShape>("cursor");
    QTest::newRow("both") << (Qt::Horizontal | Qt::Vertical) << Qt::SizeAllCursor;
    QTest::newRow("horizontal") << Qt::Orientations(Qt::Horizontal) << Qt::SizeHorCursor;
    QTest::newRow("vertical") << Qt::Orientations(Qt::Vertical) << Qt::SizeVerCursor;
    QTest::newRow("none") << Qt::Orientations() << Qt::SizeAllCursor;
}

void TestPlotChannelEditing::cursorOfTheWholeContent()
{
    QFETCH(Qt::Orientations, directions);
    TestChannel channel;
    channel.setMovable(true);
    channel.setMovementDirections(directions);
    channel.setRectangle({40, 40, 20, 20});
    Mouse mouse(&channel);
    QVERIFY(mouse.moveTo({50, 50}));
    QTEST(channel.cursor().shape(), "cursor");
}

void TestPlotChannelEditing::insideOutIsNormalizedAtTheRelease_data()
{
    QTest::addColumn<bool>("circle");
    QTest::newRow("rectangle") << false;
    QTest::newRow("circle") << true;
}

void TestPlotChannelEditing::insideOutIsNormalizedAtTheRelease()
{
    QFETCH(bool, circle);
    TestChannel channel;
    channel.setEditable(true);
    const QRectF start(20, 20, 20, 20);
    if (circle)
        channel.setCircle(start);
    else
        channel.setRectangle(start);
    const auto item = [&] { return circle ? channel.circles().at(0) : channel.rectangles().at(0); };
    QRectF edited;
    connect(&channel, &ZrQtPlotChannel::rectanglesEdited, &channel,
            [&](const Rects &r) { edited = r.at(0); });
    connect(&channel, &ZrQtPlotChannel::circlesEdited, &channel, [&](const Rects &r) { edited = r.at(0); });
    Mouse mouse(&channel);
    const double y = circle ? 30 : 34;
    mouse.dragWithoutRelease({20, y}, {60, y}, 4);
    QCOMPARE(item(), QRectF(60, 20, -20, 20));
    mouse.release();
    QCOMPARE(item(), QRectF(40, 20, 20, 20));
    QCOMPARE(edited, item());
    QCOMPARE(channel.boundingRect(), item());
}

void TestPlotChannelEditing::allItemsAreNormalized()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setRectangles({{20, 20, 20, 20}, {90, 80, -10, 10}});
    Mouse mouse(&channel);
    mouse.drag({30, 20}, {30, 22}); // the edge of the first one only
    QCOMPARE(channel.rectangles(), (Rects{{20, 22, 20, 18}, {80, 80, 10, 10}}));
}

void TestPlotChannelEditing::wholeContentIsNotNormalized()
{
    TestChannel channel;
    channel.setMovable(true);
    channel.setRectanglesMovable(false);
    channel.setRectangles({{20, 20, 20, 20}, {90, 80, -10, 10}});
    Mouse mouse(&channel);
    const QPointF center = channel.boundingRect().center();
    mouse.drag(center, center + QPointF(2, 3));
    QCOMPARE(channel.rectangles(), (Rects{{22, 23, 20, 20}, {92, 83, -10, 10}}));
}

void TestPlotChannelEditing::stepsRepaint()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}});
    Feature painted; // is painted with the channel
    channel.setCustomFeature(&painted);
    channel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    Mouse mouse(&channel);
    mouse.dragWithoutRelease({10, 10}, {12, 12});
    QCoreApplication::processEvents();
    const int before = painted.m_paints;
    mouse.moveTo({14, 14});
    QCoreApplication::processEvents();
    QCOMPARE(painted.m_paints, before + 1);
}

void TestPlotChannelEditing::notifications_data()
{
    QTest::addColumn<int>("notification");
    QTest::addColumn<QStringList>("whileDragging");
    QTest::addColumn<QStringList>("atTheRelease");
    const QString points = QStringLiteral("points");
    QTest::newRow("never") << 0 << QStringList("active") << QStringList{"boundingRect", "inactive"};
    QTest::newRow("always") << 1 << QStringList{"active", points, points, points}
                            << QStringList{"boundingRect", points, "inactive"};
    QTest::newRow("when finished") << 2 << QStringList("active")
                                   << QStringList{"boundingRect", points, "inactive"};
}

void TestPlotChannelEditing::notifications()
{
    QFETCH(int, notification);
    TestChannel channel;
    channel.setEditable(true);
    channel.setEditingNotification(static_cast<ZrQtPlotChannel::EditingNotification>(notification));
    channel.setPoints({{10, 10}, {80, 80}});
    channel.setRectangle({90, 90, 5, 5});
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.dragWithoutRelease({10, 10}, {4, 4}, 3);
    QTEST(log.take(), "whileDragging");
    QVERIFY(channel.editingActive());
    QVERIFY(channel.isDraggingFeature());
    mouse.release();
    QTEST(log.take(), "atTheRelease");
    QVERIFY(!channel.editingActive());
    QVERIFY(!channel.isDraggingFeature());
    QCOMPARE(channel.state().selectedContentType, int(ZrQtPlotChannel::None));
    // A click is an edit, too: it reports the content, but no new extent.
    mouse.moveTo({4, 4});
    mouse.press();
    mouse.release();
    const QStringList click = log.take();
    QVERIFY(!click.contains(QStringLiteral("boundingRect")));
    QCOMPARE(click.count(QStringLiteral("points")), notification == 0 ? 0 : 1);
}

void TestPlotChannelEditing::notificationOfTheWholeContent()
{
    TestChannel channel;
    channel.setMovable(true);
    channel.setPoints({{10, 10}});
    channel.setLine({50, 40, 60, 40});
    channel.setLineSegment({20, 20, 30, 40});
    channel.setRectangle({20, 20, 5, 6});
    channel.setCircle({30, 20, 5, 6});
    Feature feature;
    feature.m_extent = QRectF(80, 80, 10, 10);
    channel.setCustomFeature(&feature);
    SignalLog log(&channel);
    Mouse mouse(&channel);
    const QPointF center = channel.boundingRect().center();
    mouse.drag(center, center + QPointF(4, 6));
    QCOMPARE(log.take(), (QStringList{"active", "boundingRect", "points", "lines", "lineSegments",
                                      "rectangles", "circles", "custom", "inactive"}));
    // Without content of a type there is no signal of it.
    channel.setPoints({});
    channel.setLines({});
    channel.setCircles({});
    channel.setCustomFeature(nullptr);
    log.take();
    const QPointF newCenter = channel.boundingRect().center();
    mouse.drag(newCenter, newCenter + QPointF(4, 6));
    QCOMPARE(log.take(), (QStringList{"active", "boundingRect", "lineSegments", "rectangles", "inactive"}));
}

void TestPlotChannelEditing::editedSignalsCarryTheContent()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setLineSegments({{10, 10, 30, 40}, {60, 60, 80, 80}});
    QSignalSpy segments(&channel, &ZrQtPlotChannel::lineSegmentsEdited);
    QSignalSpy rectangles(&channel, &ZrQtPlotChannel::rectanglesEdited);
    QSignalSpy points(&channel, &ZrQtPlotChannel::pointsEdited);
    Mouse mouse(&channel);
    mouse.drag({10, 10}, {12, 13});
    QCOMPARE(segments.count(), 1);
    QCOMPARE(segments.at(0).at(0).value<Lines>(), (Lines{{12, 13, 30, 40}, {60, 60, 80, 80}}));
    QCOMPARE(rectangles.count(), 0);
    QCOMPARE(points.count(), 0);
    channel.setLine({10, 60, 20, 60});
    QSignalSpy lines(&channel, &ZrQtPlotChannel::linesEdited);
    mouse.drag({15, 60}, {15, 62});
    QCOMPARE(lines.count(), 1);
    QCOMPARE(lines.at(0).at(0).value<Lines>(), (Lines{{10, 62, 20, 62}}));
}

void TestPlotChannelEditing::releaseReportsTheExtentFirst()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    bool draggingAtExtent = false;
    bool draggingAtEdited = true;
    bool activeAtEdited = false;
    connect(&channel, &ZrQtBaseChannel::boundingRectChanged, &channel,
            [&] { draggingAtExtent = channel.isDraggingFeature(); });
    connect(&channel, &ZrQtPlotChannel::pointsEdited, &channel, [&] {
        draggingAtEdited = channel.isDraggingFeature();
        activeAtEdited = channel.editingActive();
    });
    Mouse mouse(&channel);
    mouse.drag({10, 10}, {4, 4});
    QVERIFY(draggingAtExtent);
    QVERIFY(!draggingAtEdited);
    QVERIFY(activeAtEdited);
}

void TestPlotChannelEditing::setterThatKeepsTheHit()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    mouse.moveTo({10, 10});
    mouse.press();
    SignalLog log(&channel);
    channel.setPoints({{70, 70}, {10.5, 10}, {80, 80}});
    QVERIFY(channel.editingActive());
    QVERIFY(channel.isDraggingFeature());
    mouse.moveTo({12, 10});
    // Now it is the second point that is under the mouse.
    QCOMPARE(channel.points(), (Points{{70, 70}, {12.5, 10}, {80, 80}}));
    QVERIFY(!log.take().contains(QStringLiteral("inactive")));
}

void TestPlotChannelEditing::setterThatEndsTheEditing()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    mouse.moveTo({10, 10});
    mouse.press();
    SignalLog log(&channel);
    channel.setPoints({{10, 80}, {80, 10}});
    QCOMPARE(log.take(), QStringList("inactive"));
    QVERIFY(!channel.editingActive());
    QVERIFY(!channel.isDraggingFeature());
    QCOMPARE(channel.state().selectedContentType, int(ZrQtPlotChannel::None));
    // The rest of the gesture is left to the plot.
    QVERIFY(!mouse.moveTo({12, 12}));
    QVERIFY(!mouse.release());
    QCOMPARE(channel.points(), (Points{{10, 80}, {80, 10}}));
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannelEditing::setterThatDropsAHoveredItemIsSilent()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    mouse.moveTo({10, 10});
    SignalLog log(&channel);
    channel.setPoints({{10, 80}, {80, 10}});
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(channel.state().selectedContentType, int(ZrQtPlotChannel::None));
    QVERIFY(!mouse.press());
}

void TestPlotChannelEditing::setterOfAnotherTypeLeavesTheDrag()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    mouse.moveTo({10, 10});
    mouse.press();
    channel.setRectangle({9, 9, 2, 2});
    mouse.moveTo({12, 12});
    QCOMPARE(channel.points().at(0), QPointF(12, 12));
    QCOMPARE(channel.rectangles().at(0), QRectF(9, 9, 2, 2));
    // While the whole content is dragged, every type counts.
    mouse.release();
    channel.setMovable(true);
    channel.setEditable(false);
    mouse.moveTo(channel.boundingRect().center());
    mouse.press();
    QVERIFY(channel.editingActive());
    channel.setRectangle({0, 0, 4, 4});
    QVERIFY(!channel.editingActive());
}

void TestPlotChannelEditing::featureThatMovesTheCentreEndsTheEditing()
{
    TestChannel channel;
    channel.setMovable(true);
    channel.setRectangle({40, 40, 20, 20});
    channel.setRectanglesMovable(false);
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.dragWithoutRelease({50, 50}, {52, 52});
    log.take();
    Feature distant;
    distant.m_extent = QRectF(80, 80, 10, 10);
    channel.setCustomFeature(&distant);
    QVERIFY(!channel.isDraggingFeature());
    QCOMPARE(log.take().count(QStringLiteral("inactive")), 1);
}

void TestPlotChannelEditing::clearDuringADrag()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.moveTo({80, 80});
    mouse.press();
    channel.clear();
    mouse.moveTo({12, 12});
    QVERIFY(channel.points().isEmpty());
    mouse.release();
    const QStringList sent = log.take();
    QVERIFY(!sent.contains(QStringLiteral("points")));
    QCOMPARE(sent.first(), QStringLiteral("active"));
    QCOMPARE(sent.last(), QStringLiteral("inactive"));
}

void TestPlotChannelEditing::slotMaySnapThePoint()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setEditingNotification(ZrQtPlotChannel::NotifyAlways);
    channel.setPoints({{10, 10}, {80, 80}});
    connect(&channel, &ZrQtPlotChannel::pointsEdited, &channel, [&](const Points &points) {
        Points snapped = points;
        for (QPointF &point : snapped)
            point = QPointF(qRound(point.x()), qRound(point.y()));
        channel.setPoints(snapped);
    });
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.drag({10, 10}, {14.25, 10.25}, 5);
    QCOMPARE(channel.points().at(0), QPointF(15, 10)); // each step of 0.85 is rounded up
    QCOMPARE(log.take().count(QStringLiteral("inactive")), 1);
}

void TestPlotChannelEditing::channelMayBeDeletedInASlot_data()
{
    QTest::addColumn<int>("when");
    QTest::addColumn<bool>("whole");
    const char *const names[]
        = {"active", "edited while dragging", "extent at the release", "edited at the release", "inactive"};
    for (int when = 0; when < 5; ++when) {
        QTest::newRow(names[when]) << when << false;
        QTest::addRow("%s, whole content", names[when]) << when << true;
    }
}

void TestPlotChannelEditing::channelMayBeDeletedInASlot()
{
    QFETCH(int, when);
    QFETCH(bool, whole);
    QWidget parent;
    auto *channel = new TestChannel(&parent);
    channel->setEditable(!whole);
    channel->setMovable(whole);
    channel->setEditingNotification(when == 1 ? ZrQtPlotChannel::NotifyAlways
                                              : ZrQtPlotChannel::NotifyWhenFinished);
    channel->setPoints({{10, 10}, {80, 80}});
    channel->setRectangle({30, 30, 5, 5});
    const QPointer<TestChannel> alive(channel);
    const auto drop = [channel] { delete channel; };
    switch (when) {
    case 0:
    case 4:
        connect(channel, &ZrQtPlotChannel::editingActiveChanged, &parent, [when, channel](bool active) {
            if (active == (when == 0))
                delete channel;
        });
        break;
    case 2:
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, &parent, drop);
        break;
    default:
        connect(channel, &ZrQtPlotChannel::pointsEdited, &parent, drop);
        break;
    }
    const QPointF start = whole ? QPointF(45, 45) : QPointF(10, 10);
    Mouse mouse(channel);
    mouse.moveTo(start);
    mouse.press();
    if (alive)
        mouse.moveTo(start - QPointF(5, 5));
    if (alive)
        mouse.release();
    QVERIFY(!alive);
}

void TestPlotChannelEditing::featureMayBeDeletedDuringADrag()
{
    TestChannel channel;
    channel.setMovable(true);
    auto feature = std::make_unique<Feature>();
    feature->m_extent = QRectF(40, 40, 20, 20);
    channel.setCustomFeature(feature.get());
    channel.setPoints({{50, 50}});
    SignalLog log(&channel);
    Mouse mouse(&channel);
    mouse.dragWithoutRelease({50, 50}, {52, 52});
    feature.reset();
    mouse.moveTo({54, 54});
    mouse.release();
    QCOMPARE(channel.points(), (Points{{54, 54}}));
    QCOMPARE(log.take(), (QStringList{"active", "boundingRect", "points", "inactive"}));
}

void TestPlotChannelEditing::channelMayBeDeletedByItsFeature()
{
    QWidget parent;
    auto *channel = new TestChannel(&parent);
    const QPointer<TestChannel> alive(channel);
    channel->setMovable(true);
    Feature feature;
    feature.m_extent = QRectF(40, 40, 20, 20);
    feature.m_onTranslate = [channel] { delete channel; };
    channel->setCustomFeature(&feature);
    Mouse mouse(channel);
    mouse.dragWithoutRelease({50, 50}, {52, 52});
    QVERIFY(!alive);
    QCOMPARE(feature.parentChannel(), nullptr);
}

void TestPlotChannelEditing::canvasMayVanishDuringADrag()
{
    for (const QRectF &canvas : {QRectF(), QRectF(notANumber, 0, 1, 1), QRectF(0, 0, infinity, 1)}) {
        TestChannel channel;
        channel.setEditable(true);
        channel.setPoints({{10, 10}, {80, 80}});
        Mouse mouse(&channel);
        mouse.dragWithoutRelease({10, 10}, {12, 12});
        channel.setCanvas(canvas);
        mouse.moveToPixel({100, 100});
        mouse.moveToPixel({110, 120});
        QVERIFY(std::isfinite(channel.points().at(0).x()) && std::isfinite(channel.points().at(0).y()));
        QVERIFY(std::isfinite(channel.boundingRect().width()));
        // Once there is a canvas again, the drag goes on.
        channel.setCanvas(QRectF(0, 0, 100, 100));
        const QPointF before = channel.points().at(0);
        mouse.moveTo({20, 20});
        mouse.moveTo({21, 22});
        const QPointF after = channel.points().at(0);
        QVERIFY(std::isfinite(after.x()) && std::isfinite(after.y()) && after != before);
        mouse.release();
        QVERIFY(!channel.editingActive());
    }
}

void TestPlotChannelEditing::flagsMayChangeDuringADrag()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    mouse.dragWithoutRelease({10, 10}, {12, 12});
    channel.setMovementDirections(Qt::Horizontal);
    mouse.moveTo({14, 14});
    QCOMPARE(channel.points().at(0), QPointF(14, 12));
    // The way in the forbidden direction is not made up for afterwards.
    channel.setMovementDirections(Qt::Horizontal | Qt::Vertical);
    mouse.moveTo({15, 15});
    QCOMPARE(channel.points().at(0), QPointF(15, 13));
    channel.setEditable(false);
    mouse.release();
    QVERIFY(!channel.editingActive());
}

QTEST_MAIN(TestPlotChannelEditing)
#include "tst_zrqtplotchannel_editing.moc"
