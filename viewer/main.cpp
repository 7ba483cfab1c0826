#include "commandline.h"
#include "mainwindow.h"
#include "wallclock.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>

#include <cstdio>

namespace {

// A file that is read faster than this shows up in a complete window.
constexpr int kShowDelay = 250;

void print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

void complain(const QString &sentence)
{
    print(stderr, QStringLiteral("zrqtplot-viewer: %1\n").arg(sentence));
}

/// Whether there is a display to show a window on, or another platform was asked for.
bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
           || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

/// Reads the files of the command line, then runs the window or writes the picture. A file that cannot be
/// read ends the program without a window.
int run(const Options &options)
{
    MainWindow window(options);
    const bool forPicture = !options.screenshot.isEmpty();
    if (forPicture) {
        window.setAttribute(Qt::WA_DontShowOnScreen);
        // A picture has the size that was asked for, also where the window could not become that small.
        window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    }
    bool starting = !options.files.isEmpty();

    const auto writePicture = [&window, &options] {
        window.show();
        // The layout takes its place, and the plots fit themselves into it.
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
        if (window.savePicture(options.screenshot))
            return 0;
        complain(QStringLiteral("%1: the picture cannot be written.").arg(options.screenshot));
        return 1;
    };
    QObject::connect(&window, &MainWindow::opened, &window, [&] {
        starting = false;
        for (const QString &sentence : window.reports())
            complain(sentence);
        if (forPicture)
            QCoreApplication::exit(writePicture());
        else
            window.show();
    });
    QObject::connect(&window, &MainWindow::openFailed, &window, [&](const QString &sentence) {
        if (!starting) {
            window.showProblem(sentence);
            return;
        }
        complain(sentence);
        QCoreApplication::exit(1);
    });
    QObject::connect(&window, &MainWindow::openCancelled, &window, [&] { starting = false; });

    if (starting)
        window.open(options.files);
    if (!forPicture)
        QTimer::singleShot(starting ? kShowDelay : 0, &window, &QWidget::show);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    const CommandLine commandLine = parseCommandLine(arguments);
    if (!commandLine.problem.isEmpty()) {
        complain(commandLine.problem);
        return 1;
    }
    if (!commandLine.output.isEmpty()) {
        print(stdout, commandLine.output);
        return 0;
    }

    if (!commandLine.options.screenshot.isEmpty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    } else if (!hasDisplay()) {
        complain(QStringLiteral("there is no display; --screenshot FILE.png draws into a picture."));
        return 1;
    }
    WallClock::enterZone();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zrqtplot-viewer"));
    return run(commandLine.options);
}
