#include "layoutplan.h"

#include <algorithm>
#include <cmath>

namespace {

// A line that fills less of the plot's height shows no detail.
constexpr double kLeastShare = 0.1;
// Longer labels do not fit along the axis of a small window.
constexpr int kLongestLabel = 48;

struct Draft
{
    ValueRange range;
    double smallestSpan = std::numeric_limits<double>::infinity(); ///< of the members that are not constant
    std::optional<AxisSide> side;
    QVector<int> series;
};

double span(const ValueRange &range)
{
    return range.isEmpty() ? 0.0 : range.highest - range.lowest;
}

ValueRange united(ValueRange a, const ValueRange &b)
{
    a.lowest = std::min(a.lowest, b.lowest);
    a.highest = std::max(a.highest, b.highest);
    return a;
}

bool sidesAgree(const Draft &draft, const SeriesInfo &info)
{
    return !draft.side || !info.side || *draft.side == *info.side;
}

/// The smallest span among draft and series; infinite if all of them are constant.
double smallestSpanWith(const Draft &draft, const SeriesInfo &info)
{
    const double ownSpan = span(info.range);
    return ownSpan > 0.0 ? std::min(draft.smallestSpan, ownSpan) : draft.smallestSpan;
}

bool fits(const Draft &draft, const SeriesInfo &info)
{
    if (info.range.isEmpty() || draft.range.isEmpty())
        return true;
    return smallestSpanWith(draft, info) >= kLeastShare * span(united(draft.range, info.range));
}

/// How many times wider the draft's range becomes with the series.
double widening(const Draft &draft, const SeriesInfo &info)
{
    const double before = span(draft.range);
    const double after = span(united(draft.range, info.range));
    return before > 0.0 ? after / before : std::numeric_limits<double>::max();
}

Draft *systemFor(QVector<Draft> *drafts, const SeriesInfo &info)
{
    for (Draft &draft : *drafts) {
        if (sidesAgree(draft, info) && fits(draft, info))
            return &draft;
    }
    if (drafts->size() < kMostSystems) {
        drafts->append(Draft());
        return &drafts->last();
    }
    const auto closer = [&info](const Draft &a, const Draft &b) {
        const bool agreesA = sidesAgree(a, info);
        const bool agreesB = sidesAgree(b, info);
        return agreesA != agreesB ? agreesA : widening(a, info) < widening(b, info);
    };
    return &*std::min_element(drafts->begin(), drafts->end(), closer);
}

QString axisLabel(const QVector<SeriesInfo> &series, const QVector<int> &members)
{
    QString label;
    for (const int member : members) {
        const QString &name = series[member].name;
        if (!label.isEmpty() && label.size() + name.size() > kLongestLabel)
            return label + QStringLiteral(", \u2026");
        label += label.isEmpty() ? name : QStringLiteral(", ") + name;
    }
    return label;
}

/// Gives a side to the systems that have none.
void placeAxes(const QVector<Draft> &drafts, LayoutPlan *plan)
{
    int balance = 0; // axes on the left less axes on the right
    for (const Draft &draft : drafts) {
        if (draft.side)
            balance += *draft.side == AxisSide::Left ? 1 : -1;
    }
    for (int i = 0; i < drafts.size(); ++i) {
        SystemPlan &system = plan->systems[i];
        if (drafts[i].side) {
            system.side = *drafts[i].side;
            continue;
        }
        system.side = balance <= 0 ? AxisSide::Left : AxisSide::Right;
        balance += system.side == AxisSide::Left ? 1 : -1;
    }
}

} // namespace

LayoutPlan planLayout(const QVector<SeriesInfo> &series)
{
    QVector<Draft> drafts;
    LayoutPlan plan;
    for (int i = 0; i < series.size(); ++i) {
        const SeriesInfo &info = series[i];
        Draft *draft = systemFor(&drafts, info);
        draft->smallestSpan = smallestSpanWith(*draft, info);
        draft->range = united(draft->range, info.range);
        draft->series.append(i);
        if (info.side)
            draft->side = info.side;
        plan.systemOfSeries.append(static_cast<int>(draft - drafts.data()));

        if (!plan.xKinds.contains(info.xKind))
            plan.xKinds.append(info.xKind);
        plan.xAxisOfSeries.append(plan.xKinds.indexOf(info.xKind));
    }
    for (const Draft &draft : qAsConst(drafts))
        plan.systems.append({AxisSide::Left, draft.series, axisLabel(series, draft.series)});
    placeAxes(drafts, &plan);
    return plan;
}
