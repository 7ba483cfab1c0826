#include "reducedmarkers_p.h"

#include "columnreduction_p.h"
#include "markerlayer_p.h"
#include "painterstate_p.h"

#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int largestMarker = 128; // pixels; of larger ones only few are visible at a time
constexpr int manySamples = 64;    // in a column, so that it pays to know when it is full

// What markers cost one by one, compared with what the picture for many costs.
constexpr int fewMarkers = 300;
constexpr int pixelsPerMarker = 2000;

// Of places for markers, a byte each, in what is drawn at a time.
constexpr double mostCells = 1.6e7;
constexpr int fewestRows = 2 * largestMarker;

bool isFilled(MarkerShape shape)
{
    return shape == MarkerShape::Rectangle || shape == MarkerShape::Circle;
}

/// The pixels to a unit of an untransformed painter, if its units start at a pixel, and pictures can be mixed
/// with what is beneath them as markers are.
std::optional<double> pixelRatio(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    const auto isWhole = [](double number) { return number == std::floor(number); };
    const bool isPlain = painter.paintEngine()->type() == QPaintEngine::Raster && transform.isAffine()
                         && transform.m12() == 0.0 && transform.m21() == 0.0 && transform.m11() > 0.0
                         && transform.m11() == transform.m22() && isWhole(transform.dx())
                         && isWhole(transform.dy());
    if (!isPlain || painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return std::nullopt;
    return transform.m11();
}

/// How many rows of pixels are drawn at a time, so that a huge picture does not take all memory.
int rowsAtOnce(int width, double cellsPerPixel)
{
    const double cellsInRow = std::max(1, width) * cellsPerPixel * cellsPerPixel;
    return qRound(qBound(double(fewestRows), mostCells / cellsInRow, 1e6));
}

/// The samples that can be seen, and one neighbour at each side.
struct VisibleSamples
{
    QVector<IndexRange> runs;
    IndexRange lone; ///< by place in SampleSeries::loneSamples()
};

/// Whether markers for `samples` are quickly drawn one by one on a picture of `size`.
bool areFew(const VisibleSamples &samples, const QSizeF &size)
{
    const double most = std::max<double>(fewMarkers, size.width() * size.height() / pixelsPerMarker);
    double count = samples.lone.size();
    return count <= most
           && std::all_of(samples.runs.cbegin(), samples.runs.cend(), [&count, most](const IndexRange &run) {
                  count += run.size();
                  return count <= most;
              });
}

/// Those of `samples` whose markers may reach into `area`.
QVector<QPointF> pointsNear(SampleSeries &series, const VisibleSamples &samples, const PixelMapping &mapping,
                            const QRectF &area)
{
    const QVector<QPointF> &points = series.points();
    QVector<QPointF> near;
    const auto append = [&near, &mapping, &area](const QPointF &point) {
        if (area.contains(mapping.map(point)))
            near.append(point);
    };
    for (const IndexRange &run : samples.runs)
        std::for_each(points.cbegin() + run.begin, points.cbegin() + run.end, append);
    for (int i = samples.lone.begin; i < samples.lone.end; ++i)
        append(points.at(series.loneSamples().at(i)));
    return near;
}

/// Puts the markers of a series into the cells of a layer.
class MarkerCollector
{
public:
    MarkerCollector(MarkerLayer &layer, const MarkerStyle &style, double cellsPerUnit)
        : m_layer(layer)
        , m_mapping(style.toPixel * QTransform::fromScale(cellsPerUnit, cellsPerUnit))
        , m_isFilled(isFilled(style.shape))
        , m_canvas(style.canvas.normalized())
        , m_left(layer.cells().left())
        , m_top(layer.cells().top())
        , m_right(layer.cells().right() + 1.0)
        , m_bottom(layer.cells().bottom() + 1.0)
    {
        // The canvas limits only the filled markers.
        const double one = m_mapping.y(m_canvas.top());
        const double other = m_mapping.y(m_canvas.bottom());
        m_firstRow = m_isFilled ? std::max(m_top, std::min(one, other)) : m_top;
        m_endRow = m_isFilled ? std::min(m_bottom, std::max(one, other)) : m_bottom;
    }

    void collect(SampleSeries &series)
    {
        m_points = series.points().constData();
        if (m_isFilled && (m_canvas.width() == 0.0 || m_canvas.height() == 0.0))
            return;
        if (series.isAscending()) {
            addColumns(series);
        } else {
            for (const IndexRange &run : series.runs())
                addAll(run);
        }
        const IndexRange lone = visibleLoneSamples(series, m_mapping, m_left, m_right);
        for (int i = lone.begin; i < lone.end; ++i)
            add(m_points[series.loneSamples().at(i)]);
    }

private:
    void addColumns(SampleSeries &series)
    {
        const QVector<ColumnSamples> columns = visibleColumns(series, m_mapping, m_left, m_right);
        for (const ColumnSamples &column : columns) {
            if (column.hasGaps)
                addRuns(series.runs(), column.samples);
            else if (column.samples.size() > manySamples)
                addUntilFull(column, series.extent(column.samples));
            else
                addAll(column.samples);
        }
    }

    /// Adds those of `samples` that are in a run.
    void addRuns(const QVector<IndexRange> &runs, const IndexRange &samples)
    {
        const auto *run
            = std::partition_point(runs.cbegin(), runs.cend(),
                                   [&samples](const IndexRange &each) { return each.end <= samples.begin; });
        for (; run != runs.cend() && run->begin < samples.end; ++run)
            addAll({std::max(run->begin, samples.begin), std::min(run->end, samples.end)});
    }

    void addAll(const IndexRange &samples)
    {
        for (int i = samples.begin; i < samples.end; ++i)
            add(m_points[i]);
    }

    /// Adds samples until each cell has a marker that one of them can be in.
    void addUntilFull(const ColumnSamples &column, const SampleExtent &extent)
    {
        const double one = m_mapping.y(extent.low);
        const double other = m_mapping.y(extent.high);
        const double top = std::max(m_firstRow, std::min(one, other));
        const double bottom = std::min(m_endRow, std::max(one, other));
        // Truncation puts the cells around zero together.
        const bool isWithin = column.column >= std::max(0.0, m_left) && column.column < m_right;
        if (!isWithin || !(top <= bottom) || bottom - top > 0.5 * column.samples.size()) {
            addAll(column.samples);
            return;
        }
        const int lastRow = std::min(cellOf(bottom), m_layer.cells().bottom());
        int open = 0;
        for (int row = cellOf(top); row <= lastRow; ++row)
            open += int(m_layer.isOpen(column.column, row));
        for (int i = column.samples.begin; i < column.samples.end && open > 0; ++i) {
            if (add(m_points[i]) && !m_layer.isOpen(column.column, cellOf(m_mapping.y(m_points[i].y()))))
                --open;
        }
    }

    bool add(const QPointF &point)
    {
        if (m_isFilled
            && !(point.x() >= m_canvas.left() && point.x() <= m_canvas.right() && point.y() >= m_canvas.top()
                 && point.y() <= m_canvas.bottom()))
            return false;
        const QPointF place = m_mapping.map(point);
        if (!(place.x() >= m_left && place.x() < m_right && place.y() >= m_top && place.y() < m_bottom))
            return false;
        return m_layer.add(cellOf(place.x()), cellOf(place.y()));
    }

    /// Filled markers are moved towards zero, as drawPointMarkers() does.
    [[nodiscard]] int cellOf(double place) const
    {
        return static_cast<int>(m_isFilled ? place : std::floor(place));
    }

    MarkerLayer &m_layer;
    PixelMapping m_mapping; // to cells
    bool m_isFilled;
    QRectF m_canvas;
    double m_left;
    double m_top;
    double m_right;
    double m_bottom;
    double m_firstRow = 0.0;
    double m_endRow = 0.0;
    const QPointF *m_points = nullptr;
};

} // namespace

void drawReducedMarkers(QPainter &painter, SampleSeries &series, const MarkerStyle &style)
{
    const PainterState state(painter);
    painter.resetTransform();
    QPen pen = painter.pen();
    pen.setStyle(Qt::SolidLine); // as drawPointMarkers() has it
    painter.setPen(pen);
    const QSize size(painter.device()->width(), painter.device()->height());
    const PixelMapping mapping(style.toPixel);
    const double reach = style.size + pen.widthF() + 1.0;
    const QRectF area = QRectF(QPointF(0.0, 0.0), size).adjusted(-reach, -reach, reach, reach);
    const VisibleSamples samples{visibleRanges(series, mapping, area.left(), area.right()),
                                 visibleLoneSamples(series, mapping, area.left(), area.right())};
    const std::optional<double> ratio = pixelRatio(painter);
    const std::optional<MarkerGrid> grid
        = ratio ? MarkerGrid::forShape(style.shape, *ratio, painter.testRenderHint(QPainter::Antialiasing))
                : std::nullopt;
    if (!grid || style.size * *ratio > largestMarker || areFew(samples, QSizeF(size) * *ratio)) {
        drawPointMarkers(painter, pointsNear(series, samples, mapping, area), style);
        return;
    }
    painter.scale(1.0 / *ratio, 1.0 / *ratio);
    const QRect bounds = QRectF(QPointF(0.0, 0.0), QSizeF(size) * *ratio).toAlignedRect();
    const int rows = rowsAtOnce(bounds.width(), grid->cellsPerUnit / *ratio);
    for (int top = bounds.top(); top <= bounds.bottom(); top += rows) {
        const QRect band = bounds & QRect(bounds.left(), top, bounds.width(), rows);
        MarkerLayer layer(painter, band, *grid, style);
        MarkerCollector(layer, style, grid->cellsPerUnit).collect(series);
        layer.draw(painter);
    }
}
