#pragma once

#include <QString>
#include <QStringList>

namespace HelpLauncher
{
/** The page that is shown where no other is asked for. */
inline constexpr QLatin1StringView DefaultTopic("DriverPackageOverview.htm");

/** The folders of this installation: of the help pages, and of the companion program. */
QString helpDirectory();
QString programDirectory();

/** A help page in the companion program. */
struct Page {
    /** "Page.htm#anchor". */
    QString topic = DefaultTopic;
    /** The numbers of the calling dialog; the program's own dialogs have none to tell. */
    int n = 0;
    int h = 0;
    int f = 0;
    /** May be empty. */
    QString vendorConfigDirectory;
};

/** The About box in the companion program, which no window of this one opens. Texts may be empty.
 */
struct About {
    QString uiAbout;
    QString resAbout;
    QString translate;
    QString shareDirectory;
    QString topic = DefaultTopic;
    QString helpDirectory = HelpLauncher::helpDirectory();
};

/** The companion program's arguments; an option whose text is empty is left out. */
QStringList arguments(const Page &page);
QStringList arguments(const About &about);

/** The companion program in that folder, whether it is there or not. */
QString companionProgram(const QString &programDirectory);

/**
 * The folders below the help directory that may hold the pages in a reader's languages ("de-AT"),
 * the best first: those of the languages' codes ("de"). The list ends before English with an empty
 * name, for the help directory itself, which holds the English pages.
 */
QStringList languageFolders(const QStringList &languages);

/** The file of a topic's page in the first of those languages that has it; empty where none has. */
QString pageFile(const QString &topic, const QString &helpDirectory, const QStringList &languages);

/**
 * Opens a help page: in the companion program `orrn` beside this one, or, where that is not
 * installed, in the desktop's browser, in the user's language where there is a translation. Says so
 * where that fails.
 */
void show(const QString &topic);
} // namespace HelpLauncher
