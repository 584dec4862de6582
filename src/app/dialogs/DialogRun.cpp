#include "DialogRun.h"

#include "HelpLauncher.h"
#include "LPRArguments.h"
#include "PasswordPrompt.h"
#include "Plugins.h"
#include "PrintDialog.h"
#include "Translations.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>

namespace
{
const QString DestinationKey = QStringLiteral("P");

QStringList askForFiles()
{
    return QFileDialog::getOpenFileNames(
        nullptr, QCoreApplication::translate("main", "Select file(s) to print"), QDir::homePath());
}

PrintDialogServices services()
{
    PrintDialogServices result;
    result.showHelp = HelpLauncher::show;
    return result;
}

DialogRun::Outcome showPrintDialog(LPRArguments &arguments)
{
    PrintDialog dialog(arguments.value(DestinationKey, QString()), PrinterOptions(arguments),
                       services());
    if (dialog.exec() != QDialog::Accepted)
        return DialogRun::Outcome::Rejected;
    arguments.insert(DestinationKey, dialog.destination());
    arguments.takeFrom(dialog.options());
    return DialogRun::Outcome::Accepted;
}
} // namespace

extern "C" Q_DECL_EXPORT DialogRun::Outcome vesk_run_dialogs(DialogRun &run)
{
    int argc = static_cast<int>(run.toolkitArguments.size());
    run.toolkitArguments.push_back(nullptr);
    QApplication application(argc, run.toolkitArguments.data());
    Plugins::setPluginPaths(run.pluginDirectories);
    Translations::install({QStringLiteral("vesk"), QStringLiteral("CupsInt"),
                           QStringLiteral("ppdwidgets"), QStringLiteral("printdialog")},
                          {});
    PasswordPrompt::install();

    if (run.files.isEmpty())
        run.files = askForFiles();
    return run.files.isEmpty() ? DialogRun::Outcome::NoFiles : showPrintDialog(*run.arguments);
}
