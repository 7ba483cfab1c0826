#ifndef VIEWER_ICONS_H
#define VIEWER_ICONS_H

#include <QtGui/QIcon>

/// The pictures of the tool bar; drawn, so that they fit any resolution.
enum class Icon { Pan, Zoom, Region, Line, Home, AddLine, AddRegion, AddCircle, RemoveMarkers };

/// In \a color, apart from what stands for a marker, which is as colourful as the marker.
QIcon makeIcon(Icon icon, const QColor &color);

#endif // VIEWER_ICONS_H
