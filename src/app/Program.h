#pragma once

#include "ProgramState.h"
#include "SettingsFile.h"

#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

class Clock;
class FileOps;
class QWidget;
class TerminationSignals;

// What start-up takes from the outside world; tests replace any of it.
struct ProgramOptions
{
    const Clock *clock = nullptr; // the system clock when null
    QString applicationDir; // QCoreApplication::applicationDirPath() when empty
    std::function<QByteArray(const char *)> getEnv; // qgetenv when null
    QString fallbackHome; // the password database's home when empty
    // Screen size in twips; the primary screen when zero.
    int screenWidthTwips = 0;
    int screenHeightTwips = 0;
    FileOps *fileOps = nullptr; // the system calls when null
    // SIGTERM, SIGINT and SIGHUP close the Main window (and so save) instead of killing.
    bool closeOnTerminationSignals = false;
    // Creates, places and shows the Main window; start-up knows it only as a top-level widget.
    std::function<QWidget *(ProgramState &)> showMainWindow;
    // Whether the desktop composites (translucent windows work); false when null.
    std::function<bool(const QString &osPlatform)> probeLayeredWindows;
};

// The start-up and shut-down sequences. One instance lives for the whole run; the windows see
// only its ProgramState.
class Program
{
public:
    explicit Program(ProgramOptions options = {});
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    // Start-up: folders, settings, process title, then the Main window is shown.
    void Main();

    QString GetOSPlatform() const;
    bool NoMainFormLoaded() const;
    void UnloadFormByName(const QString &name);
    // Saves the settings (unless the Settings window is open) and unloads every window.
    void CloseProgram();

    ProgramState &state() { return m_state; }
    SettingsFile &settingsFile() { return *m_settingsFile; }
    QWidget *mainForm() const { return m_mainForm.data(); }
    // How many times start-up called ReadSettings.
    int settingsReads() const { return m_settingsReads; }

private:
    void rememberMainFormPosition();

    ProgramOptions m_options;
    ProgramState m_state;
    std::unique_ptr<SettingsFile> m_settingsFile;
    QPointer<QWidget> m_mainForm;
    std::unique_ptr<TerminationSignals> m_terminationSignals;
    bool m_shutDown = false;
    int m_settingsReads = 0;
};
