#pragma once

#include "CupsHandles.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <memory>

/**
 * The destinations of the user: the server's queues, their saved instances, and the printers that
 * discovery finds in the network.
 *
 * `cupsGetDests` waits for discovery wherever a discovery daemon runs, so it is called in the
 * background only; the server's queues and the saved ones are there in milliseconds.
 */
namespace Destinations
{
struct Entry {
    QString name;
    /** Empty for the queue itself. */
    QString instance;
    bool isDefault = false;

    friend bool operator==(const Entry &, const Entry &) = default;
};

/** The default destination that the environment names (LPDEST, PRINTER); null for none. */
QByteArray environmentDefault();

/** One line of a saved-options file (lpoptions), in the file's order. */
struct SavedEntry {
    QByteArray name;
    QByteArray instance;
    /** The options as the file has them, in the syntax of cupsParseOptions. */
    QByteArray options;
    bool isDefault = false;
};

/** The entries of a saved-options file with the contents `text`. Lines of other kinds are skipped.
 */
QList<SavedEntry> parseSavedOptions(const QByteArray &text);

/**
 * The server's queues with the saved instances of them, in the order of `cupsGetDests`, with the
 * default marked. Does not wait for discovery. Empty when the server does not answer.
 */
QList<Entry> listWithoutDiscovery();

/**
 * Destination `name` (with `instance`, or null) with the server's and the saved options, as
 * `cupsGetDests` would give it; empty (count 0) when it is not known.
 */
Cups::DestinationArray named(const char *name, const char *instance);

/**
 * Every destination that has saved options, whether the server knows it at the moment or not, with
 * those options: the list to change and hand to `writeSaved`.
 */
Cups::DestinationArray saved();

/**
 * Writes the user's saved-options file with `cupsSetDests`. False when that fails, be it before the
 * file is written or when what is missing in it is to be added.
 *
 * What the library does not write is gone: comments, lines of other kinds, an option that the
 * server has for the queue anyway, and an instance that has no other options, unless its queue has
 * some: then it gets those. An option of more than one line is not written; a warning says so.
 */
[[nodiscard]] bool writeSaved(Cups::DestinationArray destinations);

/**
 * Lists all destinations, those that discovery finds included, on a thread of its own, and says so
 * once. Deleting the object at any moment is safe: it neither waits nor reports afterwards.
 */
class Discovery : public QObject
{
    Q_OBJECT
public:
    explicit Discovery(QObject *parent = nullptr);
    ~Discovery() override;
    /** Starts the one listing of this object; later calls do nothing. */
    void start();

signals:
    /** All destinations in the order of `cupsGetDests`; emitted in the thread of this object. */
    void finished(const QList<Destinations::Entry> &entries);

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
    bool m_isStarted = false;
};
} // namespace Destinations
