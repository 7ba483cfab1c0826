#include "regionstatistics.h"

#include "shared/quiettest.h"

#include <QtCore/QRandomGenerator>

#include <numeric>

namespace {

const double kGap = qQNaN();
constexpr ValueWindow kEverything = {-1e300, 1e300, -1e300, 1e300};

} // namespace

class TestRegionStatistics : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void windows_data();
    void windows();
    void nothingIsNaN();
    void gapsDoNotCount();
    void theMeanOfLargeValuesIsFinite();
    void sortedAndUnsortedAgreeWithASum();
};

void TestRegionStatistics::windows_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("mean");

    QTest::newRow("all") << -1.0 << 10.0 << -100.0 << 100.0 << 4 << 25.0;
    QTest::newRow("the borders belong to it") << 1.0 << 2.0 << 20.0 << 30.0 << 2 << 25.0;
    QTest::newRow("sides") << 1.5 << 10.0 << -100.0 << 100.0 << 2 << 35.0;
    QTest::newRow("height") << -1.0 << 10.0 << 15.0 << 35.0 << 2 << 25.0;
    QTest::newRow("a single sample") << 3.0 << 3.0 << 40.0 << 40.0 << 1 << 40.0;
}

void TestRegionStatistics::windows()
{
    QFETCH(double, left);
    QFETCH(double, right);
    QFETCH(double, low);
    QFETCH(double, high);
    for (const bool sorted : {true, false}) {
        const SampleStatistics result
            = statisticsIn({0, 1, 2, 3}, {10, 20, 30, 40}, sorted, {left, right, low, high});
        QTEST(result.count, "count");
        QTEST(result.mean, "mean");
    }
}

void TestRegionStatistics::nothingIsNaN()
{
    const QVector<ValueWindow> empty
        = {{4, 5, 0, 9}, {1, 2, 5, 9}, {2, 1, 0, 9}, {kGap, 2, 0, 9}, {1, 2, 0, kGap}};
    for (const bool sorted : {true, false}) {
        for (const ValueWindow &window : empty) {
            const SampleStatistics result = statisticsIn({0, 1, 2}, {1, 1, 1}, sorted, window);
            QCOMPARE(result.count, 0);
            QVERIFY(qIsNaN(result.mean) && qIsNaN(result.minimum) && qIsNaN(result.maximum));
        }
        QCOMPARE(statisticsIn({}, {}, sorted, kEverything).count, 0);
    }
}

void TestRegionStatistics::gapsDoNotCount()
{
    const SampleStatistics result = statisticsIn({0, 1, 2, 3}, {kGap, 5, kGap, 7}, true, kEverything);
    QCOMPARE(result.count, 2);
    QCOMPARE(result.mean, 6.0);
    QCOMPARE(result.minimum, 5.0);
    QCOMPARE(result.maximum, 7.0);
    QCOMPARE(statisticsIn({0, kGap, 2}, {1, 2, 3}, false, kEverything).count, 2);
}

void TestRegionStatistics::theMeanOfLargeValuesIsFinite()
{
    const ValueWindow window = {0, 9, -qInf(), qInf()};
    QCOMPARE(statisticsIn({0, 1, 2}, {1.5e308, 1.5e308, -1.5e308}, true, window).mean, 0.5e308);
}

void TestRegionStatistics::sortedAndUnsortedAgreeWithASum()
{
    QRandomGenerator random(7);
    QVector<double> x;
    QVector<double> y;
    for (int i = 0; i < 1000; ++i) {
        x.append(std::floor(i / 3.0));
        y.append(random.bounded(20) == 0 ? kGap : random.bounded(100.0));
    }
    for (int i = 0; i < 100; ++i) {
        const double left = random.bounded(400.0) - 30.0;
        const double low = random.bounded(100.0);
        const ValueWindow window = {left, left + random.bounded(100.0), low, low + random.bounded(50.0)};
        QVector<double> inside;
        for (int sample = 0; sample < x.size(); ++sample) {
            if (x[sample] >= window.left && x[sample] <= window.right && y[sample] >= window.low
                && y[sample] <= window.high)
                inside.append(y[sample]);
        }
        for (const bool sorted : {true, false}) {
            const SampleStatistics result = statisticsIn(x, y, sorted, window);
            QCOMPARE(result.count, inside.size());
            if (inside.isEmpty())
                continue;
            const double sum = std::accumulate(inside.cbegin(), inside.cend(), 0.0);
            QVERIFY(std::abs(result.mean - sum / inside.size()) < 1e-9);
            QCOMPARE(result.minimum, *std::min_element(inside.cbegin(), inside.cend()));
            QCOMPARE(result.maximum, *std::max_element(inside.cbegin(), inside.cend()));
        }
    }
}

QTEST_APPLESS_MAIN(TestRegionStatistics)
#include "tst_regionstatistics.moc"
