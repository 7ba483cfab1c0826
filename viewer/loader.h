#ifndef VIEWER_LOADER_H
#define VIEWER_LOADER_H

#include "dataset.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <atomic>
#include <memory>
#include <thread>

/// Reads files in a thread of its own. All signals arrive in the thread of this object.
class Loader : public QObject
{
    Q_OBJECT

public:
    explicit Loader(QObject *parent = nullptr);
    /// Cancels what is being loaded and waits for it.
    ~Loader() override;

    /// Starts to read \a files, one after the other, and chooses their x as assignX() does for \a xColumn;
    /// cancels what is being loaded. One of the last three signals ends it.
    void start(const QStringList &files, const QString &xColumn = QString());
    /// Ends the loading soon; cancelled() follows. Does nothing when nothing is being loaded.
    void cancel();
    bool isLoading() const { return m_thread.joinable(); }

Q_SIGNALS:
    /// Bytes of all files; \a total is 0 when it is unknown.
    void progressed(qint64 done, qint64 total);
    void loaded(const std::vector<Dataset> &datasets);
    /// \a sentence tells file, place and reason.
    void failed(const QString &sentence);
    void cancelled();

private:
    struct Job;

    void join();
    void finish(const std::shared_ptr<Job> &job);

    std::thread m_thread;
    std::shared_ptr<Job> m_job;
};

#endif // VIEWER_LOADER_H
