#include "markers.h"

#include "shared/quiettest.h"

namespace {

/// A value takes ten pixels in x, and four in y.
MarkerScale plainScale()
{
    return {QRectF(100.0, 0.0, 40.0, 50.0), QSizeF(400.0, 200.0), false, false};
}

bool isInside(const QRectF &pixels, const MarkerScale &scale)
{
    return QRectF(QPointF(), scale.area).contains(pixels);
}

} // namespace

class TestMarkers : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void pixels();
    void inverted();
    void logarithms();
    void farAwayIsNear();
    void thereAndBack();
    void whatIsNotDraggedKeepsItsValue();
    void draggedThroughItself();
    void movedFarBeyondTheView();
    void invalidScales();
    void addedLines();
    void addedRegionAndCircle();
    void addedAgain();
    void oneOfTwoLinesIsBroughtBack();
    void outOfReachIsBroughtBack();
};

void TestMarkers::pixels()
{
    const MarkerScale scale = plainScale();
    QCOMPARE(scale.toPixelX(110.0), 100.0);
    QCOMPARE(scale.toPixelY(10.0), 40.0);
    QCOMPARE(scale.fromPixelX(100.0), 110.0);
    QCOMPARE(scale.fromPixelY(40.0), 10.0);
    QCOMPARE(scale.toPixels({110.0, 120.0, 10.0, 30.0}), QRectF(100.0, 40.0, 100.0, 80.0));
}

void TestMarkers::inverted()
{
    MarkerScale scale = plainScale();
    scale.invertedY = true;
    QCOMPARE(scale.toPixelY(10.0), 160.0);
    QCOMPARE(scale.fromPixelY(160.0), 10.0);
    QCOMPARE(scale.toPixels({110.0, 120.0, 10.0, 30.0}), QRectF(100.0, 80.0, 100.0, 80.0));
    const ValueWindow window = scale.fromPixels(QRectF(100.0, 80.0, 100.0, 80.0));
    QCOMPARE(window.low, 10.0);
    QCOMPARE(window.high, 30.0);
}

void TestMarkers::logarithms()
{
    const MarkerScale scale = {QRectF(0.0, 0.0, 1.0, 2.0), QSizeF(100.0, 200.0), true, false};
    QCOMPARE(scale.toPixelY(10.0), 100.0);
    QCOMPARE(scale.fromPixelY(150.0), std::pow(10.0, 1.5));
    // What has no logarithm is below everything.
    QVERIFY(scale.toPixelY(0.0) < -1e4);
    QCOMPARE(scale.toPixelY(-5.0), scale.toPixelY(0.0));
}

void TestMarkers::farAwayIsNear()
{
    const MarkerScale scale = plainScale();
    QCOMPARE(scale.toPixelX(1e300), 1e5);
    QCOMPARE(scale.toPixelX(-1e300), -1e5);
    // And is not forgotten.
    const ValueWindow window = {-1e300, 120.0, 10.0, 1e300};
    const ValueWindow back = scale.fromPixels(scale.toPixels(window), window);
    QCOMPARE(back.left, window.left);
    QCOMPARE(back.high, window.high);
}

void TestMarkers::thereAndBack()
{
    for (const bool logarithmic : {false, true}) {
        for (const bool inverted : {false, true}) {
            const MarkerScale scale
                = {QRectF(1.6e12, 0.5, 8.64e7, 2.0), QSizeF(640.0, 333.0), logarithmic, inverted};
            const QRectF pixels(12.0, 33.0, 100.0, 50.0);
            const QRectF back = scale.toPixels(scale.fromPixels(pixels));
            QVERIFY(std::abs(back.left() - pixels.left()) < 1e-3);
            QVERIFY(std::abs(back.right() - pixels.right()) < 1e-3);
            QVERIFY(std::abs(back.top() - pixels.top()) < 1e-9);
            QVERIFY(std::abs(back.bottom() - pixels.bottom()) < 1e-9);
        }
    }
}

void TestMarkers::whatIsNotDraggedKeepsItsValue()
{
    const MarkerScale scale = {QRectF(1.6e12 / 7.0, 1.0 / 3.0, 1e7, 0.1), QSizeF(317.0, 211.0), false, false};
    const ValueWindow before = {1.6e12 / 7.0 + 1e6 / 3.0, 1.6e12 / 7.0 + 2e6, 0.34, 0.41};
    QRectF pixels = scale.toPixels(before);
    pixels.setRight(pixels.right() + 10.0);
    const ValueWindow after = scale.fromPixels(pixels, before);
    QVERIFY(after.right > before.right);
    // Bit for bit.
    QVERIFY(after.left == before.left);
    QVERIFY(after.low == before.low);
    QVERIFY(after.high == before.high);
    QVERIFY(scale.fromPixelX(scale.toPixelX(before.left), {before.left}) == before.left);
}

void TestMarkers::draggedThroughItself()
{
    const MarkerScale scale = plainScale();
    const ValueWindow before = {110.0, 120.0, 10.0, 30.0};
    QRectF pixels = scale.toPixels(before);
    pixels.setLeft(300.0);
    const ValueWindow after = scale.fromPixels(pixels, before);
    QCOMPARE(after.left, 120.0);
    QCOMPARE(after.right, 130.0);
}

void TestMarkers::movedFarBeyondTheView()
{
    MarkerScale scale = plainScale();
    const ValueWindow before = {-1e6, 2e6, 10.0, 30.0};
    const QRectF pixels = scale.toPixels(before);
    const ValueWindow after = scale.fromPixels(pixels.translated(50.0, 20.0), before);
    QCOMPARE(after.left, before.left + 5.0);
    QCOMPARE(after.right, before.right + 5.0);
    QCOMPARE(after.low, 15.0);
    QCOMPARE(after.high, 35.0);
    scale.invertedY = true;
    QCOMPARE(scale.fromPixels(scale.toPixels(before).translated(0.0, 20.0), before).low, 5.0);

    const MarkerScale logarithmic = {QRectF(0.0, 0.0, 1.0, 2.0), QSizeF(100.0, 200.0), true, false};
    const ValueWindow toZero = {0.2, 0.8, 0.0, 10.0};
    const ValueWindow higher
        = logarithmic.fromPixels(logarithmic.toPixels(toZero).translated(0.0, 100.0), toZero);
    QCOMPARE(higher.low, 0.0);
    QCOMPARE(higher.high, 100.0);
}

void TestMarkers::invalidScales()
{
    QVERIFY(plainScale().isValid());
    QVERIFY(!MarkerScale().isValid());
    for (const QRectF &canvas : {QRectF(0, 0, 0, 1), QRectF(0, 0, 1, 0), QRectF(0, 0, qQNaN(), 1),
                                 QRectF(0, 0, qInf(), 1), QRectF(-qInf(), 0, 1, 1)})
        QVERIFY(!(MarkerScale{canvas, QSizeF(10, 10), false, false}.isValid()));
    QVERIFY(!(MarkerScale{QRectF(0, 0, 1, 1), QSizeF(0, 10), false, false}.isValid()));
}

void TestMarkers::addedLines()
{
    const MarkerScale scale = plainScale();
    Markers markers;
    QVERIFY(markers.isEmpty());
    addLine(&markers, scale);
    QCOMPARE(markers.lines.size(), 1);
    addLine(&markers, scale);
    QCOMPARE(markers.lines.size(), 2);
    QVERIFY(!markers.isEmpty());
    QVERIFY(100.0 < markers.lines[0] && markers.lines[0] < markers.lines[1] && markers.lines[1] < 140.0);
}

void TestMarkers::addedRegionAndCircle()
{
    const MarkerScale scale = plainScale();
    Markers markers;
    addRegion(&markers, scale);
    QVERIFY(markers.region && !markers.circle && markers.lines.isEmpty());
    QVERIFY(!markers.isEmpty());
    const QRectF region = scale.toPixels(*markers.region);
    QVERIFY(isInside(region, scale));
    QVERIFY(region.height() > 0.95 * scale.area.height());
    addCircle(&markers, scale);
    const QRectF circle = scale.toPixels(*markers.circle);
    QVERIFY(isInside(circle, scale));
    // Round on the screen, whatever a value takes.
    QVERIFY(std::abs(circle.width() - circle.height()) < 1e-9);
    QVERIFY(!circle.intersects(region));
}

void TestMarkers::addedAgain()
{
    MarkerScale scale = plainScale();
    Markers markers;
    for (int i = 0; i < 2; ++i) {
        addLine(&markers, scale);
        addRegion(&markers, scale);
        addCircle(&markers, scale);
    }
    const Markers before = markers;
    addLine(&markers, scale);
    QCOMPARE(markers.lines, before.lines);
    QCOMPARE(scale.toPixels(*markers.region), scale.toPixels(*before.region));
    // Where nothing of them is seen, they come along.
    scale.canvas.moveLeft(1000.0);
    addLine(&markers, scale);
    addRegion(&markers, scale);
    addCircle(&markers, scale);
    QCOMPARE(markers.lines.size(), 2);
    for (const double x : qAsConst(markers.lines))
        QVERIFY(x > 1000.0 && x < 1040.0);
    QVERIFY(isInside(scale.toPixels(*markers.region), scale));
    QVERIFY(isInside(scale.toPixels(*markers.circle), scale));
}

void TestMarkers::oneOfTwoLinesIsBroughtBack()
{
    MarkerScale scale = plainScale();
    Markers markers;
    addLine(&markers, scale);
    scale.canvas.moveLeft(1000.0);
    addLine(&markers, scale);
    QCOMPARE(markers.lines.size(), 1);
    QVERIFY(markers.lines.first() > 1000.0 && markers.lines.first() < 1040.0);
    addLine(&markers, scale);
    QCOMPARE(markers.lines.size(), 2);
}

void TestMarkers::outOfReachIsBroughtBack()
{
    const MarkerScale scale = {QRectF(0.0, 0.0, 1.0, 2.0), QSizeF(100.0, 200.0), true, false};
    Markers markers;
    // The lower half of the circle is below everything, the upper one above the plot.
    markers.circle = ValueWindow{0.4, 0.6, -5.0, 1e3};
    addCircle(&markers, scale);
    QVERIFY(isInside(scale.toPixels(*markers.circle), scale));
    markers.region = ValueWindow{-10.0, 20.0, -5.0, 1e3};
    addRegion(&markers, scale);
    QVERIFY(isInside(scale.toPixels(*markers.region), scale));
    // One that is taken by a side stays.
    markers.region = ValueWindow{0.5, 20.0, -5.0, 1e3};
    addRegion(&markers, scale);
    QCOMPARE(markers.region->left, 0.5);
}

QTEST_APPLESS_MAIN(TestMarkers)
#include "tst_markers.moc"
