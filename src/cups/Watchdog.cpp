#include "Watchdog.h"

#include <QtGlobal>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{
using namespace std::chrono_literals;

/** How soon a connection that is still in use after its end is looked at again. */
constexpr auto Pause = 20ms;

/** While it lives, this thread and those that it starts take no signals. */
class SignalsElsewhere
{
public:
    SignalsElsewhere()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    SignalsElsewhere(const SignalsElsewhere &) = delete;
    SignalsElsewhere &operator=(const SignalsElsewhere &) = delete;
    ~SignalsElsewhere() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before;
};

/** A descriptor of its own for what `descriptor` stands for at this moment. */
class Duplicate
{
public:
    explicit Duplicate(int descriptor)
        : m_descriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, 0))
    {
    }
    Duplicate(const Duplicate &) = delete;
    Duplicate &operator=(const Duplicate &) = delete;
    ~Duplicate()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

bool isConnectedTo(int socket, http_addr_t *address)
{
    http_addr_t peer = {};
    socklen_t size = sizeof peer;
    return address && getpeername(socket, &peer.addr, &size) == 0 &&
           httpAddrEqual(&peer, address) && httpAddrPort(&peer) == httpAddrPort(address);
}

/**
 * The library may be connecting anew at this moment, on its own thread, and the descriptor may be
 * another file's already. Hence the look at what it is, at a duplicate that nobody else closes.
 */
void endExchange(http_t *http)
{
    const Duplicate socket(httpGetFd(http));
    if (socket.get() >= 0 && isConnectedTo(socket.get(), httpGetAddress(http)))
        shutdown(socket.get(), SHUT_RDWR);
}
} // namespace

Watchdog &Watchdog::instance()
{
    static Watchdog &watchdog = *new Watchdog;
    return watchdog;
}

Watchdog::Watchdog()
{
    const SignalsElsewhere inherited;
    try {
        std::thread(&Watchdog::run, this).detach();
    } catch (const std::system_error &) {
        qWarning("Watchdog: no thread could be started");
    }
}

void Watchdog::watch(http_t *http, Clock::time_point deadline)
{
    const std::scoped_lock lock(m_mutex);
    m_deadlines[http] = deadline;
    m_isChanged.notify_one();
}

bool Watchdog::postpone(http_t *http, Clock::time_point deadline)
{
    const std::scoped_lock lock(m_mutex);
    const auto watched = m_deadlines.find(http);
    if (watched == m_deadlines.end())
        return false;
    watched->second = deadline;
    m_isChanged.notify_one();
    return true;
}

void Watchdog::forget(http_t *http)
{
    const std::scoped_lock lock(m_mutex);
    m_deadlines.erase(http);
}

Watchdog::Clock::time_point Watchdog::deadline(http_t *http)
{
    const std::scoped_lock lock(m_mutex);
    const auto watched = m_deadlines.find(http);
    return watched == m_deadlines.end() ? Clock::time_point::max() : watched->second;
}

void Watchdog::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        const Clock::time_point next = endOverdue();
        if (next == Clock::time_point::max())
            m_isChanged.wait(lock);
        else
            m_isChanged.wait_until(lock, next);
    }
}

Watchdog::Clock::time_point Watchdog::endOverdue()
{
    const Clock::time_point now = Clock::now();
    Clock::time_point next = Clock::time_point::max();
    for (const auto &[http, deadline] : m_deadlines) {
        if (deadline <= now)
            endExchange(http);
        next = std::min(next, std::max(deadline, now + Pause));
    }
    return next;
}
