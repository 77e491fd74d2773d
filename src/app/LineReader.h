#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>
#include <cstring>

class QIODevice;

// Reads a text file line by line in bounded memory (one chunk and at most one piece, 64 KiB in
// all). CR LF, LF and CR all end a line. A line longer than PieceSize comes in several pieces,
// so that a 10 MB line never sits in memory.
class LineReader
{
public:
    static constexpr qsizetype ChunkSize = qsizetype { 32 } * 1024;
    static constexpr qsizetype PieceSize = qsizetype { 32 } * 1024;

    explicit LineReader(QIODevice &device);

    // The next piece of the current line, valid until the next call; `endsLine` is true when
    // the line ends after it. False at the end of the input or after a read error.
    bool readPiece(QByteArrayView &piece, bool &endsLine);
    // The first piece of the next line; the rest of a long line is skipped.
    bool readLine(QByteArrayView &line)
    {
        // Most lines lie whole inside the current chunk: hand them out here, without a call.
        if (!m_inLine && m_pos < m_len) {
            const char *data = m_buffer.constData();
            const char *begin = data + m_pos;
            const char *limit = begin + std::min(m_len - m_pos, PieceSize);
            const char *end = findLineEnd(begin, limit);
            // A CR that ends the chunk may be half of a CR LF: the slow path knows.
            if (end != limit && (*end == '\n' || end + 1 < data + m_len)) {
                line = QByteArrayView(begin, end - begin);
                m_pos = end - data + 1;
                if (*end == '\r' && data[m_pos] == '\n')
                    ++m_pos;
                return true;
            }
        }
        return readLineSlow(line);
    }
    // The next line that holds anything, as readLine gives it. Runs of line ends are skipped
    // in one sweep, so a file of millions of empty lines costs no more than a scan.
    bool readNonEmptyLine(QByteArrayView &line)
    {
        for (;;) {
            if (!m_inLine) {
                const char *data = m_buffer.constData();
                while (m_pos < m_len && (data[m_pos] == '\n' || data[m_pos] == '\r'))
                    ++m_pos;
            }
            if (!readLine(line))
                return false;
            if (!line.isEmpty())
                return true;
        }
    }
    bool hasError() const { return m_error; }

    // The first CR or LF in [begin, end), or end.
    static const char *findLineEnd(const char *begin, const char *end)
    {
        const auto size = static_cast<size_t>(end - begin);
        const auto *lf = static_cast<const char *>(std::memchr(begin, '\n', size));
        const char *stop = lf ? lf : end;
        const auto *cr =
            static_cast<const char *>(std::memchr(begin, '\r', static_cast<size_t>(stop - begin)));
        return cr ? cr : stop;
    }

private:
    bool readLineSlow(QByteArrayView &line);
    bool fill();
    // Steps over the line end at m_pos whose first character is `terminator`.
    void consumeLineEnd(char terminator);
    void skipRestOfLine();

    QIODevice &m_device;
    QByteArray m_buffer;
    QByteArray m_joined; // a piece that straddles two chunks
    qsizetype m_pos = 0;
    qsizetype m_len = 0;
    bool m_eof = false;
    bool m_error = false;
    bool m_skipLineFeed = false; // the last chunk ended in CR: a leading LF belongs to it
    bool m_inLine = false; // a piece without its line end has been handed out
};
