#include "gaps.h"

#include "shared/quiettest.h"

#include <limits>

namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestGaps : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void lonelySamples_data();
    void lonelySamples();
};

void TestGaps::lonelySamples_data()
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

void TestGaps::lonelySamples()
{
    QFETCH(QVector<double>, y);
    QTEST(hasLonelySample(y), "lonely");
}

QTEST_APPLESS_MAIN(TestGaps)
#include "tst_gaps.moc"
