#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "shared/quiettest.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QImage>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QApplication>

#include <cmath>
#include <functional>
#include <limits>

using Setup = std::function<void(ZrQtAxis &)>;
Q_DECLARE_METATYPE(Setup)

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Counts its repaints.
class CountingAxis : public ZrQtAxis
{
    Q_OBJECT

public:
    using ZrQtAxis::ZrQtAxis;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        ZrQtAxis::paintEvent(event);
    }
};

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

/// A window on which an axis of a given size stands, all pending paint events done.
struct ShownAxis
{
    ShownAxis()
    {
        window.resize(600, 500);
        axis.setParent(&window);
        axis.resize(100, 400);
        window.show();
        settle();
    }

    int settle()
    {
        QCoreApplication::processEvents();
        return std::exchange(axis.paints, 0);
    }

    QImage picture()
    {
        QImage image(axis.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        axis.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        settle();
        return image;
    }

    QWidget window;
    CountingAxis axis;
};

/// A shown axis that has not yet seen how much of its length the low margin takes.
struct MarginAxis : ShownAxis
{
    MarginAxis() { setUp(axis); }

    void setUp(ZrQtAxis &target)
    {
        target.setLabelFormat(ZrQtAxis::FloatingPoint);
        target.setPrecision(0);
        target.setShowBoundLabels(false);
        target.setMinMax(0.0, 1000.0);
        target.resize(target.width(), 400);
        target.show();
        target.setMarginLow(220);
    }
};

QString printed(const QVariant &value)
{
    return QString::fromLatin1(value.typeName()) + QLatin1Char(' ') + value.toString();
}

void nothing(ZrQtAxis &)
{
}

void withFloatingPoint(ZrQtAxis &axis)
{
    axis.setLabelFormat(ZrQtAxis::FloatingPoint);
}

void withThousands(ZrQtAxis &axis)
{
    axis.setLabelFormat(ZrQtAxis::Exponential);
    axis.setMinMax(1500.0, 17000.0);
}

void withDay(ZrQtAxis &axis)
{
    axis.setLabelFormat(ZrQtAxis::DateTime);
    axis.setMinMax(1.6e12, 1.6e12 + 3600e3);
}

void atBottom(ZrQtAxis &axis)
{
    axis.setPosition(Qt::BottomEdge);
    axis.resize(400, axis.height());
}

} // namespace

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
    void drawMinBelowMinTicksFromMin();
    void drawingRangeIsTickedAlone();
    void drawMinMaxIsKeptWithoutEffect();

    void marginsAreRaisedToTheLeast_data();
    void marginsAreRaisedToTheLeast();
    void leastMargins_data();
    void leastMargins();
    void marginsAloneDoNotChangeTheNumberOfTicks();

    void invertedSignals_data();
    void invertedSignals();
    void invertedTicksRunBackwards();
    void tickPixels_data();
    void tickPixels();
    void subTicksAtTheEndsNeedIncreasedPrecision();
    void timeBelowTheEpochIsTickedFromTheEpoch();
    void unitFactorScalesNumbersOnly();
    void timePlusMsBringsItsFormat();

    void positionAlwaysAsksForUpdate();
    void combinedEdgesSetThePolicyOnly();
    void changedEdgeFreesTheOtherDirection();
    void limitsAlongTheAxisSurvive();

    void followsCanvas_data();
    void followsCanvas();
    void ignoresCanvasOfOtherSystem();
    void standsAlone();
    void parentSeesAnAxis();

    void showAsksForUpdate();
    void updateAxisDoesNotAskForUpdate();
    void widerLabelsAskForUpdate();
    void resizingItselfAsksForUpdateOnce();
    void deletionWhileResizingItself();
    void biggerFontAsksForUpdate();
    void resizedAxisGetsMoreTicks();

    void showsNothingForAbsurdRanges_data();
    void showsNothingForAbsurdRanges();
    void survivesAbsurdSizes_data();
    void survivesAbsurdSizes();
    void survivesDeletionInItsOwnSignal();
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

void TestZrQtAxis::drawMinBelowMinTicksFromMin()
{
    ShownAxis shown;
    atBottom(shown.axis);
    shown.axis.setDrawingRangeLimited(true);
    shown.axis.setDrawMin(-100.0);
    QCOMPARE(shown.axis.drawMin(), -100.0);
    QCOMPARE(int(shown.axis.tickPositions().constFirst()), shown.axis.marginLow());
    QCOMPARE(int(shown.axis.tickPositions().constLast()), shown.axis.width() - shown.axis.marginHigh());
}

void TestZrQtAxis::drawingRangeIsTickedAlone()
{
    ShownAxis shown;
    atBottom(shown.axis);
    shown.axis.setMinMax(0.0, 10.0);
    const QVector<double> all = shown.axis.tickPositions();
    shown.axis.setDrawMinMax(2.0, 8.0);
    QCOMPARE(shown.axis.tickPositions(), all);
    shown.axis.setDrawingRangeLimited(true);
    const double length = shown.axis.width() - shown.axis.marginLow() - shown.axis.marginHigh() - 1;
    QCOMPARE(shown.axis.tickPositions().constFirst(), std::trunc(shown.axis.marginLow() + 0.2 * length));
    QCOMPARE(shown.axis.tickPositions().constLast(),
             std::trunc(shown.axis.width() - shown.axis.marginHigh() - 0.2 * length));
    shown.axis.setDrawingRangeLimited(false);
    QCOMPARE(shown.axis.tickPositions(), all);
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

void TestZrQtAxis::marginsAreRaisedToTheLeast_data()
{
    QTest::addColumn<QByteArray>("margin");
    QTest::addColumn<QByteArray>("least");
    QTest::newRow("low") << QByteArray("marginLow") << QByteArray("minMarginLow");
    QTest::newRow("high") << QByteArray("marginHigh") << QByteArray("minMarginHigh");
}

void TestZrQtAxis::marginsAreRaisedToTheLeast()
{
    QFETCH(QByteArray, margin);
    QFETCH(QByteArray, least);
    ShownAxis shown;
    const int raised = shown.axis.property(least).toInt();
    QVERIFY(raised > 0);
    shown.axis.setProperty(margin, 0);
    QCOMPARE(shown.axis.property(margin).toInt(), raised);
    QVERIFY(shown.settle() > 0);

    shown.axis.setProperty(margin, 0);
    QCOMPARE(shown.axis.property(margin).toInt(), raised);
    QVERIFY2(shown.settle() > 0, "0 differs from the stored margin and must lay the axis out again");

    shown.axis.setProperty(margin, raised);
    QCOMPARE(shown.settle(), 0);
}

void TestZrQtAxis::leastMargins_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

void TestZrQtAxis::leastMargins()
{
    QFETCH(Qt::Edge, edge);
    const bool vertical = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    ShownAxis shown;
    shown.axis.setLabelFormat(ZrQtAxis::FloatingPoint);
    shown.axis.setPosition(edge);
    shown.axis.resize(vertical ? QSize(shown.axis.width(), 370) : QSize(370, shown.axis.height()));
    const QFontMetrics metrics(shown.axis.font());
    const int extent = vertical ? metrics.height() : metrics.horizontalAdvance(QStringLiteral("0.0"));
    QCOMPARE(shown.axis.minMarginLow(), extent / 2 + 3 + 1);
    QCOMPARE(shown.axis.minMarginHigh(), extent / 2 + 3 + 1);
}

void TestZrQtAxis::marginsAloneDoNotChangeTheNumberOfTicks()
{
    ShownAxis shown;
    const int ticks = shown.axis.tickPositions().size();
    QVERIFY(ticks > 3);
    shown.axis.setMarginLow(300);
    QCOMPARE(shown.axis.tickPositions().size(), ticks);
    shown.axis.resize(shown.axis.width(), 401);
    QVERIFY(shown.axis.tickPositions().size() < ticks);
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

void TestZrQtAxis::invertedTicksRunBackwards()
{
    ShownAxis shown;
    atBottom(shown.axis);
    const QVector<double> forwards = shown.axis.tickPositions();
    shown.axis.setInverted(true);
    const QVector<double> backwards = shown.axis.tickPositions();
    QCOMPARE(backwards.size(), forwards.size());
    QCOMPARE(backwards.constFirst(), forwards.constLast());
    QCOMPARE(backwards.constLast(), forwards.constFirst());
}

void TestZrQtAxis::tickPixels_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("last");
    // 441 pixels, margins of 25 (low) and 15 (high): 401 pixels from the first to the last tick.
    QTest::newRow("bottom") << Qt::BottomEdge << false << 25.0 << 105.2 << 426.0;
    QTest::newRow("top, inverted") << Qt::TopEdge << true << 426.0 << 345.8 << 25.0;
    QTest::newRow("left") << Qt::LeftEdge << false << 416.0 << 335.8 << 15.0;
    QTest::newRow("right, inverted") << Qt::RightEdge << true << 15.0 << 95.2 << 416.0;
}

void TestZrQtAxis::tickPixels()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(bool, inverted);
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(double, last);
    QFont tiny;
    tiny.setPixelSize(8);
    ShownAxis shown;
    shown.axis.setFont(tiny);
    shown.axis.setPosition(edge);
    shown.axis.setInverted(inverted);
    shown.axis.setMarginLow(25);
    shown.axis.setMarginHigh(15);
    const bool vertical = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    shown.axis.resize(vertical ? QSize(shown.axis.width(), 441) : QSize(441, shown.axis.height()));
    QCOMPARE(shown.axis.marginHigh(), 15);
    const QVector<double> ticks = shown.axis.tickPositions();
    QCOMPARE(ticks.size(), 6);
    QCOMPARE(ticks.at(0), first);
    QCOMPARE(ticks.at(1), second);
    QCOMPARE(ticks.at(5), last);
}

void TestZrQtAxis::subTicksAtTheEndsNeedIncreasedPrecision()
{
    ShownAxis shown;
    atBottom(shown.axis);
    shown.axis.setMinMax(0.03, 0.97);
    const double low = shown.axis.tickPositions().constFirst();
    const double high = shown.axis.tickPositions().constLast();
    shown.axis.setAllowIncreasedPrecision(false);
    const QVector<double> subTicks = shown.axis.subTickPositions();
    QVERIFY(!subTicks.isEmpty());
    for (const double subTick : subTicks)
        QVERIFY(subTick > low && subTick < high);
}

void TestZrQtAxis::timeBelowTheEpochIsTickedFromTheEpoch()
{
    ShownAxis shown;
    shown.axis.setLabelFormat(ZrQtAxis::DateTime);
    shown.axis.setMinMax(-5000.0, 60000.0);
    QVERIFY(!shown.axis.tickPositions().isEmpty());
    const QVector<double> fromBelow = shown.axis.tickPositions();
    shown.axis.setMinMax(0.0, 60000.0);
    QCOMPARE(shown.axis.tickPositions(), fromBelow);
}

void TestZrQtAxis::unitFactorScalesNumbersOnly()
{
    ShownAxis shown;
    withFloatingPoint(shown.axis);
    const int narrow = shown.axis.width();
    shown.axis.setUnitFactor(1000.0);
    const QFontMetrics metrics(shown.axis.font());
    QCOMPARE(shown.axis.width() - narrow, metrics.horizontalAdvance(QStringLiteral("1000.0"))
                                              - metrics.horizontalAdvance(QStringLiteral("0.0")));

    shown.axis.setUnitFactor(1.0);
    withDay(shown.axis);
    const QVector<double> ticks = shown.axis.tickPositions();
    QVERIFY(!ticks.isEmpty());
    shown.axis.setUnitFactor(1000.0);
    QCOMPARE(shown.axis.tickPositions(), ticks);
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

void TestZrQtAxis::positionAlwaysAsksForUpdate()
{
    ZrQtAxis axis;
    axis.updateAxis();
    QSignalSpy spy(&axis, &ZrQtAxis::requestUpdate);
    axis.setPosition(Qt::RightEdge);
    QCOMPARE(spy.count(), 1);
    axis.setPosition(Qt::RightEdge);
    QCOMPARE(spy.count(), 1);
    axis.setPosition(Qt::Edge(int(Qt::RightEdge) | int(Qt::BottomEdge)));
    QCOMPARE(spy.count(), 2);
}

void TestZrQtAxis::combinedEdgesSetThePolicyOnly()
{
    ZrQtAxis axis;
    const QSizePolicy policy = axis.sizePolicy();
    for (Qt::Edge edge : {Qt::TopEdge, Qt::RightEdge, Qt::BottomEdge, Qt::LeftEdge}) {
        axis.setPosition(edge);
        QCOMPARE(axis.sizePolicy(), policy);
    }
    axis.setPosition(Qt::Edge(int(Qt::TopEdge) | int(Qt::BottomEdge)));
    QCOMPARE(axis.sizePolicy(), policy);
    const QSize size = axis.size();
    axis.setPosition(Qt::Edge(int(Qt::TopEdge) | int(Qt::LeftEdge)));
    QCOMPARE(axis.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(axis.sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(axis.size(), size);
}

void TestZrQtAxis::changedEdgeFreesTheOtherDirection()
{
    ZrQtAxis axis;
    axis.updateAxis();
    QCOMPARE(axis.minimumWidth(), axis.maximumWidth());
    QCOMPARE(axis.minimumHeight(), 0);
    QCOMPARE(axis.maximumHeight(), QWIDGETSIZE_MAX);
    QCOMPARE(axis.minimumSizeHint(), QSize(axis.width(), -1));
    for (Qt::Edge edge : {Qt::BottomEdge, Qt::TopEdge}) {
        // Also if the height happens to be right already.
        axis.resize(axis.width(), edge == Qt::BottomEdge ? axis.fontMetrics().height() + 17 : 50);
        axis.setPosition(edge);
        QCOMPARE(axis.minimumHeight(), axis.height());
        QCOMPARE(axis.maximumHeight(), axis.height());
        QCOMPARE(axis.minimumWidth(), 0);
        QCOMPARE(axis.maximumWidth(), QWIDGETSIZE_MAX);
        QCOMPARE(axis.minimumSizeHint(), QSize(-1, axis.height()));
    }
}

void TestZrQtAxis::limitsAlongTheAxisSurvive()
{
    ZrQtAxis axis;
    axis.updateAxis();
    axis.setMinimumHeight(200);
    axis.setMinMax(0.0, 2.0);
    axis.updateAxis();
    QCOMPARE(axis.minimumHeight(), 200);
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

void TestZrQtAxis::showAsksForUpdate()
{
    ZrQtAxis axis;
    axis.resize(50, 300);
    axis.updateAxis();
    QSignalSpy spy(&axis, &ZrQtAxis::requestUpdate);
    axis.show();
    QCOMPARE(spy.count(), 1);
    axis.hide();
    QCOMPARE(spy.count(), 1);
    QShowEvent fromWindowSystem;
    QSpontaneKeyEvent::setSpontaneous(&fromWindowSystem);
    qApp->notify(&axis, &fromWindowSystem);
    QCOMPARE(spy.count(), 1);
}

void TestZrQtAxis::updateAxisDoesNotAskForUpdate()
{
    ZrQtAxis axis;
    QSignalSpy spy(&axis, &ZrQtAxis::requestUpdate);
    const int width = axis.width();
    axis.updateAxis();
    QVERIFY(axis.width() != width);
    QCOMPARE(spy.count(), 0);
}

void TestZrQtAxis::widerLabelsAskForUpdate()
{
    ShownAxis shown;
    QSignalSpy spy(&shown.axis, &ZrQtAxis::requestUpdate);
    const int width = shown.axis.width();
    shown.axis.setMinMax(0.0, 90000.0);
    QVERIFY(shown.axis.width() > width);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(shown.axis.minimumSizeHint().width(), shown.axis.width());
    shown.axis.setMinMax(10000.0, 80000.0);
    QCOMPARE(spy.count(), 1);
}

// The ticks follow a margin with the next resize event. Here that is the one by which the wide label "-50"
// makes the axis wider: half as long, it has only room for "0".
void TestZrQtAxis::resizingItselfAsksForUpdateOnce()
{
    MarginAxis shown;
    QSignalSpy spy(&shown.axis, &ZrQtAxis::requestUpdate);
    QVector<double> ticksAtSignal;
    int widthAtSignal = 0;
    connect(&shown.axis, &ZrQtAxis::requestUpdate, this, [&] {
        ticksAtSignal = shown.axis.tickPositions();
        widthAtSignal = shown.axis.width();
    });
    shown.axis.setMinMax(-90.0, 90.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(ticksAtSignal.size(), 1);
    QCOMPARE(ticksAtSignal, shown.axis.tickPositions());
    QCOMPARE(widthAtSignal, shown.axis.width());
    QCOMPARE(shown.axis.minimumSizeHint().width(), shown.axis.width());
    // Nothing is left to do.
    shown.axis.updateAxis();
    QCOMPARE(shown.axis.tickPositions(), ticksAtSignal);
    QCOMPARE(shown.axis.width(), widthAtSignal);
}

void TestZrQtAxis::deletionWhileResizingItself()
{
    MarginAxis shown;
    auto *axis = new ZrQtAxis(&shown.window);
    shown.setUp(*axis);
    const QPointer<ZrQtAxis> guard(axis);
    connect(axis, &ZrQtAxis::requestUpdate, axis, [axis] { delete axis; });
    axis->setMinMax(-90.0, 90.0);
    QVERIFY(!guard);
}

void TestZrQtAxis::biggerFontAsksForUpdate()
{
    ShownAxis shown;
    QSignalSpy spy(&shown.axis, &ZrQtAxis::requestUpdate);
    const int width = shown.axis.width();
    QFont font = shown.axis.font();
    font.setPointSize(30);
    shown.axis.setFont(font);
    QVERIFY(shown.axis.width() > width);
    QCOMPARE(spy.count(), 1);
}

void TestZrQtAxis::resizedAxisGetsMoreTicks()
{
    ShownAxis shown;
    const int ticks = shown.axis.tickPositions().size();
    shown.axis.resize(shown.axis.width(), 120);
    QVERIFY(shown.axis.tickPositions().size() < ticks);
    shown.axis.resize(shown.axis.width(), 400);
    QCOMPARE(shown.axis.tickPositions().size(), ticks);
}

void TestZrQtAxis::showsNothingForAbsurdRanges_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<bool>("logarithmic");
    QTest::newRow("NaN") << notANumber << notANumber << false;
    QTest::newRow("NaN below") << notANumber << 1.0 << false;
    QTest::newRow("NaN above") << 0.0 << notANumber << false;
    QTest::newRow("infinite") << -infinity << infinity << false;
    QTest::newRow("empty") << 3.0 << 3.0 << false;
    QTest::newRow("reversed") << 3.0 << 2.0 << false;
    QTest::newRow("logarithmic from 0") << 0.0 << 10.0 << true;
}

void TestZrQtAxis::showsNothingForAbsurdRanges()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(bool, logarithmic);
    for (Qt::Edge edge : {Qt::TopEdge, Qt::LeftEdge}) {
        ShownAxis shown;
        shown.axis.setLogarithmic(logarithmic);
        shown.axis.setPosition(edge);
        shown.axis.setMinMax(min, max);
        QVERIFY(shown.axis.tickPositions().isEmpty());
        QVERIFY(shown.axis.subTickPositions().isEmpty());
        shown.picture();
        shown.axis.setDrawMinMax(max, min);
        shown.axis.setDrawingRangeLimited(true);
        shown.axis.setInverted(true);
        shown.picture();
        QVERIFY(shown.axis.tickPositions().isEmpty());
    }
}

void TestZrQtAxis::survivesAbsurdSizes_data()
{
    QTest::addColumn<Setup>("setup");
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    for (const int size : {most, least}) {
        const QByteArray which = size == most ? "largest " : "smallest ";
        QTest::newRow(which + "marginLow") << Setup([size](ZrQtAxis &axis) { axis.setMarginLow(size); });
        QTest::newRow(which + "marginHigh") << Setup([size](ZrQtAxis &axis) { axis.setMarginHigh(size); });
        QTest::newRow(which + "both margins") << Setup([size](ZrQtAxis &axis) {
            axis.setMarginLow(size);
            axis.setMarginHigh(size);
        });
        QTest::newRow(which + "tickSize") << Setup([size](ZrQtAxis &axis) { axis.setTickSize(size); });
        QTest::newRow(which + "subTickSize") << Setup([size](ZrQtAxis &axis) { axis.setSubTickSize(size); });
        QTest::newRow(which + "precision") << Setup([size](ZrQtAxis &axis) { axis.setPrecision(size); });
        QTest::newRow(which + "maxTicks") << Setup([size](ZrQtAxis &axis) { axis.setMaxTicks(size); });
        QTest::newRow(which + "maxSubTicks") << Setup([size](ZrQtAxis &axis) { axis.setMaxSubTicks(size); });
    }
    for (const double value : {notANumber, infinity, -infinity, 1e308, -1e308, 0.0}) {
        const QByteArray which = QByteArray::number(value) + ' ';
        QTest::newRow(which + "unitFactor") << Setup([value](ZrQtAxis &axis) { axis.setUnitFactor(value); });
        QTest::newRow(which + "axisOffset") << Setup([value](ZrQtAxis &axis) {
            axis.setAxisOffset(value);
            axis.setMinMax(0.0, 1e308);
        });
        QTest::newRow(which + "tickDistance")
            << Setup([value](ZrQtAxis &axis) { axis.setTickDistance(value); });
        QTest::newRow(which + "subTickDistance")
            << Setup([value](ZrQtAxis &axis) { axis.setSubTickDistance(value); });
        QTest::newRow(which + "drawing range") << Setup([value](ZrQtAxis &axis) {
            axis.setDrawingRangeLimited(true);
            axis.setDrawMinMax(value, value);
        });
        QTest::newRow(which + "canvas") << Setup([value](ZrQtAxis &axis) {
            axis.onCanvasChanged(QRectF(value, value, value, value), ZrQtPlot::COSY_0);
        });
    }
    QTest::newRow("whole range of double") << Setup([](ZrQtAxis &axis) { axis.setMinMax(-1e308, 1e308); });
    QTest::newRow("denormal range") << Setup([](ZrQtAxis &axis) { axis.setMinMax(0.0, 5e-324); });
    QTest::newRow("range finer than double")
        << Setup([](ZrQtAxis &axis) { axis.setMinMax(1e9, std::nextafter(1e9, 2e9)); });
    QTest::newRow("times beyond all calendars") << Setup([](ZrQtAxis &axis) {
        axis.setLabelFormat(ZrQtAxis::TimePlusMs);
        axis.setMinMax(1e300, 1e305);
    });
    QTest::newRow("edge without a name") << Setup([](ZrQtAxis &axis) { axis.setPosition(Qt::Edge(0)); });
    QTest::newRow("format without a name")
        << Setup([](ZrQtAxis &axis) { axis.setLabelFormat(ZrQtAxis::LabelFormat(7)); });
    QTest::newRow("long label") << Setup(
        [](ZrQtAxis &axis) { axis.setAxisLabel(QString(100000, QLatin1Char('W'))); });
}

void TestZrQtAxis::survivesAbsurdSizes()
{
    QFETCH(Setup, setup);
    for (Qt::Edge edge : {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge}) {
        for (const QSize size : {QSize(0, 0), QSize(300, 300)}) {
            // Not shown: an axis of the largest size would get a picture of that size.
            ZrQtAxis axis;
            axis.setPosition(edge);
            axis.resize(size);
            setup(axis);
            axis.setInverted(true);
            axis.updateAxis();
            QImage image(300, 300, QImage::Format_RGB32);
            axis.render(&image, QPoint(), QRect(0, 0, 300, 300), QWidget::RenderFlags());
            for (const double tick : axis.tickPositions())
                QVERIFY(std::isfinite(tick));
        }
    }
}

void TestZrQtAxis::survivesDeletionInItsOwnSignal()
{
    for (const Setup &change : {Setup([](ZrQtAxis &axis) { axis.setPosition(Qt::TopEdge); }),
                                Setup([](ZrQtAxis &axis) { axis.setTickSize(30); }),
                                Setup([](ZrQtAxis &axis) { axis.setMinMax(0.0, 90000.0); }),
                                Setup([](ZrQtAxis &axis) { axis.setInverted(true); }),
                                Setup([](ZrQtAxis &axis) { axis.setLabelFormat(ZrQtAxis::TimePlusMs); })}) {
        auto *axis = new ZrQtAxis;
        QPointer<ZrQtAxis> guard(axis);
        connect(axis, &ZrQtAxis::requestUpdate, axis, [axis] { delete axis; });
        change(*axis);
        QVERIFY(!guard);
    }
}

QTEST_MAIN(TestZrQtAxis)

#include "tst_zrqtaxis.moc"
