#ifndef VIEWER_COMMANDLINE_H
#define VIEWER_COMMANDLINE_H

#include <QtCore/QSize>
#include <QtCore/QStringList>
#include <QtCore/QVector>

enum class GridKind { None, Ticks, SubTicks, Percent, Pixels, Polar };
enum class NumberFormat { FloatingPoint, Exponential, Compact };
enum class AxisSide { Left, Right };

/// The user's choice of a side for the value axis of one column.
struct AxisChoice
{
    QString column;
    AxisSide side = AxisSide::Left;
};

/// What the user asked for on the command line. A column is named by its header or by its number, counted
/// from 1.
struct Options
{
    QStringList files;
    QString x;     ///< empty: chosen by the viewer
    QStringList y; ///< empty: all numeric columns
    QVector<AxisChoice> axes;
    bool logY = false;
    bool invertedY = false;
    GridKind grid = GridKind::Ticks;
    bool legend = false;
    bool overview = false;     ///< a strip of all data below the plot
    bool editAxes = false;     ///< the ends of the axes can be typed
    bool channelPanel = false; ///< the columns in a list that hides and colours them
    NumberFormat labelFormat = NumberFormat::Compact;
    QString timeFormat; ///< as ZrQtAxis takes it; empty: chosen by the viewer
    QString title;
    QSize size = QSize(960, 600);
    QString screenshot; ///< picture to write; empty: show the window
};

/// A command line that was read: either options, or a text to print and an exit status.
struct CommandLine
{
    Options options;
    QString output;  ///< for standard output: the answer to --help or --version
    QString problem; ///< for standard error: one sentence about what is wrong
};

/// \a arguments without the program's name.
CommandLine parseCommandLine(const QStringList &arguments);

#endif // VIEWER_COMMANDLINE_H
