#include "DestinationList.h"

#include <QHash>

namespace
{
/** How many leading bytes of an instance's name stay out of the entry's text. */
constexpr qsizetype HiddenInstanceBytes = 47;

using Key = std::pair<QString, QString>;

Key keyOf(const Destinations::Entry &entry)
{
    return {entry.name, entry.instance};
}

QHash<Key, qsizetype> indexesOf(const DestinationList::Entries &entries)
{
    QHash<Key, qsizetype> indexes;
    for (qsizetype index = 0; index < entries.size(); ++index)
        indexes.insert(keyOf(entries[index]), index);
    return indexes;
}
} // namespace

namespace DestinationList
{
Entries listPatiently(const std::function<Entries()> &list, const std::function<void()> &pause,
                      QDeadlineTimer patience)
{
    for (int tries = 0; tries < Tries; ++tries) {
        const Entries entries = list();
        if (!entries.isEmpty())
            return entries;
        pause();
        if (patience.hasExpired())
            break;
    }
    return {};
}

QString entryText(const Destinations::Entry &entry)
{
    const QByteArray instance = entry.instance.toLocal8Bit();
    return entry.name + QString::fromLocal8Bit(instance.mid(HiddenInstanceBytes));
}

QList<Addition> additions(const Entries &shown, const Entries &all)
{
    const QHash<Key, qsizetype> shownAt = indexesOf(shown);
    // What follows each shown entry; the first list is for what precedes them all.
    QList<Entries> followers(shown.size() + 1);
    qsizetype previous = 0;
    for (const Destinations::Entry &entry : all) {
        const auto found = shownAt.find(keyOf(entry));
        if (found != shownAt.end())
            previous = *found + 1;
        else
            followers[previous].append(entry);
    }

    QList<Addition> result;
    for (qsizetype index = 0; index < followers.size(); ++index) {
        for (const Destinations::Entry &entry : std::as_const(followers[index]))
            result.append({index + result.size(), entry});
    }
    return result;
}
} // namespace DestinationList
