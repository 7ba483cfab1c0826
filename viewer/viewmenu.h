#ifndef VIEWER_VIEWMENU_H
#define VIEWER_VIEWMENU_H

#include "commandline.h"

#include <functional>

class QMenu;

/// Adds to \a menu what can be switched on and off in a plot, and the choice of the grid. An action stores
/// the choice in \a options, which lives as long as the menu, and calls \a changed.
void addViewActions(QMenu *menu, Options *options, const std::function<void()> &changed);

#endif // VIEWER_VIEWMENU_H
