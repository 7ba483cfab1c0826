#include "mainwindow.h"

#include "channelpanel.h"
#include "markeractions.h"
#include "mouseactions.h"
#include "overview.h"
#include "plotreadout.h"
#include "plotview.h"
#include "viewmenu.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

#include <ZrQtPlotWidgets/zrqtplot.h>

namespace {

constexpr int kMargin = 8;
constexpr int kProgressSteps = 1000;
constexpr int kProgressWidth = 180;
// A reading is what the user is waiting for.
constexpr int kReadingStretch = 3;

QStringList localFiles(const QMimeData *data)
{
    QStringList files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files += url.toLocalFile();
    }
    return files;
}

} // namespace

MainWindow::MainWindow(const Options &options, QWidget *parent)
    : QMainWindow(parent)
    , m_options(options)
{
    connect(&m_loader, &Loader::progressed, this, &MainWindow::onProgressed);
    connect(&m_loader, &Loader::loaded, this, &MainWindow::onLoaded);
    connect(&m_loader, &Loader::failed, this, &MainWindow::onFailed);
    connect(&m_loader, &Loader::cancelled, this, &MainWindow::onCancelled);

    createCentralWidget();
    createFileMenu();
    createViewMenu();
    createStatusBar();
    setAcceptDrops(true);
    setWindowTitle(options.title.isEmpty() ? tr("ZrQtPlot Viewer") : options.title);
    resize(options.size);
}

void MainWindow::createCentralWidget()
{
    auto *central = new QWidget(this);
    // Axes write in black by default: the paper is white in any colour scheme.
    QPalette paper = central->palette();
    paper.setColor(QPalette::Window, Qt::white);
    paper.setColor(QPalette::WindowText, Qt::black);
    paper.setColor(QPalette::Text, Qt::black);
    central->setPalette(paper);
    central->setAutoFillBackground(true);

    m_title = new QLabel(m_options.title, central);
    QFont font = m_title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    m_title->setFont(font);
    m_title->setAlignment(Qt::AlignHCenter);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setVisible(!m_options.title.isEmpty());

    m_invitation = new QLabel(central);
    m_invitation->setAlignment(Qt::AlignCenter);

    m_layout = new QVBoxLayout(central);
    m_layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_layout->addWidget(m_title);
    m_layout->addWidget(m_invitation, 1);
    setCentralWidget(central);
}

void MainWindow::createFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    QAction *openFiles = menu->addAction(tr("&Open\u2026"), this, &MainWindow::chooseFiles);
    openFiles->setShortcut(QKeySequence::Open);
    m_savePicture = menu->addAction(tr("&Save Picture\u2026"), this, &MainWindow::choosePicture);
    m_savePicture->setShortcut(QKeySequence::Save);
    m_savePicture->setEnabled(false);
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
}

void MainWindow::createViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    addViewActions(menu, &m_options, [this] { updatePlot(); });
    m_mouseActions = new MouseActions(this, menu);
    m_markerActions = new MarkerActions(this);

    m_channelPanel = new ChannelPanel(this);
    m_channelPanel->hide();
    addDockWidget(Qt::RightDockWidgetArea, m_channelPanel);
    connect(m_channelPanel, &ChannelPanel::colorChosen, this, &MainWindow::setSeriesColor);
}

void MainWindow::createStatusBar()
{
    m_status = new QLabel(this);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setIndent(kMargin);
    // A long text is cut off and does not widen the window; its tool tip is complete.
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_reading = new QLabel(this);
    m_reading->setTextFormat(Qt::PlainText);
    m_reading->setObjectName(QStringLiteral("reading"));
    m_reading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_reading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress = new QProgressBar(this);
    m_progress->setFixedWidth(kProgressWidth);
    m_cancel = new QPushButton(tr("Cancel"), this);
    connect(m_cancel, &QPushButton::clicked, &m_loader, &Loader::cancel);
    statusBar()->addWidget(m_status, 1);
    statusBar()->addWidget(m_reading, kReadingStretch);
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->addPermanentWidget(m_cancel);
    setLoading(false);
}

void MainWindow::open(const QStringList &files)
{
    m_loadingOtherFiles = false;
    startLoading(files);
}

void MainWindow::openOtherFiles(const QStringList &files)
{
    m_loadingOtherFiles = true;
    startLoading(files);
}

void MainWindow::startLoading(const QStringList &files)
{
    m_loader.start(files, m_loadingOtherFiles ? QString() : m_options.x);
    m_status->setText(files.size() == 1 ? tr("Reading %1").arg(files.first())
                                        : tr("Reading %n file(s)", nullptr, files.size()));
    m_status->setToolTip({});
    setLoading(true);
}

bool MainWindow::savePicture(const QString &file)
{
    return grab().save(file);
}

void MainWindow::showProblem(const QString &sentence)
{
    auto *box = new QMessageBox(QMessageBox::Warning, windowTitle(), sentence, QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    openOtherFiles(localFiles(event->mimeData()));
    event->acceptProposedAction();
}

void MainWindow::chooseFiles()
{
    const QStringList files = QFileDialog::getOpenFileNames(
        this, tr("Open CSV Files"), QString(), tr("CSV files (*.csv *.tsv *.txt);;All files (*)"));
    if (!files.isEmpty())
        openOtherFiles(files);
}

void MainWindow::choosePicture()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Save Picture"), QStringLiteral("plot.png"),
                                                      tr("Pictures (*.png)"));
    if (!file.isEmpty() && !centralWidget()->grab().save(file))
        showProblem(tr("The picture %1 cannot be written.").arg(file));
}

void MainWindow::onProgressed(qint64 done, qint64 total)
{
    // The size of a pipe is not known: then the bar only shows that something happens.
    m_progress->setRange(0, total > 0 ? kProgressSteps : 0);
    if (total > 0)
        m_progress->setValue(static_cast<int>(kProgressSteps * (double(done) / double(total))));
}

void MainWindow::onLoaded(const std::vector<Dataset> &datasets)
{
    setLoading(false);
    Options options = m_options;
    if (m_loadingOtherFiles) {
        options.x.clear();
        options.y.clear();
        options.axes.clear();
    }
    QString sentence;
    selectSeries(datasets, options, &sentence);
    if (!sentence.isEmpty()) {
        onFailed(sentence);
        return;
    }
    m_options = options;
    m_datasets = datasets;
    m_looks.clear();
    m_markerActions->removeAll();
    rebuildPlot();
    if (m_options.title.isEmpty())
        setWindowTitle(tr("%1 \u2013 ZrQtPlot Viewer").arg(QFileInfo(m_datasets.front().file).fileName()));
    Q_EMIT opened();
}

void MainWindow::onFailed(const QString &sentence)
{
    setLoading(false);
    updateStatus();
    Q_EMIT openFailed(sentence);
}

void MainWindow::onCancelled()
{
    setLoading(false);
    updateStatus();
    Q_EMIT openCancelled();
}

void MainWindow::rebuildPlot()
{
    if (m_datasets.empty())
        return;
    QString sentence;
    m_series = selectSeries(m_datasets, m_options, &sentence);
    m_reports = ::reports(m_datasets, m_series, m_options);
    if (m_looks.isEmpty())
        m_looks = defaultLooks(m_series);
    replacePlot();
    replaceOverview();
    replaceChannels();
    m_mouseActions->setPlot(m_built.plot);
    m_markerActions->setPlot(m_built, m_options);
    m_savePicture->setEnabled(true);
    showReading({});
    updateStatus();
}

void MainWindow::replacePlot()
{
    ZrQtPlot *previousPlot = m_built.plot;
    m_built = buildPlot(m_datasets, m_series, m_looks, m_options, centralWidget());
    connect(m_built.readout, &PlotReadout::changed, this, &MainWindow::showReading);
    QWidget *previous = previousPlot ? static_cast<QWidget *>(previousPlot) : m_invitation;
    delete m_layout->replaceWidget(previous, m_built.plot);
    previous->hide();
    if (previousPlot)
        previousPlot->deleteLater();
    m_plotIsLogarithmic = m_options.logY;
    m_built.plot->show();
}

void MainWindow::replaceOverview()
{
    if (m_overview) {
        m_overview->hide();
        m_overview->deleteLater();
        m_overview = nullptr;
    }
    if (m_options.overview) {
        m_overview = new Overview(m_built, m_options, centralWidget());
        m_layout->addWidget(m_overview);
        m_overview->show();
    }
}

void MainWindow::replaceChannels()
{
    const QVector<PlottedSeries> &series = m_built.readout->series();
    for (int i = 0; i < series.size(); ++i) {
        connect(series[i].channel, &ZrQtBaseChannel::visibilityChanged, this,
                [this, i](bool visible) { m_looks[i].visible = visible; });
    }
    m_channelPanel->setSeries(m_options.channelPanel ? series : QVector<PlottedSeries>());
    m_channelPanel->setVisible(m_options.channelPanel);
}

void MainWindow::setSeriesColor(int series, const QColor &color)
{
    m_looks[series].color = color;
    setColor(m_built.readout->series()[series], color);
    if (m_overview)
        m_overview->setColor(series, color);
    m_markerActions->scheduleMeasuring();
}

void MainWindow::updatePlot()
{
    if (!m_built.plot) {
        rebuildPlot();
        return;
    }
    const QVector<MovedSystem> moved = movedSystems(m_built.plot);
    const bool sameValues = m_plotIsLogarithmic == m_options.logY;
    rebuildPlot();
    // A plot without a size would take any canvas for the fitted one.
    m_layout->activate();
    moveSystems(m_built.plot, moved, sameValues);
}

void MainWindow::setLoading(bool loading)
{
    m_progress->setRange(0, kProgressSteps);
    m_progress->setValue(0);
    m_invitation->setText(loading ? QString()
                                  : tr("Open a CSV file with File \u2192 Open, or drop it here."));
    m_progress->setVisible(loading);
    m_cancel->setVisible(loading);
}

void MainWindow::showReading(const QString &sentence)
{
    m_reading->setText(sentence);
    m_reading->setToolTip(sentence);
    m_reading->setVisible(!sentence.isEmpty());
}

void MainWindow::updateStatus()
{
    QStringList parts;
    for (const Dataset &dataset : m_datasets) {
        const QString name = QFileInfo(dataset.file).fileName();
        parts
            += dataset.rows == 1 ? tr("%1: 1 row").arg(name) : tr("%1: %2 rows").arg(name).arg(dataset.rows);
    }
    parts += m_reports;
    QString text = parts.join(QStringLiteral("   "));
    // The tool tip has the room for the whole paths.
    for (const Dataset &dataset : m_datasets)
        text.replace(dataset.file, QFileInfo(dataset.file).fileName());
    m_status->setText(text);
    m_status->setToolTip(m_reports.join(QLatin1Char('\n')));
}
