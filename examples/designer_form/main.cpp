#include <QtWidgets/QApplication>

#include "ui_window.h"

#include <cmath>

// Everything that is seen stands in window.ui; here are only the data, and what belongs together.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    Ui::Window ui;
    ui.setupUi(&window); // axes, channels and the slider are children of their plots, which register them

    ui.temperatureEdit->setPlotChannel(ui.temperature);
    ui.powerEdit->setPlotChannel(ui.power);
    ui.targetEdit->setPlotChannel(ui.target);
    ui.plot->connectSlider(ui.slider); // the slider lies in the overview and moves what the plot shows

    QVector<double> minutes, celsius, watts;
    for (int second = 0; second <= 3600; second += 5) {
        const double warming = 1.0 - std::exp(-second / 700.0);
        const double swing = warming * std::sin(second / 90.0);
        minutes.append(second / 60.0);
        celsius.append(20.0 + 180.0 * warming + 4.0 * swing);
        watts.append(2000.0 - 1200.0 * warming + 350.0 * warming * std::cos(second / 90.0));
    }
    ui.temperature->setData(minutes, celsius);
    ui.overviewTemperature->setData(minutes, celsius);
    ui.power->setData(minutes, watts);
    ui.target->setRectangles({QRectF(35.0, 190.0, 20.0, 12.0)}); // the user can move and resize it

    window.show();
    ui.plot->setMinX(20.0, ZrQtPlot::COSY_0); // the slider follows
    return QApplication::exec();
}
