#include "DialogRun.h"

#include "DevicePicture.h"
#include "HelpLauncher.h"
#include "InstallationSettings.h"
#include "LPRArguments.h"
#include "PasswordPrompt.h"
#include "PluginDirectories.h"
#include "Plugins.h"
#include "PrintDialog.h"
#include "PrinterPropertiesDialog.h"
#include "Translations.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>

#include <cstdlib>

namespace
{
constexpr const char *PluginDirVariable = "VESK_PLUGIN_DIR";
const QString DestinationKey = QStringLiteral("P");

QStringList askForFiles()
{
    //: Title of the window in which files are chosen.
    return QFileDialog::getOpenFileNames(
        nullptr, QCoreApplication::translate("main", "Select file(s) to print"), QDir::homePath());
}

void findPlugins(const QString &programPath)
{
    const char *environment = std::getenv(PluginDirVariable);
    if (environment || isRunningProgram(programPath))
        Plugins::setPluginPaths(pluginDirectories(environment, programPath));
    else
        qWarning("Not searching for plug-ins beside %s: another program runs",
                 qUtf8Printable(programPath));
}

PrintDialogServices services()
{
    PrintDialogServices result;
    result.showHelp = HelpLauncher::show;
    result.devicePicture = devicePicture;
    result.createPropertiesDialog = [](const QString &destination, const PrinterOptions &options,
                                       QWidget *parent) -> QDialog * {
        return new PrinterPropertiesDialog(destination, options, parent, HelpLauncher::show);
    };
    return result;
}

LPRArguments parse(std::vector<char *> argv)
{
    const int argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    return LPRArguments(argc, argv.data());
}

std::vector<std::string> encoded(const QStringList &texts)
{
    std::vector<std::string> result;
    for (const QString &text : texts)
        result.push_back(QFile::encodeName(text).toStdString());
    return result;
}

/** Shows the print dialog; after acceptance `arguments` hold what was chosen. */
bool isAccepted(LPRArguments &arguments)
{
    PrintDialog dialog(arguments.value(DestinationKey, QString()), PrinterOptions(arguments),
                       services());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    arguments.insert(DestinationKey, dialog.destination());
    arguments.takeFrom(dialog.options());
    return true;
}

DialogRun::Outcome showPrintDialog(DialogRun &run)
{
    LPRArguments arguments = parse(run.arguments);
    if (!isAccepted(arguments))
        return DialogRun::Outcome::Rejected;
    // The files go along by the names that they came with.
    arguments.operands.clear();
    run.clientOptions = encoded(arguments.toArguments());
    return DialogRun::Outcome::Accepted;
}
} // namespace

extern "C" Q_DECL_EXPORT DialogRun::Outcome vesk_run_dialogs(DialogRun &run)
{
    InstallationSettings::load(run.programPath.c_str());
    int argc = static_cast<int>(run.toolkitArguments.size());
    run.toolkitArguments.push_back(nullptr);
    QApplication application(argc, run.toolkitArguments.data());
    findPlugins(QFile::decodeName(run.programPath.c_str()));
    Translations::installToolkit(Translations::install(Translations::catalogues(), {}), {});
    PasswordPrompt::install();

    if (run.files.empty())
        run.files = encoded(askForFiles());
    return run.files.empty() ? DialogRun::Outcome::NoFiles : showPrintDialog(run);
}
