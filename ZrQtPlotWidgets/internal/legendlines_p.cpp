#include "legendlines_p.h"

namespace LegendLines {

namespace {

void append(Line &line, int entry, int width, int spacing)
{
    if (width < 1)
        return;
    line.width += (line.width > 0 ? spacing : 0) + width;
    line.entries.append(entry);
}

} // namespace

Metrics::Metrics(int height)
    : fontHeight(height)
    , spacing(static_cast<int>(height * 0.5 + 0.5))
    , sampleGap(static_cast<int>(spacing * 0.5 + 0.5))
{
}

int Metrics::entryWidth(int advance) const
{
    return static_cast<int>(advance + fontHeight + spacing * 0.5 + 0.5);
}

QVector<Line> broken(const QVector<int> &widths, int spacing, int available)
{
    QVector<Line> lines;
    Line line;
    for (int i = 0; i < widths.size(); ++i) {
        const int width = widths.at(i);
        const bool last = i == widths.size() - 1;
        const bool fits = line.width + (line.width > 0 ? spacing : 0) + width <= available;
        if (fits) {
            const bool begun = line.width > 0;
            append(line, i, width, spacing);
            if (last && begun)
                lines.append(line);
        } else if (line.width == 0) {
            lines.append({{i}, width});
        } else {
            lines.append(line);
            line = Line();
            append(line, i, width, spacing);
            if (last && width >= 1)
                lines.append(line);
        }
    }
    return lines;
}

} // namespace LegendLines
