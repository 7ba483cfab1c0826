#ifndef ZRQTPLOTCHANNELPLUGIN_H
#define ZRQTPLOTCHANNELPLUGIN_H

#include "zrqtwidgetplugin.h"

/// The channel of geometric content.
class ZrQtPlotChannelPlugin : public ZrQtWidgetPlugin
{
    Q_OBJECT

public:
    explicit ZrQtPlotChannelPlugin(QObject *parent);

    QString name() const override;
    QIcon icon() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
};

#endif // ZRQTPLOTCHANNELPLUGIN_H
