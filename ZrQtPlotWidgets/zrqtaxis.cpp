#include "zrqtaxis.h"

#include "zrqtaxis_p.h"
#include "zrqtmakeaxis.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtGui/QShowEvent>

namespace {

using Relayout = ZrQtAxisPrivate::Relayout;

/// Stores \a value and returns true if it is another one than before.
template <typename T> bool store(T &field, const T &value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace

ZrQtAxisPrivate::ZrQtAxisPrivate(ZrQtAxis *axis)
    : q(axis)
    , engine(QSharedPointer<ZrQtMakeAxis>::create())
{
    axisLabel.setTextFormat(Qt::PlainText);
}

ZrQtAxisPrivate::ZrQtAxisPrivate(const ZrQtAxisPrivate &other) = default;

ZrQtAxisPrivate::~ZrQtAxisPrivate() = default;

ZrQtAxis::ZrQtAxis(QWidget *parent)
    : QWidget(nullptr)
    , m_d(new ZrQtAxisPrivate(this))
{
    // Makes the signal usable by name and across threads, which moc alone does not.
    qRegisterMetaType<ZrQtPlot::PlotAxis>();
    qRegisterMetaType<ZrQtPlot::CoordinateSystem>();
    m_d->init();
    // Only now the parent can see that its new child is an axis.
    if (parent)
        setParent(parent);
}

ZrQtAxis::~ZrQtAxis()
{
    Q_D(ZrQtAxis);
    d->releaseEditFields();
}

double ZrQtAxis::min() const
{
    Q_D(const ZrQtAxis);
    return d->min;
}

double ZrQtAxis::max() const
{
    Q_D(const ZrQtAxis);
    return d->max;
}

void ZrQtAxis::setMin(double minimum)
{
    setMinMax(minimum, max());
}

void ZrQtAxis::setMax(double maximum)
{
    setMinMax(min(), maximum);
}

void ZrQtAxis::setMinMax(double minimum, double maximum)
{
    Q_D(ZrQtAxis);
    const double lo = minimum + d->axisOffset;
    const double hi = maximum + d->axisOffset;
    if (lo == d->min && hi == d->max)
        return;
    d->min = lo;
    d->max = hi;
    d->updateDrawMinMax();
}

double ZrQtAxis::unitFactor() const
{
    Q_D(const ZrQtAxis);
    return d->unitFactor;
}

void ZrQtAxis::setUnitFactor(double factor)
{
    Q_D(ZrQtAxis);
    if (store(d->unitFactor, factor))
        d->updatePositions(Relayout::WhenResized);
}

double ZrQtAxis::axisOffset() const
{
    Q_D(const ZrQtAxis);
    return d->axisOffset;
}

void ZrQtAxis::setAxisOffset(double offset)
{
    Q_D(ZrQtAxis);
    d->axisOffset = offset;
    d->updatePositions(Relayout::None);
}

bool ZrQtAxis::drawingRangeLimited() const
{
    Q_D(const ZrQtAxis);
    return d->drawingRangeLimited;
}

void ZrQtAxis::setDrawingRangeLimited(bool limited)
{
    Q_D(ZrQtAxis);
    const QPointer<ZrQtAxis> alive(this);
    if (limited)
        setMinMaxEditable(false);
    if (!alive)
        return;
    d->drawingRangeLimited = limited;
    d->updateDrawMinMax();
}

double ZrQtAxis::drawMin() const
{
    Q_D(const ZrQtAxis);
    return d->drawMin;
}

void ZrQtAxis::setDrawMin(double minimum)
{
    setDrawMinMax(minimum, drawMax());
}

double ZrQtAxis::drawMax() const
{
    Q_D(const ZrQtAxis);
    return d->drawMax;
}

void ZrQtAxis::setDrawMax(double maximum)
{
    setDrawMinMax(drawMin(), maximum);
}

void ZrQtAxis::setDrawMinMax(double minimum, double maximum)
{
    Q_D(ZrQtAxis);
    d->drawMin = minimum;
    d->drawMax = maximum;
    d->updateDrawMinMax();
}

Qt::Edge ZrQtAxis::position() const
{
    Q_D(const ZrQtAxis);
    return d->position;
}

void ZrQtAxis::setPosition(Qt::Edge edge)
{
    Q_D(ZrQtAxis);
    if (!store(d->position, edge))
        return;
    // On purpose a single edge leaves the policy alone: the layout fixes width or height itself.
    const int edges = edge;
    if ((edges & (Qt::LeftEdge | Qt::RightEdge)) && (edges & (Qt::TopEdge | Qt::BottomEdge)))
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::MinimumExpanding);
    d->updatePositions(Relayout::Always);
}

ZrQtPlot::CoordinateSystem ZrQtAxis::cosy() const
{
    Q_D(const ZrQtAxis);
    return d->cosy;
}

void ZrQtAxis::setCosy(ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtAxis);
    d->cosy = cosy;
}

bool ZrQtAxis::inverted() const
{
    Q_D(const ZrQtAxis);
    return d->inverted;
}

void ZrQtAxis::setInverted(bool inverted)
{
    Q_D(ZrQtAxis);
    if (!store(d->inverted, inverted))
        return;
    const QPointer<ZrQtAxis> alive(this);
    d->updatePositions(Relayout::WhenResized);
    if (alive) {
        const auto axis = AxisGeometry::isHorizontal(d->position) ? ZrQtPlot::Axis_X : ZrQtPlot::Axis_Y;
        Q_EMIT axisInverted(axis, d->cosy, inverted);
    }
}

bool ZrQtAxis::logarithmic() const
{
    Q_D(const ZrQtAxis);
    return d->logarithmic;
}

void ZrQtAxis::setLogarithmic(bool logarithmic)
{
    Q_D(ZrQtAxis);
    if (store(d->logarithmic, logarithmic))
        d->updateParameters();
}

bool ZrQtAxis::useForGrid() const
{
    Q_D(const ZrQtAxis);
    return d->useForGrid;
}

void ZrQtAxis::setUseForGrid(bool use)
{
    Q_D(ZrQtAxis);
    d->useForGrid = use;
}

int ZrQtAxis::minMarginLow() const
{
    Q_D(const ZrQtAxis);
    return d->minMarginLow;
}

int ZrQtAxis::minMarginHigh() const
{
    Q_D(const ZrQtAxis);
    return d->minMarginHigh;
}

int ZrQtAxis::marginLow() const
{
    Q_D(const ZrQtAxis);
    return d->marginLow;
}

void ZrQtAxis::setMarginLow(int margin)
{
    Q_D(ZrQtAxis);
    if (margin == d->marginLow)
        return;
    d->marginLow = qMax(margin, d->minMarginLow);
    d->updatePositions(Relayout::WhenResized);
}

int ZrQtAxis::marginHigh() const
{
    Q_D(const ZrQtAxis);
    return d->marginHigh;
}

void ZrQtAxis::setMarginHigh(int margin)
{
    Q_D(ZrQtAxis);
    if (margin == d->marginHigh)
        return;
    d->marginHigh = qMax(margin, d->minMarginHigh);
    d->updatePositions(Relayout::WhenResized);
}

bool ZrQtAxis::isStandalone() const
{
    const QObject *owner = parent();
    return !owner || qstrcmp(owner->metaObject()->className(), "ZrQtPlot") != 0;
}

int ZrQtAxis::maxTicks() const
{
    Q_D(const ZrQtAxis);
    return d->maxTicks;
}

void ZrQtAxis::setMaxTicks(int count)
{
    Q_D(ZrQtAxis);
    if (store(d->maxTicks, count))
        d->updateParameters();
}

int ZrQtAxis::maxSubTicks() const
{
    Q_D(const ZrQtAxis);
    return d->maxSubTicks;
}

void ZrQtAxis::setMaxSubTicks(int count)
{
    Q_D(ZrQtAxis);
    if (store(d->maxSubTicks, count))
        d->updateParameters();
}

bool ZrQtAxis::equalSpaced() const
{
    Q_D(const ZrQtAxis);
    return d->equalSpaced;
}

void ZrQtAxis::setEqualSpaced(bool equal)
{
    Q_D(ZrQtAxis);
    if (store(d->equalSpaced, equal))
        d->updateParameters();
}

double ZrQtAxis::tickDistance() const
{
    Q_D(const ZrQtAxis);
    return d->tickDistance;
}

void ZrQtAxis::setTickDistance(double distance)
{
    Q_D(ZrQtAxis);
    if (!store(d->tickDistance, distance))
        return;
    d->handOverLength();
    d->updatePositions(Relayout::WhenResized);
}

double ZrQtAxis::subTickDistance() const
{
    Q_D(const ZrQtAxis);
    return d->subTickDistance;
}

void ZrQtAxis::setSubTickDistance(double distance)
{
    Q_D(ZrQtAxis);
    if (!store(d->subTickDistance, distance))
        return;
    d->handOverLength();
    d->updatePositions(Relayout::WhenResized);
}

int ZrQtAxis::tickSize() const
{
    Q_D(const ZrQtAxis);
    return d->tickSize;
}

void ZrQtAxis::setTickSize(int size)
{
    Q_D(ZrQtAxis);
    if (store(d->tickSize, size))
        d->updatePositions(Relayout::WhenResized);
}

int ZrQtAxis::subTickSize() const
{
    Q_D(const ZrQtAxis);
    return d->subTickSize;
}

void ZrQtAxis::setSubTickSize(int size)
{
    Q_D(ZrQtAxis);
    if (store(d->subTickSize, size))
        d->updatePositions(Relayout::WhenResized);
}

bool ZrQtAxis::drawAxisLine() const
{
    Q_D(const ZrQtAxis);
    return d->drawAxisLine;
}

void ZrQtAxis::setDrawAxisLine(bool draw)
{
    Q_D(ZrQtAxis);
    d->drawAxisLine = draw;
}

QVector<double> ZrQtAxis::tickPositions() const
{
    Q_D(const ZrQtAxis);
    return d->tickPositions;
}

QVector<double> ZrQtAxis::subTickPositions() const
{
    Q_D(const ZrQtAxis);
    return d->subTickPositions;
}

ZrQtAxis::LabelFormat ZrQtAxis::labelFormat() const
{
    Q_D(const ZrQtAxis);
    return d->labelFormat;
}

void ZrQtAxis::setLabelFormat(LabelFormat format)
{
    Q_D(ZrQtAxis);
    if (!store(d->labelFormat, format))
        return;
    const QPointer<ZrQtAxis> alive(this);
    if (d->minMaxEditable && !isLabelFormatFloatingPointOrTimePlusMs())
        setMinMaxEditable(false);
    else if (format == TimePlusMs)
        setTimeFormat(QStringLiteral("%hh:%mm:%ss.%Ms"));
    if (alive)
        d->updateParameters();
}

bool ZrQtAxis::isLabelFormatNonDateTime() const
{
    Q_D(const ZrQtAxis);
    return d->labelFormat == FloatingPoint || d->labelFormat == Exponential || d->labelFormat == Compact;
}

bool ZrQtAxis::isLabelFormatFloatingPointOrTimePlusMs() const
{
    Q_D(const ZrQtAxis);
    return d->labelFormat == FloatingPoint || d->labelFormat == TimePlusMs;
}

int ZrQtAxis::precision() const
{
    Q_D(const ZrQtAxis);
    return d->precision;
}

void ZrQtAxis::setPrecision(int decimals)
{
    Q_D(ZrQtAxis);
    if (!store(d->precision, decimals))
        return;
    d->applyPrecisionToEditFields();
    d->updateParameters();
}

bool ZrQtAxis::increasedPrecisionAllowed() const
{
    Q_D(const ZrQtAxis);
    return d->allowIncreasedPrecision;
}

void ZrQtAxis::setAllowIncreasedPrecision(bool allow)
{
    Q_D(ZrQtAxis);
    if (!store(d->allowIncreasedPrecision, allow))
        return;
    if (!allow)
        d->applyPrecisionToEditFields();
    d->updatePositions(Relayout::WhenResized);
}

bool ZrQtAxis::showBoundLabels() const
{
    Q_D(const ZrQtAxis);
    return d->showBoundLabels;
}

void ZrQtAxis::setShowBoundLabels(bool show)
{
    Q_D(ZrQtAxis);
    if (store(d->showBoundLabels, show))
        d->updateParameters();
}

bool ZrQtAxis::scientificExponent() const
{
    Q_D(const ZrQtAxis);
    return d->scientificExponent;
}

void ZrQtAxis::setScientificExponent(bool scientific)
{
    Q_D(ZrQtAxis);
    if (store(d->scientificExponent, scientific))
        d->updateParameters();
}

bool ZrQtAxis::equalExponent() const
{
    Q_D(const ZrQtAxis);
    return d->equalExponent;
}

void ZrQtAxis::setEqualExponent(bool equal)
{
    Q_D(ZrQtAxis);
    if (store(d->equalExponent, equal))
        d->updateParameters();
}

QString ZrQtAxis::timeFormat() const
{
    Q_D(const ZrQtAxis);
    return d->timeFormat;
}

void ZrQtAxis::setTimeFormat(const QString &format)
{
    Q_D(ZrQtAxis);
    if (!store(d->timeFormat, format))
        return;
    d->engine->setTimeFormat(format.toLatin1());
    d->updateParameters();
}

bool ZrQtAxis::verticalXTickTexts() const
{
    Q_D(const ZrQtAxis);
    return d->verticalXTickTexts;
}

void ZrQtAxis::setVerticalXTickTexts(bool vertical)
{
    Q_D(ZrQtAxis);
    if (store(d->verticalXTickTexts, vertical))
        d->updatePositions(Relayout::WhenResized);
}

bool ZrQtAxis::minMaxEditable() const
{
    Q_D(const ZrQtAxis);
    return d->minMaxEditable;
}

void ZrQtAxis::setMinMaxEditable(bool editable)
{
    Q_D(ZrQtAxis);
    if (editable && !isLabelFormatFloatingPointOrTimePlusMs()) {
        d->minMaxEditable = false;
        return;
    }
    const QPointer<ZrQtAxis> alive(this);
    if (editable && d->drawingRangeLimited) {
        d->drawingRangeLimited = false;
        d->updateDrawMinMax();
    }
    if (!alive)
        return;
    d->minMaxEditable = editable;
    d->updatePositions(Relayout::WhenResized);
}

bool ZrQtAxis::minMaxNonEditable() const
{
    return !minMaxEditable();
}

bool ZrQtAxis::minMaxEditablePropertyDesignable() const
{
    return isLabelFormatFloatingPointOrTimePlusMs();
}

QString ZrQtAxis::axisLabel() const
{
    Q_D(const ZrQtAxis);
    return d->axisLabel.text();
}

void ZrQtAxis::setAxisLabel(const QString &label)
{
    Q_D(ZrQtAxis);
    if (label == d->axisLabel.text())
        return;
    d->axisLabel.setText(label);
    d->updateAxisLabelRect();
    d->updatePositions(Relayout::WhenResized);
}

QFont ZrQtAxis::axisLabelFont() const
{
    Q_D(const ZrQtAxis);
    return d->axisLabelFont;
}

void ZrQtAxis::setAxisLabelFont(const QFont &font)
{
    Q_D(ZrQtAxis);
    if (!store(d->axisLabelFont, font))
        return;
    d->updateAxisLabelRect();
    d->updatePositions(Relayout::WhenResized);
}

bool ZrQtAxis::verticalYLabel() const
{
    Q_D(const ZrQtAxis);
    return d->verticalYLabel;
}

void ZrQtAxis::setVerticalYLabel(bool vertical)
{
    Q_D(ZrQtAxis);
    if (store(d->verticalYLabel, vertical))
        d->updatePositions(Relayout::WhenResized);
}

QColor ZrQtAxis::labelColor() const
{
    Q_D(const ZrQtAxis);
    return d->labelColor;
}

void ZrQtAxis::setLabelColor(const QColor &color)
{
    Q_D(ZrQtAxis);
    if (!store(d->labelColor, color))
        return;
    d->appendStyle(QStringLiteral("color: %1;").arg(color.name()));
    update();
}

void ZrQtAxis::updateAxis()
{
    Q_D(ZrQtAxis);
    d->updatePositions(Relayout::None);
}

QSize ZrQtAxis::minimumSizeHint() const
{
    Q_D(const ZrQtAxis);
    return d->sizeHint;
}

void ZrQtAxis::onCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtAxis);
    if (cosy != d->cosy)
        return;
    if (d->isVertical())
        setMinMax(canvas.top(), canvas.bottom());
    else
        setMinMax(canvas.left(), canvas.right());
}

void ZrQtAxis::paintEvent(QPaintEvent *)
{
    Q_D(ZrQtAxis);
    QPainter painter(this);
    d->paint(&painter);
}

void ZrQtAxis::resizeEvent(QResizeEvent *event)
{
    Q_D(ZrQtAxis);
    QWidget::resizeEvent(event);
    if (event->size() != event->oldSize())
        d->onResize();
}

void ZrQtAxis::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Q_EMIT requestUpdate();
}

void ZrQtAxis::changeEvent(QEvent *event)
{
    Q_D(ZrQtAxis);
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    const bool fieldsChanged = d->setFontForEditFields(font());
    if (fieldsChanged || d->tickLabelFont != font())
        d->updatePositions(Relayout::WhenResized);
}
