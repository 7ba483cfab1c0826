#ifndef COMPARISON_PLOT_H
#define COMPARISON_PLOT_H

#include "scenario.h"

#include <QtCore/QStringList>

#include <memory>

class QImage;
class QWidget;

namespace comparison {

/// A plot of one library. Everything that is not asked for is off: grid, legend, frame, margins.
class Plot
{
public:
    Plot() = default;
    Q_DISABLE_COPY_MOVE(Plot)
    virtual ~Plot() = default;

    /// The widget that shows the plot.
    [[nodiscard]] virtual QWidget *widget() = 0;

    virtual void addSeries(const Style &style) = 0;

    /// The points ascend in x. The vector may be shared.
    virtual void setPoints(int series, const QVector<QPointF> &points) = 0;
    virtual void setSamples(int series, const QVector<double> &x, const QVector<double> &y) = 0;

    /// What all axes show; top is the smallest y.
    virtual void setRange(const QRectF &range) = 0;

    /// What a program calls after it has changed something, if the library asks for such a call.
    virtual void replot() { }

    /// Brings everything that is seen up to date in \a image, which is as large as the widget.
    void paint(QImage &image);
};

// Each library defines these.

[[nodiscard]] QString libraryName();
[[nodiscard]] QString libraryVersion();

/// The plain mode, and the fastest ones that the documentation of the library offers.
[[nodiscard]] QStringList libraryModes();

[[nodiscard]] std::unique_ptr<Plot> makePlot(const QString &mode, Axes axes);

} // namespace comparison

#endif // COMPARISON_PLOT_H
