#include "FileOps.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

int FileOps::createExclusive(const QByteArray &path, mode_t mode)
{
    return ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
}

ssize_t FileOps::write(int fd, const char *data, size_t size)
{
    return ::write(fd, data, size);
}

int FileOps::fsync(int fd)
{
    return ::fsync(fd);
}

int FileOps::close(int fd)
{
    return ::close(fd);
}

int FileOps::rename(const QByteArray &from, const QByteArray &to)
{
    return ::rename(from.constData(), to.constData());
}

int FileOps::unlink(const QByteArray &path)
{
    return ::unlink(path.constData());
}

int FileOps::chmod(const QByteArray &path, mode_t mode)
{
    return ::chmod(path.constData(), mode);
}

int FileOps::fsyncFolder(const QByteArray &folder)
{
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return -1;
    const int result = ::fsync(fd);
    ::close(fd);
    return result;
}

FileOps &FileOps::system()
{
    static FileOps ops;
    return ops;
}
