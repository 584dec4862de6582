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
    const intptr_t deadline = nowMs() + limits().totalMs;
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
    setDeadline(http, nowMs() + limits().totalMs);
}
} // namespace ServerConnection
