#include "timeformat_p.h"

#include "timeplaceholders_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZrTicks {

namespace {

// A text need not end with a zero byte: QByteArray::fromRawData() makes such ones.
const TimePlaceholder *placeholderAt(std::string_view text)
{
    if (text.size() < 2)
        return nullptr;
    const auto &all = timePlaceholders();
    // The character after the percent sign rules out most of them.
    const auto matches = [text](const TimePlaceholder &p) {
        return text[1] == p.name[1] && text.substr(0, p.name.size()) == p.name;
    };
    const auto found = std::find_if(all.begin(), all.end(), matches);
    return found == all.end() ? nullptr : &*found;
}

// The time that the clock shows: with a reference, the time elapsed since then, counted from midnight.
double clockTime(double time, double reference)
{
    if (reference == 0.0)
        return time;
    return startOfLocalUnit(reference, TimeUnit::Day) + (time - reference);
}

TimeLevel parseLevel(const QByteArray &line)
{
    const int tab = line.lastIndexOf('\t');
    if (tab < 0)
        return {std::numeric_limits<double>::max(), TimeFormat(line)};
    // A threshold that is no number is 0, which no range is below.
    const double threshold = line.left(tab).trimmed().toDouble();
    return {std::isnan(threshold) ? 0.0 : threshold, TimeFormat(line.mid(tab + 1))};
}

} // namespace

TimeFormat::TimeFormat(const QByteArray &format)
{
    const std::string_view text(format.constData(), size_t(format.size()));
    for (int i = 0; i < format.size();) {
        const TimePlaceholder *placeholder
            = format.at(i) == '%' ? placeholderAt(text.substr(size_t(i))) : nullptr;
        if (placeholder) {
            appendPlaceholder(placeholder);
            i += int(placeholder->name.size());
        } else {
            appendLiteral(format.at(i));
            ++i;
        }
    }
}

void TimeFormat::appendPlaceholder(const TimePlaceholder *placeholder)
{
    m_pieces.append({placeholder, QByteArray()});
    if (placeholder->row && !m_unitRows.contains(*placeholder->row))
        m_unitRows.append(*placeholder->row);
    if (placeholder->unit && (!m_finest || *placeholder->unit < *m_finest->unit))
        m_finest = placeholder;
    if (placeholder->source == TimeSource::Calendar)
        m_needsCalendar = true;
}

void TimeFormat::appendLiteral(char character)
{
    if (m_pieces.isEmpty() || m_pieces.constLast().placeholder)
        m_pieces.append(Piece());
    m_pieces.last().literal += character;
}

QByteArray TimeFormat::text(double time, double reference) const
{
    TimeFields fields;
    fields.elapsed = time - reference;
    if (m_needsCalendar) {
        const double clock = clockTime(time, reference);
        // On purpose truncated toward zero with the rest cut off: the second before the epoch has no
        // fraction.
        const std::optional<std::tm> date = localCalendar(std::trunc(clock / 1000.0));
        if (!date)
            return {};
        fields.date = *date;
        fields.fraction = std::max(std::fmod(clock, 1000.0) / 1000.0, 0.0);
    }
    QByteArray result;
    for (const Piece &piece : m_pieces) {
        if (piece.placeholder)
            piece.placeholder->write(result, fields);
        else
            result += piece.literal;
    }
    return result;
}

double TimeFormat::toResolution(double time, double reference) const
{
    if (!m_finest)
        return time;
    if (m_finest->source == TimeSource::Elapsed)
        return reference + wholeElapsedUnits(time - reference, *m_finest->unit);
    const double clock = clockTime(time, reference);
    const double start = startOfLocalUnit(clock, *m_finest->unit);
    // The way back from the clock rounds: a start that is a hair too early is labelled with the unit before.
    return reference == 0.0 ? start : time + (start - clock);
}

QVector<TimeLevel> parseTimeLevels(const QByteArray &latin1)
{
    QVector<TimeLevel> levels;
    for (int begin = 0; begin <= latin1.size();) {
        const int found = latin1.indexOf("\r\n", begin);
        const int end = found < 0 ? latin1.size() : found;
        if (end > begin) {
            const TimeLevel level = parseLevel(latin1.mid(begin, end - begin));
            const auto notSmaller = std::lower_bound(
                levels.cbegin(), levels.cend(), level.threshold,
                [](const TimeLevel &other, double threshold) { return other.threshold < threshold; });
            levels.insert(int(notSmaller - levels.cbegin()), level);
        }
        begin = end + 2;
    }
    return levels;
}

const TimeLevel *levelForSpan(const QVector<TimeLevel> &levels, double span)
{
    const auto found = std::find_if(levels.cbegin(), levels.cend(),
                                    [span](const TimeLevel &level) { return level.threshold > span; });
    return found == levels.cend() ? nullptr : &*found;
}

} // namespace ZrTicks
