#include "TestSupport.h"
#include "app/SettingsFile.h"

#include <QRandomGenerator>

#include <functional>

using namespace testsupport;

namespace {

// The nine stored fields, as the tests compare them.
struct Stored
{
    QString Language = QStringLiteral("English");
    QString ColorScheme = QStringLiteral("Blue");
    QString FirstWeekDay = QStringLiteral("Sunday");
    int CalendarBorderWidth = 2;
    QString CalendarPicture = QStringLiteral("Sky");
    int CalendarLeft = 6600; // (19200 - 6000) / 2
    int CalendarTop = 3952; // (12000 - 4095) / 2 = 3952.5, a half rounded to even
    QString CalendarAlignToCenter = QStringLiteral("No");
    QString CalendarTopmost = QStringLiteral("No");

    static Stored of(const Settings &s)
    {
        return { s.Language,        s.ColorScheme,  s.FirstWeekDay, s.CalendarBorderWidth,
                 s.CalendarPicture, s.CalendarLeft, s.CalendarTop,  s.CalendarAlignToCenter,
                 s.CalendarTopmost };
    }
    bool operator==(const Stored &) const = default;
};

void PrintTo(const Stored &s, std::ostream *out)
{
    *out << s.Language.toStdString() << ' ' << s.ColorScheme.toStdString() << ' '
         << s.FirstWeekDay.toStdString() << " border " << s.CalendarBorderWidth << ' '
         << s.CalendarPicture.toStdString() << " at " << s.CalendarLeft << ',' << s.CalendarTop
         << " centre " << s.CalendarAlignToCenter.toStdString() << " topmost "
         << s.CalendarTopmost.toStdString();
}

struct ReadRow
{
    const char *name;
    QByteArray content;
    std::function<void(Stored &)> expect; // changes from the defaults
};

// A literal with NUL bytes inside, all of it.
template<size_t N>
QByteArray bytes(const char (&text)[N])
{
    return QByteArray(text, N - 1);
}

QByteArray junkWithoutEquals(qsizetype size)
{
    QRandomGenerator random(1234);
    QByteArray junk(size, Qt::Uninitialized);
    for (char &c : junk) {
        c = static_cast<char>(random.bounded(256));
        if (c == '=')
            c = '-';
    }
    return junk;
}

class ReadSettingsTable : public ::testing::TestWithParam<ReadRow>
{
protected:
    SettingsFixture f;
};

} // namespace

// Every readable file gives true and exactly the record the rules say; nothing else changes.
TEST_P(ReadSettingsTable, GivesTheRecordTheRulesSay)
{
    const ReadRow &row = GetParam();
    ASSERT_TRUE(writeBytes(f.path(), row.content));
    f.file.SetDefaultSettings();
    EXPECT_TRUE(f.file.ReadSettings());
    Stored expected;
    if (row.expect)
        row.expect(expected);
    EXPECT_EQ(Stored::of(f.settings), expected);
    EXPECT_EQ(readBytes(f.path()), row.content) << "a good read must not touch the file";
    EXPECT_EQ(f.settings.VersionText, QStringLiteral("1.0.1"));
}

INSTANTIATE_TEST_SUITE_P(
    EdgeCases, ReadSettingsTable,
    ::testing::Values(
        ReadRow { "Empty", "", nullptr },
        ReadRow { "OnlyRussianKeepsSundayFromTheEnglishDefaults", "Language=Russian",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "BorderSevenIsThree", "CalendarBorderWidth=7",
                  [](Stored &s) { s.CalendarBorderWidth = 3; } },
        ReadRow { "BorderMinusOneIsZero", "CalendarBorderWidth=-1",
                  [](Stored &s) { s.CalendarBorderWidth = 0; } },
        ReadRow { "BorderLettersAreZero", "CalendarBorderWidth=wide",
                  [](Stored &s) { s.CalendarBorderWidth = 0; } },
        ReadRow { "BorderHalfToEvenDown", "CalendarBorderWidth=2.5",
                  [](Stored &s) { s.CalendarBorderWidth = 2; } },
        ReadRow { "BorderHalfToEvenUp", "CalendarBorderWidth=1.5",
                  [](Stored &s) { s.CalendarBorderWidth = 2; } },
        ReadRow { "BorderHexMinusOne", "CalendarBorderWidth=&HFFFF",
                  [](Stored &s) { s.CalendarBorderWidth = 0; } },
        ReadRow { "LeftZeroIs45", "CalendarLeft=0", [](Stored &s) { s.CalendarLeft = 45; } },
        ReadRow { "LeftBeyondScreen", "CalendarLeft=999999",
                  [](Stored &s) { s.CalendarLeft = 19200 - 45; } },
        ReadRow { "TopBeyondScreen", "CalendarTop=1e6",
                  [](Stored &s) { s.CalendarTop = 12000 - 45; } },
        ReadRow { "LeftHalfToEven", "CalendarLeft=100.5", [](Stored &s) { s.CalendarLeft = 100; } },
        ReadRow { "TopHalfToEven", "CalendarTop=101.5", [](Stored &s) { s.CalendarTop = 102; } },
        ReadRow { "TopmostCapitals", "CalendarTopmost=YES",
                  [](Stored &s) { s.CalendarTopmost = QStringLiteral("Yes"); } },
        ReadRow { "CentreMixedCase", "CalendarAlignToCenter=yEs",
                  [](Stored &s) { s.CalendarAlignToCenter = QStringLiteral("Yes"); } },
        ReadRow { "CentreOtherWordIsNo", "CalendarAlignToCenter=true", nullptr },
        ReadRow { "SchemeLowerCaseIsReplaced", "ColorScheme=black", nullptr },
        ReadRow { "SchemeExact", "ColorScheme=GrayScale",
                  [](Stored &s) { s.ColorScheme = QStringLiteral("GrayScale"); } },
        ReadRow { "SchemeRandomKept", "ColorScheme=Random",
                  [](Stored &s) { s.ColorScheme = QStringLiteral("Random"); } },
        ReadRow { "PictureUnknownIsNone", "CalendarPicture=sky",
                  [](Stored &s) { s.CalendarPicture = QStringLiteral("None"); } },
        ReadRow { "PictureExact", "CalendarPicture=Camomiles",
                  [](Stored &s) { s.CalendarPicture = QStringLiteral("Camomiles"); } },
        ReadRow { "WeekDayUnknownIsMonday", "FirstWeekDay=Friday",
                  [](Stored &s) { s.FirstWeekDay = QStringLiteral("Monday"); } },
        ReadRow { "KeyAnywhereInTheLine", "junk before Language=Russian",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "KeyInAnyCase", "LANGUAGE=Russian",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "ValueAfterTheFirstEquals", "Language=Russian=1", nullptr },
        ReadRow { "BlanksAroundTheValue", "Language=  Russian  ",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "TabIsNotABlank", "Language=\tRussian", nullptr },
        ReadRow { "EarlierKeyTakesTheLine", "CalendarTop=5 Language=Russian", nullptr },
        ReadRow { "LastValueWins", "Language=Russian\r\nLanguage=English\r\n", nullptr },
        ReadRow { "SectionsAndCommentsIgnored",
                  "; comment\r\n[Other]\r\nno equals sign\r\nUnknown=1\r\n", nullptr },
        ReadRow { "CrLfLineEnds", "Language=Russian\r\nCalendarTopmost=Yes\r\n",
                  [](Stored &s) {
                      s.Language = QStringLiteral("Russian");
                      s.CalendarTopmost = QStringLiteral("Yes");
                  } },
        ReadRow { "LfLineEnds", "Language=Russian\nCalendarTopmost=Yes\n",
                  [](Stored &s) {
                      s.Language = QStringLiteral("Russian");
                      s.CalendarTopmost = QStringLiteral("Yes");
                  } },
        ReadRow { "CrLineEnds", "Language=Russian\rCalendarTopmost=Yes\r",
                  [](Stored &s) {
                      s.Language = QStringLiteral("Russian");
                      s.CalendarTopmost = QStringLiteral("Yes");
                  } },
        ReadRow { "ByteOrderMark", "\xEF\xBB\xBFLanguage=Russian\r\n",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "NulInsideAValue", bytes("Language=Rus\0sian\r\nCalendarTopmost=Yes"),
                  [](Stored &s) { s.CalendarTopmost = QStringLiteral("Yes"); } },
        ReadRow { "NulBytesAround", bytes("\0\0\0\r\nLanguage=Russian\r\n\0"),
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "InvalidUtf8", "\xFF\xFE\xC3(\r\nLanguage=Russian\r\n\xE2\x82",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "BinaryJunk", junkWithoutEquals(200000), nullptr },
        ReadRow { "TenMegabyteLineThenAKey",
                  QByteArray(10 * 1024 * 1024, 'x') + "\r\nLanguage=Russian\r\n",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } },
        ReadRow { "TenMegabyteValueIsNotAWord",
                  "Language=Russian" + QByteArray(10 * 1024 * 1024, 'x'), nullptr },
        ReadRow { "CrAtAChunkBoundaryIsOneLineEnd",
                  QByteArray(32767, 'x') + "\r\nLanguage=Russian\r\n",
                  [](Stored &s) { s.Language = QStringLiteral("Russian"); } }),
    [](const ::testing::TestParamInfo<ReadRow> &row) { return std::string(row.param.name); });

namespace {

// Files that the reader must refuse: each is replaced by a fresh file of defaults.
struct BadFileRow
{
    const char *name;
    std::function<void(const QString &path)> make;
};

class ReadSettingsRecovery : public ::testing::TestWithParam<BadFileRow>
{
protected:
    SettingsFixture f;
};

} // namespace

TEST_P(ReadSettingsRecovery, RewritesTheFileReturnsFalseThenReadsIt)
{
    GetParam().make(f.path());
    f.file.SetDefaultSettings();
    f.settings.CalendarBorderWidth = 0; // must come back as the default 2
    f.settings.Language = QStringLiteral("Russian"); // the system probe decides, not this

    EXPECT_FALSE(f.file.ReadSettings());
    EXPECT_EQ(Stored::of(f.settings), Stored {});
    const QByteArray rewritten = readBytes(f.path());
    EXPECT_TRUE(rewritten.startsWith("Don't change this file by hand!")) << rewritten.toStdString();
    EXPECT_EQ(rewritten, f.file.fileContents());
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });

    EXPECT_TRUE(f.file.ReadSettings());
    EXPECT_EQ(Stored::of(f.settings), Stored {});
}

INSTANTIATE_TEST_SUITE_P(
    BadFiles, ReadSettingsRecovery,
    ::testing::Values(
        BadFileRow { "Missing", [](const QString &) {} },
        BadFileRow { "NumberOverflow",
                     [](const QString &p) {
                         writeBytes(p, "CalendarBorderWidth=1\r\nCalendarLeft=1e400\r\n");
                     } },
        BadFileRow { "HexOverflow",
                     [](const QString &p) { writeBytes(p, "CalendarTop=&H1FFFFFFFF"); } },
        BadFileRow { "DanglingSymlink",
                     [](const QString &p) { QFile::link(p + QStringLiteral(".gone"), p); } }),
    [](const ::testing::TestParamInfo<BadFileRow> &row) { return std::string(row.param.name); });

TEST(ReadSettingsRecoveryLanguage, AMissingFileTakesTheSystemLanguage)
{
    for (const bool russian : { false, true }) {
        SettingsFixture f;
        f.file.context().isRussianSystem = [russian] { return russian; };
        f.file.SetDefaultSettings();
        EXPECT_FALSE(f.file.ReadSettings());
        const QByteArray text = readBytes(f.path());
        EXPECT_TRUE(text.contains(russian ? "Language=Russian\r\n" : "Language=English\r\n"));
        EXPECT_TRUE(text.contains(russian ? "FirstWeekDay=Monday\r\n" : "FirstWeekDay=Sunday\r\n"));
        EXPECT_TRUE(f.file.ReadSettings());
        EXPECT_EQ(f.settings.Language,
                  russian ? QStringLiteral("Russian") : QStringLiteral("English"));
    }
}

TEST(ReadSettingsRecoveryLanguage, AFolderWhereTheFileShouldBeFailsEveryRead)
{
    // A folder where the file should be can be neither read, deleted nor replaced; no file
    // stands there, so the system decides the language.
    SettingsFixture f;
    ASSERT_TRUE(QDir().mkpath(f.path()));
    f.file.context().isRussianSystem = [] { return true; };
    f.settings.Language = QStringLiteral("English");
    f.file.SetDefaultSettings();
    for (int i = 0; i < 4; ++i)
        EXPECT_FALSE(f.file.ReadSettings());
    EXPECT_EQ(f.settings.Language, QStringLiteral("Russian"));
    EXPECT_EQ(f.settings.FirstWeekDay, QStringLiteral("Monday"));
    EXPECT_TRUE(QFileInfo(f.path()).isDir());
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });
}

TEST(ReadSettingsRandom, RandomChoicesAreResolvedAndKept)
{
    SettingsFixture f;
    f.file.context().resolveColorScheme = [](const QString &c) {
        return c == QStringLiteral("Random") ? QStringLiteral("Pink") : c;
    };
    f.file.context().resolvePicture = [](const QString &c) {
        return c == QStringLiteral("Random") ? QStringLiteral("Waves") : c;
    };
    writeBytes(f.path(), "ColorScheme=Random\r\nCalendarPicture=Random\r\nColorScheme=Green\r\n");
    f.file.SetDefaultSettings();
    ASSERT_TRUE(f.file.ReadSettings());
    EXPECT_EQ(f.settings.ColorScheme, QStringLiteral("Green"));
    EXPECT_EQ(f.settings.CurrentColorScheme, QStringLiteral("Green"));
    // The previous scheme is only filled while empty: the first value read stays.
    EXPECT_EQ(f.settings.PreviousColorScheme, QStringLiteral("Pink"));
    EXPECT_EQ(f.settings.CalendarPicture, QStringLiteral("Random"));
    EXPECT_EQ(f.settings.CurrentPicture, QStringLiteral("Waves"));
    EXPECT_EQ(f.file.fileContents().count("Random"), 1) << "the choice is written, not the draw";
}

namespace {

struct DeadlineRow
{
    const char *name;
    int stepMs; // how far the clock moves each time it is read
    int keyLines; // "CalendarBorderWidth=<n>" lines, n = 1, 2, 3, 1, 2, ...
    int filler; // lines without "=" between two key lines
    int expectedBorder; // the last value read before the deadline
};

class ReadDeadline : public ::testing::TestWithParam<DeadlineRow>
{ };

} // namespace

// The reader stops once the clock, read after a line, is at or past 52 s from the start; what
// it read until then stays, and the read counts as good.
TEST_P(ReadDeadline, StopsAtTheDeadlineKeepingWhatWasRead)
{
    const DeadlineRow &row = GetParam();
    SettingsFixture f;
    SteppingClock clock { std::chrono::milliseconds(row.stepMs) };
    f.file.context().clock = &clock;
    QByteArray content;
    for (int i = 0; i < row.keyLines; ++i) {
        content += "CalendarBorderWidth=" + QByteArray::number(i % 3 + 1) + "\r\n";
        for (int j = 0; j < row.filler; ++j)
            content += "filler\r\n";
    }
    writeBytes(f.path(), content);
    f.file.SetDefaultSettings();
    EXPECT_TRUE(f.file.ReadSettings());
    EXPECT_EQ(f.settings.CalendarBorderWidth, row.expectedBorder);
}

INSTANTIATE_TEST_SUITE_P(
    Clock, ReadDeadline,
    ::testing::Values(
        // Read at 0 (start), then after line 1 at 10 s, ... after line 6 at 60 s: six
        // lines are read, the sixth held 3.
        DeadlineRow { "TenSecondsPerLine", 10000, 9, 0, 3 },
        // 13 s a line: the clock reads exactly 52 s after line 4, which already counts.
        DeadlineRow { "ExactlyAtTheDeadline", 13000, 9, 0, 1 },
        DeadlineRow { "NeverReached", 1, 9, 0, 3 },
        // A deadline passed during lines without "=" still stops the next key line.
        DeadlineRow { "PassedAmongOtherLines", 5000, 5, 700, 1 }),
    [](const ::testing::TestParamInfo<DeadlineRow> &row) { return std::string(row.param.name); });

namespace {

struct WordRow
{
    const char *input;
    const char *expected;
};

class NormalizeYesNoTable : public ::testing::TestWithParam<WordRow>
{ };
class SettingValueTable : public ::testing::TestWithParam<WordRow>
{ };

} // namespace

TEST_P(NormalizeYesNoTable, OnlyYesAndNoInAnyCase)
{
    EXPECT_EQ(NormalizeYesNo(QString::fromUtf8(GetParam().input), QStringLiteral("Default")),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Words, NormalizeYesNoTable,
                         ::testing::Values(WordRow { "Yes", "Yes" }, WordRow { "YES", "Yes" },
                                           WordRow { "nO", "No" }, WordRow { "no", "No" },
                                           WordRow { " Yes", "Default" },
                                           WordRow { "Yes ", "Default" },
                                           WordRow { "Y", "Default" }, WordRow { "", "Default" },
                                           WordRow { "Yess", "Default" }));

TEST_P(SettingValueTable, TextAfterTheFirstEqualsWithoutBlanks)
{
    EXPECT_EQ(SettingValue(QString::fromUtf8(GetParam().input)),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Lines, SettingValueTable,
                         ::testing::Values(WordRow { "Language= Russian ", "Russian" },
                                           WordRow { "a=b=c", "b=c" }, WordRow { "a=", "" },
                                           WordRow { "no equals", "" },
                                           WordRow { "k=\tv\t", "\tv\t" },
                                           WordRow { "=  x  y  ", "x  y" }));
