#ifndef DASHES_P_H
#define DASHES_P_H

#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

class QPen;

/// The dashes of a line that is drawn with `pen`, each a line of its own. What lies outside of `box` is left
/// out, and costs nothing however long it is.
[[nodiscard]] QVector<QPolygonF> dashesWithin(const QPolygonF &line, const QPen &pen, const QRectF &box);

#endif // DASHES_P_H
