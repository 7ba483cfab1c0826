#include "shared/quiettest.h"
#include "shared/registrationscene.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"

/// What lies above what in a plot, which events put it in order, and who gets the mouse.
class tst_ZrQtPlotStacking : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void overlayIsOnTop_data();
    void overlayIsOnTop();
    void eventsRaiseTheOverlay_data();
    void eventsRaiseTheOverlay();
    void repeatedRemovalNoticeIsIgnored();
    void eventResultIsThatOfAWidget();
    void overlayLetsTheMouseThrough();
    void overlayTakesTheMouseForEditableChannels();
    void sliderIsAboveTheOverlay();
};

namespace {

QWidget *lastChild(const QWidget *parent)
{
    return qobject_cast<QWidget *>(parent->children().constLast());
}

} // namespace

void tst_ZrQtPlotStacking::overlayIsOnTop_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("built");

    QTest::newRow("addAxis") << 0 << false;
    QTest::newRow("addChannel") << 1 << false;
    QTest::newRow("addCustomWidget") << 2 << false;
    QTest::newRow("axis as child") << 0 << true;
    QTest::newRow("channel as child") << 1 << true;
    QTest::newRow("custom widget as child") << 2 << true;
}

void tst_ZrQtPlotStacking::overlayIsOnTop()
{
    QFETCH(const int, kind);
    QFETCH(const bool, built);

    Scene scene;
    QWidget *parent = built ? scene.plot : nullptr;
    for (int i = 0; i < 2; ++i) {
        if (kind == 0) {
            auto *axis = new ZrQtAxis(parent);
            scene.plot->addAxis(axis);
        } else if (kind == 1) {
            auto *channel = new ProbeChannel(parent);
            scene.plot->addChannel(channel);
        } else {
            auto *custom = new QWidget(parent);
            scene.plot->addCustomWidget(custom);
        }
        QCOMPARE(lastChild(scene.plot), overlayOf(scene.plot));
    }
}

void tst_ZrQtPlotStacking::eventsRaiseTheOverlay_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<bool>("raises");

    QTest::newRow("ChildAdded") << QEvent::ChildAdded << true;
    QTest::newRow("ChildRemoved") << QEvent::ChildRemoved << true;
    QTest::newRow("Resize") << QEvent::Resize << true;
    QTest::newRow("GraphicsSceneResize") << QEvent::GraphicsSceneResize << true;
    QTest::newRow("LayoutRequest") << QEvent::LayoutRequest << true;
    QTest::newRow("ZOrderChange") << QEvent::ZOrderChange << true;
    QTest::newRow("not FontChange") << QEvent::FontChange << false;
    QTest::newRow("not ToolTipChange") << QEvent::ToolTipChange << false;
}

void tst_ZrQtPlotStacking::eventsRaiseTheOverlay()
{
    QFETCH(const QEvent::Type, type);
    QFETCH(const bool, raises);

    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF());
    QObject visitor;
    QObject guest;
    if (type == QEvent::ChildRemoved)
        guest.setParent(scene.plot);
    channel->raise();
    QCOMPARE(lastChild(scene.plot), channel);

    const bool relaysOut
        = type == QEvent::Resize || type == QEvent::GraphicsSceneResize || type == QEvent::LayoutRequest;
    if (relaysOut)
        channel->setGeometry(1, 2, 3, 4);
    if (type == QEvent::ChildAdded) {
        QChildEvent event(type, &visitor);
        QApplication::sendEvent(scene.plot, &event);
    } else if (type == QEvent::ChildRemoved) {
        guest.setParent(nullptr);
    } else if (type == QEvent::Resize) {
        QResizeEvent event(scene.plot->size(), scene.plot->size());
        QApplication::sendEvent(scene.plot, &event);
    } else {
        QEvent event(type);
        QApplication::sendEvent(scene.plot, &event);
    }
    QCOMPARE(lastChild(scene.plot) == overlayOf(scene.plot), raises);
    if (relaysOut)
        QCOMPARE(channel->geometry(), plotArea(scene.plot));
}

void tst_ZrQtPlotStacking::repeatedRemovalNoticeIsIgnored()
{
    Scene scene;
    auto *channel = new ProbeChannel(scene.plot, QRectF());
    QWidget guest;
    scene.plot->addCustomWidget(&guest);
    scene.plot->removeCustomWidget(&guest);

    channel->raise();
    QChildEvent again(QEvent::ChildRemoved, &guest);
    QApplication::sendEvent(scene.plot, &again);
    QCOMPARE(lastChild(scene.plot), channel);

    // Another child in between, and the notice counts again.
    QObject visitor;
    QChildEvent added(QEvent::ChildAdded, &visitor);
    QApplication::sendEvent(scene.plot, &added);
    channel->raise();
    QApplication::sendEvent(scene.plot, &again);
    QCOMPARE(lastChild(scene.plot), overlayOf(scene.plot));
}

void tst_ZrQtPlotStacking::eventResultIsThatOfAWidget()
{
    Scene scene;
    QWidget widget;
    QObject visitor;
    for (const auto type : {QEvent::GraphicsSceneResize, QEvent::LayoutRequest, QEvent::ZOrderChange,
                            QEvent::User, QEvent::LanguageChange}) {
        QEvent forPlot(type);
        QEvent forWidget(type);
        QCOMPARE(QApplication::sendEvent(scene.plot, &forPlot), QApplication::sendEvent(&widget, &forWidget));
    }
    for (const auto type : {QEvent::ChildAdded, QEvent::ChildRemoved}) {
        QChildEvent forPlot(type, &visitor);
        QChildEvent forWidget(type, &visitor);
        QCOMPARE(QApplication::sendEvent(scene.plot, &forPlot), QApplication::sendEvent(&widget, &forWidget));
    }
}

void tst_ZrQtPlotStacking::overlayLetsTheMouseThrough()
{
    Scene scene;
    QWidget *overlay = overlayOf(scene.plot);
    QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    new ProbeChannel(scene.plot, QRectF());
    new ZrQtBufferedChannel(scene.plot);
    new ZrQtAxis(scene.plot);
    QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
}

void tst_ZrQtPlotStacking::overlayTakesTheMouseForEditableChannels()
{
    for (const bool built : {true, false}) {
        Scene scene;
        QWidget *overlay = overlayOf(scene.plot);
        auto *channel = new ZrQtPlotChannel(built ? scene.plot : nullptr);
        if (!built) {
            QWidget home;
            channel->setParent(&home);
            scene.plot->addChannel(channel);
        }
        QVERIFY(!overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
        QVERIFY(overlay->hasMouseTracking());
        QVERIFY(overlay->isVisible());
        QCOMPARE(lastChild(scene.plot), overlay);
    }
}

void tst_ZrQtPlotStacking::sliderIsAboveTheOverlay()
{
    Scene scene;
    auto *slider = new ZrQtPlotSlider(scene.plot);
    QCOMPARE(lastChild(scene.plot), slider);
    new ProbeChannel(scene.plot, QRectF());
    QCOMPARE(lastChild(scene.plot), slider);
    new QWidget(scene.plot);
    QCOMPARE(lastChild(scene.plot), slider);
    settle(scene.plot);
    QCOMPARE(slider->geometry(), plotArea(scene.plot));

    // The current one again is nothing new; none takes it away.
    PlotLog log(scene.plot);
    scene.plot->addSlider(slider);
    QCOMPARE(log.take(), QStringList());
    scene.plot->addSlider(nullptr);
    QCOMPARE(slider->parentWidget(), nullptr);
    QCOMPARE(log.take(), QStringList{PlotLog::canvas(0, 10, 0, 10, C0)});
    QCOMPARE(lastChild(scene.plot), overlayOf(scene.plot));
    delete slider;
}

QTEST_MAIN(tst_ZrQtPlotStacking)

#include "tst_zrqtplot_stacking.moc"
