#include "PluginDirectories.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace
{
constexpr QLatin1Char DirectorySeparator(';');
constexpr QLatin1String PluginDirectory("plugins");
constexpr char RunningProgram[] = "/proc/self/exe";

/** The folder two levels above the one that holds the program; false where there is none. */
bool goToBase(QDir &directory)
{
    return directory.exists() && directory.cdUp() && directory.cdUp();
}
} // namespace

QStringList pluginDirectories(const char *environment, const QString &programPath)
{
    if (environment)
        return QFile::decodeName(environment).split(DirectorySeparator, Qt::SkipEmptyParts);

    QStringList result;
    QDir base = QFileInfo(programPath).dir();
    if (!goToBase(base))
        return result;
    const QStringList names = base.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &name : names) {
        const QDir directory(base.filePath(name));
        const QString plugins = directory.filePath(PluginDirectory);
        if (!name.startsWith(QLatin1Char('.')) && QFileInfo(plugins).isDir())
            result.append(plugins);
    }
    return result;
}

bool isRunningProgram(const QString &programPath)
{
    std::error_code error;
    return std::filesystem::equivalent(QFile::encodeName(programPath).constData(), RunningProgram,
                                       error);
}
