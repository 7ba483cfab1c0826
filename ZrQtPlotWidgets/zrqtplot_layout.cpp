#include "zrqtplot_p.h"

#include "zrqtaxis.h"
#include "zrqtbasechannel.h"
#include "zrqtplotslider.h"
#include "zrqttooltipwidget_p.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int leastPlotSize = 20;

// Two of them and the least plot area are the largest size that a widget may ask for.
constexpr int mostMargin = (QWIDGETSIZE_MAX - leastPlotSize) / 2;

// An axis whose size depends on its margins may ask for a further layout; two axes that never agree must not
// keep the application busy.
constexpr int mostPasses = 8;

/// Puts each widget beside the one before it, from the plot area outwards.
class Stack
{
public:
    explicit Stack(int start)
        : m_position(start)
    {
    }

    int outwards(int size) { return std::exchange(m_position, m_position + size); }
    int backwards(int size) { return m_position -= size; }

private:
    int m_position;
};

void setGeometryIfDifferent(QWidget *widget, const QRect &geometry)
{
    if (widget->geometry() != geometry)
        widget->setGeometry(geometry);
}

} // namespace

/// Computes the plot area and places everything. An axis that changes its size meanwhile, or a slot of the
/// application, may ask for a layout from inside; that one runs afterwards.
void ZrQtPlotPrivate::layOut()
{
    if (m_layingOut) {
        m_layoutPending = true;
        return;
    }
    m_layingOut = true;
    const QPointer<ZrQtPlot> plot(q);
    for (int pass = 0; pass < mostPasses; ++pass) {
        m_layoutPending = false;
        layOutOnce();
        if (!plot)
            return;
        if (!m_layoutPending)
            break;
    }
    m_layingOut = false;
    q->update();
}

void ZrQtPlotPrivate::setMinMargin(int &stored, int margin)
{
    if (stored == margin)
        return;
    stored = margin;
    layOut();
}

void ZrQtPlotPrivate::layOutOnce()
{
    updateLegendHeight();
    const Margins margins = marginsAroundPlotArea();
    const QPointer<ZrQtPlot> plot(q);
    placeAxes(margins);
    if (!plot)
        return;
    q->setMinimumWidth(margins.left + leastPlotSize + margins.right);
    q->setMinimumHeight(margins.top + leastPlotSize + margins.bottom);
    m_plotRect = QRectF(margins.left, margins.top, std::max(0, q->width() - margins.left - margins.right),
                        std::max(0, q->height() - margins.top - margins.bottom));
    placeOnPlotArea();
}

/// On purpose: while the legend is off, its height stays what it was.
void ZrQtPlotPrivate::updateLegendHeight()
{
    if (!generateLegend)
        return;
    const LegendLines::Metrics metrics(q->fontMetrics().height());
    m_legendHeight = metrics.lineHeight() * legendLines().size();
}

QVector<LegendLines::Line> ZrQtPlotPrivate::legendLines() const
{
    const QFontMetrics fontMetrics = q->fontMetrics();
    const LegendLines::Metrics metrics(fontMetrics.height());
    QVector<int> widths;
    widths.reserve(m_channels.size());
    for (const ZrQtBaseChannel *channel : m_channels) {
        const QString name = legendName(channel);
        const bool listed = channel->isVisible() && channel->showInLegend() && !name.isEmpty();
        widths.append(listed ? metrics.entryWidth(fontMetrics.horizontalAdvance(name)) : 0);
    }
    return LegendLines::broken(widths, metrics.spacing, static_cast<int>(m_plotRect.width() + 0.5));
}

QString ZrQtPlotPrivate::legendName(const ZrQtBaseChannel *channel)
{
    const QString name = channel->name();
    return name.isEmpty() ? channel->objectName() : name;
}

QVector<ZrQtAxis *> ZrQtPlotPrivate::visibleAxes() const
{
    QVector<ZrQtAxis *> axes;
    std::copy_if(m_axes.cbegin(), m_axes.cend(), std::back_inserter(axes),
                 [](const ZrQtAxis *axis) { return axis->isVisible(); });
    return axes;
}

/// The space that axes, their end labels and the legend need. The end labels of vertical axes reach above and
/// below the plot area, those of horizontal axes to its left and right.
ZrQtPlotPrivate::Margins ZrQtPlotPrivate::marginsAroundPlotArea() const
{
    const auto widen = [](int &margin, int size) { margin = std::min(margin + size, mostMargin); };
    Margins margins;
    widen(margins.bottom, m_legendHeight);
    int beyondVertical = 0;
    int beyondHorizontal = 0;
    const QVector<ZrQtAxis *> axes = visibleAxes();
    for (const ZrQtAxis *axis : axes) {
        const int beyond = std::max(axis->minMarginLow(), axis->minMarginHigh());
        switch (axis->position()) {
        case Qt::LeftEdge:
            widen(margins.left, axis->width());
            beyondVertical = std::max(beyondVertical, beyond);
            break;
        case Qt::RightEdge:
            widen(margins.right, axis->width());
            beyondVertical = std::max(beyondVertical, beyond);
            break;
        case Qt::TopEdge:
            widen(margins.top, axis->height());
            beyondHorizontal = std::max(beyondHorizontal, beyond);
            break;
        case Qt::BottomEdge:
            widen(margins.bottom, axis->height());
            beyondHorizontal = std::max(beyondHorizontal, beyond);
            break;
        }
    }
    const auto widest
        = [](std::initializer_list<int> wishes) { return std::min(std::max(wishes), mostMargin); };
    margins.top = widest({minMarginTop, margins.top, beyondVertical});
    margins.bottom = widest({minMarginBottom, margins.bottom, beyondVertical});
    margins.left = widest({minMarginLeft, margins.left, beyondHorizontal});
    margins.right = widest({minMarginRight, margins.right, beyondHorizontal});
    return margins;
}

/// Axes span the whole widget along their length; their margins tell them where the plot area begins and
/// ends.
void ZrQtPlotPrivate::placeAxes(const Margins &margins)
{
    const int width = q->width();
    const int height = q->height();
    Stack right(width - margins.right);
    Stack bottom(height - margins.bottom);
    Stack left(margins.left);
    Stack top(margins.top);

    const QPointer<ZrQtPlot> plot(q);
    const QVector<ZrQtAxis *> axes = visibleAxes();
    for (ZrQtAxis *axis : axes) {
        // A slot of the application may have removed it.
        if (!m_axes.contains(axis))
            continue;
        const bool vertical = directionOf(axis->position()) == ZrQtPlot::Axis_Y;
        axis->setMarginLow(vertical ? margins.bottom : margins.left);
        if (plot && m_axes.contains(axis))
            axis->setMarginHigh(vertical ? margins.top : margins.right);
        if (plot && m_axes.contains(axis))
            fillEmptyCanvas(axis);
        if (!plot)
            return;
        if (!m_axes.contains(axis))
            continue;
        switch (axis->position()) {
        case Qt::RightEdge:
            axis->setGeometry(right.outwards(axis->width()), 0, axis->width(), height);
            break;
        case Qt::BottomEdge:
            axis->setGeometry(0, bottom.outwards(axis->height()), width, axis->height());
            break;
        case Qt::LeftEdge:
            axis->setGeometry(left.backwards(axis->width()), 0, axis->width(), height);
            break;
        case Qt::TopEdge:
            axis->setGeometry(0, top.backwards(axis->height()), width, axis->height());
            break;
        }
    }
    for (ZrQtAxis *axis : axes) {
        if (m_axes.contains(axis))
            axis->updateAxis();
    }
}

/// A system that shows nothing in the direction of \a axis takes the range of the axis.
void ZrQtPlotPrivate::fillEmptyCanvas(ZrQtAxis *axis)
{
    const CanvasScaling::Direction direction = toDirection(directionOf(axis->position()));
    QRectF &canvas = state(axis->cosy()).canvas;
    if (CanvasScaling::sizeOf(canvas, direction) != 0.0)
        return;
    canvas = CanvasScaling::withExtent(canvas, direction, {axis->min(), axis->max()});
    emitCanvas(axis->cosy());
}

/// Channels, custom widgets, overlay and slider all cover the plot area; they lie above each other in the
/// order in which they were raised.
void ZrQtPlotPrivate::placeOnPlotArea()
{
    const QRect area = m_plotRect.toRect();
    if (m_overlay)
        m_overlay->setGeometry(area);
    const QList<ZrQtBaseChannel *> channels = m_channels;
    for (ZrQtBaseChannel *channel : channels) {
        // A slot of the application may have removed it; as long as nobody changed the list, none is
        // searched.
        if (m_channels.isSharedWith(channels) || m_channels.contains(channel))
            setGeometryIfDifferent(channel, area);
    }
    const QList<QWidget *> widgets = m_customWidgets;
    for (QWidget *widget : widgets) {
        // A dialog or menu whose parent is the plot has a place of its own.
        if (m_customWidgets.contains(widget) && !widget->isWindow())
            setGeometryIfDifferent(widget, area);
    }
    if (m_slider)
        setGeometryIfDifferent(m_slider, area);
}
