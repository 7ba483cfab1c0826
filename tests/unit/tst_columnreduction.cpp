#include "internal/columnbars_p.h"
#include "internal/columnreduction_p.h"
#include "internal/reducedline_p.h"

#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <algorithm>
#include <cmath>
#include <limits>

using Points = QVector<QPointF>;
using Bars = QVector<ColumnBar>;

Q_DECLARE_METATYPE(ColumnBar)
Q_DECLARE_METATYPE(LineQuality)

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

SampleSeries seriesOf(const Points &points)
{
    SampleSeries series;
    series.reset(points);
    return series;
}

} // namespace

class TestColumnReduction : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void columnsHoldWhatIsVisible_data();
    void columnsHoldWhatIsVisible();
    void neighboursComeAlong();
    void gapsPartAColumn();
    void manyGapsDoNot();
    void crowdedRunsKeepToTheirExtent_data();
    void crowdedRunsKeepToTheirExtent();
    void loneSamplesHaveNoLine();
    void restIsWhereQtGoesOn();
    void fewSamplesStay();
    void manySamplesBecomeABar();
    void transparentLinesHaveNoBars();
    void gapEndsTheStroke();
    void spikeAfterALevelKeepsItsPlace();
    void rectanglesCoverEachPixelOnce_data();
    void rectanglesCoverEachPixelOnce();
};

void TestColumnReduction::columnsHoldWhatIsVisible_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QTransform>("toPixel");
    const QTransform forward(1000, 0, 0, 1, 0, 0);
    const QTransform backward(-1000, 0, 0, 1, 1000, 0);
    const QTransform zoomedIn(50000, 0, 0, 1, -20000, 0);
    QTest::newRow("even") << SeriesShapes::noise(30000) << forward;
    QTest::newRow("backwards") << SeriesShapes::noise(30000) << backward;
    QTest::newRow("zoomed in") << SeriesShapes::noise(30000) << zoomedIn;
    QTest::newRow("gaps") << SeriesShapes::gaps(30000) << forward;
    QTest::newRow("one sample each") << SeriesShapes::noise(500) << forward;
    Points uneven = SeriesShapes::noise(30000);
    for (QPointF &point : uneven)
        point.setX(std::pow(point.x(), 3));
    QTest::newRow("uneven") << uneven << forward;
    QTest::newRow("uneven backwards") << uneven << backward;
}

void TestColumnReduction::columnsHoldWhatIsVisible()
{
    QFETCH(Points, points);
    QFETCH(QTransform, toPixel);
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping(toPixel);
    const double left = 200.0;
    const double right = 700.0;
    const auto columns = visibleColumns(series, mapping, left, right);
    QVector<int> found(points.size(), 0);
    for (const ColumnSamples &column : columns) {
        for (int i = column.samples.begin; i < column.samples.end; ++i) {
            ++found[i];
            QCOMPARE(int(std::floor(mapping.x(points.at(i).x()))), column.column);
        }
    }
    for (int i = 0; i < points.size(); ++i) {
        const double x = mapping.x(points.at(i).x());
        if (x >= left && x <= right && !std::isnan(points.at(i).y()))
            QCOMPARE(found.at(i), 1);
        QVERIFY(found.at(i) <= 1);
    }
    // And hardly more than that.
    QVERIFY(columns.size() <= 2 * (right - left));
    const IndexRange span = visibleSpan(series, mapping, left, right);
    QCOMPARE(span, (IndexRange{columns.constFirst().samples.begin, columns.constLast().samples.end}));
}

void TestColumnReduction::neighboursComeAlong()
{
    SampleSeries series = seriesOf({{-9e20, 0}, {-5, 0}, {3, 0}, {4, 0}, {15, 0}, {9e20, 0}});
    const auto columns = visibleColumns(series, PixelMapping(QTransform()), 0, 10);
    QCOMPARE(columns.size(), 4);
    QCOMPARE(columns.first().samples, (IndexRange{1, 2}));
    QCOMPARE(columns.last().samples, (IndexRange{4, 5}));
    const auto between = visibleColumns(series, PixelMapping(QTransform()), 5, 10);
    QCOMPARE(between.size(), 2);
    QCOMPARE(visibleColumns(series, PixelMapping(QTransform()), 20, 30).constLast().column, 1000000000);
}

void TestColumnReduction::gapsPartAColumn()
{
    SampleSeries series = seriesOf({{0.1, 1}, {0.2, 2}, {0.3, notANumber}, {0.4, 4}, {1.4, 5}});
    const auto columns = visibleColumns(series, PixelMapping(QTransform()), 0, 10);
    QCOMPARE(columns.size(), 3);
    QCOMPARE(columns.at(0).samples, (IndexRange{0, 2}));
    QCOMPARE(columns.at(1).samples, (IndexRange{3, 4}));
    QCOMPARE(columns.at(2).samples, (IndexRange{4, 5}));
    QCOMPARE(columns.at(2).run, (IndexRange{3, 5}));
}

void TestColumnReduction::manyGapsDoNot()
{
    Points points = SeriesShapes::noise(100002);
    for (int i = 0; i < points.size(); i += 3)
        points[i].setY(notANumber);
    SampleSeries series = seriesOf(points);
    const auto columns = visibleColumns(series, PixelMapping(QTransform::fromScale(100, 1)), -1, 101);
    QVERIFY(columns.size() < 100 * 12);
    QCOMPARE(columns.constLast().samples.end, 100002);
    QVERIFY(std::any_of(columns.cbegin(), columns.cend(),
                        [](const ColumnSamples &column) { return column.hasGaps; }));
}

void TestColumnReduction::crowdedRunsKeepToTheirExtent()
{
    QFETCH(LineQuality, quality);
    Points points;
    for (int i = 0; i < 60; ++i)
        points.append(QPointF(50.02 + i * 0.01, i % 3 == 2 ? notANumber : 10.0 + i));
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping{QTransform()};
    const ReducedLine line
        = reducedLine(series, visibleColumns(series, mapping, 0, 100), mapping, quality, 1.0, 0, 100);
    for (const QPolygonF &stroke : line.strokes) {
        for (const QPointF &point : stroke)
            QVERIFY(point.y() >= 10.0 && point.y() <= 69.0);
    }
    for (const QLineF &hairline : line.hairlines) {
        for (const double y : {hairline.y1(), hairline.y2()})
            QVERIFY(y >= 10.0 && y <= 69.0);
    }
    for (const ColumnBar &bar : line.bars)
        QVERIFY(bar.top >= 10.0 && bar.bottom <= 70.0);
    QVERIFY(line.strokes.size() + line.hairlines.size() + line.bars.size() >= 9);
}

void TestColumnReduction::crowdedRunsKeepToTheirExtent_data()
{
    QTest::addColumn<LineQuality>("quality");
    QTest::newRow("hairline") << LineQuality::Hairline;
    QTest::newRow("opaque") << LineQuality::Opaque;
    QTest::newRow("transparent") << LineQuality::Transparent;
}

void TestColumnReduction::loneSamplesHaveNoLine()
{
    Points points = SeriesShapes::noise(1000);
    for (int i = 0; i < points.size(); i += 2)
        points[i].setY(notANumber);
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping(QTransform::fromScale(100, 1));
    QVERIFY(visibleColumns(series, mapping, -1, 101).isEmpty());
    QVERIFY(visibleRanges(series, mapping, -1, 101).isEmpty());
    QCOMPARE(visibleSpan(series, mapping, -1, 101).size(), 0);
    QCOMPARE(visibleLoneSamples(series, mapping, -1, 101), (IndexRange{0, 500}));
    QCOMPARE(visibleLoneSamples(series, mapping, 30, 40).size(), 50);
}

void TestColumnReduction::restIsWhereQtGoesOn()
{
    // Two pixels of level, a jump, and a level again: of many samples only those that set pixels remain.
    Points points;
    for (int i = 0; i < 30000; ++i)
        points.append(QPointF(i / 10000.0, i < 17000 ? 10.0 : 90.0));
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping{QTransform()};
    const ReducedLine line = reducedLine(series, visibleColumns(series, mapping, -1, 10), mapping,
                                         LineQuality::Hairline, 1.0, 0, 600);
    QVERIFY(line.bars.isEmpty());
    QCOMPARE(line.strokes, QVector<QPolygonF>{QPolygonF(
                               Points{{0, 10}, {0.5, 10}, {1.5, 10}, {1.7, 90}, {2.5, 90}, {2.9999, 90}})});
}

void TestColumnReduction::fewSamplesStay()
{
    const Points points{{0, 1}, {0.3, 5}, {0.6, 0}, {1.5, 2}, {1.6, 2}, {7, 7}};
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping{QTransform()};
    for (const LineQuality quality : {LineQuality::Hairline, LineQuality::Opaque, LineQuality::Transparent}) {
        const ReducedLine line
            = reducedLine(series, visibleColumns(series, mapping, 0, 10), mapping, quality, 1.0, 0, 100);
        QVERIFY(line.bars.isEmpty());
        QCOMPARE(line.strokes, QVector<QPolygonF>{QPolygonF(points)});
    }
}

void TestColumnReduction::manySamplesBecomeABar()
{
    Points points{{0.1, 5}, {0.2, 9.2}, {0.3, 1.7}, {0.4, 30.4}};
    for (int i = 0; i < 100000; ++i)
        points.append(QPointF(0.4 + i * 1e-6, i % 2 ? 5.0 : 25.0));
    points += {{0.5, 6}, {1.5, 6}};
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping{QTransform()};
    const auto columns = visibleColumns(series, mapping, 0, 10);
    const ReducedLine hairline = reducedLine(series, columns, mapping, LineQuality::Hairline, 1.0, 0, 600);
    QCOMPARE(hairline.bars.size(), 1);
    QCOMPARE(hairline.bars.first().column, 0);
    QCOMPARE(hairline.bars.first().top, 2.0);
    QCOMPARE(hairline.bars.first().bottom, 31.0);
    QCOMPARE(hairline.strokes, QVector<QPolygonF>{QPolygonF(Points{{0.5, 6}, {1.5, 6}})});
    const ReducedLine wide = reducedLine(series, columns, mapping, LineQuality::Opaque, 2.0, 0, 100);
    QCOMPARE(wide.bars.first().top, 1.7);
    QCOMPARE(wide.bars.first().bottom, 30.4);
}

void TestColumnReduction::transparentLinesHaveNoBars()
{
    SampleSeries series = seriesOf(SeriesShapes::noise(10000));
    const PixelMapping mapping(QTransform::fromScale(100, 50));
    const ReducedLine line = reducedLine(series, visibleColumns(series, mapping, 0, 100), mapping,
                                         LineQuality::Transparent, 1.0, 0, 100);
    QVERIFY(line.bars.isEmpty());
    QCOMPARE(line.strokes.size(), 1);
    QVERIFY(line.strokes.first().size() <= 101 * 4);
    const QRectF extent = line.strokes.first().boundingRect();
    QVERIFY(extent.top() < -49.9 && extent.bottom() > 49.9);
}

void TestColumnReduction::gapEndsTheStroke()
{
    SampleSeries series
        = seriesOf({{0, 0}, {1, 1}, {2, notANumber}, {3, 3}, {4, 4}, {5, notANumber}, {6, 6}});
    const PixelMapping mapping{QTransform()};
    const ReducedLine line = reducedLine(series, visibleColumns(series, mapping, -1, 10), mapping,
                                         LineQuality::Hairline, 1.0, 0, 100);
    QCOMPARE(line.strokes,
             (QVector<QPolygonF>{QPolygonF(Points{{0, 0}, {1, 1}}), QPolygonF(Points{{3, 3}, {4, 4}})}));
}

void TestColumnReduction::spikeAfterALevelKeepsItsPlace()
{
    Points points;
    for (int i = 0; i < 30000; ++i)
        points.append(QPointF(i / 10000.0, i == 18000 ? 90.0 : 10.0));
    SampleSeries series = seriesOf(points);
    const PixelMapping mapping{QTransform()};
    const ReducedLine line = reducedLine(series, visibleColumns(series, mapping, -1, 10), mapping,
                                         LineQuality::Hairline, 1.0, 0, 600);
    QCOMPARE(line.strokes.size(), 1);
    // Qt draws the way up from the middle of the column.
    const int spike = line.strokes.first().indexOf(QPointF(1.8, 90.0));
    QVERIFY(spike > 0);
    QCOMPARE(line.strokes.first().at(spike - 1), QPointF(1.5, 10.0));
}

void TestColumnReduction::rectanglesCoverEachPixelOnce_data()
{
    QTest::addColumn<Bars>("bars");
    QTest::newRow("none") << Bars();
    QTest::newRow("one") << Bars{{5, 3, 9}};
    QTest::newRow("side by side") << Bars{{5, 3, 9}, {6, 4, 12}, {7, 1, 8}};
    QTest::newRow("nothing in common") << Bars{{5, 3, 9}, {6, 10, 12}, {7, 1, 2}};
    QTest::newRow("from right to left") << Bars{{7, 3, 9}, {6, 4, 12}, {5, 1, 8}};
    QTest::newRow("apart") << Bars{{5, 3, 9}, {8, 4, 12}};
    QTest::newRow("empty") << Bars{{5, 3, 3}, {6, 9, 4}};
    QTest::newRow("beyond the picture") << Bars{{-3, 3, 9}, {5, -1e300, 1e300}, {6, 50, 1e9}, {1000, 3, 9}};
    Bars many;
    for (int i = 0; i < 40; ++i)
        many.append({i, double(i * 7 % 11), double(12 + i * 5 % 13)});
    QTest::newRow("many") << many;
}

void TestColumnReduction::rectanglesCoverEachPixelOnce()
{
    QFETCH(Bars, bars);
    const QRect bounds(0, 0, 40, 30);
    QVector<int> covered(40 * 30, 0);
    for (const QRect &rectangle : rectanglesOf(bars, bounds)) {
        QVERIFY(bounds.contains(rectangle));
        for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
            for (int x = rectangle.left(); x <= rectangle.right(); ++x)
                ++covered[y * 40 + x];
        }
    }
    for (const ColumnBar &bar : bars) {
        for (int y = 0; y < 30 && bounds.contains(bar.column, y); ++y) {
            if (y >= bar.top && y < bar.bottom)
                --covered[y * 40 + bar.column];
        }
    }
    QVERIFY(std::all_of(covered.cbegin(), covered.cend(), [](int rest) { return rest == 0; }));
}

QTEST_APPLESS_MAIN(TestColumnReduction)
#include "tst_columnreduction.moc"
