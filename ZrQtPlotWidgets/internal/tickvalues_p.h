#ifndef TICKVALUES_P_H
#define TICKVALUES_P_H

#include "ticksteps_p.h"

#include <QtCore/QVector>

#include <optional>

namespace ZrTicks {

/// The range that ticks are placed in, and how a value becomes a normalized position: 0 at `lo`, 1 at `hi`,
/// on a logarithmic scale linear in the logarithm.
struct TickScale
{
    TickScale() = default;

    /// A scale over `lo` < `hi`; with `isLogarithmic`, 0 < `lo`.
    TickScale(double lower, double upper, bool isLogarithmic);

    [[nodiscard]] double position(double value) const;

    /// The position of a value that was divided by the common exponent.
    [[nodiscard]] double shownPosition(double shown) const;

    double lo = 0.0;
    double hi = 0.0;
    bool logarithmic = false;
    WorkingRange range;     ///< the bounds, or their decimal logarithms
    int commonExponent = 0; ///< shown values are the values divided by ten to this power
};

/// How far a label may be from the value that it stands for, as parts of the range.
struct AllowedDeviation
{
    double below;
    double above;

    [[nodiscard]] constexpr bool contains(double deviation) const
    {
        return -below <= deviation && deviation <= above;
    }
};
constexpr AllowedDeviation lowerBoundDeviation = {0.01, 0.03};
constexpr AllowedDeviation upperBoundDeviation = {0.03, 0.01};

/// One tick: the rounded value that its label shows, the position of that value, and the decimals used.
struct Tick
{
    double shown = 0.0;
    double position = 0.0;
    int decimals = 0;
};

/// Rounds `value` to the fewest decimals that keep it close enough to its true position: a tick between the
/// bounds may move by 3 % of the range, a tick at a bound by 3 % inwards and 1 % outwards. It starts with the
/// precision of `step`; beyond 17 decimals there is no tick. Without a tick distance, ticks between the
/// bounds take the first rounding.
[[nodiscard]] std::optional<Tick> placeTick(const TickParameters &parameters, const TickScale &scale,
                                            const TickStep &step, double value);

/// All ticks of `step` in ascending order, the bounds included, with as many decimals as it takes to tell
/// equally spaced ones apart. None when a tick cannot be placed.
[[nodiscard]] std::optional<QVector<Tick>> makeTicks(const TickParameters &parameters, const TickScale &scale,
                                                     const TickStep &firstTry);

/// The positions of the sub-ticks between `ticks`, at most 100 000. A sub-tick that coincides with a tick is
/// among them; see removeCoveredSubTicks().
[[nodiscard]] QVector<double> makeSubTicks(const TickParameters &parameters, const TickScale &scale,
                                           const TickStep &step, const QVector<Tick> &ticks);

/// Removes every sub-tick within 1e-15 of a tick.
void removeCoveredSubTicks(QVector<double> &subTicks, const QVector<Tick> &ticks);

/// Shows minus infinity, which has no label, at the neighbour of a bound that is nearer to it than the tick
/// distance.
void hideCrowdedTicks(const TickParameters &parameters, QVector<Tick> &ticks);

} // namespace ZrTicks

#endif // TICKVALUES_P_H
