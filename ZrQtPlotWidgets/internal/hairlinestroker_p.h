#ifndef HAIRLINESTROKER_P_H
#define HAIRLINESTROKER_P_H

#include "columnreduction_p.h"

#include <QtCore/QPointF>

/// Tells which samples Qt's painting of hairlines goes by. Qt draws a hairline from the last point that made
/// it set a pixel to the next one that does, and passes over all points between; to leave these out changes
/// no pixel. Coordinates are pixels of the paint device.
class HairlineStroker
{
public:
    /// `top` and `bottom` are the borders of what can be seen. The series must outlive the object.
    HairlineStroker(SampleSeries &series, const PixelMapping &mapping, double top, double bottom)
        : m_series(series)
        , m_points(series.points().constData())
        , m_mapping(mapping)
        , m_top(top)
        , m_bottom(bottom)
    {
    }

    /// Whether Qt goes on from `to` when it has come to `from`.
    [[nodiscard]] bool goesOn(const QPointF &from, const QPointF &to) const;

    /// The first of `samples`, without gaps and in one column, from which Qt goes on when it has come to
    /// `from`; the end of the samples if there is none.
    [[nodiscard]] int next(const QPointF &from, const IndexRange &samples) const;

private:
    [[nodiscard]] QPointF pixel(int i) const { return m_mapping.map(m_points[i]); }
    [[nodiscard]] int firstThatGoesOn(const QPointF &from, const IndexRange &samples) const;
    [[nodiscard]] int endOfStand(const QPointF &from, const IndexRange &samples) const;
    [[nodiscard]] int endOfHidden(const QPointF &from, const IndexRange &samples) const;
    template <typename Predicate>
    [[nodiscard]] int endWhile(const IndexRange &samples, Predicate isInside) const;

    SampleSeries &m_series;
    const QPointF *m_points;
    PixelMapping m_mapping;
    double m_top;
    double m_bottom;
};

#endif // HAIRLINESTROKER_P_H
