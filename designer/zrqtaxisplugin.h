#ifndef ZRQTAXISPLUGIN_H
#define ZRQTAXISPLUGIN_H

#include "zrqtwidgetplugin.h"

/// The axis.
class ZrQtAxisPlugin : public ZrQtWidgetPlugin
{
    Q_OBJECT

public:
    explicit ZrQtAxisPlugin(QObject *parent);

    QString name() const override;
    QIcon icon() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
};

#endif // ZRQTAXISPLUGIN_H
