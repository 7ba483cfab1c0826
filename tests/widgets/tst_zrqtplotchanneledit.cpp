#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "shared/quiettest.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <random>

/// Clicks into one control and the channels that it is coupled to. The widgets under test are found as an
/// application finds them: by name or by place.
class TestPlotChannelEdit : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void unnamed();
    void named();
    void nameProperty();
    void layout();
    void buttonSize();
    void colorBoxIsHiddenUntilShown();
    void startsBlackAndUnchecked();

    void color_data();
    void color();
    void styleSheetsByteForByte();
    void paintsTheColor();
    void visibleDoesNotTouchTheChannel();

    void couplingTakesColorAndVisibility_data();
    void couplingTakesColorAndVisibility();
    void couplingKeepsTheName();
    void clickShowsAndHidesTheChannel();
    void clickWithoutAChannel();
    void uncoupling();
    void couplingAnotherChannel();
    void couplingTheSameChannelTwice();
    void channelShownAndHiddenElsewhere();
    void channelHiddenWithItsWindow();
    void filtersAnyChannel();
    void ignoresOtherObjects();
    void filterConsumesNothing();
    void repaintsOnlyWhenSomethingHappens();

    void dialogAccepted();
    void dialogCancelled();
    void dialogWithoutAChannel();
    void dialogLooks();
    void dialogLeavesTheBoxAsItWas();
    void editDeletedWhileTheDialogIsOpen();
    void channelDeletedWhileTheDialogIsOpen();

    void channelDeleted();
    void editDeletedFirst();
    void channelDeletedByItsSlot();
    void stormOfEvents();

private:
    static QPushButton *button(const ZrQtPlotChannelEdit &edit);
    static QPushButton *colorBox(const ZrQtPlotChannelEdit &edit);
    static QWidget *swatch(const ZrQtPlotChannelEdit &edit);
    static void click(QPushButton *button) { QTest::mouseClick(button, Qt::LeftButton); }
    /// A shown window with \a edit in it.
    static void show(QWidget &window, ZrQtPlotChannelEdit *edit);
    static void expectDialog();
    /// Clicks the colour button and does \a act with the dialog that opens.
    template <typename Act> static void clickColorBox(const ZrQtPlotChannelEdit &edit, Act act);
};

QPushButton *TestPlotChannelEdit::button(const ZrQtPlotChannelEdit &edit)
{
    const auto *grid = qobject_cast<QGridLayout *>(edit.layout());
    return qobject_cast<QPushButton *>(grid->itemAtPosition(0, 0)->widget());
}

QPushButton *TestPlotChannelEdit::colorBox(const ZrQtPlotChannelEdit &edit)
{
    return edit.findChild<QPushButton *>(QStringLiteral("colorBox"));
}

QWidget *TestPlotChannelEdit::swatch(const ZrQtPlotChannelEdit &edit)
{
    return colorBox(edit)->layout()->itemAt(0)->widget();
}

void TestPlotChannelEdit::show(QWidget &window, ZrQtPlotChannelEdit *edit)
{
    window.resize(300, 120);
    edit->setParent(&window);
    edit->setGeometry(0, 0, 200, 80);
    edit->show();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

/// The offscreen platform complains of windows with a fixed size.
void TestPlotChannelEdit::expectDialog()
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        expectMessage(QStringLiteral("propagateSizeHints"));
}

template <typename Act> void TestPlotChannelEdit::clickColorBox(const ZrQtPlotChannelEdit &edit, Act act)
{
    bool opened = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer.stop();
        opened = true;
        act(dialog);
    });
    timer.start(5);
    expectDialog();
    click(colorBox(edit));
    QVERIFY2(opened, "no colour dialog opened");
}

void TestPlotChannelEdit::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestPlotChannelEdit::unnamed()
{
    const ZrQtPlotChannelEdit edit;
    QCOMPARE(edit.channelName(), QStringLiteral("Unnamed Channel"));
    QCOMPARE(edit.findChild<QLabel *>(QStringLiteral("label"))->text(), QStringLiteral("Unnamed Channel"));
    QWidget parent;
    const auto *child = new ZrQtPlotChannelEdit(&parent);
    QCOMPARE(child->parentWidget(), &parent);
    QCOMPARE(child->channelName(), QStringLiteral("Unnamed Channel"));
}

void TestPlotChannelEdit::named()
{
    QWidget parent;
    const auto *edit = new ZrQtPlotChannelEdit(QStringLiteral("Oil pressure"), &parent);
    QCOMPARE(edit->parentWidget(), &parent);
    QCOMPARE(edit->channelName(), QStringLiteral("Oil pressure"));
    QCOMPARE(edit->findChild<QLabel *>(QStringLiteral("label"))->text(), QStringLiteral("Oil pressure"));
}

void TestPlotChannelEdit::nameProperty()
{
    ZrQtPlotChannelEdit edit;
    QSignalSpy spy(&edit, &ZrQtPlotChannelEdit::channelNameChanged);
    QVERIFY(edit.setProperty("channelName", QStringLiteral("Speed")));
    QCOMPARE(edit.property("channelName").toString(), QStringLiteral("Speed"));
    QCOMPARE(edit.findChild<QLabel *>(QStringLiteral("label"))->text(), QStringLiteral("Speed"));
    edit.setChannelName(QString());
    QCOMPARE(edit.channelName(), QString());
    QCOMPARE(spy.count(), 0);
}

void TestPlotChannelEdit::layout()
{
    const ZrQtPlotChannelEdit edit;
    auto *grid = qobject_cast<QGridLayout *>(edit.layout());
    QVERIFY(grid);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(qobject_cast<QPushButton *>(grid->itemAtPosition(0, 0)->widget()));
    QCOMPARE(grid->itemAtPosition(0, 1)->widget()->objectName(), QStringLiteral("label"));
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), colorBox(edit));
    QVERIFY(button(edit) != colorBox(edit));
    QVERIFY(button(edit)->isCheckable());
    auto *inner = qobject_cast<QGridLayout *>(colorBox(edit)->layout());
    QVERIFY(inner);
    QCOMPARE(inner->contentsMargins(), QMargins(6, 6, 6, 6));
    QCOMPARE(inner->spacing(), 0);
    QVERIFY(swatch(edit));
}

void TestPlotChannelEdit::buttonSize()
{
    const ZrQtPlotChannelEdit edit;
    QFont font = edit.findChild<QLabel *>(QStringLiteral("label"))->font();
    font.setPointSize(14);
    const int side = QFontMetrics(font).height();
    QCOMPARE(button(edit)->maximumSize(), QSize(side, side));
}

void TestPlotChannelEdit::colorBoxIsHiddenUntilShown()
{
    QWidget window;
    ZrQtPlotChannelEdit edit;
    show(window, &edit);
    QVERIFY(button(edit)->isVisible());
    QVERIFY(!colorBox(edit)->isVisible());
    colorBox(edit)->show();
    QVERIFY(colorBox(edit)->isVisible());
}

void TestPlotChannelEdit::startsBlackAndUnchecked()
{
    const ZrQtPlotChannelEdit edit;
    QCOMPARE(edit.channelColor(), QColor(0, 0, 0, 255));
    QCOMPARE(edit.channelVisible(), false);
    QVERIFY(button(edit)->styleSheet().contains(QStringLiteral("background-color: rgb(0, 0, 0);")));
    QCOMPARE(swatch(edit)->styleSheet(), QStringLiteral("QWidget {background: rgb(0, 0, 0);}"));
}

void TestPlotChannelEdit::color_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("opaque") << QColor(1, 20, 255) << QStringLiteral("rgb(1, 20, 255)");
    QTest::newRow("alpha is not shown") << QColor(1, 20, 255, 10) << QStringLiteral("rgb(1, 20, 255)");
    QTest::newRow("from another model") << QColor::fromHsv(120, 255, 255) << QStringLiteral("rgb(0, 255, 0)");
    QTest::newRow("invalid") << QColor() << QStringLiteral("rgb(0, 0, 0)");
}

void TestPlotChannelEdit::color()
{
    QFETCH(QColor, color);
    QFETCH(QString, text);
    ZrQtPlotChannelEdit edit;
    edit.setChannelColor(Qt::red);
    edit.setChannelColor(color);
    QCOMPARE(edit.channelColor(), color);
    QVERIFY(button(edit)->styleSheet().contains(text));
    QCOMPARE(swatch(edit)->styleSheet(),
             QStringLiteral("QWidget {background: ") + text + QStringLiteral(";}"));
}

void TestPlotChannelEdit::styleSheetsByteForByte()
{
    ZrQtPlotChannelEdit edit;
    edit.setChannelColor(Qt::green);
    edit.setChannelColor(QColor(200, 100, 50));
    QCOMPARE(button(edit)->styleSheet(),
             QStringLiteral("QPushButton {background-color: rgb(200, 100, 50);border-width: 2px;"
                            "border-radius: 5px;border-color: rgb(200, 100, 50);border-style: solid;"
                            "padding: 6px;margin: 1px}"
                            "QPushButton:!checked {background-color: white;}"));
    QCOMPARE(swatch(edit)->styleSheet(), QStringLiteral("QWidget {background: rgb(200, 100, 50);}"));
}

void TestPlotChannelEdit::paintsTheColor()
{
    QWidget window;
    ZrQtPlotChannelEdit edit;
    edit.setChannelColor(QColor(200, 100, 50));
    colorBox(edit)->show();
    edit.setChannelVisible(true);
    show(window, &edit);
    const auto middle = [](QWidget *widget) {
        const QImage image = widget->grab().toImage();
        return image.pixelColor(image.rect().center());
    };
    QCOMPARE(middle(button(edit)), QColor(200, 100, 50));
    QCOMPARE(middle(swatch(edit)), QColor(200, 100, 50));
    edit.setChannelVisible(false);
    QCOMPARE(middle(button(edit)), QColor(Qt::white));
    // The border keeps the colour.
    const QImage image = button(edit)->grab().toImage();
    QCOMPARE(image.pixelColor(2, image.height() / 2), QColor(200, 100, 50));
    edit.setChannelColor(Qt::blue);
    QCOMPARE(middle(swatch(edit)), QColor(Qt::blue));
}

void TestPlotChannelEdit::visibleDoesNotTouchTheChannel()
{
    ZrQtBufferedChannel channel;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    QSignalSpy spy(&channel, &ZrQtBaseChannel::visibilityChanged);
    edit.setChannelVisible(!edit.channelVisible());
    edit.setChannelVisible(!edit.channelVisible());
    edit.setChannelColor(Qt::red);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(channel.lineColor(), QColor(Qt::black));
}

void TestPlotChannelEdit::couplingTakesColorAndVisibility_data()
{
    QTest::addColumn<bool>("selected");
    QTest::newRow("channel selected for display") << true;
    QTest::newRow("channel not selected for display") << false;
}

void TestPlotChannelEdit::couplingTakesColorAndVisibility()
{
    QFETCH(bool, selected);
    // The parent is not shown: what counts is what the application asked for.
    QWidget parent;
    auto *channel = new ZrQtBufferedChannel(&parent);
    channel->setLineColor(QColor(10, 20, 30, 40));
    channel->setVisible(selected);
    QVERIFY(!channel->isVisible());
    ZrQtPlotChannelEdit edit;
    edit.setChannelVisible(!selected);
    edit.setPlotChannel(channel);
    QCOMPARE(edit.channelVisible(), selected);
    QCOMPARE(edit.channelColor(), QColor(10, 20, 30, 40));
    QCOMPARE(channel->isSelectedForDisplay(), selected);
}

void TestPlotChannelEdit::couplingKeepsTheName()
{
    ZrQtBufferedChannel channel;
    channel.setName(QStringLiteral("from the channel"));
    ZrQtPlotChannelEdit edit(QStringLiteral("own"));
    edit.setPlotChannel(&channel);
    QCOMPARE(edit.channelName(), QStringLiteral("own"));
    edit.setChannelName(QStringLiteral("new"));
    QCOMPARE(channel.name(), QStringLiteral("from the channel"));
}

void TestPlotChannelEdit::clickShowsAndHidesTheChannel()
{
    QWidget parent;
    auto *channel = new ZrQtBufferedChannel(&parent);
    channel->setVisible(true);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QWidget window;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(channel);
    show(window, &edit);
    QSignalSpy spy(channel, &ZrQtBaseChannel::visibilityChanged);
    click(button(edit));
    QVERIFY(!channel->isVisible());
    QVERIFY(!channel->isSelectedForDisplay());
    QVERIFY(!edit.channelVisible());
    click(button(edit));
    QVERIFY(channel->isVisible());
    QVERIFY(edit.channelVisible());
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QCOMPARE(spy.at(1).at(0).toBool(), true);
}

void TestPlotChannelEdit::clickWithoutAChannel()
{
    QWidget window;
    ZrQtPlotChannelEdit edit;
    show(window, &edit);
    click(button(edit));
    QVERIFY(edit.channelVisible());
    click(button(edit));
    QVERIFY(!edit.channelVisible());
}

void TestPlotChannelEdit::uncoupling()
{
    ZrQtBufferedChannel channel;
    channel.setLineColor(Qt::red);
    channel.setVisible(true);
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    edit.setPlotChannel(nullptr);
    // The looks stay.
    QVERIFY(edit.channelVisible());
    QCOMPARE(edit.channelColor(), QColor(Qt::red));
    QSignalSpy spy(&channel, &ZrQtBaseChannel::visibilityChanged);
    click(button(edit));
    QVERIFY(!edit.channelVisible());
    QCOMPARE(spy.count(), 0);
    QVERIFY(channel.isVisible());
    channel.hide();
    edit.setChannelVisible(true);
    channel.show();
    channel.hide();
    QVERIFY(edit.channelVisible());
    edit.setPlotChannel(nullptr);
    QVERIFY(edit.channelVisible());
}

void TestPlotChannelEdit::couplingAnotherChannel()
{
    ZrQtBufferedChannel first;
    ZrQtBufferedChannel second;
    first.setLineColor(Qt::red);
    second.setLineColor(Qt::blue);
    first.setVisible(true);
    second.setVisible(false);
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&first);
    QVERIFY(edit.channelVisible());
    edit.setPlotChannel(&second);
    QVERIFY(!edit.channelVisible());
    QCOMPARE(edit.channelColor(), QColor(Qt::blue));
    click(button(edit));
    QVERIFY(second.isVisible());
    QVERIFY(first.isVisible());
    first.hide();
    QVERIFY(edit.channelVisible());
    second.hide();
    QVERIFY(!edit.channelVisible());
}

void TestPlotChannelEdit::couplingTheSameChannelTwice()
{
    ZrQtBufferedChannel channel;
    channel.setVisible(true);
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    edit.setPlotChannel(&channel);
    channel.hide();
    QVERIFY(!edit.channelVisible());
    edit.setPlotChannel(nullptr);
    channel.show();
    QVERIFY(!edit.channelVisible());
}

void TestPlotChannelEdit::channelShownAndHiddenElsewhere()
{
    ZrQtBufferedChannel channel;
    channel.setVisible(true);
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    channel.setVisible(false);
    QVERIFY(!edit.channelVisible());
    QVERIFY(!colorBox(edit)->isChecked());
    channel.setVisible(true);
    QVERIFY(edit.channelVisible());
    QVERIFY(colorBox(edit)->isChecked());
}

void TestPlotChannelEdit::channelHiddenWithItsWindow()
{
    QWidget parent;
    auto *channel = new ZrQtBufferedChannel(&parent);
    channel->setVisible(true);
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(channel);
    parent.show();
    QVERIFY(edit.channelVisible());
    parent.hide();
    QVERIFY(!edit.channelVisible());
    QVERIFY(channel->isSelectedForDisplay());
    parent.show();
    QVERIFY(edit.channelVisible());
}

void TestPlotChannelEdit::filtersAnyChannel()
{
    ZrQtBufferedChannel coupled;
    ZrQtBufferedChannel other;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&coupled);
    other.installEventFilter(&edit);
    other.show();
    QVERIFY(edit.channelVisible());
    other.hide();
    QVERIFY(!edit.channelVisible());
}

void TestPlotChannelEdit::ignoresOtherObjects()
{
    QWidget widget;
    ZrQtPlotChannelEdit edit;
    widget.installEventFilter(&edit);
    widget.show();
    QVERIFY(!edit.channelVisible());
    edit.setChannelVisible(true);
    widget.hide();
    QVERIFY(edit.channelVisible());
}

void TestPlotChannelEdit::filterConsumesNothing()
{
    ZrQtBufferedChannel channel;
    ZrQtPlotChannelEdit edit;
    for (QEvent::Type type : {QEvent::Show, QEvent::Hide, QEvent::Paint, QEvent::MouseButtonPress}) {
        QEvent event(type);
        QVERIFY(!edit.eventFilter(&channel, &event));
    }
}

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget)
    {
        QApplication::processEvents();
        widget->installEventFilter(this);
    }

    int count()
    {
        QApplication::processEvents();
        return m_count;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

void TestPlotChannelEdit::repaintsOnlyWhenSomethingHappens()
{
    QWidget window;
    window.resize(400, 300);
    auto *channel = new ZrQtBufferedChannel(&window);
    channel->setGeometry(200, 0, 100, 100);
    auto *edit = new ZrQtPlotChannelEdit(&window);
    edit->setGeometry(0, 0, 200, 40);
    edit->setPlotChannel(channel);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    channel->setVisible(false);
    PaintCounter paints(edit);
    channel->setVisible(true);
    QCOMPARE(paints.count(), 1);
    // A channel that shows live data does not make its control paint.
    for (int i = 0; i < 5; ++i)
        channel->repaint();
    QCOMPARE(paints.count(), 1);
    channel->hide();
    QCOMPARE(paints.count(), 2);
}

void TestPlotChannelEdit::dialogAccepted()
{
    ZrQtBufferedChannel channel;
    QWidget window;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    colorBox(edit)->show();
    show(window, &edit);
    clickColorBox(edit, [](QColorDialog *dialog) {
        dialog->setCurrentColor(QColor(12, 34, 56));
        dialog->accept();
    });
    QCOMPARE(edit.channelColor(), QColor(12, 34, 56));
    QCOMPARE(channel.lineColor(), QColor(12, 34, 56));
    QVERIFY(button(edit)->styleSheet().contains(QStringLiteral("rgb(12, 34, 56)")));
}

void TestPlotChannelEdit::dialogCancelled()
{
    ZrQtBufferedChannel channel;
    channel.setLineColor(Qt::red);
    QWidget window;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    colorBox(edit)->show();
    show(window, &edit);
    clickColorBox(edit, [](QColorDialog *dialog) {
        dialog->setCurrentColor(QColor(12, 34, 56));
        dialog->reject();
    });
    QVERIFY(!edit.channelColor().isValid());
    QVERIFY(!channel.lineColor().isValid());
    QVERIFY(button(edit)->styleSheet().contains(QStringLiteral("rgb(0, 0, 0)")));
}

void TestPlotChannelEdit::dialogWithoutAChannel()
{
    QWidget window;
    ZrQtPlotChannelEdit edit;
    colorBox(edit)->show();
    show(window, &edit);
    clickColorBox(edit, [](QColorDialog *dialog) {
        dialog->setCurrentColor(QColor(12, 34, 56));
        dialog->accept();
    });
    QCOMPARE(edit.channelColor(), QColor(12, 34, 56));
}

void TestPlotChannelEdit::dialogLooks()
{
    ZrQtPlotChannelEdit edit;
    edit.setChannelColor(Qt::red);
    QColor initial;
    bool hasParent = true;
    QString title(QStringLiteral("unknown"));
    clickColorBox(edit, [&](QColorDialog *dialog) {
        initial = dialog->currentColor();
        hasParent = dialog->parentWidget();
        title = dialog->windowTitle();
        dialog->reject();
    });
    QCOMPARE(initial, QColor(Qt::white));
    QVERIFY(!hasParent);
    // An empty title lets the dialog choose its own one.
    QCOMPARE(title, QColorDialog::tr("Select Color"));
}

void TestPlotChannelEdit::dialogLeavesTheBoxAsItWas()
{
    ZrQtBufferedChannel channel;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(&channel);
    for (bool visible : {true, false}) {
        channel.setVisible(!visible);
        channel.setVisible(visible);
        clickColorBox(edit, [](QColorDialog *dialog) { dialog->accept(); });
        QCOMPARE(colorBox(edit)->isChecked(), visible);
        QCOMPARE(edit.channelVisible(), visible);
        QCOMPARE(channel.isVisible(), visible);
    }
}

void TestPlotChannelEdit::editDeletedWhileTheDialogIsOpen()
{
    ZrQtBufferedChannel channel;
    QPointer<ZrQtPlotChannelEdit> edit = new ZrQtPlotChannelEdit;
    edit->setPlotChannel(&channel);
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer.stop();
        delete edit;
        dialog->accept();
    });
    timer.start(5);
    expectDialog();
    colorBox(*edit)->click();
    QVERIFY(!edit);
    QCOMPARE(channel.lineColor(), QColor(Qt::black));
}

void TestPlotChannelEdit::channelDeletedWhileTheDialogIsOpen()
{
    auto *channel = new ZrQtBufferedChannel;
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(channel);
    clickColorBox(edit, [&](QColorDialog *dialog) {
        delete channel;
        dialog->setCurrentColor(Qt::cyan);
        dialog->accept();
    });
    QCOMPARE(edit.channelColor(), QColor(Qt::cyan));
}

void TestPlotChannelEdit::channelDeleted()
{
    ZrQtPlotChannelEdit edit;
    {
        ZrQtBufferedChannel channel;
        channel.setVisible(true);
        edit.setPlotChannel(&channel);
    }
    QVERIFY(edit.channelVisible());
    click(button(edit));
    QVERIFY(!edit.channelVisible());
    ZrQtBufferedChannel next;
    next.setVisible(false);
    edit.setPlotChannel(&next);
    click(button(edit));
    QVERIFY(next.isVisible());
}

void TestPlotChannelEdit::editDeletedFirst()
{
    ZrQtBufferedChannel channel;
    {
        ZrQtPlotChannelEdit edit;
        edit.setPlotChannel(&channel);
    }
    channel.show();
    channel.hide();
    QVERIFY(!channel.isVisible());
}

void TestPlotChannelEdit::channelDeletedByItsSlot()
{
    QPointer<ZrQtBufferedChannel> channel = new ZrQtBufferedChannel;
    channel->setVisible(false);
    ZrQtPlotChannelEdit edit;
    edit.setPlotChannel(channel);
    connect(channel, &ZrQtBaseChannel::visibilityChanged, channel, &QObject::deleteLater);
    click(button(edit));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!channel);
    click(button(edit));
}

void TestPlotChannelEdit::stormOfEvents()
{
    std::mt19937 random(815);
    QWidget window;
    QWidget hidden;
    window.show();
    QVector<QPointer<ZrQtPlotChannelEdit>> edits(3);
    QVector<QPointer<ZrQtBufferedChannel>> channels(3);
    for (int i = 0; i < 3000; ++i) {
        auto &edit = edits[int(random() % 3)];
        auto &channel = channels[int(random() % 3)];
        if (!edit)
            edit = new ZrQtPlotChannelEdit(&window);
        if (!channel)
            channel = new ZrQtBufferedChannel(&window);
        switch (random() % 9) {
        case 0:
            edit->setPlotChannel(channel);
            break;
        case 1:
            edit->setPlotChannel(nullptr);
            break;
        case 2:
            click(button(*edit));
            break;
        case 3:
            channel->setVisible(random() % 2);
            break;
        case 4:
            window.setVisible(random() % 2);
            break;
        case 5:
            edit->setChannelColor(QColor::fromRgb(random()));
            break;
        case 6:
            if (random() % 5 == 0)
                delete channel;
            break;
        case 7:
            if (random() % 5 == 0)
                delete edit;
            break;
        case 8:
            channel->setParent(random() % 2 ? &window : &hidden);
            break;
        }
        if (i % 100 == 0)
            QApplication::processEvents();
    }
    for (const auto &channel : qAsConst(channels))
        delete channel;
    for (const auto &edit : qAsConst(edits)) {
        if (edit)
            click(button(*edit));
    }
}

QTEST_MAIN(TestPlotChannelEdit)
#include "tst_zrqtplotchanneledit.moc"
