#include "zrqtplotcollection.h"

#include "zrqtaxisplugin.h"
#include "zrqtbufferedchannelplugin.h"
#include "zrqtplotchanneleditplugin.h"
#include "zrqtplotchannelplugin.h"
#include "zrqtplotplugin.h"
#include "zrqtplotsliderplugin.h"

// The order is that of Designer's widget box. On purpose the plot is listed twice.
ZrQtPlotCollection::ZrQtPlotCollection(QObject *parent)
    : QObject(parent)
    , m_widgets{new ZrQtPlotPlugin(this),           new ZrQtPlotChannelEditPlugin(this),
                new ZrQtAxisPlugin(this),           new ZrQtPlotChannelPlugin(this),
                new ZrQtPlotPlugin(this),           new ZrQtPlotSliderPlugin(this),
                new ZrQtBufferedChannelPlugin(this)}
{
}

QList<QDesignerCustomWidgetInterface *> ZrQtPlotCollection::customWidgets() const
{
    return m_widgets;
}
