#pragma once

#include "CupsHandles.h"

namespace ServerConnection
{
/**
 * How long the program waits for the server. A wait that goes beyond `waitSeconds` ends everything
 * on its connection once the connection is `totalMs` old.
 */
struct Limits {
    int connectMs = 5000;
    double waitSeconds = 3.0;
    int totalMs = 15000;
};

/** The limits in force; tests shorten them. */
Limits &limits();

/**
 * A connection to the server that the library is configured for (cupsServer(), ippPort()) on which
 * no wait is endless: what is asked of a server that does not answer fails within 30 seconds, all
 * requests on the connection taken together. Null when the connection cannot be opened.
 */
Cups::HttpPtr open();

/**
 * While it lives, all connections that this thread opens have one time limit together, as if they
 * were one connection: what the user has asked for ends within it, however many requests it takes.
 * Once the time is over, `open` fails at once. Within another one it changes nothing.
 */
class Patience
{
public:
    Patience();
    ~Patience();
    Patience(const Patience &) = delete;
    Patience &operator=(const Patience &) = delete;
};

/** How many connections `open` has opened so far. */
unsigned openings();

/**
 * Makes the connection new again for the limits, after time that the user took; and a Patience, if
 * there is one.
 */
void restartClock(http_t *http);
} // namespace ServerConnection
