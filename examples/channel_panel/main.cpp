#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"

#include <cmath>

/// A quantity that decays from one value to another.
ZrQtBufferedChannel *addChannel(ZrQtPlot *plot, const QString &name, const QColor &color,
                                ZrQtPlot::CoordinateSystem cosy, double from, double to, double rate)
{
    QVector<double> values;
    for (int i = 0; i <= 300; ++i)
        values.append(to + (from - to) * std::exp(-rate * i) * std::cos(6.0 * rate * i));
    auto *channel = new ZrQtBufferedChannel(plot);
    channel->setName(name);
    channel->setCosyY(cosy); // x stays in COSY_0, which all channels share
    channel->setLineColor(color);
    channel->setLineWidth(2);
    channel->setAntialiasing(true);
    channel->setData(values, 0.0, 0.01);
    return channel;
}

void addAxis(ZrQtPlot *plot, Qt::Edge edge, ZrQtPlot::CoordinateSystem cosy, const QString &label)
{
    auto *axis = new ZrQtAxis(plot);
    axis->setPosition(edge);
    axis->setCosy(cosy);
    axis->setAxisLabel(label);
    axis->setVerticalYLabel(true);
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    auto *layout = new QHBoxLayout(&window);
    auto *plot = new ZrQtPlot;
    layout->addWidget(plot, 1);

    addAxis(plot, Qt::BottomEdge, ZrQtPlot::COSY_0, QStringLiteral("time in s"));
    addAxis(plot, Qt::LeftEdge, ZrQtPlot::COSY_0, QStringLiteral("voltage in V"));
    addAxis(plot, Qt::RightEdge, ZrQtPlot::COSY_1, QStringLiteral("current in mA"));
    const QVector<ZrQtBufferedChannel *> channels = {
        addChannel(plot, QStringLiteral("Supply"), QColor(0x00, 0x72, 0xb2), ZrQtPlot::COSY_0, 10.0, 24.0,
                   0.02),
        addChannel(plot, QStringLiteral("Output"), QColor(0x00, 0x9e, 0x73), ZrQtPlot::COSY_0, 0.0, 12.0,
                   0.01),
        addChannel(plot, QStringLiteral("Load"), QColor(0xd5, 0x5e, 0x00), ZrQtPlot::COSY_1, 0.0, 350.0,
                   0.015),
        addChannel(plot, QStringLiteral("Leakage"), QColor(0x88, 0x22, 0x55), ZrQtPlot::COSY_1, 180.0, 40.0,
                   0.005),
    };

    auto *panel = new QVBoxLayout;
    layout->addLayout(panel);
    for (ZrQtBufferedChannel *channel : channels) {
        auto *edit = new ZrQtPlotChannelEdit(channel->name());
        edit->setPlotChannel(channel);
        edit->findChild<QPushButton *>(QStringLiteral("colorBox"))->show(); // to choose the colour
        panel->addWidget(edit);
    }
    panel->addStretch();

    window.resize(720, 400);
    window.show();
    return QApplication::exec();
}
