#include "gaps.h"

#include <cmath>

bool hasLonelySample(const QVector<double> &y)
{
    const auto isGap = [&y](int i) { return i < 0 || i >= y.size() || std::isnan(y[i]); };
    for (int i = 0; i < y.size(); ++i) {
        if (!isGap(i) && isGap(i - 1) && isGap(i + 1))
            return true;
    }
    return false;
}
