#ifndef VIEWER_MAINWINDOW_H
#define VIEWER_MAINWINDOW_H

#include "loader.h"
#include "plotbuilder.h"

#include <QtWidgets/QMainWindow>

class ChannelPanel;
class MarkerActions;
class MouseActions;
class Overview;
class QAction;
class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

/// The window of the viewer: a plot, a menu, and a status bar that tells what is drawn and what is not.
///
/// Files are read in the background while the window stays usable; what was shown before stays until the new
/// files are complete, and stays for good if they are bad.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const Options &options, QWidget *parent = nullptr);

    /// Starts to read \a files. One of the three signals below follows.
    void open(const QStringList &files);

    /// What is to be said about the files that are shown: one sentence for each column with gaps, and the
    /// like.
    QStringList reports() const { return m_reports; }

    /// Writes a picture of the window; false if the file cannot be written.
    bool savePicture(const QString &file);

    /// Tells the user about a problem, without waiting for an answer.
    void showProblem(const QString &sentence);

Q_SIGNALS:
    void opened();
    void openFailed(const QString &sentence);
    void openCancelled();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void createCentralWidget();
    void createFileMenu();
    void createViewMenu();
    void createStatusBar();

    void chooseFiles();
    void choosePicture();
    void openOtherFiles(const QStringList &files);
    void startLoading(const QStringList &files);

    void onProgressed(qint64 done, qint64 total);
    void onLoaded(const std::vector<Dataset> &datasets);
    void onFailed(const QString &sentence);
    void onCancelled();

    /// Builds the plot anew from what is loaded.
    void rebuildPlot();
    /// The same for other options: what the user moved stays where it is, unless its values become others.
    void updatePlot();
    void replacePlot();
    void replaceOverview();
    void replaceChannels();
    void setSeriesColor(int series, const QColor &color);
    void setLoading(bool loading);
    void showReading(const QString &sentence);
    void updateStatus();

    Options m_options;
    /// The files being read are not those of the command line: its choice of columns does not apply to them.
    bool m_loadingOtherFiles = false;
    Loader m_loader;
    std::vector<Dataset> m_datasets;
    QVector<Series> m_series;
    QVector<SeriesLook> m_looks; ///< of each series
    QStringList m_reports;

    QVBoxLayout *m_layout = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_invitation = nullptr; ///< in the place of the plot as long as there is none
    BuiltPlot m_built;
    Overview *m_overview = nullptr;
    bool m_plotIsLogarithmic = false;
    QAction *m_savePicture = nullptr;
    MouseActions *m_mouseActions = nullptr;
    MarkerActions *m_markerActions = nullptr;
    ChannelPanel *m_channelPanel = nullptr;
    QLabel *m_status = nullptr;
    QLabel *m_reading = nullptr; ///< what the user clicked or selected
    QProgressBar *m_progress = nullptr;
    QPushButton *m_cancel = nullptr;
};

#endif // VIEWER_MAINWINDOW_H
