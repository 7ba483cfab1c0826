#include <QtCore/QDateTime>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

#include <cmath>

constexpr int channelCount = 16;
constexpr int period = 50;              // milliseconds between two samples
constexpr double visibleTime = 20000.0; // milliseconds
constexpr int keptSamples = 1200;       // a minute, of which the user can look back at what has left

/// Milliseconds since the epoch. A picture of the program (--screenshot FILE.png) always shows the same
/// moment.
double now()
{
    const bool isForPicture = QCoreApplication::arguments().contains(QStringLiteral("--screenshot"));
    return isForPicture ? 1795225000000.0 : double(QDateTime::currentMSecsSinceEpoch());
}

/// One trace per channel, one above the other, as on a paper recorder.
double measure(int channel, double time)
{
    const double seconds = 0.001 * time;
    return channel + 0.5
           + 0.35 * std::sin((0.3 + 0.17 * channel) * seconds) * std::sin(0.9 * seconds + channel);
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    ZrQtPlot plot;
    plot.setInteraction(ZrQtPlot::PanAndScan);
    plot.setMouseWheelZoom(true);
    plot.setZoomAxes(ZrQtPlot::Axis_X);
    plot.setGridModeX(ZrQtPlot::TickGrid);

    auto *timeAxis = new ZrQtAxis(&plot);
    timeAxis->setPosition(Qt::BottomEdge);
    timeAxis->setLabelFormat(ZrQtAxis::DateTime); // values are milliseconds since the epoch
    timeAxis->setTimeFormat(QStringLiteral("%hh:%mm:%ss"));
    timeAxis->setShowBoundLabels(false); // labels at the ends would change all the time
    timeAxis->setUseForGrid(true);
    auto *channelAxis = new ZrQtAxis(&plot);
    channelAxis->setMaxTicks(channelCount + 1);
    channelAxis->setTickDistance(20);
    channelAxis->setAxisLabel(QStringLiteral("channel"));
    channelAxis->setVerticalYLabel(true);

    QVector<ZrQtBufferedChannel *> channels;
    for (int i = 0; i < channelCount; ++i) {
        channels.append(new ZrQtBufferedChannel(&plot));
        channels.last()->setDataReduction(true); // draws what can be seen of many samples
        channels.last()->setLineColor(QColor::fromHsv(i * 330 / channelCount, 230, 180));
    }

    QVector<double> times;
    QVector<QVector<double>> values(channelCount);
    const auto addSample = [&](double time) {
        const bool full = times.size() == keptSamples;
        times.append(time);
        if (full)
            times.removeFirst();
        for (int i = 0; i < channelCount; ++i) {
            values[i].append(measure(i, time));
            if (full)
                values[i].removeFirst();
        }
    };
    const auto showSamples = [&] {
        for (int i = 0; i < channelCount; ++i)
            channels.at(i)->setData(times, values.at(i));
    };

    const double start = now();
    plot.setInitialCanvas(QRectF(start - visibleTime, 0.0, visibleTime, channelCount));
    plot.setDefaultScalingX(ZrQtPlot::KeepAtHead); // the newest sample stands at the right
    plot.setDefaultScalingY(ZrQtPlot::Manual);
    for (int i = keptSamples - 1; i >= 0; --i)
        addSample(start - i * period);
    showSamples();

    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &plot, [&] {
        addSample(now());
        showSamples();
    });
    timer.start(period);

    plot.resize(720, 480);
    plot.show();
    return QApplication::exec();
}
