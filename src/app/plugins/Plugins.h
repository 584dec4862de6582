#pragma once

#include <QList>
#include <QStringList>

namespace Vesk
{
class Plugin;
}

/**
 * The libraries that can add pages to a properties dialog, and where they lie. They are loaded when
 * they are first asked for and stay loaded. Their interface is described in vesk/plugin.h.
 */
class Plugins
{
public:
    /** The folders, in search order. */
    static QStringList &pluginPaths();
    static void setPluginPaths(const QStringList &paths);

    /**
     * The plug-in objects in the order of loading, deleted with the application object. The first
     * call loads them; a library that cannot be loaded ends the program. Folders that are not
     * absolute are left out with a warning: what the working directory holds is not trusted.
     */
    static QList<Vesk::Plugin *> *plugins();

private:
    static void release();

    static QStringList m_pluginPaths;
    static QList<Vesk::Plugin *> *m_plugins;
};
