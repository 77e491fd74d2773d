#pragma once

#include "app/FileOps.h"
#include "app/SettingsFile.h"
#include "support/FakeClock.h"
#include "support/Files.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <string_view>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace testsupport {

// Every name in a folder, hidden ones included.
inline QStringList folderEntries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

inline const QStringList OnlyTheSettingsFile { QStringLiteral("qlvcal.ini") };

// Permission cases mean nothing to root: they are named "Unprivileged..." and ctest runs them
// again as an unprivileged user.
inline bool skipAsRoot(const char *name)
{
    return QByteArray(name).startsWith("Unprivileged") && ::geteuid() == 0;
}

// The file-system seam with the call named `failing` failing: "create", "write", "short" (half
// of the first write, then a full disk), "fsync", "close" or "rename".
class FailingFileOps : public FileOps
{
public:
    explicit FailingFileOps(std::string_view failing)
        : m_failing(failing)
    { }
    int createExclusive(const QByteArray &path, mode_t mode) override
    {
        return fails("create") ? -1 : FileOps::createExclusive(path, mode);
    }
    ssize_t write(int fd, const char *data, size_t size) override
    {
        if (fails("write") || (fails("short") && m_writes++ > 0))
            return -1;
        return FileOps::write(fd, data, fails("short") ? (size + 1) / 2 : size);
    }
    int fsync(int fd) override { return fails("fsync") ? -1 : FileOps::fsync(fd); }
    int close(int fd) override { return FileOps::close(fd) == 0 && !fails("close") ? 0 : -1; }
    int rename(const QByteArray &from, const QByteArray &to) override
    {
        return fails("rename") ? -1 : FileOps::rename(from, to);
    }

private:
    bool fails(std::string_view call) { return m_failing == call && (errno = EIO) != 0; }
    std::string_view m_failing;
    int m_writes = 0;
};

// A settings record with its file code over a temporary folder, on a 1365 x 800 screen (the
// centred position is 7237.5 x 3952.5 twips: both halves go to the even neighbour).
struct SettingsFixture
{
    QTemporaryDir dir;
    Settings settings;
    SettingsFile file { settings, {} };
    SettingsFixture()
    {
        file.context().settingsPath = dir.filePath(u"qlvcal.ini"_s);
        file.context().screenWidthTwips = 20475;
        file.context().screenHeightTwips = 12000;
    }
    QString path() const { return file.context().settingsPath; }
};

// Names table rows after their first column.
inline auto rowName = [](const auto &info) { return std::string(info.param.name); };

} // namespace testsupport
