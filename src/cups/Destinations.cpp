#include "Destinations.h"

#include "AttributeValues.h"
#include "ServerConnection.h"

#include <QFile>

#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace
{
using Destinations::Entry;
using Destinations::SavedEntry;

constexpr char SavedOptionsFile[] = "/lpoptions";

const char *orNull(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

QByteArray contentsOf(const QByteArray &path)
{
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray systemFile()
{
    const QByteArray root = qgetenv("CUPS_SERVERROOT");
    return (root.isEmpty() ? QByteArray("/etc/cups") : root) + SavedOptionsFile;
}

QByteArray userFile()
{
    const QByteArray home = qgetenv("HOME");
    return home.isEmpty() ? QByteArray() : home + "/.cups" + SavedOptionsFile;
}

/** All saved entries in the order in which the library reads them. */
QList<SavedEntry> allSaved()
{
    QList<SavedEntry> all = Destinations::parseSavedOptions(contentsOf(systemFile()));
    const QByteArray own = userFile();
    if (!own.isEmpty())
        all += Destinations::parseSavedOptions(contentsOf(own));
    return all;
}

void makeDefault(Cups::DestinationArray &destinations, const char *name, const char *instance)
{
    cups_dest_t *chosen = destinations.find(name, instance);
    if (!chosen)
        return;
    for (cups_dest_t &destination : destinations)
        destination.is_default = 0;
    chosen->is_default = 1;
}

/** `line` up to a comment, without blanks at its ends. "\#" stands for the character itself. */
QByteArray withoutComment(QByteArray line)
{
    const qsizetype sign = line.indexOf('#');
    if (sign > 0 && line.at(sign - 1) == '\\')
        line.remove(sign - 1, 1);
    else if (sign >= 0)
        line.truncate(sign);
    return line.trimmed();
}

bool isBlank(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/** Cuts the first word off `text`. */
QByteArray takeWord(QByteArray &text)
{
    qsizetype end = 0;
    while (end < text.size() && !isBlank(text.at(end)))
        ++end;
    const QByteArray word = text.left(end);
    text = text.mid(end).trimmed();
    return word;
}

bool isWord(const QByteArray &word, const char *keyword)
{
    return word.compare(keyword, Qt::CaseInsensitive) == 0;
}

std::optional<SavedEntry> parseSavedLine(const QByteArray &line)
{
    QByteArray rest = withoutComment(line);
    const QByteArray keyword = takeWord(rest);
    const bool isDefault = isWord(keyword, "Default");
    if ((!isDefault && !isWord(keyword, "Dest")) || rest.isEmpty())
        return std::nullopt;
    const QByteArray destination = takeWord(rest);
    const qsizetype slash = destination.indexOf('/');
    SavedEntry entry;
    entry.name = destination.left(slash);
    entry.instance = slash < 0 ? QByteArray() : destination.mid(slash + 1);
    entry.options = rest;
    entry.isDefault = isDefault;
    return entry;
}

/** The names of the server's queues, in its order; nullopt when it does not answer. */
std::optional<QList<QByteArray>> queueNames(http_t *http)
{
    ipp_t *request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                 "printer-name");
    const Cups::IppPtr response(cupsDoRequest(http, request, "/"));
    if (!response)
        return std::nullopt;
    QList<QByteArray> names;
    for (ipp_attribute_t *attribute = ippFirstAttribute(response.get()); attribute;
         attribute = ippNextAttribute(response.get())) {
        if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER ||
            !AttributeValues::isNamed(attribute, "printer-name"))
            continue;
        if (const auto name = AttributeValues::bytes(attribute, 0))
            names.append(QByteArray(name->data(), static_cast<qsizetype>(name->size())));
    }
    return names;
}

QList<Entry> entriesOf(const Cups::DestinationArray &destinations)
{
    QList<Entry> entries;
    entries.reserve(destinations.count());
    for (const cups_dest_t &destination : destinations)
        entries.append({QString::fromLatin1(destination.name),
                        QString::fromLatin1(destination.instance), destination.is_default != 0});
    return entries;
}

QList<Entry> listWithDiscovery()
{
    Cups::DestinationArray destinations;
    const Cups::HttpPtr http = ServerConnection::open();
    if (http)
        destinations.countRef() = cupsGetDests2(http.get(), destinations.dataRef());
    return entriesOf(destinations);
}
} // namespace

namespace Destinations
{
QByteArray environmentDefault()
{
    const QByteArray destination = qgetenv("LPDEST");
    if (!destination.isNull())
        return destination;
    const QByteArray printer = qgetenv("PRINTER");
    return printer == "lp" ? QByteArray() : printer;
}

QList<SavedEntry> parseSavedOptions(const QByteArray &text)
{
    QList<SavedEntry> entries;
    for (const QByteArray &line : text.split('\n')) {
        if (auto entry = parseSavedLine(line))
            entries.append(*std::move(entry));
    }
    return entries;
}

QList<Entry> listWithoutDiscovery()
{
    const Cups::HttpPtr http = ServerConnection::open();
    if (!http)
        return {};
    const auto names = queueNames(http.get());
    if (!names)
        return {};
    Cups::DestinationArray destinations;
    for (const QByteArray &name : *names)
        destinations.add(name.constData(), nullptr);
    makeDefault(destinations, cupsGetDefault2(http.get()), nullptr);
    for (const SavedEntry &entry : allSaved()) {
        if (!destinations.find(entry.name.constData(), nullptr))
            continue;
        destinations.add(entry.name.constData(), orNull(entry.instance));
        if (entry.isDefault && environmentDefault().isEmpty())
            makeDefault(destinations, entry.name.constData(), orNull(entry.instance));
    }
    return entriesOf(destinations);
}

Cups::DestinationArray named(const char *name, const char *instance)
{
    Cups::DestinationArray found;
    const Cups::HttpPtr http = ServerConnection::open();
    if (!http)
        return found;
    if (cups_dest_t *destination = cupsGetNamedDest(http.get(), name, instance)) {
        found.countRef() = 1;
        *found.dataRef() = destination;
    }
    return found;
}

Cups::DestinationArray saved()
{
    Cups::DestinationArray destinations;
    for (const SavedEntry &entry : allSaved()) {
        destinations.add(entry.name.constData(), orNull(entry.instance));
        cups_dest_t *destination =
            destinations.find(entry.name.constData(), orNull(entry.instance));
        if (!destination)
            continue;
        destination->num_options = cupsParseOptions(
            entry.options.constData(), destination->num_options, &destination->options);
        if (entry.isDefault)
            makeDefault(destinations, entry.name.constData(), orNull(entry.instance));
    }
    return destinations;
}

bool writeSaved(const Cups::DestinationArray &destinations)
{
    const Cups::HttpPtr http = ServerConnection::open();
    return http && cupsSetDests2(http.get(), destinations.count(), destinations.data()) == 0;
}

struct Discovery::Shared {
    std::mutex mutex;
    Discovery *receiver = nullptr;
};

Discovery::Discovery(QObject *parent)
    : QObject(parent)
    , m_shared(std::make_shared<Shared>())
{
    m_shared->receiver = this;
}

Discovery::~Discovery()
{
    const std::scoped_lock lock(m_shared->mutex);
    m_shared->receiver = nullptr;
}

void Discovery::start()
{
    std::thread([shared = m_shared] {
        const QList<Entry> entries = listWithDiscovery();
        const std::scoped_lock lock(shared->mutex);
        Discovery *receiver = shared->receiver;
        if (!receiver)
            return;
        QMetaObject::invokeMethod(
            receiver, [receiver, entries] { emit receiver->finished(entries); },
            Qt::QueuedConnection);
    }).detach();
}
} // namespace Destinations
