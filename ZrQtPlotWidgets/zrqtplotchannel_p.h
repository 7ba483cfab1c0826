#ifndef ZRQTPLOTCHANNEL_P_H
#define ZRQTPLOTCHANNEL_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice, or even be removed.
//

#include "internal/geometryhit_p.h"
#include "zrqtbasechannel_p.h"
#include "zrqtplotchannel.h"

#include <QtCore/QHash>
#include <QtCore/QSizeF>
#include <QtGui/QPolygonF>

#include <optional>

class QPainter;

class ZrQtPlotChannelPrivate : public ZrQtBaseChannelPrivate
{
public:
    using ContentType = ZrQtPlotChannel::ContentType;

    explicit ZrQtPlotChannelPrivate(ZrQtPlotChannel *owner)
        : ZrQtBaseChannelPrivate(owner)
    {
    }
    ZrQtPlotChannelPrivate(const ZrQtPlotChannelPrivate &) = default;
    ZrQtPlotChannelPrivate(ZrQtPlotChannelPrivate &&) = default;
    ZrQtPlotChannelPrivate &operator=(const ZrQtPlotChannelPrivate &) = default;
    ZrQtPlotChannelPrivate &operator=(ZrQtPlotChannelPrivate &&) = default;
    ~ZrQtPlotChannelPrivate() override = default;

    ZrQtPlotChannel *q_func() const { return static_cast<ZrQtPlotChannel *>(q); }

    // content
    [[nodiscard]] bool hasContent() const;
    [[nodiscard]] bool hasItems(ContentType type) const;
    [[nodiscard]] QRectF computedRectangle(ContentType type) const;
    void contentChanged(ContentType type, const QRectF &rectangle);
    void updateBoundingRect();

    // painting
    void drawContent(QPainter &painter, const QSizeF &handleSize);
    void drawPointContent(QPainter &painter, const QSizeF &handleSize);
    void drawRectangles(QPainter &painter, const QSizeF &handleSize) const;
    void drawCircles(QPainter &painter, const QSizeF &handleSize) const;
    void drawLineSegments(QPainter &painter, const QSizeF &handleSize) const;
    void drawLines(QPainter &painter, const QSizeF &handleSize);
    void drawMoveCrosses(QPainter &painter, const QSizeF &handleSize,
                         const QHash<ContentType, bool> &movableTypes) const;
    [[nodiscard]] QHash<ContentType, bool> movableTypes() const;

    // editing
    [[nodiscard]] bool canBeEdited() const;
    [[nodiscard]] Qt::CursorShape defaultCursor() const;
    [[nodiscard]] std::optional<GeometryHit> hitOf(ContentType type, const QRectF &selection) const;
    bool selectFeature(const QRectF &selection);
    void drag(const QPointF &offset, const QPointF &position);
    void translateAll(const QPointF &offset);
    void updateDraggedRectangle();
    void endDrag();
    void setEditingActive(bool active);
    void emitChangedData(int contentTypes);

    Qt::Orientations movementDirections = Qt::Horizontal | Qt::Vertical;
    QRectF lastSelection;               // data units, of the last mouse move
    std::optional<GeometryHit> dragged; // what a drag moves, of the selected content type
    QTransform inverseTransform;        // pixels to data units
    bool editable = false;
    bool pointsEditable = true;
    bool circlesEditable = true;
    bool rectanglesEditable = true;
    bool linesEditable = true;
    bool lineSegmentsEditable = true;
    bool keepCenterAtResize = false;
    bool draggingFeature = false;
    QPointF dragStart;                        // data units
    ZrQtPlotFeature *customFeature = nullptr; // not owned
    QPolygonF points;
    QVector<QLineF> lines;
    QVector<QLineF> lineSegments;
    QVector<QRectF> rectangles;
    QVector<QRectF> circles;
    QRectF boundingRect;
    QHash<ContentType, QRectF> typeRectangles;       // the extent of each type
    int selectedContentType = ZrQtPlotChannel::None; // of the last hit; all types for the whole content
    bool movable = false;
    bool connectFirstAndLastPoint = false;
    bool pointsMovable = true;
    bool circlesMovable = true;
    bool rectanglesMovable = true;
    bool linesMovable = true;
    bool lineSegmentsMovable = true;
    bool editingActive = false;
    bool resizableFeatures = true;
    ZrQtPlotChannel::EditingNotification editingNotification = ZrQtPlotChannel::NotifyWhenFinished;
};

#endif // ZRQTPLOTCHANNEL_P_H
