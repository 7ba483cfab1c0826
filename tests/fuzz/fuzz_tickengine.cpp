#include "byteinput.h"
#include "shared/tickwishes.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

// Milliseconds of the processor; the rest is for sanitizers.
constexpr double longestComputation = 3000.0;
constexpr int mostTicks = 100000;

// A tick stands where its label says: two neighbours may be rounded towards each other, past their distance.
constexpr double labelRounding = 0.06;

TickWishes wishesFrom(ByteInput &input)
{
    TickWishes wishes;
    wishes.length = input.real();
    wishes.tickDistance = input.real();
    wishes.subTickDistance = input.real();
    wishes.fixedLength = input.flag();
    wishes.logarithmic = input.flag();
    wishes.maxTicks = input.integer();
    wishes.maxSubTicks = input.integer();
    wishes.precision = input.integer();
    wishes.equalSpaced = input.flag();
    wishes.format = input.integer();
    wishes.scientificExponent = input.flag();
    wishes.equalExponent = input.flag();
    wishes.showBoundLabels = input.flag();
    wishes.keepChoice = input.flag();
    return wishes;
}

void checkPositions(const QVector<double> &positions)
{
    require(positions.size() <= mostTicks, "ticks are counted");
    require(std::all_of(positions.cbegin(), positions.cend(), [](double p) { return std::isfinite(p); }),
            "ticks are finite");
}

void checkTicks(const ZrMakeAxis &engine, const TickWishes &wishes, bool made)
{
    const QVector<double> ticks = engine.tickPositions();
    require(made == !ticks.isEmpty(), "ticks were made if the engine says so");
    require(ticks.size() <= std::max(wishes.maxTicks, 2), "no more ticks than wished");
    checkPositions(ticks);
    checkPositions(engine.subTickPositions());
    // Where ticks may stand as close as they like, their labels may take them anywhere.
    const auto isBefore = [](double a, double b) { return a < b - labelRounding; };
    if (wishes.spacesTicks() && !wishes.equalSpaced)
        require(std::is_sorted(ticks.cbegin(), ticks.cend(), isBefore), "ticks ascend");
    for (int i = -1; i <= std::min(ticks.size(), 50); ++i)
        require(engine.label(i).size() < 100000, "labels are bounded");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qputenv("TZ", "Europe/Berlin");
    tzset();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ByteInput input(data, size);
    ZrMakeAxis engine;
    TickWishes wishes;
    wishes.applyTo(engine);
    while (!input.isAtEnd()) {
        switch (input.below(6)) {
        case 0:
            wishes = wishesFrom(input);
            break;
        case 1:
            engine.setTimeFormat(input.text(256));
            break;
        case 2:
            engine.setTimeReference(input.real());
            break;
        default:
            break;
        }
        // Always, since the checks compare with the wishes of the last range.
        wishes.applyTo(engine);
        const double lo = input.real();
        const double hi = input.flag() ? input.real() : lo + std::fabs(lo) * input.real();
        const std::clock_t start = std::clock();
        const bool made = engine.setRange(lo, hi);
        const double milliseconds = 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC;
        require(milliseconds < longestComputation, "ticks are made at once");
        checkTicks(engine, wishes, made);
    }
    return 0;
}
