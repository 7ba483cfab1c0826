#ifndef VIEWER_COLUMNTYPES_H
#define VIEWER_COLUMNTYPES_H

#include <QtCore/QtGlobal>

#include <array>
#include <optional>
#include <string_view>

enum class ColumnKind {
    Empty, ///< no cell holds anything
    Number,
    DateTime,  ///< a date, with or without a time; milliseconds since the epoch, see WallClock
    TimeOfDay, ///< a time without a date; as DateTime, on the 1st of January 2000
    Text
};

enum class DecimalMark { Point, Comma };

/// Which number comes first in dates such as 3/4/2026. Dates that begin with the year, name the month, or
/// have points or hyphens (day first) need no such choice.
enum class SlashDate { MonthFirst, DayFirst };

/// How the cells of a column are read.
struct CellFormat
{
    ColumnKind kind = ColumnKind::Empty;
    DecimalMark decimalMark = DecimalMark::Point;
    SlashDate slashDate = SlashDate::MonthFirst;
};

/// Decimal or exponent form, also with a plus sign. None for anything else, for infinities, NaN, numbers
/// beyond 1e300 and those closer to 0 than any double.
std::optional<double> readNumber(std::string_view cell, DecimalMark mark);

/// 2026-11-21, 2026/11/21, 2026-11, 11/21/2026 or 21/11/2026, 21.11.2026, 21-11-2026, Nov 21 2026,
/// November 21, 2026, 21 Nov 2026, 21-Nov-2026 or Nov 2026. A time may follow after a blank or a T: 14:03,
/// with seconds, fractions of a second, AM or PM, and a zone (Z, UTC, GMT, +01:00, +0100, +01). Milliseconds
/// since the epoch, see WallClock.
std::optional<double> readDateTime(std::string_view cell, SlashDate slashDate);

/// A time as in readDateTime(), without a zone.
std::optional<double> readTimeOfDay(std::string_view cell);

/// Value of a cell in the unit of its kind; none if the cell is not of the column's format.
std::optional<double> readCell(std::string_view cell, const CellFormat &format);

/// Looks at cells of one column and decides how the column is to be read.
///
/// The format in which the most cells can be read wins, if it is at least half of the cells that are not
/// empty; otherwise the column is text. Slash dates that fit both orders have the month first.
class ColumnSampler
{
public:
    /// \a commaAllowed: whether the file's delimiter leaves the comma for decimals.
    explicit ColumnSampler(bool commaAllowed = false);

    void add(std::string_view cell);
    CellFormat decide() const;

private:
    static constexpr size_t kFormatCount = 5;
    static const std::array<CellFormat, kFormatCount> kFormats;

    std::array<qint64, kFormatCount> m_readable{};
    qint64 m_filled = 0;
    bool m_commaAllowed;
};

#endif // VIEWER_COLUMNTYPES_H
