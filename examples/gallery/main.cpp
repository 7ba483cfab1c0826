#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>

// The resources hold a picture of each example, under the name of the example.
const QString pictures = QStringLiteral(":/examples/");

void start(const QString &name)
{
    const QString program
        = QCoreApplication::applicationDirPath() + QStringLiteral("/zrqtplot-example-") + name;
    if (!QProcess::startDetached(program, {}))
        QMessageBox::warning(nullptr, name,
                             QStringLiteral("%1 cannot be started. Is it built?").arg(program));
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QListWidget gallery;
    gallery.setWindowTitle(QStringLiteral("Examples of ZrQtPlotWidgets"));
    gallery.setViewMode(QListView::IconMode);
    gallery.setResizeMode(QListView::Adjust);
    gallery.setMovement(QListView::Static);
    gallery.setIconSize(QSize(150, 115));
    gallery.setGridSize(QSize(170, 155));

    const QStringList names = QDir(pictures).entryList();
    for (const QString &name : names)
        gallery.addItem(new QListWidgetItem(QIcon(pictures + name), name));
    QObject::connect(&gallery, &QListWidget::itemActivated,
                     [](const QListWidgetItem *item) { start(item->text()); });

    gallery.resize(700, 480);
    gallery.show();
    return QApplication::exec();
}
