#include "internal/sampleseries_p.h"

#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <limits>
#include <random>

using Points = QVector<QPointF>;
using Ranges = QVector<IndexRange>;

Q_DECLARE_METATYPE(IndexRange)

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
} // namespace

class TestSampleSeries : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void runsLieBetweenGaps_data();
    void runsLieBetweenGaps();
    void ascendingOrderIsSeen_data();
    void ascendingOrderIsSeen();
    void indexTellsTheExtentOfAnyPart_data();
    void indexTellsTheExtentOfAnyPart();
    void resetForgetsAll();
};

void TestSampleSeries::runsLieBetweenGaps_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<Ranges>("runs");
    QTest::addColumn<QVector<int>>("loneSamples");
    const QPointF gap(1, notANumber);
    const QPointF point(1, 1);
    QTest::newRow("nothing") << Points() << Ranges() << QVector<int>();
    QTest::newRow("no gap") << Points{point, point} << Ranges{{0, 2}} << QVector<int>();
    QTest::newRow("only gaps") << Points{gap, gap} << Ranges() << QVector<int>();
    QTest::newRow("gaps at the ends") << Points{gap, point, gap} << Ranges() << QVector<int>{1};
    QTest::newRow("gaps inside") << Points{point, gap, gap, point, point, gap, point} << Ranges{{3, 5}}
                                 << QVector<int>{0, 6};
    QTest::newRow("infinities") << Points{point, {1, infinity}, point, {-infinity, 1},
                                          point, {1, 1e300},    point}
                                << Ranges() << QVector<int>{0, 2, 4, 6};
    Points longOne(1000, point);
    longOne[256] = gap;
    longOne[700] = gap;
    QTest::newRow("long") << longOne << Ranges{{0, 256}, {257, 700}, {701, 1000}} << QVector<int>();
}

void TestSampleSeries::runsLieBetweenGaps()
{
    QFETCH(Points, points);
    SampleSeries series;
    series.reset(points);
    QTEST(series.runs(), "runs");
    QTEST(series.loneSamples(), "loneSamples");
}

void TestSampleSeries::ascendingOrderIsSeen_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<bool>("ascending");
    QTest::newRow("nothing") << Points() << true;
    QTest::newRow("ascending") << Points{{1, 0}, {2, 0}} << true;
    QTest::newRow("equal neighbours") << Points{{1, 0}, {1, 5}, {1, 0}} << true;
    QTest::newRow("descending") << Points{{2, 0}, {1, 0}} << false;
    QTest::newRow("descending across a gap") << Points{{2, 0}, {notANumber, 0}, {1, 0}} << false;
    QTest::newRow("x of a gap does not count") << Points{{1, 0}, {9, notANumber}, {2, 0}} << true;
    for (const int at : {255, 256, 999}) {
        Points points = SeriesShapes::noise(1000);
        points[at].setX(points.at(at - 1).x() - 1e-9);
        QTest::addRow("one step back at %d of 1000", at) << points << false;
    }
}

void TestSampleSeries::ascendingOrderIsSeen()
{
    QFETCH(Points, points);
    SampleSeries series;
    series.reset(points);
    QTEST(series.isAscending(), "ascending");
}

void TestSampleSeries::indexTellsTheExtentOfAnyPart_data()
{
    QTest::addColumn<Points>("points");
    for (const int count : {0, 1, 15, 16, 17, 31, 32, 33, 1000, 20000})
        QTest::addRow("%d points", count) << SeriesShapes::noise(count);
    QTest::newRow("gaps") << SeriesShapes::gaps(5000);
    Points infinite = SeriesShapes::noise(5000);
    for (int i = 0; i < infinite.size(); i += 7)
        infinite[i].setY(i % 2 ? 1e300 : -1e300);
    QTest::newRow("infinities") << infinite;
}

void TestSampleSeries::indexTellsTheExtentOfAnyPart()
{
    QFETCH(Points, points);
    SampleSeries series;
    series.reset(points);
    std::mt19937 random(3);
    for (int i = 0; i < 500; ++i) {
        const int begin = int(random() % unsigned(points.size() + 1));
        const int end = begin + int(random() % unsigned(points.size() - begin + 1));
        SampleExtent expected;
        for (int k = begin; k < end; ++k) {
            if (std::abs(points.at(k).y()) < 1e300)
                expected.include(points.at(k).y());
        }
        const SampleExtent extent = series.extent({begin, end});
        QVERIFY(extent.low == expected.low && extent.high == expected.high);
    }
}

void TestSampleSeries::resetForgetsAll()
{
    SampleSeries series;
    series.reset(Points{{2, 0}, {1, notANumber}, {1, 5}});
    QVERIFY(!series.isAscending());
    series.reset(Points(100, QPointF(0, 7)));
    QVERIFY(series.isAscending());
    QCOMPARE(series.runs(), (Ranges{{0, 100}}));
    QCOMPARE(series.extent({0, 100}).high, 7.0);
}

QTEST_APPLESS_MAIN(TestSampleSeries)
#include "tst_sampleseries.moc"
