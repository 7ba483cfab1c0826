#include "columntypes.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <cmath>

Q_DECLARE_METATYPE(DecimalMark)
Q_DECLARE_METATYPE(SlashDate)
Q_DECLARE_METATYPE(ColumnKind)

namespace {

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

/// As the axis gets it, from what a UTC clock shows.
double shown(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int millisecond = 0)
{
    const QDateTime time(QDate(year, month, day), QTime(hour, minute, second, millisecond), Qt::UTC);
    return WallClock::fromShownTime(double(time.toMSecsSinceEpoch()));
}

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

} // namespace

class TestColumnTypes : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void dates_data();
    void dates();
    void times_data();
    void times();
    void columns_data();
    void columns();
    void cellsOfAnotherKindHaveNoValue();
};

void TestColumnTypes::numbers_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<DecimalMark>("mark");
    QTest::addColumn<double>("value");

    const auto point = [](const char *cell, double value) {
        QTest::newRow(cell) << QByteArray(cell) << DecimalMark::Point << value;
    };
    point("0", 0.0);
    point("-1.5", -1.5);
    point("+1.5", 1.5);
    point(".5", 0.5);
    point("5.", 5.0);
    point("1e3", 1000.0);
    point("1.5E-3", 0.0015);
    point(" 7 ", 7.0);
    point("1e-310", 1e-310);
    point("", kNone);
    point("+", kNone);
    point("-", kNone);
    point("+-1", kNone);
    point("1.5.2", kNone);
    point("1,5", kNone);
    point("12 34", kNone);
    point("5 m", kNone);
    point("0x10", kNone);
    point("nan", kNone);
    point("inf", kNone);
    point("-inf", kNone);
    point("-1e300", -1e300);
    point("1.1e300", kNone);
    point("-1.1e300", kNone);
    point("1e999", kNone);
    point("1e-999", kNone);
    point("n/a", kNone);
    const auto comma = [](const char *name, const QByteArray &cell, double value) {
        QTest::newRow(name) << cell << DecimalMark::Comma << value;
    };
    comma("decimal comma", "-1,5", -1.5);
    comma("decimal comma, whole number", "12", 12.0);
    comma("decimal comma, point", "1.5", kNone);
    comma("decimal comma, thousands", "1.234,5", kNone);
    comma("decimal comma, two of them", "1,2,3", kNone);
    comma("decimal comma, too long", QByteArray(100, '1'), kNone);
}

void TestColumnTypes::numbers()
{
    QFETCH(QByteArray, cell);
    QFETCH(DecimalMark, mark);
    QFETCH(double, value);
    QVERIFY(same(readNumber(view(cell), mark).value_or(kNone), value));
}

void TestColumnTypes::dates_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<SlashDate>("slashDate");
    QTest::addColumn<double>("value");

    const auto row = [](const char *cell, double value, SlashDate slashDate = SlashDate::MonthFirst) {
        const QString order = slashDate == SlashDate::DayFirst ? QStringLiteral("day first: ") : QString();
        QTest::newRow(qPrintable(order + QString::fromLatin1(cell)))
            << QByteArray(cell) << slashDate << value;
    };
    row("2026-11-21", shown(2026, 11, 21));
    row("2026-1-2", shown(2026, 1, 2));
    row("2026/11/21", shown(2026, 11, 21));
    row("2026-11", shown(2026, 11, 1));
    row("2026/11", shown(2026, 11, 1));
    row("2026-Nov-21", shown(2026, 11, 21));
    row("1969-12-31", shown(1969, 12, 31));
    row("1600-02-29", shown(1600, 2, 29));
    row("2000-02-29", shown(2000, 2, 29));
    row("2100-02-28", shown(2100, 2, 28));
    row("2100-02-29", kNone);
    row("2026-11-31", kNone);
    row("2026-13-01", kNone);
    row("2026-00-01", kNone);
    row("2026-11-00", kNone);
    row("2026-11/21", kNone);
    row("3/4/2026", shown(2026, 3, 4));
    row("3/4/2026", shown(2026, 4, 3), SlashDate::DayFirst);
    row("13/4/2026", kNone);
    row("13/4/2026", shown(2026, 4, 13), SlashDate::DayFirst);
    row("04.03.2026", shown(2026, 3, 4));
    row("04-03-2026", shown(2026, 3, 4));
    row("04-03-2026", shown(2026, 3, 4), SlashDate::DayFirst);
    row("4.3.26", kNone);
    row("Jan 1 2000", shown(2000, 1, 1));
    row("jan 31 2000", shown(2000, 1, 31));
    row("January 1, 2000", shown(2000, 1, 1));
    row("Sept 30, 2000", shown(2000, 9, 30));
    row("Nov. 21 2026", shown(2026, 11, 21));
    row("Nov 2026", shown(2026, 11, 1));
    row("Nov-2026", shown(2026, 11, 1));
    row("21 Nov 2026", shown(2026, 11, 21));
    row("21-Nov-2026", shown(2026, 11, 21));
    row("21/Nov/2026", shown(2026, 11, 21));
    row("Nob 21 2026", kNone);
    row("may", kNone);
    row("2026-11-21T14:03", shown(2026, 11, 21, 14, 3));
    row("2026-11-21 14:03:59", shown(2026, 11, 21, 14, 3, 59));
    row("2026-11-21T14:03:59.25", shown(2026, 11, 21, 14, 3, 59, 250));
    row("2026-11-21T14:03:59,001", shown(2026, 11, 21, 14, 3, 59, 1));
    row("2026-11-21T14:03:59.001000000000000000000001", shown(2026, 11, 21, 14, 3, 59, 1));
    row("2026-12-31T23:59:60Z", shown(2027, 1, 1));
    row("2026-11-21T14:03Z", shown(2026, 11, 21, 14, 3));
    row("2026-11-21 14:03:00 UTC", shown(2026, 11, 21, 14, 3));
    row("2026-11-21T14:03+01:00", shown(2026, 11, 21, 13, 3));
    row("2026-11-21T14:03-0530", shown(2026, 11, 21, 19, 33));
    row("2026-11-21T14:03+01", shown(2026, 11, 21, 13, 3));
    row("2026-11-21T00:30+01:00", shown(2026, 11, 20, 23, 30));
    row("11/21/2026 2:03 PM", shown(2026, 11, 21, 14, 3));
    row("11/21/2026 12:03 am", shown(2026, 11, 21, 0, 3));
    row("21.11.2026 14:03", shown(2026, 11, 21, 14, 3));
    row("Nov 21 2026, 14:03", shown(2026, 11, 21, 14, 3));
    row("2026-11-21T24:00", kNone);
    row("2026-11-21T14:60", kNone);
    row("2026-11-21T14:03:61", kNone);
    row("2026-11-21T14", kNone);
    row("2026-11-21T14:03:", kNone);
    row("2026-11-21T14:03:02.", kNone);
    row("2026-11-21T14:03 CET", kNone);
    row("2026-11-21T14:03+1", kNone);
    row("2026-11-21T14:03+010", kNone);
    row("2026-11-21T13:03 PM", kNone);
    row("2026-11-21x", kNone);
    row("2026", kNone);
    row("", kNone);
    row("14:03", kNone);
    row("99999-01-01", kNone);
}

void TestColumnTypes::dates()
{
    QFETCH(QByteArray, cell);
    QFETCH(SlashDate, slashDate);
    QFETCH(double, value);
    QVERIFY(same(readDateTime(view(cell), slashDate).value_or(kNone), value));
}

void TestColumnTypes::times_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<double>("value");

    const auto row = [](const char *cell, double value) { QTest::newRow(cell) << QByteArray(cell) << value; };
    row("14:03", shown(2000, 1, 1, 14, 3));
    row("0:00", shown(2000, 1, 1));
    row("23:59:59", shown(2000, 1, 1, 23, 59, 59));
    row("14:03:02.5", shown(2000, 1, 1, 14, 3, 2, 500));
    row("14:03:02.123", shown(2000, 1, 1, 14, 3, 2, 123));
    row("2:03:02 pm", shown(2000, 1, 1, 14, 3, 2));
    row("24:00", kNone);
    row("14:3", kNone);
    row("14", kNone);
    row("14:03Z", kNone);
    row("-1:00", kNone);
    row("", kNone);
}

void TestColumnTypes::times()
{
    QFETCH(QByteArray, cell);
    QFETCH(double, value);
    QVERIFY(same(readTimeOfDay(view(cell)).value_or(kNone), value));
}

void TestColumnTypes::columns_data()
{
    QTest::addColumn<QList<QByteArray>>("cells");
    QTest::addColumn<bool>("commaAllowed");
    QTest::addColumn<ColumnKind>("kind");
    QTest::addColumn<DecimalMark>("mark");
    QTest::addColumn<SlashDate>("slashDate");

    const auto row
        = [](const char *name, const QList<QByteArray> &cells, ColumnKind kind, bool commaAllowed = false,
             DecimalMark mark = DecimalMark::Point, SlashDate slashDate = SlashDate::MonthFirst) {
              QTest::newRow(name) << cells << commaAllowed << kind << mark << slashDate;
          };
    row("nothing", {}, ColumnKind::Empty);
    row("empty cells", {"", " "}, ColumnKind::Empty);
    row("numbers", {"1", "", "2.5"}, ColumnKind::Number);
    row("numbers with a few words", {"1", "n/a", "2.5", "3"}, ColumnKind::Number);
    row("half numbers", {"1", "x"}, ColumnKind::Number);
    row("less than half numbers", {"1", "x", "y"}, ColumnKind::Text);
    row("words", {"rain", "sun"}, ColumnKind::Text);
    row("years are numbers", {"1999", "2000"}, ColumnKind::Number);
    row("decimal commas", {"1,5", "2"}, ColumnKind::Number, true, DecimalMark::Comma);
    row("decimal commas not allowed", {"1,5", "2,5", "3"}, ColumnKind::Text);
    row("points where commas are allowed", {"1.5", "2"}, ColumnKind::Number, true);
    row("dates", {"2026-11-21", "2026-11-22"}, ColumnKind::DateTime);
    row("slash dates that fit both orders", {"1/2/2026", "3/4/2026"}, ColumnKind::DateTime);
    row("slash dates, month first", {"1/2/2026", "3/14/2026"}, ColumnKind::DateTime);
    row("slash dates, day first", {"1/2/2026", "14/3/2026"}, ColumnKind::DateTime, false, DecimalMark::Point,
        SlashDate::DayFirst);
    row("times", {"14:03", "14:04"}, ColumnKind::TimeOfDay);
}

void TestColumnTypes::columns()
{
    QFETCH(QList<QByteArray>, cells);
    QFETCH(bool, commaAllowed);
    ColumnSampler sampler(commaAllowed);
    for (const QByteArray &cell : qAsConst(cells))
        sampler.add(view(cell));
    const CellFormat format = sampler.decide();
    QTEST(format.kind, "kind");
    QTEST(format.decimalMark, "mark");
    QTEST(format.slashDate, "slashDate");
}

void TestColumnTypes::cellsOfAnotherKindHaveNoValue()
{
    QCOMPARE(readCell("5", {ColumnKind::Number, DecimalMark::Point, SlashDate::MonthFirst}).value_or(kNone),
             5.0);
    QVERIFY(!readCell("5", {ColumnKind::DateTime, DecimalMark::Point, SlashDate::MonthFirst}));
    QVERIFY(!readCell("5", {ColumnKind::TimeOfDay, DecimalMark::Point, SlashDate::MonthFirst}));
    QVERIFY(!readCell("5", {ColumnKind::Text, DecimalMark::Point, SlashDate::MonthFirst}));
    QVERIFY(!readCell("5", {}));
}

QTEST_APPLESS_MAIN(TestColumnTypes)
#include "tst_columntypes.moc"
