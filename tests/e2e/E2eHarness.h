#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

// Support for tests that run the real qlvcallt under a private X server. Every process started
// here runs in its own process group and is ended by its PID, also when a test fails.
namespace e2e {

using Environment = std::map<std::string, std::string>;
using namespace std::chrono_literals;

struct CommandResult
{
    int exitCode = -1; // -1 when it was killed or could not start
    bool timedOut = false;
    std::string output; // standard output
};

// A started child process, leader of its own process group.
class ChildProcess
{
public:
    // Starts argv[0] (looked up in PATH of `env` when it has no "/") with exactly `env`.
    // Standard output goes to `stdoutFd` when it is not -1, else to /dev/null; standard error
    // to /dev/null unless `keepStderr`. `fd3`, when given, is handed over as descriptor 3.
    static std::unique_ptr<ChildProcess> start(const std::vector<std::string> &argv,
                                               const Environment &env, int stdoutFd = -1,
                                               bool keepStderr = false, int fd3 = -1);
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    pid_t pid() const { return m_pid; }
    bool running();
    // The exit code once the process has ended by itself within `timeout`; -1 after a signal.
    std::optional<int> waitForExit(std::chrono::milliseconds timeout);
    // SIGTERM to the whole group, then SIGKILL after `grace`; always reaps the leader.
    void terminate(std::chrono::milliseconds grace = 2000ms);

private:
    explicit ChildProcess(pid_t pid)
        : m_pid(pid)
    { }
    pid_t m_pid;
    std::optional<int> m_status; // raw wait status once reaped
};

// Runs a command to its end, killing it by PID when it outlives `timeout`.
CommandResult runCommand(const std::vector<std::string> &argv, const Environment &env,
                         std::chrono::milliseconds timeout = 10s);

// An Xvfb on a display number it picks itself (-displayfd).
class XServer
{
public:
    XServer() = default;
    ~XServer() { stop(); }
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    bool start(int width = 1280, int height = 800);
    void stop();
    const std::string &display() const { return m_display; }

private:
    std::unique_ptr<ChildProcess> m_process;
    std::string m_display;
};

// One private X server and one private home, config and runtime folder per test.
class E2eTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // PATH, HOME, DISPLAY, XDG_CONFIG_HOME, XDG_RUNTIME_DIR and LANG=en_US.UTF-8.
    Environment baseEnvironment() const;
    // Starts the program (a private copy of it, so that no settings file beside the build's
    // executable can interfere) with the base environment plus `extra`; an empty value removes
    // a variable. `wrapper` (e.g. strace and its options) runs the program when given.
    ChildProcess &startProgram(const Environment &extra = {},
                               const std::vector<std::string> &wrapper = {},
                               const std::vector<std::string> &args = {});
    // The visible window of `pid` or of one of its descendants, or "" after `timeout`.
    std::string waitForWindow(pid_t pid, std::chrono::milliseconds timeout = 15s);
    // Runs xdotool on this test's display; true when it succeeded.
    bool xdotool(const std::vector<std::string> &args, std::string *output = nullptr);
    // Gives the window the keyboard focus and types `keys` (xdotool key syntax: "Escape",
    // "alt+q").
    bool sendKeys(const std::string &window, const std::string &keys);
    bool moveWindow(const std::string &window, int x, int y);
    // Asks the window to close as a window manager does (WM_PROTOCOLS / WM_DELETE_WINDOW).
    bool closeLikeAWindowManager(const std::string &window);
    // The window's top-left corner on the screen.
    std::optional<std::pair<int, int>> windowPosition(const std::string &window);

    std::string settingsFolder() const;
    std::string settingsPath() const;
    std::optional<std::string> readSettings() const;
    void writeSettings(const std::string &content) const;

    const std::string &tempRoot() const { return m_root; }
    const std::string &programPath() const { return m_program; }
    const std::string &display() const { return m_x.display(); }

private:
    XServer m_x;
    std::string m_root;
    std::string m_program;
    std::vector<std::unique_ptr<ChildProcess>> m_children;
};

// Names parameterised tests after the `name` member of their rows.
struct RowName
{
    template<class Row>
    std::string operator()(const ::testing::TestParamInfo<Row> &row) const
    {
        return row.param.name;
    }
};

// The value of `key` ("Language=") in a settings text, the first line holding it; nullopt when
// no line does.
std::optional<std::string> settingValue(const std::string &text, const std::string &key);
// The lines of a text split at CR LF.
std::vector<std::string> crlfLines(const std::string &text);

} // namespace e2e
