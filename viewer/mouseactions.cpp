#include "mouseactions.h"

#include "plotview.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

namespace {

struct ModeRow
{
    ZrQtPlot::Interaction mode;
    const char *text;
    const char *hint;
    Qt::Key key;
};

constexpr ModeRow kModes[] = {
    {ZrQtPlot::PanAndScan, QT_TRANSLATE_NOOP("MouseActions", "&Pan"),
     QT_TRANSLATE_NOOP("MouseActions", "Drag the plot or one axis"), Qt::Key_P},
    {ZrQtPlot::RectangleZoom, QT_TRANSLATE_NOOP("MouseActions", "&Zoom"),
     QT_TRANSLATE_NOOP("MouseActions", "Zoom to a rectangle"), Qt::Key_Z},
    {ZrQtPlot::SelectRoi, QT_TRANSLATE_NOOP("MouseActions", "&Region"),
     QT_TRANSLATE_NOOP("MouseActions", "Select a region and read its size"), Qt::Key_R},
    {ZrQtPlot::SelectLine, QT_TRANSLATE_NOOP("MouseActions", "&Line"),
     QT_TRANSLATE_NOOP("MouseActions", "Select a line and read its length"), Qt::Key_L},
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
    QActionGroup *modes = addModes(menu);
    viewMenu->addSeparator();
    addTooltipModes(viewMenu->addMenu(tr("&Tooltip")));
    m_home = addHome(viewMenu);

    QToolBar *bar = window->addToolBar(tr("Mouse"));
    bar->setObjectName(QStringLiteral("mouseToolBar"));
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addActions(modes->actions());
    bar->addSeparator();
    bar->addAction(m_home);
}

QActionGroup *MouseActions::addModes(QMenu *menu)
{
    auto *group = new QActionGroup(this);
    for (const ModeRow &row : kModes) {
        QAction *action = menu->addAction(tr(row.text));
        action->setShortcut(row.key);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(
            tr(row.hint), action->shortcut().toString(QKeySequence::NativeText)));
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

QAction *MouseActions::addHome(QMenu *menu)
{
    QAction *home = menu->addAction(tr("&Home"), this, [this] {
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
    plot->setTooltipMode(m_tooltipMode);
}
