#ifndef SAMPLEEXTENT_P_H
#define SAMPLEEXTENT_P_H

#include <limits>

/// The range that numbers cover; empty at first. NaN is never part of it.
struct SampleExtent
{
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    [[nodiscard]] bool isEmpty() const { return !(low <= high); }

    void include(double value)
    {
        low = value < low ? value : low;
        high = value > high ? value : high;
    }

    void include(const SampleExtent &other)
    {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
};

#endif // SAMPLEEXTENT_P_H
