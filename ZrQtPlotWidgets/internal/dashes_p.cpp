#include "dashes_p.h"

#include <QtCore/QLineF>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// Lengths along a segment, in pixels from its start.
struct Stretch
{
    double begin = 0.0;
    double end = 0.0;
};

/// Leaves of `part` what lies between `low` and `high`, for a coordinate that goes from `start` by `slope` a
/// pixel.
void cut(Stretch &part, double start, double slope, double low, double high)
{
    if (slope == 0.0) {
        if (start < low || start > high)
            part.end = part.begin - 1.0;
        return;
    }
    const double one = (low - start) / slope;
    const double other = (high - start) / slope;
    part.begin = std::max(part.begin, std::min(one, other));
    part.end = std::min(part.end, std::max(one, other));
}

/// Walks along a line and takes down its dashes.
class Dasher
{
public:
    Dasher(const QVector<qreal> &pattern, double penWidth, const QRectF &box)
        : m_box(box)
    {
        for (const qreal length : pattern)
            m_lengths.append(std::max(length, 0.0) * penWidth);
        m_period = std::accumulate(m_lengths.cbegin(), m_lengths.cend(), 0.0);
    }

    [[nodiscard]] bool isSolid() const { return !(m_period > 0.0); }

    QVector<QPolygonF> dashes(const QPolygonF &line)
    {
        m_rest = m_lengths.at(0);
        for (int i = 1; i < line.size(); ++i)
            walk(line.at(i - 1), line.at(i));
        endDash();
        return m_dashes;
    }

private:
    void walk(const QPointF &from, const QPointF &to)
    {
        const QPointF way = to - from;
        const double length = std::hypot(way.x(), way.y());
        if (!(length > 0.0))
            return;
        const QPointF direction = way / length;
        Stretch visible{0.0, length};
        cut(visible, from.x(), direction.x(), m_box.left(), m_box.right());
        cut(visible, from.y(), direction.y(), m_box.top(), m_box.bottom());
        if (visible.begin >= visible.end) {
            endDash();
            skip(length);
            return;
        }
        if (visible.begin > 0.0) {
            endDash();
            skip(visible.begin);
        }
        appendDashes(from, direction, visible);
        if (visible.end < length) {
            endDash();
            skip(length - visible.end);
        }
    }

    void appendDashes(const QPointF &from, const QPointF &direction, const Stretch &visible)
    {
        double at = visible.begin;
        while (at < visible.end) {
            const double end = std::min(at + m_rest, visible.end);
            if (isDash()) {
                if (m_dash.isEmpty())
                    m_dash.append(from + direction * at);
                m_dash.append(from + direction * end);
            }
            if (at + m_rest <= visible.end)
                nextLength();
            else
                m_rest -= end - at;
            at = end;
        }
    }

    void skip(double length)
    {
        length = std::fmod(length, m_period);
        while (length >= m_rest) {
            length -= m_rest;
            nextLength();
        }
        m_rest -= length;
    }

    [[nodiscard]] bool isDash() const { return m_index % 2 == 0; }

    void nextLength()
    {
        endDash();
        m_index = (m_index + 1) % m_lengths.size();
        m_rest = m_lengths.at(m_index);
    }

    void endDash()
    {
        if (!m_dash.isEmpty())
            m_dashes.append(m_dash);
        m_dash.clear();
    }

    QRectF m_box;
    QVector<double> m_lengths; // dashes and gaps in turn
    double m_period = 0.0;
    int m_index = 0;
    double m_rest = 0.0; // of the length that the walk is on
    QPolygonF m_dash;
    QVector<QPolygonF> m_dashes;
};

} // namespace

QVector<QPolygonF> dashesWithin(const QPolygonF &line, const QPen &pen, const QRectF &box)
{
    Dasher dasher(pen.dashPattern(), pen.widthF(), box);
    return dasher.isSolid() ? QVector<QPolygonF>{line} : dasher.dashes(line);
}
