#include "ZrQtPlotWidgets/zrqtbasechannel.h"
#include "ZrQtPlotWidgets/zrqtbasechannel_p.h"
#include "shared/quiettest.h"

#include <QtCore/QMetaEnum>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

class TestChannel : public ZrQtBaseChannel
{
    Q_OBJECT

public:
    explicit TestChannel(QWidget *parent = nullptr)
        : ZrQtBaseChannel(parent)
    {
    }

    QRectF boundingRect() override { return m_boundingRect; }
    void paint(QPainter &painter) override
    {
        ++m_paints;
        painter.fillRect(rect(), Qt::green);
        drawPoints(painter, m_points);
    }
    void clear() override { }

    ZrQtBaseChannelPrivate &state() { return *m_d; }

    QRectF m_boundingRect = QRectF(1, 2, 3, 4);
    QVector<QPointF> m_points;
    int m_paints = 0;
    int m_transformUpdates = 0;

protected:
    void updateTransform() override
    {
        ++m_transformUpdates;
        ZrQtBaseChannel::updateTransform();
    }
};

/// Writes every signal of a channel into one list, so that tests see their order.
class SignalLog : public QObject
{
    Q_OBJECT

public:
    explicit SignalLog(ZrQtBaseChannel *channel)
    {
        connect(channel, &ZrQtBaseChannel::dataChanged, this,
                [this](ZrQtPlot::CoordinateSystem x, ZrQtPlot::CoordinateSystem y) {
                    m_log << QString::asprintf("data %d %d", x, y);
                });
        connect(channel, &ZrQtBaseChannel::canvasChanged, this,
                [this](const QRectF &r) { add("canvas", r); });
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, this,
                [this](const QRectF &r) { add("boundingRect", r); });
        connect(channel, &ZrQtBaseChannel::antialiasingChanged, this,
                [this](bool on) { m_log << QString::asprintf("antialiasing %d", on); });
        connect(channel, &ZrQtBaseChannel::cosyXChanged, this,
                [this](ZrQtPlot::CoordinateSystem c) { m_log << QString::asprintf("cosyX %d", c); });
        connect(channel, &ZrQtBaseChannel::cosyYChanged, this,
                [this](ZrQtPlot::CoordinateSystem c) { m_log << QString::asprintf("cosyY %d", c); });
        connect(channel, &ZrQtBaseChannel::visibilityChanged, this,
                [this](bool on) { m_log << QString::asprintf("visibility %d", on); });
        connect(channel, &ZrQtBaseChannel::showInLegendChanged, this,
                [this](bool on) { m_log << QString::asprintf("showInLegend %d", on); });
    }

    QStringList take() { return std::exchange(m_log, QStringList()); }

private:
    void add(const char *name, const QRectF &r)
    {
        m_log << QString::asprintf("%s %g %g %g %g", name, r.x(), r.y(), r.width(), r.height());
    }

    QStringList m_log;
};

/// What a channel needs to be asked while no subclass exists: registers as the plot does.
class Registrar : public QWidget
{
public:
    std::function<void(ZrQtBaseChannel *)> m_onChild;

protected:
    bool event(QEvent *event) override
    {
        const bool handled = QWidget::event(event);
        if (event->type() == QEvent::ChildAdded && m_onChild) {
            if (auto *channel = qobject_cast<ZrQtBaseChannel *>(static_cast<QChildEvent *>(event)->child()))
                m_onChild(channel);
        }
        return handled;
    }
};

enum class Repaint { Yes, No };

} // namespace

Q_DECLARE_METATYPE(Repaint)

class TestBaseChannel : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void signalsCanBeSpied(); // first, before anything else registers a type
    void properties_data();
    void properties();
    void useForScalingAlwaysReports();
    void boundingRectPropertyAsksTheSubclass();
    void enumsAreRegistered();
    void cosyOfADirection();
    void privateStateIsCopyable();
    void constructionDoesNotShow();
    void registrationDuringConstructionIsSafe();
    void setVisibleReportsAlways();
    void selectionIsIndependentOfTheParent();
    void setCanvasComparesExactly_data();
    void setCanvasComparesExactly();
    void setCanvasComputesTheTransformFirst();
    void onCanvasChangedTakesItsEdges_data();
    void onCanvasChangedTakesItsEdges();
    void onAxisInvertedTakesItsDirection_data();
    void onAxisInvertedTakesItsDirection();
    void mapsBetweenDataAndPixels();
    void mapToPixelTruncatesAndClamps_data();
    void mapToPixelTruncatesAndClamps();
    void resizeAndMoveReportData();
    void coordinateIsClipped();
    void plotCanTakeOverPainting();
    void drawPointsUsesStyleAndCanvas_data();
    void drawPointsUsesStyleAndCanvas();
    void deletionInASlotIsSafe_data();
    void deletionInASlotIsSafe();
};

void TestBaseChannel::properties_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("initial");
    QTest::addColumn<QVariant>("changed");
    QTest::addColumn<QStringList>("signalsSent");
    QTest::addColumn<Repaint>("repaint");
    QTest::addColumn<QStringList>("signalsSentAgain");
    const QStringList none;
    using V = QVariant;
    QTest::newRow("name") << QByteArray("name") << V(QString()) << V("load") << none << Repaint::No << none;
    QTest::newRow("canvas") << QByteArray("canvas") << V(QRectF()) << V(QRectF(1, 2, 3, 4))
                            << QStringList("canvas 1 2 3 4") << Repaint::Yes << none;
    QTest::newRow("cosyX") << QByteArray("cosyX") << V(1) << V(8) << QStringList("cosyX 8") << Repaint::No
                           << none;
    QTest::newRow("cosyY") << QByteArray("cosyY") << V(1) << V(0x8000) << QStringList("cosyY 32768")
                           << Repaint::No << none;
    QTest::newRow("lineStyle") << QByteArray("lineStyle") << V(int(Qt::SolidLine)) << V(int(Qt::DotLine))
                               << none << Repaint::Yes << none;
    QTest::newRow("pointStyle") << QByteArray("pointStyle") << V(0) << V(3) << none << Repaint::Yes << none;
    QTest::newRow("lineWidth") << QByteArray("lineWidth") << V(1) << V(4) << none << Repaint::Yes << none;
    QTest::newRow("pointSize never repaints")
        << QByteArray("pointSize") << V(3) << V(7) << none << Repaint::No << none;
    QTest::newRow("pointColor") << QByteArray("pointColor") << V(QColor(Qt::black)) << V(QColor(Qt::red))
                                << none << Repaint::Yes << none;
    QTest::newRow("lineColor") << QByteArray("lineColor") << V(QColor(Qt::black)) << V(QColor(Qt::red))
                               << none << Repaint::Yes << none;
    QTest::newRow("fillColor") << QByteArray("fillColor") << V(QColor(Qt::transparent)) << V(QColor(Qt::red))
                               << none << Repaint::Yes << none;
    QTest::newRow("fillStyle") << QByteArray("fillStyle") << V(int(Qt::SolidPattern))
                               << V(int(Qt::Dense3Pattern)) << none << Repaint::Yes << none;
    QTest::newRow("antialiasing") << QByteArray("antialiasing") << V(false) << V(true)
                                  << QStringList("antialiasing 1") << Repaint::Yes << none;
    QTest::newRow("useForScaling reports always")
        << QByteArray("useForScaling") << V(true) << V(false) << QStringList("boundingRect 1 2 3 4")
        << Repaint::No << QStringList("boundingRect 1 2 3 4");
    QTest::newRow("showInLegend is silent")
        << QByteArray("showInLegend") << V(true) << V(false) << none << Repaint::No << none;
}

void TestBaseChannel::properties()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, initial);
    QFETCH(QVariant, changed);
    QFETCH(QStringList, signalsSent);
    QFETCH(Repaint, repaint);
    QFETCH(QStringList, signalsSentAgain);

    TestChannel channel;
    const auto value = [&] {
        const QVariant read = channel.property(name);
        return read.userType() == initial.userType() ? read : QVariant(read.toInt());
    };
    QCOMPARE(value(), initial);

    channel.resize(50, 40);
    channel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    QCoreApplication::processEvents();
    SignalLog log(&channel);
    int paints = channel.m_paints;

    QVERIFY(channel.setProperty(name, changed));
    QCOMPARE(value(), changed);
    QCOMPARE(log.take(), signalsSent);
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints - paints, repaint == Repaint::Yes ? 1 : 0);

    paints = channel.m_paints;
    QVERIFY(channel.setProperty(name, changed));
    QCOMPARE(log.take(), signalsSentAgain);
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints);
}

void TestBaseChannel::useForScalingAlwaysReports()
{
    TestChannel channel;
    QSignalSpy spy(&channel, &ZrQtBaseChannel::boundingRectChanged);
    channel.setUseForScaling(true);
    channel.setUseForScaling(true);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toRectF(), QRectF(1, 2, 3, 4));
}

void TestBaseChannel::boundingRectPropertyAsksTheSubclass()
{
    TestChannel channel;
    channel.m_boundingRect = QRectF(5, 6, 7, 8);
    QCOMPARE(channel.property("boundingRect").toRectF(), QRectF(5, 6, 7, 8));
    QVERIFY(!channel.setProperty("boundingRect", QRectF()));
}

void TestBaseChannel::enumsAreRegistered()
{
    TestChannel channel;
    const QMetaEnum styles = QMetaEnum::fromType<ZrQtBaseChannel::PointStyle>();
    QCOMPARE(styles.keyCount(), 5);
    QCOMPARE(styles.keyToValue("PointStyle_None"), 0);
    QCOMPARE(styles.keyToValue("PointStyle_Rectangle"), 1);
    QCOMPARE(styles.keyToValue("PointStyle_Circle"), 2);
    QCOMPARE(styles.keyToValue("PointStyle_Cross"), 3);
    QCOMPARE(styles.keyToValue("PointStyle_X"), 4);
    // As forms store them: by key.
    QVERIFY(channel.setProperty("pointStyle", "PointStyle_X"));
    QCOMPARE(channel.pointStyle(), ZrQtBaseChannel::PointStyle_X);
    QVERIFY(channel.setProperty("cosyX", "COSY_3"));
    QCOMPARE(channel.cosyX(), ZrQtPlot::COSY_3);
}

void TestBaseChannel::cosyOfADirection()
{
    TestChannel channel;
    channel.setCosyX(ZrQtPlot::COSY_2);
    channel.setCosyY(ZrQtPlot::COSY_5);
    QCOMPARE(channel.cosy(ZrQtPlot::Axis_X), ZrQtPlot::COSY_2);
    QCOMPARE(channel.cosy(ZrQtPlot::Axis_Y), ZrQtPlot::COSY_5);
    QCOMPARE(channel.cosy(static_cast<ZrQtPlot::PlotAxis>(3)), ZrQtPlot::COSY_5);
}

void TestBaseChannel::signalsCanBeSpied()
{
    TestChannel channel;
    // A type that is not registered by its name would make the spy print a warning.
    QSignalSpy spy(&channel, &ZrQtBaseChannel::cosyXChanged);
    channel.setCosyX(ZrQtPlot::COSY_2);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_2);
}

void TestBaseChannel::privateStateIsCopyable()
{
    static_assert(std::is_copy_constructible_v<ZrQtBaseChannelPrivate>);
    static_assert(std::is_copy_assignable_v<ZrQtBaseChannelPrivate>);
    static_assert(std::has_virtual_destructor_v<ZrQtBaseChannelPrivate>);
}

void TestBaseChannel::constructionDoesNotShow()
{
    QWidget parent;
    TestChannel channel(&parent);
    QCOMPARE(channel.parentWidget(), &parent);
    QVERIFY(!channel.isSelectedForDisplay());
    QVERIFY(!channel.isVisible());
    QVERIFY(!channel.testAttribute(Qt::WA_WState_ExplicitShowHide));
    QCOMPARE(channel.m_transformUpdates, 0);
}

void TestBaseChannel::registrationDuringConstructionIsSafe()
{
    Registrar registrar;
    QList<QRectF> extents;
    int registered = 0;
    registrar.m_onChild = [&](ZrQtBaseChannel *channel) {
        ++registered;
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, &registrar,
                [&](const QRectF &rect) { extents << rect; });
        channel->onCanvasChanged(QRectF(0, 0, 10, 10), ZrQtPlot::COSY_0);
        channel->onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, true);
        channel->setUseForScaling(true);
        channel->setVisible(true);
        channel->setGeometry(0, 0, 20, 20);
        registrar.show();
        channel->repaint();
    };
    TestChannel channel(&registrar);
    QCOMPARE(registered, 1);
    // No subclass could tell its extent yet.
    QVERIFY(extents.count() >= 2);
    for (const QRectF &extent : qAsConst(extents))
        QVERIFY(extent.isNull());
    QCOMPARE(channel.canvas(), QRectF(0, 0, 10, 10));
    extents.clear();
    channel.setVisible(true);
    QCOMPARE(extents, QList<QRectF>{QRectF(1, 2, 3, 4)});
}

void TestBaseChannel::setVisibleReportsAlways()
{
    QWidget parent;
    TestChannel channel(&parent);
    SignalLog log(&channel);
    bool selectedWhenReported = false;
    connect(&channel, &ZrQtBaseChannel::visibilityChanged, &channel,
            [&] { selectedWhenReported = channel.isSelectedForDisplay(); });
    const QStringList shown{"visibility 1", "boundingRect 1 2 3 4"};
    channel.setVisible(true);
    QCOMPARE(log.take(), shown);
    QVERIFY(selectedWhenReported);
    channel.show();
    QCOMPARE(log.take(), shown);
    channel.hide();
    const QStringList hidden{"visibility 0", "boundingRect 1 2 3 4"};
    QCOMPARE(log.take(), hidden);
    QVERIFY(!selectedWhenReported);
    channel.setVisible(false);
    QCOMPARE(log.take(), hidden);
}

void TestBaseChannel::selectionIsIndependentOfTheParent()
{
    QWidget parent;
    TestChannel channel(&parent);
    channel.setVisible(true);
    QVERIFY(!channel.isVisible());
    QVERIFY(channel.isSelectedForDisplay());
    parent.show();
    parent.hide();
    QVERIFY(channel.isSelectedForDisplay());
    channel.hide();
    parent.show();
    QVERIFY(!channel.isSelectedForDisplay());
}

void TestBaseChannel::setCanvasComparesExactly_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<bool>("changes");
    const double ulp = 4e-16;
    QTest::newRow("same") << QRectF(1, 1, 1, 1) << false;
    QTest::newRow("left") << QRectF(1 + ulp, 1, 1, 1) << true;
    QTest::newRow("top") << QRectF(1, 1 + ulp, 1, 1) << true;
    QTest::newRow("width") << QRectF(1, 1, 1 + ulp, 1) << true;
    QTest::newRow("height") << QRectF(1, 1, 1, 1 + ulp) << true;
}

void TestBaseChannel::setCanvasComparesExactly()
{
    QFETCH(QRectF, canvas);
    QFETCH(bool, changes);
    TestChannel channel;
    channel.setCanvas(QRectF(1, 1, 1, 1));
    QSignalSpy spy(&channel, &ZrQtBaseChannel::canvasChanged);
    const int before = channel.m_transformUpdates;
    channel.setCanvas(canvas);
    QCOMPARE(spy.count(), changes ? 1 : 0);
    QCOMPARE(channel.m_transformUpdates - before, changes ? 1 : 0);
}

void TestBaseChannel::setCanvasComputesTheTransformFirst()
{
    TestChannel channel;
    channel.resize(200, 100);
    QPoint whenReported;
    connect(&channel, &ZrQtBaseChannel::canvasChanged, &channel,
            [&] { whenReported = channel.mapToPixel(QPointF(50, 10)); });
    channel.setCanvas(QRectF(0, 0, 100, 10));
    QCOMPARE(whenReported, QPoint(100, 0));
}

void TestBaseChannel::onCanvasChangedTakesItsEdges_data()
{
    QTest::addColumn<int>("cosyX");
    QTest::addColumn<int>("cosyY");
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<QStringList>("signalsSent");
    QTest::newRow("x only") << 2 << 1 << QRectF(10, 1, 30, 1) << QStringList("canvas 10 1 30 1");
    QTest::newRow("y only") << 1 << 2 << QRectF(1, 20, 1, 40) << QStringList("canvas 1 20 1 40");
    QTest::newRow("both") << 2 << 2 << QRectF(10, 20, 30, 40) << QStringList("canvas 10 20 30 40");
    QTest::newRow("none") << 1 << 4 << QRectF(1, 1, 1, 1) << QStringList();
}

void TestBaseChannel::onCanvasChangedTakesItsEdges()
{
    QFETCH(int, cosyX);
    QFETCH(int, cosyY);
    QFETCH(QStringList, signalsSent);
    TestChannel channel;
    channel.setCanvas(QRectF(1, 1, 1, 1));
    channel.setCosyX(static_cast<ZrQtPlot::CoordinateSystem>(cosyX));
    channel.setCosyY(static_cast<ZrQtPlot::CoordinateSystem>(cosyY));
    SignalLog log(&channel);
    const int before = channel.m_transformUpdates;
    channel.onCanvasChanged(QRectF(10, 20, 30, 40), ZrQtPlot::COSY_1);
    QTEST(channel.canvas(), "canvas");
    QCOMPARE(log.take(), signalsSent);
    QCOMPARE(channel.m_transformUpdates - before, signalsSent.size());
}

void TestBaseChannel::onAxisInvertedTakesItsDirection_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<int>("cosy");
    QTest::addColumn<QPoint>("pixelOfOrigin");
    QTest::newRow("x") << 1 << 2 << QPoint(200, 100);
    QTest::newRow("y") << 2 << 4 << QPoint(0, 0);
    QTest::newRow("x of another system") << 1 << 4 << QPoint(0, 100);
    QTest::newRow("y of another system") << 2 << 2 << QPoint(0, 100);
}

void TestBaseChannel::onAxisInvertedTakesItsDirection()
{
    QFETCH(int, axis);
    QFETCH(int, cosy);
    TestChannel channel;
    channel.resize(200, 100);
    channel.setCosyX(ZrQtPlot::COSY_1);
    channel.setCosyY(ZrQtPlot::COSY_2);
    channel.setCanvas(QRectF(0, 0, 100, 10));
    const auto invert = [&](bool inverted) {
        const int before = channel.m_transformUpdates;
        channel.onAxisInverted(static_cast<ZrQtPlot::PlotAxis>(axis),
                               static_cast<ZrQtPlot::CoordinateSystem>(cosy), inverted);
        return channel.m_transformUpdates - before;
    };
    QCOMPARE(invert(true), 1);
    QTEST(channel.mapToPixel(QPointF(0, 0)), "pixelOfOrigin");
    QCOMPARE(invert(false), 1);
    QCOMPARE(channel.mapToPixel(QPointF(0, 0)), QPoint(0, 100));
}

void TestBaseChannel::mapsBetweenDataAndPixels()
{
    TestChannel channel;
    channel.resize(200, 100);
    channel.setCanvas(QRectF(0, 0, 100, 10));
    QCOMPARE(channel.mapToPixel(QPointF(50, 10)), QPoint(100, 0));
    QCOMPARE(channel.mapToPixel(QPointF(50, 0)), QPoint(100, 100));
    QCOMPARE(channel.mapToData(QPoint(100, 0)), QPointF(50, 10));
    QCOMPARE(channel.mapToData(QPoint(0, 100)), QPointF(0, 0));
    channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, true);
    QCOMPARE(channel.mapToPixel(QPointF(0, 5)).x(), 200);
    QCOMPARE(channel.mapToData(QPoint(200, 100)), QPointF(0, 0));
    channel.setCanvas(QRectF(0, 0, 2e15, 10)); // far less than a pixel to the unit
    QCOMPARE(channel.mapToData(QPoint(100, 0)), QPointF(1e15, 10));
}

void TestBaseChannel::mapToPixelTruncatesAndClamps_data()
{
    QTest::addColumn<QPointF>("value");
    QTest::addColumn<QPoint>("pixel");
    QTest::newRow("towards zero") << QPointF(10.9, 100.9) << QPoint(10, 0);
    QTest::newRow("beyond int") << QPointF(1e12, -1e12) << QPoint(INT_MAX, INT_MAX);
    QTest::newRow("below int") << QPointF(-1e12, 1e300) << QPoint(INT_MIN, INT_MIN);
    QTest::newRow("infinity") << QPointF(infinity, 0) << QPoint(INT_MAX, 0);
}

void TestBaseChannel::mapToPixelTruncatesAndClamps()
{
    QFETCH(QPointF, value);
    QFETCH(QPoint, pixel);
    TestChannel channel;
    channel.resize(100, 100);
    channel.setCanvas(QRectF(0, 0, 100, 100)); // one pixel to the unit; y = 100 is pixel 0
    QCOMPARE(channel.mapToPixel(value).x(), pixel.x());
    if (!std::isinf(value.x()))
        QCOMPARE(channel.mapToPixel(value).y(), pixel.y());
    // Without a canvas there is no pixel to tell, but no undefined conversion either.
    channel.setCanvas(QRectF(0, 0, notANumber, 0));
    QCOMPARE(channel.mapToPixel(QPointF(1, 1)).x(), 0);
}

void TestBaseChannel::resizeAndMoveReportData()
{
    TestChannel channel;
    channel.setCosyX(ZrQtPlot::COSY_1);
    channel.setCosyY(ZrQtPlot::COSY_3);
    channel.setCanvas(QRectF(0, 0, 100, 10));
    channel.resize(100, 50);
    channel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    SignalLog log(&channel);
    int before = channel.m_transformUpdates;
    channel.resize(200, 100);
    QCOMPARE(log.take(), QStringList("data 2 8"));
    QCOMPARE(channel.m_transformUpdates - before, 1);
    QCOMPARE(channel.mapToPixel(QPointF(50, 0)), QPoint(100, 100));
    before = channel.m_transformUpdates;
    channel.move(channel.pos() + QPoint(7, 9));
    QCOMPARE(log.take(), QStringList("data 2 8"));
    QCOMPARE(channel.m_transformUpdates - before, 1);
}

void TestBaseChannel::coordinateIsClipped()
{
    using Private = ZrQtBaseChannelPrivate;
    QVERIFY(Private::clipCoordinateValueToSupportedRange(-1e308) == -1e300);
    QVERIFY(Private::clipCoordinateValueToSupportedRange(infinity) == 1e300);
    QVERIFY(std::isnan(Private::clipCoordinateValueToSupportedRange(notANumber)));
}

void TestBaseChannel::plotCanTakeOverPainting()
{
    TestChannel channel;
    channel.resize(50, 40);
    channel.grab();
    QCOMPARE(channel.m_paints, 1);
    channel.state().updatesViaPlot = true;
    channel.grab();
    QCOMPARE(channel.m_paints, 1);
}

void TestBaseChannel::drawPointsUsesStyleAndCanvas_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("atCenter");
    QTest::addColumn<bool>("reachesBeyondItsSize");
    QTest::addColumn<bool>("outsideCanvas");
    QTest::newRow("none") << 0 << false << false << false;
    QTest::newRow("rectangle") << 1 << true << false << false;
    QTest::newRow("circle") << 2 << true << false << false;
    QTest::newRow("cross") << 3 << true << true << true;
    QTest::newRow("X") << 4 << true << false << true;
    QTest::newRow("unknown") << 9 << false << false << false;
}

void TestBaseChannel::drawPointsUsesStyleAndCanvas()
{
    QFETCH(int, style);
    TestChannel channel;
    channel.resize(100, 100);
    channel.setCanvas(QRectF(0, 0, 100, 50)); // the upper half of a unit is two pixels high
    channel.setPointStyle(static_cast<ZrQtBaseChannel::PointStyle>(style));
    channel.setPointSize(9);
    channel.setPointColor(Qt::red);
    channel.m_points = {{50, 25}, {-3, 25}};
    const QImage image = channel.grab().toImage();
    const QColor red(Qt::red);
    QTEST(image.pixelColor(50, 50) == red, "atCenter");
    QTEST(image.pixelColor(50, 50 - 8) == red, "reachesBeyondItsSize");
    const bool outside = image.pixelColor(0, 50) == red || image.pixelColor(3, 50 - 6) == red;
    QTEST(outside, "outsideCanvas");
}

void TestBaseChannel::deletionInASlotIsSafe_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("visibilityChanged") << 0;
    QTest::newRow("antialiasingChanged") << 1;
    QTest::newRow("boundingRectChanged") << 2;
    QTest::newRow("canvasChanged") << 3;
}

void TestBaseChannel::deletionInASlotIsSafe()
{
    QFETCH(int, signal);
    QWidget parent;
    auto *channel = new TestChannel(&parent);
    const QPointer<TestChannel> alive(channel);
    const auto drop = [channel] { delete channel; };
    switch (signal) {
    case 0:
        connect(channel, &ZrQtBaseChannel::visibilityChanged, &parent, drop);
        channel->setVisible(false);
        break;
    case 1:
        connect(channel, &ZrQtBaseChannel::antialiasingChanged, &parent, drop);
        channel->setAntialiasing(true);
        break;
    case 2:
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, &parent, drop);
        channel->setUseForScaling(true);
        break;
    default:
        connect(channel, &ZrQtBaseChannel::canvasChanged, &parent, drop);
        channel->onCanvasChanged(QRectF(0, 0, 1, 1), ZrQtPlot::COSY_0);
        break;
    }
    QVERIFY(!alive);
}

QTEST_MAIN(TestBaseChannel)
#include "tst_zrqtbasechannel.moc"
