#include "shared/editedaxis.h"
#include "shared/quiettest.h"

#include <limits>

/// Where the edit fields of an axis stand, what they show and what they accept.
class TestZrQtAxisEditFields : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void axisGrowsByTheFrame_data() { addEdges(); }
    void axisGrowsByTheFrame();
    void fieldsCoverTheOuterLabels_data();
    void fieldsCoverTheOuterLabels();
    void turnsWithTheTickTexts();
    void alignments_data();
    void alignments();
    void fieldsShowTheBounds();
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
};

void TestZrQtAxisEditFields::initTestCase()
{
    qRegisterMetaType<Qt::Edge>();
}

void TestZrQtAxisEditFields::axisGrowsByTheFrame()
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

void TestZrQtAxisEditFields::fieldsCoverTheOuterLabels_data()
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

void TestZrQtAxisEditFields::fieldsCoverTheOuterLabels()
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

void TestZrQtAxisEditFields::turnsWithTheTickTexts()
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

void TestZrQtAxisEditFields::alignments_data()
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

void TestZrQtAxisEditFields::alignments()
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

void TestZrQtAxisEditFields::fieldsShowTheBounds()
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

void TestZrQtAxisEditFields::fieldsHideWithoutTicks()
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

void TestZrQtAxisEditFields::fieldsStayWithoutTicksIfPrecisionIsFixed()
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

void TestZrQtAxisEditFields::boundLabelsWithFixedPrecision()
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

void TestZrQtAxisEditFields::boundLabelsAreFixedNumbers_data()
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

void TestZrQtAxisEditFields::boundLabelsAreFixedNumbers()
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

void TestZrQtAxisEditFields::boundTimesWithFixedPrecision()
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

void TestZrQtAxisEditFields::decimalsOfTheMinimumFollowTheLabels()
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

void TestZrQtAxisEditFields::decimalsFollowThePrecision()
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

void TestZrQtAxisEditFields::rangesOfNumbers()
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

void TestZrQtAxisEditFields::rangesOfTimes()
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

void TestZrQtAxisEditFields::timesOfTwoDaysAreShown()
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

void TestZrQtAxisEditFields::newRangeFarAwayIsShown()
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

void TestZrQtAxisEditFields::styleSheetsGrow()
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

void TestZrQtAxisEditFields::fontInPixels()
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

QTEST_MAIN(TestZrQtAxisEditFields)

#include "tst_zrqtaxis_editfields.moc"
