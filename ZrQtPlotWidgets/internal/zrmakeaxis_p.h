#ifndef ZRMAKEAXIS_P_H
#define ZRMAKEAXIS_P_H

#include "ticklabels_p.h"
#include "ticksteps_p.h"
#include "tickvalues_p.h"
#include "timeformat_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QVector>

/// The tick engine: from a range, a length and the wishes of an axis to ticks, sub-ticks and labels. It knows
/// no pixels but as lengths; positions are normalized, 0 at the lower and 1 at the upper end of the range.
///
/// Every change of the wishes takes effect with the next range. Until then the ticks, and the labels they
/// were made with, stay.
class ZrMakeAxis
{
public:
    explicit ZrMakeAxis(const QByteArray &name = QByteArray());

    [[nodiscard]] QByteArray name() const { return m_name; }

    void setLength(double length, double tickDistance, double subTickDistance, bool fixedLength = false);
    void setParameters(bool logarithmic, int maxTicks, int maxSubTicks, int precision, bool equalSpaced,
                       int format, bool scientificExponent, bool equalExponent, bool showBoundLabels,
                       bool keepChoice = false);
    void setTimeFormat(const QByteArray &latin1);

    /// The moment, in milliseconds since the epoch, from which time labels count; 0 for none.
    void setTimeReference(double milliseconds);

    bool setRange(double lo, double hi);

    [[nodiscard]] QVector<double> tickPositions() const;
    [[nodiscard]] QVector<double> subTickPositions() const { return m_subTicks; }
    [[nodiscard]] QByteArray label(int index) const;

private:
    bool compute();
    int commonExponent() const;
    void removeBoundTicks();
    void removeTicksOffTheirTime();
    void forgetRange();
    void clearTicks();

    QByteArray m_name;
    ZrTicks::TickParameters m_parameters;
    ZrTicks::LabelFormat m_format = ZrTicks::LabelFormat::FloatingPoint;
    bool m_exponentMultipleOfThree = false;
    bool m_equalExponent = false;
    bool m_showBoundLabels = true;
    QVector<ZrTicks::TimeLevel> m_levels;
    double m_timeReference = 0.0;
    ZrTicks::StepChoice m_previousChoice;

    ZrTicks::TickScale m_scale; ///< its bounds are the last range, both 0 when there is none
    QVector<ZrTicks::Tick> m_ticks;
    QVector<double> m_subTicks;

    /// How the labels of the present ticks are written; labels are only made when they are asked for.
    struct LabelStyle
    {
        ZrTicks::NumberStyle number;
        ZrTicks::TimeFormat time;
        double timeReference = 0.0;
    };
    LabelStyle m_labelStyle;
};

#endif // ZRMAKEAXIS_P_H
