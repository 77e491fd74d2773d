#include "AtomicFile.h"

#include "FileOps.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <sys/stat.h>
#include <thread>

namespace AtomicFile {

QString resolveTarget(const QString &path)
{
    QString current = QFileInfo(path).absoluteFilePath();
    // The same limit the kernel uses for nested links; a loop ends at the last link seen.
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

Writer::Writer(const QString &target, const QString &tempName, FileOps &ops)
    : m_ops(ops)
{
    const QString finalPath = resolveTarget(target);
    const QString folder = QFileInfo(finalPath).absolutePath();
    m_finalPath = QFile::encodeName(finalPath);
    m_folder = QFile::encodeName(folder);
    m_tempPath = QFile::encodeName(folder + QLatin1Char('/') + tempName);
}

Writer::~Writer()
{
    discard();
}

bool Writer::open()
{
    // The new file keeps the permission bits of the one it replaces, made writable by its owner
    // (a read-only settings file is replaced, not refused). rename() needs no write permission
    // on the old file, so the old file itself is never touched before the swap.
    struct stat st
    { };
    if (::stat(m_finalPath.constData(), &st) == 0 && S_ISREG(st.st_mode))
        m_mode = (st.st_mode & 07777) | S_IWUSR;

    // Another running copy may be saving this very moment: its temporary file lives for a few
    // milliseconds, and removing it would let that copy rename our half-written file into place.
    // So a temporary file that is there is given a second to go. What is still there after it
    // is stale (a crash) or planted, and goes; the exclusive create then refuses whatever
    // reappears there.
    m_fd = m_ops.createExclusive(m_tempPath, m_mode);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    while (m_fd < 0 && errno == EEXIST && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        m_fd = m_ops.createExclusive(m_tempPath, m_mode);
    }
    if (m_fd < 0 && errno == EEXIST) {
        m_ops.unlink(m_tempPath);
        m_fd = m_ops.createExclusive(m_tempPath, m_mode);
    }
    m_created = m_fd >= 0;
    m_failed = !m_created;
    return m_created;
}

bool Writer::write(QByteArrayView data)
{
    if (m_failed || m_fd < 0)
        return false;
    const char *next = data.data();
    auto left = static_cast<size_t>(data.size());
    while (left > 0) {
        const ssize_t written = m_ops.write(m_fd, next, left);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            m_failed = true;
            return false;
        }
        next += written;
        left -= static_cast<size_t>(written);
    }
    return true;
}

bool Writer::commit()
{
    if (m_failed || m_fd < 0)
        return false;
    bool ok = m_ops.fsync(m_fd) == 0;
    ok = m_ops.close(m_fd) == 0 && ok;
    m_fd = -1;
    ok = ok && m_ops.rename(m_tempPath, m_finalPath) == 0;
    if (!ok) {
        m_failed = true;
        return false;
    }
    m_created = false;
    // The rename is only durable once the folder entry is on disk; the new file is in place
    // either way, so a failure here changes nothing the caller could act on.
    m_ops.fsyncFolder(m_folder);
    return true;
}

void Writer::discard()
{
    if (m_fd >= 0) {
        m_ops.close(m_fd);
        m_fd = -1;
    }
    if (m_created) {
        m_ops.unlink(m_tempPath);
        m_created = false;
    }
}

bool write(const QString &target, const QString &tempName, const QByteArray &content, FileOps &ops)
{
    Writer writer(target, tempName, ops);
    return writer.open() && writer.write(content) && writer.commit();
}

} // namespace AtomicFile
