#include "viewerscene.h"

#include <QtCore/QTimer>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QPushButton>

#include <ZrQtPlotWidgets/zrqtplotchanneledit.h>

namespace {

const QByteArray kTwoSystems = "t,a,b\n0,0,1000\n10,1,2000\n";

Options withPanel()
{
    Options options;
    options.channelPanel = true;
    return options;
}

/// A window with the panel of its channels.
class PanelScene : public Scene
{
public:
    explicit PanelScene(const QByteArray &csv = kTwoSystems, const Options &options = withPanel())
        : Scene(csv, options)
    {
    }

    QDockWidget *panel() const { return window.findChild<QDockWidget *>(QStringLiteral("channelPanel")); }
    QList<ZrQtPlotChannelEdit *> rows() const { return panel()->findChildren<ZrQtPlotChannelEdit *>(); }
    ZrQtBufferedChannel *channel(int index) const
    {
        return plot()->findChildren<ZrQtBufferedChannel *>().at(index);
    }
    ZrQtAxis *axis(ZrQtPlot::CoordinateSystem cosy) const
    {
        for (ZrQtAxis *axis : plot()->findChildren<ZrQtAxis *>()) {
            if (axis->cosy() == cosy && axis->position() != Qt::BottomEdge)
                return axis;
        }
        return nullptr;
    }

    void clickVisibility(int row)
    {
        for (QPushButton *button : rows().at(row)->findChildren<QPushButton *>()) {
            if (button->objectName() != QLatin1String("colorBox"))
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QCoreApplication::processEvents();
    }
    QPushButton *colorBox(int row) const
    {
        return rows().at(row)->findChild<QPushButton *>(QStringLiteral("colorBox"));
    }
    /// Clicks the colour button; picks \a color in the dialog, or cancels it if that is invalid.
    void chooseColor(int row, const QColor &color)
    {
        QTimer::singleShot(0, &window, [color] {
            auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            if (!color.isValid()) {
                dialog->reject();
                return;
            }
            dialog->setCurrentColor(color);
            dialog->accept();
        });
        QTest::mouseClick(colorBox(row), Qt::LeftButton);
    }
};

} // namespace

class TestChannelPanel : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { WallClock::enterZone(); }

    void switchedByOptionMenuAndKey();
    void oneRowForEachColumn();
    void longNamesAreShortened();
    void buttonHidesAndShows();
    void colorIsChosen();
    void sharedAxesKeepTheirColor();
    void cancelledDialogChangesNothing();
    void choicesOutliveThePlot();
    void otherFilesForgetThem();
    void otherFilesWhileAColourIsChosen();
    void overviewFollows();
};

void TestChannelPanel::switchedByOptionMenuAndKey()
{
    PanelScene scene(kTwoSystems, Options());
    QVERIFY(scene.isReady());
    QVERIFY(!scene.panel()->isVisible());
    scene.action("Channel Panel")->trigger();
    QVERIFY(scene.panel()->isVisible());
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_C);
    QVERIFY(!scene.panel()->isVisible());
    PanelScene fromOption;
    QVERIFY(fromOption.isReady());
    QVERIFY(fromOption.panel()->isVisible() && fromOption.action("Channel Panel")->isChecked());
}

void TestChannelPanel::oneRowForEachColumn()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    QCOMPARE(scene.rows().size(), 2);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(scene.rows().at(i)->channelName(), scene.channel(i)->name());
        QCOMPARE(scene.rows().at(i)->channelColor(), scene.channel(i)->lineColor());
        QVERIFY(scene.rows().at(i)->channelVisible());
        QVERIFY(scene.colorBox(i)->isVisible());
    }
}

void TestChannelPanel::longNamesAreShortened()
{
    const QByteArray name = QByteArray("a name ").repeated(20).trimmed();
    PanelScene scene("t," + name + "\n0,0\n10,1\n");
    QVERIFY(scene.isReady());
    QVERIFY(scene.panel()->width() < scene.window.width() / 2);
    const ZrQtPlotChannelEdit *row = scene.rows().first();
    QVERIFY(row->channelName().size() < name.size()
            && row->channelName().startsWith(QStringLiteral("a name")));
    QCOMPARE(row->toolTip(), QString::fromLatin1(name));
}

void TestChannelPanel::buttonHidesAndShows()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    scene.clickVisibility(1);
    QVERIFY(!scene.channel(1)->isVisible());
    QVERIFY(scene.channel(0)->isVisible());
    QVERIFY(!scene.rows().at(1)->channelVisible());
    scene.clickVisibility(1);
    QVERIFY(scene.channel(1)->isVisible());
    // And the other way round.
    scene.channel(1)->setVisible(false);
    QVERIFY(!scene.rows().at(1)->channelVisible());
}

void TestChannelPanel::colorIsChosen()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    QCOMPARE(scene.axis(ZrQtPlot::COSY_1)->labelColor(), scene.channel(1)->lineColor());
    scene.chooseColor(1, QColor(Qt::darkCyan));
    QCOMPARE(scene.channel(1)->lineColor(), QColor(Qt::darkCyan));
    QCOMPARE(scene.channel(1)->pointColor(), QColor(Qt::darkCyan));
    QCOMPARE(scene.rows().at(1)->channelColor(), QColor(Qt::darkCyan));
    // The axis that wears the colour of the channel alone.
    QCOMPARE(scene.axis(ZrQtPlot::COSY_1)->labelColor(), QColor(Qt::darkCyan));
    QVERIFY(scene.axis(ZrQtPlot::COSY_0)->labelColor() != QColor(Qt::darkCyan));
    QVERIFY(scene.channel(0)->lineColor() != QColor(Qt::darkCyan));
}

void TestChannelPanel::sharedAxesKeepTheirColor()
{
    PanelScene scene("t,a,b\n0,0,1\n10,10,8\n");
    QVERIFY(scene.isReady());
    const QColor before = scene.axis(ZrQtPlot::COSY_0)->labelColor();
    scene.chooseColor(0, QColor(Qt::darkCyan));
    QCOMPARE(scene.channel(0)->lineColor(), QColor(Qt::darkCyan));
    QCOMPARE(scene.axis(ZrQtPlot::COSY_0)->labelColor(), before);
}

void TestChannelPanel::cancelledDialogChangesNothing()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    const QColor before = scene.channel(1)->lineColor();
    scene.chooseColor(1, QColor());
    QCOMPARE(scene.channel(1)->lineColor(), before);
    QCOMPARE(scene.rows().at(1)->channelColor(), before);
    QCOMPARE(scene.axis(ZrQtPlot::COSY_1)->labelColor(), before);
    // Also after another choice.
    scene.chooseColor(1, QColor(Qt::darkCyan));
    scene.chooseColor(1, QColor());
    QCOMPARE(scene.channel(1)->lineColor(), QColor(Qt::darkCyan));
}

void TestChannelPanel::choicesOutliveThePlot()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    scene.chooseColor(1, QColor(Qt::darkCyan));
    scene.clickVisibility(0);
    scene.action("Legend")->trigger();
    QCOMPARE(scene.channel(1)->lineColor(), QColor(Qt::darkCyan));
    QCOMPARE(scene.axis(ZrQtPlot::COSY_1)->labelColor(), QColor(Qt::darkCyan));
    QVERIFY(!scene.channel(0)->isVisible());
    QVERIFY(!scene.rows().at(0)->channelVisible());
    scene.clickVisibility(0);
    QVERIFY(scene.channel(0)->isVisible());
}

void TestChannelPanel::otherFilesForgetThem()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    scene.clickVisibility(0);
    QVERIFY(scene.open("t,c\n100,1\n200,2\n"));
    QCOMPARE(scene.rows().size(), 1);
    QCOMPARE(scene.rows().first()->channelName(), QStringLiteral("c"));
    QVERIFY(scene.channel(0)->isSelectedForDisplay());
}

void TestChannelPanel::otherFilesWhileAColourIsChosen()
{
    PanelScene scene;
    QVERIFY(scene.isReady());
    bool opened = false;
    QTimer::singleShot(0, &scene.window, [&scene, &opened] { opened = scene.open("t,c\n100,1\n200,2\n"); });
    scene.chooseColor(0, QColor(Qt::darkCyan));
    QVERIFY(opened);
    QCOMPARE(scene.rows().size(), 1);
    QVERIFY(scene.channel(0)->lineColor() != QColor(Qt::darkCyan));
}

void TestChannelPanel::overviewFollows()
{
    Options options = withPanel();
    options.overview = true;
    PanelScene scene(kTwoSystems, options);
    QVERIFY(scene.isReady());
    const auto copies = [&scene] {
        return scene.window.findChildren<ZrQtPlot *>().last()->findChildren<ZrQtBufferedChannel *>();
    };
    QVERIFY(copies().first() != scene.channel(0));
    scene.chooseColor(1, QColor(Qt::darkCyan));
    QCOMPARE(copies().at(1)->lineColor(), QColor(Qt::darkCyan));
    scene.clickVisibility(0);
    QVERIFY(!copies().at(0)->isVisible());
}

QTEST_MAIN(TestChannelPanel)
#include "tst_channelpanel.moc"
