#include "shared/channelmouse.h"
#include "shared/quiettest.h"

#include <QtTest/QSignalSpy>

/// Drags that do not run from press to release in one go.
class TestPlotChannelInterruptions : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void hidingEndsTheDrag_data();
    void hidingEndsTheDrag();
    void hiddenChannelMayBeDeletedInASlot();
    void clearInASlotKeepsTheExtent_data();
    void clearInASlotKeepsTheExtent();
    void nextDragMayBeginInASlot();
};

void TestPlotChannelInterruptions::hidingEndsTheDrag_data()
{
    QTest::addColumn<bool>("byParent");
    QTest::newRow("the channel is hidden") << false;
    QTest::newRow("its parent is hidden") << true;
}

void TestPlotChannelInterruptions::hidingEndsTheDrag()
{
    QFETCH(bool, byParent);
    QWidget parent;
    auto *channel = new TestChannel(&parent);
    parent.show();
    channel->setEditable(true);
    channel->setRectangle({10, 10, 20, 30});
    Mouse mouse(channel);
    mouse.dragWithoutRelease({10, 25}, {40, 25}); // the left edge beyond the right one
    SignalLog log(channel);
    QSignalSpy extent(channel, &ZrQtBaseChannel::boundingRectChanged);
    (byParent ? &parent : channel)->hide();
    QCoreApplication::processEvents();
    QVERIFY(!channel->isDraggingFeature());
    QVERIFY(!channel->editingActive());
    QCOMPARE(channel->rectangles(), Rects{QRectF(30, 10, 10, 30)});
    QCOMPARE(extent.last().at(0).toRectF(), QRectF(30, 10, 10, 30));
    const QStringList sent = log.take();
    QCOMPARE(sent.mid(sent.size() - 3),
             (QStringList{QStringLiteral("boundingRect"), QStringLiteral("rectangles"),
                          QStringLiteral("inactive")}));
    // Nothing is left for a release that arrives after all.
    QVERIFY(!mouse.release());
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannelInterruptions::hiddenChannelMayBeDeletedInASlot()
{
    QWidget parent;
    QPointer<TestChannel> channel = new TestChannel(&parent);
    parent.show();
    channel->setEditable(true);
    channel->setPoints({{10, 10}, {80, 80}});
    connect(channel, &ZrQtPlotChannel::pointsEdited, &parent, [&channel] { delete channel; });
    Mouse mouse(channel);
    mouse.dragWithoutRelease({10, 10}, {12, 12});
    parent.hide();
    QCoreApplication::processEvents();
    QVERIFY(channel.isNull());
}

void TestPlotChannelInterruptions::clearInASlotKeepsTheExtent_data()
{
    QTest::addColumn<ZrQtPlotChannel::ContentType>("type");
    QTest::addColumn<QPointF>("start");
    QTest::newRow("points") << ZrQtPlotChannel::Points << QPointF(10, 10);
    QTest::newRow("line segments") << ZrQtPlotChannel::LineSegments << QPointF(10, 10);
    QTest::newRow("rectangles") << ZrQtPlotChannel::Rectangles << QPointF(10, 10);
    QTest::newRow("circles") << ZrQtPlotChannel::Circles << QPointF(10, 20);
}

void TestPlotChannelInterruptions::clearInASlotKeepsTheExtent()
{
    QFETCH(ZrQtPlotChannel::ContentType, type);
    QFETCH(QPointF, start);
    TestChannel channel;
    channel.setEditable(true);
    channel.setEditingNotification(ZrQtPlotChannel::NotifyAlways);
    setContent(channel, contentWith(type));
    const auto clear = [&channel] { channel.clear(); };
    connect(&channel, &ZrQtPlotChannel::pointsEdited, &channel, clear);
    connect(&channel, &ZrQtPlotChannel::lineSegmentsEdited, &channel, clear);
    connect(&channel, &ZrQtPlotChannel::rectanglesEdited, &channel, clear);
    connect(&channel, &ZrQtPlotChannel::circlesEdited, &channel, clear);
    Mouse mouse(&channel);
    mouse.dragWithoutRelease(start, start + QPointF(3, 3));
    const QRectF extent = channel.state().typeRectangles.value(type);
    QVERIFY(contentOf(channel) == Content());
    QVERIFY(!extent.isNull());
    mouse.moveTo(start + QPointF(5, 5));
    QCOMPARE(channel.state().typeRectangles.value(type), extent);
    mouse.release();
    QCOMPARE(channel.state().typeRectangles.value(type), extent);
    QVERIFY(!channel.editingActive());
}

void TestPlotChannelInterruptions::nextDragMayBeginInASlot()
{
    TestChannel channel;
    channel.setEditable(true);
    channel.setPoints({{10, 10}, {80, 80}});
    Mouse mouse(&channel);
    // As in a slot that asks the user something, who then goes on editing.
    const auto connection = connect(&channel, &ZrQtPlotChannel::pointsEdited, &channel, [&mouse] {
        mouse.moveTo({80, 80});
        mouse.press();
    });
    mouse.drag({10, 10}, {12, 12});
    disconnect(connection);
    QVERIFY(channel.isDraggingFeature());
    QVERIFY(channel.editingActive());
    QSignalSpy edited(&channel, &ZrQtPlotChannel::pointsEdited);
    mouse.moveTo({85, 85});
    mouse.release();
    QCOMPARE(edited.count(), 1);
    QCOMPARE(channel.points(), (Points{{12, 12}, {85, 85}}));
    QVERIFY(!channel.editingActive());
}

QTEST_MAIN(TestPlotChannelInterruptions)
#include "tst_zrqtplotchannel_interruptions.moc"
