#ifndef VIEWER_PLOTBUILDER_H
#define VIEWER_PLOTBUILDER_H

#include "selection.h"

class PlotReadout;
class QWidget;
class ZrQtPlot;

struct BuiltPlot
{
    ZrQtPlot *plot = nullptr;
    PlotReadout *readout = nullptr; ///< child of the plot
};

/// A new plot that shows \a series of \a datasets as \a options say: coordinate systems, axes, channels, grid
/// and legend. The plot is a child of \a parent.
BuiltPlot buildPlot(const std::vector<Dataset> &datasets, const QVector<Series> &series,
                    const Options &options, QWidget *parent);

#endif // VIEWER_PLOTBUILDER_H
