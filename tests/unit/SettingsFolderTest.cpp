#include "app/SettingsFolder.h"

#include "TestSupport.h"
#include "app/FileUtils.h"

#include <QFileInfo>

using namespace testsupport;

namespace {

// "NAME=value NAME=value" with "{root}" for the test's folder; a name not listed is unset.
std::function<QByteArray(const char *)> environment(const char *vars, const QString &root)
{
    const QString text = QString::fromLatin1(vars).replace(u"{root}"_s, root);
    return [text](const char *name) {
        const QString prefix = QString::fromLatin1(name) + u'=';
        for (const QString &var : text.split(u' ', Qt::SkipEmptyParts))
            if (var.startsWith(prefix))
                return QFile::encodeName(var.mid(prefix.size()));
        return QByteArray();
    };
}

struct FolderRow
{
    const char *name;
    const char *prepare; // folders to make in the root after the program's; "file:" a file,
                         // "ro:" a read-only folder
    const char *expected; // the config base in the root that was chosen; "-": the program
                          // folder; "nowhere": no folder at all
    const char *env = "HOME={root}/h"; // "~" stands for the home the password database knows
    const char *madePrivate = ""; // folders that must have been created with mode 0700
    const char *program = "program"; // the program's folder; "sys/" stands for a system folder
};

using SettingsFolderTable = ::testing::TestWithParam<FolderRow>;

TEST_P(SettingsFolderTable, ChoosesAndCreatesTheFolder)
{
    const FolderRow &row = GetParam();
    if (skipAsRoot(row.name))
        GTEST_SKIP() << "root ignores permission bits";
    QTemporaryDir dir;
    const QString root = dir.path() + u'/';
    const QString program = root + QString::fromLatin1(row.program) + u'/';
    for (QString item : (QString::fromLatin1(row.program) + u' ' + QString::fromLatin1(row.prepare))
                            .split(u' ', Qt::SkipEmptyParts)) {
        const bool readOnly = item.startsWith(u"ro:");
        ASSERT_TRUE(item.startsWith(u"file:") ? writeBytes(root + item.mid(5), "x")
                                              : QDir(root).mkpath(item.remove(u"ro:"_s)));
        ::chmod(QFile::encodeName(root + item).constData(), readOnly ? 0500 : 0755);
    }
    const auto getEnv = environment(row.env, dir.path());
    const mode_t mask = ::umask(022);
    const QString folder = GetSettingsFolder(
        { program, getEnv, QFile::decodeName(getEnv("~")), { root + u"sys/"_s } });
    ::umask(mask);
    const QString expected = QString::fromLatin1(row.expected);
    EXPECT_EQ(folder,
              expected == u"-"             ? program
                  : expected == u"nowhere" ? QString()
                                           : root + expected + u"/QLVCalendarLite/"_s);
    EXPECT_EQ(QFileInfo(folder).isDir(), !folder.isEmpty());
    for (const QString &made : QString::fromLatin1(row.madePrivate).split(u' ', Qt::SkipEmptyParts))
        EXPECT_EQ((QFile::permissions(root + made) & 0x7077).toInt(), 0x7000) << made.toStdString();
    ::chmod(QFile::encodeName(program).constData(), 0755); // so that the scratch folder goes
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Environments, SettingsFolderTable, ::testing::Values(
    FolderRow { "Xdg", "xdg", "xdg", "XDG_CONFIG_HOME={root}/xdg" },
    FolderRow { "XdgUnset", "h", "h/.config", "HOME={root}/h", "h/.config" },
    FolderRow { "XdgRelativeIgnored", "h xdg", "h/.config", "XDG_CONFIG_HOME=xdg HOME={root}/h" },
    FolderRow { "HomeRelativeTakesTheAccountsHome", "home", "home/.config", "HOME=h ~={root}/home" },
    FolderRow { "NoHomeAtAll", "", "-", "HOME=h" },
    FolderRow { "MissingParentsMadePrivate", "", "a/b", "XDG_CONFIG_HOME={root}/a/b", "a a/b" },
    FolderRow { "ConfigIsAFile", "h file:h/.config", "-" },
    FolderRow { "SettingsFolderIsAFile", "h/.config file:h/.config/QLVCalendarLite", "-" },
    FolderRow { "FileBesideTheProgramWins", "h file:program/qlvcal.ini", "-" },
    FolderRow { "FolderBesideTheProgramDoesNot", "h program/qlvcal.ini", "h/.config" },
    FolderRow { "UnprivilegedConfigUnwritable", "ro:h/.config", "-" },
    // An installed program is not a portable install, whoever runs it.
    FolderRow { "SystemFolderIgnoresAFileBesideIt", "h file:sys/bin/qlvcal.ini", "h/.config", "HOME={root}/h", "", "sys/bin" },
    FolderRow { "SystemFolderIsNoFallback", "", "nowhere", "HOME=h", "", "sys/bin" },
    FolderRow { "SystemFolderNeighbourIsPortable", "h file:system/qlvcal.ini", "-", "HOME={root}/h", "", "system" },
    FolderRow { "UnprivilegedUnwritableProgramFolderIgnored", "h file:p/qlvcal.ini ro:p", "h/.config", "HOME={root}/h", "", "p" },
    FolderRow { "UnprivilegedUnwritableProgramFolderIsNoFallback", "ro:p", "nowhere", "HOME=h", "", "p" }),
    rowName);
// clang-format on

// The folders that packages install into are never portable, even for root who may write there.
TEST(PortableProgramFolder, NeverInASystemFolder)
{
    FolderEnvironment env;
    for (const char *folder : { "/usr/bin/", "/usr/local/bin/", "/bin/", "/opt/qlvcallt/bin/" }) {
        env.programFolder = QString::fromLatin1(folder);
        EXPECT_FALSE(isPortableProgramFolder(env)) << folder;
    }
    QTemporaryDir dir;
    env.programFolder = dir.path() + u'/';
    EXPECT_TRUE(isPortableProgramFolder(env));
}

// The messages locale decides: the first set of LC_ALL, LC_MESSAGES and LANG.
TEST(IsRussianSystem, FollowsTheMessagesLocale)
{
    for (const char *russian : { "LANG=ru_RU.UTF-8", "LANG=ru@euro", "LANG=RU_RU",
                                 "LANG=en LC_MESSAGES=ru", "LC_ALL= LANG=ru_RU" })
        EXPECT_TRUE(IsRussianSystem(environment(russian, {}))) << russian;
    for (const char *other : { "LANG=en_US.UTF-8", "LANG=rue_UA", "", "LANG=ru LC_MESSAGES=de_DE",
                               "LC_ALL=en_GB LC_MESSAGES=ru" })
        EXPECT_FALSE(IsRussianSystem(environment(other, {}))) << other;
}

struct EntryRow
{
    const char *name;
    const char *path; // in a folder holding the file ".hidden" (bytes 255 and 65), the folder "d"
                      // and the FIFO "p"
    bool file;
    bool folder;
    std::int32_t sum; // of a regular file at exactly that path only
};

using ExistenceTable = ::testing::TestWithParam<EntryRow>;

} // namespace

TEST_P(ExistenceTable, FilesFoldersAndNothing)
{
    QTemporaryDir dir;
    writeBytes(dir.filePath(u".hidden"_s), "\xFF\x41");
    QDir(dir.path()).mkdir(u"d"_s);
    ::mkfifo(QFile::encodeName(dir.filePath(u"p"_s)).constData(), 0600);
    const QString path = QString::fromLatin1(GetParam().path).replace(u"{dir}"_s, dir.path());
    EXPECT_EQ(FileExists(path), GetParam().file);
    EXPECT_EQ(FolderExists(path), GetParam().folder);
    EXPECT_EQ(FileSum(path), GetParam().sum);
}

INSTANTIATE_TEST_SUITE_P(Paths, ExistenceTable,
                         ::testing::Values(EntryRow { "HiddenFile", "{dir}/.hidden", true, false,
                                                      255 + 65 },
                                           EntryRow { "Folder", "{dir}/d/", false, true, 0 },
                                           EntryRow { "Fifo", "{dir}/p", true, false, 0 },
                                           EntryRow { "Missing", "{dir}/x", false, false, 0 }),
                         rowName);
