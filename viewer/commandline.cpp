#include "commandline.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QRegularExpression>

#include <optional>

namespace {

// A window larger than this cannot be painted into one picture.
constexpr int kLargestSide = 16384;

struct OptionRow
{
    const char *name;
    const char *valueName; ///< null: a switch
    const char *help;
};

constexpr OptionRow kOptions[] = {
    {"x", "COLUMN",
     "column for the x axis (default: the first column with dates,\n"
     "times or growing numbers, else the number of the row)"},
    {"y", "COLUMN,...", "columns to draw (default: every column with numbers)"},
    {"axis", "COLUMN=left|right", "side of the column's value axis; can be given repeatedly"},
    {"log-y", nullptr, "logarithmic value axes; values not above 0 become gaps"},
    {"inverted-y", nullptr, "value axes that grow downwards"},
    {"grid", "KIND", "none, ticks (the default), subticks, percent, pixels or polar"},
    {"legend", nullptr, "list the names and colours of the columns"},
    {"overview", nullptr, "show all data in a strip below the plot, to move it by"},
    {"edit-axes", nullptr, "type the ends of the axes; their numbers are plain then"},
    {"channel-panel", nullptr, "list the columns in a panel that hides and colours them"},
    {"label-format", "FORMAT", "values as floating, exponential or compact (the default)"},
    {"time-format", "FORMAT",
     "labels of a date axis, such as \"%dd.%MM. %hh:%mm\"; lines\n"
     "\"MILLISECONDS\\tFORMAT\" joined by \\n give a format for each\n"
     "span that is shorter than so many milliseconds"},
    {"title", "TEXT", "title above the plot"},
    {"size", "WxH", "size of the window in pixels (default: 960x600)"},
    {"screenshot", "FILE.png", "write the window into a picture and exit; needs no display"},
    {"help", nullptr, "show this text and exit"},
    {"version", nullptr, "show the version and exit"},
};

constexpr const char *kHelpHead = "Usage: zrqtplot-viewer [options] [FILE.csv ...]\n"
                                  "Shows the columns of CSV files as a plot.\n\n";

constexpr const char *kHelpTail
    = "\nA COLUMN is the name in the header, or the number of the column counted from 1.\n\n"
      "Files have commas, semicolons or tabs between the cells, and a header or none.\n"
      "Semicolon files may have decimal commas. Dates are 2026-11-21, 2026/11/21,\n"
      "11/21/2026 (day first if a column holds a day above 12 there), 21.11.2026 or\n"
      "Nov 21 2026, with a time such as 14:03:02.5 and a zone such as Z or +01:00 if need\n"
      "be. Times are drawn as they stand in the file; those with a zone, in UTC.\n"
      "Columns of text are not drawn.\n\n"
      "Empty cells, cells missing at the end of a row, and cells that are not of their\n"
      "column's kind are gaps: the line is interrupted there. A value between two gaps\n"
      "is shown by a dot. A row whose x is a gap is left out. All are counted: on\n"
      "standard error, and in the status bar.\n\n"
      "The exit status is 1 if the options or a file cannot be used, else 0.\n";

QString name(const char *text)
{
    return QString::fromLatin1(text);
}

QString helpText()
{
    constexpr int kColumn = 27;
    QString text = name(kHelpHead);
    for (const OptionRow &row : kOptions) {
        QString left = QStringLiteral("  --") + name(row.name);
        if (row.valueName)
            left += QLatin1Char(' ') + name(row.valueName);
        // A long option has a line of its own, its help starts below.
        left = left.size() < kColumn ? left.leftJustified(kColumn)
                                     : left + QLatin1Char('\n') + QString(kColumn, QLatin1Char(' '));
        const QString indent = QLatin1Char('\n') + QString(kColumn, QLatin1Char(' '));
        text += left + name(row.help).replace(QLatin1Char('\n'), indent) + QLatin1Char('\n');
    }
    return text + name(kHelpTail);
}

std::optional<GridKind> gridKind(const QString &text)
{
    static const QStringList kNames
        = {QStringLiteral("none"),    QStringLiteral("ticks"),  QStringLiteral("subticks"),
           QStringLiteral("percent"), QStringLiteral("pixels"), QStringLiteral("polar")};
    const int index = kNames.indexOf(text);
    return index < 0 ? std::nullopt : std::make_optional(static_cast<GridKind>(index));
}

std::optional<NumberFormat> numberFormat(const QString &text)
{
    static const QStringList kNames
        = {QStringLiteral("floating"), QStringLiteral("exponential"), QStringLiteral("compact")};
    const int index = kNames.indexOf(text);
    return index < 0 ? std::nullopt : std::make_optional(static_cast<NumberFormat>(index));
}

std::optional<AxisChoice> axisChoice(const QString &text)
{
    // The header itself may hold an equals sign.
    const int equals = text.lastIndexOf(QLatin1Char('='));
    const QString side = text.mid(equals + 1);
    if (equals < 1 || (side != QLatin1String("left") && side != QLatin1String("right")))
        return std::nullopt;
    return AxisChoice{text.left(equals), side == QLatin1String("left") ? AxisSide::Left : AxisSide::Right};
}

std::optional<QSize> windowSize(const QString &text)
{
    static const QRegularExpression kSize(QStringLiteral("^([0-9]{1,6})[xX]([0-9]{1,6})$"));
    const QRegularExpressionMatch match = kSize.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.width() < 1 || size.height() < 1 || size.width() > kLargestSide || size.height() > kLargestSide)
        return std::nullopt;
    return size;
}

/// Shells pass no tabs and line ends easily: \\t and \\n stand for them.
QString unescapedTimeFormat(QString text)
{
    text.replace(QLatin1String("\\t"), QLatin1String("\t"));
    text.replace(QLatin1String("\\n"), QLatin1String("\r\n"));
    return text;
}

/// Reads the values of the options; returns a sentence about the first one that is wrong.
QString readValues(const QCommandLineParser &parser, Options *options)
{
    const auto value = [&parser](const char *option) { return parser.value(name(option)); };
    const auto wrong = [&value](const char *option, const char *wanted) {
        return QStringLiteral("--%1 takes %2, not \"%3\".").arg(name(option), name(wanted), value(option));
    };
    options->files = parser.positionalArguments();
    options->x = value("x");
    options->y = value("y").split(QLatin1Char(','), Qt::SkipEmptyParts);
    options->logY = parser.isSet(name("log-y"));
    options->invertedY = parser.isSet(name("inverted-y"));
    options->legend = parser.isSet(name("legend"));
    options->overview = parser.isSet(name("overview"));
    options->editAxes = parser.isSet(name("edit-axes"));
    options->channelPanel = parser.isSet(name("channel-panel"));
    options->title = value("title");
    options->screenshot = value("screenshot");
    options->timeFormat = unescapedTimeFormat(value("time-format"));

    for (const QString &text : parser.values(name("axis"))) {
        const std::optional<AxisChoice> choice = axisChoice(text);
        if (!choice)
            return QStringLiteral("--axis takes COLUMN=left or COLUMN=right, not \"%1\".").arg(text);
        options->axes.append(*choice);
    }
    if (parser.isSet(name("grid"))) {
        const std::optional<GridKind> grid = gridKind(value("grid"));
        if (!grid)
            return wrong("grid", "none, ticks, subticks, percent, pixels or polar");
        options->grid = *grid;
    }
    if (parser.isSet(name("label-format"))) {
        const std::optional<NumberFormat> format = numberFormat(value("label-format"));
        if (!format)
            return wrong("label-format", "floating, exponential or compact");
        options->labelFormat = *format;
    }
    if (parser.isSet(name("size"))) {
        const std::optional<QSize> size = windowSize(value("size"));
        if (!size)
            return wrong("size", "a size such as 960x600");
        options->size = *size;
    }
    if (parser.isSet(name("screenshot")) && options->files.isEmpty())
        return QStringLiteral("--screenshot needs a file to draw.");
    return {};
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    for (const OptionRow &row : kOptions) {
        QCommandLineOption option(name(row.name));
        if (row.valueName)
            option.setValueName(name(row.valueName));
        parser.addOption(option);
    }

    CommandLine result;
    // The parser expects the program's name first.
    if (!parser.parse(QStringList(QStringLiteral("zrqtplot-viewer")) + arguments)) {
        result.problem = parser.errorText();
        if (!result.problem.endsWith(QLatin1Char('.')))
            result.problem += QLatin1Char('.');
    } else if (parser.isSet(name("help"))) {
        result.output = helpText();
    } else if (parser.isSet(name("version"))) {
        result.output = QStringLiteral("zrqtplot-viewer " VIEWER_VERSION "\n");
    } else {
        result.problem = readValues(parser, &result.options);
    }
    return result;
}
