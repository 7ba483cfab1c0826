#ifndef ZRQTPLOTSLIDERPLUGIN_H
#define ZRQTPLOTSLIDERPLUGIN_H

#include "zrqtwidgetplugin.h"

/// The overview slider.
class ZrQtPlotSliderPlugin : public ZrQtWidgetPlugin
{
    Q_OBJECT

public:
    explicit ZrQtPlotSliderPlugin(QObject *parent);

    QString name() const override;
    QIcon icon() const override;
    QString toolTip() const override;
    QString domXml() const override;
    QWidget *createWidget(QWidget *parent) override;
};

#endif // ZRQTPLOTSLIDERPLUGIN_H
