#include "dataset.h"
#include "datasetloader.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <cmath>

Q_DECLARE_METATYPE(XKind)

namespace {

Problem load(const QByteArray &bytes, Dataset *dataset)
{
    QTemporaryFile file;
    file.open();
    file.write(bytes);
    file.close();
    Problem problem;
    loadDataset(
        file.fileName(), [](qint64, qint64) { return true; }, dataset, &problem);
    dataset->file = QStringLiteral("f.csv");
    return problem;
}

QStringList names(const Dataset &dataset)
{
    QStringList list;
    for (const Column &column : dataset.columns)
        list += column.name;
    return list;
}

/// Values joined by blanks, gaps as "-".
QString joined(const QVector<double> &values)
{
    QStringList list;
    for (const double value : values)
        list += std::isnan(value) ? QStringLiteral("-") : QString::number(value);
    return list.join(QLatin1Char(' '));
}

} // namespace

class TestDataset : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void headers_data();
    void headers();
    void problems_data();
    void problems();
    void unreadableFiles();
    void gapsAreCountedNeverZero();
    void aColumnThatIsEmptyAtFirst();
    void formatIsDecidedByTheSample();
    void ranges();
    void decimalCommaOnlyWithSemicolons();
    void findsColumns_data();
    void findsColumns();
    void automaticX_data();
    void automaticX();
    void chosenX_data();
    void chosenX();
    void rowsWithoutXAreLeftOut();
    void timesPassMidnight();
    void chosenY_data();
    void chosenY();
    void gapSentences();
    void cancelling();
};

void TestDataset::headers_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<qint64>("rows");

    const auto row = [](const char *name, const char *bytes, const char *columns, qint64 rows) {
        QTest::newRow(name) << QByteArray(bytes) << QString::fromUtf8(columns).split(QLatin1Char('|'))
                            << rows;
    };
    row("names above numbers", "a,b\n1,2\n3,4\n", "a|b", 2);
    row("no header", "1,2\n3,4\n", "column 1|column 2", 2);
    row("no header, one row", "1,2\n", "column 1|column 2", 1);
    row("no header, text in a column of text", "x,2\ny,4\n", "column 1|column 2", 2);
    row("one name is a year", "town,2000\n1,2\n", "town|2000", 1);
    row("names above text, too", "a,b\nx,2\n", "a|b", 1);
    row("date without header", "2026-11-21,2\n2026-11-22,4\n", "column 1|column 2", 2);
    row("empty name", "a,,c\n1,2,3\n", "a|column 2|c", 1);
    row("name with a line end", "\"a\nb\",c\n1,2\n", "a b|c", 1);
    row("Latin-1 name",
        "T \xB0"
        "C\n1\n",
        "T \xC2\xB0"
        "C",
        1);
}

void TestDataset::headers()
{
    QFETCH(QByteArray, bytes);
    Dataset dataset;
    QCOMPARE(load(bytes, &dataset).text, QString());
    QTEST(names(dataset), "names");
    QTEST(dataset.rows, "rows");
}

void TestDataset::problems_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("sentence");

    const auto row = [](const char *name, const QByteArray &bytes, const char *sentence) {
        QTest::newRow(name) << bytes << QString::fromLatin1(sentence);
    };
    row("empty", "", "f: the file is empty.");
    row("only blank lines", "\n \n", "f: the file is empty.");
    row("only a byte order mark", "\xEF\xBB\xBF", "f: the file is empty.");
    row("header only", "a,b\n", "f: there is a header but no row of data.");
    row("header and blank lines", "a,b\n\n\n", "f: there is a header but no row of data.");
    row("only text", "a,b\nx,y\n", "f: no column holds numbers.");
    row("only dates", "a\n2026-11-21\n", "f: no column holds numbers.");
    row("too many cells", "a,b\n1,2\n3,4,5,6\n",
        "f, line 3, column 3: the row has 4 cells, but the first row has 2.");
    row("too many cells, after a cell of two lines", "a,b\n\"1\n\",2\n3,4,5\n",
        "f, line 4, column 3: the row has 3 cells, but the first row has 2.");
    row("an empty cell too many", "a\n1\n2,\n",
        "f, line 3, column 2: the row has 2 cells, but the first row has 1.");
    row("too many cells after the sample", "a,b\n" + QByteArray("1,2\n").repeated(20000) + "1,2,3\n",
        "f, line 20002, column 3: the row has 3 cells, but the first row has 2.");
    row("binary", QByteArray("\x89PNG\r\n\x1A\n\0", 9),
        "f, line 2: this is no text file, it holds the byte 0x1a.");
}

void TestDataset::problems()
{
    QFETCH(QByteArray, bytes);
    Dataset dataset;
    QTEST(load(bytes, &dataset).sentence(QStringLiteral("f")), "sentence");
}

void TestDataset::unreadableFiles()
{
    Dataset dataset;
    Problem problem;
    const LoadProgress go = [](qint64, qint64) { return true; };
    QCOMPARE(loadDataset(QStringLiteral("/nonexistent/f.csv"), go, &dataset, &problem), LoadOutcome::Failed);
    QCOMPARE(problem.text, QStringLiteral("there is no such file"));
    QTemporaryDir directory;
    QCOMPARE(loadDataset(directory.path(), go, &dataset, &problem), LoadOutcome::Failed);
    QCOMPARE(problem.text, QStringLiteral("this is a directory, not a file"));
}

void TestDataset::gapsAreCountedNeverZero()
{
    Dataset dataset;
    QCOMPARE(load("t,a,b\n1,5,6\n2,,x\n3,n/a\n4\n5,7,8\n", &dataset).text, QString());
    QCOMPARE(dataset.rows, qint64(5));
    QCOMPARE(joined(dataset.columns[0].values), QStringLiteral("1 2 3 4 5"));
    QCOMPARE(joined(dataset.columns[1].values), QStringLiteral("5 - - - 7"));
    QCOMPARE(dataset.columns[1].emptyCells, qint64(2));
    QCOMPARE(dataset.columns[1].unreadableCells, qint64(1));
    QCOMPARE(joined(dataset.columns[2].values), QStringLiteral("6 - - - 8"));
    QCOMPARE(dataset.columns[2].emptyCells, qint64(2));
    QCOMPARE(dataset.columns[2].unreadableCells, qint64(1));
}

void TestDataset::aColumnThatIsEmptyAtFirst()
{
    QByteArray bytes("t,late,text\n");
    constexpr int kEmpty = DatasetBuilder::kSampleRows + 5;
    for (int i = 0; i < kEmpty; ++i)
        bytes += QByteArray::number(i) + ",,\n";
    bytes += "20000,7,word\n20001,8,9\n";
    Dataset dataset;
    QCOMPARE(load(bytes, &dataset).text, QString());
    const Column &late = dataset.columns[1];
    QCOMPARE(late.values.size(), kEmpty + 2);
    QVERIFY(std::isnan(late.values[0]));
    QVERIFY(std::isnan(late.values[kEmpty - 1]));
    QCOMPARE(late.values[kEmpty], 7.0);
    QCOMPARE(late.values[kEmpty + 1], 8.0);
    QCOMPARE(late.emptyCells, qint64(kEmpty));
    QCOMPARE(dataset.columns[2].format.kind, ColumnKind::Text);
    QVERIFY(dataset.columns[2].values.isEmpty());
}

void TestDataset::formatIsDecidedByTheSample()
{
    QByteArray bytes("t,a\n");
    for (int i = 0; i < 2 * DatasetBuilder::kSampleRows; ++i)
        bytes += QByteArray::number(i) + (i < DatasetBuilder::kSampleRows ? ",1\n" : ",word\n");
    Dataset dataset;
    QCOMPARE(load(bytes, &dataset).text, QString());
    QVERIFY(dataset.columns[1].isNumeric());
    QCOMPARE(dataset.columns[1].unreadableCells, qint64(DatasetBuilder::kSampleRows));
}

void TestDataset::ranges()
{
    Dataset dataset;
    QCOMPARE(load("a,b\n3,\n-2,\n0,\n8,\n", &dataset).text, QString());
    const Column &a = dataset.columns[0];
    QCOMPARE(a.range.lowest, -2.0);
    QCOMPARE(a.range.highest, 8.0);
    QCOMPARE(a.positiveRange.lowest, 3.0);
    QCOMPARE(a.positiveRange.highest, 8.0);
    QCOMPARE(a.notPositiveCells, qint64(2));
    QVERIFY(dataset.columns[1].range.isEmpty());
}

void TestDataset::decimalCommaOnlyWithSemicolons()
{
    Dataset dataset;
    QCOMPARE(load("a;b\n1,5;2\n2,5;3\n", &dataset).text, QString());
    QCOMPARE(joined(dataset.columns[0].values), QStringLiteral("1.5 2.5"));
    QCOMPARE(joined(dataset.columns[1].values), QStringLiteral("2 3"));
    Dataset withCommas;
    QCOMPARE(load("a,b\n\"1,500\",2\n\"2,500\",3\n", &withCommas).text, QString());
    QCOMPARE(withCommas.columns[0].format.kind, ColumnKind::Text);
}

void TestDataset::findsColumns_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("problem");

    QTest::newRow("name") << QStringLiteral("b") << 1 << QString();
    QTest::newRow("number") << QStringLiteral("2") << 1 << QString();
    QTest::newRow("a name that is a number comes first") << QStringLiteral("1") << 2 << QString();
    QTest::newRow("unknown name") << QStringLiteral("B") << -1 << QStringLiteral("there is no column \"B\"");
    QTest::newRow("number 0") << QStringLiteral("0") << -1 << QStringLiteral("there is no column \"0\"");
    QTest::newRow("number too large")
        << QStringLiteral("6") << -1 << QStringLiteral("there is no column \"6\"");
    QTest::newRow("name of two columns")
        << QStringLiteral("d") << -1
        << QStringLiteral("several columns are named \"d\", give the number instead");
}

void TestDataset::findsColumns()
{
    QFETCH(QString, column);
    Dataset dataset;
    QCOMPARE(load("a,b,1,d,d\n1,2,3,4,5\n", &dataset).text, QString());
    dataset.columns[2].name = QStringLiteral("1");
    dataset.columns[0].name = QStringLiteral("a");
    dataset.columns[1].name = QStringLiteral("b");
    dataset.columns[3].name = dataset.columns[4].name = QStringLiteral("d");
    Problem problem;
    QTEST(findColumn(dataset, column, &problem), "index");
    QTEST(problem.text, "problem");
}

void TestDataset::automaticX_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("column");
    QTest::addColumn<XKind>("kind");

    const auto row = [](const char *name, const char *bytes, int column, XKind kind) {
        QTest::newRow(name) << QByteArray(bytes) << column << kind;
    };
    row("dates", "d,a\n2026-11-21,1\n2026-11-22,2\n", 0, XKind::DateTime);
    row("dates in the second column", "a,d\n2,2026-11-21\n1,2026-11-22\n", 1, XKind::DateTime);
    row("times", "t,a\n10:00,1\n10:01,2\n", 0, XKind::TimeOfDay);
    row("growing numbers", "n,a\n1,5\n2,4\n", 0, XKind::Number);
    row("years", "year,a\n1880,5\n1881,4\n", 0, XKind::Number);
    row("the first of two growing columns", "n,a\n1,5\n2,6\n", 0, XKind::Number);
    row("growing numbers before dates", "n,d,a\n1,2026-11-21,5\n2,2026-11-22,4\n", 0, XKind::Number);
    row("numbers that do not grow", "n,a\n1,5\n1,4\n", -1, XKind::RowNumber);
    row("growing numbers with a gap", "n,a\n1,5\n,4\n2,3\n", -1, XKind::RowNumber);
    row("growing numbers with a gap at the begin", "n,a\n,5\n1,4\n2,3\n", -1, XKind::RowNumber);
    row("only one column", "n\n1\n2\n", -1, XKind::RowNumber);
    row("only one row", "n,a\n1,5\n", -1, XKind::RowNumber);
    row("text and one column of numbers", "w,a\nx,1\ny,2\n", -1, XKind::RowNumber);
}

void TestDataset::automaticX()
{
    QFETCH(QByteArray, bytes);
    Dataset dataset;
    QCOMPARE(load(bytes, &dataset).text, QString());
    Problem problem;
    QVERIFY(assignX(&dataset, QString(), &problem));
    QTEST(dataset.xColumn, "column");
    QTEST(dataset.xKind, "kind");
    QCOMPARE(qint64(dataset.x.size()), dataset.rows);
    if (dataset.xColumn < 0)
        QCOMPARE(dataset.x.first(), 1.0);
}

void TestDataset::chosenX_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("problem");

    QTest::newRow("by name") << QStringLiteral("a") << 1 << QString();
    QTest::newRow("by number") << QStringLiteral("2") << 1 << QString();
    QTest::newRow("text") << QStringLiteral("w") << 2
                          << QStringLiteral("the column \"w\" holds text, it cannot be x");
    QTest::newRow("nothing") << QStringLiteral("e") << 3
                             << QStringLiteral("the column \"e\" holds nothing, it cannot be x");
    QTest::newRow("unknown") << QStringLiteral("z") << -1 << QStringLiteral("there is no column \"z\"");
}

void TestDataset::chosenX()
{
    QFETCH(QString, column);
    QFETCH(QString, problem);
    Dataset dataset;
    QCOMPARE(load("n,a,w,e\n1,5,x,\n2,4,y,\n", &dataset).text, QString());
    Problem found;
    QCOMPARE(assignX(&dataset, column, &found), problem.isEmpty());
    QCOMPARE(found.text, problem);
    QTEST(dataset.xColumn, "index");
    if (problem.isEmpty()) {
        QCOMPARE(joined(dataset.x), QStringLiteral("5 4"));
        QVERIFY(!dataset.xSorted);
        QCOMPARE(dataset.xRange.lowest, 4.0);
        QCOMPARE(dataset.xRange.highest, 5.0);
    }
}

void TestDataset::rowsWithoutXAreLeftOut()
{
    Dataset dataset;
    QCOMPARE(
        load("d,a,b\n2026-11-21,1,10\n,200,20\n2026-11-23,-3,\nsoon,4,40\n2026-11-25,5,50\n", &dataset).text,
        QString());
    Problem problem;
    QVERIFY(assignX(&dataset, QString(), &problem));
    QCOMPARE(dataset.rowsWithoutX, qint64(2));
    QCOMPARE(dataset.x.size(), 3);
    QVERIFY(dataset.xSorted);
    QCOMPARE(joined(dataset.columns[1].values), QStringLiteral("1 -3 5"));
    QCOMPARE(dataset.columns[1].range.highest, 5.0);
    QCOMPARE(dataset.columns[1].notPositiveCells, qint64(1));
    QCOMPARE(joined(dataset.columns[2].values), QStringLiteral("10 - 50"));
}

void TestDataset::timesPassMidnight()
{
    Dataset dataset;
    QCOMPARE(load("t,a\n22:00,1\n23:30,2\n00:30,3\n00:20,3\n23:00,4\n01:00,5\n", &dataset).text, QString());
    Problem problem;
    QVERIFY(assignX(&dataset, QString(), &problem));
    QVector<double> hours;
    for (const double x : qAsConst(dataset.x))
        hours += (x - dataset.x.first()) / 3600000.0;
    QCOMPARE(joined(hours), QStringLiteral("0 1.5 2.5 2.33333 25 27"));
}

void TestDataset::chosenY_data()
{
    QTest::addColumn<QStringList>("columns");
    QTest::addColumn<QVector<int>>("chosen");
    QTest::addColumn<QString>("problem");

    const auto list = [](const char *text) { return QString::fromLatin1(text).split(QLatin1Char(',')); };
    QTest::newRow("all") << QStringList() << QVector<int>({1, 3}) << QString();
    QTest::newRow("one") << list("b") << QVector<int>({3}) << QString();
    QTest::newRow("in the order that was asked for") << list("b,2") << QVector<int>({3, 1}) << QString();
    QTest::newRow("twice the same") << list("a,2,a") << QVector<int>({1}) << QString();
    QTest::newRow("x itself") << list("n") << QVector<int>({0}) << QString();
    QTest::newRow("text") << list("w") << QVector<int>()
                          << QStringLiteral("the column \"w\" holds text, only numbers can be drawn");
    QTest::newRow("unknown") << list("z") << QVector<int>() << QStringLiteral("there is no column \"z\"");
}

void TestDataset::chosenY()
{
    QFETCH(QStringList, columns);
    QFETCH(QString, problem);
    Dataset dataset;
    QCOMPARE(load("n,a,w,b\n1,5,x,7\n2,4,y,8\n", &dataset).text, QString());
    Problem found;
    QVERIFY(assignX(&dataset, QString(), &found));
    QVector<int> chosen;
    QCOMPARE(chooseY(dataset, columns, &chosen, &found), problem.isEmpty());
    QTEST(chosen, "chosen");
    QCOMPARE(found.text, problem);
}

void TestDataset::gapSentences()
{
    Dataset dataset;
    QCOMPARE(load("d,a,b,c\n2026-11-21,1,0,1\nx,,-1,2\n,n/"
                  "a,5,3\n2026-11-24,,6,4\n2026-11-25,4,7,5\n2026-11-26,4,7,5\n",
                  &dataset)
                 .text,
             QString());
    Problem problem;
    QVERIFY(assignX(&dataset, QString(), &problem));
    QCOMPARE(gapSentence(dataset, 0, false),
             QStringLiteral("f.csv, column \"d\": rows left out: 1 empty cell, 1 cell that is no date."));
    QCOMPARE(gapSentence(dataset, 1, false),
             QStringLiteral("f.csv, column \"a\": gaps: 2 empty cells, 1 cell that is no number."));
    QCOMPARE(gapSentence(dataset, 2, false), QString());
    QCOMPARE(gapSentence(dataset, 2, true),
             QStringLiteral("f.csv, column \"b\": gaps: 1 value not above 0."));
    QCOMPARE(gapSentence(dataset, 3, true), QString());
}

void TestDataset::cancelling()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("a,b\n" + QByteArray("1,2\n").repeated(500000));
    file.close();
    Dataset dataset;
    Problem problem;
    int calls = 0;
    qint64 lastDone = 0;
    const LoadProgress progress = [&](qint64 done, qint64 total) {
        lastDone = done;
        return total == 2000004 && ++calls < 3;
    };
    QCOMPARE(loadDataset(file.fileName(), progress, &dataset, &problem), LoadOutcome::Cancelled);
    QCOMPARE(calls, 3);
    QVERIFY(lastDone < 2000004);
    QVERIFY(!problem.exists());
}

QTEST_APPLESS_MAIN(TestDataset)
#include "tst_dataset.moc"
