#include "Translations.h"

#include "InstallationSettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

// What the toolkit asks its catalogues for to know which way its windows run. Asking ours, too,
// makes the layout follow our texts where the toolkit's catalogues are not installed.
//: Not shown. "RTL" if the language is written from right to left, else "LTR".
[[maybe_unused]] constexpr char layoutDirection[] =
    QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION");

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
