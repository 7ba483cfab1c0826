#ifndef TIMEFORMAT_P_H
#define TIMEFORMAT_P_H

#include "localtime_p.h"
#include "ticksteps_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace ZrTicks {

struct TimePlaceholder;

/// A text with placeholders for parts of a date or a time, such as "%hh:%mm". All texts are Latin-1. An
/// unknown placeholder stands for itself.
///
/// Times are milliseconds since the epoch. With a `reference` other than 0, the clock starts at the midnight
/// of the reference's day: it shows the time elapsed since then.
class TimeFormat
{
public:
    TimeFormat() = default;
    explicit TimeFormat(const QByteArray &format);

    /// The rows of step candidates that the placeholders ask for, in the order of the text.
    [[nodiscard]] const QVector<UnitRow> &unitRows() const { return m_unitRows; }

    /// The text for one time. Empty when the time has no local date but a placeholder needs one.
    [[nodiscard]] QByteArray text(double time, double reference = 0.0) const;

    /// `time` lowered to a whole unit of the finest placeholder, in local time. Without any placeholder the
    /// time itself.
    [[nodiscard]] double toResolution(double time, double reference = 0.0) const;

private:
    struct Piece
    {
        const TimePlaceholder *placeholder = nullptr; ///< or none for a literal text
        QByteArray literal;
    };

    void appendPlaceholder(const TimePlaceholder *placeholder);
    void appendLiteral(char character);

    QVector<Piece> m_pieces;
    QVector<UnitRow> m_unitRows;
    const TimePlaceholder *m_finest = nullptr;
    bool m_needsCalendar = false;
};

/// The format for ranges that are shorter than `threshold` milliseconds.
struct TimeLevel
{
    double threshold = 0.0;
    TimeFormat format;
};

/// The levels of a time format, ascending by threshold. Levels are separated by "\r\n"; each is a threshold,
/// a tab and a format, or a format alone that suits every range. An empty line is no level.
[[nodiscard]] QVector<TimeLevel> parseTimeLevels(const QByteArray &latin1);

/// The first level whose threshold exceeds `span`, or none.
[[nodiscard]] const TimeLevel *levelForSpan(const QVector<TimeLevel> &levels, double span);

} // namespace ZrTicks

#endif // TIMEFORMAT_P_H
