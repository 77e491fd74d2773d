#include "SettingsFolder.h"

#include "FileUtils.h"

#include <QDir>

#include <cctype>
#include <pwd.h>
#include <unistd.h>

namespace {

QByteArray systemGetEnv(const char *name)
{
    return qgetenv(name);
}

bool createPrivatePath(const QString &path, bool *waiting)
{
    const QString parent = FolderOfPath(path);
    if (!parent.isEmpty() && parent != path && !FolderExists(parent)
        && !createPrivatePath(parent, waiting))
        return false;
    return CreateFolder(path, false, true, waiting, 0700);
}

} // namespace

FolderEnvironment systemFolderEnvironment(const QString &programFolder)
{
    FolderEnvironment env;
    env.programFolder = programFolder;
    env.getEnv = systemGetEnv;
    if (const passwd *pw = ::getpwuid(::getuid()); pw && pw->pw_dir)
        env.fallbackHome = QFile::decodeName(pw->pw_dir);
    return env;
}

QString configHome(const FolderEnvironment &env)
{
    const QString xdg = QFile::decodeName(env.getEnv("XDG_CONFIG_HOME"));
    // A relative XDG_CONFIG_HOME is invalid and must be ignored.
    if (!xdg.isEmpty() && QDir::isAbsolutePath(xdg))
        return QDir::cleanPath(xdg);
    QString home = QFile::decodeName(env.getEnv("HOME"));
    if (home.isEmpty() || !QDir::isAbsolutePath(home))
        home = env.fallbackHome;
    if (home.isEmpty() || !QDir::isAbsolutePath(home))
        return {};
    return QDir::cleanPath(home + QStringLiteral("/.config"));
}

bool isPortableProgramFolder(const FolderEnvironment &env)
{
    for (const QString &system : env.systemFolders)
        if (env.programFolder.startsWith(system))
            return false;
    return ::access(QFile::encodeName(env.programFolder).constData(), W_OK) == 0;
}

QString GetSettingsFolder(const FolderEnvironment &env, bool *waiting)
{
    // An installed program is shared by every account (and root can write to /usr/bin): a file
    // beside it is never looked for, and nothing is ever written there.
    const QString programFolder = isPortableProgramFolder(env) ? env.programFolder : QString();
    if (!programFolder.isEmpty() && FileExists(programFolder + QStringLiteral("qlvcal.ini")))
        return programFolder;

    const QString base = configHome(env);
    if (base.isEmpty())
        return programFolder;
    // The XDG rules ask for a missing base folder (and any missing parent of it) to be created
    // private to the user.
    if (!FolderExists(base) && !createPrivatePath(base, waiting))
        return programFolder;

    QString folder = base + QStringLiteral("/QLVCalendarLite/");
    if (!FolderExists(folder))
        CreateFolder(folder, false, true, waiting);
    if (!FolderExists(folder))
        return programFolder;
    return folder;
}

bool IsRussianSystem(const std::function<QByteArray(const char *)> &getEnv)
{
    for (const char *name : { "LC_ALL", "LC_MESSAGES", "LANG" }) {
        const QByteArray value = getEnv(name);
        if (value.isEmpty())
            continue;
        // "ru", "ru_RU", "ru_RU.UTF-8", "ru@euro": the language is the leading letters.
        qsizetype end = 0;
        while (end < value.size() && std::isalpha(static_cast<unsigned char>(value.at(end))))
            ++end;
        return value.left(end).toLower() == "ru";
    }
    return false;
}

bool IsRussianSystem()
{
    return IsRussianSystem(systemGetEnv);
}

QString programFolderOf(const QString &applicationDir)
{
    return StripTrailingSlashes(applicationDir) + QLatin1Char('/');
}
