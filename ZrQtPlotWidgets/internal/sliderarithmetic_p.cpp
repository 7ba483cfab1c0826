#include "sliderarithmetic_p.h"

#include <algorithm>
#include <cmath>

namespace {

/// Canvases reach a little beyond ±1e300, the range of channel coordinates. Widths up to twice this bound can
/// be multiplied by the width of any widget without overflow.
constexpr double LargestValue = 4e300;

/// Far outside of any strip, and small enough for sums of three.
constexpr double FarPixel = 5e8;

bool isRange(const QRectF &rect)
{
    return std::abs(rect.left()) <= LargestValue && std::abs(rect.right()) <= LargestValue;
}

bool isScale(const QRectF &canvas)
{
    return canvas.width() > 0 && isRange(canvas);
}

int roundedPixel(double pixel)
{
    return static_cast<int>(std::round(std::clamp(pixel, -FarPixel, FarPixel)));
}

} // namespace

SliderStrip::SliderStrip(int length)
    : m_length(std::max(length, 0))
    , m_right(m_length)
{
}

double SliderStrip::valueAt(int pixel) const
{
    return m_master.left() + m_master.width() * pixel / m_length;
}

bool SliderStrip::hasScale() const
{
    return m_length > 0 && isScale(m_master);
}

void SliderStrip::setLength(int length)
{
    const bool fresh = m_selection.isNull() && m_left == 0 && m_right == m_length;
    m_length = std::max(length, 0);
    if (m_length == 0)
        return;
    m_right = fresh ? m_length : std::min(m_right, m_length);
    m_left = std::min(m_left, std::max(0, m_right - MinimumSpan));
}

void SliderStrip::resize(int length)
{
    if (length <= 0 || m_selection.isNull() || !isRange(m_selection) || !isScale(m_master)) {
        setLength(length);
        return;
    }
    m_length = length;
    synchronise(m_selection);
    // At the end of a strip that has become shorter, the old place of the right handle stops nothing.
    m_left = std::min(m_left, std::max(0, m_right - MinimumSpan));
}

bool SliderStrip::setMaster(const QRectF &canvas)
{
    if (canvas.x() == m_master.x() && canvas.width() == m_master.width())
        return false;
    m_master = canvas;
    return true;
}

void SliderStrip::synchronise(const QRectF &range)
{
    if (!isRange(range))
        return;
    m_selection = range;
    if (!hasScale())
        return;
    const double fromLeft = (range.left() - m_master.left()) / m_master.width();
    const double fromRight = (m_master.right() - range.right()) / m_master.width();
    int left = roundedPixel(m_length * fromLeft);
    const int right = roundedPixel(m_length * (1 - fromRight));
    if (right > m_length)
        left += m_length - right;
    setLeftEdge(left);
    setRightEdge(right);
}

void SliderStrip::moveLeftEdge(int x)
{
    m_edgeResized = true;
    if (m_length > 0)
        setLeftEdge(std::clamp(x, 0, m_length));
}

void SliderStrip::moveRightEdge(int x)
{
    m_edgeResized = true;
    if (m_length > 0)
        setRightEdge(std::clamp(x, 0, m_length));
}

void SliderStrip::moveBoth(int x)
{
    m_edgeResized = false;
    const int span = m_right - m_left;
    if (span > m_length)
        return;
    m_left = std::clamp(x, 0, m_length - span);
    m_right = m_left + span;
    if (hasScale())
        m_selection.moveLeft(valueAt(m_left));
}

void SliderStrip::selectFromHandles()
{
    if (!hasScale())
        return;
    const double left = valueAt(m_left);
    const double width = m_edgeResized ? valueAt(m_right) - left : m_selection.width();
    m_selection = QRectF(left, m_selection.top(), width, 0.0);
}

void SliderStrip::setLeftEdge(int x)
{
    const bool meetsRight = x + HandleWidth >= m_right - HandleWidth;
    m_left = std::max(meetsRight ? m_right - MinimumSpan : x, 0);
    if (m_left != x && hasScale()) {
        const double value = valueAt(m_left);
        m_selection = QRectF(value, m_selection.top(), m_selection.right() - value, m_selection.height());
    }
}

void SliderStrip::setRightEdge(int x)
{
    const bool meetsLeft = x - HandleWidth <= m_left + HandleWidth;
    m_right = std::min(meetsLeft ? m_left + MinimumSpan : x, m_length);
    if (m_right != x && hasScale())
        m_selection.setRight(valueAt(m_right));
}
