#include "axisnumbers.h"

#include "shared/quiettest.h"

class TestAxisNumbers : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void decimals_data();
    void decimals();
    void units_data();
    void units();
    void decimalsToType_data();
    void decimalsToType();
};

void TestAxisNumbers::decimals_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("maxIntervals");
    QTest::addColumn<int>("decimals");

    constexpr double kMany = 100.0;
    QTest::newRow("steps of 10") << 0.0 << 100.0 << kMany << 0;
    QTest::newRow("steps of 1") << 1.0 << 9.5 << kMany << 0;
    QTest::newRow("steps of 0.1") << 0.0 << 1.0 << kMany << 1;
    QTest::newRow("steps of 0.5, which need the room") << 0.0 << 1.0 << 2.0 << 1;
    QTest::newRow("room for two ticks only") << 0.0 << 1.0 << 1.0 << 0;
    QTest::newRow("steps of 0.01") << 5.0 << 5.06 << kMany << 2;
    QTest::newRow("steps of 0.005") << 5.0 << 5.05 << kMany << 3;
    QTest::newRow("years") << 1880.0 << 2023.0 << kMany << 0;
    QTest::newRow("a narrow range far from 0") << 1000000.0 << 1000000.1 << kMany << 2;
    QTest::newRow("negative") << -0.35 << -0.25 << kMany << 2;
    QTest::newRow("never more than 15") << 0.0 << 1e-30 << kMany << 15;
    QTest::newRow("empty") << 1.0 << 1.0 << kMany << 0;
    QTest::newRow("turned") << 1.0 << 0.0 << kMany << 0;
    QTest::newRow("NaN") << 0.0 << qQNaN() << kMany << 0;
    QTest::newRow("infinite") << 0.0 << qInf() << kMany << 0;
    QTest::newRow("huge") << -1e300 << 1e300 << kMany << 0;
    QTest::newRow("no room at all") << 0.0 << 1.0 << -5.0 << 0;
}

void TestAxisNumbers::decimals()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, maxIntervals);
    QTEST(decimalsForTicks(low, high, 12, maxIntervals), "decimals");
}

void TestAxisNumbers::units_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("unitExponent");
    QTest::addColumn<int>("decimals");

    QTest::newRow("plain") << 0.0 << 100.0 << 0 << 0;
    QTest::newRow("just plain") << 0.0 << 999999.0 << 0 << 0;
    QTest::newRow("a million") << 0.0 << 1e6 << 6 << 1;
    QTest::newRow("thousands of millions") << 0.0 << 1.2e10 << 9 << 0;
    QTest::newRow("negative") << -3e6 << 0.0 << 6 << 1;
    QTest::newRow("thousandths are plain") << 0.0 << 0.001 << 0 << 4;
    QTest::newRow("less is not") << 0.0 << 0.0009 << -6 << 0;
    QTest::newRow("tiny") << 1e-12 << 9e-12 << -12 << 0;
    QTest::newRow("large but close together") << 1e9 << 1e9 + 10.0 << 0 << 0;
    QTest::newRow("too small for a unit") << 0.0 << 1e-310 << 0 << 15;
    QTest::newRow("only zero") << 0.0 << 0.0 << 0 << 0;
    QTest::newRow("NaN") << qQNaN() << 1.0 << 0 << 0;
}

void TestAxisNumbers::units()
{
    QFETCH(double, low);
    QFETCH(double, high);
    const AxisNumbers numbers = axisNumbers(low, high, 12, 100.0);
    QTEST(numbers.unitExponent, "unitExponent");
    QTEST(numbers.decimals, "decimals");
}

void TestAxisNumbers::decimalsToType_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("decimals");

    QTest::newRow("thousands") << 0.0 << 4000.0 << 0;
    QTest::newRow("a thousand") << 500.0 << 1500.0 << 0;
    QTest::newRow("hundreds") << -2.0 << 102.0 << 1;
    QTest::newRow("tens") << 0.0 << 16.0 << 2;
    QTest::newRow("parts") << 0.0 << 0.1 << 4;
    QTest::newRow("as many as a number has") << 0.0 << 1e-12 << 15;
    QTest::newRow("more than that") << 0.0 << 1e-18 << -1;
    QTest::newRow("long") << 0.0 << 9e14 << 0;
    QTest::newRow("too long") << 0.0 << 1e15 << -1;
    QTest::newRow("too long below 0") << -3e25 << 0.0 << -1;
    QTest::newRow("empty") << 1.0 << 1.0 << -1;
    QTest::newRow("NaN") << qQNaN() << 1.0 << -1;
    QTest::newRow("infinite") << 0.0 << qInf() << -1;
}

void TestAxisNumbers::decimalsToType()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QTEST(decimalsForTyping(low, high).value_or(-1), "decimals");
}

QTEST_APPLESS_MAIN(TestAxisNumbers)
#include "tst_axisnumbers.moc"
