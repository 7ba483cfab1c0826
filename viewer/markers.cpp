#include "markers.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double kFarAway = 1e5;
// More than rounding makes of a pixel, and less than a mouse.
constexpr double kSamePixel = 1e-6;

// Parts of the plot area. No marker covers the handles of another one.
constexpr double kLines[Markers::kMostLines] = {1.0 / 3.0, 2.0 / 3.0};
constexpr double kRegionLeft = 0.4;
constexpr double kRegionRight = 0.6;
// Within the margin beside the data, so that a new region holds all samples between its sides.
constexpr double kRegionBottom = 0.01;
constexpr double kRegionTop = 0.99;
constexpr double kCircleX = 0.83;
constexpr double kCircleY = 0.6;
constexpr double kCircleRadius = 0.13; // of the shorter side

double logarithm(double value)
{
    return value > 0.0 ? std::log10(value) : -std::numeric_limits<double>::infinity();
}

double clamped(double pixel)
{
    return std::clamp(pixel, -kFarAway, kFarAway);
}

QRectF sides(double left, double low, double right, double high)
{
    return QRectF(QPointF(left, low), QPointF(right, high));
}

/// Whether a side or the centre is where the mouse can take it.
bool isSeen(const QRectF &region, const MarkerScale &scale)
{
    const QRectF area(QPointF(), scale.area);
    return region.intersects(area) && (!region.contains(area) || area.contains(region.center()));
}

/// Whether the centre or one of the four handles at the sides is where the mouse can take it.
bool isCircleSeen(const QRectF &circle, const MarkerScale &scale)
{
    const QRectF area(QPointF(), scale.area);
    const QPointF center = circle.center();
    const QPointF handles[] = {center,
                               {circle.left(), center.y()},
                               {circle.right(), center.y()},
                               {center.x(), circle.top()},
                               {center.x(), circle.bottom()}};
    return std::any_of(std::begin(handles), std::end(handles),
                       [&area](const QPointF &handle) { return area.contains(handle); });
}

double withoutRounding(double pixels)
{
    return std::abs(pixels) < kSamePixel ? 0.0 : pixels;
}

/// How far \a pixels were moved from \a before; none if they were resized.
std::optional<QPointF> wayFrom(const QRectF &before, const QRectF &pixels)
{
    const QSizeF growth = pixels.size() - before.size();
    if (withoutRounding(growth.width()) != 0.0 || withoutRounding(growth.height()) != 0.0)
        return std::nullopt;
    const QPointF way = pixels.topLeft() - before.topLeft();
    return QPointF(withoutRounding(way.x()), withoutRounding(way.y()));
}

} // namespace

bool MarkerScale::isValid() const
{
    const bool finite = qIsFinite(canvas.left()) && qIsFinite(canvas.top()) && qIsFinite(canvas.width())
                        && qIsFinite(canvas.height());
    return finite && canvas.width() > 0.0 && canvas.height() > 0.0 && area.width() > 0.0
           && area.height() > 0.0;
}

double MarkerScale::toPixelX(double x) const
{
    return clamped((x - canvas.left()) / canvas.width() * area.width());
}

double MarkerScale::toPixelY(double y) const
{
    const double part = ((logY ? logarithm(y) : y) - canvas.top()) / canvas.height();
    return clamped((invertedY ? 1.0 - part : part) * area.height());
}

double MarkerScale::fromPixelX(double pixel, std::initializer_list<double> before) const
{
    for (const double x : before) {
        if (std::abs(toPixelX(x) - pixel) < kSamePixel)
            return x;
    }
    return canvas.left() + pixel / area.width() * canvas.width();
}

double MarkerScale::fromPixelY(double pixel, std::initializer_list<double> before) const
{
    for (const double y : before) {
        if (std::abs(toPixelY(y) - pixel) < kSamePixel)
            return y;
    }
    const double part = pixel / area.height();
    const double y = canvas.top() + (invertedY ? 1.0 - part : part) * canvas.height();
    return logY ? std::pow(10.0, y) : y;
}

QRectF MarkerScale::toPixels(const ValueWindow &window) const
{
    return sides(toPixelX(window.left), toPixelY(window.low), toPixelX(window.right), toPixelY(window.high))
        .normalized();
}

ValueWindow MarkerScale::fromPixels(const QRectF &pixels, const std::optional<ValueWindow> &before) const
{
    if (before) {
        if (const std::optional<QPointF> way = wayFrom(toPixels(*before), pixels))
            return moved(*before, *way);
    }
    constexpr double kNowhere = std::numeric_limits<double>::quiet_NaN();
    const ValueWindow old = before.value_or(ValueWindow{kNowhere, kNowhere, kNowhere, kNowhere});
    const auto x = [&](double pixel) { return fromPixelX(pixel, {old.left, old.right}); };
    const auto y = [&](double pixel) { return fromPixelY(pixel, {old.low, old.high}); };
    const auto [left, right] = std::minmax({x(pixels.left()), x(pixels.right())});
    const auto [low, high] = std::minmax({y(pixels.top()), y(pixels.bottom())});
    return {left, right, low, high};
}

/// Also where a side is too far away to be painted at its place.
ValueWindow MarkerScale::moved(const ValueWindow &window, const QPointF &pixels) const
{
    const double x = pixels.x() / area.width() * canvas.width();
    const double y = (invertedY ? -1.0 : 1.0) * pixels.y() / area.height() * canvas.height();
    const auto movedY = [this, y](double value) { return logY ? value * std::pow(10.0, y) : value + y; };
    return {window.left + x, window.right + x, movedY(window.low), movedY(window.high)};
}

void addLine(Markers *markers, const MarkerScale &scale)
{
    const auto place = [&scale](int line) { return scale.fromPixelX(kLines[line] * scale.area.width()); };
    bool broughtBack = false;
    for (int i = 0; i < markers->lines.size(); ++i) {
        const double pixel = scale.toPixelX(markers->lines[i]);
        if (pixel >= 0.0 && pixel <= scale.area.width())
            continue;
        markers->lines[i] = place(i);
        broughtBack = true;
    }
    if (!broughtBack && markers->lines.size() < Markers::kMostLines)
        markers->lines.append(place(markers->lines.size()));
}

void addRegion(Markers *markers, const MarkerScale &scale)
{
    if (markers->region && isSeen(scale.toPixels(*markers->region), scale))
        return;
    const double width = scale.area.width();
    const double height = scale.area.height();
    const QRectF place
        = sides(kRegionLeft * width, kRegionBottom * height, kRegionRight * width, kRegionTop * height);
    markers->region = scale.fromPixels(place);
}

void addCircle(Markers *markers, const MarkerScale &scale)
{
    if (markers->circle && isCircleSeen(scale.toPixels(*markers->circle), scale))
        return;
    const double x = kCircleX * scale.area.width();
    const double y = kCircleY * scale.area.height();
    const double radius = kCircleRadius * std::min(scale.area.width(), scale.area.height());
    markers->circle = scale.fromPixels(sides(x - radius, y - radius, x + radius, y + radius));
}
