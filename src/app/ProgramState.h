#pragma once

#include "Settings.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

class Clock;
class SettingsFile;

// The process-wide state that every window reads: the settings record, the clock, the folders,
// the loaded-window flags and the busy test. Start-up owns it and hands windows a reference; a
// window that wants the program to end asks here, so no window knows the start-up code.
class ProgramState : public QObject
{
    Q_OBJECT

public:
    // `clock` must outlive the state; the system clock when null.
    explicit ProgramState(const Clock *clock = nullptr);
    ~ProgramState() override;

    Settings &settings() { return m_settings; }
    const Settings &settings() const { return m_settings; }
    const Clock &clock() const { return *m_clock; }
    // The settings file of the run; null until start-up has formed the settings path.
    SettingsFile *settingsFile() const { return m_settingsFile; }
    void setSettingsFile(SettingsFile *file) { m_settingsFile = file; }

    // The loaded flags, by upper-case name; with `useFormsList` the open windows are asked instead.
    bool IsFormLoaded(const QString &name, bool useFormsList) const;
    // Each window reports here when it loads and unloads, under its upper-case name.
    void setFormLoaded(const QString &name, bool loaded);
    // The run-time names of the open top-level windows; start-up installs it.
    std::function<QStringList()> formsList;

    // Alt+Q and Alt+X (key codes 81 and 88, Alt bit 4 of `shift`) end the program.
    void HandleQuitKeys(int keyCode, int shift);
    // Saves the settings (unless the Settings window is open) and unloads every window.
    void CloseProgram();
    // What CloseProgram runs; start-up installs it.
    std::function<void()> closeProgram;

    // True while a message-pumping wait runs; part of the program-wide busy test.
    bool isWaiting() const { return m_waiting; }
    bool *waitingFlag() { return &m_waiting; }
    // Set by whoever shows a window, for as long as the showing lasts. Nests.
    void setShowingWindow(bool showing) { m_showingWindow += showing ? 1 : -1; }
    // The program-wide busy test: a pumping wait runs or a window is being shown. Handlers that
    // rebuild the calendar do nothing meanwhile.
    bool IsBusy() const { return m_waiting || m_showingWindow > 0; }

    QString OSPlatform;
    QString ProgramFolder;
    QString SettingsFolder;
    QString SettingsPath;
    std::int32_t SettingsChecksum = 0;
    bool Closing = false;
    // "Basic" or "No", decided once at start-up.
    QString ShadowMode = QStringLiteral("No");

private:
    const Clock *m_clock = nullptr;
    std::unique_ptr<Clock> m_ownClock;
    Settings m_settings;
    SettingsFile *m_settingsFile = nullptr;
    QSet<QString> m_loadedForms;
    bool m_waiting = false;
    int m_showingWindow = 0;
};

// The process title and taskbar caption: the Russian title unless the language is "English".
QString AppTitle(const Settings &settings);

// "Basic" when translucent windows work and the program may place its own windows, else "No".
// A native Wayland session composites but lets no client place a window, so it gets no shadows.
QString DecideShadowMode(bool layeredWindows, const QString &platformName);
