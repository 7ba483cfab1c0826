#include "plot.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

namespace comparison {

namespace {

const QString reducedMode = QStringLiteral("reduced");

class ZrPlot : public Plot
{
public:
    ZrPlot(bool reduced, Axes axes)
        : m_reduced(reduced)
    {
        // The plot leaves the range alone, also where it lies close to that of the data.
        m_plot.setDefaultScalingX(ZrQtPlot::Custom);
        m_plot.setDefaultScalingY(ZrQtPlot::Custom);
        if (axes != Axes::None) {
            addAxis(Qt::LeftEdge, axes);
            addAxis(Qt::BottomEdge, axes);
        }
        if (axes == Axes::FourNumeric || axes == Axes::FourDate) {
            addAxis(Qt::RightEdge, axes);
            addAxis(Qt::TopEdge, axes);
        }
    }

    QWidget *widget() override { return &m_plot; }

    void addSeries(const Style &style) override
    {
        auto *channel = new ZrQtBufferedChannel(&m_plot);
        channel->setDataReduction(m_reduced);
        channel->setLineColor(Qt::darkBlue);
        channel->setLineWidth(style.lineWidth);
        channel->setAntialiasing(style.antialiased);
        if (style.markers) {
            channel->setPointStyle(ZrQtBaseChannel::PointStyle_Circle);
            channel->setPointSize(5);
            channel->setPointColor(Qt::darkBlue);
        }
        m_channels.append(channel);
    }

    void setPoints(int series, const QVector<QPointF> &points) override
    {
        m_channels[series]->setData(points);
    }

    void setSamples(int series, const QVector<double> &x, const QVector<double> &y) override
    {
        m_channels[series]->setData(x, y);
    }

    void setRange(const QRectF &range) override { m_plot.setCanvas(range, ZrQtPlot::COSY_0); }

private:
    void addAxis(Qt::Edge edge, Axes axes)
    {
        auto *axis = new ZrQtAxis(&m_plot);
        axis->setPosition(edge);
        if (axes == Axes::FourDate)
            axis->setLabelFormat(ZrQtAxis::DateTime);
    }

    ZrQtPlot m_plot;
    bool m_reduced;
    QVector<ZrQtBufferedChannel *> m_channels;
};

} // namespace

QString libraryName()
{
    return QStringLiteral("ZrQtPlotWidgets");
}

QString libraryVersion()
{
    return QStringLiteral(ZRQTPLOTWIDGETS_VERSION_STR);
}

QStringList libraryModes()
{
    return {QStringLiteral("plain"), reducedMode};
}

std::unique_ptr<Plot> makePlot(const QString &mode, Axes axes)
{
    return std::make_unique<ZrPlot>(mode == reducedMode, axes);
}

} // namespace comparison
