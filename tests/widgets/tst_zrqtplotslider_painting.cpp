#include "shared/sliderfixture.h"

namespace {

const QColor ActiveColor(0, 100, 175);

}

/// What the slider looks like, pixel by pixel, and when it paints.
class TestPlotSliderPainting : public SliderFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase();

    void activeColor_data();
    void activeColor();
    void penStyle();
    void hoverRepaints();
    void paintsFrameAndOutside();
    void paintsHandlesAtRest();
    void paintsHoveredHandle();
    void paintsHoveredMiddle();
    void paintsDraggedHandle();
    void paintsMovedSelection();
    void paintsChosenColors();
    void followsResizeInHeight();
};

void TestPlotSliderPainting::cleanupTestCase()
{
    m_window.reset();
}

void TestPlotSliderPainting::activeColor_data()
{
    QTest::addColumn<int>("alpha");
    QTest::addColumn<int>("activeAlpha");
    QTest::newRow("raised by 50") << 100 << 150;
    QTest::newRow("at most 255") << 220 << 255;
    QTest::newRow("exactly 255") << 205 << 255;
    QTest::newRow("from transparent") << 0 << 50;
}

void TestPlotSliderPainting::activeColor()
{
    build();
    QFETCH(int, alpha);
    QFETCH(int, activeAlpha);
    m_slider->setSlaveHandleColor(QColor(10, 20, 30, alpha));
    QCOMPARE(m_slider->slaveHandleColor(), QColor(10, 20, 30, alpha));
    QCOMPARE(picture().pixelColor(53, 20), over(QColor(10, 20, 30, alpha), Qt::white));
    press(53);
    QCOMPARE(picture().pixelColor(53, 20), over(QColor(10, 20, 30, activeAlpha), Qt::white));
    release(53);
}

void TestPlotSliderPainting::penStyle()
{
    build();
    QCOMPARE(picture().pixelColor(50, 20), QColor(Qt::black));
    m_slider->setSlaveHandlePen(Qt::NoPen);
    QCOMPARE(m_slider->slaveHandlePen(), Qt::NoPen);
    const QImage image = picture();
    for (int x = 50; x <= 57; ++x)
        QCOMPARE(image.pixelColor(x, 20), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(58, 20), QColor(Qt::white));
}

void TestPlotSliderPainting::hoverRepaints()
{
    build();
    PaintCounter paints(m_slider);
    move(75);
    QCOMPARE(paints.count(), 1);
    move(76);
    QCOMPARE(paints.count(), 2);
    press(76);
    QCOMPARE(paints.count(), 3);
    move(77);
    QCOMPARE(paints.count(), 4);
    release(77);
    QCOMPARE(paints.count(), 5);
    leave();
    QCOMPARE(paints.count(), 6);
    setSlave(10.0, 20.0);
    QCOMPARE(paints.count(), 7);
    // The handles do not move.
    setMaster(0.0, 300.0);
    QCOMPARE(paints.count(), 7);
}

void TestPlotSliderPainting::paintsFrameAndOutside()
{
    build();
    const QImage image = picture();
    const QColor frame = m_slider->palette().color(QPalette::WindowText);
    const QColor outside = over(QColor(130, 130, 130, 100), Qt::white);
    for (int x : {60, 75, 90}) {
        QCOMPARE(image.pixelColor(x, 0), frame);
        QCOMPARE(image.pixelColor(x, 39), frame);
        QCOMPARE(image.pixelColor(x, 1), QColor(Qt::white));
        QCOMPARE(image.pixelColor(x, 38), QColor(Qt::white));
    }
    for (int x : {1, 25, 49, 102, 150, 198}) {
        QCOMPARE(image.pixelColor(x, 1), outside);
        QCOMPARE(image.pixelColor(x, 20), outside);
        QCOMPARE(image.pixelColor(x, 38), outside);
        // The frame lies below.
        QCOMPARE(image.pixelColor(x, 0), over(QColor(130, 130, 130, 100), frame));
        QCOMPARE(image.pixelColor(x, 39), over(QColor(130, 130, 130, 100), frame));
    }
    QCOMPARE(image.pixelColor(0, 20), over(QColor(130, 130, 130, 100), frame));
    QCOMPARE(image.pixelColor(199, 20), over(QColor(130, 130, 130, 100), frame));
}

void TestPlotSliderPainting::paintsHandlesAtRest()
{
    build();
    const QImage image = picture();
    for (int left : {50, 93}) {
        QCOMPARE(image.pixelColor(left, 20), QColor(Qt::black));
        QCOMPARE(image.pixelColor(left + 8, 20), QColor(Qt::black));
        for (int x = left + 1; x < left + 8; ++x) {
            QCOMPARE(image.pixelColor(x, 0), QColor(Qt::black));
            QCOMPARE(image.pixelColor(x, 1), QColor(Qt::gray));
            QCOMPARE(image.pixelColor(x, 39), QColor(Qt::gray));
        }
    }
    QCOMPARE(image.pixelColor(59, 20), QColor(Qt::white));
    QCOMPARE(image.pixelColor(92, 20), QColor(Qt::white));
}

void TestPlotSliderPainting::paintsHoveredHandle()
{
    build();
    hover({53, 20});
    QImage image = picture();
    QCOMPARE(image.pixelColor(53, 20), ActiveColor);
    QCOMPARE(image.pixelColor(97, 20), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(75, 20), QColor(Qt::white));
    hover({97, 20});
    image = picture();
    QCOMPARE(image.pixelColor(53, 20), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(97, 20), ActiveColor);
    hover({25, 20});
    image = picture();
    QCOMPARE(image.pixelColor(53, 20), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(97, 20), QColor(Qt::gray));
}

void TestPlotSliderPainting::paintsHoveredMiddle()
{
    build();
    hover({75, 20});
    QImage image = picture();
    const QColor highlighted = over(QColor(0, 100, 175, 20), Qt::white);
    const QColor frame = m_slider->palette().color(QPalette::WindowText);
    QVERIFY(highlighted != QColor(Qt::white));
    QCOMPARE(image.pixelColor(53, 20), ActiveColor);
    QCOMPARE(image.pixelColor(97, 20), ActiveColor);
    QCOMPARE(image.pixelColor(59, 1), highlighted);
    QCOMPARE(image.pixelColor(92, 38), highlighted);
    QCOMPARE(image.pixelColor(75, 0), frame);
    QCOMPARE(image.pixelColor(75, 39), over(QColor(0, 100, 175, 20), frame));
    // The uppermost row belongs to the frame.
    hover({75, 0});
    image = picture();
    QCOMPARE(image.pixelColor(75, 20), QColor(Qt::white));
    QCOMPARE(image.pixelColor(53, 20), QColor(Qt::gray));
}

void TestPlotSliderPainting::paintsDraggedHandle()
{
    build();
    hover({53, 20});
    press(53);
    QImage image = picture();
    QCOMPARE(image.pixelColor(53, 20), ActiveColor);
    QCOMPARE(image.pixelColor(97, 20), QColor(Qt::gray));
    // During a drag the mouse lights up nothing else.
    hover({97, 20});
    move(53);
    image = picture();
    QCOMPARE(image.pixelColor(56, 20), ActiveColor);
    QCOMPARE(image.pixelColor(97, 20), QColor(Qt::gray));
    hover({75, 20});
    move(53);
    image = picture();
    QCOMPARE(image.pixelColor(97, 20), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(75, 20), QColor(Qt::white));
    QCursor::setPos(Elsewhere);
    release(53);
}

void TestPlotSliderPainting::paintsMovedSelection()
{
    build();
    press(75);
    move(85);
    QImage image = picture();
    const QColor highlighted = over(QColor(0, 100, 175, 20), Qt::white);
    QCOMPARE(image.pixelColor(63, 20), ActiveColor);
    QCOMPARE(image.pixelColor(107, 20), ActiveColor);
    QCOMPARE(image.pixelColor(85, 20), highlighted);
    QCOMPARE(image.pixelColor(85, 1), highlighted);
    release(85);
    image = picture();
    QCOMPARE(image.pixelColor(63, 20), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(85, 20), QColor(Qt::white));
}

void TestPlotSliderPainting::paintsChosenColors()
{
    build();
    PaintCounter paints(m_slider);
    m_slider->setSlaveHandleColor(QColor(200, 30, 30));
    QCOMPARE(paints.count(), 1);
    m_slider->setSlaveHandlePen(Qt::NoPen);
    QCOMPARE(paints.count(), 2);
    QCOMPARE(picture().pixelColor(53, 20), QColor(200, 30, 30));
}

void TestPlotSliderPainting::followsResizeInHeight()
{
    build();
    m_slider->resize(200, 90);
    QApplication::processEvents();
    const QImage image = picture();
    QCOMPARE(image.pixelColor(53, 85), QColor(Qt::gray));
    QCOMPARE(image.pixelColor(97, 85), QColor(Qt::gray));
    QTest::mousePress(window(), Qt::LeftButton, {}, m_slider->mapTo(m_window.data(), {53, 80}));
    QVERIFY(m_slider->leftDragging());
    release(53);
}

QTEST_MAIN(TestPlotSliderPainting)
#include "tst_zrqtplotslider_painting.moc"
