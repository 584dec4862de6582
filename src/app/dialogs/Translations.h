#pragma once

#include <QStringList>

namespace Translations
{
/**
 * The folders that are searched for catalogues: `extraDirectories`, `tr` in the installation's
 * share folder, and the toolkit's own.
 */
QStringList directories(const QStringList &extraDirectories);

/** The program's catalogues. */
QStringList catalogues();

/**
 * Installs a translator for each of `catalogues` in the user's language on the application object,
 * which owns them. A catalogue that does not exist leaves its texts in English. Returns the
 * language of the first that exists, as catalogues are named ("de", "pt_BR"), or nothing.
 */
QString install(const QStringList &catalogues, const QStringList &extraDirectories);

/**
 * Installs the toolkit's own texts in the language that `install` has found: its buttons and file
 * dialog speak the language of our texts or, where there are none, English as well. Windows run
 * from right to left where the language does.
 */
void installToolkit(const QString &language, const QStringList &extraDirectories);
} // namespace Translations
