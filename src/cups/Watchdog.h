#pragma once

#include "CupsHandles.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>

/**
 * Ends what the library does on a connection whose time is over, whatever the server sends: a
 * thread shuts the connection's socket down, so that the library reads its end and gives up. It
 * does so again and again until the connection is forgotten, for the library may connect anew.
 */
class Watchdog
{
public:
    using Clock = std::chrono::steady_clock;

    /** The one of the process. It is never destroyed: threads may use it while the process ends. */
    static Watchdog &instance();

    /** Watches `http` from now on, or gives it another deadline. */
    void watch(http_t *http, Clock::time_point deadline);
    /** Gives a connection that is being watched another deadline; false where it is not. */
    bool postpone(http_t *http, Clock::time_point deadline);
    /** Must be called before `http` is closed. */
    void forget(http_t *http);
    /** The deadline of a connection; the end of time where it is not watched. */
    Clock::time_point deadline(http_t *http);

private:
    Watchdog();
    [[noreturn]] void run();
    /** Shuts down what is overdue; returns when to look again. */
    Clock::time_point endOverdue();

    std::mutex m_mutex;
    std::condition_variable m_isChanged;
    std::map<http_t *, Clock::time_point> m_deadlines;
};
