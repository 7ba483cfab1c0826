#include "shared/quiettest.h"
#include "shared/registrationscene.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

/// Which widgets a plot takes in and lets go, by call and by child event, and what it wires for an axis.
class tst_ZrQtPlotRegistration : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void construction();

    void axisFollowsTheCanvas_data();
    void axisFollowsTheCanvas();
    void axisGetsNoCanvasAtFirst();
    void axisTwice();
    void axisRemoved();
    void inversionReachesTheChannels_data();
    void inversionReachesTheChannels();
    void inversionEndsWithRemoval();

    void customWidget();
    void childWithoutWidgetIsIgnored();

    void childrenRegisterThemselves_data();
    void childrenRegisterThemselves();
    void movedToAnotherPlot();
    void movedElsewhereKeepsItsParent_data();
    void movedElsewhereKeepsItsParent();
    void nullAndStrangers();
    void sliderLeavesForAnotherPlot();
};

void tst_ZrQtPlotRegistration::construction()
{
    QWidget parent;
    ZrQtPlot plot(&parent);
    QCOMPARE(plot.parentWidget(), &parent);
    QCOMPARE(plot.sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(plot.sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(plot.minimumSize(), QSize(20, 20));
    QVERIFY(plot.hasMouseTracking());
    QCOMPARE(plot.focusPolicy(), Qt::ClickFocus);
    QVERIFY(overlayOf(&plot));
    QCOMPARE(overlayOf(&plot)->parentWidget(), &plot);
    for (const Cosy cosy : allSystems())
        QCOMPARE(plot.canvas(cosy), QRectF(0, 0, 10, 10));
    plot.setParent(nullptr);
}

void tst_ZrQtPlotRegistration::axisFollowsTheCanvas_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");

    QTest::newRow("left: y") << Qt::LeftEdge << 3.0 << 7.0;
    QTest::newRow("right: y") << Qt::RightEdge << 3.0 << 7.0;
    QTest::newRow("top: x") << Qt::TopEdge << 1.0 << 2.0;
    QTest::newRow("bottom: x") << Qt::BottomEdge << 1.0 << 2.0;
}

void tst_ZrQtPlotRegistration::axisFollowsTheCanvas()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const double, min);
    QFETCH(const double, max);

    Scene scene;
    new ProbeChannel(scene.plot, QRectF(), C1, C1);
    auto *axis = new ZrQtAxis;
    axis->setPosition(edge);
    axis->setCosy(C1);
    scene.plot->addAxis(axis);
    QCOMPARE(axis->parentWidget(), scene.plot);
    // Updated before the call returns.
    scene.plot->setCanvas(QRectF(1, 3, 1, 4), C1);
    QCOMPARE(axis->min(), min);
    QCOMPARE(axis->max(), max);
    scene.plot->setMinX(-50, C0);
    scene.plot->setMinY(-50, C0);
    QCOMPARE(axis->min(), min);
}

void tst_ZrQtPlotRegistration::axisGetsNoCanvasAtFirst()
{
    Scene scene;
    auto *axis = new ZrQtAxis;
    axis->setMinMax(-3, -1);
    PlotLog log(scene.plot);
    scene.plot->addAxis(axis);
    axis->show();
    settle(scene.plot);
    QCOMPARE(axis->min(), -3.0);
    QCOMPARE(axis->max(), -1.0);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 10, 10));
}

void tst_ZrQtPlotRegistration::axisTwice()
{
    // Registered twice, the axis would take its width twice.
    Scene scene;
    auto *axis = new ZrQtAxis(scene.plot);
    scene.plot->addAxis(axis);
    axis->show();
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot).left(), axis->width());
    scene.plot->removeAxis(axis);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    delete axis;
}

void tst_ZrQtPlotRegistration::axisRemoved()
{
    Scene scene;
    auto *axis = new ZrQtAxis(scene.plot);
    axis->show();
    settle(scene.plot);
    QVERIFY(plotArea(scene.plot) != scene.plot->rect());
    scene.plot->setMinY(2, C0);
    QCOMPARE(axis->min(), 2.0);

    scene.plot->removeAxis(axis);
    QCOMPARE(axis->parentWidget(), nullptr);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    scene.plot->setMinY(4, C0);
    QCOMPARE(axis->min(), 2.0);
    // Its wishes no longer reach the plot.
    scene.repaints();
    Q_EMIT axis->requestUpdate();
    QVERIFY(!scene.repaints());

    // It can come back.
    scene.plot->addAxis(axis);
    scene.plot->setMinY(3, C0);
    QCOMPARE(axis->min(), 3.0);
    scene.repaints();
    Q_EMIT axis->requestUpdate();
    QVERIFY(scene.repaints());
}

void tst_ZrQtPlotRegistration::inversionReachesTheChannels_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<Cosy>("cosy");
    QTest::addColumn<QPoint>("pixel"); // of the point (1, 1) of the canvas (0, 0, 10 x 10)

    // The plot area has 400 x 200 pixels, the channel shows x in COSY_0 and y in COSY_1.
    QTest::newRow("bottom, system of x") << Qt::BottomEdge << C0 << QPoint(360, 180);
    QTest::newRow("top, system of x") << Qt::TopEdge << C0 << QPoint(360, 180);
    QTest::newRow("left, system of y") << Qt::LeftEdge << C1 << QPoint(40, 20);
    QTest::newRow("right, system of y") << Qt::RightEdge << C1 << QPoint(40, 20);
    QTest::newRow("bottom, other system") << Qt::BottomEdge << C1 << QPoint(40, 180);
    QTest::newRow("left, other system") << Qt::LeftEdge << C0 << QPoint(40, 180);
}

void tst_ZrQtPlotRegistration::inversionReachesTheChannels()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const Cosy, cosy);
    QFETCH(const QPoint, pixel);

    for (const bool axisFirst : {true, false}) {
        Scene scene;
        auto *axis = new ZrQtAxis; // hidden, so that it takes no space
        axis->setPosition(edge);
        axis->setCosy(cosy);
        axis->setInverted(true);
        axis->hide();
        if (axisFirst)
            scene.plot->addAxis(axis);
        auto *channel = new ProbeChannel(scene.plot, QRectF(), C0, C1);
        if (!axisFirst) {
            QCOMPARE(channel->mapToPixel(QPointF(1, 1)), QPoint(40, 180));
            scene.plot->addAxis(axis);
        }
        QCOMPARE(plotArea(scene.plot), scene.plot->rect());
        QCOMPARE(channel->mapToPixel(QPointF(1, 1)), pixel);

        // And it is followed.
        axis->setInverted(false);
        QCOMPARE(channel->mapToPixel(QPointF(1, 1)), QPoint(40, 180));
        scene.repaints();
        axis->setInverted(true);
        QCOMPARE(channel->mapToPixel(QPointF(1, 1)), pixel);
        QVERIFY(scene.repaints());
    }
}

void tst_ZrQtPlotRegistration::inversionEndsWithRemoval()
{
    Scene scene;
    auto *axis = new ZrQtAxis(scene.plot);
    axis->setPosition(Qt::BottomEdge);
    axis->hide();
    auto *first = new ProbeChannel(scene.plot, QRectF());
    auto *second = new ProbeChannel(scene.plot, QRectF());
    first->setGeometry(0, 0, 400, 200);
    second->setGeometry(0, 0, 400, 200);

    scene.plot->removeChannel(first);
    axis->setInverted(true);
    QCOMPARE(first->mapToPixel(QPointF(1, 1)).x(), 40);
    QCOMPARE(second->mapToPixel(QPointF(1, 1)).x(), 360);
    scene.plot->removeAxis(axis);
    axis->setInverted(false);
    QCOMPARE(second->mapToPixel(QPointF(1, 1)).x(), 360);
    delete first;
    delete axis;
}

void tst_ZrQtPlotRegistration::customWidget()
{
    Scene scene;
    QWidget custom;
    scene.plot->addCustomWidget(&custom);
    scene.plot->addCustomWidget(&custom);
    QCOMPARE(custom.parentWidget(), scene.plot);
    settle(scene.plot);
    QCOMPARE(custom.geometry(), plotArea(scene.plot));

    scene.plot->removeCustomWidget(&custom);
    QCOMPARE(custom.parentWidget(), nullptr);
    custom.setGeometry(1, 2, 30, 40);
    settle(scene.plot);
    QCOMPARE(custom.geometry(), QRect(1, 2, 30, 40));
    scene.plot->removeCustomWidget(&custom);
    QCOMPARE(custom.parentWidget(), nullptr);
}

void tst_ZrQtPlotRegistration::childWithoutWidgetIsIgnored()
{
    Scene scene;
    auto *timer = new QTimer(scene.plot);
    settle(scene.plot);
    delete timer;
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
}

void tst_ZrQtPlotRegistration::childrenRegisterThemselves_data()
{
    QTest::addColumn<bool>("built");

    QTest::newRow("built as children") << true;
    QTest::newRow("made children") << false;
}

void tst_ZrQtPlotRegistration::childrenRegisterThemselves()
{
    QFETCH(const bool, built);

    Scene scene;
    auto *axis = new ZrQtAxis(built ? scene.plot : nullptr);
    auto *channel = new ProbeChannel(built ? scene.plot : nullptr);
    auto *custom = new QWidget(built ? scene.plot : nullptr);
    if (!built) {
        axis->setParent(scene.plot);
        channel->setParent(scene.plot);
        custom->setParent(scene.plot);
    }
    axis->show();
    channel->show();
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot).left(), axis->width());
    QCOMPARE(channel->geometry(), plotArea(scene.plot));
    QCOMPARE(custom->geometry(), plotArea(scene.plot));
    channel->setRect(QRectF(0, 0, 3, 4));
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 3, 4));
    QCOMPARE(axis->max(), 4.0);

    // They leave as they came.
    axis->setParent(nullptr);
    channel->setParent(nullptr);
    custom->setParent(nullptr);
    custom->setGeometry(1, 2, 30, 40);
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    QCOMPARE(custom->geometry(), QRect(1, 2, 30, 40));
    channel->setRect(QRectF(0, 0, 30, 40));
    QCOMPARE(scene.plot->canvas(C0), QRectF(0, 0, 3, 4));
    scene.plot->setMaxY(100, C0);
    QCOMPARE(axis->max(), 4.0);
    delete axis;
    delete channel;
    delete custom;
}

void tst_ZrQtPlotRegistration::movedToAnotherPlot()
{
    Scene one;
    Scene two;
    auto *channel = new ProbeChannel(one.plot, QRectF(0, 0, 3, 4));
    auto *axis = new ZrQtAxis(one.plot);
    two.plot->addChannel(channel);
    two.plot->addAxis(axis);
    channel->show();
    axis->show();
    settle(one.plot);
    settle(two.plot);
    QCOMPARE(channel->parentWidget(), two.plot);
    QCOMPARE(axis->parentWidget(), two.plot);
    QCOMPARE(plotArea(one.plot), one.plot->rect());
    QCOMPARE(plotArea(two.plot).left(), axis->width());
    QCOMPARE(two.plot->canvas(C0), QRectF(0, 0, 3, 4));

    channel->setRect(QRectF(0, 0, 30, 40));
    QCOMPARE(one.plot->canvas(C0), QRectF(0, 0, 3, 4));
    QCOMPARE(two.plot->canvas(C0), QRectF(0, 0, 30, 40));
    QCOMPARE(axis->max(), 40.0);
    one.plot->setMaxY(1, C0);
    QCOMPARE(axis->max(), 40.0);
    QCOMPARE(channel->canvas(), QRectF(0, 0, 30, 40));

    // The former plot has no say any more.
    one.plot->removeChannel(channel);
    one.plot->removeAxis(axis);
    QCOMPARE(channel->parentWidget(), two.plot);
    QCOMPARE(axis->parentWidget(), two.plot);
}

void tst_ZrQtPlotRegistration::movedElsewhereKeepsItsParent_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("axis") << 0;
    QTest::newRow("channel") << 1;
    QTest::newRow("custom widget") << 2;
    QTest::newRow("slider") << 3;
}

void tst_ZrQtPlotRegistration::movedElsewhereKeepsItsParent()
{
    QFETCH(const int, kind);

    Scene scene;
    QWidget elsewhere;
    QWidget *child = nullptr;
    if (kind == 0)
        child = new ZrQtAxis(scene.plot);
    else if (kind == 1)
        child = new ProbeChannel(scene.plot, QRectF(0, 0, 3, 4));
    else if (kind == 2)
        child = new QWidget(scene.plot);
    else
        child = new ZrQtPlotSlider(scene.plot);
    child->show();
    QObjectList others = scene.plot->children();
    others.removeAll(child);
    child->setParent(&elsewhere);
    QCOMPARE(child->parentWidget(), &elsewhere);
    QCOMPARE(scene.plot->children(), others);
    QVERIFY(elsewhere.children().contains(child));
    QVERIFY(!scene.plot->children().contains(child));
    QVERIFY(!child->isWindow());

    scene.plot->removeAxis(qobject_cast<ZrQtAxis *>(child));
    scene.plot->removeChannel(qobject_cast<ZrQtBaseChannel *>(child));
    scene.plot->removeCustomWidget(child);
    QCOMPARE(child->parentWidget(), &elsewhere);
}

void tst_ZrQtPlotRegistration::nullAndStrangers()
{
    Scene scene;
    PlotLog log(scene.plot);
    scene.plot->setScaling(ZrQtPlot::Custom, C0);
    log.take();
    scene.plot->addAxis(nullptr);
    scene.plot->addChannel(nullptr);
    scene.plot->addCustomWidget(nullptr);
    scene.plot->removeAxis(nullptr);
    scene.plot->removeChannel(nullptr);
    scene.plot->removeCustomWidget(nullptr);
    QWidget home;
    auto *axis = new ZrQtAxis(&home);
    auto *channel = new ProbeChannel(&home);
    auto *custom = new QWidget(&home);
    scene.plot->removeAxis(axis);
    scene.plot->removeChannel(channel);
    scene.plot->removeCustomWidget(custom);
    QCOMPARE(axis->parentWidget(), &home);
    QCOMPARE(channel->parentWidget(), &home);
    QCOMPARE(custom->parentWidget(), &home);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.plot->scalingX(C0), ZrQtPlot::Custom);
    settle(scene.plot);
    QVERIFY(!scene.plot->grab().isNull());
}

void tst_ZrQtPlotRegistration::sliderLeavesForAnotherPlot()
{
    ZrQtPlot first;
    ZrQtPlot second;
    auto *slider = new ZrQtPlotSlider(&first);
    new ZrQtBufferedChannel(&first);
    QObjectList others = first.children();
    others.removeOne(slider);
    second.addSlider(slider);
    QCOMPARE(slider->parentWidget(), &second);
    QCOMPARE(first.children(), others);
}

QTEST_MAIN(tst_ZrQtPlotRegistration)

#include "tst_zrqtplot_registration.moc"
