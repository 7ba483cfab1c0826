#ifndef VIEWER_OVERVIEW_H
#define VIEWER_OVERVIEW_H

#include "plottedseries.h"

#include <ZrQtPlotWidgets/zrqtplot.h>

class ZrQtPlotSlider;
struct BuiltPlot;

/// A strip with all data of another plot and a slider that tells which part of its x the plot shows, and
/// changes it. Series whose x is on another axis than the first are left out: the slider does not move them.
class Overview : public ZrQtPlot
{
    Q_OBJECT

public:
    Overview(const BuiltPlot &built, const Options &options, QWidget *parent);

    /// Gives the line of series number \a index another colour.
    void setColor(int index, const QColor &color);

    QSize sizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addCopy(PlottedSeries *series, const Options &options);
    void alignWith(const QWidget *plotArea);
    void placeHandles();

    QPointer<ZrQtPlot> m_plot; ///< the other one
    ZrQtPlotSlider *m_slider;
    QVector<PlottedSeries> m_series; ///< as drawn here; without a channel where it is left out
};

#endif // VIEWER_OVERVIEW_H
