#include "dataset.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr double kDay = 86400000.0;
constexpr double kHalfADay = kDay / 2.0;

// Twice as many rows as the sampler judges would double the memory of the sample for no better judgement; a
// few very long rows fill it, too.
constexpr qint64 kSampleCells = 1000000;

// A vector of Qt 5 holds no more than two gigabytes.
constexpr qint64 kMostRows = 250000000;

bool growsWithoutGap(const QVector<double> &values)
{
    for (int i = 0; i < values.size(); ++i) {
        if (!(i == 0 ? std::isfinite(values[i]) : values[i] > values[i - 1]))
            return false;
    }
    return values.size() > 1;
}

int automaticXColumn(const Dataset &dataset)
{
    const auto numericColumns = std::count_if(dataset.columns.cbegin(), dataset.columns.cend(),
                                              [](const Column &c) { return c.isNumeric(); });
    for (size_t i = 0; i < dataset.columns.size(); ++i) {
        const Column &column = dataset.columns[i];
        if ((column.isTime() && numericColumns > 0)
            || (column.isNumeric() && numericColumns > 1 && growsWithoutGap(column.values)))
            return static_cast<int>(i);
    }
    return -1;
}

/// Takes the rows whose \a x is NaN out of \a values. Both have the same length.
void removeRowsWithoutX(const QVector<double> &x, QVector<double> *values)
{
    int kept = 0;
    for (int i = 0; i < x.size(); ++i) {
        if (!std::isnan(x[i]))
            (*values)[kept++] = (*values)[i];
    }
    values->resize(kept);
}

void updateRanges(Column *column)
{
    column->range = {};
    column->positiveRange = {};
    column->notPositiveCells = 0;
    for (const double value : qAsConst(column->values)) {
        column->range.include(value);
        if (value > 0.0)
            column->positiveRange.include(value);
        else if (!std::isnan(value))
            ++column->notPositiveCells;
    }
}

/// A clock that jumps back by more than half a day has passed midnight.
void addDaysAfterMidnight(QVector<double> *times)
{
    double days = 0.0;
    for (int i = 1; i < times->size(); ++i) {
        const double next = (*times)[i] + days;
        if (next < (*times)[i - 1] - kHalfADay)
            days += kDay;
        (*times)[i] += days;
    }
}

void dropRowsWithoutX(Dataset *dataset, const Column &xColumn)
{
    const QVector<double> x = xColumn.values; // shared, while the columns change
    dataset->rowsWithoutX
        = std::count_if(x.cbegin(), x.cend(), [](double value) { return std::isnan(value); });
    if (dataset->rowsWithoutX == 0)
        return;
    for (Column &column : dataset->columns) {
        if (!column.values.isEmpty()) {
            removeRowsWithoutX(x, &column.values);
            updateRanges(&column);
        }
    }
}

QString counted(qint64 count, const QString &one, const QString &many)
{
    return count == 1 ? QStringLiteral("1 ") + one : QString::number(count) + QLatin1Char(' ') + many;
}

QString kindName(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Empty:
        return QStringLiteral("nothing");
    case ColumnKind::Number:
        return QStringLiteral("numbers");
    case ColumnKind::DateTime:
        return QStringLiteral("dates");
    case ColumnKind::TimeOfDay:
        return QStringLiteral("times");
    case ColumnKind::Text:
        break;
    }
    return QStringLiteral("text");
}

} // namespace

void ValueRange::include(double value)
{
    if (value < lowest)
        lowest = value;
    if (value > highest)
        highest = value;
}

int findColumn(const Dataset &dataset, const QString &column, Problem *problem)
{
    int found = -1;
    for (size_t i = 0; i < dataset.columns.size(); ++i) {
        if (dataset.columns[i].name != column)
            continue;
        if (found >= 0) {
            problem->text
                = QStringLiteral("several columns are named \"%1\", give the number instead").arg(column);
            return -1;
        }
        found = static_cast<int>(i);
    }
    if (found >= 0)
        return found;
    bool isNumber = false;
    const int number = column.toInt(&isNumber);
    if (isNumber && number >= 1 && static_cast<size_t>(number) <= dataset.columns.size())
        return number - 1;
    problem->text = QStringLiteral("there is no column \"%1\"").arg(column);
    return -1;
}

bool assignX(Dataset *dataset, const QString &column, Problem *problem)
{
    dataset->xColumn = column.isEmpty() ? automaticXColumn(*dataset) : findColumn(*dataset, column, problem);
    if (problem->exists())
        return false;
    if (dataset->xColumn < 0) {
        dataset->xKind = XKind::RowNumber;
        dataset->x.resize(static_cast<int>(dataset->rows));
        for (int i = 0; i < dataset->x.size(); ++i)
            dataset->x[i] = i + 1.0;
    } else {
        const Column &xColumn = dataset->columns[static_cast<size_t>(dataset->xColumn)];
        if (!xColumn.isNumeric() && !xColumn.isTime()) {
            problem->text = QStringLiteral("the column \"%1\" holds %2, it cannot be x")
                                .arg(xColumn.name, kindName(xColumn.format.kind));
            return false;
        }
        dropRowsWithoutX(dataset, xColumn);
        dataset->x = xColumn.values;
        dataset->xKind = xColumn.format.kind == ColumnKind::DateTime ? XKind::DateTime : XKind::Number;
        if (xColumn.format.kind == ColumnKind::TimeOfDay) {
            dataset->xKind = XKind::TimeOfDay;
            addDaysAfterMidnight(&dataset->x);
        }
    }
    dataset->xSorted = std::is_sorted(dataset->x.cbegin(), dataset->x.cend());
    dataset->xRange = {};
    for (const double x : qAsConst(dataset->x))
        dataset->xRange.include(x);
    return true;
}

bool chooseY(const Dataset &dataset, const QStringList &columns, QVector<int> *chosen, Problem *problem)
{
    chosen->clear();
    for (const QString &name : columns) {
        const int index = findColumn(dataset, name, problem);
        if (index < 0)
            return false;
        const Column &column = dataset.columns[static_cast<size_t>(index)];
        if (!column.isNumeric()) {
            problem->text = QStringLiteral("the column \"%1\" holds %2, only numbers can be drawn")
                                .arg(column.name, kindName(column.format.kind));
            return false;
        }
        if (!chosen->contains(index))
            chosen->append(index);
    }
    if (!columns.isEmpty())
        return true;
    for (size_t i = 0; i < dataset.columns.size(); ++i) {
        if (dataset.columns[i].isNumeric() && static_cast<int>(i) != dataset.xColumn)
            chosen->append(static_cast<int>(i));
    }
    if (chosen->isEmpty())
        problem->text = QStringLiteral("no column besides x holds numbers");
    return !chosen->isEmpty();
}

QString gapSentence(const Dataset &dataset, int column, bool logarithmic)
{
    const Column &c = dataset.columns[static_cast<size_t>(column)];
    const bool isX = column == dataset.xColumn;
    QStringList reasons;
    if (c.emptyCells > 0)
        reasons += counted(c.emptyCells, QStringLiteral("empty cell"), QStringLiteral("empty cells"));
    if (c.unreadableCells > 0) {
        reasons += c.isTime()
                       ? counted(c.unreadableCells,
                                 QStringLiteral("cell that is no %1")
                                     .arg(c.format.kind == ColumnKind::DateTime ? QStringLiteral("date")
                                                                                : QStringLiteral("time")),
                                 QStringLiteral("cells that are no %1").arg(kindName(c.format.kind)))
                       : counted(c.unreadableCells, QStringLiteral("cell that is no number"),
                                 QStringLiteral("cells that are no numbers"));
    }
    if (!isX && logarithmic && c.notPositiveCells > 0) {
        reasons += counted(c.notPositiveCells, QStringLiteral("value not above 0"),
                           QStringLiteral("values not above 0"));
    }
    if (reasons.isEmpty())
        return {};
    const QString effect = isX ? QStringLiteral("rows left out") : QStringLiteral("gaps");
    return QStringLiteral("%1, column \"%2\": %3: %4.")
        .arg(dataset.file, c.name, effect, reasons.join(QStringLiteral(", ")));
}

void DatasetBuilder::setDelimiter(char delimiter)
{
    // With a comma between the cells, a quoted 1,234 may as well be a thousand; with tabs, too.
    m_commaAllowed = delimiter == ';';
}

bool DatasetBuilder::addRow(const CsvRow &row)
{
    if (m_width == 0)
        m_width = row.size();
    if (row.size() > m_width) {
        m_problem.text = QStringLiteral("the row has %1, but the first row has %2")
                             .arg(counted(row.size(), QStringLiteral("cell"), QStringLiteral("cells")),
                                  QString::number(m_width));
        m_problem.line = row.line();
        m_problem.column = m_width + 1;
        return false;
    }
    if (m_rows >= kMostRows) {
        m_problem = {QStringLiteral("the file has more than %1 rows").arg(kMostRows), row.line(), 0};
        return false;
    }
    if (m_decided) {
        store(row);
        return true;
    }
    m_sample.push_back(row);
    const auto sampled = static_cast<qint64>(m_sample.size());
    if (sampled > kSampleRows || sampled * m_width > kSampleCells)
        decide();
    return true;
}

bool DatasetBuilder::finish(Dataset *dataset)
{
    if (!m_decided)
        decide();
    if (m_width == 0)
        m_problem.text = QStringLiteral("the file is empty");
    else if (m_rows == 0)
        m_problem.text = QStringLiteral("there is a header but no row of data");
    else if (std::none_of(m_columns.cbegin(), m_columns.cend(),
                          [](const Column &c) { return c.isNumeric(); }))
        m_problem.text = QStringLiteral("no column holds numbers");
    dataset->columns = std::move(m_columns);
    dataset->rows = m_rows;
    for (Column &column : dataset->columns)
        column.values.squeeze();
    return !m_problem.exists();
}

/// The first row is a header if none of its cells is a number or a date, or if one of them is text above
/// numbers or dates.
bool DatasetBuilder::hasHeader() const
{
    const CsvRow &first = m_sample.front();
    bool allText = true;
    for (int i = 0; i < first.size(); ++i) {
        ColumnSampler cellSampler(m_commaAllowed);
        cellSampler.add(first.cell(i));
        const ColumnKind kind = cellSampler.decide().kind;
        allText = allText && (kind == ColumnKind::Text || kind == ColumnKind::Empty);
        if (kind != ColumnKind::Text)
            continue;
        const ColumnKind below = m_columns[static_cast<size_t>(i)].format.kind;
        if (below != ColumnKind::Text && below != ColumnKind::Empty)
            return true;
    }
    return allText;
}

/// Decides header and formats from the sample, then stores the sample.
void DatasetBuilder::decide()
{
    m_decided = true;
    if (m_sample.empty())
        return;
    m_columns.resize(static_cast<size_t>(m_width));
    for (int i = 0; i < m_width; ++i) {
        ColumnSampler sampler(m_commaAllowed);
        for (size_t row = 1; row < m_sample.size(); ++row) {
            if (i < m_sample[row].size())
                sampler.add(m_sample[row].cell(i));
        }
        m_columns[static_cast<size_t>(i)].format = sampler.decide();
    }
    m_hasHeader = hasHeader();
    for (int i = 0; i < m_width; ++i) {
        Column &column = m_columns[static_cast<size_t>(i)];
        column.name = m_hasHeader ? decodeText(m_sample.front().cell(i)).simplified() : QString();
        if (column.name.isEmpty())
            column.name = QStringLiteral("column %1").arg(i + 1);
    }
    for (size_t row = m_hasHeader ? 1 : 0; row < m_sample.size(); ++row)
        store(m_sample[row]);
    m_sample = {};
}

void DatasetBuilder::store(const CsvRow &row)
{
    for (int i = 0; i < m_width; ++i)
        storeCell(&m_columns[static_cast<size_t>(i)], i < row.size() ? row.cell(i) : std::string_view());
    ++m_rows;
}

void DatasetBuilder::storeCell(Column *column, std::string_view cell)
{
    if (column->format.kind == ColumnKind::Text)
        return;
    const bool empty = cell.find_first_not_of(' ') == std::string_view::npos;
    if (column->format.kind == ColumnKind::Empty && !empty) {
        // A column that was empty so far is read as its first cell demands.
        ColumnSampler sampler(m_commaAllowed);
        sampler.add(cell);
        column->format = sampler.decide();
        if (column->format.kind == ColumnKind::Text)
            return;
        column->values.fill(kGap, static_cast<int>(m_rows));
    }
    if (empty)
        ++column->emptyCells;
    if (column->format.kind == ColumnKind::Empty)
        return;
    const std::optional<double> value = empty ? std::nullopt : readCell(cell, column->format);
    if (!empty && !value)
        ++column->unreadableCells;
    column->values.append(value.value_or(kGap));
    if (!value)
        return;
    column->range.include(*value);
    if (*value > 0.0)
        column->positiveRange.include(*value);
    else
        ++column->notPositiveCells;
}
