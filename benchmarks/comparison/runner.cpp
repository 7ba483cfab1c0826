#include "plot.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QBackingStore>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <vector>

// The main program of every compare_<library>: measures the scenarios that are asked for, one line each:
//
//   <library> <mode> <scenario> <median milliseconds, or bytes a point>
//
// "skipped" stands in place of the number if a frame takes too long.

namespace comparison {

/// Layouts that a library has put off belong to the frame, too.
void Plot::paint(QImage &image)
{
    replot();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    widget()->render(&image);
}

namespace {

constexpr QSize plotArea(1200, 600);
constexpr QSize sizeWithAxes(1320, 680);
constexpr double longestFrame = 10000.0; // milliseconds
constexpr int fewestFrames = 3;
constexpr int mostFrames = 500;

enum class Clock { Wall, Processor };

/// How frames are timed: at least three, and more while they take less than \a budget milliseconds together.
struct Timing
{
    Clock clock = Clock::Wall;
    double budget = 0.0;
};

struct Result
{
    std::optional<double> value;
    QImage picture;
};

/// A plot on the screen, and frames of it in an image.
class Stage
{
public:
    Stage(const QString &mode, const Scenario &scenario)
        : m_scenario(scenario)
        , m_plot(makePlot(mode, scenario.axes))
        , m_image(scenario.axes == Axes::None ? plotArea : sizeWithAxes, QImage::Format_RGB32)
    {
        for (int i = 0; i < scenario.series; ++i)
            m_plot->addSeries(scenario.style);
        m_plot->widget()->resize(m_image.size());
    }

    Plot &plot() { return *m_plot; }

    void show()
    {
        m_plot->widget()->show();
        QCoreApplication::processEvents();
    }

    void paintFrame(int frame)
    {
        m_plot->setRange(visibleRange(m_scenario, frame));
        m_plot->paint(m_image);
    }

    [[nodiscard]] const QImage &image() const { return m_image; }

private:
    const Scenario &m_scenario;
    std::unique_ptr<Plot> m_plot;
    QImage m_image;
};

/// In milliseconds. The time that the process has computed does not count what others do on the machine
/// meanwhile.
double now(Clock clock)
{
    if (clock == Clock::Processor)
        return double(std::clock()) * 1e3 / CLOCKS_PER_SEC;
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double median(std::vector<double> &values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The median time of a frame in milliseconds, or nothing if one takes too long. Two frames come before those
/// that count: libraries may prepare something for data that stay. The time of \a prepare does not count.
template <typename Prepare, typename Frame>
std::optional<double> measureFrames(const Timing &timing, Prepare prepare, Frame frame)
{
    constexpr int warmUps = 2;
    std::vector<double> times;
    double sum = 0.0;
    for (int i = 0; i < mostFrames; ++i) {
        prepare();
        const double start = now(timing.clock);
        frame(i);
        const double time = now(timing.clock) - start;
        if (time > longestFrame)
            return std::nullopt;
        if (i < warmUps)
            continue;
        times.push_back(time);
        sum += time;
        if (times.size() >= fewestFrames && sum > timing.budget)
            break;
    }
    return median(times);
}

template <typename Frame> std::optional<double> measureFrames(const Timing &timing, Frame frame)
{
    return measureFrames(
        timing, [] {}, frame);
}

Result measureStaticData(const QString &mode, const Scenario &scenario, const Timing &timing)
{
    Stage stage(mode, scenario);
    for (int i = 0; i < scenario.series; ++i)
        stage.plot().setPoints(i, makePoints(scenario.signal, scenario.points, unsigned(i)));
    stage.show();
    const auto time = measureFrames(timing, [&](int frame) { stage.paintFrame(frame); });
    return {time, stage.image()};
}

/// The vectors exist before the clock starts; handing them over belongs to the frame.
Result measureStream(const QString &mode, const Scenario &scenario, const Timing &timing)
{
    constexpr unsigned vectors = 3;
    QVector<QVector<QPointF>> points;
    QVector<QVector<double>> x(vectors);
    QVector<QVector<double>> y(vectors);
    for (unsigned i = 0; i < vectors; ++i) {
        points.append(makePoints(scenario.signal, scenario.points, i));
        if (scenario.change == Change::NewPoints)
            continue;
        for (const QPointF &point : qAsConst(points.last())) {
            x[int(i)].append(point.x());
            y[int(i)].append(point.y());
        }
        points.last().clear();
    }
    Stage stage(mode, scenario);
    stage.show();
    const auto time = measureFrames(timing, [&](int frame) {
        const int next = frame % int(vectors);
        if (scenario.change == Change::NewPoints)
            stage.plot().setPoints(0, points.at(next));
        else
            stage.plot().setSamples(0, x.at(next), y.at(next));
        stage.paintFrame(frame);
    });
    return {time, stage.image()};
}

/// A window that a program might open.
class Window
{
public:
    Window(const QString &mode, const Scenario &scenario, const QVector<QPointF> &points)
        : m_stage(mode, scenario)
    {
        auto *layout = new QVBoxLayout(&m_window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_stage.plot().widget());
        m_window.resize(sizeWithAxes);
        m_stage.plot().setPoints(0, points);
        m_stage.plot().setRange(visibleRange(scenario, 0));
        m_stage.plot().replot();
        m_window.show();
        QCoreApplication::processEvents();
    }

    /// What the window has painted on the (offscreen) screen.
    [[nodiscard]] QImage picture() const
    {
        const auto *screen = dynamic_cast<const QImage *>(m_window.backingStore()->paintDevice());
        return screen ? screen->copy() : QImage();
    }

private:
    QWidget m_window;
    Stage m_stage; // dies first, and takes its widget out of the window
};

Result measureStartUp(const QString &mode, const Scenario &scenario, const Timing &timing)
{
    const QVector<QPointF> points = makePoints(scenario.signal, scenario.points, 0);
    std::optional<Window> window;
    const auto time = measureFrames(
        timing, [&] { window.reset(); }, [&](int /*frame*/) { window.emplace(mode, scenario, points); });
    return {time, window->picture()};
}

double residentBytes()
{
    constexpr double page = 4096.0;
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QFile::ReadOnly))
        return 0.0;
    return status.readAll().split(' ').value(1).toDouble() * page;
}

/// What stays in memory after some frames; the program itself keeps no copy of the points.
Result measureMemory(const QString &mode, const Scenario &scenario)
{
    constexpr int fewPoints = 2;
    Stage stage(mode, scenario);
    stage.show();
    const auto bytesWith = [&](int points) {
        stage.plot().setPoints(0, makePoints(scenario.signal, points, 0));
        for (int frame = 0; frame < fewestFrames; ++frame)
            stage.paintFrame(frame);
        return residentBytes();
    };
    const double before = bytesWith(fewPoints);
    const double after = bytesWith(scenario.points);
    return {(after - before) / scenario.points, stage.image()};
}

Result measure(const QString &mode, const Scenario &scenario, const Timing &timing)
{
    switch (scenario.change) {
    case Change::NewPoints:
    case Change::NewSamples:
        return measureStream(mode, scenario, timing);
    case Change::StartUp:
        return measureStartUp(mode, scenario, timing);
    case Change::LargerMemory:
        return measureMemory(mode, scenario);
    default:
        return measureStaticData(mode, scenario, timing);
    }
}

/// An empty picture is fast to paint, and worth nothing.
bool showsSomething(const QImage &picture)
{
    if (picture.isNull())
        return false;
    const QRgb background = picture.pixel(picture.width() - 1, 0);
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        if (std::any_of(line, line + picture.width(), [&](QRgb pixel) { return pixel != background; }))
            return true;
    }
    return false;
}

bool matches(const QString &name, const QStringList &patterns)
{
    return patterns.isEmpty() || std::any_of(patterns.cbegin(), patterns.cend(), [&](const QString &pattern) {
               return QRegularExpression(QRegularExpression::wildcardToRegularExpression(pattern))
                   .match(name)
                   .hasMatch();
           });
}

int run(const QCommandLineParser &options)
{
    const QString screenshot = options.value(QStringLiteral("screenshot"));
    const Timing timing{options.isSet(QStringLiteral("cpu")) ? Clock::Processor : Clock::Wall,
                        options.value(QStringLiteral("budget")).toDouble()};
    const QStringList modes = options.isSet(QStringLiteral("mode"))
                                  ? QStringList{options.value(QStringLiteral("mode"))}
                                  : libraryModes();
    int measured = 0;
    for (const Scenario &scenario : scenarios()) {
        if (!matches(scenario.name, options.values(QStringLiteral("scenario"))))
            continue;
        for (const QString &mode : modes) {
            const Result result = measure(mode, scenario, timing);
            if (!screenshot.isEmpty() && !result.picture.save(screenshot))
                qFatal("cannot write %s", qUtf8Printable(screenshot));
            if (!showsSomething(result.picture))
                qFatal("%s %s: an empty picture", qUtf8Printable(mode), qUtf8Printable(scenario.name));
            const QString value
                = result.value ? QString::number(*result.value, 'g', 5) : QStringLiteral("skipped");
            std::printf("%s %s %s %s\n", qUtf8Printable(libraryName()), qUtf8Printable(mode),
                        qUtf8Printable(scenario.name), qUtf8Printable(value));
            std::fflush(stdout);
            ++measured;
        }
    }
    return measured > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace comparison

/// What the offscreen platform cannot do is no news, and to print it takes time.
static void dropWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, message)));
}

int main(int argc, char *argv[])
{
    qInstallMessageHandler(dropWarnings);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOptions({
        {QStringLiteral("list"),
         QStringLiteral("Print name and version of the library, its modes, and all scenarios, a line each.")},
        {QStringLiteral("mode"), QStringLiteral("Only this mode of the library."), QStringLiteral("name")},
        {QStringLiteral("scenario"), QStringLiteral("Only scenarios that match; * and ? are wildcards."),
         QStringLiteral("pattern")},
        {QStringLiteral("budget"),
         QStringLiteral("Time for the frames of a scenario; at least three are painted."),
         QStringLiteral("milliseconds"), QStringLiteral("500")},
        {QStringLiteral("cpu"),
         QStringLiteral("Measure the time that the process computes, not that of the wall.")},
        {QStringLiteral("screenshot"), QStringLiteral("Write the last frame to this file."),
         QStringLiteral("file")},
    });
    options.process(application);
    if (!options.isSet(QStringLiteral("list")))
        return comparison::run(options);
    std::printf("library %s\nversion %s\n", qUtf8Printable(comparison::libraryName()),
                qUtf8Printable(comparison::libraryVersion()));
    for (const QString &mode : comparison::libraryModes())
        std::printf("mode %s\n", qUtf8Printable(mode));
    for (const comparison::Scenario &scenario : comparison::scenarios())
        std::printf("scenario %s\n", qUtf8Printable(scenario.name));
    return EXIT_SUCCESS;
}
