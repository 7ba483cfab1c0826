#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QGraphicsDropShadowEffect>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QToolTip>

namespace {

QPoint at(int x, int y)
{
    return GestureScene::inArea(x, y);
}

QLabel *labelOf(const ZrQtPlot *plot)
{
    return plot->findChild<QLabel *>(QStringLiteral("toolTipLabel"));
}

QWidget *tooltipOf(const ZrQtPlot *plot)
{
    return labelOf(plot)->parentWidget();
}

/// A scene with the mouse over the middle of the plot area, which counts how often the tooltip is shown anew.
class TooltipScene : public GestureScene
{
public:
    explicit TooltipScene(const Variant &variant = {})
        : GestureScene(variant)
    {
        pointAt(200, 100);
    }

    /// Puts the mouse to a place in the plot area.
    void pointAt(int x, int y)
    {
        putCursor(plot, inArea(x, y));
        enter(plot, inArea(x, y));
    }

    void countShows()
    {
        plot->registerHoverCallback([this](double, double) {
            ++shows;
            return QStringLiteral("text");
        });
    }

    bool isVisible() const { return tooltipOf(plot)->isVisible(); }
    QString text() const { return labelOf(plot)->text(); }

    int shows = 0;
};

} // namespace

/// When the tooltip is shown, where, and with which text.
class TestPlotTooltip : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tolerateMessages(platformExcuses()); }

    void windowTakesNoInput();
    void labelIsAsDescribed();
    void fontIsThatOfTooltips();
    void sizeFollowsTheText();

    void middleOfTheCanvas();
    void textFollowsTheAxes_data() { addVariants(); }
    void textFollowsTheAxes();
    void systemsOfXAndYMayDiffer();
    void numbersHaveSixDigits();

    void everyTrigger_data();
    void everyTrigger();
    void moveOnAnAxisCounts();
    void moveOnTheOverlayCounts();
    void followsTheMouseOverChannels();
    void pressInTheLegendShowsNothing();
    void notUnderTheMouseShowsNothing();
    void clickOutsideShowsNothing();

    void shownAtTheCursor();
    void whilePressed();
    void onClickStaysWhenTheMouseLeaves();
    void onClickHidesEveryThreeSeconds();
    void refreshTimerRunsInAlwaysOnly();
    void switchedOffStaysUntilHidden();
    void sameModeChangesNothing();

    void emptyTextHidesButCounts();
    void callbackIsReplaced();
    void richTextIsRich();
    void shownIsAskedOfThePlace();

    void callbackMayDeleteAChannel();
    void callbackMayChangeTheMode();
    void callbackMayReplaceItself();
    void callbackMayDeleteThePlotInAMove();
    void callbackMayDeleteThePlotInAPress();
    void callbackMayDeleteThePlotLater();
    void callbackMayMoveTheCanvas();
};

void TestPlotTooltip::windowTakesNoInput()
{
    ZrQtPlot plot;
    const QWidget *tooltip = tooltipOf(&plot);
    QCOMPARE(tooltip->parentWidget(), static_cast<QWidget *>(&plot));
    QVERIFY(tooltip->isWindow());
    QVERIFY(!tooltip->isVisible());
    QVERIFY(tooltip->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(tooltip->testAttribute(Qt::WA_ShowWithoutActivating));
    const Qt::WindowFlags flags = Qt::FramelessWindowHint | Qt::SplashScreen | Qt::WindowTransparentForInput;
    QCOMPARE(tooltip->windowFlags() & flags, flags);
    QVERIFY(!tooltip->autoFillBackground());
    QCOMPARE(tooltip->minimumSize(), QSize(0, 0));
    QCOMPARE(tooltip->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QVERIFY(tooltip->layout());
    QCOMPARE(tooltip->layout()->count(), 1);
}

void TestPlotTooltip::labelIsAsDescribed()
{
    ZrQtPlot plot;
    const QLabel *label = labelOf(&plot);
    QCOMPARE(label->styleSheet(),
             QStringLiteral("#toolTipLabel { background-color: white;  padding: 3px; border: "
                            "1px solid black; color: #5b5b5b}"));
    QCOMPARE(label->font().toString(), QToolTip::font().toString());
    QCOMPARE(label->font().resolve(), QToolTip::font().resolve());
    QCOMPARE(&plot.getToolTipFont(), &label->font());
    QCOMPARE(label->minimumSize(), QSize(0, 0));
    QCOMPARE(label->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QVERIFY(label->hasMouseTracking());
    const auto *shadow = qobject_cast<QGraphicsDropShadowEffect *>(label->graphicsEffect());
    QVERIFY(shadow);
    QCOMPARE(shadow->blurRadius(), 5.0);
    QCOMPARE(shadow->offset(), QPointF(2, 2));
    QCOMPARE(shadow->color(), QGraphicsDropShadowEffect().color());
}

void TestPlotTooltip::fontIsThatOfTooltips()
{
    const QFont before = QToolTip::font();
    QFont large = before;
    large.setPointSize(23);
    QToolTip::setFont(large);
    ZrQtPlot plot;
    QToolTip::setFont(before);
    QCOMPARE(plot.getToolTipFont().pointSize(), 23);
    // Taken at construction, and not that of the plot.
    QFont own = plot.font();
    own.setPointSize(31);
    plot.setFont(own);
    QCOMPARE(plot.getToolTipFont().pointSize(), 23);
}

void TestPlotTooltip::sizeFollowsTheText()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QString text = QStringLiteral("short");
    scene.plot->registerHoverCallback([&text](double, double) { return text; });
    moveTo(scene.plot, at(200, 100));
    const QSize narrow = scene.plot->getToolTipSize();
    QCOMPARE(narrow, tooltipOf(scene.plot)->size());
    text = QStringLiteral("a text that is a good deal longer\nthan that");
    moveTo(scene.plot, at(200, 100));
    const QSize wide = scene.plot->getToolTipSize();
    QVERIFY(wide.width() > narrow.width() && wide.height() > narrow.height());
    text = QStringLiteral("short");
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.plot->getToolTipSize(), narrow);
}

void TestPlotTooltip::middleOfTheCanvas()
{
    TooltipScene scene;
    scene.plot->setCanvas(QRectF(0, 0, 10, 1), ZrQtPlot::COSY_0);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    moveTo(scene.plot, at(200, 100));
    QVERIFY(scene.isVisible());
    QCOMPARE(scene.text(), QStringLiteral("[5, 0.5]"));
    QCOMPARE(scene.plot->getTooltipPosition(), QPointF(5, 0.5));
}

void TestPlotTooltip::textFollowsTheAxes()
{
    QFETCH(Variant, variant);
    TooltipScene scene(variant);
    QVERIFY(scene.isReady());
    // A quarter from the left, a fifth from the top.
    scene.pointAt(100, 40);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    moveTo(scene.plot, at(100, 40));
    const QString x = variant.invertX ? QStringLiteral("30") : QStringLiteral("10");
    const QString y = variant.keepAspectRatio
                          ? (variant.invertY ? QStringLiteral("-1") : QStringLiteral("11"))
                          : (variant.invertY ? QStringLiteral("2") : QStringLiteral("8"));
    QCOMPARE(scene.text(), QStringLiteral("[%1, %2]").arg(x, y));
    // The query does not follow, on purpose.
    QCOMPARE(scene.plot->getTooltipPosition(), QPointF(10, variant.keepAspectRatio ? 11 : 8));

    QPointF asked;
    scene.plot->registerHoverCallback([&asked](double valueX, double valueY) {
        asked = {valueX, valueY};
        return QString();
    });
    moveTo(scene.plot, at(100, 40));
    QCOMPARE(asked, QPointF(x.toDouble(), y.toDouble()));
}

void TestPlotTooltip::systemsOfXAndYMayDiffer()
{
    // Inverted axes of another system do not matter.
    for (bool inverted : {false, true}) {
        TooltipScene scene({inverted, inverted, false, 3});
        scene.plot->setSelectionCosyX(ZrQtPlot::COSY_1);
        scene.plot->setSelectionCosyY(ZrQtPlot::COSY_2);
        scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
        scene.pointAt(100, 50);
        moveTo(scene.plot, at(100, 50));
        QCOMPARE(scene.text(), QStringLiteral("[101, -0.25]"));
        QCOMPARE(scene.plot->getTooltipPosition(), QPointF(101, -0.25));
    }
}

void TestPlotTooltip::numbersHaveSixDigits()
{
    TooltipScene scene;
    scene.xAxis->hide();
    scene.yAxis->hide();
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    const struct
    {
        QRectF canvas;
        QString text;
    } rows[] = {{{0, 0, 1e7, 2.0 / 3.0}, QStringLiteral("[5e+06, 0.333333]")},
                {{-2e-7, -1e-3, 2e-7, 1e-3}, QStringLiteral("[-1e-07, -0.0005]")},
                {{1234567, 0, 2, 246913.4}, QStringLiteral("[1.23457e+06, 123457]")}};
    for (const auto &row : rows) {
        scene.plot->setCanvas(row.canvas, ZrQtPlot::COSY_0);
        moveTo(scene.plot, at(200, 100));
        QCOMPARE(scene.text(), row.text);
    }
}

void TestPlotTooltip::everyTrigger_data()
{
    QTest::addColumn<ZrQtPlot::TooltipMode>("mode");
    QTest::addColumn<bool>("alreadyShown");
    QTest::addColumn<int>("trigger");
    QTest::addColumn<char>("outcome");

    // For each mode what happens when the tooltip was not shown before, and when it was: it is shown (s),
    // hidden (h), or nothing (-).
    const char *modes[] = {"never", "always", "while pressed", "on click"};
    const struct
    {
        const char *name;
        const char *outcomes[4];
    } triggers[] = {{"move inside, no button", {"-s", "ss", "-s", "-s"}},
                    {"move inside, left button held", {"-s", "ss", "ss", "-s"}},
                    {"move inside, right button held", {"-s", "ss", "-s", "-s"}},
                    {"move outside", {"hh", "hh", "hh", "hh"}},
                    {"left press", {"--", "ss", "ss", "--"}},
                    {"right press", {"--", "--", "--", "--"}},
                    {"left release", {"--", "--", "hh", "ss"}},
                    {"right release", {"--", "--", "--", "--"}},
                    {"the mouse leaves the plot", {"hh", "hh", "hh", "--"}},
                    {"any timer of the plot", {"-s", "ss", "-s", "-s"}}};
    for (int mode = 0; mode < 4; ++mode) {
        for (int trigger = 0; trigger < int(std::size(triggers)); ++trigger) {
            for (bool shown : {false, true}) {
                QTest::addRow("%s: %s%s", modes[mode], triggers[trigger].name, shown ? ", already shown" : "")
                    << ZrQtPlot::TooltipMode(mode) << shown << trigger
                    << triggers[trigger].outcomes[mode][shown ? 1 : 0];
            }
        }
    }
}

void TestPlotTooltip::everyTrigger()
{
    QFETCH(ZrQtPlot::TooltipMode, mode);
    QFETCH(bool, alreadyShown);
    QFETCH(int, trigger);
    QFETCH(char, outcome);

    TooltipScene scene;
    scene.countShows();
    if (alreadyShown) {
        scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
        moveTo(scene.plot, at(200, 100));
        QVERIFY(scene.isVisible());
    }
    scene.plot->setTooltipMode(mode);
    if (trigger == 3) {
        putCursor(scene.plot, at(200, -30));
        // The window system has reported the way there.
        if (alreadyShown) {
            scene.pointAt(200, 100);
            scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
            moveTo(scene.plot, at(200, 100));
            scene.plot->setTooltipMode(mode);
            QCursor::setPos(scene.plot->mapToGlobal(at(200, -30)));
        }
    }
    scene.shows = 0;
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    QTimerEvent timer(4711);
    switch (trigger) {
    case 0:
        moveTo(scene.plot, at(200, 100), Qt::NoButton);
        break;
    case 1:
        moveTo(scene.plot, at(200, 100), Qt::LeftButton);
        break;
    case 2:
        moveTo(scene.plot, at(200, 100), Qt::RightButton);
        break;
    case 3:
        moveTo(scene.plot, at(200, -30), Qt::LeftButton);
        break;
    case 4:
        press(scene.plot, at(200, 100));
        break;
    case 5:
        press(scene.plot, at(200, 100), Qt::RightButton);
        break;
    case 6:
        release(scene.plot, at(200, 100));
        break;
    case 7:
        release(scene.plot, at(200, 100), Qt::RightButton);
        break;
    case 8:
        leave(scene.plot);
        break;
    default:
        QApplication::sendEvent(scene.plot, &timer);
        break;
    }
    QCOMPARE(scene.shows, outcome == 's' ? 1 : 0);
    QCOMPARE(hidden.size(), outcome == 'h' ? 1 : 0);
    QCOMPARE(scene.isVisible(), outcome == 's' || (outcome == '-' && alreadyShown));
}

void TestPlotTooltip::moveOnAnAxisCounts()
{
    TooltipScene scene;
    scene.countShows();
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    // Such as in a drag that began on the axis: the cursor counts, not the widget that receives the move.
    moveTo(scene.xAxis, {300, 10}, Qt::NoButton);
    QCOMPARE(scene.shows, 1);
    QCOMPARE(hidden.size(), 0);
    QVERIFY(scene.xAxis->hasMouseTracking());

    QCursor::setPos(scene.xAxis->mapToGlobal(QPoint(300, 10)));
    moveTo(scene.xAxis, {300, 10}, Qt::NoButton);
    QCOMPARE(scene.shows, 1);
    QCOMPARE(hidden.size(), 1);
    QVERIFY(!scene.isVisible());
}

void TestPlotTooltip::moveOnTheOverlayCounts()
{
    TooltipScene scene;
    new ZrQtPlotChannel(scene.plot);
    settle(scene.plot);
    scene.pointAt(200, 100);
    scene.countShows();
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    moveTo(overlayOf(scene.plot), {200, 100}, Qt::NoButton);
    QVERIFY(scene.shows > 0);
    QVERIFY(scene.isVisible());
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    QCursor::setPos(scene.plot->mapToGlobal(at(-50, 100)));
    moveTo(overlayOf(scene.plot), {-50, 100}, Qt::NoButton);
    QVERIFY(!hidden.isEmpty());
    QVERIFY(!scene.isVisible());
}

void TestPlotTooltip::followsTheMouseOverChannels()
{
    // Moves as the window system reports them, through the channel that covers the plot area.
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ON_CLICK);
    release(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), QStringLiteral("[20, 5]"));
    putCursor(scene.plot, at(250, 80));
    QCOMPARE(scene.text(), QStringLiteral("[25, 6]"));
    putCursor(scene.plot, at(250, -20));
    QVERIFY(!scene.isVisible());
}

void TestPlotTooltip::pressInTheLegendShowsNothing()
{
    TooltipScene scene({false, false, false, 3});
    for (ZrQtBaseChannel *channel : scene.plot->findChildren<ZrQtBaseChannel *>())
        channel->setName(QStringLiteral("name"));
    scene.plot->setGenerateLegend(true);
    settle(scene.plot);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    press(scene.plot, QPointF(200, scene.plot->height() - 1));
    QVERIFY(!scene.isVisible());
}

void TestPlotTooltip::notUnderTheMouseShowsNothing()
{
    TooltipScene scene;
    scene.countShows();
    leave(scene.plot);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    moveTo(scene.plot, at(200, 100));
    press(scene.plot, at(200, 100));
    QCOMPARE(scene.shows, 0);
    QCOMPARE(hidden.size(), 0);
    QVERIFY(!scene.isVisible());
    enter(scene.plot, at(200, 100));
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.shows, 1);
}

void TestPlotTooltip::clickOutsideShowsNothing()
{
    TooltipScene scene;
    scene.countShows();
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ON_CLICK);
    QCursor::setPos(scene.plot->mapToGlobal(at(-50, 100)));
    press(scene.plot, at(-50, 100));
    release(scene.plot, at(-50, 100));
    QCOMPARE(scene.shows, 0);
    // Not the place of the event, but that of the cursor counts.
    QCursor::setPos(scene.plot->mapToGlobal(at(10, 10)));
    release(scene.plot, at(-50, 100));
    QCOMPARE(scene.shows, 1);
}

void TestPlotTooltip::shownAtTheCursor()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(tooltipOf(scene.plot)->pos(), QCursor::pos() + QPoint(0, -10));
    scene.plot->setCursorShift({15, 25});
    QCOMPARE(tooltipOf(scene.plot)->pos(), QCursor::pos() + QPoint(0, -10));
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(tooltipOf(scene.plot)->pos(), QCursor::pos() + QPoint(15, 25));
    scene.pointAt(300, 50);
    moveTo(scene.plot, at(300, 50));
    QCOMPARE(tooltipOf(scene.plot)->pos(), scene.plot->mapToGlobal(at(315, 75)));
    QCOMPARE(scene.text(), QStringLiteral("[30, 7.5]"));
}

void TestPlotTooltip::whilePressed()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    moveTo(scene.plot, at(200, 100), Qt::NoButton);
    QVERIFY(!scene.isVisible());
    press(scene.plot, at(200, 100));
    QVERIFY(scene.isVisible());
    moveTo(scene.plot, at(200, 100));
    QVERIFY(scene.isVisible());
    QCOMPARE(hidden.size(), 0);
    release(scene.plot, at(200, 100));
    QVERIFY(!scene.isVisible());
    QCOMPARE(hidden.size(), 1);
    moveTo(scene.plot, at(200, 100), Qt::NoButton);
    QVERIFY(!scene.isVisible());
    QCOMPARE(hidden.size(), 1);
}

void TestPlotTooltip::onClickStaysWhenTheMouseLeaves()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ON_CLICK);
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    press(scene.plot, at(200, 100));
    QVERIFY(!scene.isVisible());
    release(scene.plot, at(200, 100));
    QVERIFY(scene.isVisible());
    leave(scene.plot);
    QVERIFY(scene.isVisible());
    QCOMPARE(hidden.size(), 0);
    // Over an axis it goes.
    QCursor::setPos(scene.xAxis->mapToGlobal(QPoint(300, 10)));
    moveTo(scene.xAxis, {300, 10}, Qt::NoButton);
    QVERIFY(!scene.isVisible());
    QCOMPARE(hidden.size(), 1);
}

void TestPlotTooltip::onClickHidesEveryThreeSeconds()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ON_CLICK);
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    QElapsedTimer clock;
    clock.start();
    release(scene.plot, at(200, 100));
    QTest::qWait(1500);
    // A click on a tooltip that is shown does not prolong it.
    release(scene.plot, at(200, 100));
    QVERIFY(scene.isVisible());
    QVERIFY(hidden.wait(2500));
    QVERIFY2(clock.elapsed() > 2700 && clock.elapsed() < 3900, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(!scene.isVisible());
    // And again every three seconds, on purpose, with nothing to hide.
    QVERIFY(hidden.wait(4500));
    QVERIFY2(clock.elapsed() > 5700 && clock.elapsed() < 7500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(hidden.size(), 2);
}

void TestPlotTooltip::refreshTimerRunsInAlwaysOnly()
{
    TooltipScene scene;
    scene.countShows();
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ON_CLICK);
    QTest::qWait(120);
    QCOMPARE(scene.shows, 0);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QTRY_VERIFY(scene.shows >= 3);
    QVERIFY(scene.isVisible());
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    const int before = scene.shows;
    QTest::qWait(150);
    QCOMPARE(scene.shows, before);
}

void TestPlotTooltip::switchedOffStaysUntilHidden()
{
    TooltipScene scene;
    scene.countShows();
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QTRY_VERIFY(scene.isVisible());
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_NEVER);
    const int before = scene.shows;
    QTest::qWait(150);
    QCOMPARE(scene.shows, before);
    QVERIFY(scene.isVisible());
    QCOMPARE(hidden.size(), 0);
    leave(scene.plot);
    QVERIFY(!scene.isVisible());
    QCOMPARE(hidden.size(), 1);
}

void TestPlotTooltip::sameModeChangesNothing()
{
    TooltipScene scene;
    scene.countShows();
    QCOMPARE(scene.plot->tooltipMode(), ZrQtPlot::SHOW_NEVER);
    // A second timer would outlive the mode.
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QCOMPARE(scene.plot->tooltipMode(), ZrQtPlot::SHOW_ALWAYS);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_NEVER);
    moveTo(scene.plot, at(200, 100));
    QTest::qWait(150);
    QCOMPARE(scene.shows, 0);
}

void TestPlotTooltip::emptyTextHidesButCounts()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    QString text = QStringLiteral("first");
    scene.plot->registerHoverCallback([&text](double, double) { return text; });
    QSignalSpy hidden(scene.plot, &ZrQtPlot::tooltipHidden);
    press(scene.plot, at(200, 100));
    QVERIFY(scene.isVisible());
    text.clear();
    moveTo(scene.plot, at(200, 100), Qt::NoButton);
    QVERIFY(!scene.isVisible());
    QCOMPARE(hidden.size(), 0);
    // It still counts as shown: a move without a button shows it.
    text = QStringLiteral("second");
    moveTo(scene.plot, at(200, 100), Qt::NoButton);
    QVERIFY(scene.isVisible());
    QCOMPARE(scene.text(), text);
}

void TestPlotTooltip::callbackIsReplaced()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    scene.plot->registerHoverCallback([](double, double) { return QStringLiteral("one"); });
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), QStringLiteral("one"));
    scene.plot->registerHoverCallback([](double, double) { return QStringLiteral("two"); });
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), QStringLiteral("two"));
    scene.plot->registerHoverCallback({});
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), QStringLiteral("[20, 5]"));
}

void TestPlotTooltip::richTextIsRich()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QCOMPARE(labelOf(scene.plot)->textFormat(), Qt::AutoText);
    QString text = QStringLiteral("<span style='color: red; font-weight: bold'>1</span>");
    scene.plot->registerHoverCallback([&text](double, double) { return text; });
    moveTo(scene.plot, at(200, 100));
    const int rich = scene.plot->getToolTipSize().width();
    text = QStringLiteral("span style='color: red; font-weight: bold' 1 /span");
    moveTo(scene.plot, at(200, 100));
    QVERIFY(scene.plot->getToolTipSize().width() > rich + 100);
}

void TestPlotTooltip::shownIsAskedOfThePlace()
{
    TooltipScene scene;
    QVERIFY(!scene.isVisible());
    QVERIFY(scene.plot->isToolTipShown());
    QCOMPARE(scene.plot->getTooltipPosition(), QPointF(20, 5));
    leave(scene.plot);
    QVERIFY(!scene.plot->isToolTipShown());
    QCOMPARE(scene.plot->getTooltipPosition(), QPointF(0, 0));
    enter(scene.plot, at(200, 100));
    QVERIFY(scene.plot->isToolTipShown());
    QCursor::setPos(scene.plot->mapToGlobal(at(-1, 100)));
    QVERIFY(!scene.plot->isToolTipShown());
    QCOMPARE(scene.plot->getTooltipPosition(), QPointF(0, 0));
    QCursor::setPos(scene.plot->mapToGlobal(at(400, 200)));
    QVERIFY(scene.plot->isToolTipShown());
    QCOMPARE(scene.plot->getTooltipPosition(), QPointF(40, 0));
}

void TestPlotTooltip::callbackMayDeleteAChannel()
{
    TooltipScene scene;
    new ProbeChannel(scene.plot, QRectF(-40, -10, 200, 50));
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    // The data that is left has another extent, which would ask for the text once more from within.
    int calls = 0;
    scene.plot->registerHoverCallback([&scene, &calls](double, double) {
        ++calls;
        delete scene.plot->findChild<ZrQtBaseChannel *>();
        return QStringLiteral("deleted");
    });
    for (int i = 1; i <= 3; ++i) {
        moveTo(scene.plot, at(200, 100));
        QCOMPARE(calls, i);
    }
    QVERIFY(!scene.plot->findChild<ZrQtBaseChannel *>());
    QCOMPARE(scene.text(), QStringLiteral("deleted"));
}

void TestPlotTooltip::callbackMayMoveTheCanvas()
{
    TooltipScene scene;
    scene.plot->setScaling(ZrQtPlot::AutoFit, ZrQtPlot::COSY_0);
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    auto *channel = static_cast<ProbeChannel *>(scene.plot->findChild<ZrQtBaseChannel *>());
    int calls = 0;
    scene.plot->registerHoverCallback([channel, &calls](double, double) {
        ++calls;
        channel->setRect(channel->boundingRect().adjusted(-1, -1, 1, 1));
        return QString::number(calls);
    });
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(calls, 1);
    QCOMPARE(scene.text(), QStringLiteral("1"));
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), QStringLiteral("2"));
    // New data of another origin asks for it, of course.
    channel->setRect(QRectF(0, 0, 1, 1));
    QVERIFY(calls > 2);
}

void TestPlotTooltip::callbackMayChangeTheMode()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    scene.plot->registerHoverCallback([&scene](double, double) {
        scene.plot->setTooltipMode(ZrQtPlot::SHOW_NEVER);
        scene.plot->setInteraction(ZrQtPlot::PanAndScan);
        return QStringLiteral("changed");
    });
    press(scene.plot, at(200, 100));
    QCOMPARE(scene.plot->tooltipMode(), ZrQtPlot::SHOW_NEVER);
    QCOMPARE(scene.text(), QStringLiteral("changed"));
    moveTo(scene.plot, at(240, 100));
    QCOMPARE(scene.plot->canvas(ZrQtPlot::COSY_0).left(), -4.0);
}

void TestPlotTooltip::callbackMayReplaceItself()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QString text(1000, QLatin1Char('x'));
    scene.plot->registerHoverCallback([&scene, text](double, double) {
        scene.plot->registerHoverCallback({});
        return text;
    });
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), text);
    moveTo(scene.plot, at(200, 100));
    QCOMPARE(scene.text(), QStringLiteral("[20, 5]"));
}

void TestPlotTooltip::callbackMayDeleteThePlotInAMove()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    QPointer<ZrQtPlot> plot(scene.plot);
    plot->registerHoverCallback([plot](double, double) {
        delete plot;
        return QStringLiteral("gone");
    });
    moveTo(plot, at(200, 100));
    QVERIFY(!plot);
}

void TestPlotTooltip::callbackMayDeleteThePlotInAPress()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
    QPointer<ZrQtPlot> plot(scene.plot);
    plot->registerHoverCallback([plot](double, double) {
        delete plot;
        return QStringLiteral("gone");
    });
    press(plot, at(200, 100));
    QVERIFY(!plot);
}

void TestPlotTooltip::callbackMayDeleteThePlotLater()
{
    TooltipScene scene;
    scene.plot->setTooltipMode(ZrQtPlot::SHOW_ALWAYS);
    QPointer<ZrQtPlot> plot(scene.plot);
    plot->registerHoverCallback([plot](double, double) {
        plot->deleteLater();
        return QStringLiteral("soon gone");
    });
    press(plot, at(200, 100));
    release(plot, at(200, 100));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!plot);
}

QTEST_MAIN(TestPlotTooltip)
#include "tst_zrqtplot_tooltip.moc"
