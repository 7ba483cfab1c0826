#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "shared/quiettest.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QLineEdit>

#include <limits>

namespace {

constexpr double Hour = 3600e3;
const double Morning = double(QDateTime(QDate(2020, 5, 4), QTime(8, 0)).toMSecsSinceEpoch());

bool isVertical(Qt::Edge edge)
{
    return edge == Qt::LeftEdge || edge == Qt::RightEdge;
}

/// The edit field of one bound, as the user sees it.
struct Field
{
    explicit Field(QGraphicsView *shownBy)
        : view(shownBy)
    {
        for (QGraphicsItem *item : view->scene()->items()) {
            auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item);
            if (auto *box = qobject_cast<QDoubleSpinBox *>(proxy->widget())) {
                spinBox = box;
                spinBoxProxy = proxy;
            } else {
                timeEditor = qobject_cast<QDateTimeEdit *>(proxy->widget());
                timeEditorProxy = proxy;
            }
        }
    }

    QAbstractSpinBox *editor() const
    {
        return spinBoxProxy->isVisible() ? static_cast<QAbstractSpinBox *>(spinBox) : timeEditor;
    }

    QString text() const { return editor()->text(); }

    /// A click into the middle gives the field the focus.
    void click() const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view->viewport()->rect().center());
    }

    /// Clicks, selects everything and types \a text.
    void type(const QString &text) const
    {
        click();
        QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(view, text);
    }

    void pressReturn() const { QTest::keyClick(view, Qt::Key_Return); }

    QGraphicsView *view;
    QDoubleSpinBox *spinBox = nullptr;
    QDateTimeEdit *timeEditor = nullptr;
    QGraphicsProxyWidget *spinBoxProxy = nullptr;
    QGraphicsProxyWidget *timeEditorProxy = nullptr;
};

/// An editable axis from 0 to 10 in an active window, with another widget that can take the focus.
struct EditedAxis
{
    explicit EditedAxis(Qt::Edge edge = Qt::LeftEdge)
        : axis(new ZrQtAxis(&window))
        , other(new QLineEdit(&window))
        , min(axis->findChildren<QGraphicsView *>().at(0))
        , max(axis->findChildren<QGraphicsView *>().at(1))
    {
        window.resize(600, 500);
        other->setGeometry(500, 450, 50, 20);
        axis->setLabelFormat(ZrQtAxis::FloatingPoint);
        axis->setMinMax(0.0, 10.0);
        setPosition(edge);
        axis->setMinMaxEditable(true);
        window.show();
        QApplication::setActiveWindow(&window);
        active = QTest::qWaitForWindowActive(&window);
    }

    void setPosition(Qt::Edge edge)
    {
        axis->setPosition(edge);
        axis->resize(isVertical(edge) ? QSize(axis->width(), 400) : QSize(400, axis->height()));
        axis->setMarginLow(40);
        axis->setMarginHigh(40);
    }

    void showTimes(double from, double to)
    {
        axis->setLabelFormat(ZrQtAxis::TimePlusMs);
        axis->setMinMax(from, to);
    }

    QWidget window;
    ZrQtAxis *axis;
    QLineEdit *other;
    Field min;
    Field max;
    bool active = false;
};

void addEdges()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

} // namespace

class TestZrQtAxisEdit : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fieldsAreSetUpAndHidden();
    void formatsWithoutFields_data();
    void formatsWithoutFields();
    void propertyIsDesignableForItsFormats();
    void choosingAnotherFormatEndsEditing_data();
    void choosingAnotherFormatEndsEditing();
    void choosingTheOtherFormatSwapsEditors();
    void excludesTheDrawingRange();
    void axisGrowsByTheFrame_data() { addEdges(); }
    void axisGrowsByTheFrame();
    void fieldsCoverTheOuterLabels_data();
    void fieldsCoverTheOuterLabels();
    void turnsWithTheTickTexts();
    void alignments_data();
    void alignments();
    void fieldsShowTheBounds();
    void typedNumbersAreTakenOver_data();
    void typedNumbersAreTakenOver();
    void leavingTheFieldTakesOver();
    void typedTimesAreTakenOver();
    void axisOffsetIsAddedAgain();
    void unitFactorIsNotApplied();
    void germanProgramsStillUseThePoint();
    void nonsenseCannotBeTyped();
    void boundsCannotPassEachOther();
    void switchingOffForgetsWhatIsTyped();
    void fieldsThatVanishForgetWhatIsTyped();
    void openedWindowDoesNotEdit();
    void typingIsNotDisturbedByNewTicks();
    void fieldsHideWithoutTicks();
    void fieldsStayWithoutTicksIfPrecisionIsFixed();
    void boundLabelsWithFixedPrecision();
    void boundLabelsAreFixedNumbers_data();
    void boundLabelsAreFixedNumbers();
    void boundTimesWithFixedPrecision();
    void decimalsOfTheMinimumFollowTheLabels();
    void decimalsFollowThePrecision();
    void rangesOfNumbers();
    void rangesOfTimes();
    void timesOfTwoDaysAreShown();
    void newRangeFarAwayIsShown();
    void styleSheetsGrow();
    void fontInPixels();
    void plotMovesItsCanvas_data();
    void plotMovesItsCanvas();
    void survivesAbsurdRanges_data();
    void survivesAbsurdRanges();
    void survivesDeletionWhileEdited();
};

void TestZrQtAxisEdit::initTestCase()
{
    qRegisterMetaType<Qt::Edge>();
}

void TestZrQtAxisEdit::fieldsAreSetUpAndHidden()
{
    ZrQtAxis axis;
    const QList<QGraphicsView *> views = axis.findChildren<QGraphicsView *>();
    QCOMPARE(views.size(), 2);
    QVERIFY(!axis.minMaxEditable());
    QVERIFY(axis.minMaxNonEditable());
    for (QGraphicsView *view : views) {
        QVERIFY(view->isHidden());
        QCOMPARE(view->parentWidget(), &axis);
        QCOMPARE(view->scene()->parent(), &axis);
        QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->alignment(), Qt::AlignLeft | Qt::AlignTop);
        QCOMPARE(view->styleSheet(), QStringLiteral("border: none;"));
        const Field field(view);
        QCOMPARE(field.spinBox->minimum(), -std::numeric_limits<double>::max());
        QCOMPARE(field.spinBox->maximum(), std::numeric_limits<double>::max());
        QCOMPARE(field.spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
        QCOMPARE(field.spinBox->locale(), QLocale::c());
        QCOMPARE(field.timeEditor->displayFormat(), QStringLiteral("hh:mm:ss.zzz"));
        QCOMPARE(field.timeEditor->timeSpec(), Qt::LocalTime);
        QCOMPARE(field.spinBox->decimals(), axis.precision());
    }
}

void TestZrQtAxisEdit::formatsWithoutFields_data()
{
    QTest::addColumn<ZrQtAxis::LabelFormat>("format");
    QTest::newRow("Exponential") << ZrQtAxis::Exponential;
    QTest::newRow("Compact") << ZrQtAxis::Compact;
    QTest::newRow("DateTime") << ZrQtAxis::DateTime;
}

void TestZrQtAxisEdit::formatsWithoutFields()
{
    QFETCH(ZrQtAxis::LabelFormat, format);
    ZrQtAxis axis;
    axis.setLabelFormat(format);
    const QSize size = axis.size();
    QVERIFY(axis.setProperty("minMaxEditable", true));
    QCOMPARE(axis.property("minMaxEditable").toBool(), false);
    QCOMPARE(axis.size(), size);
    for (const QGraphicsView *view : axis.findChildren<QGraphicsView *>())
        QVERIFY(view->isHidden());
}

void TestZrQtAxisEdit::propertyIsDesignableForItsFormats()
{
    ZrQtAxis axis;
    const QMetaObject &meta = ZrQtAxis::staticMetaObject;
    const QMetaProperty property = meta.property(meta.indexOfProperty("minMaxEditable"));
    for (int format = ZrQtAxis::FloatingPoint; format <= ZrQtAxis::TimePlusMs; ++format) {
        axis.setLabelFormat(ZrQtAxis::LabelFormat(format));
        QCOMPARE(property.isDesignable(&axis),
                 format == ZrQtAxis::FloatingPoint || format == ZrQtAxis::TimePlusMs);
    }
}

void TestZrQtAxisEdit::choosingAnotherFormatEndsEditing_data()
{
    formatsWithoutFields_data();
}

void TestZrQtAxisEdit::choosingAnotherFormatEndsEditing()
{
    QFETCH(ZrQtAxis::LabelFormat, format);
    EditedAxis edited;
    QVERIFY(edited.min.view->isVisible());
    edited.axis->setLabelFormat(format);
    QCOMPARE(edited.axis->labelFormat(), format);
    QVERIFY(!edited.axis->minMaxEditable());
    QVERIFY(edited.min.view->isHidden());
    QVERIFY(edited.max.view->isHidden());
    edited.axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    QVERIFY(!edited.axis->minMaxEditable());
}

void TestZrQtAxisEdit::choosingTheOtherFormatSwapsEditors()
{
    EditedAxis edited;
    QVERIFY(edited.max.spinBoxProxy->isVisible());
    QVERIFY(!edited.max.timeEditorProxy->isVisible());
    edited.showTimes(Morning, Morning + Hour);
    QVERIFY(edited.axis->minMaxEditable());
    QVERIFY(!edited.max.spinBoxProxy->isVisible());
    QVERIFY(edited.max.timeEditorProxy->isVisible());
    QCOMPARE(edited.min.text(), QStringLiteral("08:00:00.000"));
    QCOMPARE(edited.max.text(), QStringLiteral("09:00:00.000"));
    edited.axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    QVERIFY(edited.max.spinBoxProxy->isVisible());
    QVERIFY(!edited.max.timeEditorProxy->isVisible());
}

void TestZrQtAxisEdit::excludesTheDrawingRange()
{
    EditedAxis edited;
    edited.axis->setDrawMinMax(2.0, 5.0);
    edited.axis->setDrawingRangeLimited(true);
    QVERIFY(!edited.axis->minMaxEditable());
    QVERIFY(edited.min.view->isHidden());
    const int ticks = edited.axis->tickPositions().size();
    edited.axis->setMinMaxEditable(true);
    QVERIFY(!edited.axis->drawingRangeLimited());
    QVERIFY(edited.min.view->isVisible());
    QVERIFY(edited.axis->tickPositions().size() != ticks);
    edited.axis->setDrawingRangeLimited(false);
    QVERIFY(edited.axis->minMaxEditable());
}

void TestZrQtAxisEdit::axisGrowsByTheFrame()
{
    QFETCH(Qt::Edge, edge);
    EditedAxis edited(edge);
    const int margin = qMax(3, edited.axis->fontMetrics().height() / 10);
    const int with = isVertical(edge) ? edited.axis->width() : edited.axis->height();
    QSignalSpy spy(edited.axis, &ZrQtAxis::requestUpdate);
    edited.axis->setMinMaxEditable(false);
    QCOMPARE(with - (isVertical(edge) ? edited.axis->width() : edited.axis->height()), 2 * margin);
    QCOMPARE(spy.count(), 1);
    QVERIFY(edited.min.view->isHidden());
}

void TestZrQtAxisEdit::fieldsCoverTheOuterLabels_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("turned");
    QTest::newRow("top") << Qt::TopEdge << false;
    QTest::newRow("left") << Qt::LeftEdge << false;
    QTest::newRow("right") << Qt::RightEdge << false;
    QTest::newRow("bottom") << Qt::BottomEdge << false;
    QTest::newRow("top, turned") << Qt::TopEdge << true;
    QTest::newRow("bottom, turned") << Qt::BottomEdge << true;
    QTest::newRow("vertical axes do not turn their texts") << Qt::LeftEdge << true;
}

void TestZrQtAxisEdit::fieldsCoverTheOuterLabels()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(bool, turned);
    EditedAxis edited(edge);
    edited.axis->setVerticalXTickTexts(turned);
    const bool turnedField = turned && !isVertical(edge);
    const int height = edited.axis->fontMetrics().height();
    const int width = edited.axis->fontMetrics().horizontalAdvance(QStringLiteral("10.0"));
    const int margin = qMax(3, height / 10);
    const int textAcross = isVertical(edge) || turned ? width : height;

    const QSize size(width + 2 * margin, height + 2 * margin);
    const bool outer = edge == Qt::LeftEdge || edge == Qt::TopEdge;
    const int extent = isVertical(edge) ? edited.axis->width() : edited.axis->height();
    const int tickTextPos = outer ? extent - 1 - 10 - 2 - textAcross : 13;
    const int across = tickTextPos - (outer ? (turnedField ? 2 * margin : margin) : 0);
    const int half = (isVertical(edge) || turned ? height : width) / 2 + margin;
    const auto place = [&](double tick) {
        return isVertical(edge) ? QPoint(across, int(tick) - half) : QPoint(int(tick) - half, across);
    };
    QCOMPARE(edited.min.view->pos(), place(edited.axis->tickPositions().constFirst()));
    QCOMPARE(edited.max.view->pos(), place(edited.axis->tickPositions().constLast()));
    for (const Field &field : {edited.min, edited.max}) {
        QVERIFY(field.view->isVisible());
        QCOMPARE(field.view->size(), turnedField ? size.transposed() : size);
        QCOMPARE(field.spinBox->size(), size);
        QCOMPARE(field.timeEditor->size(), size);
        QCOMPARE(field.view->sceneRect(), field.view->scene()->itemsBoundingRect());
        QCOMPARE(field.view->sceneRect().size().toSize(), field.view->size());
    }
}

void TestZrQtAxisEdit::turnsWithTheTickTexts()
{
    EditedAxis edited(Qt::BottomEdge);
    const auto rotation = [&] {
        const double turn = edited.min.spinBoxProxy->rotation();
        for (const Field &field : {edited.min, edited.max}) {
            for (const QGraphicsProxyWidget *proxy : {field.spinBoxProxy, field.timeEditorProxy}) {
                if (proxy->rotation() != turn)
                    return std::numeric_limits<double>::infinity();
            }
        }
        return turn;
    };
    QCOMPARE(rotation(), 0.0);
    edited.axis->setVerticalXTickTexts(true);
    QCOMPARE(rotation(), -90.0);
    edited.setPosition(Qt::RightEdge);
    QCOMPARE(rotation(), 0.0);
    edited.setPosition(Qt::TopEdge);
    QCOMPARE(rotation(), -90.0);
    edited.axis->setVerticalXTickTexts(false);
    QCOMPARE(rotation(), 0.0);
}

void TestZrQtAxisEdit::alignments_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("turned");
    QTest::addColumn<int>("alignment");
    QTest::newRow("left") << Qt::LeftEdge << false << int(Qt::AlignRight);
    QTest::newRow("left, texts turned") << Qt::LeftEdge << true << int(Qt::AlignRight);
    QTest::newRow("right") << Qt::RightEdge << false << int(Qt::AlignLeft);
    QTest::newRow("right, texts turned") << Qt::RightEdge << true << int(Qt::AlignLeft);
    QTest::newRow("bottom") << Qt::BottomEdge << false << int(Qt::AlignHCenter);
    QTest::newRow("bottom, texts turned") << Qt::BottomEdge << true << int(Qt::AlignRight);
    QTest::newRow("top") << Qt::TopEdge << false << int(Qt::AlignHCenter);
    QTest::newRow("top, texts turned") << Qt::TopEdge << true << int(Qt::AlignLeft);
}

void TestZrQtAxisEdit::alignments()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(bool, turned);
    QFETCH(int, alignment);
    EditedAxis edited(edge);
    edited.axis->setMinMaxEditable(false); // the fields are ready before they are shown
    edited.axis->setVerticalXTickTexts(turned);
    for (const Field &field : {edited.min, edited.max}) {
        QCOMPARE(int(field.spinBox->alignment()), alignment | Qt::AlignVCenter);
        QCOMPARE(int(field.timeEditor->alignment()), alignment | Qt::AlignVCenter);
    }
}

void TestZrQtAxisEdit::fieldsShowTheBounds()
{
    EditedAxis edited;
    QCOMPARE(edited.min.spinBox->value(), 0.0);
    QCOMPARE(edited.max.spinBox->value(), 10.0);
    QCOMPARE(edited.min.text(), QStringLiteral("0.0"));
    edited.axis->setMinMax(-3.5, 7.25);
    QCOMPARE(edited.min.spinBox->value(), -3.5);
    edited.showTimes(Morning, Morning + 0.5 * Hour);
    QCOMPARE(edited.min.text(), QStringLiteral("08:00:00.000"));
    QCOMPARE(edited.max.text(), QStringLiteral("08:30:00.000"));
}

void TestZrQtAxisEdit::typedNumbersAreTakenOver_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("turned");
    QTest::newRow("top") << Qt::TopEdge << false;
    QTest::newRow("left") << Qt::LeftEdge << false;
    QTest::newRow("right") << Qt::RightEdge << false;
    QTest::newRow("bottom") << Qt::BottomEdge << false;
    QTest::newRow("top, turned") << Qt::TopEdge << true;
    QTest::newRow("bottom, turned") << Qt::BottomEdge << true;
}

void TestZrQtAxisEdit::typedNumbersAreTakenOver()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(bool, turned);
    EditedAxis edited(edge);
    QVERIFY(edited.active);
    edited.axis->setVerticalXTickTexts(turned);

    edited.min.type(QStringLiteral("2.5"));
    QVERIFY(edited.min.spinBox->hasFocus());
    QCOMPARE(edited.axis->min(), 0.0);
    edited.min.pressReturn();
    QCOMPARE(edited.axis->min(), 2.5);
    QCOMPARE(edited.axis->max(), 10.0);
    QVERIFY(!edited.min.spinBox->hasFocus());
    QVERIFY(!edited.min.spinBox->findChild<QLineEdit *>()->hasSelectedText());

    edited.max.type(QStringLiteral("12"));
    edited.max.pressReturn();
    QCOMPARE(edited.axis->min(), 2.5);
    QCOMPARE(edited.axis->max(), 12.0);
    QVERIFY(!edited.max.spinBox->hasFocus());
}

void TestZrQtAxisEdit::leavingTheFieldTakesOver()
{
    EditedAxis edited;
    QVERIFY(edited.active);
    edited.max.type(QStringLiteral("15"));
    QCOMPARE(edited.axis->max(), 10.0);
    QTest::mouseClick(edited.other, Qt::LeftButton);
    edited.other->setFocus();
    QCOMPARE(edited.axis->max(), 15.0);
    QVERIFY(edited.other->hasFocus());
}

void TestZrQtAxisEdit::typedTimesAreTakenOver()
{
    EditedAxis edited(Qt::BottomEdge);
    edited.showTimes(Morning, Morning + Hour);
    edited.max.click();
    QVERIFY(edited.max.timeEditor->hasFocus());
    edited.max.timeEditor->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(edited.max.view, QStringLiteral("10"));
    QCOMPARE(edited.axis->max(), Morning + Hour);
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), Morning + 2.0 * Hour);
    QVERIFY(!edited.max.timeEditor->hasFocus());

    edited.min.click();
    edited.min.timeEditor->setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClicks(edited.min.view, QStringLiteral("45"));
    edited.min.pressReturn();
    QCOMPARE(edited.axis->min(), Morning + 0.75 * Hour);
    QCOMPARE(edited.axis->max(), Morning + 2.0 * Hour);
}

void TestZrQtAxisEdit::axisOffsetIsAddedAgain()
{
    EditedAxis edited;
    edited.axis->setAxisOffset(2.0);
    edited.max.type(QStringLiteral("10"));
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), 12.0);
    QCOMPARE(edited.axis->min(), 2.0);
    QCOMPARE(edited.max.spinBox->value(), 12.0);
    QCOMPARE(edited.min.spinBox->value(), 2.0);
}

void TestZrQtAxisEdit::unitFactorIsNotApplied()
{
    EditedAxis edited;
    edited.axis->setUnitFactor(1000.0);
    QCOMPARE(edited.max.spinBox->value(), 10000.0);
    edited.max.type(QStringLiteral("12000"));
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), 12000.0);
}

void TestZrQtAxisEdit::germanProgramsStillUseThePoint()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    {
        EditedAxis edited;
        QCOMPARE(edited.max.text(), QStringLiteral("10.0"));
        edited.min.type(QStringLiteral("1.5"));
        edited.min.pressReturn();
        QCOMPARE(edited.axis->min(), 1.5);
        edited.axis->setAllowIncreasedPrecision(false);
        QCOMPARE(edited.min.text(), QStringLiteral("1.5"));
    }
    QLocale::setDefault(before);
}

void TestZrQtAxisEdit::nonsenseCannotBeTyped()
{
    EditedAxis edited;
    edited.max.type(QStringLiteral("abc!"));
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), 10.0);
    edited.max.click();
    QTest::keyClick(edited.max.view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edited.max.view, Qt::Key_Delete);
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), 10.0);
    QCOMPARE(edited.axis->min(), 0.0);
}

void TestZrQtAxisEdit::boundsCannotPassEachOther()
{
    EditedAxis edited;
    edited.min.type(QStringLiteral("20"));
    edited.min.pressReturn();
    QCOMPARE(edited.axis->min(), 2.0);
    edited.max.type(QStringLiteral("1"));
    edited.max.pressReturn();
    QVERIFY(edited.axis->max() >= 2.0);
}

void TestZrQtAxisEdit::switchingOffForgetsWhatIsTyped()
{
    EditedAxis edited;
    edited.max.type(QStringLiteral("50"));
    edited.axis->setMinMaxEditable(false);
    QCOMPARE(edited.axis->max(), 10.0);
    edited.axis->setMinMaxEditable(true);
    QCOMPARE(edited.max.spinBox->value(), 10.0);
}

void TestZrQtAxisEdit::fieldsThatVanishForgetWhatIsTyped()
{
    EditedAxis edited;
    edited.max.type(QStringLiteral("50"));
    edited.axis->setMinMax(3.0, 3.0);
    QVERIFY(edited.max.view->isHidden());
    QCOMPARE(edited.axis->max(), 3.0);

    edited.axis->setMinMax(3.0, 4.0);
    edited.max.type(QStringLiteral("50"));
    edited.showTimes(Morning, Morning + Hour);
    QCOMPARE(edited.axis->max(), Morning + Hour);
}

void TestZrQtAxisEdit::openedWindowDoesNotEdit()
{
    EditedAxis edited;
    QVERIFY(edited.active);
    QVERIFY(!edited.min.spinBox->hasFocus());
    QVERIFY(!edited.max.spinBox->hasFocus());
}

void TestZrQtAxisEdit::typingIsNotDisturbedByNewTicks()
{
    EditedAxis edited;
    edited.max.type(QStringLiteral("17"));
    edited.axis->setMinMax(0.0, 11.0);
    QCOMPARE(edited.max.text(), QStringLiteral("17"));
    QCOMPARE(edited.min.spinBox->value(), 0.0);
    QTest::keyClick(edited.max.view, Qt::Key_5);
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), 175.0);
}

void TestZrQtAxisEdit::fieldsHideWithoutTicks()
{
    EditedAxis edited;
    edited.axis->setMinMax(3.0, 3.0);
    QVERIFY(edited.axis->tickPositions().isEmpty());
    QVERIFY(edited.axis->minMaxEditable());
    QVERIFY(edited.min.view->isHidden());
    QVERIFY(edited.max.view->isHidden());
    edited.axis->setMinMax(3.0, 4.0);
    QVERIFY(edited.min.view->isVisible());
    QVERIFY(edited.max.view->isVisible());

    edited.axis->setMinMaxEditable(false);
    edited.axis->setMinMax(3.0, 3.0);
    edited.axis->setMinMaxEditable(true);
    QVERIFY(edited.min.view->isHidden());
    QVERIFY(edited.max.view->isHidden());
}

void TestZrQtAxisEdit::fieldsStayWithoutTicksIfPrecisionIsFixed()
{
    EditedAxis edited(Qt::BottomEdge);
    edited.axis->setAllowIncreasedPrecision(false);
    edited.axis->setMinMax(3.0, 3.0);
    const QVector<double> ends{double(edited.axis->marginLow()),
                               double(edited.axis->width() - edited.axis->marginHigh())};
    QCOMPARE(edited.axis->tickPositions(), ends);
    QVERIFY(edited.min.view->isVisible());
    edited.max.type(QStringLiteral("5"));
    edited.max.pressReturn();
    QCOMPARE(edited.axis->max(), 5.0);
    QVERIFY(edited.axis->tickPositions().size() > 2);

    edited.axis->setMinMaxEditable(false);
    edited.axis->setMinMax(3.0, 3.0);
    QVERIFY(edited.axis->tickPositions().isEmpty());
}

void TestZrQtAxisEdit::boundLabelsWithFixedPrecision()
{
    EditedAxis edited;
    edited.axis->setAllowIncreasedPrecision(false);
    edited.axis->setPrecision(2);
    edited.axis->setMinMax(0.12345, 9.87654);
    QCOMPARE(edited.min.text(), QStringLiteral("0.12"));
    QCOMPARE(edited.max.text(), QStringLiteral("9.88"));
    edited.axis->setPrecision(0);
    QCOMPARE(edited.min.text(), QStringLiteral("0"));
    QCOMPARE(edited.max.text(), QStringLiteral("10"));
    // The labels have the width of the bounds, which the engine would have written with more decimals.
    edited.axis->setPrecision(1);
    const int margin = qMax(3, edited.axis->fontMetrics().height() / 10);
    QCOMPARE(edited.min.view->width(),
             edited.axis->fontMetrics().horizontalAdvance(QStringLiteral("0.1")) + 2 * margin);
    edited.axis->setUnitFactor(100.0);
    QCOMPARE(edited.min.view->width(),
             edited.axis->fontMetrics().horizontalAdvance(QStringLiteral("987.7")) + 2 * margin);
}

void TestZrQtAxisEdit::boundLabelsAreFixedNumbers_data()
{
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("lo");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("widest");

    QTest::newRow("negative decimals write none") << -1 << 0.0 << 0 << QStringLiteral("0");
    QTest::newRow("many negative decimals write none") << -20 << 0.0 << 0 << QStringLiteral("0");
    QTest::newRow("nothing that rounds to minus zero") << 1 << -0.04 << 1 << QStringLiteral("0.0");
    QTest::newRow("a tie, away from zero") << 0 << -2.5 << 0 << QStringLiteral("-3");
    QTest::newRow("a minus in front of the last digit") << 1 << -0.06 << 1 << QStringLiteral("-0.1");
}

void TestZrQtAxisEdit::boundLabelsAreFixedNumbers()
{
    QFETCH(int, precision);
    QFETCH(double, lo);
    QFETCH(QString, widest);
    EditedAxis edited;
    edited.axis->setAllowIncreasedPrecision(false);
    edited.axis->setPrecision(precision);
    edited.axis->setMinMax(lo, 8.0);
    QTEST(edited.min.spinBox->decimals(), "decimals");
    const int margin = qMax(3, edited.axis->fontMetrics().height() / 10);
    QCOMPARE(edited.min.view->width(), edited.axis->fontMetrics().horizontalAdvance(widest) + 2 * margin);
}

void TestZrQtAxisEdit::boundTimesWithFixedPrecision()
{
    EditedAxis edited;
    edited.axis->setAllowIncreasedPrecision(false);
    edited.showTimes(Morning + 123.0, Morning + 123.0);
    QCOMPARE(edited.axis->tickPositions().size(), 2);
    QCOMPARE(edited.min.text(), QStringLiteral("08:00:00.123"));
    const int margin = qMax(3, edited.axis->fontMetrics().height() / 10);
    QCOMPARE(edited.min.view->width(),
             edited.axis->fontMetrics().horizontalAdvance(QStringLiteral("08:00:00.123")) + 2 * margin);
}

void TestZrQtAxisEdit::decimalsOfTheMinimumFollowTheLabels()
{
    EditedAxis edited;
    const int decimalsOfMax = edited.max.spinBox->decimals();
    QCOMPARE(edited.min.spinBox->decimals(), 1);
    edited.axis->setMinMax(0.0, 0.001);
    QVERIFY(edited.min.spinBox->decimals() >= 3);
    QCOMPARE(edited.max.spinBox->decimals(), decimalsOfMax);
    edited.axis->setPrecision(0);
    edited.axis->setMinMax(0.0, 1000.0);
    QCOMPARE(edited.min.spinBox->decimals(), 0);
    QCOMPARE(edited.min.text(), QStringLiteral("0"));
}

void TestZrQtAxisEdit::decimalsFollowThePrecision()
{
    ZrQtAxis axis;
    const Field min(axis.findChildren<QGraphicsView *>().at(0));
    const Field max(axis.findChildren<QGraphicsView *>().at(1));
    axis.setPrecision(4);
    QCOMPARE(min.spinBox->decimals(), 4);
    QCOMPARE(max.spinBox->decimals(), 4);
    min.spinBox->setDecimals(7);
    max.spinBox->setDecimals(7);
    axis.setAllowIncreasedPrecision(false);
    QCOMPARE(min.spinBox->decimals(), 4);
    QCOMPARE(max.spinBox->decimals(), 4);
    min.spinBox->setDecimals(7);
    axis.setAllowIncreasedPrecision(true);
    QCOMPARE(min.spinBox->decimals(), 7);
}

void TestZrQtAxisEdit::rangesOfNumbers()
{
    EditedAxis edited;
    edited.axis->setAllowIncreasedPrecision(false);
    edited.axis->setPrecision(1);
    edited.axis->setMinMax(0.12, 9.88);
    QCOMPARE(edited.max.spinBox->minimum(), 0.2);
    QCOMPARE(edited.min.spinBox->maximum(), 9.8);
    QCOMPARE(edited.min.spinBox->minimum(), -std::numeric_limits<double>::max());
    QCOMPARE(edited.max.spinBox->maximum(), std::numeric_limits<double>::max());
}

void TestZrQtAxisEdit::rangesOfTimes()
{
    EditedAxis edited;
    edited.showTimes(Morning, Morning + Hour);
    QCOMPARE(edited.min.timeEditor->maximumTime(), QTime(9, 0));
    QCOMPARE(edited.max.timeEditor->minimumTime(), QTime(8, 0));
    edited.axis->setMinMax(Morning + 2 * Hour, Morning + 5 * Hour);
    QCOMPARE(edited.min.timeEditor->maximumTime(), QTime(13, 0));
    QCOMPARE(edited.max.timeEditor->minimumTime(), QTime(10, 0));
    QCOMPARE(edited.min.text(), QStringLiteral("10:00:00.000"));
    QCOMPARE(edited.max.text(), QStringLiteral("13:00:00.000"));
}

void TestZrQtAxisEdit::timesOfTwoDaysAreShown()
{
    EditedAxis edited;
    edited.showTimes(Morning + 15 * Hour, Morning + 17 * Hour);
    QCOMPARE(edited.min.text(), QStringLiteral("23:00:00.000"));
    QCOMPARE(edited.max.text(), QStringLiteral("01:00:00.000"));
    edited.min.click();
    edited.min.pressReturn();
    edited.max.click();
    edited.max.pressReturn();
    QCOMPARE(edited.axis->min(), Morning + 15 * Hour);
    QCOMPARE(edited.axis->max(), Morning + 17 * Hour);
}

void TestZrQtAxisEdit::newRangeFarAwayIsShown()
{
    EditedAxis edited;
    edited.axis->setMinMax(100.0, 200.0);
    QCOMPARE(edited.min.spinBox->value(), 100.0);
    QCOMPARE(edited.max.spinBox->value(), 200.0);
    edited.axis->setMinMax(-200.0, -100.0);
    QCOMPARE(edited.min.spinBox->value(), -200.0);
    QCOMPARE(edited.max.spinBox->value(), -100.0);
    edited.axis->setMinMaxEditable(false);
    edited.axis->setMinMax(3000.0, 4000.0);
    edited.axis->setMinMaxEditable(true);
    QCOMPARE(edited.min.spinBox->value(), 3000.0);
    QCOMPARE(edited.min.spinBox->maximum(), 4000.0);
}

void TestZrQtAxisEdit::styleSheetsGrow()
{
    ZrQtAxis axis;
    const Field min(axis.findChildren<QGraphicsView *>().at(0));
    const Field max(axis.findChildren<QGraphicsView *>().at(1));
    axis.setLabelColor(Qt::red);
    axis.setLabelColor(Qt::red);
    axis.setLabelColor(Qt::blue);
    QString expected = QStringLiteral("color: #ff0000;color: #0000ff;");
    const QList<QAbstractSpinBox *> editors{min.timeEditor, max.timeEditor, min.spinBox, max.spinBox};
    for (const QAbstractSpinBox *editor : editors)
        QCOMPARE(editor->styleSheet(), expected);
    QFont font(QStringLiteral("DejaVu Sans"), 17);
    axis.setFont(font);
    expected += QStringLiteral("font-size: 17pt;");
    for (const QAbstractSpinBox *editor : editors) {
        QCOMPARE(editor->styleSheet(), expected);
        QCOMPARE(editor->font().family(), font.family());
        QCOMPARE(editor->font().pointSize(), 17);
    }
    font.setPointSize(12);
    axis.setFont(font);
    expected += QStringLiteral("font-size: 12pt;");
    for (const QAbstractSpinBox *editor : editors)
        QCOMPARE(editor->styleSheet(), expected);
}

void TestZrQtAxisEdit::fontInPixels()
{
    EditedAxis edited;
    QFont font;
    font.setPixelSize(23);
    edited.axis->setFont(font);
    QCOMPARE(edited.min.spinBox->styleSheet(), QStringLiteral("font-size: 23px;"));
    QCOMPARE(edited.min.spinBox->fontMetrics().height(), edited.axis->fontMetrics().height());
    const int height = edited.axis->fontMetrics().height();
    QCOMPARE(edited.min.view->height(), height + 2 * qMax(3, height / 10));
}

void TestZrQtAxisEdit::plotMovesItsCanvas_data()
{
    addEdges();
}

void TestZrQtAxisEdit::plotMovesItsCanvas()
{
    QFETCH(Qt::Edge, edge);
    ZrQtPlot plot;
    auto *axis = new ZrQtAxis(&plot);
    axis->setPosition(edge);
    axis->setCosy(ZrQtPlot::COSY_0);
    axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    axis->setAxisOffset(2.0);
    axis->setMinMax(0.0, 10.0);
    axis->setMinMaxEditable(true);
    plot.resize(500, 500);
    plot.show();
    axis->resize(isVertical(edge) ? QSize(axis->width(), 400) : QSize(400, axis->height()));
    QApplication::setActiveWindow(&plot);
    QVERIFY(QTest::qWaitForWindowActive(&plot));
    const Field min(axis->findChildren<QGraphicsView *>().at(0));
    const Field max(axis->findChildren<QGraphicsView *>().at(1));
    QCOMPARE(axis->max(), 12.0);

    max.type(QStringLiteral("25"));
    max.pressReturn();
    const QRectF wide = plot.canvas(ZrQtPlot::COSY_0);
    QCOMPARE(isVertical(edge) ? wide.bottom() : wide.right(), 23.0);
    QCOMPARE(axis->max(), 25.0);

    min.type(QStringLiteral("5"));
    min.pressReturn();
    const QRectF narrow = plot.canvas(ZrQtPlot::COSY_0);
    QCOMPARE(isVertical(edge) ? narrow.top() : narrow.left(), 3.0);
    QCOMPARE(isVertical(edge) ? narrow.bottom() : narrow.right(), 23.0);
    QCOMPARE(axis->min(), 5.0);
    QCOMPARE(axis->max(), 25.0);
}

void TestZrQtAxisEdit::survivesAbsurdRanges_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const double largest = std::numeric_limits<double>::max();
    QTest::newRow("NaN") << notANumber << notANumber;
    QTest::newRow("infinite") << -infinity << infinity;
    QTest::newRow("whole range of double") << -largest << largest;
    QTest::newRow("huge") << 1e300 << 1e308;
    QTest::newRow("denormal") << 0.0 << 5e-324;
    QTest::newRow("reversed") << 10.0 << -10.0;
    QTest::newRow("before all calendars") << -1e300 << -1e299;
}

void TestZrQtAxisEdit::survivesAbsurdRanges()
{
    QFETCH(double, min);
    QFETCH(double, max);
    for (const bool increased : {true, false}) {
        for (const auto format : {ZrQtAxis::FloatingPoint, ZrQtAxis::TimePlusMs}) {
            // Not shown: some labels are hundreds of digits wide.
            ZrQtAxis axis;
            axis.setLabelFormat(format);
            axis.setAllowIncreasedPrecision(increased);
            axis.setMinMaxEditable(true);
            for (const int precision :
                 {1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
                axis.setPrecision(precision);
                axis.setMinMax(min, max);
                axis.updateAxis();
            }
            axis.setMinMax(0.0, 1.0);
            const Field field(axis.findChildren<QGraphicsView *>().at(0));
            QCOMPARE(field.spinBox->value(), 0.0);
        }
    }
}

void TestZrQtAxisEdit::survivesDeletionWhileEdited()
{
    EditedAxis edited;
    edited.max.type(QStringLiteral("50"));
    delete edited.axis;
    EditedAxis pressed;
    connect(pressed.axis, &ZrQtAxis::requestUpdate, pressed.axis, &QObject::deleteLater);
    const QPointer<ZrQtAxis> axis = pressed.axis;
    pressed.max.type(QStringLiteral("5000"));
    pressed.max.pressReturn();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!axis);
}

QTEST_MAIN(TestZrQtAxisEdit)

#include "tst_zrqtaxis_edit.moc"
