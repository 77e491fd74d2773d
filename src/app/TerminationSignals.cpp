#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int signalPipe[2] = { -1, -1 };
constexpr int HandledSignals[] = { SIGTERM, SIGINT, SIGHUP };

void onSignal(int /*signal*/)
{
    const int saved = errno;
    const char byte = 1;
    // Async-signal-safe; a full pipe already holds a wake-up, so a failed write loses nothing.
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = saved;
}

void setHandler(void (*handler)(int))
{
    struct sigaction action
    { };
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : HandledSignals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onSignalCall)
    : m_onSignal(std::move(onSignalCall))
{
    if (signalPipe[0] < 0 && ::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        char drain[64];
        while (::read(signalPipe[0], drain, sizeof drain) > 0) { }
        if (m_onSignal)
            m_onSignal();
    });
    setHandler(onSignal);
}

TerminationSignals::~TerminationSignals()
{
    if (m_notifier)
        setHandler(SIG_DFL);
}
