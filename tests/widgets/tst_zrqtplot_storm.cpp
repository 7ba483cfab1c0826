#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot_p.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "shared/mouseprobe.h"
#include "shared/quiettest.h"

#include <QtCore/QPointer>
#include <QtWidgets/QLabel>

#include <limits>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The library does not export the type information that the check of dynamic types asks for.
#ifdef __GNUC__
#define WITHOUT_TYPE_CHECK __attribute__((no_sanitize("undefined")))
#else
#define WITHOUT_TYPE_CHECK
#endif

/// A plot that lets the test look at the state of its drags.
class OpenPlot : public ZrQtPlot
{
public:
    WITHOUT_TYPE_CHECK bool isIdle() const
    {
        for (const CosyState &state : std::as_const(m_d->m_cosys)) {
            if (state.x.hold || state.y.hold)
                return false;
        }
        return !m_d->pressed && !m_d->m_mouseDragging && !m_d->selectionVisible && !m_d->selectionCancelled;
    }
};

/// A plot that everything happens to that a user and an application can do, in an order that depends on the
/// seed alone.
class Storm
{
public:
    explicit Storm(unsigned seed)
        : m_random(seed)
    {
        m_window.resize(700, 500);
        m_otherWindow.resize(300, 200);
        m_window.show();
        m_otherWindow.show();
        renewPlot();
    }

    ~Storm() { delete m_plot; }

    void step()
    {
        // Weights: the mouse most of all.
        const int die = number(0, 199);
        if (die < 130)
            sendInput();
        else if (die < 160)
            changeCanvas();
        else if (die < 185)
            changeSettings();
        else if (die < 197)
            changeChildren();
        else
            changePlot();
    }

    /// Lets go of everything, as a user does in the end.
    void settleDown()
    {
        for (ZrQtAxis *axis : m_plot->findChildren<ZrQtAxis *>()) {
            if (QWidget::mouseGrabber() == axis)
                release(axis, {1, 1});
        }
        release(m_plot, {30, 30});
    }

    bool isIdle() const { return m_plot->isIdle() && !QWidget::mouseGrabber(); }

    /// Whether the storm was one: gestures were finished, canvases moved and edits made in good number.
    bool hadEffect() const { return m_selections > 50 && m_sizes > 500 && m_clicks > 20; }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    bool chance(int percent) { return number(1, 100) <= percent; }

    template <typename T, std::size_t size> T anyOf(const T (&values)[size])
    {
        return values[number(0, int(size) - 1)];
    }

    template <typename Widget> Widget *anyChild()
    {
        const QList<Widget *> all = m_plot->findChildren<Widget *>(QString(), Qt::FindDirectChildrenOnly);
        return all.isEmpty() ? nullptr : all.at(number(0, all.size() - 1));
    }

    /// Small numbers mostly, so that drags and zooms have an effect.
    double value()
    {
        if (chance(85))
            return number(-1000, 1000) / 10.0;
        const double odd[] = {0.0, 1e300, -1e300, 1e-300, infinity, -infinity, notANumber, 1e15, 5e-324};
        return anyOf(odd);
    }

    ZrQtPlot::CoordinateSystem system()
    {
        const ZrQtPlot::CoordinateSystem few[]
            = {ZrQtPlot::COSY_0, ZrQtPlot::COSY_1, ZrQtPlot::COSY_2,
               static_cast<ZrQtPlot::CoordinateSystem>(ZrQtPlot::COSY_0 | ZrQtPlot::COSY_1)};
        return anyOf(few);
    }

    void renewPlot()
    {
        delete m_plot;
        m_plot = new OpenPlot;
        m_plot->setParent(&m_window);
        m_plot->resize(600, 400);
        m_plot->show();
        m_plot->setMouseWheelZoom(true);
        QObject::connect(m_plot, qOverload<QRectF>(&ZrQtPlot::selectionChanged), [this] { ++m_selections; });
        QObject::connect(m_plot, qOverload<QLineF>(&ZrQtPlot::selectionChanged), [this] { ++m_selections; });
        QObject::connect(m_plot, &ZrQtPlot::mouseClicked, [this] { ++m_clicks; });
        QObject::connect(m_plot, &ZrQtPlot::canvasChanged, [this](const QRectF &canvas) {
            m_sizes += canvas.width() != m_lastWidth && canvas.isValid();
            m_lastWidth = canvas.width();
        });
        for (int i = 0; i < 4; ++i)
            addChild();
    }

    void addChild()
    {
        switch (number(0, 3)) {
        case 0: {
            auto *axis = new ZrQtAxis(m_plot);
            const Qt::Edge edges[] = {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge};
            axis->setPosition(anyOf(edges));
            axis->setCosy(system());
            axis->setVisible(chance(90));
            break;
        }
        case 1: {
            auto *channel = new ZrQtPlotChannel(m_plot);
            channel->setRectangle(QRectF(value(), value(), value(), value()));
            channel->setEditable(chance(70));
            channel->setMovable(chance(50));
            channel->setResizableFeatures(chance(70));
            break;
        }
        default: {
            auto *channel = new ZrQtBufferedChannel(m_plot);
            channel->setCosyX(system());
            channel->setCosyY(system());
            channel->setName(QStringLiteral("name"));
            channel->setData({value(), value(), value()}, {value(), value(), value()});
            break;
        }
        }
        if (m_plot->children().size() > 20)
            delete anyChild<ZrQtBaseChannel>();
    }

    void sendInput()
    {
        QWidget *target = m_plot;
        if (chance(30))
            target = overlayOf(m_plot);
        else if (ZrQtAxis *axis = chance(40) ? anyChild<ZrQtAxis>() : nullptr)
            target = axis;
        const QPointF position(number(-50, 650), number(-50, 450));
        const Qt::MouseButton buttons[]
            = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        const Qt::MouseButton button = anyOf(buttons);
        const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Escape, Qt::Key_A, Qt::Key_Tab};

        switch (number(0, 19)) {
        case 0:
        case 1:
        case 2:
            press(target, position, button);
            break;
        case 3:
        case 4:
            release(target, position, button);
            break;
        case 5:
            sendMouse(target, QEvent::MouseButtonDblClick, position, button, button);
            break;
        case 6:
        case 7:
            turnWheel(target, position, {number(-1, 1) * 120, number(-1, 1) * 120});
            break;
        case 8:
            QTest::keyClick(m_plot, anyOf(keys));
            break;
        case 9:
            enter(m_plot, position);
            break;
        case 10:
            leave(m_plot);
            break;
        case 11:
            QCursor::setPos(m_plot->mapToGlobal(position.toPoint()));
            break;
        default:
            moveTo(target, position, chance(80) ? button : Qt::NoButton);
            break;
        }
    }

    void changeCanvas()
    {
        switch (number(0, 5)) {
        case 0:
            m_plot->setCanvas(QRectF(value(), value(), value(), value()), system());
            break;
        case 1:
            m_plot->setMinX(value(), system());
            break;
        case 2:
            m_plot->setMaxY(value(), system());
            break;
        case 3: {
            const double same = value();
            m_plot->setMinX(same, ZrQtPlot::COSY_0);
            m_plot->setMaxX(same, ZrQtPlot::COSY_0);
            break;
        }
        case 4: {
            const ZrQtPlot::ScalingMode modes[] = {ZrQtPlot::Manual, ZrQtPlot::AutoFit, ZrQtPlot::Centered,
                                                   ZrQtPlot::KeepAtHead, ZrQtPlot::Custom};
            m_plot->setScaling(anyOf(modes), system());
            break;
        }
        default:
            if (auto *channel = anyChild<ZrQtBufferedChannel>())
                channel->setData({value(), value()}, {value(), value()});
            break;
        }
    }

    void changeSettings()
    {
        switch (number(0, 9)) {
        case 0:
        case 1:
        case 2:
            m_plot->setInteraction(static_cast<ZrQtPlot::Interaction>(number(0, 4)));
            break;
        case 3:
            m_plot->setTooltipMode(static_cast<ZrQtPlot::TooltipMode>(number(0, 3)));
            break;
        case 4:
            m_plot->setKeepAspectRatio(chance(50));
            break;
        case 5:
            m_plot->setZoomAxes(ZrQtPlot::PlotAxes(number(0, 3)));
            break;
        case 6:
            if (auto *axis = anyChild<ZrQtAxis>())
                axis->setInverted(chance(50));
            break;
        case 7:
            m_plot->setGenerateLegend(chance(50));
            break;
        case 8:
            if (auto *axis = anyChild<ZrQtAxis>())
                axis->setCosy(system());
            break;
        default:
            m_plot->setControlChannelUpdatesViaPlot(chance(30));
            break;
        }
    }

    void changeChildren()
    {
        switch (number(0, 7)) {
        case 0:
        case 1:
            for (int i = 0; i < 3; ++i)
                addChild();
            break;
        case 2:
            delete anyChild<ZrQtBaseChannel>();
            break;
        case 3:
            delete anyChild<ZrQtAxis>();
            break;
        case 4:
            if (auto *axis = anyChild<ZrQtAxis>())
                axis->setVisible(chance(50));
            break;
        case 5:
            if (auto *axis = anyChild<ZrQtAxis>()) {
                m_plot->removeAxis(axis);
                delete axis;
            }
            break;
        case 6:
            if (auto *channel = anyChild<ZrQtBaseChannel>())
                channel->setVisible(chance(60));
            break;
        default:
            if (auto *channel = anyChild<ZrQtBaseChannel>()) {
                m_plot->removeChannel(channel);
                delete channel;
            }
            break;
        }
    }

    void changePlot()
    {
        switch (number(0, 9)) {
        case 0:
        case 1:
        case 2:
            m_plot->resize(number(0, 700), number(0, 500));
            break;
        case 3:
            m_plot->hide();
            break;
        case 4:
            m_plot->setParent(chance(50) ? &m_window : &m_otherWindow);
            m_plot->show();
            break;
        case 5:
            if (chance(10))
                renewPlot();
            break;
        case 6:
            m_plot->grab();
            break;
        default:
            m_plot->show();
            QApplication::processEvents();
            break;
        }
    }

    std::mt19937 m_random;
    QWidget m_window;
    QWidget m_otherWindow;
    OpenPlot *m_plot = nullptr;
    int m_selections = 0;
    int m_clicks = 0;
    int m_sizes = 0;
    double m_lastWidth = 0.0;
};

} // namespace

/// A hundred thousand events at random: no crash, no warning, and at peace in the end.
class TestPlotStorm : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tolerateMessages(platformExcuses()); }

    void plotOutlivesTheStorm_data();
    void plotOutlivesTheStorm();
};

void TestPlotStorm::plotOutlivesTheStorm_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestPlotStorm::plotOutlivesTheStorm()
{
    QFETCH(unsigned, seed);
    Storm storm(seed);
    for (int i = 0; i < 10000; ++i) {
        storm.step();
        if (i % 100 == 99) {
            storm.settleDown();
            QVERIFY2(storm.isIdle(), qPrintable(QString::number(i)));
        }
    }
    QVERIFY(storm.hadEffect());
}

QTEST_MAIN(TestPlotStorm)
#include "tst_zrqtplot_storm.moc"
