#include "Entry.h"

#include "DialogRun.h"
#include "Display.h"
#include "InstallationSettings.h"
#include "LPRArguments.h"
#include "ProcessEx.h"
#include "ProgramPath.h"
#include "Route.h"
#include "StandardInput.h"
#include "SystemPaths.h"
#include "ToolkitOptions.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

namespace
{
constexpr const char *PluginDirVariable = "VESK_PLUGIN_DIR";
constexpr const char *CompanionVariable = "PRINT_FROM_ORRN";

void loadSettings(const QString &programPath)
{
    if (InstallationSettings::load(QFile::encodeName(programPath).constData()) != 0)
        std::fputs("WARNING: configuration file not found\n", stdout);
}

/** Parses a copy: getopt reorders the vector, and a hand-over needs it as it was. */
LPRArguments parse(std::vector<char *> argv)
{
    const int argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    return LPRArguments(argc, argv.data());
}

/** Where -display names the display or only one kind answers, the toolkit must not choose. */
void addPlatform(std::vector<char *> &toolkitArguments, Display::Kind display)
{
    static char option[] = "-platform";
    static char xcb[] = "xcb";
    static char wayland[] = "wayland";
    if (display == Display::Kind::X11)
        toolkitArguments.insert(toolkitArguments.end(), {option, xcb});
    if (display == Display::Kind::Wayland)
        toolkitArguments.insert(toolkitArguments.end(), {option, wayland});
}

RunDialogs loadDialogs()
{
    void *library = dlopen(DialogLibrary, RTLD_NOW);
    void *function = library ? dlsym(library, DialogFunction) : nullptr;
    if (!function)
        std::fprintf(stderr, "lpr: The print dialog cannot be shown, printing without it: %s\n",
                     dlerror());
    return reinterpret_cast<RunDialogs>(function);
}

/** Runs the system client; afterwards the captured input is no longer needed. */
int runClient(const QList<QByteArray> &arguments)
{
    const int status = ProcessEx::execute(QByteArray(SystemPaths::systemClient()), arguments);
    StandardInput::removeFile();
    return status;
}

int handOver(const std::vector<char *> &argv)
{
    QList<QByteArray> arguments(argv.begin() + (argv.empty() ? 0 : 1), argv.end());
    if (*StandardInput::fileName())
        arguments.append(StandardInput::fileName());
    return runClient(arguments);
}

int print(const LPRArguments &arguments, const QStringList &files)
{
    QStringList texts = arguments.toArguments();
    if (arguments.operands.isEmpty())
        texts.append(files);
    QList<QByteArray> bytes;
    for (const QString &text : texts)
        bytes.append(QFile::encodeName(text));
    return runClient(bytes);
}

int finish(DialogRun::Outcome outcome, const DialogRun &run)
{
    if (outcome == DialogRun::Outcome::Accepted)
        return print(*run.arguments, run.files);
    StandardInput::removeFile();
    return outcome == DialogRun::Outcome::Rejected ? Entry::DialogRejected : Entry::NoFileChosen;
}
} // namespace

Entry::Entry(int argc, char **argv)
    : m_argc(argc)
    , m_argv(argv)
{
}

int Entry::run()
{
    const QString path = programPath(m_argv[0]);
    loadSettings(path);
    const ToolkitOptions::Split split = ToolkitOptions::split(m_argc, m_argv);
    LPRArguments arguments = parse(split.rest);
    m_jobTitle = arguments.value(QStringLiteral("T"), QString());
    m_files = arguments.operands;

    const bool handOverAsked = mustHandOver(arguments, std::getenv(CompanionVariable) != nullptr);
    const Display::Kind display =
        handOverAsked ? Display::Kind::None
                      : Display::find(Display::setting(split.platform, split.display));
    // With no display nobody can be asked for a file later, so the input may take its time.
    const bool mayAskForFile = handOverAsked || display != Display::Kind::None;
    if (m_files.isEmpty() &&
        !captureInput(mayAskForFile ? StandardInput::PatienceMs : StandardInput::NoLimit))
        return InputNotStored;

    DialogRun dialogRun{split.toolkit, {}, &arguments, m_files};
    addPlatform(dialogRun.toolkitArguments, display);
    const RunDialogs runDialogs = display == Display::Kind::None ? nullptr : loadDialogs();
    if (!runDialogs) {
        int count = static_cast<int>(dialogRun.toolkitArguments.size());
        dialogRun.toolkitArguments.push_back(nullptr);
        const QCoreApplication application(count, dialogRun.toolkitArguments.data());
        return handOver(split.rest);
    }
    dialogRun.pluginDirectories = pluginDirectories(std::getenv(PluginDirVariable), path);
    return finish(runDialogs(dialogRun), dialogRun);
}

bool Entry::captureInput(int patienceMs)
{
    StandardInput::installSignalHandlers();
    std::string error;
    switch (StandardInput::capture(STDIN_FILENO, patienceMs, error)) {
    case StandardInput::Result::Failed:
        std::fprintf(stderr, "lpr: Nothing was printed: %s\n", error.c_str());
        return false;
    case StandardInput::Result::Captured:
        m_files.append(QFile::decodeName(StandardInput::fileName()));
        if (m_jobTitle.isEmpty())
            m_jobTitle = QStringLiteral("(stdin)");
        return true;
    case StandardInput::Result::Nothing:
        return true;
    }
    return true;
}
