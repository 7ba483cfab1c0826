#include "reduction.h"

#include "shared/quiettest.h"

#include <cmath>
#include <random>

namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

QVector<double> counting(int count)
{
    QVector<double> x(count);
    for (int i = 0; i < count; ++i)
        x[i] = i;
    return x;
}

} // namespace

class TestReduction : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void firstLowestHighestAndLastOfEachColumn();
    void fewSamplesStayAsTheyAre();
    void neighboursBeyondTheEdgesAreIncluded();
    void aColumnOfGapsIsOneGap();
    void nothingToShow();
    void extremesOfEveryColumnSurvive();
    void lonelySamples_data();
    void lonelySamples();
};

void TestReduction::firstLowestHighestAndLastOfEachColumn()
{
    const QVector<double> y = {5, 9, 1, 6, /**/ 2, 2, 2, 2};
    const QVector<QPointF> expected = {{0, 5}, {1, 9}, {2, 1}, {3, 6}, {4, 2}, {7, 2}};
    QCOMPARE(reducedPoints(counting(8), y, 0.0, 8.0, 2), expected);
}

void TestReduction::fewSamplesStayAsTheyAre()
{
    const QVector<double> x = {0, 1, 2, 3};
    const QVector<double> y = {4, kGap, 6, 5};
    const QVector<QPointF> points = reducedPoints(x, y, 0.0, 3.0, 300);
    QCOMPARE(points.size(), 4);
    QCOMPARE(points.at(0), QPointF(0, 4));
    QVERIFY(std::isnan(points.at(1).y()));
    QCOMPARE(points.at(2), QPointF(2, 6));
    QCOMPARE(points.at(3), QPointF(3, 5));
}

void TestReduction::neighboursBeyondTheEdgesAreIncluded()
{
    const QVector<QPointF> expected = {{3, 3}, {4, 4}, {5, 5}, {6, 6}};
    QCOMPARE(reducedPoints(counting(10), counting(10), 3.5, 5.5, 10), expected);
    const QVector<QPointF> between = {{3, 3}, {4, 4}};
    QCOMPARE(reducedPoints(counting(10), counting(10), 3.2, 3.8, 10), between);
}

void TestReduction::aColumnOfGapsIsOneGap()
{
    const QVector<double> y = {1, kGap, /**/ kGap, kGap, /**/ kGap, 2};
    const QVector<QPointF> points = reducedPoints(counting(6), y, 0.0, 6.0, 3);
    QCOMPARE(points.size(), 3);
    QCOMPARE(points.at(0), QPointF(0, 1));
    QVERIFY(std::isnan(points.at(1).y()));
    QCOMPARE(points.at(2), QPointF(5, 2));
}

void TestReduction::nothingToShow()
{
    QVERIFY(reducedPoints({}, {}, 0.0, 1.0, 10).isEmpty());
    QVERIFY(reducedPoints(counting(3), counting(3), 0.0, 1.0, 0).isEmpty());
    QVERIFY(reducedPoints(counting(3), counting(3), 1.0, 1.0, 10).isEmpty());
    QVERIFY(reducedPoints(counting(3), counting(3), kGap, 1.0, 10).isEmpty());
    const QVector<QPointF> last = {{2, 2}};
    QCOMPARE(reducedPoints(counting(3), counting(3), 5.0, 6.0, 10), last);
}

void TestReduction::extremesOfEveryColumnSurvive()
{
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    constexpr int kCount = 100000;
    constexpr int kColumns = 333;
    QVector<double> y(kCount);
    for (double &sample : y)
        sample = value(random) < -0.9 ? kGap : value(random);
    const QVector<double> x = counting(kCount);
    const QVector<QPointF> points = reducedPoints(x, y, 0.0, kCount, kColumns);
    QVERIFY(points.size() <= 4 * kColumns + 2);
    QVector<double> lowest(kColumns, 2.0);
    QVector<double> highest(kColumns, -2.0);
    const auto column
        = [](double position) { return static_cast<int>(position / (double(kCount) / kColumns)); };
    for (const QPointF &point : points) {
        lowest[column(point.x())] = qMin(lowest[column(point.x())], point.y());
        highest[column(point.x())] = qMax(highest[column(point.x())], point.y());
    }
    for (int i = 0; i < kCount; ++i) {
        if (!std::isnan(y[i])) {
            QVERIFY(y[i] >= lowest[column(i)]);
            QVERIFY(y[i] <= highest[column(i)]);
        }
    }
}

void TestReduction::lonelySamples_data()
{
    QTest::addColumn<QVector<double>>("y");
    QTest::addColumn<bool>("lonely");

    QTest::newRow("none") << QVector<double>() << false;
    QTest::newRow("one") << QVector<double>({1}) << true;
    QTest::newRow("two") << QVector<double>({1, 2}) << false;
    QTest::newRow("between gaps") << QVector<double>({1, 2, kGap, 3, kGap}) << true;
    QTest::newRow("at the begin") << QVector<double>({1, kGap, 2, 3}) << true;
    QTest::newRow("at the end") << QVector<double>({1, 2, kGap, 3}) << true;
    QTest::newRow("pairs") << QVector<double>({1, 2, kGap, 3, 4}) << false;
    QTest::newRow("only gaps") << QVector<double>({kGap, kGap}) << false;
}

void TestReduction::lonelySamples()
{
    QFETCH(QVector<double>, y);
    QTEST(hasLonelySample(y), "lonely");
}

QTEST_APPLESS_MAIN(TestReduction)
#include "tst_reduction.moc"
