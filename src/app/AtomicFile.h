#pragma once

#include <QByteArray>
#include <QString>

class FileOps;

namespace AtomicFile {

// The file a path finally names: symlinks are followed (a dangling one to the file it would
// create), so that a user's symlinked settings file is updated at its target.
QString resolveTarget(const QString &path);

// Replaces the file at `target` with `content` so that, whatever fails, the old file is either
// untouched or wholly replaced. The content goes to `tempName` in the target's folder, created
// exclusively, is fsynced and renamed over the target; then the folder is fsynced. On any
// failure the temporary file is removed and false is returned.
bool write(const QString &target, const QString &tempName, const QByteArray &content,
           FileOps &ops);

} // namespace AtomicFile
