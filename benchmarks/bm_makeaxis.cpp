#include <QtTest/QtTest>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtmakeaxis.h"

/// What a new range costs an axis, with all labels: it is computed while the user drags.
class BenchmarkMakeAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setRange_data();
    void setRange();
};

void BenchmarkMakeAxis::setRange_data()
{
    const double day = 86400000.0;
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<int>("format");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");

    QTest::newRow("plain numbers") << false << int(ZrQtAxis::FloatingPoint) << -1.0 << 1.0;
    QTest::newRow("compact numbers") << false << int(ZrQtAxis::Compact) << 0.0 << 1e6;
    QTest::newRow("six decades") << true << int(ZrQtAxis::Exponential) << 1e-3 << 1e3;
    QTest::newRow("an hour") << false << int(ZrQtAxis::DateTime) << 18000 * day << (18000 + 1.0 / 24) * day;
    QTest::newRow("a day") << false << int(ZrQtAxis::DateTime) << 18000 * day << 18001 * day;
}

void BenchmarkMakeAxis::setRange()
{
    QFETCH(bool, logarithmic);
    QFETCH(int, format);
    QFETCH(double, low);
    QFETCH(double, high);

    ZrQtMakeAxis engine;
    engine.setLength(800.0, 80.0, 10.0);
    engine.setParameters(logarithmic, 10, 100, 3, false, format, false, false, false);
    engine.setTimeFormat("%hh:%mm:%ss");
    const double shift = (high - low) / 100;
    int step = 0;
    int labels = 0;
    QBENCHMARK
    {
        step = (step + 1) % 100;
        QVERIFY(engine.setRange(low + step * shift, high + step * shift));
        const QVector<double> ticks = engine.tickPositions();
        for (int i = 0; i < ticks.size(); ++i)
            labels += engine.label(i).isEmpty() ? 0 : 1;
    }
    QVERIFY(labels > 0);
}

QTEST_MAIN(BenchmarkMakeAxis)
#include "bm_makeaxis.moc"
