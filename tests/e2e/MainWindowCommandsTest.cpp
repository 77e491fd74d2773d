#include "E2eHarness.h"

#include <QDate>
#include <QLocale>
#include <QString>

#include <csignal>
#include <fstream>
#include <sstream>
#include <thread>

using namespace e2e;

namespace {

constexpr const char *MainTitle = "QLV Calendar Lite";

// The copy button's centre in the Main window's own coordinates.
constexpr int CopyX = 329;
constexpr int CopyY = 17;

// Whether `pid` is still a live process; a zombie waiting for a parent that never reaps it
// counts as ended.
bool alive(pid_t pid)
{
    if (::kill(pid, 0) != 0)
        return false;
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    std::getline(stat, line);
    const auto close = line.rfind(')');
    return close == std::string::npos || line.size() < close + 3 || line[close + 2] != 'Z';
}

bool waitUntilGone(pid_t pid, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (alive(pid)) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(20ms);
    }
    return true;
}

// A process this test did not start itself (the program started it detached): ended by its PID
// when the test leaves, whatever happened before.
class ForeignProcess
{
public:
    explicit ForeignProcess(pid_t pid)
        : m_pid(pid)
    { }
    ~ForeignProcess()
    {
        if (m_pid <= 0 || !alive(m_pid))
            return;
        ::kill(m_pid, SIGTERM);
        if (!waitUntilGone(m_pid, 2s))
            ::kill(m_pid, SIGKILL);
    }
    ForeignProcess(const ForeignProcess &) = delete;
    ForeignProcess &operator=(const ForeignProcess &) = delete;

private:
    pid_t m_pid;
};

// The short date with its two-digit year widened, then two spaces and the long date: the text
// the copy button leaves on the clipboard.
std::string copiedText(QDate date)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    QString shortPattern = locale.dateFormat(QLocale::ShortFormat);
    if (!shortPattern.contains(QStringLiteral("yyyy")))
        shortPattern.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return (locale.toString(date, shortPattern) + QStringLiteral("  ")
            + locale.toString(date, QLocale::LongFormat))
        .toStdString();
}

class MainWindowCommands : public E2eTest
{
protected:
    void SetUp() override
    {
        E2eTest::SetUp();
        if (HasFatalFailure())
            return;
        // 1500 twips is 100 pixels on a 96-dpi screen.
        writeSettings("[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\n"
                      "CalendarLeft=1500\r\nCalendarTop=1500\r\n");
    }

    Environment xEnv() const { return { { "PATH", "/usr/bin:/bin" }, { "DISPLAY", display() } }; }

    std::vector<std::string> mainWindows()
    {
        std::string out;
        xdotool({ "search", "--onlyvisible", "--name", std::string("^") + MainTitle + "$" }, &out);
        std::vector<std::string> ids;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty())
                ids.push_back(line);
        }
        return ids;
    }

    // A visible Main window other than `known`, or "" after `timeout`.
    std::string waitForAnotherWindow(const std::string &known, std::chrono::milliseconds timeout)
    {
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        do {
            for (const std::string &id : mainWindows()) {
                if (id != known)
                    return id;
            }
            std::this_thread::sleep_for(50ms);
        } while (std::chrono::steady_clock::now() < deadline);
        return {};
    }

    std::optional<pid_t> windowPid(const std::string &window)
    {
        std::string out;
        if (!xdotool({ "getwindowpid", window }, &out) || out.empty())
            return std::nullopt;
        return static_cast<pid_t>(std::stol(out));
    }

    std::string clipboard()
    {
        return runCommand({ "xclip", "-o", "-selection", "clipboard" }, xEnv(), 5s).output;
    }
};

} // namespace

TEST_F(MainWindowCommands, CopyPutsBothDatesOnTheClipboard)
{
    ChildProcess &program = startProgram();
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty());

    const QDate before = QDate::currentDate();
    ASSERT_TRUE(xdotool({ "mousemove", "--sync", "--window", window, std::to_string(CopyX),
                          std::to_string(CopyY) }));
    ASSERT_TRUE(xdotool({ "click", "1" }));
    // The program owns the selection; poll until it has answered with the dates.
    std::string got;
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    do {
        got = clipboard();
        if (!got.empty())
            break;
        std::this_thread::sleep_for(100ms);
    } while (std::chrono::steady_clock::now() < deadline);
    const QDate after = QDate::currentDate();
    // Past midnight between the two readings either day is right.
    const std::string expected = got == copiedText(after) ? copiedText(after) : copiedText(before);
    EXPECT_EQ(got, expected);
}

TEST_F(MainWindowCommands, CtrlNStartsASecondCalendarAndBothCloseWhenTold)
{
    ChildProcess &program = startProgram();
    const std::string first = waitForWindow(program.pid());
    ASSERT_FALSE(first.empty());

    ASSERT_TRUE(sendKeys(first, "ctrl+n"));
    const std::string second = waitForAnotherWindow(first, 15s);
    ASSERT_FALSE(second.empty()) << "no second calendar after Ctrl+N";
    const auto secondPid = windowPid(second);
    ASSERT_TRUE(secondPid);
    ForeignProcess guard(*secondPid);
    EXPECT_NE(*secondPid, program.pid());
    EXPECT_TRUE(program.running());

    ASSERT_TRUE(sendKeys(second, "Escape"));
    EXPECT_TRUE(waitUntilGone(*secondPid, 10s)) << "the second calendar did not close";
    EXPECT_TRUE(program.running()) << "closing the second calendar ended the first";

    ASSERT_TRUE(sendKeys(first, "Escape"));
    EXPECT_EQ(program.waitForExit(10s), 0);
}

TEST_F(MainWindowCommands, AltQSavesWhereTheWindowWasMoved)
{
    ChildProcess &program = startProgram();
    const std::string window = waitForWindow(program.pid());
    ASSERT_FALSE(window.empty());
    EXPECT_EQ(windowPosition(window), std::make_pair(100, 100));

    ASSERT_TRUE(moveWindow(window, 300, 200));
    ASSERT_TRUE(sendKeys(window, "alt+q"));
    EXPECT_EQ(program.waitForExit(10s), 0) << "Alt+Q did not close the calendar";
    const std::string text = readSettings().value_or("");
    EXPECT_EQ(settingValue(text, "CalendarLeft="), "4500") << text;
    EXPECT_EQ(settingValue(text, "CalendarTop="), "3000") << text;
}
