#include "viewerscene.h"

#include <ZrQtPlotWidgets/zrqtplotslider.h>

namespace {

Options withOverview()
{
    Options options;
    options.overview = true;
    return options;
}

/// A window with a strip below its plot.
class OverviewScene : public Scene
{
public:
    explicit OverviewScene(const QByteArray &csv = kNumbers, const Options &options = withOverview())
        : Scene(csv, options)
    {
    }

    ZrQtPlotSlider *slider() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window.findChild<ZrQtPlotSlider *>();
    }
    ZrQtPlot *overview() const { return static_cast<ZrQtPlot *>(slider()->parentWidget()); }
    QList<ZrQtBufferedChannel *> copies() const { return overview()->findChildren<ZrQtBufferedChannel *>(); }
    QRectF canvas() const { return plot()->canvas(ZrQtPlot::COSY_0); }

    /// Where the strip draws the value, in pixels of the strip.
    int stripX(double x) const
    {
        const QRectF all = overview()->canvas(ZrQtPlot::COSY_0);
        return qRound((x - all.left()) / all.width() * slider()->width());
    }
    /// The same in the middle of its height, in pixels of the window.
    QPoint at(int x) const
    {
        return slider()->mapTo(&const_cast<MainWindow &>(window), QPoint(x, slider()->height() / 2));
    }
    double perPixel() const { return overview()->canvas(ZrQtPlot::COSY_0).width() / slider()->width(); }

    /// The x that are not shaded, from the inner side of one handle to that of the other.
    QPair<int, int> bright() const
    {
        const QImage image = overview()->grab(slider()->geometry()).toImage();
        const int y = image.height() - 4;
        int first = 0;
        int last = image.width() - 1;
        while (first < last && image.pixelColor(first, y).lightness() < 230)
            ++first;
        while (last > first && image.pixelColor(last, y).lightness() < 230)
            --last;
        return {first, last};
    }
};

} // namespace

class TestOverview : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { WallClock::enterZone(); }

    void switchedByOptionMenuAndKey();
    void showsAllDataBelowThePlot();
    void isAlignedWithThePlot();
    void handlesMoveThePlot();
    void theMiddleMovesThePlot();
    void panAndZoomMoveTheHandles();
    void homeOpensTheHandles();
    void hiddenChannelsAreHiddenThere();
    void otherXAxesAreLeftOut();
    void aPeakOfALongSeriesIsSeen();
    void invertedLikeThePlot();
    void whatWasMovedStays();
};

void TestOverview::switchedByOptionMenuAndKey()
{
    OverviewScene scene(kNumbers, Options());
    QVERIFY(scene.isReady());
    QVERIFY(!scene.slider());
    scene.action("Overview")->trigger();
    QVERIFY(scene.slider() && scene.slider()->isVisible());
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_O);
    QVERIFY(!scene.slider());
    OverviewScene fromOption;
    QVERIFY(fromOption.isReady());
    QVERIFY(fromOption.slider() && fromOption.action("Overview")->isChecked());
}

void TestOverview::showsAllDataBelowThePlot()
{
    OverviewScene scene("t,a,b\n0,0,5\n10,100,6\n");
    QVERIFY(scene.isReady());
    QCOMPARE(scene.copies().size(), 2);
    QVERIFY(scene.overview()->geometry().top() >= scene.plot()->geometry().bottom());
    QCOMPARE(scene.overview()->canvas(ZrQtPlot::COSY_0), scene.canvas());
    const auto originals = scene.plot()->findChildren<ZrQtBufferedChannel *>();
    for (int i = 0; i < originals.size(); ++i) {
        QCOMPARE(scene.copies()[i]->lineColor(), originals[i]->lineColor());
        QCOMPARE(scene.copies()[i]->cosyY(), originals[i]->cosyY());
        QCOMPARE(scene.copies()[i]->boundingRect(), originals[i]->boundingRect());
    }
}

void TestOverview::isAlignedWithThePlot()
{
    OverviewScene scene("t,a,b\n0,0,5000\n10,100,600000\n");
    QVERIFY(scene.isReady());
    const auto spanOf = [&scene](const QWidget *widget) {
        const int left = widget->mapTo(&scene.window, QPoint()).x();
        return QPair<int, int>(left, left + widget->width());
    };
    QCOMPARE(spanOf(scene.slider()), spanOf(scene.plot()->findChild<ZrQtBufferedChannel *>()));
    scene.window.resize(700, 500);
    QCoreApplication::processEvents();
    QCOMPARE(spanOf(scene.slider()), spanOf(scene.plot()->findChild<ZrQtBufferedChannel *>()));
}

void TestOverview::handlesMoveThePlot()
{
    OverviewScene scene;
    QVERIFY(scene.isReady());
    const QRectF before = scene.canvas();
    const int width = scene.slider()->width();
    scene.drag(scene.at(3), scene.at(scene.stripX(4)));
    QVERIFY(std::abs(scene.canvas().left() - 4.0) < scene.perPixel());
    QVERIFY(std::abs(scene.canvas().right() - before.right()) < 2.0 * scene.perPixel());
    scene.drag(scene.at(width - 4), scene.at(scene.stripX(7)));
    QVERIFY(std::abs(scene.canvas().left() - 4.0) < scene.perPixel());
    QVERIFY(std::abs(scene.canvas().right() - 7.0) < scene.perPixel());
    QCOMPARE(scene.canvas().top(), before.top());
    QCOMPARE(scene.canvas().height(), before.height());
    QCOMPARE(scene.overview()->canvas(ZrQtPlot::COSY_0), before);
}

void TestOverview::theMiddleMovesThePlot()
{
    OverviewScene scene;
    QVERIFY(scene.isReady());
    scene.plot()->setCanvas(QRectF(2, 0, 3, 0), ZrQtPlot::COSY_0);
    scene.press(scene.at(scene.stripX(3.5)));
    scene.point(scene.at(scene.stripX(5)));
    // Already during the drag.
    QVERIFY(std::abs(scene.canvas().left() - 3.5) < 2.0 * scene.perPixel());
    scene.point(scene.at(scene.stripX(6.5)));
    scene.release(scene.at(scene.stripX(6.5)));
    QVERIFY(std::abs(scene.canvas().left() - 5.0) < 2.0 * scene.perPixel());
    QVERIFY(std::abs(scene.canvas().width() - 3.0) < 1e-9);
}

void TestOverview::panAndZoomMoveTheHandles()
{
    OverviewScene scene;
    QVERIFY(scene.isReady());
    scene.action("Zoom")->trigger();
    scene.drag(scene.pixel(2, 80), scene.pixel(4, 40));
    QPair<int, int> bright = scene.bright();
    QVERIFY(std::abs(bright.first - (scene.stripX(2) + 9)) <= 3);
    QVERIFY(std::abs(bright.second - (scene.stripX(4) - 9)) <= 3);
    scene.action("Pan")->trigger();
    scene.drag(scene.pixel(2.5, 60), scene.pixel(3.5, 60));
    bright = scene.bright();
    QVERIFY(std::abs(bright.first - (scene.stripX(1) + 9)) <= 3);
    QVERIFY(std::abs(bright.second - (scene.stripX(3) - 9)) <= 3);
}

void TestOverview::homeOpensTheHandles()
{
    OverviewScene scene;
    QVERIFY(scene.isReady());
    const QRectF before = scene.canvas();
    scene.drag(scene.at(3), scene.at(scene.stripX(4)));
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_Home);
    QCOMPARE(scene.canvas(), before);
    QVERIFY(scene.bright().first < 14);
}

void TestOverview::hiddenChannelsAreHiddenThere()
{
    OverviewScene scene("t,a,b\n0,0,5\n10,100,6\n");
    QVERIFY(scene.isReady());
    scene.plot()->findChild<ZrQtBufferedChannel *>()->setVisible(false);
    QVERIFY(!scene.copies().first()->isVisible());
    QVERIFY(scene.copies().last()->isVisible());
    scene.action("Legend")->trigger();
    QVERIFY(!scene.plot()->findChild<ZrQtBufferedChannel *>()->isVisible());
    QVERIFY(!scene.copies().first()->isVisible());
}

void TestOverview::otherXAxesAreLeftOut()
{
    QTemporaryDir directory;
    QStringList files;
    for (const auto &[name, csv] : {std::pair("n.csv", "t,a\n0,0\n10,100\n"),
                                    std::pair("d.csv", "d,b\n2026-11-21,1\n2026-11-22,2\n")}) {
        QFile file(directory.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(csv);
        files += file.fileName();
    }
    OverviewScene scene;
    QSignalSpy opened(&scene.window, &MainWindow::opened);
    scene.window.open(files);
    QVERIFY(opened.wait(10000));
    QCOMPARE(scene.plot()->findChildren<ZrQtBufferedChannel *>().size(), 2);
    QCOMPARE(scene.copies().size(), 1);
    QVERIFY(scene.isReady());
    const QRectF dates = scene.plot()->canvas(ZrQtPlot::COSY_1);
    scene.drag(scene.at(3), scene.at(scene.stripX(4)));
    QVERIFY(std::abs(scene.canvas().left() - 4.0) < scene.perPixel());
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_1), dates);
}

void TestOverview::aPeakOfALongSeriesIsSeen()
{
    QByteArray csv = "t,a\n";
    for (int i = 0; i < 30000; ++i)
        csv += QByteArray::number(i) + (i == 12345 ? ",7\n" : ",0\n");
    OverviewScene scene(csv);
    QVERIFY(scene.isReady());
    // Also when the plot shows another part.
    scene.plot()->setCanvas(QRectF(20000, 0, 1000, 0), ZrQtPlot::COSY_0);
    const auto darkness = [&scene] {
        const QImage image = scene.overview()->grab(scene.slider()->geometry()).toImage();
        const int x = scene.stripX(12345);
        const int y = image.height() / 4;
        const int beside = image.pixelColor(x - 6, y).lightness();
        return beside
               - qMin(image.pixelColor(x, y).lightness(),
                      qMin(image.pixelColor(x - 1, y).lightness(), image.pixelColor(x + 1, y).lightness()));
    };
    QTRY_VERIFY(darkness() > 30);
}

void TestOverview::invertedLikeThePlot()
{
    Options options = withOverview();
    options.invertedY = true;
    OverviewScene scene("t,a\n0,0\n10,100\n", options);
    QVERIFY(scene.isReady());
    const ZrQtBufferedChannel *copy = scene.copies().first();
    QVERIFY(copy->mapToPixel(QPointF(0, 0)).y() < copy->mapToPixel(QPointF(0, 100)).y());
}

void TestOverview::whatWasMovedStays()
{
    OverviewScene scene;
    QVERIFY(scene.isReady());
    scene.drag(scene.at(3), scene.at(scene.stripX(4)));
    const QRectF moved = scene.canvas();
    const QPair<int, int> bright = scene.bright();
    scene.action("Percent")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(scene.canvas(), moved);
    QVERIFY(std::abs(scene.bright().first - bright.first) <= 2);
}

QTEST_MAIN(TestOverview)
#include "tst_overview.moc"
