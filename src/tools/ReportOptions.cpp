#include "ReportOptions.h"

#include <QCommandLineParser>

#include <array>
#include <fnmatch.h>

namespace
{
const QString Name = QStringLiteral("name");
const QString Type = QStringLiteral("type");
const QString Mask = QStringLiteral("mask");
const QString Model = QStringLiteral("model");
const QString Make = QStringLiteral("make");
const QString WhichJobs = QStringLiteral("which");
const QString JobUris = QStringLiteral("uris");
const QString Uri = QStringLiteral("uri");
const QString Help = QStringLiteral("help");

struct SectionName {
    const char *name;
    ReportOptions::Section section;
};
constexpr std::array SectionNames = {
    SectionName{"default", ReportOptions::Default},
    SectionName{"printers", ReportOptions::Printers},
    SectionName{"classes", ReportOptions::Classes},
    SectionName{"jobs", ReportOptions::Jobs},
    SectionName{"drivers", ReportOptions::Drivers},
};

struct WhichName {
    const char *name;
    ReportOptions::Which which;
};
constexpr std::array WhichNames = {
    WhichName{"active", ReportOptions::Which::Active},
    WhichName{"completed", ReportOptions::Which::Completed},
    WhichName{"all", ReportOptions::Which::All},
};

/** The row of `name`, or null. */
template <typename Table> auto rowOf(const Table &table, const QString &name)
{
    for (const auto &row : table) {
        if (name == QLatin1String(row.name))
            return &row;
    }
    return static_cast<const typename Table::value_type *>(nullptr);
}

constexpr char HelpText[] =
    R"(Usage: vesk-server [OPTION...] [default|printers|classes|jobs|drivers]...

Prints what the print dialog sees of the current print server: the default
destination, printers, classes, jobs and drivers. Without a word all but the
drivers, which take the server seconds. The server is the one of the other
printing commands (CUPS_SERVER, client.conf).

  --name PATTERN   only what is called so: the default, printers, classes, the
                   destinations of jobs, driver files. Wildcards as in the shell
  --type BITS      only printers of this type: the bits of the mask that are set
  --mask BITS      the bits of the type that count; without this all of --type
  --model TEXT     only printers whose make or model contains TEXT
  --uri URI        in place of all printers the printer or class at URI
  --which WHICH    active (without this option), completed or all jobs
  --uris           the active jobs as the server itself lists them, with URIs
  --make MAKE      only drivers of this make
  --help           this text

Bits are decimal, or hexadecimal after 0x: 0x1 classes, 0x4 black and white,
0x8 colour, 0x10 both sides.

The program's logs are truncated, as by every run, and then hold all attributes
of the answers to its own requests. Jobs without --uris and the default are
asked for by the library, which logs nothing.

Exit status: 0 printed, 1 the server did not answer or refused or the output
could not be written, 2 wrong arguments, 3 the server has nothing of it.
)";

void addOptions(QCommandLineParser &parser)
{
    for (const QString &name : {Name, Type, Mask, Model, Make, WhichJobs, Uri})
        parser.addOption({name, QString(), QStringLiteral("value")});
    parser.addOption(QCommandLineOption(JobUris));
    parser.addOption(QCommandLineOption(Help));
}

std::optional<int> bitsOf(const QString &text)
{
    constexpr int AnyBase = 0;
    bool isNumber = false;
    const uint bits = text.toUInt(&isNumber, AnyBase);
    return isNumber ? std::optional<int>(static_cast<int>(bits)) : std::nullopt;
}

/** Says what is wrong with a value. */
QString complaint(const QString &option, const QString &value)
{
    return QStringLiteral("--%1: not understood: %2").arg(option, value);
}

/** Reads the bits of an option that may be missing. False when they are no number. */
bool readBits(const QCommandLineParser &parser, const QString &option, int &bits, QString &error)
{
    if (!parser.isSet(option))
        return true;
    const std::optional<int> read = bitsOf(parser.value(option));
    if (!read) {
        error = complaint(option, parser.value(option));
        return false;
    }
    bits = *read;
    return true;
}

bool readSections(const QStringList &words, ReportOptions &options, QString &error)
{
    if (!words.isEmpty())
        options.sections = {};
    for (const QString &word : words) {
        const SectionName *row = rowOf(SectionNames, word);
        if (!row) {
            error = QStringLiteral("unknown word: ") + word;
            return false;
        }
        options.sections |= row->section;
    }
    return true;
}

bool readWhich(const QCommandLineParser &parser, ReportOptions &options, QString &error)
{
    if (!parser.isSet(WhichJobs))
        return true;
    const WhichName *row = rowOf(WhichNames, parser.value(WhichJobs));
    if (!row) {
        error = complaint(WhichJobs, parser.value(WhichJobs));
        return false;
    }
    options.which = row->which;
    if (options.hasJobUris && options.which != ReportOptions::Which::Active) {
        error = QStringLiteral("--uris lists active jobs only");
        return false;
    }
    return true;
}

bool readTypes(const QCommandLineParser &parser, ReportOptions &options, QString &error)
{
    if (!readBits(parser, Type, options.type, error))
        return false;
    options.mask = options.type;
    return readBits(parser, Mask, options.mask, error);
}

std::optional<QString> valueOf(const QCommandLineParser &parser, const QString &option)
{
    return parser.isSet(option) ? std::optional<QString>(parser.value(option)) : std::nullopt;
}
} // namespace

bool ReportOptions::matchesName(const QString &text) const
{
    constexpr int SlashesAreOrdinary = 0;
    return fnmatch(qPrintable(name), qPrintable(text), SlashesAreOrdinary) == 0;
}

std::optional<ReportOptions> readReportOptions(const QStringList &arguments, QString &error)
{
    QCommandLineParser parser;
    addOptions(parser);
    // The parser takes the first one for the program's name.
    if (!parser.parse(QStringList(QStringLiteral("vesk-server")) + arguments)) {
        error = parser.errorText();
        return std::nullopt;
    }
    ReportOptions options;
    options.wantsHelp = parser.isSet(Help);
    options.hasJobUris = parser.isSet(JobUris);
    options.name = valueOf(parser, Name).value_or(options.name);
    options.uri = parser.value(Uri);
    options.model = valueOf(parser, Model);
    options.make = valueOf(parser, Make);
    const bool isRight = readTypes(parser, options, error) && readWhich(parser, options, error) &&
                         readSections(parser.positionalArguments(), options, error);
    return isRight ? std::optional<ReportOptions>(options) : std::nullopt;
}

QString reportHelp()
{
    return QString::fromLatin1(HelpText);
}
