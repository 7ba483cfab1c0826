#include "shared/sliderfixture.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

} // namespace

/// Canvases, sizes and applications that no user would call sensible.
class TestPlotSliderRobustness : public SliderFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase();

    void hostileCanvases_data();
    void hostileCanvases();
    void narrowSliders_data();
    void narrowSliders();
    void deletedInItsSignal_data();
    void deletedInItsSignal();
    void masterCanvasWhileEmitting_data();
    void masterCanvasWhileEmitting();
    void laterMasterCanvasCounts();
    void stormOfEvents();
};

void TestPlotSliderRobustness::cleanupTestCase()
{
    m_window.reset();
}

void TestPlotSliderRobustness::hostileCanvases_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::newRow("null") << QRectF();
    QTest::newRow("NaN left") << QRectF(NaN, 0, 10, 1);
    QTest::newRow("NaN width") << QRectF(0, 0, NaN, 1);
    QTest::newRow("infinite width") << QRectF(0, 0, Infinity, 1);
    QTest::newRow("infinite left") << QRectF(-Infinity, 0, 10, 1);
    QTest::newRow("turned round") << QRectF(100, 0, -100, 1);
    QTest::newRow("no width") << QRectF(50, 0, 0, 1);
    QTest::newRow("denormal width") << QRectF(0, 0, 5e-324, 1);
    QTest::newRow("largest") << QRectF(-1.7e308, 0, 1.7e308, 1);
    QTest::newRow("very wide") << QRectF(-1e300, 0, 2e300, 1);
    QTest::newRow("far away") << QRectF(1e300, 0, 1e290, 1);
    QTest::newRow("narrow and far away") << QRectF(1e9, 0, 1e-7, 1);
}

void TestPlotSliderRobustness::hostileCanvases()
{
    build();
    QFETCH(QRectF, canvas);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    for (int round = 0; round < 3; ++round) {
        if (round != 1)
            m_slider->onMasterCanvasChanged(canvas, ZrQtPlot::COSY_0);
        else
            setMaster(0.0, 100.0);
        m_slider->onSlaveCanvasChanged(canvas, ZrQtPlot::COSY_0);
        m_slider->resize(200 + 10 * round, 40);
        QApplication::processEvents();
        for (int x : {4, 60, 100, 195}) {
            press(x);
            move(x + 7);
            m_slider->onMasterCanvasChanged(canvas, ZrQtPlot::COSY_0);
            release(x + 7);
        }
        QVERIFY(leftPosition() >= 0);
        QVERIFY(rightPosition() >= 0);
    }
    for (const QList<QVariant> &arguments : qAsConst(spy)) {
        const QRectF selection = arguments.at(0).toRectF();
        QVERIFY(std::isfinite(selection.left()) && std::isfinite(selection.width()));
    }
    // Everything works again as soon as sense returns.
    m_slider->resize(200, 40);
    setMaster(0.0, 100.0);
    setSlave(25.0, 50.0);
    setSlave(25.0, 50.0);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSliderRobustness::narrowSliders_data()
{
    QTest::addColumn<int>("width");
    for (int width : {0, 1, 5, 8, 16, 17, 18})
        QTest::addRow("%d pixels", width) << width;
}

void TestPlotSliderRobustness::narrowSliders()
{
    build();
    QFETCH(int, width);
    m_slider->resize(width, 40);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    for (int x = -2; x < width + 3; ++x) {
        hover({x, 10});
        press(x);
        move(x + 3);
        QApplication::processEvents();
        move(x - 3);
        release(x - 3);
        setSlave(x, 30.0);
    }
    for (const QList<QVariant> &arguments : qAsConst(spy)) {
        const QRectF selection = arguments.at(0).toRectF();
        QVERIFY(selection.left() >= 0.0 && selection.left() <= 100.0);
        QVERIFY(std::isfinite(selection.width()));
    }
}

void TestPlotSliderRobustness::deletedInItsSignal_data()
{
    QTest::addColumn<bool>("updateWhileDragging");
    QTest::addColumn<bool>("byMaster");
    QTest::newRow("by a move") << true << false;
    QTest::newRow("by the master") << true << true;
    QTest::newRow("by a release") << false << false;
}

void TestPlotSliderRobustness::deletedInItsSignal()
{
    build();
    QFETCH(bool, updateWhileDragging);
    QFETCH(bool, byMaster);
    m_slider->setUpdateWhileDragging(updateWhileDragging);
    if (byMaster)
        press(97);
    connect(m_slider, &ZrQtPlotSlider::selectionChanged, this, [this] { delete m_slider; });
    // Straight to the slider: the test library itself looks at a window after an event.
    const auto send = [this](QEvent::Type type, int x) {
        QMouseEvent event(type, QPointF(x, 20), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        if (m_slider)
            QApplication::sendEvent(m_slider, &event);
    };
    if (byMaster) {
        setMaster(0.0, 200.0);
    } else {
        send(QEvent::MouseButtonPress, 97);
        send(QEvent::MouseMove, 120);
        send(QEvent::MouseButtonRelease, 120);
    }
    QVERIFY(m_slider.isNull());
}

void TestPlotSliderRobustness::masterCanvasWhileEmitting_data()
{
    QTest::addColumn<bool>("updateWhileDragging");
    QTest::addColumn<bool>("leaves");
    QTest::newRow("until the release") << true << false;
    QTest::newRow("until the mouse leaves") << true << true;
    QTest::newRow("emitted by the release") << false << false;
}

void TestPlotSliderRobustness::masterCanvasWhileEmitting()
{
    build();
    QFETCH(bool, updateWhileDragging);
    QFETCH(bool, leaves);
    m_slider->setUpdateWhileDragging(updateWhileDragging);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    // As a master that scales itself to what its slave shows.
    const auto connection
        = connect(m_slider, &ZrQtPlotSlider::selectionChanged, this, [this] { setMaster(0.0, 200.0); });
    press(97);
    move(150);
    move(120);
    if (updateWhileDragging)
        QCOMPARE(spy.last().at(0).toRectF(), QRectF(25.0, 2.0, 35.0, 0.0)); // still of the old canvas
    if (leaves)
        leave();
    else
        release(120);
    QCOMPARE(spy.count(), updateWhileDragging ? 2 : 1);
    disconnect(connection);
    setSlave(50.0, 100.0);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSliderRobustness::laterMasterCanvasCounts()
{
    build();
    const auto connection
        = connect(m_slider, &ZrQtPlotSlider::selectionChanged, this, [this] { setMaster(0.0, 200.0); });
    press(97);
    move(120);
    disconnect(connection);
    setMaster(0.0, 100.0); // the one that the slider never stopped to use
    release(120);
    setSlave(25.0, 50.0);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSliderRobustness::stormOfEvents()
{
    build();
    const double values[] = {0.0, 1.0, -50.0, 25.0, 50.0, 100.0, 150.0, 1e300, -1e300, Infinity, NaN};
    std::mt19937 random(4711);
    const auto pick = [&] { return values[random() % std::size(values)]; };
    const auto system = [&random] { return random() % 8 == 0 ? ZrQtPlot::COSY_1 : ZrQtPlot::COSY_0; };
    int emitted = 0;
    connect(m_slider, &ZrQtPlotSlider::selectionChanged, this, [&](const QRectF &selection) {
        ++emitted;
        QVERIFY(std::isfinite(selection.left()) && std::isfinite(selection.width()));
        // Some plots answer with what they were sent, some with what they like, some with nothing.
        if (random() % 3 == 0)
            m_slider->onSlaveCanvasChanged(selection, m_slider->slaveCosy());
        else if (random() % 3 == 0)
            m_slider->onSlaveCanvasChanged(QRectF(pick(), 0, pick(), 1), m_slider->slaveCosy());
        if (random() % 5 == 0)
            m_slider->onMasterCanvasChanged(QRectF(pick(), 0, pick(), 1), m_slider->masterCosy());
    });
    for (int i = 0; i < 8000; ++i) {
        const int x = int(random() % 340) - 20;
        switch (random() % 12) {
        case 0:
        case 1:
            press(x);
            break;
        case 2:
        case 3:
        case 4:
            move(x);
            break;
        case 5:
            release(x);
            break;
        case 6:
            if (random() % 4 == 0)
                leave();
            break;
        case 7:
            m_slider->onMasterCanvasChanged(QRectF(pick(), 0, pick(), 1), system());
            break;
        case 8:
            m_slider->onSlaveCanvasChanged(QRectF(pick(), 0, pick(), 1), system());
            break;
        case 9:
            if (random() % 10 == 0)
                m_slider->resize(int(random() % 300), int(random() % 300));
            break;
        case 10:
            m_slider->setUpdateWhileDragging(random() % 4 != 0);
            break;
        case 11:
            m_slider->setSlaveCosy(system());
            m_slider->setMasterCosy(system());
            break;
        }
        if (i % 50 == 0 && !m_slider->size().isEmpty())
            picture();
    }
    QVERIFY2(emitted > 400, qPrintable(QString::number(emitted)));
    leave();
    m_slider->setMasterCosy(ZrQtPlot::COSY_0);
    m_slider->setSlaveCosy(ZrQtPlot::COSY_0);
    m_slider->resize(200, 40);
    QApplication::processEvents();
    setMaster(0.0, 100.0);
    setSlave(25.0, 50.0);
    setSlave(25.0, 50.0);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

QTEST_MAIN(TestPlotSliderRobustness)
#include "tst_zrqtplotslider_robustness.moc"
