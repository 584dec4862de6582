#pragma once

#include <QString>

/** How the bytes of a PPD become text for the driver options' widgets. */
namespace PPDText
{
/**
 * Group texts, the driver's name, option texts of messages, option and choice keywords: one
 * character a byte.
 */
inline QString ascii(const char *text)
{
    return QString::fromLatin1(text);
}

/** Choice texts, and option texts on option rows and above their editors. */
inline QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}
} // namespace PPDText
