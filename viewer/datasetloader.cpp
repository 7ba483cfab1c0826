#include "datasetloader.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace {

constexpr qint64 kBlockSize = 256 * 1024;

/// Opens \a file, or tells why that cannot be.
Problem openForReading(QFile *file)
{
    Problem problem;
    const QFileInfo info(*file);
    if (!info.exists())
        problem.text = QStringLiteral("there is no such file");
    else if (info.isDir())
        problem.text = QStringLiteral("this is a directory, not a file");
    else if (!file->open(QIODevice::ReadOnly))
        problem.text = QStringLiteral("the file cannot be read (%1)").arg(file->errorString());
    return problem;
}

} // namespace

LoadOutcome loadDataset(const QString &path, const LoadProgress &progress, Dataset *dataset, Problem *problem)
{
    QFile file(path);
    *problem = openForReading(&file);
    if (problem->exists())
        return LoadOutcome::Failed;
    dataset->file = path;

    DatasetBuilder builder;
    CsvReader csv([&](const CsvRow &row) {
        builder.setDelimiter(csv.delimiter());
        return builder.addRow(row);
    });
    const qint64 total = file.isSequential() ? 0 : file.size();
    QByteArray block(static_cast<int>(kBlockSize), Qt::Uninitialized);
    qint64 done = 0;
    for (;;) {
        const qint64 size = file.read(block.data(), kBlockSize);
        if (size < 0) {
            problem->text = QStringLiteral("reading failed (%1)").arg(file.errorString());
            return LoadOutcome::Failed;
        }
        if (size == 0)
            break;
        done += size;
        if (!csv.feed({block.constData(), static_cast<size_t>(size)})) {
            *problem = csv.problem().exists() ? csv.problem() : builder.problem();
            return LoadOutcome::Failed;
        }
        if (!progress(done, total))
            return LoadOutcome::Cancelled;
    }
    if (csv.finish() && builder.finish(dataset))
        return LoadOutcome::Loaded;
    *problem = csv.problem().exists() ? csv.problem() : builder.problem();
    return LoadOutcome::Failed;
}
