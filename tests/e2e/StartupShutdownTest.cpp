#include "E2eHarness.h"

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
