#include "viewmenu.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QMenu>

namespace {

struct SwitchRow
{
    bool Options::*option; ///< null: a separator
    const char *text;
    int key; ///< 0: none
};

constexpr SwitchRow kSwitches[] = {
    {&Options::logY, QT_TRANSLATE_NOOP("ViewMenu", "&Logarithmic Values"), 0},
    {&Options::invertedY, QT_TRANSLATE_NOOP("ViewMenu", "&Inverted Values"), 0},
    {&Options::legend, QT_TRANSLATE_NOOP("ViewMenu", "L&egend"), 0},
    {nullptr, nullptr, 0},
    {&Options::overview, QT_TRANSLATE_NOOP("ViewMenu", "&Overview"), Qt::Key_O},
    {&Options::editAxes, QT_TRANSLATE_NOOP("ViewMenu", "Edit &Axis Ends"), Qt::Key_E},
    {&Options::channelPanel, QT_TRANSLATE_NOOP("ViewMenu", "&Channel Panel"), Qt::Key_C},
    {nullptr, nullptr, 0},
};

struct GridRow
{
    GridKind kind;
    const char *text;
};

constexpr GridRow kGrids[] = {
    {GridKind::None, QT_TRANSLATE_NOOP("ViewMenu", "&None")},
    {GridKind::Ticks, QT_TRANSLATE_NOOP("ViewMenu", "&Ticks")},
    {GridKind::SubTicks, QT_TRANSLATE_NOOP("ViewMenu", "&Sub-ticks")},
    {GridKind::Percent, QT_TRANSLATE_NOOP("ViewMenu", "P&ercent")},
    {GridKind::Pixels, QT_TRANSLATE_NOOP("ViewMenu", "P&ixels")},
    {GridKind::Polar, QT_TRANSLATE_NOOP("ViewMenu", "P&olar")},
};

QString tr(const char *text)
{
    return QCoreApplication::translate("ViewMenu", text);
}

} // namespace

void addViewActions(QMenu *menu, Options *options, const std::function<void()> &changed)
{
    for (const SwitchRow &row : kSwitches) {
        if (!row.option) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(tr(row.text));
        action->setShortcut(row.key);
        action->setCheckable(true);
        action->setChecked(options->*row.option);
        QObject::connect(action, &QAction::toggled, menu, [options, option = row.option, changed](bool on) {
            options->*option = on;
            changed();
        });
    }

    QMenu *gridMenu = menu->addMenu(tr("&Grid"));
    auto *grids = new QActionGroup(menu);
    for (const GridRow &row : kGrids) {
        QAction *action = gridMenu->addAction(tr(row.text));
        action->setCheckable(true);
        action->setChecked(row.kind == options->grid);
        grids->addAction(action);
        QObject::connect(action, &QAction::triggered, menu, [options, kind = row.kind, changed] {
            options->grid = kind;
            changed();
        });
    }
}
