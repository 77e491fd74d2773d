#include "FileUtils.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Errors that a retry can cure; anything else (no permission, read-only file system, missing
// parent) would only burn the whole retry second.
bool isTransient(int error)
{
    return error == EINTR || error == EAGAIN || error == EBUSY || error == ETXTBSY;
}

} // namespace

QString StripTrailingSlashes(const QString &path)
{
    QString result = path.trimmed();
    while (result.endsWith(QLatin1Char('/')))
        result.chop(1);
    return result.trimmed();
}

bool FileExists(const QString &path)
{
    const QString clean = StripTrailingSlashes(path);
    if (clean.isEmpty())
        return false;
    const QFileInfo info(clean);
    return info.exists() && !info.isDir();
}

bool FolderExists(const QString &path)
{
    if (path.trimmed().isEmpty() || FileExists(path))
        return false;
    QString clean = StripTrailingSlashes(path);
    if (clean.isEmpty())
        clean = QStringLiteral("/");
    return QFileInfo(clean).isDir();
}

bool CreateFolder(const QString &path, bool /*hidden*/, bool pump, bool *waiting, unsigned mode)
{
    const QString clean = StripTrailingSlashes(path);
    if (clean.isEmpty() || FileExists(clean))
        return false;
    const QByteArray name = QFile::encodeName(clean);
    QDeadlineTimer deadline(1000);
    while (!FolderExists(clean) && !deadline.hasExpired()) {
        if (::mkdir(name.constData(), static_cast<mode_t>(mode)) != 0 && !isTransient(errno))
            break;
    }
    Wait(1, false, waiting);
    if (pump)
        Wait(2, true, waiting);
    return FolderExists(clean);
}

bool DeleteFile(const QString &path, bool pump, bool *waiting)
{
    const QString clean = StripTrailingSlashes(path);
    if (FileExists(clean) || QFileInfo(clean).isSymLink()) {
        const QByteArray name = QFile::encodeName(clean);
        QDeadlineTimer deadline(1000);
        while ((FileExists(clean) || QFileInfo(clean).isSymLink()) && !deadline.hasExpired()) {
            if (::unlink(name.constData()) != 0 && !isTransient(errno))
                break;
        }
        Wait(1, false, waiting);
        if (pump)
            Wait(2, true, waiting);
    }
    return !FileExists(clean) && !QFileInfo(clean).isSymLink();
}

QString FolderOfPath(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return {};
    if (slash == 0)
        return QStringLiteral("/");
    return path.left(slash);
}

std::int32_t FileSum(const QString &path)
{
    // Only a regular file: a FIFO would block the read.
    if (!QFileInfo(path).isFile())
        return 0;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    std::int64_t sum = 0;
    char buffer[65536];
    for (;;) {
        const qint64 got = file.read(buffer, sizeof buffer);
        if (got <= 0)
            break;
        for (qint64 i = 0; i < got; ++i) {
            const std::int64_t next = sum + static_cast<unsigned char>(buffer[i]);
            if (next > INT32_MAX)
                return static_cast<std::int32_t>(sum);
            sum = next;
        }
    }
    return static_cast<std::int32_t>(sum);
}

bool Wait(int milliseconds, bool pump, bool *waiting)
{
    const int ms = std::clamp(milliseconds, 1, 65000);
    if (waiting)
        *waiting = true;
    if (pump && QCoreApplication::instance()) {
        QDeadlineTimer deadline(ms);
        while (!deadline.hasExpired()) {
            QCoreApplication::processEvents(
                QEventLoop::AllEvents,
                static_cast<int>(std::max<qint64>(1, deadline.remainingTime())));
            if (!deadline.hasExpired())
                QThread::msleep(1);
        }
    } else {
        QThread::msleep(static_cast<unsigned long>(ms));
    }
    if (waiting)
        *waiting = false;
    return true;
}
