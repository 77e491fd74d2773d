#pragma once

#include <QString>
#include <QStringList>

#include <functional>

// What the folder choice looks at, so that tests can hand in any environment.
struct FolderEnvironment
{
    QString programFolder; // ends in "/"
    std::function<QByteArray(const char *)> getEnv; // like qgetenv; empty result = unset
    QString fallbackHome; // the account's home from the password database
    // Where installed programs live, each ending in "/"; tests point it at a scratch folder.
    QStringList systemFolders { QStringLiteral("/usr/"), QStringLiteral("/bin/"),
                                QStringLiteral("/sbin/"), QStringLiteral("/opt/") };
};

FolderEnvironment systemFolderEnvironment(const QString &programFolder);

// True when the program folder may hold the settings (a portable install): it lies under none of
// the system folders and the user can write to it.
bool isPortableProgramFolder(const FolderEnvironment &env);

// The folder for "qlvcal.ini", ending in "/": a portable program folder when a settings file
// stands there already; otherwise "$XDG_CONFIG_HOME/QLVCalendarLite/" (default ~/.config),
// created when missing; when that cannot be made, a portable program folder, or else empty
// (nowhere to keep settings).
QString GetSettingsFolder(const FolderEnvironment &env, bool *waiting = nullptr);

// The base configuration folder by the XDG rules: $XDG_CONFIG_HOME when it is an absolute path,
// else $HOME/.config; empty when neither can be known.
QString configHome(const FolderEnvironment &env);

// True when the user's messages locale (first set of LC_ALL, LC_MESSAGES, LANG) is Russian.
bool IsRussianSystem(const std::function<QByteArray(const char *)> &getEnv);
bool IsRussianSystem();

// The program's own folder with exactly one trailing "/".
QString programFolderOf(const QString &applicationDir);
