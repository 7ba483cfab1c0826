#ifndef TICKSTEPS_P_H
#define TICKSTEPS_P_H

#include <QtCore/QVector>

#include <array>
#include <optional>

namespace ZrTicks {

/// The rows of the table of step candidates. Candidates of time rows are milliseconds, those of the decimal
/// row are mantissas that are scaled by a power of ten.
enum UnitRow {
    YearsRow,
    DecimalRow,
    HoursRow,
    ShortHoursRow,
    MinutesRow,
    SecondsRow,
    MillisecondsRow,
    FineRow,
    DaysRow,
    MonthsRow,
    LongDaysRow,
    WeeksRow,
    UnitRowCount
};

/// One row of step candidates and the unit that their sizes are counted in.
struct StepRow
{
    double unit;
    std::array<double, 19> candidates; ///< ascending, ended by -1
};

/// The sub-divisions that suit steps of `smallestSize` to `largestSize` units of a row.
struct DivisionRow
{
    UnitRow row;
    int smallestSize;
    int largestSize;
    std::array<int, 12> divisions; ///< numbers of intervals, descending, ended by 0
};

/// What an axis asks of its ticks. All distances are pixels; 0 means no limit.
struct TickParameters
{
    bool logarithmic = false;
    bool equalSpaced = false;
    bool keepChoice = false;
    bool fixedLength = false;
    int maxTicks = 11;
    int subTickLimit = 9;
    int precision = 1;
    double length = 0.0;
    double tickDistance = 0.0;
    double subTickDistance = 0.0;

    [[nodiscard]] bool hasTickDistance() const { return length > 0.0 && tickDistance > 0.0; }
    [[nodiscard]] bool hasSubTickDistance() const { return length > 0.0 && subTickDistance > 0.0; }
};

/// A range in the domain in which steps are equal: the values, or their decimal logarithms.
struct WorkingRange
{
    double lo = 0.0;
    double hi = 0.0;
};

/// A place in the table of step candidates.
struct StepChoice
{
    int row = 0;
    int candidate = 0;
};

/// A step and the ticks it makes: one at each bound of the range and, from `firstTick` on, every `step`
/// between them. `tickCount` is 0 when the step does not suit the axis.
struct TickStep
{
    StepChoice choice;
    int tickCount = 0;
    bool boundsOnly = false; ///< no step suits, but there is room for the bounds
    int subTicksPerInterval = 0;
    double firstTick = 0.0;
    double step = 0.0;
    int precision = 0;      ///< decimals to start with for the ticks between the bounds
    int boundPrecision = 0; ///< decimals to start with for the two ticks at the bounds
};

[[nodiscard]] const std::array<StepRow, UnitRowCount> &stepRows();

/// The allowed divisions for a candidate of `row`, descending and ended by 0.
[[nodiscard]] const std::array<int, 12> &allowedDivisions(UnitRow row, double candidate);

/// How many sub-ticks suit each interval of `step`.
[[nodiscard]] int subTickCount(const TickParameters &parameters, const TickStep &step);

/// The ticks that one candidate makes, with `tickCount` 0 when it makes too many.
[[nodiscard]] TickStep evaluateCandidate(const TickParameters &parameters, const WorkingRange &range,
                                         StepChoice choice);

/// The candidate of `rows` that makes most ticks and, among those, most sub-ticks; none when all make too
/// many. With `keepChoice`, `previous` is preferred while its row is the best one and it makes as many
/// sub-ticks.
[[nodiscard]] std::optional<TickStep> chooseStep(const TickParameters &parameters, const WorkingRange &range,
                                                 const QVector<UnitRow> &rows, StepChoice previous);

} // namespace ZrTicks

#endif // TICKSTEPS_P_H
