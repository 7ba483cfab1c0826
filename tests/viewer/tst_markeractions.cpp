#include "markerscene.h"

#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>

namespace {

QString channel(const char *name)
{
    return QStringLiteral("\u25A0 %1").arg(QLatin1String(name));
}

/// Rows in which a is twice x, and b a hundred times a.
QByteArray ramps(int rows)
{
    QByteArray csv = "t,a,b\n";
    for (int i = 0; i < rows; ++i)
        csv += QByteArray::number(i) + ',' + QByteArray::number(2 * i) + ',' + QByteArray::number(200 * i)
               + '\n';
    return csv;
}

} // namespace

class TestMarkerActions : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { WallClock::enterZone(); }

    void actionsNeedAPlot();
    void keysAndButtons();
    void linesAreDraggedInEveryMode_data();
    void linesAreDraggedInEveryMode();
    void linesTellValuesAndDifferences();
    void differencesHaveNoNoise();
    void theReadoutFollowsTheDrag();
    void removedDuringADrag();
    void rebuiltDuringADrag();
    void wheeledDuringADrag();
    void loadedDuringADrag();
    void regionTellsStatistics();
    void regionIsResizedAndMoved();
    void movedRegionKeepsItsEnds();
    void statisticsAreOfTheFile();
    void gapsDoNotCount();
    void meansAreNotRounded();
    void logarithmicAxesHideWhatIsNotPositive();
    void otherSystemsAreMeasuredWhereTheyAreSeen();
    void hiddenChannelsAreLeftOut();
    void circleTellsCentreAndRadii();
    void markersStayOnTheirValues();
    void markersOutliveThePlot();
    void invertedAndLogarithmic();
    void dates();
    void cursorsOverZones();
    void removeAll();
    void otherFilesRemoveThem();
    void markersAreNoData();
};

void TestMarkerActions::actionsNeedAPlot()
{
    MainWindow window((Options()));
    QStringList found;
    for (const QAction *action : window.findChildren<QAction *>()) {
        if (action->text().startsWith(QLatin1String("Add "))
            || action->text().startsWith(QLatin1String("Remove "))) {
            found += action->text();
            QVERIFY2(!action->isEnabled(), qPrintable(action->text()));
        }
    }
    QCOMPARE(found.size(), 4);
}

void TestMarkerActions::keysAndButtons()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    QVERIFY(!scene.panelIsOpen());
    QVERIFY(!scene.action("Remove All Markers")->isEnabled());
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_L, Qt::ShiftModifier);
    QVERIFY(scene.panelIsOpen());
    QCOMPARE(scene.marker(ZrQtPlotChannel::Lines)->lines().size(), 1);
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_R, Qt::ShiftModifier);
    QVERIFY(scene.marker(ZrQtPlotChannel::Rectangles));
    auto *bar = scene.window.findChild<QToolBar *>(QStringLiteral("markerToolBar"));
    auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(scene.action("Add Circle")));
    QVERIFY(button && button->isVisible() && !button->icon().isNull());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(scene.marker(ZrQtPlotChannel::Circles));
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_Delete);
    QVERIFY(!scene.marker(ZrQtPlotChannel::Lines));
    QVERIFY(!scene.panelIsOpen());
}

void TestMarkerActions::linesAreDraggedInEveryMode_data()
{
    QTest::addColumn<QByteArray>("mode");
    for (const char *mode : {"Pan", "Zoom", "Region", "Line"})
        QTest::newRow(mode) << QByteArray(mode);
}

void TestMarkerActions::linesAreDraggedInEveryMode()
{
    QFETCH(QByteArray, mode);
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.action(mode.constData())->trigger();
    scene.add("Add Marker Line");
    const QRectF canvas = scene.plot()->canvas(ZrQtPlot::COSY_0);
    const QPoint from = scene.line(0);
    scene.drag(from, QPoint(scene.pixel(7, 0).x(), from.y() + 20));
    QVERIFY(std::abs(scene.numbers("Lines", QStringLiteral("x"), 1).value(0) - 7.0) < 0.05);
    // The plot neither moves nor selects, and beside the line it still does.
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), canvas);
    QVERIFY2(scene.reading().isEmpty(), qPrintable(scene.reading()));
    scene.drag(scene.pixel(2, 10), scene.pixel(4, 2));
    QVERIFY(scene.plot()->canvas(ZrQtPlot::COSY_0) != canvas || !scene.reading().isEmpty());
}

void TestMarkerActions::linesTellValuesAndDifferences()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    QCOMPARE(scene.row("Lines", channel("a"), 1), QStringList(QStringLiteral("6")));
    scene.add("Add Marker Line");
    scene.drag(scene.line(0), scene.pixel(2.1, 5));
    scene.drag(scene.line(1), scene.pixel(8.9, 5));
    const QVector<double> x = scene.numbers("Lines", QStringLiteral("x"), 3);
    QVERIFY(areNear(x, {2.1, 8.9, 6.8}, 0.05));
    QCOMPARE(scene.numbers("Lines", channel("a"), 3), QVector<double>({4, 18, 14}));
    QCOMPARE(scene.numbers("Lines", channel("b"), 3), QVector<double>({400, 1800, 1400}));
    // A third one there is not.
    scene.add("Add Marker Line");
    QCOMPARE(scene.marker(ZrQtPlotChannel::Lines)->lines().size(), 2);
}

void TestMarkerActions::differencesHaveNoNoise()
{
    MarkerScene scene("t,a\n0,1000000.1\n10,1000000.3\n");
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    scene.add("Add Marker Line");
    QCOMPARE(scene.row("Lines", channel("a"), 3).last(), QStringLiteral("0.2"));
}

void TestMarkerActions::theReadoutFollowsTheDrag()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    scene.press(scene.line(0));
    scene.point(scene.pixel(5, 5));
    scene.point(scene.pixel(6, 5));
    QVERIFY(std::abs(scene.numbers("Lines", QStringLiteral("x"), 1).value(0) - 6.0) < 0.05);
    scene.point(scene.pixel(9, 5));
    QCOMPARE(scene.row("Lines", channel("a"), 1), QStringList(QStringLiteral("18")));
    scene.release(scene.pixel(9, 5));
}

void TestMarkerActions::removedDuringADrag()
{
    for (const char *marker : {"Add Marker Line", "Add Region", "Add Circle"}) {
        MarkerScene scene(ramps(11));
        QVERIFY(scene.isReady());
        scene.add(marker);
        const QPoint from = scene.handle();
        scene.press(from);
        scene.point(from + QPoint(20, 0));
        scene.add("Remove All Markers");
        scene.point(from + QPoint(40, 0));
        scene.release(from + QPoint(40, 0));
        QVERIFY(!scene.panelIsOpen());
        QVERIFY(scene.handle().isNull());
    }
}

void TestMarkerActions::rebuiltDuringADrag()
{
    for (const char *marker : {"Add Marker Line", "Add Region", "Add Circle"}) {
        MarkerScene scene(ramps(11));
        QVERIFY(scene.isReady());
        scene.add(marker);
        const QPoint from = scene.handle();
        scene.press(from);
        scene.point(from + QPoint(20, 0));
        scene.point(from + QPoint(40, 0));
        scene.add("Overview");
        scene.point(from + QPoint(60, 0));
        scene.release(from + QPoint(60, 0));
        QVERIFY(scene.panelIsOpen());
        // It stands where the drag was when its plot went, and can be taken there.
        const QPoint there = scene.handle();
        QVERIFY(std::abs(there.x() - from.x() - 40) <= 2);
        scene.drag(there, there - QPoint(30, 0));
        QVERIFY(std::abs(scene.handle().x() - there.x() + 30) <= 2);
    }
}

void TestMarkerActions::wheeledDuringADrag()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    const QPoint from = scene.line(0);
    scene.press(from);
    scene.point(from + QPoint(40, 0));
    scene.wheel(scene.pixel(9, 10), 2);
    scene.point(from + QPoint(80, 0));
    scene.release(from + QPoint(80, 0));
    // It stands on the value that is read from it.
    const QVector<double> x = scene.numbers("Lines", QStringLiteral("x"), 1);
    QVERIFY(std::abs(scene.line(0).x() - scene.pixel(x.first(), 0).x()) <= 1);
}

void TestMarkerActions::loadedDuringADrag()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    const QPoint from = scene.handle();
    scene.press(from);
    scene.point(from + QPoint(20, 0));
    QVERIFY(scene.open("t,c\n100,1\n200,2\n"));
    scene.point(from + QPoint(40, 0));
    scene.release(from + QPoint(40, 0));
    QVERIFY(!scene.panelIsOpen());
    QVERIFY(scene.handle().isNull());
}

void TestMarkerActions::regionTellsStatistics()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    // A new one is as high as the plot: samples 5 and 6 have a 10 and a 12.
    const QRectF region = scene.region();
    const auto *box = scene.marker(ZrQtPlotChannel::Rectangles);
    scene.drag(scene.at(box, QPointF(region.left(), region.center().y())), scene.pixel(2.5, 10));
    scene.drag(scene.at(box, QPointF(region.right(), region.center().y())), scene.pixel(6.5, 10));
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({4, 9, 6, 12}));
    QCOMPARE(scene.numbers("Region", channel("b"), 4), QVector<double>({4, 900, 600, 1200}));
}

void TestMarkerActions::regionIsResizedAndMoved()
{
    MarkerScene scene("t,a\n0,0\n5,50\n10,100\n");
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    const auto *box = scene.marker(ZrQtPlotChannel::Rectangles);
    scene.drag(scene.at(box, scene.region().bottomRight()), scene.pixel(8, 70));
    scene.drag(scene.at(box, scene.region().topLeft()), scene.pixel(4, 30));
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({1, 50, 50, 50}));
    const QRectF before = scene.region();
    scene.drag(scene.at(box, before.center()), scene.at(box, before.center()) + QPoint(0, -60));
    QCOMPARE(scene.region().size(), before.size());
    QVERIFY(std::abs(scene.region().top() - before.top() - 60.0) < 1.0);
    QCOMPARE(scene.row("Region", channel("a"), 1), QStringList(QStringLiteral("0")));
}

/// Also where they are far beyond what the plot shows.
void TestMarkerActions::movedRegionKeepsItsEnds()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    const QStringList before = scene.row("Region", channel("a"), 4);
    const QRectF canvas = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.plot()->setCanvas(QRectF(5.0, 0.0, 1e-6, 0.0), ZrQtPlot::COSY_0);
    const QPoint from = scene.at(scene.marker(ZrQtPlotChannel::Rectangles), scene.region().center());
    scene.drag(from + QPoint(2, 0), from + QPoint(62, 0));
    scene.plot()->setCanvas(canvas, ZrQtPlot::COSY_0);
    QCOMPARE(scene.row("Region", channel("a"), 4), before);
}

void TestMarkerActions::statisticsAreOfTheFile()
{
    // Far more samples than pixels: those that are drawn would have another mean.
    QByteArray csv = "t,a\n";
    for (int i = 0; i < 30000; ++i)
        csv += QByteArray::number(i) + (i % 100 == 0 ? ",100\n" : ",0\n");
    MarkerScene scene(csv);
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    const QRectF region = scene.region();
    const auto *box = scene.marker(ZrQtPlotChannel::Rectangles);
    scene.drag(scene.at(box, QPointF(region.left(), region.center().y())), scene.pixel(-400, 50));
    scene.drag(scene.at(box, QPointF(region.right(), region.center().y())), scene.pixel(30400, 50));
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({30000, 1, 0, 100}));
}

void TestMarkerActions::gapsDoNotCount()
{
    MarkerScene scene("t,a\n0,0\n5,20\n5.1,\n5.2,40\n10,100\n");
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({2, 30, 20, 40}));
}

void TestMarkerActions::meansAreNotRounded()
{
    MarkerScene scene("t,a\n0,16384256\n5,16384256\n10,16384256\n");
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({1, 16384256, 16384256, 16384256}));
}

void TestMarkerActions::logarithmicAxesHideWhatIsNotPositive()
{
    MarkerScene scene("t,a\n0,-5\n5,0\n5.1,10\n10,100\n");
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    scene.add("Add Circle");
    scene.drag(scene.at(scene.marker(ZrQtPlotChannel::Circles), scene.circle().center()), scene.pixel(8, 0));
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({2, 5, 0, 10}));
    scene.add("Logarithmic Values");
    QCOMPARE(scene.numbers("Region", channel("a"), 4), QVector<double>({1, 10, 10, 10}));
    const QStringList none = {QStringLiteral("\u2013")};
    QCOMPARE(scene.row("Circle", QStringLiteral("Centre y"), 1), none);
    QCOMPARE(scene.row("Circle", QStringLiteral("Radius y"), 1), none);
}

void TestMarkerActions::otherSystemsAreMeasuredWhereTheyAreSeen()
{
    MarkerScene scene("t,a,b\n0,0,1000\n5,50,1500\n10,100,2000\n");
    QVERIFY(scene.isReady());
    QVERIFY(scene.plot()->findChildren<ZrQtBufferedChannel *>().last()->cosyY() != ZrQtPlot::COSY_0);
    scene.add("Add Region");
    QCOMPARE(scene.numbers("Region", channel("b"), 4), QVector<double>({1, 1500, 1500, 1500}));
    // The axis of b alone takes it out of the region.
    scene.plot()->setCanvas(QRectF(0, 3000, 0, 1000), ZrQtPlot::COSY_1);
    QCOMPARE(scene.row("Region", channel("a"), 1), QStringList(QStringLiteral("1")));
    QCOMPARE(scene.row("Region", channel("b"), 1), QStringList(QStringLiteral("0")));
}

void TestMarkerActions::hiddenChannelsAreLeftOut()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    scene.add("Add Region");
    scene.plot()->findChildren<ZrQtBufferedChannel *>().first()->setVisible(false);
    QVERIFY(scene.row("Lines", channel("a"), 1).isEmpty());
    QVERIFY(!scene.row("Region", channel("b"), 1).isEmpty());
}

void TestMarkerActions::circleTellsCentreAndRadii()
{
    MarkerScene scene("t,a\n0,0\n5,50\n10,100\n");
    QVERIFY(scene.isReady());
    scene.add("Add Circle");
    const QRectF circle = scene.circle();
    QVERIFY(std::abs(circle.width() - circle.height()) < 1e-6);
    const auto *ring = scene.marker(ZrQtPlotChannel::Circles);
    scene.drag(scene.at(ring, circle.center()), scene.pixel(4, 50));
    QVERIFY(areNear(scene.numbers("Circle", QStringLiteral("Centre x"), 1), {4}, 0.05));
    QVERIFY(areNear(scene.numbers("Circle", QStringLiteral("Centre y"), 1), {50}, 0.5));
    const QRectF moved = scene.circle();
    scene.drag(scene.at(ring, QPointF(moved.right(), moved.center().y())), scene.pixel(8, 50));
    const QRectF wide = scene.circle();
    QVERIFY(std::abs(wide.right() - moved.right()) > 10.0);
    const double perPixel = scene.plot()->canvas(ZrQtPlot::COSY_0).width() / ring->width();
    QVERIFY(areNear(scene.numbers("Circle", QStringLiteral("Radius x"), 1), {wide.width() / 2.0 * perPixel},
                    0.02));
}

void TestMarkerActions::markersStayOnTheirValues()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    const QStringList x = scene.row("Lines", QStringLiteral("x"), 1);
    const int before = scene.line(0).x();
    scene.drag(scene.pixel(2, 10), scene.pixel(2, 10) + QPoint(60, 0));
    QVERIFY(std::abs(scene.line(0).x() - before - 60) <= 1);
    QCOMPARE(scene.row("Lines", QStringLiteral("x"), 1), x);
    scene.wheel(scene.pixel(9, 10), 3);
    QCOMPARE(scene.row("Lines", channel("a"), 1), QStringList(QStringLiteral("6")));
    QVERIFY(std::abs(scene.line(0).x() - scene.pixel(x.first().toDouble(), 0).x()) <= 1);
    scene.window.resize(1100, 700);
    QCoreApplication::processEvents();
    QVERIFY(std::abs(scene.line(0).x() - scene.pixel(x.first().toDouble(), 0).x()) <= 2);
}

void TestMarkerActions::markersOutliveThePlot()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    scene.add("Add Region");
    scene.add("Add Circle");
    const QStringList before = scene.row("Region", channel("a"), 4);
    QCOMPARE(before.size(), 4);
    scene.add("Legend");
    QCOMPARE(scene.row("Region", channel("a"), 4), before);
    QVERIFY(scene.marker(ZrQtPlotChannel::Lines) && scene.marker(ZrQtPlotChannel::Circles));
    scene.drag(scene.line(0), scene.pixel(9, 5));
    QCOMPARE(scene.row("Lines", channel("a"), 1), QStringList(QStringLiteral("18")));
}

void TestMarkerActions::invertedAndLogarithmic()
{
    MarkerScene scene("t,a\n0,1\n5,10\n10,100\n");
    QVERIFY(scene.isReady());
    scene.add("Add Region");
    const auto corner = [&scene](double x, double y) { return scene.pixel(x, y); };
    const auto *box = scene.marker(ZrQtPlotChannel::Rectangles);
    scene.drag(scene.at(box, scene.region().bottomLeft()), corner(3, 60));
    scene.drag(scene.at(box, scene.region().topLeft()), corner(3, 5));
    const QVector<double> statistics = {1, 10, 10, 10};
    QCOMPARE(scene.numbers("Region", channel("a"), 4), statistics);
    for (const char *option : {"Inverted Values", "Logarithmic Values", "Inverted Values"}) {
        scene.add(option);
        QCOMPARE(scene.numbers("Region", channel("a"), 4), statistics);
    }
    // Between 5 and 60, on a logarithmic axis.
    const QRectF region = scene.region();
    const double height = scene.marker(ZrQtPlotChannel::Rectangles)->height();
    const QRectF canvas = scene.plot()->canvas(ZrQtPlot::COSY_0);
    const double low = canvas.top() + region.top() / height * canvas.height();
    QVERIFY(std::abs(low - std::log10(5.0)) < 0.05);
}

void TestMarkerActions::dates()
{
    MarkerScene scene("d,a\n2026-11-21 00:00,0\n2026-11-22 00:00,100\n");
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    scene.add("Add Marker Line");
    const double midnight = scene.plot()->findChild<ZrQtBufferedChannel *>()->boundingRect().left();
    scene.drag(scene.line(0), scene.pixel(midnight + 6 * 3600000.0, 50));
    scene.drag(scene.line(1), scene.pixel(midnight + 12 * 3600000.0, 50));
    const QString x = scene.row("Lines", QStringLiteral("x"), 3).join(QLatin1Char('|'));
    const QRegularExpression expected(
        QStringLiteral("^21 Nov 2026 0[56]:\\d\\d\\|1[12]:\\d\\d\\|0[56]:\\d\\d:00$"));
    QVERIFY2(expected.match(x).hasMatch(), qPrintable(x));
}

void TestMarkerActions::cursorsOverZones()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    scene.add("Add Region");
    auto *overlay = scene.window.findChild<QWidget *>(QStringLiteral("ZrQtPlot::m_overlay"));
    scene.point(scene.line(0));
    QCOMPARE(overlay->cursor().shape(), Qt::SizeHorCursor);
    const auto *box = scene.marker(ZrQtPlotChannel::Rectangles);
    const QRectF region = scene.region();
    scene.point(scene.at(box, QPointF(region.left(), region.center().y() + 30.0)));
    QCOMPARE(overlay->cursor().shape(), Qt::SizeHorCursor);
    scene.point(scene.at(box, region.center()));
    QCOMPARE(overlay->cursor().shape(), Qt::SizeAllCursor);
    scene.point(scene.pixel(1, 15));
    QCOMPARE(overlay->cursor().shape(), scene.plot()->cursor().shape());
}

void TestMarkerActions::removeAll()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Circle");
    QVERIFY(scene.panelIsOpen());
    scene.add("Remove All Markers");
    QVERIFY(!scene.panelIsOpen());
    QVERIFY(!scene.marker(ZrQtPlotChannel::Circles));
    scene.add("Legend");
    QVERIFY(scene.plot()->findChildren<ZrQtPlotChannel *>().isEmpty());
}

void TestMarkerActions::otherFilesRemoveThem()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    scene.add("Add Marker Line");
    QVERIFY(scene.open("t,c\n100,1\n200,2\n"));
    QVERIFY(!scene.panelIsOpen());
    QVERIFY(scene.plot()->findChildren<ZrQtPlotChannel *>().isEmpty());
}

void TestMarkerActions::markersAreNoData()
{
    MarkerScene scene(ramps(11));
    QVERIFY(scene.isReady());
    const QRectF fitted = scene.plot()->canvas(ZrQtPlot::COSY_0);
    scene.add("Add Marker Line");
    scene.add("Add Region");
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), fitted);
    scene.wheel(scene.pixel(5, 5), 2);
    scene.action("Home")->trigger();
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_0), fitted);
    QCOMPARE(scene.plot()->scalingX(ZrQtPlot::COSY_0), ZrQtPlot::AutoFit);
}

QTEST_MAIN(TestMarkerActions)
#include "tst_markeractions.moc"
