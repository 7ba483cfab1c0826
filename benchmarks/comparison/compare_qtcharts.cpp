#include "plot.h"

#include <QtCharts/QChartView>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>
#include <QtCore/QDateTime>
#include <QtWidgets/QGraphicsLayout>

#include <algorithm>

namespace comparison {

namespace {

using namespace QtCharts;

class QtChartsPlot : public Plot
{
public:
    explicit QtChartsPlot(Axes axes)
    {
        m_view.setFrameStyle(QFrame::NoFrame);
        m_chart.legend()->hide();
        m_chart.setMargins({});
        m_chart.layout()->setContentsMargins(0.0, 0.0, 0.0, 0.0);
        m_chart.setBackgroundRoundness(0.0);
        m_chart.setBackgroundBrush(Qt::white);

        // A series needs axes for its range, seen or not.
        addAxis(Qt::AlignLeft, axes);
        addAxis(Qt::AlignBottom, axes);
        if (axes == Axes::FourNumeric || axes == Axes::FourDate) {
            addAxis(Qt::AlignRight, axes);
            addAxis(Qt::AlignTop, axes);
        }
        m_view.setChart(&m_chart);
    }

    ~QtChartsPlot() override
    {
        // The view would delete it.
        m_view.setChart(new QChart);
    }

    QWidget *widget() override { return &m_view; }

    void addSeries(const Style &style) override
    {
        QXYSeries *series = nullptr;
        if (style.markers) {
            auto *scatter = new QScatterSeries;
            scatter->setMarkerSize(5.0);
            scatter->setBrush(Qt::darkBlue);
            scatter->setPen(Qt::NoPen);
            series = scatter;
        } else {
            series = new QLineSeries;
            series->setPen(QPen(Qt::darkBlue, style.lineWidth));
        }
        m_view.setRenderHint(QPainter::Antialiasing, style.antialiased);
        m_chart.addSeries(series);
        for (QAbstractAxis *axis : m_chart.axes())
            series->attachAxis(axis);
        m_series.append(series);
    }

    void setPoints(int series, const QVector<QPointF> &points) override { m_series[series]->replace(points); }

    void setSamples(int series, const QVector<double> &x, const QVector<double> &y) override
    {
        QVector<QPointF> points(x.size());
        std::transform(x.cbegin(), x.cend(), y.cbegin(), points.begin(),
                       [](double pointX, double pointY) { return QPointF(pointX, pointY); });
        m_series[series]->replace(points);
    }

    void setRange(const QRectF &range) override
    {
        for (QAbstractAxis *axis : m_chart.axes(Qt::Horizontal))
            setRange(axis, range.left(), range.right());
        for (QAbstractAxis *axis : m_chart.axes(Qt::Vertical))
            setRange(axis, range.top(), range.bottom());
    }

private:
    void addAxis(Qt::Alignment edge, Axes axes)
    {
        QAbstractAxis *axis = nullptr;
        if (axes == Axes::FourDate) {
            auto *dates = new QDateTimeAxis;
            dates->setFormat(QStringLiteral("hh:mm"));
            axis = dates;
            // A date axis that has no range when it meets its series never shows one.
            setRange(axis, 0.0, 1e12);
        } else {
            axis = new QValueAxis;
        }
        axis->setVisible(axes != Axes::None);
        axis->setGridLineVisible(false);
        m_chart.addAxis(axis, edge);
    }

    static void setRange(QAbstractAxis *axis, double low, double high)
    {
        if (axis->type() == QAbstractAxis::AxisTypeDateTime) {
            axis->setRange(QDateTime::fromMSecsSinceEpoch(qRound64(low), Qt::UTC),
                           QDateTime::fromMSecsSinceEpoch(qRound64(high), Qt::UTC));
        } else {
            axis->setRange(low, high);
        }
    }

    QChart m_chart;
    QChartView m_view;
    QVector<QXYSeries *> m_series;
};

} // namespace

QString libraryName()
{
    return QStringLiteral("QtCharts");
}

/// QAbstractSeries::setUseOpenGL() is the one faster mode of the library. It draws into a widget of its own,
/// not into the image, and needs a graphics card.
QString libraryVersion()
{
    return QString::fromLatin1(qVersion());
}

QStringList libraryModes()
{
    return {QStringLiteral("plain")};
}

std::unique_ptr<Plot> makePlot(const QString & /*mode*/, Axes axes)
{
    return std::make_unique<QtChartsPlot>(axes);
}

} // namespace comparison
