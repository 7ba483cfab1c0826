#include "mainwindow.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <QtGui/QDropEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

#include <ZrQtPlotWidgets/zrqtaxis.h>
#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>
#include <ZrQtPlotWidgets/zrqtplot.h>

namespace {

/// The plots that are not about to be deleted.
QList<ZrQtPlot *> plots(const MainWindow &window)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return window.findChildren<ZrQtPlot *>();
}

QStringList channels(const MainWindow &window)
{
    QStringList names;
    for (const ZrQtPlot *plot : plots(window)) {
        for (const ZrQtBaseChannel *channel : plot->findChildren<ZrQtBaseChannel *>())
            names += channel->name();
    }
    return names;
}

bool statusShows(const MainWindow &window, const QString &text)
{
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (label->text().contains(text))
            return true;
    }
    return false;
}

} // namespace

class TestMainWindow : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void withoutFiles();
    void opensAFile();
    void systemsAxesAndColors();
    void aBadFileLeavesWhatIsShown();
    void anUnknownColumnIsAFailure();
    void cancelLeavesWhatIsShown();
    void droppedFilesForgetTheChosenColumns();
    void switchesOfTheViewMenu();
    void gridsOfTheViewMenu();
    void gapsStandInTheStatusBar();
    void problemsAreShownWithoutWaiting();
    void savesAPicture();
    void closingWhileLoading();

private:
    QString write(const char *name, const QByteArray &bytes) const;
    QString large() const { return write("large.csv", "a,b\n" + QByteArray("1.25,2.5\n").repeated(1000000)); }
    static void openAndWait(MainWindow *window, const QStringList &files);
    static QAction *action(const MainWindow &window, const QString &text);

    QTemporaryDir m_directory;
};

void TestMainWindow::initTestCase()
{
    WallClock::enterZone();
}

QString TestMainWindow::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_directory.filePath(QString::fromLatin1(name)));
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return file.fileName();
}

void TestMainWindow::openAndWait(MainWindow *window, const QStringList &files)
{
    QSignalSpy opened(window, &MainWindow::opened);
    window->open(files);
    QTRY_COMPARE(opened.count(), 1);
}

QAction *TestMainWindow::action(const MainWindow &window, const QString &text)
{
    for (QAction *candidate : window.findChildren<QAction *>()) {
        if (candidate->text().remove(QLatin1Char('&')) == text)
            return candidate;
    }
    return nullptr;
}

void TestMainWindow::withoutFiles()
{
    MainWindow window((Options()));
    window.show();
    QVERIFY(plots(window).isEmpty());
    QVERIFY(statusShows(window, QStringLiteral("Open a CSV file")));
    QVERIFY(!window.findChild<QProgressBar *>()->isVisible());
    QCOMPARE(window.size(), QSize(960, 600));
    // A switch without a plot is only remembered.
    action(window, QStringLiteral("Logarithmic Values"))->trigger();
    QVERIFY(plots(window).isEmpty());
}

void TestMainWindow::opensAFile()
{
    MainWindow window((Options()));
    window.show();
    openAndWait(&window, {write("f.csv", "t,a,b\n1,5,6\n2,7,8\n")});
    QCOMPARE(plots(window).size(), 1);
    QCOMPARE(channels(window), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    QVERIFY(plots(window).first()->isVisible());
    for (const auto *channel : window.findChildren<ZrQtBufferedChannel *>())
        QVERIFY(channel->dataReduction());
    QCOMPARE(window.reports(), QStringList());
    QCOMPARE(window.windowTitle(), QStringLiteral("f.csv \u2013 ZrQtPlot Viewer"));
    QVERIFY(statusShows(window, QStringLiteral("f.csv: 2 rows")));
    openAndWait(&window, {write("g.csv", "t,c\n1,5\n2,7\n")});
    QCOMPARE(channels(window), QStringList(QStringLiteral("c")));
}

void TestMainWindow::systemsAxesAndColors()
{
    Options options;
    options.axes = {{QStringLiteral("b"), AxisSide::Left}};
    MainWindow window(options);
    window.show();
    openAndWait(&window, {write("f.csv", "d,a,b\n2026-11-21,5,6000\n2026-11-22,7,8000\n")});
    const ZrQtPlot *plot = plots(window).first();
    const auto axes = plot->findChildren<ZrQtAxis *>();
    const auto lines = plot->findChildren<ZrQtBaseChannel *>();
    QCOMPARE(axes.size(), 3);
    QCOMPARE(axes[0]->position(), Qt::BottomEdge);
    QCOMPARE(axes[0]->labelFormat(), ZrQtAxis::DateTime);
    QCOMPARE(axes[1]->position(), Qt::RightEdge);
    QCOMPARE(axes[2]->position(), Qt::LeftEdge);
    QCOMPARE(lines[0]->cosyX(), axes[0]->cosy());
    QCOMPARE(lines[0]->cosyY(), axes[1]->cosy());
    QCOMPARE(lines[1]->cosyY(), axes[2]->cosy());
    QVERIFY(lines[0]->cosyY() != lines[1]->cosyY());
    QCOMPARE(axes[1]->labelColor(), lines[0]->lineColor());
    QCOMPARE(axes[2]->labelColor(), lines[1]->lineColor());
    QVERIFY(lines[0]->lineColor() != lines[1]->lineColor());
    // The axes show what the canvases are.
    QCOMPARE(axes[2]->min(), plot->canvas(axes[2]->cosy()).top());
    QCOMPARE(axes[0]->max(), plot->canvas(axes[0]->cosy()).right());
}

void TestMainWindow::aBadFileLeavesWhatIsShown()
{
    MainWindow window((Options()));
    window.show();
    openAndWait(&window, {write("f.csv", "t,a\n1,5\n2,7\n")});
    QSignalSpy failed(&window, &MainWindow::openFailed);
    const QString bad = write("bad.csv", "t,a\n1,5,6\n");
    window.open({bad});
    QTRY_COMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).at(0).toString(),
             bad + QStringLiteral(", line 2, column 3: the row has 3 cells, but the first row has 2."));
    QCOMPARE(channels(window), QStringList(QStringLiteral("a")));
    QVERIFY(statusShows(window, QStringLiteral("f.csv: 2 rows")));
    QVERIFY(!window.findChild<QProgressBar *>()->isVisible());
}

void TestMainWindow::anUnknownColumnIsAFailure()
{
    for (const bool ofX : {false, true}) {
        Options options;
        if (ofX)
            options.x = QStringLiteral("z");
        else
            options.y = QStringList(QStringLiteral("z"));
        MainWindow window(options);
        QSignalSpy failed(&window, &MainWindow::openFailed);
        QSignalSpy opened(&window, &MainWindow::opened);
        const QString file = write("f.csv", "t,a\n1,5\n2,7\n");
        window.open({file});
        QTRY_COMPARE(failed.count(), 1);
        QCOMPARE(failed.at(0).at(0).toString(), file + QStringLiteral(": there is no column \"z\"."));
        QCOMPARE(opened.count(), 0);
        QVERIFY(plots(window).isEmpty());
    }
}

void TestMainWindow::cancelLeavesWhatIsShown()
{
    MainWindow window((Options()));
    window.show();
    openAndWait(&window, {write("f.csv", "t,a\n1,5\n2,7\n")});
    QSignalSpy cancelled(&window, &MainWindow::openCancelled);
    window.open({large()});
    auto *bar = window.findChild<QProgressBar *>();
    auto *button = window.findChild<QPushButton *>();
    QVERIFY(bar->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(bar->value() > 0, 20000);
    QVERIFY(bar->value() < bar->maximum());
    // Meanwhile the window works.
    action(window, QStringLiteral("Inverted Values"))->trigger();
    QCOMPARE(channels(window), QStringList(QStringLiteral("a")));
    QTest::mouseClick(button, Qt::LeftButton);
    QTRY_COMPARE(cancelled.count(), 1);
    QVERIFY(!bar->isVisible());
    QVERIFY(!button->isVisible());
    QCOMPARE(channels(window), QStringList(QStringLiteral("a")));
    QVERIFY(statusShows(window, QStringLiteral("f.csv: 2 rows")));
}

void TestMainWindow::droppedFilesForgetTheChosenColumns()
{
    Options options;
    options.x = QStringLiteral("a");
    options.y = QStringList(QStringLiteral("b"));
    MainWindow window(options);
    window.show();
    openAndWait(&window, {write("f.csv", "t,a,b\n1,5,6\n2,7,8\n")});
    QCOMPARE(channels(window), QStringList(QStringLiteral("b")));

    QSignalSpy opened(&window, &MainWindow::opened);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write("g.csv", "t,c,e\n1,5,6\n2,7,8\n"))});
    QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    QTRY_COMPARE(opened.count(), 1);
    QCOMPARE(channels(window), QStringList({QStringLiteral("c"), QStringLiteral("e")}));
    // The choice is gone for good, also when the plot is built anew.
    action(window, QStringLiteral("Legend"))->trigger();
    QCOMPARE(channels(window), QStringList({QStringLiteral("c"), QStringLiteral("e")}));
}

void TestMainWindow::switchesOfTheViewMenu()
{
    MainWindow window((Options()));
    window.show();
    openAndWait(&window, {write("f.csv", "t,a\n1,10\n2,1000\n3,-1\n")});
    const auto yAxis = [&window] { return plots(window).first()->findChildren<ZrQtAxis *>().at(1); };
    const auto channel
        = [&window] { return plots(window).first()->findChildren<ZrQtBaseChannel *>().first(); };
    QVERIFY(!yAxis()->logarithmic());
    QCOMPARE(channel()->boundingRect().bottom(), 1000.0);

    action(window, QStringLiteral("Logarithmic Values"))->trigger();
    QVERIFY(yAxis()->logarithmic());
    QCOMPARE(channel()->boundingRect().top(), 1.0);
    QCOMPARE(channel()->boundingRect().bottom(), 3.0);
    QCOMPARE(window.reports().size(), 1);
    QVERIFY(statusShows(window, QStringLiteral("1 value not above 0")));

    QVERIFY(!yAxis()->inverted());
    action(window, QStringLiteral("Inverted Values"))->trigger();
    QVERIFY(yAxis()->inverted());
    QVERIFY(yAxis()->logarithmic());

    QVERIFY(!plots(window).first()->generateLegend());
    action(window, QStringLiteral("Legend"))->trigger();
    QVERIFY(plots(window).first()->generateLegend());

    action(window, QStringLiteral("Logarithmic Values"))->trigger();
    QVERIFY(!yAxis()->logarithmic());
    QCOMPARE(window.reports(), QStringList());
}

void TestMainWindow::gridsOfTheViewMenu()
{
    MainWindow window((Options()));
    window.show();
    openAndWait(&window, {write("f.csv", "t,a\n1,5\n2,7\n")});
    const auto mode = [&window] { return plots(window).first()->gridModeX(); };
    QCOMPARE(mode(), ZrQtPlot::TickGrid);
    const QVector<QPair<QString, ZrQtPlot::GridMode>> rows = {
        {QStringLiteral("None"), ZrQtPlot::NoGrid},
        {QStringLiteral("Sub-ticks"), ZrQtPlot::SubTickGrid},
        {QStringLiteral("Percent"), ZrQtPlot::PercentStepGrid},
        {QStringLiteral("Pixels"), ZrQtPlot::PixelStepGrid},
        {QStringLiteral("Polar"), ZrQtPlot::TickPolarGrid},
        {QStringLiteral("Ticks"), ZrQtPlot::TickGrid},
    };
    for (const auto &[text, expected] : rows) {
        action(window, text)->trigger();
        QCOMPARE(mode(), expected);
        QCOMPARE(plots(window).first()->gridModeY(), expected);
        QVERIFY(action(window, text)->isChecked());
    }
}

void TestMainWindow::gapsStandInTheStatusBar()
{
    MainWindow window((Options()));
    openAndWait(&window, {write("f.csv", "t,a\n1,5\n2,\n3,7\n")});
    QCOMPARE(window.reports().size(), 1);
    QVERIFY(window.reports().first().endsWith(QStringLiteral("f.csv, column \"a\": gaps: 1 empty cell.")));
    QVERIFY(statusShows(window, QStringLiteral("f.csv: 3 rows   f.csv, column \"a\": gaps: 1 empty cell.")));
}

void TestMainWindow::problemsAreShownWithoutWaiting()
{
    MainWindow window((Options()));
    window.show();
    window.showProblem(QStringLiteral("A <b>problem</b>."));
    auto *box = window.findChild<QMessageBox *>();
    QVERIFY(box);
    QVERIFY(box->isVisible());
    QCOMPARE(box->text(), QStringLiteral("A <b>problem</b>."));
    QCOMPARE(box->textFormat(), Qt::PlainText);
    box->accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!window.findChild<QMessageBox *>());
}

void TestMainWindow::savesAPicture()
{
    MainWindow window((Options()));
    window.show();
    openAndWait(&window, {write("f.csv", "t,a\n1,5\n2,7\n")});
    const QString file = m_directory.filePath(QStringLiteral("p.png"));
    QVERIFY(window.savePicture(file));
    QCOMPARE(QImage(file).size(), window.size());
    QVERIFY(!window.savePicture(QStringLiteral("/nonexistent/p.png")));
}

void TestMainWindow::closingWhileLoading()
{
    const QString file = large();
    QElapsedTimer timer;
    timer.start();
    {
        MainWindow window((Options()));
        window.open({file});
    }
    QCoreApplication::processEvents();
    QVERIFY(timer.elapsed() < 5000);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
