#include "Watchdog.h"

#include "SignalsElsewhere.h"

#include <QtGlobal>

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{
using namespace std::chrono_literals;

/** How soon a connection that is still in use after its end is looked at again. */
constexpr auto Pause = 20ms;

/** How often a file that is being sent is looked at in the time that it may stand still. */
constexpr int LooksAtFile = 15;

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

/** Whether the paths lead to one socket; also where the first one leads nowhere from here. */
bool isSameFile(const char *bound, const char *used)
{
    struct stat first = {};
    struct stat second = {};
    if (bound[0] == '\0' || stat(used, &second) != 0)
        return false;
    return stat(bound, &first) != 0 ||
           (first.st_dev == second.st_dev && first.st_ino == second.st_ino);
}

/** The peer's name is the one that it was given, which another path may lead to. */
bool isEqual(http_addr_t &peer, http_addr_t &address)
{
    if (peer.addr.sa_family == AF_LOCAL && address.addr.sa_family == AF_LOCAL)
        return isSameFile(peer.un.sun_path, address.un.sun_path);
    return httpAddrEqual(&peer, &address) && httpAddrPort(&peer) == httpAddrPort(&address);
}

bool isConnectedTo(int socket, http_addr_t *address)
{
    http_addr_t peer = {};
    socklen_t size = sizeof peer;
    return address && getpeername(socket, &peer.addr, &size) == 0 && isEqual(peer, *address);
}

/** Whether it is a socket that is being connected over the network, to that port. */
bool isConnecting(int socket, int port)
{
    tcp_info info = {};
    socklen_t size = sizeof info;
    if (getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0 ||
        info.tcpi_state != TCP_SYN_SENT)
        return false;
    // No more may be asked for than the address has; the port is at one place in all of them.
    sockaddr_in peer = {};
    size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERNAME, &peer, &size) == 0 &&
           ntohs(peer.sin_port) == port;
}

/**
 * Ends what the process is connecting to at the server's port. Of a connection that the library
 * makes anew, for which it takes half a minute, nothing else can be seen.
 */
void endConnecting(int port)
{
    DIR *const list = opendir("/proc/self/fd");
    if (!list)
        return;
    while (const dirent *entry = readdir(list)) {
        const int number = std::atoi(entry->d_name);
        if (!isConnecting(number, port))
            continue;
        const Duplicate socket(number);
        if (isConnecting(socket.get(), port))
            shutdown(socket.get(), SHUT_RDWR);
    }
    closedir(list);
}

/**
 * The library may be connecting anew at this moment, on its own thread, and the descriptor may be
 * another file's already. Hence the look at what it is, at a duplicate that nobody else closes.
 */
void endExchange(http_t *http, int port)
{
    const Duplicate socket(httpGetFd(http));
    if (socket.get() < 0 && port != 0)
        endConnecting(port);
    else if (isConnectedTo(socket.get(), httpGetAddress(http)))
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
        m_isRunning = true;
    } catch (const std::system_error &) {
        qWarning("Watchdog: no thread could be started");
    }
}

void Watchdog::Watched::noticeProgress(Clock::time_point now)
{
    const off_t position = file >= 0 ? lseek(file, 0, SEEK_CUR) : 0;
    if (position <= furthest)
        return;
    furthest = position;
    deadline = std::max(deadline, now + patience);
}

Watchdog::Clock::time_point Watchdog::Watched::nextLook(Clock::time_point now) const
{
    return file >= 0 ? std::min(deadline, now + patience / LooksAtFile) : deadline;
}

void Watchdog::watch(http_t *http, Clock::time_point deadline, int port)
{
    const std::scoped_lock lock(m_mutex);
    m_watched[http] = {deadline, port};
    m_isChanged.notify_one();
}

bool Watchdog::postpone(http_t *http, Clock::time_point deadline)
{
    const std::scoped_lock lock(m_mutex);
    const auto watched = m_watched.find(http);
    if (watched == m_watched.end())
        return false;
    watched->second.deadline = deadline;
    // The server may want the file once more from its start.
    watched->second.furthest = 0;
    m_isChanged.notify_one();
    return true;
}

void Watchdog::follow(http_t *http, int file, Clock::duration patience)
{
    const std::scoped_lock lock(m_mutex);
    const auto watched = m_watched.find(http);
    if (watched == m_watched.end())
        return;
    watched->second.file = file;
    watched->second.furthest = 0;
    watched->second.patience = patience;
    m_isChanged.notify_one();
}

void Watchdog::forget(http_t *http)
{
    const std::scoped_lock lock(m_mutex);
    m_watched.erase(http);
}

Watchdog::Clock::time_point Watchdog::deadline(http_t *http)
{
    const std::scoped_lock lock(m_mutex);
    const auto watched = m_watched.find(http);
    if (watched == m_watched.end())
        return Clock::time_point::max();
    watched->second.noticeProgress(Clock::now());
    return watched->second.deadline;
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
    for (auto &[http, watched] : m_watched) {
        watched.noticeProgress(now);
        if (watched.deadline <= now)
            endExchange(http, watched.port);
        next = std::min(next, std::max(watched.nextLook(now), now + Pause));
    }
    return next;
}
