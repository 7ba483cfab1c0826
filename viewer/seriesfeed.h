#ifndef VIEWER_SERIESFEED_H
#define VIEWER_SERIESFEED_H

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <QtCore/QTimer>
#include <QtCore/QVector>

class ZrQtBufferedChannel;
struct PlottedSeries;

/// Gives a channel the points of a long series that are worth drawing: as many as the pixels of its width
/// show, chosen anew whenever the canvas or the width changes. A short series is given as it is, once.
class SeriesFeed : public QObject
{
    Q_OBJECT

public:
    /// \a bounds is the extent of the whole series in data units, on which the plot scales. \a sorted tells
    /// that no x is smaller than the one before; other series are given whole. The channel owns the feed.
    SeriesFeed(ZrQtBufferedChannel *channel, const QVector<double> &x, const QVector<double> &y,
               const QRectF &bounds, bool sorted);

private:
    void refresh();

    ZrQtBufferedChannel *m_channel;
    QVector<double> m_x;
    QVector<double> m_y;
    QRectF m_bounds;
    QTimer m_timer;
    // What the points of the channel were made for.
    double m_left = 0.0;
    double m_right = 0.0;
    int m_width = 0;
};

/// Makes the channel of \a series a line through its data, with a dot where a sample stands between two gaps.
void feedSeries(const PlottedSeries &series);

#endif // VIEWER_SERIESFEED_H
