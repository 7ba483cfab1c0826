#include "shared/quiettest.h"

#include <QtGui/QImage>

namespace {

/// How a run of the program ended.
struct Run
{
    int status = -1;
    QString output;
    QStringList errors; ///< lines of standard error
    bool crashed = true;
};

constexpr QRgb kFirstColor = 0xff0072b2;
constexpr QRgb kSecondColor = 0xffd55e00;

/// Whether the pixel is \a color on white, with at least a third of it. Lines are antialiased.
bool isInk(QRgb pixel, QRgb color)
{
    constexpr double kLeastCover = 0.33;
    constexpr double kTolerance = 25.0;
    const auto darkness = [](QRgb rgb) { return 765.0 - qRed(rgb) - qGreen(rgb) - qBlue(rgb); };
    const double cover = darkness(pixel) / darkness(color);
    const auto matches
        = [cover](int value, int full) { return qAbs(255.0 - cover * (255.0 - full) - value) < kTolerance; };
    return cover > kLeastCover && cover < 1.1 && matches(qRed(pixel), qRed(color))
           && matches(qGreen(pixel), qGreen(color)) && matches(qBlue(pixel), qBlue(color));
}

int inkIn(const QImage &image, QRgb color, const QRect &rectangle)
{
    int count = 0;
    for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
        for (int x = rectangle.left(); x <= rectangle.right(); ++x)
            count += isInk(image.pixel(x, y), color) ? 1 : 0;
    }
    return count;
}

/// The middle of the window: lines, but no axis labels.
QRect middle(const QImage &image)
{
    return QRect(image.width() / 4, image.height() / 5, image.width() / 2, image.height() / 2);
}

int ink(const QImage &image, QRgb color)
{
    return inkIn(image, color, middle(image));
}

} // namespace

class TestViewerProgram : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void badFiles_data();
    void badFiles();
    void badFilesEndTheWindowedProgram();
    void badOptions();
    void helpAndVersion();
    void pictureHasTheSizeAndTheLine();
    void pictureOfTwoColumns();
    void goodFiles_data();
    void goodFiles();
    void gapsAreReportedAndInterruptTheLine();
    void invertedAndLogarithmic();
    void panelsArePartOfThePicture();
    void longSeriesLookAsTheyAre();
    void pictureThatCannotBeWritten();
    void noDisplay();

private:
    QString write(const QByteArray &bytes, const char *name = "data.csv") const;
    QString picture() const { return m_directory.filePath(QStringLiteral("plot.png")); }
    Run run(const QStringList &arguments, const char *platform = nullptr) const;
    QImage screenshot(const QByteArray &bytes, const QStringList &options,
                      QStringList *errors = nullptr) const;

    QTemporaryDir m_directory;
};

QString TestViewerProgram::write(const QByteArray &bytes, const char *name) const
{
    QFile file(m_directory.filePath(QString::fromLatin1(name)));
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return file.fileName();
}

/// Runs the program without a display.
Run TestViewerProgram::run(const QStringList &arguments, const char *platform) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME"})
        environment.remove(QString::fromLatin1(name));
    // Without it, Qt prints a line of its own.
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_directory.path());
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    if (platform)
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QString::fromLatin1(platform));
    QFile::setPermissions(m_directory.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VIEWER_PROGRAM), arguments);
    Run result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.crashed = process.exitStatus() != QProcess::NormalExit;
    result.status = process.exitCode();
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.errors
        = QString::fromUtf8(process.readAllStandardError()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return result;
}

QImage TestViewerProgram::screenshot(const QByteArray &bytes, const QStringList &options,
                                     QStringList *errors) const
{
    QFile::remove(picture());
    const Run result = run(QStringList({write(bytes), QStringLiteral("--screenshot"), picture()}) + options);
    if (errors)
        *errors = result.errors;
    if (result.crashed || result.status != 0) {
        qWarning("%s", qPrintable(result.errors.join(QLatin1Char('\n'))));
        return {};
    }
    return QImage(picture());
}

void TestViewerProgram::badFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("sentence");

    const auto row = [](const char *name, const QByteArray &bytes, const char *sentence) {
        QTest::newRow(name) << bytes << QString::fromLatin1(sentence);
    };
    row("empty", "", ": the file is empty.");
    row("header only", "a,b\n", ": there is a header but no row of data.");
    row("binary",
        QByteArray("\x7F"
                   "ELF\0\0\0",
                   7),
        ", line 1: this is no text file, it holds the byte 0x00.");
    row("too many cells", "a,b\n1,2\n1,2,3\n",
        ", line 3, column 3: the row has 3 cells, but the first row has 2.");
    row("only text", "a,b\nx,y\n", ": no column holds numbers.");
}

void TestViewerProgram::badFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, sentence);
    QFile::remove(picture());
    const QString file = write(bytes);
    const Run result = run({file, QStringLiteral("--screenshot"), picture()});
    QVERIFY(!result.crashed);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, QStringList(QStringLiteral("zrqtplot-viewer: ") + file + sentence));
    QCOMPARE(result.output, QString());
    QVERIFY(!QFile::exists(picture()));
}

void TestViewerProgram::badFilesEndTheWindowedProgram()
{
    const QString missing = m_directory.filePath(QStringLiteral("missing.csv"));
    const Run noFile = run({missing}, "offscreen");
    QVERIFY(!noFile.crashed);
    QCOMPARE(noFile.status, 1);
    QCOMPARE(noFile.errors,
             QStringList(QStringLiteral("zrqtplot-viewer: %1: there is no such file.").arg(missing)));

    const Run directory = run({m_directory.path()}, "offscreen");
    QCOMPARE(directory.status, 1);
    QCOMPARE(
        directory.errors,
        QStringList(
            QStringLiteral("zrqtplot-viewer: %1: this is a directory, not a file.").arg(m_directory.path())));

    const QString good = write("a,b\n1,2\n2,3\n");
    const Run column = run({good, QStringLiteral("--y"), QStringLiteral("z")}, "offscreen");
    QCOMPARE(column.status, 1);
    QCOMPARE(column.errors,
             QStringList(QStringLiteral("zrqtplot-viewer: %1: there is no column \"z\".").arg(good)));
}

void TestViewerProgram::badOptions()
{
    const Run result = run({QStringLiteral("--size"), QStringLiteral("big")});
    QVERIFY(!result.crashed);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, QStringList(QStringLiteral(
                                "zrqtplot-viewer: --size takes a size such as 960x600, not \"big\".")));
}

void TestViewerProgram::helpAndVersion()
{
    const Run help = run({QStringLiteral("--help")});
    QCOMPARE(help.status, 0);
    QVERIFY(help.output.startsWith(QStringLiteral("Usage: zrqtplot-viewer")));
    QVERIFY(help.errors.isEmpty());
    const Run version = run({QStringLiteral("--version")});
    QCOMPARE(version.status, 0);
    QVERIFY(version.output.startsWith(QStringLiteral("zrqtplot-viewer ")));
}

void TestViewerProgram::pictureHasTheSizeAndTheLine()
{
    QStringList errors;
    const QImage image = screenshot("t,a\n0,0\n1,1\n2,2\n3,3\n",
                                    {QStringLiteral("--size"), QStringLiteral("700x500")}, &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(image.size(), QSize(700, 500));
    QVERIFY(ink(image, kFirstColor) > 150);
    QCOMPARE(ink(image, kSecondColor), 0);
    // The line rises: its left end lies low, its right end high.
    const QRect upperRight(QPoint(400, 100), QPoint(600, 230));
    const QRect upperLeft(QPoint(100, 100), QPoint(300, 230));
    QVERIFY(inkIn(image, kFirstColor, upperRight) > 50);
    QCOMPARE(inkIn(image, kFirstColor, upperLeft), 0);
}

void TestViewerProgram::pictureOfTwoColumns()
{
    const QByteArray bytes(
        "t,a,b\n2026-11-21 10:00,1,2000\n2026-11-21 10:01,4,500\n2026-11-21 10:02,2,1000\n");
    const QImage all = screenshot(bytes, {QStringLiteral("--legend")});
    QVERIFY(ink(all, kFirstColor) > 100);
    QVERIFY(ink(all, kSecondColor) > 100);
    const QImage one = screenshot(bytes, {QStringLiteral("--y"), QStringLiteral("b")});
    QVERIFY(ink(one, kFirstColor) > 100);
    QCOMPARE(ink(one, kSecondColor), 0);
}

void TestViewerProgram::goodFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");

    const auto row = [](const char *name, const QByteArray &bytes, const char *options = "") {
        QTest::newRow(name) << bytes
                            << QString::fromLatin1(options).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    const QByteArray rising("t,a,b\n1,1,9\n2,5,8\n3,9,10\n");
    row("header", rising);
    row("no header", "1,1\n2,5\n3,9\n");
    row("semicolons and decimal commas", "t;a\n1;0,5\n2;1,5\n");
    row("tabs", "t\ta\n1\t0.5\n2\t1.5\n");
    row("byte order mark and CRLF", "\xEF\xBB\xBFt,a\r\n1,0.5\r\n2,1.5\r\n");
    row("one column", "a\n3\n1\n2\n");
    row("dates", "d,a\n2026-11-21,1\n2026-11-22,2\n");
    row("dates before 1970", "d,a\n1958-03-01,1\n1962-11-22,2\n");
    row("times of day", "t,a\n10:00,1\n10:01,2\n");
    row("times with fractions", "t,a\n2026-11-21T10:00:00.000Z,1\n2026-11-21T10:00:00.250Z,2\n");
    row("falling x", rising, "--x b");
    row("chosen by number", rising, "--x 1 --y 2,3 --axis 2=right");
    row("no grid", rising, "--grid none");
    row("sub-ticks", rising, "--grid subticks");
    row("percent", rising, "--grid percent");
    row("pixels", rising, "--grid pixels");
    row("polar", rising, "--grid polar");
    row("floating", rising, "--label-format floating");
    row("exponential", rising, "--label-format exponential");
    row("large numbers", "t,a\n1,1e9\n2,5e12\n");
    row("tiny numbers", "t,a\n1,1e-9\n2,5e-12\n");
    row("huge numbers", "t,a\n1,-1e300\n2,1e300\n");
    row("own time format", "d,a\n2026-11-21,1\n2026-11-22,2\n", "--time-format %dd.%MM.");
    row("title", rising, "--title Title");
    row("constant", "t,a\n1,5\n2,5\n");
}

void TestViewerProgram::goodFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    const QImage image = screenshot(bytes, options);
    QCOMPARE(image.size(), QSize(960, 600));
    QVERIFY(ink(image, kFirstColor) > 40);
}

void TestViewerProgram::gapsAreReportedAndInterruptTheLine()
{
    QByteArray bytes("t,a,b\n");
    for (int i = 0; i < 300; ++i)
        bytes
            += QByteArray::number(i) + (i >= 100 && i < 200 ? "," : ",5") + (i % 2 == 0 ? ",1\n" : ",n/a\n");
    QStringList errors;
    const QImage image = screenshot(bytes, {QStringLiteral("--y"), QStringLiteral("a")}, &errors);
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().endsWith(QStringLiteral("column \"a\": gaps: 100 empty cells.")));
    const QRect gap(440, 60, 100, 450);
    QCOMPARE(inkIn(image, kFirstColor, gap), 0);
    QVERIFY(inkIn(image, kFirstColor, QRect(150, 60, 150, 450)) > 100);
    QVERIFY(inkIn(image, kFirstColor, QRect(700, 60, 150, 450)) > 100);

    // Every second value is a gap: no line, but dots.
    const QImage dots = screenshot(bytes, {QStringLiteral("--y"), QStringLiteral("b")}, &errors);
    QVERIFY(errors.first().endsWith(QStringLiteral("column \"b\": gaps: 150 cells that are no numbers.")));
    QVERIFY(ink(dots, kFirstColor) > 100);
}

void TestViewerProgram::invertedAndLogarithmic()
{
    const QByteArray bytes("t,a\n0,1\n1,10\n2,100\n3,1000\n4,0\n");
    QStringList errors;
    const QStringList size = {QStringLiteral("--size"), QStringLiteral("700x500")};
    const QRect upperRight(QPoint(350, 100), QPoint(480, 230));
    const QRect lowerRight(QPoint(350, 260), QPoint(480, 400));
    const QImage linear = screenshot(bytes, size, &errors);
    QCOMPARE(errors, QStringList());
    // At a tenth of its height in the middle, the line lies low; on a logarithmic axis it is at two thirds.
    const QImage logarithmic = screenshot(bytes, size + QStringList(QStringLiteral("--log-y")), &errors);
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().endsWith(QStringLiteral("column \"a\": gaps: 1 value not above 0.")));
    QVERIFY(inkIn(logarithmic, kFirstColor, upperRight) > 50);
    QCOMPARE(inkIn(logarithmic, kFirstColor, lowerRight), 0);
    const QImage inverted
        = screenshot(bytes, size + QStringList({QStringLiteral("--log-y"), QStringLiteral("--inverted-y")}));
    QVERIFY(inkIn(inverted, kFirstColor, lowerRight) > 50);
    QCOMPARE(inkIn(inverted, kFirstColor, upperRight), 0);
    QVERIFY(linear != logarithmic);
}

void TestViewerProgram::panelsArePartOfThePicture()
{
    const QByteArray bytes("t,a\n0,2000\n1,1000\n2,100\n3,10\n4,1\n");
    const QImage plain = screenshot(bytes, {});
    const QRect below(QPoint(100, plain.height() - 160), QPoint(plain.width() - 20, plain.height() - 80));
    const QRect beside(QPoint(plain.width() - 60, 60), QPoint(plain.width() - 1, 200));
    QCOMPARE(inkIn(plain, kFirstColor, beside), 0);
    // The strip has a line of its own, the panel a button in its colour.
    const QImage strip = screenshot(bytes, {QStringLiteral("--overview")});
    QVERIFY(inkIn(strip, kFirstColor, below) > 200);
    const QImage panel = screenshot(bytes, {QStringLiteral("--channel-panel")});
    QVERIFY(inkIn(panel, kFirstColor, beside) > 100);
    QVERIFY(screenshot(bytes, {QStringLiteral("--edit-axes")}) != plain);
}

void TestViewerProgram::longSeriesLookAsTheyAre()
{
    // Longer than any window is wide: one spike in a flat line must not get lost.
    QByteArray bytes("t,a\n");
    constexpr int kRows = 200000;
    for (int i = 0; i < kRows; ++i)
        bytes += QByteArray::number(i) + (i == kRows / 2 ? ",9\n" : ",1\n");
    const QImage image = screenshot(bytes, {});
    QVERIFY(ink(image, kFirstColor) > 100);
}

void TestViewerProgram::pictureThatCannotBeWritten()
{
    const Run result
        = run({write("a\n1\n2\n"), QStringLiteral("--screenshot"), QStringLiteral("/nonexistent/p.png")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, QStringList(QStringLiteral(
                                "zrqtplot-viewer: /nonexistent/p.png: the picture cannot be written.")));
}

void TestViewerProgram::noDisplay()
{
#ifdef Q_OS_LINUX
    const Run result = run({write("a\n1\n2\n")});
    QVERIFY(!result.crashed);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors,
             QStringList(QStringLiteral(
                 "zrqtplot-viewer: there is no display; --screenshot FILE.png draws into a picture.")));
#endif
}

QTEST_GUILESS_MAIN(TestViewerProgram)
#include "tst_viewer_program.moc"
