#include "viewerscene.h"

#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

namespace {

Options withEditing()
{
    Options options;
    options.editAxes = true;
    return options;
}

/// A window whose axes are typed into.
class EditingScene : public Scene
{
public:
    explicit EditingScene(const QByteArray &csv = kNumbers, const Options &options = withEditing())
        : Scene(csv, options)
    {
    }

    ZrQtAxis *axis(Qt::Edge position) const
    {
        for (ZrQtAxis *axis : plot()->findChildren<ZrQtAxis *>()) {
            if (axis->position() == position)
                return axis;
        }
        return nullptr;
    }
    /// The fields of the lower and upper end that can be seen.
    static QVector<QGraphicsView *> fields(const ZrQtAxis *axis)
    {
        QVector<QGraphicsView *> visible;
        for (QGraphicsView *view : axis->findChildren<QGraphicsView *>()) {
            if (view->isVisible())
                visible.append(view);
        }
        return visible;
    }
    static QAbstractSpinBox *editor(const QGraphicsView *view)
    {
        for (QGraphicsItem *item : view->scene()->items()) {
            if (item->isVisible() && item->isWidget())
                return qobject_cast<QAbstractSpinBox *>(static_cast<QGraphicsProxyWidget *>(item)->widget());
        }
        return nullptr;
    }
    /// Clicks into the field, types \a text in place of what is there, and ends with Return.
    void type(QGraphicsView *view, const QString &text)
    {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, middleOf(view));
        if (qobject_cast<QDateTimeEdit *>(editor(view))) {
            // A time is typed part by part, from the hours on, and needs no colons.
            QTest::keyClick(window.windowHandle(), Qt::Key_Home);
            for (int i = 0; i < 2; ++i)
                QTest::keyClick(window.windowHandle(), Qt::Key_Right, Qt::ShiftModifier);
        } else {
            QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::ControlModifier);
        }
        for (const QChar c : text)
            QTest::keyClick(window.windowHandle(), c.toLatin1());
        QTest::keyClick(window.windowHandle(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    QRectF canvas() const { return plot()->canvas(ZrQtPlot::COSY_0); }
};

} // namespace

class TestAxisEditing : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        WallClock::enterZone();
        // A platform without real windows says so of every press on an axis.
        tolerateMessages(QStringLiteral("^This plugin does not support grabbing the mouse"));
    }

    void switchedByOptionMenuAndKey();
    void valuesAreTyped();
    void numbersOfXAreTyped();
    void axesAreTypedOneByOne();
    void decimalsCanBeTyped();
    void largeNumbersStandForThemselves();
    void timesAreTyped_data();
    void timesAreTyped();
    void anyWidthHasTimes();
    void zoomingOutOfTinyNumbers();
    void whatHasNoFields_data();
    void whatHasNoFields();
    void zoomingInBringsTheFieldsOfTimes();
    void typingIsNoShortcut();
    void fieldsCoverNoLabels();
};

void TestAxisEditing::switchedByOptionMenuAndKey()
{
    EditingScene scene(kNumbers, Options());
    QVERIFY(scene.isReady());
    const auto count = [&scene] { return EditingScene::fields(scene.axis(Qt::LeftEdge)).size(); };
    QCOMPARE(count(), 0);
    scene.action("Edit Axis Ends")->trigger();
    QCOMPARE(count(), 2);
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_E);
    QCOMPARE(count(), 0);
    EditingScene fromOption;
    QVERIFY(fromOption.isReady());
    QCOMPARE(EditingScene::fields(fromOption.axis(Qt::LeftEdge)).size(), 2);
    QVERIFY(fromOption.action("Edit Axis Ends")->isChecked());
}

void TestAxisEditing::valuesAreTyped()
{
    EditingScene scene;
    QVERIFY(scene.isReady());
    const QRectF before = scene.canvas();
    ZrQtAxis *axis = scene.axis(Qt::LeftEdge);
    scene.type(EditingScene::fields(axis)[1], QStringLiteral("250"));
    QCOMPARE(scene.canvas().bottom(), 250.0);
    QCOMPARE(scene.canvas().top(), before.top());
    scene.type(EditingScene::fields(axis)[0], QStringLiteral("-40"));
    QCOMPARE(scene.canvas().top(), -40.0);
    QCOMPARE(scene.canvas().bottom(), 250.0);
    QCOMPARE(axis->min(), -40.0);
    QCOMPARE(axis->max(), 250.0);
    QCOMPARE(scene.canvas().left(), before.left());
    QCOMPARE(scene.canvas().width(), before.width());
    // The plot's channels show it, and it is the user's choice until Home.
    QCOMPARE(scene.plot()->findChild<ZrQtBufferedChannel *>()->canvas().bottom(), 250.0);
    scene.action("Home")->trigger();
    QCOMPARE(scene.canvas(), before);
}

void TestAxisEditing::numbersOfXAreTyped()
{
    EditingScene scene;
    QVERIFY(scene.isReady());
    scene.type(EditingScene::fields(scene.axis(Qt::BottomEdge))[0], QStringLiteral("4.5"));
    QCOMPARE(scene.canvas().left(), 4.5);
}

void TestAxisEditing::axesAreTypedOneByOne()
{
    EditingScene scene("t,a,b\n0,0,1000\n10,1,2000\n");
    QVERIFY(scene.isReady());
    const QRectF first = scene.canvas();
    const ZrQtAxis *axis = scene.axis(Qt::RightEdge);
    QCOMPARE(axis->cosy(), ZrQtPlot::COSY_1);
    scene.type(EditingScene::fields(axis)[1], QStringLiteral("5000"));
    QCOMPARE(scene.plot()->canvas(ZrQtPlot::COSY_1).bottom(), 5000.0);
    QCOMPARE(scene.canvas(), first);
}

void TestAxisEditing::decimalsCanBeTyped()
{
    EditingScene scene("t,a\n0,0\n10,16\n");
    QVERIFY(scene.isReady());
    scene.type(EditingScene::fields(scene.axis(Qt::LeftEdge))[1], QStringLiteral("2.75"));
    QCOMPARE(scene.canvas().bottom(), 2.75);
}

void TestAxisEditing::largeNumbersStandForThemselves()
{
    Options options = withEditing();
    options.labelFormat = NumberFormat::Exponential;
    EditingScene scene("t,a\n0,0\n10,8000000000\n", options);
    QVERIFY(scene.isReady());
    scene.type(EditingScene::fields(scene.axis(Qt::LeftEdge))[1], QStringLiteral("5000000000"));
    QCOMPARE(scene.canvas().bottom(), 5e9);
    QCOMPARE(scene.axis(Qt::LeftEdge)->max(), 5e9);
}

void TestAxisEditing::timesAreTyped_data()
{
    QTest::addColumn<QByteArray>("csv");
    QTest::addColumn<QString>("label");
    QTest::newRow("date and time") << QByteArray("d,a\n2026-11-21 08:00,0\n2026-11-21 18:00,100\n")
                                   << QStringLiteral("d (21 Nov 2026)");
    QTest::newRow("time of day") << QByteArray("d,a\n08:00:00,0\n18:00:00,100\n") << QStringLiteral("d");
}

void TestAxisEditing::timesAreTyped()
{
    QFETCH(QByteArray, csv);
    QFETCH(QString, label);
    EditingScene scene(csv);
    QVERIFY(scene.isReady());
    auto *channel = scene.plot()->findChild<ZrQtBufferedChannel *>();
    const double eight = channel->boundingRect().left();
    const ZrQtAxis *axis = scene.axis(Qt::BottomEdge);
    QCOMPARE(axis->axisLabel(), label);
    QVector<QGraphicsView *> fields = EditingScene::fields(axis);
    QCOMPARE(fields.size(), 2);
    QVERIFY(EditingScene::editor(fields[0])->text().startsWith(QStringLiteral("07:")));
    scene.type(fields[0], QStringLiteral("093000500"));
    QCOMPARE(scene.canvas().left(), eight + 5400500.0);
    QCOMPARE(EditingScene::editor(fields[0])->text(), QStringLiteral("09:30:00.500"));
    scene.type(fields[1], QStringLiteral("120000000"));
    QCOMPARE(scene.canvas().right(), eight + 4.0 * 3600000.0);
}

void TestAxisEditing::anyWidthHasTimes()
{
    EditingScene scene("d,a\n2026-11-21 00:00,0\n2026-11-22 00:00,100\n");
    QVERIFY(scene.isReady());
    for (int width = 1200; width >= 500; width -= 50) {
        scene.window.resize(width, 500);
        QCoreApplication::processEvents();
        const ZrQtAxis *axis = scene.axis(Qt::BottomEdge);
        QVERIFY2(!axis->tickPositions().isEmpty(), qPrintable(QString::number(width)));
    }
}

void TestAxisEditing::zoomingOutOfTinyNumbers()
{
    EditingScene scene("t,a\n0,0\n10,1e-18\n");
    QVERIFY(scene.isReady());
    const ZrQtAxis *axis = scene.axis(Qt::LeftEdge);
    const QString tiny = axis->axisLabel();
    scene.plot()->setCanvas(QRectF(0.0, 50.0, 0.0, 100.0), ZrQtPlot::COSY_0);
    QCOMPARE(EditingScene::fields(axis).size(), 2);
    QCOMPARE(axis->axisLabel(), QStringLiteral("a"));
    QCOMPARE(axis->unitFactor(), 1.0);
    QVERIFY(tiny != axis->axisLabel());
}

void TestAxisEditing::whatHasNoFields_data()
{
    QTest::addColumn<QByteArray>("csv");
    QTest::addColumn<bool>("logarithmic");
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("tiny numbers") << QByteArray("t,a\n0,0\n10,1e-18\n") << false << Qt::LeftEdge;
    QTest::newRow("huge numbers") << QByteArray("t,a\n0,0\n10,1e300\n") << false << Qt::LeftEdge;
    QTest::newRow("times before 1970")
        << QByteArray("d,a\n1958-11-21 08:00,0\n1958-11-21 18:00,9\n") << false << Qt::BottomEdge;
    QTest::newRow("logarithms") << QByteArray("t,a\n0,1\n10,1000\n") << true << Qt::LeftEdge;
    QTest::newRow("days") << QByteArray("d,a\n2026-11-01,0\n2026-11-21,9\n") << false << Qt::BottomEdge;
    QTest::newRow("years") << QByteArray("d,a\n1990-11-01,0\n2026-11-21,9\n") << false << Qt::BottomEdge;
}

/// Fields that would set something else than they show.
void TestAxisEditing::whatHasNoFields()
{
    QFETCH(QByteArray, csv);
    QFETCH(bool, logarithmic);
    QFETCH(Qt::Edge, edge);
    Options options = withEditing();
    options.logY = logarithmic;
    EditingScene scene(csv, options);
    QVERIFY(scene.isReady());
    QVERIFY(EditingScene::fields(scene.axis(edge)).isEmpty());
    QVERIFY(!scene.axis(edge)->tickPositions().isEmpty());
    QVERIFY(scene.plot()->findChild<ZrQtBufferedChannel *>()->width() > scene.window.width() / 2);
    const Qt::Edge other = edge == Qt::LeftEdge ? Qt::BottomEdge : Qt::LeftEdge;
    QCOMPARE(EditingScene::fields(scene.axis(other)).size(), 2);
}

void TestAxisEditing::zoomingInBringsTheFieldsOfTimes()
{
    EditingScene scene("d,a\n2020-01-01,0\n2026-11-21,9\n");
    QVERIFY(scene.isReady());
    const ZrQtAxis *axis = scene.axis(Qt::BottomEdge);
    const QRectF all = scene.canvas();
    const QString dates = axis->timeFormat();
    scene.plot()->setCanvas(QRectF(all.center().x(), 0.0, 6 * 3600000.0, 0.0), ZrQtPlot::COSY_0);
    QCOMPARE(EditingScene::fields(axis).size(), 2);
    scene.plot()->setCanvas(all, ZrQtPlot::COSY_0);
    QVERIFY(EditingScene::fields(axis).isEmpty());
    // Days are written as such again.
    scene.plot()->setCanvas(QRectF(all.center().x(), 0.0, 10 * 86400000.0, 0.0), ZrQtPlot::COSY_0);
    QCOMPARE(axis->timeFormat(), dates);
}

void TestAxisEditing::typingIsNoShortcut()
{
    EditingScene scene;
    QVERIFY(scene.isReady());
    QGraphicsView *field = EditingScene::fields(scene.axis(Qt::LeftEdge))[1];
    scene.type(field, QStringLiteral("e2z50"));
    QCOMPARE(scene.plot()->interaction(), ZrQtPlot::PanAndScan);
    QVERIFY(scene.action("Edit Axis Ends")->isChecked());
    QCOMPARE(scene.canvas().bottom(), 250.0);
    // Afterwards, keys are shortcuts again.
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_Z);
    QCOMPARE(scene.plot()->interaction(), ZrQtPlot::RectangleZoom);
}

void TestAxisEditing::fieldsCoverNoLabels()
{
    for (const QByteArray &csv : {QByteArray("d,a\n2026-11-21 08:00,0\n2026-11-21 18:00,100\n"), kNumbers,
                                  QByteArray("t,a\n1000000,0\n1000010,100\n")}) {
        EditingScene scene(csv);
        QVERIFY(scene.isReady());
        const ZrQtAxis *axis = scene.axis(Qt::BottomEdge);
        const QVector<QGraphicsView *> fields = EditingScene::fields(axis);
        // Beside a field is nothing but paper.
        const QImage image = const_cast<ZrQtAxis *>(axis)->grab().toImage();
        const QRect left = fields[0]->geometry();
        const QRect right = fields[1]->geometry();
        for (int y = left.top() + 4; y < left.bottom() - 4; ++y) {
            QVERIFY(image.pixelColor(left.right() + 3, y).lightness() > 250);
            QVERIFY(image.pixelColor(right.left() - 3, y).lightness() > 250);
        }
    }
}

QTEST_MAIN(TestAxisEditing)
#include "tst_axisediting.moc"
