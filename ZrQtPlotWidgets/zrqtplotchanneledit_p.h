#ifndef ZRQTPLOTCHANNELEDIT_P_H
#define ZRQTPLOTCHANNELEDIT_P_H

//
// This file is not part of the API. It exists only as an implementation detail and may change from version to
// version without notice, or even be removed.
//

#include "zrqtbasechannel.h"
#include "zrqtplotchanneledit.h"

#include <QtCore/QPointer>

class QGridLayout;
class QLabel;
class QPushButton;

class ZrQtPlotChannelEditPrivate
{
public:
    explicit ZrQtPlotChannelEditPrivate(ZrQtPlotChannelEdit *edit)
        : q(edit)
    {
    }

    void init(const QString &name);
    void buildChildren();
    void chooseColor();
    void setBothChecked(bool checked);

    ZrQtPlotChannelEdit *q;
    QPushButton *visibilityButton = nullptr; ///< checked: the channel is visible
    QGridLayout *gridLayout = nullptr;
    QPushButton *colorBox = nullptr; ///< opens the colour dialog
    QWidget *colorSwatch = nullptr;  ///< inside colorBox, shows the colour
    QLabel *nameLabel = nullptr;
    QColor channelColor = Qt::black;
    QString colorText; ///< the colour as "rgb(r, g, b)"
    QPointer<ZrQtBaseChannel> channel;
};

#endif // ZRQTPLOTCHANNELEDIT_P_H
