#pragma once

#include <QString>

/** How the name of a device is compared with the models of a catalogue. */
namespace ModelMatch
{
/**
 * What a make-and-model text is looked up by: the word that contains its first dash, or the whole
 * text when there is none, in upper case. Words end at blanks.
 */
QString key(const QString &text);

/**
 * How well the key of a device fits the key of a model in the catalogue, whatever the case; 0: not
 * at all. Takes time in proportion to the lengths of the texts.
 */
qsizetype score(const QString &modelKey, const QString &deviceKey);
} // namespace ModelMatch
