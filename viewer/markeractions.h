#ifndef VIEWER_MARKERACTIONS_H
#define VIEWER_MARKERACTIONS_H

#include "commandline.h"
#include "markers.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

class MarkerLayer;
class PlotReadout;
class QAction;
class QDockWidget;
class QMainWindow;
class QTextBrowser;
class ZrQtPlot;
struct BuiltPlot;

/// Puts markers on the plot of a window and shows what they measure. The markers outlive the plots that they
/// stand on.
class MarkerActions : public QObject
{
    Q_OBJECT

public:
    /// Adds a menu, a tool bar and a panel to \a window, which owns this object.
    explicit MarkerActions(QMainWindow *window);

    /// Puts the markers on \a built instead.
    void setPlot(const BuiltPlot &built, const Options &options);
    void removeAll();
    /// What the markers measure may no longer be the same: it is measured once the present changes are over.
    void scheduleMeasuring();

private:
    using Adding = void (*)(Markers *, const MarkerScale &);

    void createActions(QMainWindow *window);
    void createPanel(QMainWindow *window);
    void add(Adding adding);
    void addLayer();
    void showPanel();
    void onMoved();
    void measure();
    void fitPanel();

    Markers m_markers;
    QTimer m_measuring;
    Options m_options;
    QPointer<ZrQtPlot> m_plot;
    QPointer<MarkerLayer> m_layer; ///< none before there are markers on the plot
    QPointer<PlotReadout> m_plotReadout;
    QList<QAction *> m_adding;
    QAction *m_remove = nullptr;
    QDockWidget *m_panel = nullptr;
    QTextBrowser *m_text = nullptr;
};

#endif // VIEWER_MARKERACTIONS_H
