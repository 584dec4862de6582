#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

/** Whether there is a display on which a dialog can be shown, and which. */
namespace Display
{
/** How long a display may take to answer. */
constexpr int AnswerTimeoutMs = 3000;

/** What the command line and the environment say. A null text: not given. */
struct Setting {
    /** The toolkit's platforms to try, separated by ';': -platform, or QT_QPA_PLATFORM. */
    QByteArray platform;
    /** The X display: -display, or DISPLAY. */
    QByteArray display;
    /** The display was named by -display alone, so it is an X display that is wanted. */
    bool wantsX = false;
    QByteArray waylandDisplay; // WAYLAND_DISPLAY
    QByteArray runtimeDir;     // XDG_RUNTIME_DIR
    /** The folders with the toolkit's platform plug-ins. */
    QStringList pluginFolders;
};

/** The setting of this process; an option (null: not given) goes before the environment. */
Setting setting(const QByteArray &platformOption, const QByteArray &displayOption,
                const QByteArray &pluginPathOption);

/**
 * Looks for a display by connecting to it, so that one that refuses or does not answer counts as
 * none. Returns the platform to name to the toolkit, empty where it may choose by itself; nothing
 * where it would find no display and abort.
 */
std::optional<QByteArray> find(const Setting &setting);
} // namespace Display
