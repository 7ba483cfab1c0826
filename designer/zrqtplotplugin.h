#ifndef ZRQTPLOTPLUGIN_H
#define ZRQTPLOTPLUGIN_H

#include "zrqtwidgetplugin.h"

/// The plot: the one container, which registers what is dropped into it by itself.
class ZrQtPlotPlugin : public ZrQtWidgetPlugin
{
    Q_OBJECT

public:
    explicit ZrQtPlotPlugin(QObject *parent);

    QString name() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
};

#endif // ZRQTPLOTPLUGIN_H
