#include "seriesfeed.h"

#include "plottedseries.h"
#include "reduction.h"

#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>

namespace {

// Twice as many points as a usual window can show of them.
constexpr int kShortSeries = 10000;
constexpr int kDotSize = 5;

} // namespace

SeriesFeed::SeriesFeed(ZrQtBufferedChannel *channel, const QVector<double> &x, const QVector<double> &y,
                       const QRectF &bounds, bool sorted)
    : QObject(channel)
    , m_channel(channel)
    , m_x(x)
    , m_y(y)
    , m_bounds(bounds)
{
    if (!sorted || x.size() <= kShortSeries) {
        channel->setData(allPoints(x, y), bounds);
        m_x.clear();
        m_y.clear();
        return;
    }
    // Several signals of one change make one refresh.
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SeriesFeed::refresh);
    const auto schedule = qOverload<>(&QTimer::start);
    connect(channel, &ZrQtBufferedChannel::canvasChanged, &m_timer, schedule);
    // The channel announces its size this way.
    connect(channel, &ZrQtBufferedChannel::dataChanged, &m_timer, schedule);
    channel->setData(QVector<QPointF>(), bounds);
    m_timer.start();
}

void SeriesFeed::refresh()
{
    const QRectF canvas = m_channel->canvas();
    if (canvas.left() == m_left && canvas.right() == m_right && m_channel->width() == m_width)
        return;
    m_left = canvas.left();
    m_right = canvas.right();
    m_width = m_channel->width();
    // In vectors of their own, points are taken as they are; a vector of points would be dropped if it were
    // fuzzily equal to the old one, which milliseconds since 1970 are all too soon.
    const QVector<QPointF> points = reducedPoints(m_x, m_y, m_left, m_right, m_width);
    QVector<double> x;
    QVector<double> y;
    x.reserve(points.size());
    y.reserve(points.size());
    for (const QPointF &point : points) {
        x.append(point.x());
        y.append(point.y());
    }
    m_channel->setData(x, y, m_bounds);
}

void feedSeries(const PlottedSeries &series)
{
    ZrQtBufferedChannel *channel = series.channel;
    // A line of one pixel is interrupted by NaN; a wider one would smear over the whole plot.
    channel->setLineWidth(1);
    channel->setAntialiasing(true);
    if (hasLonelySample(series.drawn)) {
        channel->setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
        channel->setPointSize(kDotSize);
    }
    new SeriesFeed(channel, series.x, series.drawn, series.extent, series.sorted);
}
