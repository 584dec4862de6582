#pragma once

#include "CupsHandles.h"

#include <QByteArray>
#include <QList>

/**
 * Writes IPP messages byte by byte (RFC 8010), without the library: what a request must look like
 * on the wire, and what a server, an ill-behaved one included, may answer.
 */
class IppBytes
{
public:
    /** `code`: the operation of a request, the status of a response. */
    explicit IppBytes(int code, int requestId = 1);
    /** A request as every one begins: version, operation, charset and language. */
    static IppBytes request(int operation);
    /** A response as every one begins. */
    static IppBytes response(int status = 0);

    IppBytes &group(int tag);
    IppBytes &attribute(int tag, const QByteArray &name, const QByteArray &value);
    IppBytes &integer(int tag, const QByteArray &name, int value);
    IppBytes &boolean(const QByteArray &name, char value);
    IppBytes &range(const QByteArray &name, int lower, int upper);
    /** One more value of the attribute before. */
    IppBytes &more(int tag, const QByteArray &value) { return attribute(tag, {}, value); }
    IppBytes &uri(const QByteArray &name, const QByteArray &value);
    IppBytes &name(const QByteArray &name, const QByteArray &value);
    IppBytes &text(const QByteArray &name, const QByteArray &value);
    IppBytes &keyword(const QByteArray &name, const QByteArray &value);
    IppBytes &keywords(const QByteArray &name, const QList<QByteArray> &values);

    /** The message with its end tag. */
    QByteArray bytes() const { return m_bytes + '\x03'; }
    operator QByteArray() const { return bytes(); }

    static QByteArray number16(int value);
    static QByteArray number32(int value);

private:
    QByteArray m_bytes;
};

/** Reads a message as the library does. Null when the library refuses it. */
Cups::IppPtr parseIpp(const QByteArray &bytes);
/** The same for a message that breaks off: what the library has read of it. */
Cups::IppPtr parseBrokenIpp(const QByteArray &bytes);
/** How many bytes the message at the start of `bytes` has; the rest is the document. */
qsizetype ippMessageSize(const QByteArray &bytes);
