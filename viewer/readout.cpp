#include "readout.h"

#include "wallclock.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

#include <ZrQtPlotWidgets/zrqtmakeaxis.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSecond = 1000.0;
constexpr double kMinute = 60.0 * kSecond;
constexpr double kDay = 1440.0 * kMinute;
constexpr double kMonthNames = 60.0 * kDay;

constexpr int kDigits = 12;
// What a range is divided into; a window has no more pixels by far that a hand could tell apart.
constexpr double kPositions = 1000.0;
constexpr double kTimePositions = 200.0;
constexpr int kLogarithmDigits = 4;
constexpr double kGreatestTime = 8.64e15;

QString withDigits(double value, NumberFormat format, int digits)
{
    if (!std::isfinite(value) || format == NumberFormat::Compact)
        return QString::number(value, 'g', digits);
    const double rounded = QString::number(value, 'g', digits).toDouble();
    const char letter = format == NumberFormat::Exponential ? 'e' : 'f';
    return QString::number(rounded, letter, QLocale::FloatingPointShortest);
}

/// \a value to a power of ten that divides \a span into at least so many \a parts.
double roundedTo(double value, double span, double parts = kPositions)
{
    if (!std::isfinite(span) || !(span > 0.0))
        return value;
    const double unit = std::pow(10.0, std::floor(std::log10(span / parts)));
    const double rounded = std::round(value / unit) * unit;
    // Beside a rounded -0.3 stands no sign.
    return std::isfinite(rounded) ? rounded + 0.0 : value;
}

/// The unit of time in which positions are told apart.
double timeUnit(double span)
{
    for (const double unit : {kDay, kMinute, kSecond}) {
        if (span >= unit * kTimePositions)
            return unit;
    }
    return 1.0;
}

double span(const Readout::AxisText &axis)
{
    return axis.high - axis.low;
}

bool isTime(const Readout::AxisText &axis)
{
    return axis.scale == AxisScale::Dates || axis.scale == AxisScale::TimesOfDay;
}

QString clockFormat(qint64 milliseconds)
{
    if (milliseconds % 1000 != 0)
        return QStringLiteral("hh:mm:ss.zzz");
    return milliseconds % 60000 != 0 ? QStringLiteral("hh:mm:ss") : QStringLiteral("hh:mm");
}

/// The one of the lines of \a format that an axis of \a span uses.
QByteArray lineFor(const QString &format, double span)
{
    for (const QString &line : format.split(QStringLiteral("\r\n"))) {
        const int tab = line.indexOf(QLatin1Char('\t'));
        if (!line.isEmpty() && (tab < 0 || span < line.leftRef(tab).toDouble()))
            return line.mid(tab + 1).toLatin1();
    }
    return {};
}

/// The text of the tick engine, which labels the beginning of a range with the whole unit that it lies in, as
/// long as the range is many units long. Empty if it has none.
QString engineText(const QString &format, double span, double milliseconds)
{
    constexpr int kMostTicks = 300;
    constexpr double kBeginning = 1e-3;
    ZrQtMakeAxis engine;
    engine.setTimeFormat(lineFor(format, span));
    engine.setLength(0.0, 0.0, 0.0);
    engine.setParameters(false, kMostTicks, 0, 0, false, 3, false, false, true);
    if (!(milliseconds > 0.0))
        return {};
    // From centuries to seconds.
    for (double length = 1e13; length >= 1e3; length /= 10.0) {
        if (!engine.setRange(milliseconds, milliseconds + length))
            continue;
        const QVector<double> positions = engine.tickPositions();
        if (!positions.isEmpty() && positions.first() < kBeginning && !engine.label(0).isEmpty())
            return QString::fromLatin1(engine.label(0));
    }
    return {};
}

QString durationText(double milliseconds)
{
    if (!(std::abs(milliseconds) <= kGreatestTime))
        return QString::number(milliseconds);
    const auto whole = static_cast<qint64>(std::round(std::abs(milliseconds)));
    constexpr auto kWholeDay = static_cast<qint64>(kDay);
    QString text;
    if (milliseconds < 0.0 && whole != 0)
        text = QLatin1Char('-');
    if (whole >= kWholeDay)
        text += QStringLiteral("%1 d ").arg(whole / kWholeDay);
    const QString format = whole % 1000 == 0 ? QStringLiteral("hh:mm:ss") : QStringLiteral("hh:mm:ss.zzz");
    return text + QTime::fromMSecsSinceStartOfDay(static_cast<int>(whole % kWholeDay)).toString(format);
}

double shownPosition(const Readout::AxisText &axis, double position)
{
    if (!isTime(axis))
        return roundedTo(position, span(axis));
    const double unit = timeUnit(span(axis));
    // Days begin when the shown clock says so.
    return WallClock::fromShownTime(std::round(WallClock::toShownTime(position) / unit) * unit);
}

} // namespace

int Readout::nearestSample(const QVector<double> &xs, const QVector<double> &ys, double x, bool sorted,
                           bool positiveOnly)
{
    const int count = std::min(xs.size(), ys.size());
    const auto counts
        = [&](int i) { return !std::isnan(xs[i]) && !std::isnan(ys[i]) && (!positiveOnly || ys[i] > 0.0); };
    if (std::isnan(x))
        return -1;
    int nearest = -1;
    const auto consider = [&](int i) {
        if (nearest < 0 || std::abs(xs[i] - x) < std::abs(xs[nearest] - x))
            nearest = i;
    };
    if (!sorted) {
        for (int i = 0; i < count; ++i) {
            if (counts(i))
                consider(i);
        }
        return nearest;
    }
    const auto begin = xs.cbegin();
    const int split = static_cast<int>(std::lower_bound(begin, begin + count, x) - begin);
    int before = split - 1;
    while (before >= 0 && !counts(before))
        --before;
    // Of several with the same x, the first one.
    for (int i = before - 1; i >= 0 && xs[i] == xs[before]; --i) {
        if (counts(i))
            before = i;
    }
    int after = split;
    while (after < count && !counts(after))
        ++after;
    if (before >= 0)
        consider(before);
    if (after < count)
        consider(after);
    return nearest;
}

QString Readout::numberText(double value, NumberFormat format)
{
    return withDigits(value, format, kDigits);
}

QString Readout::numberDifferenceText(double from, double to, NumberFormat format)
{
    static const double kParts = std::pow(10.0, kDigits - 1);
    const double larger = std::max(std::abs(from), std::abs(to));
    return numberText(roundedTo(to - from, larger, kParts), format);
}

QString Readout::timeText(const AxisText &axis, double milliseconds)
{
    if (!axis.timeFormat.isEmpty()) {
        const QString text = engineText(axis.timeFormat, span(axis), milliseconds);
        if (!text.isEmpty())
            return text;
    }
    const double shown = std::round(WallClock::toShownTime(milliseconds));
    if (!(std::abs(shown) <= kGreatestTime))
        return QString::number(milliseconds);
    const auto whole = static_cast<qint64>(shown);
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(whole, Qt::UTC);
    const QString clock = time.toString(clockFormat(whole));
    if (axis.scale == AxisScale::TimesOfDay)
        return clock;
    const QString format
        = span(axis) < kMonthNames ? QStringLiteral("d MMM yyyy") : QStringLiteral("yyyy-MM-dd");
    const QString date = QLocale::c().toString(time.date(), format);
    const bool atMidnight = time.time() == QTime(0, 0);
    return atMidnight && span(axis) >= kHoursOnly ? date : date + QLatin1Char(' ') + clock;
}

QString Readout::sampleText(const AxisText &axis, double value)
{
    return isTime(axis) ? timeText(axis, value) : numberText(value, axis.numberFormat);
}

QString Readout::positionText(const AxisText &axis, double position)
{
    if (axis.scale == AxisScale::Logarithms)
        return withDigits(std::pow(10.0, position), axis.numberFormat, kLogarithmDigits);
    return sampleText(axis, shownPosition(axis, position));
}

QString Readout::differenceText(const AxisText &axis, double from, double to)
{
    if (axis.scale == AxisScale::Logarithms)
        return QStringLiteral("\u00D7%1")
            .arg(withDigits(std::pow(10.0, to - from), axis.numberFormat, kLogarithmDigits));
    // The difference of what is written, so that the reader's sum comes out.
    const double difference = shownPosition(axis, to) - shownPosition(axis, from);
    if (isTime(axis))
        return durationText(difference);
    return numberText(roundedTo(difference, span(axis)), axis.numberFormat);
}
