#include "ZrQtPlotWidgets/zrqtbasechannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "driver.h"

#include <QtWidgets/QPushButton>

QString judge(QWidget &window)
{
    const auto channels = window.findChildren<ZrQtBaseChannel *>();
    const auto edits = window.findChildren<ZrQtPlotChannelEdit *>();
    if (edits.size() != channels.size())
        return QStringLiteral("not every channel has a control");
    for (int i = 0; i < edits.size(); ++i) {
        const auto buttons = edits.at(i)->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (!button->isVisible())
                return QStringLiteral("a button is hidden");
            if (button->objectName() == QLatin1String("colorBox"))
                continue; // opens a dialog that waits for its user
            QTest::mouseClick(button, Qt::LeftButton);
            if (channels.at(i)->isVisible())
                return QStringLiteral("a channel cannot be hidden");
            channels.at(i)->show();
            if (!edits.at(i)->channelVisible())
                return QStringLiteral("a control does not follow its channel");
        }
    }
    return QString();
}
