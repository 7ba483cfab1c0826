#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

#include <cmath>

ZrQtPlot *createPlot()
{
    auto *plot = new ZrQtPlot;
    for (Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(plot);
        axis->setPosition(edge);
    }
    auto *channel = new ZrQtBufferedChannel(plot);
    channel->setLineColor(QColor(0x00, 0x72, 0xb2));
    channel->setAntialiasing(true);
    QVector<double> values;
    for (int i = 0; i <= 400; ++i)
        values.append(std::sin(0.05 * i) + 0.4 * std::sin(0.21 * i));
    channel->setData(values, 0.0, 0.01);
    return plot;
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    ZrQtPlot *plot = createPlot();
    auto *readOut = new QLabel(QStringLiteral("Drag a region over the plot."));

    auto *modes = new QComboBox;
    modes->addItem(QStringLiteral("Select a region"), ZrQtPlot::SelectRoi);
    modes->addItem(QStringLiteral("Select a line"), ZrQtPlot::SelectLine);
    modes->addItem(QStringLiteral("Zoom to a rectangle"), ZrQtPlot::RectangleZoom);
    modes->addItem(QStringLiteral("Pan"), ZrQtPlot::PanAndScan);
    const auto setMode = [=] { plot->setInteraction(modes->currentData().value<ZrQtPlot::Interaction>()); };
    QObject::connect(modes, qOverload<int>(&QComboBox::currentIndexChanged), plot, setMode);
    setMode();

    QObject::connect(plot, qOverload<QRectF>(&ZrQtPlot::selectionChanged), readOut,
                     [readOut](const QRectF &region) {
                         readOut->setText(QStringLiteral("x from %1 to %2, y from %3 to %4")
                                              .arg(region.left(), 0, 'f', 3)
                                              .arg(region.right(), 0, 'f', 3)
                                              .arg(region.top(), 0, 'f', 3)
                                              .arg(region.bottom(), 0, 'f', 3));
                     });
    QObject::connect(plot, qOverload<QLineF>(&ZrQtPlot::selectionChanged), readOut,
                     [readOut](const QLineF &line) {
                         readOut->setText(QStringLiteral("dx = %1, dy = %2, slope = %3")
                                              .arg(line.dx(), 0, 'f', 3)
                                              .arg(line.dy(), 0, 'f', 3)
                                              .arg(line.dy() / line.dx(), 0, 'f', 3));
                     });

    plot->setMouseWheelZoom(true);
    plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    plot->registerHoverCallback(
        [](double x, double y) { return QStringLiteral("%1 s\n%2 V").arg(x, 0, 'f', 2).arg(y, 0, 'f', 2); });

    layout->addWidget(modes);
    layout->addWidget(plot, 1);
    layout->addWidget(readOut);
    window.resize(640, 420);
    window.show();
    return QApplication::exec();
}
