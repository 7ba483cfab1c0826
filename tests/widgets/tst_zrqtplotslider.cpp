#include "shared/sliderfixture.h"

class TestPlotSlider : public SliderFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase();

    void defaults();
    void properties();
    void notifiesOnlyChanges();
    void parentSeesTheClass();

    void pressDecidesWhatIsDragged_data();
    void pressDecidesWhatIsDragged();
    void anyButtonDrags_data();
    void anyButtonDrags();
    void mouseEventsStayInTheSlider();
    void dragRightEdge();
    void dragRightEdgeOntoTheLeftHandle();
    void dragLeftEdge();
    void dragLeftEdgeOntoTheRightHandle();
    void dragEdgesBeyondTheEnds();
    void moveSelection();
    void moveAgainstTheEnds();
    void moveOfAnEdgeJumpsToTheMouse();
    void dragOutsideTheHandles();
    void oneSignalPerMove();
    void oneSignalAtRelease();
    void releaseAloneEmits();
    void leaveEndsTheDrag();

    void masterCanvas_data();
    void masterCanvas();
    void masterCanvasDuringADrag();
    void masterCanvasDuringAMove();
    void masterCanvasDuringASilentDrag();
    void slaveCanvas();
    void slaveCanvasOfAnotherSystem();
    void slaveCanvasWiderThanTheMaster();
    void slaveCanvasIsNotEchoed();
    void signalCarriesTheSlaveSystem();
    void onePlotAsMasterAndSlave();
    void slaveThatEndsElsewhere();
    void otherSlotsGetWhatWasEmitted();
    void resizePlacesTheHandles();
    void hiddenSliderKnowsItsWidth();
    void withoutAMaster();

    void hoverCursor_data();
    void hoverCursor();
};

void TestPlotSlider::cleanupTestCase()
{
    m_window.reset();
}

void TestPlotSlider::defaults()
{
    const ZrQtPlotSlider slider;
    QCOMPARE(slider.masterCosy(), ZrQtPlot::COSY_0);
    QCOMPARE(slider.slaveCosy(), ZrQtPlot::COSY_0);
    QCOMPARE(slider.updateWhileDragging(), true);
    QCOMPARE(slider.slaveHandleColor(), QColor(Qt::gray));
    QCOMPARE(slider.slaveHandlePen(), Qt::SolidLine);
    QCOMPARE(slider.leftDragging(), false);
    QCOMPARE(slider.rightDragging(), false);
    QVERIFY(slider.hasMouseTracking());
    QVERIFY(!slider.parentWidget());
}

void TestPlotSlider::properties()
{
    ZrQtPlotSlider slider;
    const QMetaObject *meta = slider.metaObject();
    const auto notifier = [meta](const char *name) {
        return meta->property(meta->indexOfProperty(name)).notifySignal().name();
    };
    QCOMPARE(notifier("masterCosy"), QByteArray("masterCosyChanged"));
    QCOMPARE(notifier("slaveCosy"), QByteArray("slaveCosyChanged"));
    QVERIFY(slider.setProperty("masterCosy", QVariant::fromValue(ZrQtPlot::COSY_3)));
    QCOMPARE(slider.masterCosy(), ZrQtPlot::COSY_3);
    // As forms do it, by the name of the key.
    QVERIFY(slider.setProperty("slaveCosy", QStringLiteral("COSY_15")));
    QCOMPARE(slider.slaveCosy(), ZrQtPlot::COSY_15);
    QVERIFY(slider.setProperty("updateWhileDragging", false));
    QCOMPARE(slider.updateWhileDragging(), false);
    QVERIFY(slider.setProperty("slaveHandleColor", QColor(1, 2, 3)));
    QCOMPARE(slider.slaveHandleColor(), QColor(1, 2, 3));
    QVERIFY(slider.setProperty("slaveHandlePen", QVariant::fromValue(Qt::DashLine)));
    QCOMPARE(slider.slaveHandlePen(), Qt::DashLine);
    QVERIFY(meta->indexOfSignal("posChanged(double)") >= 0);
    QVERIFY(meta->indexOfSignal("sizeChanged(double)") >= 0);
    QVERIFY(meta->indexOfSignal("selectionChanged(QRectF,ZrQtPlot::CoordinateSystem,bool)") >= 0);
}

void TestPlotSlider::notifiesOnlyChanges()
{
    build();
    QSignalSpy master(m_slider, &ZrQtPlotSlider::masterCosyChanged);
    QSignalSpy slave(m_slider, &ZrQtPlotSlider::slaveCosyChanged);
    m_slider->setMasterCosy(ZrQtPlot::COSY_0);
    m_slider->setSlaveCosy(ZrQtPlot::COSY_0);
    QCOMPARE(master.count() + slave.count(), 0);
    m_slider->setMasterCosy(ZrQtPlot::COSY_4);
    QCOMPARE(master.count(), 1);
    QCOMPARE(master.at(0).at(0).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_4);
    QCOMPARE(slave.count(), 0);
    m_slider->setSlaveCosy(ZrQtPlot::COSY_5);
    m_slider->setSlaveCosy(ZrQtPlot::COSY_5);
    QCOMPARE(slave.count(), 1);
    QCOMPARE(slave.at(0).at(0).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_5);
    QCOMPARE(master.count(), 1);
}

class ParentThatLooks : public QWidget
{
public:
    bool m_sawSlider = false;

protected:
    void childEvent(QChildEvent *event) override
    {
        if (event->added())
            m_sawSlider = m_sawSlider || qobject_cast<ZrQtPlotSlider *>(event->child());
    }
};

void TestPlotSlider::parentSeesTheClass()
{
    ParentThatLooks parent;
    const auto *slider = new ZrQtPlotSlider(&parent);
    QVERIFY(parent.m_sawSlider);
    QCOMPARE(slider->parentWidget(), &parent);
}

void TestPlotSlider::pressDecidesWhatIsDragged_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<bool>("left");
    QTest::addColumn<bool>("right");
    QTest::newRow("left of the left handle") << 49 << false << false;
    QTest::newRow("first column of the left handle") << 50 << true << false;
    QTest::newRow("inside the left handle") << 56 << true << false;
    QTest::newRow("last column of the left handle, where the middle begins") << 57 << true << true;
    QTest::newRow("between the handles") << 75 << true << true;
    QTest::newRow("first column of the right handle, where the middle ends") << 93 << true << true;
    QTest::newRow("inside the right handle") << 94 << false << true;
    QTest::newRow("last column of the right handle") << 100 << false << true;
    QTest::newRow("right of the right handle") << 101 << false << false;
}

void TestPlotSlider::pressDecidesWhatIsDragged()
{
    build();
    QFETCH(int, x);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(x);
    QTEST(m_slider->leftDragging(), "left");
    QTEST(m_slider->rightDragging(), "right");
    release(x);
    QVERIFY(!m_slider->leftDragging() && !m_slider->rightDragging());
    QCOMPARE(spy.count(), 0);
}

void TestPlotSlider::anyButtonDrags_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("extra") << int(Qt::ExtraButton1);
}

void TestPlotSlider::anyButtonDrags()
{
    build();
    QFETCH(int, button);
    press(97, Qt::MouseButton(button));
    QVERIFY(m_slider->rightDragging());
    move(150);
    release(150, Qt::MouseButton(button));
    QVERIFY(!m_slider->rightDragging());
    QCOMPARE(rightPosition(), 150);
}

class ParentThatCounts : public QWidget
{
public:
    int m_mouseEvents = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++m_mouseEvents; }
    void mouseMoveEvent(QMouseEvent *) override { ++m_mouseEvents; }
    void mouseReleaseEvent(QMouseEvent *) override { ++m_mouseEvents; }
};

void TestPlotSlider::mouseEventsStayInTheSlider()
{
    ParentThatCounts parent;
    parent.resize(300, 100);
    auto *slider = new ZrQtPlotSlider(&parent);
    slider->setGeometry(0, 0, 200, 40);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QTest::mousePress(parent.windowHandle(), Qt::LeftButton, {}, {100, 20});
    QTest::mouseMove(parent.windowHandle(), {110, 20});
    QTest::mouseRelease(parent.windowHandle(), Qt::LeftButton, {}, {110, 20});
    QCOMPARE(parent.m_mouseEvents, 0);
}

void TestPlotSlider::dragRightEdge()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    move(150);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(25.0, 2.0, 50.0, 0.0));
    QCOMPARE(spy.at(0).at(2).toBool(), true);
    release(150);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 150);
}

void TestPlotSlider::dragRightEdgeOntoTheLeftHandle()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    move(40);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(25.0, 2.0, 8.5, 0.0));
    release(40);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 67);
}

void TestPlotSlider::dragLeftEdge()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(53);
    move(20);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(10.0, 2.0, 40.0, 0.0));
    release(20);
    QCOMPARE(leftPosition(), 20);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSlider::dragLeftEdgeOntoTheRightHandle()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(53);
    move(180);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(41.5, 2.0, 8.5, 0.0));
    release(180);
    QCOMPARE(leftPosition(), 83);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSlider::dragEdgesBeyondTheEnds()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(53);
    move(-30);
    QCOMPARE(spy.takeFirst().at(0).toRectF(), QRectF(0.0, 2.0, 50.0, 0.0));
    release(-30);
    press(97);
    move(260);
    QCOMPARE(spy.takeFirst().at(0).toRectF(), QRectF(0.0, 2.0, 100.0, 0.0));
    release(260);
    QCOMPARE(leftPosition(), 0);
}

void TestPlotSlider::moveSelection()
{
    build();
    setSlave(25.2, 50.7);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(75);
    move(85);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(30.0, 2.0, 25.5, 0.0));
    release(85);
    QCOMPARE(leftPosition(), 60);
    QCOMPARE(rightPosition(), 111);
}

void TestPlotSlider::moveAgainstTheEnds()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(75);
    move(190);
    QCOMPARE(spy.takeFirst().at(0).toRectF(), QRectF(75.0, 2.0, 25.0, 0.0));
    move(5);
    QCOMPARE(spy.takeFirst().at(0).toRectF(), QRectF(0.0, 2.0, 25.0, 0.0));
    move(400);
    QCOMPARE(spy.takeFirst().at(0).toRectF(), QRectF(75.0, 2.0, 25.0, 0.0));
    // The offset of the press counts from the left handle all the time.
    move(75);
    QCOMPARE(spy.takeFirst().at(0).toRectF(), QRectF(25.0, 2.0, 25.0, 0.0));
    release(75);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSlider::moveOfAnEdgeJumpsToTheMouse()
{
    build();
    press(95);
    move(96);
    release(96);
    QCOMPARE(rightPosition(), 96);
    press(54);
    move(55);
    release(55);
    QCOMPARE(leftPosition(), 55);
}

void TestPlotSlider::dragOutsideTheHandles()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(20);
    move(80);
    release(80);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSlider::oneSignalPerMove()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    QCOMPARE(spy.count(), 0);
    for (int i = 1; i <= 5; ++i) {
        move(97 + 10 * i);
        QCOMPARE(spy.count(), i);
    }
    // Also a move that moves nothing.
    move(147, 25);
    QCOMPARE(spy.count(), 6);
    move(147);
    QCOMPARE(spy.count(), 7);
    release(147);
    move(150);
    QCOMPARE(spy.count(), 7);
}

void TestPlotSlider::oneSignalAtRelease()
{
    build();
    m_slider->setUpdateWhileDragging(false);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    for (int i = 1; i <= 5; ++i)
        move(97 + 10 * i);
    QCOMPARE(spy.count(), 0);
    release(147);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(25.0, 2.0, 48.5, 0.0));
    QCOMPARE(spy.at(0).at(2).toBool(), true);
    move(150);
    QCOMPARE(spy.count(), 1);
}

void TestPlotSlider::releaseAloneEmits()
{
    build();
    m_slider->setUpdateWhileDragging(false);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(10);
    release(10);
    QCOMPARE(spy.count(), 1);
    // What the slave said last, with its height: it shows that already.
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(25.0, 2.0, 25.0, 5.0));
    press(10, Qt::RightButton);
    release(10, Qt::RightButton);
    QCOMPARE(spy.count(), 2);
}

void TestPlotSlider::leaveEndsTheDrag()
{
    build();
    m_slider->setUpdateWhileDragging(false);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(75);
    move(85);
    leave();
    QVERIFY(!m_slider->leftDragging() && !m_slider->rightDragging());
    QCOMPARE(spy.count(), 0);
    move(120);
    QCOMPARE(leftPosition(), 60);
    QCOMPARE(spy.count(), 0);
    release(120);
}

void TestPlotSlider::masterCanvas_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<int>("cosy");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("width");
    QTest::newRow("another width") << QRectF(0, 0, 200, 10) << int(ZrQtPlot::COSY_0) << 60.0 << 25.0;
    QTest::newRow("another left") << QRectF(50, 0, 100, 10) << int(ZrQtPlot::COSY_0) << 80.0 << 25.0;
    QTest::newRow("another height only") << QRectF(0, 5, 100, 70) << int(ZrQtPlot::COSY_0) << 30.0 << 25.0;
    QTest::newRow("another system") << QRectF(0, 0, 200, 10) << int(ZrQtPlot::COSY_1) << 30.0 << 25.0;
}

void TestPlotSlider::masterCanvas()
{
    build();
    QFETCH(QRectF, canvas);
    QFETCH(int, cosy);
    QFETCH(double, left);
    QFETCH(double, width);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    m_slider->onMasterCanvasChanged(canvas, ZrQtPlot::CoordinateSystem(cosy));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
    press(75);
    move(85);
    release(85);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(left, 2.0, width, 0.0));
}

void TestPlotSlider::masterCanvasDuringADrag()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    move(100);
    QCOMPARE(spy.count(), 1);
    setMaster(0.0, 100.0);
    QCOMPARE(spy.count(), 1);
    setMaster(0.0, 200.0);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toRectF(), QRectF(50.0, 2.0, 50.0, 0.0));
    m_slider->onMasterCanvasChanged(QRectF(0, 0, 300, 1), ZrQtPlot::COSY_1);
    QCOMPARE(spy.count(), 2);
    release(100);
    setMaster(0.0, 400.0);
    QCOMPARE(spy.count(), 2);
}

void TestPlotSlider::masterCanvasDuringAMove()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(75);
    setMaster(100.0, 300.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(150.0, 2.0, 25.0, 0.0));
    release(75);
}

void TestPlotSlider::masterCanvasDuringASilentDrag()
{
    build();
    m_slider->setUpdateWhileDragging(false);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    move(120);
    setMaster(0.0, 200.0);
    QCOMPARE(spy.count(), 0);
    release(120);
    QCOMPARE(spy.count(), 1);
    // The handles have not moved since, so the release tells what they showed under the old canvas.
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(25.0, 2.0, 35.0, 0.0));
}

void TestPlotSlider::slaveCanvas()
{
    build();
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
    setSlave(60.0, 95.0);
    QCOMPARE(rightPosition(), 190);
    // On purpose stopped by the old place of the right handle at 100.
    QCOMPARE(leftPosition(), 83);
    setSlave(60.0, 95.0);
    QCOMPARE(leftPosition(), 120);
    QCOMPARE(rightPosition(), 190);
}

void TestPlotSlider::slaveCanvasOfAnotherSystem()
{
    build();
    m_slider->onSlaveCanvasChanged(QRectF(0, 0, 10, 10), ZrQtPlot::COSY_1);
    QCOMPARE(leftPosition(), 50);
    m_slider->setSlaveCosy(ZrQtPlot::COSY_1);
    setSlave(0.0, 20.0);
    QCOMPARE(leftPosition(), 50);
    m_slider->onSlaveCanvasChanged(QRectF(0, 0, 20, 10), ZrQtPlot::COSY_1);
    QCOMPARE(leftPosition(), 0);
    QCOMPARE(rightPosition(), 40);
}

void TestPlotSlider::slaveCanvasWiderThanTheMaster()
{
    build();
    setSlave(-50.0, 200.0);
    QCOMPARE(leftPosition(), 0);
    m_slider->setUpdateWhileDragging(false);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(100);
    release(100);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF(0.0, 2.0, 100.0, 5.0));
}

void TestPlotSlider::slaveCanvasIsNotEchoed()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    QSignalSpy pos(m_slider, &ZrQtPlotSlider::posChanged);
    QSignalSpy size(m_slider, &ZrQtPlotSlider::sizeChanged);
    setSlave(10.0, 20.0);
    setSlave(-10.0, 200.0);
    press(97);
    setSlave(10.0, 20.0);
    release(97);
    QCOMPARE(spy.count() + pos.count() + size.count(), 0);
}

void TestPlotSlider::signalCarriesTheSlaveSystem()
{
    build();
    m_slider->setSlaveCosy(ZrQtPlot::COSY_7);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(75);
    move(76);
    release(76);
    QCOMPARE(spy.at(0).at(1).value<ZrQtPlot::CoordinateSystem>(), ZrQtPlot::COSY_7);
}

void TestPlotSlider::onePlotAsMasterAndSlave()
{
    build();
    ZrQtPlotSlider *slider = m_slider;
    connect(slider, &ZrQtPlotSlider::selectionChanged, slider, &ZrQtPlotSlider::onMasterCanvasChanged);
    connect(slider, &ZrQtPlotSlider::selectionChanged, slider, &ZrQtPlotSlider::onSlaveCanvasChanged);
    QSignalSpy spy(slider, &ZrQtPlotSlider::selectionChanged);
    press(97);
    for (int x = 100; x <= 160; x += 20)
        move(x);
    QCOMPARE(spy.count(), 4);
    QCOMPARE(spy.at(3).at(0).toRectF(), QRectF(25.0, 2.0, 55.0, 0.0));
    release(160);
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 160);
    // Once the round is over, canvases count again.
    setMaster(0.0, 50.0);
    press(75);
    move(75, 25);
    QCOMPARE(spy.last().at(0).toRectF(), QRectF(12.5, 2.0, 55.0, 0.0));
    release(75);
}

void TestPlotSlider::slaveThatEndsElsewhere()
{
    build();
    connect(m_slider, &ZrQtPlotSlider::selectionChanged, this, [this] { setSlave(10.0, 90.0); });
    press(97);
    move(150);
    release(150);
    QCOMPARE(leftPosition(), 20);
    QCOMPARE(rightPosition(), 180);
}

void TestPlotSlider::otherSlotsGetWhatWasEmitted()
{
    build();
    connect(m_slider, &ZrQtPlotSlider::selectionChanged, this, [this] { setSlave(10.0, 90.0); });
    QRectF late;
    connect(m_slider, &ZrQtPlotSlider::selectionChanged, this,
            [&late](const QRectF &selection) { late = selection; });
    press(97);
    move(150);
    release(150);
    QCOMPARE(late, QRectF(25.0, 2.0, 50.0, 0.0));
}

void TestPlotSlider::resizePlacesTheHandles()
{
    build();
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    m_slider->resize(100, 40);
    QApplication::processEvents();
    QCOMPARE(leftPosition(), 25);
    QCOMPARE(rightPosition(), 50);
    m_slider->resize(120, 60);
    QApplication::processEvents();
    QCOMPARE(leftPosition(), 30);
    QCOMPARE(rightPosition(), 60);
    QCOMPARE(spy.count(), 0);
}

void TestPlotSlider::hiddenSliderKnowsItsWidth()
{
    build();
    delete m_slider;
    m_slider = new ZrQtPlotSlider(m_window.data());
    m_slider->setGeometry(100, 100, 200, 40);
    setMaster(0.0, 100.0);
    setSlave(25.0, 50.0);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(53, 20), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(m_slider, &press);
    QVERIFY(m_slider->leftDragging() && !m_slider->rightDragging());
    leave();
    m_slider->show();
    QApplication::processEvents();
    QCOMPARE(leftPosition(), 50);
    QCOMPARE(rightPosition(), 100);
}

void TestPlotSlider::withoutAMaster()
{
    build();
    delete m_slider;
    m_slider = new ZrQtPlotSlider(m_window.data());
    m_slider->setGeometry(100, 100, 200, 40);
    m_slider->show();
    QApplication::processEvents();
    QCOMPARE(leftPosition(), 0);
    QCOMPARE(rightPosition(), 199);
    QSignalSpy spy(m_slider, &ZrQtPlotSlider::selectionChanged);
    press(196);
    move(100);
    release(100);
    QCOMPARE(rightPosition(), 100);
    press(50);
    move(90);
    release(90);
    QCOMPARE(leftPosition(), 40);
    QCOMPARE(rightPosition(), 140);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toRectF(), QRectF());
    QCOMPARE(spy.at(1).at(0).toRectF(), QRectF());
}

void TestPlotSlider::hoverCursor_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("left of the handles") << 49 << Qt::ArrowCursor;
    QTest::newRow("first column of the left handle") << 50 << Qt::SplitHCursor;
    QTest::newRow("last column of the left handle") << 57 << Qt::SplitHCursor;
    QTest::newRow("first column between the handles") << 58 << Qt::SizeHorCursor;
    QTest::newRow("last column between the handles") << 92 << Qt::SizeHorCursor;
    QTest::newRow("first column of the right handle") << 93 << Qt::SplitHCursor;
    QTest::newRow("last column of the right handle") << 100 << Qt::SplitHCursor;
    QTest::newRow("right of the handles") << 101 << Qt::ArrowCursor;
}

void TestPlotSlider::hoverCursor()
{
    build();
    QFETCH(int, x);
    QFETCH(Qt::CursorShape, shape);
    move(shape == Qt::ArrowCursor ? 75 : 10);
    QVERIFY(m_slider->cursor().shape() != shape);
    move(x);
    QCOMPARE(m_slider->cursor().shape(), shape);
}

QTEST_MAIN(TestPlotSlider)
#include "tst_zrqtplotslider.moc"
