#include "ZrQtPlotWidgets/zrqtplot.h"
#include "driver.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>

QString judge(QWidget &window)
{
    auto *plot = window.findChild<ZrQtPlot *>();
    auto *modes = window.findChild<QComboBox *>();
    const QPoint from = plot->rect().center();
    const QPoint to = from + QPoint(60, -40);
    const auto isReported = [&window](const QString &pattern) {
        const auto labels = window.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&pattern](const QLabel *label) {
            return QRegularExpression(pattern).match(label->text()).hasMatch();
        });
    };

    drag(plot, from, to);
    if (!isReported(QStringLiteral("^x from [1-4]\\.\\d+ to [1-4]\\.\\d+, y from ")))
        return QStringLiteral("the selected region is not reported");
    modes->setCurrentIndex(1);
    drag(plot, from, to);
    if (!isReported(QStringLiteral("^dx = 0\\.\\d+, dy = 0\\.\\d+, slope = \\d")))
        return QStringLiteral("the selected line is not reported");

    const QRectF all = plot->canvas(ZrQtPlot::COSY_0);
    modes->setCurrentIndex(2);
    drag(plot, from, to);
    if (!(plot->canvas(ZrQtPlot::COSY_0).width() < all.width() / 2))
        return QStringLiteral("the plot is not zoomed");
    return QString();
}
