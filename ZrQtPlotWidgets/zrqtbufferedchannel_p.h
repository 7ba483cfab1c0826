#ifndef ZRQTBUFFEREDCHANNEL_P_H
#define ZRQTBUFFEREDCHANNEL_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice, or even be removed.
//

#include "internal/coordinaterange_p.h"
#include "internal/sampleseries_p.h"
#include "zrqtbasechannel_p.h"
#include "zrqtbufferedchannel.h"

class QPainter;

class ZrQtBufferedChannelPrivate : public ZrQtBaseChannelPrivate
{
public:
    explicit ZrQtBufferedChannelPrivate(ZrQtBufferedChannel *owner)
        : ZrQtBaseChannelPrivate(owner)
    {
    }
    ZrQtBufferedChannelPrivate(const ZrQtBufferedChannelPrivate &) = default;
    ZrQtBufferedChannelPrivate(ZrQtBufferedChannelPrivate &&) = default;
    ZrQtBufferedChannelPrivate &operator=(const ZrQtBufferedChannelPrivate &) = default;
    ZrQtBufferedChannelPrivate &operator=(ZrQtBufferedChannelPrivate &&) = default;
    ~ZrQtBufferedChannelPrivate() override = default;

    ZrQtBufferedChannel *q_func() const { return static_cast<ZrQtBufferedChannel *>(q); }

    /// The points are `pointAt(0)` to `pointAt(count - 1)`.
    template <typename PointAt> [[nodiscard]] bool holds(int count, PointAt pointAt) const;
    template <typename PointAt> PointExtent fill(int count, PointAt pointAt);
    void share(const QVector<QPointF> &newPoints, const PointExtent &extent);
    void replacePoints(const QVector<QPointF> &newPoints, const PointExtent &extent,
                       const QRectF &newBoundingRect);
    void reportPoints();
    void drawLine(QPainter &painter);
    void drawMarkers(QPainter &painter);

    QVector<QPointF> points; // data units, clipped to the supported range
    int channelNr = 0;
    QRectF boundingRect; // data units, edges clipped
    bool dataReduction = false;
    SampleSeries series; // what is known of the points; empty as long as nobody needs it
};

#endif // ZRQTBUFFEREDCHANNEL_P_H
