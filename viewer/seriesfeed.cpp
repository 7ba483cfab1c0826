#include "seriesfeed.h"

#include "plottedseries.h"

#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>

#include <algorithm>

namespace {

constexpr int kDotSize = 5;
// Channels take what is beyond for infinity, and leave a gap.
constexpr double kLargestCoordinate = 9.99999999e299;

double drawable(double value)
{
    return std::clamp(value, -kLargestCoordinate, kLargestCoordinate); // NaN stays NaN
}

} // namespace

QVector<QPointF> pointsOf(const QVector<double> &x, const QVector<double> &y)
{
    QVector<QPointF> points;
    points.reserve(x.size());
    for (int i = 0; i < x.size(); ++i)
        points.append(QPointF(drawable(x[i]), drawable(y[i])));
    return points;
}

void feedSeries(const PlottedSeries &series)
{
    ZrQtBufferedChannel *channel = series.channel;
    channel->setDataReduction(true);
    channel->setAntialiasing(true);
    if (series.hasLonelySample) {
        channel->setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
        channel->setPointSize(kDotSize);
    }
    channel->setData(series.points, series.extent);
}
