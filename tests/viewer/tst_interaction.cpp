#include "viewerscene.h"

#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>

class TestInteraction : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        WallClock::enterZone();
        // A platform without real windows says so of every drag of an axis.
        tolerateMessages(QStringLiteral("^This plugin does not support grabbing the mouse"));
    }

    void modes_data();
    void modes();
    void cursorShowsTheMode();
    void choicesOutliveThePlot();
    void pan();
    void dragOfALogarithmicAxis();
    void wheelOverPlotAndAxis();
    void zoomAndHome();
    void homeFitsEverySystem();
    void whatWasMovedStays();
    void logarithmsKeepXOnly();
    void region_data();
    void region();
    void line();
    void timesOfALine();
    void clickedPoint();
    void severalAxesAreNamed();
    void escapeCancels();
    void tooltipModes();
    void tooltipTellsTheNearestSamples();
    void tooltipOfFilesWithGaps();
    void namesAreNoMarkup();
    void readingsEndWithThePlot();
};

void TestInteraction::modes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("key");
    QTest::addColumn<ZrQtPlot::Interaction>("mode");
    QTest::newRow("pan") << QByteArray("Pan") << int(Qt::Key_P) << ZrQtPlot::PanAndScan;
    QTest::newRow("zoom") << QByteArray("Zoom") << int(Qt::Key_Z) << ZrQtPlot::RectangleZoom;
    QTest::newRow("region") << QByteArray("Region") << int(Qt::Key_R) << ZrQtPlot::SelectRoi;
    QTest::newRow("line") << QByteArray("Line") << int(Qt::Key_L) << ZrQtPlot::SelectLine;
}

void TestInteraction::modes()
{
    QFETCH(QByteArray, text);
    QFETCH(int, key);
    QFETCH(ZrQtPlot::Interaction, mode);
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    QCOMPARE(scene.plot()->interaction(), ZrQtPlot::PanAndScan);
    QVERIFY(scene.action("Pan")->isChecked());
    QAction *other = scene.action(mode == ZrQtPlot::SelectLine ? "Zoom" : "Line");

    QAction *action = scene.action(text.constData());
    QVERIFY(action);
    other->trigger();
    QVERIFY(!action->isChecked());
    action->trigger();
    QCOMPARE(scene.plot()->interaction(), mode);
    QVERIFY(action->isChecked());

    other->trigger();
    QTest::keyClick(scene.window.windowHandle(), static_cast<Qt::Key>(key));
    QCOMPARE(scene.plot()->interaction(), mode);

    other->trigger();
    auto *bar = scene.window.findChild<QToolBar *>();
    auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(action));
    QVERIFY(button && button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(scene.plot()->interaction(), mode);
}

void TestInteraction::cursorShowsTheMode()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    QCOMPARE(scene.plot()->cursor().shape(), Qt::OpenHandCursor);
    for (const char *mode : {"Zoom", "Region", "Line"}) {
        scene.action("Pan")->trigger();
        QCOMPARE(scene.plot()->cursor().shape(), Qt::OpenHandCursor);
        scene.action(mode)->trigger();
        QCOMPARE(scene.plot()->cursor().shape(), Qt::CrossCursor);
    }
    scene.action("Legend")->trigger();
    QCOMPARE(scene.plot()->cursor().shape(), Qt::CrossCursor);
}

void TestInteraction::choicesOutliveThePlot()
{
    Scene scene(kNumbers);
    scene.action("Region")->trigger();
    scene.action("On Click")->trigger();
    scene.action("Legend")->trigger();
    QCOMPARE(scene.plot()->interaction(), ZrQtPlot::SelectRoi);
    QCOMPARE(scene.plot()->tooltipMode(), ZrQtPlot::SHOW_ON_CLICK);
    QVERIFY(scene.plot()->mouseWheelZoom());
}

void TestInteraction::pan()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    const QRectF before = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.drag(scene.pixel(8, 80), scene.pixel(4, 40));
    const QRectF after = scene.plot()->canvas(ZrQtPlot::COSY_0);
    QVERIFY(std::abs(after.left() - before.left() - 4.0) < 0.1);
    QVERIFY(std::abs(after.top() - before.top() - 40.0) < 1.0);
    QVERIFY(std::abs(after.width() - before.width()) < 1e-9);
}

void TestInteraction::dragOfALogarithmicAxis()
{
    Options options;
    options.logY = true;
    options.axes = {{QStringLiteral("a"), AxisSide::Left}, {QStringLiteral("b"), AxisSide::Right}};
    Scene scene("t,a,b\n0,1,1000\n10,100,10000000\n", options);
    QVERIFY(scene.isReady());
    const QRectF first = scene.plot()->canvas(ZrQtPlot::COSY_0);
    const QRectF second = scene.plot()->canvas(ZrQtPlot::COSY_1);
    const auto axes = scene.plot()->findChildren<ZrQtAxis *>();
    const ZrQtAxis *right = axes.at(2);
    QCOMPARE(right->cosy(), ZrQtPlot::COSY_1);
    const QPoint middle = scene.middleOf(right);
    scene.drag(middle, middle + QPoint(0, 100));
    const QRectF dragged = scene.plot()->canvas(ZrQtPlot::COSY_1);
    QVERIFY(dragged.top() > second.top() + 0.1);
    QCOMPARE(right->min(), std::pow(10.0, dragged.top()));
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), first);

    scene.wheel(middle, 1);
    QVERIFY(scene.plot()->canvas(ZrQtPlot::COSY_1).height() < dragged.height() * 0.9);
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), first);
}

void TestInteraction::wheelOverPlotAndAxis()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    const QRectF before = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.wheel(scene.pixel(5, 50), 1);
    const QRectF zoomed = scene.plot()->canvas(ZrQtPlot::COSY_0);
    QVERIFY(std::abs(zoomed.width() / before.width() - 0.85) < 1e-9);
    QVERIFY(std::abs(zoomed.height() / before.height() - 0.85) < 1e-9);
    scene.wheel(scene.middleOf(scene.plot()->findChildren<ZrQtAxis *>().first()), 1);
    const QRectF again = scene.plot()->canvas(ZrQtPlot::COSY_0);
    QVERIFY(std::abs(again.width() / zoomed.width() - 0.85) < 1e-9);
    QCOMPARE(again.height(), zoomed.height());
}

void TestInteraction::zoomAndHome()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    const QRectF before = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.action("Zoom")->trigger();
    scene.drag(scene.pixel(2, 80), scene.pixel(4, 40));
    const QRectF zoomed = scene.plot()->canvas(ZrQtPlot::COSY_0);
    QVERIFY(std::abs(zoomed.left() - 2.0) < 0.1 && std::abs(zoomed.right() - 4.0) < 0.1);
    QVERIFY(std::abs(zoomed.top() - 40.0) < 1.0 && std::abs(zoomed.bottom() - 80.0) < 1.0);
    scene.action("Home")->trigger();
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), before);
    QCOMPARE(scene.plot()->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
    QCOMPARE(scene.plot()->scalingY(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
}

void TestInteraction::homeFitsEverySystem()
{
    Scene scene("t,a,b\n0,0,0\n10,1,1000\n");
    QVERIFY(scene.isReady());
    const QRectF first = scene.plot()->canvas(ZrQtPlot::COSY_0);
    const QRectF second = scene.plot()->canvas(ZrQtPlot::COSY_1);
    for (int i = 0; i < 5; ++i)
        scene.wheel(scene.pixel(5, 0.5), 1);
    QVERIFY(scene.plot()->canvas(ZrQtPlot::COSY_0) != first);
    QVERIFY(scene.plot()->canvas(ZrQtPlot::COSY_1) != second);
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_Home);
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), first);
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_1).height(), second.height());
}

void TestInteraction::whatWasMovedStays()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    const QRectF fitted = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.action("Legend")->trigger();
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), fitted);
    QCOMPARE(scene.plot()->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
    scene.drag(scene.pixel(8, 80), scene.pixel(4, 40));
    const QRectF moved = scene.plot()->canvas(ZrQtPlot::COSY_0);
    for (const char *text : {"Inverted Values", "Legend", "Percent"}) {
        scene.action(text)->trigger();
        QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), moved);
    }
    scene.action("Home")->trigger();
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), fitted);
}

void TestInteraction::logarithmsKeepXOnly()
{
    Scene scene("t,a\n0,1\n10,100\n");
    QVERIFY(scene.isReady());
    scene.drag(scene.pixel(8, 80), scene.pixel(4, 40));
    const QRectF moved = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.action("Logarithmic Values")->trigger();
    const QRectF canvas = scene.plot()->canvas(ZrQtPlot::COSY_0);
    QCOMPARE(canvas.left(), moved.left());
    QCOMPARE(canvas.right(), moved.right());
    QVERIFY(std::abs(canvas.top()) < 0.1 && std::abs(canvas.bottom() - 2.0) < 0.1);
}

void TestInteraction::region_data()
{
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<bool>("logarithmic");
    QTest::newRow("plain") << false << false;
    QTest::newRow("inverted") << true << false;
    QTest::newRow("logarithmic") << false << true;
}

void TestInteraction::region()
{
    QFETCH(bool, inverted);
    QFETCH(bool, logarithmic);
    Options options;
    options.invertedY = inverted;
    options.logY = logarithmic;
    Scene scene(logarithmic ? "t,a\n0,1\n10,100\n" : kNumbers, options);
    QVERIFY(scene.isReady());
    scene.action("Region")->trigger();
    // As one looks at it, an inverted axis counts the other way round.
    const double low = logarithmic ? 0.5 : inverted ? 70.0 : 20.0;
    const double high = logarithmic ? 1.5 : inverted ? 20.0 : 70.0;
    const auto shown = [&](double y) { return inverted ? 100.0 - y : y; };
    scene.drag(scene.pixel(2, shown(inverted ? low : high)), scene.pixel(6, shown(inverted ? high : low)));
    const QString reading = scene.reading();
    QVERIFY2(reading.startsWith(QStringLiteral("Region: ")), qPrintable(reading));
    const QVector<double> expected
        = logarithmic ? QVector<double>{2, 6, 3.162, 31.62, 4, 10} : QVector<double>{2, 6, 20, 70, 4, 50};
    const QVector<double> actual = numbersIn(reading);
    QVERIFY2(areNear(actual, expected, 0.5), qPrintable(reading));
    QCOMPARE(reading.contains(QStringLiteral("\u0394y \u00D7")), logarithmic);
}

void TestInteraction::line()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    scene.action("Line")->trigger();
    scene.drag(scene.pixel(6, 70), scene.pixel(2, 20));
    const QString reading = scene.reading();
    QVERIFY2(reading.startsWith(QStringLiteral("Line: (")), qPrintable(reading));
    QVERIFY2(areNear(numbersIn(reading), {6, 70, 2, 20, -4, -50}, 0.5), qPrintable(reading));
}

void TestInteraction::timesOfALine()
{
    Scene scene("d,a\n2026-11-21 00:00,0\n2026-11-22 00:00,100\n");
    QVERIFY(scene.isReady());
    scene.action("Line")->trigger();
    const double midnight = scene.plot()->findChild<ZrQtBufferedChannel *>()->boundingRect().left();
    scene.drag(scene.pixel(midnight + 6 * 3600000.0, 50), scene.pixel(midnight + 12 * 3600000.0, 50));
    const QRegularExpression expected(QStringLiteral("^Line: \\(21 Nov 2026 0[56]:\\d\\d; \\S+\\) to "
                                                     "\\(1[12]:\\d\\d; \\S+\\)   "
                                                     "\u0394x 0[56]:\\d\\d:00, \u0394y 0$"));
    QVERIFY2(expected.match(scene.reading()).hasMatch(), qPrintable(scene.reading()));
}

void TestInteraction::clickedPoint()
{
    for (const char *mode : {"Pan", "Region", "Line"}) {
        for (const bool inverted : {false, true}) {
            Options options;
            options.invertedY = inverted;
            Scene scene(kNumbers, options);
            QVERIFY(scene.isReady());
            scene.action(mode)->trigger();
            QVERIFY(scene.reading().isEmpty());
            const QPoint point = scene.pixel(4, inverted ? 70 : 30);
            scene.press(point);
            scene.release(point);
            QVERIFY2(scene.reading().startsWith(QStringLiteral("Point: ")), qPrintable(scene.reading()));
            QVERIFY2(areNear(numbersIn(scene.reading()), {4, 30}, 0.5), qPrintable(scene.reading()));
        }
    }
}

void TestInteraction::severalAxesAreNamed()
{
    Scene scene("t,load of the processor,memory\n0,0,0\n10,1,1000\n");
    QVERIFY(scene.isReady());
    scene.press(scene.pixel(4, 0.5));
    const QRegularExpression expected(QStringLiteral("^Point: [\\d.]+; load of the process\u2026 [\\d.]+$"));
    QVERIFY2(expected.match(scene.reading()).hasMatch(), qPrintable(scene.reading()));
    scene.release(scene.pixel(4, 0.5));
}

void TestInteraction::escapeCancels()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    scene.action("Region")->trigger();
    QSignalSpy selected(scene.plot(), qOverload<QRectF>(&ZrQtPlot::selectionChanged));
    scene.press(scene.pixel(2, 70));
    scene.point(scene.pixel(6, 20));
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_Escape);
    scene.release(scene.pixel(6, 20));
    QCOMPARE(selected.count(), 0);
    QCOMPARE(scene.reading(), QStringLiteral("Selection cancelled"));
    // Between two drags, it takes the reading back and leaves the next drag alone.
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_Escape);
    QCOMPARE(scene.reading(), QString());
    scene.drag(scene.pixel(2, 70), scene.pixel(6, 20));
    QCOMPARE(selected.count(), 1);
    QVERIFY(scene.reading().startsWith(QStringLiteral("Region: ")));
}

void TestInteraction::tooltipModes()
{
    Scene scene(kNumbers);
    QCOMPARE(scene.plot()->tooltipMode(), ZrQtPlot::SHOW_ALWAYS);
    QVERIFY(scene.action("Always")->isChecked());
    const QVector<QPair<const char *, ZrQtPlot::TooltipMode>> rows = {
        {"Never", ZrQtPlot::SHOW_NEVER},
        {"While Pressed", ZrQtPlot::SHOW_WHILE_PRESSED},
        {"On Click", ZrQtPlot::SHOW_ON_CLICK},
        {"Always", ZrQtPlot::SHOW_ALWAYS},
    };
    for (const auto &[text, mode] : rows) {
        scene.action(text)->trigger();
        QCOMPARE(scene.plot()->tooltipMode(), mode);
    }
}

void TestInteraction::tooltipTellsTheNearestSamples()
{
    Scene scene("d,a,b\n2026-11-21 00:00,0,0.5\n2026-11-21 14:03,5.25,80\n2026-11-22 00:00,100,1\n");
    QVERIFY(scene.isReady());
    const double midnight = scene.plot()->findChild<ZrQtBufferedChannel *>()->boundingRect().left();
    scene.point(scene.pixel(midnight + 13 * 3600000.0, 50));
    QTRY_VERIFY(!scene.tooltip().isEmpty());
    const QString text = scene.tooltip();
    QVERIFY2(text.contains(QStringLiteral("<b>21 Nov 2026 14:03</b>")), qPrintable(text));
    QVERIFY2(text.contains(QRegularExpression(QStringLiteral(" a</td>.*5\\.25<.* b</td>.*80<"))),
             qPrintable(text));
    scene.plot()->findChildren<ZrQtBufferedChannel *>().first()->setVisible(false);
    QTRY_VERIFY(!scene.tooltip().contains(QStringLiteral("5.25")));
    QVERIFY(scene.tooltip().contains(QStringLiteral("80<")));
    scene.action("Never")->trigger();
    scene.point(QPoint(5, 5));
}

void TestInteraction::tooltipOfFilesWithGaps()
{
    Scene scene("t,a,b\n0,1,2\n5,,50\n10,100,80\n");
    QVERIFY(scene.isReady());
    scene.point(scene.pixel(5.5, 50));
    QTRY_VERIFY(!scene.tooltip().isEmpty());
    const QString text = scene.tooltip();
    QVERIFY2(text.contains(QStringLiteral("<b>5</b>")), qPrintable(text));
    // The other channel says where its sample is.
    QVERIFY2(text.contains(QRegularExpression(QStringLiteral("100</td><td>(&nbsp;)+10</td>"))),
             qPrintable(text));
}

void TestInteraction::namesAreNoMarkup()
{
    Scene scene("t,<img src=x>\n0,1\n10,100\n");
    QVERIFY(scene.isReady());
    scene.point(scene.pixel(5, 50));
    QTRY_VERIFY(scene.tooltip().contains(QStringLiteral("&lt;img src=x&gt;")));
}

void TestInteraction::readingsEndWithThePlot()
{
    Scene scene(kNumbers);
    QVERIFY(scene.isReady());
    scene.press(scene.pixel(4, 30));
    scene.release(scene.pixel(4, 30));
    QVERIFY(!scene.reading().isEmpty());
    scene.action("Legend")->trigger();
    QVERIFY(scene.reading().isEmpty());
}

QTEST_MAIN(TestInteraction)
#include "tst_interaction.moc"
