#ifndef VIEWER_PROBLEM_H
#define VIEWER_PROBLEM_H

#include <QtCore/QString>

/// Why a file cannot be shown, for people: one sentence and the place it speaks of.
struct Problem
{
    QString text;    ///< a clause without the file's name and without a full stop; empty: no problem
    qint64 line = 0; ///< line of the file, counted from 1; 0: no certain line
    int column = 0;  ///< cell of the row, counted from 1; 0: no certain cell

    bool exists() const { return !text.isEmpty(); }

    /// "FILE, line 3, column 2: the text."
    QString sentence(const QString &file) const;
};

#endif // VIEWER_PROBLEM_H
