#pragma once

#include <QByteArray>

/** Whether there is a display on which a dialog can be shown. */
namespace Display
{
enum class Kind {
    /** None: the toolkit would abort. */
    None,
    /** One that the toolkit finds by itself. */
    Default,
    /** An X display alone. */
    X11,
    /** A Wayland display alone. */
    Wayland
};

/** How long a display may take to answer. */
constexpr int AnswerTimeoutMs = 3000;

/** What the command line and the environment say. A null text: not given. */
struct Setting {
    QByteArray platform; // -platform, or QT_QPA_PLATFORM
    QByteArray display;  // -display, or DISPLAY
    bool displayFromOption = false;
    QByteArray waylandDisplay; // WAYLAND_DISPLAY
    QByteArray runtimeDir;     // XDG_RUNTIME_DIR
};
/** The setting of this process, with the two toolkit options in front of the environment. */
Setting setting(const QByteArray &platformOption, const QByteArray &displayOption);

/**
 * Looks for a display by connecting to it, so that one that refuses or does not answer counts as
 * none. For a platform other than xcb and wayland there is nothing to connect to: Default.
 */
Kind find(const Setting &setting);
} // namespace Display
