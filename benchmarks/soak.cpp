#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QFile>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

// Weeks on a screen, in minutes: rounds of add, fill, interact, clear, remove, and live data. Prints resident
// memory and time per frame, and fails when either grows or when a timer or connection is left.
//
//   soak [ROUNDS [SECONDS]]      of 10 000 rounds and an hour of live data by default

namespace {

constexpr int channelCount = 16;
constexpr int framesPerSecond = 100;
constexpr int pointsShown = 1000;
constexpr int reports = 10;

// Memory that the allocator keeps to itself; caches that other programs empty.
constexpr double mostGrowthInMiB = 4.0;
constexpr double mostSlowdown = 1.5;

double residentMiB()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QFile::ReadOnly))
        return 0.0;
    return status.readAll().split(' ').value(1).toDouble() * 4096.0 / (1024.0 * 1024.0);
}

class CountingPlot : public ZrQtPlot
{
public:
    using ZrQtPlot::ZrQtPlot;

    int connections() const
    {
        int count = 0;
        for (int i = 0; i < metaObject()->methodCount(); ++i) {
            const QMetaMethod method = metaObject()->method(i);
            if (method.methodType() == QMetaMethod::Signal)
                count += receivers('2' + method.methodSignature());
        }
        return count;
    }
};

int timersOf(QObject *object)
{
    int count = QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    for (QObject *child : object->children())
        count += timersOf(child);
    return count;
}

/// Memory and time of a part of the run.
struct Sample
{
    double memory = 0.0;
    double milliseconds = 0.0; ///< of the processor, per round or frame
};

/// Compares the last sample with the second: the first is the warm-up.
bool isFlat(const char *name, const QVector<Sample> &samples)
{
    for (const Sample &sample : samples)
        std::printf("%-10s %8.1f MiB %8.3f ms\n", name, sample.memory, sample.milliseconds);
    if (samples.size() < 3)
        return true;
    const double growth = samples.constLast().memory - samples.at(1).memory;
    const double slowdown = samples.constLast().milliseconds / samples.at(1).milliseconds;
    std::printf("%-10s grew by %.1f MiB, slowed down to %.2f of the time\n", name, growth, slowdown);
    return growth <= mostGrowthInMiB && slowdown <= mostSlowdown;
}

template <typename Step> bool repeat(const char *name, int count, Step step)
{
    QVector<Sample> samples;
    const int part = std::max(count / reports, 1);
    std::clock_t start = std::clock();
    for (int i = 0; i < count; ++i) {
        step(i);
        if (i % part == part - 1) {
            const double milliseconds = 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC;
            samples.append({residentMiB(), milliseconds / part});
            start = std::clock();
        }
    }
    return isFlat(name, samples);
}

/// What an application does with a plot that stays.
void playRound(ZrQtPlot &plot, ZrQtPlotSlider &driving, int round)
{
    auto *axis = new ZrQtAxis(&plot);
    axis->setPosition(round % 2 ? Qt::LeftEdge : Qt::BottomEdge);
    axis->setUseForGrid(true);
    axis->show();
    auto *content = new ZrQtPlotChannel(&plot);
    content->setEditable(true);
    content->setRectangle(QRectF(10, 10, 50, 50));
    auto *channel = new ZrQtBufferedChannel(&plot);
    channel->setName(QStringLiteral("round %1").arg(round));
    QVector<double> values(pointsShown);
    for (int i = 0; i < values.size(); ++i)
        values[i] = 50.0 + 50.0 * std::sin(0.01 * (i + round));
    channel->setData(values);
    auto *slider = new ZrQtPlotSlider(&plot);
    slider->hide();
    plot.connectSlider(&driving);

    plot.setTooltipMode(round % 3 ? ZrQtPlot::SHOW_ALWAYS : ZrQtPlot::SHOW_NEVER);
    plot.setInteraction(round % 2 ? ZrQtPlot::PanAndScan : ZrQtPlot::RectangleZoom);
    QTest::mousePress(&plot, Qt::LeftButton, {}, {100, 100});
    QTest::mouseMove(&plot, {150, 130});
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, {150, 130});
    QApplication::processEvents();

    channel->clear();
    plot.setTooltipMode(ZrQtPlot::SHOW_NEVER);
    for (ZrQtBaseChannel *each :
         {static_cast<ZrQtBaseChannel *>(content), static_cast<ZrQtBaseChannel *>(channel)}) {
        plot.removeChannel(each);
        delete each;
    }
    plot.removeAxis(axis);
    delete axis;
    plot.removeSlider(slider);
    delete slider;
}

bool playRounds(int rounds)
{
    CountingPlot plot;
    ZrQtPlotSlider driving;
    plot.resize(600, 400);
    plot.show();
    plot.connectSlider(&driving);
    QApplication::processEvents();
    const int connections = plot.connections();
    const int timers = timersOf(&plot);
    bool flat = repeat("rounds", rounds, [&](int round) { playRound(plot, driving, round); });
    std::printf("connections %d, before %d; timers %d, before %d\n", plot.connections(), connections,
                timersOf(&plot), timers);
    return flat && plot.connections() == connections && timersOf(&plot) == timers;
}

bool playLiveData(int seconds)
{
    ZrQtPlot plot;
    plot.resize(800, 500);
    plot.setDefaultScalingX(ZrQtPlot::KeepAtHead);
    plot.setInitialCanvas(QRectF(0, -1, 10, 2));
    auto *axis = new ZrQtAxis(&plot);
    axis->setPosition(Qt::BottomEdge);
    QVector<ZrQtBufferedChannel *> channels;
    for (int i = 0; i < channelCount; ++i)
        channels.append(new ZrQtBufferedChannel(&plot));
    plot.show();
    QVector<QPointF> points(pointsShown);
    return repeat("live", seconds * framesPerSecond, [&](int frame) {
        for (int c = 0; c < channelCount; ++c) {
            for (int i = 0; i < pointsShown; ++i) {
                const double time = double(frame + i) / framesPerSecond;
                points[i] = QPointF(time, std::sin(time + c));
            }
            channels.at(c)->setData(points);
        }
        QApplication::processEvents();
    });
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const int rounds = arguments.size() > 1 ? arguments.at(1).toInt() : 10000;
    const int seconds = arguments.size() > 2 ? arguments.at(2).toInt() : 3600;
    const bool roundsFlat = playRounds(rounds);
    const bool liveFlat = playLiveData(seconds);
    return roundsFlat && liveFlat ? EXIT_SUCCESS : EXIT_FAILURE;
}
