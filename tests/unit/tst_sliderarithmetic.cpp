#include "internal/sliderarithmetic_p.h"
#include "shared/quiettest.h"

#include <QtCore/QRect>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Largest = std::numeric_limits<double>::max();

QRectF range(double left, double right)
{
    return QRectF(left, 3.0, right - left, 4.0);
}

SliderStrip strip(int length, double masterLeft, double masterRight, double left, double right)
{
    SliderStrip result(length);
    result.setMaster(range(masterLeft, masterRight));
    result.synchronise(range(left, right));
    return result;
}

/// The strip told once more, by rectangles and edges instead of positions and widths.
class Model
{
public:
    explicit Model(int length)
        : m_length(length)
        , m_leftHandle(0, 0, 8, 1)
        , m_rightHandle(0, 0, 8, 1)
    {
        m_rightHandle.moveRight(length);
    }

    int left() const { return m_leftHandle.left(); }
    int right() const { return m_rightHandle.right(); }
    /// The last range put an edge so near to the middle of a pixel that rounding is a matter of luck.
    bool isDoubtful() const { return m_doubtful; }
    double selectionLeft() const { return m_from; }
    double selectionRight() const { return m_to; }

    void setMaster(double from, double to)
    {
        m_masterFrom = from;
        m_masterTo = to;
    }

    void setLength(int length)
    {
        m_length = length;
        synchronise(m_from, m_to);
        if (left() > right() - 17)
            m_leftHandle.moveLeft(right() > 17 ? right() - 17 : 0);
    }

    void synchronise(double from, double to)
    {
        m_from = from;
        m_to = to;
        const double perUnit = m_length / (m_masterTo - m_masterFrom);
        const double exact1 = (from - m_masterFrom) * perUnit;
        const double exact2 = m_length - (m_masterTo - to) * perUnit;
        long x1 = std::lround(exact1);
        const long x2 = std::lround(exact2);
        for (double exact : {exact1, exact2})
            m_doubtful = m_doubtful || std::abs(exact - std::floor(exact) - 0.5) < 1e-6;
        if (x2 > m_length)
            x1 -= x2 - m_length;
        placeLeft(int(x1));
        placeRight(int(x2));
    }

    void dragLeft(int x)
    {
        placeLeft(inStrip(x));
        m_from = value(left());
        m_to = value(right());
    }

    void dragRight(int x)
    {
        placeRight(inStrip(x));
        m_from = value(left());
        m_to = value(right());
    }

    void dragBoth(int x)
    {
        int wanted = x > 0 ? x : 0;
        const int span = right() - left();
        if (wanted + span > m_length)
            wanted = m_length - span;
        const double width = m_to - m_from;
        m_leftHandle.moveLeft(wanted);
        m_rightHandle.moveRight(wanted + span);
        m_from = value(wanted);
        m_to = m_from + width;
    }

private:
    int inStrip(int x) const { return x < 0 ? 0 : (x > m_length ? m_length : x); }
    double value(int x) const { return m_masterFrom + (m_masterTo - m_masterFrom) / m_length * x; }

    void placeLeft(int x)
    {
        int place = x > 0 ? x : 0;
        if (x + 16 >= right())
            place = right() - 17 > 0 ? right() - 17 : 0;
        if (place != x)
            m_from = value(place);
        m_leftHandle.moveLeft(place);
    }

    void placeRight(int x)
    {
        int place = x;
        if (x - 16 <= left())
            place = left() + 17;
        if (place > m_length)
            place = m_length;
        if (place != x)
            m_to = value(place);
        m_rightHandle.moveRight(place);
    }

    int m_length;
    bool m_doubtful = false;
    QRect m_leftHandle;
    QRect m_rightHandle;
    double m_masterFrom = 0.0;
    double m_masterTo = 0.0;
    double m_from = 0.0;
    double m_to = 0.0;
};

} // namespace

class TestSliderArithmetic : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithTheHandlesAtTheEnds();
    void marksTheWholeStripUntilSomethingIsSelected();
    void synchronise_data();
    void synchronise();
    void theLeftHandleIsStoppedByTheOldPlaceOfTheRightOne();
    void masterReportsOnlyAChangeAlongX_data();
    void masterReportsOnlyAChangeAlongX();
    void leftEdge_data();
    void leftEdge();
    void rightEdge_data();
    void rightEdge();
    void stoppedEdgesRewriteTheSelection();
    void moveBoth_data();
    void moveBoth();
    void selectFromHandles();
    void movingKeepsTheWidthInValues();
    void resizing();
    void narrowStrips_data();
    void narrowStrips();
    void noScale_data();
    void noScale();
    void unusableSelectionIsIgnored_data();
    void unusableSelectionIsIgnored();
    void agreesWithTheModel();
    void survivesAnyNumbers();
};

void TestSliderArithmetic::startsWithTheHandlesAtTheEnds()
{
    const SliderStrip fresh(640);
    QCOMPARE(fresh.leftPosition(), 0);
    QCOMPARE(fresh.rightPosition(), 640);
    QVERIFY(fresh.selection().isNull());
    QVERIFY(fresh.master().isNull());
    QVERIFY(!fresh.hasScale());
    QCOMPARE(SliderStrip(-5).rightPosition(), 0);
}

void TestSliderArithmetic::marksTheWholeStripUntilSomethingIsSelected()
{
    SliderStrip fresh(640);
    for (bool withMaster : {false, true}) {
        if (withMaster)
            fresh.setMaster(range(10.0, 100.0));
        for (int length : {200, 400, 30, 1000}) {
            fresh.resize(length);
            QCOMPARE(fresh.leftPosition(), 0);
            QCOMPARE(fresh.rightPosition(), length);
        }
    }
    fresh.moveRightEdge(500);
    fresh.selectFromHandles();
    fresh.resize(2000);
    QCOMPARE(fresh.rightPosition(), 1000);
}

void TestSliderArithmetic::synchronise_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<int>("leftPosition");
    QTest::addColumn<int>("rightPosition");
    QTest::addColumn<double>("selectionLeft");
    QTest::addColumn<double>("selectionRight");

    QTest::newRow("a quarter") << 25.0 << 50.0 << 50 << 100 << 25.0 << 50.0;
    QTest::newRow("everything") << 0.0 << 100.0 << 0 << 200 << 0.0 << 100.0;
    QTest::newRow("rounds up") << 25.3 << 50.3 << 51 << 101 << 25.3 << 50.3;
    QTest::newRow("rounds down") << 25.2 << 50.2 << 50 << 100 << 25.2 << 50.2;
    QTest::newRow("wider than the master") << -50.0 << 200.0 << 0 << 200 << 0.0 << 100.0;
    QTest::newRow("beyond the left end") << -10.0 << 50.0 << 0 << 100 << 0.0 << 50.0;
    // The left handle is pushed back by what the right one lacks; its side of the selection is not touched.
    QTest::newRow("beyond the right end") << 75.0 << 125.0 << 100 << 200 << 75.0 << 100.0;
    QTest::newRow("all left of the master") << -60.0 << -50.0 << 0 << 17 << 0.0 << 8.5;
    QTest::newRow("all right of the master") << 150.0 << 160.0 << 180 << 200 << 150.0 << 100.0;
    QTest::newRow("narrower than the handles") << 50.0 << 51.0 << 100 << 117 << 50.0 << 58.5;
    QTest::newRow("narrow at the right end") << 99.0 << 100.0 << 183 << 200 << 91.5 << 100.0;
    QTest::newRow("empty") << 50.0 << 50.0 << 100 << 117 << 50.0 << 58.5;
    QTest::newRow("turned round") << 60.0 << 40.0 << 120 << 137 << 60.0 << 68.5;
    QTest::newRow("very far left") << -1e15 << 50.0 << 0 << 100 << 0.0 << 50.0;
    QTest::newRow("very wide") << -4e300 << 4e300 << 0 << 200 << 0.0 << 100.0;
}

void TestSliderArithmetic::synchronise()
{
    QFETCH(double, left);
    QFETCH(double, right);
    const SliderStrip result = strip(200, 0.0, 100.0, left, right);
    QTEST(result.leftPosition(), "leftPosition");
    QTEST(result.rightPosition(), "rightPosition");
    QTEST(result.selection().left(), "selectionLeft");
    QTEST(result.selection().right(), "selectionRight");
    QCOMPARE(result.selection().top(), 3.0);
    QCOMPARE(result.selection().height(), 4.0);
}

void TestSliderArithmetic::theLeftHandleIsStoppedByTheOldPlaceOfTheRightOne()
{
    SliderStrip result = strip(200, 0.0, 100.0, 10.0, 20.0);
    QCOMPARE(result.rightPosition(), 40);
    result.synchronise(range(60.0, 80.0));
    QCOMPARE(result.leftPosition(), 23);
    QCOMPARE(result.rightPosition(), 160);
    QCOMPARE(result.selection().left(), 11.5);
    result.synchronise(range(60.0, 80.0));
    QCOMPARE(result.leftPosition(), 120);
    QCOMPARE(result.selection().left(), 60.0);
}

void TestSliderArithmetic::masterReportsOnlyAChangeAlongX_data()
{
    QTest::addColumn<QRectF>("canvas");
    QTest::addColumn<bool>("changed");
    QTest::newRow("the same") << QRectF(0, 0, 100, 10) << false;
    QTest::newRow("another top") << QRectF(0, 5, 100, 10) << false;
    QTest::newRow("another height") << QRectF(0, 0, 100, 20) << false;
    QTest::newRow("another left") << QRectF(1, 0, 100, 10) << true;
    QTest::newRow("another width") << QRectF(0, 0, 101, 10) << true;
    QTest::newRow("a tiny difference") << QRectF(1e-300, 0, 100, 10) << true;
    QTest::newRow("not a number") << QRectF(NaN, 0, 100, 10) << true;
}

void TestSliderArithmetic::masterReportsOnlyAChangeAlongX()
{
    QFETCH(QRectF, canvas);
    QFETCH(bool, changed);
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.setMaster(QRectF(0, 0, 100, 10));
    QCOMPARE(result.setMaster(canvas), changed);
    QCOMPARE(result.leftPosition(), 50);
    QCOMPARE(result.rightPosition(), 100);
    QCOMPARE(result.selection(), range(25.0, 50.0));
}

void TestSliderArithmetic::leftEdge_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("position");
    QTest::newRow("free") << 60 << 60;
    QTest::newRow("last free pixel") << 83 << 83;
    QTest::newRow("first stopped pixel") << 84 << 83;
    QTest::newRow("beyond the right handle") << 150 << 83;
    QTest::newRow("at the end") << 0 << 0;
    QTest::newRow("beyond the end") << -3 << 0;
    QTest::newRow("absurd") << std::numeric_limits<int>::min() << 0;
    QTest::newRow("absurd too") << std::numeric_limits<int>::max() << 83;
}

void TestSliderArithmetic::leftEdge()
{
    QFETCH(int, x);
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.moveLeftEdge(x);
    QTEST(result.leftPosition(), "position");
    QCOMPARE(result.rightPosition(), 100);
}

void TestSliderArithmetic::rightEdge_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("position");
    QTest::newRow("free") << 150 << 150;
    QTest::newRow("last free pixel") << 67 << 67;
    QTest::newRow("first stopped pixel") << 66 << 67;
    QTest::newRow("on the left handle") << 50 << 67;
    QTest::newRow("beyond the left handle") << 10 << 67;
    QTest::newRow("at the end") << 200 << 200;
    QTest::newRow("beyond the end") << 230 << 200;
    QTest::newRow("absurd") << std::numeric_limits<int>::max() << 200;
    QTest::newRow("absurd too") << std::numeric_limits<int>::min() << 67;
}

void TestSliderArithmetic::rightEdge()
{
    QFETCH(int, x);
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.moveRightEdge(x);
    QTEST(result.rightPosition(), "position");
    QCOMPARE(result.leftPosition(), 50);
}

void TestSliderArithmetic::stoppedEdgesRewriteTheSelection()
{
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.moveLeftEdge(20);
    QCOMPARE(result.selection(), range(25.0, 50.0));
    result.moveLeftEdge(150);
    QCOMPARE(result.selection(), range(41.5, 50.0));

    result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.moveRightEdge(150);
    QCOMPARE(result.selection(), range(25.0, 50.0));
    result.moveRightEdge(0);
    QCOMPARE(result.selection(), range(25.0, 33.5));
}

void TestSliderArithmetic::moveBoth_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("leftPosition");
    QTest::addColumn<int>("rightPosition");
    QTest::addColumn<double>("left");
    QTest::newRow("to the left") << 20 << 20 << 70 << 10.0;
    QTest::newRow("to the right") << 120 << 120 << 170 << 60.0;
    QTest::newRow("to the left end") << 0 << 0 << 50 << 0.0;
    QTest::newRow("beyond the left end") << -40 << 0 << 50 << 0.0;
    QTest::newRow("to the right end") << 150 << 150 << 200 << 75.0;
    QTest::newRow("beyond the right end") << 180 << 150 << 200 << 75.0;
    QTest::newRow("absurd") << std::numeric_limits<int>::max() << 150 << 200 << 75.0;
    QTest::newRow("absurd too") << std::numeric_limits<int>::min() << 0 << 50 << 0.0;
}

void TestSliderArithmetic::moveBoth()
{
    QFETCH(int, x);
    QFETCH(double, left);
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.moveBoth(x);
    QTEST(result.leftPosition(), "leftPosition");
    QTEST(result.rightPosition(), "rightPosition");
    QCOMPARE(result.selection(), range(left, left + 25.0));
}

void TestSliderArithmetic::selectFromHandles()
{
    SliderStrip result = strip(200, 0.0, 100.0, 25.2, 50.7);
    QCOMPARE(result.leftPosition(), 50);
    QCOMPARE(result.rightPosition(), 101);

    // No edge was moved yet: the width of the selection counts, not the right handle.
    result.selectFromHandles();
    QCOMPARE(result.selection(), QRectF(25.0, 3.0, 25.5, 0.0));

    result.moveRightEdge(120);
    result.selectFromHandles();
    QCOMPARE(result.selection(), QRectF(25.0, 3.0, 35.0, 0.0));

    result.moveLeftEdge(40);
    result.selectFromHandles();
    QCOMPARE(result.selection(), QRectF(20.0, 3.0, 40.0, 0.0));

    result.setMaster(QRectF(1000.0, 0.0, 400.0, 1.0));
    result.selectFromHandles();
    QCOMPARE(result.selection(), QRectF(1080.0, 3.0, 160.0, 0.0));
}

void TestSliderArithmetic::movingKeepsTheWidthInValues()
{
    SliderStrip result = strip(200, 0.0, 100.0, 25.2, 50.83);
    const double width = result.selection().width();
    std::mt19937 random(5);
    for (int i = 0; i < 10000; ++i) {
        result.moveBoth(int(random() % 400) - 100);
        result.selectFromHandles();
        QCOMPARE(result.rightPosition() - result.leftPosition(), 52);
        QCOMPARE(result.selection().left(), result.leftPosition() / 2.0);
        QVERIFY(result.selection().width() == width);
    }
}

void TestSliderArithmetic::resizing()
{
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.resize(100);
    QCOMPARE(result.leftPosition(), 25);
    QCOMPARE(result.rightPosition(), 50);
    QCOMPARE(result.selection(), range(25.0, 50.0));

    // Shrinking leaves the selection alone, also where the handles have less room than they need.
    result.synchronise(range(80.0, 100.0));
    result.synchronise(range(80.0, 100.0));
    QCOMPARE(result.leftPosition(), 80);
    result.resize(50);
    QCOMPARE(result.leftPosition(), 33);
    QCOMPARE(result.rightPosition(), 50);
    QCOMPARE(result.selection(), range(80.0, 100.0));
    result = strip(100, 0.0, 100.0, 25.0, 50.0);

    // A strip of no width changes nothing, so that the next width finds everything as it was.
    result.resize(0);
    result.resize(-7);
    QCOMPARE(result.length(), 0);
    QCOMPARE(result.leftPosition(), 25);
    QCOMPARE(result.rightPosition(), 50);
    result.resize(120);
    QCOMPARE(result.leftPosition(), 30);
    QCOMPARE(result.rightPosition(), 60);
    QCOMPARE(result.selection(), range(25.0, 50.0));

    // Growing at one go, the left handle meets the old place of the right one.
    result.resize(400);
    QCOMPARE(result.leftPosition(), 43);
    QCOMPARE(result.rightPosition(), 200);
    QCOMPARE(result.selection(), range(10.75, 50.0));
}

void TestSliderArithmetic::narrowStrips_data()
{
    QTest::addColumn<int>("length");
    for (int length : {1, 2, 7, 8, 9, 16, 17, 18})
        QTest::addRow("%d pixels", length) << length;
}

void TestSliderArithmetic::narrowStrips()
{
    QFETCH(int, length);
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.resize(length);
    for (int x = -3; x < length + 3; ++x) {
        result.moveLeftEdge(x);
        result.moveRightEdge(x);
        result.moveBoth(x);
        result.selectFromHandles();
        QVERIFY(0 <= result.leftPosition() && result.leftPosition() <= result.rightPosition());
        QVERIFY(result.rightPosition() <= length);
        QVERIFY(std::isfinite(result.selection().left()) && std::isfinite(result.selection().right()));
    }
}

void TestSliderArithmetic::noScale_data()
{
    QTest::addColumn<QRectF>("master");
    QTest::newRow("null") << QRectF();
    QTest::newRow("no width") << QRectF(5, 0, 0, 1);
    QTest::newRow("turned round") << QRectF(5, 0, -5, 1);
    QTest::newRow("left is not a number") << QRectF(NaN, 0, 5, 1);
    QTest::newRow("width is not a number") << QRectF(0, 0, NaN, 1);
    QTest::newRow("left is infinite") << QRectF(-Infinity, 0, 5, 1);
    QTest::newRow("width is infinite") << QRectF(0, 0, Infinity, 1);
    QTest::newRow("too wide to compute with") << QRectF(-Largest, 0, Largest, 1);
}

void TestSliderArithmetic::noScale()
{
    QFETCH(QRectF, master);
    SliderStrip result(640);
    result.setMaster(master);
    QVERIFY(!result.hasScale());
    result.synchronise(range(25.0, 50.0));
    QCOMPARE(result.leftPosition(), 0);
    QCOMPARE(result.rightPosition(), 640);

    result.setLength(200);
    QCOMPARE(result.leftPosition(), 0);
    QCOMPARE(result.rightPosition(), 200);
    result.resize(300);
    QCOMPARE(result.rightPosition(), 200);

    result.moveLeftEdge(150);
    result.resize(100);
    QCOMPARE(result.leftPosition(), 83);
    QCOMPARE(result.rightPosition(), 100);
    result.moveRightEdge(10);
    result.moveLeftEdge(1000);
    result.moveBoth(20);
    result.selectFromHandles();
    QCOMPARE(result.leftPosition(), 20);
    QCOMPARE(result.rightPosition(), 37);
    QCOMPARE(result.selection(), range(25.0, 50.0));

    // The selection is at hand when a master canvas arrives.
    result.setMaster(range(0.0, 100.0));
    result.resize(100);
    result.resize(100);
    QCOMPARE(result.rightPosition(), 50);
}

void TestSliderArithmetic::unusableSelectionIsIgnored_data()
{
    QTest::addColumn<QRectF>("selection");
    QTest::newRow("left is not a number") << QRectF(NaN, 0, 5, 1);
    QTest::newRow("width is not a number") << QRectF(0, 0, NaN, 1);
    QTest::newRow("left is infinite") << QRectF(-Infinity, 0, 5, 1);
    QTest::newRow("width is infinite") << QRectF(0, 0, Infinity, 1);
    QTest::newRow("left is too far away") << QRectF(-Largest, 0, 5, 1);
    QTest::newRow("width is too large") << QRectF(0, 0, Largest, 1);
}

void TestSliderArithmetic::unusableSelectionIsIgnored()
{
    QFETCH(QRectF, selection);
    SliderStrip result = strip(200, 0.0, 100.0, 25.0, 50.0);
    result.synchronise(selection);
    QCOMPARE(result.leftPosition(), 50);
    QCOMPARE(result.rightPosition(), 100);
    QCOMPARE(result.selection(), range(25.0, 50.0));
}

void TestSliderArithmetic::agreesWithTheModel()
{
    std::mt19937 random(20250);
    const auto number = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    const auto whole
        = [&random](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    int steps = 0;
    for (int round = 0; round < 600; ++round) {
        const double unit = std::pow(10.0, whole(-6, 6));
        const double origin = unit * number(-50.0, 50.0);
        const int start = whole(17, 2000);
        SliderStrip subject(start);
        Model model(start);
        subject.setMaster(QRectF(origin, 0.0, 100.0 * unit, 1.0));
        model.setMaster(subject.master().left(), subject.master().right());
        subject.synchronise(QRectF(origin, 0.0, 50.0 * unit, 1.0));
        model.synchronise(subject.selection().left(), subject.selection().right());
        for (int step = 0; step < 100 && !model.isDoubtful(); ++step, ++steps) {
            const int x = whole(-100, subject.length() + 100);
            switch (whole(0, 5)) {
            case 0: {
                // The handles do not move, so the next drag or canvas is the first to show it.
                subject.setMaster(QRectF(origin + unit * number(-20, 20), 0.0, unit * number(1, 200), 1.0));
                model.setMaster(subject.master().left(), subject.master().right());
                break;
            }
            case 1: {
                const double left = origin + unit * number(-100.0, 150.0);
                const QRectF canvas(left, 0.0, unit * number(0.0, 120.0), 1.0);
                subject.synchronise(canvas);
                model.synchronise(canvas.left(), canvas.right());
                break;
            }
            case 2:
                subject.moveLeftEdge(x);
                subject.selectFromHandles();
                model.dragLeft(x);
                break;
            case 3:
                subject.moveRightEdge(x);
                subject.selectFromHandles();
                model.dragRight(x);
                break;
            case 4:
                subject.moveBoth(x);
                subject.selectFromHandles();
                model.dragBoth(x);
                break;
            case 5: {
                const int length = whole(17, 2000);
                subject.resize(length);
                model.setLength(length);
                break;
            }
            }
            if (model.isDoubtful())
                break;
            const QString where = QStringLiteral("round %1, step %2").arg(round).arg(step);
            const double tolerance = 1e-7 * unit;
            QVERIFY2(subject.leftPosition() == model.left(), qPrintable(where));
            QVERIFY2(subject.rightPosition() == model.right(), qPrintable(where));
            QVERIFY2(std::abs(subject.selection().left() - model.selectionLeft()) < tolerance,
                     qPrintable(where));
            QVERIFY2(std::abs(subject.selection().right() - model.selectionRight()) < tolerance,
                     qPrintable(where));
        }
    }
    QVERIFY2(steps > 20000, qPrintable(QString::number(steps)));
}

void TestSliderArithmetic::survivesAnyNumbers()
{
    const double values[] = {0.0,   -0.0,   1.0,   -1.0,    100.0,    5e-324,   -5e-324,   1e-300, 1e9,
                             1e300, -1e300, 4e300, Largest, -Largest, Infinity, -Infinity, NaN};
    std::mt19937 random(77);
    const auto pick = [&] { return values[random() % std::size(values)]; };
    SliderStrip subject(200);
    for (int i = 0; i < 200000; ++i) {
        switch (random() % 6) {
        case 0:
            subject.setMaster(QRectF(pick(), pick(), pick(), pick()));
            break;
        case 1:
            subject.synchronise(QRectF(pick(), pick(), pick(), pick()));
            break;
        case 2:
            subject.moveLeftEdge(int(random()));
            break;
        case 3:
            subject.moveRightEdge(int(random()));
            break;
        case 4:
            subject.moveBoth(int(random()));
            break;
        case 5:
            subject.resize(int(random() % 300) - 20);
            break;
        }
        subject.selectFromHandles();
        QVERIFY(std::isfinite(subject.selection().left()) && std::isfinite(subject.selection().right()));
        QVERIFY(0 <= subject.leftPosition());
        QVERIFY(subject.leftPosition() <= subject.rightPosition());
        if (subject.length() > 0) {
            QVERIFY(subject.rightPosition() <= subject.length());
        }
    }
}

QTEST_APPLESS_MAIN(TestSliderArithmetic)
#include "tst_sliderarithmetic.moc"
