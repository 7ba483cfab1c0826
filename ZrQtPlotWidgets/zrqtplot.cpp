#include "zrqtplot.h"

#include "zrqtaxis.h"
#include "zrqtbasechannel.h"
#include "zrqtplot_p.h"
#include "zrqtplotslider.h"
#include "zrqttooltipwidget_p.h"

#include <QtCore/QChildEvent>

#include <algorithm>

// Qt does not declare it; here only, so that applications can do so for themselves.
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

constexpr int tooltipDuration = 3000;

} // namespace

ZrQtPlotPrivate::ZrQtPlotPrivate()
    : m_overlay(new QWidget)
{
    m_overlay->setObjectName(QStringLiteral("ZrQtPlot::m_overlay"));
}

ZrQtPlotPrivate::~ZrQtPlotPrivate()
{
    // Usually the plot is its parent and deletes it later.
    if (m_overlay && !m_overlay->parent())
        delete m_overlay;
}

void ZrQtPlotPrivate::init(ZrQtPlot *plot)
{
    q = plot;
    q->installEventFilter(q);
    m_overlay->setParent(q);
    m_overlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_tooltipTimer.setInterval(tooltipDuration);
    QObject::connect(&m_tooltipTimer, &QTimer::timeout, q, [this] { hideTooltip(); });
    m_boundingRectReduceTimer.setSingleShot(true);
    QObject::connect(&m_boundingRectReduceTimer, &QTimer::timeout, q, [this] { refitUsed(); });
    applyDefaultScaling(ZrQtPlot::Axis_X);
    applyDefaultScaling(ZrQtPlot::Axis_Y);
    q->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    q->setMinimumSize(20, 20);
    q->updateGeometry();
    q->setMouseTracking(true);
    resetCanvases();
    m_toolTip = new ToolTipWidget;
    m_toolTip->setParent(q, m_toolTip->windowFlags());
    hideTooltip();
    resetCursors();
    q->setFocusPolicy(Qt::ClickFocus);
    q->update();
}

void ZrQtPlotPrivate::disconnectAll()
{
    const auto cut = [this](QObject *object) {
        QObject::disconnect(object, nullptr, q, nullptr);
        QObject::disconnect(q, nullptr, object, nullptr);
    };
    std::for_each(m_axes.cbegin(), m_axes.cend(), cut);
    std::for_each(m_channels.cbegin(), m_channels.cend(), cut);
    std::for_each(m_customWidgets.cbegin(), m_customWidgets.cend(), cut);
    if (m_slider)
        cut(m_slider);
    for (const QPointer<ZrQtPlotSlider> &slider : std::as_const(m_drivingSliders)) {
        if (slider)
            cut(slider);
    }
}

ZrQtPlot::ZrQtPlot(QWidget *parent)
    : ZrQtPlot(*new ZrQtPlotPrivate, parent)
{
}

ZrQtPlot::ZrQtPlot(ZrQtPlotPrivate &d, QWidget *parent)
    : QWidget(parent)
    , m_d(&d)
{
    // moc registers no enumerations: without this a QSignalSpy or a queued connection knows nothing of them.
    qRegisterMetaType<CoordinateSystem>();
    qRegisterMetaType<ScalingMode>();
    qRegisterMetaType<PlotAxis>();
    qRegisterMetaType<Qt::MouseButton>("Qt::MouseButton");
    d.init(this);
}

ZrQtPlot::~ZrQtPlot()
{
    if (m_d->m_tooltipTimerId != 0)
        killTimer(m_d->m_tooltipTimerId);
    // The children die later, when the private object is gone.
    m_d->disconnectAll();
}

bool ZrQtPlot::event(QEvent *event)
{
    const QPointer<ZrQtPlot> plot(this);
    const bool handled = QWidget::event(event);
    // A slot of the application may have deleted the plot meanwhile.
    if (plot)
        m_d->handleOwnEvent(event);
    return handled;
}

void ZrQtPlotPrivate::handleOwnEvent(QEvent *event)
{
    const QPointer<ZrQtPlot> plot(q);
    switch (event->type()) {
    case QEvent::ChildAdded:
        childAdded(static_cast<QChildEvent *>(event)->child());
        break;
    case QEvent::ChildRemoved:
        // A repeated notice is ignored.
        if (static_cast<QChildEvent *>(event)->child() == m_lastRemovedChild)
            return;
        childRemoved(static_cast<QChildEvent *>(event)->child());
        break;
    case QEvent::Resize:
    case QEvent::GraphicsSceneResize:
        layOut();
        if (plot)
            emitCanvasesOfChannels();
        break;
    case QEvent::LayoutRequest:
        layOut();
        break;
    case QEvent::ZOrderChange:
        break;
    default:
        return;
    }
    if (plot)
        settleChildOrder();
}

/// With a fixed aspect ratio the visible ranges follow the size of the plot area. Once for each channel, also
/// where several share a system.
void ZrQtPlotPrivate::emitCanvasesOfChannels()
{
    if (!keepAspectRatio)
        return;
    const QPointer<ZrQtPlot> plot(q);
    const QList<ZrQtBaseChannel *> channels = m_channels;
    for (ZrQtBaseChannel *channel : channels) {
        if (!plot)
            return;
        if (!m_channels.contains(channel))
            continue;
        const CoordinateSystem cosyX = channel->cosyX();
        const CoordinateSystem cosyY = channel->cosyY();
        emitCanvas(cosyX);
        if (plot && cosyY != cosyX)
            emitCanvas(cosyY);
    }
}

void ZrQtPlot::resizeEvent(QResizeEvent *)
{
    Q_D(ZrQtPlot);
    d->m_forceRedraw = true;
    const QPointer<ZrQtPlot> plot(this);
    d->layOut();
    if (plot)
        d->emitUsedCanvases();
}

/// The children were shown just before; only now does the legend know which channels are visible.
void ZrQtPlot::showEvent(QShowEvent *)
{
    Q_D(ZrQtPlot);
    if (d->generateLegend)
        d->layOut();
}

QColor ZrQtPlot::backgroundColor() const
{
    Q_D(const ZrQtPlot);
    return d->backgroundColor;
}

void ZrQtPlot::setBackgroundColor(const QColor &color)
{
    Q_D(ZrQtPlot);
    d->backgroundColor = color;
    update();
}

QColor ZrQtPlot::borderColor() const
{
    Q_D(const ZrQtPlot);
    return d->borderColor;
}

void ZrQtPlot::setBorderColor(const QColor &color)
{
    Q_D(ZrQtPlot);
    d->borderColor = color;
    update();
}

int ZrQtPlot::borderWidth() const
{
    Q_D(const ZrQtPlot);
    return d->borderWidth;
}

void ZrQtPlot::setBorderWidth(int width)
{
    Q_D(ZrQtPlot);
    d->borderWidth = width;
    update();
}

int ZrQtPlot::minMarginLeft() const
{
    Q_D(const ZrQtPlot);
    return d->minMarginLeft;
}

void ZrQtPlot::setMinMarginLeft(int margin)
{
    Q_D(ZrQtPlot);
    d->setMinMargin(d->minMarginLeft, margin);
}

int ZrQtPlot::minMarginRight() const
{
    Q_D(const ZrQtPlot);
    return d->minMarginRight;
}

void ZrQtPlot::setMinMarginRight(int margin)
{
    Q_D(ZrQtPlot);
    d->setMinMargin(d->minMarginRight, margin);
}

int ZrQtPlot::minMarginTop() const
{
    Q_D(const ZrQtPlot);
    return d->minMarginTop;
}

void ZrQtPlot::setMinMarginTop(int margin)
{
    Q_D(ZrQtPlot);
    d->setMinMargin(d->minMarginTop, margin);
}

int ZrQtPlot::minMarginBottom() const
{
    Q_D(const ZrQtPlot);
    return d->minMarginBottom;
}

void ZrQtPlot::setMinMarginBottom(int margin)
{
    Q_D(ZrQtPlot);
    d->setMinMargin(d->minMarginBottom, margin);
}
