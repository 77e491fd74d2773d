#pragma once

#include "support/QtPrinters.h"

#include <QPoint>
#include <QProcess>
#include <QRect>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct xcb_connection_t;

// The real qlvcallt under a private Xvfb, optionally with a window manager and a compositor,
// driven through XTEST by xdotool. Every process is ended by its PID, also when a test fails.
namespace e2e {

using Args = std::vector<std::string>;

class E2eTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts a process on this test's display with its own PATH, HOME, XDG_CONFIG_HOME,
    // XDG_RUNTIME_DIR and LANG=en_US.UTF-8; it is ended at teardown if still running.
    QProcess &start(const Args &argv);
    // A private copy of the program (no settings file beside the build interferes), run by
    // `wrapper` when given.
    QProcess &startProgram(const Args &wrapper = {});
    // "openbox", "icewm" or "fluxbox": returns once it manages the screen. "" starts nothing.
    void startWindowManager(const std::string &name);
    // xcompmgr, once it owns the compositing selection.
    void startCompositor();
    // The calendar windows of processes other than `pid`, by process: copies the program
    // started itself, each ended by its PID at teardown.
    std::map<qint64, std::string> adoptCopies(qint64 pid);

    // The window manager `wm` (none when ""), `settings` as the settings file (none when null)
    // and the program, whose window gets the focus; m_main is that window.
    QProcess &openCalendar(const std::string &wm, const QByteArray &settings,
                           const Args &wrapper = {});
    bool mouseTo(QPoint p)
    {
        return xdotool({ "mousemove", "--sync", std::to_string(p.x()), std::to_string(p.y()) });
    }

    // Runs a tool to its end; true when it succeeded. Its output goes to `out`.
    bool run(const Args &argv, QString *out = nullptr);
    bool xdotool(Args args) { return args.insert(args.begin(), "xdotool"), run(args); }
    // Visible windows titled exactly `title`, waiting up to `waitMs` for the first.
    Args windows(const std::string &title, int waitMs = 15000);
    std::string mainWindow(int waitMs = 15000);
    QRect geometry(const std::string &window);
    // Position among the root's mapped children of the one that holds `window` (its frame under
    // a window manager), bottom first; -1 when it is not there.
    int stackIndex(const std::string &window);
    // A property of `window` (of the root when "") as xprop prints it.
    QString xprop(const std::string &window, const char *name);

    QString settingsFolder() const { return m_root + QStringLiteral("/config/QLVCalendarLite/"); }
    QByteArray readSettings() const;
    void writeSettings(const QByteArray &content) const;
    // The value after `key` ("CalendarLeft=") in the settings file, or "" when missing.
    QString setting(const char *key) const;

    QString m_display;
    QString m_root;
    std::string m_main;

private:
    xcb_connection_t *m_x = nullptr;
    std::vector<std::unique_ptr<QProcess>> m_processes;
    std::vector<qint64> m_adopted;
};

// Milliseconds until `done` holds, polled every 20 ms; -1 when it did not within `limitMs`.
qint64 msUntil(const std::function<bool()> &done, int limitMs);
inline bool waitFor(const std::function<bool()> &done, int ms)
{
    return msUntil(done, ms) >= 0;
}

// Names parameterised tests after the `name` member of their rows.
inline const auto rowName = [](const auto &row) { return std::string(row.param.name); };

} // namespace e2e
