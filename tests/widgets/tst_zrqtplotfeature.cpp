#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"
#include "shared/quiettest.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>

#include <memory>

namespace {

/// Writes down how the channel drives it.
class TestFeature : public ZrQtPlotFeature
{
public:
    explicit TestFeature(const QRectF &extent = QRectF(1, 2, 3, 4))
        : m_extent(extent)
    {
    }

    void paint(QPainter &painter, QSizeF handleSize) override
    {
        m_log << QStringLiteral("paint");
        m_handleSize = handleSize;
        m_pen = painter.pen();
        m_brush = painter.brush();
        m_transform = painter.worldTransform();
        m_antialiasing = painter.testRenderHint(QPainter::Antialiasing);
        painter.fillRect(m_extent, Qt::magenta);
        painter.setPen(QPen(Qt::yellow, 9)); // and leaves it like that
    }

    void translate(QPointF offset) override { m_extent.translate(offset); }

    QRectF boundingRectangle() override
    {
        m_log << (parentChannel() ? QStringLiteral("extent, installed") : QStringLiteral("extent"));
        return m_extent;
    }

    QRectF m_extent;
    QStringList m_log;
    QSizeF m_handleSize;
    QPen m_pen;
    QBrush m_brush;
    QTransform m_transform;
    bool m_antialiasing = false;
};

class PlainFeature : public ZrQtPlotFeature
{
public:
    void paint(QPainter &, QSizeF) override { }
    void translate(QPointF) override { }
};

class CountingChannel : public ZrQtPlotChannel
{
public:
    using ZrQtPlotChannel::ZrQtPlotChannel;

    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++m_paints;
        ZrQtPlotChannel::paintEvent(event);
    }
};

/// A child of its channel that owns a feature installed there.
class FeatureOwner : public QObject
{
public:
    explicit FeatureOwner(ZrQtPlotChannel *channel)
        : QObject(channel)
    {
        channel->setCustomFeature(&m_feature);
    }

    PlainFeature m_feature;
};

} // namespace

class TestPlotFeature : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void neverInstalled();
    void installing();
    void extentIsClipped();
    void extentIsReadOnlyWhenInstalled();
    void defaultExtentAddsNothing();
    void extentThatIsNotFiniteAddsNothing();
    void isPaintedWithThePainterOfTheChannel();
    void handleSizeTellsWhetherEditable();
    void updateRepaintsTheChannel();
    void removing();
    void replacedFeatureStillNamesTheChannel();
    void installingElsewhereTakesItOut();
    void clearForgetsTheFeature();
    void deletedFeatureIsForgotten();
    void deletedReplacedFeatureLeavesTheOther();
    void channelDiesFirst();
    void featureDiesAmongTheChildrenOfItsChannel();
};

void TestPlotFeature::neverInstalled()
{
    TestFeature feature;
    QCOMPARE(feature.parentChannel(), nullptr);
    feature.update();
    QVERIFY(feature.m_log.isEmpty());
}

void TestPlotFeature::installing()
{
    TestFeature feature;
    ZrQtPlotChannel channel;
    QSignalSpy extents(&channel, &ZrQtBaseChannel::boundingRectChanged);
    QSignalSpy data(&channel, &ZrQtBaseChannel::dataChanged);
    QSignalSpy edited(&channel, &ZrQtPlotChannel::customFeatureChanged);
    channel.setCustomFeature(&feature);
    QCOMPARE(channel.customFeature(), &feature);
    QCOMPARE(feature.parentChannel(), &channel);
    // First it gets its channel, then it is asked.
    QCOMPARE(feature.m_log, QStringList("extent, installed"));
    QCOMPARE(channel.boundingRect(), QRectF(1, 2, 3, 4));
    QCOMPARE(extents.count(), 1);
    QCOMPARE(data.count(), 0);
    QCOMPARE(edited.count(), 0);
}

void TestPlotFeature::extentIsClipped()
{
    TestFeature feature(QRectF(QPointF(-1e305, 2), QPointF(3, 1e305)));
    ZrQtPlotChannel channel;
    channel.setCustomFeature(&feature);
    QCOMPARE(channel.boundingRect(), QRectF(QPointF(-1e300, 2), QPointF(3, 1e300)));
}

void TestPlotFeature::extentIsReadOnlyWhenInstalled()
{
    TestFeature feature;
    ZrQtPlotChannel channel;
    channel.setCustomFeature(&feature);
    feature.m_extent = QRectF(0, 0, 10, 10);
    feature.update();
    channel.setPoints({{2, 3}});
    QCOMPARE(channel.boundingRect(), QRectF(1, 2, 3, 4));
    channel.setCustomFeature(&feature);
    QCOMPARE(channel.boundingRect(), QRectF(0, 0, 10, 10));
}

void TestPlotFeature::defaultExtentAddsNothing()
{
    PlainFeature feature;
    QVERIFY(feature.boundingRectangle().isNull());
    ZrQtPlotChannel channel;
    QSignalSpy extents(&channel, &ZrQtBaseChannel::boundingRectChanged);
    channel.setCustomFeature(&feature);
    QCOMPARE(extents.count(), 0);
    channel.setRectangle(QRectF(5, 6, 7, 8));
    QCOMPARE(channel.boundingRect(), QRectF(5, 6, 7, 8));
    channel.setCustomFeature(&feature);
    QCOMPARE(channel.boundingRect(), QRectF(5, 6, 7, 8));
}

void TestPlotFeature::extentThatIsNotFiniteAddsNothing()
{
    TestFeature feature(QRectF(qQNaN(), 0, 1, 1));
    ZrQtPlotChannel channel;
    channel.setRectangle(QRectF(5, 6, 7, 8));
    channel.setCustomFeature(&feature);
    QCOMPARE(channel.boundingRect(), QRectF(5, 6, 7, 8));
}

void TestPlotFeature::isPaintedWithThePainterOfTheChannel()
{
    TestFeature feature;
    ZrQtPlotChannel channel;
    channel.resize(100, 100);
    channel.setCanvas(QRectF(0, 0, 10, 10));
    channel.setLineColor(Qt::red);
    channel.setLineWidth(3);
    channel.setLineStyle(Qt::DotLine);
    channel.setFillColor(Qt::green);
    channel.setAntialiasing(true);
    channel.setRectangle(QRectF(0, 0, 10, 10));
    channel.setCustomFeature(&feature);
    const QImage image = channel.grab().toImage();
    QCOMPARE(feature.m_log.count(QStringLiteral("paint")), 1);
    QCOMPARE(feature.m_pen.color(), QColor(Qt::red));
    QCOMPARE(feature.m_pen.width(), 3);
    QCOMPARE(feature.m_pen.style(), Qt::DotLine);
    QVERIFY(feature.m_pen.isCosmetic());
    QCOMPARE(feature.m_brush, QBrush(Qt::green, Qt::SolidPattern));
    QVERIFY(feature.m_antialiasing);
    QCOMPARE(feature.m_transform.map(QPointF(5, 10)), QPointF(50, 0));
    // In data units, and over all other content.
    QCOMPARE(image.pixelColor(25, 60), QColor(Qt::magenta));
    QCOMPARE(image.pixelColor(60, 60), QColor(Qt::green));
}

void TestPlotFeature::handleSizeTellsWhetherEditable()
{
    TestFeature feature;
    ZrQtPlotChannel channel;
    channel.resize(100, 100);
    channel.setCanvas(QRectF(0, 0, 10, 20));
    channel.setCustomFeature(&feature);
    channel.grab();
    QCOMPARE(feature.m_handleSize, QSizeF(-1, -1));
    channel.setEditable(true);
    channel.setRectangle(QRectF(2, 2, 6, 10));
    channel.setMovable(true);
    const QImage image = channel.grab().toImage();
    QCOMPARE(feature.m_handleSize, QSizeF(0.8, 1.6));
    // The yellow pen that the feature leaves behind does not reach the crosses drawn after it.
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QVERIFY(image.pixelColor(x, y) != QColor(Qt::yellow));
    }
}

void TestPlotFeature::updateRepaintsTheChannel()
{
    TestFeature feature;
    CountingChannel channel;
    channel.resize(50, 50);
    channel.setCustomFeature(&feature);
    QVERIFY(QTest::qWaitForWindowExposed(&channel));
    QCoreApplication::processEvents();
    int paints = channel.m_paints;
    feature.update();
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints + 1);
    // Installing and removing repaint as well.
    paints = channel.m_paints;
    channel.setCustomFeature(nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints + 1);
    channel.setCustomFeature(&feature);
    QCoreApplication::processEvents();
    QCOMPARE(channel.m_paints, paints + 2);
}

void TestPlotFeature::removing()
{
    TestFeature feature;
    ZrQtPlotChannel channel;
    channel.setCustomFeature(&feature);
    QSignalSpy extents(&channel, &ZrQtBaseChannel::boundingRectChanged);
    channel.setCustomFeature(nullptr);
    QCOMPARE(channel.customFeature(), nullptr);
    QCOMPARE(feature.parentChannel(), &channel);
    // The extent stays, also when other content comes.
    channel.setPoints({{2, 3}});
    QCOMPARE(channel.boundingRect(), QRectF(1, 2, 3, 4));
    QCOMPARE(extents.count(), 0);
}

void TestPlotFeature::replacedFeatureStillNamesTheChannel()
{
    TestFeature first;
    TestFeature second;
    ZrQtPlotChannel channel;
    channel.setCustomFeature(&first);
    channel.setCustomFeature(&second);
    QCOMPARE(first.parentChannel(), &channel);
    QCOMPARE(second.parentChannel(), &channel);
    QCOMPARE(channel.customFeature(), &second);
}

void TestPlotFeature::installingElsewhereTakesItOut()
{
    ZrQtPlotChannel first;
    ZrQtPlotChannel second;
    {
        TestFeature feature;
        first.setCustomFeature(&feature);
        second.setCustomFeature(&feature);
        QCOMPARE(first.customFeature(), nullptr);
        QCOMPARE(second.customFeature(), &feature);
        QCOMPARE(feature.parentChannel(), &second);
        QCOMPARE(first.boundingRect(), QRectF(1, 2, 3, 4)); // as whenever a feature is removed
    }
    QCOMPARE(second.customFeature(), nullptr);
    // Another feature that the first channel got meanwhile is none of its business.
    TestFeature moved;
    TestFeature other;
    first.setCustomFeature(&moved);
    first.setCustomFeature(&other);
    second.setCustomFeature(&moved);
    QCOMPARE(first.customFeature(), &other);
}

void TestPlotFeature::clearForgetsTheFeature()
{
    TestFeature feature;
    ZrQtPlotChannel channel;
    channel.setCustomFeature(&feature);
    channel.clear();
    QCOMPARE(channel.customFeature(), nullptr);
    QCOMPARE(channel.boundingRect(), QRectF(1, 2, 3, 4));
    feature.m_log.clear();
    channel.grab();
    QVERIFY(feature.m_log.isEmpty());
}

void TestPlotFeature::deletedFeatureIsForgotten()
{
    auto feature = std::make_unique<TestFeature>();
    ZrQtPlotChannel channel;
    channel.setCustomFeature(feature.get());
    feature.reset();
    QCOMPARE(channel.customFeature(), nullptr);
    channel.grab();
}

void TestPlotFeature::deletedReplacedFeatureLeavesTheOther()
{
    auto first = std::make_unique<TestFeature>();
    TestFeature second;
    ZrQtPlotChannel channel;
    channel.setCustomFeature(first.get());
    channel.setCustomFeature(&second);
    first.reset();
    QCOMPARE(channel.customFeature(), &second);
}

void TestPlotFeature::channelDiesFirst()
{
    TestFeature feature;
    auto channel = std::make_unique<ZrQtPlotChannel>();
    channel->setCustomFeature(&feature);
    channel.reset();
    QCOMPARE(feature.parentChannel(), nullptr);
    feature.update();
}

void TestPlotFeature::featureDiesAmongTheChildrenOfItsChannel()
{
    auto *channel = new ZrQtPlotChannel;
    new FeatureOwner(channel);
    QVERIFY(channel->customFeature());
    delete channel;
}

QTEST_MAIN(TestPlotFeature)
#include "tst_zrqtplotfeature.moc"
