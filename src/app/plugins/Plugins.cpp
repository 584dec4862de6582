#include "Plugins.h"

#include <vesk/plugin.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <dlfcn.h>
#include <utility>

namespace
{
constexpr char LoadFunction[] = "load_plugin";
const QString LibraryPattern = QStringLiteral("libvesk_plugin_*.so");

using LoadPlugin = Vesk::Plugin *(*)();

bool isBeforeIgnoringCase(const QString &a, const QString &b)
{
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

QStringList librariesIn(const QString &path)
{
    if (QDir::isRelativePath(path)) {
        qWarning("Not searching for plug-ins in %s: not an absolute path", qUtf8Printable(path));
        return {};
    }
    const QDir directory(path);
    QStringList result = directory.entryList(
        {LibraryPattern}, QDir::AllEntries | QDir::CaseSensitive, QDir::Unsorted);
    std::sort(result.begin(), result.end(), isBeforeIgnoringCase);
    for (QString &name : result)
        name = directory.absoluteFilePath(name);
    return result;
}

/** The plug-in object of a library; null where it has none. The library stays loaded. */
Vesk::Plugin *load(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    void *library = dlopen(name.constData(), RTLD_NOW);
    if (!library)
        qFatal("Can not load library %s : %s", name.constData(), dlerror());
    const auto make = reinterpret_cast<LoadPlugin>(dlsym(library, LoadFunction));
    return make ? make() : nullptr;
}
} // namespace

QStringList Plugins::m_pluginPaths;
QList<Vesk::Plugin *> *Plugins::m_plugins = nullptr;

QStringList &Plugins::pluginPaths()
{
    return m_pluginPaths;
}

void Plugins::setPluginPaths(const QStringList &paths)
{
    m_pluginPaths = paths;
}

QList<Vesk::Plugin *> *Plugins::plugins()
{
    if (m_plugins)
        return m_plugins;
    auto *loaded = new QList<Vesk::Plugin *>;
    for (const QString &directory : std::as_const(m_pluginPaths)) {
        for (const QString &path : librariesIn(directory)) {
            if (Vesk::Plugin *plugin = load(path))
                loaded->append(plugin);
        }
    }
    m_plugins = loaded;
    // While the application object exists, a plug-in can still use the toolkit.
    qAddPostRoutine(&Plugins::release);
    return m_plugins;
}

void Plugins::release()
{
    if (!m_plugins)
        return;
    qDeleteAll(*m_plugins);
    delete std::exchange(m_plugins, nullptr);
}
