#include "powersoften_p.h"

#include <QtCore/QByteArray>

#include <array>
#include <cmath>
#include <limits>

namespace ZrTicks {

namespace {

constexpr int lowestExponent = -324;
constexpr int highestExponent = 308;
constexpr int leastDecimals = -17;
constexpr int mostDecimals = 17;

using Table = std::array<double, highestExponent - lowestExponent + 1>;

// Read from decimal text: neither pow() nor repeated multiplication gives the nearest double everywhere.
Table makeTable()
{
    Table table{};
    for (int exponent = lowestExponent; exponent <= highestExponent; ++exponent)
        table[size_t(exponent - lowestExponent)] = ("1e" + QByteArray::number(exponent)).toDouble();
    return table;
}

} // namespace

double powerOfTen(int exponent)
{
    static const Table table = makeTable();
    if (exponent < lowestExponent)
        return 0.0;
    if (exponent > highestExponent)
        return std::numeric_limits<double>::infinity();
    return table[size_t(exponent - lowestExponent)];
}

double scaledByPowerOfTen(double value, int exponent)
{
    // Two steps where one power alone would leave the range of doubles: 4e-324 is 0.4 * 10^-323.
    if (exponent > highestExponent)
        return value * powerOfTen(highestExponent) * powerOfTen(exponent - highestExponent);
    if (exponent < -highestExponent)
        return value / powerOfTen(highestExponent) / powerOfTen(-exponent - highestExponent);
    return exponent < 0 ? value / powerOfTen(-exponent) : value * powerOfTen(exponent);
}

double roundedToDecimals(double value, int decimals)
{
    const double scaled = scaledByPowerOfTen(std::fabs(value), decimals);
    // So large a number has no decimals to round.
    if (!std::isfinite(scaled))
        return value;
    return std::copysign(scaledByPowerOfTen(std::floor(scaled + 0.5), -decimals), value);
}

int decimalsNeeded(double value)
{
    int decimals = value == 0.0 ? 0 : leastDecimals;
    while (decimals < mostDecimals && roundedToDecimals(value, decimals) != value)
        ++decimals;
    return decimals;
}

} // namespace ZrTicks
