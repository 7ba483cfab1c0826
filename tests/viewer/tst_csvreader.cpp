#include "csvreader.h"

#include "shared/quiettest.h"

#include <algorithm>
#include <random>

namespace {

/// What a reader made of some bytes.
struct Reading
{
    QStringList rows; ///< cells joined by "|"
    QVector<qint64> lines;
    Problem problem;
    bool ok = false;
    char delimiter = '\0';
};

Reading read(const QByteArray &bytes, int blockSize)
{
    Reading reading;
    CsvReader reader([&reading](const CsvRow &row) {
        QStringList cells;
        for (int i = 0; i < row.size(); ++i)
            cells += decodeText(row.cell(i));
        reading.rows += cells.join(QLatin1Char('|'));
        reading.lines += row.line();
        return true;
    });
    reading.ok = true;
    for (int i = 0; i < bytes.size() && reading.ok; i += blockSize) {
        const QByteArray block = bytes.mid(i, blockSize);
        reading.ok = reader.feed({block.constData(), static_cast<size_t>(block.size())});
    }
    reading.ok = reading.ok && reader.finish();
    reading.problem = reader.problem();
    reading.delimiter = reader.delimiter();
    return reading;
}

} // namespace

class TestCsvReader : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void delimiter_data();
    void delimiter();
    void rows_data();
    void rows();
    void problems_data();
    void problems();
    void afterTheHeadTheSameRulesHold();
    void blocksMakeNoDifference();
    void endlessCellIsStopped();
    void handlerStopsTheReading();
    void decoding_data();
    void decoding();
};

void TestCsvReader::delimiter_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<char>("delimiter");

    QTest::newRow("nothing speaks for any") << QByteArray("a\n1\n") << ',';
    QTest::newRow("empty") << QByteArray() << ',';
    QTest::newRow("commas") << QByteArray("a,b\n1,2\n") << ',';
    QTest::newRow("semicolons") << QByteArray("a;b\n1;2\n") << ';';
    QTest::newRow("tabs") << QByteArray("a\tb\n1\t2\n") << '\t';
    QTest::newRow("semicolons with decimal commas") << QByteArray("a;b\n1,5;2,5\n3,5;4,5\n") << ';';
    QTest::newRow("semicolons with decimal commas, no header") << QByteArray("1,5;2,5\n3,5;4,5\n") << ';';
    QTest::newRow("tabs with decimal commas") << QByteArray("1,5\t2,5\n3,5\t4,5\n") << '\t';
    QTest::newRow("commas beat one semicolon in a text") << QByteArray("a,b\n1,x;y\n2,z\n") << ',';
    QTest::newRow("quoted semicolons do not count") << QByteArray("a,b\n\"x;y\",1\n\"x;y\",1\n") << ',';
    QTest::newRow("only one unfinished line") << QByteArray("a;b") << ';';
}

void TestCsvReader::delimiter()
{
    QFETCH(QByteArray, head);
    QTEST(detectDelimiter({head.constData(), static_cast<size_t>(head.size())}), "delimiter");
}

void TestCsvReader::rows_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QVector<qint64>>("lines");

    const auto list = [](const char *text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); };
    const QVector<qint64> twoLines = {1, 2};
    QTest::newRow("line feeds") << QByteArray("a,b\n1,2\n") << list("a|b 1|2") << twoLines;
    QTest::newRow("no line end at the end") << QByteArray("a,b\n1,2") << list("a|b 1|2") << twoLines;
    QTest::newRow("CRLF") << QByteArray("a,b\r\n1,2\r\n") << list("a|b 1|2") << twoLines;
    QTest::newRow("CR") << QByteArray("a,b\r1,2\r") << list("a|b 1|2") << twoLines;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a,b\n1,2\n")
                                     << list("a|b 1|2") << twoLines;
    QTest::newRow("blanks around cells") << QByteArray(" a , b\n1 ,2 \n") << list("a|b 1|2") << twoLines;
    QTest::newRow("quotes") << QByteArray("\"a\",\"b,c\"\n\"1\"\"\",2\n") << list("a|b,c 1\"|2") << twoLines;
    QTest::newRow("quotes in the middle") << QByteArray("a,b\n5\"in,2\n") << list("a|b 5\"in|2") << twoLines;
    QTest::newRow("empty cells") << QByteArray("a,b,c\n,,\n") << list("a|b|c ||") << twoLines;
    QTest::newRow("missing cells") << QByteArray("a,b,c\n1\n") << list("a|b|c 1") << twoLines;
    QTest::newRow("tabs with an empty first cell") << QByteArray("a\tb\n\t2\n") << list("a|b |2") << twoLines;
    QTest::newRow("line end in quotes")
        << QByteArray("a,b\n\"1\n2\n\n3\",4\n5,6\n")
        << QStringList({QStringLiteral("a|b"), QStringLiteral("1\n2\n\n3|4"), QStringLiteral("5|6")})
        << QVector<qint64>({1, 2, 6});
    QTest::newRow("CRLF in quotes") << QByteArray("a,b\r\n\"1\r\n2\",4\r\n5,6\r\n")
                                    << QStringList({QStringLiteral("a|b"), QStringLiteral("1\r\n2|4"),
                                                    QStringLiteral("5|6")})
                                    << QVector<qint64>({1, 2, 4});
    QTest::newRow("blank lines are skipped")
        << QByteArray("\n\na,b\n\n  \n1,2\n\n") << list("a|b 1|2") << QVector<qint64>({3, 6});
    QTest::newRow("in one column, a blank line is an empty cell")
        << QByteArray("a\n1\n\n\n2\n\n") << list("a 1   2") << QVector<qint64>({1, 2, 3, 4, 5});
    QTest::newRow("nothing") << QByteArray() << QStringList() << QVector<qint64>();
    QTest::newRow("only blanks") << QByteArray(" \n\n") << QStringList() << QVector<qint64>();
}

void TestCsvReader::rows()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, rows);
    QFETCH(QVector<qint64>, lines);
    for (const int blockSize : {1, 3, 1000}) {
        const Reading reading = read(bytes, blockSize);
        QVERIFY(reading.ok);
        QCOMPARE(reading.rows, rows);
        QCOMPARE(reading.lines, lines);
    }
}

void TestCsvReader::problems_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("line");
    QTest::addColumn<int>("column");

    QTest::newRow("NUL byte") << QByteArray("a,b\n1,\0\n", 8)
                              << QStringLiteral("this is no text file, it holds the byte 0x00") << qint64(2)
                              << 0;
    QTest::newRow("control byte in a later line")
        << QByteArray("a\r\n1\r\n2\x1B\r\n") << QStringLiteral("this is no text file, it holds the byte 0x1b")
        << qint64(3) << 0;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE"
                                          "a\0",
                                          4)
                            << QStringLiteral("this is UTF-16 text, save it as UTF-8 to read it here")
                            << qint64(0) << 0;
    QTest::newRow("quote without end")
        << QByteArray("a,b\n1,2\n3,\"4\n5,6\n")
        << QStringLiteral("the quoted cell that begins here does not end") << qint64(3) << 2;
}

void TestCsvReader::problems()
{
    QFETCH(QByteArray, bytes);
    for (const int blockSize : {1, 1000}) {
        const Reading reading = read(bytes, blockSize);
        QVERIFY(!reading.ok);
        QTEST(reading.problem.text, "text");
        QTEST(reading.problem.line, "line");
        QTEST(reading.problem.column, "column");
    }
}

void TestCsvReader::afterTheHeadTheSameRulesHold()
{
    QByteArray bytes("a;b\n");
    constexpr int kRows = 50000;
    for (int i = 0; i < kRows; ++i)
        bytes += QByteArray::number(i) + ";\"x\r\ny\"\r\n";
    const Reading reading = read(bytes, 4096);
    QVERIFY(reading.ok);
    QCOMPARE(reading.delimiter, ';');
    QCOMPARE(reading.rows.size(), kRows + 1);
    QCOMPARE(reading.rows.last(), QStringLiteral("49999|x\r\ny"));
    QCOMPARE(reading.lines.last(), qint64(2 * kRows));
}

void TestCsvReader::blocksMakeNoDifference()
{
    std::mt19937 random(20261121);
    const QByteArray alphabet("1,;\t\"\n\r \xC2\xB0-a");
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes;
        const int size = static_cast<int>(random() % 60);
        for (int i = 0; i < size; ++i)
            bytes += alphabet.at(static_cast<int>(random() % static_cast<unsigned>(alphabet.size())));
        const Reading whole = read(bytes, 1000);
        const Reading pieces = read(bytes, 1 + static_cast<int>(random() % 5));
        QCOMPARE(pieces.ok, whole.ok);
        QCOMPARE(pieces.rows, whole.rows);
        QCOMPARE(pieces.lines, whole.lines);
        QCOMPARE(pieces.problem.text, whole.problem.text);
        QCOMPARE(pieces.problem.line, whole.problem.line);
        // Rows come in the order of their lines, and begin on lines that exist.
        QVERIFY(std::is_sorted(whole.lines.cbegin(), whole.lines.cend()));
        QVERIFY(whole.lines.isEmpty() || whole.lines.first() >= 1);
        QVERIFY(whole.lines.isEmpty() || whole.lines.last() <= bytes.count('\n') + bytes.count('\r') + 1);
    }
}

void TestCsvReader::endlessCellIsStopped()
{
    const QByteArray bytes = QByteArray("a,b\n1,\"") + QByteArray(3000000, 'x');
    const Reading reading = read(bytes, 65536);
    QVERIFY(!reading.ok);
    QCOMPARE(reading.problem.text,
             QStringLiteral("the cell is longer than a megabyte, is a closing quote missing?"));
    QCOMPARE(reading.problem.line, qint64(2));
    QCOMPARE(reading.problem.column, 2);
}

void TestCsvReader::handlerStopsTheReading()
{
    int rows = 0;
    CsvReader reader([&rows](const CsvRow &) { return ++rows < 2; });
    QVERIFY(reader.feed("a\n1\n2\n3\n"));
    QVERIFY(!reader.finish());
    QCOMPARE(rows, 2);
    QVERIFY(!reader.feed("4\n"));
    QVERIFY(!reader.problem().exists());
}

void TestCsvReader::decoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("ASCII") << QByteArray("abc") << QStringLiteral("abc");
    QTest::newRow("UTF-8") << QByteArray("\xC2\xB0"
                                         "C")
                           << QStringLiteral("\u00B0C");
    QTest::newRow("Latin-1") << QByteArray("\xB0"
                                           "C")
                             << QStringLiteral("\u00B0C");
    QTest::newRow("cut UTF-8") << QByteArray("C\xC2") << QStringLiteral("C\u00C2");
    QTest::newRow("empty") << QByteArray() << QString();
}

void TestCsvReader::decoding()
{
    QFETCH(QByteArray, bytes);
    QTEST(decodeText({bytes.constData(), static_cast<size_t>(bytes.size())}), "text");
}

QTEST_APPLESS_MAIN(TestCsvReader)
#include "tst_csvreader.moc"
