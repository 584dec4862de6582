#pragma once

#include <QStringList>

namespace Translations
{
/**
 * The folders that are searched for catalogues: `extraDirectories`, `tr` in the installation's
 * share folder, and the toolkit's own.
 */
QStringList directories(const QStringList &extraDirectories);

/**
 * Installs a translator for each of `catalogues` in the user's language on the application object,
 * which owns them. A catalogue that does not exist leaves its texts in English.
 */
void install(const QStringList &catalogues, const QStringList &extraDirectories);
} // namespace Translations
