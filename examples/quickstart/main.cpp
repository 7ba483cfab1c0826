#include <QtWidgets/QApplication>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    ZrQtPlot plot;
    plot.setGridModeY(ZrQtPlot::TickGrid);

    for (Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(&plot); // a child of the plot registers itself
        axis->setPosition(edge);
        axis->setUseForGrid(true);
    }
    auto *channel = new ZrQtBufferedChannel(&plot);
    channel->setLineColor(Qt::darkBlue);
    channel->setData(QVector<double>{3.1, 4.6, 4.2, 5.9, 7.5, 7.1, 8.8}); // at x = 0, 1, 2, ...

    plot.resize(640, 400);
    plot.show(); // by now the plot has fitted itself to the data
    return QApplication::exec();
}
