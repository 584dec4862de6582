#include "StandardInput.h"

#include "SignalDisposition.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <sys/select.h>
#include <unistd.h>

namespace
{
constexpr size_t ChunkSize = 4096;
/** Chunk by chunk a large job takes twice its time: one call takes all chunks that are there. */
constexpr size_t ChunksAtOnce = 16;
constexpr size_t BufferSize = ChunkSize * ChunksAtOnce;
constexpr int Signals[] = {SIGHUP, SIGINT, SIGTERM};

/** Read by the signal handler: plain static storage. Empty: no file. */
char s_fileName[1024];

extern "C" void removeFileAndExit(int signal)
{
    if (s_fileName[0])
        unlink(s_fileName);
    _exit(signal);
}

/** The toolkit aborts where it cannot go on. */
extern "C" void removeFileAndAbort(int signal)
{
    if (s_fileName[0])
        unlink(s_fileName);
    raise(signal); // whose action is the default one again
}

/** Holds the three signals back while the file and its name come into being together. */
class SignalBlock
{
public:
    SignalBlock()
    {
        sigset_t blocked;
        sigemptyset(&blocked);
        for (int signal : Signals)
            sigaddset(&blocked, signal);
        sigprocmask(SIG_BLOCK, &blocked, &m_before);
    }
    SignalBlock(const SignalBlock &) = delete;
    SignalBlock &operator=(const SignalBlock &) = delete;
    ~SignalBlock() { sigprocmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before;
};

bool waitForData(int descriptor, int patienceMs)
{
    fd_set descriptors;
    FD_ZERO(&descriptors);
    FD_SET(descriptor, &descriptors);
    timeval patience = {patienceMs / 1000, (patienceMs % 1000) * 1000};
    int ready = 0;
    do {
        // Linux leaves the rest of the time in `patience`, so an interruption does not prolong it.
        ready = select(descriptor + 1, &descriptors, nullptr, nullptr,
                       patienceMs == StandardInput::NoLimit ? nullptr : &patience);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

/** Like read into a whole buffer, but waits where the descriptor does not block. */
ssize_t readChunks(int descriptor, char *buffer)
{
    for (;;) {
        const ssize_t length = read(descriptor, buffer, BufferSize);
        if (length >= 0 || (errno != EINTR && errno != EAGAIN))
            return length;
        if (errno == EAGAIN && !waitForData(descriptor, StandardInput::NoLimit))
            return -1;
    }
}

bool writeWhole(int descriptor, const char *data, size_t length)
{
    while (length > 0) {
        const ssize_t written = write(descriptor, data, length);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        length -= static_cast<size_t>(written);
    }
    return true;
}

/** Whether the error of the first read says that there is nothing to read from at all. */
bool isNoInput(int error)
{
    return error == EBADF || error == ENOTCONN || error == ENXIO;
}

using CupsTempFd = int (*)(char *name, int size);

/** The print library's function; null where there is none. Only captured input loads the library.
 */
CupsTempFd cupsTempFd()
{
    void *library = dlopen("libcups.so.2", RTLD_LAZY);
    return library ? reinterpret_cast<CupsTempFd>(dlsym(library, "cupsTempFd")) : nullptr;
}

int createFile()
{
    const CupsTempFd create = cupsTempFd();
    // The toolkit ends the process by itself when its display goes away.
    std::atexit(StandardInput::removeFile);
    const SignalBlock block;
    const int descriptor = create ? create(s_fileName, sizeof(s_fileName)) : -1;
    if (descriptor < 0)
        s_fileName[0] = '\0';
    return descriptor;
}

StandardInput::Result fail(const char *what, int error, std::string &text)
{
    text = std::string(what) + ": " + std::strerror(error);
    StandardInput::removeFile();
    return StandardInput::Result::Failed;
}

/** Copies `length` bytes in `buffer` and all that follow into the file, and closes it. */
StandardInput::Result store(int input, int file, char *buffer, ssize_t length, std::string &error)
{
    // A write beyond the limit of file sizes is to fail, not to end the process.
    const SignalDisposition sizeLimitFails(SIGXFSZ, SIG_IGN);
    while (length > 0) {
        if (!writeWhole(file, buffer, static_cast<size_t>(length))) {
            const int reason = errno;
            close(file);
            return fail("cannot write the temporary file", reason, error);
        }
        length = readChunks(input, buffer);
    }
    const int readError = length < 0 ? errno : 0;
    const off_t stored = lseek(file, 0, SEEK_CUR);
    if (close(file) != 0)
        return fail("cannot write the temporary file", errno, error);
    if (readError)
        return fail("cannot read standard input", readError, error);
    return stored > 0 ? StandardInput::Result::Captured : StandardInput::Result::Nothing;
}
} // namespace

namespace StandardInput
{
void installSignalHandlers()
{
    struct sigaction action = {};
    action.sa_handler = removeFileAndExit;
    sigemptyset(&action.sa_mask);
    for (int signal : Signals)
        sigaddset(&action.sa_mask, signal);
    for (int signal : Signals)
        sigaction(signal, &action, nullptr);

    struct sigaction onAbort = {};
    onAbort.sa_handler = removeFileAndAbort;
    onAbort.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    sigemptyset(&onAbort.sa_mask);
    sigaction(SIGABRT, &onAbort, nullptr);
}

Result capture(int descriptor, int patienceMs, std::string &error)
{
    if (!waitForData(descriptor, patienceMs))
        return Result::Nothing;
    char buffer[BufferSize];
    const ssize_t length = readChunks(descriptor, buffer);
    if (length == 0 || (length < 0 && isNoInput(errno)))
        return Result::Nothing;
    if (length < 0)
        return fail("cannot read standard input", errno, error);
    const int file = createFile();
    if (file < 0) {
        error = std::string("cannot create a temporary file: ") + std::strerror(errno);
        return Result::Dropped;
    }
    return store(descriptor, file, buffer, length, error);
}

const char *fileName()
{
    return s_fileName;
}

void removeFile()
{
    if (!s_fileName[0])
        return;
    unlink(s_fileName);
    s_fileName[0] = '\0';
}
} // namespace StandardInput
