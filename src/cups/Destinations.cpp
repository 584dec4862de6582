#include "Destinations.h"

#include "AttributeValues.h"
#include "SavedOptionsFile.h"
#include "ServerConnection.h"
#include "WireText.h"
#include "WritableDestinations.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace
{
using Destinations::Entry;
using Destinations::SavedEntry;
using SavedOptionsFile::Name;
using SavedOptionsFile::splitName;

constexpr char PrinterName[] = "printer-name";

const char *orNull(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

/** Adds `entry` with the options of its queue, and its own on top, as the library does it. */
void addSaved(Cups::DestinationArray &destinations, const SavedEntry &entry)
{
    destinations.add(entry.name.constData(), orNull(entry.instance));
    cups_dest_t *destination = destinations.find(entry.name.constData(), orNull(entry.instance));
    if (destination)
        destination->num_options = cupsParseOptions(
            entry.options.constData(), destination->num_options, &destination->options);
}

/** The default destination: the environment's, the saved one, the server's. */
Name defaultName(http_t *http, const QList<SavedEntry> &saved)
{
    const QByteArray environment = Destinations::environmentDefault();
    if (!environment.isNull())
        return splitName(environment);
    const auto last = std::find_if(saved.crbegin(), saved.crend(),
                                   [](const SavedEntry &entry) { return entry.isDefault; });
    if (last != saved.crend())
        return {last->name, last->instance};
    return {cupsGetDefault2(http), {}};
}

/**
 * Marks the default and nothing else. The library itself leaves a default without its mark when
 * the queue has saved options.
 */
void markDefault(Cups::DestinationArray &destinations, const Name &name)
{
    for (cups_dest_t &destination : destinations)
        destination.is_default = 0;
    if (cups_dest_t *chosen = destinations.find(name.name.constData(), orNull(name.instance)))
        chosen->is_default = 1;
}

/** Adds `entry` with its own options alone. */
void addWithOwnOptions(Cups::DestinationArray &destinations, const SavedEntry &entry)
{
    const char *name = entry.name.constData();
    const char *instance = orNull(entry.instance);
    const bool isThere = destinations.find(name, instance);
    destinations.add(name, instance);
    cups_dest_t *added = destinations.find(name, instance);
    if (added && !isThere)
        cupsFreeOptions(std::exchange(added->num_options, 0),
                        std::exchange(added->options, nullptr));
    addSaved(destinations, entry);
    if (entry.isDefault)
        markDefault(destinations, {entry.name, entry.instance});
}

bool write(http_t *http, const Cups::DestinationArray &destinations)
{
    WritableDestinations writable(destinations);
    return cupsSetDests2(http, writable.count(), writable.data()) == 0;
}

bool isIn(const QList<SavedEntry> &entries, const cups_dest_t &destination)
{
    return std::any_of(entries.cbegin(), entries.cend(), [&destination](const SavedEntry &entry) {
        return entry.name.compare(destination.name, Qt::CaseInsensitive) == 0 &&
               entry.instance.compare(destination.instance, Qt::CaseInsensitive) == 0;
    });
}

/** Gives `instance` the options of `queue` that it has not; returns whether there are any. */
bool addInherited(cups_dest_t &instance, const cups_dest_t &queue)
{
    const int before = instance.num_options;
    for (int i = 0; i < queue.num_options; ++i) {
        const cups_option_t &option = queue.options[i];
        if (!cupsGetOption(option.name, instance.num_options, instance.options))
            instance.num_options =
                cupsAddOption(option.name, option.value, instance.num_options, &instance.options);
    }
    return instance.num_options > before;
}

/**
 * The library leaves an instance out all of whose options are what the server has for the queue.
 * Adds to such instances what the saved options of the queue give them, so that something is left.
 * Returns whether that changed any.
 */
bool fillLostInstances(Cups::DestinationArray &destinations)
{
    const QList<SavedEntry> kept = SavedOptionsFile::all();
    bool isChanged = false;
    for (cups_dest_t &destination : destinations) {
        if (!destination.instance || isIn(kept, destination))
            continue;
        const cups_dest_t *queue = destinations.find(destination.name, nullptr);
        if (queue && addInherited(destination, *queue))
            isChanged = true;
    }
    return isChanged;
}

/** Asks on the user's behalf, and for names alone. */
void addQuestion(ipp_t *request)
{
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                 PrinterName);
}

/** The names of the server's queues, in its order; nullopt when it does not answer. */
std::optional<QList<QByteArray>> queueNames(http_t *http)
{
    ipp_t *request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    addQuestion(request);
    const Cups::IppPtr response(cupsDoRequest(http, request, "/"));
    if (!response)
        return std::nullopt;
    QList<QByteArray> names;
    for (ipp_attribute_t *attribute = ippFirstAttribute(response.get()); attribute;
         attribute = ippNextAttribute(response.get())) {
        if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER ||
            !AttributeValues::isNamed(attribute, PrinterName))
            continue;
        const auto name = AttributeValues::bytes(attribute, 0);
        if (name && !name->empty())
            names.append(QByteArray(name->data(), static_cast<qsizetype>(name->size())));
    }
    return names;
}

QList<Entry> entriesOf(const Cups::DestinationArray &destinations)
{
    QList<Entry> entries;
    entries.reserve(destinations.count());
    for (const cups_dest_t &destination : destinations)
        entries.append({WireText::fromWire(destination.name),
                        WireText::fromWire(destination.instance), destination.is_default != 0});
    return entries;
}

Cups::DestinationArray discovered(http_t *http)
{
    Cups::DestinationArray destinations;
    destinations.countRef() = cupsGetDests2(http, destinations.dataRef());
    return destinations;
}

QList<Entry> listWithDiscovery()
{
    const ServerConnection::Ptr http = ServerConnection::open();
    if (!http)
        return {};
    Cups::DestinationArray destinations = discovered(http.get());
    markDefault(destinations, defaultName(http.get(), SavedOptionsFile::all()));
    return entriesOf(destinations);
}

enum class Knowledge { Known, Unknown, NoAnswer };

/** Whether the server has a queue of that name. */
Knowledge askForQueue(http_t *http, const char *name)
{
    std::array<char, HTTP_MAX_URI> uri;
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                     "localhost", 0, "/printers/%s", name);
    ipp_t *request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    addQuestion(request);
    const Cups::IppPtr response(cupsDoRequest(http, request, "/"));
    if (!response)
        return Knowledge::NoAnswer;
    return ippGetStatusCode(response.get()) < IPP_STATUS_REDIRECTION_OTHER_SITE
               ? Knowledge::Known
               : Knowledge::Unknown;
}

/**
 * Keeps the library from a connection of its own, which would have no time limit: while it lives,
 * the library's server is one that nobody can connect to.
 */
class NoOtherConnection
{
public:
    NoOtherConnection() { cupsSetServer("/dev/null"); }
    NoOtherConnection(const NoOtherConnection &) = delete;
    NoOtherConnection &operator=(const NoOtherConnection &) = delete;
    ~NoOtherConnection()
    {
        // The configured one, with all that the configuration says of it; or another.
        cupsSetServer(nullptr);
        if (m_server == cupsServer() && m_port == ippPort())
            return;
        cupsSetServer(m_server.constData());
        ippSetPort(m_port);
    }

private:
    const QByteArray m_server = cupsServer();
    const int m_port = ippPort();
};

/** Queue `name` with the options that the server gives it. */
Cups::DestinationArray queueWithServerOptions(http_t *http, const char *name)
{
    Cups::DestinationArray queue;
    // Where the server does not answer here, the library goes on to discovery.
    const NoOtherConnection here;
    // No saved options are those of an instance that no file can name.
    cups_dest_t *found = cupsGetNamedDest(http, name, " ");
    if (!found)
        return queue;
    queue.add(found->name, nullptr);
    std::swap(queue.data()->num_options, found->num_options);
    std::swap(queue.data()->options, found->options);
    cupsFreeDests(1, found);
    return queue;
}

/** A copy of the destination alone; nothing when there is none. */
Cups::DestinationArray only(const cups_dest_t *destination)
{
    Cups::DestinationArray one;
    if (!destination)
        return one;
    one.add(destination->name, destination->instance);
    // The library adds the queue of an instance as well.
    if (destination->instance)
        one.countRef() = cupsRemoveDest(destination->name, nullptr, one.count(), one.dataRef());
    cups_dest_t *copy = one.data();
    copy->is_default = destination->is_default;
    for (int i = 0; i < destination->num_options; ++i)
        copy->num_options =
            cupsAddOption(destination->options[i].name, destination->options[i].value,
                          copy->num_options, &copy->options);
    return one;
}

/** Queue `name` of the server with its saved instances, all with the options that they have. */
Cups::DestinationArray queueWithInstances(http_t *http, const char *name)
{
    Cups::DestinationArray all = queueWithServerOptions(http, name);
    for (SavedEntry entry : SavedOptionsFile::all()) {
        const cups_dest_t *queue = all.find(entry.name.constData(), nullptr);
        if (!queue)
            continue;
        entry.name = queue->name;
        addSaved(all, entry);
    }
    return all;
}
} // namespace

namespace Destinations
{
QByteArray environmentDefault()
{
    if (qEnvironmentVariableIsSet("LPDEST"))
        return qgetenv("LPDEST");
    const QByteArray printer = qgetenv("PRINTER");
    return printer == "lp" ? QByteArray() : printer;
}

QList<Entry> listWithoutDiscovery()
{
    const ServerConnection::Ptr http = ServerConnection::open();
    if (!http)
        return {};
    const auto names = queueNames(http.get());
    if (!names)
        return {};
    const QList<SavedEntry> saved = SavedOptionsFile::all();
    Cups::DestinationArray destinations;
    for (const QByteArray &name : *names)
        destinations.add(name.constData(), nullptr);
    for (const SavedEntry &entry : saved) {
        // Under the server's name: files may have it in another case.
        if (const cups_dest_t *queue = destinations.find(entry.name.constData(), nullptr))
            destinations.add(QByteArray(queue->name).constData(), orNull(entry.instance));
    }
    markDefault(destinations, defaultName(http.get(), saved));
    return entriesOf(destinations);
}

Cups::DestinationArray named(const char *name, const char *instance)
{
    const ServerConnection::Ptr http = ServerConnection::open();
    if (!http)
        return {};
    // Asked first because for a name that the server does not know, or does not tell, the library
    // goes on to discovery over a connection of its own, which may wait without end.
    switch (askForQueue(http.get(), name)) {
    case Knowledge::Known:
        return only(queueWithInstances(http.get(), name).find(name, instance));
    case Knowledge::Unknown:
        return only(discovered(http.get()).find(name, instance));
    case Knowledge::NoAnswer:
        break;
    }
    return {};
}

Cups::DestinationArray saved()
{
    Cups::DestinationArray destinations;
    for (const SavedEntry &entry : SavedOptionsFile::ofUser())
        addWithOwnOptions(destinations, entry);
    return destinations;
}

bool writeSaved(Cups::DestinationArray destinations)
{
    const ServerConnection::Ptr http = ServerConnection::open();
    if (!http || !write(http.get(), destinations))
        return false;
    return !fillLostInstances(destinations) || write(http.get(), destinations);
}

struct Discovery::Shared {
    /** Hands the listing over to the object, if that is still there. */
    void report(const QList<Entry> &entries)
    {
        const std::scoped_lock lock(mutex);
        if (!receiver)
            return;
        QMetaObject::invokeMethod(
            receiver, [discovery = receiver, entries] { emit discovery->finished(entries); },
            Qt::QueuedConnection);
    }

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
    if (std::exchange(m_isStarted, true))
        return;
    // Here and not on the thread: a process that ends meanwhile takes down what this sets up.
    httpInitialize();
    try {
        std::thread([shared = m_shared] {
            // A password cannot be asked for here, and the library would do so on the terminal.
            cupsSetPasswordCB2([](auto...) -> const char * { return nullptr; }, nullptr);
            shared->report(listWithDiscovery());
        }).detach();
    } catch (const std::system_error &) {
        qWarning("Discovery: no thread could be started");
        m_shared->report({});
    }
}
} // namespace Destinations
