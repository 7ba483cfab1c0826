#ifndef VIEWER_PLOTREADOUT_H
#define VIEWER_PLOTREADOUT_H

#include "readout.h"
#include "selection.h"

class ZrQtBaseChannel;

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
    /// \a values are those of the file, also where the channel draws their logarithms.
    void addChannel(ZrQtBaseChannel *channel, const Dataset &dataset, const QVector<double> &values,
                    AxisScale xScale);

    /// The values closest to \a x, a value of the first system, as rich text. Empty if there are none.
    QString hoverText(double x) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// What is to be said now; empty to take it back.
    void changed(const QString &sentence);

private:
    struct Line
    {
        ZrQtBaseChannel *channel;
        QVector<double> x;
        QVector<double> y;
        bool sorted;
        AxisScale xScale;
    };

    void onRegionSelected(const QRectF &region);
    void onLineSelected(const QLineF &line);
    void onPressed();
    /// The selected value as the axes show it.
    QPointF asShown(QPointF value) const;
    Readout::AxisText xText(ZrQtPlot::CoordinateSystem cosy, AxisScale scale) const;
    Readout::AxisText yText() const;
    /// Two positions; a date that both share is written once.
    QPair<QString, QString> xTexts(double from, double to) const;
    QString fromTo(const QPointF &from, const QPointF &to) const;
    QString named(const QString &values) const;

    ZrQtPlot *m_plot;
    bool m_logY;
    bool m_invertedY;
    NumberFormat m_numberFormat;
    QString m_timeFormat;
    AxisScale m_xScale = AxisScale::Numbers;
    QString m_yName;
    QVector<Line> m_lines;
};

#endif // VIEWER_PLOTREADOUT_H
