#include "shared/plotandmodel.h"
#include "shared/quiettest.h"

/// Drives a plot and a model of it with the same random operations. All numbers are multiples of a power of
/// two and all plot sizes are powers of two, so that both compute exactly and are compared exactly.
class tst_ZrQtPlotScalingModel : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void randomOperations_data();
    void randomOperations();
    void delayedRefitAgrees();
};

void tst_ZrQtPlotScalingModel::randomOperations_data()
{
    QTest::addColumn<quint32>("seed");

    for (const quint32 seed : {1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u})
        QTest::addRow("seed %u", seed) << seed;
}

void tst_ZrQtPlotScalingModel::randomOperations()
{
    QFETCH(const quint32, seed);

    // A fresh pair every now and then, so that no state is the fate of a whole run.
    int exact = 0;
    for (quint32 round = 0; round < 6; ++round) {
        PlotAndModel pair(seed * 1000 + round);
        QVERIFY(pair.exposed);
        pair.difference();
        QStringList steps;
        for (int i = 0; i < 300; ++i) {
            const QString before = pair.model.description();
            steps << pair.step();
            if (pair.model.ambiguous)
                break;
            const QString difference = pair.difference();
            const QStringList last = steps.mid(qMax(0, steps.size() - 12));
            QVERIFY2(difference.isEmpty(),
                     qPrintable(QStringLiteral("round %1, step %2: %3\nafter:\n  %4\nbefore:\n%5")
                                    .arg(round)
                                    .arg(i)
                                    .arg(difference, last.join(QStringLiteral("\n  ")), before)));
            ++exact;
        }
    }
    QVERIFY2(exact > 1000, qPrintable(QString::number(exact)));
}

void tst_ZrQtPlotScalingModel::delayedRefitAgrees()
{
    const int interval = 4;
    int fired = 0;
    for (quint32 seed = 100; seed < 104; ++seed) {
        PlotAndModel pair(seed);
        for (int i = 0; i < 3; ++i)
            pair.addChannel();
        pair.plot->setKeepOldBoundingRectWidthTolerance(0.25);
        pair.model.tolerance[0] = 0.25;
        pair.plot->setBoundingRectReduceUpdateInterval(interval);
        pair.model.setInterval(interval);
        pair.difference();
        for (int i = 0; i < 60; ++i) {
            QString step = QStringLiteral("before:\n") + pair.model.description();
            step += pair.stepChannel(9);
            QString difference = pair.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(step + QLatin1String(": ") + difference));
            waitFor(interval * 3);
            if (pair.model.timerRunning) {
                pair.model.fireTimer();
                ++fired;
            }
            pair.orderMatters = false;
            difference = pair.difference();
            pair.orderMatters = true;
            QVERIFY2(difference.isEmpty(), qPrintable(step + QLatin1String(", waited: ") + difference));
        }
    }
    QVERIFY(fired > 20);
}

QTEST_MAIN(tst_ZrQtPlotScalingModel)

#include "tst_zrqtplot_scaling_model.moc"
