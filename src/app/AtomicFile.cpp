#include "AtomicFile.h"

#include "FileOps.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

namespace AtomicFile {

QString resolveTarget(const QString &path)
{
    QString current = QFileInfo(path).absoluteFilePath();
    // The same limit the kernel uses for nested links; a loop ends as "not found".
    for (int depth = 0; depth < 40; ++depth) {
        const QFileInfo info(current);
        if (!info.isSymLink())
            return current;
        const QString next = info.symLinkTarget();
        if (next.isEmpty())
            return current;
        current = QDir::cleanPath(next);
    }
    return current;
}

namespace {

bool writeAll(FileOps &ops, int fd, const QByteArray &content)
{
    const char *data = content.constData();
    auto left = static_cast<size_t>(content.size());
    while (left > 0) {
        const ssize_t written = ops.write(fd, data, left);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (written == 0) {
            errno = ENOSPC;
            return false;
        }
        data += written;
        left -= static_cast<size_t>(written);
    }
    return true;
}

} // namespace

bool write(const QString &target, const QString &tempName, const QByteArray &content,
           FileOps &ops)
{
    const QString finalPath = resolveTarget(target);
    const QString folder = QFileInfo(finalPath).absolutePath();
    const QByteArray finalBytes = QFile::encodeName(finalPath);
    const QByteArray tempBytes = QFile::encodeName(folder + QLatin1Char('/') + tempName);

    // Keep the permission bits of the file being replaced, but always writable by its owner.
    mode_t mode = 0644;
    struct stat st {};
    const bool targetExists = ::stat(finalBytes.constData(), &st) == 0 && S_ISREG(st.st_mode);
    if (targetExists)
        mode = (st.st_mode & 07777) | S_IWUSR;

    // A stale temporary file, or anything planted at its name, goes first; the exclusive create
    // below then refuses whatever reappears there.
    ops.unlink(tempBytes);
    const int fd = ops.createExclusive(tempBytes, mode);
    if (fd < 0)
        return false;

    bool ok = writeAll(ops, fd, content);
    ok = ok && ops.fsync(fd) == 0;
    ok = (ops.close(fd) == 0) && ok;
    if (ok && targetExists && !(st.st_mode & S_IWUSR))
        ops.chmod(finalBytes, st.st_mode | S_IWUSR);
    ok = ok && ops.rename(tempBytes, finalBytes) == 0;
    if (!ok) {
        ops.unlink(tempBytes);
        return false;
    }
    ops.fsyncFolder(QFile::encodeName(folder));
    return true;
}

} // namespace AtomicFile
