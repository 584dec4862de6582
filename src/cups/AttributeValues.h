#pragma once

#include "CupsHandles.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <string_view>

/**
 * Values of an attribute of a response. What a server sends is not trusted: a value that is not
 * there or is of another type than asked for gives nothing.
 */
namespace AttributeValues
{
/** The text of value `index`, octet strings included. It lives as long as the attribute. */
std::optional<std::string_view> bytes(ipp_attribute_t *attribute, int index);

/** Whether the attribute is called `name`. */
bool isNamed(ipp_attribute_t *attribute, const char *name);

/** All texts in order. */
QStringList texts(ipp_attribute_t *attribute);
/** The first integer or enum. */
std::optional<int> integer(ipp_attribute_t *attribute);
/** All integers or enums in order. */
QList<int> integers(ipp_attribute_t *attribute);
/** The first boolean. */
std::optional<bool> boolean(ipp_attribute_t *attribute);

struct Range {
    int lower = 0;
    int upper = 0;
};
/** The first range. */
std::optional<Range> range(ipp_attribute_t *attribute);

/** Put the value into the field; one that is not there or of another type leaves it as it was. */
void take(QString &field, ipp_attribute_t *attribute, int index = 0);
void take(int &field, ipp_attribute_t *attribute);
void take(bool &field, ipp_attribute_t *attribute);
} // namespace AttributeValues
