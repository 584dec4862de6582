#include "Display.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace
{
constexpr char X[] = "xcb";
constexpr char Wayland[] = "wayland";
constexpr QLatin1String PlatformFolder("/platforms");

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
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // The library tells on standard error what a display refuses; nobody has asked for it.
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
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

/** Whether the toolkit has a plug-in for the platform: without one it aborts. */
bool hasPlugin(const Display::Setting &setting, const QByteArray &platform)
{
    // The Wayland plug-ins are named by the way in which they draw.
    const QString pattern = platform.startsWith(Wayland)
                                ? QStringLiteral("libqwayland-*.so")
                                : QStringLiteral("libq%1.so").arg(QString::fromLatin1(platform));
    return std::any_of(setting.pluginFolders.begin(), setting.pluginFolders.end(),
                       [&pattern](const QString &folder) {
                           return !QDir(folder).entryList({pattern}, QDir::Files).isEmpty();
                       });
}

/** `platform` is a name without parameters. */
bool isUsable(const Display::Setting &setting, const QByteArray &platform)
{
    if (!hasPlugin(setting, platform))
        return false;
    if (platform == X)
        return xAnswers(setting.display);
    return !platform.startsWith(Wayland) || waylandAnswers(setting);
}

/** The first of the platforms that are asked for, with its parameters. */
std::optional<QByteArray> firstUsable(const Display::Setting &setting)
{
    for (const QByteArray &entry : setting.platform.split(';')) {
        const QByteArray platform = entry.trimmed();
        if (isUsable(setting, platform.split(':').constFirst().toLower()))
            return platform;
    }
    return std::nullopt;
}

QStringList pluginFolders(const QByteArray &option)
{
    QStringList folders = {QLibraryInfo::path(QLibraryInfo::PluginsPath) + PlatformFolder};
    const QByteArray path = option.isNull() ? qgetenv("QT_QPA_PLATFORM_PLUGIN_PATH") : option;
    const QString separator = QDir::listSeparator();
    folders += QFile::decodeName(path).split(separator, Qt::SkipEmptyParts);
    for (const QString &folder :
         QFile::decodeName(qgetenv("QT_PLUGIN_PATH")).split(separator, Qt::SkipEmptyParts))
        folders += folder + PlatformFolder;
    return folders;
}
} // namespace

namespace Display
{
Setting setting(const QByteArray &platformOption, const QByteArray &displayOption,
                const QByteArray &pluginPathOption)
{
    Setting result;
    result.platform = platformOption.isNull() ? qgetenv("QT_QPA_PLATFORM") : platformOption;
    result.display = displayOption.isNull() ? qgetenv("DISPLAY") : displayOption;
    result.wantsX = !displayOption.isNull() && platformOption.isNull();
    result.waylandDisplay = qgetenv("WAYLAND_DISPLAY");
    result.runtimeDir = qgetenv("XDG_RUNTIME_DIR");
    result.pluginFolders = pluginFolders(pluginPathOption);
    return result;
}

std::optional<QByteArray> find(const Setting &setting)
{
    const bool namesWindowSystem = setting.platform.isEmpty() || setting.platform.contains(X) ||
                                   setting.platform.contains(Wayland);
    if (setting.wantsX && namesWindowSystem)
        return isUsable(setting, X) ? std::optional<QByteArray>(X) : std::nullopt;
    if (!setting.platform.isEmpty())
        return firstUsable(setting);
    const bool hasX = isUsable(setting, X);
    const bool hasWayland = isUsable(setting, Wayland);
    if (hasX && hasWayland)
        return QByteArray();
    if (!hasX && !hasWayland)
        return std::nullopt;
    return QByteArray(hasX ? X : Wayland);
}
} // namespace Display
