#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"

/// The cached picture of the plot area: what is in it, and what makes the plot draw it anew.
class tst_ZrQtPlotCached : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void plotPaintsTheChannels();
    void everyPaintRedrawsWithoutRestrictions();
    void hiddenChannelsAreLeftOut();
    void channelsInOrderOfRegistration();
    void gridLiesAboveTheChannels();
    void frameIsOffset();
    void restrictions_data();
    void restrictions();
    void changeOfTheLastSystemCounts_data();
    void changeOfTheLastSystemCounts();
    void bothChangesEndTheScan();
    void emptyCanvasIsNotScanned();
    void oldPictureIsShown();
    void forcedRedraws_data();
    void forcedRedraws();
    void newDataCountsOnce();
    void pictureHasTheSizeOfThePlotArea();
    void pictureOfAHugePlotIsLimited();
    void switchedOff();
};

namespace {

const Cosy C0 = ZrQtPlot::COSY_0;
const Cosy C1 = ZrQtPlot::COSY_1;
const QRgb ground = QColor(Qt::green).rgb();
const QRgb blue = QColor(Qt::blue).rgb();

/// A plot that paints its channels into a plot area of 100 x 80 pixels at (20, 15). No mode moves a canvas,
/// so that extent and canvas change apart from each other.
struct Scene : ShownPlot
{
    explicit Scene(ZrQtPlot::PlotUpdateRestrictions restrictions = {})
        : ShownPlot(QSize(150, 120))
    {
        plot->setMinMarginLeft(20);
        plot->setMinMarginTop(15);
        plot->setMinMarginRight(30);
        plot->setMinMarginBottom(25);
        plot->setDefaultScalingX(ZrQtPlot::Custom);
        plot->setDefaultScalingY(ZrQtPlot::Custom);
        plot->setControlChannelUpdatesViaPlot(true);
        plot->setPlotUpdateRestrictions(restrictions);
        channel = new ProbeChannel(plot, QRectF(0, 0, 1, 1));
        channel->fill = Qt::blue;
        settle(plot);
        paintedAlone(plot);
        channel->paintCount = 0;
    }

    /// Whether a paint of the plot draws the picture anew.
    bool redraws()
    {
        channel->paintCount = 0;
        paintedAlone(plot);
        return channel->paintCount > 0;
    }

    ProbeChannel *channel;
};

void moveCanvas(ZrQtPlot *plot, Cosy cosy)
{
    plot->setMinX(plot->canvas(cosy).left() - 1, cosy);
}

} // namespace

void tst_ZrQtPlotCached::plotPaintsTheChannels()
{
    Scene scene;
    const QImage image = paintedAlone(scene.plot);
    QCOMPARE(scene.channel->paintCount, 1);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixel(x, y), QRect(20, 15, 100, 80).contains(x, y) ? blue : ground);
    }
    // The channel paints in its own pixels, and not a second time by itself.
    QCOMPARE(scene.channel->painterTransform, QTransform());
    scene.channel->paintCount = 0;
    QImage shown = scene.plot->grab().toImage();
    QCOMPARE(scene.channel->paintCount, 1);
    QCOMPARE(shown.pixel(70, 50), blue);

    // A channel that comes later leaves its painting to the plot too.
    auto *late = new ProbeChannel(scene.plot, QRectF());
    late->line = Qt::yellow;
    late->lineRow = 7;
    settle(scene.plot);
    late->paintCount = 0;
    shown = scene.plot->grab().toImage();
    QCOMPARE(late->paintCount, 1);
    QCOMPARE(shown.pixel(70, 15 + 7), QColor(Qt::yellow).rgb());
}

void tst_ZrQtPlotCached::everyPaintRedrawsWithoutRestrictions()
{
    Scene scene;
    for (int i = 0; i < 3; ++i)
        QVERIFY(scene.redraws());
}

void tst_ZrQtPlotCached::hiddenChannelsAreLeftOut()
{
    Scene scene;
    auto *hidden = new ProbeChannel(scene.plot, QRectF());
    hidden->setVisible(false);
    hidden->fill = Qt::red;
    hidden->paintCount = 0;
    const QImage image = paintedAlone(scene.plot);
    QCOMPARE(hidden->paintCount, 0);
    QCOMPARE(image.pixel(70, 50), blue);
}

void tst_ZrQtPlotCached::channelsInOrderOfRegistration()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF());
    second->fill = Qt::red;
    scene.channel->raise(); // what lies above as a widget does not matter
    settle(scene.plot);
    QCOMPARE(paintedAlone(scene.plot).pixel(70, 50), QColor(Qt::red).rgb());
}

void tst_ZrQtPlotCached::gridLiesAboveTheChannels()
{
    Scene scene;
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridSpacing(QSizeF(40, 40));
    scene.plot->setGridSubSpacing(QSizeF(30, 30));
    const QImage image = paintedAlone(scene.plot);
    QCOMPARE(image.pixel(20 + 40, 50), QColor(Qt::darkGray).rgb());
    QCOMPARE(image.pixel(20 + 80, 50), QColor(Qt::darkGray).rgb());
    QCOMPARE(image.pixel(20 + 30, 50), QColor(Qt::lightGray).rgb());
    QCOMPARE(image.pixel(20 + 45, 50), blue);
}

void tst_ZrQtPlotCached::frameIsOffset()
{
    // On purpose: the frame is drawn in the picture at the place of the plot area in the widget.
    Scene scene;
    scene.channel->fill = QColor();
    scene.plot->setBorderColor(Qt::red);
    const QImage image = paintedAlone(scene.plot);
    const QRgb red = QColor(Qt::red).rgb();
    const QRgb white = QColor(Qt::white).rgb();
    QCOMPARE(image.pixel(20 + 20, 80), red); // left line
    QCOMPARE(image.pixel(80, 15 + 15), red); // top line
    QCOMPARE(image.pixel(20, 50), white);    // not where the plot area begins
    QCOMPARE(image.pixel(70, 15), white);
    QCOMPARE(image.pixel(119, 90), white); // right and bottom lines fall outside
    QCOMPARE(image.pixel(39, 80), white);
}

namespace {

enum Change { Nothing, Data, Extent, Canvas, Mouse };

void apply(Change change, Scene &scene)
{
    switch (change) {
    case Nothing:
        break;
    case Data:
        scene.channel->announceData();
        break;
    case Extent:
        scene.channel->setRect(scene.channel->boundingRect().adjusted(0, 0, 1, 1));
        break;
    case Canvas:
        moveCanvas(scene.plot, C0);
        break;
    case Mouse:
        scene.plot->setAttribute(Qt::WA_UnderMouse, true);
        break;
    }
}

} // namespace

void tst_ZrQtPlotCached::restrictions_data()
{
    QTest::addColumn<int>("restrictions");
    QTest::addColumn<int>("change");
    QTest::addColumn<bool>("redraws");

    const char *bits[] = {"data", "extent", "canvas", "mouse"};
    const char *changes[] = {"nothing", "data", "extent", "canvas", "mouse"};
    const Change allowed[] = {Data, Extent, Canvas, Mouse};
    for (int change = Nothing; change <= Mouse; ++change) {
        QTest::addRow("no restriction, %s", changes[change]) << 0 << change << true;
        for (int bit = 0; bit < 4; ++bit)
            QTest::addRow("only on %s, %s", bits[bit], changes[change])
                << (1 << bit) << change << (change == allowed[bit]);
        QTest::addRow("on data or canvas, %s", changes[change])
            << 5 << change << (change == Data || change == Canvas);
        QTest::addRow("on all, %s", changes[change]) << 0xf << change << (change != Nothing);
    }
}

void tst_ZrQtPlotCached::restrictions()
{
    QFETCH(const int, restrictions);
    QFETCH(const int, change);
    QFETCH(const bool, redraws);

    Scene scene{ZrQtPlot::PlotUpdateRestrictions(restrictions)};
    QCOMPARE(scene.redraws(), restrictions == 0);
    apply(Change(change), scene);
    QCOMPARE(scene.redraws(), redraws);
    // What is painted is no change any more; the mouse stays where it is.
    const bool again = restrictions == 0 || (redraws && change == Mouse);
    QCOMPARE(scene.redraws(), again);
    scene.plot->setAttribute(Qt::WA_UnderMouse, false);
}

void tst_ZrQtPlotCached::changeOfTheLastSystemCounts_data()
{
    QTest::addColumn<int>("restriction");
    QTest::addColumn<Cosy>("cosy");
    QTest::addColumn<bool>("redraws");

    // COSY_0 is scanned before COSY_1, and each overwrites what the one before has found.
    QTest::newRow("canvas of the first") << int(ZrQtPlot::RedrawOnCanvasChange) << C0 << false;
    QTest::newRow("canvas of the last") << int(ZrQtPlot::RedrawOnCanvasChange) << C1 << true;
    QTest::newRow("extent of the first") << int(ZrQtPlot::RedrawOnBoundingRectChange) << C0 << false;
    QTest::newRow("extent of the last") << int(ZrQtPlot::RedrawOnBoundingRectChange) << C1 << true;
}

void tst_ZrQtPlotCached::changeOfTheLastSystemCounts()
{
    QFETCH(const int, restriction);
    QFETCH(const Cosy, cosy);
    QFETCH(const bool, redraws);

    Scene scene{ZrQtPlot::PlotUpdateRestrictions(restriction)};
    auto *second = new ProbeChannel(scene.plot, QRectF(0, 0, 1, 1), C1, C1);
    settle(scene.plot);
    scene.plot->setPlotUpdateRestrictions({});
    QVERIFY(scene.redraws());
    scene.plot->setPlotUpdateRestrictions(ZrQtPlot::PlotUpdateRestrictions(restriction));
    QVERIFY(!scene.redraws());

    if (restriction == ZrQtPlot::RedrawOnCanvasChange)
        moveCanvas(scene.plot, cosy);
    else
        (cosy == C0 ? scene.channel : second)->setRect(QRectF(0, 0, 5, 5));
    QCOMPARE(scene.redraws(), redraws);
    // A change that was overlooked is found as soon as the last system changes as well.
    if (!redraws) {
        moveCanvas(scene.plot, C1);
        second->setRect(QRectF(0, 0, 6, 6));
        QVERIFY(scene.redraws());
    }
}

void tst_ZrQtPlotCached::bothChangesEndTheScan()
{
    Scene scene;
    auto *second = new ProbeChannel(scene.plot, QRectF(0, 0, 1, 1), C1, C1);
    settle(scene.plot);
    QVERIFY(scene.redraws());
    scene.plot->setPlotUpdateRestrictions(ZrQtPlot::RedrawOnCanvasChange);
    QVERIFY(!scene.redraws());
    moveCanvas(scene.plot, C0);
    QVERIFY(!scene.redraws());
    scene.channel->setRect(QRectF(0, 0, 5, 5));
    QVERIFY(scene.redraws());
    Q_UNUSED(second)
}

void tst_ZrQtPlotCached::emptyCanvasIsNotScanned()
{
    Scene scene;
    scene.plot->setInitialCanvas(QRectF(0, 0, 0, 5));
    new ProbeChannel(scene.plot, QRectF(0, 0, 1, 1), C1, C1);
    settle(scene.plot);
    scene.plot->setMaxX(10, C0);
    QVERIFY(scene.redraws());
    scene.plot->setPlotUpdateRestrictions(ZrQtPlot::RedrawOnCanvasChange);
    QVERIFY(!scene.redraws());
    // COSY_1 has no width, so COSY_0 is the last one.
    moveCanvas(scene.plot, C0);
    QVERIFY(scene.redraws());
    scene.plot->setMinY(-7, C1);
    QVERIFY(!scene.redraws());
}

void tst_ZrQtPlotCached::oldPictureIsShown()
{
    Scene scene(ZrQtPlot::RedrawOnCanvasChange);
    scene.channel->fill = Qt::red;
    scene.channel->announceData();
    QCOMPARE(paintedAlone(scene.plot).pixel(70, 50), blue);
    QCOMPARE(scene.plot->grab().toImage().pixel(70, 50), blue);
    moveCanvas(scene.plot, C0);
    QCOMPARE(paintedAlone(scene.plot).pixel(70, 50), QColor(Qt::red).rgb());
}

void tst_ZrQtPlotCached::forcedRedraws_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<bool>("redraws");

    QTest::newRow("resize") << 0 << true;
    QTest::newRow("leaving the widget") << 1 << true;
    QTest::newRow("a channel shown") << 2 << true;
    QTest::newRow("a channel hidden") << 3 << true;
    QTest::newRow("an axis inverted") << 4 << true;
    QTest::newRow("an axis added") << 9 << true;
    QTest::newRow("another plot area") << 5 << true;
    QTest::newRow("a mere update") << 6 << false;
    QTest::newRow("a layout that changes nothing") << 7 << false;
    QTest::newRow("a legend flag") << 8 << false;
}

void tst_ZrQtPlotCached::forcedRedraws()
{
    QFETCH(const int, which);
    QFETCH(const bool, redraws);

    Scene scene;
    auto *other = new ProbeChannel(scene.plot, QRectF());
    if (which == 2)
        other->setVisible(false);
    auto *axis = new ZrQtAxis(scene.plot);
    axis->hide();
    settle(scene.plot);
    QVERIFY(scene.redraws());
    scene.plot->setPlotUpdateRestrictions(ZrQtPlot::RedrawOnBoundingRectChange);
    QVERIFY(!scene.redraws());

    switch (which) {
    case 0: {
        // Not even the plot area differs.
        QResizeEvent event(scene.plot->size(), scene.plot->size());
        QApplication::sendEvent(scene.plot, &event);
        break;
    }
    case 1: {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(scene.plot, &event);
        break;
    }
    case 2:
        other->setVisible(true);
        break;
    case 3:
        other->setVisible(false);
        break;
    case 4:
        axis->setInverted(true);
        break;
    case 5:
        scene.plot->setMinMarginLeft(21);
        break;
    case 6:
        scene.plot->update();
        break;
    case 7: {
        QEvent event(QEvent::LayoutRequest);
        QApplication::sendEvent(scene.plot, &event);
        break;
    }
    case 8:
        Q_EMIT other->showInLegendChanged(true);
        break;
    default:
        (new ZrQtAxis(scene.plot))->hide();
        break;
    }
    QCOMPARE(scene.redraws(), redraws);
    QVERIFY(!scene.redraws());
}

void tst_ZrQtPlotCached::newDataCountsOnce()
{
    Scene scene(ZrQtPlot::RedrawOnDataChange);
    QVERIFY(!scene.redraws());
    scene.channel->announceData();
    scene.channel->announceData();
    QVERIFY(scene.redraws());
    QVERIFY(!scene.redraws());
    // Data that came while another condition redrew is no new data any more.
    scene.channel->announceData();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(scene.plot, &leave);
    QVERIFY(scene.redraws());
    QVERIFY(!scene.redraws());
}

void tst_ZrQtPlotCached::pictureHasTheSizeOfThePlotArea()
{
    Scene scene(ZrQtPlot::RedrawOnCanvasChange);
    scene.plot->resize(250, 220);
    const QImage image = paintedAlone(scene.plot);
    QVERIFY(scene.channel->paintCount > 0);
    const QRect area(20, 15, 200, 180);
    QCOMPARE(plotArea(scene.plot), area);
    for (int y = 0; y < image.height(); y += 5) {
        for (int x = 0; x < image.width(); x += 5)
            QCOMPARE(image.pixel(x, y), area.contains(x, y) ? blue : ground);
    }
}

// Without the limit this takes a gigabyte, and so does each further thousand of pixels of width.
void tst_ZrQtPlotCached::pictureOfAHugePlotIsLimited()
{
    Scene scene;
    scene.plot->resize(150, 8000000);
    scene.channel->paintedSize = QSize();
    QImage image(150, 120, QImage::Format_RGB32);
    QPainter painter(&image);
    scene.plot->paint(&painter);
    QCOMPARE(scene.channel->paintedSize, QSize(100, 32767));
    painter.end();
    QCOMPARE(image.pixel(70, 50), blue);
}

void tst_ZrQtPlotCached::switchedOff()
{
    Scene scene(ZrQtPlot::RedrawOnCanvasChange);
    scene.plot->setControlChannelUpdatesViaPlot(false);
    scene.channel->paintCount = 0;
    paintedAlone(scene.plot);
    QCOMPARE(scene.channel->paintCount, 0);
    const QImage image = scene.plot->grab().toImage();
    QCOMPARE(scene.channel->paintCount, 1);
    QCOMPARE(image.pixel(70, 50), blue);
}

QTEST_MAIN(tst_ZrQtPlotCached)

#include "tst_zrqtplot_cached.moc"
