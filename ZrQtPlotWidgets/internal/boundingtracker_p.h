#ifndef BOUNDINGTRACKER_P_H
#define BOUNDINGTRACKER_P_H

#include "canvasscaling_p.h"

/// How a data extent that a channel reports relates to the one that is known for its coordinate system.
namespace BoundingTracker {

/// All bands are closed ranges of numbers around the edges of the known extent.
struct Comparison
{
    bool lowKept = false;  ///< the low edge lies within half the tolerance of the known one
    bool highKept = false; ///< likewise the high edge
    bool inside = false;   ///< not both kept, but neither lies further out than half the tolerance
    bool changed = false;  ///< position or size differ at all

    bool bothKept() const { return lowKept && highKept; }
};

/// \a tolerance is a fraction of the size of \a known.
[[nodiscard]] Comparison compare(const QRectF &known, const QRectF &reported,
                                 CanvasScaling::Direction direction, double tolerance);

} // namespace BoundingTracker

#endif // BOUNDINGTRACKER_P_H
