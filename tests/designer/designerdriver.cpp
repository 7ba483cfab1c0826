#include "designerdriver.h"

#include "trialvalues.h"

#include <QtCore/QBuffer>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QExtensionManager>
#include <QtDesigner/QFormBuilder>
#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMdiSubWindow>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>

namespace {

/// In the order of the group. Designer shows one entry for each name: the plot, listed twice, is there once.
const QStringList names{QStringLiteral("ZrQtPlot"),       QStringLiteral("ZrQtPlotChannelEdit"),
                        QStringLiteral("ZrQtAxis"),       QStringLiteral("ZrQtPlotChannel"),
                        QStringLiteral("ZrQtPlotSlider"), QStringLiteral("ZrQtBufferedChannel")};

QDesignerWidgetBoxInterface::Category ourGroup(const QDesignerWidgetBoxInterface *box)
{
    for (int i = 0; i < box->categoryCount(); ++i) {
        if (box->category(i).name() == QLatin1String("Tessaly Widgets"))
            return box->category(i);
    }
    return {};
}

QString formText(const QString &topLevel, const QString &children)
{
    return QStringLiteral("<ui version=\"4.0\"><widget class=\"QWidget\" name=\"%1\">"
                          "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>500</width>"
                          "<height>400</height></rect></property>%2</widget></ui>")
        .arg(topLevel, children);
}

/// The <widget> of a text that Designer gets from domXml().
QString widgetElement(const QString &domXml)
{
    const int begin = domXml.indexOf(QLatin1String("<widget"));
    return domXml.mid(begin, domXml.lastIndexOf(QLatin1String("</ui>")) - begin);
}

QString className(const QWidget *widget)
{
    return QLatin1String(widget->metaObject()->className());
}

/// Those of our widgets that the user made, as opposed to what they contain.
QWidgetList managedWidgets(const QDesignerFormWindowInterface *form)
{
    QWidgetList result;
    const QWidgetList widgets = form->mainContainer()->findChildren<QWidget *>();
    std::copy_if(widgets.cbegin(), widgets.cend(), std::back_inserter(result), [form](QWidget *widget) {
        return form->isManaged(widget) && names.contains(className(widget));
    });
    return result;
}

QWidget *firstPlot(const QDesignerFormWindowInterface *form)
{
    for (QWidget *widget : managedWidgets(form)) {
        if (className(widget) == QLatin1String("ZrQtPlot"))
            return widget;
    }
    return nullptr;
}

void select(QDesignerFormWindowInterface *form, QWidget *widget)
{
    form->clearSelection(false);
    form->selectWidget(widget);
}

} // namespace

void DesignerDriver::initialize(QDesignerFormEditorInterface *core)
{
    m_core = core;
    // The form of the command line is opened later.
    connect(&m_timer, &QTimer::timeout, this, &DesignerDriver::start);
    m_timer.start(100);
}

void DesignerDriver::check(bool condition, const QString &sentence)
{
    if (condition)
        return;
    ++m_failures;
    std::fprintf(stderr, "FAILED: %s\n", qPrintable(sentence));
}

void DesignerDriver::start()
{
    QDesignerFormWindowInterface *form = m_core->formWindowManager()->activeFormWindow();
    if (!form || !form->mainContainer() || !form->mainContainer()->isVisible())
        return;
    m_timer.stop();
    checkWidgetBox();
    checkOpenedForm(form);
    takePicture(form);
    checkInserting(form);
    checkDeleting(form);
    checkSaving(form);
    QCoreApplication::exit(m_failures == 0 ? 0 : 1);
}

void DesignerDriver::checkWidgetBox()
{
    const QDesignerWidgetBoxInterface::Category group = ourGroup(m_core->widgetBox());
    QStringList found;
    for (int i = 0; i < group.widgetCount(); ++i)
        found += group.widget(i).name();
    check(found == names, QStringLiteral("the group offers ") + found.join(QLatin1String(", ")));
}

/// What the file holds is in the form, and laid out by its plots.
void DesignerDriver::checkOpenedForm(QDesignerFormWindowInterface *form)
{
    check(managedWidgets(form).size() == FORM_WIDGETS, QStringLiteral("the form holds something else"));
    const QWidget *plot = firstPlot(form);
    const QWidget *axis = plot ? plot->findChild<QWidget *>(QStringLiteral("bottomAxis")) : nullptr;
    check(axis && axis->isVisible() && axis->width() > plot->width() / 2 && axis->y() > plot->height() / 2,
          QStringLiteral("the axis is not below the plot"));
}

/// For the documentation: the window with our group and the form, whose plot is selected.
void DesignerDriver::takePicture(QDesignerFormWindowInterface *form)
{
    select(form, firstPlot(form));
    auto *filter = m_core->widgetBox()->findChild<QLineEdit *>();
    check(filter, QStringLiteral("the widget box has no filter"));
    if (!filter)
        return;
    filter->setText(QStringLiteral("ZrQt"));
    QWidget *window = m_core->topLevel();
    window->resize(1560, 760);
    QWidget *frame = form;
    while (frame && !qobject_cast<QMdiSubWindow *>(frame))
        frame = frame->parentWidget();
    check(frame, QStringLiteral("the form has no window"));
    if (frame)
        frame->move(0, 0);
    QTest::qWait(300);
    check(window->grab().save(qEnvironmentVariable("DESIGNER_PICTURE")),
          QStringLiteral("no picture can be saved"));
    filter->clear();
}

/// Each entry goes into a plot, as a drop or the clipboard puts it there.
void DesignerDriver::checkInserting(QDesignerFormWindowInterface *form)
{
    const QDesignerWidgetBoxInterface::Category group = ourGroup(m_core->widgetBox());
    form->setContents(formText(QStringLiteral("Form"), widgetElement(group.widget(0).domXml())));
    const QWidget *first = firstPlot(form);
    check(first && first->size() == QSize(200, 200) && first->objectName() == QLatin1String("zrqtPlot"),
          QStringLiteral("the plot is not as it was described"));
    for (int i = 0; i < group.widgetCount(); ++i) {
        select(form, firstPlot(form));
        QApplication::clipboard()->setText(
            formText(QStringLiteral("__qt_fake_top_level"), widgetElement(group.widget(i).domXml())));
        m_core->formWindowManager()->action(QDesignerFormWindowManagerInterface::PasteAction)->trigger();
        QApplication::processEvents();
    }
    const QWidgetList inserted = managedWidgets(form);
    check(inserted.size() == 1 + names.size(),
          QStringLiteral("%1 widgets were inserted").arg(inserted.size()));
    for (const QWidget *widget : inserted) {
        check(widget->parentWidget() == (widget == firstPlot(form) ? form->mainContainer() : firstPlot(form)),
              className(widget) + QStringLiteral(" did not go into the plot"));
    }
    check(form->contents().count(QLatin1String("<string>A graph axis widget</string>")) == 3,
          QStringLiteral("axis and channels are not described"));
}

/// All of them leave the plot one by one, come back, and leave again.
void DesignerDriver::checkDeleting(QDesignerFormWindowInterface *form)
{
    using Manager = QDesignerFormWindowManagerInterface;
    Manager *manager = m_core->formWindowManager();
    const int count = managedWidgets(form).size();
    const auto repeat = [&](Manager::Action action) {
        for (int i = 1; i < count; ++i) {
            manager->action(action)->trigger();
            QApplication::processEvents();
        }
    };
    for (int i = 1; i < count; ++i) {
        select(form, managedWidgets(form).last());
        manager->action(Manager::DeleteAction)->trigger();
        QApplication::processEvents();
    }
    check(managedWidgets(form).size() == 1, QStringLiteral("not every widget can be deleted"));
    repeat(Manager::UndoAction);
    check(managedWidgets(form).size() == count, QStringLiteral("not every widget comes back"));
    repeat(Manager::RedoAction);
    check(managedWidgets(form).size() == 1, QStringLiteral("not every widget leaves again"));
}

/// What was loaded again in place of \a widget has the values that were tried in that round.
void DesignerDriver::compareLoaded(const QWidget *loaded, const QWidget *widget, int round)
{
    if (!loaded || className(loaded) != className(widget)) {
        check(false, className(widget) + QStringLiteral(" is lost"));
        return;
    }
    for (const QMetaProperty &property : ownProperties(widget->metaObject())) {
        const QVariant value = trialValues(property).value(round);
        if (value.isValid() && property.isWritable()) {
            check(holds(loaded, property, value),
                  QStringLiteral("%1 of %2 is lost").arg(QLatin1String(property.name()), className(widget)));
        }
    }
}

/// Whatever an enumeration, flags or a colour can be is the same after Designer saved the form.
void DesignerDriver::checkSaving(QDesignerFormWindowInterface *form)
{
    QString children;
    const QDesignerWidgetBoxInterface::Category group = ourGroup(m_core->widgetBox());
    for (int i = 0; i < group.widgetCount(); ++i)
        children += widgetElement(group.widget(i).domXml());

    // Each round tries another value of every property.
    int tried = 1;
    for (int round = 0; tried > 0; ++round) {
        tried = 0;
        form->setContents(formText(QStringLiteral("Form"), children));
        for (QWidget *widget : managedWidgets(form)) {
            auto *sheet = qt_extension<QDesignerPropertySheetExtension *>(m_core->extensionManager(), widget);
            for (const QMetaProperty &property : ownProperties(widget->metaObject())) {
                const QVariant value = trialValues(property).value(round);
                if (!value.isValid() || !property.isWritable())
                    continue;
                ++tried;
                property.write(widget, value);
                sheet->setChanged(sheet->indexOf(QLatin1String(property.name())), true);
            }
        }
        QByteArray saved = form->contents().toUtf8();
        QBuffer buffer(&saved);
        buffer.open(QIODevice::ReadOnly);
        QFormBuilder builder;
        for (const QString &path : QCoreApplication::libraryPaths())
            builder.addPluginPath(path + QLatin1String("/designer"));
        const std::unique_ptr<QWidget> loaded(builder.load(&buffer));
        check(loaded != nullptr, QStringLiteral("the saved form cannot be loaded"));
        if (!loaded)
            return;
        for (const QWidget *widget : managedWidgets(form))
            compareLoaded(loaded->findChild<QWidget *>(widget->objectName()), widget, round);
    }
}
