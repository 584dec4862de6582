#pragma once

#include "Destinations.h"

#include <QDeadlineTimer>
#include <QList>
#include <QString>

#include <functional>

/** How the destinations become the entries of the dialog's list. */
namespace DestinationList
{
using Entries = QList<Destinations::Entry>;

/** How often the server is asked before its answer "no destinations" is believed. */
constexpr int Tries = 20;

/**
 * Asks `list` until it gives destinations, at most `Tries` times, with a `pause` after each try in
 * vain. No further try is begun once `patience` is over: a server that takes seconds to say
 * nothing is not asked 20 times.
 */
Entries listPatiently(const std::function<Entries()> &list, const std::function<void()> &pause,
                      QDeadlineTimer patience);

/**
 * The text of an entry: the destination's name. Of an instance's name only what follows its 47th
 * byte is appended, so `Laser` and `Laser/draft` read alike.
 */
QString entryText(const Destinations::Entry &entry);

/** An entry to insert, and where. */
struct Addition {
    qsizetype index;
    Destinations::Entry entry;

    friend bool operator==(const Addition &, const Addition &) = default;
};

/**
 * The entries of `all` that `shown` lacks. Each goes right behind the one that it follows in `all`.
 * The indexes hold when the additions are inserted one after the other.
 */
QList<Addition> additions(const Entries &shown, const Entries &all);
} // namespace DestinationList
