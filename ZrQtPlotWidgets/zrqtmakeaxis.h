#ifndef ZRQTMAKEAXIS_H
#define ZRQTMAKEAXIS_H

#include "zrqtplotwidgets_global.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QScopedPointer>
#include <QtCore/QVector>

class ZrQtMakeAxisPrivate;

/// The tick engine of an axis: from a range of values and a length in pixels it decides where ticks and
/// sub-ticks stand and what their labels say. Each axis owns one; it is as useful alone, wherever a scale is
/// drawn.
///
/// \code
/// ZrQtMakeAxis engine;
/// engine.setLength(400.0, 60.0, 20.0);
/// engine.setParameters(false, 10, 4, 1, false, 2, false, false, true);
/// if (engine.setRange(0.0, 1.0)) {
///     const QVector<double> positions = engine.tickPositions();   // 0, 0.2, 0.4, 0.6, 0.8, 1
///     for (int i = 0; i < positions.size(); ++i)
///         drawTick(positions.at(i) * 400.0, QString::fromLatin1(engine.label(i)));
/// }
/// \endcode
///
/// Positions are normalized: 0 is the lower and 1 the upper end of the range; on a logarithmic scale they are
/// linear in the logarithm. A tick stands at the value that its rounded label shows, not where it was rounded
/// from; the tick of a range's end may therefore stand up to 0.01 outside and up to 0.03 inside of it. Only
/// mantissas in front of an exponent are rounded further.
///
/// Lengths, parameters and time format take effect with the next setRange(). The class sends no signals and
/// can be used in any thread, by one thread at a time.
class ZRQTPLOTWIDGETS_EXPORT ZrQtMakeAxis : public QObject
{
    Q_OBJECT

public:
    explicit ZrQtMakeAxis(QObject *parent = nullptr);
    ~ZrQtMakeAxis() override;

    /// Tells the room for ticks, in pixels. A negative `length` and NaN count as 0; with length 0 ticks may
    /// stand as close as they like. `tickDistance`, the least distance of two labelled ticks, is clamped to 0
    /// ... length / 2, and `subTickDistance`, the least distance of sub-ticks, to 0 ... length; 0 means no
    /// limit. A tick next to the end of the range that is nearer to it than `tickDistance` keeps its place
    /// and loses its label; with `fixedLength` it keeps the label too.
    void setLength(double length, double tickDistance, double subTickDistance, bool fixedLength = false);

    /// Sets how ticks are made and written.
    /// \param logarithmic works in decimal logarithms; a range must then begin above 0. `equalSpaced`,
    ///     `scientificExponent` and `equalExponent` count as false, and format 3 as 0.
    /// \param maxTicks most ticks, those at the two ends included, clamped to 2 ... 100000. Where only two
    ///     are allowed, they are the two ends.
    /// \param maxSubTicks most sub-ticks between two ticks; a negative number counts as 0. A logarithmic
    ///     scale has either 8 in each decade (when 8 or more are allowed) or none. There are never more
    ///     than 100000 in a range.
    /// \param precision decimals of the ticks, clamped to -1 ... 15 (-1 rounds to tens). Where that moves a
    ///     tick too far, its label gets more, up to 17; a range that needs still more has no ticks. In
    ///     times the step decides.
    /// \param equalSpaced divides the range into equal parts instead of choosing round steps.
    /// \param format 0 plain numbers, 1 mantissa and exponent, 2 an exponent only where it is beyond 5 or
    ///     -5, 3 date and time as setTimeFormat() says. Any other number counts as 0.
    /// \param scientificExponent exponents are multiples of three. Ignored by format 0.
    /// \param equalExponent all labels are mantissas of one common exponent, which they do not show.
    ///     Ignored unless the format is 1.
    /// \param showBoundLabels keeps the two ticks at the ends of the range.
    /// \param keepChoice prefers the step of the previous range while it makes as many sub-ticks as the
    ///     best one, so that a moving scale is calm.
    void setParameters(bool logarithmic, int maxTicks, int maxSubTicks, int precision, bool equalSpaced,
                       int format, bool scientificExponent, bool equalExponent, bool showBoundLabels,
                       bool keepChoice = false);

    /// Sets the text of date/time labels, in Latin-1: any text with placeholders. Values are milliseconds
    /// since the epoch and are shown in the time zone of the process.
    ///
    /// Several lines, separated by "\r\n", give formats for ranges of different size. A line of a number, a
    /// tab and a format is used for ranges shorter than that many milliseconds, a line without a tab for all
    /// others: "60000\t%ss\r\n%hh:%mm" shows seconds below one minute. An empty line is ignored; without any
    /// line there are no ticks. The placeholders of the line in use decide which steps are possible: with
    /// "%hh:%mm" hours and minutes, but no days. A line without any placeholder makes no ticks.
    ///
    /// | placeholder | text |
    /// |---|---|
    /// | `%yyyy`, `%yy` | year, with four or two digits |
    /// | `%MonDe`, `%MonEn`, `%MonFr` | name of the month in German, English, French |
    /// | `%MDe`, `%MEn`, `%MFr` | its three-letter form |
    /// | `%MM`, `%M` | month 01 to 12, 1 to 12 |
    /// | `%dayDe`, `%dayEn`, `%dayFr` | name of the weekday in German, English, French |
    /// | `%dDe`, `%dEn`, `%dFr` | its three-letter form |
    /// | `%dd`, `%d` | day of the month 01 to 31, 1 to 31 |
    /// | `%DoW` | day of the week, 0 for Sunday to 6 |
    /// | `%DoY` | day of the year, counted from 0 |
    /// | `%WoY`, `%isoWoY` | week of the year, beginning on Sunday, or by ISO 8601 |
    /// | `%hh`, `%h` | hour 00 to 23, 0 to 23 |
    /// | `%HH`, `%H`, `%PP` | hour 01 to 12, 1 to 12, and its AM or PM |
    /// | `%mm`, `%m`, `%ss`, `%s` | minute and second, with two digits or without filling |
    /// | `%Ms`, `%Us` | milliseconds (three digits) and microseconds (six digits) of the second |
    /// | `%ad`, `%ah`, `%am`, `%as` | all days, hours, minutes, seconds since the epoch |
    /// | `%aMs`, `%aUs` | all milliseconds, microseconds since the epoch |
    /// | `%%` | a percent sign |
    ///
    /// Anything else stands for itself. A time so far away that its year is beyond the range of int has an
    /// empty label.
    void setTimeFormat(const QByteArray &latin1);

    /// Computes ticks for the values `lo` to `hi` and tells whether there are any. In format 3 an end that is
    /// not greater than 0, or not a number, counts as 0. There are none for a range that is empty, inverted,
    /// infinite, not a number or, on a logarithmic scale, not above 0; none when every step makes more than
    /// `maxTicks` or is narrower than the tick distance; and none when a label cannot be written with 17
    /// decimals.
    ///
    /// Ticks at the ends of a range of times are labelled with the whole unit of the finest placeholder that
    /// they lie in. Where that is too far from the end (more than 1 % of the range before its beginning, 3 %
    /// before its end), the tick is left out.
    bool setRange(double lo, double hi);

    /// Positions of the ticks in ascending order; empty when there are none.
    QVector<double> tickPositions() const;

    /// Positions of the sub-ticks. None coincides with a tick.
    QVector<double> subTickPositions() const;

    /// The label of tick `index`, in Latin-1. Empty for a tick that is too near to the end of the range, and
    /// for an index without a tick.
    QByteArray label(int index) const;

private:
    Q_DISABLE_COPY(ZrQtMakeAxis)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtMakeAxis)

    const QScopedPointer<ZrQtMakeAxisPrivate> m_d;
};

#endif // ZRQTMAKEAXIS_H
