// first_paint [--picture FILE] PROGRAM [ARGS...]
//
// Starts PROGRAM on the display and prints two numbers: the milliseconds from exec until its window
// is mapped, and until the window is painted. Then it kills PROGRAM.
//
// The root window is filled with one colour that no dialog has. The toolkit's windows have no
// background of their own, so that colour shows through a mapped window until its contents arrive:
// it is painted once the colour is gone from three lines across the window. The program that is
// measured needs no help for this and is not changed by it.

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <vector>

extern char **environ;

namespace
{
using Clock = std::chrono::steady_clock;

constexpr uint32_t Marker = 0xff00fe;
constexpr uint32_t ColourMask = 0xffffff;
constexpr auto Limit = std::chrono::seconds(120);
constexpr int WaitForEventMs = 20;
constexpr timespec PauseBetweenLooks = {0, 300'000};

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <class T> using Reply = std::unique_ptr<T, Free>;

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "first_paint: %s\n", what);
    std::exit(1);
}

double milliseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

/** The program that is measured; killed at the end of the measurement. */
class Program
{
public:
    explicit Program(char **arguments)
    {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
        m_start = Clock::now();
        if (posix_spawnp(&m_pid, arguments[0], &actions, nullptr, arguments, environ) != 0)
            fail("the program cannot be started");
        posix_spawn_file_actions_destroy(&actions);
    }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;
    ~Program() { end(); }

    Clock::time_point start() const { return m_start; }

    void checkAlive()
    {
        if (waitpid(m_pid, nullptr, WNOHANG) == m_pid) {
            m_pid = -1;
            fail("the program ended without a painted window");
        }
        if (Clock::now() - m_start > Limit) {
            end();
            fail("no painted window in time");
        }
    }

    void end()
    {
        if (m_pid < 0)
            return;
        kill(m_pid, SIGKILL);
        while (waitpid(m_pid, nullptr, 0) < 0 && errno == EINTR) {
        }
        m_pid = -1;
    }

private:
    pid_t m_pid = -1;
    Clock::time_point m_start;
};

/** A part of the screen. */
struct Area {
    int16_t x;
    int16_t y;
    uint16_t width;
    uint16_t height;
};

class Screen
{
public:
    Screen()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection))
            fail("no display");
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_root = screen->root;
        const std::array<uint32_t, 2> values = {Marker, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                                     values.data());
        xcb_clear_area(m_connection, 0, m_root, 0, 0, screen->width_in_pixels,
                       screen->height_in_pixels);
        // An answer means that all of the above is done.
        (void)geometry(m_root);
    }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;
    ~Screen() { xcb_disconnect(m_connection); }

    /** A window that has just been mapped, waiting a little for one; menus and the like apart. */
    std::optional<xcb_window_t> mappedWindow()
    {
        pollfd wanted = {xcb_get_file_descriptor(m_connection), POLLIN, 0};
        for (int attempt = 0; attempt < 2; ++attempt) {
            while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
                if ((event->response_type & 0x7f) != XCB_MAP_NOTIFY)
                    continue;
                const auto *map = reinterpret_cast<const xcb_map_notify_event_t *>(event.get());
                if (!map->override_redirect && map->event == m_root)
                    return map->window;
            }
            if (attempt == 0)
                poll(&wanted, 1, WaitForEventMs);
        }
        return {};
    }

    bool isPainted(xcb_window_t window)
    {
        const std::optional<Area> area = geometry(window);
        if (!area || area->width < 50 || area->height < 50)
            return false;
        for (int quarter = 1; quarter <= 3; ++quarter) {
            const auto y = static_cast<int16_t>(area->y + area->height * quarter / 4);
            const std::vector<uint32_t> line = pixels({area->x, y, area->width, 1});
            if (line.empty() || std::find(line.begin(), line.end(), Marker) != line.end())
                return false;
        }
        return true;
    }

    /** Writes what the screen shows where the window is, as a PPM picture. */
    void save(xcb_window_t window, const char *path)
    {
        const std::optional<Area> area = geometry(window);
        std::FILE *file = area ? std::fopen(path, "wb") : nullptr;
        if (!file)
            fail("no picture");
        std::fprintf(file, "P6\n%d %d\n255\n", area->width, area->height);
        for (uint32_t pixel : pixels(*area)) {
            const std::array<unsigned char, 3> rgb = {static_cast<unsigned char>(pixel >> 16),
                                                      static_cast<unsigned char>(pixel >> 8),
                                                      static_cast<unsigned char>(pixel)};
            std::fwrite(rgb.data(), 1, rgb.size(), file);
        }
        std::fclose(file);
    }

private:
    std::optional<Area> geometry(xcb_drawable_t drawable)
    {
        const Reply<xcb_get_geometry_reply_t> reply{xcb_get_geometry_reply(
            m_connection, xcb_get_geometry(m_connection, drawable), nullptr)};
        if (!reply)
            return {};
        return Area{reply->x, reply->y, reply->width, reply->height};
    }

    /** The colours of a part of the screen; empty when it is not on the screen. */
    std::vector<uint32_t> pixels(const Area &area)
    {
        const Reply<xcb_get_image_reply_t> reply{
            xcb_get_image_reply(m_connection,
                                xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                                              area.x, area.y, area.width, area.height, ~0U),
                                nullptr)};
        if (!reply)
            return {};
        std::vector<uint32_t> result(static_cast<size_t>(xcb_get_image_data_length(reply.get())) /
                                     sizeof(uint32_t));
        std::memcpy(result.data(), xcb_get_image_data(reply.get()),
                    result.size() * sizeof(uint32_t));
        for (uint32_t &pixel : result)
            pixel &= ColourMask;
        return result;
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_root = 0;
};

void measure(char **arguments, const char *picture)
{
    Screen screen;
    Program program(arguments);
    std::optional<xcb_window_t> window;
    while (!(window = screen.mappedWindow()))
        program.checkAlive();
    const auto mapped = Clock::now();
    while (!screen.isPainted(*window)) {
        program.checkAlive();
        nanosleep(&PauseBetweenLooks, nullptr);
    }
    const auto painted = Clock::now();
    if (picture)
        screen.save(*window, picture);
    std::printf("%.2f %.2f\n", milliseconds(mapped - program.start()),
                milliseconds(painted - program.start()));
}
} // namespace

int main(int argc, char **argv)
{
    const bool withPicture = argc > 3 && std::string(argv[1]) == "--picture";
    if (argc < 2)
        fail("usage: first_paint [--picture FILE] PROGRAM [ARGS...]");
    measure(argv + (withPicture ? 3 : 1), withPicture ? argv[2] : nullptr);
    return 0;
}
