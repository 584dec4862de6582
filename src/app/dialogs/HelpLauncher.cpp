#include "HelpLauncher.h"

#include "InstallationSettings.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>

namespace
{
QString companionProgram()
{
    return QFile::decodeName(InstallationSettings::instance().rootDirectory) +
           QLatin1String("/bin/orrn");
}

QUrl pageUrl(const QString &topic)
{
    QUrl url = QUrl::fromLocalFile(
        QFile::decodeName(joinPath(InstallationSettings::instance().shareDirectory, "help/")) +
        topic.section(QLatin1Char('#'), 0, 0));
    url.setFragment(topic.section(QLatin1Char('#'), 1));
    return url;
}

bool openInBrowser(const QString &topic)
{
    const QUrl url = pageUrl(topic);
    return QFileInfo::exists(url.toLocalFile()) && QDesktopServices::openUrl(url);
}
} // namespace

namespace HelpLauncher
{
QStringList pageArguments(const QString &topic)
{
    const QString none = QStringLiteral("0");
    return {QStringLiteral("-g"), topic, QStringLiteral("-n"), none,
            QStringLiteral("-h"), none,  QStringLiteral("-f"), none};
}

void show(const QString &topic)
{
    if (QFileInfo(companionProgram()).isExecutable() &&
        QProcess::startDetached(companionProgram(), pageArguments(topic)))
        return;
    if (openInBrowser(topic))
        return;
    QMessageBox::information(
        nullptr, QCoreApplication::translate("HelpLauncher", "Help"),
        QCoreApplication::translate("HelpLauncher", "The help page \"%1\" could not be opened.")
            .arg(pageUrl(topic).fileName()));
}
} // namespace HelpLauncher
