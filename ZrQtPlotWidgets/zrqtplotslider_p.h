#ifndef ZRQTPLOTSLIDER_P_H
#define ZRQTPLOTSLIDER_P_H

//
// This file is not part of the API. It exists only as an implementation detail and may change from version to
// version without notice, or even be removed.
//

#include "internal/sliderarithmetic_p.h"
#include "zrqtplotslider.h"

#include <QtGui/QPen>

#include <optional>

class QPainter;

class ZrQtPlotSliderPrivate
{
public:
    explicit ZrQtPlotSliderPrivate(ZrQtPlotSlider *slider);

    bool isDragging() const { return leftDragging || rightDragging; }
    bool isMoving() const { return leftDragging && rightDragging; }

    QRect leftHandle() const;
    QRect rightHandle() const;
    /// From one handle to the other, one column of each included.
    QRect middle() const;

    void updateLength();
    void drag(int x);
    void showHoverCursor(int x);
    void emitSelection();
    void applyPendingMaster();

    void drawFrame(QPainter &painter) const;
    void drawOutside(QPainter &painter) const;
    void drawMiddle(QPainter &painter) const;
    void drawHandles(QPainter &painter) const;
    bool isMiddleHovered() const;
    bool isHovered(const QRect &rect) const;

    ZrQtPlotSlider *q;
    SliderStrip strip;
    bool leftDragging = false;
    bool rightDragging = false;
    int dragOffset = 0; ///< press x minus the left side of the left handle
    ZrQtPlot::CoordinateSystem masterCosy = ZrQtPlot::COSY_0;
    ZrQtPlot::CoordinateSystem slaveCosy = ZrQtPlot::COSY_0;
    bool updateWhileDragging = true;
    QColor slaveHandleColor = Qt::gray;
    QColor activeHandleColor = QColor(0, 100, 175, 255);
    QPen handlePen = QPen(Qt::black, 1, Qt::SolidLine);
    bool m_emitting = false;             ///< selectionChanged() is under way
    std::optional<QRectF> pendingMaster; ///< arrived while emitting; counts once the drag is over
};

#endif // ZRQTPLOTSLIDER_P_H
