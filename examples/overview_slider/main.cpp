#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

#include <cmath>

/// Short bursts of vibration, one each second or so, for a minute.
QVector<double> vibration()
{
    QVector<double> values;
    for (int i = 0; i < 12000; ++i) {
        const double time = 0.005 * i;
        const double burst = std::exp(-4.0 * std::fmod(time, 1.3)) * (1.0 + 0.6 * std::sin(0.2 * time));
        values.append(burst * std::sin(60.0 * time));
    }
    return values;
}

ZrQtPlot *createPlot(const QVector<double> &values, int leastTickDistance)
{
    auto *plot = new ZrQtPlot;
    plot->setMinMarginLeft(60); // both plots begin at the same place
    plot->setMinMarginRight(20);
    plot->setBorderColor(Qt::darkGray);
    for (Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(plot);
        axis->setPosition(edge);
        axis->setTickDistance(leastTickDistance);
    }
    auto *channel = new ZrQtBufferedChannel(plot);
    channel->setLineColor(QColor(0x00, 0x72, 0xb2));
    channel->setData(values, 0.0, 0.005);
    return plot;
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    const QVector<double> values = vibration();

    ZrQtPlot *detail = createPlot(values, 60);
    detail->setInteraction(ZrQtPlot::PanAndScan);
    detail->setMouseWheelZoom(true);
    detail->setZoomAxes(ZrQtPlot::Axis_X);
    detail->setCanvas(QRectF(20.0, 0.0, 8.0, 0.0), ZrQtPlot::COSY_0); // without a height: y stays fitted
    layout->addWidget(detail, 3);

    ZrQtPlot *overview = createPlot(values, 40);
    layout->addWidget(overview, 1);

    auto *slider = new ZrQtPlotSlider(overview); // spans what the overview shows
    detail->connectSlider(slider);               // and selects what the detail shows

    window.resize(720, 460);
    window.show();
    return QApplication::exec();
}
