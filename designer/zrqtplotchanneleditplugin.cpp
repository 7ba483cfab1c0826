#include "zrqtplotchanneleditplugin.h"

#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"

#include <QtGui/QIcon>

ZrQtPlotChannelEditPlugin::ZrQtPlotChannelEditPlugin(QObject *parent)
    : ZrQtWidgetPlugin(parent)
{
}

QString ZrQtPlotChannelEditPlugin::name() const
{
    return QStringLiteral("ZrQtPlotChannelEdit");
}

QIcon ZrQtPlotChannelEditPlugin::icon() const
{
    return QIcon(QStringLiteral(":/images/zrqtplotchanneledit.png"));
}

QString ZrQtPlotChannelEditPlugin::toolTip() const
{
    return QStringLiteral("A Widget to control the appearance of a plot channel.");
}

QString ZrQtPlotChannelEditPlugin::domXml() const
{
    return formText(QSize(200, 40), toolTip());
}

QWidget *ZrQtPlotChannelEditPlugin::createWidget(QWidget *parent)
{
    return new ZrQtPlotChannelEdit(parent);
}
