#include "ClassInfo.h"

#include "AttributeLog.h"
#include "AttributeValues.h"

namespace
{
constexpr char MemberUris[] = "member-uris";
constexpr char MemberNames[] = "member-names";
} // namespace

void ClassInfo::readAttribute(ipp_attribute_t *attribute)
{
    using namespace AttributeValues;

    logAttribute(AttributeLog::classes(), attribute);
    if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER)
        return;
    if (isNamed(attribute, MemberUris))
        memberUris += texts(attribute);
    else if (isNamed(attribute, MemberNames))
        memberNames += texts(attribute);
    else
        PrinterInfo::readAttribute(attribute);
}

QList<const char *> ClassInfo::attributeNames()
{
    return PrinterInfo::attributeNames() << MemberUris << MemberNames;
}
