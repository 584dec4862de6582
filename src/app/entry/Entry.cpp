#include "Entry.h"

#include "ChildProcess.h"
#include "DiagnosticLog.h"
#include "DialogRun.h"
#include "Display.h"
#include "InstallationSettings.h"
#include "ProgramPath.h"
#include "Route.h"
#include "SignalDisposition.h"
#include "StandardInput.h"
#include "SystemPaths.h"
#include "ToolkitOptions.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace
{
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

void loadSettings(const std::string &programPath)
{
    if (InstallationSettings::load(programPath.c_str()) == 0)
        return;
    // Where nobody reads this any more, the run goes on.
    const SignalDisposition writeFails(SIGPIPE, SIG_IGN);
    std::fputs("WARNING: configuration file not found\n", stdout);
    std::fflush(stdout);
}

void tell(const char *what, const char *why)
{
    std::fprintf(stderr, "lpr: %s: %s\n", what, why);
}

std::optional<std::string> findDisplay(const ToolkitOptions::Split &split)
{
    return Display::find(Display::setting(split.platform, split.display, split.platformPluginPath));
}

/** Tells the toolkit which platform to take; an empty text leaves the choice to it. */
void choosePlatform(std::vector<char *> &toolkitArguments, const std::string &platform)
{
    static char option[] = "-platform";
    static std::string chosen;
    if (platform.empty())
        return;
    chosen = platform;
    toolkitArguments.insert(toolkitArguments.end(), {option, chosen.data()});
}

RunDialogs loadDialogs()
{
    void *library = dlopen(DialogLibrary, RTLD_NOW);
    void *function = library ? dlsym(library, DialogFunction) : nullptr;
    if (!function)
        tell("The print dialog cannot be shown, printing without it", dlerror());
    return reinterpret_cast<RunDialogs>(function);
}

/** Runs the system client; afterwards the captured input is no longer needed. */
int runClient(const std::vector<const char *> &arguments)
{
    const int status = ChildProcess::run(SystemPaths::systemClient(), arguments);
    if (status == ChildProcess::FailedToLaunch)
        std::fprintf(stderr, "%s\n", ChildProcess::LaunchWarning);
    StandardInput::removeFile();
    return status;
}

/** The run without a dialog, with the arguments as they came. */
int handOver(const std::vector<char *> &argv)
{
    std::vector<const char *> arguments(argv.begin() + (argv.empty() ? 0 : 1), argv.end());
    if (*StandardInput::fileName())
        arguments.push_back(StandardInput::fileName());
    return runClient(arguments);
}

int print(const DialogRun &run)
{
    std::vector<const char *> arguments;
    for (const std::string &argument : run.clientOptions)
        arguments.push_back(argument.c_str());
    for (const std::string &file : run.files)
        arguments.push_back(file.c_str());
    return runClient(arguments);
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
    DiagnosticLog::truncateAll();
    const std::string path = programPath(m_argv[0]);
    loadSettings(path);
    ToolkitOptions::Split split = ToolkitOptions::split(m_argc, m_argv);
    const CommandLine commandLine = readCommandLine(split.rest);
    m_jobTitle = commandLine.title;
    m_files = commandLine.operands;

    const bool handOverAsked = mustHandOver(commandLine, std::getenv(CompanionVariable) != nullptr);
    auto display = handOverAsked ? std::nullopt : findDisplay(split);
    if (m_files.empty()) {
        if (!captureInput(handOverAsked, display.has_value()))
            return InputNotStored;
        // The input may have taken long, and the toolkit aborts where the display is gone.
        if (display && !m_files.empty())
            display = findDisplay(split);
    }

    const RunDialogs runDialogs = display ? loadDialogs() : nullptr;
    if (!runDialogs)
        return handOver(split.rest);
    choosePlatform(split.toolkit, *display);
    DialogRun run{split.toolkit, split.rest, path, m_files, {}};
    const DialogRun::Outcome outcome = runDialogs(run);
    if (outcome == DialogRun::Outcome::Accepted)
        return print(run);
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
        tell("Nothing was printed", error.c_str());
        return false;
    }
    if (result == StandardInput::Result::Captured) {
        m_files.push_back(StandardInput::fileName());
        if (m_jobTitle.empty())
            m_jobTitle = "(stdin)";
    }
    return true;
}
