#include "zrqtplot_p.h"

#include "zrqtplotslider.h"

void ZrQtPlotPrivate::setSlider(ZrQtPlotSlider *slider)
{
    if (slider == m_slider)
        return;
    const QPointer<ZrQtPlotSlider> previous = m_slider;
    // Stored first: child events come back here while the parents change.
    m_slider = slider;
    if (previous)
        releaseSlider(previous);
    if (slider) {
        if (slider->parent() != q)
            slider->setParent(q);
        QObject::connect(q, &ZrQtPlot::canvasChanged, slider, &ZrQtPlotSlider::onMasterCanvasChanged);
        if (!m_plotRect.isNull())
            slider->setGeometry(m_plotRect.toRect());
    }
    const QPointer<ZrQtPlot> plot(q);
    emitUsedCanvases();
    if (plot)
        raiseTopmost();
}

void ZrQtPlotPrivate::releaseSlider(ZrQtPlotSlider *slider)
{
    slider->removeEventFilter(q);
    QObject::disconnect(q, nullptr, slider, nullptr);
    unparent(slider);
}

void ZrQtPlot::addSlider(ZrQtPlotSlider *slider)
{
    Q_D(ZrQtPlot);
    d->setSlider(slider);
}

void ZrQtPlot::removeSlider(ZrQtPlotSlider *slider)
{
    Q_D(ZrQtPlot);
    if (!slider || slider != d->m_slider)
        return;
    d->m_slider = nullptr;
    d->releaseSlider(slider);
}

void ZrQtPlot::connectSlider(ZrQtPlotSlider *slider)
{
    Q_D(ZrQtPlot);
    if (!slider)
        return;
    connect(slider, &ZrQtPlotSlider::selectionChanged, this, &ZrQtPlot::setCanvas, Qt::UniqueConnection);
    connect(this, &ZrQtPlot::canvasChanged, slider, &ZrQtPlotSlider::onSlaveCanvasChanged,
            Qt::UniqueConnection);
    d->m_drivingSliders.removeAll(nullptr);
    if (!d->m_drivingSliders.contains(slider))
        d->m_drivingSliders.append(slider);
    d->emitUsedCanvases();
}

void ZrQtPlot::disconnectSlider()
{
    Q_D(ZrQtPlot);
    if (!d->m_slider)
        return;
    disconnect(d->m_slider, nullptr, this, nullptr);
    disconnect(this, nullptr, d->m_slider, nullptr);
}
