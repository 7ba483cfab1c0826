#ifndef VIEWER_MARKERTAGS_H
#define VIEWER_MARKERTAGS_H

#include <QtGui/QColor>

#include <ZrQtPlotWidgets/zrqtplotfeature.h>

/// The letters A and B at the upper ends of the lines of the channel that it is installed in.
class MarkerTags : public ZrQtPlotFeature
{
public:
    explicit MarkerTags(const QColor &color);

    void paint(QPainter &painter, QSizeF handleSize) override;
    /// The tags are where the lines are.
    void translate(QPointF) override { }

private:
    QColor m_color;
};

#endif // VIEWER_MARKERTAGS_H
