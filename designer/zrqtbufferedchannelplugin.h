#ifndef ZRQTBUFFEREDCHANNELPLUGIN_H
#define ZRQTBUFFEREDCHANNELPLUGIN_H

#include "zrqtwidgetplugin.h"

/// The channel of sampled data.
class ZrQtBufferedChannelPlugin : public ZrQtWidgetPlugin
{
    Q_OBJECT

public:
    explicit ZrQtBufferedChannelPlugin(QObject *parent);

    QString name() const override;
    QIcon icon() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
};

#endif // ZRQTBUFFEREDCHANNELPLUGIN_H
