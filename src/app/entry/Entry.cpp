#include "Entry.h"

#include "DialogRun.h"
#include "Display.h"
#include "InstallationSettings.h"
#include "LPRArguments.h"
#include "ProcessEx.h"
#include "ProgramPath.h"
#include "Route.h"
#include "SignalDisposition.h"
#include "StandardInput.h"
#include "SystemPaths.h"
#include "ToolkitOptions.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace
{
constexpr const char *PluginDirVariable = "VESK_PLUGIN_DIR";
constexpr const char *CompanionVariable = "PRINT_FROM_ORRN";

/** A standard stream that is closed is opened on the null device, before another file takes it. */
void openStandardStreams()
{
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR | O_CLOEXEC);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
}

void loadSettings(const QString &programPath)
{
    if (InstallationSettings::load(QFile::encodeName(programPath).constData()) == 0)
        return;
    // Where nobody reads this any more, the run goes on.
    const SignalDisposition writeFails(SIGPIPE, SIG_IGN);
    std::fputs("WARNING: configuration file not found\n", stdout);
    std::fflush(stdout);
}

void tell(const char *what, const char *why)
{
    const QString text = QCoreApplication::translate("Entry", what);
    std::fprintf(stderr, "lpr: %s: %s\n", text.toLocal8Bit().constData(), why);
}

std::optional<QByteArray> findDisplay(const ToolkitOptions::Split &split)
{
    return Display::find(Display::setting(split.platform, split.display, split.platformPluginPath));
}

/** Tells the toolkit which platform to take; an empty text leaves the choice to it. */
void choosePlatform(std::vector<char *> &toolkitArguments, const QByteArray &platform)
{
    static char option[] = "-platform";
    static QByteArray chosen;
    if (platform.isEmpty())
        return;
    chosen = platform;
    toolkitArguments.insert(toolkitArguments.end(), {option, chosen.data()});
}

RunDialogs loadDialogs()
{
    void *library = dlopen(DialogLibrary, RTLD_NOW);
    void *function = library ? dlsym(library, DialogFunction) : nullptr;
    if (!function)
        tell(QT_TRANSLATE_NOOP("Entry", "The print dialog cannot be shown, printing without it"),
             dlerror());
    return reinterpret_cast<RunDialogs>(function);
}

QList<QByteArray> encoded(const QStringList &texts)
{
    QList<QByteArray> bytes;
    for (const QString &text : texts)
        bytes.append(QFile::encodeName(text));
    return bytes;
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

/** The files to print, with the names that they came with, whatever encoding those have. */
QList<QByteArray> filesToPrint(const DialogRun &run, const QList<QByteArray> &operands)
{
    if (!operands.isEmpty())
        return operands;
    if (*StandardInput::fileName())
        return {StandardInput::fileName()};
    return encoded(run.files);
}

int print(const DialogRun &run, const QList<QByteArray> &operands)
{
    const QStringList arguments = run.arguments->toArguments();
    return runClient(encoded(arguments.first(arguments.size() - operands.size())) +
                     filesToPrint(run, operands));
}

/** The run without a dialog. The toolkit's core is there in every run. */
int handOver(ToolkitOptions::Split &split)
{
    int count = static_cast<int>(split.toolkit.size());
    split.toolkit.push_back(nullptr);
    const QCoreApplication application(count, split.toolkit.data());
    return handOver(split.rest);
}
} // namespace

Entry::Entry(int argc, char **argv)
    : m_argc(argc)
    , m_argv(argv)
{
}

int Entry::run()
{
    openStandardStreams();
    const QString path = programPath(m_argv[0]);
    loadSettings(path);
    ToolkitOptions::Split split = ToolkitOptions::split(m_argc, m_argv);
    // getopt reorders the vector that it reads; a hand-over needs the order that the user gave.
    std::vector<char *> parsed = split.rest;
    parsed.push_back(nullptr);
    LPRArguments arguments(static_cast<int>(split.rest.size()), parsed.data());
    const QList<QByteArray> operands(parsed.end() - 1 - arguments.operands.size(),
                                     parsed.end() - 1);
    m_jobTitle = arguments.value(QStringLiteral("T"), QString());
    m_files = arguments.operands;

    const bool handOverAsked = mustHandOver(arguments, std::getenv(CompanionVariable) != nullptr);
    auto display = handOverAsked ? std::nullopt : findDisplay(split);
    if (m_files.isEmpty()) {
        if (!captureInput(handOverAsked, display.has_value()))
            return InputNotStored;
        // The input may have taken long, and the toolkit aborts where the display is gone.
        if (display && !m_files.isEmpty())
            display = findDisplay(split);
    }

    const RunDialogs runDialogs = display ? loadDialogs() : nullptr;
    if (!runDialogs)
        return handOver(split);
    choosePlatform(split.toolkit, *display);
    DialogRun run{split.toolkit, pluginDirectories(std::getenv(PluginDirVariable), path),
                  &arguments, m_files};
    const DialogRun::Outcome outcome = runDialogs(run);
    if (outcome == DialogRun::Outcome::Accepted)
        return print(run, operands);
    StandardInput::removeFile();
    return outcome == DialogRun::Outcome::Rejected ? DialogRejected : NoFileChosen;
}

bool Entry::captureInput(bool handOverAsked, bool hasDisplay)
{
    // With no display nobody can be asked for a file later, so the input may take its time, and
    // nothing of it may get lost without a word.
    const bool isOnlyChance = !handOverAsked && !hasDisplay;
    StandardInput::installSignalHandlers();
    std::string error;
    const StandardInput::Result result = StandardInput::capture(
        STDIN_FILENO, isOnlyChance ? StandardInput::NoLimit : StandardInput::PatienceMs, error);
    if (result == StandardInput::Result::Failed ||
        (result == StandardInput::Result::Dropped && isOnlyChance)) {
        tell(QT_TRANSLATE_NOOP("Entry", "Nothing was printed"), error.c_str());
        return false;
    }
    if (result == StandardInput::Result::Captured) {
        m_files.append(QFile::decodeName(StandardInput::fileName()));
        if (m_jobTitle.isEmpty())
            m_jobTitle = QStringLiteral("(stdin)");
    }
    return true;
}
