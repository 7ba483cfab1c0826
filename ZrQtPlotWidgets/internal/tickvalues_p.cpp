#include "tickvalues_p.h"

#include "powersoften_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace ZrTicks {

namespace {

constexpr int mostDecimals = 17;
constexpr int mostSubTicks = 100000;
constexpr AllowedDeviation innerDeviation = {0.03, 0.03};
constexpr double coveredDistance = 1e-15;

// Positions carry rounding errors: 1 - 0.8 is a little less than 0.2 and yet not crowded.
constexpr double positionError = 1e-12;

enum class TicksResult { Distinct, NotDistinct, Failed };

double tickValue(const TickScale &scale, const TickStep &step, int index)
{
    if (index == 0)
        return scale.lo;
    if (index == step.tickCount - 1)
        return scale.hi;
    const double working = (index - 1) * step.step + step.firstTick;
    return scale.logarithmic ? std::pow(10.0, working) : working;
}

// A bound whose rounding hides its neighbour gets one more decimal.
bool separateBound(const TickParameters &parameters, const TickScale &scale, const TickStep &step,
                   double value, Tick &bound, const Tick &neighbour)
{
    if (bound.shown != neighbour.shown)
        return true;
    TickStep finerStep = step;
    finerStep.boundPrecision += 1;
    const std::optional<Tick> finer = placeTick(parameters, scale, finerStep, value);
    if (finer)
        bound = *finer;
    return finer.has_value();
}

void removeInnerTicksAtBounds(QVector<Tick> &ticks)
{
    if (ticks.size() > 2 && ticks.at(0).position == ticks.at(1).position)
        ticks.removeAt(1);
    const int last = ticks.size() - 1;
    if (ticks.size() > 2 && ticks.at(last).position == ticks.at(last - 1).position)
        ticks.removeAt(last - 1);
}

TicksResult makeTicksOnce(const TickParameters &parameters, const TickScale &scale, const TickStep &step,
                          QVector<Tick> &ticks)
{
    const bool innerMustDiffer
        = parameters.equalSpaced && parameters.hasTickDistance() && step.tickCount >= 4;
    ticks.clear();
    ticks.reserve(step.tickCount);
    for (int i = 0; i < step.tickCount; ++i) {
        const std::optional<Tick> tick = placeTick(parameters, scale, step, tickValue(scale, step, i));
        if (!tick)
            return TicksResult::Failed;
        const bool bothInner = i >= 2 && i < step.tickCount - 1;
        if (innerMustDiffer && bothInner && tick->shown == ticks.constLast().shown)
            return TicksResult::NotDistinct;
        ticks.append(*tick);
    }
    const int last = ticks.size() - 1;
    if (!separateBound(parameters, scale, step, scale.lo, ticks[0], ticks.at(1))
        || !separateBound(parameters, scale, step, scale.hi, ticks[last], ticks.at(last - 1)))
        return TicksResult::Failed;
    removeInnerTicksAtBounds(ticks);
    return TicksResult::Distinct;
}

// Where sub-tick `index` of `count` lies in its interval, as a part of it. On a decade, one sub-tick stands
// at 3, two stand at 2 and 5, eight at 2 to 9.
double subTickFraction(int index, int count, bool decade)
{
    if (index == 0)
        return 0.0;
    if (!decade)
        return double(index) / (count + 1);
    switch (count) {
    case 1:
        return std::log10(3.0);
    case 2:
        return std::log10(index == 1 ? 2.0 : 5.0);
    case 8:
        return std::log10(index + 1.0);
    default:
        return 0.0;
    }
}

} // namespace

TickScale::TickScale(double lower, double upper, bool isLogarithmic)
    : lo(lower)
    , hi(upper)
    , logarithmic(isLogarithmic)
    , range(isLogarithmic ? WorkingRange{std::log10(lower), std::log10(upper)} : WorkingRange{lower, upper})
{
}

double TickScale::position(double value) const
{
    const double working = logarithmic ? std::log10(value) : value;
    return (working - range.lo) / (range.hi - range.lo);
}

double TickScale::shownPosition(double shown) const
{
    return position(scaledByPowerOfTen(shown, commonExponent));
}

std::optional<Tick> placeTick(const TickParameters &parameters, const TickScale &scale, const TickStep &step,
                              double value)
{
    const double scaled = scaledByPowerOfTen(value, -scale.commonExponent);
    if (!std::isfinite(scaled))
        return std::nullopt;

    const bool isBound = value == scale.lo || value == scale.hi;
    const AllowedDeviation allowed = value == scale.lo   ? lowerBoundDeviation
                                     : value == scale.hi ? upperBoundDeviation
                                                         : innerDeviation;
    const bool anywhere = !isBound && (parameters.equalSpaced || !parameters.hasTickDistance());

    int start = isBound ? step.boundPrecision : step.precision;
    if (scale.logarithmic)
        start = std::max(int(0.5 - std::log10(value)), start);
    const double exactPosition = scale.position(value);
    for (int decimals = start; decimals <= mostDecimals; ++decimals) {
        const double shown = roundedToDecimals(scaled, decimals);
        const double position = scale.shownPosition(shown);
        const double deviation = position - exactPosition;
        // Rounding may lead beyond the largest number.
        if ((anywhere && std::isfinite(position)) || allowed.contains(deviation))
            return Tick{shown, position, decimals};
    }
    return std::nullopt;
}

std::optional<QVector<Tick>> makeTicks(const TickParameters &parameters, const TickScale &scale,
                                       const TickStep &firstTry)
{
    TickStep step = firstTry;
    QVector<Tick> ticks;
    for (; step.precision <= mostDecimals; ++step.precision) {
        switch (makeTicksOnce(parameters, scale, step, ticks)) {
        case TicksResult::Distinct:
            return ticks;
        case TicksResult::NotDistinct:
            continue;
        case TicksResult::Failed:
            return std::nullopt;
        }
    }
    return std::nullopt;
}

QVector<double> makeSubTicks(const TickParameters &parameters, const TickScale &scale, const TickStep &step,
                             const QVector<Tick> &ticks)
{
    QVector<double> subTicks;
    const double span = scale.range.hi - scale.range.lo;
    if (scale.logarithmic && span < 1.0)
        return subTicks;

    const int count = std::min(step.subTicksPerInterval, mostSubTicks);
    const bool decade = scale.logarithmic && step.step <= 1.0;
    const double lowest = std::min(0.0, ticks.constFirst().position);
    const double highest = std::max(1.0, ticks.constLast().position);
    double from = parameters.equalSpaced ? ticks.constFirst().position
                                         : (step.firstTick - step.step - scale.range.lo) / span;
    int placed = 0;
    for (int k = 1; k < ticks.size(); ++k) {
        const double to = ticks.at(k).position;
        // Those that lie outside count as well: the work is bounded, not only its outcome.
        for (int j = 0; j <= count && placed < mostSubTicks; ++j, ++placed) {
            const double position = from + (to - from) * subTickFraction(j, count, decade);
            if (lowest <= position && position <= highest)
                subTicks.append(position);
        }
        from = to;
    }
    return subTicks;
}

void removeCoveredSubTicks(QVector<double> &subTicks, const QVector<Tick> &ticks)
{
    QVector<double> positions;
    positions.reserve(ticks.size());
    for (const Tick &tick : ticks)
        positions.append(tick.position);
    // Rounding can swap two ticks that are very close to each other.
    if (!std::is_sorted(positions.cbegin(), positions.cend()))
        std::sort(positions.begin(), positions.end());

    // Sub-ticks come in order, so that the nearest tick is mostly that of the sub-tick before.
    auto nearest = positions.cbegin();
    const auto isCovered = [&positions, &nearest](double subTick) {
        const double lowest = subTick - coveredDistance;
        if (nearest != positions.cbegin() && !(*std::prev(nearest) < lowest))
            nearest = std::lower_bound(positions.cbegin(), nearest, lowest);
        while (nearest != positions.cend() && *nearest < lowest)
            ++nearest;
        return nearest != positions.cend() && std::fabs(*nearest - subTick) <= coveredDistance;
    };
    subTicks.erase(std::remove_if(subTicks.begin(), subTicks.end(), isCovered), subTicks.end());
}

void hideCrowdedTicks(const TickParameters &parameters, QVector<Tick> &ticks)
{
    if (!parameters.hasTickDistance() || parameters.fixedLength || parameters.equalSpaced || ticks.size() < 3)
        return;
    const double least = parameters.tickDistance / parameters.length - positionError;
    const int last = ticks.size() - 1;
    if (least > ticks.at(1).position - ticks.at(0).position)
        ticks[1].shown = -std::numeric_limits<double>::infinity();
    if (least > ticks.at(last).position - ticks.at(last - 1).position)
        ticks[last - 1].shown = -std::numeric_limits<double>::infinity();
}

} // namespace ZrTicks
