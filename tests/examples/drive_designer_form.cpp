#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "driver.h"

#include <QtWidgets/QPushButton>

QString judge(QWidget &window)
{
    auto *plot = window.findChild<ZrQtPlot *>(QStringLiteral("plot"));
    auto *slider = window.findChild<ZrQtPlotSlider *>();
    const QRectF atFirst = plot->canvas(ZrQtPlot::COSY_0);
    if (atFirst.left() != 20.0)
        return QStringLiteral("the plot does not begin where the program asks");
    const QPoint middle = slider->rect().center() + QPoint(slider->width() / 5, 0);
    drag(slider, middle, middle - QPoint(40, 0));
    if (!(plot->canvas(ZrQtPlot::COSY_0).left() < atFirst.left()))
        return QStringLiteral("dragging the slider does not move the plot");

    auto *temperature = window.findChild<QWidget *>(QStringLiteral("temperature"));
    auto *edit = window.findChild<QWidget *>(QStringLiteral("temperatureEdit"));
    const auto buttons = edit->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->objectName() != QLatin1String("colorBox")) // which opens a dialog
            QTest::mouseClick(button, Qt::LeftButton);
    }
    if (temperature->isVisible())
        return QStringLiteral("the button does not hide its channel");
    return QString();
}
