#include "PrinterOptions.h"

#include "CUPSManager.h"
#include "Destinations.h"
#include "DiagnosticLog.h"
#include "JobOptions.h"
#include "LPRArguments.h"
#include "PpdMarks.h"
#include "ServerConnection.h"

#include <QDebug>

#include <algorithm>
#include <cstring>
#include <span>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace
{
constexpr QLatin1String volatilePrefix("volatile-");
/** The saved names that lose the prefix when they are loaded. */
constexpr QLatin1String restoredPrefix("volatile-qfax");

const DiagnosticLog::Handle diagnostics = DiagnosticLog::open(DiagnosticLog::Names::Options);

/** A destination `name` or `name/instance`. */
struct DestinationName {
    explicit DestinationName(const QString &destination)
        : name(destination.section(QLatin1Char('/'), 0, 0).toLocal8Bit())
        , instance(destination.section(QLatin1Char('/'), 1, 1).toLocal8Bit())
    {
        if (name.isEmpty())
            qWarning("<%s> - invalid destination", qPrintable(destination));
    }
    bool isValid() const { return !name.isEmpty(); }
    const char *instanceOrNull() const
    {
        return instance.isEmpty() ? nullptr : instance.constData();
    }

    QByteArray name;
    QByteArray instance;
};

std::span<const ppd_choice_t> choicesOf(const ppd_option_t &option)
{
    return {option.choices, static_cast<size_t>(option.num_choices)};
}

QString withRemovalMarker(const QString &name)
{
    return name + QLatin1Char('-');
}

bool isRemoved(const cups_option_t &option)
{
    const QByteArray value(option.value);
    return value.size() > 0 && value.endsWith('-') && value.chopped(1) == option.name;
}

QString pairText(const QString &name, const QString &value)
{
    return QStringLiteral("<%1>=<%2>").arg(name, value);
}

QString section(const char *title, const QStringList &lines)
{
    return QStringLiteral("%1(%2):\n\t%3")
        .arg(QLatin1String(title), QString::number(lines.size()),
             lines.join(QStringLiteral("\n\t")));
}

void clearOptions(cups_dest_t &destination)
{
    cupsFreeOptions(std::exchange(destination.num_options, 0),
                    std::exchange(destination.options, nullptr));
}

void addOption(cups_dest_t &destination, const QByteArray &name, const QByteArray &value)
{
    destination.num_options = cupsAddOption(name.constData(), value.constData(),
                                            destination.num_options, &destination.options);
}

/** Whether the PPD's own state of the option is what is saved, instead of the CUPS array's value.
 */
bool isWrittenFromPpd(const char *keyword)
{
    return std::strcmp(keyword, "PageRegion") != 0 && std::strcmp(keyword, "Duplex") != 0;
}

void addPpdOptions(cups_dest_t &destination, ppd_file_t *ppd)
{
    for (const ppd_option_t *option : PpdMarks::options(ppd)) {
        if (!isWrittenFromPpd(option->keyword))
            continue;
        const QStringList texts = PpdMarks::choiceTexts(ppd, *option, diagnostics.get());
        const QByteArray text = texts.join(QLatin1Char(',')).toLocal8Bit();
        // Without a mark there is nothing to save: an empty value would read back as "true".
        if (!texts.isEmpty() && text != option->defchoice)
            addOption(destination, option->keyword, text);
    }
}

/** Marks the options, lists of values as they are saved included. */
void markOptions(ppd_file_t *ppd, const Cups::OptionArray &options)
{
    cupsMarkOptions(ppd, options.count(), options.data());
    for (const cups_option_t &option : options) {
        const ppd_coption_t *custom = ppdFindCustomOption(ppd, option.name);
        const QString value = QString::fromLocal8Bit(option.value);
        const QString list = custom ? PpdMarks::markableList(*custom, value) : value;
        if (list != value)
            ppdMarkOption(ppd, option.name, list.toLocal8Bit().constData());
    }
}

/** Whether the whole of the resource is in `file`. */
bool download(http_t *http, const QByteArray &resource, int file)
{
    // The library takes what it has got so far for the whole when the answer ends early.
    return cupsGetFd(http, resource.constData(), file) == HTTP_STATUS_OK &&
           httpGetState(http) == HTTP_STATE_WAITING && !ServerConnection::isTimeOver(http);
}

/**
 * The PPD of the server's queue; null without one. The library's own way (cupsGetPPD) goes through
 * a temporary file, which a signal at the wrong moment leaves behind, and for a server that calls
 * its queues by another host's name through a connection without a time limit.
 */
Cups::PpdPtr fetchPpd(const QByteArray &name)
{
    if (name.isEmpty())
        return {};
    const ServerConnection::Ptr http = ServerConnection::open();
    if (!http)
        return {};
    const int file = memfd_create("ppd", MFD_CLOEXEC);
    if (file < 0)
        return {};
    if (!download(http.get(), "/printers/" + name + ".ppd", file)) {
        close(file);
        return {};
    }
    lseek(file, 0, SEEK_SET);
    return Cups::sharePpd(ppdOpenFd(file)); // which closes the file
}
} // namespace

PrinterOptions::PrinterOptions() = default;

PrinterOptions::PrinterOptions(const CommandLineOptions &commandLine)
{
    applyJobOptions(commandLine, *this);
}

PrinterOptions::PrinterOptions(const PrinterOptions &other)
    : QMap(other)
    , m_destination(other.m_destination)
    , m_ppd(other.m_ppd)
    , m_textMaps(other.m_textMaps)
    , m_volatileOptions(other.m_volatileOptions)
{
    for (const cups_option_t &option : other.m_cupsOptions)
        m_cupsOptions.add(option.name, option.value);
}

PrinterOptions &PrinterOptions::operator=(const PrinterOptions &other)
{
    if (this == &other)
        return *this;
    clearCupsOptions();
    for (auto option = other.cbegin(); option != other.cend(); ++option)
        setOption(option.key(), option.value());
    m_ppd = other.m_ppd;
    m_textMaps = other.m_textMaps; // they translate for that PPD
    m_destination = other.m_destination;
    m_volatileOptions = other.m_volatileOptions;
    return *this;
}

PrinterOptions::~PrinterOptions() = default;

bool PrinterOptions::load(const QString &destination)
{
    const DestinationName wanted(destination);
    if (!wanted.isValid())
        return false;
    const Cups::DestinationArray found =
        Destinations::named(wanted.name.constData(), wanted.instanceOrNull());
    const cups_dest_t *saved = found.find(wanted.name.constData(), wanted.instanceOrNull());
    if (!saved)
        return false;
    for (const cups_option_t &option :
         std::span(saved->options, static_cast<size_t>(saved->num_options))) {
        const QString name = QString::fromLatin1(option.name);
        setOption(name.startsWith(restoredPrefix) ? name.mid(volatilePrefix.size()) : name,
                  QString::fromLocal8Bit(option.value));
    }
    m_destination = destination;
    return true;
}

bool PrinterOptions::save(const QString &destination)
{
    const DestinationName wanted(destination);
    if (!wanted.isValid())
        return false;
    Cups::DestinationArray all = Destinations::saved();
    all.add(wanted.name.constData(), wanted.instanceOrNull());
    cups_dest_t *saved = all.find(wanted.name.constData(), wanted.instanceOrNull());
    if (!saved)
        return false;
    clearOptions(*saved);
    for (const cups_option_t &option : m_cupsOptions) {
        if (isRemoved(option) || (m_ppd && ppdFindOption(m_ppd.get(), option.name)))
            continue;
        const QString name = QString::fromLatin1(option.name);
        addOption(*saved,
                  (m_volatileOptions.contains(name) ? volatilePrefix + name : name).toLatin1(),
                  option.value);
    }
    if (m_ppd)
        addPpdOptions(*saved, m_ppd.get());
    return Destinations::writeSaved(std::move(all));
}

bool PrinterOptions::openPPD()
{
    const QString name = m_destination.section(QLatin1Char('/'), 0, 0);
    ClassInfo info;
    const bool isClass = !name.isEmpty() && _CUPS->findClass(name, info);
    Cups::PpdPtr ppd = fetchPpd(name.toLocal8Bit());
    if (!ppd && isClass && !info.memberNames.isEmpty())
        ppd = fetchPpd(info.memberNames.constFirst().toLocal8Bit());
    usePPD(ppd);
    return isClass || m_ppd;
}

void PrinterOptions::usePPD(const Cups::PpdPtr &ppd)
{
    m_ppd = ppd;
    if (!m_ppd)
        return;
    ppdMarkDefaults(m_ppd.get());
    markOptions(m_ppd.get(), m_cupsOptions);
    buildTextMap(JobOptions::pageSize);
    buildTextMap(JobOptions::mediaType);
}

void PrinterOptions::closePPD()
{
    m_ppd.reset();
}

bool PrinterOptions::setOption(const QString &name, const QString &value)
{
    const QByteArray cupsName = name.toLatin1();
    const QByteArray cupsValue = value.toLocal8Bit();
    m_cupsOptions.add(cupsName.constData(), cupsValue.constData());
    insert(name, value);
    if (!m_ppd)
        return true;
    Cups::OptionArray single;
    if (single.add(cupsName.constData(), cupsValue.constData()) != 1) {
        qWarning("cupsAddOption failed:");
        return false;
    }
    markOptions(m_ppd.get(), single);
    return true;
}

void PrinterOptions::setOptions(const QMap<QString, QString> &options)
{
    for (auto option = options.cbegin(); option != options.cend(); ++option)
        setOption(option.key(), option.value());
    const qsizetype parts = QMap::value(QLatin1String(JobOptions::media))
                                .split(QLatin1Char('.'), Qt::SkipEmptyParts)
                                .size();
    // What the media name spells out: size, then type, then tray.
    const char *const spelledOut[] = {JobOptions::pageSize, JobOptions::mediaType,
                                      JobOptions::inputSlot};
    for (qsizetype i = 0; i < std::min(parts, qsizetype(std::size(spelledOut))); ++i)
        remove(QLatin1String(spelledOut[i]));
}

void PrinterOptions::removeOption(const QString &name)
{
    setOption(name, withRemovalMarker(name));
    remove(name);
}

QString PrinterOptions::value(const QString &name, const QString &defaultValue) const
{
    const ppd_choice_t *marked =
        m_ppd ? ppdFindMarkedChoice(m_ppd.get(), name.toLatin1().constData()) : nullptr;
    return marked ? QString::fromLatin1(marked->choice) : QMap::value(name, defaultValue);
}

int PrinterOptions::intValue(const QString &name, int defaultValue) const
{
    bool isNumber = false;
    const int number = value(name, QString()).toInt(&isNumber, 10);
    return isNumber ? number : defaultValue;
}

QString PrinterOptions::valueAsText(const QString &name) const
{
    const ppd_choice_t *marked =
        m_ppd ? ppdFindMarkedChoice(m_ppd.get(), name.toLatin1().constData()) : nullptr;
    if (marked)
        return QString::fromUtf8(marked->text);
    const QString current = value(name, QString());
    const auto map = m_textMaps.constFind(name);
    if (current.isEmpty() || map == m_textMaps.cend()) {
        qWarning("Failed to get value as text");
        return {};
    }
    return map->texts.value(current);
}

bool PrinterOptions::setValueAsText(const QString &name, const QString &text)
{
    const auto map = m_textMaps.constFind(name);
    if (map == m_textMaps.cend()) {
        qWarning("Failed to set value by text");
        return false;
    }
    const auto found = map->values.constFind(text);
    if (found == map->values.cend()) {
        qWarning("Failed to set value by text: can't map text to key");
        return false;
    }
    const QString keyword = *found;
    setOption(name, keyword);
    if (m_ppd)
        ppdMarkOption(m_ppd.get(), name.toLatin1().constData(), keyword.toLatin1().constData());
    return true;
}

QStringList PrinterOptions::choices(const QString &name) const
{
    if (!m_ppd)
        return m_textMaps.value(name).ordered;
    QStringList texts;
    if (const ppd_option_t *option = ppdFindOption(m_ppd.get(), name.toLatin1().constData())) {
        for (const ppd_choice_t &choice : choicesOf(*option))
            texts.append(QString::fromUtf8(choice.text));
    }
    return texts;
}

void PrinterOptions::setVolatileOptions(const QStringList &names)
{
    m_volatileOptions = names;
}

void PrinterOptions::clearCupsOptions()
{
    m_cupsOptions.clear();
    clear();
}

void PrinterOptions::copyMediaOptions(const PrinterOptions &source)
{
    for (const char *keyword :
         {JobOptions::media, JobOptions::pageSize, JobOptions::mediaType, JobOptions::inputSlot}) {
        const QString name = QLatin1String(keyword);
        if (source.contains(name))
            setOption(name, source.QMap::value(name));
    }
}

QString PrinterOptions::describe() const
{
    QStringList table;
    for (auto option = cbegin(); option != cend(); ++option)
        table.append(pairText(option.key(), option.value()));
    QStringList array;
    for (const cups_option_t &option : m_cupsOptions)
        array.append(
            pairText(QString::fromLatin1(option.name), QString::fromLocal8Bit(option.value)));
    return section("map", table) + QLatin1Char('\n') + section("cupsOptions", array) +
           QLatin1Char('\n') + section("ppdOptions", PpdMarks::list(m_ppd.get()));
}

bool PrinterOptions::hasCupsOption(const QString &name) const
{
    return m_cupsOptions.value(name.toLatin1().constData()) != nullptr;
}

bool PrinterOptions::hasOption(const QString &name) const
{
    return hasCupsOption(name) ||
           (m_ppd && ppdFindOption(m_ppd.get(), name.toLatin1().constData()));
}

void PrinterOptions::buildTextMap(const char *keyword)
{
    const ppd_option_t *option = m_ppd ? ppdFindOption(m_ppd.get(), keyword) : nullptr;
    if (!option)
        return;
    const QString name = QString::fromLatin1(keyword);
    TextMap map;
    for (const ppd_choice_t &choice : choicesOf(*option)) {
        const QString value = QString::fromLatin1(choice.choice);
        const QString text = QString::fromUtf8(choice.text);
        map.texts.insert(value, text);
        map.values.insert(text, value);
        map.ordered.append(text);
        if (choice.marked)
            setOption(name, value);
    }
    m_textMaps.insert(name, map);
}
