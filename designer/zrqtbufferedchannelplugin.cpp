#include "zrqtbufferedchannelplugin.h"

#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"

#include <QtGui/QIcon>

ZrQtBufferedChannelPlugin::ZrQtBufferedChannelPlugin(QObject *parent)
    : ZrQtWidgetPlugin(parent)
{
}

QString ZrQtBufferedChannelPlugin::name() const
{
    return QStringLiteral("ZrQtBufferedChannel");
}

QIcon ZrQtBufferedChannelPlugin::icon() const
{
    return QIcon(QStringLiteral(":/images/zrqtbufferedchannel.png"));
}

// On purpose the description of the axis: forms in use carry it for channels, too.
QString ZrQtBufferedChannelPlugin::domXml() const
{
    return formText({}, QStringLiteral("A graph axis widget"));
}

QWidget *ZrQtBufferedChannelPlugin::createWidget(QWidget *parent)
{
    return new ZrQtBufferedChannel(parent);
}
