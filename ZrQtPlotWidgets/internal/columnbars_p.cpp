#include "columnbars_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int columnsPerGroup = 16; // with 4 bytes a pixel one line of the processor's cache

/// The rows of a bar, from `top` up to, and without, `end`.
struct Rows
{
    int column = 0;
    int top = 0;
    int end = 0;
};

QVector<Rows> rowsOf(const QVector<ColumnBar> &bars, const QRect &bounds)
{
    QVector<Rows> rows;
    rows.reserve(bars.size());
    const double top = bounds.top();
    const double end = bounds.top() + bounds.height();
    for (const ColumnBar &bar : bars) {
        const Rows visible{bar.column, static_cast<int>(qBound(top, bar.top, end)),
                           static_cast<int>(qBound(top, bar.bottom, end))};
        if (visible.top < visible.end && bar.column >= bounds.left() && bar.column <= bounds.right())
            rows.append(visible);
    }
    const auto isLeftOf = [](const Rows &one, const Rows &other) { return one.column < other.column; };
    if (!std::is_sorted(rows.cbegin(), rows.cend(), isLeftOf))
        std::sort(rows.begin(), rows.end(), isLeftOf);
    return rows;
}

void appendRows(QVector<QRect> &rectangles, int column, int width, int top, int end)
{
    if (top < end)
        rectangles.append(QRect(column, top, width, end - top));
}

/// The rows that all bars of the group have in common at once, then what is left of each.
void appendGroup(QVector<QRect> &rectangles, const Rows *begin, const Rows *end)
{
    int commonTop = begin->top;
    int commonEnd = begin->end;
    for (const Rows *rows = begin; rows != end; ++rows) {
        commonTop = std::max(commonTop, rows->top);
        commonEnd = std::min(commonEnd, rows->end);
    }
    commonEnd = std::max(commonTop, commonEnd);
    appendRows(rectangles, begin->column, static_cast<int>(end - begin), commonTop, commonEnd);
    for (const Rows *rows = begin; rows != end; ++rows) {
        appendRows(rectangles, rows->column, 1, rows->top, std::min(commonTop, rows->end));
        appendRows(rectangles, rows->column, 1, std::max(commonEnd, rows->top), rows->end);
    }
}

} // namespace

QVector<QRect> rectanglesOf(const QVector<ColumnBar> &bars, const QRect &bounds)
{
    const QVector<Rows> rows = rowsOf(bars, bounds);
    QVector<QRect> rectangles;
    rectangles.reserve(rows.size());
    for (auto begin = rows.cbegin(); begin != rows.cend();) {
        auto end = begin + 1;
        while (end != rows.cend() && end - begin < columnsPerGroup && end->column == (end - 1)->column + 1)
            ++end;
        appendGroup(rectangles, begin, end);
        begin = end;
    }
    return rectangles;
}
