#include "internal/coordinaterange_p.h"
#include "internal/plotgeometry_p.h"
#include "zrqtplotchannel.h"
#include "zrqtplotchannel_p.h"
#include "zrqtplotfeature.h"

#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>

namespace {

// Pixels: content within this square around the mouse is hit.
constexpr double selectionSize = 10.0;

constexpr ZrQtPlotChannel::ContentType hitOrder[]
    = {ZrQtPlotChannel::Points, ZrQtPlotChannel::LineSegments, ZrQtPlotChannel::Lines,
       ZrQtPlotChannel::Rectangles, ZrQtPlotChannel::Circles};

constexpr int wholeContent = ZrQtPlotChannel::Points | ZrQtPlotChannel::Lines | ZrQtPlotChannel::LineSegments
                             | ZrQtPlotChannel::Rectangles | ZrQtPlotChannel::Circles
                             | ZrQtPlotChannel::Custom;

QRectF selectionAround(const QPointF &mouse)
{
    return QRectF(mouse.x() - selectionSize / 2, mouse.y() - selectionSize / 2, selectionSize, selectionSize);
}

void normalize(QVector<QRectF> &rects)
{
    for (QRectF &rect : rects)
        rect = rect.normalized();
}

} // namespace

bool ZrQtPlotChannelPrivate::canBeEdited() const
{
    return editable || movable || pointsMovable || linesMovable || lineSegmentsMovable || rectanglesMovable
           || circlesMovable;
}

Qt::CursorShape ZrQtPlotChannelPrivate::defaultCursor() const
{
    if (movementDirections == Qt::Vertical)
        return Qt::SizeVerCursor;
    return movementDirections == Qt::Horizontal ? Qt::SizeHorCursor : Qt::SizeAllCursor;
}

std::optional<GeometryHit> ZrQtPlotChannelPrivate::hitOf(ContentType type, const QRectF &selection) const
{
    HitRules rules;
    rules.selection = selection;
    rules.extent = typeRectangles.value(type);
    rules.resizable = resizableFeatures;
    rules.keepsCenter = keepCenterAtResize;
    rules.directions = movementDirections;
    const auto allow = [&rules](bool items, bool all) -> const HitRules & {
        rules.editable = items;
        rules.movable = all;
        return rules;
    };
    switch (type) {
    case ZrQtPlotChannel::Points:
        return hitPoints(points, allow(pointsEditable, pointsMovable));
    case ZrQtPlotChannel::Lines:
        return hitLines(lines, allow(linesEditable, linesMovable));
    case ZrQtPlotChannel::LineSegments:
        return hitSegments(lineSegments, allow(lineSegmentsEditable, lineSegmentsMovable));
    case ZrQtPlotChannel::Rectangles:
        return hitRectangles(rectangles, allow(rectanglesEditable, rectanglesMovable));
    case ZrQtPlotChannel::Circles:
        return hitCircles(circles, allow(circlesEditable, circlesMovable));
    case ZrQtPlotChannel::Custom:
    case ZrQtPlotChannel::None:
        break;
    }
    return std::nullopt;
}

bool ZrQtPlotChannelPrivate::selectFeature(const QRectF &selection)
{
    dragged.reset();
    if (editable) {
        for (const ContentType type : hitOrder) {
            dragged = hitOf(type, selection);
            if (dragged) {
                selectedContentType = type;
                break;
            }
        }
    }
    if (!dragged && movable && hasContent() && holds(selection, boundingRect.center())) {
        dragged = GeometryHit{};
        selectedContentType = wholeContent;
    }
    if (!dragged)
        return false;
    q->setCursor(dragged->cursor.value_or(defaultCursor()));
    return true;
}

void ZrQtPlotChannelPrivate::drag(const QPointF &offset, const QPointF &position)
{
    if (!dragged)
        return;
    if (selectedContentType == wholeContent) {
        translateAll(offset);
        return;
    }
    const DragStep step{offset, position, keepCenterAtResize, movementDirections};
    switch (selectedContentType) {
    case ZrQtPlotChannel::Points:
        ::drag(points, *dragged, step);
        break;
    case ZrQtPlotChannel::Lines:
        ::drag(lines, *dragged, step);
        break;
    case ZrQtPlotChannel::LineSegments:
        ::drag(lineSegments, *dragged, step);
        break;
    case ZrQtPlotChannel::Rectangles:
        ::drag(rectangles, *dragged, step);
        break;
    case ZrQtPlotChannel::Circles:
        ::drag(circles, *dragged, step);
        break;
    default:
        return;
    }
    updateDraggedRectangle();
}

/// An application that clears the channel during a drag leaves the extent as it was.
void ZrQtPlotChannelPrivate::updateDraggedRectangle()
{
    const auto type = static_cast<ContentType>(selectedContentType);
    if (hasItems(type))
        typeRectangles.insert(type, computedRectangle(type));
}

void ZrQtPlotChannelPrivate::translateAll(const QPointF &offset)
{
    const GeometryHit all;
    DragStep step;
    step.offset = offset;
    ::drag(points, all, step);
    ::drag(lines, all, step);
    ::drag(lineSegments, all, step);
    ::drag(rectangles, all, step);
    ::drag(circles, all, step);
    for (QRectF &rectangle : typeRectangles)
        rectangle = clippedRect(rectangle.translated(offset));
    // Last, since the code of the application may do anything, even delete this channel.
    if (customFeature)
        customFeature->translate(offset);
}

void ZrQtPlotChannelPrivate::endDrag()
{
    if (!draggingFeature)
        return;
    if (selectedContentType == ZrQtPlotChannel::Rectangles
        || selectedContentType == ZrQtPlotChannel::Circles) {
        normalize(selectedContentType == ZrQtPlotChannel::Rectangles ? rectangles : circles);
        updateDraggedRectangle();
    }
    const QPointer<ZrQtPlotChannel> alive(q_func());
    updateBoundingRect();
    if (!alive)
        return;
    draggingFeature = false;
    if (editingNotification != ZrQtPlotChannel::NotifyNever)
        emitChangedData(selectedContentType);
    // In an event loop of the application's slot the user may have begun the next drag.
    if (!alive || draggingFeature)
        return;
    selectedContentType = ZrQtPlotChannel::None;
    setEditingActive(false);
}

void ZrQtPlotChannelPrivate::setEditingActive(bool active)
{
    if (editingActive == active)
        return;
    editingActive = active;
    Q_EMIT q_func()->editingActiveChanged(active);
}

void ZrQtPlotChannelPrivate::emitChangedData(int contentTypes)
{
    ZrQtPlotChannel *channel = q_func();
    const QPointer<ZrQtPlotChannel> alive(channel);
    const auto notify = [this, channel, &alive, contentTypes](ContentType type, auto content, auto signal) {
        if (!alive || !(contentTypes & type))
            return;
        const auto items = this->*content; // a copy: slots may set content or delete the channel
        if (!items.isEmpty())
            Q_EMIT(channel->*signal)(items);
    };
    using Private = ZrQtPlotChannelPrivate;
    notify(ZrQtPlotChannel::Points, &Private::points, &ZrQtPlotChannel::pointsEdited);
    notify(ZrQtPlotChannel::Lines, &Private::lines, &ZrQtPlotChannel::linesEdited);
    notify(ZrQtPlotChannel::LineSegments, &Private::lineSegments, &ZrQtPlotChannel::lineSegmentsEdited);
    notify(ZrQtPlotChannel::Rectangles, &Private::rectangles, &ZrQtPlotChannel::rectanglesEdited);
    notify(ZrQtPlotChannel::Circles, &Private::circles, &ZrQtPlotChannel::circlesEdited);
    if (alive && (contentTypes & ZrQtPlotChannel::Custom) && customFeature)
        Q_EMIT channel->customFeatureChanged();
}

void ZrQtPlotChannel::mousePressEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlotChannel);
    event->ignore();
    // On purpose with any button, and at the place of the last move.
    if (!d->draggingFeature && !d->selectFeature(d->lastSelection))
        return;
    d->draggingFeature = true;
    event->accept();
    d->setEditingActive(true);
}

void ZrQtPlotChannel::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlotChannel);
    event->ignore();
    if (!d->canBeEdited())
        return;
    d->lastSelection = d->inverseTransform.mapRect(selectionAround(event->localPos()));
    const QPointF position = d->lastSelection.center();
    // While there is no canvas the mouse is nowhere; content must not follow it there.
    QPointF offset = isFinite(position) ? position - d->dragStart : QPointF();
    if (!d->movementDirections.testFlag(Qt::Horizontal))
        offset.setX(0.0);
    if (!d->movementDirections.testFlag(Qt::Vertical))
        offset.setY(0.0);
    if (isFinite(position))
        d->dragStart = position;
    if (!d->draggingFeature) {
        if (event->buttons() == Qt::NoButton)
            event->setAccepted(d->selectFeature(d->lastSelection));
        return;
    }
    event->accept();
    const QPointer<ZrQtPlotChannel> alive(this);
    d->drag(offset, position);
    if (alive && d->editingNotification == NotifyAlways)
        d->emitChangedData(d->selectedContentType);
    if (alive)
        update();
}

void ZrQtPlotChannel::mouseReleaseEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlotChannel);
    event->setAccepted(d->draggingFeature);
    d->endDrag();
}

void ZrQtPlotChannel::hideEvent(QHideEvent *event)
{
    Q_D(ZrQtPlotChannel);
    ZrQtBaseChannel::hideEvent(event);
    // No release reaches a hidden widget. Not at once, since Qt goes on with the widget after this event, and
    // a slot may delete it.
    if (d->draggingFeature)
        QMetaObject::invokeMethod(
            this, [d] { d->endDrag(); }, Qt::QueuedConnection);
}
