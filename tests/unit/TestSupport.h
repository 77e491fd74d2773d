#pragma once

#include "app/Clock.h"
#include "app/FileOps.h"
#include "app/Settings.h"
#include "app/SettingsFile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <ostream>

// Lets gtest print QStrings and QByteArrays readably in failure messages.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}

namespace testsupport {

// The screen the settings tests assume: 1280 x 800 pixels.
inline constexpr int ScreenWidthTwips = 1280 * TwipsPerPixel;
inline constexpr int ScreenHeightTwips = 800 * TwipsPerPixel;

inline QByteArray readBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

inline bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(bytes) == bytes.size();
}

// Every name in a folder, hidden ones included.
inline QStringList folderEntries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

// A steady clock that moves on by `step` each time it is read.
class SteppingClock : public Clock
{
public:
    explicit SteppingClock(std::chrono::milliseconds step)
        : m_step(step)
    { }
    QDateTime now() const override { return QDateTime(QDate(2024, 1, 1), QTime(12, 0)); }
    std::chrono::steady_clock::time_point steadyNow() const override
    {
        const auto value = m_now;
        m_now += m_step;
        return value;
    }

private:
    std::chrono::milliseconds m_step;
    mutable std::chrono::steady_clock::time_point m_now {};
};

// The file-system seam with one chosen call failing.
class FailingFileOps : public FileOps
{
public:
    enum class Failure {
        None,
        Create,
        Write,
        ShortWriteThenFull,
        WriteReturnsZero,
        Fsync,
        Close,
        Rename
    };

    explicit FailingFileOps(Failure failure)
        : m_failure(failure)
    { }

    int createExclusive(const QByteArray &path, mode_t mode) override
    {
        if (m_failure == Failure::Create)
            return fail(EACCES);
        return FileOps::createExclusive(path, mode);
    }
    ssize_t write(int fd, const char *data, size_t size) override
    {
        ++m_writes;
        switch (m_failure) {
        case Failure::Write:
            return fail(EIO);
        case Failure::ShortWriteThenFull:
            if (m_writes > 1)
                return fail(ENOSPC);
            return FileOps::write(fd, data, size > 1 ? size / 2 : size);
        case Failure::WriteReturnsZero:
            return 0;
        default:
            return FileOps::write(fd, data, size);
        }
    }
    int fsync(int fd) override
    {
        return m_failure == Failure::Fsync ? fail(EIO) : FileOps::fsync(fd);
    }
    int close(int fd) override
    {
        const int result = FileOps::close(fd);
        return m_failure == Failure::Close ? fail(EIO) : result;
    }
    int rename(const QByteArray &from, const QByteArray &to) override
    {
        return m_failure == Failure::Rename ? fail(EXDEV) : FileOps::rename(from, to);
    }

private:
    static int fail(int error)
    {
        errno = error;
        return -1;
    }
    Failure m_failure;
    int m_writes = 0;
};

// A settings record with its file code over a temporary folder, on a 1280 x 800 screen.
struct SettingsFixture
{
    QTemporaryDir dir;
    Settings settings;
    SettingsFile file { settings, makeContext() };

    SettingsContext makeContext()
    {
        SettingsContext c;
        c.settingsPath = dir.filePath(QStringLiteral("qlvcal.ini"));
        c.screenWidthTwips = ScreenWidthTwips;
        c.screenHeightTwips = ScreenHeightTwips;
        return c;
    }
    QString path() const { return file.context().settingsPath; }
};

} // namespace testsupport
