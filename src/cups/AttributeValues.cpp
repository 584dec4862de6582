#include "AttributeValues.h"

#include <cstring>

namespace
{
bool isIndexOf(ipp_attribute_t *attribute, int index)
{
    return index >= 0 && index < ippGetCount(attribute);
}

bool holdsIntegers(ipp_attribute_t *attribute)
{
    const ipp_tag_t tag = ippGetValueTag(attribute);
    return tag == IPP_TAG_INTEGER || tag == IPP_TAG_ENUM;
}

std::optional<std::string_view> octets(ipp_attribute_t *attribute, int index)
{
    int length = 0;
    const auto *data = static_cast<const char *>(ippGetOctetString(attribute, index, &length));
    if (!data || length < 0)
        return std::nullopt;
    // Text ends at a zero byte, here as everywhere.
    return std::string_view(data, strnlen(data, static_cast<size_t>(length)));
}

QString toText(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}
} // namespace

namespace AttributeValues
{
std::optional<std::string_view> bytes(ipp_attribute_t *attribute, int index)
{
    if (!isIndexOf(attribute, index))
        return std::nullopt;
    if (ippGetValueTag(attribute) == IPP_TAG_STRING)
        return octets(attribute, index);
    const char *string = ippGetString(attribute, index, nullptr);
    return string ? std::optional<std::string_view>(string) : std::nullopt;
}

bool isNamed(ipp_attribute_t *attribute, const char *name)
{
    const char *actual = ippGetName(attribute);
    return actual && std::strcmp(actual, name) == 0;
}

QStringList texts(ipp_attribute_t *attribute)
{
    QStringList all;
    for (int i = 0; i < ippGetCount(attribute); ++i) {
        if (const auto value = bytes(attribute, i))
            all.append(toText(*value));
    }
    return all;
}

std::optional<int> integer(ipp_attribute_t *attribute)
{
    if (!holdsIntegers(attribute) || ippGetCount(attribute) < 1)
        return std::nullopt;
    return ippGetInteger(attribute, 0);
}

QList<int> integers(ipp_attribute_t *attribute)
{
    QList<int> all;
    if (holdsIntegers(attribute)) {
        for (int i = 0; i < ippGetCount(attribute); ++i)
            all.append(ippGetInteger(attribute, i));
    }
    return all;
}

std::optional<bool> boolean(ipp_attribute_t *attribute)
{
    if (ippGetValueTag(attribute) != IPP_TAG_BOOLEAN || ippGetCount(attribute) < 1)
        return std::nullopt;
    return ippGetBoolean(attribute, 0) != 0;
}

std::optional<Range> range(ipp_attribute_t *attribute)
{
    if (ippGetValueTag(attribute) != IPP_TAG_RANGE || ippGetCount(attribute) < 1)
        return std::nullopt;
    Range found;
    found.lower = ippGetRange(attribute, 0, &found.upper);
    return found;
}

void take(QString &field, ipp_attribute_t *attribute, int index)
{
    if (const auto value = bytes(attribute, index))
        field = toText(*value);
}

void take(int &field, ipp_attribute_t *attribute)
{
    field = integer(attribute).value_or(field);
}

void take(bool &field, ipp_attribute_t *attribute)
{
    field = boolean(attribute).value_or(field);
}
} // namespace AttributeValues
