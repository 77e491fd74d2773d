#pragma once

#include <QByteArray>
#include <QByteArrayView>

class QIODevice;

// Reads a text file line by line in bounded memory (one chunk and at most one piece, 64 KiB in
// all). CR LF, LF and CR all end a line. A line longer than PieceSize comes in several pieces,
// so that a 10 MB line never sits in memory.
class LineReader
{
public:
    static constexpr qsizetype ChunkSize = 32 * 1024;
    static constexpr qsizetype PieceSize = 32 * 1024;

    explicit LineReader(QIODevice &device);

    // The next piece of the current line, valid until the next call; `endsLine` is true when
    // the line ends after it. False at the end of the input or after a read error.
    bool readPiece(QByteArrayView &piece, bool &endsLine);
    // The first piece of the next line; the rest of a long line is skipped.
    bool readLine(QByteArrayView &line);
    bool hasError() const { return m_error; }

private:
    bool fill();
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
