#include "ModelMatch.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr QChar dash(u'-');
constexpr QChar blank(u' ');
constexpr QChar separator(u'/');
constexpr qsizetype LeastScore = 3;

QString folded(QString text)
{
    std::ranges::transform(text, text.begin(), [](QChar c) { return c.toCaseFolded(); });
    return text;
}

/**
 * For each position of `text`, how many characters from the start of `pattern` stand there.
 * This is the Z algorithm, which is linear: the texts come from files and from the network.
 */
std::vector<qsizetype> matchLengths(const QString &pattern, const QString &text)
{
    const QString joined = pattern + text;
    std::vector<qsizetype> lengths(static_cast<size_t>(joined.size()));
    qsizetype begin = 0;
    qsizetype end = 0;
    for (qsizetype i = 1; i < joined.size(); ++i) {
        qsizetype length = i < end ? std::min(end - i, lengths[static_cast<size_t>(i - begin)]) : 0;
        while (i + length < joined.size() && joined[length] == joined[i + length])
            ++length;
        if (i + length > end) {
            begin = i;
            end = i + length;
        }
        lengths[static_cast<size_t>(i)] = length;
    }
    lengths.erase(lengths.begin(), lengths.begin() + pattern.size());
    for (qsizetype &length : lengths)
        length = std::min(length, pattern.size());
    return lengths;
}

/** The length of the longest start of `pattern` that `text` contains. */
qsizetype longestStart(const QString &pattern, const QString &text)
{
    const std::vector<qsizetype> lengths = matchLengths(pattern, text);
    return lengths.empty() ? 0 : *std::ranges::max_element(lengths);
}

/**
 * The length of the longest start of `rest` that `tail` begins with or has after a separator, where
 * it stands for the first time.
 */
qsizetype listedStart(const QString &rest, const QString &tail)
{
    const std::vector<qsizetype> lengths = matchLengths(rest, tail);
    qsizetype longest = 0;
    qsizetype listed = 0;
    for (qsizetype i = 0; i < tail.size(); ++i) {
        const qsizetype length = lengths[static_cast<size_t>(i)];
        // Shorter starts have been met before.
        if (length <= longest)
            continue;
        longest = length;
        if (i == 0 || tail[i - 1] == separator)
            listed = length;
    }
    return listed;
}
} // namespace

QString ModelMatch::key(const QString &text)
{
    const qsizetype position = text.indexOf(dash);
    if (position < 0)
        return text.toUpper();
    const qsizetype begin = text.lastIndexOf(blank, position) + 1;
    const qsizetype end = text.indexOf(blank, position);
    return text.sliced(begin, (end < 0 ? text.size() : end) - begin).toUpper();
}

qsizetype ModelMatch::score(const QString &modelKey, const QString &deviceKey)
{
    const QString model = folded(modelKey);
    // More of the device's text than the model is long cannot be found there, nor need it be read.
    const qsizetype common = longestStart(folded(deviceKey.left(model.size())), model);
    if (common == deviceKey.size())
        return deviceKey.size();
    const qsizetype prefix = deviceKey.indexOf(dash);
    if (prefix < 0 || common < prefix)
        return 0;

    // The device's text is cut where the model has its dash, wherever its own may be.
    const qsizetype cut = model.indexOf(dash) + 1;
    const QString tail = model.sliced(cut);
    const qsizetype sum = prefix + 1 + listedStart(folded(deviceKey.mid(cut, tail.size())), tail);
    return sum >= LeastScore ? sum : 0;
}
