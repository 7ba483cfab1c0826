#include "shared/quiettest.h"

#include "internal/ticklabels_p.h"

#include <limits>

using namespace ZrTicks;

Q_DECLARE_METATYPE(ZrTicks::LabelFormat)

class TestTickLabels : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void formatNumbers();
    void exponents_data();
    void exponents();
    void fixedNumbers_data();
    void fixedNumbers();
    void labels_data();
    void labels();
};

// The public interface passes the formats as these numbers.
void TestTickLabels::formatNumbers()
{
    QCOMPARE(int(LabelFormat::FloatingPoint), 0);
    QCOMPARE(int(LabelFormat::Exponential), 1);
    QCOMPARE(int(LabelFormat::Compact), 2);
    QCOMPARE(int(LabelFormat::DateTime), 3);
}

void TestTickLabels::exponents_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("exponent");
    QTest::addColumn<int>("multipleOfThree");

    QTest::newRow("0") << 0.0 << 0 << 0;
    QTest::newRow("1") << 1.0 << 0 << 0;
    QTest::newRow("9.99") << 9.99 << 0 << 0;
    QTest::newRow("10") << 10.0 << 1 << 0;
    QTest::newRow("999") << 999.0 << 2 << 0;
    QTest::newRow("1000") << 1000.0 << 3 << 3;
    QTest::newRow("15000") << 15000.0 << 4 << 3;
    QTest::newRow("-15000") << -15000.0 << 4 << 3;
    QTest::newRow("1e6") << 1e6 << 6 << 6;
    QTest::newRow("0.1") << 0.1 << -1 << -3;
    QTest::newRow("0.002") << 0.002 << -3 << -3;
    QTest::newRow("0.0002") << 0.0002 << -4 << -6;
    QTest::newRow("1e300") << 1e300 << 300 << 300;
    QTest::newRow("2e-320") << 2e-320 << -320 << -321;
}

void TestTickLabels::exponents()
{
    QFETCH(double, value);
    QTEST(decimalExponent(value, false), "exponent");
    QTEST(decimalExponent(value, true), "multipleOfThree");
}

void TestTickLabels::fixedNumbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("no decimals") << 12.0 << 0 << QByteArray("12");
    QTest::newRow("one decimal") << 12.0 << 1 << QByteArray("12.0");
    QTest::newRow("rounded") << 12.36 << 1 << QByteArray("12.4");
    QTest::newRow("negative") << -12.36 << 1 << QByteArray("-12.4");
    QTest::newRow("negative decimals write none") << 1200.0 << -2 << QByteArray("1200");
    QTest::newRow("17 decimals") << 0.5 << 17 << QByteArray("0.50000000000000000");
    QTest::newRow("no minus zero") << -0.0 << 1 << QByteArray("0.0");
    QTest::newRow("nothing that rounds to minus zero") << -0.04 << 1 << QByteArray("0.0");
    QTest::newRow("a minus in front of the last digit") << -0.06 << 1 << QByteArray("-0.1");
    QTest::newRow("large") << 1e22 << 1 << QByteArray("10000000000000000000000.0");
}

void TestTickLabels::fixedNumbers()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QTEST(fixedNumber(value, decimals), "expected");
}

void TestTickLabels::labels_data()
{
    QTest::addColumn<LabelFormat>("format");
    QTest::addColumn<bool>("multipleOfThree");
    QTest::addColumn<bool>("equalExponent");
    QTest::addColumn<int>("mantissaDecimals");
    QTest::addColumn<double>("shown");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QByteArray>("expected");

    const LabelFormat plain = LabelFormat::FloatingPoint;
    const LabelFormat exponential = LabelFormat::Exponential;
    const LabelFormat compact = LabelFormat::Compact;
    QTest::newRow("plain") << plain << false << false << 0 << 2e6 << 1 << QByteArray("2000000.0");
    QTest::newRow("plain has the decimals of the tick")
        << plain << false << false << 1 << 0.25 << 2 << QByteArray("0.25");
    QTest::newRow("compact 0") << compact << false << false << 0 << 0.0 << 0 << QByteArray("0");
    QTest::newRow("compact 250000") << compact << false << false << 0 << 250000.0 << 0
                                    << QByteArray("250000");
    QTest::newRow("compact 999999") << compact << false << false << 0 << 999999.0 << 0
                                    << QByteArray("999999");
    QTest::newRow("compact 1000000") << compact << false << false << 0 << 1e6 << 0 << QByteArray("1e+06");
    QTest::newRow("compact 2000000") << compact << false << false << 0 << 2e6 << 0 << QByteArray("2e+06");
    QTest::newRow("compact 0.00002") << compact << false << false << 1 << 2e-5 << 5 << QByteArray("0.00002");
    QTest::newRow("compact 0.000002") << compact << false << false << 1 << 2e-6 << 6 << QByteArray("2.0e-06");
    QTest::newRow("compact by threes, 200000")
        << compact << true << false << 0 << 2e5 << 0 << QByteArray("200000");
    QTest::newRow("compact by threes, 0.0002")
        << compact << true << false << 0 << 2e-4 << 4 << QByteArray("200e-06");
    QTest::newRow("1500 by threes") << exponential << true << false << 1 << 1500.0 << 1
                                    << QByteArray("1.5e+03");
    QTest::newRow("15000 by threes") << exponential << true << false << 1 << 15000.0 << 1
                                     << QByteArray("15.0e+03");
    QTest::newRow("15000") << exponential << false << false << 1 << 15000.0 << 1 << QByteArray("1.5e+04");
    QTest::newRow("-15000") << exponential << false << false << 1 << -15000.0 << 1 << QByteArray("-1.5e+04");
    QTest::newRow("0.0000002") << exponential << false << false << 1 << 2e-7 << 7 << QByteArray("2.0e-07");
    QTest::newRow("exponent of zero")
        << exponential << false << false << 1 << 0.0 << 1 << QByteArray("0.0e+00");
    QTest::newRow("exponent of one") << exponential << false << false << 1 << 7.0 << 0
                                     << QByteArray("7.0e+00");
    QTest::newRow("three digits") << exponential << false << false << 1 << 1e300 << 1
                                  << QByteArray("1.0e+300");
    QTest::newRow("the smallest number")
        << exponential << false << false << 2 << 5e-324 << 1 << QByteArray("4.94e-324");
    QTest::newRow("negative mantissa decimals")
        << exponential << false << false << -1 << 3500.0 << 0 << QByteArray("4e+03");
    QTest::newRow("a tie goes to the even digit")
        << compact << false << false << 0 << 2500000.0 << 0 << QByteArray("2e+06");
    QTest::newRow("common exponent is plain")
        << exponential << true << true << 1 << 1.25 << 2 << QByteArray("1.25");
    QTest::newRow("crowded") << compact << false << false << 1 << -std::numeric_limits<double>::infinity()
                             << 1 << QByteArray();
    QTest::newRow("not a number") << compact << false << false << 1
                                  << std::numeric_limits<double>::quiet_NaN() << 1 << QByteArray();
}

void TestTickLabels::labels()
{
    NumberStyle style;
    QFETCH(LabelFormat, format);
    QFETCH(bool, multipleOfThree);
    QFETCH(bool, equalExponent);
    QFETCH(int, mantissaDecimals);
    QFETCH(double, shown);
    QFETCH(int, decimals);
    style.format = format;
    style.exponentMultipleOfThree = multipleOfThree;
    style.equalExponent = equalExponent;
    style.mantissaDecimals = mantissaDecimals;
    QTEST(numberLabel(style, shown, decimals), "expected");
}

QTEST_APPLESS_MAIN(TestTickLabels)
#include "tst_ticklabels.moc"
