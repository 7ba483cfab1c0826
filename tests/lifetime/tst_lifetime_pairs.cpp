#include "mortalscene.h"
#include "shared/quiettest.h"

/// Two ends after each other, of each kind and by each way.
class TestLifetimePairs : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tolerateMessages(platformExcuses()); }

    void twoEnds_data();
    void twoEnds();
};

void TestLifetimePairs::twoEnds_data()
{
    QTest::addColumn<Mortal>("first");
    QTest::addColumn<Way>("way");
    for (const Mortal first : allMortals) {
        for (const Way way : allWays)
            QTest::addRow("%s %s", nameOf(first), nameOf(way)) << first << way;
    }
}

void TestLifetimePairs::twoEnds()
{
    QFETCH(const Mortal, first);
    QFETCH(const Way, way);
    for (const Mortal second : allMortals) {
        for (const Way secondWay : allWays) {
            MortalScene scene;
            scene.end(first, way);
            scene.end(second, secondWay);
            scene.exercise();
        }
    }
}

QTEST_MAIN(TestLifetimePairs)
#include "tst_lifetime_pairs.moc"
