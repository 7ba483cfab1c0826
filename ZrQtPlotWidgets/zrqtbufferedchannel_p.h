#ifndef ZRQTBUFFEREDCHANNEL_P_H
#define ZRQTBUFFEREDCHANNEL_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice, or even be removed.
//

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

    [[nodiscard]] bool holds(const QVector<QPointF> &otherPoints) const;
    void store(const QVector<QPointF> &newPoints);
    void drawLine(QPainter &painter) const;

    QVector<QPointF> points; // data units, clipped to the supported range
    int channelNr = 0;
    QRectF boundingRect; // data units, edges clipped
    bool pointsContainNaN = false;
};

#endif // ZRQTBUFFEREDCHANNEL_P_H
