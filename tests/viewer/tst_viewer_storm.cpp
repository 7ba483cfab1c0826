#include "viewerscene.h"

#include <QtCore/QRandomGenerator>

/// Anything in any order leaves the window standing.
class TestViewerStorm : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        WallClock::enterZone();
        tolerateMessages(QStringLiteral("^This plugin does not support grabbing the mouse"));
    }

    void randomGestures_data();
    void randomGestures();
};

void TestViewerStorm::randomGestures_data()
{
    QTest::addColumn<QByteArray>("csv");
    QTest::newRow("two systems") << QByteArray("t,a,b\n0,0,1000\n5,,1500\n10,1,2000\n");
    QTest::newRow("dates") << QByteArray("d,a\n2026-11-21 00:00,0\n2026-11-22 00:00,100\n");
    QTest::newRow("one row") << QByteArray("t,a\n1,5\n");
}

void TestViewerStorm::randomGestures()
{
    constexpr int kGestures = 100;
    static const char *const kActions[] = {"Pan",
                                           "Zoom",
                                           "Region",
                                           "Line",
                                           "Add Marker Line",
                                           "Add Region",
                                           "Add Circle",
                                           "Remove All Markers",
                                           "Overview",
                                           "Edit Axis Ends",
                                           "Channel Panel",
                                           "Legend",
                                           "Logarithmic Values",
                                           "Inverted Values",
                                           "Home"};
    static const Qt::Key kKeys[] = {Qt::Key_5, Qt::Key_Minus, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Escape};

    QFETCH(QByteArray, csv);
    Scene scene(csv);
    QVERIFY(scene.isReady());
    QRandomGenerator random(4);
    const auto anywhere = [&] {
        const QRect area = scene.window.centralWidget()->geometry();
        return QPoint(area.left() + random.bounded(area.width()), area.top() + random.bounded(area.height()));
    };
    const auto trigger = [&] { scene.action(kActions[random.bounded(int(std::size(kActions)))])->trigger(); };
    for (int i = 0; i < kGestures; ++i) {
        switch (random.bounded(7)) {
        case 0:
            trigger();
            break;
        case 1:
            scene.wheel(anywhere(), random.bounded(7) - 3);
            break;
        case 2:
            QTest::keyClick(scene.window.windowHandle(), kKeys[random.bounded(int(std::size(kKeys)))]);
            break;
        case 3:
            scene.window.resize(300 + random.bounded(900), 200 + random.bounded(600));
            break;
        case 4:
            scene.press(anywhere());
            scene.point(anywhere());
            if (random.bounded(4) == 0)
                QVERIFY(scene.open(csv));
            else
                trigger();
            // The window's own event loop deletes what was replaced before the next event comes.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            scene.point(anywhere());
            scene.release(anywhere());
            break;
        default:
            scene.drag(anywhere(), anywhere());
        }
        QCoreApplication::processEvents();
    }
    QVERIFY(scene.plot()->isVisible());
    scene.action("Home")->trigger();
    QVERIFY(scene.plot()->canvas(ZrQtPlot::COSY_0).width() > 0.0);
}

QTEST_MAIN(TestViewerStorm)
#include "tst_viewer_storm.moc"
