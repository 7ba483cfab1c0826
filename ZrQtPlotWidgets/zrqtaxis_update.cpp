#include "zrqtaxis_p.h"
#include "zrqtmakeaxis.h"

#include <QtGui/QFontMetrics>

#include <algorithm>

void ZrQtAxisPrivate::init()
{
    marginLow = fontHeight() / 2;
    marginHigh = marginLow;
    initMinMaxEditFields();
    handOverLength();
    engine->setTimeFormat(timeFormat.toLatin1());
    handOverParameters();
}

AxisGeometry::Along ZrQtAxisPrivate::along() const
{
    const bool vertical = isVertical();
    return {vertical, vertical ? q->height() : q->width(), marginLow, marginHigh};
}

int ZrQtAxisPrivate::fontHeight() const
{
    return q->fontMetrics().height();
}

void ZrQtAxisPrivate::handOverLength()
{
    engine->setLength(axisLength, tickDistance, subTickDistance);
}

void ZrQtAxisPrivate::handOverParameters()
{
    const int formatCode = labelFormat == ZrQtAxis::TimePlusMs ? ZrQtAxis::DateTime : labelFormat;
    engine->setParameters(logarithmic, maxTicks, maxSubTicks, precision, equalSpaced, formatCode,
                          scientificExponent, equalExponent, showBoundLabels, false);
}

void ZrQtAxisPrivate::updateParameters()
{
    handOverParameters();
    updatePositions(Relayout::WhenResized);
}

void ZrQtAxisPrivate::updateDrawMinMax()
{
    const double lo = drawingRangeLimited ? drawMin : min;
    const double hi = drawingRangeLimited ? drawMax : max;
    effectiveDrawMin = lo > min ? lo : min;
    effectiveDrawMax = hi > max ? max : hi;
    updatePositions(Relayout::WhenResized);
}

void ZrQtAxisPrivate::onResize()
{
    axisLength = along().length();
    handOverLength();
    updatePositions(Relayout::WhenResized);
}

/// Brings ticks, labels and size up to date. Ends with the signal, because its receivers may do anything,
/// also delete the axis.
///
/// The new size of a visible axis comes back at once, as a resize event. It must not emit the signal in the
/// middle: the steps are repeated for the new length instead.
void ZrQtAxisPrivate::updatePositions(Relayout relayout)
{
    if (updating) {
        updateAgain = true;
        return;
    }
    updating = true;
    updateAgain = false;
    bool resized = computePositions();
    // Once is enough: the length along the axis does not depend on the size across.
    if (updateAgain)
        resized = computePositions() || resized;
    updating = false;
    q->update();

    if (relayout == Relayout::Always || (relayout == Relayout::WhenResized && resized)) {
        q->updateGeometry();
        Q_EMIT q->requestUpdate();
    }
}

/// Returns true if the axis got another width or height across.
bool ZrQtAxisPrivate::computePositions()
{
    const double factor = showsTime() ? 1.0 : unitFactor;
    engine->setRange(effectiveDrawMin * factor, effectiveDrawMax * factor);
    updateTicks();
    updateTickLabels();
    updateSpinBoxDimensions();
    updateMinMargins();
    const bool resized = updateSize();
    updateEditFields();
    return resized;
}

void ZrQtAxisPrivate::updateTicks()
{
    tickPositions = engine->tickPositions();
    subTickPositions = engine->subTickPositions();
    if (!allowIncreasedPrecision) {
        const auto atOrBeyondEnds = [](double tick) { return !(tick > 0.0 && tick < 1.0); };
        subTickPositions.erase(
            std::remove_if(subTickPositions.begin(), subTickPositions.end(), atOrBeyondEnds),
            subTickPositions.end());
        if (tickPositions.isEmpty() && writesBoundLabels())
            tickPositions = {0.0, 1.0};
    }

    const auto part = AxisGeometry::untickedPart(min, max, effectiveDrawMin, effectiveDrawMax);
    const auto mapping = AxisGeometry::tickMapping(AxisGeometry::ends(along(), part), inverted);
    tickTexts.clear();
    const int last = tickPositions.size() - 1;
    for (int i = 0; i <= last; ++i) {
        const bool isBound = i == 0 || i == last;
        tickTexts.append(isBound && writesBoundLabels() ? boundLabel(i == 0)
                                                        : QString::fromLatin1(engine->label(i)));
        tickPositions[i] = mapping.pixel(tickPositions.at(i));
    }
    for (double &tick : subTickPositions)
        tick = mapping.pixel(tick);
}

void ZrQtAxisPrivate::updateTickLabels()
{
    const QFont font = q->font();
    const QFontMetrics metrics(font);
    const bool sameFont = font == tickLabelFont;
    tickLabelFont = font;
    tickLabels.resize(tickTexts.size());

    // Nobody reads more labels than there are pixels, and those of a hidden axis may change often before they
    // are seen: they are laid out when they are painted.
    const bool prepares = q->isVisible() && tickTexts.size() <= along().extent;
    int widest = 0;
    for (int i = 0; i < tickTexts.size(); ++i) {
        TickLabel &label = tickLabels[i];
        if (!sameFont || label.text.text() != tickTexts.at(i)) {
            label.text.setTextFormat(Qt::PlainText);
            label.text.setText(tickTexts.at(i));
            if (prepares)
                label.text.prepare(QTransform(), font);
            label.width = metrics.horizontalAdvance(tickTexts.at(i));
        }
        widest = qMax(widest, label.width);
    }
    tickTextRect = QRectF(0, 0, widest, metrics.height());
}

void ZrQtAxisPrivate::updateMinMargins()
{
    const double labelExtent = isVertical() ? tickTextRect.height() : tickTextRect.width();
    minMarginLow = AxisGeometry::minimumMargin(AxisGeometry::truncated(labelExtent), along().extent);
    minMarginHigh = minMarginLow;
}

/// Returns true if the axis got another width or height across.
bool ZrQtAxisPrivate::updateSize()
{
    const bool vertical = isVertical();
    if (!vertical && !AxisGeometry::isHorizontal(position))
        return false;

    const bool textAlongAcross = vertical || verticalXTickTexts;
    const bool labelAlongAcross = vertical && !verticalYLabel;
    AxisGeometry::AcrossContents contents;
    contents.textExtent
        = AxisGeometry::truncated(textAlongAcross ? tickTextRect.width() : tickTextRect.height());
    contents.labelExtent
        = AxisGeometry::truncated(labelAlongAcross ? axisLabelRect.width() : axisLabelRect.height());
    contents.tickSize = tickSize;
    contents.subTickSize = subTickSize;
    contents.editMargin = editMargin;

    const auto layout = AxisGeometry::acrossLayout(position, contents);
    axisLabelPos = layout.axisLabelPos;
    tickTextPos = layout.tickTextPos;
    axisLinePos = layout.axisLinePos;
    sizeHint = vertical ? QSize(layout.extent, -1) : QSize(-1, layout.extent);
    return fixExtent(layout.extent);
}

/// Fixes the size across the axis and frees the size along it. Limits that the application set along the axis
/// survive as long as nothing has to be fixed.
bool ZrQtAxisPrivate::fixExtent(int extent)
{
    if (isVertical()) {
        const bool resized = q->width() != extent;
        if (resized || q->minimumWidth() != extent || q->maximumWidth() != extent) {
            q->setFixedWidth(extent);
            q->setMinimumHeight(0);
            q->setMaximumHeight(QWIDGETSIZE_MAX);
        }
        return resized;
    }
    const bool resized = q->height() != extent;
    if (resized || q->minimumHeight() != extent || q->maximumHeight() != extent) {
        q->setFixedHeight(extent);
        q->setMinimumWidth(0);
        q->setMaximumWidth(QWIDGETSIZE_MAX);
    }
    return resized;
}

void ZrQtAxisPrivate::updateAxisLabelRect()
{
    axisLabelRect = QFontMetrics(axisLabelFont).boundingRect(axisLabel.text());
}
