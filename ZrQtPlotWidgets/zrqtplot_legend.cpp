#include "zrqtplot_p.h"

#include "internal/painterstate_p.h"
#include "zrqtaxis.h"
#include "zrqtbasechannel.h"

#include <QtGui/QPainter>

void ZrQtPlotPrivate::paintLegend(QPainter &painter)
{
    const PainterState saved(painter);
    const LegendLines::Metrics metrics(q->fontMetrics().height());
    const double top = m_plotRect.bottom() + bottomAxesHeight();

    const QVector<LegendLines::Line> lines = legendLines();
    for (int i = 0; i < lines.size(); ++i) {
        const double baseline = top + (i + 1) * metrics.lineHeight() - metrics.spacing + 0.5;
        paintLegendLine(painter, lines.at(i), metrics, static_cast<int>(baseline));
    }
}

void ZrQtPlotPrivate::paintLegendLine(QPainter &painter, const LegendLines::Line &line,
                                      const LegendLines::Metrics &metrics, int baseline) const
{
    const int sampleSize = metrics.fontHeight;
    const int sampleTop = static_cast<int>(baseline - 0.75 * sampleSize);
    int x = legendLineStart(line.width);
    for (int entry : line.entries) {
        const ZrQtBaseChannel *channel = m_channels.at(entry);
        const QString name = legendName(channel);
        painter.fillRect(x, sampleTop, sampleSize, sampleSize, channel->lineColor());
        x += metrics.sampleGap + sampleSize;
        painter.drawText(x, baseline, name);
        x += painter.fontMetrics().horizontalAdvance(name) + metrics.spacing;
    }
}

int ZrQtPlotPrivate::legendLineStart(int lineWidth) const
{
    if (legendAlignment.testFlag(Qt::AlignRight))
        return static_cast<int>(m_plotRect.right() - lineWidth + 0.5);
    if (!legendAlignment.testFlag(Qt::AlignLeft) && legendAlignment.testFlag(Qt::AlignHCenter))
        return static_cast<int>(m_plotRect.center().x() - lineWidth * 0.5 + 0.5);
    return static_cast<int>(m_plotRect.left());
}

int ZrQtPlotPrivate::bottomAxesHeight() const
{
    int height = 0;
    for (const ZrQtAxis *axis : m_axes) {
        if (axis->position() == Qt::BottomEdge)
            height += axis->height();
    }
    return height;
}

bool ZrQtPlot::generateLegend() const
{
    Q_D(const ZrQtPlot);
    return d->generateLegend;
}

void ZrQtPlot::setGenerateLegend(bool generate)
{
    Q_D(ZrQtPlot);
    if (d->generateLegend == generate)
        return;
    d->generateLegend = generate;
    d->layOut();
}

void ZrQtPlot::setLegendAlignment(Qt::Alignment alignment)
{
    Q_D(ZrQtPlot);
    if (d->legendAlignment == alignment)
        return;
    d->legendAlignment = alignment;
    update();
}
