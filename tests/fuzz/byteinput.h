#ifndef BYTEINPUT_H
#define BYTEINPUT_H

#include <QtCore/QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>

/// Turns the bytes of a fuzzer into choices and values. When they are used up every answer is 0.
///
/// Ask for one value after the other, into variables or between braces: compilers differ in which argument of
/// a call they work out first, and a seed has to mean the same to all.
class ByteInput
{
public:
    ByteInput(const std::uint8_t *bytes, std::size_t size)
        : m_next(bytes)
        , m_end(bytes + size)
    {
    }

    bool isAtEnd() const { return m_next == m_end; }

    /// 0 to \a count - 1; \a count is at most 256.
    int below(int count) { return byte() % count; }

    bool flag() { return below(2) == 1; }

    template <typename T, std::size_t size> T anyOf(const T (&values)[size])
    {
        return values[below(int(size))];
    }

    /// Any eight bytes, as a number of type \a T.
    template <typename T> T raw()
    {
        T value{};
        const std::size_t count = std::min<std::size_t>(sizeof value, std::size_t(m_end - m_next));
        std::memcpy(&value, m_next, count);
        m_next += count;
        return value;
    }

    /// Small numbers, the border cases of a double, or any bits.
    double real()
    {
        using Limits = std::numeric_limits<double>;
        static constexpr double odd[] = {0.0,
                                         -0.0,
                                         1.0,
                                         0.5,
                                         -1.0,
                                         Limits::quiet_NaN(),
                                         Limits::infinity(),
                                         -Limits::infinity(),
                                         Limits::max(),
                                         Limits::lowest(),
                                         1e308,
                                         -1e308,
                                         1e300,
                                         -1e300,
                                         1e15,
                                         1e-15,
                                         Limits::min(),
                                         Limits::denorm_min(),
                                         -Limits::denorm_min(),
                                         1e-300,
                                         2147483648.0,
                                         16777216.0};
        switch (below(4)) {
        case 0:
            return anyOf(odd);
        case 1:
            return raw<double>();
        default:
            return tameReal();
        }
    }

    /// -3276.8 to 3276.7 in steps of a tenth.
    double tameReal() { return raw<std::int16_t>() / 10.0; }

    int integer()
    {
        static constexpr int odd[] = {0,
                                      1,
                                      -1,
                                      2,
                                      3,
                                      100,
                                      32767,
                                      32768,
                                      65536,
                                      16777215,
                                      16777216,
                                      std::numeric_limits<int>::max(),
                                      std::numeric_limits<int>::min(),
                                      std::numeric_limits<int>::max() - 1};
        switch (below(4)) {
        case 0:
            return anyOf(odd);
        case 1:
            return raw<int>();
        default:
            return raw<std::int8_t>();
        }
    }

    QByteArray text(int longest)
    {
        const std::ptrdiff_t wanted = below(256) * longest / 255;
        const std::ptrdiff_t count = std::min(wanted, m_end - m_next);
        const QByteArray result(reinterpret_cast<const char *>(m_next), int(count));
        m_next += count;
        return result;
    }

private:
    int byte() { return isAtEnd() ? 0 : *m_next++; }

    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};

/// Ends the program with the name of a rule that does not hold.
inline void require(bool holds, const char *rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "violated: %s\n", rule);
    std::abort();
}

#endif // BYTEINPUT_H
