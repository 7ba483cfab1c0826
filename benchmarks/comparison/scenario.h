#ifndef COMPARISON_SCENARIO_H
#define COMPARISON_SCENARIO_H

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace comparison {

enum class Signal { None, Noise, RandomWalk, Sine };
enum class Axes { None, LeftAndBottom, FourNumeric, FourDate };

/// What a frame shows, and what changes before it.
enum class Change {
    Nothing,     ///< the same picture, painted again
    Pan,         ///< a tenth of the data, another tenth each time
    ZoomOut,     ///< all of the data, in a larger rectangle each time
    NewPoints,   ///< a new vector of points
    NewSamples,  ///< a new pair of vectors, x and y
    MovedAxes,   ///< other numbers at the axes
    StartUp,     ///< a new window
    LargerMemory ///< no frame: the memory that the points take
};

/// How a series is drawn: as a line of that width, or as discs of five pixels without a line.
struct Style
{
    int lineWidth = 1;
    bool antialiased = false;
    bool markers = false;
};

struct Scenario
{
    QString name;
    Change change = Change::Nothing;
    Signal signal = Signal::None;
    int points = 0; // of each series
    int series = 1;
    Style style = {};
    Axes axes = Axes::None;
};

/// All scenarios, in the order of the table.
[[nodiscard]] QVector<Scenario> scenarios();

/// \a count points at x = 0, 1, 2, ... with y between -1 and 1; the same at every call and on every machine.
[[nodiscard]] QVector<QPointF> makePoints(Signal signal, int count, unsigned seed);

/// The rectangle in data units that frame \a frame of \a scenario shows; top is the smallest y.
[[nodiscard]] QRectF visibleRange(const Scenario &scenario, int frame);

} // namespace comparison

#endif // COMPARISON_SCENARIO_H
