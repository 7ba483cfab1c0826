#include "zrqtplotplugin.h"

#include "ZrQtPlotWidgets/zrqtplot.h"

#include <QtGui/QIcon>

ZrQtPlotPlugin::ZrQtPlotPlugin(QObject *parent)
    : ZrQtWidgetPlugin(parent)
{
}

QString ZrQtPlotPlugin::name() const
{
    return QStringLiteral("ZrQtPlot");
}

QIcon ZrQtPlotPlugin::icon() const
{
    return QIcon(QStringLiteral(":/images/zrqtplot.png"));
}

bool ZrQtPlotPlugin::isContainer() const
{
    return true;
}

QString ZrQtPlotPlugin::domXml() const
{
    return formText(QSize(200, 200), {});
}

QWidget *ZrQtPlotPlugin::createWidget(QWidget *parent)
{
    return new ZrQtPlot(parent);
}
