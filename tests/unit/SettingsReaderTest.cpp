#include "TestSupport.h"
#include "app/FileUtils.h"

using namespace testsupport;

namespace {

// The record as "Key=Value" texts: the nine stored fields as the writer puts them, then the
// values derived from them.
QString fields(const SettingsFixture &f)
{
    const Settings &s = f.settings;
    return (QString::fromLatin1(f.file.fileContents()).split(u"\r\n"_s).mid(4, 9)
            + QStringList { u"Clock12Hour="_s + s.Clock12Hour,
                            u"CurrentColorScheme="_s + s.CurrentColorScheme,
                            u"PreviousColorScheme="_s + s.PreviousColorScheme,
                            u"CurrentPicture="_s + s.CurrentPicture,
                            u"PreviousPicture="_s + s.PreviousPicture })
        .join(u' ');
}

// The defaults with the ";"-separated changes of a row.
QString expected(const char *changes)
{
    QStringList result =
        QStringLiteral("Language=English ColorScheme=Blue FirstWeekDay=Sunday "
                       "CalendarBorderWidth=2 CalendarPicture=Sky "
                       "CalendarLeft=7238 CalendarTop=3952 CalendarAlignToCenter=No "
                       "CalendarTopmost=No Clock12Hour=Yes "
                       "CurrentColorScheme= PreviousColorScheme= CurrentPicture= PreviousPicture=")
            .split(u' ');
    for (const QString &change : QString::fromLatin1(changes).split(u';', Qt::SkipEmptyParts))
        for (QString &field : result)
            field = field.section(u'=', 0, 0) == change.section(u'=', 0, 0) ? change : field;
    return result.join(u' ');
}

struct ReadRow
{
    const char *name;
    QByteArray content; // the file; null: none
    const char *changes; // the record, from the defaults
    int clockStepMs = 0; // how far the steady clock moves at each reading
    // Why the read fails: the file is then "replaced" by defaults that the next read accepts, or
    // "kept"; the other words set the scene.
    const char *failure = "";
};

void prepare(const QString &failure, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (failure.contains(u"dangling"))
        QFile::link(path + u".gone"_s, path);
    if (failure.contains(u"fifo"))
        ::mkfifo(name.constData(), 0600);
    if (failure.contains(u"folder"))
        QDir().mkpath(path);
    if (failure.contains(u"unreadable"))
        ::chmod(name.constData(), 0);
    if (failure.contains(u"undeletable"))
        ::chmod(QFile::encodeName(FolderOfPath(path)).constData(), 0500);
}

const QByteArray Border123 =
    "CalendarBorderWidth=1\r\nCalendarBorderWidth=2\r\nCalendarBorderWidth=3\r\n";
const char Russian[] = "Language=Russian;FirstWeekDay=Monday;Clock12Hour=No";

using ReadSettingsTable = ::testing::TestWithParam<ReadRow>;

} // namespace

// A readable file gives true and exactly the record the rules say, and is left as it was. A file
// that cannot be read is removed and written afresh from defaults: a first run takes the system's
// language, but where no file could be removed the record keeps its own (here a word that is
// neither language, and so English).
TEST_P(ReadSettingsTable, GivesTheRecordTheRulesSay)
{
    const ReadRow &row = GetParam();
    if (skipAsRoot(row.name))
        GTEST_SKIP() << "root ignores permission bits";
    const QString failure = QString::fromLatin1(row.failure);
    SettingsFixture f;
    FakeClock clock;
    clock.steadyStep = std::chrono::milliseconds(row.clockStepMs);
    f.file.context().clock = &clock;
    f.file.context().isRussianSystem = [failure] { return failure.contains(u"russian"); };
    f.file.context().resolveColorScheme = [](const QString &c) {
        return c == u"Random" ? u"Pink"_s : c;
    };
    f.file.context().resolvePicture = [](const QString &c) {
        return c == u"Random" ? u"Waves"_s : c;
    };
    if (failure.contains(u"nodir"))
        f.file.context().settingsPath = f.dir.filePath(u"QLVCalendarLite/qlvcal.ini"_s);
    ASSERT_TRUE(row.content.isNull() || writeBytes(f.path(), row.content));
    prepare(failure, f.path());
    f.file.SetDefaultSettings();
    if (!failure.isEmpty()) {
        f.settings.Language = u"German"_s;
        f.settings.CalendarBorderWidth = f.settings.ShadowOffset = 0;
    }
    EXPECT_EQ(f.file.ReadSettings(), failure.isEmpty());
    EXPECT_EQ(fields(f), expected(row.changes));
    if (failure.isEmpty()) {
        EXPECT_EQ(readBytes(f.path()), row.content);
        EXPECT_EQ(f.settings.VersionText + QString::number(f.settings.ShadowOffset), u"1.0.165"_s);
        return;
    }
    EXPECT_EQ(f.settings.VersionText + QString::number(f.settings.ShadowOffset), u"0"_s)
        << "set on the success path only";
    EXPECT_EQ(readBytes(f.path()) == f.file.fileContents(), failure.contains(u"replaced"));
    EXPECT_EQ(f.file.ReadSettings(), failure.contains(u"replaced"));
    // The schemes and pictures in force come from the fresh file now.
    EXPECT_EQ(fields(f).section(u' ', 0, 9), expected(row.changes).section(u' ', 0, 9));
    EXPECT_EQ(folderEntries(FolderOfPath(f.path())), OnlyTheSettingsFile);
    ::chmod(QFile::encodeName(f.dir.path()).constData(), 0700);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, ReadSettingsTable, ::testing::Values(
    ReadRow { "Empty", "", "" },
    ReadRow { "OnlyRussianKeepsSunday", "Language=Russian", "Language=Russian" },
    ReadRow { "LanguageIsCaseSensitive", "Language=russian", "" },
    ReadRow { "BorderSevenIsThree", "CalendarBorderWidth=7", "CalendarBorderWidth=3" },
    ReadRow { "BorderMinusOneIsZero", "CalendarBorderWidth=-1", "CalendarBorderWidth=0" },
    ReadRow { "BorderHalfUpToEven", "CalendarBorderWidth=1.5", "CalendarBorderWidth=2" },
    ReadRow { "LeftHalfDownToEven", "CalendarLeft=100.5", "CalendarLeft=100" },
    ReadRow { "LeftZeroIs45", "CalendarLeft=0", "CalendarLeft=45" },
    ReadRow { "LeftBeyondTheScreen", "CalendarLeft=999999", "CalendarLeft=20430" },
    ReadRow { "TopBeyondTheScreen", "CalendarTop=1e6", "CalendarTop=11955" },
    ReadRow { "TopmostCapitals", "CalendarTopmost=YES", "CalendarTopmost=Yes" },
    ReadRow { "CentreAnyCase", "CalendarAlignToCenter=nO\r\nCalendarAlignToCenter=yEs", "CalendarAlignToCenter=Yes" },
    ReadRow { "CentreOtherWordIsNo", "CalendarAlignToCenter=Yess\r\nCalendarTopmost=", "" },
    ReadRow { "SchemeIsCaseSensitive", "ColorScheme=black", "CurrentColorScheme=Blue;PreviousColorScheme=Blue" },
    ReadRow { "PreviousSchemeIsTheFirst", "ColorScheme=Random\r\nColorScheme=GrayScale",
              "ColorScheme=GrayScale;CurrentColorScheme=GrayScale;PreviousColorScheme=Pink" },
    ReadRow { "PictureUnknownIsNone", "CalendarPicture=sky", "CalendarPicture=None;CurrentPicture=None;PreviousPicture=None" },
    ReadRow { "PictureRandomIsDrawn", "CalendarPicture=Random",
              "CalendarPicture=Random;CurrentPicture=Waves;PreviousPicture=Waves" },
    ReadRow { "WeekDayUnknownIsMonday", "FirstWeekDay=Friday", "FirstWeekDay=Monday" },
    ReadRow { "KeyAnywhereInAnyCase", "junk before LANGUAGE=Russian", "Language=Russian" },
    ReadRow { "ValueAfterTheFirstEquals", "Language=Russian=1", "" },
    ReadRow { "BlanksAroundTheValue", "Language=  Russian  ", "Language=Russian" },
    ReadRow { "TabIsNotABlank", "Language=\tRussian", "" },
    ReadRow { "EarlierKeyTakesTheLine", "CalendarTop=5 Language=Russian", "" },
    ReadRow { "LastValueWins", "Language=Russian\r\nLanguage=English\r\n", "" },
    ReadRow { "OtherLinesIgnored", "; a\r\n[Other]\r\nno equals\r\nUnknown=1\r\n", "" },
    // The clock is read at the start and before each line after the first: six lines are
    // read before 10 s steps reach 52 s, four before 13 s steps reach it exactly.
    ReadRow { "DeadlineTenSecondsALine", Border123.repeated(3), "CalendarBorderWidth=3", 10000 },
    ReadRow { "DeadlineReachedExactly", Border123.repeated(3), "CalendarBorderWidth=1", 13000 },
    ReadRow { "DeadlineAmongOtherLines",
              QByteArray(Border123).replace("\r\n", "\r\n" + QByteArray("-\r\n").repeated(700)), "CalendarBorderWidth=1", 5000 },
    ReadRow { "Missing", {}, "", 0, "replaced" },
    ReadRow { "MissingOnARussianSystem", {}, Russian, 0, "replaced russian" },
    ReadRow { "MissingFolder", {}, "", 0, "replaced nodir" },
    ReadRow { "NumberOverflow", "CalendarBorderWidth=1\r\nCalendarLeft=1e400", "", 0, "replaced" },
    ReadRow { "DanglingSymlink", {}, "", 0, "replaced dangling" },
    ReadRow { "Fifo", {}, "", 0, "replaced fifo" },
    ReadRow { "Folder", {}, Russian, 0, "kept folder russian" },
    ReadRow { "UnprivilegedUnreadable", "x", Russian, 0, "replaced unreadable russian" },
    ReadRow { "UnprivilegedUndeletable", "x", "", 0, "kept unreadable undeletable russian" }),
    rowName);
// clang-format on
