#include "zrqtplot_p.h"

#include "internal/plotgestures_p.h"
#include "zrqttooltipwidget_p.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QCursor>

namespace {

constexpr int refreshInterval = 50;

} // namespace

QPointF ZrQtPlotPrivate::cursorPosition() const
{
    return q->mapFromGlobal(QCursor::pos());
}

/// Whether the mouse points at the plot area of this plot, and not at a window above it.
bool ZrQtPlotPrivate::cursorInPlotArea() const
{
    return m_plotRect.contains(cursorPosition()) && q->underMouse();
}

QString ZrQtPlotPrivate::tooltipText(const QPointF &cursor) const
{
    const CosyState stateX = m_cosys.value(selectionCosyX);
    const CosyState stateY = m_cosys.value(selectionCosyY);
    const QPointF value
        = PlotGestures::valueOnAxes(cursor, m_plotRect, workingCanvas(selectionCosyX),
                                    workingCanvas(selectionCosyY), {stateX.x.inverted, stateY.y.inverted});
    if (m_hoverCallback) {
        // A copy: the callback may register another one.
        const auto callback = m_hoverCallback;
        return callback(value.x(), value.y());
    }
    return QStringLiteral("[%1, %2]").arg(value.x(), 0, 'g', 6).arg(value.y(), 0, 'g', 6);
}

void ZrQtPlotPrivate::showTooltip()
{
    const QPointF cursor = cursorPosition();
    // A callback that changes data or canvases comes back here, and so do mouse moves that the platform
    // delivers while it makes the window.
    if (!m_toolTip || m_makingTooltip || !m_plotRect.contains(cursor) || !q->underMouse())
        return;
    const QPointer<ZrQtPlot> plot(q);
    m_makingTooltip = true;
    const QString text = tooltipText(cursor);
    // The application's callback may have thrown the plot away.
    if (plot && m_toolTip) {
        m_toolTip->move(QCursor::pos() + cursorShift);
        m_toolTip->setText(text);
        m_toolTip->setVisible(!text.isEmpty());
    }
    // So may an event that the platform delivers while it makes the window.
    if (!plot)
        return;
    m_makingTooltip = false;
    if (!m_toolTip)
        return;
    if (tooltipMode == ZrQtPlot::SHOW_ON_CLICK && !m_tooltipShown)
        m_tooltipTimer.start();
    m_tooltipShown = true;
}

void ZrQtPlotPrivate::hideTooltip()
{
    m_tooltipShown = false;
    const QPointer<ZrQtPlot> plot(q);
    Q_EMIT q->tooltipHidden();
    if (!plot)
        return;
    if (m_toolTip)
        m_toolTip->hide();
    q->update();
}

/// The mouse moved over the plot, the overlay or an axis.
void ZrQtPlotPrivate::checkTooltip(Qt::MouseButtons buttons)
{
    if (!m_plotRect.contains(cursorPosition())) {
        hideTooltip();
        return;
    }
    const bool wanted = tooltipMode == ZrQtPlot::SHOW_ALWAYS
                        || (tooltipMode == ZrQtPlot::SHOW_WHILE_PRESSED && buttons.testFlag(Qt::LeftButton));
    if (wanted || m_tooltipShown)
        showTooltip();
}

void ZrQtPlotPrivate::refreshTooltip()
{
    if (tooltipMode == ZrQtPlot::SHOW_ALWAYS || m_tooltipShown)
        showTooltip();
}

void ZrQtPlot::timerEvent(QTimerEvent *)
{
    Q_D(ZrQtPlot);
    d->refreshTooltip();
}

ZrQtPlot::TooltipMode ZrQtPlot::tooltipMode() const
{
    Q_D(const ZrQtPlot);
    return d->tooltipMode;
}

void ZrQtPlot::setTooltipMode(TooltipMode mode)
{
    Q_D(ZrQtPlot);
    if (d->tooltipMode == mode)
        return;
    d->tooltipMode = mode;
    if (mode == SHOW_ALWAYS && d->m_tooltipTimerId == 0) {
        d->m_tooltipTimerId = startTimer(refreshInterval, Qt::PreciseTimer);
    } else if (mode != SHOW_ALWAYS && d->m_tooltipTimerId != 0) {
        killTimer(d->m_tooltipTimerId);
        d->m_tooltipTimerId = 0;
    }
}

void ZrQtPlot::registerHoverCallback(std::function<QString(double, double)> callback)
{
    Q_D(ZrQtPlot);
    d->m_hoverCallback = std::move(callback);
}

void ZrQtPlot::setCursorShift(QPoint shift)
{
    Q_D(ZrQtPlot);
    d->cursorShift = shift;
}

const QFont &ZrQtPlot::getToolTipFont() const
{
    Q_D(const ZrQtPlot);
    return d->m_toolTip ? d->m_toolTip->textFont() : font();
}

QSize ZrQtPlot::getToolTipSize() const
{
    Q_D(const ZrQtPlot);
    return d->m_toolTip ? d->m_toolTip->size() : QSize();
}

QPointF ZrQtPlot::getTooltipPosition() const
{
    Q_D(const ZrQtPlot);
    if (!d->cursorInPlotArea())
        return {};
    return d->selectionTransform().map(d->cursorPosition() - d->m_plotRect.topLeft());
}

bool ZrQtPlot::isToolTipShown() const
{
    Q_D(const ZrQtPlot);
    return d->cursorInPlotArea();
}
