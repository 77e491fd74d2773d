#pragma once

#include <QString>

#include <cstdint>

// Small path and file helpers. None of them throws or reports an error other than through its
// result.

// Trims blanks, removes every trailing "/", trims again.
QString StripTrailingSlashes(const QString &path);
// True when the path names an existing file (not a folder).
bool FileExists(const QString &path);
// True when the path names an existing folder.
bool FolderExists(const QString &path);
// Creates the last level of `path` (mode 0755, or `mode`), retrying transient failures for up
// to 1 second. Missing parents make it fail. `hidden` is accepted and ignored on Linux.
bool CreateFolder(const QString &path, bool hidden, bool pump, bool *waiting = nullptr,
                  unsigned mode = 0755);
// Deletes a file, retrying transient failures for up to 1 second. True when it is gone.
bool DeleteFile(const QString &path, bool pump, bool *waiting = nullptr);
// The part before the last "/"; a file in the root gives "/".
QString FolderOfPath(const QString &path);
// Sum of all bytes of the file as unsigned values; the sum stops before it would overflow a
// 32-bit signed integer. Anything but a regular file gives 0.
std::int32_t FileSum(const QString &path);
// Waits 1..65000 ms, keeping the event loop running when `pump` is set. `waiting`, when given,
// is true for the duration.
bool Wait(int milliseconds, bool pump, bool *waiting = nullptr);
