#include "Plugins.h"

QStringList Plugins::m_pluginPaths;

QStringList &Plugins::pluginPaths()
{
    return m_pluginPaths;
}

void Plugins::setPluginPaths(const QStringList &paths)
{
    m_pluginPaths = paths;
}
