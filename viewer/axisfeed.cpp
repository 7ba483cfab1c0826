#include "axisfeed.h"

#include "wallclock.h"

#include <QtCore/QDateTime>
#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QFontMetrics>

#include <ZrQtPlotWidgets/zrqtaxis.h>

#include <cmath>

namespace {

constexpr double kDay = 86400000.0;
// From here on whole years are easier to read than dates.
constexpr double kManyYears = 3.0 * 365.25 * kDay;
constexpr double kYearsForWholeNumbers = 2.9;
// Below this span the labels name no year.
constexpr double kNoYear = 60.0 * kDay;

constexpr int kMaxNumberTicks = 12;
constexpr int kMaxTimeTicks = 16;
constexpr int kMaxSubTicks = 9;
constexpr double kSubTickDistance = 8.0;
// Vertical distance of the labels of a value axis.
constexpr double kLinesPerLabel = 2.0;
// An axis writes a label as soon as two thirds of the distance lie between it and the end of the range, which
// is too close to a field.
constexpr double kRoomForField = 1.6;
// The part of the canvas beside the data.
constexpr double kMargin = 0.02;

/// How times are written on an axis that spans less than so many milliseconds.
struct TimeLevel
{
    double span;
    const char *format;
    const char *widest; ///< no label of this format is wider
};

constexpr double kAnySpan = 1e300;

constexpr TimeLevel kDateLevels[] = {
    {2000.0, "%hh:%mm:%ss.%Ms", "00:00:00.000"},
    {600000.0, "%hh:%mm:%ss", "00:00:00"},
    {kHoursOnly, "%hh:%mm", "00:00"},
    {432000000.0, "%d %MEn %hh:%mm", "00 Mmm 00:00"},
    {5184000000.0, "%d %MEn", "00 Mmm"},
    {kAnySpan, "%yyyy-%MM-%dd", "0000-00-00"},
};

constexpr TimeLevel kTimeOfDayLevels[] = {
    {2000.0, "%hh:%mm:%ss.%Ms", "00:00:00.000"},
    {600000.0, "%hh:%mm:%ss", "00:00:00"},
    {kAnySpan, "%hh:%mm", "00:00"},
};

template <size_t count> QString levelLines(const TimeLevel (&levels)[count])
{
    QStringList lines;
    for (const TimeLevel &level : levels)
        lines += QString::number(level.span, 'f', 0) + QLatin1Char('\t') + QString::fromLatin1(level.format);
    return lines.join(QStringLiteral("\r\n"));
}

template <size_t count> QString widestLabel(const TimeLevel (&levels)[count], double span)
{
    for (const TimeLevel &level : levels) {
        if (span < level.span)
            return QString::fromLatin1(level.widest);
    }
    return {};
}

/// Least distance of the labels' centres along a horizontal axis.
double distanceFor(const ZrQtAxis *axis, const QString &widest)
{
    const QFontMetrics metrics = axis->fontMetrics();
    return metrics.horizontalAdvance(widest) + 2.0 * metrics.averageCharWidth();
}

bool isVertical(const ZrQtAxis *axis)
{
    return axis->position() == Qt::LeftEdge || axis->position() == Qt::RightEdge;
}

double pixelLength(const ZrQtAxis *axis)
{
    return (isVertical(axis) ? axis->height() : axis->width()) - axis->marginLow() - axis->marginHigh() - 1.0;
}

/// Of two numbers the one that takes more room.
QString longer(double one, double other, int decimals)
{
    const QString first = QString::number(one, 'f', decimals);
    const QString second = QString::number(other, 'f', decimals);
    return first.size() > second.size() ? first : second;
}

QString superscript(int number)
{
    static const QString kDigits
        = QStringLiteral("\u2070\u00B9\u00B2\u00B3\u2074\u2075\u2076\u2077\u2078\u2079");
    QString text = QString::number(std::abs(number));
    for (QChar &c : text)
        c = kDigits.at(c.digitValue());
    return number < 0 ? QStringLiteral("\u207B") + text : text;
}

/// The date or the two dates between which the times lie.
QString dates(double low, double high)
{
    const auto date = [](double time) {
        const auto milliseconds = static_cast<qint64>(std::floor(WallClock::toShownTime(time)));
        const QDate day = QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC).date();
        return QLocale::c().toString(day, QStringLiteral("d MMM yyyy"));
    };
    const double margin = (high - low) * kMargin;
    const QString first = date(low + margin);
    const QString last = date(high - margin);
    return first == last ? first : first + QStringLiteral(" \u2013 ") + last;
}

} // namespace

AxisFeed::AxisFeed(ZrQtPlot *plot, ZrQtAxis *axis, AxisScale scale, const QString &label)
    : QObject(axis)
    , m_axis(axis)
    , m_scale(scale)
    , m_label(label)
{
    disconnect(plot, &ZrQtPlot::canvasChanged, axis, &ZrQtAxis::onCanvasChanged);
    connect(plot, &ZrQtPlot::canvasChanged, this, &AxisFeed::onCanvasChanged);
    // Ticks and decimals depend on the length of the axis.
    axis->installEventFilter(this);
    axis->setAxisLabel(label);
    axis->setSubTickDistance(kSubTickDistance);
    setSubTicks(false);
    setTimeFormat({});
}

void AxisFeed::setSubTicks(bool on)
{
    m_axis->setMaxSubTicks(on ? kMaxSubTicks : 0);
}

void AxisFeed::setTimeFormat(const QString &format)
{
    m_ownTimeFormat = format.isEmpty();
    if (!m_ownTimeFormat)
        m_timeFormat = format;
    else if (m_scale == AxisScale::TimesOfDay)
        m_timeFormat = levelLines(kTimeOfDayLevels);
    else
        m_timeFormat = levelLines(kDateLevels);
    m_axis->setTimeFormat(m_timeFormat);
}

bool AxisFeed::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Resize)
        return QObject::eventFilter(watched, event);
    // Only after its own event does the axis tell what ticks there are in its new length.
    watched->event(event);
    refresh();
    return true;
}

void AxisFeed::onCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy)
{
    if (cosy != m_axis->cosy())
        return;
    m_canvas = canvas;
    m_hasCanvas = true;
    refresh();
}

void AxisFeed::refresh()
{
    // What is set here may change the size of the axis, which comes back as a resize event.
    if (m_refreshing || !m_hasCanvas)
        return;
    m_refreshing = true;
    const bool vertical = isVertical(m_axis);
    const double low = vertical ? m_canvas.top() : m_canvas.left();
    const double high = vertical ? m_canvas.bottom() : m_canvas.right();
    switch (m_scale) {
    case AxisScale::Numbers:
        if (const std::optional<int> decimals = decimalsForTyping(low, high); m_editable && decimals)
            showEditableNumbers(low, high, *decimals);
        else
            showNumbers(low, high, m_label);
        break;
    case AxisScale::Logarithms:
        showLogarithms(low, high);
        break;
    case AxisScale::Dates:
    case AxisScale::TimesOfDay:
        showTime(low, high);
        break;
    }
    m_refreshing = false;
}

/// Decimals, unit and tick distance depend on each other: wider labels leave less room for ticks.
AxisNumbers AxisFeed::chooseNumbers(double low, double high)
{
    AxisNumbers numbers;
    double distance = kLinesPerLabel * m_axis->fontMetrics().height();
    for (int pass = 0; pass < 2; ++pass) {
        const double maxIntervals = pixelLength(m_axis) / distance;
        if (m_numberFormat == NumberFormat::Compact)
            numbers = axisNumbers(low, high, kMaxNumberTicks, maxIntervals);
        else
            numbers.decimals = decimalsForTicks(low, high, kMaxNumberTicks, maxIntervals);
        if (isVertical(m_axis))
            break;
        const double factor = std::pow(10.0, -numbers.unitExponent);
        distance = distanceFor(m_axis, longer(low * factor, high * factor, numbers.decimals));
    }
    m_axis->setTickDistance(distance);
    return numbers;
}

void AxisFeed::showNumbers(double low, double high, const QString &label)
{
    AxisNumbers numbers = chooseNumbers(low, high);
    // Nobody reads half a year as 2012.5, as long as there is a choice.
    if (m_scale == AxisScale::Dates && high - low >= kYearsForWholeNumbers)
        numbers.decimals = 0;
    // A compact label beyond the plain numbers would have an exponent; the power of ten replaces it.
    ZrQtAxis::LabelFormat format = ZrQtAxis::FloatingPoint;
    if (m_numberFormat == NumberFormat::Exponential) {
        format = ZrQtAxis::Exponential;
        // The decimals of the mantissa: those that tell the ticks apart, beyond its first digit.
        const double largest = std::max(std::abs(low), std::abs(high));
        if (numbers.decimals == 0 && largest >= 10.0 && std::isfinite(largest))
            numbers.decimals = static_cast<int>(std::floor(std::log10(largest / (high - low)))) + 1;
        numbers.decimals = qBound(1, numbers.decimals, 15);
    }
    m_axis->setMinMaxEditable(false);
    m_axis->setLabelFormat(format);
    m_axis->setMaxTicks(kMaxNumberTicks);
    m_axis->setShowBoundLabels(false);
    m_axis->setPrecision(numbers.decimals);
    m_axis->setUnitFactor(std::pow(10.0, -numbers.unitExponent));
    m_axis->setAxisLabel(numbers.unitExponent == 0
                             ? label
                             : label
                                   + QStringLiteral(" (\u00D710%1)").arg(superscript(numbers.unitExponent)));
    m_axis->setMinMax(low, high);
}

/// Fields know no power of ten; their numbers stand for the canvas as they are.
void AxisFeed::showEditableNumbers(double low, double high, int decimals)
{
    m_axis->setTickDistance(isVertical(m_axis)
                                ? kLinesPerLabel * m_axis->fontMetrics().height()
                                : kRoomForField * distanceFor(m_axis, longer(low, high, decimals)));
    m_axis->setUnitFactor(1.0);
    m_axis->setAxisLabel(m_label);
    m_axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    m_axis->setMaxTicks(kMaxNumberTicks);
    m_axis->setShowBoundLabels(true);
    m_axis->setPrecision(decimals);
    m_axis->setMinMaxEditable(true);
    m_axis->setMinMax(low, high);
}

void AxisFeed::showLogarithms(double low, double high)
{
    switch (m_numberFormat) {
    case NumberFormat::FloatingPoint:
        m_axis->setLabelFormat(ZrQtAxis::FloatingPoint);
        break;
    case NumberFormat::Exponential:
        m_axis->setLabelFormat(ZrQtAxis::Exponential);
        break;
    case NumberFormat::Compact:
        m_axis->setLabelFormat(ZrQtAxis::Compact);
        break;
    }
    m_axis->setLogarithmic(true);
    m_axis->setTickDistance(kLinesPerLabel * m_axis->fontMetrics().height());
    m_axis->setMaxTicks(kMaxNumberTicks);
    m_axis->setPrecision(0);
    // The ends of the range crowd out the decades beside them, but with less than two decades they are
    // needed.
    m_axis->setShowBoundLabels(!(std::floor(high) - std::ceil(low) >= 1.0));
    m_axis->setMinMax(std::pow(10.0, low), std::pow(10.0, high));
}

void AxisFeed::showTime(double low, double high)
{
    const double span = high - low;
    const bool dateAxisFails = !(low > 0.0);
    if (m_editable && !dateAxisFails && span < kHoursOnly && showEditableTime(low, high))
        return;
    if (dateAxisFails || (m_ownTimeFormat && span > kManyYears)) {
        showNumbers(WallClock::year(low), WallClock::year(high), m_label);
        return;
    }
    const QString widest = m_scale == AxisScale::Dates || !m_ownTimeFormat
                               ? widestLabel(kDateLevels, span)
                               : widestLabel(kTimeOfDayLevels, span);
    m_axis->setUnitFactor(1.0);
    m_axis->setTickDistance(distanceFor(m_axis, widest));
    m_axis->setMaxTicks(kMaxTimeTicks);
    m_axis->setShowBoundLabels(false);
    m_axis->setLabelFormat(ZrQtAxis::DateTime);
    // Times between fields have their own.
    m_axis->setTimeFormat(m_timeFormat);
    m_axis->setAxisLabel(timeLabel(low, high));
    m_axis->setMinMax(low, high);
}

/// False if the axis is too short for times between its fields.
bool AxisFeed::showEditableTime(double low, double high)
{
    m_axis->setUnitFactor(1.0);
    m_axis->setLabelFormat(ZrQtAxis::TimePlusMs);
    m_axis->setMaxTicks(kMaxTimeTicks);
    m_axis->setShowBoundLabels(true);
    m_axis->setMinMaxEditable(true);
    m_axis->setAxisLabel(timeLabel(low, high));
    m_axis->setMinMax(low, high);
    for (const double room : {kRoomForField, 1.0}) {
        m_axis->setTickDistance(room * distanceFor(m_axis, QStringLiteral("00:00:00.000")));
        if (!m_axis->tickPositions().isEmpty())
            return true;
    }
    return false;
}

/// The labels of short ranges leave out the date: the label of the axis names it.
QString AxisFeed::timeLabel(double low, double high) const
{
    const bool writesTimesOnly = m_axis->labelFormat() == ZrQtAxis::TimePlusMs;
    const bool namesDates = !m_label.isEmpty() && m_scale == AxisScale::Dates
                            && (m_ownTimeFormat || writesTimesOnly) && high - low < kNoYear;
    return namesDates ? QStringLiteral("%1 (%2)").arg(m_label, dates(low, high)) : m_label;
}
