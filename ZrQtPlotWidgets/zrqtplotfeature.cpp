#include "zrqtplotfeature.h"

#include "zrqtplotchannel.h"
#include "zrqtplotfeature_p.h"

ZrQtPlotFeature::ZrQtPlotFeature()
    : m_d(new ZrQtPlotFeaturePrivate(this))
{
}

ZrQtPlotFeature::~ZrQtPlotFeature()
{
    ZrQtPlotChannel *channel = parentChannel();
    if (channel && channel->customFeature() == this)
        channel->setCustomFeature(nullptr);
}

QRectF ZrQtPlotFeature::boundingRectangle()
{
    return QRectF();
}

ZrQtPlotChannel *ZrQtPlotFeature::parentChannel() const
{
    Q_D(const ZrQtPlotFeature);
    return qobject_cast<ZrQtPlotChannel *>(d->parentChannel.data());
}

void ZrQtPlotFeature::update()
{
    if (ZrQtPlotChannel *channel = parentChannel())
        channel->update();
}

void ZrQtPlotFeature::setParentChannel(ZrQtPlotChannel *channel)
{
    Q_D(ZrQtPlotFeature);
    d->parentChannel = channel;
}
