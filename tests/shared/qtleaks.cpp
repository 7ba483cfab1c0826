#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <sanitizer/lsan_interface.h>

// Linked into every program of a build with AddressSanitizer. The offscreen platform never deletes its
// screen, and Qt's libraries keep no frame pointers by which a suppression could recognise what hangs on it.
// Objects that are ignored stand for all that they lead to.
static void ignoreScreens()
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        __lsan_ignore_object(screen);
}

Q_COREAPP_STARTUP_FUNCTION(ignoreScreens)
