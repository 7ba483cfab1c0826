#include "zrmakeaxis_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace ZrTicks;

namespace {

constexpr double largest = std::numeric_limits<double>::max();

// More ticks than any screen has pixels; a range must not take seconds.
constexpr int mostTicks = 100000;

// 0 also for a value that is not a number.
double clampedDistance(double value, double most)
{
    return value > 0.0 ? std::min(value, most) : 0.0;
}

// On a logarithmic scale only these numbers of sub-ticks stand at round values.
int logarithmicSubTickLimit(int maxSubTicks)
{
    if (maxSubTicks < 1)
        return 0;
    if (maxSubTicks < 2)
        return 1;
    return maxSubTicks < 8 ? 2 : 8;
}

LabelFormat labelFormat(int format, bool logarithmic)
{
    const bool isKnown = format >= int(LabelFormat::FloatingPoint) && format <= int(LabelFormat::DateTime);
    if (!isKnown || (logarithmic && format == int(LabelFormat::DateTime)))
        return LabelFormat::FloatingPoint;
    return LabelFormat(format);
}

} // namespace

ZrMakeAxis::ZrMakeAxis(const QByteArray &name)
    : m_name(name.isEmpty() ? QByteArrayLiteral("ZrMakeAxis") : name)
{
    m_parameters.keepChoice = true;
}

void ZrMakeAxis::setLength(double length, double tickDistance, double subTickDistance, bool fixedLength)
{
    m_parameters.length = clampedDistance(length, largest);
    m_parameters.tickDistance = clampedDistance(tickDistance, m_parameters.length / 2.0);
    m_parameters.subTickDistance = clampedDistance(subTickDistance, m_parameters.length);
    m_parameters.fixedLength = fixedLength;
    forgetRange();
}

void ZrMakeAxis::setParameters(bool logarithmic, int maxTicks, int maxSubTicks, int precision,
                               bool equalSpaced, int format, bool scientificExponent, bool equalExponent,
                               bool showBoundLabels, bool keepChoice)
{
    m_format = labelFormat(format, logarithmic);
    m_parameters.logarithmic = logarithmic;
    m_parameters.subTickLimit = logarithmic ? logarithmicSubTickLimit(maxSubTicks) : std::max(maxSubTicks, 0);
    m_parameters.equalSpaced = equalSpaced && !logarithmic;
    m_parameters.maxTicks = std::clamp(maxTicks, 2, mostTicks);
    m_parameters.precision = std::clamp(precision, -1, 15);
    m_exponentMultipleOfThree = scientificExponent && !logarithmic && m_format != LabelFormat::FloatingPoint;
    m_equalExponent = equalExponent && !logarithmic && m_format == LabelFormat::Exponential;
    m_showBoundLabels = showBoundLabels;
    m_parameters.keepChoice = keepChoice;
    m_previousChoice = StepChoice();
    forgetRange();
}

void ZrMakeAxis::setTimeFormat(const QByteArray &latin1)
{
    m_levels = parseTimeLevels(latin1);
    forgetRange();
}

void ZrMakeAxis::setTimeReference(double milliseconds)
{
    m_timeReference = std::isfinite(milliseconds) ? milliseconds : 0.0;
    forgetRange();
}

bool ZrMakeAxis::setRange(double lo, double hi)
{
    const bool isRange = std::isfinite(lo) && std::isfinite(hi) && lo < hi;
    if (!isRange || (m_parameters.logarithmic && lo <= 0.0)) {
        clearTicks();
        forgetRange();
        return false;
    }
    if (lo != m_scale.lo || hi != m_scale.hi) {
        m_scale = TickScale(lo, hi, m_parameters.logarithmic);
        if (!compute())
            clearTicks();
    }
    return !m_ticks.isEmpty();
}

QVector<double> ZrMakeAxis::tickPositions() const
{
    QVector<double> positions;
    positions.reserve(m_ticks.size());
    for (const Tick &tick : m_ticks)
        positions.append(tick.position);
    return positions;
}

QByteArray ZrMakeAxis::label(int index) const
{
    if (index < 0 || index >= m_ticks.size())
        return {};
    const Tick &tick = m_ticks.at(index);
    if (!std::isfinite(tick.shown))
        return {};
    if (m_labelStyle.number.format == LabelFormat::DateTime)
        return m_labelStyle.time.text(tick.shown, m_labelStyle.timeReference);
    return numberLabel(m_labelStyle.number, tick.shown, tick.decimals);
}

bool ZrMakeAxis::compute()
{
    QVector<UnitRow> rows = {DecimalRow};
    const bool isTime = m_format == LabelFormat::DateTime;
    if (isTime) {
        const TimeLevel *level = levelForSpan(m_levels, m_scale.hi - m_scale.lo);
        if (!level)
            return false;
        m_labelStyle.time = level->format;
        m_labelStyle.timeReference = m_timeReference;
        rows = level->format.unitRows();
    }
    const std::optional<TickStep> step = chooseStep(m_parameters, m_scale.range, rows, m_previousChoice);
    if (!step)
        return false;
    m_previousChoice = step->choice;
    m_scale.commonExponent = m_equalExponent ? commonExponent() : 0;
    m_labelStyle.number = {m_format, m_exponentMultipleOfThree, m_equalExponent, step->boundPrecision};

    const std::optional<QVector<Tick>> ticks = makeTicks(m_parameters, m_scale, *step);
    if (!ticks)
        return false;
    m_ticks = *ticks;
    m_subTicks = makeSubTicks(m_parameters, m_scale, *step, m_ticks);
    if (!m_showBoundLabels)
        removeBoundTicks();
    else if (isTime)
        removeTicksOffTheirTime();
    removeCoveredSubTicks(m_subTicks, m_ticks);
    hideCrowdedTicks(m_parameters, m_ticks);
    return true;
}

int ZrMakeAxis::commonExponent() const
{
    return decimalExponent(std::max(std::fabs(m_scale.lo), std::fabs(m_scale.hi)), m_exponentMultipleOfThree);
}

void ZrMakeAxis::removeBoundTicks()
{
    m_ticks.removeFirst();
    m_ticks.removeLast();
}

// A bound is labelled with the whole minute, day, ... that it lies in, unless that is too far from it.
void ZrMakeAxis::removeTicksOffTheirTime()
{
    const auto moveToResolution = [this](double bound, Tick &tick, AllowedDeviation allowed) {
        tick.shown = m_labelStyle.time.toResolution(bound, m_labelStyle.timeReference);
        return allowed.contains((tick.shown - bound) / (m_scale.hi - m_scale.lo));
    };
    if (!moveToResolution(m_scale.hi, m_ticks.last(), upperBoundDeviation))
        m_ticks.removeLast();
    if (!moveToResolution(m_scale.lo, m_ticks.first(), lowerBoundDeviation))
        m_ticks.removeFirst();
}

void ZrMakeAxis::forgetRange()
{
    m_scale.lo = 0.0;
    m_scale.hi = 0.0;
}

void ZrMakeAxis::clearTicks()
{
    m_ticks.clear();
    m_subTicks.clear();
}
