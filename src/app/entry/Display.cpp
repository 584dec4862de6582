#include "Display.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace
{
/** Closes a descriptor. */
class Descriptor
{
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

bool becomesReadable(int descriptor)
{
    pollfd wanted = {descriptor, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&wanted, 1, Display::AnswerTimeoutMs);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

/** Connects in a child, which can be killed when the display takes the connection and is silent. */
bool xAnswers(const QByteArray &display)
{
    std::array<int, 2> ends;
    if (display.isEmpty() || pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    const Descriptor reading(ends[0]);
    const pid_t child = fork();
    if (child == 0) {
        xcb_connection_t *connection = xcb_connect(display.constData(), nullptr);
        const char answer = xcb_connection_has_error(connection) ? 'n' : 'y';
        const bool told = write(ends[1], &answer, 1) == 1;
        _exit(told ? 0 : 1);
    }
    close(ends[1]);
    if (child < 0)
        return false;
    char answer = 'n';
    const bool answered = becomesReadable(reading.get()) && read(reading.get(), &answer, 1) == 1;
    kill(child, SIGKILL);
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return answered && answer == 'y';
}

/** The path of the socket, or an empty text where there is none of a length that can be. */
QByteArray waylandSocket(const Display::Setting &setting)
{
    if (setting.waylandDisplay.isEmpty() || setting.waylandDisplay.startsWith('/'))
        return setting.waylandDisplay;
    return setting.runtimeDir.isEmpty() ? QByteArray()
                                        : setting.runtimeDir + '/' + setting.waylandDisplay;
}

/** Connects and waits for the answer to a `wl_display.sync` request. */
bool waylandAnswers(const Display::Setting &setting)
{
    const QByteArray path = waylandSocket(setting);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<size_t>(path.size()) >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<size_t>(path.size()));

    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (connect(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0)
        return false;
    // Object 1 (the display), request 0 (sync) of 12 bytes, answered through new object 2.
    const std::array<uint32_t, 3> sync = {1, 12U << 16U, 2};
    return send(socket.get(), sync.data(), sizeof(sync), MSG_NOSIGNAL) == sizeof(sync) &&
           becomesReadable(socket.get());
}

/** Without the toolkit's plug-in for it, a Wayland display is of no use. */
bool hasWaylandPlugin()
{
    const QDir platforms(QLibraryInfo::path(QLibraryInfo::PluginsPath) +
                         QLatin1String("/platforms"));
    return !platforms.entryList({QStringLiteral("libqwayland-*.so")}, QDir::Files).isEmpty();
}

bool isOrStartsWith(const QByteArray &platform, const char *name)
{
    return platform.isEmpty() || platform.startsWith(name);
}
} // namespace

namespace Display
{
Setting setting(const QByteArray &platformOption, const QByteArray &displayOption)
{
    Setting result;
    result.platform = platformOption.isNull() ? qgetenv("QT_QPA_PLATFORM") : platformOption;
    result.displayFromOption = !displayOption.isNull();
    result.display = displayOption.isNull() ? qgetenv("DISPLAY") : displayOption;
    result.waylandDisplay = qgetenv("WAYLAND_DISPLAY");
    result.runtimeDir = qgetenv("XDG_RUNTIME_DIR");
    return result;
}

Kind find(const Setting &setting)
{
    const bool mayBeX = isOrStartsWith(setting.platform, "xcb");
    const bool mayBeWayland =
        isOrStartsWith(setting.platform, "wayland") && !setting.displayFromOption;
    if (!mayBeX && !mayBeWayland)
        return Kind::Default;
    const bool hasWayland = mayBeWayland && waylandAnswers(setting) && hasWaylandPlugin();
    if (mayBeX && xAnswers(setting.display))
        return hasWayland ? Kind::Default : Kind::X11;
    return hasWayland ? Kind::Wayland : Kind::None;
}
} // namespace Display
