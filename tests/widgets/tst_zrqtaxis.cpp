#include "shared/quiettest.h"
#include "shared/shownaxis.h"

namespace {

/// A subclass has another class name than its base.
class DerivedPlot : public ZrQtPlot
{
    Q_OBJECT
};

/// Remembers whether the class of a child could be told when it was added.
class CuriousParent : public QWidget
{
    Q_OBJECT

public:
    bool sawAxis = false;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            QObject *child = static_cast<QChildEvent *>(event)->child();
            sawAxis = qobject_cast<ZrQtAxis *>(child) != nullptr;
        }
        return QWidget::event(event);
    }
};

QString printed(const QVariant &value)
{
    return QString::fromLatin1(value.typeName()) + QLatin1Char(' ') + value.toString();
}

void nothing(ZrQtAxis &)
{
}

void withThousands(ZrQtAxis &axis)
{
    axis.setLabelFormat(ZrQtAxis::Exponential);
    axis.setMinMax(1500.0, 17000.0);
}

} // namespace

/// The properties of an axis, and the plot and the canvas that it belongs to.
class TestZrQtAxis : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void defaults_data();
    void defaults();
    void marginsStartAtHalfTheFontHeight();
    void hasNoSizeBeforeFirstLayout();
    void setters_data();
    void setters();
    void readOnlyMargins();
    void positionIsAnEnumForTheMetaObject();
    void formatGroups_data();
    void formatGroups();

    void axisOffsetIsAddedTwice();
    void axisOffsetAloneMovesNothing();
    void repeatedBoundsDoNothing();
    void drawMinMaxIsKeptWithoutEffect();

    void invertedSignals_data();
    void invertedSignals();
    void timePlusMsBringsItsFormat();

    void followsCanvas_data();
    void followsCanvas();
    void ignoresCanvasOfOtherSystem();
    void standsAlone();
    void parentSeesAnAxis();
};

void TestZrQtAxis::defaults_data()
{
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("min") << QVariant(0.0);
    QTest::newRow("max") << QVariant(1.0);
    QTest::newRow("unitFactor") << QVariant(1.0);
    QTest::newRow("axisOffset") << QVariant(0.0);
    QTest::newRow("drawingRangeLimited") << QVariant(false);
    QTest::newRow("drawMin") << QVariant(0.0);
    QTest::newRow("drawMax") << QVariant(1.0);
    QTest::newRow("position") << QVariant::fromValue(Qt::LeftEdge);
    QTest::newRow("cosy") << QVariant::fromValue(ZrQtPlot::COSY_0);
    QTest::newRow("inverted") << QVariant(false);
    QTest::newRow("logarithmic") << QVariant(false);
    QTest::newRow("useForGrid") << QVariant(false);
    QTest::newRow("maxTicks") << QVariant(10);
    QTest::newRow("maxSubTicks") << QVariant(4);
    QTest::newRow("equalSpaced") << QVariant(false);
    QTest::newRow("tickDistance") << QVariant(60.0);
    QTest::newRow("subTickDistance") << QVariant(20.0);
    QTest::newRow("tickSize") << QVariant(10);
    QTest::newRow("subTickSize") << QVariant(5);
    QTest::newRow("drawAxisLine") << QVariant(true);
    QTest::newRow("labelFormat") << QVariant::fromValue(ZrQtAxis::Compact);
    QTest::newRow("precision") << QVariant(1);
    QTest::newRow("allowIncreasedPrecision") << QVariant(true);
    QTest::newRow("showBoundLabels") << QVariant(true);
    QTest::newRow("scientificExponent") << QVariant(false);
    QTest::newRow("equalExponent") << QVariant(false);
    QTest::newRow("timeFormat") << QVariant(QStringLiteral("%hh:%mm:%ss"));
    QTest::newRow("verticalXTickTexts") << QVariant(false);
    QTest::newRow("minMaxEditable") << QVariant(false);
    QTest::newRow("axisLabel") << QVariant(QString());
    QTest::newRow("axisLabelFont") << QVariant(QFont());
    QTest::newRow("verticalYLabel") << QVariant(false);
    QTest::newRow("labelColor") << QVariant(QColor(Qt::black));
}

void TestZrQtAxis::defaults()
{
    QFETCH(QVariant, expected);
    const ZrQtAxis axis;
    const QVariant value = axis.property(QTest::currentDataTag());
    QVERIFY2(value == expected, qPrintable(printed(value)));
}

void TestZrQtAxis::marginsStartAtHalfTheFontHeight()
{
    const ZrQtAxis axis;
    QCOMPARE(axis.property("marginLow").toInt(), axis.fontMetrics().height() / 2);
    QCOMPARE(axis.property("marginHigh").toInt(), axis.fontMetrics().height() / 2);
}

void TestZrQtAxis::hasNoSizeBeforeFirstLayout()
{
    ZrQtAxis axis;
    QCOMPARE(axis.minimumSizeHint(), QSize());
    QVERIFY(axis.tickPositions().isEmpty());
    axis.updateAxis();
    QCOMPARE(axis.minimumSizeHint(), QSize(axis.width(), -1));
    QVERIFY(!axis.tickPositions().isEmpty());
}

/// What a setter does to an axis that is shown: the columns tell what must be seen afterwards.
void TestZrQtAxis::setters_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<bool>("changesPicture");
    QTest::addColumn<int>("updateRequests"); // -1: as the width of the labels has it
    QTest::newRow("min") << QVariant(-3.0) << Setup(nothing) << true << -1;
    QTest::newRow("max") << QVariant(3.0) << Setup(nothing) << true << -1;
    QTest::newRow("unitFactor") << QVariant(1000.0) << Setup(nothing) << true << 1;
    QTest::newRow("axisOffset") << QVariant(7.0) << Setup(nothing) << false << 0;
    QTest::newRow("drawingRangeLimited")
        << QVariant(true) << Setup([](ZrQtAxis &axis) { axis.setDrawMinMax(0.0, 0.5); }) << true << -1;
    QTest::newRow("drawMin") << QVariant(0.5)
                             << Setup([](ZrQtAxis &axis) { axis.setDrawingRangeLimited(true); }) << true
                             << -1;
    QTest::newRow("drawMax") << QVariant(0.5)
                             << Setup([](ZrQtAxis &axis) { axis.setDrawingRangeLimited(true); }) << true
                             << -1;
    QTest::newRow("position") << QVariant::fromValue(Qt::RightEdge) << Setup(nothing) << true << 1;
    QTest::newRow("cosy") << QVariant::fromValue(ZrQtPlot::COSY_5) << Setup(nothing) << false << 0;
    QTest::newRow("inverted") << QVariant(true) << Setup(nothing) << true << 0;
    QTest::newRow("logarithmic") << QVariant(true)
                                 << Setup([](ZrQtAxis &axis) { axis.setMinMax(1.0, 1000.0); }) << true << -1;
    QTest::newRow("useForGrid") << QVariant(true) << Setup(nothing) << false << 0;
    QTest::newRow("marginLow") << QVariant(50) << Setup(nothing) << true << 0;
    QTest::newRow("marginHigh") << QVariant(50) << Setup(nothing) << true << 0;
    QTest::newRow("maxTicks") << QVariant(3) << Setup(nothing) << true << -1;
    QTest::newRow("maxSubTicks") << QVariant(0) << Setup(nothing) << true << 0;
    QTest::newRow("equalSpaced") << QVariant(true)
                                 << Setup([](ZrQtAxis &axis) { axis.setMinMax(0.05, 0.95); }) << true << -1;
    QTest::newRow("tickDistance") << QVariant(190.0) << Setup(nothing) << true << -1;
    QTest::newRow("subTickDistance") << QVariant(80.0) << Setup(nothing) << true << 0;
    QTest::newRow("tickSize") << QVariant(15) << Setup(nothing) << true << 1;
    QTest::newRow("subTickSize") << QVariant(7) << Setup(nothing) << true << 0;
    QTest::newRow("drawAxisLine") << QVariant(false) << Setup(nothing) << true << 0;
    QTest::newRow("labelFormat") << QVariant::fromValue(ZrQtAxis::Exponential) << Setup(nothing) << true << 1;
    QTest::newRow("precision") << QVariant(3) << Setup(withFloatingPoint) << true << 1;
    QTest::newRow("allowIncreasedPrecision") << QVariant(false) << Setup([](ZrQtAxis &axis) {
        withFloatingPoint(axis);
        axis.setPrecision(0);
        axis.setMinMaxEditable(true);
        axis.setMinMax(0.4, 9.6);
    }) << true << -1;
    QTest::newRow("minMaxEditable") << QVariant(true) << Setup(withFloatingPoint) << true << 1;
    QTest::newRow("showBoundLabels") << QVariant(false) << Setup(nothing) << true << -1;
    QTest::newRow("scientificExponent") << QVariant(true) << Setup(withThousands) << true << -1;
    QTest::newRow("equalExponent") << QVariant(true) << Setup(withThousands) << true << 1;
    QTest::newRow("timeFormat") << QVariant(QStringLiteral("%hh")) << Setup(withDay) << true << 1;
    QTest::newRow("verticalXTickTexts") << QVariant(true) << Setup(atBottom) << true << 1;
    QTest::newRow("axisLabel") << QVariant(QStringLiteral("volt")) << Setup(nothing) << true << 1;
    QTest::newRow("axisLabelFont") << QVariant(QFont(QStringLiteral("DejaVu Sans"), 30))
                                   << Setup([](ZrQtAxis &axis) { axis.setAxisLabel(QStringLiteral("volt")); })
                                   << true << 1;
    QTest::newRow("verticalYLabel") << QVariant(true) << Setup([](ZrQtAxis &axis) {
        axis.setAxisLabel(QStringLiteral("volt"));
    }) << true << 1;
    QTest::newRow("labelColor") << QVariant(QColor(Qt::red)) << Setup(nothing) << true << 0;
}

void TestZrQtAxis::setters()
{
    QFETCH(QVariant, value);
    QFETCH(Setup, setup);
    QFETCH(bool, changesPicture);
    QFETCH(int, updateRequests);
    const char *const property = QTest::currentDataTag();
    const QStringList silent{QStringLiteral("cosy"), QStringLiteral("useForGrid"),
                             QStringLiteral("drawAxisLine")};
    const QStringList withoutComparison{QStringLiteral("axisOffset"), QStringLiteral("drawingRangeLimited"),
                                        QStringLiteral("drawMin"), QStringLiteral("drawMax"),
                                        QStringLiteral("minMaxEditable")};

    ShownAxis shown;
    ZrQtAxis &axis = shown.axis;
    setup(axis);
    const QImage before = shown.picture();
    const int extentBefore = axis.width() + axis.height();
    QSignalSpy requests(&axis, &ZrQtAxis::requestUpdate);
    QSignalSpy inversions(&axis, &ZrQtAxis::axisInverted);

    QVERIFY(axis.setProperty(property, value));
    QVERIFY2(axis.property(property) == value, qPrintable(printed(axis.property(property))));
    if (updateRequests < 0)
        updateRequests = axis.width() + axis.height() != extentBefore ? 1 : 0;
    QCOMPARE(requests.count(), updateRequests);
    QCOMPARE(inversions.count(), qstrcmp(property, "inverted") == 0 ? 1 : 0);
    QCOMPARE(shown.settle() > 0, !silent.contains(QLatin1String(property)));
    QCOMPARE(shown.picture() != before, changesPicture);

    requests.clear();
    inversions.clear();
    QVERIFY(axis.setProperty(property, value));
    QVERIFY2(axis.property(property) == value, qPrintable(printed(axis.property(property))));
    QCOMPARE(requests.count(), 0);
    QCOMPARE(inversions.count(), 0);
    QCOMPARE(shown.settle() > 0, withoutComparison.contains(QLatin1String(property)));
}

void TestZrQtAxis::readOnlyMargins()
{
    ZrQtAxis axis;
    QVERIFY(!axis.setProperty("minMarginLow", 100));
    QVERIFY(!axis.setProperty("minMarginHigh", 100));
    axis.updateAxis();
    QCOMPARE(axis.property("minMarginLow").toInt(), axis.minMarginLow());
    QCOMPARE(axis.property("minMarginHigh").toInt(), axis.minMarginHigh());
    QVERIFY(axis.minMarginLow() > 0);
}

void TestZrQtAxis::positionIsAnEnumForTheMetaObject()
{
    const QMetaObject &meta = ZrQtAxis::staticMetaObject;
    for (const char *name : {"position", "cosy", "labelFormat"}) {
        const QMetaProperty property = meta.property(meta.indexOfProperty(name));
        QVERIFY2(property.isEnumType(), name);
    }
}

void TestZrQtAxis::formatGroups_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("plainNumber");
    QTest::addColumn<bool>("editable");
    QTest::newRow("FloatingPoint") << 0 << true << true;
    QTest::newRow("Exponential") << 1 << true << false;
    QTest::newRow("Compact") << 2 << true << false;
    QTest::newRow("DateTime") << 3 << false << false;
    QTest::newRow("TimePlusMs") << 4 << false << true;
}

void TestZrQtAxis::formatGroups()
{
    QFETCH(int, number);
    QCOMPARE(QMetaEnum::fromType<ZrQtAxis::LabelFormat>().keyToValue(QTest::currentDataTag()), number);
    ZrQtAxis axis;
    axis.setLabelFormat(ZrQtAxis::LabelFormat(number));
    QTEST(axis.isLabelFormatNonDateTime(), "plainNumber");
    QTEST(axis.isLabelFormatFloatingPointOrTimePlusMs(), "editable");
}

void TestZrQtAxis::axisOffsetIsAddedTwice()
{
    ZrQtAxis axis;
    axis.setAxisOffset(5.0);
    axis.setMinMax(0.0, 10.0);
    QCOMPARE(axis.min(), 5.0);
    QCOMPARE(axis.max(), 15.0);
    axis.setMin(1.0);
    QCOMPARE(axis.min(), 6.0);
    QCOMPARE(axis.max(), 20.0);
    axis.setMax(30.0);
    QCOMPARE(axis.min(), 11.0);
    QCOMPARE(axis.max(), 35.0);
}

void TestZrQtAxis::axisOffsetAloneMovesNothing()
{
    ZrQtAxis axis;
    axis.setMinMax(0.0, 10.0);
    axis.setAxisOffset(5.0);
    QCOMPARE(axis.min(), 0.0);
    QCOMPARE(axis.max(), 10.0);
}

void TestZrQtAxis::repeatedBoundsDoNothing()
{
    ShownAxis shown;
    shown.axis.setAxisOffset(2.0);
    shown.axis.setMinMax(1.0, 4.0);
    shown.settle();
    shown.axis.setMinMax(1.0, 4.0);
    QCOMPARE(shown.settle(), 0);
    QCOMPARE(shown.axis.max(), 6.0);
}

void TestZrQtAxis::drawMinMaxIsKeptWithoutEffect()
{
    ZrQtAxis axis;
    axis.setDrawMax(5.0);
    axis.setDrawMin(-5.0);
    QCOMPARE(axis.drawMin(), -5.0);
    QCOMPARE(axis.drawMax(), 5.0);
    QCOMPARE(axis.drawingRangeLimited(), false);
}

void TestZrQtAxis::invertedSignals_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<ZrQtPlot::PlotAxis>("direction");
    QTest::newRow("left") << Qt::LeftEdge << ZrQtPlot::Axis_Y;
    QTest::newRow("right") << Qt::RightEdge << ZrQtPlot::Axis_Y;
    QTest::newRow("top") << Qt::TopEdge << ZrQtPlot::Axis_X;
    QTest::newRow("bottom") << Qt::BottomEdge << ZrQtPlot::Axis_X;
    QTest::newRow("a combination counts as vertical")
        << Qt::Edge(int(Qt::TopEdge) | int(Qt::LeftEdge)) << ZrQtPlot::Axis_Y;
}

void TestZrQtAxis::invertedSignals()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(ZrQtPlot::PlotAxis, direction);
    ZrQtAxis axis;
    axis.setPosition(edge);
    axis.setCosy(ZrQtPlot::COSY_3);
    QSignalSpy spy(&axis, &ZrQtAxis::axisInverted);
    axis.setInverted(true);
    axis.setInverted(true);
    axis.setInverted(false);
    QCOMPARE(spy.count(), 2);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(spy.at(i).at(0).value<ZrQtPlot::PlotAxis>(), direction);
        QCOMPARE(spy.at(i).at(1).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_3);
        QCOMPARE(spy.at(i).at(2).toBool(), i == 0);
    }
}

void TestZrQtAxis::timePlusMsBringsItsFormat()
{
    ZrQtAxis axis;
    axis.setTimeFormat(QStringLiteral("%yyyy"));
    axis.setLabelFormat(ZrQtAxis::DateTime);
    QCOMPARE(axis.timeFormat(), QStringLiteral("%yyyy"));
    axis.setLabelFormat(ZrQtAxis::TimePlusMs);
    QCOMPARE(axis.timeFormat(), QStringLiteral("%hh:%mm:%ss.%Ms"));
    axis.setLabelFormat(ZrQtAxis::Compact);
    QCOMPARE(axis.timeFormat(), QStringLiteral("%hh:%mm:%ss.%Ms"));
}

void TestZrQtAxis::followsCanvas_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::newRow("left") << Qt::LeftEdge << 20.0 << 24.0;
    QTest::newRow("right") << Qt::RightEdge << 20.0 << 24.0;
    QTest::newRow("top") << Qt::TopEdge << 10.0 << 13.0;
    QTest::newRow("bottom") << Qt::BottomEdge << 10.0 << 13.0;
}

void TestZrQtAxis::followsCanvas()
{
    QFETCH(Qt::Edge, edge);
    ZrQtAxis axis;
    axis.setPosition(edge);
    axis.setCosy(ZrQtPlot::COSY_2);
    axis.onCanvasChanged(QRectF(10.0, 20.0, 3.0, 4.0), ZrQtPlot::COSY_2);
    QTEST(axis.min(), "min");
    QTEST(axis.max(), "max");
}

void TestZrQtAxis::ignoresCanvasOfOtherSystem()
{
    ZrQtAxis axis;
    axis.setCosy(ZrQtPlot::COSY_2);
    axis.onCanvasChanged(QRectF(10.0, 20.0, 3.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(axis.min(), 0.0);
    QCOMPARE(axis.max(), 1.0);
}

void TestZrQtAxis::standsAlone()
{
    ZrQtAxis axis;
    QVERIFY(axis.isStandalone());
    QWidget widget;
    QVERIFY((new ZrQtAxis(&widget))->isStandalone());
    ZrQtPlot plot;
    QVERIFY(!(new ZrQtAxis(&plot))->isStandalone());
    DerivedPlot derived;
    QVERIFY((new ZrQtAxis(&derived))->isStandalone());
}

void TestZrQtAxis::parentSeesAnAxis()
{
    CuriousParent parent;
    auto *axis = new ZrQtAxis(&parent);
    QVERIFY(parent.sawAxis);
    QCOMPARE(axis->parentWidget(), &parent);
}

QTEST_MAIN(TestZrQtAxis)

#include "tst_zrqtaxis.moc"
