#include "app/FileUtils.h"

#include "TestSupport.h"

#include <QFileInfo>

using namespace testsupport;

namespace {

struct PathRow
{
    const char *input;
    const char *expected;
};

class StripTrailingSlashesTable : public ::testing::TestWithParam<PathRow>
{ };
class FolderOfPathTable : public ::testing::TestWithParam<PathRow>
{ };

} // namespace

TEST_P(StripTrailingSlashesTable, TrimsBlanksAndEverySlash)
{
    EXPECT_EQ(StripTrailingSlashes(QString::fromUtf8(GetParam().input)),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Paths, StripTrailingSlashesTable,
                         ::testing::Values(PathRow { "/a/b/", "/a/b" },
                                           PathRow { "/a/b///", "/a/b" },
                                           PathRow { "  /a/b/ ", "/a/b" },
                                           PathRow { "/a/b / ", "/a/b" }, PathRow { "/", "" },
                                           PathRow { "", "" }, PathRow { "a", "a" }));

TEST_P(FolderOfPathTable, ThePartBeforeTheLastSlash)
{
    EXPECT_EQ(FolderOfPath(QString::fromUtf8(GetParam().input)),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Paths, FolderOfPathTable,
                         ::testing::Values(PathRow { "/home/u/qlvcal.ini", "/home/u" },
                                           PathRow { "/qlvcal.ini", "/" },
                                           PathRow { "/a/b/", "/a/b" },
                                           PathRow { "qlvcal.ini", "" }));

namespace {

struct SumRow
{
    const char *name;
    QByteArray content;
    std::int32_t sum;
};

class FileSumTable : public ::testing::TestWithParam<SumRow>
{ };

} // namespace

TEST_P(FileSumTable, AddsEveryByteAsUnsigned)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("f"));
    ASSERT_TRUE(writeBytes(path, GetParam().content));
    EXPECT_EQ(FileSum(path), GetParam().sum);
}

INSTANTIATE_TEST_SUITE_P(
    Files, FileSumTable,
    ::testing::Values(SumRow { "Empty", "", 0 }, SumRow { "Ascii", "AB", 65 + 66 },
                      SumRow { "HighBytesAreUnsigned", "\xFF\x80", 255 + 128 },
                      SumRow { "NulBytes", QByteArray(3, '\0'), 0 },
                      // 8421504 bytes of 255 make 2147483520; one more would overflow, so
                      // the sum stops there.
                      SumRow { "StopsBeforeOverflow", QByteArray(9 * 1024 * 1024, '\xFF'),
                               8421504 * 255 }),
    [](const ::testing::TestParamInfo<SumRow> &p) { return std::string(p.param.name); });

TEST(FileSum, MissingFileAndFolderGiveZero)
{
    QTemporaryDir dir;
    EXPECT_EQ(FileSum(dir.filePath(QStringLiteral("missing"))), 0);
    EXPECT_EQ(FileSum(dir.path()), 0);
}

TEST(FileExistence, FilesFoldersAndNothing)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral(".hidden"));
    ASSERT_TRUE(writeBytes(file, "x"));
    EXPECT_TRUE(FileExists(file));
    EXPECT_TRUE(FileExists(QStringLiteral("  ") + file + QStringLiteral("/ ")));
    EXPECT_FALSE(FolderExists(file));
    EXPECT_FALSE(FileExists(dir.path()));
    EXPECT_TRUE(FolderExists(dir.path()));
    EXPECT_TRUE(FolderExists(dir.path() + QStringLiteral("/")));
    EXPECT_TRUE(FolderExists(QStringLiteral("/")));
    EXPECT_FALSE(FileExists(QString()));
    EXPECT_FALSE(FolderExists(QString()));
    EXPECT_FALSE(FileExists(dir.filePath(QStringLiteral("missing"))));
    EXPECT_FALSE(FolderExists(dir.filePath(QStringLiteral("missing"))));
}

TEST(CreateFolder, OneLevelOnlyAndNeverOverAFile)
{
    QTemporaryDir dir;
    EXPECT_TRUE(CreateFolder(dir.filePath(QStringLiteral("one/")), false, false));
    EXPECT_TRUE(QFileInfo(dir.filePath(QStringLiteral("one"))).isDir());
    EXPECT_TRUE(CreateFolder(dir.filePath(QStringLiteral("one")), false, false)) << "exists";
    EXPECT_FALSE(CreateFolder(dir.filePath(QStringLiteral("a/b")), false, false));
    EXPECT_FALSE(QFileInfo::exists(dir.filePath(QStringLiteral("a"))));
    ASSERT_TRUE(writeBytes(dir.filePath(QStringLiteral("file")), "x"));
    EXPECT_FALSE(CreateFolder(dir.filePath(QStringLiteral("file")), false, false));
}

TEST(DeleteFile, RemovesFilesAndLinksButNotFolders)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("f"));
    ASSERT_TRUE(writeBytes(file, "x"));
    EXPECT_TRUE(DeleteFile(file, false));
    EXPECT_FALSE(QFileInfo::exists(file));
    EXPECT_TRUE(DeleteFile(file, false)) << "a missing file is gone already";
    ASSERT_TRUE(QFile::link(dir.filePath(QStringLiteral("nowhere")), file));
    EXPECT_TRUE(DeleteFile(file, false));
    EXPECT_FALSE(QFileInfo(file).isSymLink());
    const QString folder = dir.filePath(QStringLiteral("d"));
    ASSERT_TRUE(QDir().mkdir(folder));
    DeleteFile(folder, false);
    EXPECT_TRUE(QFileInfo(folder).isDir());
}

TEST(Wait, ClampsAndRaisesTheWaitingFlag)
{
    bool waiting = false;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(Wait(0, false, &waiting)); // clamped up to 1 ms
    EXPECT_TRUE(Wait(5, true, &waiting)); // no application: a plain sleep
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_GE(elapsed, std::chrono::milliseconds(6));
    EXPECT_FALSE(waiting);
}
