#ifndef VIEWER_DATASET_H
#define VIEWER_DATASET_H

#include "columntypes.h"
#include "csvreader.h"
#include "problem.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <limits>
#include <vector>

/// What the x values of a file are. Files of the same kind share an x axis.
enum class XKind {
    RowNumber, ///< no column serves as x: the rows are counted from 1
    Number,
    DateTime,
    TimeOfDay
};

/// Smallest and largest of some values; empty as long as \c lowest is greater than \c highest.
struct ValueRange
{
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return !(lowest <= highest); }
    void include(double value);
};

/// One column of a file.
struct Column
{
    QString name;
    CellFormat format;
    /// One value per row in the unit of the kind, NaN where there is a gap; nothing for text and empty
    /// columns.
    QVector<double> values;
    ValueRange range;            ///< of the values that are no gaps
    ValueRange positiveRange;    ///< of those above 0
    qint64 emptyCells = 0;       ///< gaps because the cell is empty or missing at the end of its row
    qint64 unreadableCells = 0;  ///< gaps because the cell is not of the column's format
    qint64 notPositiveCells = 0; ///< values that are gaps on a logarithmic axis only

    bool isNumeric() const { return format.kind == ColumnKind::Number; }
    bool isTime() const
    {
        return format.kind == ColumnKind::DateTime || format.kind == ColumnKind::TimeOfDay;
    }
};

/// The content of one file.
struct Dataset
{
    QString file; ///< as the user named it
    std::vector<Column> columns;
    qint64 rows = 0;

    /// Set by assignX().
    int xColumn = -1; ///< -1: row numbers
    XKind xKind = XKind::RowNumber;
    QVector<double> x;
    ValueRange xRange;
    bool xSorted = true;     ///< no x value is smaller than the one before
    qint64 rowsWithoutX = 0; ///< rows that were left out because their x is a gap
};

/// Index of the column that \a column names: its header or, if there is none of that name, its number counted
/// from 1. -1 with a problem if there is no such column, or several.
int findColumn(const Dataset &dataset, const QString &column, Problem *problem);

/// Chooses the x column and computes x. An empty \a column stands for the first column that holds dates,
/// times or growing numbers without a gap, provided that another numeric column is left to be drawn; without
/// one, x is the row's number. Rows whose x is a gap have no place in a plot: they are taken out of all
/// columns.
bool assignX(Dataset *dataset, const QString &column, Problem *problem);

/// The columns to draw: \a columns, or every numeric column but x if that is empty.
bool chooseY(const Dataset &dataset, const QStringList &columns, QVector<int> *chosen, Problem *problem);

/// What the user must know about column \a column of \a dataset: how many cells are gaps and why. Empty if
/// there are none.
QString gapSentence(const Dataset &dataset, int column, bool logarithmic);

/// Makes columns of rows. The first rows are kept as text until it is known how their columns are read; after
/// that, a value takes eight bytes and text takes none.
class DatasetBuilder
{
public:
    /// The format of each column is decided by this many rows.
    static constexpr int kSampleRows = 10000;

    DatasetBuilder() = default;

    /// Before the first row. Tells whether the comma may be a decimal mark.
    void setDelimiter(char delimiter);

    /// Takes the next row; false with a problem if it has more cells than the first one.
    bool addRow(const CsvRow &row);
    /// Ends the file; false with a problem if there is nothing to draw.
    bool finish(Dataset *dataset);

    const Problem &problem() const { return m_problem; }

private:
    void decide();
    bool hasHeader() const;
    void store(const CsvRow &row);
    void storeCell(Column *column, std::string_view cell);

    std::vector<CsvRow> m_sample;
    std::vector<Column> m_columns;
    qint64 m_rows = 0;
    int m_width = 0;
    bool m_commaAllowed = false;
    bool m_decided = false;
    bool m_hasHeader = false;
    Problem m_problem;
};

#endif // VIEWER_DATASET_H
