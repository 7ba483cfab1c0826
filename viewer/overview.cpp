#include "overview.h"

#include "plotbuilder.h"
#include "plotreadout.h"
#include "seriesfeed.h"

#include <QtCore/QEvent>

#include <ZrQtPlotWidgets/zrqtplotslider.h>

namespace {

constexpr int kHeight = 110;
constexpr int kTopMargin = 4;
constexpr QRgb kHandleColor = 0xc0909090;

} // namespace

Overview::Overview(const BuiltPlot &built, const Options &options, QWidget *parent)
    : ZrQtPlot(parent)
    , m_plot(built.plot)
    , m_slider(new ZrQtPlotSlider(this))
    , m_series(built.readout->series())
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setBorderColor(Qt::gray);
    setMinMarginTop(kTopMargin);
    for (PlottedSeries &series : m_series)
        addCopy(&series, options);
    // From here on, the other plot tells when its area changes.
    alignWith(built.readout->series().first().channel);

    m_slider->setSlaveHandleColor(QColor::fromRgba(kHandleColor));
    m_plot->connectSlider(m_slider);
    m_slider->installEventFilter(this);
    connect(this, &ZrQtPlot::canvasChanged, this, [this](const QRectF &, CoordinateSystem cosy) {
        if (cosy == COSY_0)
            placeHandles();
    });
}

/// Makes a series of the other plot one of this.
void Overview::addCopy(PlottedSeries *series, const Options &options)
{
    ZrQtBufferedChannel *original = series->channel;
    original->installEventFilter(this);
    series->channel = nullptr;
    series->ownAxis = nullptr;
    if (original->cosyX() != COSY_0)
        return;
    if (!findChild<ZrQtAxis *>()) {
        auto *axis = new ZrQtAxis(this);
        axis->setPosition(Qt::BottomEdge);
        auto *feed = new AxisFeed(this, axis, series->xScale, QString());
        feed->setTimeFormat(options.timeFormat);
    }
    auto *copy = new ZrQtBufferedChannel(this);
    copy->setCosyY(original->cosyY());
    copy->onAxisInverted(Axis_Y, copy->cosyY(), options.invertedY);
    series->channel = copy;
    feedSeries(*series);
    ::setColor(*series, original->lineColor());
    copy->setVisible(original->isSelectedForDisplay());
    connect(original, &ZrQtBaseChannel::visibilityChanged, copy, &ZrQtBaseChannel::setVisible);
}

/// On its own, a slider leaves its handles where they are when the range of the strip changes, and forgets
/// where they belong when there is no room for them.
void Overview::placeHandles()
{
    if (m_plot)
        m_slider->onSlaveCanvasChanged(m_plot->canvas(COSY_0), COSY_0);
}

void Overview::setColor(int index, const QColor &color)
{
    if (m_series[index].channel)
        ::setColor(m_series[index], color);
}

QSize Overview::sizeHint() const
{
    return QSize(minimumWidth(), kHeight);
}

bool Overview::eventFilter(QObject *watched, QEvent *event)
{
    const bool resized = event->type() == QEvent::Resize;
    // The base class watches the channels of this plot, too.
    const auto *channel = qobject_cast<ZrQtBufferedChannel *>(watched);
    if (channel && channel->parentWidget() == m_plot && (resized || event->type() == QEvent::Move))
        alignWith(channel);
    // After the slider has seen the event.
    if (watched == m_slider && resized)
        QMetaObject::invokeMethod(this, &Overview::placeHandles, Qt::QueuedConnection);
    return ZrQtPlot::eventFilter(watched, event);
}

/// The same x is at the same place in both plots as long as both show all of it.
void Overview::alignWith(const QWidget *plotArea)
{
    setMinMarginLeft(plotArea->x());
    setMinMarginRight(plotArea->parentWidget()->width() - plotArea->geometry().right() - 1);
}
