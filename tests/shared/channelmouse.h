#ifndef CHANNELMOUSE_H
#define CHANNELMOUSE_H

#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel_p.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <cmath>
#include <functional>

// What the tests of editing share: a channel with known pixels, a mouse, a log of signals, content.

using Points = QVector<QPointF>;
using Lines = QVector<QLineF>;
using Rects = QVector<QRectF>;

class Feature : public ZrQtPlotFeature
{
public:
    void paint(QPainter &, QSizeF) override { ++m_paints; }
    void translate(QPointF offset) override
    {
        m_offset += offset;
        if (m_onTranslate)
            m_onTranslate();
    }
    QRectF boundingRectangle() override { return m_extent; }

    QRectF m_extent;
    QPointF m_offset;
    int m_paints = 0;
    std::function<void()> m_onTranslate;
};

/// 400 x 400 pixels, four to the unit: the mouse hits what is within 1.25 units to each side.
class TestChannel : public ZrQtPlotChannel
{
public:
    explicit TestChannel(QWidget *parent = nullptr)
        : ZrQtPlotChannel(parent)
    {
        resize(400, 400);
        setCanvas(QRectF(0, 0, 100, 100));
    }

    ZrQtPlotChannelPrivate &state() { return static_cast<ZrQtPlotChannelPrivate &>(*m_d); }
};

/// A hand on the mouse. Every function returns whether the channel accepted the event.
class Mouse
{
public:
    explicit Mouse(ZrQtPlotChannel *channel)
        : m_channel(channel)
    {
    }

    bool moveTo(const QPointF &data)
    {
        const QTransform toPixel = static_cast<TestChannel *>(m_channel.data())->state().transform;
        return moveToPixel(toPixel.map(data));
    }

    bool moveToPixel(const QPointF &pixel)
    {
        // No mouse leaves the screen further than this, wherever content may lie.
        const auto onScreen = [](double value) { return std::isnan(value) ? 0.0 : qBound(-1e5, value, 1e5); };
        m_pixel = QPointF(onScreen(pixel.x()), onScreen(pixel.y()));
        return send(QEvent::MouseMove, Qt::NoButton);
    }

    bool press(Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons |= button;
        return send(QEvent::MouseButtonPress, button);
    }

    bool release(Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons &= ~Qt::MouseButtons(button);
        return send(QEvent::MouseButtonRelease, button);
    }

    /// Presses at `from` and drags to `to` in `steps` steps of the same length.
    void dragWithoutRelease(const QPointF &from, const QPointF &to, int steps = 1)
    {
        moveTo(from);
        press();
        for (int i = 1; i <= steps && m_channel; ++i)
            moveTo(from + (to - from) * i / steps);
    }

    void drag(const QPointF &from, const QPointF &to, int steps = 1)
    {
        dragWithoutRelease(from, to, steps);
        if (m_channel)
            release();
    }

private:
    bool send(QEvent::Type type, Qt::MouseButton button)
    {
        QMouseEvent event(type, m_pixel, m_channel->mapToGlobal(m_pixel.toPoint()), button, m_buttons,
                          Qt::NoModifier);
        event.setAccepted(type == QEvent::MouseButtonPress); // whatever it was before
        QApplication::sendEvent(m_channel, &event);
        return event.isAccepted();
    }

    QPointer<ZrQtPlotChannel> m_channel;
    QPointF m_pixel;
    Qt::MouseButtons m_buttons;
};

/// All signals of a channel in the order of their arrival.
class SignalLog : public QObject
{
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
        connect(channel, &ZrQtPlotChannel::editingActiveChanged, this,
                [this](bool on) { m_log << (on ? QStringLiteral("active") : QStringLiteral("inactive")); });
    }

    QStringList take() { return std::exchange(m_log, QStringList()); }

private:
    QStringList m_log;
};

/// Everything that the user can change.
struct Content
{
    Points points;
    Lines lines;
    Lines segments;
    Rects rectangles;
    Rects circles;
};

inline Content contentOf(const ZrQtPlotChannel &channel)
{
    return {channel.points(), channel.lines(), channel.lineSegments(), channel.rectangles(),
            channel.circles()};
}

inline bool operator==(const Content &a, const Content &b)
{
    return a.points == b.points && a.lines == b.lines && a.segments == b.segments
           && a.rectangles == b.rectangles && a.circles == b.circles;
}

/// The content at the start: of the tested type two items or three, and off to the side one other item, so
/// that the centre of the whole content is not the centre of the type.
inline Content contentWith(ZrQtPlotChannel::ContentType type)
{
    Content content;
    switch (type) {
    case ZrQtPlotChannel::Points:
        content.points = {{10, 10}, {30, 40}, {60, 80}};
        break;
    case ZrQtPlotChannel::Lines:
        content.lines = {{10, 20, 30, 20}, {70, 1, 70, 2}};
        break;
    case ZrQtPlotChannel::LineSegments:
        content.segments = {{10, 10, 30, 40}, {60, 60, 80, 80}};
        break;
    case ZrQtPlotChannel::Rectangles:
        content.rectangles = {{10, 10, 20, 30}, {60, 60, 20, 20}};
        break;
    default:
        content.circles = {{10, 10, 20, 20}, {60, 60, 20, 20}};
        break;
    }
    if (type == ZrQtPlotChannel::Rectangles || type == ZrQtPlotChannel::Circles)
        content.segments = {{95, 95, 99, 99}};
    else
        content.rectangles = {{95, 95, 4, 4}};
    return content;
}

inline void setContent(ZrQtPlotChannel &channel, const Content &content)
{
    channel.setPoints(content.points);
    channel.setLines(content.lines);
    channel.setLineSegments(content.segments);
    channel.setRectangles(content.rectangles);
    channel.setCircles(content.circles);
}

#endif // CHANNELMOUSE_H
