#ifndef VIEWER_DATASETLOADER_H
#define VIEWER_DATASETLOADER_H

#include "dataset.h"

#include <functional>

enum class LoadOutcome { Loaded, Failed, Cancelled };

/// Bytes read so far and bytes of the file; the latter is 0 for a pipe. Returning false cancels.
using LoadProgress = std::function<bool(qint64 done, qint64 total)>;

/// Reads the CSV file \a path. Needs no event loop and may run in any thread.
LoadOutcome loadDataset(const QString &path, const LoadProgress &progress, Dataset *dataset,
                        Problem *problem);

#endif // VIEWER_DATASETLOADER_H
