#include "loader.h"

#include "datasetloader.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>

#include <new>

namespace {

// A progress bar that moves more often than this looks no smoother.
constexpr qint64 kProgressInterval = 50;

} // namespace

/// What the thread works on and what comes of it.
struct Loader::Job
{
    QStringList files;
    QString xColumn;
    std::atomic<bool> cancel{false};
    std::vector<Dataset> datasets;
    LoadOutcome outcome = LoadOutcome::Loaded;
    QString sentence;
    qint64 total = 0;
    qint64 doneFiles = 0; ///< bytes of the files that are finished

    template <typename Report> void run(const Report &report);
};

template <typename Report> void Loader::Job::run(const Report &report)
{
    for (const QString &file : qAsConst(files))
        total += QFileInfo(file).size();
    QElapsedTimer sinceReport;
    sinceReport.start();
    for (const QString &file : qAsConst(files)) {
        qint64 doneFile = 0;
        const LoadProgress progress = [&](qint64 done, qint64) {
            doneFile = done;
            if (sinceReport.elapsed() >= kProgressInterval) {
                sinceReport.restart();
                report(doneFiles + done, total);
            }
            return !cancel;
        };
        Dataset dataset;
        Problem problem;
        try {
            outcome = loadDataset(file, progress, &dataset, &problem);
            if (outcome == LoadOutcome::Loaded && !assignX(&dataset, xColumn, &problem))
                outcome = LoadOutcome::Failed;
        } catch (const std::bad_alloc &) {
            outcome = LoadOutcome::Failed;
            problem.text = QStringLiteral("the file is too large for the memory of this machine");
        }
        if (outcome != LoadOutcome::Loaded) {
            sentence = problem.sentence(file);
            return;
        }
        doneFiles += doneFile;
        datasets.push_back(std::move(dataset));
    }
}

Loader::Loader(QObject *parent)
    : QObject(parent)
{
}

Loader::~Loader()
{
    cancel();
    join();
}

void Loader::start(const QStringList &files, const QString &xColumn)
{
    cancel();
    join();
    m_job = std::make_shared<Job>();
    m_job->files = files;
    m_job->xColumn = xColumn;
    // The events of a job that was replaced find that it is not the current one any more.
    m_thread = std::thread([this, job = m_job] {
        job->run([this, &job](qint64 done, qint64 total) {
            const auto deliver = [this, job, done, total] {
                if (job == m_job)
                    Q_EMIT progressed(done, total);
            };
            QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
        });
        QMetaObject::invokeMethod(
            this, [this, job] { finish(job); }, Qt::QueuedConnection);
    });
}

void Loader::cancel()
{
    if (m_job)
        m_job->cancel = true;
}

void Loader::join()
{
    if (m_thread.joinable())
        m_thread.join();
}

void Loader::finish(const std::shared_ptr<Job> &job)
{
    if (job != m_job)
        return;
    join();
    m_job.reset();
    // A cancellation that came too late for the thread still counts.
    if (job->cancel || job->outcome == LoadOutcome::Cancelled)
        Q_EMIT cancelled();
    else if (job->outcome == LoadOutcome::Failed)
        Q_EMIT failed(job->sentence);
    else
        Q_EMIT loaded(job->datasets);
}
