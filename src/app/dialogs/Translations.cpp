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

namespace
{
const QString toolkitCatalogue = QStringLiteral("qtbase");
const QString separator = QStringLiteral("_");

/** Installs the catalogue of the first directory from which `load` reads one; returns its language.
 */
template <typename Load> QString installFirst(const QStringList &extraDirectories, const Load &load)
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    const QStringList directories = Translations::directories(extraDirectories);
    const bool loaded =
        std::any_of(directories.begin(), directories.end(),
                    [&](const QString &directory) { return load(*translator, directory); });
    if (!loaded)
        return {};
    QCoreApplication::installTranslator(translator);
    return translator->language();
}
} // namespace

namespace Translations
{
QStringList directories(const QStringList &extraDirectories)
{
    return extraDirectories +
           QStringList{
               QFile::decodeName(joinPath(InstallationSettings::instance().shareDirectory, "tr")),
               QLibraryInfo::path(QLibraryInfo::TranslationsPath)};
}

QStringList catalogues()
{
    return {QStringLiteral("vesk"), QStringLiteral("CupsInt"), QStringLiteral("ppdwidgets"),
            QStringLiteral("printdialog")};
}

QString install(const QStringList &catalogues, const QStringList &extraDirectories)
{
    QString language;
    for (const QString &catalogue : catalogues) {
        const QString installed =
            installFirst(extraDirectories, [&](QTranslator &translator, const QString &directory) {
                return translator.load(QLocale::system(), catalogue, separator, directory);
            });
        if (language.isEmpty())
            language = installed;
    }
    return language;
}

void installToolkit(const QString &language, const QStringList &extraDirectories)
{
    if (language.isEmpty())
        return;
    installFirst(extraDirectories, [&](QTranslator &translator, const QString &directory) {
        return translator.load(toolkitCatalogue + separator + language, directory);
    });
}
} // namespace Translations
