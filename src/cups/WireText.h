#pragma once

#include <QByteArray>
#include <QString>

/**
 * Text on its way between the library and Qt. Names and texts of the server are UTF-8 (RFC 8011,
 * attributes-charset), whatever the locale says.
 */
namespace WireText
{
/** Null for null. */
inline QString fromWire(const char *text)
{
    return QString::fromUtf8(text);
}

inline QByteArray toWire(const QString &text)
{
    return text.toUtf8();
}
} // namespace WireText
