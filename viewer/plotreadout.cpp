#include "plotreadout.h"

#include <QtCore/QEvent>
#include <QtCore/QLineF>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

using Readout::AxisText;

namespace {

// More would not fit beside the mouse.
constexpr int kMostLines = 20;
// The name of an axis can be that of all its channels, and the values come after it.
constexpr int kLongestName = 20;
// Keeps the corner of a rubber band free.
constexpr QPoint kTooltipShift(4, 4);

/// \a end without its date if that is the one of \a begin, both in the viewer's own words.
QString withoutSameDate(const QString &begin, QString end)
{
    const int clock = begin.lastIndexOf(QLatin1Char(' ')) + 1;
    const bool bothHaveClocks = begin.contains(QLatin1Char(':')) && end.contains(QLatin1Char(':'));
    if (bothHaveClocks && end.startsWith(begin.leftRef(clock)))
        end.remove(0, clock);
    return end;
}

bool isSelecting(const ZrQtPlot *plot)
{
    return plot->interaction() == ZrQtPlot::SelectRoi || plot->interaction() == ZrQtPlot::SelectLine;
}

} // namespace

PlotReadout::PlotReadout(ZrQtPlot *plot, const Options &options)
    : QObject(plot)
    , m_plot(plot)
    , m_logY(options.logY)
    , m_invertedY(options.invertedY)
    , m_numberFormat(options.labelFormat)
    , m_timeFormat(options.timeFormat)
{
    plot->registerHoverCallback([this](double x, double) { return hoverText(x); });
    plot->setCursorShift(kTooltipShift);
    connect(plot, qOverload<QRectF>(&ZrQtPlot::selectionChanged), this, &PlotReadout::onRegionSelected);
    connect(plot, qOverload<QLineF>(&ZrQtPlot::selectionChanged), this, &PlotReadout::onLineSelected);
    plot->installEventFilter(this);
}

void PlotReadout::setAxes(AxisScale x, const QString &name)
{
    m_xScale = x;
    m_yName = name.size() > kLongestName ? name.left(kLongestName - 1) + QStringLiteral("\u2026") : name;
}

QString PlotReadout::hoverText(double x) const
{
    const QRectF first = m_plot->canvas(ZrQtPlot::COSY_0);
    const double part = (x - first.left()) / first.width();
    QString heading;
    double headingDistance = 0.0;
    QVector<QPair<QString, QString>> rows; // the x of each, and the row itself
    for (const PlottedSeries &line : m_series) {
        if (!line.isShown() || rows.size() == kMostLines)
            continue;
        const QRectF canvas = m_plot->canvas(line.channel->cosyX());
        const double here = canvas.left() + part * canvas.width();
        const int sample = Readout::nearestSample(line.x, line.values, here, line.sorted, m_logY);
        if (sample < 0)
            continue;
        const QString when = Readout::sampleText(xText(line.channel->cosyX(), line.xScale), line.x[sample]);
        const double distance = std::abs(line.x[sample] - here) / canvas.width();
        if (heading.isEmpty() || distance < headingDistance) {
            heading = when;
            headingDistance = distance;
        }
        const QString row
            = QStringLiteral("<tr><td>%1</td><td align=\"right\">&nbsp;&nbsp;%2</td>")
                  .arg(line.coloredName(), Readout::numberText(line.values[sample], m_numberFormat));
        rows.append({when, row});
    }
    if (rows.isEmpty())
        return {};
    QString text = QStringLiteral("<b>%1</b><table cellspacing=\"0\">").arg(heading.toHtmlEscaped());
    for (const auto &[when, row] : qAsConst(rows)) {
        // Files of other times, and gaps, have their nearest sample elsewhere.
        const QString note = when == heading
                                 ? QString()
                                 : QStringLiteral("<td>&nbsp;&nbsp;%1</td>").arg(when.toHtmlEscaped());
        text += row + note + QStringLiteral("</tr>");
    }
    return text + QStringLiteral("</table>");
}

bool PlotReadout::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress
        && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        onPressed();
    } else if (event->type() == QEvent::KeyPress
               && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        const bool dragging = QApplication::mouseButtons().testFlag(Qt::LeftButton);
        Q_EMIT changed(dragging && isSelecting(m_plot) ? tr("Selection cancelled") : QString());
        // Without a drag there is nothing to cancel, but the plot would drop the next selection.
        return !dragging;
    }
    return QObject::eventFilter(watched, event);
}

void PlotReadout::onPressed()
{
    if (!m_plot->isToolTipShown())
        return;
    const QPointF point = asShown(m_plot->getTooltipPosition());
    const QString x = Readout::positionText(xText(), point.x());
    Q_EMIT changed(tr("Point: %1; %2").arg(x, named(Readout::positionText(yText(), point.y()))));
}

void PlotReadout::onRegionSelected(const QRectF &region)
{
    // A click is a point.
    if (region.isNull())
        return;
    const QPointF first = asShown(region.topLeft());
    const QPointF second = asShown(region.bottomRight());
    const QPointF low(std::min(first.x(), second.x()), std::min(first.y(), second.y()));
    const QPointF high(std::max(first.x(), second.x()), std::max(first.y(), second.y()));
    const auto [xLow, xHigh] = xTexts(low.x(), high.x());
    const QString xRange = tr("%1 to %2").arg(xLow, xHigh);
    const QString yRange
        = tr("%1 to %2")
              .arg(Readout::positionText(yText(), low.y()), Readout::positionText(yText(), high.y()));
    Q_EMIT changed(tr("Region: %1; %2%3").arg(xRange, named(yRange), fromTo(low, high)));
}

void PlotReadout::onLineSelected(const QLineF &line)
{
    if (line.isNull())
        return;
    const QPointF from = asShown(line.p1());
    const QPointF to = asShown(line.p2());
    const auto [xFrom, xTo] = xTexts(from.x(), to.x());
    const QString ends = tr("(%1; %2) to (%3; %4)")
                             .arg(xFrom, Readout::positionText(yText(), from.y()), xTo,
                                  Readout::positionText(yText(), to.y()));
    Q_EMIT changed(tr("Line: %1%2").arg(named(ends), fromTo(from, to)));
}

/// The plot reports selections without regard to inverted axes.
QPointF PlotReadout::asShown(QPointF value) const
{
    const QRectF canvas = m_plot->canvas(ZrQtPlot::COSY_0);
    if (m_invertedY)
        value.setY(canvas.top() + canvas.bottom() - value.y());
    return value;
}

AxisText PlotReadout::xText(ZrQtPlot::CoordinateSystem cosy, AxisScale scale) const
{
    const QRectF canvas = m_plot->canvas(cosy);
    return {scale, NumberFormat::Compact, m_timeFormat, canvas.left(), canvas.right()};
}

AxisText PlotReadout::yText() const
{
    const QRectF canvas = m_plot->canvas(ZrQtPlot::COSY_0);
    const AxisScale scale = m_logY ? AxisScale::Logarithms : AxisScale::Numbers;
    return {scale, m_numberFormat, {}, canvas.top(), canvas.bottom()};
}

QPair<QString, QString> PlotReadout::xTexts(double from, double to) const
{
    const AxisText x = xText();
    const QString begin = Readout::positionText(x, from);
    const QString end = Readout::positionText(x, to);
    const bool ownWords = m_xScale == AxisScale::Dates && m_timeFormat.isEmpty();
    return {begin, ownWords ? withoutSameDate(begin, end) : end};
}

QString PlotReadout::fromTo(const QPointF &from, const QPointF &to) const
{
    const AxisText x = xText();
    return tr("   \u0394x %1, \u0394y %2")
        .arg(Readout::differenceText(x, from.x(), to.x()),
             Readout::differenceText(yText(), from.y(), to.y()));
}

QString PlotReadout::named(const QString &values) const
{
    return m_yName.isEmpty() ? values : QStringLiteral("%1 %2").arg(m_yName, values);
}
