#ifndef VIEWER_PLOTVIEW_H
#define VIEWER_PLOTVIEW_H

#include <QtCore/QVector>

#include <ZrQtPlotWidgets/zrqtplot.h>

/// What the user moved one coordinate system to.
struct MovedSystem
{
    ZrQtPlot::CoordinateSystem cosy;
    QRectF canvas;
    bool movedX; ///< no longer fitted to the data
    bool movedY;
};

/// The systems that the data of \a plot use, each once.
QVector<ZrQtPlot::CoordinateSystem> systemsInUse(const ZrQtPlot *plot);

/// Fits every system in use to its data.
void fitAll(ZrQtPlot *plot);

/// The systems that are not fitted to their data.
QVector<MovedSystem> movedSystems(const ZrQtPlot *plot);

/// Moves \a plot, which has its size, to where another one was. Without \a withY in x only.
void moveSystems(ZrQtPlot *plot, const QVector<MovedSystem> &systems, bool withY);

#endif // VIEWER_PLOTVIEW_H
