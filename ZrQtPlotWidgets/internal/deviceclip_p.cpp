#include "deviceclip_p.h"

#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

void clipToDevice(QPainter &painter)
{
    if (painter.paintEngine()->type() != QPaintEngine::Raster || painter.viewTransformEnabled())
        return;
    const QTransform transform = painter.worldTransform();
    painter.setWorldTransform(QTransform());
    painter.setClipRect(QRect(0, 0, painter.device()->width(), painter.device()->height()),
                        Qt::IntersectClip);
    painter.setWorldTransform(transform);
}
