#pragma once

#include "Settings.h"
#include "SettingsFile.h"

#include <QPointer>
#include <QSet>
#include <QString>

#include <functional>
#include <memory>

class Clock;
class FileOps;
class CalendarMonthExtForm;
class QWidget;
class TerminationSignals;
class WindowBehaviour;

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
};

// The process-wide state: the settings, the folders, the loaded windows, and the start-up and
// shut-down sequences. One instance lives for the whole run; windows are handed a reference.
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
    bool IsFormLoaded(const QString &name, bool useFormsList) const;
    bool NoMainFormLoaded() const;
    void UnloadFormByName(const QString &name);
    // Alt+Q and Alt+X (key codes 81 and 88, Alt bit 4 of `shift`) end the program.
    void HandleQuitKeys(int keyCode, int shift);
    // Saves the settings (unless the Settings window is open) and unloads every window.
    void CloseProgram();

    // Each window reports here when it loads and unloads, under its upper-case name.
    void setFormLoaded(const QString &name, bool loaded);

    Settings &settings() { return m_settings; }
    const Settings &settings() const { return m_settings; }
    SettingsFile &settingsFile() { return *m_settingsFile; }
    const Clock &clock() const { return *m_clock; }
    CalendarMonthExtForm *mainForm() const;
    // Dragging, shadows, the taskbar entry: what every program window shares.
    WindowBehaviour &windowBehaviour();
    // True while a message-pumping wait runs; part of the program-wide busy test.
    bool isWaiting() const { return m_waiting; }
    bool *waitingFlag() { return &m_waiting; }
    // Set by whoever shows a window, for as long as the showing lasts.
    // Nests: each showing(true) is matched by a showing(false).
    void setShowingWindow(bool showing) { m_showingWindow += showing ? 1 : -1; }
    // The program-wide busy test: a pumping wait runs or a window is being shown. Handlers that
    // rebuild the calendar do nothing meanwhile.
    bool IsBusy() const { return m_waiting || m_showingWindow > 0; }
    // How many times start-up called ReadSettings.
    int settingsReads() const { return m_settingsReads; }

    QString OSPlatform;
    QString ProgramFolder;
    QString SettingsFolder;
    QString SettingsPath;
    std::int32_t SettingsChecksum = 0;
    bool Closing = false;
    // "Basic" or "No", decided once at start-up.
    QString ShadowMode = QStringLiteral("No");

private:
    void rememberMainFormPosition();

    ProgramOptions m_options;
    std::unique_ptr<Clock> m_ownClock;
    const Clock *m_clock = nullptr;
    Settings m_settings;
    std::unique_ptr<SettingsFile> m_settingsFile;
    QSet<QString> m_loadedForms;
    QPointer<QWidget> m_mainForm; // the CalendarMonthExtForm
    std::unique_ptr<WindowBehaviour> m_windowBehaviour;
    bool m_waiting = false;
    int m_showingWindow = 0;
    std::unique_ptr<TerminationSignals> m_terminationSignals;
    bool m_shutDown = false;
    int m_settingsReads = 0;
};
