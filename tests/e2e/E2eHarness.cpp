#include "E2eHarness.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

#ifndef QLV_PROGRAM_PATH
#error "QLV_PROGRAM_PATH must name the qlvcallt executable"
#endif

namespace fs = std::filesystem;

namespace e2e {

namespace {

std::vector<std::string> flatten(const Environment &env)
{
    std::vector<std::string> out;
    for (const auto &[name, value] : env)
        out.push_back(name + '=' + value);
    return out;
}

std::string findInPath(const std::string &name, const Environment &env)
{
    if (name.find('/') != std::string::npos)
        return name;
    const auto path = env.find("PATH");
    std::stringstream dirs(path == env.end() ? std::string("/usr/bin:/bin") : path->second);
    std::string dir;
    while (std::getline(dirs, dir, ':')) {
        const std::string candidate = dir + '/' + name;
        if (::access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return name;
}

std::string makeTempDir(const char *pattern)
{
    std::string name = (fs::temp_directory_path() / pattern).string();
    if (!::mkdtemp(name.data()))
        return {};
    ::chmod(name.c_str(), 0700);
    return name;
}

// Every descendant of `pid`, found through /proc.
std::vector<pid_t> descendants(pid_t pid)
{
    std::vector<pid_t> found;
    std::vector<pid_t> queue { pid };
    while (!queue.empty()) {
        const pid_t next = queue.back();
        queue.pop_back();
        const std::string dir = "/proc/" + std::to_string(next) + "/task";
        std::error_code ec;
        for (const auto &task : fs::directory_iterator(dir, ec)) {
            std::ifstream children(task.path() / "children");
            pid_t child = 0;
            while (children >> child) {
                found.push_back(child);
                queue.push_back(child);
            }
        }
    }
    return found;
}

} // namespace

std::unique_ptr<ChildProcess> ChildProcess::start(const std::vector<std::string> &argv,
                                                  const Environment &env, int stdoutFd,
                                                  bool keepStderr, int fd3)
{
    if (argv.empty())
        return nullptr;
    const std::string file = findInPath(argv.front(), env);
    std::vector<std::string> envStrings = flatten(env);
    std::vector<char *> args;
    for (const auto &a : argv)
        args.push_back(const_cast<char *>(a.c_str()));
    args.push_back(nullptr);
    std::vector<char *> envp;
    for (auto &e : envStrings)
        envp.push_back(e.data());
    envp.push_back(nullptr);

    const pid_t pid = ::fork();
    if (pid < 0)
        return nullptr;
    if (pid == 0) {
        // Its own group, so that ending it also ends whatever it started.
        ::setpgid(0, 0);
        const int devNull = ::open("/dev/null", O_RDWR);
        ::dup2(devNull, STDIN_FILENO);
        ::dup2(stdoutFd >= 0 ? stdoutFd : devNull, STDOUT_FILENO);
        if (!keepStderr)
            ::dup2(devNull, STDERR_FILENO);
        if (fd3 >= 0 && fd3 != 3)
            ::dup2(fd3, 3);
        ::execve(file.c_str(), args.data(), envp.data());
        ::_exit(127);
    }
    ::setpgid(pid, pid);
    return std::unique_ptr<ChildProcess>(new ChildProcess(pid));
}

ChildProcess::~ChildProcess()
{
    terminate();
}

bool ChildProcess::running()
{
    if (m_status)
        return false;
    int status = 0;
    const pid_t got = ::waitpid(m_pid, &status, WNOHANG);
    if (got == m_pid || (got < 0 && errno == ECHILD)) {
        m_status = got == m_pid ? status : -1;
        return false;
    }
    return true;
}

std::optional<int> ChildProcess::waitForExit(std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (running()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return std::nullopt;
        std::this_thread::sleep_for(10ms);
    }
    if (*m_status != -1 && WIFEXITED(*m_status))
        return WEXITSTATUS(*m_status);
    return -1;
}

void ChildProcess::terminate(std::chrono::milliseconds grace)
{
    if (!running()) {
        // The leader is gone; anything it left in its group goes too.
        ::kill(-m_pid, SIGKILL);
        return;
    }
    ::kill(-m_pid, SIGTERM);
    ::kill(m_pid, SIGTERM);
    if (!waitForExit(grace)) {
        ::kill(-m_pid, SIGKILL);
        ::kill(m_pid, SIGKILL);
        waitForExit(5000ms);
    }
    ::kill(-m_pid, SIGKILL);
}

CommandResult runCommand(const std::vector<std::string> &argv, const Environment &env,
                         std::chrono::milliseconds timeout)
{
    CommandResult result;
    int pipeFds[2];
    if (::pipe2(pipeFds, O_CLOEXEC) != 0)
        return result;
    auto child = ChildProcess::start(argv, env, pipeFds[1]);
    ::close(pipeFds[1]);
    if (!child) {
        ::close(pipeFds[0]);
        return result;
    }
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    char buffer[4096];
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            result.timedOut = true;
            break;
        }
        pollfd p { pipeFds[0], POLLIN, 0 };
        const int ready = ::poll(&p, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            continue;
        const ssize_t got = ::read(pipeFds[0], buffer, sizeof buffer);
        if (got <= 0)
            break;
        result.output.append(buffer, static_cast<size_t>(got));
    }
    ::close(pipeFds[0]);
    if (result.timedOut) {
        child->terminate(500ms);
        return result;
    }
    const auto code =
        child->waitForExit(std::max(std::chrono::duration_cast<std::chrono::milliseconds>(
                                        deadline - std::chrono::steady_clock::now()),
                                    100ms));
    if (!code) {
        result.timedOut = true;
        child->terminate(500ms);
        return result;
    }
    result.exitCode = *code;
    return result;
}

bool XServer::start(int width, int height)
{
    int pipeFds[2];
    if (::pipe2(pipeFds, O_CLOEXEC) != 0)
        return false;
    // Xvfb writes its display number to descriptor 3 once it accepts clients. dup2 in the child
    // clears close-on-exec on the copy only, so no other child keeps the pipe open.
    const std::string screen = std::to_string(width) + 'x' + std::to_string(height) + "x24";
    m_process = ChildProcess::start({ "/usr/bin/Xvfb", "-displayfd", "3", "-screen", "0", screen,
                                      "-nolisten", "tcp", "-noreset" },
                                    { { "PATH", "/usr/bin:/bin" } }, -1, false, pipeFds[1]);
    ::close(pipeFds[1]);
    std::string number;
    const auto deadline = std::chrono::steady_clock::now() + 15s;
    while (m_process && std::chrono::steady_clock::now() < deadline) {
        pollfd p { pipeFds[0], POLLIN, 0 };
        if (::poll(&p, 1, 100) <= 0)
            continue;
        char c = 0;
        if (::read(pipeFds[0], &c, 1) <= 0 || c == '\n')
            break;
        number.push_back(c);
    }
    ::close(pipeFds[0]);
    if (number.empty()) {
        stop();
        return false;
    }
    m_display = ':' + number;
    return true;
}

void XServer::stop()
{
    m_process.reset();
    m_display.clear();
}

void E2eTest::SetUp()
{
    ASSERT_TRUE(m_x.start()) << "Xvfb did not start";
    m_root = makeTempDir("qlv-e2e-XXXXXX");
    ASSERT_FALSE(m_root.empty());
    for (const char *sub : { "home", "config", "runtime", "bin" }) {
        fs::create_directory(fs::path(m_root) / sub);
        ::chmod((fs::path(m_root) / sub).c_str(), 0700);
    }
    m_program = (fs::path(m_root) / "bin" / "qlvcallt").string();
    std::error_code ec;
    fs::copy_file(QLV_PROGRAM_PATH, m_program, ec);
    ASSERT_FALSE(ec) << "cannot copy " << QLV_PROGRAM_PATH << ": " << ec.message();
    ::chmod(m_program.c_str(), 0755);
}

void E2eTest::TearDown()
{
    // Programs first (they may still save), then the server, then the files.
    for (auto it = m_children.rbegin(); it != m_children.rend(); ++it)
        (*it)->terminate();
    m_children.clear();
    m_x.stop();
    if (!m_root.empty()) {
        std::error_code ec;
        fs::permissions(m_root, fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(m_root, ec);
    }
}

Environment E2eTest::baseEnvironment() const
{
    return {
        { "PATH", "/usr/local/bin:/usr/bin:/bin" },
        { "HOME", m_root + "/home" },
        { "DISPLAY", m_x.display() },
        { "XDG_CONFIG_HOME", m_root + "/config" },
        { "XDG_RUNTIME_DIR", m_root + "/runtime" },
        { "LANG", "en_US.UTF-8" },
    };
}

ChildProcess &E2eTest::startProgram(const Environment &extra,
                                    const std::vector<std::string> &wrapper,
                                    const std::vector<std::string> &args)
{
    Environment env = baseEnvironment();
    for (const auto &[name, value] : extra) {
        if (value.empty())
            env.erase(name);
        else
            env[name] = value;
    }
    std::vector<std::string> argv = wrapper;
    argv.push_back(m_program);
    argv.insert(argv.end(), args.begin(), args.end());
    auto child = ChildProcess::start(argv, env, -1, true);
    if (!child)
        throw std::runtime_error("cannot start " + m_program);
    m_children.push_back(std::move(child));
    return *m_children.back();
}

std::string E2eTest::waitForWindow(pid_t pid, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (std::chrono::steady_clock::now() < deadline) {
        std::vector<pid_t> candidates { pid };
        const auto more = descendants(pid);
        candidates.insert(candidates.end(), more.begin(), more.end());
        for (const pid_t candidate : candidates) {
            Environment env { { "PATH", "/usr/bin:/bin" }, { "DISPLAY", m_x.display() } };
            const CommandResult found = runCommand({ "xdotool", "search", "--sync", "--onlyvisible",
                                                     "--pid", std::to_string(candidate) },
                                                   env, 500ms);
            if (found.exitCode == 0 && !found.output.empty())
                return found.output.substr(0, found.output.find('\n'));
        }
    }
    return {};
}

bool E2eTest::xdotool(const std::vector<std::string> &args, std::string *output)
{
    std::vector<std::string> argv { "xdotool" };
    argv.insert(argv.end(), args.begin(), args.end());
    const CommandResult result =
        runCommand(argv, { { "PATH", "/usr/bin:/bin" }, { "DISPLAY", m_x.display() } }, 10s);
    if (output)
        *output = result.output;
    return result.exitCode == 0;
}

bool E2eTest::sendKeys(const std::string &window, const std::string &keys)
{
    // With no window manager the focus is whatever XSetInputFocus last named; give it to the
    // window so that the keys, sent through XTEST like real ones, reach it.
    return xdotool({ "windowfocus", "--sync", window }) && xdotool({ "key", keys });
}

bool E2eTest::moveWindow(const std::string &window, int x, int y)
{
    return xdotool({ "windowmove", "--sync", window, std::to_string(x), std::to_string(y) });
}

bool E2eTest::closeLikeAWindowManager(const std::string &window)
{
    xcb_connection_t *connection = xcb_connect(m_x.display().c_str(), nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return false;
    }
    auto atom = [connection](const std::string &name) {
        xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.c_str()),
            nullptr);
        const xcb_atom_t value = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
        std::free(reply);
        return value;
    };
    xcb_client_message_event_t event {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(std::stoul(window));
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection, 0, event.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
    // A round trip: once it returns, the server has handled the event. Hanging up straight
    // after a flush let the server drop it now and then.
    free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    const bool ok = xcb_connection_has_error(connection) == 0 && event.type != XCB_ATOM_NONE;
    xcb_disconnect(connection);
    return ok;
}

std::optional<std::pair<int, int>> E2eTest::windowPosition(const std::string &window)
{
    std::string out;
    if (!xdotool({ "getwindowgeometry", "--shell", window }, &out))
        return std::nullopt;
    std::istringstream lines(out);
    std::string line;
    std::optional<int> x;
    std::optional<int> y;
    while (std::getline(lines, line)) {
        if (line.rfind("X=", 0) == 0)
            x = std::stoi(line.substr(2));
        else if (line.rfind("Y=", 0) == 0)
            y = std::stoi(line.substr(2));
    }
    if (!x || !y)
        return std::nullopt;
    return std::make_pair(*x, *y);
}

std::string E2eTest::settingsFolder() const
{
    return m_root + "/config/QLVCalendarLite";
}

std::string E2eTest::settingsPath() const
{
    return settingsFolder() + "/qlvcal.ini";
}

std::optional<std::string> E2eTest::readSettings() const
{
    std::ifstream in(settingsPath(), std::ios::binary);
    if (!in)
        return std::nullopt;
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void E2eTest::writeSettings(const std::string &content) const
{
    fs::create_directories(settingsFolder());
    std::ofstream out(settingsPath(), std::ios::binary | std::ios::trunc);
    out << content;
}

std::optional<std::string> settingValue(const std::string &text, const std::string &key)
{
    for (const std::string &line : crlfLines(text)) {
        const auto at = line.find(key);
        if (at != std::string::npos)
            return line.substr(at + key.size());
    }
    return std::nullopt;
}

std::vector<std::string> crlfLines(const std::string &text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    for (;;) {
        const size_t end = text.find("\r\n", start);
        if (end == std::string::npos) {
            if (start < text.size())
                lines.push_back(text.substr(start));
            return lines;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
}

} // namespace e2e
