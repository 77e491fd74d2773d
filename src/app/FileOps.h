#pragma once

#include <QByteArray>

#include <sys/types.h>

// The few system calls that saving a file needs, behind one seam so that tests can make any of
// them fail. Each returns what the system call returns (-1 with errno set on failure).
class FileOps
{
public:
    virtual ~FileOps() = default;
    // Creates a new file; fails when anything, a symlink included, already has that name.
    virtual int createExclusive(const QByteArray &path, mode_t mode);
    virtual ssize_t write(int fd, const char *data, size_t size);
    virtual int fsync(int fd);
    virtual int close(int fd);
    virtual int rename(const QByteArray &from, const QByteArray &to);
    virtual int unlink(const QByteArray &path);
    virtual int chmod(const QByteArray &path, mode_t mode);
    virtual int fsyncFolder(const QByteArray &folder);

    static FileOps &system();
};
