#include "zrqtplotchannel.h"

#include "internal/channeltransform_p.h"
#include "internal/plotgeometry_p.h"
#include "zrqtplotchannel_p.h"
#include "zrqtplotfeature.h"

#include <QtCore/QPointer>

bool ZrQtPlotChannelPrivate::hasContent() const
{
    return !points.isEmpty() || !lines.isEmpty() || !lineSegments.isEmpty() || !rectangles.isEmpty()
           || !circles.isEmpty() || customFeature;
}

bool ZrQtPlotChannelPrivate::hasItems(ContentType type) const
{
    switch (type) {
    case ZrQtPlotChannel::Points:
        return !points.isEmpty();
    case ZrQtPlotChannel::Lines:
        return !lines.isEmpty();
    case ZrQtPlotChannel::LineSegments:
        return !lineSegments.isEmpty();
    case ZrQtPlotChannel::Rectangles:
        return !rectangles.isEmpty();
    case ZrQtPlotChannel::Circles:
        return !circles.isEmpty();
    case ZrQtPlotChannel::Custom:
        return customFeature;
    case ZrQtPlotChannel::None:
        break;
    }
    return false;
}

QRectF ZrQtPlotChannelPrivate::computedRectangle(ContentType type) const
{
    switch (type) {
    case ZrQtPlotChannel::Points:
        return boundingRectOfPoints(points);
    case ZrQtPlotChannel::Lines:
        return boundingRectangle(extendedToBorder(lines, canvas));
    case ZrQtPlotChannel::LineSegments:
        return boundingRectangle(lineSegments);
    case ZrQtPlotChannel::Rectangles:
        return boundingRectangle(rectangles);
    case ZrQtPlotChannel::Circles:
        return boundingRectangle(circles);
    case ZrQtPlotChannel::Custom:
    case ZrQtPlotChannel::None:
        break;
    }
    return typeRectangles.value(type); // a feature is asked only when it is installed
}

void ZrQtPlotChannelPrivate::contentChanged(ContentType type, const QRectF &rectangle)
{
    const QPointer<ZrQtPlotChannel> alive(q_func());
    typeRectangles.insert(type, rectangle);
    updateBoundingRect();
    if (!alive)
        return;
    if ((selectedContentType & type) && !selectFeature(lastSelection)) {
        selectedContentType = ZrQtPlotChannel::None;
        draggingFeature = false;
        setEditingActive(false);
    }
    if (alive)
        q->update();
}

void ZrQtPlotChannelPrivate::updateBoundingRect()
{
    QRectF all;
    for (const QRectF &rectangle : qAsConst(typeRectangles))
        all = all.isNull() ? rectangle : all.united(rectangle);
    if (all == boundingRect) // fuzzy
        return;
    boundingRect = all;
    Q_EMIT q->boundingRectChanged(all);
}

ZrQtPlotChannel::ZrQtPlotChannel(QWidget *parent)
    : ZrQtBaseChannel(*new ZrQtPlotChannelPrivate(this))
{
    setParent(parent);
    setVisible(true);
    setMouseTracking(true);
}

ZrQtPlotChannel::~ZrQtPlotChannel() = default;

QRectF ZrQtPlotChannel::boundingRect()
{
    Q_D(ZrQtPlotChannel);
    return d->boundingRect;
}

void ZrQtPlotChannel::updateTransform()
{
    Q_D(ZrQtPlotChannel);
    ZrQtBaseChannel::updateTransform();
    d->inverseTransform = inverseOf(d->transform);
    update();
}

QVector<QPointF> ZrQtPlotChannel::points() const
{
    Q_D(const ZrQtPlotChannel);
    return d->points;
}

void ZrQtPlotChannel::setPoints(const QVector<QPointF> &points)
{
    Q_D(ZrQtPlotChannel);
    d->points = points;
    for (QPointF &point : d->points)
        point = clippedPoint(point);
    d->contentChanged(Points, d->computedRectangle(Points));
}

QVector<QRectF> ZrQtPlotChannel::rectangles() const
{
    Q_D(const ZrQtPlotChannel);
    return d->rectangles;
}

void ZrQtPlotChannel::setRectangles(const QVector<QRectF> &rectangles)
{
    Q_D(ZrQtPlotChannel);
    d->rectangles = rectangles;
    for (QRectF &rectangle : d->rectangles)
        rectangle = clippedRect(rectangle);
    d->contentChanged(Rectangles, d->computedRectangle(Rectangles));
}

void ZrQtPlotChannel::setRectangle(const QRectF &rectangle)
{
    setRectangles({rectangle});
}

QVector<QRectF> ZrQtPlotChannel::circles() const
{
    Q_D(const ZrQtPlotChannel);
    return d->circles;
}

void ZrQtPlotChannel::setCircles(const QVector<QRectF> &circles)
{
    Q_D(ZrQtPlotChannel);
    d->circles = circles;
    for (QRectF &circle : d->circles)
        circle = clippedRect(circle);
    d->contentChanged(Circles, d->computedRectangle(Circles));
}

void ZrQtPlotChannel::setCircle(const QRectF &circle)
{
    setCircles({circle});
}

QVector<QLineF> ZrQtPlotChannel::lines() const
{
    Q_D(const ZrQtPlotChannel);
    return d->lines;
}

void ZrQtPlotChannel::setLines(const QVector<QLineF> &lines)
{
    Q_D(ZrQtPlotChannel);
    d->lines = lines;
    for (QLineF &line : d->lines)
        line = clippedLine(line);
    d->contentChanged(Lines, d->computedRectangle(Lines));
}

void ZrQtPlotChannel::setLine(const QLineF &line)
{
    setLines({line});
}

QVector<QLineF> ZrQtPlotChannel::lineSegments() const
{
    Q_D(const ZrQtPlotChannel);
    return d->lineSegments;
}

void ZrQtPlotChannel::setLineSegments(const QVector<QLineF> &segments)
{
    Q_D(ZrQtPlotChannel);
    d->lineSegments = segments;
    for (QLineF &segment : d->lineSegments)
        segment = clippedLine(segment);
    d->contentChanged(LineSegments, d->computedRectangle(LineSegments));
}

void ZrQtPlotChannel::setLineSegment(const QLineF &segment)
{
    setLineSegments({segment});
}

ZrQtPlotFeature *ZrQtPlotChannel::customFeature() const
{
    Q_D(const ZrQtPlotChannel);
    return d->customFeature;
}

void ZrQtPlotChannel::setCustomFeature(ZrQtPlotFeature *feature)
{
    Q_D(ZrQtPlotChannel);
    d->customFeature = feature;
    if (!feature) {
        update();
        return;
    }
    // A feature knows one channel only: another one would not hear of its death.
    ZrQtPlotChannel *previous = feature->parentChannel();
    if (previous && previous != this && previous->customFeature() == feature)
        previous->setCustomFeature(nullptr);
    feature->setParentChannel(this);
    const QRectF extent = clippedRect(feature->boundingRectangle());
    d->contentChanged(Custom, isFinite(extent) ? extent : QRectF());
}

void ZrQtPlotChannel::clear()
{
    Q_D(ZrQtPlotChannel);
    d->points.clear();
    d->lines.clear();
    d->lineSegments.clear();
    d->rectangles.clear();
    d->circles.clear();
    d->customFeature = nullptr;
    update();
    // On purpose with the rectangles of all types as they were: the extent stays.
    d->updateBoundingRect();
}

bool ZrQtPlotChannel::editingActive() const
{
    Q_D(const ZrQtPlotChannel);
    return d->editingActive;
}

bool ZrQtPlotChannel::isDraggingFeature() const
{
    Q_D(const ZrQtPlotChannel);
    return d->draggingFeature;
}

Qt::Orientations ZrQtPlotChannel::movementDirections() const
{
    Q_D(const ZrQtPlotChannel);
    return d->movementDirections;
}

void ZrQtPlotChannel::setMovementDirections(Qt::Orientations directions)
{
    Q_D(ZrQtPlotChannel);
    d->movementDirections = directions;
}

bool ZrQtPlotChannel::editable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->editable;
}

void ZrQtPlotChannel::setEditable(bool editable)
{
    Q_D(ZrQtPlotChannel);
    if (d->editable == editable)
        return;
    d->editable = editable;
    update();
}

bool ZrQtPlotChannel::pointsEditable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->pointsEditable;
}

void ZrQtPlotChannel::setPointsEditable(bool editable)
{
    Q_D(ZrQtPlotChannel);
    if (d->pointsEditable == editable)
        return;
    d->pointsEditable = editable;
    update();
}

bool ZrQtPlotChannel::circlesEditable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->circlesEditable;
}

void ZrQtPlotChannel::setCirclesEditable(bool editable)
{
    Q_D(ZrQtPlotChannel);
    if (d->circlesEditable == editable)
        return;
    d->circlesEditable = editable;
    update();
}

bool ZrQtPlotChannel::rectanglesEditable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->rectanglesEditable;
}

void ZrQtPlotChannel::setRectanglesEditable(bool editable)
{
    Q_D(ZrQtPlotChannel);
    if (d->rectanglesEditable == editable)
        return;
    d->rectanglesEditable = editable;
    update();
}

bool ZrQtPlotChannel::linesEditable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->linesEditable;
}

void ZrQtPlotChannel::setLinesEditable(bool editable)
{
    Q_D(ZrQtPlotChannel);
    if (d->linesEditable == editable)
        return;
    d->linesEditable = editable;
    update();
}

bool ZrQtPlotChannel::lineSegmentsEditable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->lineSegmentsEditable;
}

void ZrQtPlotChannel::setLineSegmentsEditable(bool editable)
{
    Q_D(ZrQtPlotChannel);
    if (d->lineSegmentsEditable == editable)
        return;
    d->lineSegmentsEditable = editable;
    update();
}

bool ZrQtPlotChannel::keepCenterAtResize() const
{
    Q_D(const ZrQtPlotChannel);
    return d->keepCenterAtResize;
}

void ZrQtPlotChannel::setKeepCenterAtResize(bool keep)
{
    Q_D(ZrQtPlotChannel);
    d->keepCenterAtResize = keep;
}

bool ZrQtPlotChannel::resizableFeatures() const
{
    Q_D(const ZrQtPlotChannel);
    return d->resizableFeatures;
}

void ZrQtPlotChannel::setResizableFeatures(bool resizable)
{
    Q_D(ZrQtPlotChannel);
    d->resizableFeatures = resizable;
}

bool ZrQtPlotChannel::movable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->movable;
}

void ZrQtPlotChannel::setMovable(bool movable)
{
    Q_D(ZrQtPlotChannel);
    d->movable = movable;
}

bool ZrQtPlotChannel::connectFirstAndLastPoint() const
{
    Q_D(const ZrQtPlotChannel);
    return d->connectFirstAndLastPoint;
}

void ZrQtPlotChannel::setConnectFirstAndLastPoint(bool connectPoints)
{
    Q_D(ZrQtPlotChannel);
    if (d->connectFirstAndLastPoint == connectPoints)
        return;
    d->connectFirstAndLastPoint = connectPoints;
    update();
}

bool ZrQtPlotChannel::pointsMovable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->pointsMovable;
}

void ZrQtPlotChannel::setPointsMovable(bool movable)
{
    Q_D(ZrQtPlotChannel);
    d->pointsMovable = movable;
}

bool ZrQtPlotChannel::circlesMovable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->circlesMovable;
}

void ZrQtPlotChannel::setCirclesMovable(bool movable)
{
    Q_D(ZrQtPlotChannel);
    d->circlesMovable = movable;
}

bool ZrQtPlotChannel::rectanglesMovable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->rectanglesMovable;
}

void ZrQtPlotChannel::setRectanglesMovable(bool movable)
{
    Q_D(ZrQtPlotChannel);
    d->rectanglesMovable = movable;
}

bool ZrQtPlotChannel::linesMovable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->linesMovable;
}

void ZrQtPlotChannel::setLinesMovable(bool movable)
{
    Q_D(ZrQtPlotChannel);
    d->linesMovable = movable;
}

bool ZrQtPlotChannel::lineSegmentsMovable() const
{
    Q_D(const ZrQtPlotChannel);
    return d->lineSegmentsMovable;
}

void ZrQtPlotChannel::setLineSegmentsMovable(bool movable)
{
    Q_D(ZrQtPlotChannel);
    d->lineSegmentsMovable = movable;
}

ZrQtPlotChannel::EditingNotification ZrQtPlotChannel::editingNotification() const
{
    Q_D(const ZrQtPlotChannel);
    return d->editingNotification;
}

void ZrQtPlotChannel::setEditingNotification(EditingNotification notification)
{
    Q_D(ZrQtPlotChannel);
    d->editingNotification = notification;
}
