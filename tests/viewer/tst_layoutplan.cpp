#include "layoutplan.h"

#include "shared/quiettest.h"

namespace {

SeriesInfo series(double lowest, double highest, std::optional<AxisSide> side = std::nullopt)
{
    SeriesInfo info;
    info.name = QStringLiteral("%1..%2").arg(lowest).arg(highest);
    info.range = {lowest, highest};
    info.side = side;
    return info;
}

/// Sides and members of the systems: "L0,2 R1".
QString described(const LayoutPlan &plan)
{
    QStringList list;
    for (const SystemPlan &system : plan.systems) {
        QStringList members;
        for (const int member : system.series)
            members += QString::number(member);
        list += (system.side == AxisSide::Left ? QLatin1Char('L') : QLatin1Char('R'))
                + members.join(QLatin1Char(','));
    }
    return list.join(QLatin1Char(' '));
}

} // namespace

Q_DECLARE_METATYPE(SeriesInfo)

class TestLayoutPlan : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void systems_data();
    void systems();
    void membershipIsKnownFromBothSides();
    void noMoreThanSixteenSystems();
    void labels();
    void xAxes();
};

void TestLayoutPlan::systems_data()
{
    QTest::addColumn<QVector<SeriesInfo>>("series");
    QTest::addColumn<QString>("plan");

    const auto row = [](const char *name, const QVector<SeriesInfo> &list, const char *plan) {
        QTest::newRow(name) << list << QString::fromLatin1(plan);
    };
    const auto left = AxisSide::Left;
    const auto right = AxisSide::Right;
    row("none", {}, "");
    row("one", {series(0, 1)}, "L0");
    row("of similar magnitude", {series(0, 10), series(-2, 5), series(8, 12)}, "L0,1,2");
    row("a tenth of the range is enough", {series(0, 10), series(0, 1)}, "L0,1");
    row("less than a tenth is not", {series(0, 10), series(0, 0.99)}, "L0 R1");
    row("the first member counts, too", {series(0, 0.99), series(0, 10)}, "L0 R1");
    row("of the same size but far apart", {series(1010, 1030), series(0, 20)}, "L0 R1");
    row("the third axis goes left again", {series(0, 1), series(0, 100), series(0, 10000)}, "L0 R1 L2");
    row("back to the first system", {series(0, 1), series(0, 100), series(0, 1)}, "L0,2 R1");
    row("constants do not flatten", {series(0, 10), series(5, 5)}, "L0,1");
    row("a constant far away does", {series(0, 10), series(500, 500)}, "L0 R1");
    row("two constants", {series(5, 5), series(500, 500)}, "L0,1");
    row("nothing but gaps", {series(0, 10), {}}, "L0,1");
    row("gaps first", {{}, series(0, 10), series(0, 1000)}, "L0,1 R2");
    row("wished side", {series(0, 10, right)}, "R0");
    row("wishes differ", {series(0, 10, left), series(0, 10, right)}, "L0 R1");
    row("a wish for the second", {series(0, 10), series(0, 10, right)}, "R0,1");
    row("others fill the other side", {series(0, 10), series(0, 1000, left)}, "R0 L1");
    row("wishes for one side", {series(0, 10, right), series(0, 1000, right), series(0, 1e6), series(0, 1e8)},
        "R0 R1 L2 L3");
}

void TestLayoutPlan::systems()
{
    QFETCH(QVector<SeriesInfo>, series);
    QTEST(described(planLayout(series)), "plan");
}

void TestLayoutPlan::membershipIsKnownFromBothSides()
{
    const LayoutPlan plan = planLayout({series(0, 1), series(0, 100), series(0, 1), series(0, 1e5)});
    QCOMPARE(plan.systemOfSeries, QVector<int>({0, 1, 0, 2}));
}

void TestLayoutPlan::noMoreThanSixteenSystems()
{
    QVector<SeriesInfo> many;
    double size = 1.0;
    for (int i = 0; i < 20; ++i, size *= 100.0)
        many.append(series(0.0, size));
    many.append(series(0.0, 1e6));
    const LayoutPlan plan = planLayout(many);
    QCOMPARE(plan.systems.size(), kMostSystems);
    // The first one that is left over joins the system of the closest size, the next one what has become of
    // it.
    QCOMPARE(plan.systemOfSeries[16], 15);
    QCOMPARE(plan.systemOfSeries[17], 15);
    // A series that fits an existing system is not affected.
    QCOMPARE(plan.systemOfSeries[20], 3);
}

void TestLayoutPlan::labels()
{
    QVector<SeriesInfo> list = {series(0, 10), series(0, 10), series(0, 10)};
    list[0].name = QStringLiteral("open");
    list[1].name = QStringLiteral("close");
    list[2].name = QString(60, QLatin1Char('x'));
    QCOMPARE(planLayout(list).systems[0].label, QStringLiteral("open, close, \u2026"));
    QCOMPARE(planLayout({list[2]}).systems[0].label, list[2].name);
}

void TestLayoutPlan::xAxes()
{
    QVector<SeriesInfo> list = {series(0, 10), series(0, 10), series(0, 10)};
    list[0].xKind = XKind::DateTime;
    list[1].xKind = XKind::RowNumber;
    list[2].xKind = XKind::DateTime;
    const LayoutPlan plan = planLayout(list);
    QCOMPARE(plan.xKinds, QVector<XKind>({XKind::DateTime, XKind::RowNumber}));
    QCOMPARE(plan.xAxisOfSeries, QVector<int>({0, 1, 0}));
}

QTEST_APPLESS_MAIN(TestLayoutPlan)
#include "tst_layoutplan.moc"
