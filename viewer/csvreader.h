#ifndef VIEWER_CSVREADER_H
#define VIEWER_CSVREADER_H

#include "problem.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The cells of one row, unquoted, with the blanks around unquoted cells taken off.
class CsvRow
{
public:
    int size() const { return static_cast<int>(m_ends.size()); }
    std::string_view cell(int index) const;
    /// Line of the file on which the row starts, counted from 1.
    qint64 line() const { return m_line; }

    void append(std::string_view cell);
    void clear(qint64 line);

private:
    // All cells lie in one buffer: a row costs no allocation once the buffers have grown.
    std::string m_text;
    std::vector<size_t> m_ends;
    qint64 m_line = 0;
};

/// Comma, semicolon or tab: the character that cuts the lines of \a head most evenly. Characters between
/// quotes do not count; a comma if nothing speaks for any of them.
char detectDelimiter(std::string_view head);

/// UTF-8, or Latin-1 where the bytes are no valid UTF-8.
QString decodeText(std::string_view bytes);

/// Cuts the bytes of a CSV file into rows while they arrive, so that a file of any size takes the memory of
/// one row.
///
/// A byte order mark is skipped, lines may end with LF, CRLF or CR, and a quoted cell may hold line ends.
/// Blank lines are skipped, except in a file of one column, where a blank line before another row is an empty
/// cell. Bytes that no text holds, a quoted cell that does not end and a cell of more than a megabyte are
/// problems.
class CsvReader
{
public:
    /// Gets each row; returning false ends the reading.
    using RowHandler = std::function<bool(const CsvRow &)>;

    explicit CsvReader(RowHandler handler);
    ~CsvReader();
    CsvReader(const CsvReader &) = delete;
    CsvReader &operator=(const CsvReader &) = delete;

    /// Takes the next bytes of the file. Returns false once there is a problem or the handler has had enough.
    bool feed(std::string_view bytes);
    /// Ends the file: hands over the last row.
    bool finish();

    const Problem &problem() const;
    /// The detected delimiter; 0 before any row was read.
    char delimiter() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

#endif // VIEWER_CSVREADER_H
