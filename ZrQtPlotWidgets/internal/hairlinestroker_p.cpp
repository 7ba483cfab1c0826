#include "hairlinestroker_p.h"

#include <algorithm>
#include <cmath>

namespace {

// Mostly Qt goes on from one of the first samples: these are looked at before anything is searched.
constexpr int fewSamples = 32;

// Samples that pass a middle but set no pixel are few, and close to one that does.
constexpr int mostPassedOver = 64;

double rounded(double pixel)
{
    return std::floor(pixel + 0.5);
}

} // namespace

/// A steep line sets pixels if it passes the middle of a row, a flat one if it passes that of a column. Qt
/// clips before, and goes on from points that it does not see.
bool HairlineStroker::goesOn(const QPointF &from, const QPointF &to) const
{
    const double width = std::abs(to.x() - from.x());
    const double height = std::abs(to.y() - from.y());
    if (width + height >= 1.0)
        return true;
    if (std::max(from.y(), to.y()) < m_top || std::min(from.y(), to.y()) > m_bottom)
        return true;
    return width < height ? rounded(from.y()) != rounded(to.y()) : rounded(from.x()) != rounded(to.x());
}

int HairlineStroker::next(const QPointF &from, const IndexRange &samples) const
{
    const int hidden = endOfHidden(from, samples);
    if (hidden > samples.begin)
        return hidden - 1;
    const int endOfFew = std::min(samples.begin + fewSamples, samples.end);
    const int found = firstThatGoesOn(from, {samples.begin, endOfFew});
    if (found < endOfFew || endOfFew == samples.end)
        return found;
    const int begin = endOfStand(from, {endOfFew, samples.end});
    return firstThatGoesOn(from, {begin, std::min(begin + mostPassedOver, samples.end)});
}

/// The end of `samples` if there is none.
int HairlineStroker::firstThatGoesOn(const QPointF &from, const IndexRange &samples) const
{
    int i = samples.begin;
    while (i < samples.end && !goesOn(from, pixel(i)))
        ++i;
    return i;
}

/// The end of the samples that cannot be seen, on the side of the view where `from` is.
int HairlineStroker::endOfHidden(const QPointF &from, const IndexRange &samples) const
{
    if (from.y() < m_top)
        return endWhile(samples, [this](double, double bottom) { return bottom < m_top; });
    if (from.y() > m_bottom)
        return endWhile(samples, [this](double top, double) { return top > m_bottom; });
    return samples.begin;
}

/// The end of the samples that pass no middle of a pixel.
int HairlineStroker::endOfStand(const QPointF &from, const IndexRange &samples) const
{
    const double row = rounded(from.y());
    const int end = endWhile(
        samples, [row](double top, double bottom) { return rounded(top) == row && rounded(bottom) == row; });
    const double column = rounded(from.x());
    const auto *passed = std::partition_point(
        m_points + samples.begin, m_points + end,
        [this, column](const QPointF &point) { return rounded(m_mapping.x(point.x())) == column; });
    return static_cast<int>(passed - m_points);
}

/// The end of the samples up to which `isInside(top, bottom)` holds for the extent of y. Mostly it is one of
/// the first, or that of all samples.
template <typename Predicate>
int HairlineStroker::endWhile(const IndexRange &samples, Predicate isInside) const
{
    const auto isInsideAll = [this, isInside](int begin, int end) {
        const SampleExtent extent = m_series.extent({begin, end});
        const double low = m_mapping.y(extent.low);
        const double high = m_mapping.y(extent.high);
        return isInside(std::min(low, high), std::max(low, high));
    };
    if (samples.size() == 0)
        return samples.begin;
    const double first = pixel(samples.begin).y();
    if (!isInside(first, first))
        return samples.begin;
    if (isInsideAll(samples.begin, samples.end))
        return samples.end;
    int begin = samples.begin + 1; // what is before it is inside
    int step = 1;
    while (step < samples.end - begin && isInsideAll(begin, begin + step)) {
        begin += step;
        step *= 2;
    }
    int end = std::min(begin + step, samples.end); // not all before it is
    while (end - begin > 1) {
        const int middle = begin + (end - begin) / 2;
        if (isInsideAll(begin, middle))
            begin = middle;
        else
            end = middle;
    }
    return begin;
}
