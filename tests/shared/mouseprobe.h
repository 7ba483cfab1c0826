#ifndef MOUSEPROBE_H
#define MOUSEPROBE_H

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "shared/plotprobe.h"

#include <QtCore/QLineF>
#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

/// What the tests of mouse, wheel, keys and tooltip share: events that are sent to the real widgets, a record
/// of every signal that a gesture sends, and a plot whose numbers are easy to work out.

/// Delivers \a event as if it came from the window system: only such events of the wheel travel to parents.
inline void deliver(QWidget *widget, QEvent *event)
{
    QSpontaneKeyEvent::setSpontaneous(event);
    qApp->notify(widget, event);
}

/// Sends one mouse event to \a widget, from where it travels to its parents as any other; reports whether the
/// event was accepted.
inline bool sendMouse(QWidget *widget, QEvent::Type type, const QPointF &position, Qt::MouseButton button,
                      Qt::MouseButtons buttons)
{
    const QPointF global = widget->mapToGlobal(QPoint(0, 0)) + position;
    QMouseEvent event(type, position, widget->window()->mapFromGlobal(global.toPoint()), global, button,
                      buttons, Qt::NoModifier);
    deliver(widget, &event);
    return event.isAccepted();
}

inline bool press(QWidget *widget, const QPointF &position, Qt::MouseButton button = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseButtonPress, position, button, button);
}

inline bool release(QWidget *widget, const QPointF &position, Qt::MouseButton button = Qt::LeftButton,
                    Qt::MouseButtons stillHeld = Qt::NoButton)
{
    return sendMouse(widget, QEvent::MouseButtonRelease, position, button, stillHeld);
}

inline bool moveTo(QWidget *widget, const QPointF &position, Qt::MouseButtons held = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, held);
}

/// One turn of the wheel; reports whether the event was accepted.
inline bool turnWheel(QWidget *widget, const QPointF &position, const QPoint &angleDelta)
{
    const QPointF global = widget->mapToGlobal(QPoint(0, 0)) + position;
    QWheelEvent event(position, global, QPoint(), angleDelta, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    deliver(widget, &event);
    return event.isAccepted();
}

constexpr QPoint awayFromUser{0, 120};
constexpr QPoint towardsUser{0, -120};

inline void enter(QWidget *widget, const QPointF &position)
{
    const QPointF global = widget->mapToGlobal(QPoint(0, 0)) + position;
    QEnterEvent event(position, widget->window()->mapFromGlobal(global.toPoint()), global);
    QApplication::sendEvent(widget, &event);
}

inline void leave(QWidget *widget)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(widget, &event);
}

/// What a platform without real windows and mouse says when an axis grabs the mouse, or a tooltip takes its
/// size. Both work all the same.
inline QString platformExcuses()
{
    return QStringLiteral("^This plugin does not support (grabbing the mouse|propagateSizeHints)");
}

/// Puts the cursor of the screen to a place on \a widget, with all that the window system makes of it.
inline void putCursor(QWidget *widget, const QPoint &position)
{
    QCursor::setPos(widget->mapToGlobal(position));
    QApplication::processEvents();
}

/// Writes down every signal that a gesture may send, one line a signal, in the order of emission.
class GestureLog : public QObject
{
public:
    explicit GestureLog(ZrQtPlot *plot)
    {
        connect(plot, &ZrQtPlot::canvasChanged, this,
                [this](const QRectF &rect, Cosy cosy) { m_entries.append(PlotLog::canvas(rect, cosy)); });
        connect(plot, &ZrQtPlot::scalingModeChanged, this,
                [this](ZrQtPlot::ScalingMode scaling, ZrQtPlot::PlotAxis axis, Cosy cosy) {
                    m_entries.append(PlotLog::mode(scaling, axis, cosy));
                });
        connect(plot, qOverload<QRectF>(&ZrQtPlot::selectionChanged), this,
                [this](const QRectF &rect) { m_entries.append(roi(rect)); });
        connect(plot, qOverload<QLineF>(&ZrQtPlot::selectionChanged), this,
                [this](const QLineF &drawn) { m_entries.append(line(drawn)); });
        connect(plot, &ZrQtPlot::pointPressed, this, [this](const QPoint &pixel, Qt::MouseButton button) {
            m_entries.append(pressed(pixel, button));
        });
        connect(plot, &ZrQtPlot::mouseClicked, this, [this](double x, double y, Qt::MouseButton button) {
            m_entries.append(clicked({x, y}, button));
        });
        connect(plot, &ZrQtPlot::tooltipHidden, this, [this] { m_entries.append(hidden()); });
    }

    /// What came since the last call.
    QStringList take()
    {
        const QStringList result = m_entries;
        m_entries.clear();
        return result;
    }

    static QString roi(const QRectF &rect)
    {
        return QStringLiteral("roi %1 size %2")
            .arg(point(rect.topLeft()), point({rect.width(), rect.height()}));
    }
    static QString line(const QLineF &drawn)
    {
        return QStringLiteral("line %1 to %2").arg(point(drawn.p1()), point(drawn.p2()));
    }
    static QString pressed(const QPoint &pixel, Qt::MouseButton button)
    {
        return QStringLiteral("pressed %1 button %2").arg(point(pixel)).arg(button);
    }
    static QString clicked(const QPointF &value, Qt::MouseButton button)
    {
        return QStringLiteral("clicked %1 button %2").arg(point(value)).arg(button);
    }
    static QString hidden() { return QStringLiteral("tooltip hidden"); }

private:
    static QString point(const QPointF &value)
    {
        return QStringLiteral("(%1, %2)").arg(PlotLog::number(value.x()), PlotLog::number(value.y()));
    }

    QStringList m_entries;
};

/// In how many ways each gesture is tried.
struct Variant
{
    bool invertX = false;
    bool invertY = false;
    bool keepAspectRatio = false;
    int systems = 1;
};
Q_DECLARE_METATYPE(Variant)

inline void addVariants()
{
    QTest::addColumn<Variant>("variant");
    for (int systems : {1, 3}) {
        for (bool keep : {false, true}) {
            for (bool invertX : {false, true}) {
                for (bool invertY : {false, true}) {
                    const char *inverted = invertX ? (invertY ? "both inverted" : "x inverted")
                                                   : (invertY ? "y inverted" : "plain");
                    QTest::addRow("%s, %s, %s", inverted, keep ? "aspect ratio kept" : "free aspect ratio",
                                  systems == 1 ? "one system" : "three systems")
                        << Variant{invertX, invertY, keep, systems};
                }
            }
        }
    }
}

/// A shown plot whose plot area is 400 x 200 pixels with its corner at (100, 60), with an x and a y axis of
/// `COSY_0`. All modes are `Manual`. With three systems a second channel uses `COSY_1` for x and `COSY_2` for
/// y; axes never invert these.
class GestureScene
{
public:
    explicit GestureScene(const Variant &variant = {}, ZrQtPlot *own = nullptr)
        : shown(QSize(550, 360), own)
        , plot(shown.plot)
        , used{ZrQtPlot::COSY_0}
    {
        plot->setDefaultScalingX(ZrQtPlot::Manual);
        plot->setDefaultScalingY(ZrQtPlot::Manual);
        plot->setMinMarginLeft(100);
        plot->setMinMarginRight(50);
        plot->setMinMarginTop(60);
        plot->setMinMarginBottom(100);

        xAxis = new ZrQtAxis(plot);
        xAxis->setPosition(Qt::BottomEdge);
        xAxis->setInverted(variant.invertX);
        xAxis->show();
        yAxis = new ZrQtAxis(plot);
        yAxis->setPosition(Qt::LeftEdge);
        yAxis->setInverted(variant.invertY);
        yAxis->show();

        new ProbeChannel(plot, QRectF(0, 0, 40, 10));
        if (variant.systems == 3) {
            new ProbeChannel(plot, QRectF(100, -1, 4, 1), ZrQtPlot::COSY_1, ZrQtPlot::COSY_2);
            used += {ZrQtPlot::COSY_1, ZrQtPlot::COSY_2};
        }
        for (Cosy cosy : used)
            plot->setCanvas(start(cosy, false), cosy);
        plot->setKeepAspectRatio(variant.keepAspectRatio);
        settle(plot);
        // Anywhere else each move would hide the tooltip.
        putCursor(plot, inArea(200, 100));
    }

    /// The canvas of \a cosy before any gesture. The plot area is twice as wide as high: `COSY_0` is
    /// heightened where the aspect ratio is kept, `COSY_1` widened, and `COSY_2` has the right shape.
    static QRectF start(Cosy cosy, bool keepAspectRatio)
    {
        switch (cosy) {
        case ZrQtPlot::COSY_0:
            return keepAspectRatio ? QRectF(0, -5, 40, 20) : QRectF(0, 0, 40, 10);
        case ZrQtPlot::COSY_1:
            return keepAspectRatio ? QRectF(98, 0, 8, 4) : QRectF(100, 0, 4, 4);
        case ZrQtPlot::COSY_2:
            return QRectF(0, -1, 2, 1);
        default:
            return {};
        }
    }

    bool isReady() const { return shown.exposed && plotArea(plot) == QRect(100, 60, 400, 200); }

    /// A pixel of the plot from its place in the plot area.
    static QPoint inArea(int x, int y) { return {100 + x, 60 + y}; }

    ShownPlot shown;
    ZrQtPlot *plot;
    ZrQtAxis *xAxis = nullptr;
    ZrQtAxis *yAxis = nullptr;
    QVector<Cosy> used;
};

/// \a rect moved by the fractions \a x and \a y of its size.
inline QRectF movedBy(const QRectF &rect, double x, double y)
{
    return rect.translated(x * rect.width(), y * rect.height());
}

#endif // MOUSEPROBE_H
