#pragma once

#include <optional>
#include <string>
#include <vector>

/** Whether there is a display on which a dialog can be shown, and which. */
namespace Display
{
/** How long a display may take to answer. */
constexpr int AnswerTimeoutMs = 3000;

/** What the command line and the environment say. An empty text: not given. */
struct Setting {
    /** The toolkit's platforms to try, separated by ';': -platform, or QT_QPA_PLATFORM. */
    std::string platform;
    /** The X display: -display, or DISPLAY. */
    std::string display;
    /** The display was named by -display alone, so it is an X display that is wanted. */
    bool wantsX = false;
    std::string waylandDisplay; // WAYLAND_DISPLAY
    std::string runtimeDir;     // XDG_RUNTIME_DIR
    /** The folders with the toolkit's platform plug-ins. */
    std::vector<std::string> pluginFolders;
};

/** The setting of this process; an option (null: not given) goes before the environment. */
Setting setting(const char *platformOption, const char *displayOption,
                const char *pluginPathOption);

/**
 * Looks for a display by connecting to it, so that one that refuses or does not answer counts as
 * none. Returns the platform to name to the toolkit, empty where it may choose by itself; nothing
 * where it would find no display and abort.
 */
std::optional<std::string> find(const Setting &setting);
} // namespace Display
