#include "byteinput.h"
#include "hostileproperties.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot_p.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "shared/mouseprobe.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr int mostSteps = 200;
constexpr int mostThings = 16;

const Cosy systems[] = {ZrQtPlot::COSY_0,
                        ZrQtPlot::COSY_1,
                        ZrQtPlot::COSY_2,
                        ZrQtPlot::COSY_15,
                        Cosy(ZrQtPlot::COSY_0 | ZrQtPlot::COSY_1),
                        Cosy(0)};

/// A plot that lets its state be looked at.
class OpenPlot : public ZrQtPlot
{
public:
    using ZrQtPlot::ZrQtPlot;
    const ZrQtPlotPrivate &state() const { return *m_d; }
};

class Feature : public ZrQtPlotFeature
{
public:
    explicit Feature(const QRectF &extent)
        : m_extent(extent)
    {
    }
    void paint(QPainter &painter, QSizeF) override { painter.drawRect(m_extent); }
    void translate(QPointF offset) override { m_extent.translate(offset); }
    QRectF boundingRectangle() override { return m_extent; }

private:
    QRectF m_extent;
};

/// Two windows with a plot each, and whatever an application may put into them. Everything that happens comes
/// from the input.
class Stage
{
public:
    explicit Stage(ByteInput &input);
    ~Stage();

    void play();

private:
    void step();
    void check();
    void checkLists(const OpenPlot &plot) const;
    void checkGeometry(const OpenPlot &plot) const;
    void checkTicks(const ZrQtAxis &axis) const;
    void checkCanvases(const OpenPlot &plot) const;
    void checkExtent(const OpenPlot &plot, Cosy cosy, ZrQtPlot::PlotAxis direction) const;
    void letGo();

    OpenPlot *makePlot();
    void furnish(OpenPlot *plot);
    void stageThing(QWidget *widget);
    OpenPlot *plot() { return m_plots[m_input.below(2)]; }
    QWidget *thing();
    template <typename Widget> Widget *anyThing();
    Cosy system() { return m_input.anyOf(systems); }
    double value() { return m_tame ? m_input.tameReal() : m_input.real(); }
    QPointF point() { return {value(), value()}; }
    QRectF rect() { return QRectF(value(), value(), value(), value()); }
    template <typename T, typename Make> QVector<T> several(Make make);

    void createThing();
    QWidget *newThing(QWidget *parent);
    void addThing();
    void removeThing();
    void deleteThing();
    void setPlotProperty();
    void setThingProperty();
    void setCanvas();
    void setScaling();
    void setPlotSwitches();
    void connectSliders();
    void feedChannel();
    void feedLongSeries();
    void feedPlotChannel(ZrQtPlotChannel *channel);
    void styleChannel();
    void dragContent();
    void changeAxis();
    void typeIntoAxis();
    void changeChannel();
    void moveMouse();
    void pressMouse();
    void turnTheWheel();
    void pressKey();
    void changePlotWidget();
    void processEvents();

    ByteInput &m_input;
    const int m_beginning;
    const bool m_tame;
    QWidget m_windows[2];
    QPointer<OpenPlot> m_plots[2];
    QList<QPointer<QWidget>> m_things;
    std::unique_ptr<Feature> m_feature;
};

Stage::Stage(ByteInput &input)
    : m_input(input)
    , m_beginning(input.below(4))
    , m_tame(m_beginning % 2 == 1)
{
    m_windows[0].resize(500, 400);
    m_windows[1].resize(300, 200);
    for (int i = 0; i < 2; ++i) {
        m_plots[i] = makePlot();
        m_plots[i]->setParent(&m_windows[i]);
        m_plots[i]->resize(m_windows[i].size());
        if (m_beginning >= 2)
            furnish(m_plots[i]);
        m_windows[i].show();
    }
}

Stage::~Stage()
{
    for (const QPointer<QWidget> &thing : std::as_const(m_things))
        delete thing;
}

OpenPlot *Stage::makePlot()
{
    auto *made = new OpenPlot;
    made->setMouseWheelZoom(true);
    made->setInteraction(ZrQtPlot::PanAndScan);
    return made;
}

void Stage::stageThing(QWidget *widget)
{
    widget->show();
    m_things.append(widget);
}

/// Something of everything, because an input seldom lives to see a plot that is worth a look.
void Stage::furnish(OpenPlot *plot)
{
    for (const Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(plot);
        axis->setPosition(edge);
        axis->setUseForGrid(true);
        stageThing(axis);
    }
    auto *curve = new ZrQtBufferedChannel(plot);
    curve->setName(QStringLiteral("curve"));
    curve->setData({0.0, 10.0, 20.0, 40.0}, {5.0, -5.0, 20.0, 0.0});
    stageThing(curve);

    auto *content = new ZrQtPlotChannel(plot);
    content->setPoints({{5, 5}, {8, 12}, {30, 2}});
    content->setRectangles({{10, 0, 5, 5}});
    content->setCircles({{20, 5, 6, 6}});
    content->setLines({{30, 10, 35, 15}});
    content->setLineSegments({{2, 15, 6, 18}});
    content->setEditable(true);
    stageThing(content);
    plot->setGenerateLegend(true);
}

void Stage::play()
{
    for (int i = 0; i < mostSteps && !m_input.isAtEnd(); ++i) {
        step();
        check();
    }
    processEvents();
    letGo();
    check();
}

void Stage::step()
{
    static constexpr void (Stage::*acts[])()
        = {&Stage::createThing,     &Stage::addThing,       &Stage::removeThing,      &Stage::deleteThing,
           &Stage::setPlotProperty, &Stage::dragContent,    &Stage::setThingProperty, &Stage::styleChannel,
           &Stage::setCanvas,       &Stage::setScaling,     &Stage::setPlotSwitches,  &Stage::connectSliders,
           &Stage::feedChannel,     &Stage::feedLongSeries, &Stage::changeAxis,       &Stage::typeIntoAxis,
           &Stage::changeChannel,   &Stage::moveMouse,      &Stage::moveMouse,        &Stage::pressMouse,
           &Stage::turnTheWheel,    &Stage::pressKey,       &Stage::changePlotWidget, &Stage::processEvents};
    (this->*m_input.anyOf(acts))();
    m_things.removeAll(nullptr);
}

// What holds after each step

void Stage::check()
{
    for (const QPointer<OpenPlot> &each : m_plots) {
        checkLists(*each);
        checkGeometry(*each);
        if (m_tame)
            checkCanvases(*each);
        for (const ZrQtAxis *axis : each->state().m_axes)
            checkTicks(*axis);
    }
}

/// Registered widgets are children, each once: a dead one is the child of nobody.
void Stage::checkLists(const OpenPlot &plot) const
{
    const ZrQtPlotPrivate &state = plot.state();
    const auto checkList = [&plot](const auto &widgets, int expected) {
        require(widgets.size() == expected, "every child is registered");
        for (QObject *widget : widgets) {
            require(plot.children().contains(widget), "what is registered is a child");
            require(std::count(widgets.cbegin(), widgets.cend(), widget) == 1, "registered once");
        }
    };
    checkList(state.m_axes, plot.findChildren<ZrQtAxis *>(QString(), Qt::FindDirectChildrenOnly).size());
    const int channels = plot.findChildren<ZrQtBaseChannel *>(QString(), Qt::FindDirectChildrenOnly).size();
    checkList(state.m_channels, channels);
    if (!state.m_channelStackIsOld)
        checkList(state.m_channelStack, channels);
    checkList(state.m_customWidgets,
              plot.findChildren<ZrQtPlotChannelEdit *>(QString(), Qt::FindDirectChildrenOnly).size());
    for (const CosyState &record : state.m_cosys) {
        for (const CosyState::Direction &direction : {record.x, record.y}) {
            for (ZrQtBaseChannel *channel : {direction.minChannel, direction.maxChannel})
                require(!channel || state.m_channels.contains(channel), "an edge is held by a channel");
        }
    }
}

void Stage::checkGeometry(const OpenPlot &plot) const
{
    const QRectF area = plot.state().m_plotRect;
    require(area.width() >= 0.0 && area.height() >= 0.0, "the plot area is not negative");
    require(std::isfinite(area.right()) && std::isfinite(area.bottom()), "the plot area is finite");
}

void Stage::checkTicks(const ZrQtAxis &axis) const
{
    const QVector<double> ticks = axis.tickPositions();
    require(ticks.size() <= std::max(axis.maxTicks(), 2), "no more ticks than wished");
    for (const double tick : ticks + axis.subTickPositions())
        require(std::isfinite(tick), "ticks are finite");
    if (ticks.isEmpty())
        return;
    // Labels may be rounded towards each other, past the distance of their ticks.
    const double rounding = 0.06 * std::fabs(ticks.constLast() - ticks.constFirst()) + 1.0;
    const double direction = ticks.constLast() < ticks.constFirst() ? -1.0 : 1.0;
    require(std::is_sorted(ticks.cbegin(), ticks.cend(),
                           [=](double a, double b) { return direction * (a - b) < -rounding; }),
            "ticks are in order");
}

/// While the application sets no canvas, margin or extent that asks for something else.
void Stage::checkCanvases(const OpenPlot &plot) const
{
    const auto &records = plot.state().m_cosys;
    for (const Cosy cosy : records.keys()) {
        if (!QMetaEnum::fromType<Cosy>().valueToKey(cosy))
            continue; // a number that names no system shows nothing
        // Without data there is nothing to fit, and an axis lends its range to a canvas that shows nothing.
        const QSizeF data = records.value(cosy).boundingRect.size();
        const QSizeF canvas = records.value(cosy).canvas.size();
        require(canvas.width() > 0.0 || (canvas.width() == 0.0 && data.width() == 0.0),
                "left is below right");
        require(canvas.height() > 0.0 || (canvas.height() == 0.0 && data.height() == 0.0),
                "top is below bottom");
        checkExtent(plot, cosy, ZrQtPlot::Axis_X);
        checkExtent(plot, cosy, ZrQtPlot::Axis_Y);
    }
}

/// What is tracked change by change is what a look at all channels finds.
void Stage::checkExtent(const OpenPlot &plot, Cosy cosy, ZrQtPlot::PlotAxis direction) const
{
    const bool isX = direction == ZrQtPlot::Axis_X;
    const auto lowOf = [isX](const QRectF &rect) { return isX ? rect.left() : rect.top(); };
    const auto highOf = [isX](const QRectF &rect) { return isX ? rect.right() : rect.bottom(); };
    const ZrQtPlotPrivate &state = plot.state();
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    for (ZrQtBaseChannel *channel : state.m_channels) {
        const QRectF own = channel->boundingRect();
        const bool counts
            = channel->isSelectedForDisplay() && channel->useForScaling()
              && (state.useEmptyBoundingRectsForAutoFitScaling || (isX ? own.width() : own.height()) > 0.0);
        if (channel->cosy(direction) != cosy || !counts)
            continue;
        low = std::min(low, lowOf(own));
        high = std::max(high, highOf(own));
    }
    if (low > high)
        return;
    const CosyState record = state.m_cosys.value(cosy);
    const CosyState::Direction &holders = isX ? record.x : record.y;
    if (!holders.minChannel || !holders.maxChannel)
        return; // where no channel counts in one direction, both let go of their extent, which stays
    const QRectF tracked = record.boundingRect;
    // A point gets a width, but not where it is at the place of the extent that is there from the start.
    if (low == high && !(lowOf(tracked) == low && highOf(tracked) == high)) {
        low -= 0.5;
        high += 0.5;
    }
    // And keeps it at an edge that it holds, until all channels are looked at again.
    const auto isUpToDate = [isX](ZrQtBaseChannel *holder, double edge, double expected, double widened) {
        const QRectF own = holder->boundingRect();
        const bool isPoint = (isX ? own.width() : own.height()) == 0.0;
        return std::fabs(edge - expected) < 1e-6 || (isPoint && std::fabs(edge - widened) < 1e-6);
    };
    require(isUpToDate(holders.minChannel, lowOf(tracked), low, low - 0.5)
                && isUpToDate(holders.maxChannel, highOf(tracked), high, high + 0.5),
            "the extent of the data is up to date");
}

/// As a user does in the end.
void Stage::letGo()
{
    if (QWidget *grabber = QWidget::mouseGrabber())
        release(grabber, {1, 1});
    for (const QPointer<QWidget> &each : std::as_const(m_things)) {
        if (each && !qobject_cast<ZrQtAxis *>(each))
            release(each, {1, 1});
    }
    for (const QPointer<OpenPlot> &each : m_plots) {
        release(each, {1, 1});
        const ZrQtPlotPrivate &state = each->state();
        for (const CosyState &record : state.m_cosys)
            require(!record.x.hold && !record.y.hold, "no axis is dragged");
        require(!state.pressed && !state.m_mouseDragging && !state.selectionVisible, "no drag is left");
    }
    require(!QWidget::mouseGrabber(), "nobody holds the mouse");
    for (const QPointer<QWidget> &each : std::as_const(m_things)) {
        const auto *channel = qobject_cast<ZrQtPlotChannel *>(each);
        require(!channel || !channel->isDraggingFeature(), "no content is dragged");
        const auto *slider = qobject_cast<ZrQtPlotSlider *>(each);
        require(!slider || (!slider->leftDragging() && !slider->rightDragging()), "no handle is dragged");
    }
}

// What happens

QWidget *Stage::thing()
{
    return m_things.isEmpty() ? nullptr : m_things.at(m_input.below(m_things.size()));
}

template <typename Widget> Widget *Stage::anyThing()
{
    QVector<Widget *> all;
    for (const QPointer<QWidget> &each : std::as_const(m_things)) {
        if (auto *widget = qobject_cast<Widget *>(each))
            all.append(widget);
    }
    return all.isEmpty() ? nullptr : all.at(m_input.below(all.size()));
}

template <typename T, typename Make> QVector<T> Stage::several(Make make)
{
    QVector<T> items;
    for (int count = m_input.below(8); count > 0; --count)
        items.append(make());
    return items;
}

QWidget *Stage::newThing(QWidget *parent)
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

void Stage::createThing()
{
    if (m_things.size() >= mostThings)
        delete m_things.takeFirst();
    QWidget *made = newThing(m_input.flag() ? plot() : nullptr);
    m_things.append(made);
    if (m_input.flag())
        made->show();
}

void Stage::addThing()
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

void Stage::removeThing()
{
    QWidget *removed = thing();
    OpenPlot *from = plot();
    from->removeAxis(qobject_cast<ZrQtAxis *>(removed));
    from->removeChannel(qobject_cast<ZrQtBaseChannel *>(removed));
    from->removeSlider(qobject_cast<ZrQtPlotSlider *>(removed));
    from->removeCustomWidget(removed);
}

void Stage::deleteThing()
{
    QWidget *dying = thing();
    if (dying && m_input.flag())
        dying->deleteLater();
    else
        delete dying;
}

/// Canvases and extents stay as the checks of a tame run expect them.
bool changesCanvas(const QMetaProperty &property)
{
    const QByteArray name(property.name());
    return name.startsWith("canvas") || name == "initialCanvas" || name == "useForScaling";
}

void Stage::setPlotProperty()
{
    setHostileProperty(plot(), m_input, m_tame ? changesCanvas : nullptr);
}

void Stage::setThingProperty()
{
    if (QWidget *target = thing())
        setHostileProperty(target, m_input, m_tame ? changesCanvas : nullptr);
}

void Stage::setCanvas()
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

void Stage::setScaling()
{
    OpenPlot *target = plot();
    const auto mode = ZrQtPlot::ScalingMode(m_input.flag() ? 1 << m_input.below(5) : m_input.integer());
    switch (m_input.below(m_tame ? 3 : 6)) {
    case 0:
        target->setScaling(mode, system());
        break;
    case 1:
        target->setScalingX(mode, system(), m_input.flag());
        break;
    case 2:
        target->setScalingY(mode, system(), m_input.flag());
        break;
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

void Stage::setPlotSwitches()
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

void Stage::connectSliders()
{
    OpenPlot *target = plot();
    auto *slider = anyThing<ZrQtPlotSlider>();
    switch (m_input.below(4)) {
    case 0:
        target->disconnectSlider();
        break;
    case 1:
        if (slider)
            slider->onMasterCanvasChanged(rect(), system());
        break;
    case 2:
        if (slider)
            slider->onSlaveCanvasChanged(rect(), system());
        break;
    default:
        // A plot that is its own slave shows what it shows: nothing that an application wants.
        if (slider && slider->parent() != target)
            target->connectSlider(slider);
        break;
    }
}

void Stage::feedChannel()
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
    case 1:
        channel->setData(several<double>(number), several<double>(number));
        break;
    case 2:
        channel->setData(several<double>(number), value(), value());
        break;
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
void Stage::feedLongSeries()
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
void Stage::styleChannel()
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

void Stage::feedPlotChannel(ZrQtPlotChannel *channel)
{
    const auto makeRect = [this] { return rect(); };
    const auto makeLine = [this] { return QLineF(point(), point()); };
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

void Stage::changeAxis()
{
    auto *axis = anyThing<ZrQtAxis>();
    if (!axis)
        return;
    switch (m_input.below(4)) {
    case 0:
        axis->setMinMax(m_input.real(), m_input.real());
        break;
    case 1:
        axis->setDrawMinMax(m_input.real(), m_input.real());
        break;
    case 2:
        axis->onCanvasChanged(QRectF(m_input.real(), m_input.real(), m_input.real(), m_input.real()),
                              axis->cosy());
        break;
    default:
        axis->updateAxis();
        break;
    }
}

/// A value of an edit field, and the end of the editing.
void Stage::typeIntoAxis()
{
    auto *axis = m_tame ? nullptr : anyThing<ZrQtAxis>();
    if (!axis)
        return;
    axis->setLabelFormat(m_input.flag() ? ZrQtAxis::FloatingPoint : ZrQtAxis::TimePlusMs);
    axis->setMinMaxEditable(true);
    const QList<QGraphicsScene *> scenes = axis->findChildren<QGraphicsScene *>();
    const QPointer<QGraphicsScene> scene = scenes.at(m_input.below(scenes.size()));
    const QList<QGraphicsItem *> items = scene->items();
    for (QGraphicsItem *item : items) {
        const auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item);
        if (auto *number = proxy ? qobject_cast<QDoubleSpinBox *>(proxy->widget()) : nullptr) {
            number->setValue(m_input.real());
            Q_EMIT number->editingFinished();
        } else if (auto *time = proxy ? qobject_cast<QDateTimeEdit *>(proxy->widget()) : nullptr) {
            time->setTime(QTime::fromMSecsSinceStartOfDay(m_input.raw<std::uint16_t>() * 1000));
            Q_EMIT time->editingFinished();
        }
    }
}

void Stage::changeChannel()
{
    auto *channel = anyThing<ZrQtBaseChannel>();
    if (!channel)
        return;
    switch (m_input.below(4)) {
    case 0:
        channel->setVisible(m_input.flag());
        break;
    case 1:
        channel->onAxisInverted(ZrQtPlot::PlotAxis(m_input.below(4)), system(), m_input.flag());
        break;
    case 2:
        channel->mapToPixel({m_input.real(), m_input.real()});
        channel->mapToData({m_input.integer(), m_input.integer()});
        break;
    default:
        channel->onCanvasChanged(QRectF(m_input.real(), m_input.real(), m_input.real(), m_input.real()),
                                 system());
        break;
    }
}

void Stage::moveMouse()
{
    OpenPlot *over = plot();
    const QPoint position(m_input.below(256) * 2 - 20, m_input.below(256) * 2 - 20);
    if (m_input.flag())
        QCursor::setPos(over->mapToGlobal(position));
    const Qt::MouseButtons held = m_input.flag() ? Qt::LeftButton : Qt::NoButton;
    QWidget *child = over->childAt(position);
    if (child)
        moveTo(child, child->mapFrom(over, position), held);
    else
        moveTo(over, position, held);
}

void Stage::pressMouse()
{
    OpenPlot *over = plot();
    const QPoint position(m_input.below(256) * 2 - 20, m_input.below(256) * 2 - 20);
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton};
    const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseButtonPress,
                                  QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick};
    const QEvent::Type type = m_input.anyOf(types);
    const Qt::MouseButton button = m_input.anyOf(buttons);
    QWidget *child = over->childAt(position);
    QWidget *target = QWidget::mouseGrabber() ? QWidget::mouseGrabber() : child ? child : over;
    sendMouse(target, type, target->mapFromGlobal(over->mapToGlobal(position)), button,
              type == QEvent::MouseButtonRelease ? Qt::NoButton : button);
}

/// At the content of a channel, or at a handle of a slider, where a random pixel would hardly hit.
void Stage::dragContent()
{
    QWidget *target = thing();
    const QPoint by(m_input.raw<std::int8_t>(), m_input.raw<std::int8_t>());
    QPoint from(m_input.below(256) * 2, m_input.below(256) * 2);
    if (auto *channel = qobject_cast<ZrQtPlotChannel *>(target)) {
        QVector<QPointF> places = channel->points();
        for (const QRectF &each : channel->rectangles() + channel->circles())
            places << each.topLeft() << each.center() << QPointF(each.right(), each.center().y());
        for (const QLineF &each : channel->lines() + channel->lineSegments())
            places << each.p1() << each.center() << each.p2();
        places << channel->boundingRect().center();
        from = channel->mapToPixel(places.at(m_input.below(std::min(places.size(), 256))));
    }
    if (!target || !target->rect().contains(from))
        return;
    // In a plot a channel hears of the mouse from it alone.
    QWidget *receiver = target->parentWidget() && qobject_cast<ZrQtBaseChannel *>(target)
                            ? target->parentWidget()->childAt(target->mapToParent(from))
                            : target;
    if (!receiver)
        return;
    const QPointer<QWidget> alive(receiver);
    const QPoint local = receiver->mapFrom(target->window(), target->mapTo(target->window(), from));
    moveTo(receiver, local, Qt::NoButton);
    if (alive)
        press(receiver, local);
    if (alive)
        moveTo(receiver, local + by);
    if (alive && m_input.flag())
        release(receiver, local + by);
}

void Stage::turnTheWheel()
{
    OpenPlot *over = plot();
    const QPoint position(m_input.below(256) * 2, m_input.below(256) * 2);
    QWidget *child = over->childAt(position);
    QWidget *target = child ? child : over;
    turnWheel(target, target->mapFrom(over, position), {m_input.integer(), m_input.integer()});
}

void Stage::pressKey()
{
    const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_1, Qt::Key_Left};
    QWidget *target = m_input.flag() ? thing() : nullptr;
    QTest::keyClick(target ? target : plot(), m_input.anyOf(keys));
}

void Stage::changePlotWidget()
{
    OpenPlot *target = plot();
    switch (m_input.below(6)) {
    case 0:
        target->resize(m_input.below(256) * 4, m_input.below(256) * 4);
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
void Stage::processEvents()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

void failOnMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    static const QRegularExpression expected(
        QStringLiteral("^This plugin does not support|^dataX and dataY have different sizes$"));
    if (type == QtDebugMsg || type == QtInfoMsg || expected.match(text).hasMatch())
        return;
    std::fprintf(stderr, "message: %s\n", qPrintable(text));
    require(false, "wrong input is taken in silence");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "Europe/Berlin");
    // Never deleted: the end of the program is too late for it.
    static const auto *const application = new QApplication(*argc, *argv);
    Q_UNUSED(application)
    qInstallMessageHandler(failOnMessage);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ByteInput input(data, size);
    Stage(input).play();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
