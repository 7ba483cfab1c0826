#include "loader.h"

#include "shared/quiettest.h"

class TestLoader : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void loadsInTheBackground();
    void aBadFileFailsAll();
    void reportsProgress();
    void cancels();
    void startReplacesWhatIsLoading();
    void dyingWhileLoading();

private:
    QString write(const char *name, const QByteArray &bytes) const;
    QString large() const;

    QTemporaryDir m_directory;
};

QString TestLoader::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_directory.filePath(QString::fromLatin1(name)));
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return file.fileName();
}

QString TestLoader::large() const
{
    return write("large.csv", "a,b\n" + QByteArray("1.25,2.5\n").repeated(3000000));
}

void TestLoader::loadsInTheBackground()
{
    const QString first = write("first.csv", "a,b\n1,2\n3,4\n");
    const QString second = write("second.csv", "c\n5\n");
    Loader loader;
    std::vector<Dataset> result;
    connect(&loader, &Loader::loaded, this,
            [&result](const std::vector<Dataset> &datasets) { result = datasets; });
    QVERIFY(!loader.isLoading());
    loader.start({first, second});
    QVERIFY(loader.isLoading());
    QTRY_VERIFY(!result.empty());
    QVERIFY(!loader.isLoading());
    QCOMPARE(result.size(), size_t(2));
    QCOMPARE(result[0].file, first);
    QCOMPARE(result[0].rows, qint64(2));
    QCOMPARE(result[1].columns[0].name, QStringLiteral("c"));
}

void TestLoader::aBadFileFailsAll()
{
    const QString good = write("good.csv", "a,b\n1,2\n");
    const QString bad = write("bad.csv", "a,b\n1,2,3\n");
    Loader loader;
    QSignalSpy failed(&loader, &Loader::failed);
    QSignalSpy cancelled(&loader, &Loader::cancelled);
    bool loaded = false;
    connect(&loader, &Loader::loaded, this, [&loaded] { loaded = true; });
    loader.start({good, bad});
    QTRY_COMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).at(0).toString(),
             bad + QStringLiteral(", line 2, column 3: the row has 3 cells, but the first row has 2."));
    QVERIFY(!loaded);
    QCOMPARE(cancelled.count(), 0);
}

void TestLoader::reportsProgress()
{
    Loader loader;
    QSignalSpy progressed(&loader, &Loader::progressed);
    bool loaded = false;
    connect(&loader, &Loader::loaded, this, [&loaded] { loaded = true; });
    loader.start({large()});
    QTRY_VERIFY_WITH_TIMEOUT(loaded, 60000);
    QVERIFY(progressed.count() > 0);
    qint64 last = 0;
    for (const QList<QVariant> &arguments : progressed) {
        QVERIFY(arguments.at(0).toLongLong() > last);
        last = arguments.at(0).toLongLong();
        QCOMPARE(arguments.at(1).toLongLong(), qint64(27000004));
    }
    QVERIFY(last <= 27000004);
}

void TestLoader::cancels()
{
    Loader loader;
    QSignalSpy cancelled(&loader, &Loader::cancelled);
    bool loaded = false;
    connect(&loader, &Loader::loaded, this, [&loaded] { loaded = true; });
    connect(&loader, &Loader::progressed, &loader, &Loader::cancel);
    loader.start({large()});
    QTRY_COMPARE_WITH_TIMEOUT(cancelled.count(), 1, 60000);
    QVERIFY(!loaded);
    QVERIFY(!loader.isLoading());
    loader.cancel();
    QTest::qWait(10);
    QCOMPARE(cancelled.count(), 1);
}

void TestLoader::startReplacesWhatIsLoading()
{
    const QString small = write("small.csv", "c\n5\n");
    Loader loader;
    QSignalSpy cancelled(&loader, &Loader::cancelled);
    std::vector<Dataset> result;
    int count = 0;
    connect(&loader, &Loader::loaded, this, [&](const std::vector<Dataset> &datasets) {
        result = datasets;
        ++count;
    });
    loader.start({large()});
    loader.start({small});
    QTRY_COMPARE(count, 1);
    QTest::qWait(10);
    QCOMPARE(count, 1);
    QCOMPARE(result[0].file, small);
    QCOMPARE(cancelled.count(), 0);
}

void TestLoader::dyingWhileLoading()
{
    const QString file = large();
    QElapsedTimer timer;
    timer.start();
    {
        Loader loader;
        loader.start({file});
    }
    QCoreApplication::processEvents();
    QVERIFY(timer.elapsed() < 5000);
}

QTEST_GUILESS_MAIN(TestLoader)
#include "tst_loader.moc"
