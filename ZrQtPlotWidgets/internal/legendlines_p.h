#ifndef LEGENDLINES_P_H
#define LEGENDLINES_P_H

#include <QtCore/QVector>

/// Breaks the entries of a legend into lines. Layout and painting both ask here, so that the space that is
/// reserved is the space that is used.
namespace LegendLines {

/// Sizes that follow from the height of the font, in pixels.
struct Metrics
{
    explicit Metrics(int fontHeight);

    /// Width of an entry whose name is \a advance pixels wide: colour sample, gap and name.
    int entryWidth(int advance) const;
    int lineHeight() const { return fontHeight + spacing; }

    int fontHeight;
    int spacing;   ///< between two entries and between two lines
    int sampleGap; ///< between the colour sample and the name
};

struct Line
{
    QVector<int> entries; ///< indices into the widths given
    int width = 0;        ///< of the entries and the spacing between them
};

/// One width for each channel in order; 0 for a channel that is not listed. An entry that is wider than
/// \a available gets a line of its own.
///
/// On purpose, the line that a listed last entry would have to begin is not made: a legend whose only entry
/// is the last channel takes no line.
[[nodiscard]] QVector<Line> broken(const QVector<int> &widths, int spacing, int available);

} // namespace LegendLines

#endif // LEGENDLINES_P_H
