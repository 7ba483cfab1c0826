#include "shared/quiettest.h"

#include "internal/powersoften_p.h"

#include <cmath>
#include <limits>

using namespace ZrTicks;

class TestPowersOfTen : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyPowerIsTheNearestDouble();
    void beyondTheTable();
    void scales_data();
    void scales();
    void rounds_data();
    void rounds();
    void needsDecimals_data();
    void needsDecimals();
};

void TestPowersOfTen::everyPowerIsTheNearestDouble()
{
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const double expected = std::strtod(("1e" + QByteArray::number(exponent)).constData(), nullptr);
        QVERIFY2(powerOfTen(exponent) == expected, qPrintable(QString::number(exponent)));
    }
}

void TestPowersOfTen::beyondTheTable()
{
    QCOMPARE(powerOfTen(-324), 0.0);
    QCOMPARE(powerOfTen(-1000), 0.0);
    QVERIFY(std::isinf(powerOfTen(309)));
}

void TestPowersOfTen::scales_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("exponent");
    QTest::addColumn<double>("expected");

    QTest::newRow("not at all") << 0.3 << 0 << 0.3;
    QTest::newRow("one tenth is a decimal number") << 3.0 << -1 << 0.3;
    QTest::newRow("a thousandth is a decimal number") << 7.0 << -3 << 0.007;
    QTest::newRow("up by a million") << 2.5 << 6 << 2.5e6;
    QTest::newRow("a denormal up to its mantissa") << 1e-323 << 323 << 1e-323 * 1e308 * 1e15;
    QTest::newRow("down to the smallest numbers") << 3.0 << -310 << 3e-310;
    QTest::newRow("down to nothing") << 1.0 << -330 << 0.0;
}

void TestPowersOfTen::scales()
{
    QFETCH(double, value);
    QFETCH(int, exponent);
    QFETCH(double, expected);
    QVERIFY(scaledByPowerOfTen(value, exponent) == expected);
}

void TestPowersOfTen::rounds_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("expected");

    QTest::newRow("down") << 1.24 << 1 << 1.2;
    QTest::newRow("up") << 1.26 << 1 << 1.3;
    QTest::newRow("half away from zero") << 2.5 << 0 << 3.0;
    QTest::newRow("half away from zero below zero") << -2.5 << 0 << -3.0;
    QTest::newRow("whole hundreds") << 1250.0 << -2 << 1300.0;
    QTest::newRow("whole hundreds below zero") << -1249.0 << -2 << -1200.0;
    QTest::newRow("the sum of thirds of a tenth") << 0.1 + 0.2 << 1 << 0.3;
    QTest::newRow("an hour rounds to itself") << 472222.0 * 3.6e6 << -5 << 472222.0 * 3.6e6;
    QTest::newRow("seventeen decimals") << 0.1 << 17 << 0.1;
    QTest::newRow("too large to have decimals") << 1.7e308 << 1 << 1.7e308;
    QTest::newRow("nothing") << 0.0 << 3 << 0.0;
}

void TestPowersOfTen::rounds()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(double, expected);
    QVERIFY(roundedToDecimals(value, decimals) == expected);
}

void TestPowersOfTen::needsDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");

    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("1") << 1.0 << 0;
    QTest::newRow("100") << 100.0 << -2;
    QTest::newRow("1200") << 1200.0 << -2;
    QTest::newRow("0.5") << 0.5 << 1;
    QTest::newRow("0.001") << 0.001 << 3;
    QTest::newRow("0.005") << 0.005 << 3;
    QTest::newRow("0.02") << 0.02 << 2;
    QTest::newRow("an hour") << 3600000.0 << -5;
    QTest::newRow("a day") << 86400000.0 << -5;
    QTest::newRow("five days") << 432000000.0 << -6;
    QTest::newRow("a year") << 31536000000.0 << -6;
    QTest::newRow("100000 years") << 3153600000000000.0 << -11;
    QTest::newRow("a third") << 1.0 / 3.0 << 16;
}

void TestPowersOfTen::needsDecimals()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(decimalsNeeded(value), expected);
}

QTEST_APPLESS_MAIN(TestPowersOfTen)
#include "tst_powersoften.moc"
