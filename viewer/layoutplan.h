#ifndef VIEWER_LAYOUTPLAN_H
#define VIEWER_LAYOUTPLAN_H

#include "commandline.h"
#include "dataset.h"

#include <optional>

/// What the plan needs to know of a column that is to be drawn.
struct SeriesInfo
{
    QString name;
    ValueRange range; ///< of the values; on logarithmic axes, of their logarithms
    XKind xKind = XKind::Number;
    std::optional<AxisSide> side; ///< where the user wants its axis
};

/// One coordinate system with its value axis.
struct SystemPlan
{
    AxisSide side = AxisSide::Left;
    QVector<int> series; ///< indices into the list of series
    QString label;
};

/// Who shares an axis with whom.
struct LayoutPlan
{
    QVector<SystemPlan> systems;
    QVector<int> systemOfSeries; ///< index into \c systems for each series
    QVector<XKind> xKinds;       ///< one x axis each, the first one at the bottom, the others at the top
    QVector<int> xAxisOfSeries;  ///< index into \c xKinds for each series
};

/// A plot has no more coordinate systems than this.
constexpr int kMostSystems = 16;

/// Columns share a system as long as none of them fills less than a tenth of its range; an axis that the user
/// put on one side holds no column that shall be on the other. Axes without a wish go where there are fewer,
/// left first. When the systems run out, the rest joins those whose range it widens least.
LayoutPlan planLayout(const QVector<SeriesInfo> &series);

#endif // VIEWER_LAYOUTPLAN_H
