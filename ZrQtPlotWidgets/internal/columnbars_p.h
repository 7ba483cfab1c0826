#ifndef COLUMNBARS_P_H
#define COLUMNBARS_P_H

#include "reducedline_p.h"

#include <QtCore/QRect>
#include <QtCore/QVector>

/// Rectangles that cover the pixels of `bars` from their top to their bottom rows, each pixel once, within
/// `bounds`. Neighbouring columns share one rectangle where they can, because many narrow ones are slow to
/// fill.
[[nodiscard]] QVector<QRect> rectanglesOf(const QVector<ColumnBar> &bars, const QRect &bounds);

#endif // COLUMNBARS_P_H
