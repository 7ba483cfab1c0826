#include "internal/dashes_p.h"

#include "shared/quiettest.h"

#include <QtGui/QPen>

using Dashes = QVector<QPolygonF>;

namespace {

QPolygonF through(const QVector<QPointF> &points)
{
    return QPolygonF(points);
}

} // namespace

class TestDashes : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void followThePattern_data();
    void followThePattern();
    void goOnBehindWhatIsHidden();
    void penWithoutPatternDrawsTheLine();
};

void TestDashes::followThePattern_data()
{
    QTest::addColumn<QPolygonF>("line");
    QTest::addColumn<Dashes>("dashes");
    // Of a pen two pixels wide: dashes of 8, gaps of 4.
    QTest::newRow("straight") << through({{0, 0}, {20, 0}})
                              << Dashes{through({{0, 0}, {8, 0}}), through({{12, 0}, {20, 0}})};
    QTest::newRow("ends within a dash") << through({{0, 0}, {5, 0}}) << Dashes{through({{0, 0}, {5, 0}})};
    QTest::newRow("around a corner") << through({{0, 0}, {5, 0}, {5, 9}})
                                     << Dashes{through({{0, 0}, {5, 0}, {5, 3}}), through({{5, 7}, {5, 9}})};
    QTest::newRow("corner within a gap") << through({{0, 0}, {10, 0}, {10, 4}})
                                         << Dashes{through({{0, 0}, {8, 0}}), through({{10, 2}, {10, 4}})};
    QTest::newRow("repeated points") << through({{0, 0}, {0, 0}, {5, 0}, {5, 0}})
                                     << Dashes{through({{0, 0}, {5, 0}})};
    QTest::newRow("outside") << through({{-50, 30}, {-40, -30}}) << Dashes();
}

void TestDashes::followThePattern()
{
    QFETCH(QPolygonF, line);
    QFETCH(Dashes, dashes);
    const QPen pen(Qt::black, 2, Qt::DashLine);
    QCOMPARE(dashesWithin(line, pen, QRectF(-30, -30, 100, 100)), dashes);
}

/// A million dashes come before the first one that is seen.
void TestDashes::goOnBehindWhatIsHidden()
{
    const QPen pen(Qt::black, 2, Qt::DashLine);
    const QPolygonF line = through({{-12e6, 1}, {12e6, 1}, {12e6, 3}, {0, 3}});
    const Dashes dashes = dashesWithin(line, pen, QRectF(0, 0, 24, 4));
    // The way back begins two pixels into a dash.
    const Dashes expected{through({{0, 1}, {8, 1}}), through({{12, 1}, {20, 1}}), through({{24, 3}, {18, 3}}),
                          through({{14, 3}, {6, 3}}), through({{2, 3}, {0, 3}})};
    QCOMPARE(dashes, expected);
}

void TestDashes::penWithoutPatternDrawsTheLine()
{
    const QPen pen(Qt::black, 2, Qt::CustomDashLine);
    const QPolygonF line = through({{0, 0}, {20, 0}, {30, 5}});
    QCOMPARE(dashesWithin(line, pen, QRectF(0, 0, 100, 100)), Dashes{line});
}

QTEST_MAIN(TestDashes)
#include "tst_dashes.moc"
