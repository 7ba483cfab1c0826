#include "zrqtplot_p.h"

#include "internal/boundingtracker_p.h"
#include "zrqtbasechannel.h"
#include "zrqtbasechannel_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

using CanvasScaling::Extent;

namespace {

/// What an extent starts from that is to grow around the channels.
constexpr Extent nothing{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};

} // namespace

/// Outcome of tracking one direction of a reported bounding rectangle.
struct ZrQtPlotPrivate::Tracked
{
    bool skipped = false; ///< an empty extent that does not count
    bool inside = false;
    bool changed = false;
};

/// A channel reports its bounding rectangle: an extent that grows beyond the tolerance is followed at once,
/// one that shrinks within it after the interval of the reduction timer.
void ZrQtPlotPrivate::trackBoundingRect(ZrQtBaseChannel *channel, const QRectF &rect, Tracking tracking)
{
    noteExtent(channel, rect);
    if (!channel->useForScaling())
        return;
    // A copy, since the slots of canvasChanged() may delete the channel that reports it.
    const QRectF reported = rect;
    const QPointer<ZrQtPlot> plot(q);
    const Tracked x = track(channel, reported, ZrQtPlot::Axis_X, tracking);
    if (!plot || !m_channels.contains(channel))
        return;
    const Tracked y = track(channel, reported, ZrQtPlot::Axis_Y, tracking);
    if (!plot)
        return;

    const bool shrank = !y.skipped && y.inside && (y.changed || (x.inside && x.changed));
    if (shrank || (x.inside && x.changed))
        startReduceTimer();
    else if (!x.inside)
        stopReduceTimer();
}

ZrQtPlotPrivate::Tracked ZrQtPlotPrivate::track(ZrQtBaseChannel *channel, const QRectF &rect, PlotAxis axis,
                                                Tracking tracking)
{
    const CoordinateSystem cosy = channel->cosy(axis);
    Tracked result;
    if (!useEmptyBoundingRectsForAutoFitScaling && !(CanvasScaling::sizeOf(rect, toDirection(axis)) > 0.0)) {
        result.skipped = true;
        const CosyState::Direction &direction = state(cosy).direction(axis);
        if (direction.minChannel == channel || direction.maxChannel == channel)
            refit(cosy, axis);
        return result;
    }

    const double tolerance
        = axis == ZrQtPlot::Axis_X ? keepOldBoundingRectWidthTolerance : keepOldBoundingRectHeightTolerance;
    const BoundingTracker::Comparison comparison
        = BoundingTracker::compare(state(cosy).boundingRect, rect, toDirection(axis), tolerance);
    result.inside = comparison.inside;
    result.changed = comparison.changed;

    bool runs = tracking == Tracking::Forced;
    if (!runs && !comparison.bothKept()) {
        const bool delayed = comparison.inside && boundingRectReduceUpdateInterval >= 1;
        runs = !delayed && comparison.changed && channel->isSelectedForDisplay();
    }
    if (runs)
        updateExtent(channel, rect, axis, {comparison.lowKept, comparison.highKept, tracking});
    return result;
}

/// Merges the reported extent into that of the system. Where the channel held an edge and lets go of it, only
/// a look at all channels tells the new extent.
void ZrQtPlotPrivate::updateExtent(ZrQtBaseChannel *channel, const QRectF &rect, PlotAxis axis,
                                   const ExtentUpdate &update)
{
    const bool forced = update.tracking == Tracking::Forced;
    if (!forced && !extentThatCounts(channel, axis))
        return;

    const CoordinateSystem cosy = channel->cosy(axis);
    CosyState &record = state(cosy);
    CosyState::Direction &direction = record.direction(axis);
    const Extent known = CanvasScaling::extentOf(record.boundingRect, toDirection(axis));
    const Extent reported = CanvasScaling::extentOf(rect, toDirection(axis));

    Extent extent{direction.minChannel ? known.low : nothing.low,
                  direction.maxChannel ? known.high : nothing.high};
    if (!(update.lowKept && extent.low != nothing.low))
        extent.low = std::min(extent.low, reported.low);
    if (!(update.highKept && extent.high != nothing.high))
        extent.high = std::max(extent.high, reported.high);
    if (reported.low == extent.low)
        direction.minChannel = channel;
    if (reported.high == extent.high)
        direction.maxChannel = channel;

    const bool letsGoOfLow
        = direction.minChannel == channel && ((extent.low < reported.low && !update.lowKept) || forced);
    const bool letsGoOfHigh
        = direction.maxChannel == channel && ((reported.high < extent.high && !update.highKept) || forced);
    if (letsGoOfLow || letsGoOfHigh) {
        refit(cosy, axis);
        return;
    }
    const bool lowStays = extent.low == known.low || update.lowKept;
    const bool highStays = extent.high == known.high || update.highKept;
    if (!lowStays || !highStays)
        writeExtent(cosy, axis, extent);
}

/// What \a channel adds to the extent of its system; nothing if it does not count.
std::optional<Extent> ZrQtPlotPrivate::extentThatCounts(ZrQtBaseChannel *channel, PlotAxis axis) const
{
    if (!channel->m_d->selectedForDisplay || !channel->m_d->useForScaling)
        return std::nullopt;
    const QRectF rect = channel->boundingRect();
    if (!useEmptyBoundingRectsForAutoFitScaling && !(CanvasScaling::sizeOf(rect, toDirection(axis)) > 0.0))
        return std::nullopt;
    const Extent extent = CanvasScaling::extentOf(rect, toDirection(axis));
    if (!std::isfinite(extent.low) || !std::isfinite(extent.high))
        return std::nullopt;
    return extent;
}

/// Computes the extent of the data of a system from all its channels. While it stays the same nothing
/// happens, whatever else changed.
void ZrQtPlotPrivate::refit(CoordinateSystem cosy, PlotAxis axis)
{
    Extent extent = nothing;
    ZrQtBaseChannel *minChannel = nullptr;
    ZrQtBaseChannel *maxChannel = nullptr;
    for (ZrQtBaseChannel *channel : std::as_const(m_channels)) {
        if ((axis == ZrQtPlot::Axis_X ? channel->m_d->cosyX : channel->m_d->cosyY) != cosy)
            continue;
        const std::optional<Extent> own = extentThatCounts(channel, axis);
        if (!own)
            continue;
        if (own->low <= extent.low) {
            extent.low = own->low;
            minChannel = channel;
        }
        if (own->high >= extent.high) {
            extent.high = own->high;
            maxChannel = channel;
        }
    }

    CosyState &record = state(cosy);
    if (!minChannel && !maxChannel) {
        for (CosyState::Direction *direction : {&record.x, &record.y}) {
            direction->fitted = direction->fitted && !direction->minChannel && !direction->maxChannel;
            direction->minChannel = nullptr;
            direction->maxChannel = nullptr;
        }
        record.direction(axis).fitted = true;
        return;
    }
    record.direction(axis).minChannel = minChannel;
    record.direction(axis).maxChannel = maxChannel;
    // Before anybody hears of it and changes something. What is widened is written at each look.
    record.direction(axis).fitted = !(useEmptyBoundingRectsForAutoFitScaling && extent.low == extent.high);
    const Extent known = CanvasScaling::extentOf(record.boundingRect, toDirection(axis));
    if (extent.low != known.low || extent.high != known.high)
        writeExtent(cosy, axis, extent);
}

/// Fits a system to which a channel was added. Where nothing changed since the last fit, and the new channel
/// does not count, there is nothing to find: to look all the same would make many channels slow to add.
void ZrQtPlotPrivate::refitWith(ZrQtBaseChannel *channel, CoordinateSystem cosy, PlotAxis axis)
{
    CosyState &record = state(cosy);
    const CosyState::Direction &direction = record.direction(axis);
    const bool isSettled = direction.minChannel ? direction.maxChannel != nullptr : !record.edgesAreHeld();
    if (!direction.fitted || !isSettled || extentThatCounts(channel, axis))
        refit(cosy, axis);
}

/// A fit finds something else when a channel that counts, or that holds an edge, reports its extent.
void ZrQtPlotPrivate::noteExtent(ZrQtBaseChannel *channel, const QRectF &rect)
{
    for (PlotAxis axis : {ZrQtPlot::Axis_X, ZrQtPlot::Axis_Y}) {
        CosyState::Direction &direction = state(channel->cosy(axis)).direction(axis);
        const bool counts = channel->isSelectedForDisplay() && channel->useForScaling()
                            && (useEmptyBoundingRectsForAutoFitScaling
                                || CanvasScaling::sizeOf(rect, toDirection(axis)) > 0.0);
        if (counts || direction.minChannel == channel || direction.maxChannel == channel)
            direction.fitted = false;
    }
}

void ZrQtPlotPrivate::writeExtent(CoordinateSystem cosy, PlotAxis axis, Extent extent)
{
    const QPointer<ZrQtPlot> plot(q);
    const CoordinateSystem shown = axis == ZrQtPlot::Axis_X ? selectionCosyX : selectionCosyY;
    if (cosy == shown)
        refreshTooltip();
    if (!plot)
        return;
    if (useEmptyBoundingRectsForAutoFitScaling && extent.low == extent.high) {
        extent.low -= 0.5;
        extent.high += 0.5;
    }
    CosyState &before = state(cosy);
    before.boundingRect = CanvasScaling::withExtent(before.boundingRect, toDirection(axis), extent);
    applyScaling(cosy, axis);
    if (!plot)
        return;
    // Only now: the scaling compares with the extent before this one.
    CosyState &after = state(cosy);
    after.lastBoundingRect = CanvasScaling::withExtent(after.lastBoundingRect, toDirection(axis), extent);
    emitCanvas(cosy);
    if (plot)
        q->update();
}

/// Fits every pair of system and direction that a channel uses, each once.
void ZrQtPlotPrivate::refitUsed()
{
    const QPointer<ZrQtPlot> plot(q);
    for (PlotAxis axis : {ZrQtPlot::Axis_X, ZrQtPlot::Axis_Y}) {
        QVector<CoordinateSystem> systems;
        for (const ZrQtBaseChannel *channel : std::as_const(m_channels)) {
            if (!systems.contains(channel->cosy(axis)))
                systems.append(channel->cosy(axis));
        }
        for (CoordinateSystem cosy : std::as_const(systems)) {
            refit(cosy, axis);
            if (!plot)
                return;
        }
    }
}

/// Forgets \a channel as the holder of edges and fits the directions concerned. Compares addresses only: the
/// channel may be under destruction.
void ZrQtPlotPrivate::releaseChannel(ZrQtBaseChannel *channel)
{
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = recordedSystems();
    for (CoordinateSystem cosy : systems) {
        for (PlotAxis axis : {ZrQtPlot::Axis_X, ZrQtPlot::Axis_Y}) {
            if (!plot)
                return;
            CosyState::Direction &direction = state(cosy).direction(axis);
            const bool held = direction.minChannel == channel || direction.maxChannel == channel;
            direction.fitted = direction.fitted && !held;
            if (direction.minChannel == channel)
                direction.minChannel = nullptr;
            if (direction.maxChannel == channel)
                direction.maxChannel = nullptr;
            if (held)
                refit(cosy, axis);
        }
    }
}

void ZrQtPlotPrivate::startReduceTimer()
{
    if (boundingRectReduceUpdateInterval >= 1 && !m_boundingRectReduceTimer.isActive())
        m_boundingRectReduceTimer.start(boundingRectReduceUpdateInterval);
}

void ZrQtPlotPrivate::stopReduceTimer()
{
    if (boundingRectReduceUpdateInterval >= 1)
        m_boundingRectReduceTimer.stop();
}

bool ZrQtPlot::useEmptyBoundingRectsForAutoFitScaling() const
{
    Q_D(const ZrQtPlot);
    return d->useEmptyBoundingRectsForAutoFitScaling;
}

void ZrQtPlot::setUseEmptyBoundingRectsForAutoFitScaling(bool use)
{
    Q_D(ZrQtPlot);
    if (d->useEmptyBoundingRectsForAutoFitScaling == use)
        return;
    d->useEmptyBoundingRectsForAutoFitScaling = use;
    d->refitUsed();
}

void ZrQtPlot::setKeepOldBoundingRectWidthTolerance(double tolerance)
{
    Q_D(ZrQtPlot);
    d->keepOldBoundingRectWidthTolerance = tolerance;
}

void ZrQtPlot::setKeepOldBoundingRectHeightTolerance(double tolerance)
{
    Q_D(ZrQtPlot);
    d->keepOldBoundingRectHeightTolerance = tolerance;
}

void ZrQtPlot::setBoundingRectReduceUpdateInterval(int milliseconds)
{
    Q_D(ZrQtPlot);
    d->boundingRectReduceUpdateInterval = milliseconds;
    // Stopped first: a running timer does not take a negative interval.
    if (milliseconds < 1)
        d->m_boundingRectReduceTimer.stop();
    d->m_boundingRectReduceTimer.setInterval(milliseconds);
}
