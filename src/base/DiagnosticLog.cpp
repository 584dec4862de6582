#include "DiagnosticLog.h"

#include "SystemPaths.h"

#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
bool isOwnPlainFile(int descriptor)
{
    struct stat status;
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
           status.st_uid == geteuid();
}

/** Keeps a log out of the way where a standard stream is closed: its number belongs to the stream.
 */
int aboveStandardStreams(int descriptor)
{
    if (descriptor < 0 || descriptor > STDERR_FILENO)
        return descriptor;
    const int above = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(descriptor);
    return above;
}
/**
 * What a log cannot hold for the limit of file sizes is not written; by itself that would end the
 * process. A handler, unlike a signal that is ignored, is not handed down to other programs.
 */
void surviveSizeLimit()
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGXFSZ, &action, nullptr);
}
} // namespace

namespace DiagnosticLog
{
Handle open(const char *fileName)
{
    surviveSizeLimit();
    const std::string path = std::string(SystemPaths::logDirectory()) + '/' + fileName;
    // O_NONBLOCK: opening somebody's pipe of this name must not hang the program.
    const int descriptor = aboveStandardStreams(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0644));
    if (descriptor < 0)
        return nullptr;
    // Truncated only after the check: a file that is not ours keeps its contents.
    FILE *file = isOwnPlainFile(descriptor) && ftruncate(descriptor, 0) == 0
                     ? fdopen(descriptor, "wb")
                     : nullptr;
    if (!file)
        close(descriptor);
    return Handle(file);
}

void truncateAll()
{
    for (const char *name : {Names::Requests, Names::Printers, Names::Drivers, Names::Jobs,
                             Names::Classes, Names::Options})
        open(name);
}
} // namespace DiagnosticLog
