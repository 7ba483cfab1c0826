#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

// Linked into every example, so that none of them needs a line for it: with --screenshot FILE.png an example
// writes a picture of its window and ends.
namespace {

bool savePicture(const QString &file)
{
    // The layout takes its place, and the plots fit themselves into it.
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        // The fields of an axis that is edited are windows, too, but shown by the axis.
        if (window->isVisible() && !window->graphicsProxyWidget())
            return window->grab().save(file);
    }
    return false;
}

void savePictureIfAsked()
{
    const QStringList arguments = QCoreApplication::arguments();
    const int option = arguments.indexOf(QStringLiteral("--screenshot"));
    if (option < 0)
        return;
    const QString file = arguments.value(option + 1);
    QTimer::singleShot(0, qApp, [file] { QCoreApplication::exit(savePicture(file) ? 0 : 1); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(savePictureIfAsked)
