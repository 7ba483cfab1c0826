#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"

#include <cmath>

double bell(double x)
{
    return std::exp(-x * x * std::log(2.0)); // half of its height at x = 1
}

/// The model of a peak: a bell on a base line.
class Peak : public ZrQtPlotFeature
{
public:
    void paint(QPainter &painter, QSizeF handleSize) override
    {
        QPolygonF outline;
        for (double x = -extent; x <= extent; x += 0.1)
            outline.append({m_base.x() + x * m_flank.x(), m_base.y() + 2.0 * m_flank.y() * bell(x)});
        painter.drawPolygon(outline);
        if (handleSize.isValid()) { // the user may edit: show where the whole is grabbed
            QRectF handle(QPointF(), handleSize * 1.5);
            handle.moveCenter(boundingRectangle().center());
            painter.drawEllipse(handle);
        }
    }

    void translate(QPointF offset) override { m_base += offset; }

    QRectF boundingRectangle() override
    {
        const QPointF halfSize(extent * std::abs(m_flank.x()), m_flank.y());
        return QRectF(m_base - QPointF(halfSize.x(), 0.0), 2.0 * QSizeF(halfSize.x(), halfSize.y()))
            .normalized();
    }

    /// The point at half of the height.
    QPointF flank() const { return m_base + m_flank; }
    void setFlank(const QPointF &flank) { m_flank = flank - m_base; }

    QString report() const
    {
        return QStringLiteral("Peak at %1, height %2, full width at half maximum %3")
            .arg(m_base.x(), 0, 'f', 2)
            .arg(2.0 * m_flank.y(), 0, 'f', 2)
            .arg(2.0 * std::abs(m_flank.x()), 0, 'f', 2);
    }

private:
    static constexpr double extent = 3.0; // how far the bell is drawn, in half widths

    QPointF m_base{3.2, 1.4};
    QPointF m_flank{0.8, 2.1}; // from the base
};

ZrQtPlot *createPlot()
{
    auto *plot = new ZrQtPlot;
    for (Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(plot);
        axis->setPosition(edge);
    }
    auto *measured = new ZrQtBufferedChannel(plot);
    measured->setLineColor(Qt::darkGray);
    QVector<double> counts;
    for (int i = 0; i <= 200; ++i) {
        const double x = 0.05 * i;
        counts.append(1.0 + 5.0 * bell((x - 4.0) / 0.6) + 2.5 * bell((x - 7.0) / 0.9)
                      + 0.15 * std::sin(37.0 * x));
    }
    measured->setData(counts, 0.0, 0.05);
    return plot;
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Peak peak; // outlives the channel, which does not own it
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    ZrQtPlot *plot = createPlot();
    auto *readOut = new QLabel(peak.report());
    layout->addWidget(plot, 1);
    layout->addWidget(readOut);

    auto *channel = new ZrQtPlotChannel(plot);
    channel->setLineColor(QColor(0xd5, 0x5e, 0x00));
    channel->setFillColor(QColor(0xd5, 0x5e, 0x00, 50));
    channel->setAntialiasing(true);
    channel->setUseForScaling(false); // the canvas stays while the peak is moved
    channel->setCustomFeature(&peak);
    channel->setPoints({peak.flank()}); // a point of the channel serves as a handle of the feature
    channel->setPointsMovable(false);
    channel->setEditable(true);
    channel->setMovable(true);
    channel->setEditingNotification(ZrQtPlotChannel::NotifyAlways);

    QObject::connect(channel, &ZrQtPlotChannel::pointsEdited, readOut, [&](const QVector<QPointF> &points) {
        peak.setFlank(points.first());
        channel->setCustomFeature(&peak); // its extent is only read here
        readOut->setText(peak.report());
    });
    QObject::connect(channel, &ZrQtPlotChannel::customFeatureChanged, readOut,
                     [&] { readOut->setText(peak.report()); });

    window.resize(640, 420);
    window.show();
    return QApplication::exec();
}
