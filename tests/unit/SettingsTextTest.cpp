#include "TestSupport.h"
#include "app/LeadingNumber.h"
#include "app/LineReader.h"

#include <QBuffer>

#include <clocale>
#include <optional>

using namespace testsupport;

namespace {

struct NumberRow
{
    const char *text;
    std::optional<double> expected; // nullopt: an overflow
    const char *numericLocale = "C"; // ru_RU writes numbers with a decimal comma
};

using LeadingNumberTable = ::testing::TestWithParam<NumberRow>;

// "." is the decimal point on every machine, whatever LC_NUMERIC says (QApplication sets it from
// the user's locale).
TEST_P(LeadingNumberTable, ReadsTheNumberTheTextBeginsWith)
{
    const NumberRow &row = GetParam();
    const std::string saved = std::setlocale(LC_NUMERIC, nullptr);
    ASSERT_TRUE(std::setlocale(LC_NUMERIC, row.numericLocale))
        << row.numericLocale << " is not installed";
    EXPECT_EQ(leadingNumber(QString::fromLatin1(row.text)), row.expected) << row.text;
    std::setlocale(LC_NUMERIC, saved.c_str());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LeadingNumberTable,
    ::testing::Values(NumberRow { "7", 7 }, NumberRow { "-1", -1 }, NumberRow { "+4", 4 },
                      NumberRow { "letters", 0 }, NumberRow { "", 0 }, NumberRow { "-", 0 },
                      NumberRow { "2.5", 2.5 }, NumberRow { ".5", 0.5 }, NumberRow { "1.2.3", 1.2 },
                      NumberRow { " 1 2 3", 123 }, NumberRow { "\t9\n9", 99 },
                      NumberRow { "12abc", 12 }, NumberRow { "1e3", 1000 },
                      NumberRow { "1D2", 100 }, NumberRow { "1e", 1 }, NumberRow { "&H10", 16 },
                      NumberRow { "&HFFFF", -1 }, NumberRow { "&H1FFFF", 131071 },
                      NumberRow { "&O17", 15 }, NumberRow { "&X1", 0 },
                      NumberRow { "1e400", std::nullopt }, NumberRow { "-1e999", std::nullopt },
                      NumberRow { "&H123456789", std::nullopt }, NumberRow { "1e-400", 0 },
                      NumberRow { "2.6", 2.6, "ru_RU.UTF-8" },
                      NumberRow { "1.5E3", 1500, "ru_RU.UTF-8" }));

QList<QByteArray> linesOf(QByteArray content, bool nonEmpty)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    LineReader reader(buffer);
    QList<QByteArray> lines;
    QByteArrayView line;
    while (nonEmpty ? reader.readNonEmptyLine(line) : reader.readLine(line))
        lines.append(line.toByteArray());
    return lines;
}

struct LinesRow
{
    const char *name;
    QByteArray content;
    QList<QByteArray> lines; // a line longer than a piece comes as its head
};

using LineReaderTable = ::testing::TestWithParam<LinesRow>;

const qsizetype Chunk = LineReader::ChunkSize;
const qsizetype Piece = LineReader::PieceSize;
const QByteArray X(Chunk - 1, 'x');
const QByteArray Y(2 * Chunk, 'y');

} // namespace

// readNonEmptyLine gives the same lines without the empty ones.
TEST_P(LineReaderTable, SplitsAtEveryKindOfLineEnd)
{
    const LinesRow &row = GetParam();
    EXPECT_EQ(linesOf(row.content, false), row.lines);
    QList<QByteArray> nonEmpty = row.lines;
    nonEmpty.removeAll(QByteArray());
    EXPECT_EQ(linesOf(row.content, true), nonEmpty);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Contents, LineReaderTable, ::testing::Values(
    LinesRow { "Mixed", "a\r\n\nb\r\rc\n\rd", { "a", "", "b", "", "c", "", "d" } },
    LinesRow { "CrLfSplitAcrossChunks", X + "\r\nb", { X, "b" } },
    LinesRow { "CrEndsTheChunkAndTheFile", X + "\r", { X } },
    LinesRow { "LineStraddlingChunks", "a\n" + Y + "\nz", { "a", Y.left(Piece), "z" } },
    LinesRow { "LongLineKeepsItsHead", "head" + Y + "\r\nnext", { "head" + Y.left(Piece - 4), "next" } },
    LinesRow { "LongLineEndingInCrAtChunkEnd", Y.left(2 * Chunk - 1) + "\r\nnext", { Y.left(Piece), "next" } },
    LinesRow { "RunsOfLineEndsAcrossChunks", "\r\n\ra\r\n\n" + QByteArray(Chunk, '\n') + "b\r",
               QList<QByteArray> { "", "", "a" } + QList<QByteArray>(Chunk + 1) + QList<QByteArray> { "b" } }),
    rowName);
// clang-format on
