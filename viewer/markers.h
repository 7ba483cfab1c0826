#ifndef VIEWER_MARKERS_H
#define VIEWER_MARKERS_H

#include "regionstatistics.h"

#include <QtCore/QRectF>
#include <QtCore/QVector>

#include <initializer_list>
#include <optional>

/// What the user put on a plot to measure with. x in units of the canvas, y in values of the file, also where
/// the plot draws their logarithms.
struct Markers
{
    static constexpr int kMostLines = 2;

    QVector<double> lines; ///< x of the vertical lines A and B
    std::optional<ValueWindow> region;
    std::optional<ValueWindow> circle; ///< the sides of the ellipse

    bool isEmpty() const { return lines.isEmpty() && !region && !circle; }
};

/// Where markers are on a plot area, in pixels that count to the right and upwards from its corner at the
/// left and bottom. There a circle is round and has its handles where they are seen, whatever the axes
/// measure.
struct MarkerScale
{
    QRectF canvas;
    QSizeF area;
    bool logY = false;
    bool invertedY = false;

    bool isValid() const;

    /// Places so far away that painting them would take long are brought near.
    double toPixelX(double x) const;
    double toPixelY(double y) const;
    /// The value at \a pixel: where one of the values \a before stands there, this very value, so that what
    /// is not dragged does not change.
    double fromPixelX(double pixel, std::initializer_list<double> before = {}) const;
    double fromPixelY(double pixel, std::initializer_list<double> before = {}) const;

    QRectF toPixels(const ValueWindow &window) const;
    ValueWindow fromPixels(const QRectF &pixels, const std::optional<ValueWindow> &before = {}) const;

private:
    ValueWindow moved(const ValueWindow &window, const QPointF &pixels) const;
};

/// Moves the lines that cannot be seen to where they can; if there are none, adds a line.
void addLine(Markers *markers, const MarkerScale &scale);
/// Adds a region in the middle, or moves it there if it cannot be taken with the mouse.
void addRegion(Markers *markers, const MarkerScale &scale);
/// Adds a circle beside the middle, or moves it there if it cannot be taken with the mouse.
void addCircle(Markers *markers, const MarkerScale &scale);

#endif // VIEWER_MARKERS_H
