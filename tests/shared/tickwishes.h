#ifndef TICKWISHES_H
#define TICKWISHES_H

#include "internal/zrmakeaxis_p.h"

/// One call of ZrMakeAxis::setLength() and setParameters().
struct TickWishes
{
    double length = 400.0;
    double tickDistance = 60.0;
    double subTickDistance = 0.0;
    bool fixedLength = false;
    bool logarithmic = false;
    int maxTicks = 10;
    int maxSubTicks = 4;
    int precision = 1;
    bool equalSpaced = false;
    int format = 0;
    bool scientificExponent = false;
    bool equalExponent = false;
    bool showBoundLabels = true;
    bool keepChoice = false;

    void applyTo(ZrMakeAxis &engine) const
    {
        engine.setLength(length, tickDistance, subTickDistance, fixedLength);
        engine.setParameters(logarithmic, maxTicks, maxSubTicks, precision, equalSpaced, format,
                             scientificExponent, equalExponent, showBoundLabels, keepChoice);
    }

    bool spacesTicks() const { return length > 0.0 && tickDistance > 0.0; }
};

#endif // TICKWISHES_H
