#include <QtCore/QDateTime>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QVBoxLayout>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

#include <cmath>

/// An axis whose ends the user types. The fields exist for the formats FloatingPoint and TimePlusMs.
ZrQtAxis *addAxis(ZrQtPlot *plot, Qt::Edge edge, ZrQtPlot::CoordinateSystem cosy, const QString &label,
                  const QColor &color, ZrQtAxis::LabelFormat format)
{
    auto *axis = new ZrQtAxis(plot);
    axis->setPosition(edge);
    axis->setCosy(cosy);
    axis->setAxisLabel(label);
    axis->setVerticalYLabel(true);
    axis->setLabelColor(color);
    axis->setLabelFormat(format);
    axis->setPrecision(2);
    axis->setAllowIncreasedPrecision(false);
    axis->setMinMaxEditable(true);
    return axis;
}

ZrQtBufferedChannel *addChannel(ZrQtPlot *plot, ZrQtPlot::CoordinateSystem cosy, const QColor &color)
{
    auto *channel = new ZrQtBufferedChannel(plot);
    channel->setCosyX(cosy);
    channel->setCosyY(cosy);
    channel->setLineColor(color);
    channel->setAntialiasing(true);
    return channel;
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *plot = new ZrQtPlot;
    layout->addWidget(plot, 1);

    // Two coordinate systems: a temperature over the time of day, and a characteristic of a valve.
    const QColor blue(0x00, 0x72, 0xb2);
    const QColor vermilion(0xd5, 0x5e, 0x00);
    const QDateTime noon(QDate(2026, 6, 21), QTime(12, 0));
    QVector<double> times, temperatures, strokes, flows;
    for (int i = 0; i <= 200; ++i) {
        times.append(double(noon.addMSecs(450 * i).toMSecsSinceEpoch()));
        temperatures.append(24.0 + 3.0 * std::sin(0.05 * i) * std::exp(-0.008 * i));
        strokes.append(0.5 * i);
        flows.append(8.0 / (1.0 + std::exp(-0.05 * (i - 100))));
    }
    addChannel(plot, ZrQtPlot::COSY_0, blue)->setData(times, temperatures);
    addChannel(plot, ZrQtPlot::COSY_1, vermilion)->setData(strokes, flows);

    addAxis(plot, Qt::LeftEdge, ZrQtPlot::COSY_0, QStringLiteral("temperature in °C"), blue,
            ZrQtAxis::FloatingPoint);
    ZrQtAxis *time = addAxis(plot, Qt::BottomEdge, ZrQtPlot::COSY_0, QStringLiteral("time of day"), blue,
                             ZrQtAxis::TimePlusMs);
    addAxis(plot, Qt::RightEdge, ZrQtPlot::COSY_1, QStringLiteral("flow in l/min"), vermilion,
            ZrQtAxis::FloatingPoint);
    ZrQtAxis *stroke = addAxis(plot, Qt::TopEdge, ZrQtPlot::COSY_1, QStringLiteral("stroke in mm"), vermilion,
                               ZrQtAxis::FloatingPoint);

    // Horizontal axes may turn their labels, and the fields with them.
    auto *boxes = new QHBoxLayout;
    layout->addLayout(boxes);
    const auto addTurner = [boxes](const QString &text, ZrQtAxis *axis, bool turned) {
        auto *box = new QCheckBox(text);
        QObject::connect(box, &QCheckBox::toggled, axis, &ZrQtAxis::setVerticalXTickTexts);
        box->setChecked(turned);
        boxes->addWidget(box);
    };
    addTurner(QStringLiteral("Turn the labels of the time"), time, true);
    addTurner(QStringLiteral("Turn the labels of the stroke"), stroke, false);

    window.resize(680, 500);
    window.show();
    return QApplication::exec();
}
