#include "ServerConnection.h"

#include <sys/socket.h>

namespace
{
constexpr int Blocking = 1;
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
    Cups::HttpPtr http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(),
                                    Blocking, limits().connectMs, nullptr));
    if (http)
        httpSetTimeout(http.get(), limits().answerSeconds, nullptr, nullptr);
    return http;
}
} // namespace ServerConnection
