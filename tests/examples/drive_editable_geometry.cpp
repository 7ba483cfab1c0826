#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "driver.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>

namespace {

QStringList readOuts(const QWidget &window)
{
    QStringList texts;
    const auto labels = window.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text());
    return texts;
}

int countDifferences(const QStringList &before, const QStringList &after)
{
    int count = 0;
    for (int i = 0; i < before.size(); ++i)
        count += before.at(i) != after.at(i) ? 1 : 0;
    return count;
}

} // namespace

QString judge(QWidget &window)
{
    auto *channel = window.findChild<ZrQtPlotChannel *>();
    const QStringList atFirst = readOuts(window);

    const QPoint onPoint = channel->mapToPixel(channel->points().first());
    drag(channel, onPoint, onPoint + QPoint(-20, 30));
    const QStringList withPoint = readOuts(window);
    if (channel->mapToPixel(channel->points().first()) == onPoint
        || countDifferences(atFirst, withPoint) != 1)
        return QStringLiteral("dragging a point does not change the read-out of the points alone");

    const QPoint onCenter = channel->mapToPixel(channel->boundingRect().center());
    drag(channel, onCenter, onCenter + QPoint(10, 10));
    if (countDifferences(withPoint, readOuts(window)) != 5)
        return QStringLiteral("moving everything does not change every read-out");

    window.findChild<QCheckBox *>()->click();
    const QRectF circle = channel->circles().first();
    const QPoint onEdge = channel->mapToPixel({circle.right(), circle.center().y()});
    drag(channel, onEdge, onEdge + QPoint(20, 0));
    const QRectF resized = channel->circles().first();
    if (!(resized.left() < circle.left()) || !(resized.right() > circle.right()))
        return QStringLiteral("a circle is not resized about its centre");
    return QString();
}
