#include "zrqtplot_p.h"

#include "zrqtaxis.h"
#include "zrqtbasechannel.h"
#include "zrqtbasechannel_p.h"
#include "zrqtplotchannel.h"
#include "zrqtplotslider.h"
#include "zrqttooltipwidget_p.h"

#include <QtCore/QChildEvent>

#include <algorithm>

namespace {

/// Finds the registered widget with the address of \a object. Addresses are all that can be compared: an
/// object under destruction is no longer of its class when its parent hears of it.
template <typename Widget> Widget *withAddress(const QList<Widget *> &widgets, const QObject *object)
{
    const auto found = std::find_if(widgets.cbegin(), widgets.cend(), [object](Widget *widget) {
        return static_cast<QObject *>(widget) == object;
    });
    return found == widgets.cend() ? nullptr : *found;
}

/// What QWidget::setParent() does in its midst to a widget that is shown. The signals of a channel that is
/// hidden may end it, and Qt does not expect that there.
void hideForNewParent(ZrQtBaseChannel *channel)
{
    if (!channel->testAttribute(Qt::WA_WState_Created) || channel->isHidden())
        return;
    const QPointer<ZrQtBaseChannel> alive(channel);
    channel->hide();
    if (alive)
        channel->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
}

} // namespace

/// Makes the plot the parent and makes sure that it hears of the end of \a widget.
void ZrQtPlotPrivate::adopt(QWidget *widget)
{
    QObject::connect(widget, &QObject::destroyed, q, [this](QObject *dying) { forget(dying); });
    if (widget->parent() != q)
        widget->setParent(q);
}

/// Cuts what runs between the plot or its axes and a widget that leaves.
void ZrQtPlotPrivate::disconnectBothWays(QObject *leaving)
{
    QObject::disconnect(leaving, nullptr, q, nullptr);
    QObject::disconnect(q, nullptr, leaving, nullptr);
    for (ZrQtAxis *axis : std::as_const(m_axes)) {
        if (static_cast<QObject *>(axis) != leaving)
            QObject::disconnect(axis, nullptr, leaving, nullptr);
    }
}

/// Not so for a widget that is on its way to another parent: it still names this one, but is no longer among
/// the children.
bool ZrQtPlotPrivate::isChild(QWidget *widget) const
{
    return q->children().contains(widget);
}

/// Takes the parent away, unless the widget has another one or is on its way to it.
void ZrQtPlotPrivate::unparent(QWidget *widget)
{
    if (isChild(widget))
        widget->setParent(nullptr);
}

void ZrQtPlotPrivate::addAxis(ZrQtAxis *axis)
{
    if (!axis || m_axes.contains(axis))
        return;
    // Stored first: the child event that setParent() sends comes back here.
    m_axes.append(axis);
    adopt(axis);
    axis->installEventFilter(q);
    // Hovering over the axis shows and hides the tooltip.
    axis->setMouseTracking(true);
    QObject::connect(axis, &ZrQtAxis::requestUpdate, q, [this] { layOut(); });
    QObject::connect(q, &ZrQtPlot::canvasChanged, axis, &ZrQtAxis::onCanvasChanged);
    QObject::connect(axis, &ZrQtAxis::axisInverted, q, [this, axis] { invertAxis(axis); });
    invertAxis(axis);
    for (ZrQtBaseChannel *channel : std::as_const(m_channels))
        connectAxisToChannel(axis, channel);
    applyAxisCursor();
    layOut();
}

void ZrQtPlotPrivate::connectAxisToChannel(ZrQtAxis *axis, ZrQtBaseChannel *channel)
{
    channel->onAxisInverted(directionOf(axis->position()), axis->cosy(), axis->inverted());
    QObject::connect(axis, &ZrQtAxis::axisInverted, channel, &ZrQtBaseChannel::onAxisInverted);
}

void ZrQtPlotPrivate::invertAxis(ZrQtAxis *axis)
{
    state(axis->cosy()).direction(directionOf(axis->position())).inverted = axis->inverted();
    m_forceRedraw = true;
    q->update();
}

void ZrQtPlotPrivate::removeAxis(ZrQtAxis *axis)
{
    if (!axis || !m_axes.contains(axis))
        return;
    m_axes.removeAll(axis);
    endAxisDrag(axis);
    axis->removeEventFilter(q);
    // Every receiver, on purpose: an axis that left its plot inverts nothing any more.
    QObject::disconnect(axis, &ZrQtAxis::axisInverted, nullptr, nullptr);
    disconnectBothWays(axis);
    const QPointer<ZrQtPlot> plot(q);
    const QPointer<ZrQtAxis> alive(axis);
    layOut();
    if (plot && alive)
        unparent(axis);
}

void ZrQtPlotPrivate::addChannel(ZrQtBaseChannel *channel)
{
    if (!channel || m_channels.contains(channel))
        return;
    m_channels.append(channel);
    // Each signal may make the application delete or remove the channel, or delete the plot.
    const QPointer<ZrQtPlot> plot(q);
    // Searched from the end, where it most likely is.
    const auto isGone = [&] { return !plot || m_channels.lastIndexOf(channel) < 0; };
    const bool selected = channel->isSelectedForDisplay();
    if (channel->parent() != q)
        hideForNewParent(channel);
    if (isGone())
        return;
    adopt(channel);
    if (isGone())
        return;
    if (selected && (channel->isHidden() || !channel->isSelectedForDisplay()))
        channel->setVisible(true);
    if (isGone())
        return;
    // A child without it swallows the moves that the plot's cursor and tooltip follow.
    channel->setMouseTracking(true);
    channel->m_d->updatesViaPlot = controlChannelUpdatesViaPlot;
    if (qobject_cast<ZrQtPlotChannel *>(channel))
        openOverlay();
    channel->onCanvasChanged(state(channel->cosyX()).effectiveCanvas, channel->cosyX());
    if (isGone())
        return;
    if (channel->cosyY() != channel->cosyX())
        channel->onCanvasChanged(state(channel->cosyY()).effectiveCanvas, channel->cosyY());
    if (isGone())
        return;
    connectChannel(channel);
    for (ZrQtAxis *axis : std::as_const(m_axes))
        connectAxisToChannel(axis, channel);

    const CoordinateSystem cosyY = channel->cosyY();
    refitWith(channel, channel->cosyX(), ZrQtPlot::Axis_X);
    if (!isGone())
        refitWith(channel, cosyY, ZrQtPlot::Axis_Y);
    else if (plot)
        refit(cosyY, ZrQtPlot::Axis_Y);
    if (plot)
        layOut();
    if (plot)
        raiseTopmost();
}

/// Lets the overlay take mouse events, so that they can be offered to channels that the user edits.
void ZrQtPlotPrivate::openOverlay()
{
    if (!m_overlay)
        return;
    m_overlay->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    m_overlay->setMouseTracking(true);
    m_overlay->installEventFilter(q);
    m_overlay->show();
}

void ZrQtPlotPrivate::passUpdateControlToChannels()
{
    for (ZrQtBaseChannel *channel : std::as_const(m_channels))
        channel->m_d->updatesViaPlot = controlChannelUpdatesViaPlot;
}

void ZrQtPlotPrivate::connectChannel(ZrQtBaseChannel *channel)
{
    QObject::connect(q, &ZrQtPlot::canvasChanged, channel, &ZrQtBaseChannel::onCanvasChanged);
    QObject::connect(channel, &ZrQtBaseChannel::boundingRectChanged, q, [this, channel](const QRectF &rect) {
        trackBoundingRect(channel, rect, Tracking::Incremental);
    });
    QObject::connect(channel, &ZrQtBaseChannel::visibilityChanged, q, [this, channel](bool visible) {
        const QPointer<ZrQtPlot> plot(q);
        if (!visible)
            trackBoundingRect(channel, channel->boundingRect(), Tracking::Forced);
        if (!plot)
            return;
        m_forceRedraw = true;
        q->update();
    });
    QObject::connect(channel, &ZrQtBaseChannel::showInLegendChanged, q, [this] { q->update(); });
    const auto systemChanged
        = [this, channel](CoordinateSystem cosy) { onChannelSystemChanged(channel, cosy); };
    QObject::connect(channel, &ZrQtBaseChannel::cosyXChanged, q, systemChanged);
    QObject::connect(channel, &ZrQtBaseChannel::cosyYChanged, q, systemChanged);
    QObject::connect(channel, &ZrQtBaseChannel::dataChanged, q, [this] {
        m_dataChanged = true;
        q->update();
    });
}

void ZrQtPlotPrivate::onChannelSystemChanged(ZrQtBaseChannel *channel, CoordinateSystem cosy)
{
    const QPointer<ZrQtPlot> plot(q);
    releaseChannel(channel);
    if (plot && m_channels.contains(channel) && channel->isSelectedForDisplay())
        trackBoundingRect(channel, channel->boundingRect(), Tracking::Incremental);
    if (plot && m_channels.contains(channel))
        channel->onCanvasChanged(QRectF(state(cosy).effectiveCanvas), cosy);
}

void ZrQtPlotPrivate::removeChannel(ZrQtBaseChannel *channel)
{
    if (!channel || !m_channels.contains(channel))
        return;
    m_channels.removeAll(channel);
    m_channelStack.removeAll(channel);
    disconnectBothWays(channel);
    const QPointer<ZrQtPlot> plot(q);
    const QPointer<ZrQtBaseChannel> alive(channel);
    layOut();
    if (plot && alive)
        letGo(channel);
    if (plot)
        afterChannelLeft(channel);
}

/// What the application asked for outlives the hiding that comes with the loss of the parent, so that the
/// channel is shown again wherever it is added next.
void ZrQtPlotPrivate::letGo(ZrQtBaseChannel *channel)
{
    const QPointer<ZrQtPlot> plot(q);
    const QPointer<ZrQtBaseChannel> alive(channel);
    const bool selected = channel->isSelectedForDisplay();
    if (isChild(channel))
        hideForNewParent(channel);
    if (plot && alive)
        unparent(channel);
    if (!alive)
        return;
    channel->m_d->selectedForDisplay = selected;
    channel->m_d->updatesViaPlot = false;
}

/// What a channel leaves behind, whether it was removed or deleted. \a channel is only compared.
void ZrQtPlotPrivate::afterChannelLeft(ZrQtBaseChannel *channel)
{
    const QPointer<ZrQtPlot> plot(q);
    releaseChannel(channel);
    if (!plot)
        return;
    // Always COSY_0, on purpose, whatever systems the channel used.
    const CosyState &first = state(ZrQtPlot::COSY_0);
    if (first.x.scaling == ZrQtPlot::AutoFit || first.y.scaling == ZrQtPlot::AutoFit)
        return;
    returnToAutoFit(ZrQtPlot::COSY_0, ZrQtPlot::Axis_X);
    if (plot)
        returnToAutoFit(ZrQtPlot::COSY_0, ZrQtPlot::Axis_Y);
}

void ZrQtPlotPrivate::addCustomWidget(QWidget *widget)
{
    if (!widget || m_customWidgets.contains(widget) || isOwnWidget(widget))
        return;
    m_customWidgets.append(widget);
    adopt(widget);
    raiseTopmost();
}

void ZrQtPlotPrivate::removeCustomWidget(QWidget *widget)
{
    if (!widget || !m_customWidgets.contains(widget))
        return;
    m_customWidgets.removeAll(widget);
    widget->removeEventFilter(q);
    QObject::disconnect(widget, &QObject::destroyed, q, nullptr);
    unparent(widget);
}

bool ZrQtPlotPrivate::isOwnWidget(const QObject *widget) const
{
    return widget == m_overlay || widget == m_toolTip;
}

/// Forgets a registered object that is under destruction. Of the object little more than its address is left:
/// nothing may reach its slots any more.
void ZrQtPlotPrivate::forget(QObject *dying)
{
    if (ZrQtAxis *axis = withAddress(m_axes, dying)) {
        disconnectBothWays(dying);
        m_axes.removeAll(axis);
        endOrphanedHolds();
        layOut();
    } else if (ZrQtBaseChannel *channel = withAddress(m_channels, dying)) {
        disconnectBothWays(dying);
        m_channels.removeAll(channel);
        m_channelStack.removeAll(channel);
        const QPointer<ZrQtPlot> plot(q);
        layOut();
        if (plot)
            afterChannelLeft(channel);
    } else if (QWidget *widget = withAddress(m_customWidgets, dying)) {
        m_customWidgets.removeAll(widget);
    }
}

void ZrQtPlotPrivate::childAdded(QObject *child)
{
    m_lastRemovedChild = nullptr;
    if (auto *axis = qobject_cast<ZrQtAxis *>(child))
        addAxis(axis);
    else if (auto *channel = qobject_cast<ZrQtBaseChannel *>(child))
        addChannel(channel);
    else if (auto *slider = qobject_cast<ZrQtPlotSlider *>(child))
        setSlider(slider);
    else if (auto *widget = qobject_cast<QWidget *>(child))
        addCustomWidget(widget);
}

void ZrQtPlotPrivate::childRemoved(QObject *child)
{
    m_lastRemovedChild = child;
    // Under destruction it is no longer of its class, although qobject_cast still takes it for a widget.
    if (!child->metaObject()->inherits(&QWidget::staticMetaObject))
        forget(child);
    else if (auto *axis = qobject_cast<ZrQtAxis *>(child))
        removeAxis(axis);
    else if (auto *channel = qobject_cast<ZrQtBaseChannel *>(child))
        removeChannel(channel);
    else
        removeCustomWidget(static_cast<QWidget *>(child));
}

void ZrQtPlotPrivate::raiseTopmost()
{
    if (m_slider && isChild(m_slider))
        m_slider->raise();
    else if (!m_slider && m_overlay)
        m_overlay->raise();
}

/// Common end of every event that may change the children, their order or their places.
void ZrQtPlotPrivate::settleChildOrder()
{
    raiseTopmost();
    m_channelStackIsOld = true;
}

/// Only the mouse asks for the order; finding it out at every change makes many channels slow to add.
void ZrQtPlotPrivate::updateChannelStack()
{
    if (!m_channelStackIsOld)
        return;
    m_channelStackIsOld = false;
    m_channelStack = q->findChildren<ZrQtBaseChannel *>(QString(), Qt::FindDirectChildrenOnly);
    std::reverse(m_channelStack.begin(), m_channelStack.end());
}

void ZrQtPlot::addAxis(ZrQtAxis *axis)
{
    Q_D(ZrQtPlot);
    d->addAxis(axis);
}

void ZrQtPlot::removeAxis(ZrQtAxis *axis)
{
    Q_D(ZrQtPlot);
    d->removeAxis(axis);
}

void ZrQtPlot::addChannel(ZrQtBaseChannel *channel)
{
    Q_D(ZrQtPlot);
    d->addChannel(channel);
}

void ZrQtPlot::removeChannel(ZrQtBaseChannel *channel)
{
    Q_D(ZrQtPlot);
    d->removeChannel(channel);
}

void ZrQtPlot::addCustomWidget(QWidget *widget)
{
    Q_D(ZrQtPlot);
    d->addCustomWidget(widget);
}

void ZrQtPlot::removeCustomWidget(QWidget *widget)
{
    Q_D(ZrQtPlot);
    d->removeCustomWidget(widget);
}
