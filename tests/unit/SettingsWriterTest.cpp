#include "TestSupport.h"
#include "app/AtomicFile.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <thread>

using namespace testsupport;

TEST(WriteSettings, TheThirteenLinesExactly)
{
    SettingsFixture f;
    f.file.SetDefaultSettings();
    f.settings.Language = u"Russian"_s;
    f.settings.ColorScheme = f.settings.CalendarPicture = u"Random"_s;
    f.settings.CurrentColorScheme = f.settings.CurrentPicture = u"Pink"_s;
    f.settings.CalendarLeft = -15;
    f.settings.CalendarTop = 0;
    f.settings.CalendarTopmost = u"Yes"_s;
    ASSERT_TRUE(f.file.WriteSettings());
    EXPECT_EQ(readBytes(f.path()),
              "Don't change this file by hand! Some incorrect changes may crash the program.\r\n"
              "\r\n[Appearance]\r\n\r\nLanguage=Russian\r\nColorScheme=Random\r\n"
              "FirstWeekDay=Sunday\r\nCalendarBorderWidth=2\r\nCalendarPicture=Random\r\n"
              "CalendarLeft=-15\r\nCalendarTop=0\r\nCalendarAlignToCenter=No\r\n"
              "CalendarTopmost=Yes\r\n");
    EXPECT_EQ(folderEntries(f.dir.path()), OnlyTheSettingsFile);
}

// With no folder to keep the settings in, the calendar runs on defaults and writes nothing, not
// even into the folder it was started from.
TEST(WriteSettings, NothingWithoutAPath)
{
    SettingsFixture f;
    f.file.context().settingsPath.clear();
    const QString cwd = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(f.dir.path()));
    f.file.context().isRussianSystem = [] { return false; };
    EXPECT_FALSE(f.file.ReadSettings());
    EXPECT_FALSE(f.file.WriteSettings());
    QDir::setCurrent(cwd);
    EXPECT_EQ(f.settings.Language, u"English"_s);
    EXPECT_TRUE(folderEntries(f.dir.path()).isEmpty());
}

namespace {

using SaveTable = ::testing::TestWithParam<std::tuple<bool, const char *>>;

// Both saves, the whole file and the position lines. Whatever call fails, the old file stays byte
// for byte and no temporary file is left. A read-only file is replaced and made writable again, a
// symlinked one is updated at its target, and nothing is written through a link planted at a
// temporary name.
TEST_P(SaveTable, LandsInTheRightFileOrLeavesTheOldOne)
{
    const auto [keysOnly, target] = GetParam();
    SettingsFixture f;
    QTemporaryDir elsewhere;
    FailingFileOps ops(target);
    f.file.context().fileOps = &ops;
    const bool fails = !QByteArrayList { "readonly", "symlinked", "trap" }.contains(target);
    const QString victim = elsewhere.filePath(u"victim"_s);
    const QString real = target == "symlinked"sv ? elsewhere.filePath(u"real"_s) : f.path();
    const QByteArray old = "CalendarLeft=500\r\n" + QByteArray(100000, '#'); // several writes
    ASSERT_TRUE(writeBytes(real, old) && writeBytes(victim, "precious"));
    ASSERT_TRUE(target != "symlinked"sv || QFile::link(real, f.path()));
    for (const QString &temp : { u"settings.tmp"_s, u"qlvcal.tmp"_s })
        ASSERT_TRUE(target != "trap"sv || QFile::link(victim, f.dir.filePath(temp)));
    ::chmod(QFile::encodeName(real).constData(), target == "readonly"sv ? 0444 : 0644);
    f.file.SetDefaultSettings();
    EXPECT_EQ(keysOnly ? f.file.UpdateSettingsKeys(f.path(), { { u"CalendarLeft="_s, 1 } })
                       : f.file.WriteSettings(),
              !fails);
    EXPECT_EQ(readBytes(real).left(18),
              fails          ? "CalendarLeft=500\r\n"
                  : keysOnly ? "CalendarLeft=1\r\n##"
                             : "Don't change this ");
    EXPECT_EQ(readBytes(victim), "precious");
    EXPECT_EQ(QFileInfo(f.path()).isSymLink(), target == "symlinked"sv);
    EXPECT_EQ((QFile::permissions(real) & 0x7077).toInt(), 0x6044); // the owner's bits: rw-r--r--
    EXPECT_EQ(folderEntries(f.dir.path()).size() + folderEntries(elsewhere.path()).size(),
              target == "symlinked"sv || target == "trap"sv ? 3U : 2U);
}

INSTANTIATE_TEST_SUITE_P(Saves, SaveTable,
                         ::testing::Combine(::testing::Bool(),
                                            ::testing::Values("create", "write", "short", "fsync",
                                                              "close", "rename", "readonly",
                                                              "symlinked", "trap")));

// Two running copies saving at the same moment: the second waits for the first one's temporary
// file instead of removing it, or the first would rename the second's half-written file into
// place and the second would find nothing to rename.
TEST(AtomicWriter, TwoCopiesSavingAtOnceBothSucceedInTurn)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(u"qlvcal.ini"_s);
    AtomicFile::Writer first(target, u"settings.tmp"_s, FileOps::system());
    ASSERT_TRUE(first.open() && first.write("first copy"));
    bool secondSaved = false;
    std::thread second([&] {
        secondSaved =
            AtomicFile::write(target, u"settings.tmp"_s, "second copy", FileOps::system());
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_TRUE(first.commit());
    second.join();
    EXPECT_TRUE(secondSaved);
    EXPECT_EQ(readBytes(target), "second copy");
    EXPECT_EQ(folderEntries(dir.path()), OnlyTheSettingsFile);
}

struct KeyUpdateRow
{
    const char *name;
    QByteArray before; // null: no file
    QByteArray after;
    int clockStepMs = 0;
};

using UpdateKeysTable = ::testing::TestWithParam<KeyUpdateRow>;

const QByteArray FiveLines = "a\r\nb\r\nCalendarTop=1\r\nc\r\nd\r\n";

} // namespace

// Only the key lines change; a file that is missing stays missing, and a copy that runs out of
// time leaves the old file whole.
TEST_P(UpdateKeysTable, RewritesOnlyTheKeyLines)
{
    const KeyUpdateRow &row = GetParam();
    SettingsFixture f;
    FakeClock clock;
    clock.steadyStep = std::chrono::milliseconds(row.clockStepMs);
    f.file.context().clock = &clock;
    ASSERT_TRUE(row.before.isNull() || writeBytes(f.path(), row.before));
    EXPECT_EQ(f.file.UpdateSettingsKeys(
                  f.path(), { { u"CalendarLeft="_s, -30 }, { u"CalendarTop="_s, 4500 } }),
              row.before != row.after);
    EXPECT_EQ(readBytes(f.path()), row.after);
    EXPECT_EQ(folderEntries(f.dir.path()),
              row.before.isNull() ? QStringList() : OnlyTheSettingsFile);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, UpdateKeysTable, ::testing::Values(
    KeyUpdateRow { "OthersKeptKeysAnywhereInAnyCase",
                   "Language=Russian\r\nx calendarleft=7 y\r\nColorScheme=Pink\r\nCALENDARTOP=\r\n",
                   "Language=Russian\r\nCalendarLeft=-30\r\nColorScheme=Pink\r\nCalendarTop=4500\r\n" },
    KeyUpdateRow { "LineEndsBecomeCrLf", "a\nCalendarTop=1\rb", "a\r\nCalendarTop=4500\r\nb\r\n" },
    KeyUpdateRow { "LongLineCopiedWhole", QByteArray(100000, 'z') + "\r\nCalendarTop=1",
                   QByteArray(100000, 'z') + "\r\nCalendarTop=4500\r\n" },
    KeyUpdateRow { "MissingFileNotCreated", QByteArray(), QByteArray() },
    KeyUpdateRow { "InTime", FiveLines, "a\r\nb\r\nCalendarTop=4500\r\nc\r\nd\r\n", 1000 },
    // 2 s a line: the 5 s deadline passes after the third of five lines.
    KeyUpdateRow { "DeadlineLeavesTheOldFile", FiveLines, FiveLines, 2000 }),
    rowName);
// clang-format on
