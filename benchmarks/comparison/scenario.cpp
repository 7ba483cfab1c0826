#include "scenario.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace comparison {

namespace {

constexpr double pi = 3.14159265358979323846;

QString powerOfTen(int exponent)
{
    return QStringLiteral("1e%1").arg(exponent);
}

int countOf(int exponent)
{
    return static_cast<int>(std::lround(std::pow(10.0, exponent)));
}

/// One scenario for each power of ten.
void append(QVector<Scenario> &list, const QString &name, Change change, Signal signal, int first, int last)
{
    for (int exponent = first; exponent <= last; ++exponent)
        list.append({name + QLatin1Char('-') + powerOfTen(exponent), change, signal, countOf(exponent)});
}

/// std::uniform_real_distribution gives other numbers with each standard library.
double uniform(std::mt19937 &generator)
{
    return double(generator()) / double(std::mt19937::max()) * 2.0 - 1.0;
}

void stretchToUnit(QVector<QPointF> &points)
{
    const auto [low, high] = std::minmax_element(
        points.cbegin(), points.cend(), [](const QPointF &a, const QPointF &b) { return a.y() < b.y(); });
    const double bottom = low->y();
    const double size = high->y() - bottom;
    for (QPointF &point : points)
        point.setY((point.y() - bottom) / size * 2.0 - 1.0);
}

} // namespace

QVector<Scenario> scenarios()
{
    QVector<Scenario> list;
    append(list, QStringLiteral("redraw-noise"), Change::Nothing, Signal::Noise, 3, 7);
    append(list, QStringLiteral("redraw-walk"), Change::Nothing, Signal::RandomWalk, 3, 7);
    append(list, QStringLiteral("redraw-sine"), Change::Nothing, Signal::Sine, 3, 7);
    append(list, QStringLiteral("pan"), Change::Pan, Signal::RandomWalk, 3, 7);
    append(list, QStringLiteral("zoom-out"), Change::ZoomOut, Signal::RandomWalk, 3, 7);
    append(list, QStringLiteral("stream-points"), Change::NewPoints, Signal::RandomWalk, 4, 7);
    append(list, QStringLiteral("stream-xy"), Change::NewSamples, Signal::RandomWalk, 4, 7);

    const Style antialiased{1, true, false};
    const Style wide{2, false, false};
    const Style markers{0, false, true};
    list.append({QStringLiteral("100-series-1e4"), Change::Nothing, Signal::RandomWalk, 10000, 100});
    list.append(
        {QStringLiteral("antialiased-1e6"), Change::Nothing, Signal::RandomWalk, 1000000, 1, antialiased});
    list.append({QStringLiteral("width2-walk-1e5"), Change::Nothing, Signal::RandomWalk, 100000, 1, wide});
    list.append({QStringLiteral("width2-noise-1e5"), Change::Nothing, Signal::Noise, 100000, 1, wide});
    list.append({QStringLiteral("markers-1e5"), Change::Nothing, Signal::Noise, 100000, 1, markers});

    list.append(
        {QStringLiteral("axes-numeric"), Change::MovedAxes, Signal::None, 0, 1, {}, Axes::FourNumeric});
    list.append({QStringLiteral("axes-date"), Change::MovedAxes, Signal::None, 0, 1, {}, Axes::FourDate});
    list.append(
        {QStringLiteral("start-up"), Change::StartUp, Signal::RandomWalk, 10000, 1, {}, Axes::LeftAndBottom});
    list.append({QStringLiteral("memory-1e7"), Change::LargerMemory, Signal::RandomWalk, 10000000});
    return list;
}

QVector<QPointF> makePoints(Signal signal, int count, unsigned seed)
{
    constexpr double periods = 20.0;
    std::mt19937 generator(seed);
    QVector<QPointF> points(count);
    double sum = 0.0;
    for (int i = 0; i < count; ++i) {
        double y = 0.0;
        if (signal == Signal::Sine) {
            y = std::sin((periods * i / count + seed) * 2.0 * pi);
        } else {
            y = uniform(generator);
            sum += y;
        }
        points[i] = QPointF(i, signal == Signal::RandomWalk ? sum : y);
    }
    if (signal == Signal::RandomWalk)
        stretchToUnit(points);
    return points;
}

QRectF visibleRange(const Scenario &scenario, int frame)
{
    constexpr double margin = 1.05;
    const double last = scenario.points - 1;
    switch (scenario.change) {
    case Change::Pan:
        return {last * 0.9 * (frame % 97) / 97.0, -margin, last * 0.1, 2.0 * margin};
    case Change::ZoomOut: {
        const double factor = 1.0 + 0.01 * (frame % 50);
        return {-last * (factor - 1.0) / 2.0, -margin * factor, last * factor, 2.0 * margin * factor};
    }
    case Change::MovedAxes: {
        // A day and a half of milliseconds since the epoch, some minutes later each time.
        const double start = 1.6e12 + 1.0e6 * (frame % 89);
        const double size = 1.3e8;
        return scenario.axes == Axes::FourDate
                   ? QRectF(start, start, size, size)
                   : QRectF(0.37 * (frame % 89), 0.11 * (frame % 89), 100.0, 20.0);
    }
    default:
        return {0.0, -margin, last, 2.0 * margin};
    }
}

} // namespace comparison
