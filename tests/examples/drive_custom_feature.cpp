#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "driver.h"

#include <QtWidgets/QLabel>

namespace {

/// Position, height and width, as the read-out tells them.
QVector<double> reported(const QWidget &window)
{
    QVector<double> numbers;
    auto matches
        = QRegularExpression(QStringLiteral("\\d+\\.\\d+")).globalMatch(window.findChild<QLabel *>()->text());
    while (matches.hasNext())
        numbers.append(matches.next().captured().toDouble());
    return numbers;
}

} // namespace

QString judge(QWidget &window)
{
    auto *channel = window.findChild<ZrQtPlotChannel *>();
    const QVector<double> atFirst = reported(window);

    const QPoint onFlank = channel->mapToPixel(channel->points().first());
    drag(channel, onFlank, onFlank + QPoint(20, 10));
    const QVector<double> wider = reported(window);
    if (wider.at(0) != atFirst.at(0) || !(wider.at(1) < atFirst.at(1)) || !(wider.at(2) > atFirst.at(2)))
        return QStringLiteral("dragging the flank does not report a wider and lower peak");

    const QPoint onCenter = channel->mapToPixel(channel->boundingRect().center());
    drag(channel, onCenter, onCenter + QPoint(50, -20));
    const QVector<double> moved = reported(window);
    if (!(moved.at(0) > wider.at(0)) || moved.mid(1) != wider.mid(1))
        return QStringLiteral("dragging the middle does not report a moved peak of the same shape");
    return QString();
}
