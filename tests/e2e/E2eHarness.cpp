#include "E2eHarness.h"

#include "support/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <memory>
#include <xcb/xcb.h>

namespace e2e {

namespace {

template<typename T>
using Reply = std::unique_ptr<T, decltype(&free)>;

template<typename T>
Reply<T> reply(T *r)
{
    return { r, &free };
}

// A process that has not ended; a copy that ended and was not yet reaped counts as ended.
bool alive(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    const QByteArray line = stat.open(QIODevice::ReadOnly) ? stat.readAll() : QByteArray();
    const qsizetype close = line.lastIndexOf(')');
    return close > 0 && line.size() > close + 2 && line.at(close + 2) != 'Z';
}

void end(QProcess &p)
{
    p.terminate();
    if (!p.waitForFinished(3000)) {
        p.kill();
        p.waitForFinished(3000);
    }
}

} // namespace

qint64 msUntil(const std::function<bool()> &done, int limitMs)
{
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > limitMs)
            return -1;
        QThread::msleep(20);
    }
    return clock.elapsed();
}

void E2eTest::SetUp()
{
    QTemporaryDir dir(QDir::tempPath() + QStringLiteral("/qlv-e2e-XXXXXX"));
    dir.setAutoRemove(false);
    m_root = dir.path();
    for (const char *sub : { "/home", "/config", "/runtime", "/bin" })
        QDir().mkdir(m_root + QLatin1StringView(sub),
                     QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // A private copy, so that no settings file beside the build is taken for ours.
    ASSERT_TRUE(
        QFile::copy(QStringLiteral(QLV_PROGRAM_PATH), m_root + QStringLiteral("/bin/qlvcallt")));
    // Xvfb picks a free display and writes its number once it accepts clients.
    QProcess &x = start({ "Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten",
                          "tcp", "-noreset" });
    ASSERT_TRUE(waitFor([&] { return x.waitForReadyRead(100) && x.canReadLine(); }, 15000));
    m_display = QLatin1Char(':') + QString::fromLatin1(x.readLine().trimmed());
    m_x = xcb_connect(m_display.toLatin1().constData(), nullptr);
}

void E2eTest::TearDown()
{
    // The program's copies, then the programs (they may still save), then the server.
    for (const qint64 pid : m_adopted) {
        ::kill(pid_t(pid), SIGTERM);
        if (!waitFor([pid] { return !alive(pid); }, 3000))
            ::kill(pid_t(pid), SIGKILL);
    }
    if (m_x)
        xcb_disconnect(m_x);
    for (auto it = m_processes.rbegin(); it != m_processes.rend(); ++it)
        end(**it);
    m_processes.clear();
    QDir(m_root).removeRecursively();
}

QProcess &E2eTest::start(const Args &argv)
{
    QProcessEnvironment env;
    env.insert(QStringLiteral("PATH"), QStringLiteral("/usr/local/bin:/usr/bin:/bin"));
    env.insert(QStringLiteral("HOME"), m_root + QStringLiteral("/home"));
    env.insert(QStringLiteral("DISPLAY"), m_display);
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_root + QStringLiteral("/config"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_root + QStringLiteral("/runtime"));
    env.insert(QStringLiteral("LANG"), QStringLiteral("en_US.UTF-8"));
    auto &p = *m_processes.emplace_back(std::make_unique<QProcess>());
    p.setProcessEnvironment(env);
    QStringList args;
    for (const std::string &a : argv)
        args.append(QString::fromStdString(a));
    p.start(args.takeFirst(), args);
    p.waitForStarted(10000);
    return p;
}

QProcess &E2eTest::startProgram(const Args &wrapper)
{
    Args argv = wrapper;
    argv.push_back((m_root + QStringLiteral("/bin/qlvcallt")).toStdString());
    return start(argv);
}

void E2eTest::startWindowManager(const std::string &name)
{
    if (name.empty())
        return;
    QProcess &wm = start({ name });
    ASSERT_TRUE(waitFor(
        [&] { return xprop({}, "_NET_SUPPORTING_WM_CHECK").contains(QStringLiteral("window id")); },
        15000))
        << name << " did not take the screen";
    QThread::msleep(500);
    ASSERT_EQ(wm.state(), QProcess::Running);
}

QProcess &E2eTest::openCalendar(const std::string &wm, const QByteArray &settings,
                                const Args &wrapper)
{
    startWindowManager(wm);
    if (!settings.isNull())
        writeSettings(settings);
    QProcess &program = startProgram(wrapper);
    m_main = mainWindow(30000);
    EXPECT_FALSE(m_main.empty()) << "no window";
    // Without a window manager the focus is whatever was last named; with one, ask it.
    EXPECT_TRUE(xdotool({ wm.empty() ? "windowfocus" : "windowactivate", "--sync", m_main }));
    return program;
}

void E2eTest::startCompositor()
{
    start({ "xcompmgr", "-n" });
    const auto atom =
        reply(xcb_intern_atom_reply(m_x, xcb_intern_atom(m_x, 0, 13, "_NET_WM_CM_S0"), nullptr));
    ASSERT_TRUE(atom);
    EXPECT_TRUE(waitFor(
        [&] {
            const auto owner = reply(xcb_get_selection_owner_reply(
                m_x, xcb_get_selection_owner(m_x, atom->atom), nullptr));
            return owner && owner->owner != XCB_NONE;
        },
        10000));
}

bool E2eTest::run(const Args &argv, QString *out)
{
    QProcess &p = start(argv);
    if (!p.waitForFinished(10000))
        end(p);
    if (out)
        *out = QString::fromLocal8Bit(p.readAllStandardOutput()).trimmed();
    const bool ok = p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    m_processes.pop_back();
    return ok;
}

std::map<qint64, std::string> E2eTest::adoptCopies(qint64 pid)
{
    std::map<qint64, std::string> copies;
    for (const std::string &w : windows("QLV Calendar Lite", 0)) {
        QString copy;
        if (run({ "xdotool", "getwindowpid", w }, &copy) && copy.toLongLong() != pid) {
            copies[copy.toLongLong()] = w;
            m_adopted.push_back(copy.toLongLong());
        }
    }
    return copies;
}

Args E2eTest::windows(const std::string &title, int waitMs)
{
    Args found;
    waitFor(
        [&] {
            QString out;
            run({ "xdotool", "search", "--onlyvisible", "--name", '^' + title + '$' }, &out);
            found.clear();
            for (const QString &w : out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
                found.push_back(w.toStdString());
            return !found.empty();
        },
        waitMs);
    return found;
}

std::string E2eTest::mainWindow(int waitMs)
{
    const Args found = windows("QLV Calendar Lite", waitMs);
    return found.empty() ? std::string() : found.front();
}

QRect E2eTest::geometry(const std::string &window)
{
    // WINDOW=, X=, Y=, WIDTH=, HEIGHT= and SCREEN= lines.
    QString out;
    run({ "xdotool", "getwindowgeometry", "--shell", window }, &out);
    const QStringList lines = out.split(QLatin1Char('\n'));
    const auto value = [&](int line) {
        return lines.value(line).section(QLatin1Char('='), 1).toInt();
    };
    return { value(1), value(2), value(3), value(4) };
}

int E2eTest::stackIndex(const std::string &window)
{
    // The root's child that holds the window: the window itself, or its frame.
    xcb_window_t w = xcb_window_t(std::stoul(window));
    for (;;) {
        const auto tree = reply(xcb_query_tree_reply(m_x, xcb_query_tree(m_x, w), nullptr));
        if (!tree || tree->parent == tree->root || tree->parent == XCB_NONE)
            break;
        w = tree->parent;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data->root;
    const auto top = reply(xcb_query_tree_reply(m_x, xcb_query_tree(m_x, root), nullptr));
    const xcb_window_t *children = xcb_query_tree_children(top.get());
    int mapped = 0;
    for (int i = 0; i < xcb_query_tree_children_length(top.get()); ++i) {
        const auto a = reply(xcb_get_window_attributes_reply(
            m_x, xcb_get_window_attributes(m_x, children[i]), nullptr));
        if (a && a->map_state == XCB_MAP_STATE_VIEWABLE && children[i] == w)
            return mapped;
        mapped += a && a->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    return -1;
}

QString E2eTest::xprop(const std::string &window, const char *name)
{
    QString out;
    run(window.empty() ? Args { "xprop", "-root", name } : Args { "xprop", "-id", window, name },
        &out);
    return out;
}

QByteArray E2eTest::readSettings() const
{
    return readBytes(settingsFolder() + QStringLiteral("qlvcal.ini"));
}

void E2eTest::writeSettings(const QByteArray &content) const
{
    ASSERT_TRUE(writeBytes(settingsFolder() + QStringLiteral("qlvcal.ini"), content));
}

QString E2eTest::setting(const char *key) const
{
    for (const QByteArray &line : readSettings().split('\n')) {
        if (line.startsWith(key))
            return QString::fromLatin1(line.mid(qstrlen(key)).trimmed());
    }
    return {};
}

} // namespace e2e

int main(int argc, char **argv)
{
    // QProcess needs an application object for its notifiers.
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
