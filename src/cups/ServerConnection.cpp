#include "ServerConnection.h"

#include "SignalsElsewhere.h"
#include "Watchdog.h"

#include <array>
#include <chrono>
#include <cstring>
#include <future>
#include <malloc.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <utility>

namespace
{
using Clock = Watchdog::Clock;

constexpr int Blocking = 1;
constexpr int NotYet = 0;
/** For the waits that the library still starts on a connection that has been given up. */
constexpr double LastWaitSeconds = 0.05;

thread_local unsigned openingCount = 0;
thread_local bool isLetIn = false;

bool isOver(Clock::time_point deadline)
{
    return Clock::now() >= deadline;
}

/** Called after each wait without an answer: whether to wait once more. */
int waitsOn(http_t *http, void *)
{
    if (!ServerConnection::isTimeOver(http))
        return 1;
    httpSetTimeout(http, LastWaitSeconds, waitsOn, nullptr);
    return 0;
}

/**
 * Where nobody else ends what takes too long. With such a limit the library asks before each read
 * whether there is something to read, and it reads a few bytes at a time: that is as much work as
 * the reading.
 */
void limitWaits(http_t *http)
{
    if (!Watchdog::instance().isRunning())
        httpSetTimeout(http, ServerConnection::limits().waitSeconds, waitsOn, nullptr);
}

/** The time that this thread's connections share. */
struct SharedTime {
    int scopes = 0;
    Clock::time_point deadline;
    bool isGivenUp = false;

    bool isInForce() const { return scopes > 0; }
};
thread_local SharedTime sharedTime;

Clock::time_point
freshDeadline(ServerConnection::Question question = ServerConnection::Question::Usual)
{
    const ServerConnection::Limits &limits = ServerConnection::limits();
    const bool isSlow = question == ServerConnection::Question::SlowList;
    return Clock::now() + std::chrono::milliseconds(isSlow ? limits.slowListMs() : limits.totalMs);
}

/** Overwrites what follows `mark` in the memory, up to the end of that text or line. */
void wipeAfterThis(std::string_view mark, char *memory, size_t size)
{
    char *const end = memory + size;
    while (auto *found = static_cast<char *>(
               memmem(memory, static_cast<size_t>(end - memory), mark.data(), mark.size()))) {
        memory = found + mark.size();
        while (memory < end && *memory != '\0' && *memory != '\r')
            *memory++ = 'x';
    }
}

/**
 * The same, also where the mark has lost its first character: by that alone the library empties a
 * text before it asks again.
 */
void wipeAfter(std::string mark, char *memory, size_t size)
{
    wipeAfterThis(mark, memory, size);
    mark.front() = '\0';
    wipeAfterThis(mark, memory, size);
}

void wipe(const char *text)
{
    if (text)
        explicit_bzero(const_cast<char *>(text), std::strlen(text));
}

/**
 * Overwrites the stack below, where the library has composed what it sent: with an encrypted
 * connection the name and password are left there.
 */
[[gnu::noinline]] void wipeStack()
{
    std::array<char, 0x40000> below;
    explicit_bzero(below.data(), below.size());
}

/**
 * Overwrites the name and password that the server was given. The library hands the memory of a
 * connection back as it is, where it would wait for the next one that reads it.
 */
void forgetCredentials(http_t *http)
{
    wipe(httpGetAuthString(http));
    auto *const memory = reinterpret_cast<char *>(http);
    const size_t size = malloc_usable_size(http);
    wipeAfter("Basic ", memory, size);
    // A shorter mark could be found in what is no text, such as a pointer that is still needed.
    constexpr size_t ShortestMark = 4;
    const std::string mark = std::string(cupsUser()) + ':';
    if (mark.size() >= ShortestMark)
        wipeAfter(mark, memory, size);
}

struct AddressesDeleter {
    void operator()(http_addrlist_t *addresses) const { httpAddrFreeList(addresses); }
};
using Addresses = std::unique_ptr<http_addrlist_t, AddressesDeleter>;

/** Whether it is the path of a socket. */
bool isLocal(std::string_view host)
{
    return host.starts_with('/');
}

Addresses lookUp(const std::string &host, const std::string &port)
{
    return Addresses(httpAddrGetList(host.c_str(), AF_UNSPEC, port.c_str()));
}

/**
 * The addresses of the configured server; null when there are none, or none by then. Name servers
 * that do not answer take their time, which nothing can end: a thread is left behind with them.
 */
Addresses addressesOfServer(Clock::time_point deadline)
{
    const std::string host = cupsServer();
    const std::string port = std::to_string(ippPort());
    if (isLocal(host))
        return lookUp(host, port);
    // Here and not on the thread: a process that ends meanwhile takes down what this sets up.
    httpInitialize();
    std::packaged_task<Addresses()> task([host, port] { return lookUp(host, port); });
    std::future<Addresses> found = task.get_future();
    try {
        const SignalsElsewhere inherited;
        std::thread(std::move(task)).detach();
    } catch (const std::system_error &) {
        return lookUp(host, port);
    }
    return found.wait_until(deadline) == std::future_status::ready ? found.get() : nullptr;
}

/** The server's connection before it is made. */
ServerConnection::Ptr create(http_addrlist_t *addresses)
{
    return ServerConnection::Ptr(httpConnect2(cupsServer(), ippPort(), addresses, AF_UNSPEC,
                                              cupsEncryption(), Blocking, NotYet, nullptr));
}
} // namespace

namespace ServerConnection
{
Limits &limits()
{
    static Limits inForce;
    return inForce;
}

Ptr open(Question question)
{
    const Clock::time_point deadline =
        sharedTime.isInForce() ? sharedTime.deadline : freshDeadline(question);
    if (isOver(deadline))
        return nullptr;
    const Addresses addresses = addressesOfServer(deadline);
    if (!addresses)
        return nullptr;
    Ptr http = create(addresses.get());
    if (!http)
        return nullptr;
    Watchdog::instance().watch(http.get(), deadline, isLocal(cupsServer()) ? 0 : ippPort());
    limitWaits(http.get());
    if (httpReconnect2(http.get(), limits().connectMs, nullptr) != 0)
        return nullptr;
    ++openingCount;
    return http;
}

void close(http_t *http)
{
    Watchdog::instance().forget(http);
    const char *const credentials = httpGetAuthString(http);
    const bool hadCredentials = credentials;
    if (credentials && *credentials && httpGetStatus(http) == HTTP_STATUS_OK)
        isLetIn = true;
    forgetCredentials(http);
    httpClose(http);
    if (hadCredentials)
        wipeStack();
}

bool isTimeOver(http_t *http)
{
    return isOver(Watchdog::instance().deadline(http));
}

void giveUp()
{
    sharedTime.deadline = Clock::now();
    sharedTime.isGivenUp = true;
}

unsigned openings()
{
    return openingCount;
}

bool wasLetIn()
{
    return std::exchange(isLetIn, false);
}

Upload::Upload(http_t *http, int file)
    : m_http(http)
{
    Watchdog::instance().follow(m_http, file, std::chrono::milliseconds(limits().totalMs));
}

Upload::~Upload()
{
    Watchdog::instance().follow(m_http, -1, {});
}

UserTime::UserTime(http_t *http)
    : m_http(http)
    , m_sharingScopes(std::exchange(sharedTime.scopes, 0))
{
    if (m_http)
        Watchdog::instance().postpone(m_http, Clock::time_point::max());
}

UserTime::~UserTime()
{
    sharedTime.scopes = m_sharingScopes;
    sharedTime.deadline = freshDeadline();
    if (m_http && Watchdog::instance().postpone(m_http, sharedTime.deadline))
        limitWaits(m_http);
}

Patience::Patience()
{
    if (sharedTime.scopes++ != 0)
        return;
    sharedTime.deadline = freshDeadline();
    sharedTime.isGivenUp = false;
}

void Patience::goOn()
{
    if (std::exchange(sharedTime.isGivenUp, false))
        sharedTime.deadline = freshDeadline();
}

Patience::~Patience()
{
    --sharedTime.scopes;
}
} // namespace ServerConnection
