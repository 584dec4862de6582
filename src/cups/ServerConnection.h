#pragma once

#include "CupsHandles.h"

namespace ServerConnection
{
/** How long opening a connection, and then each wait for the server's answer, may take. */
constexpr int ConnectTimeoutMs = 5000;
constexpr double AnswerTimeoutSeconds = 10.0;

/** The limits in force; tests shorten them. */
struct Limits {
    int connectMs = ConnectTimeoutMs;
    double answerSeconds = AnswerTimeoutSeconds;
};
Limits &limits();

/**
 * A connection to the server that the library is configured for (cupsServer(), ippPort()) on which
 * no wait is endless: a request to a server that does not answer fails within 30 seconds.
 * Null when the connection cannot be opened.
 */
Cups::HttpPtr open();
} // namespace ServerConnection
