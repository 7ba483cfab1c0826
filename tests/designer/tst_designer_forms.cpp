#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "shared/plotprobe.h"
#include "shared/quiettest.h"
#include "trialvalues.h"
#include "ui_form.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtDesigner/QFormBuilder>
#include <QtUiTools/QUiLoader>
#include <QtWidgets/QLabel>

#include <algorithm>
#include <memory>

// Forms that use the widgets: loaded at run time, and compiled by uic.

namespace {

const QString pluginFolder = QStringLiteral(PLUGIN_FOLDER);

std::unique_ptr<QWidget> loadedForm()
{
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(pluginFolder);
    QFile file(QStringLiteral(FORM_FILE));
    return std::unique_ptr<QWidget>(file.open(QIODevice::ReadOnly) ? loader.load(&file) : nullptr);
}

std::unique_ptr<QWidget> compiledForm()
{
    auto form = std::make_unique<QWidget>();
    Ui::Form().setupUi(form.get());
    return form;
}

std::unique_ptr<QWidget> newWidget(const QByteArray &className)
{
    if (className == "ZrQtPlot")
        return std::make_unique<ZrQtPlot>();
    if (className == "ZrQtAxis")
        return std::make_unique<ZrQtAxis>();
    if (className == "ZrQtBufferedChannel")
        return std::make_unique<ZrQtBufferedChannel>();
    if (className == "ZrQtPlotChannel")
        return std::make_unique<ZrQtPlotChannel>();
    if (className == "ZrQtPlotSlider")
        return std::make_unique<ZrQtPlotSlider>();
    return std::make_unique<ZrQtPlotChannelEdit>();
}

const QByteArrayList allClasses{"ZrQtPlot",        "ZrQtAxis",       "ZrQtBufferedChannel",
                                "ZrQtPlotChannel", "ZrQtPlotSlider", "ZrQtPlotChannelEdit"};

/// \a value as Designer writes it.
QString element(const QMetaProperty &property, const QVariant &value)
{
    if (property.userType() == QMetaType::QColor) {
        const auto color = value.value<QColor>();
        return QStringLiteral("<color alpha=\"%1\"><red>%2</red><green>%3</green><blue>%4</blue></color>")
            .arg(color.alpha())
            .arg(color.red())
            .arg(color.green())
            .arg(color.blue());
    }
    const QMetaEnum enumerator = property.enumerator();
    const QByteArray keys = property.isFlagType() ? enumerator.valueToKeys(value.toInt())
                                                  : QByteArray(enumerator.valueToKey(value.toInt()));
    QStringList scoped;
    for (const QByteArray &key : keys.split('|')) {
        if (!key.isEmpty())
            scoped += QLatin1String(enumerator.scope()) + QLatin1String("::") + QLatin1String(key);
    }
    return QStringLiteral("<%1>%2</%1>")
        .arg(property.isFlagType() ? QStringLiteral("set") : QStringLiteral("enum"),
             scoped.join(QLatin1Char('|')));
}

/// A widget from a form that sets \a property of it to \a value.
template <typename Builder>
std::unique_ptr<QWidget> loadedWidget(Builder &builder, const QByteArray &className,
                                      const QMetaProperty &property, const QVariant &value)
{
    QByteArray form
        = QStringLiteral("<ui version=\"4.0\"><widget class=\"%1\" name=\"widget\">"
                         "<property name=\"%2\">%3</property></widget></ui>")
              .arg(QLatin1String(className), QLatin1String(property.name()), element(property, value))
              .toUtf8();
    QBuffer buffer(&form);
    buffer.open(QIODevice::ReadOnly);
    return std::unique_ptr<QWidget>(builder.load(&buffer));
}

} // namespace

class tst_DesignerForms : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsRegistered_data();
    void everythingIsRegistered();
    void compiledAsLoaded();
    void valuesFromForms_data();
    void valuesFromForms();
    void designability_data();
    void designability();
};

void tst_DesignerForms::everythingIsRegistered_data()
{
    QTest::addColumn<bool>("compiled");
    QTest::newRow("by QUiLoader") << false;
    QTest::newRow("by code that uic made") << true;
}

// Only what is registered is placed, and follows the canvases.
void tst_DesignerForms::everythingIsRegistered()
{
    QFETCH(const bool, compiled);

    const std::unique_ptr<QWidget> form = compiled ? compiledForm() : loadedForm();
    QVERIFY(form);
    form->show();
    QVERIFY(QTest::qWaitForWindowExposed(form.get()));
    auto *plot = form->findChild<ZrQtPlot *>(QStringLiteral("plot"));
    QVERIFY(plot);
    settle(plot);

    const QRect area = plotArea(plot);
    const auto axis = [&](const char *name) { return plot->findChild<ZrQtAxis *>(QLatin1String(name)); };
    QVERIFY(axis("leftAxis")->geometry().right() <= area.left());
    QVERIFY(axis("rightAxis")->geometry().left() >= area.right());
    QVERIFY(axis("topAxis")->geometry().bottom() <= area.top());
    QVERIFY(axis("bottomAxis")->geometry().top() >= area.bottom());

    auto *buffered = plot->findChild<ZrQtBufferedChannel *>();
    auto *geometric = plot->findChild<ZrQtPlotChannel *>();
    auto *slider = plot->findChild<ZrQtPlotSlider *>();
    for (const QWidget *inArea : QWidgetList{buffered, geometric, slider}) {
        QCOMPARE(inArea->geometry(), area);
        QVERIFY(inArea->isVisible());
    }
    QCOMPARE(plot->findChild<QLabel *>(QStringLiteral("custom"))->pos(), area.topLeft());

    plot->setCanvas(QRectF(2, 4, 6, 8), ZrQtPlot::COSY_0);
    plot->setCanvas(QRectF(20, 40, 60, 80), ZrQtPlot::COSY_3);
    QCOMPARE(axis("bottomAxis")->min(), 2.0);
    QCOMPARE(axis("leftAxis")->max(), 12.0);
    QCOMPARE(axis("rightAxis")->max(), 120.0);
    QCOMPARE(geometric->canvas(), QRectF(2, 4, 6, 8));
    QCOMPARE(buffered->canvas(), QRectF(2, 40, 6, 80));

    plot->removeSlider(slider);
    QCOMPARE(slider->parentWidget(), nullptr);
    delete slider;
}

void tst_DesignerForms::compiledAsLoaded()
{
    const std::unique_ptr<QWidget> loaded = loadedForm();
    const std::unique_ptr<QWidget> compiled = compiledForm();
    QSet<QByteArray> classes;
    const QWidgetList widgets = loaded->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const QByteArray className = widget->metaObject()->className();
        if (!allClasses.contains(className))
            continue;
        classes.insert(className);
        QWidget *other = compiled->findChild<QWidget *>(widget->objectName());
        QVERIFY2(other, qPrintable(widget->objectName()));
        for (const QMetaProperty &property : ownProperties(widget->metaObject())) {
            const QVariant value = property.read(widget);
            QVERIFY2(property.read(other) == value, property.name());
        }
    }
    QCOMPARE(classes.size(), allClasses.size());

    const auto *plot = compiled->findChild<ZrQtPlot *>();
    QCOMPARE(plot->borderColor(), QColor(20, 30, 40, 128));
    QCOMPARE(plot->zoomAxes(), ZrQtPlot::PlotAxes(ZrQtPlot::Axis_Y));
    QCOMPARE(compiled->findChild<ZrQtPlotSlider *>()->slaveCosy(), ZrQtPlot::COSY_15);
}

void tst_DesignerForms::valuesFromForms_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QByteArray>("name");
    for (const QByteArray &className : allClasses) {
        for (const QMetaProperty &property : ownProperties(newWidget(className)->metaObject())) {
            if (property.isWritable() && !trialValues(property).isEmpty())
                QTest::addRow("%s %s", className.constData(), property.name())
                    << className << QByteArray(property.name());
        }
    }
}

void tst_DesignerForms::valuesFromForms()
{
    QFETCH(const QByteArray, className);
    QFETCH(const QByteArray, name);

    QFormBuilder formBuilder;
    formBuilder.setPluginPath({pluginFolder});
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(pluginFolder);

    const std::unique_ptr<QWidget> widget = newWidget(className);
    const QMetaObject *metaObject = widget->metaObject();
    const QMetaProperty property = metaObject->property(metaObject->indexOfProperty(name));
    for (const QVariant &value : trialValues(property)) {
        for (const auto &loaded : {loadedWidget(formBuilder, className, property, value),
                                   loadedWidget(loader, className, property, value)}) {
            QVERIFY(loaded);
            QCOMPARE(loaded->metaObject()->className(), className.constData());
            QVERIFY2(holds(loaded.get(), property, value), qPrintable(element(property, value)));
        }
    }
}

void tst_DesignerForms::designability_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QByteArrayList>("editable");
    QTest::addColumn<QByteArrayList>("readOnly");
    QTest::addColumn<QByteArrayList>("hidden");

    const QByteArrayList ofChannels{"name",         "canvas",        "cosyX",       "cosyY",
                                    "lineStyle",    "pointStyle",    "lineWidth",   "pointSize",
                                    "pointColor",   "lineColor",     "fillColor",   "fillStyle",
                                    "antialiasing", "useForScaling", "showInLegend"};
    QTest::newRow("plot") << QByteArray("ZrQtPlot")
                          << QByteArrayList{"backgroundColor",  "borderColor",
                                            "borderWidth",      "minMarginLeft",
                                            "minMarginRight",   "minMarginTop",
                                            "minMarginBottom",  "interaction",
                                            "selectionCosyX",   "selectionCosyY",
                                            "defaultScalingX",  "defaultScalingY",
                                            "canvasMarginLeft", "canvasMarginRight",
                                            "canvasMarginTop",  "canvasMarginBottom",
                                            "gridModeX",        "gridModeY",
                                            "gridSpacing",      "gridSubSpacing",
                                            "gridStyle",        "drawBorderGridLines",
                                            "keepAspectRatio",  "mouseWheelZoom",
                                            "zoomAxes",         "initialCanvas",
                                            "tooltipMode",      "useEmptyBoundingRectsForAutoFitScaling",
                                            "generateLegend"}
                          << QByteArrayList{} << QByteArrayList{};
    // The fields for editing the range know no exponents and no dates, so that they are offered only with
    // the formats that have neither: see minMaxEditable() below.
    QTest::newRow("axis") << QByteArray("ZrQtAxis")
                          << QByteArrayList{"min",
                                            "max",
                                            "unitFactor",
                                            "axisOffset",
                                            "drawingRangeLimited",
                                            "drawMin",
                                            "drawMax",
                                            "position",
                                            "cosy",
                                            "inverted",
                                            "logarithmic",
                                            "useForGrid",
                                            "marginLow",
                                            "marginHigh",
                                            "maxTicks",
                                            "maxSubTicks",
                                            "equalSpaced",
                                            "tickDistance",
                                            "subTickDistance",
                                            "tickSize",
                                            "subTickSize",
                                            "drawAxisLine",
                                            "labelFormat",
                                            "precision",
                                            "allowIncreasedPrecision",
                                            "showBoundLabels",
                                            "scientificExponent",
                                            "equalExponent",
                                            "timeFormat",
                                            "verticalXTickTexts",
                                            "axisLabel",
                                            "axisLabelFont",
                                            "verticalYLabel",
                                            "labelColor"}
                          << QByteArrayList{"minMarginLow", "minMarginHigh"}
                          << QByteArrayList{"minMaxEditable"};
    QTest::newRow("buffered channel")
        << QByteArray("ZrQtBufferedChannel") << ofChannels + QByteArrayList{"channelNr", "dataReduction"}
        << QByteArrayList{"boundingRect"} << QByteArrayList{};
    // Designer has no editor for lists of shapes.
    QTest::newRow("plot channel") << QByteArray("ZrQtPlotChannel")
                                  << ofChannels
                                         + QByteArrayList{"movementDirections",
                                                          "editable",
                                                          "pointsEditable",
                                                          "circlesEditable",
                                                          "rectanglesEditable",
                                                          "linesEditable",
                                                          "lineSegmentsEditable",
                                                          "keepCenterAtResize",
                                                          "resizableFeatures",
                                                          "movable",
                                                          "connectFirstAndLastPoint",
                                                          "pointsMovable",
                                                          "circlesMovable",
                                                          "rectanglesMovable",
                                                          "linesMovable",
                                                          "lineSegmentsMovable",
                                                          "editingNotification"}
                                  << QByteArrayList{"boundingRect", "editingActive"}
                                  << QByteArrayList{"points", "rectangles", "circles", "lines",
                                                    "lineSegments"};
    QTest::newRow("slider") << QByteArray("ZrQtPlotSlider")
                            << QByteArrayList{"masterCosy", "slaveCosy", "updateWhileDragging",
                                              "slaveHandleColor", "slaveHandlePen"}
                            << QByteArrayList{} << QByteArrayList{};
    QTest::newRow("channel edit") << QByteArray("ZrQtPlotChannelEdit") << QByteArrayList{"channelName"}
                                  << QByteArrayList{} << QByteArrayList{};
}

void tst_DesignerForms::designability()
{
    QFETCH(const QByteArray, className);
    QFETCH(QByteArrayList, editable);
    QFETCH(QByteArrayList, readOnly);
    QFETCH(QByteArrayList, hidden);

    const std::unique_ptr<QWidget> widget = newWidget(className);
    QByteArrayList found[3];
    for (const QMetaProperty &property : ownProperties(widget->metaObject())) {
        const bool isDesignable = property.isDesignable(widget.get());
        found[isDesignable ? (property.isWritable() ? 0 : 1) : 2].append(property.name());
    }
    for (QByteArrayList *names : {&editable, &readOnly, &hidden, &found[0], &found[1], &found[2]})
        std::sort(names->begin(), names->end());
    QCOMPARE(found[0], editable);
    QCOMPARE(found[1], readOnly);
    QCOMPARE(found[2], hidden);

    if (auto *axis = qobject_cast<ZrQtAxis *>(widget.get())) {
        const QMetaObject *metaObject = axis->metaObject();
        const QMetaProperty minMaxEditable
            = metaObject->property(metaObject->indexOfProperty("minMaxEditable"));
        for (const QVariant &format :
             trialValues(metaObject->property(metaObject->indexOfProperty("labelFormat")))) {
            axis->setProperty("labelFormat", format);
            const bool offered = axis->labelFormat() == ZrQtAxis::FloatingPoint
                                 || axis->labelFormat() == ZrQtAxis::TimePlusMs;
            QCOMPARE(minMaxEditable.isDesignable(axis), offered);
        }
    }
}

QTEST_MAIN(tst_DesignerForms)

#include "tst_designer_forms.moc"
