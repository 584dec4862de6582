#include "Display.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <signal.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <xcb/xcb.h>

namespace
{
constexpr char X[] = "xcb";
constexpr char Wayland[] = "wayland";
constexpr char PlatformFolder[] = "/platforms";

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

/** Connects to an X display. The library is loaded for this alone: most of a run needs none of it.
 */
bool xAccepts(const char *display)
{
    void *library = dlopen("libxcb.so.1", RTLD_LAZY);
    if (!library)
        return false;
    const auto connectTo = reinterpret_cast<decltype(&xcb_connect)>(dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<decltype(&xcb_connection_has_error)>(
        dlsym(library, "xcb_connection_has_error"));
    return connectTo && hasError && hasError(connectTo(display, nullptr)) == 0;
}

/** Connects in a child, which can be killed when the display takes the connection and is silent. */
bool xAnswers(const std::string &display)
{
    std::array<int, 2> ends;
    if (display.empty() || pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    const Descriptor reading(ends[0]);
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // The library tells on standard error what a display refuses; nobody has asked for it.
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
        const char answer = xAccepts(display.c_str()) ? 'y' : 'n';
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
std::string waylandSocket(const Display::Setting &setting)
{
    if (setting.waylandDisplay.empty() || setting.waylandDisplay.front() == '/')
        return setting.waylandDisplay;
    return setting.runtimeDir.empty() ? std::string()
                                      : setting.runtimeDir + '/' + setting.waylandDisplay;
}

/** Connects and waits for the answer to a `wl_display.sync` request. */
bool waylandAnswers(const Display::Setting &setting)
{
    const std::string path = waylandSocket(setting);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.data(), path.size());

    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (connect(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0)
        return false;
    // Object 1 (the display), request 0 (sync) of 12 bytes, answered through new object 2.
    const std::array<uint32_t, 3> sync = {1, 12U << 16U, 2};
    return send(socket.get(), sync.data(), sizeof(sync), MSG_NOSIGNAL) == sizeof(sync) &&
           becomesReadable(socket.get());
}

std::vector<std::string> split(const std::string &text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

std::string trimmed(const std::string &text)
{
    constexpr char Blanks[] = " \t\n\r\v\f";
    const size_t first = text.find_first_not_of(Blanks);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
}

/** The name of a platform in an entry `name:parameter`, in the lower case of the plug-ins' files.
 */
std::string platformName(const std::string &entry)
{
    std::string name = entry.substr(0, entry.find(':'));
    for (char &c : name) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return name;
}

bool holdsFile(const std::string &folder, const std::string &start, const std::string &end)
{
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), last; !error && entry != last;
         entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (name.size() >= start.size() + end.size() && name.starts_with(start) &&
            name.ends_with(end))
            return true;
    }
    return false;
}

/** Whether the toolkit has a plug-in for the platform: without one it aborts. */
bool hasPlugin(const Display::Setting &setting, const std::string &platform)
{
    // The Wayland plug-ins are named by the way in which they draw.
    const bool isWayland = platform.starts_with(Wayland);
    const std::string start = isWayland ? "libqwayland-" : "libq" + platform + ".so";
    const std::string end = isWayland ? ".so" : "";
    return std::any_of(setting.pluginFolders.begin(), setting.pluginFolders.end(),
                       [&](const std::string &folder) { return holdsFile(folder, start, end); });
}

/** `platform` is a name without parameters. */
bool isUsable(const Display::Setting &setting, const std::string &platform)
{
    if (!hasPlugin(setting, platform))
        return false;
    if (platform == X)
        return xAnswers(setting.display);
    return !platform.starts_with(Wayland) || waylandAnswers(setting);
}

/** The first of the platforms that are asked for, with its parameters. */
std::optional<std::string> firstUsable(const Display::Setting &setting)
{
    for (const std::string &entry : split(setting.platform, ';')) {
        const std::string platform = trimmed(entry);
        if (isUsable(setting, platformName(platform)))
            return platform;
    }
    return std::nullopt;
}

/** `option`, or the environment's `variable`, or an empty text. */
std::string optionOr(const char *option, const char *variable)
{
    const char *text = option ? option : std::getenv(variable);
    return text ? text : "";
}

std::vector<std::string> pluginFolders(const char *option)
{
    constexpr char ListSeparator = ':';
    std::vector<std::string> folders = {std::string(VESK_TOOLKIT_PLUGINS) + PlatformFolder};
    for (const std::string &folder :
         split(optionOr(option, "QT_QPA_PLATFORM_PLUGIN_PATH"), ListSeparator))
        folders.push_back(folder);
    for (const std::string &folder : split(optionOr(nullptr, "QT_PLUGIN_PATH"), ListSeparator))
        folders.push_back(folder + PlatformFolder);
    return folders;
}
} // namespace

namespace Display
{
Setting setting(const char *platformOption, const char *displayOption, const char *pluginPathOption)
{
    Setting result;
    result.platform = optionOr(platformOption, "QT_QPA_PLATFORM");
    result.display = optionOr(displayOption, "DISPLAY");
    result.wantsX = displayOption && !platformOption;
    result.waylandDisplay = optionOr(nullptr, "WAYLAND_DISPLAY");
    result.runtimeDir = optionOr(nullptr, "XDG_RUNTIME_DIR");
    result.pluginFolders = pluginFolders(pluginPathOption);
    return result;
}

std::optional<std::string> find(const Setting &setting)
{
    const bool namesWindowSystem = setting.platform.empty() ||
                                   setting.platform.find(X) != std::string::npos ||
                                   setting.platform.find(Wayland) != std::string::npos;
    if (setting.wantsX && namesWindowSystem)
        return isUsable(setting, X) ? std::optional<std::string>(X) : std::nullopt;
    if (!setting.platform.empty())
        return firstUsable(setting);
    const bool hasX = isUsable(setting, X);
    const bool hasWayland = isUsable(setting, Wayland);
    if (hasX && hasWayland)
        return std::string();
    if (!hasX && !hasWayland)
        return std::nullopt;
    return std::string(hasX ? X : Wayland);
}
} // namespace Display
