#pragma once

#include "Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>
#include <vector>

/** The program's and the toolkit's texts in a language, for as long as it lives. */
class Language
{
public:
    /** With the catalogues `<name>_<language>.qm` of `folder`. */
    Language(const QString &language, const QString &folder)
    {
        QLocale::setDefault(QLocale(language));
        const QStringList catalogues = Translations::catalogues();
        for (const QString &catalogue : catalogues)
            install(catalogue, language, folder);
        install(QStringLiteral("qtbase"), language,
                QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    }
    ~Language()
    {
        for (const auto &translator : m_translators)
            QCoreApplication::removeTranslator(translator.get());
        QLocale::setDefault(QLocale::c());
    }
    Language(const Language &) = delete;
    Language &operator=(const Language &) = delete;

    /** The languages whose catalogues are in the folder. */
    static QStringList languages(const QString &folder)
    {
        const QString prefix = Translations::catalogues().constFirst() + u'_';
        QStringList result;
        const QStringList files = QDir(folder).entryList({prefix + QStringLiteral("*.qm")});
        for (const QString &file : files)
            result.append(file.mid(prefix.size()).chopped(3));
        return result;
    }

private:
    void install(const QString &catalogue, const QString &language, const QString &folder)
    {
        auto translator = std::make_unique<QTranslator>();
        const QString file = catalogue + u'_' + language;
        // The toolkit takes a shorter name when it finds nothing under this one.
        if (!translator->load(file, folder) ||
            !translator->filePath().endsWith(file + QStringLiteral(".qm")))
            qFatal("no catalogue %s in %s", qUtf8Printable(file), qUtf8Printable(folder));
        QCoreApplication::installTranslator(translator.get());
        m_translators.push_back(std::move(translator));
    }

    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
