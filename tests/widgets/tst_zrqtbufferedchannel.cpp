#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel_p.h"
#include "shared/quiettest.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;
using Values = QVector<double>;

class TestChannel : public ZrQtBufferedChannel
{
    Q_OBJECT

public:
    explicit TestChannel(QWidget *parent = nullptr)
        : ZrQtBufferedChannel(parent)
    {
    }

    ZrQtBufferedChannelPrivate &state() { return static_cast<ZrQtBufferedChannelPrivate &>(*m_d); }
    Points points() { return state().points; }

    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++m_paints;
        ZrQtBufferedChannel::paintEvent(event);
    }
};

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
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, this, [this](const QRectF &r) {
            m_log << QString::asprintf("boundingRect %g %g %g %g", r.x(), r.y(), r.width(), r.height());
        });
    }

    QStringList take() { return std::exchange(m_log, QStringList()); }

private:
    QStringList m_log;
};

/// The channel's picture on white: 100 x 100 pixels, canvas (0, 0, 100 x 100) unless another one is set.
QImage picture(ZrQtBufferedChannel &channel)
{
    QImage image(channel.size().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    channel.paint(painter);
    painter.end();
    return image;
}

int countOf(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

} // namespace

class TestBufferedChannel : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmptyAndSelectedForDisplay();
    void privateStateIsCopyableAndMovable();
    void slotsAreInvokable();
    void channelNrIsSilent();
    void xAndYGivePoints();
    void sizesMustMatch();
    void sizesMustMatchSilentlyWithRectangle();
    void dataWithRectangleIsNotCompared();
    void orderOfSignals();
    void samePointsAreNotReported();
    void fuzzilyEqualPointsAreNotReported();
    void pointsBeyondTheRangeNeverCompareEqual_data();
    void pointsBeyondTheRangeNeverCompareEqual();
    void pointsStayShared();
    void boundingRectIsAppliedInAnyCase();
    void evenlySpacedForms_data();
    void evenlySpacedForms();
    void evenlySpacedXIsSummedUp();
    void coordinatesAreClipped_data();
    void coordinatesAreClipped();
    void boundingRectComparesFuzzily_data();
    void boundingRectComparesFuzzily();
    void boundingRectIsClipped();
    void clearRemovesAll();
    void clearOfAnEmptyChannelIsSilent();
    void repaints();
    void reduceToIsTheWidth();
    void polylineIsDrawn();
    void hiddenChannelDrawsNothing();
    void mirroredCanvasIsDrawn();
    void lineNeedsWidthAndStyle_data();
    void lineNeedsWidthAndStyle();
    void lineWidthStaysInPixels();
    void offsetIsSnappedToPixels();
    void invertedXUsesThePlainOffset();
    void markersNeedStyleAndSize_data();
    void markersNeedStyleAndSize();
    void crossesHaveTheWidthOfTheLine();
    void antialiasingIsApplied();
    void transformOfThePainterIsKept();
    void oddCanvasAndDataDrawWithoutTrouble_data();
    void oddCanvasAndDataDrawWithoutTrouble();
    void channelMayBeDeletedInASlot_data();
    void channelMayBeDeletedInASlot();

private:
    static void prepare(ZrQtBufferedChannel &channel)
    {
        channel.resize(100, 100);
        channel.setCanvas(QRectF(0, 0, 100, 100));
        channel.setLineColor(Qt::red);
        channel.setPointColor(Qt::blue);
    }
};

void TestBufferedChannel::startsEmptyAndSelectedForDisplay()
{
    QWidget parent;
    TestChannel channel(&parent);
    QCOMPARE(channel.parentWidget(), &parent);
    QVERIFY(channel.isSelectedForDisplay());
    QVERIFY(channel.points().isEmpty());
    QVERIFY(channel.boundingRect().isNull());
    QCOMPARE(channel.channelNr(), 0);
}

void TestBufferedChannel::privateStateIsCopyableAndMovable()
{
    using Private = ZrQtBufferedChannelPrivate;
    static_assert(std::is_copy_constructible_v<Private> && std::is_copy_assignable_v<Private>);
    static_assert(std::is_move_constructible_v<Private> && std::is_move_assignable_v<Private>);
}

void TestBufferedChannel::slotsAreInvokable()
{
    const QMetaObject &meta = ZrQtBufferedChannel::staticMetaObject;
    for (const char *slot :
         {"setData(QVector<double>,QVector<double>)", "setData(QVector<double>,QVector<double>,QRectF)",
          "setData(QVector<QPointF>)", "setData(QVector<QPointF>,QRectF)", "setData(QVector<double>)",
          "setData(QVector<double>,double)", "setData(QVector<double>,double,double)",
          "setBoundingRect(QRectF)", "setChannelNr(int)", "clear()"}) {
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    }
}

void TestBufferedChannel::channelNrIsSilent()
{
    TestChannel channel;
    SignalLog log(&channel);
    QVERIFY(channel.setProperty("channelNr", 7));
    QCOMPARE(channel.channelNr(), 7);
    QCOMPARE(channel.property("channelNr").toInt(), 7);
    QCOMPARE(log.take(), QStringList());
}

void TestBufferedChannel::xAndYGivePoints()
{
    TestChannel channel;
    channel.setData(Values{1, 3, 2}, Values{4, -6, 5});
    QCOMPARE(channel.points(), (Points{{1, 4}, {3, -6}, {2, 5}}));
    QCOMPARE(channel.boundingRect(), QRectF(1, -6, 2, 11));
}

void TestBufferedChannel::sizesMustMatch()
{
    TestChannel channel;
    channel.setData(Values{1, 2}, Values{3, 4});
    SignalLog log(&channel);
    expectMessage("^dataX and dataY have different sizes$");
    static QtMsgType type;
    static QByteArray file;
    static QByteArray function;
    static int line;
    static QtMessageHandler previous;
    previous = qInstallMessageHandler([](QtMsgType t, const QMessageLogContext &c, const QString &text) {
        type = t;
        file = c.file;
        function = c.function;
        line = c.line;
        previous(t, c, text);
    });
    channel.setData(Values{1, 2, 3}, Values{4, 5});
    qInstallMessageHandler(previous);
    QCOMPARE(type, QtWarningMsg);
    QVERIFY(file.endsWith("zrqtbufferedchannel.cpp"));
    QVERIFY(
        function.contains("ZrQtBufferedChannel::setData(const QVector<double>&, const QVector<double>&)"));
    QVERIFY(line > 0);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(channel.points(), (Points{{1, 3}, {2, 4}}));
}

void TestBufferedChannel::sizesMustMatchSilentlyWithRectangle()
{
    TestChannel channel;
    channel.setData(Values{1, 2}, Values{3, 4});
    SignalLog log(&channel);
    channel.setData(Values{1, 2, 3}, Values{4, 5}, QRectF(0, 0, 9, 9));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(channel.points(), (Points{{1, 3}, {2, 4}}));
    QCOMPARE(channel.boundingRect(), QRectF(1, 3, 1, 1));
}

void TestBufferedChannel::dataWithRectangleIsNotCompared()
{
    TestChannel channel;
    SignalLog log(&channel);
    channel.setData(Values{1, 2}, Values{3, 4}, QRectF(0, 0, 9, 9));
    QCOMPARE(log.take(), (QStringList{"boundingRect 0 0 9 9", "data 1 1"}));
    channel.setData(Values{1, 2}, Values{3, 4}, QRectF(0, 0, 9, 9));
    QCOMPARE(log.take(), QStringList("data 1 1"));
    QCOMPARE(channel.points(), (Points{{1, 3}, {2, 4}}));
    // Also after points that the caller still holds.
    const Points shared{{5, 5}};
    channel.setData(shared);
    channel.setData(Values{1}, Values{3}, QRectF());
    QCOMPARE(shared, (Points{{5, 5}}));
}

void TestBufferedChannel::orderOfSignals()
{
    TestChannel channel;
    channel.setCosyX(ZrQtPlot::COSY_1);
    channel.setCosyY(ZrQtPlot::COSY_2);
    SignalLog log(&channel);
    const QStringList dataFirst{"data 2 4", "boundingRect 0 1 2 3"};
    const Points points{{0, 1}, {2, 4}};
    channel.setData(points);
    QCOMPARE(log.take(), dataFirst);
    channel.clear();
    log.take();
    channel.setData(points, QRectF(0, 1, 2, 3));
    QCOMPARE(log.take(), dataFirst);
    channel.clear();
    log.take();
    channel.setData(Values{0, 2}, Values{1, 4});
    QCOMPARE(log.take(), dataFirst);
    channel.clear();
    log.take();
    channel.setData(Values{1, 4}, 0.0, 2.0);
    QCOMPARE(log.take(), dataFirst);
    // The new points are stored, the new rectangle is not, when dataChanged is sent.
    QRectF rectWhenReported;
    Points pointsWhenReported;
    connect(&channel, &ZrQtBaseChannel::dataChanged, &channel, [&] {
        rectWhenReported = channel.boundingRect();
        pointsWhenReported = channel.points();
    });
    channel.setData(Points{{7, 7}});
    QCOMPARE(rectWhenReported, QRectF(0, 1, 2, 3));
    QCOMPARE(pointsWhenReported, (Points{{7, 7}}));
}

void TestBufferedChannel::samePointsAreNotReported()
{
    TestChannel channel;
    const Points points{{0, 1}, {2, 4}};
    channel.setData(points);
    SignalLog log(&channel);
    channel.setData(points);
    QCOMPARE(log.take(), QStringList());
    channel.setData(Points{{0, 1}, {2, 4}});
    QCOMPARE(log.take(), QStringList());
    channel.setData(Values{0, 2}, Values{1, 4});
    QCOMPARE(log.take(), QStringList());
    channel.setData(Points{{0, 1}});
    QCOMPARE(log.take().size(), 2);
}

void TestBufferedChannel::fuzzilyEqualPointsAreNotReported()
{
    TestChannel channel;
    channel.setData(Points{{1, 1}});
    SignalLog log(&channel);
    channel.setData(Points{{1 + 1e-14, 1}});
    QCOMPARE(log.take(), QStringList());
    channel.setData(Points{{1 + 1e-9, 1}});
    QCOMPARE(log.take().size(), 2);
}

void TestBufferedChannel::pointsBeyondTheRangeNeverCompareEqual_data()
{
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("reportedAgain");
    QTest::newRow("inside") << 1e300 << false;
    QTest::newRow("beyond") << 1e305 << true;
    QTest::newRow("infinity") << -infinity << true;
    QTest::newRow("NaN") << notANumber << true;
}

void TestBufferedChannel::pointsBeyondTheRangeNeverCompareEqual()
{
    QFETCH(double, y);
    QFETCH(bool, reportedAgain);
    TestChannel channel;
    const Points points{{0, 0}, {1, y}};
    channel.setData(points, QRectF(0, 0, 1, 1));
    SignalLog log(&channel);
    channel.setData(points, QRectF(0, 0, 1, 1));
    QCOMPARE(log.take(), reportedAgain ? QStringList("data 1 1") : QStringList());
    channel.setData(Values{0, 1}, Values{0, y}, QRectF(0, 0, 1, 1));
    log.take();
    channel.setData(points, QRectF(0, 0, 1, 1));
    QCOMPARE(log.take(), reportedAgain ? QStringList("data 1 1") : QStringList());
}

void TestBufferedChannel::pointsStayShared()
{
    TestChannel channel;
    const Points points{{0, 1}, {2, notANumber}};
    channel.setData(points);
    QCOMPARE(channel.points().constData(), points.constData());
    const Points beyond{{0, 1}, {2, 1e305}};
    channel.setData(beyond);
    QVERIFY(channel.points().constData() != beyond.constData());
    QCOMPARE(beyond.at(1).y(), 1e305);
}

void TestBufferedChannel::boundingRectIsAppliedInAnyCase()
{
    TestChannel channel;
    const Points points{{0, 1}, {2, 4}};
    channel.setData(points, QRectF(0, 0, 5, 5));
    SignalLog log(&channel);
    channel.setData(points, QRectF(0, 0, 6, 6));
    QCOMPARE(log.take(), QStringList("boundingRect 0 0 6 6"));
    QCOMPARE(channel.boundingRect(), QRectF(0, 0, 6, 6));
}

void TestBufferedChannel::evenlySpacedForms_data()
{
    QTest::addColumn<int>("arguments");
    QTest::addColumn<Points>("points");
    QTest::newRow("values only") << 1 << Points{{0, 5}, {1, 6}, {2, 7}};
    QTest::newRow("with start") << 2 << Points{{10, 5}, {11, 6}, {12, 7}};
    QTest::newRow("with start and step") << 3 << Points{{10, 5}, {10.5, 6}, {11, 7}};
}

void TestBufferedChannel::evenlySpacedForms()
{
    QFETCH(int, arguments);
    TestChannel channel;
    if (arguments == 1)
        channel.setData({5, 6, 7});
    else if (arguments == 2)
        channel.setData({5, 6, 7}, 10.0);
    else
        channel.setData({5, 6, 7}, 10.0, 0.5);
    QTEST(channel.points(), "points");
    QFETCH(Points, points);
    QCOMPARE(channel.boundingRect(), QPolygonF(points).boundingRect());
}

void TestBufferedChannel::evenlySpacedXIsSummedUp()
{
    TestChannel channel;
    channel.setData(Values(11, 0.0), 0.0, 0.1);
    double x = 0.0;
    for (int i = 0; i < 10; ++i)
        x += 0.1;
    QVERIFY(x != 10 * 0.1);
    QVERIFY(channel.points().at(10).x() == x);
}

void TestBufferedChannel::coordinatesAreClipped_data()
{
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("stored");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("bottom");
    QTest::newRow("infinity") << infinity << 1e300 << 0.0 << 1e300;
    QTest::newRow("minus infinity") << -infinity << -1e300 << -1e300 << 0.0;
    QTest::newRow("beyond") << 1e308 << 1e300 << 0.0 << 1e300;
    QTest::newRow("below") << -1e308 << -1e300 << -1e300 << 0.0;
    QTest::newRow("inside") << -5.0 << -5.0 << -5.0 << 0.0;
    QTest::newRow("NaN") << notANumber << notANumber << 0.0 << 0.0;
}

void TestBufferedChannel::coordinatesAreClipped()
{
    QFETCH(double, y);
    QFETCH(double, stored);
    QFETCH(double, top);
    QFETCH(double, bottom);
    for (const bool separateVectors : {false, true}) {
        TestChannel channel;
        if (separateVectors)
            channel.setData(Values{0, 1}, Values{0, y});
        else
            channel.setData(Points{{0, 0}, {1, y}});
        const double actual = channel.points().at(1).y();
        QVERIFY(actual == stored || (std::isnan(actual) && std::isnan(stored)));
        QCOMPARE(channel.boundingRect().top(), top);
        QCOMPARE(channel.boundingRect().bottom(), bottom);
    }
    TestChannel channel;
    channel.setData(Values{y, 1}, Values{0, 1}, QRectF(0, 0, 1, 1));
    const double actual = channel.points().at(0).x();
    QVERIFY(actual == stored || (std::isnan(actual) && std::isnan(stored)));
}

void TestBufferedChannel::boundingRectComparesFuzzily_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<bool>("changes");
    QTest::newRow("same") << QRectF(1, 2, 3, 4) << false;
    QTest::newRow("14th digit") << QRectF(1.0000000000001, 2, 3, 4) << false;
    QTest::newRow("11th digit") << QRectF(1.0000000001, 2, 3, 4) << true;
    QTest::newRow("width") << QRectF(1, 2, 3.1, 4) << true;
    QTest::newRow("height") << QRectF(1, 2, 3, 4.1) << true;
    QTest::newRow("top") << QRectF(1, 2.1, 3, 4) << true;
}

void TestBufferedChannel::boundingRectComparesFuzzily()
{
    QFETCH(QRectF, rect);
    QFETCH(bool, changes);
    TestChannel channel;
    channel.setBoundingRect(QRectF(1, 2, 3, 4));
    QSignalSpy spy(&channel, &ZrQtBaseChannel::boundingRectChanged);
    channel.setBoundingRect(rect);
    QCOMPARE(spy.count(), changes ? 1 : 0);
}

void TestBufferedChannel::boundingRectIsClipped()
{
    TestChannel channel;
    QSignalSpy spy(&channel, &ZrQtBaseChannel::boundingRectChanged);
    channel.setBoundingRect(QRectF(QPointF(-1e308, 0), QPointF(5, 1e308)));
    const QRectF clipped(QPointF(-1e300, 0), QPointF(5, 1e300));
    QCOMPARE(channel.boundingRect(), clipped);
    QCOMPARE(spy.at(0).at(0).toRectF(), clipped);
}

void TestBufferedChannel::clearRemovesAll()
{
    TestChannel channel;
    channel.setData(Points{{0, 1}, {2, 4}});
    SignalLog log(&channel);
    channel.clear();
    QCOMPARE(log.take(), (QStringList{"data 1 1", "boundingRect 0 0 0 0"}));
    QVERIFY(channel.points().isEmpty());
    QVERIFY(channel.boundingRect().isNull());
}

void TestBufferedChannel::clearOfAnEmptyChannelIsSilent()
{
    TestChannel channel;
    SignalLog log(&channel);
    channel.clear();
    QCOMPARE(log.take(), QStringList());
    channel.setData(Points{{1, 1}}, QRectF());
    log.take();
    channel.clear();
    QCOMPARE(log.take(), QStringList("data 1 1"));
}

void TestBufferedChannel::repaints()
{
    TestChannel channel;
    channel.resize(50, 40);
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    QCoreApplication::processEvents();
    const auto paintsAfter = [&channel](auto change) {
        const int before = channel.m_paints;
        change();
        QCoreApplication::processEvents();
        return channel.m_paints - before;
    };
    const Points points{{0, 1}, {2, 4}};
    QCOMPARE(paintsAfter([&] { channel.setData(points); }), 1);
    QCOMPARE(paintsAfter([&] { channel.setData(points); }), 0);
    QCOMPARE(paintsAfter([&] { channel.setData(points, QRectF(0, 0, 9, 9)); }), 0);
    QCOMPARE(paintsAfter([&] { channel.setData(Values{0, 2}, Values{1, 4}, QRectF(0, 0, 9, 9)); }), 1);
    QCOMPARE(paintsAfter([&] { channel.setBoundingRect(QRectF(0, 0, 7, 7)); }), 0);
    QCOMPARE(paintsAfter([&] { channel.setChannelNr(3); }), 0);
    QCOMPARE(paintsAfter([&] { channel.clear(); }), 1);
}

void TestBufferedChannel::reduceToIsTheWidth()
{
    QWidget parent;
    TestChannel channel(&parent);
    channel.resize(123, 10);
    QCOMPARE(channel.reduceTo(), 123);
    channel.resize(1, 10);
    QCOMPARE(channel.reduceTo(), 1);
    channel.resize(0, 10);
    QCOMPARE(channel.reduceTo(), 0);
}

void TestBufferedChannel::polylineIsDrawn()
{
    TestChannel channel;
    prepare(channel);
    channel.setData(Points{{10, 20}, {50, 20}, {50, 70}});
    const QImage image = picture(channel);
    const QColor red(Qt::red);
    QCOMPARE(image.pixelColor(30, 80), red);
    QCOMPARE(image.pixelColor(50, 50), red);
    QCOMPARE(image.pixelColor(8, 80), QColor(Qt::white));
    QCOMPARE(image.pixelColor(30, 50), QColor(Qt::white));
    // Nothing else: 41 pixels across, 50 up.
    QCOMPARE(countOf(image, red), 91);
    QCOMPARE(countOf(image, red) + countOf(image, Qt::white), 100 * 100);
}

void TestBufferedChannel::hiddenChannelDrawsNothing()
{
    TestChannel channel;
    prepare(channel);
    channel.setData(Points{{10, 20}, {50, 20}});
    channel.hide();
    QCOMPARE(countOf(picture(channel), Qt::white), 100 * 100);
}

void TestBufferedChannel::mirroredCanvasIsDrawn()
{
    // Only a canvas without width on a widget without width is nothing to paint on.
    TestChannel channel;
    prepare(channel);
    channel.setCanvas(QRectF(100, 0, -100, 100));
    channel.setData(Points{{30, 0}, {30, 100}});
    QCOMPARE(picture(channel).pixelColor(70, 50), QColor(Qt::red));
}

void TestBufferedChannel::lineNeedsWidthAndStyle_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("solid") << 1 << int(Qt::SolidLine) << true;
    QTest::newRow("dashed") << 1 << int(Qt::DashLine) << true;
    QTest::newRow("no pen") << 1 << int(Qt::NoPen) << false;
    QTest::newRow("no width") << 0 << int(Qt::SolidLine) << false;
    QTest::newRow("negative width") << -3 << int(Qt::SolidLine) << false;
    QTest::newRow("enormous width") << 100000 << int(Qt::SolidLine) << true;
}

void TestBufferedChannel::lineNeedsWidthAndStyle()
{
    QFETCH(int, width);
    QFETCH(int, style);
    QFETCH(bool, drawn);
    TestChannel channel;
    prepare(channel);
    channel.setLineWidth(width);
    channel.setLineStyle(static_cast<Qt::PenStyle>(style));
    channel.setData(Points{{10, 20}, {90, 20}});
    const QImage image = picture(channel);
    QCOMPARE(countOf(image, Qt::red) > 0, drawn);
    if (drawn && style == Qt::DashLine)
        QVERIFY(countOf(image, Qt::red) < 80);
}

void TestBufferedChannel::lineWidthStaysInPixels()
{
    TestChannel channel;
    prepare(channel);
    channel.setCanvas(QRectF(0, 0, 0.01, 1e6));
    channel.setLineWidth(5);
    channel.setData(Points{{-1, 5e5}, {1, 5e5}});
    QCOMPARE(countOf(picture(channel), Qt::red), 5 * 100);
}

void TestBufferedChannel::offsetIsSnappedToPixels()
{
    TestChannel channel;
    prepare(channel);
    channel.setData(Points{{20, 0}, {20, 100}});
    const auto columnAt = [&channel](double left) {
        channel.setCanvas(QRectF(left, 0, 50, 100)); // two pixels to the unit
        const QImage image = picture(channel);
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, 50) == QColor(Qt::red))
                return x;
        }
        return -1;
    };
    QCOMPARE(columnAt(0), 40);
    QCOMPARE(columnAt(10), 20);
    // Without the snapping both would be drawn a pixel further left.
    QCOMPARE(columnAt(10.375), 20);
    QCOMPARE(columnAt(10.4375), 20);
    QCOMPARE(columnAt(10.5), 19);
}

void TestBufferedChannel::invertedXUsesThePlainOffset()
{
    TestChannel channel;
    prepare(channel);
    channel.setCanvas(QRectF(-50, 0, 100, 100));
    channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, true);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Rectangle);
    channel.setPointSize(3);
    channel.setData(Points{{20, 0}, {20, 100}});
    // The offset of a canvas that starts at -50 is +50 pixels, and of one that ends at 50 as well.
    QCOMPARE(picture(channel).pixelColor(30, 50), QColor(Qt::red));
    channel.setCanvas(QRectF(-20, 0, 100, 100));
    const QImage image = picture(channel);
    QCOMPARE(image.pixelColor(0, 50), QColor(Qt::red));  // the line: 20 - 20
    QCOMPARE(image.pixelColor(60, 0), QColor(Qt::blue)); // its marker: 80 - 20
}

void TestBufferedChannel::markersNeedStyleAndSize_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("none") << 0 << 5 << false;
    QTest::newRow("no size") << 1 << 0 << false;
    QTest::newRow("negative size") << 3 << -5 << false;
    QTest::newRow("rectangle") << 1 << 5 << true;
    QTest::newRow("cross") << 3 << 5 << true;
}

void TestBufferedChannel::markersNeedStyleAndSize()
{
    QFETCH(int, style);
    QFETCH(int, size);
    QFETCH(bool, drawn);
    TestChannel channel;
    prepare(channel);
    channel.setLineWidth(0); // markers do not need the line
    channel.setPointStyle(static_cast<ZrQtBaseChannel::PointStyle>(style));
    channel.setPointSize(size);
    channel.setData(Points{{50, 50}});
    const QImage image = picture(channel);
    QCOMPARE(image.pixelColor(50, 50) == QColor(Qt::blue), drawn);
    QCOMPARE(countOf(image, Qt::blue) > 0, drawn);
}

void TestBufferedChannel::crossesHaveTheWidthOfTheLine()
{
    TestChannel channel;
    prepare(channel);
    channel.setLineWidth(5);
    channel.setLineStyle(Qt::DotLine);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Cross);
    channel.setPointSize(20);
    channel.setData(Points{{50, 50}});
    const QImage image = picture(channel);
    int thickness = 0;
    for (int y = 0; y < 100; ++y)
        thickness += image.pixelColor(60, y) == QColor(Qt::blue) ? 1 : 0;
    QCOMPARE(thickness, 5);
}

void TestBufferedChannel::antialiasingIsApplied()
{
    TestChannel channel;
    prepare(channel);
    channel.setData(Points{{10, 20}, {90, 55}});
    QCOMPARE(countOf(picture(channel), Qt::white) + countOf(picture(channel), Qt::red), 100 * 100);
    channel.setAntialiasing(true);
    QVERIFY(countOf(picture(channel), Qt::white) + countOf(picture(channel), Qt::red) < 100 * 100);
    // And it is taken back for a painter that has it on.
    channel.setAntialiasing(false);
    QImage image(channel.size().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    channel.paint(painter);
    QVERIFY(painter.testRenderHint(QPainter::Antialiasing));
    painter.end();
    QCOMPARE(countOf(image, Qt::white) + countOf(image, Qt::red), 100 * 100);
}

void TestBufferedChannel::transformOfThePainterIsKept()
{
    TestChannel channel;
    prepare(channel);
    channel.setData(Points{{10, 20}, {50, 20}});
    QImage image(channel.size().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QTransform shift = QTransform::fromTranslate(20, 10);
    painter.setWorldTransform(shift);
    painter.setPen(Qt::green);
    channel.paint(painter);
    QCOMPARE(painter.worldTransform(), shift);
    QCOMPARE(painter.pen().color(), QColor(Qt::green));
    painter.end();
    QCOMPARE(image.pixelColor(50, 90), QColor(Qt::red));
    QCOMPARE(image.pixelColor(50, 80), QColor(Qt::white));
}

void TestBufferedChannel::oddCanvasAndDataDrawWithoutTrouble_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<Points>("points");
    const QRectF plain(0, 0, 10, 10);
    const Points ordinary{{1, 1}, {5, 9}, {9, 2}};
    QTest::newRow("no canvas") << QRectF() << ordinary;
    QTest::newRow("canvas without width") << QRectF(0, 0, 0, 10) << ordinary;
    QTest::newRow("canvas without height") << QRectF(0, 0, 10, 0) << ordinary;
    QTest::newRow("negative canvas") << QRectF(0, 0, -10, -10) << ordinary;
    QTest::newRow("NaN canvas") << QRectF(notANumber, 0, 10, 10) << ordinary;
    QTest::newRow("infinite canvas") << QRectF(-infinity, 0, infinity, 10) << ordinary;
    QTest::newRow("huge canvas") << QRectF(-1e300, -1e300, 2e300, 2e300) << ordinary;
    QTest::newRow("tiny canvas") << QRectF(5, 5, 1e-300, 1e-300) << ordinary;
    QTest::newRow("tiny canvas, far zoomed in") << QRectF(5, 5, 1e-14, 1e-14) << ordinary;
    QTest::newRow("huge zigzag") << plain << Points{{0, 0}, {1, 1e300}, {2, -1e300}, {3, 1}};
    QTest::newRow("huge in both directions") << plain << Points{{-1e300, -1e300}, {1e300, 1e300}, {3, 1}};
    QTest::newRow("infinities") << plain << Points{{0, infinity}, {5, -infinity}, {infinity, 5}};
    QTest::newRow("NaN") << plain << Points{{0, 0}, {notANumber, 3}, {2, notANumber}, {3, 1}};
    QTest::newRow("only NaN") << plain << Points{{notANumber, notANumber}, {notANumber, notANumber}};
    QTest::newRow("one point") << plain << Points{{5, 5}};
    QTest::newRow("nothing") << plain << Points();
}

void TestBufferedChannel::oddCanvasAndDataDrawWithoutTrouble()
{
    QFETCH(QRectF, canvas);
    QFETCH(Points, points);
    TestChannel channel;
    prepare(channel);
    channel.setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
    channel.setCanvas(canvas);
    channel.setData(points);
    QElapsedTimer timer;
    timer.start();
    for (const bool inverted : {false, true}) {
        channel.onAxisInverted(ZrQtPlot::Axis_X, ZrQtPlot::COSY_0, inverted);
        for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotDotLine}) {
            channel.setLineStyle(style);
            for (const int width : {1, 2, 5}) {
                channel.setLineWidth(width);
                picture(channel);
            }
        }
    }
    channel.resize(0, 0);
    picture(channel);
    QVERIFY(timer.elapsed() < 5000);
}

void TestBufferedChannel::channelMayBeDeletedInASlot_data()
{
    QTest::addColumn<bool>("onData");
    QTest::addColumn<bool>("withRectangle");
    QTest::newRow("dataChanged") << true << false;
    QTest::newRow("boundingRectChanged") << false << false;
    QTest::newRow("dataChanged of the form with rectangle") << true << true;
    QTest::newRow("boundingRectChanged of the form with rectangle") << false << true;
}

void TestBufferedChannel::channelMayBeDeletedInASlot()
{
    QFETCH(bool, onData);
    QFETCH(bool, withRectangle);
    QWidget parent;
    auto *channel = new TestChannel(&parent);
    const QPointer<TestChannel> alive(channel);
    const auto drop = [channel] { delete channel; };
    if (onData)
        connect(channel, &ZrQtBaseChannel::dataChanged, &parent, drop);
    else
        connect(channel, &ZrQtBaseChannel::boundingRectChanged, &parent, drop);
    if (withRectangle)
        channel->setData(Values{1, 2}, Values{3, 4}, QRectF(0, 0, 9, 9));
    else
        channel->setData(Values{1, 2}, Values{3, 4});
    QVERIFY(!alive);
}

QTEST_MAIN(TestBufferedChannel)
#include "tst_zrqtbufferedchannel.moc"
