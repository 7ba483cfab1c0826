#include "zrqtaxisplugin.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"

#include <QtGui/QIcon>

ZrQtAxisPlugin::ZrQtAxisPlugin(QObject *parent)
    : ZrQtWidgetPlugin(parent)
{
}

QString ZrQtAxisPlugin::name() const
{
    return QStringLiteral("ZrQtAxis");
}

QIcon ZrQtAxisPlugin::icon() const
{
    return QIcon(QStringLiteral(":/images/zrqtaxis.png"));
}

QString ZrQtAxisPlugin::domXml() const
{
    return formText({}, QStringLiteral("A graph axis widget"));
}

QWidget *ZrQtAxisPlugin::createWidget(QWidget *parent)
{
    return new ZrQtAxis(parent);
}
