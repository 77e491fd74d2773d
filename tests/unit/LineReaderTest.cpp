#include "app/LineReader.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

QList<QByteArray> linesOf(QByteArray content)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    LineReader reader(buffer);
    QList<QByteArray> lines;
    QByteArrayView line;
    while (reader.readLine(line))
        lines.append(line.toByteArray());
    return lines;
}

struct LinesRow
{
    const char *name;
    QByteArray content;
    QList<QByteArray> lines;
};

class LineReaderTable : public ::testing::TestWithParam<LinesRow>
{ };

const qsizetype Chunk = LineReader::ChunkSize;
const qsizetype Piece = LineReader::PieceSize;

} // namespace

TEST_P(LineReaderTable, SplitsAtEveryKindOfLineEnd)
{
    EXPECT_EQ(linesOf(GetParam().content), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Contents, LineReaderTable,
    ::testing::Values(LinesRow { "Empty", "", {} }, LinesRow { "NoLineEnd", "a", { "a" } },
                      LinesRow { "CrLf", "a\r\nb\r\n", { "a", "b" } },
                      LinesRow { "Lf", "a\nb\n", { "a", "b" } },
                      LinesRow { "Cr", "a\rb\r", { "a", "b" } },
                      LinesRow { "Mixed", "a\r\n\nb\r\rc", { "a", "", "b", "", "c" } },
                      LinesRow { "LfCrIsTwoEnds", "a\n\rb", { "a", "", "b" } },
                      LinesRow { "CrLfSplitAcrossChunks",
                                 QByteArray(Chunk - 1, 'x') + "\r\nb",
                                 { QByteArray(Chunk - 1, 'x'), "b" } },
                      LinesRow { "CrEndsTheChunkAndTheFile",
                                 QByteArray(Chunk - 1, 'x') + "\r",
                                 { QByteArray(Chunk - 1, 'x') } },
                      LinesRow { "LineStraddlingChunks",
                                 "a\n" + QByteArray(Chunk, 'y') + "\nz",
                                 { "a", QByteArray(Chunk, 'y').left(Piece), "z" } },
                      LinesRow { "LongLineKeepsItsHead",
                                 "head" + QByteArray(3 * Chunk, 'y') + "\r\nnext",
                                 { ("head" + QByteArray(3 * Chunk, 'y')).left(Piece), "next" } },
                      LinesRow { "LongLineEndingInCrAtChunkEnd",
                                 QByteArray(2 * Chunk - 1, 'y') + "\r\nnext",
                                 { QByteArray(Piece, 'y'), "next" } }),
    [](const ::testing::TestParamInfo<LinesRow> &p) { return std::string(p.param.name); });

TEST(LineReaderPieces, ALongLineComesInPiecesThatAddUp)
{
    QByteArray content = QByteArray(Piece * 2 + 10, 'q') + "\nend";
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    LineReader reader(buffer);
    QByteArrayView piece;
    bool endsLine = false;
    qsizetype total = 0;
    int pieces = 0;
    while (reader.readPiece(piece, endsLine)) {
        EXPECT_LE(piece.size(), Piece);
        total += piece.size();
        ++pieces;
        if (endsLine)
            break;
    }
    EXPECT_EQ(total, Piece * 2 + 10);
    EXPECT_EQ(pieces, 3);
    ASSERT_TRUE(reader.readPiece(piece, endsLine));
    EXPECT_EQ(piece, QByteArrayView("end"));
    EXPECT_TRUE(endsLine);
}

TEST(LineReaderNonEmpty, SkipsRunsOfLineEndsAcrossChunks)
{
    QByteArray content = "\r\n\n\ra\r\n\r\n\n\rb" + QByteArray(Chunk - 12, '\n') + "\r\nc\r";
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    LineReader reader(buffer);
    QList<QByteArray> lines;
    QByteArrayView line;
    while (reader.readNonEmptyLine(line))
        lines.append(line.toByteArray());
    EXPECT_EQ(lines, QList<QByteArray>({ "a", "b", "c" }));
}
