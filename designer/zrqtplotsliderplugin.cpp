#include "zrqtplotsliderplugin.h"

#include "ZrQtPlotWidgets/zrqtplotslider.h"

#include <QtGui/QIcon>

ZrQtPlotSliderPlugin::ZrQtPlotSliderPlugin(QObject *parent)
    : ZrQtWidgetPlugin(parent)
{
}

QString ZrQtPlotSliderPlugin::name() const
{
    return QStringLiteral("ZrQtPlotSlider");
}

QIcon ZrQtPlotSliderPlugin::icon() const
{
    return QIcon(QStringLiteral(":/images/zrqtplotslider.png"));
}

QString ZrQtPlotSliderPlugin::toolTip() const
{
    return QStringLiteral("A graphical slider widget to control a qplot widget");
}

QString ZrQtPlotSliderPlugin::domXml() const
{
    return formText(QSize(200, 40), toolTip());
}

QWidget *ZrQtPlotSliderPlugin::createWidget(QWidget *parent)
{
    return new ZrQtPlotSlider(parent);
}
