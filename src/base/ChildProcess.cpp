#include "ChildProcess.h"

#include "SignalDisposition.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

extern char **environ;

namespace
{
using namespace std::chrono_literals;
using std::chrono::milliseconds;

/** Between two looks at a child that has a limit. */
constexpr milliseconds Pause = 10ms;
/** From the request to end until the end. */
constexpr milliseconds Grace = 2s;

/** Standard input, output and error of the child: all at the null device. */
class NullStreams
{
public:
    NullStreams()
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, 0, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&m_actions, 1, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, 1, 2);
    }
    NullStreams(const NullStreams &) = delete;
    NullStreams &operator=(const NullStreams &) = delete;
    ~NullStreams() { posix_spawn_file_actions_destroy(&m_actions); }
    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions;
};

/** What the library or the parent process has ignored must not be ignored in the child. */
class DefaultSignals
{
public:
    DefaultSignals()
    {
        sigset_t reset;
        sigemptyset(&reset);
        sigaddset(&reset, SIGCHLD);
        sigaddset(&reset, SIGPIPE);
        sigaddset(&reset, SIGXFSZ);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setsigdefault(&m_attributes, &reset);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF);
    }
    DefaultSignals(const DefaultSignals &) = delete;
    DefaultSignals &operator=(const DefaultSignals &) = delete;
    ~DefaultSignals() { posix_spawnattr_destroy(&m_attributes); }
    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes;
};

int resultOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : ChildProcess::DidNotExit;
}

/** Waits for the child. The wait itself ends with the child, so the status is there at once. */
int exitStatusOf(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return ChildProcess::DidNotExit;
    }
    return resultOf(status);
}

/** Waits for the child, but no longer than `limit`. Nothing when it is still running then. */
std::optional<int> exitStatusWithin(milliseconds limit, pid_t child)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        int status = 0;
        const pid_t ended = waitpid(child, &status, WNOHANG);
        if (ended == child)
            return resultOf(status);
        if (ended < 0 && errno != EINTR)
            return ChildProcess::DidNotExit;
        if (std::chrono::steady_clock::now() >= deadline)
            return std::nullopt;
        std::this_thread::sleep_for(Pause);
    }
}

void end(pid_t child)
{
    kill(child, SIGTERM);
    if (exitStatusWithin(Grace, child))
        return;
    kill(child, SIGKILL);
    exitStatusOf(child);
}

int limitedExitStatusOf(pid_t child, milliseconds limit)
{
    if (const auto status = exitStatusWithin(limit, child))
        return *status;
    end(child);
    return ChildProcess::TookTooLong;
}
} // namespace

int ChildProcess::run(const char *program, const std::vector<const char *> &arguments,
                      std::optional<milliseconds> limit)
{
    std::vector<char *> argv;
    argv.reserve(arguments.size() + 2);
    // posix_spawnp does not change the texts; its parameter lacks the const for reasons of history.
    argv.push_back(const_cast<char *>(program));
    for (const char *argument : arguments)
        argv.push_back(const_cast<char *>(argument));
    argv.push_back(nullptr);

    // A parent that ignores SIGCHLD would leave no status to wait for.
    const SignalDisposition childStatusKept(SIGCHLD, SIG_DFL);
    const NullStreams streams;
    const DefaultSignals defaultSignals;
    pid_t child = 0;
    if (posix_spawnp(&child, program, streams.get(), defaultSignals.get(), argv.data(), environ) !=
        0)
        return FailedToLaunch;
    return limit ? limitedExitStatusOf(child, *limit) : exitStatusOf(child);
}
