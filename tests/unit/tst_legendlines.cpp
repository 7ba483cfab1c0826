#include "internal/legendlines_p.h"

#include "shared/quiettest.h"

#include <random>

using namespace LegendLines;

using Widths = QVector<int>;
using Entries = QVector<QVector<int>>;

Q_DECLARE_METATYPE(Entries)

namespace {

constexpr int spacing = 8;

/// The number of lines, counted without making any.
int countedLines(const Widths &widths, int gap, int available)
{
    int used = 0;
    int lines = 0;
    for (int i = 0; i < widths.size(); ++i) {
        const int entry = widths.at(i);
        const bool last = i == widths.size() - 1;
        const int before = used > 0 ? gap : 0;
        if (before + entry + used > available) {
            if (used == 0) {
                ++lines;
            } else if (last) {
                lines += entry < 1 ? 1 : 2;
            } else {
                used = entry;
                ++lines;
            }
        } else if (last) {
            if (used >= 1)
                ++lines;
        } else {
            used += (used >= 1 && entry >= 1 ? gap : 0) + entry;
        }
    }
    return lines;
}

} // namespace

class TestLegendLines : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void metricsFollowTheFont_data();
    void metricsFollowTheFont();
    void entriesAreBroken_data();
    void entriesAreBroken();
    void numberOfLinesIsTheCountedOne();
    void everyListedEntryStandsOnce();
};

void TestLegendLines::metricsFollowTheFont_data()
{
    QTest::addColumn<int>("fontHeight");
    QTest::addColumn<int>("gap");
    QTest::addColumn<int>("sampleGap");
    QTest::addColumn<int>("lineHeight");
    QTest::addColumn<int>("widthOfForty");
    QTest::newRow("16 pixels") << 16 << 8 << 4 << 24 << 60;
    QTest::newRow("15 pixels") << 15 << 8 << 4 << 23 << 59;
    QTest::newRow("13 pixels") << 13 << 7 << 4 << 20 << 57;
    QTest::newRow("no height") << 0 << 0 << 0 << 0 << 40;
}

void TestLegendLines::metricsFollowTheFont()
{
    QFETCH(int, fontHeight);
    const Metrics metrics(fontHeight);
    QCOMPARE(metrics.fontHeight, fontHeight);
    QTEST(metrics.spacing, "gap");
    QTEST(metrics.sampleGap, "sampleGap");
    QTEST(metrics.lineHeight(), "lineHeight");
    QTEST(metrics.entryWidth(40), "widthOfForty");
}

void TestLegendLines::entriesAreBroken_data()
{
    QTest::addColumn<Widths>("widths");
    QTest::addColumn<Entries>("entries");
    QTest::addColumn<Widths>("lineWidths");

    // 100 pixels are available, entries stand 8 apart.
    QTest::newRow("no channel") << Widths{} << Entries{} << Widths{};
    QTest::newRow("three fit on one line") << Widths{20, 30, 30} << Entries{{0, 1, 2}} << Widths{96};
    QTest::newRow("exactly the width") << Widths{46, 46} << Entries{{0, 1}} << Widths{100};
    QTest::newRow("one pixel too wide: the last begins a line")
        << Widths{46, 47} << Entries{{0}, {1}} << Widths{46, 47};
    QTest::newRow("a break in the middle") << Widths{60, 60, 20} << Entries{{0}, {1, 2}} << Widths{60, 88};
    QTest::newRow("the only entry takes no line") << Widths{40} << Entries{} << Widths{};
    QTest::newRow("only the last of three is listed: no line") << Widths{0, 0, 40} << Entries{} << Widths{};
    QTest::newRow("only the first of two is listed") << Widths{40, 0} << Entries{{0}} << Widths{40};
    QTest::newRow("a channel that is not listed takes no spacing")
        << Widths{20, 0, 30, 30} << Entries{{0, 2, 3}} << Widths{96};
    QTest::newRow("none listed") << Widths{0, 0} << Entries{} << Widths{};
    QTest::newRow("wider than the line, alone") << Widths{150} << Entries{{0}} << Widths{150};
    QTest::newRow("wider than the line, first: the next begins anew")
        << Widths{150, 40, 40} << Entries{{0}, {1, 2}} << Widths{150, 88};
    QTest::newRow("wider than the line, then the last alone takes no line")
        << Widths{150, 40} << Entries{{0}} << Widths{150};
    QTest::newRow("wider than the line, after another")
        << Widths{40, 150, 20} << Entries{{0}, {1}, {2}} << Widths{40, 150, 20};
    QTest::newRow("wider than the line, last") << Widths{40, 150} << Entries{{0}, {1}} << Widths{40, 150};
    QTest::newRow("not listed, but no room for the spacing either: ends the line")
        << Widths{95, 0} << Entries{{0}} << Widths{95};
    QTest::newRow("the same in the middle: the last then takes no line")
        << Widths{95, 0, 40} << Entries{{0}} << Widths{95};
}

void TestLegendLines::entriesAreBroken()
{
    QFETCH(Widths, widths);
    Entries entries;
    Widths lineWidths;
    const QVector<Line> lines = broken(widths, spacing, 100);
    for (const Line &line : lines) {
        entries.append(line.entries);
        lineWidths.append(line.width);
    }
    QTEST(entries, "entries");
    QTEST(lineWidths, "lineWidths");
    QCOMPARE(lines.size(), countedLines(widths, spacing, 100));
}

void TestLegendLines::numberOfLinesIsTheCountedOne()
{
    std::mt19937 random(11);
    std::uniform_int_distribution<int> count(0, 9);
    std::uniform_int_distribution<int> width(-10, 60);
    std::uniform_int_distribution<int> available(-5, 150);
    std::uniform_int_distribution<int> gap(0, 12);
    for (int i = 0; i < 20000; ++i) {
        Widths widths;
        for (int j = count(random); j > 0; --j)
            widths.append(std::max(0, width(random)));
        const int room = available(random);
        const int distance = gap(random);
        QCOMPARE(broken(widths, distance, room).size(), countedLines(widths, distance, room));
    }
}

void TestLegendLines::everyListedEntryStandsOnce()
{
    std::mt19937 random(12);
    std::uniform_int_distribution<int> width(1, 60);
    for (int i = 0; i < 2000; ++i) {
        Widths widths;
        for (int j = 0; j < 12; ++j)
            widths.append(width(random));
        QVector<int> seen;
        for (const Line &line : broken(widths, spacing, 100)) {
            int used = -spacing;
            for (int entry : line.entries)
                used += spacing + widths.at(entry);
            QCOMPARE(used, line.width);
            QVERIFY(line.width <= 100 || line.entries.size() == 1);
            seen += line.entries;
        }
        // Twelve entries of at most 60 pixels never leave the last one alone in its first line.
        QCOMPARE(seen.size(), widths.size());
        for (int j = 0; j < seen.size(); ++j)
            QCOMPARE(seen.at(j), j);
    }
}

QTEST_APPLESS_MAIN(TestLegendLines)
#include "tst_legendlines.moc"
