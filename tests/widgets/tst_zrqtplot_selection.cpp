#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <QtGui/QPainter>

namespace {

QPoint at(int x, int y)
{
    return GestureScene::inArea(x, y);
}

/// What a left release announces before anything else.
QStringList announced(const GestureScene &scene, bool keepAspectRatio = false)
{
    QStringList lines;
    for (Cosy cosy : scene.used)
        lines.append(PlotLog::canvas(GestureScene::start(cosy, keepAspectRatio), cosy));
    return lines;
}

/// The plot as it shows on the screen.
QImage picture(const GestureScene &scene)
{
    return scene.plot->grab().toImage();
}

/// The pixels of the plot area that are not background.
QRect ink(const GestureScene &scene)
{
    const QImage image = picture(scene);
    QRect bounds;
    for (int y = 60; y < 260; ++y) {
        for (int x = 100; x < 500; ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

/// Counts the events of one type that an object receives.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }

    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type;
        return false;
    }

private:
    QEvent::Type m_type;
};

} // namespace

/// Selection of a region and of a line.
class TestPlotSelection : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void regionIsReported_data() { addVariants(); }
    void regionIsReported();
    void lineIsReported_data() { addVariants(); }
    void lineIsReported();
    void systemsOfXAndYMayDiffer_data();
    void systemsOfXAndYMayDiffer();

    void regionOfEveryShape_data();
    void regionOfEveryShape();
    void lineOfEveryShape_data();
    void lineOfEveryShape();
    void lineEndsExactlyOnTheRightBorder();

    void escapeCancels_data();
    void escapeCancels();
    void escapeNeedsNoPress();
    void pressKeepsTheCancellation();
    void escapeOutsideASelectionCancelsNothing();
    void cancellationEndsWithAnyLeftRelease();
    void keysGoOnToTheParent();
    void otherButtonLeavesTheSelectionPending();

    void bandIsPaintedDashed_data();
    void bandIsPaintedDashed();
    void lineIsPainted();
    void bandLeavesTheScreen_data();
    void bandLeavesTheScreen();
    void bandIsRepaintedOnTheWay_data();
    void bandIsRepaintedOnTheWay();
    void nothingIsPaintedInOtherModes();
    void legendLiesAboveTheLine();
};

void TestPlotSelection::regionIsReported()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    GestureLog log(scene.plot);
    QVERIFY(press(scene.plot, at(240, 70)));
    moveTo(scene.plot, at(90, 90));
    moveTo(scene.plot, at(40, 20));
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, at(40, 20));

    // Inverted axes do not count, on purpose.
    const QRectF shown = GestureScene::start(ZrQtPlot::COSY_0, variant.keepAspectRatio);
    const QRectF region(shown.left() + 0.1 * shown.width(), shown.top() + 0.65 * shown.height(),
                        0.5 * shown.width(), 0.25 * shown.height());
    QCOMPARE(log.take(), announced(scene, variant.keepAspectRatio) + QStringList(GestureLog::roi(region)));
}

void TestPlotSelection::lineIsReported()
{
    QFETCH(Variant, variant);
    GestureScene scene(variant);
    QVERIFY(scene.isReady());
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    GestureLog log(scene.plot);
    QVERIFY(press(scene.plot, at(240, 70)));
    moveTo(scene.plot, at(90, 90));
    moveTo(scene.plot, at(40, 20));
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, at(40, 20));

    const QRectF shown = GestureScene::start(ZrQtPlot::COSY_0, variant.keepAspectRatio);
    const QLineF line(shown.left() + 0.6 * shown.width(), shown.bottom() - 0.35 * shown.height(),
                      shown.left() + 0.1 * shown.width(), shown.bottom() - 0.1 * shown.height());
    QCOMPARE(log.take(), announced(scene, variant.keepAspectRatio) + QStringList(GestureLog::line(line)));
}

void TestPlotSelection::systemsOfXAndYMayDiffer_data()
{
    QTest::addColumn<bool>("keep");
    QTest::addColumn<QRectF>("region");
    QTest::addColumn<QLineF>("line");
    // COSY_1 shows x 100 to 104, COSY_2 y -1 to 0.
    QTest::newRow("free aspect ratio")
        << false << QRectF(101, -0.5, 2, 0.25) << QLineF(101, -0.25, 103, -0.5);
    // COSY_1 then shows x 98 to 106.
    QTest::newRow("aspect ratio kept") << true << QRectF(100, -0.5, 4, 0.25) << QLineF(100, -0.25, 104, -0.5);
}

void TestPlotSelection::systemsOfXAndYMayDiffer()
{
    QFETCH(bool, keep);
    QFETCH(QRectF, region);
    QFETCH(QLineF, line);
    GestureScene scene({false, false, keep, 3});
    scene.plot->setSelectionCosyX(ZrQtPlot::COSY_1);
    scene.plot->setSelectionCosyY(ZrQtPlot::COSY_2);
    QCOMPARE(scene.plot->selectionCosyX(), ZrQtPlot::COSY_1);
    QCOMPARE(scene.plot->selectionCosyY(), ZrQtPlot::COSY_2);
    GestureLog log(scene.plot);
    for (auto interaction : {ZrQtPlot::SelectRoi, ZrQtPlot::SelectLine}) {
        scene.plot->setInteraction(interaction);
        press(scene.plot, at(100, 50));
        moveTo(scene.plot, at(300, 100));
        release(scene.plot, at(300, 100));
        const QString selection
            = interaction == ZrQtPlot::SelectRoi ? GestureLog::roi(region) : GestureLog::line(line);
        QCOMPARE(log.take(), announced(scene, keep) + QStringList(selection));
    }
}

void TestPlotSelection::regionOfEveryShape_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRectF>("region");
    // x 0 to 40 on 400 pixels, y 0 to 10 on 200 pixels.
    QTest::newRow("upwards to the right") << at(100, 100) << at(200, 40) << QRectF(10, 5, 10, 3);
    QTest::newRow("the whole plot area") << at(0, 0) << at(400, 200) << QRectF(0, 0, 40, 10);
    QTest::newRow("out at the lower right") << at(200, 100) << at(999, 999) << QRectF(20, 0, 20, 5);
    QTest::newRow("out at the upper left") << at(200, 100) << at(-70, -40) << QRectF(0, 5, 20, 5);
    QTest::newRow("from the left margin") << at(-50, 100) << at(100, 200) << QRectF(0, 0, 10, 5);
    QTest::newRow("one pixel") << at(100, 100) << at(101, 101) << QRectF(10, 4.95, 0.1, 0.05);
    // On purpose, a band that lost its width lies a pixel to the left.
    QTest::newRow("no width") << at(100, 100) << at(100, 40) << QRectF(9.9, 5, 0, 3);
    QTest::newRow("no height") << at(100, 100) << at(200, 100) << QRectF(10, 5.05, 10, 0);
    QTest::newRow("no width, on the left border") << at(0, 100) << at(0, 40) << QRectF(0, 5, 0, 3);
    QTest::newRow("back to where it began") << at(100, 100) << at(100, 100) << QRectF(9.9, 5.05, 0, 0);
}

void TestPlotSelection::regionOfEveryShape()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QRectF, region);
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    GestureLog log(scene.plot);
    press(scene.plot, from);
    moveTo(scene.plot, QPoint(300, 130));
    moveTo(scene.plot, to);
    release(scene.plot, to);
    QCOMPARE(log.take(), announced(scene) + QStringList(GestureLog::roi(region)));

    // A click without movement is a point, whatever was selected before.
    press(scene.plot, from);
    release(scene.plot, from);
    const QPointF value((from.x() - 100) / 10.0, 10 - (from.y() - 60) / 20.0);
    QCOMPARE(log.take(), announced(scene) + QStringList(GestureLog::roi(QRectF(value, QSizeF(0, 0)))));
}

void TestPlotSelection::lineOfEveryShape_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QLineF>("line");
    QTest::newRow("a click") << at(100, 100) << at(100, 100) << QLineF(10, 5, 10, 5);
    QTest::newRow("leftwards") << at(100, 100) << at(50, 120) << QLineF(10, 5, 5, 4);
    QTest::newRow("out at the right") << at(200, 100) << at(600, 100) << QLineF(20, 5, 40, 5);
    QTest::newRow("out at the left") << at(200, 100) << at(-200, 0) << QLineF(20, 5, 0, 7.5);
    QTest::newRow("out at the top") << at(200, 100) << at(200, -60) << QLineF(20, 5, 20, 10);
    QTest::newRow("out at the bottom") << at(200, 100) << at(240, 300) << QLineF(20, 5, 22, 0);
    QTest::newRow("through the corner") << at(300, 100) << at(500, 300) << QLineF(30, 5, 40, 0);
    QTest::newRow("from the left margin") << at(-50, 100) << at(100, 100) << QLineF(-5, 5, 10, 5);
    QTest::newRow("all in the left margin") << at(-50, 100) << at(-20, 20) << QLineF(-5, 5, -2, 9);
}

void TestPlotSelection::lineOfEveryShape()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QLineF, line);
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    GestureLog log(scene.plot);
    press(scene.plot, from);
    if (from != to) {
        moveTo(scene.plot, QPoint(300, 130));
        moveTo(scene.plot, to);
    }
    release(scene.plot, to);
    QCOMPARE(log.take(), announced(scene) + QStringList(GestureLog::line(line)));
}

void TestPlotSelection::lineEndsExactlyOnTheRightBorder()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    QLineF reported;
    connect(scene.plot, qOverload<QLineF>(&ZrQtPlot::selectionChanged), this,
            [&reported](const QLineF &line) { reported = line; });
    press(scene.plot, at(33, 71));
    moveTo(scene.plot, at(713, 97));
    release(scene.plot, at(713, 97));
    QVERIFY(reported.x2() == 40.0);
}

void TestPlotSelection::escapeCancels_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("interaction");
    QTest::newRow("region") << ZrQtPlot::SelectRoi;
    QTest::newRow("line") << ZrQtPlot::SelectLine;
}

void TestPlotSelection::escapeCancels()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    GestureScene scene;
    scene.plot->setInteraction(interaction);
    press(scene.plot, at(100, 50));
    moveTo(scene.plot, at(300, 100));
    QVERIFY(!ink(scene).isEmpty());
    GestureLog log(scene.plot);
    QTest::keyClick(scene.plot, Qt::Key_Escape);
    QVERIFY(ink(scene).isEmpty());
    moveTo(scene.plot, at(200, 150));
    QVERIFY(ink(scene).isEmpty());
    QCOMPARE(log.take(), QStringList());
    release(scene.plot, at(200, 150));
    QCOMPARE(log.take(), announced(scene));

    press(scene.plot, at(100, 50));
    moveTo(scene.plot, at(300, 100));
    QVERIFY(!ink(scene).isEmpty());
    release(scene.plot, at(300, 100));
    QCOMPARE(log.take().size(), 2);
}

void TestPlotSelection::escapeNeedsNoPress()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    GestureLog log(scene.plot);
    QTest::keyClick(scene.plot, Qt::Key_Escape);
    press(scene.plot, at(100, 50));
    moveTo(scene.plot, at(300, 100));
    release(scene.plot, at(300, 100));
    QCOMPARE(log.take(), announced(scene));
}

void TestPlotSelection::pressKeepsTheCancellation()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    press(scene.plot, at(100, 50));
    QTest::keyClick(scene.plot, Qt::Key_Escape);
    press(scene.plot, at(100, 50));
    moveTo(scene.plot, at(300, 100));
    // Drawn again, but not reported.
    QVERIFY(!ink(scene).isEmpty());
    GestureLog log(scene.plot);
    release(scene.plot, at(300, 100));
    QCOMPARE(log.take(), announced(scene));
}

void TestPlotSelection::escapeOutsideASelectionCancelsNothing()
{
    for (auto interaction : {ZrQtPlot::NoInteraction, ZrQtPlot::PanAndScan, ZrQtPlot::RectangleZoom}) {
        GestureScene scene;
        scene.plot->setInteraction(interaction);
        QTest::keyClick(scene.plot, Qt::Key_Escape);
        scene.plot->setInteraction(ZrQtPlot::SelectRoi);
        GestureLog log(scene.plot);
        press(scene.plot, at(100, 100));
        release(scene.plot, at(100, 100));
        QCOMPARE(log.take(), announced(scene) + QStringList(GestureLog::roi(QRectF(10, 5, 0, 0))));
    }
    // Neither does another key.
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    QTest::keyClick(scene.plot, Qt::Key_Backspace);
    GestureLog log(scene.plot);
    press(scene.plot, at(100, 100));
    release(scene.plot, at(100, 100));
    QCOMPARE(log.take().size(), 2);
}

void TestPlotSelection::cancellationEndsWithAnyLeftRelease()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    QTest::keyClick(scene.plot, Qt::Key_Escape);
    scene.plot->setInteraction(ZrQtPlot::PanAndScan);
    release(scene.plot, at(100, 100), Qt::RightButton);
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    GestureLog log(scene.plot);
    release(scene.plot, at(100, 100));
    QCOMPARE(log.take(), announced(scene));
    release(scene.plot, at(100, 100));
    QCOMPARE(log.take().size(), 2);
}

void TestPlotSelection::keysGoOnToTheParent()
{
    GestureScene scene;
    EventCounter keys(&scene.shown.window, QEvent::KeyPress);
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    QTest::keyPress(scene.plot, Qt::Key_Escape);
    QTest::keyPress(scene.plot, Qt::Key_Escape);
    QTest::keyPress(scene.plot, Qt::Key_A);
    QCOMPARE(keys.count, 3);
}

void TestPlotSelection::otherButtonLeavesTheSelectionPending()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectRoi);
    press(scene.plot, at(100, 50));
    moveTo(scene.plot, at(300, 100));
    const QRect drawn = ink(scene);
    GestureLog log(scene.plot);
    release(scene.plot, at(300, 100), Qt::RightButton, Qt::LeftButton);
    QCOMPARE(log.take(), QStringList());
    moveTo(scene.plot, at(350, 150));
    QCOMPARE(ink(scene), drawn);
    release(scene.plot, at(350, 150));
    QCOMPARE(log.take(), announced(scene) + QStringList(GestureLog::roi(QRectF(10, 5, 20, 2.5))));
    QVERIFY(ink(scene).isEmpty());
}

void TestPlotSelection::bandIsPaintedDashed_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("interaction");
    QTest::newRow("rectangle zoom") << ZrQtPlot::RectangleZoom;
    QTest::newRow("region") << ZrQtPlot::SelectRoi;
}

void TestPlotSelection::bandIsPaintedDashed()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    GestureScene scene;
    scene.plot->setInteraction(interaction);
    QVERIFY(ink(scene).isEmpty());
    press(scene.plot, at(100, 50));
    // One pixel at first.
    QVERIFY(QRect(at(100, 50), QSize(2, 2)).contains(ink(scene)));
    QVERIFY(!ink(scene).isEmpty());
    moveTo(scene.plot, at(300, 110));
    QCOMPARE(ink(scene), QRect(at(100, 50), QSize(201, 61)));

    const QImage image = picture(scene);
    int dark = 0;
    for (int x = 100; x <= 300; ++x)
        dark += image.pixelColor(at(x, 50)) != QColor(Qt::white);
    QVERIFY2(dark > 80 && dark < 180, "the line is drawn through or hardly at all");
    QCOMPARE(image.pixelColor(at(200, 80)), QColor(Qt::white));
}

void TestPlotSelection::lineIsPainted()
{
    GestureScene scene;
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    press(scene.plot, at(100, 50));
    moveTo(scene.plot, at(700, 50));
    const QRect drawn = ink(scene);
    QCOMPARE(drawn.topLeft(), at(100, 50));
    QCOMPARE(drawn.height(), 1);
    // It ends at the border, in a dash or shortly after one.
    QVERIFY(drawn.right() > at(390, 0).x());
}

void TestPlotSelection::bandLeavesTheScreen_data()
{
    QTest::addColumn<ZrQtPlot::Interaction>("interaction");
    QTest::newRow("rectangle zoom") << ZrQtPlot::RectangleZoom;
    QTest::newRow("region") << ZrQtPlot::SelectRoi;
    QTest::newRow("line") << ZrQtPlot::SelectLine;
}

void TestPlotSelection::bandLeavesTheScreen()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    GestureScene scene;
    scene.plot->setInteraction(interaction);
    press(scene.plot, at(100, 50));
    // Too small to zoom: nothing else repaints the plot.
    moveTo(scene.plot, at(102, 52));
    QApplication::processEvents();
    EventCounter paints(scene.plot, QEvent::Paint);
    release(scene.plot, at(102, 52));
    QApplication::processEvents();
    QVERIFY(paints.count > 0);
    QVERIFY(ink(scene).isEmpty());
}

void TestPlotSelection::bandIsRepaintedOnTheWay_data()
{
    bandLeavesTheScreen_data();
}

void TestPlotSelection::bandIsRepaintedOnTheWay()
{
    QFETCH(ZrQtPlot::Interaction, interaction);
    GestureScene scene;
    scene.plot->setInteraction(interaction);
    QApplication::processEvents();
    press(scene.plot, at(100, 50));
    QApplication::processEvents();
    EventCounter paints(scene.plot, QEvent::Paint);
    moveTo(scene.plot, at(200, 100));
    QApplication::processEvents();
    QCOMPARE(paints.count, 1);
    if (interaction == ZrQtPlot::RectangleZoom)
        return;
    QTest::keyClick(scene.plot, Qt::Key_Escape);
    QApplication::processEvents();
    QCOMPARE(paints.count, 2);
}

void TestPlotSelection::nothingIsPaintedInOtherModes()
{
    GestureScene scene;
    for (auto interaction : {ZrQtPlot::NoInteraction, ZrQtPlot::PanAndScan}) {
        scene.plot->setInteraction(interaction);
        press(scene.plot, at(100, 50));
        moveTo(scene.plot, at(200, 100));
        QVERIFY(ink(scene).isEmpty());
        release(scene.plot, at(200, 100));
    }
}

void TestPlotSelection::legendLiesAboveTheLine()
{
    GestureScene scene({false, false, false, 3});
    const auto channels = scene.plot->findChildren<ZrQtBaseChannel *>();
    for (ZrQtBaseChannel *channel : channels) {
        channel->setName(QStringLiteral("name"));
        channel->setLineColor(Qt::magenta);
    }
    scene.plot->setGenerateLegend(true);
    settle(scene.plot);
    // Without the axes, which lie between plot area and legend.
    const auto samples = [&scene] {
        QImage image(scene.plot->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        scene.plot->render(&image, {}, {}, QWidget::RenderFlags());
        QVector<QPoint> pixels;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == QColor(Qt::magenta))
                    pixels.append({x, y});
            }
        }
        return pixels;
    };
    const QVector<QPoint> before = samples();
    QVERIFY(!before.isEmpty());
    scene.plot->setInteraction(ZrQtPlot::SelectLine);
    // From the left margin under the plot area, which the line misses, to the middle of a sample and beyond.
    const QPoint sample = before.at(before.size() / 2);
    const QPoint start(5, 290);
    press(scene.plot, start);
    moveTo(scene.plot, sample + (sample - start) / 20);
    QCOMPARE(samples(), before);
}

QTEST_MAIN(TestPlotSelection)
#include "tst_zrqtplot_selection.moc"
