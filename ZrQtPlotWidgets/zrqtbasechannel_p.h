#ifndef ZRQTBASECHANNEL_P_H
#define ZRQTBASECHANNEL_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice, or even be removed.
//

#include "internal/coordinaterange_p.h"
#include "zrqtbasechannel.h"

#include <QtGui/QTransform>

/// What all channels share. A copy refers to the same widget and does not own it.
class ZrQtBaseChannelPrivate
{
public:
    explicit ZrQtBaseChannelPrivate(ZrQtBaseChannel *owner)
        : q(owner)
    {
    }
    ZrQtBaseChannelPrivate(const ZrQtBaseChannelPrivate &) = default;
    ZrQtBaseChannelPrivate(ZrQtBaseChannelPrivate &&) = default;
    ZrQtBaseChannelPrivate &operator=(const ZrQtBaseChannelPrivate &) = default;
    ZrQtBaseChannelPrivate &operator=(ZrQtBaseChannelPrivate &&) = default;
    virtual ~ZrQtBaseChannelPrivate() = default;

    /// `value` limited to ±1e300; NaN passes. Every coordinate that a channel stores goes through it.
    static double clipCoordinateValueToSupportedRange(double value) { return clippedCoordinate(value); }

    /// The channel's boundingRect(), or a null rectangle while no subclass exists that could tell it.
    QRectF extent() const;

    ZrQtBaseChannel *q_func() const { return q; }

    ZrQtBaseChannel *q;
    QString name;
    bool antialiasing = false;
    bool useForScaling = true;
    int pointStyle = ZrQtBaseChannel::PointStyle_None;
    Qt::PenStyle lineStyle = Qt::SolidLine;
    QColor lineColor = Qt::black;
    QColor fillColor = Qt::transparent;
    int lineWidth = 1; // pixels
    int pointSize = 3; // pixels
    Qt::BrushStyle fillStyle = Qt::SolidPattern;
    QColor pointColor = lineColor;
    QRectF canvas; // data units; top is the smaller y
    ZrQtPlot::CoordinateSystem cosyX = ZrQtPlot::COSY_0;
    ZrQtPlot::CoordinateSystem cosyY = ZrQtPlot::COSY_0;
    QTransform transform;            // data units to pixels
    bool selectedForDisplay = false; // what setVisible() was last asked for
    bool updatesViaPlot = false;     // set by the plot: it paints this channel
    bool xInverted = false;
    bool yInverted = false;
    bool showInLegend = true;
    bool subclassMissing = false; // true while the base constructor registers the channel with its parent
};

#endif // ZRQTBASECHANNEL_P_H
