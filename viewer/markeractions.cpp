#include "markeractions.h"

#include "hintwithkey.h"
#include "icons.h"
#include "markerlayer.h"
#include "markerreadout.h"
#include "plotbuilder.h"
#include "plotreadout.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLayout>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTextBrowser>
#include <QtWidgets/QToolBar>

namespace {

constexpr double kFontScale = 0.9;
constexpr int kLeastLines = 4;
// The panel takes no larger part of the window by itself.
constexpr double kLargestPart = 0.3;

struct AddingRow
{
    void (*add)(Markers *, const MarkerScale &);
    Icon icon;
    const char *text;
    const char *hint;
    int key;
};

constexpr AddingRow kAddings[] = {
    {addLine, Icon::AddLine, QT_TRANSLATE_NOOP("MarkerActions", "Add Marker &Line"),
     QT_TRANSLATE_NOOP("MarkerActions", "Measure with two lines to drag"), Qt::SHIFT | Qt::Key_L},
    {addRegion, Icon::AddRegion, QT_TRANSLATE_NOOP("MarkerActions", "Add &Region"),
     QT_TRANSLATE_NOOP("MarkerActions", "Statistics of a region to drag"), Qt::SHIFT | Qt::Key_R},
    {addCircle, Icon::AddCircle, QT_TRANSLATE_NOOP("MarkerActions", "Add &Circle"),
     QT_TRANSLATE_NOOP("MarkerActions", "Measure with a circle to drag"), Qt::SHIFT | Qt::Key_C},
};

} // namespace

MarkerActions::MarkerActions(QMainWindow *window)
    : QObject(window)
{
    createActions(window);
    createPanel(window);
    m_measuring.setSingleShot(true);
    connect(&m_measuring, &QTimer::timeout, this, &MarkerActions::measure);
    showPanel();
}

void MarkerActions::createActions(QMainWindow *window)
{
    const QColor color = window->palette().color(QPalette::ButtonText);
    QMenu *menu = window->menuBar()->addMenu(tr("M&arkers"));
    for (const AddingRow &row : kAddings) {
        QAction *action = menu->addAction(makeIcon(row.icon, color), tr(row.text), this,
                                          [this, adding = row.add] { add(adding); });
        action->setShortcut(row.key);
        action->setToolTip(hintWithKey(tr(row.hint), *action));
        action->setEnabled(false);
        m_adding += action;
    }
    menu->addSeparator();
    m_remove = menu->addAction(makeIcon(Icon::RemoveMarkers, color), tr("Remove &All Markers"), this,
                               &MarkerActions::removeAll);
    m_remove->setShortcut(Qt::Key_Delete);
    m_remove->setToolTip(hintWithKey(tr("Remove all markers"), *m_remove));

    QToolBar *bar = window->addToolBar(tr("Markers"));
    bar->setObjectName(QStringLiteral("markerToolBar"));
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    bar->addActions(m_adding);
    bar->addAction(m_remove);
}

void MarkerActions::createPanel(QMainWindow *window)
{
    m_panel = new QDockWidget(tr("Markers"), window);
    m_panel->setObjectName(QStringLiteral("markerPanel"));
    m_panel->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    m_text = new QTextBrowser(m_panel);
    m_text->setObjectName(QStringLiteral("markerReadout"));
    QFont font = m_text->font();
    font.setPointSizeF(font.pointSizeF() * kFontScale);
    m_text->setFont(font);
    m_text->setLineWrapMode(QTextEdit::NoWrap);
    m_text->setMinimumHeight(kLeastLines * m_text->fontMetrics().lineSpacing());
    m_panel->setWidget(m_text);
    window->addDockWidget(Qt::BottomDockWidgetArea, m_panel);
}

void MarkerActions::setPlot(const BuiltPlot &built, const Options &options)
{
    m_plotReadout = built.readout;
    m_plot = built.plot;
    m_options = options;
    m_layer = nullptr;
    if (!m_markers.isEmpty())
        addLayer();
    // Channels of other systems are measured where they are seen.
    connect(built.plot, &ZrQtPlot::canvasChanged, this, &MarkerActions::scheduleMeasuring);
    for (const PlottedSeries &series : built.readout->series())
        connect(series.channel, &ZrQtBaseChannel::visibilityChanged, this, &MarkerActions::scheduleMeasuring);
    for (QAction *action : qAsConst(m_adding))
        action->setEnabled(true);
    scheduleMeasuring();
}

void MarkerActions::add(Adding adding)
{
    if (!m_plot)
        return;
    if (!m_layer)
        addLayer();
    if (!m_layer->scale().isValid())
        return;
    const Markers before = m_markers;
    // The panel takes its room first: a new circle is to be round when the plot has what is left.
    adding(&m_markers, m_layer->scale());
    showPanel();
    measure();
    m_panel->parentWidget()->layout()->activate();

    Markers markers = before;
    adding(&markers, m_layer->scale());
    m_layer->setMarkers(markers);
}

void MarkerActions::addLayer()
{
    m_layer = new MarkerLayer(m_plot, m_options);
    m_layer->setMarkers(m_markers);
    connect(m_layer, &MarkerLayer::moved, this, &MarkerActions::onMoved);
}

void MarkerActions::removeAll()
{
    m_markers = Markers();
    if (m_layer)
        m_layer->setMarkers(m_markers);
    showPanel();
}

void MarkerActions::onMoved()
{
    m_markers = m_layer->markers();
    scheduleMeasuring();
}

void MarkerActions::showPanel()
{
    const bool any = !m_markers.isEmpty();
    m_remove->setEnabled(any);
    m_panel->setVisible(any);
}

void MarkerActions::scheduleMeasuring()
{
    if (!m_markers.isEmpty())
        m_measuring.start();
}

void MarkerActions::measure()
{
    if (!m_plotReadout)
        return;
    // What the user scrolled to stays in sight.
    const int column = m_text->horizontalScrollBar()->value();
    const int line = m_text->verticalScrollBar()->value();
    m_text->setHtml(markerReadout(*m_plotReadout, m_markers));
    // A plot that changes its size would lose the marker that is being dragged.
    if (QApplication::mouseButtons() == Qt::NoButton)
        fitPanel();
    m_text->horizontalScrollBar()->setValue(column);
    m_text->verticalScrollBar()->setValue(line);
}

/// As high as a new text needs; the user may make it lower then.
void MarkerActions::fitPanel()
{
    const QSize needed = m_text->document()->size().toSize();
    const bool scrolls = needed.width() > m_text->viewport()->width();
    const int height = needed.height() + 2 * m_text->frameWidth()
                       + (scrolls ? m_text->horizontalScrollBar()->sizeHint().height() : 0);
    if (height == m_text->maximumHeight())
        return;
    m_text->setMaximumHeight(height);
    auto *window = static_cast<QMainWindow *>(m_panel->parentWidget());
    const int most = static_cast<int>(kLargestPart * window->height());
    window->resizeDocks({m_panel}, {qMin(m_panel->height() - m_text->height() + height, most)}, Qt::Vertical);
}
