#ifndef ZRQTPLOTCHANNELEDITPLUGIN_H
#define ZRQTPLOTCHANNELEDITPLUGIN_H

#include "zrqtwidgetplugin.h"

/// The control of a channel's looks.
class ZrQtPlotChannelEditPlugin : public ZrQtWidgetPlugin
{
    Q_OBJECT

public:
    explicit ZrQtPlotChannelEditPlugin(QObject *parent);

    QString name() const override;
    QIcon icon() const override;
    QString toolTip() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
};

#endif // ZRQTPLOTCHANNELEDITPLUGIN_H
