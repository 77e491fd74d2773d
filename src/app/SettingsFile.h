#pragma once

#include "Settings.h"

#include <QList>
#include <QPair>
#include <QString>

#include <chrono>
#include <functional>

class Clock;
class FileOps;
class QIODevice;

// Everything the settings file code needs from outside, so that tests can supply it.
struct SettingsContext
{
    QString settingsPath; // SettingsPath
    int screenWidthTwips = 1024 * TwipsPerPixel;
    int screenHeightTwips = 768 * TwipsPerPixel;
    bool layeredWindows = false; // the compositor test; decides ToolTipEffect
    std::function<bool()> isRussianSystem;
    std::function<QString(const QString &)> resolveColorScheme;
    std::function<QString(const QString &)> resolvePicture;
    const Clock *clock = nullptr; // deadlines; the system clock when null
    FileOps *fileOps = nullptr; // the system calls when null
    bool *waiting = nullptr;
    std::chrono::milliseconds readDeadline { 52000 };
    std::chrono::milliseconds keyUpdateDeadline { 5000 };
};

// The settings file "qlvcal.ini": reader, writer, defaults and the key update used at shut-down.
class SettingsFile
{
public:
    SettingsFile(Settings &settings, SettingsContext context);

    // Fills the stored fields from the file. False when the file could not be read: it has then
    // been deleted and written afresh from defaults, so the next call normally succeeds.
    bool ReadSettings();
    // Writes the whole file from the record, atomically. False when nothing was replaced.
    bool WriteSettings();
    void SetDefaultSettings();
    // Rewrites only the lines holding one of the keys (any case) as key + value; the other
    // lines are copied unchanged. False, with the file as it was, when it is not there, cannot
    // be replaced or is not copied whole before the deadline.
    bool UpdateSettingsKeys(const QString &path, const QList<QPair<QString, qint32>> &pairs);

    // The reader's core: applies the lines of `device` to the record. False when an error was
    // met (a failed read, a number overflow); the lines up to it are applied.
    bool readFrom(QIODevice &device);
    // The thirteen lines WriteSettings produces.
    QByteArray fileContents() const;

    const SettingsContext &context() const { return m_context; }
    SettingsContext &context() { return m_context; }

private:
    bool applyLine(const QByteArray &line);
    void applyLanguageSwitches();
    std::chrono::steady_clock::time_point steadyNow() const;

    Settings &m_settings;
    SettingsContext m_context;
};

// "Yes" or "No" in any case is normalised; anything else gives `defaultValue`.
QString NormalizeYesNo(const QString &value, const QString &defaultValue);
// The text after the first "=" of the line, with blanks around it removed.
QString SettingValue(const QString &line);
