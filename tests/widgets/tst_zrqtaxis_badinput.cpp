#include "shared/quiettest.h"
#include "shared/shownaxis.h"

#include <QtCore/QPointer>
#include <QtGui/QImage>

#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

/// What no careful program does to an axis.
class TestZrQtAxisBadInput : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsNothingForAbsurdRanges_data();
    void showsNothingForAbsurdRanges();
    void survivesAbsurdSizes_data();
    void survivesAbsurdSizes();
    void survivesDeletionInItsOwnSignal();
};

void TestZrQtAxisBadInput::showsNothingForAbsurdRanges_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<bool>("logarithmic");
    QTest::newRow("NaN") << notANumber << notANumber << false;
    QTest::newRow("NaN below") << notANumber << 1.0 << false;
    QTest::newRow("NaN above") << 0.0 << notANumber << false;
    QTest::newRow("infinite") << -infinity << infinity << false;
    QTest::newRow("empty") << 3.0 << 3.0 << false;
    QTest::newRow("reversed") << 3.0 << 2.0 << false;
    QTest::newRow("logarithmic from 0") << 0.0 << 10.0 << true;
}

void TestZrQtAxisBadInput::showsNothingForAbsurdRanges()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(bool, logarithmic);
    for (Qt::Edge edge : {Qt::TopEdge, Qt::LeftEdge}) {
        ShownAxis shown;
        shown.axis.setLogarithmic(logarithmic);
        shown.axis.setPosition(edge);
        shown.axis.setMinMax(min, max);
        QVERIFY(shown.axis.tickPositions().isEmpty());
        QVERIFY(shown.axis.subTickPositions().isEmpty());
        shown.picture();
        shown.axis.setDrawMinMax(max, min);
        shown.axis.setDrawingRangeLimited(true);
        shown.axis.setInverted(true);
        shown.picture();
        QVERIFY(shown.axis.tickPositions().isEmpty());
    }
}

void TestZrQtAxisBadInput::survivesAbsurdSizes_data()
{
    QTest::addColumn<Setup>("setup");
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    for (const int size : {most, least}) {
        const QByteArray which = size == most ? "largest " : "smallest ";
        QTest::newRow(which + "marginLow") << Setup([size](ZrQtAxis &axis) { axis.setMarginLow(size); });
        QTest::newRow(which + "marginHigh") << Setup([size](ZrQtAxis &axis) { axis.setMarginHigh(size); });
        QTest::newRow(which + "both margins") << Setup([size](ZrQtAxis &axis) {
            axis.setMarginLow(size);
            axis.setMarginHigh(size);
        });
        QTest::newRow(which + "tickSize") << Setup([size](ZrQtAxis &axis) { axis.setTickSize(size); });
        QTest::newRow(which + "subTickSize") << Setup([size](ZrQtAxis &axis) { axis.setSubTickSize(size); });
        QTest::newRow(which + "precision") << Setup([size](ZrQtAxis &axis) { axis.setPrecision(size); });
        QTest::newRow(which + "maxTicks") << Setup([size](ZrQtAxis &axis) { axis.setMaxTicks(size); });
        QTest::newRow(which + "maxSubTicks") << Setup([size](ZrQtAxis &axis) { axis.setMaxSubTicks(size); });
    }
    for (const double value : {notANumber, infinity, -infinity, 1e308, -1e308, 0.0}) {
        const QByteArray which = QByteArray::number(value) + ' ';
        QTest::newRow(which + "unitFactor") << Setup([value](ZrQtAxis &axis) { axis.setUnitFactor(value); });
        QTest::newRow(which + "axisOffset") << Setup([value](ZrQtAxis &axis) {
            axis.setAxisOffset(value);
            axis.setMinMax(0.0, 1e308);
        });
        QTest::newRow(which + "tickDistance")
            << Setup([value](ZrQtAxis &axis) { axis.setTickDistance(value); });
        QTest::newRow(which + "subTickDistance")
            << Setup([value](ZrQtAxis &axis) { axis.setSubTickDistance(value); });
        QTest::newRow(which + "drawing range") << Setup([value](ZrQtAxis &axis) {
            axis.setDrawingRangeLimited(true);
            axis.setDrawMinMax(value, value);
        });
        QTest::newRow(which + "canvas") << Setup([value](ZrQtAxis &axis) {
            axis.onCanvasChanged(QRectF(value, value, value, value), ZrQtPlot::COSY_0);
        });
    }
    QTest::newRow("whole range of double") << Setup([](ZrQtAxis &axis) { axis.setMinMax(-1e308, 1e308); });
    QTest::newRow("denormal range") << Setup([](ZrQtAxis &axis) { axis.setMinMax(0.0, 5e-324); });
    QTest::newRow("range finer than double")
        << Setup([](ZrQtAxis &axis) { axis.setMinMax(1e9, std::nextafter(1e9, 2e9)); });
    QTest::newRow("times beyond all calendars") << Setup([](ZrQtAxis &axis) {
        axis.setLabelFormat(ZrQtAxis::TimePlusMs);
        axis.setMinMax(1e300, 1e305);
    });
    QTest::newRow("edge without a name") << Setup([](ZrQtAxis &axis) { axis.setPosition(Qt::Edge(0)); });
    QTest::newRow("format without a name")
        << Setup([](ZrQtAxis &axis) { axis.setLabelFormat(ZrQtAxis::LabelFormat(7)); });
    QTest::newRow("long label") << Setup(
        [](ZrQtAxis &axis) { axis.setAxisLabel(QString(100000, QLatin1Char('W'))); });
}

void TestZrQtAxisBadInput::survivesAbsurdSizes()
{
    QFETCH(Setup, setup);
    for (Qt::Edge edge : {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge}) {
        for (const QSize size : {QSize(0, 0), QSize(300, 300)}) {
            // Not shown: an axis of the largest size would get a picture of that size.
            ZrQtAxis axis;
            axis.setPosition(edge);
            axis.resize(size);
            setup(axis);
            axis.setInverted(true);
            axis.updateAxis();
            QImage image(300, 300, QImage::Format_RGB32);
            axis.render(&image, QPoint(), QRect(0, 0, 300, 300), QWidget::RenderFlags());
            for (const double tick : axis.tickPositions())
                QVERIFY(std::isfinite(tick));
        }
    }
}

void TestZrQtAxisBadInput::survivesDeletionInItsOwnSignal()
{
    for (const Setup &change : {Setup([](ZrQtAxis &axis) { axis.setPosition(Qt::TopEdge); }),
                                Setup([](ZrQtAxis &axis) { axis.setTickSize(30); }),
                                Setup([](ZrQtAxis &axis) { axis.setMinMax(0.0, 90000.0); }),
                                Setup([](ZrQtAxis &axis) { axis.setInverted(true); }),
                                Setup([](ZrQtAxis &axis) { axis.setLabelFormat(ZrQtAxis::TimePlusMs); })}) {
        auto *axis = new ZrQtAxis;
        QPointer<ZrQtAxis> guard(axis);
        connect(axis, &ZrQtAxis::requestUpdate, axis, [axis] { delete axis; });
        change(*axis);
        QVERIFY(!guard);
    }
}

QTEST_MAIN(TestZrQtAxisBadInput)

#include "tst_zrqtaxis_badinput.moc"
