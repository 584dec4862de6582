#include "IppBytes.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr int OperationGroup = 0x01;
constexpr int EndOfAttributes = 0x03;
constexpr int FirstValueTag = 0x10;
constexpr int Integer = 0x21;
constexpr int Boolean = 0x22;
constexpr int Range = 0x33;
constexpr int Text = 0x41;
constexpr int Name = 0x42;
constexpr int Keyword = 0x44;
constexpr int Uri = 0x45;
constexpr int Charset = 0x47;
constexpr int NaturalLanguage = 0x48;

struct Source {
    const QByteArray &bytes;
    qsizetype position = 0;
};

ssize_t readSource(void *context, ipp_uchar_t *buffer, size_t size)
{
    auto *source = static_cast<Source *>(context);
    const auto left = static_cast<size_t>(source->bytes.size() - source->position);
    const size_t count = std::min(size, left);
    std::memcpy(buffer, source->bytes.constData() + source->position, count);
    source->position += static_cast<qsizetype>(count);
    return static_cast<ssize_t>(count);
}

ipp_state_t readInto(ipp_t *message, const QByteArray &bytes)
{
    constexpr int Blocking = 1;
    Source source{bytes};
    return ippReadIO(&source, readSource, Blocking, nullptr, message);
}

int unsigned16(const QByteArray &bytes, qsizetype at)
{
    if (at + 1 >= bytes.size())
        return 0;
    return static_cast<unsigned char>(bytes.at(at)) << 8 |
           static_cast<unsigned char>(bytes.at(at + 1));
}
} // namespace

IppBytes::IppBytes(int code, int requestId)
    : m_bytes(QByteArray("\x02\x00", 2) + number16(code) + number32(requestId))
{
}

IppBytes IppBytes::request(int operation)
{
    // The tests run in the C locale, for which the library writes "en".
    return IppBytes(operation)
        .group(OperationGroup)
        .attribute(Charset, "attributes-charset", "utf-8")
        .attribute(NaturalLanguage, "attributes-natural-language", "en");
}

IppBytes IppBytes::response(int status)
{
    return IppBytes(status)
        .group(OperationGroup)
        .attribute(Charset, "attributes-charset", "utf-8")
        .attribute(NaturalLanguage, "attributes-natural-language", "en");
}

IppBytes &IppBytes::group(int tag)
{
    m_bytes += static_cast<char>(tag);
    return *this;
}

IppBytes &IppBytes::attribute(int tag, const QByteArray &name, const QByteArray &value)
{
    m_bytes += static_cast<char>(tag);
    m_bytes += number16(static_cast<int>(name.size())) + name;
    m_bytes += number16(static_cast<int>(value.size())) + value;
    return *this;
}

IppBytes &IppBytes::integer(int tag, const QByteArray &name, int value)
{
    return attribute(tag, name, number32(value));
}

IppBytes &IppBytes::boolean(const QByteArray &name, char value)
{
    return attribute(Boolean, name, QByteArray(1, value));
}

IppBytes &IppBytes::range(const QByteArray &name, int lower, int upper)
{
    return attribute(Range, name, number32(lower) + number32(upper));
}

IppBytes &IppBytes::uri(const QByteArray &name, const QByteArray &value)
{
    return attribute(Uri, name, value);
}

IppBytes &IppBytes::name(const QByteArray &name, const QByteArray &value)
{
    return attribute(Name, name, value);
}

IppBytes &IppBytes::text(const QByteArray &name, const QByteArray &value)
{
    return attribute(Text, name, value);
}

IppBytes &IppBytes::keyword(const QByteArray &name, const QByteArray &value)
{
    return attribute(Keyword, name, value);
}

IppBytes &IppBytes::keywords(const QByteArray &name, const QList<QByteArray> &values)
{
    for (qsizetype i = 0; i < values.size(); ++i)
        keyword(i == 0 ? name : QByteArray(), values.at(i));
    return *this;
}

QByteArray IppBytes::number16(int value)
{
    return {QByteArray(1, static_cast<char>(value >> 8)) + static_cast<char>(value)};
}

QByteArray IppBytes::number32(int value)
{
    return number16(value >> 16) + number16(value);
}

Cups::IppPtr parseIpp(const QByteArray &bytes)
{
    Cups::IppPtr message(ippNew());
    return readInto(message.get(), bytes) == IPP_STATE_DATA ? std::move(message) : nullptr;
}

Cups::IppPtr parseBrokenIpp(const QByteArray &bytes)
{
    Cups::IppPtr message(ippNew());
    readInto(message.get(), bytes);
    return message;
}

qsizetype ippMessageSize(const QByteArray &bytes)
{
    constexpr qsizetype HeaderSize = 8;
    qsizetype at = HeaderSize;
    while (at < bytes.size() && bytes.at(at) != EndOfAttributes) {
        if (static_cast<unsigned char>(bytes.at(at)) < FirstValueTag) {
            ++at;
            continue;
        }
        at += 1;
        at += 2 + unsigned16(bytes, at);
        at += 2 + unsigned16(bytes, at);
    }
    return std::min(at + 1, bytes.size());
}
