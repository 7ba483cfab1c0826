#include "driver.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>

QString judge(QWidget &window)
{
    auto *shown = window.findChild<QListWidget *>();
    auto *picture = window.findChild<QLabel *>();
    const QStringList names = QStringLiteral(EXAMPLES).split(QLatin1Char(','));
    for (const QString &name : names) {
        const auto items = shown->findItems(name, Qt::MatchExactly);
        if (items.size() != 1)
            return QStringLiteral("%1 is missing").arg(name);
        shown->setCurrentItem(items.first());
        if (picture->pixmap(Qt::ReturnByValue).isNull())
            return QStringLiteral("the picture of %1 is missing").arg(name);
    }
    return shown->count() == names.size() ? QString()
                                          : QStringLiteral("there is something that is no example");
}
