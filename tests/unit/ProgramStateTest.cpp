#include "app/Program.h"

#include <gtest/gtest.h>

namespace {

struct LoadedRow
{
    const char *query;
    const char *loaded; // the name a window registered under, or nullptr
    bool expected;
};

class LoadedFlags : public ::testing::TestWithParam<LoadedRow>
{ };

} // namespace

// Without the forms list the answer comes from the flags, and only for the known windows.
TEST_P(LoadedFlags, AnswerFromTheFlags)
{
    Program program;
    if (GetParam().loaded)
        program.setFormLoaded(QString::fromLatin1(GetParam().loaded), true);
    EXPECT_EQ(program.IsFormLoaded(QString::fromLatin1(GetParam().query), false),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Names, LoadedFlags,
                         ::testing::Values(LoadedRow { "ViewForm", "VIEWFORM", true },
                                           LoadedRow { " viewform ", "ViewForm", true },
                                           LoadedRow { "Shadow", "SHADOW", true },
                                           LoadedRow { "ResourcesForm", "RESOURCESFORM", true },
                                           LoadedRow { "AboutForm", "VIEWFORM", false },
                                           LoadedRow { "ViewForm", nullptr, false },
                                           LoadedRow { "QLVForm", "QLVFORM", false },
                                           LoadedRow { "", "", false }));

TEST(LoadedFlagsLifecycle, UnloadClearsTheFlag)
{
    Program program;
    program.setFormLoaded(QStringLiteral("AboutForm"), true);
    program.setFormLoaded(QStringLiteral("ABOUTFORM"), false);
    EXPECT_FALSE(program.IsFormLoaded(QStringLiteral("AboutForm"), false));
    EXPECT_FALSE(program.IsFormLoaded(QStringLiteral("AboutForm"), true)) << "no windows here";
}

namespace {

struct QuitKeyRow
{
    int keyCode;
    int shift;
    bool closes;
};

class QuitKeys : public ::testing::TestWithParam<QuitKeyRow>
{ };

} // namespace

TEST_P(QuitKeys, AltQAndAltXClose)
{
    Program program;
    program.HandleQuitKeys(GetParam().keyCode, GetParam().shift);
    EXPECT_EQ(program.Closing, GetParam().closes);
}

INSTANTIATE_TEST_SUITE_P(Keys, QuitKeys,
                         ::testing::Values(QuitKeyRow { 81, 4, true }, QuitKeyRow { 88, 4, true },
                                           QuitKeyRow { 81, 4 | 1 | 2, true },
                                           QuitKeyRow { 88, 5, true }, QuitKeyRow { 81, 0, false },
                                           QuitKeyRow { 81, 1 | 2, false },
                                           QuitKeyRow { 87, 4, false },
                                           QuitKeyRow { 113, 4, false }));

TEST(ProgramPlatform, IsUnknownOnLinux)
{
    EXPECT_EQ(Program().GetOSPlatform(), QStringLiteral("Unknown"));
}
