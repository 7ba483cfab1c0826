#ifndef VIEWER_PLOTREADOUT_H
#define VIEWER_PLOTREADOUT_H

#include "plottedseries.h"
#include "readout.h"

/// Reads a plot for the user: the tooltip at the mouse, and a sentence about the point that was clicked and
/// the region or line that was selected.
class PlotReadout : public QObject
{
    Q_OBJECT

public:
    /// Takes over the hover callback of \a plot, which owns the readout.
    PlotReadout(ZrQtPlot *plot, const Options &options);

    /// The axes in whose values points, regions and lines are given: those of the first system. \a name is
    /// put before the y values if it is not empty.
    void setAxes(AxisScale x, const QString &name);
    void addSeries(const PlottedSeries &series) { m_series.append(series); }

    /// The values closest to \a x, a value of the first system, as rich text. Empty if there are none.
    QString hoverText(double x) const;

    const ZrQtPlot *plot() const { return m_plot; }
    const QVector<PlottedSeries> &series() const { return m_series; }
    /// How x is written in the first system, and in any.
    Readout::AxisText xText() const { return xText(ZrQtPlot::COSY_0, m_xScale); }
    Readout::AxisText xText(ZrQtPlot::CoordinateSystem cosy, AxisScale scale) const;
    /// Two positions; a date that both share is written once.
    QPair<QString, QString> xTexts(double from, double to) const;
    /// How y is written in the first system.
    Readout::AxisText yText() const;
    /// \a values after the name of the first value axis, if there are others.
    QString named(const QString &values) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// What is to be said now; empty to take it back.
    void changed(const QString &sentence);

private:
    void onRegionSelected(const QRectF &region);
    void onLineSelected(const QLineF &line);
    void onPressed();
    /// The selected value as the axes show it.
    QPointF asShown(QPointF value) const;
    QString fromTo(const QPointF &from, const QPointF &to) const;

    ZrQtPlot *m_plot;
    bool m_logY;
    bool m_invertedY;
    NumberFormat m_numberFormat;
    QString m_timeFormat;
    AxisScale m_xScale = AxisScale::Numbers;
    QString m_yName;
    QVector<PlottedSeries> m_series;
};

#endif // VIEWER_PLOTREADOUT_H
