#include "driver.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>

// Linked with the main.cpp of an example, which waits for its user. This joins in when the application object
// is made, and is the user.
namespace {

int messages = 0;

void countMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &text)
{
    // The offscreen platform says so of every window, and of an axis that is dragged.
    if (text.startsWith(QLatin1String("This plugin does not support")))
        return;
    ++messages;
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

QString judgeWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        // The fields of an axis that is edited are windows, too, but shown by the axis.
        if (!window->isVisible() || window->graphicsProxyWidget())
            continue;
        if (!QTest::qWaitForWindowActive(window))
            return QStringLiteral("the window is not active");
        // The layout takes its place, and the plots fit themselves into it.
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
        const QString fault = judge(*window);
        return fault.isEmpty() && messages > 0 ? QStringLiteral("Qt reported something") : fault;
    }
    return QStringLiteral("no window is shown");
}

void driveExample()
{
    qInstallMessageHandler(countMessage);
    QTimer::singleShot(0, qApp, [] {
        const QString fault = judgeWindow();
        std::fprintf(stderr, "%s\n", qPrintable(fault));
        QCoreApplication::exit(fault.isEmpty() ? 0 : 1);
    });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(driveExample)
