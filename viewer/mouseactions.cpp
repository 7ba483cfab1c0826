#include "mouseactions.h"

#include "hintwithkey.h"
#include "icons.h"
#include "plotview.h"

#include <QtWidgets/QActionGroup>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

#include <algorithm>
#include <iterator>

namespace {

struct ModeRow
{
    ZrQtPlot::Interaction mode;
    const char *text;
    const char *hint;
    Qt::Key key;
    Icon icon;
    Qt::CursorShape cursor;
};

constexpr ModeRow kModes[] = {
    {ZrQtPlot::PanAndScan, QT_TRANSLATE_NOOP("MouseActions", "&Pan"),
     QT_TRANSLATE_NOOP("MouseActions", "Drag the plot or one axis"), Qt::Key_P, Icon::Pan,
     Qt::OpenHandCursor},
    {ZrQtPlot::RectangleZoom, QT_TRANSLATE_NOOP("MouseActions", "&Zoom"),
     QT_TRANSLATE_NOOP("MouseActions", "Zoom to a rectangle"), Qt::Key_Z, Icon::Zoom, Qt::CrossCursor},
    {ZrQtPlot::SelectRoi, QT_TRANSLATE_NOOP("MouseActions", "&Region"),
     QT_TRANSLATE_NOOP("MouseActions", "Select a region and read its size"), Qt::Key_R, Icon::Region,
     Qt::CrossCursor},
    {ZrQtPlot::SelectLine, QT_TRANSLATE_NOOP("MouseActions", "&Line"),
     QT_TRANSLATE_NOOP("MouseActions", "Select a line and read its length"), Qt::Key_L, Icon::Line,
     Qt::CrossCursor},
};

struct TooltipRow
{
    ZrQtPlot::TooltipMode mode;
    const char *text;
};

constexpr TooltipRow kTooltipModes[] = {
    {ZrQtPlot::SHOW_NEVER, QT_TRANSLATE_NOOP("MouseActions", "&Never")},
    {ZrQtPlot::SHOW_ALWAYS, QT_TRANSLATE_NOOP("MouseActions", "&Always")},
    {ZrQtPlot::SHOW_WHILE_PRESSED, QT_TRANSLATE_NOOP("MouseActions", "While &Pressed")},
    {ZrQtPlot::SHOW_ON_CLICK, QT_TRANSLATE_NOOP("MouseActions", "On &Click")},
};

} // namespace

MouseActions::MouseActions(QMainWindow *window, QMenu *viewMenu)
    : QObject(window)
{
    QMenu *menu = window->menuBar()->addMenu(tr("&Mouse"));
    const QColor color = window->palette().color(QPalette::ButtonText);
    QActionGroup *modes = addModes(menu, color);
    viewMenu->addSeparator();
    addTooltipModes(viewMenu->addMenu(tr("&Tooltip")));
    m_home = addHome(viewMenu, color);

    QToolBar *bar = window->addToolBar(tr("Mouse"));
    bar->setObjectName(QStringLiteral("mouseToolBar"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addActions(modes->actions());
    bar->addSeparator();
    bar->addAction(m_home);
}

QActionGroup *MouseActions::addModes(QMenu *menu, const QColor &color)
{
    auto *group = new QActionGroup(this);
    for (const ModeRow &row : kModes) {
        QAction *action = menu->addAction(makeIcon(row.icon, color), tr(row.text));
        action->setShortcut(row.key);
        action->setToolTip(hintWithKey(tr(row.hint), *action));
        action->setCheckable(true);
        action->setChecked(row.mode == m_interaction);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, mode = row.mode] {
            m_interaction = mode;
            setPlot(m_plot);
        });
    }
    return group;
}

void MouseActions::addTooltipModes(QMenu *menu)
{
    auto *group = new QActionGroup(this);
    for (const TooltipRow &row : kTooltipModes) {
        QAction *action = menu->addAction(tr(row.text));
        action->setCheckable(true);
        action->setChecked(row.mode == m_tooltipMode);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, mode = row.mode] {
            m_tooltipMode = mode;
            setPlot(m_plot);
        });
    }
}

QAction *MouseActions::addHome(QMenu *menu, const QColor &color)
{
    QAction *home = menu->addAction(makeIcon(Icon::Home, color), tr("&Home"), this, [this] {
        if (m_plot)
            fitAll(m_plot);
    });
    home->setShortcut(Qt::Key_Home);
    home->setToolTip(tr("Show all data (Home)"));
    home->setEnabled(false);
    return home;
}

void MouseActions::setPlot(ZrQtPlot *plot)
{
    m_plot = plot;
    m_home->setEnabled(plot != nullptr);
    if (!plot)
        return;
    plot->setMouseWheelZoom(true);
    plot->setInteraction(m_interaction);
    // On its own, the plot changes its cursor only when the mouse comes from below.
    const auto *row = std::find_if(std::begin(kModes), std::end(kModes),
                                   [this](const ModeRow &mode) { return mode.mode == m_interaction; });
    plot->setCustomCursor(row->cursor, row->mode);
    plot->setTooltipMode(m_tooltipMode);
}
