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

/** How many connections `open` has opened so far. */
unsigned openings();

/** Makes the connection new again for the limits, after time that the user took. */
void restartClock(http_t *http);
} // namespace ServerConnection
