#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel_p.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"
#include "shared/quiettest.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>

#include <functional>
#include <limits>
#include <type_traits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;
using Lines = QVector<QLineF>;
using Rects = QVector<QRectF>;

class TestChannel : public ZrQtPlotChannel
{
    Q_OBJECT

public:
    explicit TestChannel(QWidget *parent = nullptr)
        : ZrQtPlotChannel(parent)
    {
    }

    ZrQtPlotChannelPrivate &state() { return static_cast<ZrQtPlotChannelPrivate &>(*m_d); }

    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++m_paints;
        ZrQtPlotChannel::paintEvent(event);
    }
};

/// The names of all signals of a channel in the order of their arrival.
class SignalLog : public QObject
{
    Q_OBJECT

public:
    explicit SignalLog(ZrQtPlotChannel *channel)
    {
        const auto log = [this](const char *name) { return [this, name] { m_log << QLatin1String(name); }; };
        connect(channel, &ZrQtBaseChannel::dataChanged, this, log("data"));
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, this, log("boundingRect"));
        connect(channel, &ZrQtPlotChannel::pointsEdited, this, log("points"));
        connect(channel, &ZrQtPlotChannel::linesEdited, this, log("lines"));
        connect(channel, &ZrQtPlotChannel::lineSegmentsEdited, this, log("lineSegments"));
        connect(channel, &ZrQtPlotChannel::rectanglesEdited, this, log("rectangles"));
        connect(channel, &ZrQtPlotChannel::circlesEdited, this, log("circles"));
        connect(channel, &ZrQtPlotChannel::customFeatureChanged, this, log("custom"));
        connect(channel, &ZrQtPlotChannel::editingActiveChanged, this, log("editingActive"));
    }

    QStringList take() { return std::exchange(m_log, QStringList()); }

private:
    QStringList m_log;
};

enum class Repaint { No, OnChange };

} // namespace

Q_DECLARE_METATYPE(Repaint)
Q_DECLARE_METATYPE(std::function<void(ZrQtPlotChannel &)>)

class TestPlotChannel : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void construction();
    void enumsAreRegistered();
    void privateStateIsCopyable();
    void flags_data();
    void flags();
    void contentProperties_data();
    void contentProperties();
    void singleItemsReplaceAll();
    void contentIsClipped();
    void extentOfEachType_data();
    void extentOfEachType();
    void extentIsTheUnion();
    void extentOfLinesFollowsTheCanvas();
    void extentStartsAnewWhileEmpty();
    void settersReportTheExtentOnly();
    void extentComparesFuzzily();
    void oddContentLeavesTheExtentUsable_data();
    void oddContentLeavesTheExtentUsable();
    void clearKeepsTheExtent();
    void clearRepaints();
    void inverseTransformIsKept();
    void channelMayBeDeletedInASlot_data();
    void channelMayBeDeletedInASlot();
};

void TestPlotChannel::construction()
{
    QWidget parent;
    TestChannel channel(&parent);
    QCOMPARE(channel.parentWidget(), &parent);
    QVERIFY(channel.isSelectedForDisplay());
    QVERIFY(channel.hasMouseTracking());
    QVERIFY(channel.boundingRect().isNull());
    QVERIFY(!channel.editingActive());
    QVERIFY(!channel.isDraggingFeature());
    QCOMPARE(channel.customFeature(), nullptr);
    QCOMPARE(channel.state().selectedContentType, int(ZrQtPlotChannel::None));
    QVERIFY(channel.state().lastSelection.isNull());
    QVERIFY(channel.state().typeRectangles.isEmpty());
    const int notify = channel.metaObject()->indexOfProperty("editingActive");
    QVERIFY(!channel.metaObject()->property(notify).isWritable());
    QCOMPARE(channel.metaObject()->property(notify).notifySignal().name(),
             QByteArray("editingActiveChanged"));
}

void TestPlotChannel::enumsAreRegistered()
{
    const QMetaEnum types = QMetaEnum::fromType<ZrQtPlotChannel::ContentTypes>();
    QVERIFY(types.isFlag());
    QVERIFY(QMetaEnum::fromType<ZrQtPlotChannel::ContentType>().isFlag());
    QCOMPARE(types.keyCount(), 7);
    const QVector<QPair<const char *, int>> expected{
        {"None", 0},       {"Points", 1},     {"Lines", 2},    {"LineSegments", 4},
        {"Rectangles", 8}, {"Circles", 0x10}, {"Custom", 0x20}};
    for (const auto &[key, value] : expected)
        QCOMPARE(types.keyToValue(key), value);
    const QMetaEnum notification = QMetaEnum::fromType<ZrQtPlotChannel::EditingNotification>();
    QCOMPARE(notification.keyCount(), 3);
    QCOMPARE(notification.keyToValue("NotifyNever"), 0);
    QCOMPARE(notification.keyToValue("NotifyAlways"), 1);
    QCOMPARE(notification.keyToValue("NotifyWhenFinished"), 2);
}

void TestPlotChannel::privateStateIsCopyable()
{
    static_assert(std::is_copy_constructible_v<ZrQtPlotChannelPrivate>);
    static_assert(std::is_copy_assignable_v<ZrQtPlotChannelPrivate>);
}

void TestPlotChannel::flags_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("initial");
    QTest::addColumn<QVariant>("changed");
    QTest::addColumn<Repaint>("repaint");
    const auto flag = [](const char *name, bool initial, Repaint repaint) {
        QTest::newRow(name) << QByteArray(name) << QVariant(initial) << QVariant(!initial) << repaint;
    };
    flag("editable", false, Repaint::OnChange);
    flag("pointsEditable", true, Repaint::OnChange);
    flag("circlesEditable", true, Repaint::OnChange);
    flag("rectanglesEditable", true, Repaint::OnChange);
    flag("linesEditable", true, Repaint::OnChange);
    flag("lineSegmentsEditable", true, Repaint::OnChange);
    flag("connectFirstAndLastPoint", false, Repaint::OnChange);
    flag("movable", false, Repaint::No);
    flag("pointsMovable", true, Repaint::No);
    flag("circlesMovable", true, Repaint::No);
    flag("rectanglesMovable", true, Repaint::No);
    flag("linesMovable", true, Repaint::No);
    flag("lineSegmentsMovable", true, Repaint::No);
    flag("keepCenterAtResize", false, Repaint::No);
    flag("resizableFeatures", true, Repaint::No);
    const int both = Qt::Horizontal | Qt::Vertical;
    QTest::newRow("movementDirections")
        << QByteArray("movementDirections") << QVariant(both) << QVariant(int(Qt::Vertical)) << Repaint::No;
    QTest::newRow("editingNotification")
        << QByteArray("editingNotification") << QVariant(2) << QVariant(1) << Repaint::No;
}

void TestPlotChannel::flags()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, initial);
    QFETCH(QVariant, changed);
    QFETCH(Repaint, repaint);
    TestChannel channel;
    const auto value = [&] { return channel.property(name).toInt(); };
    QCOMPARE(value(), initial.toInt());
    channel.resize(50, 40);
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    QCoreApplication::processEvents();
    SignalLog log(&channel);
    int paints = channel.m_paints;
    QVERIFY(channel.setProperty(name, changed));
    QCOMPARE(value(), changed.toInt());
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints - paints, repaint == Repaint::OnChange ? 1 : 0);
    paints = channel.m_paints;
    QVERIFY(channel.setProperty(name, changed));
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints);
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannel::contentProperties_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("content");
    QTest::newRow("points") << QByteArray("points") << QVariant::fromValue(Points{{1, 2}, {3, 4}});
    QTest::newRow("rectangles") << QByteArray("rectangles")
                                << QVariant::fromValue(Rects{{0.1, 0.1, 0.2, 0.2}});
    QTest::newRow("circles") << QByteArray("circles") << QVariant::fromValue(Rects{{1, 2, 3, 4}});
    QTest::newRow("lines") << QByteArray("lines") << QVariant::fromValue(Lines{{1, 2, 3, 4}});
    QTest::newRow("lineSegments") << QByteArray("lineSegments") << QVariant::fromValue(Lines{{1, 2, 3, 4}});
}

void TestPlotChannel::contentProperties()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, content);
    TestChannel channel;
    channel.resize(50, 40);
    channel.setCanvas(QRectF(0, 0, 10, 10));
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    QCoreApplication::processEvents();
    const int paints = channel.m_paints;
    QVERIFY(channel.setProperty(name, content));
    const QVariant read = channel.property(name);
    QCOMPARE(read.userType(), content.userType());
    if (content.userType() == qMetaTypeId<Points>())
        QCOMPARE(read.value<Points>(), content.value<Points>());
    else if (content.userType() == qMetaTypeId<Rects>())
        QCOMPARE(read.value<Rects>(), content.value<Rects>());
    else
        QCOMPARE(read.value<Lines>(), content.value<Lines>());
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints + 1);
    // The same again repaints again: nothing is compared.
    QVERIFY(channel.setProperty(name, content));
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints + 2);
}

void TestPlotChannel::singleItemsReplaceAll()
{
    TestChannel channel;
    channel.setLines({{1, 1, 2, 2}, {3, 3, 4, 4}});
    channel.setLine({5, 5, 6, 6});
    QCOMPARE(channel.lines(), (Lines{{5, 5, 6, 6}}));
    channel.setLineSegments({{1, 1, 2, 2}, {3, 3, 4, 4}});
    channel.setLineSegment({5, 5, 6, 6});
    QCOMPARE(channel.lineSegments(), (Lines{{5, 5, 6, 6}}));
    channel.setRectangles({{1, 1, 2, 2}, {3, 3, 4, 4}});
    channel.setRectangle({5, 5, 6, 6});
    QCOMPARE(channel.rectangles(), (Rects{{5, 5, 6, 6}}));
    channel.setCircles({{1, 1, 2, 2}, {3, 3, 4, 4}});
    channel.setCircle({5, 5, 6, 6});
    QCOMPARE(channel.circles(), (Rects{{5, 5, 6, 6}}));
}

void TestPlotChannel::contentIsClipped()
{
    TestChannel channel;
    channel.setPoints({{1e308, -1e308}, {infinity, -infinity}});
    QCOMPARE(channel.points(), (Points{{1e300, -1e300}, {1e300, -1e300}}));
    const QLineF line(1e308, -1e308, -infinity, infinity);
    const QLineF clippedLine(1e300, -1e300, -1e300, 1e300);
    channel.setLine(line);
    QCOMPARE(channel.lines(), Lines{clippedLine});
    channel.setLineSegment(line);
    QCOMPARE(channel.lineSegments(), Lines{clippedLine});
    const QRectF rect(QPointF(-1e308, -1e302), QPointF(5, 1e307));
    const QRectF clippedRect(QPointF(-1e300, -1e300), QPointF(5, 1e300));
    channel.setRectangle(rect);
    QCOMPARE(channel.rectangles(), Rects{clippedRect});
    channel.setCircle(rect);
    QCOMPARE(channel.circles(), Rects{clippedRect});
}

void TestPlotChannel::extentOfEachType_data()
{
    using Set = std::function<void(ZrQtPlotChannel &)>;
    QTest::addColumn<Set>("set");
    QTest::addColumn<QRectF>("extent");
    const auto add = [](const char *name, const Set &set, const QRectF &extent) {
        QTest::newRow(name) << set << extent;
    };
    add(
        "points",
        [](auto &c) {
            c.setPoints({{1, 2}, {4, -1}});
        },
        QRectF(1, -1, 3, 3));
    add(
        "lines reach the border",
        [](auto &c) {
            c.setLine({4, 5, 4, 6});
        },
        QRectF(4, 0, 0, 10));
    add(
        "line segments",
        [](auto &c) {
            c.setLineSegments({{4, 5, 3, 6}, {1, 1, 2, 2}});
        },
        QRectF(1, 1, 3, 5));
    add(
        "rectangles",
        [](auto &c) {
            c.setRectangles({{1, 1, 2, 2}, {5, 5, 1, 1}});
        },
        QRectF(1, 1, 5, 5));
    add(
        "circles",
        [](auto &c) {
            c.setCircles({{1, 1, 2, 2}, {5, 5, 1, 1}});
        },
        QRectF(1, 1, 5, 5));
    add(
        "no points", [](auto &c) { c.setPoints({}); }, QRectF());
    add(
        "no lines", [](auto &c) { c.setLines({}); }, QRectF());
}

void TestPlotChannel::extentOfEachType()
{
    QFETCH(std::function<void(ZrQtPlotChannel &)>, set);
    QFETCH(QRectF, extent);
    TestChannel channel;
    channel.setCanvas(QRectF(0, 0, 10, 10));
    QSignalSpy spy(&channel, &ZrQtBaseChannel::boundingRectChanged);
    set(channel);
    QCOMPARE(channel.boundingRect(), extent);
    QCOMPARE(spy.count(), extent == QRectF() ? 0 : 1);
    if (spy.count() == 1)
        QCOMPARE(spy.at(0).at(0).toRectF(), extent);
}

void TestPlotChannel::extentIsTheUnion()
{
    TestChannel channel;
    channel.setPoints({{0, 0}, {1, 1}});
    channel.setRectangle({5, 5, 1, 1});
    QCOMPARE(channel.boundingRect(), QRectF(0, 0, 6, 6));
    channel.setCircle({-1, 2, 1, 1});
    QCOMPARE(channel.boundingRect(), QRectF(-1, 0, 7, 6));
    channel.setRectangle({2, 2, 1, 1});
    QCOMPARE(channel.boundingRect(), QRectF(-1, 0, 4, 3));
}

void TestPlotChannel::extentOfLinesFollowsTheCanvas()
{
    TestChannel channel;
    channel.resize(100, 100);
    channel.setLine({4, 5, 4, 6});
    QCOMPARE(channel.boundingRect(), QRectF());
    channel.setCanvas(QRectF(0, 0, 10, 10));
    QCOMPARE(channel.boundingRect(), QRectF());
    // Painting looks anew, and the next change of content takes it over.
    channel.grab();
    QCOMPARE(channel.state().typeRectangles.value(ZrQtPlotChannel::Lines), QRectF(4, 0, 0, 10));
    QCOMPARE(channel.boundingRect(), QRectF());
    channel.setPoints({{5, 5}, {6, 6}});
    QCOMPARE(channel.boundingRect(), QRectF(4, 0, 2, 10));
}

void TestPlotChannel::extentStartsAnewWhileEmpty()
{
    TestChannel channel;
    channel.setPoints({{5, 5}});
    QCOMPARE(channel.boundingRect(), QRectF(5, 5, 0, 0));
    channel.setRectangle({8, 8, 1, 1});
    // A single point has no size, so the rectangle alone counts, or both, whichever comes first.
    QVERIFY(channel.boundingRect() == QRectF(8, 8, 1, 1));
}

void TestPlotChannel::settersReportTheExtentOnly()
{
    TestChannel channel;
    channel.setCanvas(QRectF(0, 0, 10, 10));
    SignalLog log(&channel);
    channel.setPoints({{0, 0}, {9, 9}});
    QCOMPARE(log.take(), QStringList("boundingRect"));
    channel.setPoints({{0, 0}, {9, 9}});
    channel.setRectangle({1, 1, 1, 1});
    channel.setCircle({1, 1, 1, 1});
    channel.setLineSegment({1, 1, 2, 2});
    QCOMPARE(log.take(), QStringList());
    // The extent is up to date when it is reported.
    QRectF extentWhenReported;
    connect(&channel, &ZrQtBaseChannel::boundingRectChanged, &channel,
            [&] { extentWhenReported = channel.boundingRect(); });
    channel.setPoints({{-1, 0}, {9, 9}});
    QCOMPARE(extentWhenReported, QRectF(-1, 0, 10, 9));
}

void TestPlotChannel::extentComparesFuzzily()
{
    TestChannel channel;
    channel.setRectangle({1, 1, 1, 1});
    QSignalSpy spy(&channel, &ZrQtBaseChannel::boundingRectChanged);
    channel.setRectangle({1 + 1e-14, 1, 1, 1});
    QCOMPARE(spy.count(), 0);
    channel.setRectangle({1 + 1e-9, 1, 1, 1});
    QCOMPARE(spy.count(), 1);
}

void TestPlotChannel::oddContentLeavesTheExtentUsable_data()
{
    using Set = std::function<void(ZrQtPlotChannel &)>;
    QTest::addColumn<Set>("set");
    const auto add = [](const char *name, const Set &set) { QTest::newRow(name) << set; };
    add("points", [](auto &c) { c.setPoints({{notANumber, 1}, {-infinity, 4}}); });
    add("lines", [](auto &c) { c.setLine({notANumber, 5, 4, 6}); });
    add("line segments", [](auto &c) { c.setLineSegments({{4, notANumber, 3, 6}}); });
    add("rectangles", [](auto &c) { c.setRectangles({{notANumber, 1, 2, 2}, {1, 1, notANumber, 1}}); });
    add("circles", [](auto &c) { c.setCircles({{-infinity, 1, infinity, 2}}); });
}

void TestPlotChannel::oddContentLeavesTheExtentUsable()
{
    QFETCH(std::function<void(ZrQtPlotChannel &)>, set);
    TestChannel channel;
    channel.setCanvas(QRectF(0, 0, 10, 10));
    set(channel);
    const QRectF extent = channel.boundingRect();
    QVERIFY(qIsFinite(extent.left()) && qIsFinite(extent.right()));
    QVERIFY(qIsFinite(extent.top()) && qIsFinite(extent.bottom()));
}

void TestPlotChannel::clearKeepsTheExtent()
{
    TestChannel channel;
    channel.setCanvas(QRectF(0, 0, 10, 10));
    channel.setPoints({{0, 0}, {9, 9}});
    channel.setRectangle({1, 1, 1, 1});
    channel.setCircle({1, 1, 1, 1});
    channel.setLine({1, 1, 2, 2});
    channel.setLineSegment({1, 1, 2, 2});
    const QRectF before = channel.boundingRect();
    SignalLog log(&channel);
    channel.clear();
    QVERIFY(channel.points().isEmpty());
    QVERIFY(channel.rectangles().isEmpty());
    QVERIFY(channel.circles().isEmpty());
    QVERIFY(channel.lines().isEmpty());
    QVERIFY(channel.lineSegments().isEmpty());
    QCOMPARE(channel.boundingRect(), before);
    QCOMPARE(log.take(), QStringList());
}

void TestPlotChannel::clearRepaints()
{
    TestChannel channel;
    channel.resize(50, 50);
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    QCoreApplication::processEvents();
    const int paints = channel.m_paints;
    channel.clear();
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints + 1);
}

void TestPlotChannel::inverseTransformIsKept()
{
    TestChannel channel;
    channel.resize(100, 50);
    channel.setCanvas(QRectF(0, 0, 10, 10));
    QCOMPARE(channel.state().inverseTransform, channel.state().transform.inverted());
    QCOMPARE(channel.state().inverseTransform.map(QPointF(100, 0)), QPointF(10, 10));
    channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, true);
    QCOMPARE(channel.state().inverseTransform.map(QPointF(100, 0)), QPointF(0, 10));
}

void TestPlotChannel::channelMayBeDeletedInASlot_data()
{
    using Set = std::function<void(ZrQtPlotChannel &)>;
    QTest::addColumn<Set>("set");
    const auto add = [](const char *name, const Set &set) { QTest::newRow(name) << set; };
    add("setPoints", [](auto &c) { c.setPoints({{1, 1}, {2, 2}}); });
    add("setRectangle", [](auto &c) { c.setRectangle({1, 1, 2, 2}); });
    add("setVisible", [](auto &c) { c.setVisible(false); });
}

void TestPlotChannel::channelMayBeDeletedInASlot()
{
    QFETCH(std::function<void(ZrQtPlotChannel &)>, set);
    QWidget parent;
    auto *channel = new TestChannel(&parent);
    const QPointer<TestChannel> alive(channel);
    connect(channel, &ZrQtBaseChannel::boundingRectChanged, &parent, [channel] { delete channel; });
    set(*channel);
    QVERIFY(!alive);
}

QTEST_MAIN(TestPlotChannel)
#include "tst_zrqtplotchannel.moc"
