#ifndef VIEWER_SELECTION_H
#define VIEWER_SELECTION_H

#include "commandline.h"
#include "layoutplan.h"

#include <vector>

/// A column that is to be drawn.
struct Series
{
    int dataset = 0; ///< index of its file
    int column = 0;  ///< index in that file
    SeriesInfo info;
};

/// Chooses the columns to draw. Names are those of the columns, with the file's name (without its suffix)
/// before them if there are several files. The x of each dataset has been assigned. On failure, returns an
/// empty list and a sentence.
QVector<Series> selectSeries(const std::vector<Dataset> &datasets, const Options &options, QString *sentence);

/// One sentence for each column with gaps, for each file with columns that are not drawn since they are text
/// or empty, and for options without effect.
QStringList reports(const std::vector<Dataset> &datasets, const QVector<Series> &series,
                    const Options &options);

#endif // VIEWER_SELECTION_H
