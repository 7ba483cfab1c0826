#ifndef VIEWER_PLOTTEDSERIES_H
#define VIEWER_PLOTTEDSERIES_H

#include "axisfeed.h"

#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtCore/QRectF>
#include <QtCore/QVector>

#include <ZrQtPlotWidgets/zrqtaxis.h>
#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>

/// A column as it stands in a plot.
struct PlottedSeries
{
    QPointer<ZrQtBufferedChannel> channel;
    QPointer<ZrQtAxis> ownAxis; ///< the axis that wears the colour of the channel; null if it is shared
    QVector<double> x;
    QVector<double> values;       ///< those of the file
    QVector<QPointF> points;      ///< what is drawn, over x: the values, or their logarithms
    bool hasLonelySample = false; ///< one of the points stands between two gaps
    QRectF extent;                ///< what the plot scales on
    bool sorted = true;           ///< no x is smaller than the one before
    AxisScale xScale = AxisScale::Numbers;

    bool isShown() const { return channel && channel->isSelectedForDisplay(); }
    /// The name after a square of the colour, as rich text.
    QString coloredName() const
    {
        return QStringLiteral("<font color=\"%1\">\u25A0</font> %2")
            .arg(channel->lineColor().name(), channel->name().toHtmlEscaped());
    }
};

#endif // VIEWER_PLOTTEDSERIES_H
