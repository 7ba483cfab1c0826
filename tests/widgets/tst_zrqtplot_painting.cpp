#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"

#include <QtGui/QFontMetrics>

/// Background, frame and legend in pixels; the grid and the cached picture have tests of their own.
class tst_ZrQtPlotPainting : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void background();
    void frame_data();
    void frame();
    void frameIsInvisibleByDefault();
    void gridLiesAboveTheFrame();
    void channelsPaintThemselves();
    void paintLeavesOutTheLegend();
    void legendOff();
    void legendEntries_data();
    void legendEntries();
    void legendLines();
    void legendBelowBottomAxes();
    void legendNames_data();
    void legendNames();
    void legendSkipsChannels();
    void legendOfASingleChannel();
};

namespace {

const QRgb ground = QColor(Qt::green).rgb();
const QRgb white = QColor(Qt::white).rgb();
const QRgb red = QColor(Qt::red).rgb();
const QColor colors[]
    = {QColor(200, 10, 20), QColor(10, 20, 200), QColor(200, 10, 200), QColor(20, 140, 140)};

/// A plot area of 100 x 80 pixels at (20, 15).
struct Scene : ShownPlot
{
    Scene()
        : ShownPlot(QSize(150, 120))
    {
        plot->setMinMarginLeft(20);
        plot->setMinMarginTop(15);
        plot->setMinMarginRight(30);
        plot->setMinMarginBottom(25);
    }
};

/// A plot with a legend of the given names, each in its own colour.
struct LegendScene : ShownPlot
{
    explicit LegendScene(const QStringList &names, const QSize &size = QSize(600, 300))
        : ShownPlot(size)
    {
        for (const QString &name : names) {
            auto *channel = new ProbeChannel(plot, QRectF());
            channel->setName(name);
            channel->setLineColor(colors[channels.size()]);
            channels.append(channel);
        }
        plot->setGenerateLegend(true);
        settle(plot);
    }

    int height() const { return plot->fontMetrics().height(); }
    int gap() const { return int(height() * 0.5 + 0.5); }
    int advance(const QString &name) const { return plot->fontMetrics().horizontalAdvance(name); }
    int entry(const QString &name) const { return int(advance(name) + height() + gap() * 0.5 + 0.5); }
    int baseline(int line, int axes = 0) const
    {
        const QRect area = plotArea(plot);
        return int(area.top() + area.height() + axes + (line + 1) * (height() + gap()) - gap() + 0.5);
    }
    QImage grab() const { return plot->grab().toImage(); }

    QVector<ProbeChannel *> channels;
};

/// The square that shows the colour of an entry.
QRect sampleOf(const LegendScene &scene, int x, int baseline)
{
    return QRect(x, int(baseline - 0.75 * scene.height()), scene.height(), scene.height());
}

/// The smallest rectangle around all pixels of \a color.
QRect extentOf(const QImage &image, const QColor &color)
{
    QRect extent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == color.rgb())
                extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

/// Whether something is written inside \a rect.
bool hasInk(const QImage &image, const QRect &rect)
{
    const QRgb empty = image.pixel(0, image.height() - 1);
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (image.valid(x, y) && image.pixel(x, y) != empty)
                return true;
        }
    }
    return false;
}

} // namespace

void tst_ZrQtPlotPainting::background()
{
    Scene scene;
    scene.plot->setBackgroundColor(QColor(250, 200, 100));
    const QImage image = paintedAlone(scene.plot);
    const QRect area(20, 15, 100, 80);
    QCOMPARE(plotArea(scene.plot), area);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixel(x, y), area.contains(x, y) ? qRgb(250, 200, 100) : ground);
    }
}

void tst_ZrQtPlotPainting::frame_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("reach"); // to each side of the line, without the middle

    QTest::newRow("hairline") << 0 << 0;
    QTest::newRow("1 pixel") << 1 << 0;
    QTest::newRow("3 pixels") << 3 << 1;
    QTest::newRow("5 pixels") << 5 << 2;
}

void tst_ZrQtPlotPainting::frame()
{
    QFETCH(const int, width);
    QFETCH(const int, reach);

    Scene scene;
    scene.plot->setBorderColor(Qt::red);
    scene.plot->setBorderWidth(width);
    const QImage image = paintedAlone(scene.plot);
    const QRect area(20, 15, 100, 80);
    const QPoint centre = area.center();
    // The frame runs along the edges of the area: its right and bottom lines are those beyond the last
    // pixels.
    for (int i = -reach; i <= reach; ++i) {
        QCOMPARE(image.pixel(20 + i, centre.y()), red);
        QCOMPARE(image.pixel(120 + i, centre.y()), red);
        QCOMPARE(image.pixel(centre.x(), 15 + i), red);
        QCOMPARE(image.pixel(centre.x(), 95 + i), red);
    }
    // Bevelled corners.
    QCOMPARE(image.pixel(20, 15), red);
    if (reach == 2) {
        QCOMPARE(image.pixel(20 - reach, 15 - reach), ground);
        QCOMPARE(image.pixel(120 + reach, 95 + reach), ground);
    }
    QCOMPARE(image.pixel(20 + reach + 2, centre.y()), white);
    QCOMPARE(image.pixel(20 - reach - 2, centre.y()), ground);
    QCOMPARE(image.pixel(120 + reach + 2, centre.y()), ground);
    QCOMPARE(image.pixel(centre.x(), 15 - reach - 2), ground);
    QCOMPARE(image.pixel(centre.x(), 95 + reach + 2), ground);
}

void tst_ZrQtPlotPainting::frameIsInvisibleByDefault()
{
    Scene scene;
    scene.plot->setBorderWidth(5);
    const QImage image = paintedAlone(scene.plot);
    QCOMPARE(image.pixel(20, 50), white);
    QCOMPARE(image.pixel(19, 50), ground);
    QCOMPARE(image.pixel(120, 50), ground);
}

void tst_ZrQtPlotPainting::gridLiesAboveTheFrame()
{
    Scene scene;
    scene.plot->setBorderColor(Qt::red);
    scene.plot->setBorderWidth(5);
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    scene.plot->setGridSpacing(QSizeF(50, 50));
    const QImage image = paintedAlone(scene.plot);
    QCOMPARE(image.pixel(70, 16), QColor(Qt::darkGray).rgb());
    QCOMPARE(image.pixel(71, 16), red);
}

void tst_ZrQtPlotPainting::channelsPaintThemselves()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF());
    channel->fill = QColor(Qt::blue);
    QApplication::processEvents();
    channel->paintCount = 0;
    paintedAlone(scene.plot);
    QCOMPARE(channel->paintCount, 0);

    // As a child it lies over the grid.
    scene.plot->setGridModeX(ZrQtPlot::PixelStepGrid);
    const QImage image = scene.plot->grab().toImage();
    QCOMPARE(channel->paintCount, 1);
    QCOMPARE(extentOf(image, Qt::blue), QRect(20, 15, 100, 80));
    QCOMPARE(image.pixel(20 + 50, 50), QColor(Qt::blue).rgb());
    QCOMPARE(channel->painterTransform.m11(), 1.0);
}

void tst_ZrQtPlotPainting::paintLeavesOutTheLegend()
{
    LegendScene scene({"alpha", "beta"});
    const QImage image = paintedAlone(scene.plot);
    QVERIFY(extentOf(image, colors[0]).isNull());
    QCOMPARE(extentOf(image, Qt::white), plotArea(scene.plot));
    QVERIFY(!extentOf(scene.grab(), colors[0]).isNull());
}

void tst_ZrQtPlotPainting::legendOff()
{
    LegendScene scene({"alpha", "beta"});
    scene.plot->setGenerateLegend(false);
    const QImage image = scene.grab();
    QVERIFY(extentOf(image, colors[0]).isNull());
    QVERIFY(extentOf(image, colors[1]).isNull());
}

void tst_ZrQtPlotPainting::legendEntries_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("place"); // 0 left, 1 centre, 2 right

    QTest::newRow("right") << int(Qt::AlignRight) << 2;
    QTest::newRow("left") << int(Qt::AlignLeft) << 0;
    QTest::newRow("horizontal centre") << int(Qt::AlignHCenter) << 1;
    QTest::newRow("centre") << int(Qt::AlignCenter) << 1;
    QTest::newRow("something else is left") << int(Qt::AlignTop) << 0;
    QTest::newRow("none is left") << 0 << 0;
    QTest::newRow("right comes before left") << int(Qt::AlignRight | Qt::AlignLeft) << 2;
    QTest::newRow("left comes before centre") << int(Qt::AlignLeft | Qt::AlignHCenter) << 0;
}

void tst_ZrQtPlotPainting::legendEntries()
{
    QFETCH(const int, alignment);
    QFETCH(const int, place);

    const QStringList names = {"alpha", "beta beta", "gamma"};
    LegendScene scene(names);
    scene.plot->setMinMarginLeft(30);
    scene.plot->setMinMarginRight(50);
    scene.plot->setLegendAlignment(Qt::Alignment(alignment));
    settle(scene.plot);

    const QRect area = plotArea(scene.plot);
    QCOMPARE(area.left(), 30);
    int width = 2 * scene.gap();
    for (const QString &name : names)
        width += scene.entry(name);
    int x = 30;
    if (place == 1)
        x = int(30 + area.width() * 0.5 - width * 0.5 + 0.5);
    else if (place == 2)
        x = 30 + area.width() - width;
    const int y = scene.baseline(0);

    const QImage image = scene.grab();
    for (int i = 0; i < names.size(); ++i) {
        const QRect sample = sampleOf(scene, x, y);
        QCOMPARE(extentOf(image, colors[i]), sample);
        QCOMPARE(image.pixel(sample.center()), colors[i].rgb());
        const int textX = x + int(scene.gap() * 0.5 + 0.5) + scene.height();
        const int advance = scene.advance(names[i]);
        QVERIFY(hasInk(image, QRect(textX, y - scene.height() / 2, advance, scene.height() / 2)));
        // Nothing between the sample and the text, and nothing behind the text.
        QVERIFY(!hasInk(
            image, QRect(sample.right() + 1, sample.top(), textX - sample.right() - 2, sample.height())));
        x = textX + advance + scene.gap();
        QVERIFY(!hasInk(image, QRect(x - scene.gap() + 2, sample.top(), scene.gap() - 3, sample.height())));
    }
}

void tst_ZrQtPlotPainting::legendLines()
{
    const QStringList names = {"alpha alpha", "beta beta beta", "gamma", "delta"};
    LegendScene scene(names);
    scene.plot->setLegendAlignment(Qt::AlignRight);
    // Room for the first two; the others follow on a second line of its own width.
    const int first = scene.entry(names[0]) + scene.gap() + scene.entry(names[1]);
    const int second = scene.entry(names[2]) + scene.gap() + scene.entry(names[3]);
    QVERIFY(second < first);
    scene.plot->resize(first, 300);
    settle(scene.plot);
    QCOMPARE(plotArea(scene.plot).height(), 300 - 2 * (scene.height() + scene.gap()));

    const QImage image = scene.grab();
    QCOMPARE(extentOf(image, colors[0]), sampleOf(scene, 0, scene.baseline(0)));
    QCOMPARE(extentOf(image, colors[1]).top(), sampleOf(scene, 0, scene.baseline(0)).top());
    QCOMPARE(extentOf(image, colors[2]), sampleOf(scene, first - second, scene.baseline(1)));
    QCOMPARE(extentOf(image, colors[3]).top(), sampleOf(scene, 0, scene.baseline(1)).top());
    QVERIFY(extentOf(image, colors[3]).left() > extentOf(image, colors[2]).right());
}

void tst_ZrQtPlotPainting::legendBelowBottomAxes()
{
    LegendScene scene({"alpha", "beta"});
    scene.plot->setLegendAlignment(Qt::AlignLeft);
    auto *one = new ZrQtAxis(scene.plot);
    one->setPosition(Qt::BottomEdge);
    one->show();
    auto *two = new ZrQtAxis(scene.plot);
    two->setPosition(Qt::BottomEdge);
    two->show();
    auto *top = new ZrQtAxis(scene.plot);
    top->setPosition(Qt::TopEdge);
    top->show();
    settle(scene.plot);
    const QRect sample
        = sampleOf(scene, plotArea(scene.plot).left(), scene.baseline(0, one->height() + two->height()));
    QCOMPARE(extentOf(scene.grab(), colors[0]), sample);
    QVERIFY(sample.bottom() < scene.plot->height());
}

void tst_ZrQtPlotPainting::legendNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<bool>("listed");

    QTest::newRow("name") << "alpha"
                          << "other" << true;
    QTest::newRow("empty name: the object's name") << ""
                                                   << "alpha" << true;
    QTest::newRow("both empty: no entry") << ""
                                          << "" << false;
}

void tst_ZrQtPlotPainting::legendNames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, objectName);
    QFETCH(const bool, listed);

    LegendScene scene({"beta", name, "gamma"});
    scene.channels[1]->setObjectName(objectName);
    scene.plot->setLegendAlignment(Qt::AlignLeft);
    settle(scene.plot);
    const QImage image = scene.grab();
    const int x = scene.height() + int(scene.gap() * 0.5 + 0.5) + scene.advance("beta") + scene.gap();
    if (!listed) {
        QVERIFY(extentOf(image, colors[1]).isNull());
        QCOMPARE(extentOf(image, colors[2]), sampleOf(scene, x, scene.baseline(0)));
        return;
    }
    QCOMPARE(extentOf(image, colors[1]), sampleOf(scene, x, scene.baseline(0)));
    // The place of the third one tells which name stands there.
    const int next = x + scene.height() + int(scene.gap() * 0.5 + 0.5) + scene.advance("alpha") + scene.gap();
    QCOMPARE(extentOf(image, colors[2]), sampleOf(scene, next, scene.baseline(0)));
}

void tst_ZrQtPlotPainting::legendSkipsChannels()
{
    LegendScene scene({"alpha", "beta", "gamma", "delta"});
    scene.plot->setLegendAlignment(Qt::AlignLeft);
    scene.channels[0]->setVisible(false);
    scene.channels[2]->setShowInLegend(false);
    settle(scene.plot);
    const QImage image = scene.grab();
    QVERIFY(extentOf(image, colors[0]).isNull());
    QVERIFY(extentOf(image, colors[2]).isNull());
    QCOMPARE(extentOf(image, colors[1]), sampleOf(scene, 0, scene.baseline(0)));
    const int x = scene.height() + int(scene.gap() * 0.5 + 0.5) + scene.advance("beta") + scene.gap();
    QCOMPARE(extentOf(image, colors[3]), sampleOf(scene, x, scene.baseline(0)));
}

void tst_ZrQtPlotPainting::legendOfASingleChannel()
{
    // It has no line, so nothing is written; the plot area keeps its full height.
    LegendScene scene({"alpha"});
    QCOMPARE(plotArea(scene.plot), scene.plot->rect());
    QVERIFY(extentOf(scene.grab(), colors[0]).isNull());
}

QTEST_MAIN(tst_ZrQtPlotPainting)

#include "tst_zrqtplot_painting.moc"
