#include "app/SettingsFolder.h"

#include "TestSupport.h"

#include <QFileInfo>

#include <map>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace testsupport;

namespace {

// Paths in the rows are relative to a temporary root; "{root}" stands for it inside values.
struct FolderRow
{
    const char *name;
    std::map<std::string, std::string> env; // absent = unset
    const char *fallbackHome; // "" = the password database knows no home
    std::function<void(const QString &root)> prepare;
    const char *expected; // relative to the root; "program/" is the program folder
};

QString expand(const std::string &value, const QString &root)
{
    return QString::fromStdString(value).replace(QStringLiteral("{root}"), root);
}

mode_t modeOf(const QString &path)
{
    struct stat st
    { };
    ::stat(QFile::encodeName(path).constData(), &st);
    return st.st_mode & 0777;
}

class SettingsFolderTable : public ::testing::TestWithParam<FolderRow>
{
protected:
    void SetUp() override
    {
        root = dir.path();
        QDir(root).mkpath(QStringLiteral("program"));
        QDir(root).mkpath(QStringLiteral("home"));
        if (GetParam().prepare)
            GetParam().prepare(root);
    }
    QString choose()
    {
        FolderEnvironment env;
        env.programFolder = root + QStringLiteral("/program/");
        const auto vars = GetParam().env;
        const QString r = root;
        env.getEnv = [vars, r](const char *name) {
            const auto it = vars.find(name);
            return it == vars.end() ? QByteArray() : QFile::encodeName(expand(it->second, r));
        };
        env.fallbackHome = expand(GetParam().fallbackHome, root);
        return GetSettingsFolder(env);
    }
    QTemporaryDir dir;
    QString root;
};

void touch(const QString &path)
{
    writeBytes(path, "x");
}

} // namespace

TEST_P(SettingsFolderTable, ChoosesAndCreatesTheFolder)
{
    const QString folder = choose();
    EXPECT_EQ(folder, root + QLatin1Char('/') + QString::fromLatin1(GetParam().expected));
    EXPECT_TRUE(QFileInfo(folder).isDir());
    EXPECT_TRUE(folder.endsWith(QLatin1Char('/')));
}

INSTANTIATE_TEST_SUITE_P(
    Environments, SettingsFolderTable,
    ::testing::Values(
        FolderRow { "XdgAbsolute",
                    { { "XDG_CONFIG_HOME", "{root}/xdg" }, { "HOME", "{root}/home" } },
                    "",
                    [](const QString &r) { QDir(r).mkpath(QStringLiteral("xdg")); },
                    "xdg/QLVCalendarLite/" },
        FolderRow { "XdgUnset",
                    { { "HOME", "{root}/home" } },
                    "",
                    nullptr,
                    "home/.config/QLVCalendarLite/" },
        FolderRow { "XdgEmpty",
                    { { "XDG_CONFIG_HOME", "" }, { "HOME", "{root}/home" } },
                    "",
                    nullptr,
                    "home/.config/QLVCalendarLite/" },
        FolderRow { "XdgRelativeIsIgnored",
                    { { "XDG_CONFIG_HOME", "relative/cfg" }, { "HOME", "{root}/home" } },
                    "",
                    nullptr,
                    "home/.config/QLVCalendarLite/" },
        FolderRow { "HomeUnsetUsesTheAccountsHome",
                    {},
                    "{root}/home",
                    nullptr,
                    "home/.config/QLVCalendarLite/" },
        FolderRow { "HomeRelativeUsesTheAccountsHome",
                    { { "HOME", "home" } },
                    "{root}/home",
                    nullptr,
                    "home/.config/QLVCalendarLite/" },
        FolderRow { "NoHomeAtAll", {}, "", nullptr, "program/" },
        FolderRow { "MissingXdgFolderAndParentsCreated",
                    { { "XDG_CONFIG_HOME", "{root}/a/b/xdg" } },
                    "",
                    nullptr,
                    "a/b/xdg/QLVCalendarLite/" },
        FolderRow { "ConfigFolderIsAFile",
                    { { "HOME", "{root}/home" } },
                    "",
                    [](const QString &r) { touch(r + QStringLiteral("/home/.config")); },
                    "program/" },
        FolderRow { "SettingsFolderIsAFile",
                    { { "HOME", "{root}/home" } },
                    "",
                    [](const QString &r) {
                        QDir(r).mkpath(QStringLiteral("home/.config"));
                        touch(r + QStringLiteral("/home/.config/QLVCalendarLite"));
                    },
                    "program/" },
        FolderRow { "FileBesideTheProgramWins",
                    { { "XDG_CONFIG_HOME", "{root}/xdg" } },
                    "",
                    [](const QString &r) {
                        QDir(r).mkpath(QStringLiteral("xdg"));
                        touch(r + QStringLiteral("/program/qlvcal.ini"));
                    },
                    "program/" },
        FolderRow { "FolderNamedLikeTheFileBesideTheProgramDoesNot",
                    { { "XDG_CONFIG_HOME", "{root}/xdg" } },
                    "",
                    [](const QString &r) { QDir(r).mkpath(QStringLiteral("program/qlvcal.ini")); },
                    "xdg/QLVCalendarLite/" }),
    [](const ::testing::TestParamInfo<FolderRow> &p) { return std::string(p.param.name); });

TEST(SettingsFolderModes, AMissingBaseIsCreatedPrivate)
{
    QTemporaryDir dir;
    const QString root = dir.path();
    FolderEnvironment env;
    env.programFolder = root + QStringLiteral("/");
    env.getEnv = [&](const char *name) {
        return QByteArray(name) == "HOME" ? QFile::encodeName(root) : QByteArray();
    };
    const mode_t oldMask = ::umask(022);
    const QString folder = GetSettingsFolder(env);
    ::umask(oldMask);
    EXPECT_EQ(folder, root + QStringLiteral("/.config/QLVCalendarLite/"));
    EXPECT_EQ(modeOf(root + QStringLiteral("/.config")), 0700U);
}

TEST(SettingsFolderModes, DeepMissingXdgFoldersAreAllPrivate)
{
    QTemporaryDir dir;
    const QString root = dir.path();
    FolderEnvironment env;
    env.programFolder = root + QStringLiteral("/");
    env.getEnv = [&](const char *name) {
        return QByteArray(name) == "XDG_CONFIG_HOME"
            ? QFile::encodeName(root + QStringLiteral("/a/b"))
            : QByteArray();
    };
    GetSettingsFolder(env);
    EXPECT_EQ(modeOf(root + QStringLiteral("/a")), 0700U);
    EXPECT_EQ(modeOf(root + QStringLiteral("/a/b")), 0700U);
}

namespace {

struct LocaleRow
{
    std::map<std::string, std::string> env;
    bool russian;
};

class IsRussianSystemTable : public ::testing::TestWithParam<LocaleRow>
{ };

} // namespace

TEST_P(IsRussianSystemTable, FollowsTheMessagesLocale)
{
    const auto vars = GetParam().env;
    const auto getEnv = [&vars](const char *name) {
        const auto it = vars.find(name);
        return it == vars.end() ? QByteArray() : QByteArray::fromStdString(it->second);
    };
    EXPECT_EQ(IsRussianSystem(getEnv), GetParam().russian);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, IsRussianSystemTable,
    ::testing::Values(
        LocaleRow { { { "LANG", "ru_RU.UTF-8" } }, true }, LocaleRow { { { "LANG", "ru" } }, true },
        LocaleRow { { { "LANG", "ru_UA.KOI8-U" } }, true },
        LocaleRow { { { "LANG", "ru@euro" } }, true },
        LocaleRow { { { "LANG", "RU_RU.UTF-8" } }, true },
        LocaleRow { { { "LANG", "en_US.UTF-8" } }, false },
        LocaleRow { { { "LANG", "rue_UA" } }, false }, LocaleRow { { { "LANG", "C" } }, false },
        LocaleRow { {}, false },
        LocaleRow { { { "LANG", "en_US.UTF-8" }, { "LC_MESSAGES", "ru_RU.UTF-8" } }, true },
        LocaleRow { { { "LANG", "ru_RU.UTF-8" }, { "LC_MESSAGES", "de_DE" } }, false },
        LocaleRow { { { "LC_ALL", "en_GB" }, { "LC_MESSAGES", "ru_RU" } }, false },
        LocaleRow { { { "LC_ALL", "" }, { "LANG", "ru_RU" } }, true }));

namespace {

// Run only as an unprivileged user: root writes wherever it likes. ctest runs this suite again
// through setpriv when it runs as root.
class UnprivilegedPermissions : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (::geteuid() == 0)
            GTEST_SKIP() << "root ignores permission bits; the unprivileged run covers this";
    }
};

} // namespace

TEST_F(UnprivilegedPermissions, AnUnwritableConfigFolderFallsBackToTheProgramFolder)
{
    QTemporaryDir dir;
    const QString root = dir.path();
    QDir(root).mkpath(QStringLiteral("home/.config"));
    QDir(root).mkpath(QStringLiteral("program"));
    ::chmod(QFile::encodeName(root + QStringLiteral("/home/.config")).constData(), 0500);
    FolderEnvironment env;
    env.programFolder = root + QStringLiteral("/program/");
    env.getEnv = [&](const char *name) {
        return QByteArray(name) == "HOME" ? QFile::encodeName(root + QStringLiteral("/home"))
                                          : QByteArray();
    };
    EXPECT_EQ(GetSettingsFolder(env), root + QStringLiteral("/program/"));
    ::chmod(QFile::encodeName(root + QStringLiteral("/home/.config")).constData(), 0700);
}

TEST_F(UnprivilegedPermissions, AnUnreadableFileIsReplacedByDefaults)
{
    SettingsFixture f;
    ASSERT_TRUE(writeBytes(f.path(), "Language=Russian\r\n"));
    ::chmod(QFile::encodeName(f.path()).constData(), 0);
    f.file.SetDefaultSettings();
    EXPECT_FALSE(f.file.ReadSettings());
    EXPECT_EQ(readBytes(f.path()), f.file.fileContents());
    EXPECT_TRUE(f.file.ReadSettings());
    EXPECT_EQ(f.settings.Language, QStringLiteral("English"));
}

TEST_F(UnprivilegedPermissions, AReadOnlyFolderLeavesTheOldFile)
{
    SettingsFixture f;
    ASSERT_TRUE(writeBytes(f.path(), "Language=Russian\r\n"));
    ::chmod(QFile::encodeName(f.dir.path()).constData(), 0500);
    f.file.SetDefaultSettings();
    EXPECT_FALSE(f.file.WriteSettings());
    EXPECT_FALSE(f.file.UpdateSettingsKeys(f.path(), { { QStringLiteral("CalendarTop="), 1 } }));
    ::chmod(QFile::encodeName(f.dir.path()).constData(), 0700);
    EXPECT_EQ(readBytes(f.path()), QByteArray("Language=Russian\r\n"));
    EXPECT_EQ(folderEntries(f.dir.path()), QStringList { QStringLiteral("qlvcal.ini") });
}

TEST_F(UnprivilegedPermissions, AFileThatCannotBeDeletedKeepsTheLanguage)
{
    SettingsFixture f;
    ASSERT_TRUE(writeBytes(f.path(), "Language=Russian\r\n"));
    ::chmod(QFile::encodeName(f.path()).constData(), 0);
    ::chmod(QFile::encodeName(f.dir.path()).constData(), 0500);
    f.file.context().isRussianSystem = [] { return true; };
    f.settings.Language = QStringLiteral("English");
    f.file.SetDefaultSettings();
    EXPECT_FALSE(f.file.ReadSettings());
    EXPECT_EQ(f.settings.Language, QStringLiteral("English"));
    ::chmod(QFile::encodeName(f.dir.path()).constData(), 0700);
    ::chmod(QFile::encodeName(f.path()).constData(), 0600);
    EXPECT_EQ(readBytes(f.path()), QByteArray("Language=Russian\r\n"));
}
