#include "hostileproperties.h"
#include "plotstage.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "shared/mouseprobe.h"

#include <QtWidgets/QApplication>

namespace {

/// Canvases and extents stay as the checks of a tame run expect them.
bool changesCanvas(const QMetaProperty &property)
{
    const QByteArray name(property.name());
    return name.startsWith("canvas") || name == "initialCanvas" || name == "useForScaling";
}

} // namespace

QWidget *PlotStage::newThing(QWidget *parent)
{
    switch (m_input.below(6)) {
    case 0: {
        auto *axis = new ZrQtAxis(parent);
        const Qt::Edge edges[] = {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge};
        axis->setPosition(m_input.anyOf(edges));
        axis->setUseForGrid(true);
        return axis;
    }
    case 1:
        return new ZrQtPlotChannel(parent);
    case 2:
        return new ZrQtPlotSlider(parent);
    case 3: {
        auto *edit = new ZrQtPlotChannelEdit(parent);
        edit->setPlotChannel(anyThing<ZrQtBaseChannel>());
        return edit;
    }
    default: {
        auto *channel = new ZrQtBufferedChannel(parent);
        channel->setData({value(), value()}, {value(), value()});
        return channel;
    }
    }
}

void PlotStage::createThing()
{
    if (m_things.size() >= mostThings)
        delete m_things.takeFirst();
    QWidget *made = newThing(m_input.flag() ? plot() : nullptr);
    m_things.append(made);
    if (m_input.flag())
        made->show();
}

void PlotStage::addThing()
{
    QWidget *added = thing();
    OpenPlot *to = plot();
    if (auto *axis = qobject_cast<ZrQtAxis *>(added))
        to->addAxis(axis);
    else if (auto *channel = qobject_cast<ZrQtBaseChannel *>(added))
        to->addChannel(channel);
    else if (auto *slider = qobject_cast<ZrQtPlotSlider *>(added))
        to->addSlider(slider);
    else
        to->addCustomWidget(added);
    if (added && m_input.flag())
        added->show();
}

void PlotStage::removeThing()
{
    QWidget *removed = thing();
    OpenPlot *from = plot();
    from->removeAxis(qobject_cast<ZrQtAxis *>(removed));
    from->removeChannel(qobject_cast<ZrQtBaseChannel *>(removed));
    from->removeSlider(qobject_cast<ZrQtPlotSlider *>(removed));
    from->removeCustomWidget(removed);
}

void PlotStage::deleteThing()
{
    QWidget *dying = thing();
    if (dying && m_input.flag())
        dying->deleteLater();
    else
        delete dying;
}

void PlotStage::setPlotProperty()
{
    setHostileProperty(plot(), m_input, m_tame ? changesCanvas : nullptr);
}

void PlotStage::setThingProperty()
{
    if (QWidget *target = thing())
        setHostileProperty(target, m_input, m_tame ? changesCanvas : nullptr);
}

void PlotStage::setCanvas()
{
    OpenPlot *target = plot();
    const Cosy cosy = system();
    switch (m_tame ? 0 : m_input.below(7)) {
    case 1:
        target->setMinX(value(), cosy);
        break;
    case 2:
        target->setMaxX(value(), cosy);
        break;
    case 3:
        target->setMinY(value(), cosy);
        break;
    case 4:
        target->setMaxY(value(), cosy);
        break;
    case 5:
        target->setInitialCanvasWidth(value());
        break;
    case 6:
        target->setCanvasToInitialWidth(cosy);
        break;
    default:
        target->setCanvas(rect(), cosy);
        break;
    }
}

void PlotStage::setScaling()
{
    OpenPlot *target = plot();
    const auto mode = ZrQtPlot::ScalingMode(m_input.flag() ? 1 << m_input.below(5) : m_input.integer());
    switch (m_input.below(m_tame ? 3 : 6)) {
    case 0:
        target->setScaling(mode, system());
        break;
    case 1: {
        const Cosy cosy = system();
        target->setScalingX(mode, cosy, m_input.flag());
        break;
    }
    case 2: {
        const Cosy cosy = system();
        target->setScalingY(mode, cosy, m_input.flag());
        break;
    }
    case 3:
        target->setKeepOldBoundingRectWidthTolerance(value());
        break;
    case 4:
        target->setKeepOldBoundingRectHeightTolerance(value());
        break;
    default:
        target->setBoundingRectReduceUpdateInterval(m_input.integer());
        break;
    }
}

void PlotStage::setPlotSwitches()
{
    OpenPlot *target = plot();
    switch (m_input.below(6)) {
    case 0:
        target->setControlChannelUpdatesViaPlot(m_input.flag());
        break;
    case 1:
        target->setPlotUpdateRestrictions(ZrQtPlot::PlotUpdateRestrictions(m_input.integer()));
        break;
    case 2:
        target->setLegendAlignment(Qt::Alignment(m_input.integer()));
        break;
    case 3: {
        const QString text = QString::fromLatin1(m_input.text(300));
        target->registerHoverCallback([text](double, double) { return text; });
        break;
    }
    case 4:
        target->setCustomCursor(Qt::WaitCursor, ZrQtPlot::Interaction(m_input.below(6)));
        break;
    default:
        target->setCursorShift({m_input.integer() / 2, m_input.integer() / 2});
        break;
    }
}

void PlotStage::connectSliders()
{
    OpenPlot *target = plot();
    auto *slider = anyThing<ZrQtPlotSlider>();
    switch (m_input.below(4)) {
    case 0:
        target->disconnectSlider();
        break;
    case 1:
        if (slider) {
            const QRectF canvas = rect();
            slider->onMasterCanvasChanged(canvas, system());
        }
        break;
    case 2:
        if (slider) {
            const QRectF canvas = rect();
            slider->onSlaveCanvasChanged(canvas, system());
        }
        break;
    default:
        // A plot that is its own slave shows what it shows: nothing that an application wants.
        if (slider && slider->parent() != target)
            target->connectSlider(slider);
        break;
    }
}

void PlotStage::feedChannel()
{
    if (auto *editable = m_input.flag() ? anyThing<ZrQtPlotChannel>() : nullptr) {
        feedPlotChannel(editable);
        return;
    }
    auto *channel = anyThing<ZrQtBufferedChannel>();
    if (!channel)
        return;
    const QVector<QPointF> points = several<QPointF>([this] { return point(); });
    const auto number = [this] { return value(); };
    switch (m_input.below(m_tame ? 4 : 6)) {
    case 0:
        channel->setData(points);
        break;
    case 1: {
        const QVector<double> x = several<double>(number);
        channel->setData(x, several<double>(number));
        break;
    }
    case 2: {
        const QVector<double> y = several<double>(number);
        const QPointF startAndStep = point();
        channel->setData(y, startAndStep.x(), startAndStep.y());
        break;
    }
    case 3:
        channel->clear();
        break;
    case 4:
        channel->setData(points, rect());
        break;
    default:
        channel->setBoundingRect(rect());
        break;
    }
}

/// More points than pixels, drawn in either way.
void PlotStage::feedLongSeries()
{
    auto *channel = anyThing<ZrQtBufferedChannel>();
    if (!channel)
        return;
    channel->setDataReduction(m_input.flag());
    QVector<QPointF> points(1 << m_input.below(13));
    const QPointF start = point();
    const QPointF step = point() / 100.0;
    const int period = 1 + m_input.below(64);
    for (int i = 0; i < points.size(); ++i)
        points[i] = {start.x() + i * step.x(), start.y() + (i % period) * step.y()};
    if (!m_tame) {
        for (int i = period; i < points.size(); i += period)
            points[i] = point();
    }
    channel->setData(points);
}

/// What a channel is drawn with: values that show, unlike those of a hostile property.
void PlotStage::styleChannel()
{
    auto *channel = anyThing<ZrQtBaseChannel>();
    if (!channel)
        return;
    channel->setLineStyle(Qt::PenStyle(m_input.below(6)));
    channel->setLineWidth(m_input.below(8));
    channel->setPointStyle(ZrQtBaseChannel::PointStyle(m_input.below(5)));
    channel->setPointSize(m_input.below(16));
    channel->setFillStyle(Qt::BrushStyle(m_input.below(15)));
    channel->setFillColor(QColor::fromRgba(m_input.raw<QRgb>()));
    channel->setLineColor(QColor::fromRgba(m_input.raw<QRgb>()));
    channel->setAntialiasing(m_input.flag());
}

void PlotStage::feedPlotChannel(ZrQtPlotChannel *channel)
{
    const auto makeRect = [this] { return rect(); };
    const auto makeLine = [this] { return QLineF{point(), point()}; };
    channel->setEditable(true);
    switch (m_input.below(7)) {
    case 0:
        channel->setPoints(several<QPointF>([this] { return point(); }));
        break;
    case 1:
        channel->setRectangles(several<QRectF>(makeRect));
        break;
    case 2:
        channel->setCircles(several<QRectF>(makeRect));
        break;
    case 3:
        channel->setLines(several<QLineF>(makeLine));
        break;
    case 4:
        channel->setLineSegments(several<QLineF>(makeLine));
        break;
    case 5:
        m_feature = std::make_unique<Feature>(rect());
        channel->setCustomFeature(m_feature.get());
        break;
    default:
        channel->clear();
        break;
    }
}

void PlotStage::changeAxis()
{
    auto *axis = anyThing<ZrQtAxis>();
    if (!axis)
        return;
    switch (m_input.below(4)) {
    case 0: {
        const double min = m_input.real();
        axis->setMinMax(min, m_input.real());
        break;
    }
    case 1: {
        const double min = m_input.real();
        axis->setDrawMinMax(min, m_input.real());
        break;
    }
    case 2:
        axis->onCanvasChanged({m_input.real(), m_input.real(), m_input.real(), m_input.real()}, axis->cosy());
        break;
    default:
        axis->updateAxis();
        break;
    }
}

void PlotStage::changeChannel()
{
    auto *channel = anyThing<ZrQtBaseChannel>();
    if (!channel)
        return;
    switch (m_input.below(4)) {
    case 0:
        channel->setVisible(m_input.flag());
        break;
    case 1: {
        const auto direction = ZrQtPlot::PlotAxis(m_input.below(4));
        const Cosy cosy = system();
        channel->onAxisInverted(direction, cosy, m_input.flag());
        break;
    }
    case 2:
        channel->mapToPixel({m_input.real(), m_input.real()});
        channel->mapToData({m_input.integer(), m_input.integer()});
        break;
    default: {
        const QRectF canvas{m_input.real(), m_input.real(), m_input.real(), m_input.real()};
        channel->onCanvasChanged(canvas, system());
        break;
    }
    }
}

void PlotStage::changePlotWidget()
{
    OpenPlot *target = plot();
    switch (m_input.below(6)) {
    case 0:
        target->resize(QSize{m_input.below(256) * 4, m_input.below(256) * 4});
        break;
    case 1:
        target->setVisible(m_input.flag());
        break;
    case 2:
        target->setParent(&m_windows[m_input.below(2)]);
        target->show();
        break;
    case 3: {
        QFont font = target->font();
        font.setPixelSize(1 + m_input.below(256));
        target->setFont(font);
        break;
    }
    case 4:
        leave(target);
        break;
    default:
        if (QWidget *child = thing())
            child->setVisible(m_input.flag());
        break;
    }
}

/// Time passes and everything is painted.
void PlotStage::processEvents()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}
