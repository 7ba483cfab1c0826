#include "ticksteps_p.h"

#include "powersoften_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace ZrTicks {

namespace {

constexpr double second = 1000.0;
constexpr double minute = 60.0 * second;
constexpr double hour = 60.0 * minute;
constexpr double day = 24.0 * hour;
constexpr double week = 7.0 * day;
constexpr double month = 30.0 * day;
constexpr double year = 365.0 * day;
constexpr double end = -1.0;

// On purpose: all ticks of time rows are aligned one hour ahead of UTC, whatever the time zone is.
constexpr double timeAlignment = hour;

// Steps of whole decades need at most some 650 passes: doubles span 632 decades.
constexpr int mostSearchPasses = 1000;

constexpr int anySize = std::numeric_limits<int>::max();

// clang-format off
constexpr std::array<StepRow, UnitRowCount> stepTable = {{
    /* years        */ {year, {year, 10 * year, 100 * year, 1e3 * year, 1e4 * year, 1e5 * year, end}},
    /* decimal      */ {0.1, {0.1, 0.2, 0.5, end}},
    /* hours        */ {hour, {hour, 3 * hour, 6 * hour, 12 * hour, end}},
    /* short hours  */ {hour, {hour, 3 * hour, 6 * hour, end}},
    /* minutes      */ {minute, {minute, 2 * minute, 5 * minute, 10 * minute, 15 * minute, 20 * minute,
                                 30 * minute, end}},
    /* seconds      */ {second, {second, 2 * second, 5 * second, 10 * second, 15 * second, 20 * second,
                                 30 * second, end}},
    /* milliseconds */ {1.0, {1, 2, 5, 10, 20, 50, 100, 200, 500, end}},
    /* fine         */ {0.001, {0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5,
                                1, 2, 5, 10, 20, 50, 100, 200, 500, end}},
    /* days         */ {day, {day, 2 * day, week, end}},
    /* months       */ {month, {month, 3 * month, 6 * month, end}},
    /* long days    */ {day, {day, 2 * day, 5 * day, 10 * day, 20 * day, 50 * day, 100 * day, 200 * day, end}},
    /* weeks        */ {week, {week, 2 * week, 5 * week, 10 * week, 20 * week, 50 * week, end}},
}};

// The first row that fits counts. A size that no row names is not divided.
constexpr DivisionRow divisionTable[] = {
    {YearsRow, 1, 1, {12, 6, 4, 2, 1}},
    {YearsRow, 2, 2, {2, 1}},
    {YearsRow, 5, 5, {5, 1}},
    {YearsRow, 0, anySize, {10, 5, 2, 1}},

    {DecimalRow, 1, 1, {10, 5, 2, 1}},
    {DecimalRow, 2, 2, {4, 2, 1}},
    {DecimalRow, 5, 5, {5, 1}},

    {HoursRow, 1, 1, {12, 6, 4, 3, 2, 1}},
    {HoursRow, 3, 3, {6, 3, 1}},
    {HoursRow, 6, 6, {6, 3, 1}},
    {HoursRow, 12, 12, {12, 6, 3, 1}},

    {ShortHoursRow, 1, 1, {12, 6, 4, 3, 2, 1}},
    {ShortHoursRow, 3, 3, {6, 3, 1}},
    {ShortHoursRow, 6, 6, {6, 3, 1}},

    {MinutesRow, 1, 1, {6, 5, 4, 2, 1}},
    {MinutesRow, 2, 2, {4, 2, 1}},
    {MinutesRow, 5, 5, {5, 1}},
    {MinutesRow, 10, 10, {10, 5, 2, 1}},
    {MinutesRow, 15, 15, {15, 3, 1}},
    {MinutesRow, 20, 20, {20, 10, 4, 2, 1}},
    {MinutesRow, 30, 30, {30, 15, 10, 6, 3, 2, 1}},

    {SecondsRow, 1, 1, {10, 5, 2, 1}},
    {SecondsRow, 2, 2, {4, 2, 1}},
    {SecondsRow, 5, 5, {5, 1}},
    {SecondsRow, 10, 10, {10, 5, 2, 1}},
    {SecondsRow, 15, 15, {15, 5, 3, 1}},
    {SecondsRow, 20, 20, {20, 10, 4, 2, 1}},
    {SecondsRow, 30, 30, {30, 15, 10, 6, 3, 2, 1}},

    {MillisecondsRow, 1, 1, {100, 50, 25, 10, 5, 2, 1}},
    {MillisecondsRow, 2, 2, {4, 2, 1}},
    {MillisecondsRow, 5, 5, {5, 1}},
    {MillisecondsRow, 10, 10, {10, 5, 2, 1}},
    {MillisecondsRow, 20, 20, {20, 10, 4, 2, 1}},
    {MillisecondsRow, 50, 50, {50, 25, 10, 5, 2, 1}},
    {MillisecondsRow, 100, 100, {100, 50, 25, 20, 10, 5, 4, 2, 1}},
    {MillisecondsRow, 200, 200, {100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1}},
    {MillisecondsRow, 500, 500, {100, 50, 25, 20, 10, 5, 4, 2, 1}},

    {FineRow, 1, 1, {100, 50, 25, 10, 5, 2, 1}},
    {FineRow, 2, 2, {4, 2, 1}},
    {FineRow, 5, 5, {5, 1}},
    {FineRow, 10, 10, {10, 5, 2, 1}},
    {FineRow, 20, 20, {20, 10, 4, 2, 1}},
    {FineRow, 50, 50, {50, 25, 10, 5, 2, 1}},
    {FineRow, 100, 100, {100, 50, 25, 20, 10, 5, 4, 2, 1}},
    {FineRow, 200, 200, {100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1}},
    {FineRow, 500, 500, {100, 50, 25, 20, 10, 5, 4, 2, 1}},
    {FineRow, 1000, anySize, {100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1}},

    {DaysRow, 1, 1, {24, 12, 8, 4, 2, 1}},
    {DaysRow, 2, 2, {2, 1}},
    {DaysRow, 7, 7, {7, 1}},

    {MonthsRow, 1, 1, {1}},
    {MonthsRow, 3, 3, {3, 1}},
    {MonthsRow, 6, 6, {6, 3, 1}},

    {LongDaysRow, 1, 1, {24, 12, 8, 4, 2, 1}},
    {LongDaysRow, 2, 2, {4, 2, 1}},
    {LongDaysRow, 5, 5, {5, 1}},
    {LongDaysRow, 10, 10, {10, 5, 2, 1}},
    {LongDaysRow, 20, 20, {20, 10, 4, 2, 1}},
    {LongDaysRow, 50, 50, {50, 25, 10, 5, 2, 1}},
    {LongDaysRow, 100, 100, {100, 50, 25, 20, 10, 5, 4, 2, 1}},
    {LongDaysRow, 200, 200, {100, 50, 40, 25, 20, 10, 8, 5, 4, 2, 1}},

    {WeeksRow, 1, 1, {7, 1}},
    {WeeksRow, 2, 2, {2, 1}},
    {WeeksRow, 5, 5, {5, 1}},
    {WeeksRow, 10, 10, {10, 5, 2, 1}},
    {WeeksRow, 20, 20, {20, 10, 4, 2, 1}},
    {WeeksRow, 50, 50, {50, 25, 10, 5, 2, 1}},
};
// clang-format on

constexpr std::array<int, 12> undivided = {1};

using CandidateDecimals
    = std::array<std::array<int, std::tuple_size_v<decltype(StepRow::candidates)>>, UnitRowCount>;

// False also for a count that is infinite or not a number.
bool fits(const TickParameters &parameters, double count)
{
    if (!(count <= parameters.maxTicks))
        return false;
    return !parameters.hasTickDistance() || parameters.length / parameters.tickDistance >= count - 1.0;
}

// Both bounds are ticks, even where so narrow a range rounds to one multiple of the step.
int tickCountOf(double count)
{
    return std::max(int(count), 2);
}

// The first multiple of the step above `position`, given as a number of steps.
double nextWhole(double position)
{
    const double above = std::ceil(position);
    return above == position ? above + 1.0 : above;
}

TickStep twoBounds(const TickParameters &parameters, const WorkingRange &range)
{
    TickStep result;
    result.precision = result.boundPrecision = parameters.precision;
    result.tickCount = 2;
    result.boundsOnly = true;
    result.firstTick = range.lo;
    result.step = range.hi - range.lo;
    return result;
}

TickStep evaluateDecimal(const TickParameters &parameters, const WorkingRange &range, double mantissa)
{
    if (parameters.maxTicks < (parameters.logarithmic ? 3 : 2))
        return twoBounds(parameters, range);

    TickStep result;
    result.precision = result.boundPrecision = parameters.precision;
    int decimals = parameters.logarithmic ? 0 : parameters.precision;
    for (int pass = 0; pass < mostSearchPasses && result.tickCount == 0; ++pass, --decimals) {
        const double step
            = parameters.logarithmic ? 1.0 - decimals : scaledByPowerOfTen(10.0 * mantissa, -decimals);
        if (!std::isfinite(step))
            break;
        const double count = std::ceil(range.hi / step) - std::floor(range.lo / step) + 1.0;
        if (!fits(parameters, count))
            continue;
        result.tickCount = tickCountOf(count);
        result.firstTick = nextWhole(range.lo / step) * step;
        result.step = step;
    }

    // Every step has a multiple inside a range across zero: two ticks can only be the bounds.
    if (result.tickCount == 0 && parameters.maxTicks == 2)
        return twoBounds(parameters, range);
    if (parameters.equalSpaced && result.tickCount > 0) {
        result.step = (range.hi - range.lo) / (result.tickCount - 1);
        result.firstTick = range.lo + result.step;
    }
    return result;
}

// The decimals of all candidates: they never change, and finding them out takes longer than all else here.
const CandidateDecimals &candidateDecimals()
{
    static const CandidateDecimals table = [] {
        CandidateDecimals decimals{};
        for (size_t row = 0; row < decimals.size(); ++row) {
            for (size_t i = 0; i < decimals[row].size(); ++i)
                decimals[row][i] = decimalsNeeded(stepTable[row].candidates[i]);
        }
        return decimals;
    }();
    return table;
}

TickStep evaluateTime(const TickParameters &parameters, const WorkingRange &range, StepChoice choice)
{
    const auto row = size_t(choice.row);
    const auto candidate = size_t(choice.candidate);
    const double step = stepTable[row].candidates[candidate];
    TickStep result;
    const double first = (range.lo + timeAlignment) / step;
    const double last = (range.hi + timeAlignment) / step;
    const double count = std::ceil(last) - std::floor(first) + 1.0;
    if (!fits(parameters, count))
        return result;
    result.tickCount = tickCountOf(count);
    result.firstTick = nextWhole(first) * step - timeAlignment;
    result.step = step;
    // On purpose: ticks of long steps are shown to the precision of their step, up to minutes beside the hour
    // that they are aligned to.
    result.precision = candidateDecimals()[row][candidate];
    result.boundPrecision = candidateDecimals()[row][0];
    return result;
}

} // namespace

const std::array<StepRow, UnitRowCount> &stepRows()
{
    return stepTable;
}

const std::array<int, 12> &allowedDivisions(UnitRow row, double candidate)
{
    const auto size = std::llround(candidate / stepTable[row].unit);
    for (const DivisionRow &entry : divisionTable) {
        if (entry.row == row && entry.smallestSize <= size && size <= entry.largestSize)
            return entry.divisions;
    }
    return undivided;
}

int subTickCount(const TickParameters &parameters, const TickStep &step)
{
    if (parameters.equalSpaced && parameters.hasSubTickDistance())
        return parameters.subTickLimit;
    if (parameters.logarithmic)
        return step.step <= 1.0 && parameters.subTickLimit >= 8 ? 8 : 0;
    if (step.boundsOnly)
        return 0;

    const auto row = UnitRow(step.choice.row);
    const double candidate = stepTable[row].candidates[size_t(step.choice.candidate)];
    for (const int division : allowedDivisions(row, candidate)) {
        const int subTicks = division - 1;
        if (subTicks <= 0)
            break;
        const bool crowded
            = parameters.hasSubTickDistance()
              && parameters.length / parameters.subTickDistance < double(subTicks) * step.tickCount;
        if (subTicks <= parameters.subTickLimit && !crowded)
            return subTicks;
    }
    return 0;
}

TickStep evaluateCandidate(const TickParameters &parameters, const WorkingRange &range, StepChoice choice)
{
    const auto row = UnitRow(choice.row);
    const double candidate = stepTable[row].candidates[size_t(choice.candidate)];
    TickStep result = row == DecimalRow ? evaluateDecimal(parameters, range, candidate)
                                        : evaluateTime(parameters, range, choice);
    result.choice = choice;
    if (result.tickCount > 0)
        result.subTicksPerInterval = subTickCount(parameters, result);
    return result;
}

std::optional<TickStep> chooseStep(const TickParameters &parameters, const WorkingRange &range,
                                   const QVector<UnitRow> &rows, StepChoice previous)
{
    TickStep best;
    for (const UnitRow row : rows) {
        const int candidateCount = parameters.logarithmic ? 1 : int(stepTable[row].candidates.size());
        for (int i = 0; i < candidateCount && stepTable[row].candidates[size_t(i)] > 0.0; ++i) {
            const TickStep step = evaluateCandidate(parameters, range, {row, i});
            const bool better = step.tickCount > best.tickCount
                                || (step.tickCount == best.tickCount
                                    && step.subTicksPerInterval > best.subTicksPerInterval);
            if (better)
                best = step;
        }
        if (parameters.logarithmic)
            break;
    }
    if (best.tickCount == 0)
        return std::nullopt;

    if (parameters.keepChoice && best.choice.row == previous.row) {
        const TickStep kept = evaluateCandidate(parameters, range, previous);
        if (kept.tickCount > 0 && kept.subTicksPerInterval >= best.subTicksPerInterval)
            return kept;
    }
    return best;
}

} // namespace ZrTicks
