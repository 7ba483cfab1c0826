#include "selection.h"

#include <QtCore/QFileInfo>

#include <cmath>

namespace {

ValueRange shownRange(const Column &column, bool logarithmic)
{
    if (!logarithmic || column.positiveRange.isEmpty())
        return logarithmic ? ValueRange() : column.range;
    return {std::log10(column.positiveRange.lowest), std::log10(column.positiveRange.highest)};
}

/// The sides the user wishes, by column; false with a problem if a column does not exist.
bool findSides(const Dataset &dataset, const QVector<AxisChoice> &choices,
               QVector<std::optional<AxisSide>> *sides, Problem *problem)
{
    sides->fill(std::nullopt, static_cast<int>(dataset.columns.size()));
    for (const AxisChoice &choice : choices) {
        const int column = findColumn(dataset, choice.column, problem);
        if (column < 0)
            return false;
        (*sides)[column] = choice.side;
    }
    return true;
}

/// Names the columns that are not drawn because they are of \a kind; empty if there are none.
QString notDrawnSentence(const Dataset &dataset, ColumnKind kind, const QString &reason)
{
    QStringList names;
    for (const Column &column : dataset.columns) {
        if (column.format.kind == kind)
            names += QLatin1Char('"') + column.name + QLatin1Char('"');
    }
    if (names.isEmpty())
        return {};
    return QStringLiteral("%1: not drawn, %2: %3.")
        .arg(dataset.file, reason, names.join(QStringLiteral(", ")));
}

} // namespace

QVector<Series> selectSeries(const std::vector<Dataset> &datasets, const Options &options, QString *sentence)
{
    QVector<Series> series;
    for (size_t i = 0; i < datasets.size(); ++i) {
        const Dataset &dataset = datasets[i];
        Problem problem;
        QVector<int> columns;
        QVector<std::optional<AxisSide>> sides;
        if (!chooseY(dataset, options.y, &columns, &problem)
            || !findSides(dataset, options.axes, &sides, &problem)) {
            *sentence = problem.sentence(dataset.file);
            return {};
        }
        const QString prefix = datasets.size() > 1
                                   ? QFileInfo(dataset.file).completeBaseName() + QStringLiteral(": ")
                                   : QString();
        for (const int index : qAsConst(columns)) {
            const Column &column = dataset.columns[static_cast<size_t>(index)];
            SeriesInfo info;
            info.name = prefix + column.name;
            info.range = shownRange(column, options.logY);
            info.xKind = dataset.xKind;
            info.side = sides[index];
            series.append({static_cast<int>(i), index, info});
        }
    }
    return series;
}

QStringList reports(const std::vector<Dataset> &datasets, const QVector<Series> &series,
                    const Options &options)
{
    QStringList sentences;
    for (size_t i = 0; i < datasets.size(); ++i) {
        const Dataset &dataset = datasets[i];
        if (dataset.xColumn >= 0)
            sentences += gapSentence(dataset, dataset.xColumn, false);
        for (const Series &one : series) {
            if (one.dataset == static_cast<int>(i) && one.column != dataset.xColumn)
                sentences += gapSentence(dataset, one.column, options.logY);
        }
        if (options.y.isEmpty()) {
            sentences += notDrawnSentence(dataset, ColumnKind::Text, QStringLiteral("since it is text"));
            sentences += notDrawnSentence(dataset, ColumnKind::Empty, QStringLiteral("since it is empty"));
        }
        if (!options.timeFormat.isEmpty() && dataset.xKind == XKind::DateTime
            && dataset.xRange.lowest < 0.0) {
            sentences
                += QStringLiteral(
                       "%1: dates before 1970 are labelled by years, the time format is not used for them.")
                       .arg(dataset.file);
        }
    }
    sentences.removeAll(QString());
    return sentences;
}
