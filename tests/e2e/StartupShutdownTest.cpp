#include "E2eHarness.h"

#include <csignal>
#include <filesystem>

using namespace e2e;

namespace {

struct FirstRunRow
{
    const char *name;
    Environment env;
    const char *language;
    const char *firstWeekDay;
};

class FirstRun : public E2eTest, public ::testing::WithParamInterface<FirstRunRow>
{ };

} // namespace

// The first run writes the settings file at once, before anyone closes the window, in the
// language of the user's locale.
TEST_P(FirstRun, CreatesTheFileAtStartInTheLocalesLanguage)
{
    const FirstRunRow &row = GetParam();
    ASSERT_FALSE(readSettings());
    ChildProcess &program = startProgram(row.env);
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty()) << "no window appeared";

    const auto text = readSettings();
    ASSERT_TRUE(text) << "no settings file at " << settingsPath();
    EXPECT_EQ(settingValue(*text, "Language="), row.language);
    EXPECT_EQ(settingValue(*text, "FirstWeekDay="), row.firstWeekDay);
    EXPECT_EQ(crlfLines(*text).size(), 13U);
    EXPECT_TRUE(program.running());
}

INSTANTIATE_TEST_SUITE_P(
    Locales, FirstRun,
    ::testing::Values(FirstRunRow { "English", { { "LANG", "en_US.UTF-8" } }, "English", "Sunday" },
                      FirstRunRow { "Russian", { { "LANG", "ru_RU.UTF-8" } }, "Russian", "Monday" },
                      FirstRunRow { "MessagesRussian",
                                    { { "LANG", "en_US.UTF-8" }, { "LC_MESSAGES", "ru_RU.UTF-8" } },
                                    "Russian",
                                    "Monday" },
                      FirstRunRow { "AllOverridesLang",
                                    { { "LANG", "ru_RU.UTF-8" }, { "LC_ALL", "en_US.UTF-8" } },
                                    "English",
                                    "Sunday" }),
    RowName());

namespace {

const std::string HandMade = "Language=Russian\r\n"
                             "ColorScheme=black\r\n"
                             "CalendarBorderWidth=7\r\n"
                             "CalendarLeft=1500\r\n"
                             "CalendarTop=1500\r\n";

struct QuitRow
{
    const char *name;
    const char *keys; // xdotool keys, or nullptr for the other ways to close below
    bool signal = false; // SIGTERM, as at the end of a session; else the window manager's close
};

class QuitKeys : public E2eTest, public ::testing::WithParamInterface<QuitRow>
{ };

} // namespace

// A clean run ends with the whole file rewritten from the record: the values read (7 clamped to
// 3, an unknown scheme replaced) and the position the window was moved to.
TEST_P(QuitKeys, CloseTheProgramAndRewriteTheWholeFile)
{
    writeSettings(HandMade);
    ChildProcess &program = startProgram();
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty());
    EXPECT_EQ(windowPosition(window), std::make_pair(100, 100));
    ASSERT_TRUE(moveWindow(window, 150, 90));
    if (GetParam().keys)
        ASSERT_TRUE(sendKeys(window, GetParam().keys));
    else if (GetParam().signal)
        ASSERT_EQ(::kill(program.pid(), SIGTERM), 0);
    else
        ASSERT_TRUE(closeLikeAWindowManager(window));
    EXPECT_EQ(program.waitForExit(10s), 0) << "the program did not end by itself";

    const auto text = readSettings();
    ASSERT_TRUE(text);
    const auto lines = crlfLines(*text);
    ASSERT_EQ(lines.size(), 13U) << *text;
    EXPECT_EQ(lines[0],
              "Don't change this file by hand! Some incorrect changes may crash the "
              "program.");
    EXPECT_EQ(settingValue(*text, "Language="), "Russian");
    EXPECT_EQ(settingValue(*text, "ColorScheme="), "Blue");
    EXPECT_EQ(settingValue(*text, "CalendarBorderWidth="), "3");
    EXPECT_EQ(settingValue(*text, "CalendarLeft="), "2250");
    EXPECT_EQ(settingValue(*text, "CalendarTop="), "1350");
}

INSTANTIATE_TEST_SUITE_P(Keys, QuitKeys,
                         ::testing::Values(QuitRow { "Escape", "Escape" },
                                           QuitRow { "AltQ", "alt+q" }, QuitRow { "AltX", "alt+x" },
                                           QuitRow { "WindowManagerClose", nullptr },
                                           QuitRow { "Sigterm", nullptr, true }),
                         RowName());

TEST_F(E2eTest, AFileEditedWhileRunningKeepsTheEditsButThePosition)
{
    writeSettings(HandMade);
    ChildProcess &program = startProgram();
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty());
    const std::string edited = "Language=English\r\n"
                               "ColorScheme=Green\r\n"
                               "CalendarBorderWidth=9\r\n"
                               "calendarleft=1\r\n"
                               "CalendarTop=1\r\n"
                               "my own line\r\n";
    writeSettings(edited);
    ASSERT_TRUE(moveWindow(window, 150, 90));
    ASSERT_TRUE(sendKeys(window, "Escape"));
    EXPECT_EQ(program.waitForExit(10s), 0);
    EXPECT_EQ(readSettings(),
              "Language=English\r\n"
              "ColorScheme=Green\r\n"
              "CalendarBorderWidth=9\r\n"
              "CalendarLeft=2250\r\n"
              "CalendarTop=1350\r\n"
              "my own line\r\n");
}

TEST_F(E2eTest, TheLanguageSwitchesOnTheCommandLineChangeNothing)
{
    writeSettings("Language=English\r\n");
    ChildProcess &program = startProgram({ { "LANG", "ru_RU.UTF-8" } }, {}, { "/rus" });
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty());
    ASSERT_TRUE(sendKeys(window, "Escape"));
    EXPECT_EQ(program.waitForExit(10s), 0);
    EXPECT_EQ(settingValue(readSettings().value_or(""), "Language="), "English");
}

namespace {

struct FullDiskRow
{
    const char *name;
    bool editWhileRunning; // the key update instead of the whole file
};

class FullDisk : public E2eTest, public ::testing::WithParamInterface<FullDiskRow>
{ };

} // namespace

// Every write to the temporary files fails with ENOSPC, as on a full disk: the program still
// ends normally, the settings file is exactly as it was and no temporary file is left.
TEST_P(FullDisk, LeavesTheOldFileIntact)
{
    writeSettings(HandMade);
    const std::vector<std::string> strace = {
        "strace",
        "-f",
        "-qq",
        "-o",
        "/dev/null",
        "-P",
        settingsFolder() + "/settings.tmp",
        "-P",
        settingsFolder() + "/qlvcal.tmp",
        "-e",
        "trace=write,writev,pwrite64",
        "-e",
        "inject=write,writev,pwrite64:error=ENOSPC",
    };
    ChildProcess &program = startProgram({}, strace);
    const std::string window = waitForWindow(program.pid(), 30s);
    ASSERT_FALSE(window.empty());
    std::string expected = HandMade;
    if (GetParam().editWhileRunning) {
        expected += "Edited=1\r\n";
        writeSettings(expected);
    }
    ASSERT_TRUE(moveWindow(window, 150, 90));
    ASSERT_TRUE(sendKeys(window, "Escape"));
    EXPECT_EQ(program.waitForExit(20s), 0);
    EXPECT_EQ(readSettings(), expected);
    EXPECT_FALSE(std::filesystem::exists(settingsFolder() + "/settings.tmp"));
    EXPECT_FALSE(std::filesystem::exists(settingsFolder() + "/qlvcal.tmp"));
}

INSTANTIATE_TEST_SUITE_P(Saves, FullDisk,
                         ::testing::Values(FullDiskRow { "WholeFile", false },
                                           FullDiskRow { "PositionOnly", true }),
                         RowName());

namespace {

struct FolderRow
{
    const char *name;
    Environment env;
    const char *settingsFile; // relative to the test's root
};

class ConfigFolders : public E2eTest, public ::testing::WithParamInterface<FolderRow>
{ };

} // namespace

// XDG_CONFIG_HOME that is unset, empty or relative means ~/.config, created private when
// missing, so a fresh account never writes beside the program.
TEST_P(ConfigFolders, TheFileLandsInTheUsersConfigFolder)
{
    ChildProcess &program = startProgram(GetParam().env);
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty());
    const std::string file = tempRoot() + '/' + GetParam().settingsFile;
    EXPECT_TRUE(std::filesystem::is_regular_file(file)) << file;
    EXPECT_FALSE(std::filesystem::exists(tempRoot() + "/bin/qlvcal.ini"));
    const auto base = std::filesystem::path(file).parent_path().parent_path();
    EXPECT_EQ(std::filesystem::status(base).permissions() & std::filesystem::perms::all,
              std::filesystem::perms::owner_all);
}

INSTANTIATE_TEST_SUITE_P(Environments, ConfigFolders,
                         ::testing::Values(FolderRow { "XdgUnset",
                                                       { { "XDG_CONFIG_HOME", "" } },
                                                       "home/.config/QLVCalendarLite/qlvcal.ini" },
                                           FolderRow { "XdgRelative",
                                                       { { "XDG_CONFIG_HOME", "relative/config" } },
                                                       "home/.config/QLVCalendarLite/qlvcal.ini" }),
                         RowName());
