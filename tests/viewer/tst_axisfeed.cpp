#include "axisfeed.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <QtWidgets/QWidget>

#include <ZrQtPlotWidgets/zrqtaxis.h>
#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>

#include <cmath>

namespace {

double shown(int year, int month, int day, int hour = 0, int minute = 0)
{
    return WallClock::fromShownTime(
        double(QDateTime(QDate(year, month, day), QTime(hour, minute), Qt::UTC).toMSecsSinceEpoch()));
}

} // namespace

class TestAxisFeed : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void numbersFollowTheCanvas();
    void largeNumbersHaveAUnit();
    void exponentialLabelsKeepTheirExponent();
    void logarithmicAxisShowsTheNumbers();
    void endsAreLabelledWithinOneDecade();
    void aLogarithmicAxisInvertsItsChannels();
    void datesOfDays();
    void manyYearsAreNumbers();
    void datesBefore1970AreNumbers();
    void backToDatesWhenZoomedIn();
    void ownTimeFormat();
    void timesOfDayNameNoDate();
    void otherSystemsAreIgnored();
    void subTicksOnlyOnRequest();
    void aResizedAxisChoosesDecimalsAnew();

private:
    AxisFeed *feed(AxisScale scale, Qt::Edge edge = Qt::LeftEdge);
    void show(double low, double high, ZrQtPlot::CoordinateSystem cosy = ZrQtPlot::COSY_2);

    QScopedPointer<ZrQtPlot> m_plot;
    ZrQtAxis *m_axis = nullptr;
    ZrQtBufferedChannel *m_channel = nullptr;
};

void TestAxisFeed::initTestCase()
{
    WallClock::enterZone();
}

/// A new plot with one axis, which is fed.
AxisFeed *TestAxisFeed::feed(AxisScale scale, Qt::Edge edge)
{
    m_plot.reset(new ZrQtPlot);
    m_plot->resize(800, 500);
    m_axis = new ZrQtAxis(m_plot.data());
    m_axis->setCosy(ZrQtPlot::COSY_2);
    m_axis->setPosition(edge);
    m_channel = new ZrQtBufferedChannel(m_plot.data());
    m_channel->setCosyX(ZrQtPlot::COSY_2);
    m_channel->setCosyY(ZrQtPlot::COSY_2);
    auto *result = new AxisFeed(m_plot.data(), m_axis, scale, QStringLiteral("name"));
    m_plot->show();
    return result;
}

/// Shows the range in x and y.
void TestAxisFeed::show(double low, double high, ZrQtPlot::CoordinateSystem cosy)
{
    Q_EMIT m_plot->canvasChanged(QRectF(QPointF(low, low), QPointF(high, high)), cosy);
}

void TestAxisFeed::numbersFollowTheCanvas()
{
    feed(AxisScale::Numbers);
    show(2.0, 12.0);
    QCOMPARE(m_axis->min(), 2.0);
    QCOMPARE(m_axis->max(), 12.0);
    QCOMPARE(m_axis->precision(), 0);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name"));
    QVERIFY(m_axis->tickPositions().size() >= 3);
    show(2.0, 2.09);
    QCOMPARE(m_axis->precision(), 2);
    QVERIFY(m_axis->tickPositions().size() >= 3);
}

void TestAxisFeed::largeNumbersHaveAUnit()
{
    feed(AxisScale::Numbers);
    show(0.0, 5e9);
    QCOMPARE(m_axis->unitFactor(), 1e-9);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name (\u00D710\u2079)"));
    QCOMPARE(m_axis->max(), 5e9);
    show(0.0, 5e-12);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name (\u00D710\u207B\u00B9\u00B2)"));
    show(0.0, 5.0);
    QCOMPARE(m_axis->unitFactor(), 1.0);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name"));
}

void TestAxisFeed::exponentialLabelsKeepTheirExponent()
{
    feed(AxisScale::Numbers)->setNumberFormat(NumberFormat::Exponential);
    show(1.0e9, 1.02e9);
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::Exponential);
    QCOMPARE(m_axis->unitFactor(), 1.0);
    QCOMPARE(m_axis->precision(), 2);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name"));
}

void TestAxisFeed::logarithmicAxisShowsTheNumbers()
{
    feed(AxisScale::Logarithms);
    show(-1.0, 3.0);
    QVERIFY(m_axis->logarithmic());
    QCOMPARE(m_axis->min(), 0.1);
    QCOMPARE(m_axis->max(), 1000.0);
    QVERIFY(!m_axis->showBoundLabels());
    // A decade has the same height on the axis as in the channel.
    show(-0.5, 2.5);
    const QVector<double> ticks = m_axis->tickPositions();
    QCOMPARE(ticks.size(), 3);
    const double decade = (m_axis->height() - m_axis->marginLow() - m_axis->marginHigh() - 1.0) / 3.0;
    QVERIFY(qAbs(ticks[0] - ticks[1] - decade) < 1.0);
    QVERIFY(qAbs(ticks[1] - ticks[2] - decade) < 1.0);
}

void TestAxisFeed::endsAreLabelledWithinOneDecade()
{
    feed(AxisScale::Logarithms);
    show(0.1, 0.9);
    QVERIFY(m_axis->showBoundLabels());
    QCOMPARE(m_axis->tickPositions().size(), 2);
}

void TestAxisFeed::aLogarithmicAxisInvertsItsChannels()
{
    feed(AxisScale::Logarithms);
    show(0.0, 2.0);
    const int before = m_channel->mapToPixel(QPointF(0.0, 2.0)).y();
    m_axis->setInverted(true);
    const int after = m_channel->mapToPixel(QPointF(0.0, 2.0)).y();
    QCOMPARE(before, 0);
    QCOMPARE(after, m_channel->height());
}

void TestAxisFeed::datesOfDays()
{
    feed(AxisScale::Dates, Qt::BottomEdge);
    const double morning = shown(2026, 11, 21, 9);
    const double noon = shown(2026, 11, 21, 12);
    show(morning, noon);
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::DateTime);
    QCOMPARE(m_axis->min(), morning);
    QCOMPARE(m_axis->max(), noon);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name (21 Nov 2026)"));
    QVERIFY(m_axis->tickPositions().size() >= 2);
    show(shown(2026, 11, 21), shown(2026, 12, 4));
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name (21 Nov 2026 \u2013 3 Dec 2026)"));
    show(shown(2025, 11, 21), shown(2026, 12, 4));
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name"));
}

void TestAxisFeed::manyYearsAreNumbers()
{
    feed(AxisScale::Dates, Qt::BottomEdge);
    show(shown(2000, 1, 1), shown(2010, 1, 1));
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::FloatingPoint);
    QCOMPARE(m_axis->min(), 2000.0);
    QCOMPARE(m_axis->max(), 2010.0);
    QCOMPARE(m_axis->precision(), 0);
    QCOMPARE(m_axis->unitFactor(), 1.0);
}

void TestAxisFeed::datesBefore1970AreNumbers()
{
    feed(AxisScale::Dates, Qt::BottomEdge);
    show(shown(1958, 1, 1), shown(1958, 7, 2, 12));
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::FloatingPoint);
    QCOMPARE(m_axis->min(), 1958.0);
    QCOMPARE(m_axis->max(), 1958.5);
    QVERIFY(m_axis->precision() > 0);
}

void TestAxisFeed::backToDatesWhenZoomedIn()
{
    feed(AxisScale::Dates, Qt::BottomEdge);
    show(shown(2000, 1, 1), shown(2010, 1, 1));
    show(shown(2008, 9, 1), shown(2008, 9, 21));
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::DateTime);
    QCOMPARE(m_axis->min(), shown(2008, 9, 1));
    QVERIFY(m_axis->tickPositions().size() >= 2);
}

void TestAxisFeed::ownTimeFormat()
{
    AxisFeed *own = feed(AxisScale::Dates, Qt::BottomEdge);
    own->setTimeFormat(QStringLiteral("%yyyy"));
    QCOMPARE(m_axis->timeFormat(), QStringLiteral("%yyyy"));
    show(shown(2000, 1, 1), shown(2010, 1, 1));
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::DateTime);
    show(shown(2000, 1, 1), shown(2000, 1, 2));
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name"));
    own->setTimeFormat(QString());
    QVERIFY(m_axis->timeFormat().contains(QStringLiteral("\t%hh:%mm\r\n")));
}

void TestAxisFeed::timesOfDayNameNoDate()
{
    feed(AxisScale::TimesOfDay, Qt::BottomEdge);
    show(shown(2000, 1, 1, 9), shown(2000, 1, 1, 12));
    QCOMPARE(m_axis->labelFormat(), ZrQtAxis::DateTime);
    QCOMPARE(m_axis->axisLabel(), QStringLiteral("name"));
    QVERIFY(!m_axis->timeFormat().contains(QStringLiteral("%d")));
}

void TestAxisFeed::otherSystemsAreIgnored()
{
    feed(AxisScale::Numbers);
    show(2.0, 12.0);
    show(3.0, 4.0, ZrQtPlot::COSY_1);
    QCOMPARE(m_axis->min(), 2.0);
    QCOMPARE(m_axis->max(), 12.0);
}

void TestAxisFeed::subTicksOnlyOnRequest()
{
    AxisFeed *one = feed(AxisScale::Numbers);
    show(0.5, 10.5);
    QVERIFY(m_axis->subTickPositions().isEmpty());
    one->setSubTicks(true);
    QVERIFY(!m_axis->subTickPositions().isEmpty());
}

void TestAxisFeed::aResizedAxisChoosesDecimalsAnew()
{
    feed(AxisScale::Numbers);
    show(0.0, 1.1);
    QCOMPARE(m_axis->precision(), 1);
    m_plot->resize(800, 100);
    QTRY_COMPARE(m_axis->precision(), 0);
}

QTEST_MAIN(TestAxisFeed)
#include "tst_axisfeed.moc"
