#include "TestSupport.h"
#include "app/AtomicFile.h"

#include <QFileInfo>

#include <functional>
#include <sys/stat.h>
#include <thread>

using namespace testsupport;

TEST(WriteSettingsBytes, TheThirteenLinesExactly)
{
    SettingsFixture f;
    f.file.SetDefaultSettings();
    f.settings.Language = QStringLiteral("Russian");
    f.settings.ColorScheme = QStringLiteral("Random");
    f.settings.CurrentColorScheme = QStringLiteral("Pink");
    f.settings.CalendarPicture = QStringLiteral("Random");
    f.settings.CurrentPicture = QStringLiteral("Stars");
    f.settings.CalendarLeft = -15;
    f.settings.CalendarTop = 0;
    f.settings.CalendarTopmost = QStringLiteral("Yes");
    ASSERT_TRUE(f.file.WriteSettings());
    EXPECT_EQ(readBytes(f.path()),
              QByteArray("Don't change this file by hand! Some incorrect changes may crash the "
                         "program.\r\n"
                         "\r\n"
                         "[Appearance]\r\n"
                         "\r\n"
                         "Language=Russian\r\n"
                         "ColorScheme=Random\r\n"
                         "FirstWeekDay=Sunday\r\n"
                         "CalendarBorderWidth=2\r\n"
                         "CalendarPicture=Random\r\n"
                         "CalendarLeft=-15\r\n"
                         "CalendarTop=0\r\n"
                         "CalendarAlignToCenter=No\r\n"
                         "CalendarTopmost=Yes\r\n"));
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });
}

TEST(WriteSettingsBytes, DefaultsCentreTheWindowAndFollowTheLanguage)
{
    SettingsFixture f;
    f.settings.Language = QStringLiteral("Russian");
    f.file.context().screenWidthTwips = 1366 * TwipsPerPixel - 15; // 20475: an odd difference
    f.file.SetDefaultSettings();
    EXPECT_EQ(f.settings.CalendarLeft, 7238); // (20475 - 6000) / 2 = 7237.5, half to even
    EXPECT_EQ(f.settings.CalendarTop, 3952);
    EXPECT_EQ(f.settings.FirstWeekDay, QStringLiteral("Monday"));
    EXPECT_EQ(f.settings.Clock12Hour, QStringLiteral("No"));
    EXPECT_EQ(f.settings.AppTitleRussian, QStringLiteral("Календарь КЛВ Лайт"));
    f.settings.Language = QStringLiteral("German");
    f.file.SetDefaultSettings();
    EXPECT_EQ(f.settings.Language, QStringLiteral("English"));
    EXPECT_EQ(f.settings.FirstWeekDay, QStringLiteral("Sunday"));
    EXPECT_EQ(f.settings.Clock12Hour, QStringLiteral("Yes"));
}

TEST(WriteSettingsFolder, CreatesAMissingSettingsFolder)
{
    QTemporaryDir dir;
    Settings settings;
    SettingsContext context;
    context.settingsPath = dir.filePath(QStringLiteral("QLVCalendarLite/qlvcal.ini"));
    SettingsFile file(settings, context);
    file.SetDefaultSettings();
    ASSERT_TRUE(file.WriteSettings());
    EXPECT_EQ(readBytes(context.settingsPath), file.fileContents());
}

namespace {

using Failure = FailingFileOps::Failure;
using Save = std::function<bool(SettingsFile &, const QString &path)>;

struct FailureRow
{
    const char *name;
    Failure failure;
};

struct SaveKind
{
    const char *name;
    Save save;
};

const SaveKind WholeFile { "WriteSettings",
                           [](SettingsFile &f, const QString &) { return f.WriteSettings(); } };
const SaveKind KeysOnly { "UpdateSettingsKeys", [](SettingsFile &f, const QString &path) {
                             return f.UpdateSettingsKeys(path,
                                                         { { QStringLiteral("CalendarLeft="), 1 },
                                                           { QStringLiteral("CalendarTop="), 2 } });
                         } };

class SaveFailure : public ::testing::TestWithParam<std::tuple<SaveKind, FailureRow>>
{ };

} // namespace

// Whatever call fails, the old file stays byte for byte, no temporary file is left and the
// in-memory record is untouched.
TEST_P(SaveFailure, LeavesTheOldFileAndNoTemporaryFile)
{
    const auto &[kind, row] = GetParam();
    SettingsFixture f;
    FailingFileOps ops(row.failure);
    f.file.context().fileOps = &ops;
    const QByteArray old = "Language=Russian\r\nCalendarLeft=500\r\nCalendarTop=600\r\n"
        + QByteArray(100000, '#'); // longer than one write
    ASSERT_TRUE(writeBytes(f.path(), old));
    f.file.SetDefaultSettings();
    const QByteArray before = f.file.fileContents();

    EXPECT_FALSE(kind.save(f.file, f.path()));
    EXPECT_EQ(readBytes(f.path()), old);
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });
    EXPECT_EQ(f.file.fileContents(), before);
}

// The same saves succeed through the same seam when nothing fails (so the failures above are
// the seam's doing, not a broken save).
TEST_P(SaveFailure, SucceedsWhenNothingFails)
{
    const auto &kind = std::get<0>(GetParam());
    SettingsFixture f;
    FailingFileOps ops(Failure::None);
    f.file.context().fileOps = &ops;
    ASSERT_TRUE(writeBytes(f.path(), "CalendarLeft=500\r\n"));
    f.file.SetDefaultSettings();
    EXPECT_TRUE(kind.save(f.file, f.path()));
    EXPECT_NE(readBytes(f.path()), QByteArray("CalendarLeft=500\r\n"));
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });
}

INSTANTIATE_TEST_SUITE_P(
    EveryCall, SaveFailure,
    ::testing::Combine(
        ::testing::Values(WholeFile, KeysOnly),
        ::testing::Values(FailureRow { "Create", Failure::Create },
                          FailureRow { "Write", Failure::Write },
                          FailureRow { "ShortWriteThenDiskFull", Failure::ShortWriteThenFull },
                          FailureRow { "WriteReturnsZero", Failure::WriteReturnsZero },
                          FailureRow { "Fsync", Failure::Fsync },
                          FailureRow { "Close", Failure::Close },
                          FailureRow { "Rename", Failure::Rename })),
    [](const ::testing::TestParamInfo<std::tuple<SaveKind, FailureRow>> &p) {
        return std::string(std::get<0>(p.param).name) + '_' + std::get<1>(p.param).name;
    });

namespace {

class SaveTargets : public ::testing::TestWithParam<SaveKind>
{
protected:
    SettingsFixture f;
};

} // namespace

TEST_P(SaveTargets, AReadOnlyFileIsReplacedAndMadeWritable)
{
    ASSERT_TRUE(writeBytes(f.path(), "CalendarLeft=500\r\n"));
    ASSERT_EQ(::chmod(QFile::encodeName(f.path()).constData(), 0444), 0);
    f.file.SetDefaultSettings();
    EXPECT_TRUE(GetParam().save(f.file, f.path()));
    EXPECT_NE(readBytes(f.path()), QByteArray("CalendarLeft=500\r\n"));
    struct stat st
    { };
    ASSERT_EQ(::stat(QFile::encodeName(f.path()).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0644U);
}

TEST_P(SaveTargets, ASymlinkedFileIsUpdatedAtItsTarget)
{
    QTemporaryDir dotfiles;
    const QString real = dotfiles.filePath(QStringLiteral("qlvcal.ini"));
    ASSERT_TRUE(writeBytes(real, "CalendarLeft=500\r\n"));
    ASSERT_TRUE(QFile::link(real, f.path()));
    f.file.SetDefaultSettings();
    f.settings.CalendarLeft = 1;
    EXPECT_TRUE(GetParam().save(f.file, f.path()));
    EXPECT_TRUE(QFileInfo(f.path()).isSymLink());
    EXPECT_TRUE(readBytes(real).contains("CalendarLeft=1\r\n")) << readBytes(real).toStdString();
    EXPECT_EQ(folderEntries(dotfiles.path()), QStringList { QStringLiteral("qlvcal.ini") });
}

TEST_P(SaveTargets, NeverWritesThroughASymlinkAtTheTemporaryName)
{
    QTemporaryDir elsewhere;
    const QString victim = elsewhere.filePath(QStringLiteral("victim"));
    ASSERT_TRUE(writeBytes(victim, "precious"));
    ASSERT_TRUE(writeBytes(f.path(), "CalendarLeft=500\r\n"));
    for (const char *temp : { "settings.tmp", "qlvcal.tmp" })
        ASSERT_TRUE(QFile::link(victim, f.dir.filePath(QString::fromLatin1(temp))));
    f.file.SetDefaultSettings();
    EXPECT_TRUE(GetParam().save(f.file, f.path()));
    EXPECT_EQ(readBytes(victim), QByteArray("precious"));
    EXPECT_FALSE(QFileInfo(f.path()).isSymLink());
}

INSTANTIATE_TEST_SUITE_P(Saves, SaveTargets, ::testing::Values(WholeFile, KeysOnly),
                         [](const ::testing::TestParamInfo<SaveKind> &p) {
                             return std::string(p.param.name);
                         });

namespace {

// Puts a symlink back at the temporary name right after the writer removed the stale one it
// found there, as an attacker racing the save would: the exclusive create must refuse it.
class RacingFileOps : public FileOps
{
public:
    RacingFileOps(QByteArray victim)
        : m_victim(std::move(victim))
    { }
    int unlink(const QByteArray &path) override
    {
        const int result = FileOps::unlink(path);
        if (path.endsWith(".tmp"))
            ::symlink(m_victim.constData(), path.constData());
        return result;
    }

private:
    QByteArray m_victim;
};

} // namespace

TEST(AtomicWriter, RefusesASymlinkPlantedAfterTheCleanUp)
{
    QTemporaryDir dir;
    const QString victim = dir.filePath(QStringLiteral("victim"));
    const QString target = dir.filePath(QStringLiteral("qlvcal.ini"));
    ASSERT_TRUE(writeBytes(victim, "precious"));
    ASSERT_TRUE(writeBytes(target, "old"));
    ASSERT_TRUE(QFile::link(victim, dir.filePath(QStringLiteral("settings.tmp"))));
    RacingFileOps ops(QFile::encodeName(victim));
    EXPECT_FALSE(AtomicFile::write(target, QStringLiteral("settings.tmp"), "new", ops));
    EXPECT_EQ(readBytes(victim), QByteArray("precious"));
    EXPECT_EQ(readBytes(target), QByteArray("old"));
}

// Two running copies saving at the same moment: the second must wait for the first one's
// temporary file instead of removing it, or the first would rename the second's half-written
// file into place and the second's own save would find nothing to rename.
TEST(AtomicWriter, TwoCopiesSavingAtOnceBothSucceedInTurn)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("qlvcal.ini"));
    ASSERT_TRUE(writeBytes(target, "old"));
    AtomicFile::Writer first(target, QStringLiteral("settings.tmp"), FileOps::system());
    ASSERT_TRUE(first.open());
    ASSERT_TRUE(first.write("first copy"));

    bool secondSaved = false;
    std::thread second([&] {
        secondSaved = AtomicFile::write(target, QStringLiteral("settings.tmp"), "second copy",
                                        FileOps::system());
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_TRUE(first.commit());
    second.join();

    EXPECT_TRUE(secondSaved);
    EXPECT_EQ(readBytes(target), QByteArray("second copy"));
    EXPECT_FALSE(QFileInfo::exists(dir.filePath(QStringLiteral("settings.tmp"))));
}

namespace {

struct KeyUpdateRow
{
    const char *name;
    QByteArray before;
    QByteArray after;
};

class UpdateKeysTable : public ::testing::TestWithParam<KeyUpdateRow>
{ };

} // namespace

TEST_P(UpdateKeysTable, RewritesOnlyTheKeyLines)
{
    SettingsFixture f;
    ASSERT_TRUE(writeBytes(f.path(), GetParam().before));
    EXPECT_TRUE(f.file.UpdateSettingsKeys(
        f.path(),
        { { QStringLiteral("CalendarLeft="), -30 }, { QStringLiteral("CalendarTop="), 4500 } }));
    EXPECT_EQ(readBytes(f.path()), GetParam().after);
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });
}

INSTANTIATE_TEST_SUITE_P(
    Files, UpdateKeysTable,
    ::testing::Values(
        KeyUpdateRow { "OthersKept",
                       "Language=Russian\r\nCalendarLeft=1\r\nColorScheme=Pink\r\n"
                       "CalendarTop=2\r\n",
                       "Language=Russian\r\nCalendarLeft=-30\r\nColorScheme=Pink\r\n"
                       "CalendarTop=4500\r\n" },
        KeyUpdateRow { "KeyAnywhereAnyCase", "xx calendarleft=7 yy\r\nCALENDARTOP=\r\n",
                       "CalendarLeft=-30\r\nCalendarTop=4500\r\n" },
        KeyUpdateRow { "LineEndsBecomeCrLf", "a\nCalendarTop=1\rb",
                       "a\r\nCalendarTop=4500\r\nb\r\n" },
        KeyUpdateRow { "MissingKeysAreNotAdded", "Language=English\r\n", "Language=English\r\n" },
        KeyUpdateRow { "EmptyFile", "", "" },
        KeyUpdateRow { "LongLineCopiedWhole", QByteArray(100000, 'z') + "\r\nCalendarTop=1\r\n",
                       QByteArray(100000, 'z') + "\r\nCalendarTop=4500\r\n" }),
    [](const ::testing::TestParamInfo<KeyUpdateRow> &p) { return std::string(p.param.name); });

TEST(UpdateKeys, AMissingFileIsNotCreated)
{
    SettingsFixture f;
    EXPECT_FALSE(f.file.UpdateSettingsKeys(f.path(), { { QStringLiteral("CalendarLeft="), 1 } }));
    EXPECT_TRUE(folderEntries(f.dir.path()).isEmpty());
}

TEST(UpdateKeys, StopsCopyingAtTheDeadline)
{
    SettingsFixture f;
    SteppingClock clock { std::chrono::seconds(2) };
    f.file.context().clock = &clock;
    // Read at 0 s for the start, then after each line: 2 s, 4 s, 6 s: three lines are copied.
    ASSERT_TRUE(writeBytes(f.path(), "a\r\nb\r\nCalendarTop=1\r\nc\r\nd\r\n"));
    EXPECT_TRUE(f.file.UpdateSettingsKeys(f.path(), { { QStringLiteral("CalendarTop="), 9 } }));
    EXPECT_EQ(readBytes(f.path()), QByteArray("a\r\nb\r\nCalendarTop=9\r\n"));
}
