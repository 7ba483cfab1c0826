#ifndef VIEWER_MOUSEACTIONS_H
#define VIEWER_MOUSEACTIONS_H

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <ZrQtPlotWidgets/zrqtplot.h>

class QAction;
class QActionGroup;
class QColor;
class QMainWindow;
class QMenu;

/// What the mouse does on the plot of a window: a choice of its modes, of when the tooltip is shown, and the
/// way back to all data. The choices outlive the plots that they are applied to.
class MouseActions : public QObject
{
    Q_OBJECT

public:
    /// Adds a menu and a tool bar to \a window, which owns this object, and the choice of the tooltip to
    /// \a viewMenu.
    MouseActions(QMainWindow *window, QMenu *viewMenu);

    /// Makes \a plot the one that the actions concern.
    void setPlot(ZrQtPlot *plot);

private:
    QActionGroup *addModes(QMenu *menu, const QColor &color);
    void addTooltipModes(QMenu *menu);
    QAction *addHome(QMenu *menu, const QColor &color);

    QPointer<ZrQtPlot> m_plot;
    ZrQtPlot::Interaction m_interaction = ZrQtPlot::PanAndScan;
    ZrQtPlot::TooltipMode m_tooltipMode = ZrQtPlot::SHOW_ALWAYS;
    QAction *m_home = nullptr;
};

#endif // VIEWER_MOUSEACTIONS_H
