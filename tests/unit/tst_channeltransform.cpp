#include "internal/channeltransform_p.h"

#include "shared/quiettest.h"

#include <limits>

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
} // namespace

class TestChannelTransform : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void dataIsMapped_data();
    void dataIsMapped();
    void elementsAreThoseOfTheFormula();
    void canvasWithoutSizeIsNotFinite_data();
    void canvasWithoutSizeIsNotFinite();
    void inverseLeadsBack_data();
    void inverseLeadsBack();
    void withoutInverseIsIdentity_data();
    void withoutInverseIsIdentity();
    void offsetIsSnapped_data();
    void offsetIsSnapped();
    void snappingKeepsTheOtherElements();
    void valueIsTruncated_data();
    void valueIsTruncated();
};

void TestChannelTransform::dataIsMapped_data()
{
    QTest::addColumn<bool>("xInverted");
    QTest::addColumn<bool>("yInverted");
    QTest::addColumn<QPointF>("value");
    QTest::addColumn<QPointF>("pixel");
    QTest::newRow("top middle") << false << false << QPointF(50, 10) << QPointF(100, 0);
    QTest::newRow("bottom middle") << false << false << QPointF(50, 0) << QPointF(100, 100);
    QTest::newRow("x inverted") << true << false << QPointF(0, 10) << QPointF(200, 0);
    QTest::newRow("x inverted, right edge") << true << false << QPointF(100, 0) << QPointF(0, 100);
    QTest::newRow("y inverted") << false << true << QPointF(50, 10) << QPointF(100, 100);
    QTest::newRow("both inverted") << true << true << QPointF(25, 0) << QPointF(150, 0);
}

void TestChannelTransform::dataIsMapped()
{
    QFETCH(bool, xInverted);
    QFETCH(bool, yInverted);
    QFETCH(QPointF, value);
    const QTransform transform
        = channelTransform(QRectF(0, 0, 100, 10), QSize(200, 100), {xInverted, yInverted});
    QTEST(transform.map(value), "pixel");
}

void TestChannelTransform::elementsAreThoseOfTheFormula()
{
    const QTransform plain = channelTransform(QRectF(2, 3, 4, 5), QSize(40, 25), {false, false});
    QCOMPARE(plain, QTransform(10, 0, 0, 0, -5, 0, -20, 40, 1));
    const QTransform inverted = channelTransform(QRectF(2, 3, 4, 5), QSize(40, 25), {true, true});
    QCOMPARE(inverted, QTransform(-10, 0, 0, 0, 5, 0, 60, -15, 1));
}

void TestChannelTransform::canvasWithoutSizeIsNotFinite_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::newRow("null") << QRectF();
    QTest::newRow("no width") << QRectF(0, 0, 0, 1);
    QTest::newRow("no height") << QRectF(0, 0, 1, 0);
    QTest::newRow("NaN") << QRectF(notANumber, 0, 1, 1);
    QTest::newRow("infinite position") << QRectF(infinity, 0, 1, 1);
}

void TestChannelTransform::canvasWithoutSizeIsNotFinite()
{
    QFETCH(QRectF, canvas);
    QVERIFY(!isFinite(channelTransform(canvas, QSize(200, 100), {})));
    QVERIFY(isFinite(channelTransform(QRectF(0, 0, 1, 1), QSize(200, 100), {})));
}

void TestChannelTransform::inverseLeadsBack_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::newRow("as usual") << QRectF(10, 20, 100, 10);
    QTest::newRow("very wide") << QRectF(-1e15, 20, 4e15, 10);
    QTest::newRow("very high") << QRectF(10, -1e15, 100, 4e15);
    QTest::newRow("both") << QRectF(-1e200, -1e150, 4e200, 4e150);
    QTest::newRow("very narrow") << QRectF(0, 0, 1e-15, 1e-15);
}

void TestChannelTransform::inverseLeadsBack()
{
    QFETCH(QRectF, canvas);
    for (const bool inverted : {false, true}) {
        const QTransform inverse
            = inverseOf(channelTransform(canvas, QSize(200, 100), {inverted, !inverted}));
        const QPointF data = inverse.map(QPointF(50, 25));
        const double x = canvas.left() + canvas.width() * (inverted ? 0.75 : 0.25);
        const double y = canvas.top() + canvas.height() * (inverted ? 0.75 : 0.25);
        QVERIFY(qAbs(data.x() - x) < 1e-9 * canvas.width());
        QVERIFY(qAbs(data.y() - y) < 1e-9 * canvas.height());
    }
}

void TestChannelTransform::withoutInverseIsIdentity_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("NaN") << notANumber;
}

void TestChannelTransform::withoutInverseIsIdentity()
{
    QFETCH(double, scale);
    QCOMPARE(inverseOf(QTransform(scale, 0, 0, 0, 1e-15, 0, 3, 4, 1)), QTransform());
    QCOMPARE(inverseOf(QTransform(1e-15, 0, 0, 0, scale, 0, 3, 4, 1)), QTransform());
}

void TestChannelTransform::offsetIsSnapped_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("offset");
    // Eight pixels to the unit.
    QTest::newRow("at zero") << 0.0 << 0.0;
    QTest::newRow("whole pixel") << 3.0 << -24.0;
    QTest::newRow("fraction dropped") << 3.07 << -24.0;
    QTest::newRow("less than a pixel") << 0.09 << 0.0;
    QTest::newRow("left of zero, the fraction is dropped towards zero") << -3.07 << 24.0;
}

void TestChannelTransform::offsetIsSnapped()
{
    QFETCH(double, left);
    const QRectF canvas(left, 0, 25, 10);
    const QTransform plain = channelTransform(canvas, QSize(200, 100), {});
    const QTransform inverted = channelTransform(canvas, QSize(200, 100), {true, false});
    QFETCH(double, offset);
    QVERIFY(qAbs(withSnappedOffset(plain, canvas, 200).m31() - offset) < 1e-9);
    // The same offset: it does not look at the inversion.
    QVERIFY(qAbs(withSnappedOffset(inverted, canvas, 200).m31() - offset) < 1e-9);
}

void TestChannelTransform::snappingKeepsTheOtherElements()
{
    const QTransform source(1, 2, 3, 4, 5, 6, 7, 8, 9);
    const QTransform snapped = withSnappedOffset(source, QRectF(10, 0, 25, 10), 200);
    QCOMPARE(snapped, QTransform(1, 2, 3, 4, 5, 6, -80, 8, 9));
}

void TestChannelTransform::valueIsTruncated_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("truncated");
    QTest::newRow("down for positive") << 10.9 << 10;
    QTest::newRow("up for negative") << -0.9 << 0;
    QTest::newRow("negative") << -7.9 << -7;
    QTest::newRow("too large") << 1e300 << std::numeric_limits<int>::max();
    QTest::newRow("too small") << -1e300 << std::numeric_limits<int>::min();
    QTest::newRow("infinity") << infinity << std::numeric_limits<int>::max();
    QTest::newRow("minus infinity") << -infinity << std::numeric_limits<int>::min();
    QTest::newRow("NaN") << notANumber << 0;
    QTest::newRow("just inside") << 2147483646.9 << 2147483646;
}

void TestChannelTransform::valueIsTruncated()
{
    QFETCH(double, value);
    QTEST(truncatedToInt(value), "truncated");
    QFETCH(int, truncated);
    QCOMPARE(truncatedToPoint(QPointF(value, 1.5)), QPoint(truncated, 1));
}

QTEST_APPLESS_MAIN(TestChannelTransform)
#include "tst_channeltransform.moc"
