#include "markerreadout.h"

#include "plotreadout.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

// A logarithmic axis shows samples from here on.
constexpr double kLeastPositive = std::numeric_limits<double>::denorm_min();

const QString kMinus = QStringLiteral("\u2212");
const QString kNone = QStringLiteral("\u2013");

QString tr(const char *text)
{
    return QCoreApplication::translate("MarkerReadout", text);
}

QString row(const QString &head, const QStringList &values)
{
    QString text = QStringLiteral("<tr><td>%1</td>").arg(head);
    for (const QString &value : values)
        text += QStringLiteral("<td align=\"right\">&nbsp;&nbsp;%1</td>").arg(value.toHtmlEscaped());
    return text + QStringLiteral("</tr>");
}

QString headings(const QString &title, const QStringList &texts)
{
    QString text = QStringLiteral("<tr><td><b>%1</b></td>").arg(title);
    for (const QString &heading : texts)
        text += QStringLiteral("<td align=\"right\">&nbsp;&nbsp;<b>%1</b></td>").arg(heading);
    return text + QStringLiteral("</tr>");
}

QString table(const QString &rows)
{
    return QStringLiteral("<table cellspacing=\"0\" cellpadding=\"1\">%1</table>").arg(rows);
}

/// The value of one system that is drawn where \a value of another one is.
double mapped(double value, double low, double size, double otherLow, double otherSize)
{
    const bool sameSystem = low == otherLow && size == otherSize;
    return sameSystem ? value : otherLow + (value - low) / size * otherSize;
}

class MarkerReadout
{
public:
    explicit MarkerReadout(const PlotReadout &plot)
        : m_plot(plot)
        , m_first(plot.plot()->canvas(ZrQtPlot::COSY_0))
        , m_x(plot.xText())
        , m_y(plot.yText())
    {
    }

    QString lines(const QVector<double> &positions) const;
    QString region(const ValueWindow &window) const;
    QString circle(const ValueWindow &window) const;

private:
    double xIn(const PlottedSeries &series, double x) const;
    double yIn(const PlottedSeries &series, double y) const;
    QString yText(double y) const { return Readout::positionText(m_y, position(y)); }
    QString number(double value) const { return Readout::numberText(value, m_y.numberFormat); }
    bool isLogarithmic() const { return m_y.scale == AxisScale::Logarithms; }
    /// From the value of the file to that of the canvas, and back.
    double position(double y) const { return isLogarithmic() ? std::log10(std::max(y, 0.0)) : y; }
    double valueAt(double position) const { return isLogarithmic() ? std::pow(10.0, position) : position; }

    const PlotReadout &m_plot;
    QRectF m_first;
    Readout::AxisText m_x;
    Readout::AxisText m_y;
};

double MarkerReadout::xIn(const PlottedSeries &series, double x) const
{
    const QRectF other = m_plot.plot()->canvas(series.channel->cosyX());
    return mapped(x, m_first.left(), m_first.width(), other.left(), other.width());
}

double MarkerReadout::yIn(const PlottedSeries &series, double y) const
{
    if (series.channel->cosyY() == ZrQtPlot::COSY_0)
        return y;
    const QRectF other = m_plot.plot()->canvas(series.channel->cosyY());
    return valueAt(mapped(position(y), m_first.top(), m_first.height(), other.top(), other.height()));
}

QString MarkerReadout::lines(const QVector<double> &positions) const
{
    const bool both = positions.size() == Markers::kMostLines;
    QStringList columns = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("B %1 A").arg(kMinus)};
    const auto [first, last] = m_plot.xTexts(positions.first(), positions.last());
    QStringList x = {first};
    if (both)
        x += {last, Readout::differenceText(m_x, positions.first(), positions.last())};
    QString rows = headings(tr("Lines"), columns.mid(0, x.size())) + row(tr("x"), x);

    for (const PlottedSeries &series : m_plot.series()) {
        if (!series.isShown())
            continue;
        QVector<double> values;
        QStringList texts;
        for (const double position : positions) {
            const int sample = Readout::nearestSample(series.x, series.values, xIn(series, position),
                                                      series.sorted, isLogarithmic());
            values += sample < 0 ? std::numeric_limits<double>::quiet_NaN() : series.values[sample];
            texts += sample < 0 ? kNone : number(values.last());
        }
        if (both && !std::isnan(values.first()) && !std::isnan(values.last()))
            texts += Readout::numberDifferenceText(values.first(), values.last(), m_y.numberFormat);
        rows += row(series.coloredName(), texts);
    }
    return table(rows);
}

QString MarkerReadout::region(const ValueWindow &window) const
{
    QString rows = headings(tr("Region"), {tr("Samples"), tr("Mean"), tr("Minimum"), tr("Maximum")});
    for (const PlottedSeries &series : m_plot.series()) {
        if (!series.isShown())
            continue;
        ValueWindow here = {xIn(series, window.left), xIn(series, window.right), yIn(series, window.low),
                            yIn(series, window.high)};
        if (isLogarithmic())
            here.low = std::max(here.low, kLeastPositive);
        const SampleStatistics samples = statisticsIn(series.x, series.values, series.sorted, here);
        QStringList texts = {QString::number(samples.count)};
        if (samples.count > 0)
            texts += {number(samples.mean), number(samples.minimum), number(samples.maximum)};
        rows += row(series.coloredName(), texts);
    }
    const auto [left, right] = m_plot.xTexts(window.left, window.right);
    const QString x = tr("x: %1 to %2").arg(left, right);
    const QString y
        = tr("y: %1").arg(m_plot.named(tr("%1 to %2").arg(yText(window.low), yText(window.high))));
    return table(rows) + x.toHtmlEscaped() + QStringLiteral("<br>") + y.toHtmlEscaped();
}

QString MarkerReadout::circle(const ValueWindow &window) const
{
    const double low = position(window.low);
    const double high = position(window.high);
    const double x = window.left + (window.right - window.left) / 2.0;
    const double y = low + (high - low) / 2.0;
    // A side that is not above 0 has no place on a logarithmic axis, so there is nothing in the middle.
    const bool known = std::isfinite(y);
    return table(headings(tr("Circle"), {}) + row(tr("Centre x"), {Readout::positionText(m_x, x)})
                 + row(tr("Centre y"), {known ? Readout::positionText(m_y, y) : kNone})
                 + row(tr("Radius x"), {Readout::differenceText(m_x, x, window.right)})
                 + row(tr("Radius y"), {known ? Readout::differenceText(m_y, y, high) : kNone}));
}

} // namespace

QString markerReadout(const PlotReadout &plot, const Markers &markers)
{
    const MarkerReadout readout(plot);
    QStringList parts;
    if (!markers.lines.isEmpty())
        parts += readout.lines(markers.lines);
    if (markers.region)
        parts += readout.region(*markers.region);
    if (markers.circle)
        parts += readout.circle(*markers.circle);
    if (parts.isEmpty())
        return {};
    const QString gap = QStringLiteral("</td><td width=\"32\"></td><td>");
    return QStringLiteral("<table><tr><td>%1</td></tr></table>").arg(parts.join(gap));
}
