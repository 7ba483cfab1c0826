#include "internal/ticklabels_p.h"
#include "zrqtaxis_p.h"

#include <QtCore/QDateTime>
#include <QtCore/QPointer>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <cmath>
#include <limits>

using AxisGeometry::truncated;

namespace {

constexpr double LargestNumber = std::numeric_limits<double>::max();

/// Most decimals that QDoubleSpinBox takes; more digits than a double has in any case.
constexpr int MostDecimals = 323;

QString timeDisplayFormat()
{
    return QStringLiteral("hh:mm:ss.zzz");
}

/// The date-time of an axis value, within the years that QDateTimeEdit can show.
QDateTime dateTimeAt(double milliseconds)
{
    constexpr double year100 = -59011459200000.0;
    constexpr double year9999 = 253370764800000.0;
    if (std::isnan(milliseconds))
        return QDateTime::fromMSecsSinceEpoch(0);
    return QDateTime::fromMSecsSinceEpoch(qint64(std::clamp(milliseconds, year100, year9999)));
}

/// \a value rounded by \a rounding to \a decimals; \a value itself where that is no number.
double toDecimals(double value, int decimals, double (*rounding)(double))
{
    const double factor = std::pow(10.0, decimals);
    const double rounded = rounding(factor * value) / factor;
    return std::isfinite(rounded) ? rounded : value;
}

} // namespace

void ZrQtAxisPrivate::initMinMaxEditFields()
{
    minEdit = makeEditField();
    maxEdit = makeEditField();
    using Box = QAbstractSpinBox;
    QObject::connect(minEdit.spinBox, &Box::editingFinished, q, [this] { applyMinFromEditField(false); });
    QObject::connect(maxEdit.spinBox, &Box::editingFinished, q, [this] { applyMaxFromEditField(false); });
    QObject::connect(minEdit.timeEditor, &Box::editingFinished, q, [this] { applyMinFromEditField(true); });
    QObject::connect(maxEdit.timeEditor, &Box::editingFinished, q, [this] { applyMaxFromEditField(true); });
}

ZrQtAxisEditField ZrQtAxisPrivate::makeEditField()
{
    ZrQtAxisEditField field;
    field.scene = new QGraphicsScene(q);

    // The scene takes the editors over. It and the decimals come before the range, because writing and
    // measuring numbers of 309 digits is most of what an axis costs.
    field.spinBox = new QDoubleSpinBox;
    field.spinBoxProxy = field.scene->addWidget(field.spinBox);
    field.spinBoxProxy->hide();
    field.spinBox->setDecimals(precision);
    field.spinBox->setRange(-LargestNumber, LargestNumber);
    field.spinBox->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field.spinBox->setLocale(QLocale::c());

    field.timeEditor = new QDateTimeEdit;
    field.timeEditorProxy = field.scene->addWidget(field.timeEditor);
    field.timeEditorProxy->hide();
    field.timeEditor->setDisplayFormat(timeDisplayFormat());
    field.timeEditor->setTimeSpec(Qt::LocalTime);
    // The field is as wide as a tick label: buttons would cover the milliseconds.
    field.timeEditor->setButtonSymbols(QAbstractSpinBox::NoButtons);

    field.view = new QGraphicsView(field.scene, q);
    field.view->setSceneRect(QRectF());
    field.view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    field.view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    field.view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    field.view->setStyleSheet(QStringLiteral("border: none;"));
    // A field with the focus does not follow the axis, so that it gets it from the user only, and not because
    // a window opens.
    field.view->setFocusPolicy(Qt::ClickFocus);
    field.view->hide();

    // The frame of the field leaves just the width of the text.
    for (QAbstractSpinBox *editor : {static_cast<QAbstractSpinBox *>(field.spinBox),
                                     static_cast<QAbstractSpinBox *>(field.timeEditor)}) {
        if (auto *lineEdit = editor->findChild<QLineEdit *>())
            lineEdit->setTextMargins(-3, 0, -3, 0);
    }
    return field;
}

/// The fields outlive this object: they die as children of the axis, and a field that loses the focus on that
/// way still reports.
void ZrQtAxisPrivate::releaseEditFields()
{
    for (QAbstractSpinBox *editor : editors())
        QObject::disconnect(editor, nullptr, q, nullptr);
}

std::array<QAbstractSpinBox *, 4> ZrQtAxisPrivate::editors() const
{
    return {minEdit.timeEditor, maxEdit.timeEditor, minEdit.spinBox, maxEdit.spinBox};
}

bool ZrQtAxisPrivate::editFieldsAreTurned() const
{
    return verticalXTickTexts && AxisGeometry::isHorizontal(position);
}

/// Gives all editors the size of the widest tick text and turns them as the tick texts are turned. Which
/// editor shows is decided first, because a hidden one does not report its new size to the scene.
void ZrQtAxisPrivate::updateSpinBoxDimensions()
{
    for (const ZrQtAxisEditField &field : {minEdit, maxEdit}) {
        field.spinBoxProxy->setVisible(minMaxEditable && labelFormat == ZrQtAxis::FloatingPoint);
        field.timeEditorProxy->setVisible(minMaxEditable && labelFormat == ZrQtAxis::TimePlusMs);
    }
    editMargin = minMaxEditable ? AxisGeometry::editMargin(tickTextRect.height()) : 0;
    updateSpinBoxAlignment();
    if (!minMaxEditable)
        return;

    const QSize size = AxisGeometry::editFieldSize(tickTextRect.size(), editMargin);
    const bool turned = editFieldsAreTurned();
    for (const ZrQtAxisEditField &field : {minEdit, maxEdit}) {
        for (QGraphicsProxyWidget *proxy : {field.spinBoxProxy, field.timeEditorProxy}) {
            // Fixed here and not at the editor, whose window would be told of limits that it never needs.
            proxy->setMinimumSize(size);
            proxy->setMaximumSize(size);
            proxy->resize(size);
            proxy->setRotation(turned ? -90.0 : 0.0);
        }
        field.view->resize(turned ? size.transposed() : size);
        field.scene->setSceneRect(field.scene->itemsBoundingRect());
    }
}

void ZrQtAxisPrivate::updateSpinBoxAlignment()
{
    Qt::Alignment alignment = Qt::AlignHCenter;
    if (position == Qt::LeftEdge || (position == Qt::BottomEdge && verticalXTickTexts))
        alignment = Qt::AlignRight;
    else if (position == Qt::RightEdge || (position == Qt::TopEdge && verticalXTickTexts))
        alignment = Qt::AlignLeft;
    for (QAbstractSpinBox *editor : editors())
        editor->setAlignment(alignment | Qt::AlignVCenter);
}

/// Shows, places and fills the fields for the current ticks.
void ZrQtAxisPrivate::updateEditFields()
{
    const bool shown = minMaxEditable && !tickPositions.isEmpty() && tickPositions.size() == tickTexts.size();
    minEdit.view->setVisible(shown);
    maxEdit.view->setVisible(shown);
    if (!shown)
        return;
    placeEditField(minEdit, tickPositions.constFirst());
    applyValueToEditBoxes(true, tickTexts.constFirst());
    placeEditField(maxEdit, tickPositions.constLast());
    applyValueToEditBoxes(false, tickTexts.constLast());
    keepEditFieldRanges();
}

void ZrQtAxisPrivate::placeEditField(const ZrQtAxisEditField &field, double tick)
{
    const QSize text(truncated(tickTextRect.width()), truncated(tickTextRect.height()));
    field.view->move(AxisGeometry::editFieldTopLeft(
        {position, editFieldsAreTurned(), tickTextPos, text, editMargin}, tick));
}

/// Keeps the user from typing a minimum above the maximum and the reverse. A limit never changes what a field
/// shows: times on two days, and bounds that round past each other, would otherwise fall victim to it.
void ZrQtAxisPrivate::keepEditFieldRanges()
{
    if (labelFormat == ZrQtAxis::FloatingPoint) {
        const double lowest = toDecimals(min, minEdit.spinBox->decimals(), std::ceil);
        const double highest = toDecimals(max, maxEdit.spinBox->decimals(), std::floor);
        maxEdit.spinBox->setMinimum(std::isfinite(lowest) ? std::min(lowest, maxEdit.spinBox->value())
                                                          : -LargestNumber);
        minEdit.spinBox->setMaximum(std::isfinite(highest) ? std::max(highest, minEdit.spinBox->value())
                                                           : LargestNumber);
    } else {
        minEdit.timeEditor->setMaximumTime(std::max(dateTimeAt(max).time(), minEdit.timeEditor->time()));
        maxEdit.timeEditor->setMinimumTime(std::min(dateTimeAt(min).time(), maxEdit.timeEditor->time()));
    }
}

/// While labels must not get more decimals, the axis writes those of its ends itself.
bool ZrQtAxisPrivate::writesBoundLabels() const
{
    return minMaxEditable && !allowIncreasedPrecision && q->isLabelFormatFloatingPointOrTimePlusMs();
}

/// Formats with an exponent have no edit fields, so that only plain numbers and times are written here.
QString ZrQtAxisPrivate::boundLabel(bool isMin)
{
    const double bound = isMin ? min : max;
    if (labelFormat == ZrQtAxis::TimePlusMs)
        return dateTimeAt(bound).toString(timeDisplayFormat());
    // Ties go away from zero, as in the field.
    QByteArray number = QByteArray::number(bound * unitFactor, 'f', std::clamp(precision, 0, MostDecimals));
    ZrTicks::dropMinusOfZero(number);
    QString text = QString::fromLatin1(number);
    adaptPrecisionFromTickText(isMin ? minEdit.spinBox : maxEdit.spinBox, text);
    return text;
}

/// On purpose the decimals of the minimum's field follow the labels of both ends.
void ZrQtAxisPrivate::applyValueToEditBoxes(bool isMin, const QString &text)
{
    const ZrQtAxisEditField &field = isMin ? minEdit : maxEdit;
    double value = isMin ? min : max;
    if (labelFormat == ZrQtAxis::TimePlusMs) {
        applyTime(field.timeEditor, value);
        return;
    }
    if (allowIncreasedPrecision) {
        adaptPrecisionFromTickText(minEdit.spinBox, text);
        bool isNumber = false;
        value = text.toDouble(&isNumber);
        if (!isNumber)
            return;
    }
    applyNumber(field.spinBox, value);
}

/// Leaves a field alone in which the user types. A limit of the previous range gives way.
void ZrQtAxisPrivate::applyNumber(QDoubleSpinBox *spinBox, double value)
{
    if (spinBox->hasFocus() || spinBox->value() == value || !std::isfinite(value))
        return;
    spinBox->setRange(std::min(spinBox->minimum(), value), std::max(spinBox->maximum(), value));
    spinBox->setValue(value);
}

void ZrQtAxisPrivate::applyTime(QDateTimeEdit *timeEditor, double value)
{
    const QDateTime dateTime = dateTimeAt(value);
    if (timeEditor->hasFocus() || timeEditor->dateTime() == dateTime)
        return;
    timeEditor->clearMinimumTime();
    timeEditor->clearMaximumTime();
    timeEditor->setDateTime(dateTime);
}

void ZrQtAxisPrivate::applyPrecisionToEditFields()
{
    minEdit.spinBox->setDecimals(precision);
    maxEdit.spinBox->setDecimals(precision);
}

void ZrQtAxisPrivate::adaptPrecisionFromTickText(QDoubleSpinBox *spinBox, const QString &text)
{
    const int point = text.indexOf(QLatin1Char('.'));
    const int decimals = point < 0 ? 0 : text.size() - point - 1;
    if (spinBox->decimals() != decimals)
        spinBox->setDecimals(decimals);
}

void ZrQtAxisPrivate::applyMinFromEditField(bool timeEditor)
{
    applyFromEditField(true, timeEditor);
}

void ZrQtAxisPrivate::applyMaxFromEditField(bool timeEditor)
{
    applyFromEditField(false, timeEditor);
}

/// Takes over what the user typed. Giving up the focus ends the editing a second time; that, and the end of
/// an editing that is no longer allowed, is not heard.
void ZrQtAxisPrivate::applyFromEditField(bool isMin, bool timeEditor)
{
    const ZrQtAxisEditField &field = isMin ? minEdit : maxEdit;
    const QGraphicsProxyWidget *proxy = timeEditor ? field.timeEditorProxy : field.spinBoxProxy;
    if (applyingEdit || field.view->isHidden() || !proxy->isVisible())
        return;
    const QPointer<ZrQtAxis> alive(q);
    applyingEdit = true;
    if (timeEditor) {
        handOverBound(isMin, double(field.timeEditor->dateTime().toMSecsSinceEpoch()));
        if (alive)
            clearFocusFromAbstractSpinBox(field.timeEditor);
    } else {
        handOverBound(isMin, field.spinBox->value());
        if (alive)
            clearFocusFromAbstractSpinBox(field.spinBox);
    }
    if (!alive)
        return;
    applyingEdit = false;
    // While it had the focus, the field was not told what became of the value.
    updateEditFields();
}

/// In a plot the canvas moves, which comes back through ZrQtAxis::onCanvasChanged().
void ZrQtAxisPrivate::handOverBound(bool isMin, double value)
{
    auto *plot = qobject_cast<ZrQtPlot *>(q->parent());
    if (!plot) {
        q->setMinMax(isMin ? value : min, isMin ? max : value);
        return;
    }
    const double edge = value - axisOffset;
    if (isVertical() && isMin)
        plot->setMinY(edge, cosy);
    else if (isVertical())
        plot->setMaxY(edge, cosy);
    else if (isMin)
        plot->setMinX(edge, cosy);
    else
        plot->setMaxX(edge, cosy);
}

/// On purpose pieces are only ever appended: the last one counts, and what the application set is kept.
void ZrQtAxisPrivate::appendStyle(const QString &piece)
{
    for (QAbstractSpinBox *editor : editors())
        editor->setStyleSheet(editor->styleSheet() + piece);
}

/// Returns true if \a spinBox had another font.
bool ZrQtAxisPrivate::setFontForMinMaxSpinBox(QAbstractSpinBox *spinBox, const QFont &font)
{
    if (spinBox->font() == font)
        return false;
    spinBox->setFont(font);
    // A font has its size in points or in pixels; the other one is -1, which is no valid style.
    const QString size = font.pointSize() > 0 ? QStringLiteral("font-size: %1pt;").arg(font.pointSize())
                                              : QStringLiteral("font-size: %1px;").arg(font.pixelSize());
    spinBox->setStyleSheet(spinBox->styleSheet() + size);
    return true;
}

bool ZrQtAxisPrivate::setFontForEditFields(const QFont &font)
{
    bool changed = false;
    for (QAbstractSpinBox *editor : editors())
        changed = setFontForMinMaxSpinBox(editor, font) || changed;
    return changed;
}

void ZrQtAxisPrivate::clearFocusFromAbstractSpinBox(QAbstractSpinBox *spinBox)
{
    spinBox->clearFocus();
    if (auto *lineEdit = spinBox->findChild<QLineEdit *>())
        lineEdit->deselect();
}

bool ZrQtAxisPrivate::cursorAboveEditField(const QPoint &globalPos) const
{
    const auto isAbove = [&](const QGraphicsView *view) {
        return !view->isHidden() && QRect(q->mapToGlobal(view->pos()), view->size()).contains(globalPos);
    };
    return isAbove(minEdit.view) || isAbove(maxEdit.view);
}
