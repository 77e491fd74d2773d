#include "LineReader.h"

#include <QIODevice>

#include <cstring>

LineReader::LineReader(QIODevice &device)
    : m_device(device)
{
    m_buffer.resize(ChunkSize);
}

bool LineReader::fill()
{
    if (m_eof || m_error)
        return false;
    const qint64 got = m_device.read(m_buffer.data(), ChunkSize);
    if (got < 0) {
        m_error = true;
        return false;
    }
    if (got == 0) {
        m_eof = true;
        return false;
    }
    m_pos = 0;
    m_len = got;
    if (m_skipLineFeed) {
        m_skipLineFeed = false;
        if (m_buffer.at(0) == '\n')
            m_pos = 1;
    }
    return true;
}

bool LineReader::readPiece(QByteArrayView &piece, bool &endsLine)
{
    m_joined.clear();
    endsLine = false;
    for (;;) {
        if (m_pos >= m_len && !fill()) {
            if (m_error)
                return false;
            // End of input: a started line ends here, even without its line end.
            if (m_inLine || !m_joined.isEmpty()) {
                m_inLine = false;
                endsLine = true;
                piece = m_joined;
                return true;
            }
            return false;
        }
        const char *begin = m_buffer.constData() + m_pos;
        const qsizetype room = PieceSize - m_joined.size();
        const qsizetype available = std::min(m_len - m_pos, room);
        const qsizetype end = findLineEnd(begin, begin + available) - begin;
        m_pos += end;
        const bool found = end < available;
        // The common case, a whole line inside the chunk, is handed out without a copy.
        const bool direct = m_joined.isEmpty();
        if (!direct)
            m_joined.append(begin, end);
        if (found) {
            consumeLineEnd(begin[end]);
            m_inLine = false;
            endsLine = true;
            piece = direct ? QByteArrayView(begin, end) : QByteArrayView(m_joined);
            return true;
        }
        if (direct)
            m_joined.append(begin, end);
        if (m_joined.size() >= PieceSize) {
            m_inLine = true;
            piece = m_joined;
            return true;
        }
    }
}

void LineReader::consumeLineEnd(char terminator)
{
    ++m_pos;
    if (terminator != '\r')
        return;
    // CR LF is one line end, even when the chunk ends between the two.
    if (m_pos < m_len) {
        if (m_buffer.at(m_pos) == '\n')
            ++m_pos;
    } else {
        m_skipLineFeed = true;
    }
}

void LineReader::skipRestOfLine()
{
    for (;;) {
        if (m_pos >= m_len && !fill()) {
            m_inLine = false;
            return;
        }
        const char *begin = m_buffer.constData() + m_pos;
        const qsizetype available = m_len - m_pos;
        const qsizetype end = findLineEnd(begin, begin + available) - begin;
        m_pos += end;
        if (end < available) {
            consumeLineEnd(begin[end]);
            m_inLine = false;
            return;
        }
    }
}

bool LineReader::readLineSlow(QByteArrayView &line)
{
    bool endsLine = false;
    if (!readPiece(line, endsLine))
        return false;
    // The head stays in the join buffer; the rest of a long line is skipped without a copy.
    if (!endsLine)
        skipRestOfLine();
    return !m_error;
}
