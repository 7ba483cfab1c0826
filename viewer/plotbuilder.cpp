#include "plotbuilder.h"

#include "axisfeed.h"
#include "gaps.h"
#include "palette.h"
#include "plotreadout.h"
#include "seriesfeed.h"

#include <ZrQtPlotWidgets/zrqtaxis.h>
#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>
#include <ZrQtPlotWidgets/zrqtplot.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMinMargin = 12;
constexpr QSizeF kPixelGrid(100.0, 100.0);
constexpr QSizeF kPixelSubGrid(20.0, 20.0);
constexpr QSizeF kPercentGrid(0.1, 0.1);
constexpr QSizeF kPercentSubGrid(0.5, 0.5);

ZrQtPlot::CoordinateSystem system(int index)
{
    return static_cast<ZrQtPlot::CoordinateSystem>(ZrQtPlot::COSY_0 << index);
}

/// \a range, or one of some size around it if it is a single value, so that an axis can show it.
ValueRange showable(const ValueRange &range)
{
    if (range.isEmpty())
        return {0.0, 1.0};
    if (range.highest > range.lowest)
        return range;
    const double room = range.lowest == 0.0 ? 1.0 : std::abs(range.lowest) * 0.1;
    return {range.lowest - room, range.highest + room};
}

/// The same for x, where a tenth of a date would be years.
ValueRange showableX(const Dataset &dataset)
{
    constexpr double kHalfAMinute = 30000.0;
    if (dataset.xRange.isEmpty() || dataset.xRange.highest > dataset.xRange.lowest)
        return showable(dataset.xRange);
    const bool isTime = dataset.xKind == XKind::DateTime || dataset.xKind == XKind::TimeOfDay;
    const double room = isTime ? kHalfAMinute : 0.5;
    return {dataset.xRange.lowest - room, dataset.xRange.highest + room};
}

QRectF bounds(const ValueRange &x, const ValueRange &y)
{
    return QRectF(QPointF(x.lowest, y.lowest), QPointF(x.highest, y.highest));
}

AxisScale scaleOf(XKind kind)
{
    switch (kind) {
    case XKind::DateTime:
        return AxisScale::Dates;
    case XKind::TimeOfDay:
        return AxisScale::TimesOfDay;
    case XKind::RowNumber:
    case XKind::Number:
        break;
    }
    return AxisScale::Numbers;
}

/// Names of the x columns of the files whose x is of \a kind.
QString xLabel(const std::vector<Dataset> &datasets, XKind kind)
{
    QStringList names;
    for (const Dataset &dataset : datasets) {
        if (dataset.xKind == kind && dataset.xColumn >= 0)
            names += dataset.columns[static_cast<size_t>(dataset.xColumn)].name;
    }
    names.removeDuplicates();
    return kind == XKind::RowNumber ? QStringLiteral("row") : names.join(QStringLiteral(", "));
}

QVector<double> logarithms(QVector<double> values)
{
    for (double &value : values)
        value = value > 0.0 ? std::log10(value) : std::numeric_limits<double>::quiet_NaN();
    return values;
}

void applyGrid(ZrQtPlot *plot, GridKind kind)
{
    ZrQtPlot::GridMode mode = ZrQtPlot::NoGrid;
    switch (kind) {
    case GridKind::None:
        break;
    case GridKind::Ticks:
        mode = ZrQtPlot::TickGrid;
        break;
    case GridKind::SubTicks:
        mode = ZrQtPlot::SubTickGrid;
        break;
    case GridKind::Percent:
        mode = ZrQtPlot::PercentStepGrid;
        plot->setGridSpacing(kPercentGrid);
        plot->setGridSubSpacing(kPercentSubGrid);
        break;
    case GridKind::Pixels:
        mode = ZrQtPlot::PixelStepGrid;
        plot->setGridSpacing(kPixelGrid);
        plot->setGridSubSpacing(kPixelSubGrid);
        break;
    case GridKind::Polar:
        mode = ZrQtPlot::TickPolarGrid;
        break;
    }
    plot->setGridModeX(mode);
    plot->setGridModeY(mode);
}

/// Puts the widgets into the plot one after the other.
class PlotBuilder
{
public:
    PlotBuilder(const std::vector<Dataset> &datasets, const QVector<Series> &series,
                const QVector<SeriesLook> &looks, const Options &options, ZrQtPlot *plot)
        : m_datasets(datasets)
        , m_series(series)
        , m_looks(looks)
        , m_options(options)
        , m_plot(plot)
        , m_readout(new PlotReadout(plot, options))
    {
        QVector<SeriesInfo> infos;
        for (const Series &one : series)
            infos.append(one.info);
        m_plan = planLayout(infos);
    }

    void addXAxes();
    void addYAxes();
    void addChannels();

    PlotReadout *readout() const { return m_readout; }

private:
    ZrQtAxis *addAxis(Qt::Edge position, int systemIndex, AxisScale scale, const QString &label);

    const std::vector<Dataset> &m_datasets;
    const QVector<Series> &m_series;
    const QVector<SeriesLook> &m_looks;
    const Options &m_options;
    ZrQtPlot *m_plot;
    PlotReadout *m_readout;
    LayoutPlan m_plan;
    QVector<ZrQtAxis *> m_ownAxes; ///< for each series, null if it shares one
};

ZrQtAxis *PlotBuilder::addAxis(Qt::Edge position, int systemIndex, AxisScale scale, const QString &label)
{
    auto *axis = new ZrQtAxis(m_plot);
    axis->setPosition(position);
    axis->setCosy(system(systemIndex));
    // Several axes of one direction would make a thicket of grid lines.
    axis->setUseForGrid(systemIndex == 0);
    auto *feed = new AxisFeed(m_plot, axis, scale, label);
    // The format that suits values spread over decades would be hard to read below, on numbers of rows or
    // years.
    if (position == Qt::LeftEdge || position == Qt::RightEdge)
        feed->setNumberFormat(m_options.labelFormat);
    feed->setTimeFormat(m_options.timeFormat);
    feed->setEditable(m_options.editAxes);
    feed->setSubTicks(m_options.grid == GridKind::SubTicks);
    return axis;
}

void PlotBuilder::addXAxes()
{
    for (int i = 0; i < m_plan.xKinds.size(); ++i) {
        const XKind kind = m_plan.xKinds[i];
        addAxis(i == 0 ? Qt::BottomEdge : Qt::TopEdge, i, scaleOf(kind), xLabel(m_datasets, kind));
    }
}

void PlotBuilder::addYAxes()
{
    m_ownAxes.fill(nullptr, m_series.size());
    const AxisScale scale = m_options.logY ? AxisScale::Logarithms : AxisScale::Numbers;
    for (int i = 0; i < m_plan.systems.size(); ++i) {
        const SystemPlan &plan = m_plan.systems[i];
        const Qt::Edge position = plan.side == AxisSide::Left ? Qt::LeftEdge : Qt::RightEdge;
        ZrQtAxis *axis = addAxis(position, i, scale, plan.label);
        axis->setVerticalYLabel(true);
        axis->setInverted(m_options.invertedY);
        if (plan.series.size() == 1)
            m_ownAxes[plan.series.first()] = axis;
    }
}

void PlotBuilder::addChannels()
{
    for (int i = 0; i < m_series.size(); ++i) {
        const Series &one = m_series[i];
        const Dataset &dataset = m_datasets[static_cast<size_t>(one.dataset)];
        auto *channel = new ZrQtBufferedChannel(m_plot);
        channel->setName(one.info.name);
        channel->setCosyX(system(m_plan.xAxisOfSeries[i]));
        channel->setCosyY(system(m_plan.systemOfSeries[i]));

        PlottedSeries series;
        series.channel = channel;
        series.ownAxis = m_ownAxes[i];
        series.x = dataset.x;
        series.values = dataset.columns[static_cast<size_t>(one.column)].values;
        const QVector<double> drawn = m_options.logY ? logarithms(series.values) : series.values;
        series.points = pointsOf(series.x, drawn);
        series.hasLonelySample = hasLonelySample(drawn);
        series.extent = bounds(showableX(dataset), showable(one.info.range));
        series.sorted = dataset.xSorted;
        series.xScale = scaleOf(dataset.xKind);
        feedSeries(series);
        setColor(series, m_looks[i].color);
        channel->setVisible(m_looks[i].visible);
        m_readout->addSeries(series);
    }
    if (m_plan.systems.isEmpty())
        return;
    // With a single value axis it is clear whose values are meant.
    const QString name = m_plan.systems.size() > 1 ? m_plan.systems.first().label : QString();
    m_readout->setAxes(scaleOf(m_plan.xKinds.first()), name);
}

} // namespace

QVector<SeriesLook> defaultLooks(const QVector<Series> &series)
{
    QVector<SeriesLook> looks;
    for (int i = 0; i < series.size(); ++i)
        looks.append({seriesColor(i)});
    return looks;
}

void setColor(const PlottedSeries &series, const QColor &color)
{
    series.channel->setLineColor(color);
    series.channel->setPointColor(color);
    if (series.ownAxis)
        series.ownAxis->setLabelColor(color);
}

BuiltPlot buildPlot(const std::vector<Dataset> &datasets, const QVector<Series> &series,
                    const QVector<SeriesLook> &looks, const Options &options, QWidget *parent)
{
    auto *plot = new ZrQtPlot(parent);
    plot->setBorderColor(Qt::gray);
    plot->setGridStyle(Qt::DotLine);
    plot->setMinMarginTop(kMinMargin);
    plot->setMinMarginRight(kMinMargin);
    plot->setLegendAlignment(Qt::AlignHCenter);
    plot->setGenerateLegend(options.legend);
    applyGrid(plot, options.grid);

    PlotBuilder builder(datasets, series, looks, options, plot);
    builder.addXAxes();
    builder.addYAxes();
    builder.addChannels();
    return {plot, builder.readout()};
}
