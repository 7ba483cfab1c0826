#include "zrqtplotchannelplugin.h"

#include "ZrQtPlotWidgets/zrqtplotchannel.h"

#include <QtGui/QIcon>

ZrQtPlotChannelPlugin::ZrQtPlotChannelPlugin(QObject *parent)
    : ZrQtWidgetPlugin(parent)
{
}

QString ZrQtPlotChannelPlugin::name() const
{
    return QStringLiteral("ZrQtPlotChannel");
}

// On purpose without the slash that the other paths have; the resource system finds both.
QIcon ZrQtPlotChannelPlugin::icon() const
{
    return QIcon(QStringLiteral(":images/zrqtplotchannel.png"));
}

// On purpose the description of the axis: forms in use carry it for channels, too.
QString ZrQtPlotChannelPlugin::domXml() const
{
    return formText({}, QStringLiteral("A graph axis widget"));
}

QWidget *ZrQtPlotChannelPlugin::createWidget(QWidget *parent)
{
    return new ZrQtPlotChannel(parent);
}
