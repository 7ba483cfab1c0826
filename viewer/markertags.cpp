#include "markertags.h"

#include <QtGui/QPainter>

#include <ZrQtPlotWidgets/zrqtplotchannel.h>

namespace {

constexpr QSizeF kSize(16.0, 16.0);
constexpr double kTop = 2.0;
constexpr double kRadius = 3.0;

} // namespace

MarkerTags::MarkerTags(const QColor &color)
    : m_color(color)
{
}

void MarkerTags::paint(QPainter &painter, QSizeF)
{
    const QTransform toPixel = painter.worldTransform();
    painter.save();
    painter.resetTransform();
    painter.setBrush(m_color);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(12);
    painter.setFont(font);
    char16_t letter = u'A';
    for (const QLineF &line : parentChannel()->lines()) {
        const double x = toPixel.map(line.p1()).x();
        const QRectF tag(QPointF(x - kSize.width() / 2.0, kTop), kSize);
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(tag, kRadius, kRadius);
        painter.setPen(Qt::white);
        painter.drawText(tag, Qt::AlignCenter, QString(QChar(letter++)));
    }
    painter.restore();
}
