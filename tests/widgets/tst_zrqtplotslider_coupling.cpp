#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "shared/sliderfixture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

/// The slider between two plots: a master above, with the slider on its plot area of 200 x 80 pixels, and a
/// slave below. Both show x from 0 to 100 and y from 0 to 10, and let their canvas margins be.
class TestPlotSliderCoupling : public SliderFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase();

    void childRegistersItself();
    void addingHandsOverTheCanvas();
    void addingTwiceConnectsOnce();
    void addingNullRemoves();
    void addingAnotherReplaces();
    void removing();
    void removingAnotherDoesNothing();

    void connectingPlacesTheHandles();
    void connectingNullDoesNothing();
    void connectingTwiceConnectsOnce();
    void draggingAnEdgeMovesTheSlave();
    void draggingTheMiddleMovesTheSlave();
    void slaveKeepsItsYRange();
    void slaveMovesTheHandles();
    void silentDragMovesTheSlaveAtRelease();
    void noFeedback();
    void otherSystems();
    void slaveThatReturnsToAutoFit();
    void slaveThatKeepsItsAspectRatio();
    void masterThatGrowsDuringADrag();
    void masterThatGrowsAtRest();
    void resizingTheMaster();

    void disconnectingTheMaster();
    void disconnectingTheSlaveChangesNothing();
    void disconnectingWithoutASlider();
    void disconnectingOnePlotThatIsBoth();
    void onePlotAsMasterAndSlave();

    void deletedInAnyOrder_data();
    void deletedInAnyOrder();
    void deletedDuringADrag_data();
    void deletedDuringADrag();
    void stormOfEvents();

private:
    void buildPlots();
    ZrQtPlot *newPlot(int y);
    static double left(const ZrQtPlot *plot) { return plot->canvas(ZrQtPlot::COSY_0).left(); }
    static double right(const ZrQtPlot *plot) { return plot->canvas(ZrQtPlot::COSY_0).right(); }

    QPointer<ZrQtPlot> m_master;
    QPointer<ZrQtPlot> m_slave;
    QPointer<ZrQtBufferedChannel> m_masterData;
};

void TestPlotSliderCoupling::cleanupTestCase()
{
    m_window.reset();
}

ZrQtPlot *TestPlotSliderCoupling::newPlot(int y)
{
    auto *plot = new ZrQtPlot(m_window.data());
    plot->setCanvasMarginLeft(0.0);
    plot->setCanvasMarginRight(0.0);
    plot->setCanvasMarginTop(0.0);
    plot->setCanvasMarginBottom(0.0);
    plot->setGeometry(100, y, 200, 80);
    auto *channel = new ZrQtBufferedChannel(plot);
    channel->setData({0.0, 40.0, 100.0}, {0.0, 10.0, 5.0});
    return plot;
}

/// The handles are at 50 and 100.
void TestPlotSliderCoupling::buildPlots()
{
    QCursor::setPos(Elsewhere);
    m_window.reset(new QWidget);
    m_window->setGeometry(0, 0, 600, 300);
    m_master = newPlot(10);
    m_masterData = m_master->findChild<ZrQtBufferedChannel *>();
    m_slave = newPlot(150);
    m_slider = new ZrQtPlotSlider(m_master);
    m_slave->setCanvas(QRectF(25.0, 2.0, 25.0, 4.0), ZrQtPlot::COSY_0);
    m_slave->connectSlider(m_slider);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
    QApplication::processEvents();
    QCOMPARE(m_slider->size(), QSize(200, 80));
}

void TestPlotSliderCoupling::childRegistersItself()
{
    buildPlots();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    move(120);
    release(120);
    // Only a registered slider knows the range of its master.
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(25.0, 2.0, 35.0, 0.0));
    QCOMPARE(m_slider->geometry(), m_master->rect());
}

void TestPlotSliderCoupling::addingHandsOverTheCanvas()
{
    buildPlots();
    auto *late = new ZrQtPlotSlider;
    m_master->addSlider(late);
    late->show();
    QCOMPARE(late->parentWidget(), m_master.data());
    QCOMPARE(late->geometry(), m_master->rect());
    m_slave->connectSlider(late);
    delete m_slider;
    m_slider = late;
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSliderCoupling::addingTwiceConnectsOnce()
{
    buildPlots();
    m_master->addSlider(m_slider);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    m_master->setCanvas(QRectF(0.0, 0.0, 60.0, 10.0), ZrQtPlot::COSY_0);
    QCOMPARE(spy.count(), 1);
    release(97);
    QVERIFY(m_slider->parentWidget());
}

void TestPlotSliderCoupling::addingNullRemoves()
{
    buildPlots();
    const QScopedPointer<ZrQtPlotSlider> slider(m_slider);
    m_master->addSlider(nullptr);
    QVERIFY(!m_slider->parentWidget());
    m_master->addSlider(nullptr);
}

void TestPlotSliderCoupling::addingAnotherReplaces()
{
    buildPlots();
    const QScopedPointer<ZrQtPlotSlider> first(m_slider);
    m_slider = new ZrQtPlotSlider(m_master);
    QVERIFY(!first->parentWidget());
    QCOMPARE(m_slider->parentWidget(), m_master.data());
}

void TestPlotSliderCoupling::removing()
{
    buildPlots();
    const QScopedPointer<ZrQtPlotSlider> slider(m_slider);
    m_master->removeSlider(m_slider);
    QVERIFY(!m_slider->parentWidget());
    m_master->setCanvas(QRectF(0.0, 0.0, 50.0, 10.0), ZrQtPlot::COSY_0);
    // The slave stays coupled, and the last canvas of the master is what counts.
    m_slider->resize(200, 80);
    m_slider->show();
    QApplication::processEvents();
    m_slave->setCanvas(QRectF(40.0, 2.0, 35.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 80);
    QCOMPARE(rightPosition(), 150);
}

void TestPlotSliderCoupling::removingAnotherDoesNothing()
{
    buildPlots();
    ZrQtPlotSlider other;
    m_master->removeSlider(&other);
    m_master->removeSlider(nullptr);
    m_slave->removeSlider(m_slider);
    QCOMPARE(m_slider->parentWidget(), m_master.data());
}

void TestPlotSliderCoupling::connectingPlacesTheHandles()
{
    buildPlots();
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSliderCoupling::connectingNullDoesNothing()
{
    buildPlots();
    QSignalSpy spy(m_slave, &ZrQtPlot::canvasChanged);
    m_slave->connectSlider(nullptr);
    QCOMPARE(spy.count(), 0);
}

void TestPlotSliderCoupling::connectingTwiceConnectsOnce()
{
    class CountingSlider : public ZrQtPlotSlider
    {
    public:
        using QObject::receivers;
    };
    ZrQtPlot slave;
    CountingSlider slider;
    slave.connectSlider(&slider);
    slave.connectSlider(&slider);
    QCOMPARE(slider.receivers(SIGNAL(selectionChanged(QRectF, ZrQtPlot::CoordinateSystem, bool))), 1);
}

void TestPlotSliderCoupling::draggingAnEdgeMovesTheSlave()
{
    buildPlots();
    press(97);
    move(150);
    QCOMPARE(left(m_slave), 25.0);
    QCOMPARE(right(m_slave), 75.0);
    release(150);
    press(53);
    move(20);
    release(20);
    QCOMPARE(left(m_slave), 10.0);
    QCOMPARE(right(m_slave), 75.0);
    QCOMPARE(leftPosition(), 20);
    QCOMPARE(rightPosition(), 150);
}

void TestPlotSliderCoupling::draggingTheMiddleMovesTheSlave()
{
    buildPlots();
    press(75);
    for (int x = 80; x <= 160; x += 10)
        move(x);
    QCOMPARE(left(m_slave), 67.5);
    QCOMPARE(right(m_slave), 92.5);
    move(300);
    QCOMPARE(left(m_slave), 75.0);
    QCOMPARE(right(m_slave), 100.0);
    release(300);
}

void TestPlotSliderCoupling::slaveKeepsItsYRange()
{
    buildPlots();
    press(97);
    move(150);
    release(150);
    QCOMPARE(m_slave->canvas(ZrQtPlot::COSY_0), QRectF(25.0, 2.0, 50.0, 4.0));
    QCOMPARE(m_master->canvas(ZrQtPlot::COSY_0), QRectF(0.0, 0.0, 100.0, 10.0));
}

void TestPlotSliderCoupling::slaveMovesTheHandles()
{
    buildPlots();
    m_slave->setCanvas(QRectF(10.0, 2.0, 35.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 20);
    QCOMPARE(rightPosition(), 90);
    m_slave->setMaxX(80.0, ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 20);
    QCOMPARE(rightPosition(), 160);
    m_slave->setCanvas(QRectF(-100.0, 2.0, 400.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 0);
    // A slider that is clamped does not hold its slave back.
    QCOMPARE(left(m_slave), -100.0);
    QCOMPARE(right(m_slave), 300.0);
}

void TestPlotSliderCoupling::silentDragMovesTheSlaveAtRelease()
{
    buildPlots();
    m_slider->setUpdateWhileDragging(false);
    QSignalSpy spy(m_slave, &ZrQtPlot::canvasChanged);
    press(97);
    move(120);
    move(150);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(right(m_slave), 50.0);
    release(150);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(right(m_slave), 75.0);
}

void TestPlotSliderCoupling::noFeedback()
{
    buildPlots();
    QSignalSpy selection(m_slider, &ZrQtPlotSlider::selectionChanged);
    QSignalSpy master(m_master, &ZrQtPlot::canvasChanged);
    QSignalSpy slave(m_slave, &ZrQtPlot::canvasChanged);
    m_slave->setCanvas(QRectF(10.0, 2.0, 35.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(selection.count(), 0);
    QCOMPARE(slave.count(), 1);
    press(87);
    move(120);
    QCOMPARE(selection.count(), 1);
    QCOMPARE(slave.count(), 2);
    release(120);
    QCOMPARE(selection.count(), 1);
    QCOMPARE(slave.count(), 2);
    QCOMPARE(master.count(), 0);
}

void TestPlotSliderCoupling::otherSystems()
{
    buildPlots();
    m_slider->setMasterCosy(ZrQtPlot::COSY_1);
    m_slider->setSlaveCosy(ZrQtPlot::COSY_2);
    m_master->findChild<ZrQtBufferedChannel *>()->setCosyX(ZrQtPlot::COSY_1);
    m_slave->findChild<ZrQtBufferedChannel *>()->setCosyX(ZrQtPlot::COSY_2);
    m_slave->setCanvas(QRectF(50.0, 0.0, 25.0, 1.0), ZrQtPlot::COSY_2);
    m_slave->setCanvas(QRectF(50.0, 0.0, 25.0, 2.0), ZrQtPlot::COSY_2);
    QCOMPARE(leftPosition(), 100);
    QCOMPARE(rightPosition(), 150);
    const QRectF before = m_slave->canvas(ZrQtPlot::COSY_0);
    press(147);
    move(180);
    release(180);
    QCOMPARE(m_slave->canvas(ZrQtPlot::COSY_2).right(), 90.0);
    QCOMPARE(m_slave->canvas(ZrQtPlot::COSY_0), before);
    m_slave->setCanvas(QRectF(1.0, 0.0, 2.0, 1.0), ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 100);
    QCOMPARE(rightPosition(), 180);
}

void TestPlotSliderCoupling::slaveThatReturnsToAutoFit()
{
    buildPlots();
    m_slave->setScalingX(ZrQtPlot::AutoFit, ZrQtPlot::COSY_0, true);
    m_slave->setCanvas(QRectF(0.0, 0.0, 100.0, 10.0), ZrQtPlot::COSY_0);
    QCOMPARE(rightPosition(), 199);
    press(196);
    move(195);
    // So near to its data the slave fits itself again, and the handles show what it shows.
    QCOMPARE(right(m_slave), 100.0);
    release(195);
    QCOMPARE(rightPosition(), 199);
    press(196);
    move(150);
    release(150);
    QCOMPARE(right(m_slave), 75.0);
    QCOMPARE(rightPosition(), 150);
}

void TestPlotSliderCoupling::slaveThatKeepsItsAspectRatio()
{
    buildPlots();
    m_slave->setCanvas(QRectF(25.0, 0.0, 25.0, 10.0), ZrQtPlot::COSY_0);
    m_slave->setKeepAspectRatio(true);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
    // Here the range for y is what counts: the slave shows 25 units whatever it is sent.
    press(97);
    move(90);
    release(90);
    QCOMPARE(right(m_slave), 45.0);
    QCOMPARE(leftPosition(), 45);
    QCOMPARE(rightPosition(), 95);
}

void TestPlotSliderCoupling::masterThatGrowsDuringADrag()
{
    buildPlots();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    move(100);
    m_masterData->setData({0.0, 40.0, 200.0}, {0.0, 10.0, 5.0});
    QCOMPARE(spy.count(), 2);
    QCOMPARE(left(m_slave), 50.0);
    QCOMPARE(right(m_slave), 100.0);
    release(100);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSliderCoupling::masterThatGrowsAtRest()
{
    buildPlots();
    m_masterData->setData({0.0, 40.0, 200.0}, {0.0, 10.0, 5.0});
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
    QCOMPARE(left(m_slave), 25.0);
    m_slave->setCanvas(QRectF(26.0, 2.0, 48.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 26);
    QCOMPARE(rightPosition(), 74);
}

void TestPlotSliderCoupling::resizingTheMaster()
{
    buildPlots();
    m_master->resize(100, 80);
    QApplication::processEvents();
    QCOMPARE(m_slider->width(), 100);
    QCOMPARE(leftPosition(), 25);
    QCOMPARE(rightPosition(), 50);
    QCOMPARE(m_slave->canvas(ZrQtPlot::COSY_0), QRectF(25.0, 2.0, 25.0, 4.0));
}

void TestPlotSliderCoupling::disconnectingTheMaster()
{
    buildPlots();
    m_master->disconnectSlider();
    QCOMPARE(m_slider->parentWidget(), m_master.data());
    m_master->setCanvas(QRectF(0.0, 0.0, 50.0, 10.0), ZrQtPlot::COSY_0);
    press(75);
    move(85);
    release(85);
    // The slave is still coupled; the master's range is the old one.
    QCOMPARE(left(m_slave), 30.0);
}

void TestPlotSliderCoupling::disconnectingTheSlaveChangesNothing()
{
    buildPlots();
    m_slave->disconnectSlider();
    press(75);
    move(85);
    release(85);
    QCOMPARE(left(m_slave), 30.0);
    m_slave->setCanvas(QRectF(10.0, 2.0, 35.0, 4.0), ZrQtPlot::COSY_0);
    QCOMPARE(leftPosition(), 20);
}

void TestPlotSliderCoupling::disconnectingWithoutASlider()
{
    ZrQtPlot plot;
    plot.disconnectSlider();
    plot.addSlider(nullptr);
    QCOMPARE(plot.findChild<ZrQtPlotSlider *>(), nullptr);
}

void TestPlotSliderCoupling::disconnectingOnePlotThatIsBoth()
{
    buildPlots();
    m_master->connectSlider(m_slider);
    QCOMPARE(rightPosition(), 199);
    m_master->disconnectSlider();
    press(196);
    move(150);
    release(150);
    QCOMPARE(right(m_master), 100.0);
    QCOMPARE(right(m_slave), 75.0);
    m_master->setCanvas(QRectF(10.0, 0.0, 35.0, 10.0), ZrQtPlot::COSY_0);
    QCOMPARE(rightPosition(), 150);
}

void TestPlotSliderCoupling::onePlotAsMasterAndSlave()
{
    buildPlots();
    delete m_slave;
    m_master->connectSlider(m_slider);
    QCOMPARE(rightPosition(), 199);
    QSignalSpy selection(m_slider, &ZrQtPlotSlider::selectionChanged);
    QSignalSpy canvas(m_master, &ZrQtPlot::canvasChanged);
    press(196);
    move(150);
    QCOMPARE(selection.count(), 1);
    QCOMPARE(canvas.count(), 1);
    QCOMPARE(right(m_master), 75.0);
    // Relative to the range at the start of the drag, not to what it has made of the plot.
    move(120);
    QCOMPARE(selection.count(), 2);
    QCOMPARE(right(m_master), 60.0);
    release(120);
    QCOMPARE(rightPosition(), 120);
}

void TestPlotSliderCoupling::deletedInAnyOrder_data()
{
    QTest::addColumn<QString>("order");
    QTest::newRow("slider, master, slave") << QStringLiteral("123");
    QTest::newRow("slider, slave, master") << QStringLiteral("132");
    QTest::newRow("master with its slider, slave") << QStringLiteral("23");
    QTest::newRow("slave, slider, master") << QStringLiteral("312");
    QTest::newRow("slave, master with its slider") << QStringLiteral("32");
    QTest::newRow("the window with all of them") << QString();
}

void TestPlotSliderCoupling::deletedInAnyOrder()
{
    QFETCH(QString, order);
    buildPlots();
    for (QChar which : order) {
        delete (which == QLatin1Char('1')   ? static_cast<QWidget *>(m_slider)
                : which == QLatin1Char('2') ? static_cast<QWidget *>(m_master)
                                            : static_cast<QWidget *>(m_slave));
        if (m_slave)
            m_slave->setCanvas(QRectF(order.size(), 2.0, 35.0, 4.0), ZrQtPlot::COSY_0);
        if (m_master)
            m_master->setCanvas(QRectF(order.size(), 2.0, 75.0, 4.0), ZrQtPlot::COSY_0);
        QApplication::processEvents();
        if (m_slider) {
            press(75);
            move(80);
            release(80);
        }
    }
    m_window.reset();
    QVERIFY(!m_slider && !m_master && !m_slave);
}

void TestPlotSliderCoupling::deletedDuringADrag_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("the slider") << 0;
    QTest::newRow("the master with its slider") << 1;
    QTest::newRow("the slave") << 2;
}

void TestPlotSliderCoupling::deletedDuringADrag()
{
    QFETCH(int, which);
    buildPlots();
    const auto end = [this, which] {
        delete (which == 0   ? static_cast<QWidget *>(m_slider)
                : which == 1 ? static_cast<QWidget *>(m_master)
                             : static_cast<QWidget *>(m_slave));
    };
    press(97);
    move(110);
    connect(m_slider, &ZrQtPlotSlider::selectionChanged, m_window.data(), [end, which] {
        // Qt itself does not survive a widget that dies under its mouse event.
        if (which == 2)
            end();
        else
            QTimer::singleShot(0, end);
    });
    move(120);
    QTRY_VERIFY(!m_slider || !m_slave);
    QTest::mouseMove(window(), QPoint(230, 30));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, QPoint(230, 30));
    QApplication::processEvents();
    QCOMPARE(!m_master, which == 1);
    QCOMPARE(!m_slave, which == 2);
}

void TestPlotSliderCoupling::stormOfEvents()
{
    buildPlots();
    std::mt19937 random(99);
    const auto number = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int i = 0; i < 3000; ++i) {
        const int x = int(random() % 260) - 30;
        switch (random() % 12) {
        case 0:
            press(x);
            break;
        case 1:
        case 2:
        case 3:
            move(x);
            break;
        case 4:
            release(x);
            break;
        case 5:
            m_slave->setCanvas(QRectF(number(-50, 150), 0, number(0, 100), 1), ZrQtPlot::COSY_0);
            break;
        case 6:
            m_master->setCanvas(QRectF(number(-50, 50), 0, number(0, 200), 1), ZrQtPlot::COSY_0);
            break;
        case 7:
            m_masterData->setData({number(-10, 10), number(20, 200)}, {0.0, 1.0});
            break;
        case 8:
            m_master->setScalingX(ZrQtPlot::AutoFit, ZrQtPlot::COSY_0, true);
            break;
        case 9:
            m_slider->setUpdateWhileDragging(random() % 2);
            break;
        case 10:
            m_master->resize(20 + int(random() % 300), 80);
            break;
        case 11:
            m_slave->setKeepAspectRatio(random() % 2);
            break;
        }
        if (i % 20 == 0)
            QApplication::processEvents();
        const QRectF canvas = m_slave->canvas(ZrQtPlot::COSY_0);
        QVERIFY(std::isfinite(canvas.left()) && std::isfinite(canvas.right()));
        QVERIFY(canvas.width() > 0.0);
    }
}

QTEST_MAIN(TestPlotSliderCoupling)
#include "tst_zrqtplotslider_coupling.moc"
