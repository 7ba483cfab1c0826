#include "plot.h"

#include <qcustomplot.h>

#include <algorithm>

namespace comparison {

namespace {

const QString plainMode = QStringLiteral("plain");
const QString adaptiveMode = QStringLiteral("adaptive");
const QSize markerSize(5, 5);

/// To copy a picture is faster than to draw a disc.
QPixmap markerPixmap()
{
    QPixmap pixmap(markerSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::darkBlue);
    painter.drawEllipse(pixmap.rect());
    return pixmap;
}

class QCPComparedPlot : public Plot
{
public:
    QCPComparedPlot(bool adaptive, Axes axes)
        : m_adaptive(adaptive)
    {
        m_plot.setNotAntialiasedElements(QCP::aeAll);
        QCPAxisRect *area = m_plot.axisRect();
        if (axes == Axes::None) {
            area->setAutoMargins(QCP::msNone);
            area->setMargins({0, 0, 0, 0});
        }
        const bool four = axes == Axes::FourNumeric || axes == Axes::FourDate;
        for (QCPAxis *axis : area->axes()) {
            const bool first = axis->axisType() == QCPAxis::atLeft || axis->axisType() == QCPAxis::atBottom;
            axis->setVisible(four || (first && axes != Axes::None));
            axis->setTickLabels(true);
            axis->grid()->setVisible(false);
            if (axes == Axes::FourDate)
                axis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTickerDateTime));
        }
        m_secondsPerUnit = axes == Axes::FourDate ? 0.001 : 1.0;
    }

    QWidget *widget() override { return &m_plot; }

    void addSeries(const Style &style) override
    {
        QCPGraph *graph = m_plot.addGraph();
        graph->setPen(QPen(Qt::darkBlue, style.lineWidth));
        graph->setAdaptiveSampling(m_adaptive);
        // The documentation recommends this for pens wider than a pixel.
        m_plot.setPlottingHint(QCP::phFastPolylines, m_adaptive && style.lineWidth > 1);
        if (style.antialiased) {
            m_plot.setNotAntialiasedElement(QCP::aePlottables, false);
            m_plot.setAntialiasedElement(QCP::aePlottables);
        }
        if (style.markers) {
            graph->setLineStyle(QCPGraph::lsNone);
            graph->setScatterStyle(m_adaptive ? QCPScatterStyle(markerPixmap())
                                              : QCPScatterStyle(QCPScatterStyle::ssDisc, markerSize.width()));
        }
    }

    void setPoints(int series, const QVector<QPointF> &points) override
    {
        QVector<QCPGraphData> data(points.size());
        std::transform(points.cbegin(), points.cend(), data.begin(),
                       [](const QPointF &point) { return QCPGraphData(point.x(), point.y()); });
        m_plot.graph(series)->data()->set(data, true);
    }

    void setSamples(int series, const QVector<double> &x, const QVector<double> &y) override
    {
        m_plot.graph(series)->setData(x, y, true);
    }

    void setRange(const QRectF &range) override
    {
        for (QCPAxis *axis : m_plot.axisRect()->axes()) {
            const bool horizontal = axis->orientation() == Qt::Horizontal;
            axis->setRange((horizontal ? range.left() : range.top()) * m_secondsPerUnit,
                           (horizontal ? range.right() : range.bottom()) * m_secondsPerUnit);
        }
    }

    void replot() override { m_plot.replot(QCustomPlot::rpQueuedRefresh); }

private:
    QCustomPlot m_plot;
    bool m_adaptive;
    double m_secondsPerUnit = 1.0; // date axes count in seconds
};

} // namespace

QString libraryName()
{
    return QStringLiteral("QCustomPlot");
}

QString libraryVersion()
{
    return QStringLiteral(QCUSTOMPLOT_VERSION_STR);
}

QStringList libraryModes()
{
    return {plainMode, adaptiveMode};
}

std::unique_ptr<Plot> makePlot(const QString &mode, Axes axes)
{
    return std::make_unique<QCPComparedPlot>(mode == adaptiveMode, axes);
}

} // namespace comparison
