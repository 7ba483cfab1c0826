#include "selection.h"

#include "shared/quiettest.h"

namespace {

Dataset dataset(const QByteArray &bytes, const char *file)
{
    Dataset result;
    DatasetBuilder builder;
    CsvReader reader([&builder](const CsvRow &row) { return builder.addRow(row); });
    reader.feed({bytes.constData(), static_cast<size_t>(bytes.size())});
    reader.finish();
    builder.finish(&result);
    result.file = QString::fromLatin1(file);
    Problem problem;
    assignX(&result, QString(), &problem);
    return result;
}

QStringList names(const QVector<Series> &series)
{
    QStringList list;
    for (const Series &one : series)
        list += one.info.name;
    return list;
}

} // namespace

class TestSelection : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void seriesOfOneFile();
    void seriesOfSeveralFiles();
    void rangesOnLogarithmicAxes();
    void sides();
    void problems();
    void reportsOfGapsAndText();
    void reportOfAnUnusedTimeFormat();
};

void TestSelection::seriesOfOneFile()
{
    QString sentence;
    const QVector<Series> series
        = selectSeries({dataset("t,a,w,b\n1,5,x,7\n2,4,y,8\n", "f.csv")}, {}, &sentence);
    QCOMPARE(sentence, QString());
    QCOMPARE(names(series), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(series[1].column, 3);
    QCOMPARE(series[1].info.xKind, XKind::Number);
    QCOMPARE(series[1].info.range.lowest, 7.0);
    QCOMPARE(series[1].info.range.highest, 8.0);
    QVERIFY(!series[1].info.side);
}

void TestSelection::seriesOfSeveralFiles()
{
    QString sentence;
    const QVector<Series> series = selectSeries(
        {dataset("t,a\n1,5\n2,4\n", "dir/f.csv"), dataset("d,a\n2026-11-21,5\n2026-11-22,4\n", "g.csv")}, {},
        &sentence);
    QCOMPARE(names(series), QStringList({QStringLiteral("f: a"), QStringLiteral("g: a")}));
    QCOMPARE(series[0].dataset, 0);
    QCOMPARE(series[1].dataset, 1);
    QCOMPARE(series[1].info.xKind, XKind::DateTime);
}

void TestSelection::rangesOnLogarithmicAxes()
{
    Options options;
    options.logY = true;
    QString sentence;
    const QVector<Series> series
        = selectSeries({dataset("t,a,b\n1,-5,-1\n2,10,-2\n3,1000,0\n", "f.csv")}, options, &sentence);
    QCOMPARE(series[0].info.range.lowest, 1.0);
    QCOMPARE(series[0].info.range.highest, 3.0);
    QVERIFY(series[1].info.range.isEmpty());
}

void TestSelection::sides()
{
    Options options;
    options.axes = {{QStringLiteral("b"), AxisSide::Right}, {QStringLiteral("2"), AxisSide::Left}};
    QString sentence;
    const QVector<Series> series
        = selectSeries({dataset("t,a,b\n1,5,7\n2,4,8\n", "f.csv")}, options, &sentence);
    QCOMPARE(series[0].info.side.value(), AxisSide::Left);
    QCOMPARE(series[1].info.side.value(), AxisSide::Right);
}

void TestSelection::problems()
{
    const std::vector<Dataset> datasets = {dataset("t,a\n1,5\n2,4\n", "f.csv")};
    QString sentence;
    Options options;
    options.y = QStringList(QStringLiteral("z"));
    QVERIFY(selectSeries(datasets, options, &sentence).isEmpty());
    QCOMPARE(sentence, QStringLiteral("f.csv: there is no column \"z\"."));
    options.y.clear();
    options.axes = {{QStringLiteral("q"), AxisSide::Left}};
    QVERIFY(selectSeries(datasets, options, &sentence).isEmpty());
    QCOMPARE(sentence, QStringLiteral("f.csv: there is no column \"q\"."));
}

void TestSelection::reportsOfGapsAndText()
{
    const std::vector<Dataset> datasets
        = {dataset("t,a,w,b,v,e\n1,5,x,,p,\n2,,y,7,q\n3,4,z,-1,r,\n", "f.csv")};
    Options options;
    QString sentence;
    QCOMPARE(reports(datasets, selectSeries(datasets, options, &sentence), options),
             QStringList({QStringLiteral("f.csv, column \"a\": gaps: 1 empty cell."),
                          QStringLiteral("f.csv, column \"b\": gaps: 1 empty cell."),
                          QStringLiteral("f.csv: not drawn, since it is text: \"w\", \"v\"."),
                          QStringLiteral("f.csv: not drawn, since it is empty: \"e\".")}));
    options.y = QStringList(QStringLiteral("b"));
    options.logY = true;
    QCOMPARE(reports(datasets, selectSeries(datasets, options, &sentence), options),
             QStringList(QStringLiteral("f.csv, column \"b\": gaps: 1 empty cell, 1 value not above 0.")));
}

void TestSelection::reportOfAnUnusedTimeFormat()
{
    const std::vector<Dataset> datasets = {dataset("d,a\n1958-03-01,5\n1999-03-01,4\n", "f.csv")};
    Options options;
    QString sentence;
    QVERIFY(reports(datasets, selectSeries(datasets, options, &sentence), options).isEmpty());
    options.timeFormat = QStringLiteral("%yyyy");
    QCOMPARE(reports(datasets, selectSeries(datasets, options, &sentence), options),
             QStringList(QStringLiteral(
                 "f.csv: dates before 1970 are labelled by years, the time format is not used for them.")));
}

QTEST_APPLESS_MAIN(TestSelection)
#include "tst_selection.moc"
