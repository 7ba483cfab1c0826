#include "straightlines_p.h"

#include "painterstate_p.h"

#include <QtCore/QVarLengthArray>
#include <QtGui/QPaintEngine>
#include <QtGui/QPen>
#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>

namespace {

bool isWhole(double value)
{
    return value == std::floor(value);
}

/// Whether a unit of the painter is a pixel, and its origin the corner of one.
bool isOnPixels(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxTranslate && isWhole(transform.dx()) && isWhole(transform.dy());
}

bool coversPixelsOfLines(const QPainter &painter)
{
    const QPen &pen = painter.pen();
    const bool isOnePixelWide = pen.widthF() == 0.0 || pen.widthF() == 1.0;
    return isOnePixelWide && pen.style() == Qt::SolidLine && pen.capStyle() == Qt::SquareCap
           && painter.paintEngine()->type() == QPaintEngine::Raster
           && !painter.testRenderHint(QPainter::Antialiasing) && isOnPixels(painter);
}

} // namespace

void drawStraightLines(QPainter &painter, const QLine *lines, int count)
{
    if (!coversPixelsOfLines(painter)) {
        painter.drawLines(lines, count);
        return;
    }
    QVarLengthArray<QRect, 256> rects;
    rects.reserve(count);
    for (int i = 0; i < count; ++i) {
        const auto [left, right] = std::minmax({lines[i].x1(), lines[i].x2()});
        const auto [top, bottom] = std::minmax({lines[i].y1(), lines[i].y2()});
        rects.append(QRect(QPoint(left, top), QPoint(right, bottom)));
    }
    const PainterState state(painter);
    painter.setBrush(painter.pen().brush());
    painter.setPen(Qt::NoPen);
    painter.drawRects(rects.constData(), rects.size());
}
