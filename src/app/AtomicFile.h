#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <sys/types.h>

class FileOps;

namespace AtomicFile {

// The file a path finally names: symlinks are followed (a dangling one to the file it would
// create), so that a user's symlinked settings file is updated at its target.
QString resolveTarget(const QString &path);

// Replaces one file so that, whatever fails, the old file is either untouched or wholly
// replaced. The content goes to `tempName` in the target's folder, created exclusively (never
// through anything planted at that name); commit() fsyncs it, renames it over the target and
// fsyncs the folder. A writer destroyed without a successful commit removes its temporary file.
class Writer
{
public:
    Writer(const QString &target, const QString &tempName, FileOps &ops);
    ~Writer();
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    bool open();
    // Writes all of `data`, retrying short writes; false on any error.
    bool write(QByteArrayView data);
    bool commit();

private:
    void discard();

    FileOps &m_ops;
    QByteArray m_finalPath;
    QByteArray m_folder;
    QByteArray m_tempPath;
    mode_t m_mode = 0644;
    int m_fd = -1;
    bool m_failed = false;
    bool m_created = false;
};

// The whole of `content` through a Writer.
bool write(const QString &target, const QString &tempName, const QByteArray &content, FileOps &ops);

} // namespace AtomicFile
