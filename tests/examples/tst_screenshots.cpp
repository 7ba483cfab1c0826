#include "shared/quiettest.h"

#include <QtCore/QProcess>
#include <QtGui/QImage>

/// Every example as a program of its own, without a display, and the picture of it in the repository.
class TestScreenshots : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void exampleMakesItsPicture_data();
    void exampleMakesItsPicture();
    void picturesOfLiveDataAreTheSame();
    void aPictureThatCannotBeWrittenIsAnError();
};

namespace {

QString program(const QString &example)
{
    return QStringLiteral(EXAMPLES_BUILD_DIR "/zrqtplot-example-") + example;
}

bool hasSeveralColors(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0))
                return true;
        }
    }
    return false;
}

} // namespace

void TestScreenshots::exampleMakesItsPicture_data()
{
    QTest::addColumn<QString>("example");
    const QStringList names = QStringLiteral(EXAMPLES).split(QLatin1Char(','));
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void TestScreenshots::exampleMakesItsPicture()
{
    QFETCH(QString, example);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("picture.png"));
    QCOMPARE(QProcess::execute(program(example), {QStringLiteral("--screenshot"), file}), 0);
    QVERIFY(hasSeveralColors(QImage(file)));

    const QString kept = QStringLiteral(EXAMPLES_SOURCE_DIR "/%1/screenshot.png").arg(example);
    QVERIFY2(hasSeveralColors(QImage(kept)), "tools/screenshots.sh has not made the picture");
    QVERIFY2(QFileInfo(kept).size() < 60000, "the picture in the repository is too large");
}

void TestScreenshots::picturesOfLiveDataAreTheSame()
{
    const QTemporaryDir folder;
    QImage pictures[2];
    for (QImage &picture : pictures) {
        const QString file = folder.filePath(QStringLiteral("picture.png"));
        const QStringList arguments = {QStringLiteral("--screenshot"), file};
        QCOMPARE(QProcess::execute(program(QStringLiteral("live_data")), arguments), 0);
        picture = QImage(file);
    }
    QCOMPARE(pictures[0], pictures[1]);
}

void TestScreenshots::aPictureThatCannotBeWrittenIsAnError()
{
    const QStringList arguments
        = {QStringLiteral("--screenshot"), QStringLiteral("/no/such/folder/picture.png")};
    QCOMPARE(QProcess::execute(program(QStringLiteral("quickstart")), arguments), 1);
}

QTEST_GUILESS_MAIN(TestScreenshots)
#include "tst_screenshots.moc"
