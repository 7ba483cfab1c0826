#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtmakeaxis.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <limits>

// The table of extremes: what the strangest input costs in time and memory.
//
//   extremes [CHANNELS]      of 10 000 channels in a legend by default

namespace {

double residentMiB()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QFile::ReadOnly))
        return 0.0;
    return status.readAll().split(' ').value(1).toDouble() * 4096.0 / (1024.0 * 1024.0);
}

/// Prints a line of the table.
template <typename Work> void measure(const char *name, Work work)
{
    const double before = residentMiB();
    QElapsedTimer timer;
    timer.start();
    work();
    const double milliseconds = double(timer.nsecsElapsed()) / 1e6;
    // At once, so that a line that never comes names its work.
    std::printf("| %-58s | %10.2f ms | %8.1f MiB |\n", name, milliseconds, residentMiB() - before);
    std::fflush(stdout);
}

void measureTicks()
{
    constexpr double largest = std::numeric_limits<double>::max();
    const auto setRange = [](const char *name, double lo, double hi, int maxTicks, bool logarithmic) {
        ZrQtMakeAxis engine;
        engine.setLength(800.0, maxTicks > 10 ? 0.0 : 60.0, 10.0);
        engine.setParameters(logarithmic, maxTicks, 100, 1, false, ZrQtAxis::Compact, false, false, true);
        measure(name, [&] { engine.setRange(lo, hi); });
    };
    setRange("ticks: 0 to 1", 0.0, 1.0, 10, false);
    setRange("ticks: the largest doubles", -largest / 2, largest / 2, 10, false);
    setRange("ticks: a denormal range", 0.0, 5e-324, 10, false);
    setRange("ticks: all decades", 5e-324, largest, 10, true);
    setRange("ticks: as many as there may be", 0.0, 70000.0, std::numeric_limits<int>::max(), false);

    ZrQtMakeAxis times;
    times.setLength(800.0, 60.0, 10.0);
    times.setParameters(false, 10, 10, 1, false, ZrQtAxis::DateTime, false, false, true);
    const QByteArray format = QByteArray("%hh:%mm:%ss ").repeated(1024 * 1024 / 12);
    measure("time format of 1 MB: set", [&] { times.setTimeFormat(format); });
    times.setRange(0.0, 86400000.0);
    measure("time format of 1 MB: one label", [&] { times.label(1); });
}

/// Paints \a plot into a picture of \a size pixels, whatever its own size is.
void paint(ZrQtPlot &plot, const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    plot.paint(&painter);
}

void measurePlots()
{
    for (const int side : {1, 16000}) {
        QWidget window;
        window.resize(800, 600);
        ZrQtPlot plot(&window);
        plot.setMinimumSize(1, 1);
        window.show();
        const QByteArray name = "plot of " + QByteArray::number(side) + " x " + QByteArray::number(side);
        measure(name + ": laid out", [&] { plot.resize(side, side); });
        measure(name + ": painted, without the picture", [&] { paint(plot, {800, 600}); });
        plot.setGridModeX(ZrQtPlot::PixelStepGrid);
        plot.setGridModeY(ZrQtPlot::PixelStepGrid);
        plot.setGridSpacing({1.0, 1.0});
        plot.setGridSubSpacing({1.0, 1.0});
        measure(name + ": grid of single pixels", [&] { paint(plot, {800, 600}); });
    }
    ZrQtPlot polar;
    polar.resize(800, 600);
    auto *axis = new ZrQtAxis(&polar);
    axis->setPosition(Qt::BottomEdge);
    axis->setUseForGrid(true);
    new ZrQtBufferedChannel(&polar);
    polar.show();
    polar.setGridModeX(ZrQtPlot::SubTickPolarGrid);
    for (const double far : {1e6, 1e15, 1e300}) {
        polar.setCanvas(QRectF(far, far, far * 1e-6, far * 1e-6), ZrQtPlot::COSY_0);
        const QByteArray name = "polar grid of radius " + QByteArray::number(far);
        measure(name, [&] { paint(polar, {800, 600}); });
    }
}

void measureLegend(int count)
{
    ZrQtPlot plot;
    plot.resize(800, 600);
    QVector<ZrQtBufferedChannel *> channels;
    measure("many channels: added", [&] {
        for (int i = 0; i < count; ++i) {
            auto *channel = new ZrQtBufferedChannel(&plot);
            channel->setName(QStringLiteral("channel %1").arg(i));
            channels.append(channel);
        }
    });
    measure("many channels: shown", [&] {
        plot.show();
        QApplication::processEvents();
    });
    measure("many channels: legend laid out and painted", [&] {
        plot.setGenerateLegend(true);
        QApplication::processEvents();
    });
    measure("many channels: one removed", [&] { delete channels.constLast(); });
}

void measureLines()
{
    const auto paintLine = [](const char *name, Qt::PenStyle style, int width) {
        ZrQtPlot plot;
        plot.resize(800, 600);
        auto *channel = new ZrQtBufferedChannel(&plot);
        channel->setLineStyle(style);
        channel->setLineWidth(width);
        plot.show();
        plot.setCanvas(QRectF(0, 0, 10, 10), ZrQtPlot::COSY_0);
        channel->setData(QVector<QPointF>{{-1e300, -1e300}, {1e300, 1e300}, {5, -1e300}, {5, 1e300}});
        plot.setCanvas(QRectF(0, 0, 10, 10), ZrQtPlot::COSY_0);
        QImage image(channel->size(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        measure(name, [&] { channel->paint(painter); });
    };
    paintLine("lines of 1e300, thin", Qt::SolidLine, 1);
    paintLine("lines of 1e300, 20 pixels wide", Qt::SolidLine, 20);
    paintLine("lines of 1e300, dashed", Qt::DashLine, 1);
    paintLine("lines of 1e300, 20 pixels wide, dashed", Qt::DashLine, 20);
    paintLine("lines of 1e300, 32 767 pixels wide, dotted", Qt::DotLine, 32767);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    measureTicks();
    measurePlots();
    measureLines();
    const int channels = argc > 1 ? QByteArray(argv[1]).toInt() : 10000;
    std::printf("many channels: %d\n", channels);
    measureLegend(channels);
    return 0;
}
