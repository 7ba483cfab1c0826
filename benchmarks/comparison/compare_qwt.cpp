#include "plot.h"

#include <qwt_date_scale_draw.h>
#include <qwt_date_scale_engine.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>
#include <qwt_symbol.h>

namespace comparison {

namespace {

const QString filteredMode = QStringLiteral("filtered");

class QwtComparedPlot : public Plot
{
public:
    QwtComparedPlot(bool filtered, Axes axes)
        : m_filtered(filtered)
    {
        // The backing store only helps if the same picture is shown again, and costs a copy of it otherwise.
        auto *canvas = new QwtPlotCanvas(&m_plot);
        canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
        canvas->setFrameStyle(QFrame::NoFrame);
        m_plot.setCanvas(canvas);
        m_plot.setCanvasBackground(Qt::white);
        m_plot.setAutoReplot(false);
        m_plot.plotLayout()->setCanvasMargin(0);
        m_plot.plotLayout()->setAlignCanvasToScales(true);

        const bool four = axes == Axes::FourNumeric || axes == Axes::FourDate;
        m_plot.enableAxis(QwtPlot::yLeft, axes != Axes::None);
        m_plot.enableAxis(QwtPlot::xBottom, axes != Axes::None);
        m_plot.enableAxis(QwtPlot::yRight, four);
        m_plot.enableAxis(QwtPlot::xTop, four);
        for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
            if (axes == Axes::FourDate) {
                m_plot.setAxisScaleDraw(axis, new QwtDateScaleDraw(Qt::UTC));
                m_plot.setAxisScaleEngine(axis, new QwtDateScaleEngine(Qt::UTC));
            }
        }
    }

    QWidget *widget() override { return &m_plot; }

    void addSeries(const Style &style) override
    {
        auto *curve = new QwtPlotCurve;
        curve->setPen(Qt::darkBlue, style.lineWidth);
        curve->setRenderHint(QwtPlotItem::RenderAntialiased, style.antialiased);
        if (style.markers) {
            curve->setStyle(QwtPlotCurve::NoCurve);
            auto *symbol = new QwtSymbol(QwtSymbol::Ellipse, Qt::darkBlue, Qt::NoPen, QSize(5, 5));
            symbol->setCachePolicy(m_filtered ? QwtSymbol::Cache : QwtSymbol::AutoCache);
            curve->setSymbol(symbol);
        }
        // Clipping is on by default. Threads and the image buffer are for the style "Dots" alone.
        curve->setPaintAttribute(QwtPlotCurve::FilterPoints, m_filtered);
#if QWT_VERSION >= 0x060200
        curve->setPaintAttribute(QwtPlotCurve::FilterPointsAggressive, m_filtered);
#endif
        curve->attach(&m_plot);
        m_curves.append(curve);
    }

    void setPoints(int series, const QVector<QPointF> &points) override
    {
        m_curves[series]->setSamples(points);
    }

    void setSamples(int series, const QVector<double> &x, const QVector<double> &y) override
    {
        m_curves[series]->setSamples(x, y);
    }

    void setRange(const QRectF &range) override
    {
        for (const int axis : {QwtPlot::xBottom, QwtPlot::xTop})
            m_plot.setAxisScale(axis, range.left(), range.right());
        for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
            m_plot.setAxisScale(axis, range.top(), range.bottom());
    }

    void replot() override
    {
        m_plot.replot();
    }

private:
    QwtPlot m_plot;
    bool m_filtered;
    QVector<QwtPlotCurve *> m_curves;
};

} // namespace

QString libraryName()
{
    return QStringLiteral("Qwt");
}

QString libraryVersion()
{
    return QStringLiteral(QWT_VERSION_STR);
}

QStringList libraryModes()
{
    return {QStringLiteral("plain"), filteredMode};
}

std::unique_ptr<Plot> makePlot(const QString &mode, Axes axes)
{
    return std::make_unique<QwtComparedPlot>(mode == filteredMode, axes);
}

} // namespace comparison
