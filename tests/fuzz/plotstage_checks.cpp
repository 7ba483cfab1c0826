#include "plotstage.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "shared/mouseprobe.h"

#include <QtCore/QMetaEnum>

#include <algorithm>
#include <cmath>
#include <limits>

void PlotStage::check()
{
    for (const QPointer<OpenPlot> &each : m_plots) {
        checkLists(*each);
        checkGeometry(*each);
        if (m_tame)
            checkCanvases(*each);
        for (const ZrQtAxis *axis : each->state().m_axes)
            checkTicks(*axis);
    }
}

/// Registered widgets are children, each once: a dead one is the child of nobody.
void PlotStage::checkLists(const OpenPlot &plot) const
{
    const ZrQtPlotPrivate &state = plot.state();
    const auto checkList = [&plot](const auto &widgets, int expected) {
        require(widgets.size() == expected, "every child is registered");
        for (QObject *widget : widgets) {
            require(plot.children().contains(widget), "what is registered is a child");
            require(std::count(widgets.cbegin(), widgets.cend(), widget) == 1, "registered once");
        }
    };
    checkList(state.m_axes, plot.findChildren<ZrQtAxis *>(QString(), Qt::FindDirectChildrenOnly).size());
    const int channels = plot.findChildren<ZrQtBaseChannel *>(QString(), Qt::FindDirectChildrenOnly).size();
    checkList(state.m_channels, channels);
    if (!state.m_channelStackIsOld)
        checkList(state.m_channelStack, channels);
    checkList(state.m_customWidgets,
              plot.findChildren<ZrQtPlotChannelEdit *>(QString(), Qt::FindDirectChildrenOnly).size());
    for (const CosyState &record : state.m_cosys) {
        for (const CosyState::Direction &direction : {record.x, record.y}) {
            for (ZrQtBaseChannel *channel : {direction.minChannel, direction.maxChannel})
                require(!channel || state.m_channels.contains(channel), "an edge is held by a channel");
        }
    }
}

void PlotStage::checkGeometry(const OpenPlot &plot) const
{
    const QRectF area = plot.state().m_plotRect;
    require(area.width() >= 0.0 && area.height() >= 0.0, "the plot area is not negative");
    require(std::isfinite(area.right()) && std::isfinite(area.bottom()), "the plot area is finite");
}

void PlotStage::checkTicks(const ZrQtAxis &axis) const
{
    const QVector<double> ticks = axis.tickPositions();
    require(ticks.size() <= std::max(axis.maxTicks(), 2), "no more ticks than wished");
    for (const double tick : ticks + axis.subTickPositions())
        require(std::isfinite(tick), "ticks are finite");
    if (ticks.isEmpty())
        return;
    // Labels may be rounded towards each other, past the distance of their ticks.
    const double rounding = 0.06 * std::fabs(ticks.constLast() - ticks.constFirst()) + 1.0;
    const double direction = ticks.constLast() < ticks.constFirst() ? -1.0 : 1.0;
    require(std::is_sorted(ticks.cbegin(), ticks.cend(),
                           [=](double a, double b) { return direction * (a - b) < -rounding; }),
            "ticks are in order");
}

static bool countsForExtent(ZrQtBaseChannel *channel, const ZrQtPlotPrivate &state, Cosy cosy,
                            ZrQtPlot::PlotAxis direction)
{
    const QRectF own = channel->boundingRect();
    const double size = direction == ZrQtPlot::Axis_X ? own.width() : own.height();
    return channel->cosy(direction) == cosy && channel->isSelectedForDisplay() && channel->useForScaling()
           && (state.useEmptyBoundingRectsForAutoFitScaling || size > 0.0);
}

/// Where channels count in one direction only, a look at all of them for the other one makes both let go of
/// their edges. From then on an extent covers what comes, and not what is there.
bool PlotStage::keepsTrack(const OpenPlot &plot, Cosy cosy)
{
    const ZrQtPlotPrivate &state = plot.state();
    const auto countsAny = [&state, cosy](ZrQtPlot::PlotAxis direction) {
        return std::any_of(state.m_channels.cbegin(), state.m_channels.cend(), [&](ZrQtBaseChannel *channel) {
            return countsForExtent(channel, state, cosy, direction);
        });
    };
    const QPair<const OpenPlot *, int> system(&plot, cosy);
    if (countsAny(ZrQtPlot::Axis_X) != countsAny(ZrQtPlot::Axis_Y))
        m_systemsThatLetGo.insert(system);
    return !m_systemsThatLetGo.contains(system);
}

/// While the application sets no canvas, margin or extent that asks for something else.
void PlotStage::checkCanvases(const OpenPlot &plot)
{
    const auto &records = plot.state().m_cosys;
    for (const Cosy cosy : records.keys()) {
        if (!QMetaEnum::fromType<Cosy>().valueToKey(cosy))
            continue; // a number that names no system shows nothing
        // Without data there is nothing to fit, and an axis lends its range to a canvas that shows nothing.
        const QSizeF data = records.value(cosy).boundingRect.size();
        const QSizeF canvas = records.value(cosy).canvas.size();
        require(canvas.width() > 0.0 || (canvas.width() == 0.0 && data.width() == 0.0),
                "left is below right");
        require(canvas.height() > 0.0 || (canvas.height() == 0.0 && data.height() == 0.0),
                "top is below bottom");
        if (!keepsTrack(plot, cosy))
            continue;
        checkExtent(plot, cosy, ZrQtPlot::Axis_X);
        checkExtent(plot, cosy, ZrQtPlot::Axis_Y);
    }
}

/// What is tracked change by change is what a look at all channels finds.
void PlotStage::checkExtent(const OpenPlot &plot, Cosy cosy, ZrQtPlot::PlotAxis direction) const
{
    const bool isX = direction == ZrQtPlot::Axis_X;
    const auto lowOf = [isX](const QRectF &rect) { return isX ? rect.left() : rect.top(); };
    const auto highOf = [isX](const QRectF &rect) { return isX ? rect.right() : rect.bottom(); };
    const ZrQtPlotPrivate &state = plot.state();
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    for (ZrQtBaseChannel *channel : state.m_channels) {
        if (!countsForExtent(channel, state, cosy, direction))
            continue;
        const QRectF own = channel->boundingRect();
        low = std::min(low, lowOf(own));
        high = std::max(high, highOf(own));
    }
    if (low > high)
        return;
    const CosyState record = state.m_cosys.value(cosy);
    const CosyState::Direction &holders = isX ? record.x : record.y;
    if (!holders.minChannel || !holders.maxChannel)
        return; // where no channel counts in one direction, both let go of their extent, which stays
    const QRectF tracked = record.boundingRect;
    // A point gets a width, but not where it is at the place of the extent that is there from the start.
    if (low == high && !(lowOf(tracked) == low && highOf(tracked) == high)) {
        low -= 0.5;
        high += 0.5;
    }
    // And keeps it at an edge that it holds, until all channels are looked at again.
    const auto isUpToDate = [isX](ZrQtBaseChannel *holder, double edge, double expected, double widened) {
        const QRectF own = holder->boundingRect();
        const bool isPoint = (isX ? own.width() : own.height()) == 0.0;
        return std::fabs(edge - expected) < 1e-6 || (isPoint && std::fabs(edge - widened) < 1e-6);
    };
    require(isUpToDate(holders.minChannel, lowOf(tracked), low, low - 0.5)
                && isUpToDate(holders.maxChannel, highOf(tracked), high, high + 0.5),
            "the extent of the data is up to date");
}

/// As a user does in the end.
void PlotStage::letGo()
{
    if (QWidget *grabber = QWidget::mouseGrabber())
        release(grabber, {1, 1});
    for (const QPointer<QWidget> &each : std::as_const(m_things)) {
        if (each && !qobject_cast<ZrQtAxis *>(each))
            release(each, {1, 1});
    }
    for (const QPointer<OpenPlot> &each : m_plots) {
        release(each, {1, 1});
        const ZrQtPlotPrivate &state = each->state();
        for (const CosyState &record : state.m_cosys)
            require(!record.x.hold && !record.y.hold, "no axis is dragged");
        require(!state.pressed && !state.m_mouseDragging && !state.selectionVisible, "no drag is left");
    }
    require(!QWidget::mouseGrabber(), "nobody holds the mouse");
    for (const QPointer<QWidget> &each : std::as_const(m_things)) {
        const auto *channel = qobject_cast<ZrQtPlotChannel *>(each);
        require(!channel || !channel->isDraggingFeature(), "no content is dragged");
        const auto *slider = qobject_cast<ZrQtPlotSlider *>(each);
        require(!slider || (!slider->leftDragging() && !slider->rightDragging()), "no handle is dragged");
    }
}
