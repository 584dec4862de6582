#pragma once

#include "CupsHandles.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <sys/types.h>

/**
 * Ends what the library does on a connection whose time is over, whatever the server sends: a
 * thread shuts the connection's socket down, so that the library reads its end and gives up. It
 * does so again and again until the connection is forgotten, for the library may connect anew; what
 * the process is just connecting to at the server's port ends then, too.
 */
class Watchdog
{
public:
    using Clock = std::chrono::steady_clock;

    /** The one of the process. It is never destroyed: threads may use it while the process ends. */
    static Watchdog &instance();

    /** Whether it does anything: there may have been no thread for it. */
    bool isRunning() const { return m_isRunning; }
    /** Watches `http` from now on, a connection to that port of the server; 0: over no network. */
    void watch(http_t *http, Clock::time_point deadline, int port);
    /** Gives a connection that is being watched another deadline; false where it is not. */
    bool postpone(http_t *http, Clock::time_point deadline);
    /**
     * While `file` is being sent on a connection that is being watched: its deadline is not before
     * `patience` after the last time that more of the file than ever had been read. Going back in
     * the file and reading it again is no progress. A negative `file` ends this.
     */
    void follow(http_t *http, int file, Clock::duration patience);
    /** Must be called before `http` is closed. */
    void forget(http_t *http);
    /** The deadline of a connection; the end of time where it is not watched. */
    Clock::time_point deadline(http_t *http);

private:
    struct Watched {
        Clock::time_point deadline;
        int port = 0;
        int file = -1;
        off_t furthest = 0;
        Clock::duration patience = {};

        void noticeProgress(Clock::time_point now);
        Clock::time_point nextLook(Clock::time_point now) const;
    };

    Watchdog();
    [[noreturn]] void run();
    /** Shuts down what is overdue; returns when to look again. */
    Clock::time_point endOverdue();

    bool m_isRunning = false;
    std::mutex m_mutex;
    std::condition_variable m_isChanged;
    std::map<http_t *, Watched> m_watched;
};
