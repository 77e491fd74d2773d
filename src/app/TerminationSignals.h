#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

// Turns SIGTERM, SIGINT and SIGHUP into a call on the event loop, so that the end of a session
// or a Ctrl+C closes the program the way closing its window does, settings saved. The handler
// itself only writes a byte to a pipe; everything else runs on the user-interface thread.
class TerminationSignals
{
public:
    explicit TerminationSignals(std::function<void()> onSignal);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_onSignal;
};
