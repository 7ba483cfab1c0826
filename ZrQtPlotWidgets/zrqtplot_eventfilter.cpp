#include "zrqtplot_p.h"

#include "zrqtaxis.h"
#include "zrqtaxis_p.h"
#include "zrqtbasechannel.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>

#include <algorithm>

namespace {

const QHash<ZrQtPlot::Interaction, QCursor> &defaultCursors()
{
    static const QHash<ZrQtPlot::Interaction, QCursor> cursors{
        {ZrQtPlot::NoInteraction, Qt::ArrowCursor}, {ZrQtPlot::PanAndScan, Qt::OpenHandCursor},
        {ZrQtPlot::RectangleZoom, Qt::CrossCursor}, {ZrQtPlot::SelectRoi, Qt::CrossCursor},
        {ZrQtPlot::SelectLine, Qt::CrossCursor},
    };
    return cursors;
}

bool concernsOverlay(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease
           || type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove
           || type == QEvent::MouseTrackingChange;
}

bool anyHoldsTheMouse(const QList<ZrQtAxis *> &axes)
{
    const QWidget *grabber = QWidget::mouseGrabber();
    return std::any_of(axes.cbegin(), axes.cend(),
                       [grabber](const ZrQtAxis *axis) { return axis == grabber; });
}

/// Only one axis can be dragged at a time. All records, because it may show another system or direction by
/// now than when the drag began, or be gone.
void endHolds(QHash<ZrQtPlot::CoordinateSystem, CosyState> &records)
{
    for (CosyState &record : records) {
        record.x.hold = false;
        record.y.hold = false;
    }
}

} // namespace

bool ZrQtPlot::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    // The hover callback and slots of the application run from here on, and may delete either.
    const QPointer<ZrQtPlot> plot(this);
    const QPointer<QObject> target(watched);
    if (event->type() == QEvent::MouseMove)
        m_d->checkTooltip(static_cast<QMouseEvent *>(event)->buttons());
    if (!plot || !target) {
        event->accept();
        return true;
    }
    if (watched == m_d->m_overlay && concernsOverlay(event->type()))
        return m_d->dispatchToChannels(event);
    if (event->type() == QEvent::Show && qobject_cast<ZrQtBaseChannel *>(watched))
        update();
    auto *axis = qobject_cast<ZrQtAxis *>(watched);
    return axis && m_d->filterAxisEvent(axis, event);
}

/// Offers a mouse event on the overlay to the channels, topmost first, until one accepts it. An event that
/// none accepts goes on to the plot itself.
bool ZrQtPlotPrivate::dispatchToChannels(QEvent *event)
{
    event->ignore();
    const QPointer<ZrQtPlot> plot(q);
    if (event->type() == QEvent::MouseButtonPress)
        announcePress(*static_cast<QMouseEvent *>(event));

    ZrQtBaseChannel *taker = nullptr;
    if (plot && event->type() != QEvent::MouseButtonDblClick && event->type() != QEvent::MouseTrackingChange)
        taker = offerToChannels(static_cast<QMouseEvent *>(event));
    if (plot && m_overlay && event->type() == QEvent::MouseMove) {
        if (taker)
            m_overlay->setCursor(taker->cursor());
        else
            m_overlay->unsetCursor();
    }
    // With the plot the overlay is gone: nobody else may see the event.
    if (!plot)
        event->accept();
    return event->isAccepted();
}

void ZrQtPlotPrivate::announcePress(const QMouseEvent &event)
{
    const QPointer<ZrQtPlot> plot(q);
    const Qt::MouseButton button = event.button();
    Q_EMIT q->pointPressed(event.pos(), button);
    if (!plot)
        return;
    const QPointF cursor = cursorPosition();
    if (!m_plotRect.contains(cursor))
        return;
    const QPointF value = selectionTransform().map(cursor - m_plotRect.topLeft());
    Q_EMIT q->mouseClicked(value.x(), value.y(), button);
}

/// The channel that accepted the event; null if none did, or if it is gone.
ZrQtBaseChannel *ZrQtPlotPrivate::offerToChannels(QMouseEvent *event)
{
    const QPointer<ZrQtPlot> plot(q);
    updateChannelStack();
    const QList<ZrQtBaseChannel *> stack = m_channelStack;
    for (ZrQtBaseChannel *channel : stack) {
        // A slot of the application may have deleted it, or the whole plot.
        if (!plot)
            return nullptr;
        if (!m_channelStack.contains(channel))
            continue;
        const QPointer<ZrQtBaseChannel> alive(channel);
        if (event->type() == QEvent::MouseButtonPress)
            channel->mousePressEvent(event);
        else if (event->type() == QEvent::MouseButtonRelease)
            channel->mouseReleaseEvent(event);
        else
            channel->mouseMoveEvent(event);
        if (event->isAccepted())
            return alive;
    }
    return nullptr;
}

bool ZrQtPlotPrivate::filterAxisEvent(ZrQtAxis *axis, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    // Passed on, the second press of a double click would begin a drag of the plot whose release never comes.
    case QEvent::MouseButtonDblClick: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        raiseAxisUnderEditField(mouse->globalPos());
        axis->grabMouse();
        lastMousePos = mouse->localPos() - m_plotRect.topLeft();
        return true;
    }
    case QEvent::MouseMove:
        dragAxis(axis, *static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::MouseButtonRelease: {
        const QPointer<ZrQtAxis> alive(axis);
        endHolds(m_cosys);
        // The release of a drag that began on the plot, where a channel died under the mouse, ends up here
        // too.
        if (pressed)
            endDrag();
        applyScaling(axis->cosy(), directionOf(axis->position()));
        if (alive)
            axis->releaseMouse();
        return true;
    }
    case QEvent::Wheel:
        // Also where it does not zoom, so that a plot in a scroll area does not scroll away from the mouse.
        event->accept();
        wheelOnAxis(axis, *static_cast<QWheelEvent *>(event));
        return true;
    case QEvent::Hide:
        endAxisDrag(axis);
        return false;
    default:
        return false;
    }
}

void ZrQtPlotPrivate::dragAxis(ZrQtAxis *axis, const QMouseEvent &event)
{
    raiseAxisUnderEditField(event.globalPos());
    if (!event.buttons().testFlag(Qt::LeftButton) || interaction != ZrQtPlot::PanAndScan)
        return;
    const QPointF position = event.localPos() - m_plotRect.topLeft();
    const QPointF delta = lastMousePos - position;
    const PlotAxis direction = directionOf(axis->position());
    const QPointer<ZrQtPlot> plot(q);
    state(axis->cosy()).direction(direction).hold = true;
    pan(axis->cosy(), direction == ZrQtPlot::Axis_X ? QPointF(delta.x(), 0.0) : QPointF(0.0, delta.y()));
    if (plot)
        lastMousePos = position;
}

/// An axis that leaves the screen or the plot lets go of the mouse.
void ZrQtPlotPrivate::endAxisDrag(ZrQtAxis *axis)
{
    if (QWidget::mouseGrabber() == axis)
        axis->releaseMouse();
    endOrphanedHolds();
}

/// An axis that died in the middle of a drag let go of the mouse just before.
void ZrQtPlotPrivate::endOrphanedHolds()
{
    if (!anyHoldsTheMouse(m_axes))
        endHolds(m_cosys);
}

void ZrQtPlotPrivate::raiseAxisUnderEditField(const QPoint &globalPosition)
{
    for (ZrQtAxis *axis : std::as_const(m_axes)) {
        if (axis->m_d->cursorAboveEditField(globalPosition)) {
            axis->raise();
            return;
        }
    }
}

void ZrQtPlotPrivate::applyAxisCursor()
{
    const QCursor cursor
        = interaction == ZrQtPlot::PanAndScan ? m_customCursors.value(ZrQtPlot::PanAndScan) : QCursor();
    for (ZrQtAxis *axis : std::as_const(m_axes))
        axis->setCursor(cursor);
}

/// The plot's own cursor follows the mode only when the mouse comes back over the bottom of the plot area;
/// below it lie the legend and the axes.
void ZrQtPlotPrivate::checkCursorArea(double y)
{
    if (!belowPlotArea && y > m_plotRect.bottom()) {
        belowPlotArea = true;
        q->unsetCursor();
    } else if (belowPlotArea && y <= m_plotRect.bottom()) {
        belowPlotArea = false;
        q->setCursor(m_customCursors.value(interaction));
    }
}

void ZrQtPlotPrivate::resetCursors()
{
    m_customCursors = defaultCursors();
    applyAxisCursor();
}

void ZrQtPlot::enterEvent(QEvent *event)
{
    Q_D(ZrQtPlot);
    if (const auto *enter = dynamic_cast<QEnterEvent *>(event))
        d->checkCursorArea(enter->localPos().y());
}

void ZrQtPlot::leaveEvent(QEvent *)
{
    Q_D(ZrQtPlot);
    if (d->tooltipMode != SHOW_ON_CLICK) {
        const QPointer<ZrQtPlot> plot(this);
        d->hideTooltip();
        if (!plot)
            return;
    }
    d->m_forceRedraw = true;
    update();
}

void ZrQtPlot::setCustomCursor(const QCursor &cursor, Interaction interaction)
{
    Q_D(ZrQtPlot);
    d->m_customCursors.insert(interaction, cursor);
    setCursor(d->m_customCursors.value(d->interaction));
    d->applyAxisCursor();
}

void ZrQtPlot::resetCustomCursors()
{
    Q_D(ZrQtPlot);
    d->resetCursors();
}
