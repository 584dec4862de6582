#pragma once

#include <QStringList>

/** Where the libraries lie that can add pages to a properties dialog. */
class Plugins
{
public:
    /** The folders, in search order. */
    static QStringList &pluginPaths();
    static void setPluginPaths(const QStringList &paths);

private:
    static QStringList m_pluginPaths;
};
