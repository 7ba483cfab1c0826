#include "shared/quiettest.h"
#include "shared/shownaxis.h"

#include <QtCore/QPointer>
#include <QtGui/QFontMetrics>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QApplication>

#include <cmath>

namespace {

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

} // namespace

/// From the range over the ticks and the margins to the size of an axis, and when it asks for an update.
class TestZrQtAxisUpdate : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void drawMinBelowMinTicksFromMin();
    void drawingRangeIsTickedAlone();

    void marginsAreRaisedToTheLeast_data();
    void marginsAreRaisedToTheLeast();
    void leastMargins_data();
    void leastMargins();
    void marginsAloneDoNotChangeTheNumberOfTicks();

    void invertedTicksRunBackwards();
    void tickPixels_data();
    void tickPixels();
    void subTicksAtTheEndsNeedIncreasedPrecision();
    void timeBelowTheEpochIsTickedFromTheEpoch();
    void unitFactorScalesNumbersOnly();

    void positionAlwaysAsksForUpdate();
    void combinedEdgesSetThePolicyOnly();
    void changedEdgeFreesTheOtherDirection();
    void limitsAlongTheAxisSurvive();

    void showAsksForUpdate();
    void updateAxisDoesNotAskForUpdate();
    void widerLabelsAskForUpdate();
    void resizingItselfAsksForUpdateOnce();
    void deletionWhileResizingItself();
    void biggerFontAsksForUpdate();
    void resizedAxisGetsMoreTicks();
};

void TestZrQtAxisUpdate::drawMinBelowMinTicksFromMin()
{
    ShownAxis shown;
    atBottom(shown.axis);
    shown.axis.setDrawingRangeLimited(true);
    shown.axis.setDrawMin(-100.0);
    QCOMPARE(shown.axis.drawMin(), -100.0);
    QCOMPARE(int(shown.axis.tickPositions().constFirst()), shown.axis.marginLow());
    QCOMPARE(int(shown.axis.tickPositions().constLast()), shown.axis.width() - shown.axis.marginHigh());
}

void TestZrQtAxisUpdate::drawingRangeIsTickedAlone()
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

void TestZrQtAxisUpdate::marginsAreRaisedToTheLeast_data()
{
    QTest::addColumn<QByteArray>("margin");
    QTest::addColumn<QByteArray>("least");
    QTest::newRow("low") << QByteArray("marginLow") << QByteArray("minMarginLow");
    QTest::newRow("high") << QByteArray("marginHigh") << QByteArray("minMarginHigh");
}

void TestZrQtAxisUpdate::marginsAreRaisedToTheLeast()
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

void TestZrQtAxisUpdate::leastMargins_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

void TestZrQtAxisUpdate::leastMargins()
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

void TestZrQtAxisUpdate::marginsAloneDoNotChangeTheNumberOfTicks()
{
    ShownAxis shown;
    const int ticks = shown.axis.tickPositions().size();
    QVERIFY(ticks > 3);
    shown.axis.setMarginLow(300);
    QCOMPARE(shown.axis.tickPositions().size(), ticks);
    shown.axis.resize(shown.axis.width(), 401);
    QVERIFY(shown.axis.tickPositions().size() < ticks);
}

void TestZrQtAxisUpdate::invertedTicksRunBackwards()
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

void TestZrQtAxisUpdate::tickPixels_data()
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

void TestZrQtAxisUpdate::tickPixels()
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

void TestZrQtAxisUpdate::subTicksAtTheEndsNeedIncreasedPrecision()
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

void TestZrQtAxisUpdate::timeBelowTheEpochIsTickedFromTheEpoch()
{
    ShownAxis shown;
    shown.axis.setLabelFormat(ZrQtAxis::DateTime);
    shown.axis.setMinMax(-5000.0, 60000.0);
    QVERIFY(!shown.axis.tickPositions().isEmpty());
    const QVector<double> fromBelow = shown.axis.tickPositions();
    shown.axis.setMinMax(0.0, 60000.0);
    QCOMPARE(shown.axis.tickPositions(), fromBelow);
}

void TestZrQtAxisUpdate::unitFactorScalesNumbersOnly()
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

void TestZrQtAxisUpdate::positionAlwaysAsksForUpdate()
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

void TestZrQtAxisUpdate::combinedEdgesSetThePolicyOnly()
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

void TestZrQtAxisUpdate::changedEdgeFreesTheOtherDirection()
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

void TestZrQtAxisUpdate::limitsAlongTheAxisSurvive()
{
    ZrQtAxis axis;
    axis.updateAxis();
    axis.setMinimumHeight(200);
    axis.setMinMax(0.0, 2.0);
    axis.updateAxis();
    QCOMPARE(axis.minimumHeight(), 200);
}

void TestZrQtAxisUpdate::showAsksForUpdate()
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

void TestZrQtAxisUpdate::updateAxisDoesNotAskForUpdate()
{
    ZrQtAxis axis;
    QSignalSpy spy(&axis, &ZrQtAxis::requestUpdate);
    const int width = axis.width();
    axis.updateAxis();
    QVERIFY(axis.width() != width);
    QCOMPARE(spy.count(), 0);
}

void TestZrQtAxisUpdate::widerLabelsAskForUpdate()
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
void TestZrQtAxisUpdate::resizingItselfAsksForUpdateOnce()
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

void TestZrQtAxisUpdate::deletionWhileResizingItself()
{
    MarginAxis shown;
    auto *axis = new ZrQtAxis(&shown.window);
    shown.setUp(*axis);
    const QPointer<ZrQtAxis> guard(axis);
    connect(axis, &ZrQtAxis::requestUpdate, axis, [axis] { delete axis; });
    axis->setMinMax(-90.0, 90.0);
    QVERIFY(!guard);
}

void TestZrQtAxisUpdate::biggerFontAsksForUpdate()
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

void TestZrQtAxisUpdate::resizedAxisGetsMoreTicks()
{
    ShownAxis shown;
    const int ticks = shown.axis.tickPositions().size();
    shown.axis.resize(shown.axis.width(), 120);
    QVERIFY(shown.axis.tickPositions().size() < ticks);
    shown.axis.resize(shown.axis.width(), 400);
    QCOMPARE(shown.axis.tickPositions().size(), ticks);
}

QTEST_MAIN(TestZrQtAxisUpdate)

#include "tst_zrqtaxis_update.moc"
