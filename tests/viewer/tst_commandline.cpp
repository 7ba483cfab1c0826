#include "commandline.h"

#include "shared/quiettest.h"

namespace {

CommandLine parse(const char *arguments)
{
    return parseCommandLine(QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

} // namespace

class TestCommandLine : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void everyOption();
    void grids_data();
    void grids();
    void labelFormats_data();
    void labelFormats();
    void timeFormatEscapes();
    void problems_data();
    void problems();
    void help();
    void version();
};

void TestCommandLine::defaults()
{
    const CommandLine line = parse("");
    QCOMPARE(line.problem, QString());
    QCOMPARE(line.output, QString());
    QVERIFY(line.options.files.isEmpty());
    QVERIFY(line.options.x.isEmpty());
    QVERIFY(line.options.y.isEmpty());
    QVERIFY(line.options.axes.isEmpty());
    QVERIFY(!line.options.logY);
    QVERIFY(!line.options.invertedY);
    QVERIFY(!line.options.legend);
    QVERIFY(!line.options.overview);
    QVERIFY(!line.options.editAxes);
    QVERIFY(!line.options.channelPanel);
    QCOMPARE(line.options.grid, GridKind::Ticks);
    QCOMPARE(line.options.labelFormat, NumberFormat::Compact);
    QCOMPARE(line.options.size, QSize(960, 600));
}

void TestCommandLine::everyOption()
{
    const CommandLine line = parse("a.csv --x t --y p,2 --axis p=left --axis a=b=right --log-y --inverted-y "
                                   "--grid polar --legend --overview --edit-axes --channel-panel "
                                   "--label-format exponential --time-format %hh "
                                   "--title T --size 640x480 --screenshot o.png b.csv");
    QCOMPARE(line.problem, QString());
    const Options &options = line.options;
    QCOMPARE(options.files, QStringList({QStringLiteral("a.csv"), QStringLiteral("b.csv")}));
    QCOMPARE(options.x, QStringLiteral("t"));
    QCOMPARE(options.y, QStringList({QStringLiteral("p"), QStringLiteral("2")}));
    QCOMPARE(options.axes.size(), 2);
    QCOMPARE(options.axes[0].column, QStringLiteral("p"));
    QCOMPARE(options.axes[0].side, AxisSide::Left);
    QCOMPARE(options.axes[1].column, QStringLiteral("a=b"));
    QCOMPARE(options.axes[1].side, AxisSide::Right);
    QVERIFY(options.logY);
    QVERIFY(options.invertedY);
    QCOMPARE(options.grid, GridKind::Polar);
    QVERIFY(options.legend);
    QVERIFY(options.overview);
    QVERIFY(options.editAxes);
    QVERIFY(options.channelPanel);
    QCOMPARE(options.labelFormat, NumberFormat::Exponential);
    QCOMPARE(options.timeFormat, QStringLiteral("%hh"));
    QCOMPARE(options.title, QStringLiteral("T"));
    QCOMPARE(options.size, QSize(640, 480));
    QCOMPARE(options.screenshot, QStringLiteral("o.png"));
}

void TestCommandLine::grids_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("none") << int(GridKind::None);
    QTest::newRow("ticks") << int(GridKind::Ticks);
    QTest::newRow("subticks") << int(GridKind::SubTicks);
    QTest::newRow("percent") << int(GridKind::Percent);
    QTest::newRow("pixels") << int(GridKind::Pixels);
    QTest::newRow("polar") << int(GridKind::Polar);
}

void TestCommandLine::grids()
{
    const CommandLine line
        = parseCommandLine({QStringLiteral("--grid"), QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(line.problem, QString());
    QTEST(int(line.options.grid), "kind");
}

void TestCommandLine::labelFormats_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("floating") << int(NumberFormat::FloatingPoint);
    QTest::newRow("exponential") << int(NumberFormat::Exponential);
    QTest::newRow("compact") << int(NumberFormat::Compact);
}

void TestCommandLine::labelFormats()
{
    const CommandLine line
        = parseCommandLine({QStringLiteral("--label-format"), QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(line.problem, QString());
    QTEST(int(line.options.labelFormat), "format");
}

void TestCommandLine::timeFormatEscapes()
{
    const CommandLine line = parseCommandLine({QStringLiteral("--time-format=60000\\t%ss\\n%hh:%mm")});
    QCOMPARE(line.options.timeFormat, QStringLiteral("60000\t%ss\r\n%hh:%mm"));
}

void TestCommandLine::problems_data()
{
    QTest::addColumn<QString>("problem");

    const auto row = [](const char *arguments, const char *problem) {
        QTest::newRow(arguments) << QString::fromLatin1(problem);
    };
    row("--nonsense", "Unknown option 'nonsense'.");
    row("--title", "Missing value after '--title'.");
    row("--grid dots", "--grid takes none, ticks, subticks, percent, pixels or polar, not \"dots\".");
    row("--label-format short", "--label-format takes floating, exponential or compact, not \"short\".");
    row("--axis a", "--axis takes COLUMN=left or COLUMN=right, not \"a\".");
    row("--axis =left", "--axis takes COLUMN=left or COLUMN=right, not \"=left\".");
    row("--axis a=top", "--axis takes COLUMN=left or COLUMN=right, not \"a=top\".");
    row("--size 640", "--size takes a size such as 960x600, not \"640\".");
    row("--size 0x480", "--size takes a size such as 960x600, not \"0x480\".");
    row("--size -1x480", "--size takes a size such as 960x600, not \"-1x480\".");
    row("--size 99999x480", "--size takes a size such as 960x600, not \"99999x480\".");
    row("--screenshot o.png", "--screenshot needs a file to draw.");
}

void TestCommandLine::problems()
{
    QTEST(parse(QTest::currentDataTag()).problem, "problem");
}

void TestCommandLine::help()
{
    const CommandLine line = parse("--help");
    QCOMPARE(line.problem, QString());
    QVERIFY(line.output.startsWith(QStringLiteral("Usage: zrqtplot-viewer [options] [FILE.csv ...]\n")));
    for (const char *option : {"--x COLUMN", "--y COLUMN,...", "--axis COLUMN=left|right", "--log-y",
                               "--inverted-y", "--grid KIND", "--legend", "--overview", "--edit-axes",
                               "--channel-panel", "--label-format FORMAT", "--time-format FORMAT",
                               "--title TEXT", "--size WxH", "--screenshot FILE.png", "--help", "--version"})
        QVERIFY2(line.output.contains(QLatin1String("\n  ") + QLatin1String(option)), option);
    for (const QString &text : line.output.split(QLatin1Char('\n')))
        QVERIFY2(text.size() <= 90, qPrintable(text));
}

void TestCommandLine::version()
{
    static const QRegularExpression kVersion(QStringLiteral("^zrqtplot-viewer [0-9]+\\.[0-9]+\\.[0-9]+\n$"));
    QVERIFY(kVersion.match(parse("--version").output).hasMatch());
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
