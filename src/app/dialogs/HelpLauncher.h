#pragma once

#include <QString>
#include <QStringList>

namespace HelpLauncher
{
/** The companion program's arguments for a help page ("Page.htm#anchor"). */
QStringList pageArguments(const QString &topic);

/**
 * Opens a help page: in the companion program `orrn` beside this one, or, where that is not
 * installed, in the desktop's browser. Says so where there is no such page.
 */
void show(const QString &topic);
} // namespace HelpLauncher
