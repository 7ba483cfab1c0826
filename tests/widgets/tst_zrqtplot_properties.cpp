#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include <QtCore/QMetaProperty>

/// The properties of the plot: defaults, storage, and whether a setter repaints when the value is the same.
class tst_ZrQtPlotProperties : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void properties_data();
    void properties();
    void repaintingSetters_data();
    void repaintingSetters();
    void layoutRuns_data();
    void layoutRuns();
};

namespace {

class CountingPlot : public ZrQtPlot
{
public:
    void paint(QPainter *painter) override
    {
        ++paintCount;
        ZrQtPlot::paint(painter);
    }

    /// Whether a painting follows by itself.
    bool repaints()
    {
        const int before = paintCount;
        QApplication::processEvents();
        return paintCount > before;
    }

    int paintCount = 0;
};

enum Repaint { Never, IfDifferent, Always };

QVariant value(const QObject &object, const char *name)
{
    const QVariant read = object.property(name);
    // Enumerations compare as numbers.
    return object.metaObject()->property(object.metaObject()->indexOfProperty(name)).isEnumType()
               ? QVariant(read.toInt())
               : read;
}

} // namespace

void tst_ZrQtPlotProperties::properties_data()
{
    QTest::addColumn<QVariant>("initial");
    QTest::addColumn<QVariant>("other");
    QTest::addColumn<int>("repaint");

    QTest::newRow("backgroundColor") << QVariant(QColor(Qt::white)) << QVariant(QColor(1, 2, 3))
                                     << int(Always);
    QTest::newRow("borderColor") << QVariant(QColor(0, 0, 0, 0)) << QVariant(QColor(1, 2, 3)) << int(Always);
    QTest::newRow("borderWidth") << QVariant(0) << QVariant(3) << int(Always);
    for (const char *margin : {"minMarginLeft", "minMarginRight", "minMarginTop", "minMarginBottom"})
        QTest::newRow(margin) << QVariant(0) << QVariant(30) << int(IfDifferent);
    for (const char *scaling : {"defaultScalingX", "defaultScalingY"}) {
        QTest::newRow(scaling) << QVariant(int(ZrQtPlot::AutoFit)) << QVariant(int(ZrQtPlot::Custom))
                               << int(IfDifferent);
    }
    for (const char *margin :
         {"canvasMarginLeft", "canvasMarginRight", "canvasMarginTop", "canvasMarginBottom"})
        QTest::newRow(margin) << QVariant(0.02) << QVariant(0.1) << int(IfDifferent);
    QTest::newRow("keepAspectRatio") << QVariant(false) << QVariant(true) << int(Never);
    QTest::newRow("initialCanvas") << QVariant(QRectF(0, 0, 10, 10)) << QVariant(QRectF(1, 2, 3, 4))
                                   << int(IfDifferent);
    QTest::newRow("useEmptyBoundingRectsForAutoFitScaling")
        << QVariant(false) << QVariant(true) << int(Never);
    for (const char *mode : {"gridModeX", "gridModeY"}) {
        QTest::newRow(mode) << QVariant(int(ZrQtPlot::NoGrid)) << QVariant(int(ZrQtPlot::PixelStepGrid))
                            << int(Always);
    }
    QTest::newRow("gridSpacing") << QVariant(QSizeF(10, 10)) << QVariant(QSizeF(7, 8)) << int(Always);
    QTest::newRow("gridSubSpacing") << QVariant(QSizeF(25, 25)) << QVariant(QSizeF(7, 8)) << int(Always);
    QTest::newRow("gridStyle") << QVariant(int(Qt::SolidLine)) << QVariant(int(Qt::DotLine)) << int(Always);
    QTest::newRow("drawBorderGridLines") << QVariant(false) << QVariant(true) << int(IfDifferent);
    QTest::newRow("generateLegend") << QVariant(false) << QVariant(true) << int(IfDifferent);
}

void tst_ZrQtPlotProperties::properties()
{
    QFETCH(const QVariant, initial);
    QFETCH(const QVariant, other);
    QFETCH(const int, repaint);
    const char *name = QTest::currentDataTag();

    auto *plot = new CountingPlot;
    ShownPlot shown(QSize(400, 300), plot);
    QCOMPARE(value(*plot, name), initial);
    plot->repaints();
    QVERIFY(!plot->repaints());

    QVERIFY(plot->setProperty(name, initial));
    QCOMPARE(plot->repaints(), repaint == Always);
    QVERIFY(plot->setProperty(name, other));
    QCOMPARE(value(*plot, name), other);
    // Where nothing visible depends on it, a repaint may or may not come.
    const bool repainted = plot->repaints();
    if (repaint != Never)
        QVERIFY(repainted);
    QVERIFY(plot->setProperty(name, other));
    QCOMPARE(plot->repaints(), repaint == Always);
}

void tst_ZrQtPlotProperties::repaintingSetters_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<bool>("repaints");

    QTest::newRow("legend alignment, different") << 0 << true;
    QTest::newRow("legend alignment, the same") << 1 << false;
    QTest::newRow("update restrictions, different") << 2 << true;
    QTest::newRow("update restrictions, the same") << 3 << false;
    QTest::newRow("control of updates, different") << 4 << true;
    QTest::newRow("control of updates, the same") << 5 << false;
    QTest::newRow("tolerances") << 6 << false;
    QTest::newRow("interval") << 7 << false;
}

void tst_ZrQtPlotProperties::repaintingSetters()
{
    QFETCH(const int, which);
    QFETCH(const bool, repaints);

    auto *plot = new CountingPlot;
    ShownPlot shown(QSize(400, 300), plot);
    plot->repaints();
    QVERIFY(!plot->repaints());
    switch (which) {
    case 0:
        plot->setLegendAlignment(Qt::AlignLeft);
        break;
    case 1:
        plot->setLegendAlignment(Qt::AlignRight);
        break;
    case 2:
        plot->setPlotUpdateRestrictions(ZrQtPlot::RedrawOnDataChange);
        break;
    case 3:
        plot->setPlotUpdateRestrictions({});
        break;
    case 4:
        plot->setControlChannelUpdatesViaPlot(true);
        break;
    case 5:
        plot->setControlChannelUpdatesViaPlot(false);
        break;
    case 6:
        plot->setKeepOldBoundingRectWidthTolerance(0.5);
        plot->setKeepOldBoundingRectHeightTolerance(0.5);
        break;
    default:
        plot->setBoundingRectReduceUpdateInterval(5);
        break;
    }
    QCOMPARE(plot->repaints(), repaints);
}

void tst_ZrQtPlotProperties::layoutRuns_data()
{
    QTest::addColumn<QRect>("area");

    QTest::newRow("minMarginLeft") << QRect(30, 0, 370, 300);
    QTest::newRow("minMarginRight") << QRect(0, 0, 370, 300);
    QTest::newRow("minMarginTop") << QRect(0, 30, 400, 270);
    QTest::newRow("minMarginBottom") << QRect(0, 0, 400, 270);
}

void tst_ZrQtPlotProperties::layoutRuns()
{
    QFETCH(const QRect, area);

    ShownPlot shown(QSize(400, 300));
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, 400, 300));
    QVERIFY(shown.plot->setProperty(QTest::currentDataTag(), 30));
    QCOMPARE(plotArea(shown.plot), area);
}

QTEST_MAIN(tst_ZrQtPlotProperties)

#include "tst_zrqtplot_properties.moc"
