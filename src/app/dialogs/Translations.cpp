#include "Translations.h"

#include "InstallationSettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

namespace Translations
{
QStringList directories(const QStringList &extraDirectories)
{
    return extraDirectories +
           QStringList{
               QFile::decodeName(joinPath(InstallationSettings::instance().shareDirectory, "tr")),
               QLibraryInfo::path(QLibraryInfo::TranslationsPath)};
}

void install(const QStringList &catalogues, const QStringList &extraDirectories)
{
    const QStringList searched = directories(extraDirectories);
    for (const QString &catalogue : catalogues) {
        auto *translator = new QTranslator(QCoreApplication::instance());
        const auto loadsFrom = [&](const QString &directory) {
            return translator->load(QLocale::system(), catalogue, QStringLiteral("_"), directory);
        };
        if (std::any_of(searched.begin(), searched.end(), loadsFrom))
            QCoreApplication::installTranslator(translator);
    }
}
} // namespace Translations
