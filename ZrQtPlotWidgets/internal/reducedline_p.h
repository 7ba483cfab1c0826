#ifndef REDUCEDLINE_P_H
#define REDUCEDLINE_P_H

#include "columnreduction_p.h"

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

/// How the samples of a column become a picture.
enum class LineQuality {
    Hairline,    ///< one pixel wide, opaque, solid and not smoothed: the very pixels that Qt sets
    Opaque,      ///< opaque and solid, as wide as it may be; what is drawn twice does not show
    Transparent, ///< translucent or dashed: nothing may be drawn twice
};

/// Part of a column that the line fills.
struct ColumnBar
{
    int column = 0;
    double top = 0.0; ///< pixels; for hairlines borders between pixels
    double bottom = 0.0;
};

/// A line reduced to what can be seen of it, in pixels of the paint device.
struct ReducedLine
{
    QVector<ColumnBar> bars;    ///< from left to right or from right to left
    QVector<QLineF> hairlines;  ///< straight, and not of length 0
    QVector<QPolygonF> strokes; ///< lines through at least two points
};

/// The line through the samples in `columns`. Columns with more samples than are quickly drawn one by one are
/// a bar from their lowest to their highest one, or a stroke through their first, lowest, highest and last
/// one. Pixels between `top` and `bottom` can be seen.
[[nodiscard]] ReducedLine reducedLine(SampleSeries &series, const QVector<ColumnSamples> &columns,
                                      const PixelMapping &mapping, LineQuality quality, double penWidth,
                                      double top, double bottom);

#endif // REDUCEDLINE_P_H
