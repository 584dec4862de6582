#include "ServerConnection.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <sys/socket.h>

namespace
{
constexpr int Blocking = 1;
/** For the waits that the library still starts on a connection that has been given up. */
constexpr double LastWaitSeconds = 0.05;

std::atomic<unsigned> openingCount = 0;

intptr_t nowMs()
{
    using namespace std::chrono;
    return static_cast<intptr_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

/** Called after each wait without an answer: whether to wait once more. `deadline` is a time. */
int waitsOn(http_t *http, void *deadline)
{
    if (nowMs() < reinterpret_cast<intptr_t>(deadline))
        return 1;
    httpSetTimeout(http, LastWaitSeconds, waitsOn, deadline);
    return 0;
}

void setDeadline(http_t *http, intptr_t deadline)
{
    httpSetTimeout(http, ServerConnection::limits().waitSeconds, waitsOn,
                   reinterpret_cast<void *>(deadline));
}
/** The time that this thread's connections share. */
struct SharedTime {
    int scopes = 0;
    intptr_t deadline = 0;

    bool isInForce() const { return scopes > 0; }
};
thread_local SharedTime sharedTime;

intptr_t freshDeadline()
{
    return nowMs() + ServerConnection::limits().totalMs;
}
} // namespace

namespace ServerConnection
{
Limits &limits()
{
    static Limits inForce;
    return inForce;
}

Cups::HttpPtr open()
{
    const intptr_t deadline = sharedTime.isInForce() ? sharedTime.deadline : freshDeadline();
    if (nowMs() >= deadline)
        return nullptr;
    Cups::HttpPtr http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(),
                                    Blocking, limits().connectMs, nullptr));
    if (!http)
        return nullptr;
    setDeadline(http.get(), deadline);
    ++openingCount;
    return http;
}

unsigned openings()
{
    return openingCount;
}

void restartClock(http_t *http)
{
    const intptr_t deadline = freshDeadline();
    sharedTime.deadline = deadline;
    setDeadline(http, deadline);
}

Patience::Patience()
{
    if (sharedTime.scopes++ == 0)
        sharedTime.deadline = freshDeadline();
}

Patience::~Patience()
{
    --sharedTime.scopes;
}
} // namespace ServerConnection
