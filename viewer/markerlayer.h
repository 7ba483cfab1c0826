#ifndef VIEWER_MARKERLAYER_H
#define VIEWER_MARKERLAYER_H

#include "commandline.h"
#include "markers.h"
#include "markertags.h"

#include <QtCore/QObject>

class ZrQtPlot;
class ZrQtPlotChannel;

/// Shows markers on a plot, above its data, and lets the mouse drag them. x and y are those of the first
/// system.
///
/// The channels of the layer count in pixels of the plot area instead of in values, see MarkerScale; the
/// layer follows the canvas for them.
class MarkerLayer : public QObject
{
    Q_OBJECT

public:
    /// The plot owns the layer.
    MarkerLayer(ZrQtPlot *plot, const Options &options);

    const Markers &markers() const { return m_markers; }
    void setMarkers(const Markers &markers);

    MarkerScale scale() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The markers stand elsewhere: at every step of a drag.
    void moved();

private:
    ZrQtPlotChannel *addChannel();
    void refresh();
    void onLinesDragged(const QVector<QLineF> &lines);
    void onDragged(std::optional<ValueWindow> Markers::*marker, const QRectF &pixels);

    ZrQtPlot *m_plot;
    bool m_logY;
    bool m_invertedY;
    Markers m_markers;
    Markers m_placed; ///< those that the channels were given, which a drag begins with
    MarkerTags m_tags;
    ZrQtPlotChannel *m_region;
    ZrQtPlotChannel *m_circle;
    ZrQtPlotChannel *m_lines;
};

#endif // VIEWER_MARKERLAYER_H
