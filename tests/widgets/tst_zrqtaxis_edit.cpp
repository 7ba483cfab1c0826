#include "shared/editedaxis.h"
#include "shared/quiettest.h"

#include <QtCore/QPointer>

#include <limits>

/// When the bounds of an axis can be typed, and what becomes of what is typed.
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
