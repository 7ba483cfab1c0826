#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

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
    QWidget window;
    window.setWindowTitle(QStringLiteral("Examples of ZrQtPlotWidgets"));
    auto *names = new QListWidget;
    auto *picture = new QLabel;
    picture->setAlignment(Qt::AlignCenter);
    auto *startButton = new QPushButton(QStringLiteral("Start"));
    auto *layout = new QGridLayout(&window);
    layout->addWidget(names, 0, 0);
    layout->addWidget(picture, 0, 1);
    layout->addWidget(startButton, 1, 0);
    layout->setColumnStretch(1, 1);

    QObject::connect(names, &QListWidget::currentTextChanged, picture,
                     [picture](const QString &name) { picture->setPixmap(QPixmap(pictures + name)); });
    QObject::connect(names, &QListWidget::itemActivated,
                     [](const QListWidgetItem *item) { start(item->text()); });
    QObject::connect(startButton, &QPushButton::clicked, names,
                     [names] { start(names->currentItem()->text()); });
    names->addItems(QDir(pictures).entryList());
    names->setCurrentItem(names->findItems(QStringLiteral("quickstart"), Qt::MatchExactly).first());

    window.resize(960, 540);
    window.show();
    return QApplication::exec();
}
