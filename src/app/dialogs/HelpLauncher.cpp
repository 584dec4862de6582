#include "HelpLauncher.h"

#include "InstallationSettings.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{
constexpr QLatin1Char AnchorSign('#');

QString pageName(const QString &topic)
{
    return topic.section(AnchorSign, 0, 0);
}

void addOption(QStringList &arguments, const QString &option, const QString &text)
{
    if (!text.isEmpty())
        arguments += {option, text};
}

bool openInCompanion(const QString &topic)
{
    HelpLauncher::Page page;
    page.topic = topic;
    const QString program = HelpLauncher::companionProgram(HelpLauncher::programDirectory());
    return QFileInfo(program).isExecutable() &&
           QProcess::startDetached(program, HelpLauncher::arguments(page));
}

bool openInBrowser(const QString &topic)
{
    const QString file = HelpLauncher::pageFile(topic, HelpLauncher::helpDirectory(),
                                                QLocale::system().uiLanguages());
    if (file.isEmpty())
        return false;
    QUrl url = QUrl::fromLocalFile(file);
    url.setFragment(topic.section(AnchorSign, 1));
    return QDesktopServices::openUrl(url);
}
} // namespace

namespace HelpLauncher
{
QStringList arguments(const Page &page)
{
    QStringList result;
    addOption(result, u"-g"_s, page.topic);
    addOption(result, u"-n"_s, QString::number(page.n));
    addOption(result, u"-h"_s, QString::number(page.h));
    addOption(result, u"-f"_s, QString::number(page.f));
    addOption(result, u"--vendorconfigdir"_s, page.vendorConfigDirectory);
    return result;
}

QStringList arguments(const About &about)
{
    QStringList result;
    addOption(result, u"--ui-about"_s, about.uiAbout);
    addOption(result, u"--res-about"_s, about.resAbout);
    addOption(result, u"--translate"_s, about.translate);
    addOption(result, u"--sharedir"_s, about.shareDirectory);
    addOption(result, u"-u"_s, about.topic);
    addOption(result, u"-s"_s, about.helpDirectory);
    return result;
}

QString helpDirectory()
{
    return QFile::decodeName(joinPath(InstallationSettings::instance().shareDirectory, "help"));
}

QString programDirectory()
{
    return QFile::decodeName(joinPath(InstallationSettings::instance().rootDirectory, "bin"));
}

QString companionProgram(const QString &programDirectory)
{
    return QDir(programDirectory).filePath(u"orrn"_s);
}

QStringList languageFolders(const QStringList &languages)
{
    QStringList result;
    for (const QString &name : languages) {
        const QLocale::Language language = QLocale(name).language();
        if (language == QLocale::English || language == QLocale::C)
            break;
        result += QLocale::languageToCode(language);
    }
    result.removeDuplicates();
    return result << QString();
}

QString pageFile(const QString &topic, const QString &helpDirectory, const QStringList &languages)
{
    for (const QString &folder : languageFolders(languages)) {
        const QString file = QDir(QDir(helpDirectory).filePath(folder)).filePath(pageName(topic));
        if (QFileInfo(file).isFile())
            return file;
    }
    return {};
}

void show(const QString &topic)
{
    const QString asked = topic.isEmpty() ? QString(DefaultTopic) : topic;
    if (openInCompanion(asked) || openInBrowser(asked))
        return;
    QMessageBox::information(
        //: Title of a message that says that the help could not be shown.
        nullptr, QCoreApplication::translate("HelpLauncher", "Help"),
        QCoreApplication::translate("HelpLauncher", "The help page \"%1\" could not be opened.")
            .arg(pageName(asked)));
}
} // namespace HelpLauncher
