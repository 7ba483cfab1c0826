#include "zrqtmakeaxis.h"

#include "zrqtmakeaxis_p.h"

ZrQtMakeAxis::ZrQtMakeAxis(QObject *parent)
    : QObject(parent)
    , m_d(new ZrQtMakeAxisPrivate)
{
}

ZrQtMakeAxis::~ZrQtMakeAxis() = default;

void ZrQtMakeAxis::setLength(double length, double tickDistance, double subTickDistance, bool fixedLength)
{
    Q_D(ZrQtMakeAxis);
    d->engine.setLength(length, tickDistance, subTickDistance, fixedLength);
}

void ZrQtMakeAxis::setParameters(bool logarithmic, int maxTicks, int maxSubTicks, int precision,
                                 bool equalSpaced, int format, bool scientificExponent, bool equalExponent,
                                 bool showBoundLabels, bool keepChoice)
{
    Q_D(ZrQtMakeAxis);
    d->timeMode = format == int(ZrTicks::LabelFormat::DateTime);
    d->engine.setParameters(logarithmic, maxTicks, maxSubTicks, precision, equalSpaced, format,
                            scientificExponent, equalExponent, showBoundLabels, keepChoice);
}

void ZrQtMakeAxis::setTimeFormat(const QByteArray &latin1)
{
    Q_D(ZrQtMakeAxis);
    d->engine.setTimeFormat(latin1);
}

bool ZrQtMakeAxis::setRange(double lo, double hi)
{
    Q_D(ZrQtMakeAxis);
    if (d->timeMode)
        return d->engine.setRange(lo > 0.0 ? lo : 0.0, hi > 0.0 ? hi : 0.0);
    return d->engine.setRange(lo, hi);
}

QVector<double> ZrQtMakeAxis::tickPositions() const
{
    Q_D(const ZrQtMakeAxis);
    return d->engine.tickPositions();
}

QVector<double> ZrQtMakeAxis::subTickPositions() const
{
    Q_D(const ZrQtMakeAxis);
    return d->engine.subTickPositions();
}

QByteArray ZrQtMakeAxis::label(int index) const
{
    Q_D(const ZrQtMakeAxis);
    return d->engine.label(index);
}
