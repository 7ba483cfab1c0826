#ifndef VIEWER_PLOTBUILDER_H
#define VIEWER_PLOTBUILDER_H

#include "selection.h"

#include <QtGui/QColor>

class PlotReadout;
class QWidget;
class ZrQtPlot;
struct PlottedSeries;

/// How the user wants a series to look.
struct SeriesLook
{
    QColor color;
    bool visible = true;
};

struct BuiltPlot
{
    ZrQtPlot *plot = nullptr;
    PlotReadout *readout = nullptr; ///< child of the plot
};

/// The looks of \a series as long as the user has not chosen others.
QVector<SeriesLook> defaultLooks(const QVector<Series> &series);

/// A new plot that shows \a series of \a datasets as \a options say: coordinate systems, axes, channels, grid
/// and legend. \a looks has one item for each series. The plot is a child of \a parent.
BuiltPlot buildPlot(const std::vector<Dataset> &datasets, const QVector<Series> &series,
                    const QVector<SeriesLook> &looks, const Options &options, QWidget *parent);

/// Gives a series and what wears its colour another one.
void setColor(const PlottedSeries &series, const QColor &color);

#endif // VIEWER_PLOTBUILDER_H
