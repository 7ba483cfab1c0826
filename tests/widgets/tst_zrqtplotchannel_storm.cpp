#include "shared/channelmouse.h"
#include "shared/quiettest.h"

#include <QtCore/QRandomGenerator>

#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A seeded user who does anything.
class Storm
{
public:
    explicit Storm(quint32 seed)
        : m_random(seed)
        , m_mouse(&m_channel)
    {
        m_feature.m_extent = QRectF(20, 20, 10, 10);
    }

    void step()
    {
        static const std::function<void(Storm &)> actions[] = {
            [](Storm &s) { s.m_channel.setPoints(s.points()); },
            [](Storm &s) { s.m_channel.setLines(s.lines()); },
            [](Storm &s) { s.m_channel.setLineSegments(s.lines()); },
            [](Storm &s) { s.m_channel.setRectangles(s.rects()); },
            [](Storm &s) { s.m_channel.setCircles(s.rects()); },
            [](Storm &s) { s.m_channel.setCustomFeature(s.chance(2) ? &s.m_feature : nullptr); },
            [](Storm &s) { s.flipFlag(); },
            [](Storm &s) { s.changeView(); },
        };
        const int action = m_random.bounded(40);
        if (action < 8)
            actions[action](*this);
        else if (action == 8 && chance(5))
            m_channel.clear();
        else if (action == 9)
            m_mouse.press(Qt::RightButton);
        else if (action == 10)
            m_mouse.release(Qt::RightButton);
        else
            gesture();
    }

    [[nodiscard]] bool isSound()
    {
        const auto &state = m_channel.state();
        for (const QPointF &point : m_channel.points()) {
            if (std::abs(point.x()) > 1e300 || std::abs(point.y()) > 1e300)
                return false;
        }
        const QRectF extent = m_channel.boundingRect();
        return m_channel.isDraggingFeature() == m_channel.editingActive()
               && (!state.draggingFeature || state.selectedContentType != ZrQtPlotChannel::None)
               && std::isfinite(extent.left()) && std::isfinite(extent.top());
    }

    TestChannel m_channel;

private:
    bool chance(int of) { return m_random.bounded(of) == 0; }

    double number()
    {
        static const double odd[]
            = {0.0, -1.0, 1e300, -1e300, 1e308, infinity, -infinity, notANumber, 1e-300};
        return chance(30) ? odd[m_random.bounded(9)] : m_random.bounded(100.0);
    }

    int itemCount() { return m_random.bounded(5); }

    Points points()
    {
        Points items;
        for (int i = itemCount(); i > 0; --i)
            items.append(QPointF(number(), number()));
        return items;
    }

    Lines lines()
    {
        Lines items;
        for (int i = itemCount(); i > 0; --i)
            items.append(QLineF(number(), number(), number(), number()));
        return items;
    }

    Rects rects()
    {
        Rects items;
        for (int i = itemCount(); i > 0; --i)
            items.append(QRectF(number(), number(), number(), number()));
        return items;
    }

    void flipFlag()
    {
        static const char *const flags[] = {"editable",
                                            "movable",
                                            "pointsEditable",
                                            "circlesEditable",
                                            "rectanglesEditable",
                                            "linesEditable",
                                            "lineSegmentsEditable",
                                            "pointsMovable",
                                            "circlesMovable",
                                            "rectanglesMovable",
                                            "linesMovable",
                                            "lineSegmentsMovable",
                                            "keepCenterAtResize",
                                            "resizableFeatures",
                                            "connectFirstAndLastPoint"};
        const char *flag = flags[m_random.bounded(15)];
        m_channel.setProperty(flag, !chance(3)); // mostly on
        m_channel.setMovementDirections(Qt::Orientations(m_random.bounded(4)));
        m_channel.setEditingNotification(
            static_cast<ZrQtPlotChannel::EditingNotification>(m_random.bounded(3)));
    }

    void changeView()
    {
        if (chance(3))
            m_channel.setCanvas(QRectF(number(), number(), number(), number()));
        else
            m_channel.setCanvas(QRectF(0, 0, 100, 100));
        m_channel.onAxisInverted(chance(2) ? ZrQtPlot::Axis_X : ZrQtPlot::Axis_Y, ZrQtPlot::COSY_0,
                                 chance(2));
        if (chance(4))
            m_channel.resize(m_random.bounded(500), m_random.bounded(500));
        if (chance(20))
            m_channel.grab();
    }

    /// Mostly to a place where something is.
    void gesture()
    {
        const QRectF extent = m_channel.boundingRect();
        QPointF target(m_random.bounded(100.0), m_random.bounded(100.0));
        const Rects rects = m_channel.rectangles() + m_channel.circles();
        const Points points = m_channel.points();
        if (chance(4))
            target = extent.center();
        else if (chance(2) && !rects.isEmpty())
            target = rects.at(m_random.bounded(rects.size())).topLeft();
        else if (chance(2) && !points.isEmpty())
            target = points.at(m_random.bounded(points.size()));
        m_mouse.moveTo(target);
        if (chance(3))
            return;
        m_mouse.press();
        for (int i = m_random.bounded(4); i > 0; --i)
            m_mouse.moveTo(QPointF(number(), number()));
        if (!chance(8))
            m_mouse.release();
    }

    QRandomGenerator m_random;
    Feature m_feature;
    Mouse m_mouse;
};

} // namespace

class TestPlotChannelStorm : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void storm();
};

void TestPlotChannelStorm::storm()
{
    const quint32 seed = 20240229;
    Storm storm(seed);
    int edits = 0;
    connect(&storm.m_channel, &ZrQtPlotChannel::editingActiveChanged, this, [&edits] { ++edits; });
    for (int i = 0; i < 50000; ++i) {
        storm.step();
        QVERIFY2(storm.isSound(), qPrintable(QString::asprintf("seed %u, step %d", seed, i)));
    }
    // The user really got hold of things.
    QVERIFY2(edits > 5000, qPrintable(QString::number(edits)));
}

QTEST_MAIN(TestPlotChannelStorm)
#include "tst_zrqtplotchannel_storm.moc"
