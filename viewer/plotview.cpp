#include "plotview.h"

#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>

QVector<ZrQtPlot::CoordinateSystem> systemsInUse(const ZrQtPlot *plot)
{
    QVector<ZrQtPlot::CoordinateSystem> systems;
    for (const auto *channel : plot->findChildren<ZrQtBufferedChannel *>()) {
        for (const ZrQtPlot::CoordinateSystem cosy : {channel->cosyX(), channel->cosyY()}) {
            if (!systems.contains(cosy))
                systems.append(cosy);
        }
    }
    return systems;
}

void fitAll(ZrQtPlot *plot)
{
    for (const ZrQtPlot::CoordinateSystem cosy : systemsInUse(plot))
        plot->setScaling(ZrQtPlot::AutoFit, cosy);
}

QVector<MovedSystem> movedSystems(const ZrQtPlot *plot)
{
    QVector<MovedSystem> systems;
    for (const ZrQtPlot::CoordinateSystem cosy : systemsInUse(plot)) {
        const bool movedX = plot->scalingX(cosy) == ZrQtPlot::Manual;
        const bool movedY = plot->scalingY(cosy) == ZrQtPlot::Manual;
        if (movedX || movedY)
            systems.append({cosy, plot->canvas(cosy), movedX, movedY});
    }
    return systems;
}

void moveSystems(ZrQtPlot *plot, const QVector<MovedSystem> &systems, bool withY)
{
    for (const MovedSystem &system : systems) {
        // A side of no length leaves its direction alone.
        QRectF canvas = system.canvas;
        if (!system.movedX)
            canvas.setWidth(0.0);
        if (!system.movedY || !withY)
            canvas.setHeight(0.0);
        plot->setCanvas(canvas, system.cosy);
    }
}
