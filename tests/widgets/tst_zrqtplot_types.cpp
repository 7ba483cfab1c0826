#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include <QtCore/QMetaProperty>

class tst_ZrQtPlotTypes : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void enumerators_data();
    void enumerators();
    void keys_data();
    void keys();
    void restrictions();
    void enumPropertiesTakeKeys_data();
    void enumPropertiesTakeKeys();
    void signalsCarryRegisteredTypes();

    void everySystemHasTheInitialCanvas();
    void combinationHasNoCanvas();
    void combinationIsASystemOfItsOwn();
    void edgeSettersMoveOneEdge_data();
    void edgeSettersMoveOneEdge();
    void noChannelsMeansNoSystemInUse();
    void systemsInUseFollowTheChannels();
};

namespace {

ZrQtPlot::CoordinateSystem combined()
{
    return ZrQtPlot::CoordinateSystem(ZrQtPlot::COSY_0 | ZrQtPlot::COSY_1);
}

QMetaEnum enumerator(const QByteArray &name)
{
    const QMetaObject &meta = ZrQtPlot::staticMetaObject;
    return meta.enumerator(meta.indexOfEnumerator(name));
}

} // namespace

void tst_ZrQtPlotTypes::enumerators_data()
{
    QTest::addColumn<int>("keyCount");
    QTest::addColumn<bool>("isFlag");

    QTest::newRow("CoordinateSystem") << 16 << false;
    QTest::newRow("ScalingMode") << 5 << false;
    QTest::newRow("GridMode") << 7 << false;
    QTest::newRow("PlotAxes") << 2 << true;
    QTest::newRow("Interaction") << 5 << false;
    QTest::newRow("TooltipMode") << 4 << false;
}

void tst_ZrQtPlotTypes::enumerators()
{
    QFETCH(const int, keyCount);
    QFETCH(const bool, isFlag);

    const QMetaEnum meta = enumerator(QTest::currentDataTag());
    QVERIFY(meta.isValid());
    QCOMPARE(meta.keyCount(), keyCount);
    QCOMPARE(meta.isFlag(), isFlag);
}

void tst_ZrQtPlotTypes::keys_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("value");

    struct Row
    {
        const char *name;
        const char *key;
        int value;
    };
    const Row rows[] = {
        {"CoordinateSystem", "COSY_0", 0x1},
        {"CoordinateSystem", "COSY_1", 0x2},
        {"CoordinateSystem", "COSY_2", 0x4},
        {"CoordinateSystem", "COSY_3", 0x8},
        {"CoordinateSystem", "COSY_4", 0x10},
        {"CoordinateSystem", "COSY_5", 0x20},
        {"CoordinateSystem", "COSY_6", 0x40},
        {"CoordinateSystem", "COSY_7", 0x80},
        {"CoordinateSystem", "COSY_8", 0x100},
        {"CoordinateSystem", "COSY_9", 0x200},
        {"CoordinateSystem", "COSY_10", 0x400},
        {"CoordinateSystem", "COSY_11", 0x800},
        {"CoordinateSystem", "COSY_12", 0x1000},
        {"CoordinateSystem", "COSY_13", 0x2000},
        {"CoordinateSystem", "COSY_14", 0x4000},
        {"CoordinateSystem", "COSY_15", 0x8000},
        {"ScalingMode", "Manual", 1},
        {"ScalingMode", "AutoFit", 2},
        {"ScalingMode", "Centered", 4},
        {"ScalingMode", "KeepAtHead", 8},
        {"ScalingMode", "Custom", 0x10},
        {"GridMode", "NoGrid", 0},
        {"GridMode", "TickGrid", 1},
        {"GridMode", "SubTickGrid", 2},
        {"GridMode", "PercentStepGrid", 3},
        {"GridMode", "PixelStepGrid", 4},
        {"GridMode", "TickPolarGrid", 5},
        {"GridMode", "SubTickPolarGrid", 6},
        {"PlotAxes", "Axis_X", 1},
        {"PlotAxes", "Axis_Y", 2},
        {"Interaction", "NoInteraction", 0},
        {"Interaction", "PanAndScan", 1},
        {"Interaction", "RectangleZoom", 2},
        {"Interaction", "SelectRoi", 3},
        {"Interaction", "SelectLine", 4},
        {"TooltipMode", "SHOW_NEVER", 0},
        {"TooltipMode", "SHOW_ALWAYS", 1},
        {"TooltipMode", "SHOW_WHILE_PRESSED", 2},
        {"TooltipMode", "SHOW_ON_CLICK", 3},
    };
    for (const Row &row : rows)
        QTest::addRow("%s::%s", row.name, row.key)
            << QByteArray(row.name) << QByteArray(row.key) << row.value;
}

void tst_ZrQtPlotTypes::keys()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, key);
    QFETCH(const int, value);

    const QMetaEnum meta = enumerator(name);
    bool known = false;
    QCOMPARE(meta.keyToValue(key, &known), value);
    QVERIFY(known);
    QCOMPARE(QByteArray(meta.valueToKey(value)), key);
}

void tst_ZrQtPlotTypes::restrictions()
{
    QCOMPARE(int(ZrQtPlot::RedrawOnDataChange), 0x1);
    QCOMPARE(int(ZrQtPlot::RedrawOnBoundingRectChange), 0x2);
    QCOMPARE(int(ZrQtPlot::RedrawOnCanvasChange), 0x4);
    QCOMPARE(int(ZrQtPlot::RedrawUnderMouse), 0x8);
    const ZrQtPlot::PlotUpdateRestrictions all
        = ZrQtPlot::RedrawOnDataChange | ZrQtPlot::RedrawOnBoundingRectChange | ZrQtPlot::RedrawOnCanvasChange
          | ZrQtPlot::RedrawUnderMouse;
    QCOMPARE(int(all), 0xf);
    QCOMPARE(int(ZrQtPlot::PlotUpdateRestrictions()), 0);

    // On purpose, they are unknown to the meta-object: no property has their type.
    const QMetaObject &meta = ZrQtPlot::staticMetaObject;
    QCOMPARE(meta.indexOfEnumerator("PlotUpdateRestrictions"), -1);
    QCOMPARE(meta.indexOfEnumerator("PlotUpdateRestriction"), -1);
}

void tst_ZrQtPlotTypes::enumPropertiesTakeKeys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");

    QTest::newRow("defaultScalingX") << "KeepAtHead" << 8;
    QTest::newRow("defaultScalingY") << "Custom" << 0x10;
    QTest::newRow("gridModeX") << "SubTickPolarGrid" << 6;
    QTest::newRow("gridModeY") << "PercentStepGrid" << 3;
    QTest::newRow("gridStyle") << "DashLine" << int(Qt::DashLine);
}

void tst_ZrQtPlotTypes::enumPropertiesTakeKeys()
{
    QFETCH(const QString, key);
    QFETCH(const int, value);

    ZrQtPlot plot;
    QVERIFY(plot.setProperty(QTest::currentDataTag(), key));
    QCOMPARE(plot.property(QTest::currentDataTag()).toInt(), value);
}

void tst_ZrQtPlotTypes::signalsCarryRegisteredTypes()
{
    // A spy, unlike a connection, needs the types to be known by name.
    qRegisterMetaType<ZrQtPlot::CoordinateSystem>();
    qRegisterMetaType<ZrQtPlot::ScalingMode>();
    qRegisterMetaType<ZrQtPlot::PlotAxis>();
    ZrQtPlot plot;
    plot.setDefaultScalingY(ZrQtPlot::Manual);
    QSignalSpy canvases(&plot, &ZrQtPlot::canvasChanged);
    QSignalSpy modes(&plot, &ZrQtPlot::scalingModeChanged);
    QVERIFY(canvases.isValid());
    QVERIFY(modes.isValid());

    plot.setScalingY(ZrQtPlot::Custom, ZrQtPlot::COSY_9);

    QCOMPARE(canvases.size(), 1);
    QCOMPARE(canvases.at(0).at(0).toRectF(), QRectF(0, 0, 10, 10));
    QCOMPARE(canvases.at(0).at(1).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_9);
    QCOMPARE(modes.size(), 1);
    QCOMPARE(modes.at(0).at(0).value<ZrQtPlot::ScalingMode>(), ZrQtPlot::Custom);
    QCOMPARE(modes.at(0).at(1).value<ZrQtPlot::PlotAxis>(), ZrQtPlot::Axis_Y);
    QCOMPARE(modes.at(0).at(2).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_9);
}

void tst_ZrQtPlotTypes::everySystemHasTheInitialCanvas()
{
    ZrQtPlot plot;
    for (const Cosy cosy : allSystems()) {
        QCOMPARE(plot.canvas(cosy), QRectF(0, 0, 10, 10));
        QCOMPARE(plot.scalingX(cosy), ZrQtPlot::AutoFit);
        QCOMPARE(plot.scalingY(cosy), ZrQtPlot::AutoFit);
    }
}

void tst_ZrQtPlotTypes::combinationHasNoCanvas()
{
    ZrQtPlot plot;
    QCOMPARE(plot.canvas(combined()), QRectF());
    QCOMPARE(plot.canvas(ZrQtPlot::COSY_0), QRectF(0, 0, 10, 10));
    QCOMPARE(plot.canvas(Cosy(0)), QRectF());
    QCOMPARE(plot.canvas(Cosy(0xffff)), QRectF());
}

void tst_ZrQtPlotTypes::combinationIsASystemOfItsOwn()
{
    ZrQtPlot plot;
    QCOMPARE(int(plot.scalingX(combined())), 0);
    QCOMPARE(int(plot.scalingY(combined())), 0);
    QCOMPARE(plot.canvas(combined()), QRectF());

    PlotLog log(&plot);
    plot.setCanvas(QRectF(1, 2, 3, 4), combined());
    QCOMPARE(plot.canvas(combined()), QRectF(1, 2, 3, 4));
    QCOMPARE(plot.scalingX(combined()), ZrQtPlot::Manual);
    QCOMPARE(plot.canvas(ZrQtPlot::COSY_0), QRectF(0, 0, 10, 10));
    QCOMPARE(plot.canvas(ZrQtPlot::COSY_1), QRectF(0, 0, 10, 10));
    QCOMPARE(plot.scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
    const QStringList expected = {PlotLog::mode(ZrQtPlot::Manual, ZrQtPlot::Axis_X, combined()),
                                  PlotLog::mode(ZrQtPlot::Manual, ZrQtPlot::Axis_Y, combined())};
    QCOMPARE(log.take(), expected);

    // The sixteen that are reset are the sixteen of the enumeration.
    plot.setInitialCanvas(QRectF(0, 0, 1, 1));
    QCOMPARE(plot.canvas(combined()), QRectF(1, 2, 3, 4));
    QCOMPARE(log.take().size(), 16);
}

void tst_ZrQtPlotTypes::edgeSettersMoveOneEdge_data()
{
    QTest::addColumn<int>("edge");
    QTest::addColumn<QRectF>("expected");

    // Custom first, so that the canvas stays where it is until the edge moves.
    QTest::newRow("setMinX is the left edge") << 0 << QRectF(5, 0, 5, 10);
    QTest::newRow("setMaxX is the right edge") << 1 << QRectF(0, 0, 5, 10);
    QTest::newRow("setMinY is the top edge") << 2 << QRectF(0, 5, 10, 5);
    QTest::newRow("setMaxY is the bottom edge") << 3 << QRectF(0, 0, 10, 5);
}

void tst_ZrQtPlotTypes::edgeSettersMoveOneEdge()
{
    QFETCH(const int, edge);
    QFETCH(const QRectF, expected);

    ZrQtPlot plot;
    plot.setDefaultScalingX(ZrQtPlot::Custom);
    plot.setDefaultScalingY(ZrQtPlot::Custom);
    using Setter = void (ZrQtPlot::*)(double, Cosy);
    const Setter setters[] = {&ZrQtPlot::setMinX, &ZrQtPlot::setMaxX, &ZrQtPlot::setMinY, &ZrQtPlot::setMaxY};
    (plot.*setters[edge])(5.0, ZrQtPlot::COSY_2);
    QCOMPARE(plot.canvas(ZrQtPlot::COSY_2), expected);
    QCOMPARE(plot.canvas(ZrQtPlot::COSY_1), QRectF(0, 0, 10, 10));
}

void tst_ZrQtPlotTypes::noChannelsMeansNoSystemInUse()
{
    ShownPlot shown;
    QVERIFY(shown.exposed);
    PlotLog log(shown.plot);
    shown.plot->setKeepAspectRatio(true);
    QVERIFY(shown.plot->keepAspectRatio());
    QCOMPARE(log.take(), QStringList());
}

void tst_ZrQtPlotTypes::systemsInUseFollowTheChannels()
{
    ZrQtPlot plot;
    plot.resize(100, 100);
    plot.setDefaultScalingX(ZrQtPlot::Custom);
    plot.setDefaultScalingY(ZrQtPlot::Custom);
    new ProbeChannel(&plot, QRectF(0, 0, 1, 1), ZrQtPlot::COSY_3, ZrQtPlot::COSY_1);
    new ProbeChannel(&plot, QRectF(0, 0, 1, 1), ZrQtPlot::COSY_1, ZrQtPlot::COSY_2);
    new ProbeChannel(&plot, QRectF(0, 0, 1, 1), ZrQtPlot::COSY_3, ZrQtPlot::COSY_0);

    PlotLog log(&plot);
    plot.setKeepAspectRatio(true);
    const QRectF initial(0, 0, 10, 10);
    const QStringList expected
        = {PlotLog::canvas(initial, ZrQtPlot::COSY_3), PlotLog::canvas(initial, ZrQtPlot::COSY_1),
           PlotLog::canvas(initial, ZrQtPlot::COSY_2), PlotLog::canvas(initial, ZrQtPlot::COSY_0)};
    QCOMPARE(log.take(), expected);
}

QTEST_MAIN(tst_ZrQtPlotTypes)

#include "tst_zrqtplot_types.moc"
