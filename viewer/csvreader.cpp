#include "csvreader.h"

#include <QtCore/QMap>
#include <QtCore/QTextCodec>

#include <csv.h>

#include <array>

namespace {

// Enough for a header and some hundred rows; the delimiter is judged by it.
constexpr size_t kHeadSize = 64 * 1024;
// A longer cell is no measurement but a quote that was never closed.
constexpr size_t kLongestCell = 1024 * 1024;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

enum class ByteClass : unsigned char { Content, Blank, LineFeed, CarriageReturn, Binary };

constexpr std::array<ByteClass, 256> makeByteClasses()
{
    std::array<ByteClass, 256> classes{};
    for (size_t byte = 0; byte < 0x20; ++byte)
        classes[byte] = ByteClass::Binary;
    classes['\v'] = classes['\f'] = ByteClass::Content;
    classes['\t'] = classes[' '] = ByteClass::Blank;
    classes['\n'] = ByteClass::LineFeed;
    classes['\r'] = ByteClass::CarriageReturn;
    return classes;
}

constexpr std::array<ByteClass, 256> kByteClasses = makeByteClasses();

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

/// How often \a delimiter stands outside quotes in each line that is not blank.
QVector<int> delimitersPerLine(std::string_view head, char delimiter)
{
    QVector<int> counts;
    int count = 0;
    bool quoted = false;
    bool blank = true;
    for (const char c : head) {
        if (c == '"')
            quoted = !quoted;
        if (!quoted && (c == '\n' || c == '\r')) {
            if (!blank)
                counts.append(count);
            count = 0;
            blank = true;
            continue;
        }
        blank = blank && c == ' ';
        if (!quoted && c == delimiter)
            ++count;
    }
    // The last line of the head may be cut off; it counts only when there is no other.
    if (counts.isEmpty() && !blank)
        counts.append(count);
    return counts;
}

/// Share of the lines that have the commonest number of delimiters, if that is not none.
double evenness(const QVector<int> &counts)
{
    QMap<int, int> frequency;
    for (const int count : counts)
        ++frequency[count];
    int commonest = 0;
    for (auto it = frequency.cbegin(); it != frequency.cend(); ++it) {
        if (it.key() > 0)
            commonest = qMax(commonest, it.value());
    }
    return counts.isEmpty() ? 0.0 : double(commonest) / counts.size();
}

} // namespace

std::string_view CsvRow::cell(int index) const
{
    const auto i = static_cast<size_t>(index);
    const size_t begin = i == 0 ? 0 : m_ends[i - 1];
    return std::string_view(m_text).substr(begin, m_ends[i] - begin);
}

void CsvRow::append(std::string_view cell)
{
    m_text.append(cell);
    m_ends.push_back(m_text.size());
}

void CsvRow::clear(qint64 line)
{
    m_text.clear();
    m_ends.clear();
    m_line = line;
}

char detectDelimiter(std::string_view head)
{
    // A comma may also be the decimal mark of a file with semicolons or tabs, so it comes last among equals.
    char best = ',';
    double bestEvenness = 0.0;
    for (const char candidate : {'\t', ';', ','}) {
        const double candidateEvenness = evenness(delimitersPerLine(head, candidate));
        if (candidateEvenness > bestEvenness) {
            best = candidate;
            bestEvenness = candidateEvenness;
        }
    }
    return best;
}

QString decodeText(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), size, &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text;
    return QString::fromLatin1(bytes.data(), size);
}

struct CsvReader::State
{
    explicit State(RowHandler rowHandler)
        : handler(std::move(rowHandler))
    {
        csv_init(&parser, 0);
        row.clear(1);
    }

    ~State() { csv_free(&parser); }

    State(const State &) = delete;
    State &operator=(const State &) = delete;

    bool start();
    bool process(std::string_view bytes);
    bool parse(std::string_view bytes);
    bool endLine();
    bool fail(const QString &text, qint64 atLine, int atColumn = 0);
    bool handOver();

    static void onCell(void *cell, size_t size, void *self);
    static void onRow(int, void *self);

    RowHandler handler;
    csv_parser parser{};
    Problem problem;
    std::string head;
    CsvRow row;
    qint64 line = 1;       ///< of the byte that comes next
    qint64 blankLines = 0; ///< since the last row
    int firstRowSize = 0;
    bool started = false;
    bool stopped = false;
    bool rowOpen = false;        ///< a row has begun and not ended; a line end between quotes does not end it
    bool lineHasContent = false; ///< the line is not blank so far
    bool carriageReturn = false; ///< the last byte; the line has ended unless a line feed follows
};

/// Looks at the head of the file before the first byte is parsed.
bool CsvReader::State::start()
{
    started = true;
    const std::string bytes = std::move(head);
    std::string_view content = bytes;
    if (startsWith(content, "\xFF\xFE") || startsWith(content, "\xFE\xFF"))
        return fail(QStringLiteral("this is UTF-16 text, save it as UTF-8 to read it here"), 0);
    if (startsWith(content, kUtf8Mark))
        content.remove_prefix(kUtf8Mark.size());
    csv_set_delim(&parser, static_cast<unsigned char>(detectDelimiter(content)));
    return process(content);
}

/// Hands the bytes to the parser line by line: only so is the line of every row known.
bool CsvReader::State::process(std::string_view bytes)
{
    size_t begin = 0;
    const auto flush = [&](size_t end) {
        const std::string_view part = bytes.substr(begin, end - begin);
        begin = end;
        return parse(part);
    };
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const ByteClass byteClass = kByteClasses[byte];
        if (carriageReturn && byteClass != ByteClass::LineFeed && !(flush(i) && endLine()))
            return false;
        carriageReturn = byteClass == ByteClass::CarriageReturn;
        switch (byteClass) {
        case ByteClass::Content:
            lineHasContent = true;
            break;
        case ByteClass::Blank:
            // Blanks around a cell mean nothing, but a tab that parts cells makes a row.
            lineHasContent = lineHasContent || byte == csv_get_delim(&parser);
            break;
        case ByteClass::LineFeed:
            if (!(flush(i + 1) && endLine()))
                return false;
            break;
        case ByteClass::CarriageReturn:
            break;
        case ByteClass::Binary:
            return fail(QStringLiteral("this is no text file, it holds the byte 0x%1")
                            .arg(uint(byte), 2, 16, QLatin1Char('0')),
                        line);
        }
    }
    return flush(bytes.size());
}

bool CsvReader::State::parse(std::string_view bytes)
{
    if (bytes.empty())
        return true;
    if (!rowOpen) {
        row.clear(line);
        rowOpen = lineHasContent;
    }
    if (csv_parse(&parser, bytes.data(), bytes.size(), &State::onCell, &State::onRow, this) != bytes.size())
        return fail(QString::fromLatin1(csv_strerror(csv_error(&parser))), row.line());
    if (parser.entry_pos > kLongestCell) {
        return fail(QStringLiteral("the cell is longer than a megabyte, is a closing quote missing?"),
                    row.line(), row.size() + 1);
    }
    return !stopped;
}

bool CsvReader::State::endLine()
{
    if (!rowOpen && !lineHasContent)
        ++blankLines;
    lineHasContent = false;
    ++line;
    return !stopped;
}

bool CsvReader::State::fail(const QString &text, qint64 atLine, int atColumn)
{
    problem = {text, atLine, atColumn};
    stopped = true;
    return false;
}

bool CsvReader::State::handOver()
{
    if (firstRowSize == 0)
        firstRowSize = row.size();
    if (firstRowSize == 1 && row.size() == 1 && blankLines > 0) {
        CsvRow emptyRow;
        for (qint64 i = blankLines; i > 0; --i) {
            emptyRow.clear(row.line() - i);
            emptyRow.append({});
            if (!handler(emptyRow))
                return false;
        }
    }
    blankLines = 0;
    return handler(row);
}

void CsvReader::State::onCell(void *cell, size_t size, void *self)
{
    static_cast<State *>(self)->row.append({static_cast<const char *>(cell), size});
}

void CsvReader::State::onRow(int, void *self)
{
    auto *state = static_cast<State *>(self);
    state->stopped = state->stopped || !state->handOver();
    state->rowOpen = false;
    state->row.clear(state->line);
}

CsvReader::CsvReader(RowHandler handler)
    : m_state(std::make_unique<State>(std::move(handler)))
{
}

CsvReader::~CsvReader() = default;

bool CsvReader::feed(std::string_view bytes)
{
    State &state = *m_state;
    if (state.stopped)
        return false;
    if (state.started)
        return state.process(bytes);
    state.head.append(bytes);
    return state.head.size() < kHeadSize || state.start();
}

bool CsvReader::finish()
{
    State &state = *m_state;
    if (state.stopped || (!state.started && !state.start()))
        return false;
    csv_set_opts(&state.parser, CSV_STRICT | CSV_STRICT_FINI);
    if (csv_fini(&state.parser, &State::onCell, &State::onRow, &state) != 0) {
        return state.fail(QStringLiteral("the quoted cell that begins here does not end"), state.row.line(),
                          state.row.size() + 1);
    }
    return !state.stopped;
}

const Problem &CsvReader::problem() const
{
    return m_state->problem;
}

char CsvReader::delimiter() const
{
    return m_state->started ? static_cast<char>(csv_get_delim(&m_state->parser)) : '\0';
}
