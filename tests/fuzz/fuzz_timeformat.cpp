#include "byteinput.h"

#include "internal/timeformat_p.h"

#include <cmath>
#include <ctime>

using namespace ZrTicks;

namespace {

/// The longest text of a placeholder is the number of microseconds of the largest double.
constexpr int longestPlaceholder = 400;

/// The year 2096, in milliseconds.
constexpr double lastWallClock = 4e12;

void checkFormat(const TimeFormat &format, int formatSize, double time, double reference)
{
    const QByteArray text = format.text(time, reference);
    require(text.size() <= (formatSize + 1) * longestPlaceholder, "the text of a time is bounded");
    require(text == format.text(time, reference), "the same time has the same text");

    const double whole = format.toResolution(time, reference);
    if (!std::isfinite(whole))
        require(!std::isfinite(time) || !std::isfinite(reference) || !std::isfinite(time - reference),
                "a time lowered to a whole unit stays finite");
    // In the years of wall clocks, and counted from nowhere else.
    if (time > 0.0 && time < lastWallClock && reference == 0.0) {
        require(whole <= time, "a time is lowered, not raised");
        require(format.toResolution(whole, reference) == whole, "a whole unit stays as it is");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // One zone for all machines, with a summer time.
    qputenv("TZ", "Europe/Berlin");
    tzset();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ByteInput input(data, size);
    const double times[] = {input.real(), input.real() * 86400000.0, 1.7e12 + input.raw<std::uint32_t>()};
    const double reference = input.flag() ? 0.0 : input.real() * 1000.0;
    const QByteArray text = input.text(4096);

    const QVector<TimeLevel> levels = parseTimeLevels(text);
    require(levels.size() <= text.size(), "no more levels than characters");
    for (int i = 1; i < levels.size(); ++i)
        require(levels.at(i - 1).threshold <= levels.at(i).threshold, "levels ascend");
    for (const double time : times) {
        const TimeLevel *level = levelForSpan(levels, std::fabs(time));
        require(!level || level->threshold > std::fabs(time), "a level suits the range it is chosen for");
        for (const TimeLevel &each : levels)
            checkFormat(each.format, text.size(), time, reference);
    }
    return 0;
}
